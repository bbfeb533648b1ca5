#include <iterator>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/Conversions.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace {

std::string BandOf(OpenedFile& opened) {
  const std::vector<std::string> bands = Wording::BandNames(opened.GetSession().Host());
  const std::string position = ValueText::At(opened.Content(), "Band_k6k", 1);
  return IsNumeric(position) && CLng(position) >= 0 && CLng(position) < std::ssize(bands)
             ? bands[static_cast<std::size_t>(CLng(position))]
             : "unknown";
}

struct InfoArguments {
  std::string file;
};

ExitCode ShowInfo(const InfoArguments& arguments, Workplace& workplace) {
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  opened.ShowForms();
  const Provider& content = opened.Content();
  const std::string band = BandOf(opened);

  Json tables = Json::List();
  TextTable list({{"Table", TextTable::Align::Right},
                  {"Title"},
                  {"Records", TextTable::Align::Right},
                  {"At most", TextTable::Align::Right}});
  for (const SchemaTable& table : content.GetSchema().Tables()) {
    const RecordNr count = content.Count(table);
    if (!table.IsRaw() || count == 0) continue;
    tables.Add(
        {{"table", table.number}, {"title", table.title}, {"records", count}, {"maximum", table.maximum}});
    list.Add(
        {std::to_string(table.number), table.title, std::to_string(count), std::to_string(table.maximum)});
  }
  const std::string& version = content.GetSchema().Version();
  workplace.Tell(
      [&] {
        return Json(
            {{"file", arguments.file}, {"version", version}, {"band", band}, {"tables", std::move(tables)}});
      },
      [&](std::ostream& out) {
        out << "File:     " << Printable::Text(arguments.file) << "\nVersion:  " << version
            << "\nBand:     " << band << "\nChannels: " << content.Count(5)
            << "\nNetworks: " << content.Count(21) << "\n\n";
        list.Print(out);
      });
  return ExitCode::Done;
}

void Take(Words& words, InfoArguments& given) { words.Required("FILE", given.file, "The personality"); }

const Verb kInfo({.name = "info",
                  .about = "Tell version, band and size of a personality",
                  .examples = {{"Version, band and size", "kd4410 info samples/city-fleet.json"},
                               {"The same for a program", "kd4410 info samples/harbour-0081.json --json"}}},
                 Take, ShowInfo);

}  // namespace
