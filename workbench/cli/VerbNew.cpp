#include <ostream>
#include <utility>

#include "workbench/cli/Verb.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"

namespace {

struct NewArguments {
  std::string file;
  std::string version;
  std::string band;
  bool force = false;
};

/// The position of a band by its code ("B1").
std::int32_t BandPosition(const CodeWords& bands, const std::string& code) {
  if (const auto position = bands.CodeOf(code)) return *position;
  std::string known;
  for (const CodeWords::Entry& band : bands.Entries()) known += (known.empty() ? "" : ", ") + band.word;
  throw UsageError(Printable::Quoted(code) + " is no band; the bands are " + known);
}

ExitCode MakeNew(const NewArguments& arguments, Workplace& workplace) {
  AtomicFile file = workplace.FileToSave(arguments.file);
  if (file.Exists() && !arguments.force) {
    throw UsageError(arguments.file + " is there already; --force overwrites it");
  }
  OpenedFile opened(workplace, std::move(file), NewPersonality(workplace.Schemas(), arguments.version),
                    workplace.Messenger());
  Session& session = opened.GetSession();
  opened.ShowForms();
  if (!arguments.band.empty()) {
    // No rule to ask: it would judge channels that are not there yet.
    const SchemaField& band = TypedNames::FieldNamed(opened.Content().GetSchema(), "Band_k6k");
    session.Store(band, 1, BandPosition(Wording::WordsOf(session.Host(), band), arguments.band));
  }
  opened.Save();
  const std::string& version = opened.Content().GetSchema().Version();
  workplace.Tell(
      [&] {
        return Json({{"file", arguments.file}, {"version", version}});
      },
      [&](std::ostream& out) {
        out << Printable::Text(arguments.file) << ": a new personality of version " << version << '\n';
      });
  return ExitCode::Done;
}

void Take(Words& words, NewArguments& given) {
  words.Required("FILE", given.file, "The file to be written");
  words.RequiredOption("--version", given.version, "VERSION",
                       "Model and database version, such as KD4410.0094");
  words.Option("--band", given.band, "BAND", "Code of the band, such as B1 (see: kd4410 bands)");
  words.Flag("--force", given.force, "Overwrite the file if it exists");
}

const Verb kNew({.name = "new",
                 .about = "Make a new personality with the defaults of the schema",
                 .examples = {{"A personality of the newest radios in the band of 136 to 174 MHz",
                               "kd4410 new fleet.json --version KD4410.0094 --band B1"},
                              {"One of a base station", "kd4410 new relay.json --version 'KE2210 Rx.0094'"}}},
                Take, MakeNew);

}  // namespace
