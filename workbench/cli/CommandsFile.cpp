#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/TextTable.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueText.h"

namespace {

struct NewArguments {
  std::string file;
  std::string version;
  std::string band;
  bool force = false;
};

/// The place in the band list of a band's code ("B1"), compared without regard to case.
std::int32_t BandPosition(Session& session, const std::string& code) {
  XArrayDBObject bands;
  session.Host().Require(session.Host().Owner().GetBands(bands));
  std::string known;
  for (std::int32_t row = 0; row <= bands.UpperBound(1); ++row) {
    const std::string bandCode = CStr(bands.GetValue(row, 0)).substr(0, 2);
    if (EqualsIgnoringCase(bandCode, code)) return row;
    known += (known.empty() ? "" : ", ") + bandCode;
  }
  throw UsageError("\"" + code + "\" is no band; the bands are " + known);
}

ExitCode MakeNew(const NewArguments& arguments, Workplace& workplace) {
  AtomicFile file(arguments.file);
  if (file.Exists() && !arguments.force) {
    throw UsageError(arguments.file + " is there already; --force overwrites it");
  }
  OpenedFile opened(workplace, std::move(file), NewPersonality(workplace.Schemas(), arguments.version),
                    workplace.Messenger());
  Session& session = opened.GetSession();
  session.ConvertToForms();
  if (!arguments.band.empty()) {
    // No rule to ask: it would judge channels that are not there yet.
    session.Store(TypedNames::FieldNamed(opened.Content().GetSchema(), "Band_k6k"), 1,
                  BandPosition(session, arguments.band));
  }
  opened.Save();
  const std::string& version = opened.Content().GetSchema().Version();
  if (workplace.options.json) {
    workplace.Emit({{"file", arguments.file}, {"version", version}});
  } else {
    workplace.Out() << arguments.file << ": a new personality of version " << version << '\n';
  }
  return ExitCode::Done;
}

std::string BandOf(OpenedFile& opened) {
  Session& session = opened.GetSession();
  XArrayDBObject bands;
  session.Host().Require(session.Host().Owner().GetBands(bands));
  const std::string position = ValueText::At(opened.Content(), "Band_k6k", 1);
  return IsNumeric(position) && CLng(position) >= 0 && CLng(position) <= bands.UpperBound(1)
             ? CStr(bands.GetValue(CLng(position), 0))
             : "unknown";
}

ExitCode ShowInfo(const std::string& file, Workplace& workplace) {
  OpenedFile opened(workplace, file, workplace.Messenger());
  opened.GetSession().ConvertToForms();
  const Provider& content = opened.Content();
  const std::string band = BandOf(opened);

  Workplace::Json tables = Workplace::Json::array();
  TextTable list({{"Table", TextTable::Align::Right},
                  {"Title"},
                  {"Records", TextTable::Align::Right},
                  {"At most", TextTable::Align::Right}});
  for (const SchemaTable& table : content.GetSchema().Tables()) {
    const RecordNr count = content.Count(table);
    if (!table.IsRaw() || count == 0) continue;
    tables.push_back(
        {{"table", table.number}, {"title", table.title}, {"records", count}, {"maximum", table.maximum}});
    list.Add(
        {std::to_string(table.number), table.title, std::to_string(count), std::to_string(table.maximum)});
  }
  const std::string& version = content.GetSchema().Version();
  if (workplace.options.json) {
    workplace.Emit({{"file", file}, {"version", version}, {"band", band}, {"tables", std::move(tables)}});
    return ExitCode::Done;
  }
  workplace.Out() << "File:     " << file << "\nVersion:  " << version << "\nBand:     " << band
                  << "\nChannels: " << content.Count(5) << "\nNetworks: " << content.Count(21) << "\n\n";
  list.Print(workplace.Out());
  return ExitCode::Done;
}

}  // namespace

void AddFileCommands(CLI::App& app, Action& action) {
  auto made = std::make_shared<NewArguments>();
  CLI::App* command = app.add_subcommand("new", "Make a new personality with the defaults of the schema");
  command->add_option("FILE", made->file, "The file to be written")->required();
  command->add_option("--version", made->version, "Model and database version, such as KD4410.0094")
      ->type_name("VERSION")
      ->required();
  command->add_option("--band", made->band, "Code of the band, such as B1 (see: kd4410 bands)")
      ->type_name("BAND");
  command->add_flag("--force", made->force, "Overwrite the file if it exists");
  command->callback(
      [made, &action] { action = [made](Workplace& workplace) { return MakeNew(*made, workplace); }; });

  auto file = std::make_shared<std::string>();
  command = app.add_subcommand("info", "Tell version, band and size of a personality");
  command->add_option("FILE", *file, "The personality")->required();
  command->callback(
      [file, &action] { action = [file](Workplace& workplace) { return ShowInfo(*file, workplace); }; });
}
