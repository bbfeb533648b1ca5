#include <memory>
#include <ostream>
#include <utility>
#include <vector>

#include "workbench/cli/Report.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/host/RadioDescription.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Journal.h"
#include "workbench/store/Provider.h"

namespace {

struct PreprogramArguments {
  std::string file;
  std::string radio;
};

/// What the host compares, for the tier asks for the control head alone. What the radio does not tell is no
/// difference.
std::vector<std::string> Differences(const RadioDescription& radio, const VersionName& personality) {
  std::vector<std::string> differences;
  const auto compare = [&](const char* what, const std::string& ofRadio, const std::string& ofPersonality) {
    if (ofRadio.empty() || ofRadio == ofPersonality) return;
    differences.push_back(std::string(what) + " of the radio is " + ofRadio + ", of the personality " +
                          ofPersonality);
  };
  compare("The model", radio.Model(), personality.model);
  compare("The database version", radio.DatabaseVersion(), personality.Digits());
  return differences;
}

ExitCode Preprogram(const PreprogramArguments& arguments, Workplace& workplace) {
  const RadioDescription radio = RadioDescription::Read(arguments.radio);
  const std::shared_ptr<RecordingMessenger> messenger = workplace.Messenger();
  OpenedFile opened(workplace, arguments.file, messenger);
  opened.ShowForms();
  messenger->Clear();
  messenger->SetRadioInformation(radio.information);

  const TierHost& host = opened.GetSession().Host();
  Journal journal(opened.Content());
  Boolean mayProgram = kFalse;
  host.Require(host.Validator().RunPreProgramValidation(mayProgram));
  journal.Rollback();
  const std::vector<std::string> differences = Differences(radio, opened.Content().GetSchema().Name());
  workplace.Tell(
      [&] {
        return Json({{"file", arguments.file},
                     {"radio", arguments.radio},
                     {"controlHead", radio.ControlHead()},
                     {"mayProgram", mayProgram != kFalse},
                     {"differences", differences},
                     {"messages", Report::JsonOf(messenger->Boxes())}});
      },
      [&](std::ostream& out) {
        for (const std::string& difference : differences) out << Printable::Text(difference) << ".\n";
        out << "The radio may " << (mayProgram != kFalse ? "" : "not ") << "be programmed.\n";
      });
  return mayProgram != kFalse ? ExitCode::Done : ExitCode::No;
}

void Take(Words& words, PreprogramArguments& given) {
  words.Required("FILE", given.file, "The personality");
  words.RequiredOption("--radio", given.radio, "RADIO", "The radio that is attached, a JSON file");
}

const Verb kPreprogram(
    {.name = "preprogram",
     .about = "Ask the tier whether the personality may go into the radio that is attached; nothing is saved",
     .details = "RADIO is an object of texts, each of which may be missing: model, databaseVersion, "
                "serialNumber, firmware, hardware, band, controlHead (KDAC1, KDAC2, KDAC4, KDAC5), "
                "controlHeadFirmware. A model or database version that differs is told. Exit code: 0 "
                "after Yes and No, 1 after Cancel.",
     .examples = {{"Ask for the radio that radio.json describes",
                   "kd4410 preprogram samples/city-fleet.json --radio radio.json"},
                  {"Say Yes to what it asks",
                   "kd4410 preprogram samples/full.json --radio radio.json --answer yes"}}},
    Take, Preprogram);

}  // namespace
