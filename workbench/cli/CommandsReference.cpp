#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/TextTable.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/TypedNames.h"

namespace {

using Json = Workplace::Json;

/// "6.25, 5, 3.125, 2.5" of the steps in Hz "6250|5000|3125|2500".
std::string StepsInKHz(const std::string& steps) {
  std::string text;
  std::istringstream list(steps);
  for (std::string step; std::getline(list, step, '|');) {
    text += (text.empty() ? "" : ", ") + CStr(CDbl(step) / 1000);
  }
  return text;
}

ExitCode ListBands(Workplace& workplace) {
  const TierHost host(workplace.Parts(), nullptr, workplace.Messenger());
  XArrayDBObject bands;
  host.Require(host.Owner().GetBands(bands));
  TextTable table({{"Position", TextTable::Align::Right},
                   {"Band"},
                   {"Lowest MHz", TextTable::Align::Right},
                   {"Highest MHz", TextTable::Align::Right},
                   {"Steps kHz"}});
  Json list = Json::array();
  for (std::int32_t position = 0; position <= bands.UpperBound(1); ++position) {
    const std::string name = CStr(bands.GetValue(position, 0));
    std::int32_t txLowest = 0, txHighest = 0, rxLowest = 0, rxHighest = 0;
    std::string steps;
    host.Require(host.Owner().GetFrequencyRanges(position, txLowest, txHighest, rxLowest, rxHighest, steps));
    table.Add(
        {std::to_string(position), name, CStr(rxLowest / 1e6), CStr(rxHighest / 1e6), StepsInKHz(steps)});
    list.push_back({{"position", position},
                    {"band", name},
                    {"lowestHz", rxLowest},
                    {"highestHz", rxHighest},
                    {"stepsHz", steps}});
  }
  if (workplace.options.json) {
    workplace.Emit(std::move(list));
  } else {
    table.Print(workplace.Out());
  }
  return ExitCode::Done;
}

/// What the metadata tells of a UIID; the defaults stand for one that it does not know.
struct FieldFacts {
  std::string label, units, grid;
  std::int32_t width = 0;
  std::int16_t access = 0;
};

FieldFacts FactsOf(const TierHost& host, std::string_view uiid) {
  FieldFacts facts;
  ItierUserInterface& ui = host.UserInterface();
  Boolean known = kFalse;
  host.Require(ui.GetLabelByUIID(uiid, facts.label, known));
  host.Require(ui.GetUnitsByUIID(uiid, facts.units, known));
  host.Require(ui.GetUIWidthByUIID(uiid, facts.width, known));
  host.Require(ui.GetCustAccessLevelByUIID(uiid, facts.access, known));
  host.Require(ui.GetATGridIDByUIID(uiid, facts.grid, known));
  return facts;
}

bool Contains(std::string_view text, const std::string& upperFilter) {
  return UpperCase(text).find(upperFilter) != std::string::npos;
}

ExitCode ListFields(const std::string& filter, const std::string& version, Workplace& workplace) {
  const std::shared_ptr<const Schema> schema =
      workplace.Schemas().At(version.empty() ? SchemaFiles::VersionsOf("KD4410").back().Text() : version);
  const TierHost host(workplace.Parts(), nullptr, workplace.Messenger());
  TextTable table({{"UIID"},
                   {"Label"},
                   {"Units"},
                   {"Width", TextTable::Align::Right},
                   {"Access", TextTable::Align::Right},
                   {"Grid"},
                   {"FieldId"}});
  Json list = Json::array();
  const std::string upperFilter = UpperCase(filter);
  for (const SchemaField& field : schema->Fields()) {
    for (const std::string& uiid : field.uiids) {
      const FieldFacts facts = FactsOf(host, uiid);
      if (!Contains(uiid, upperFilter) && !Contains(facts.label, upperFilter)) continue;
      table.Add({uiid, facts.label, facts.units, std::to_string(facts.width), std::to_string(facts.access),
                 facts.grid, field.id});
      list.push_back({{"uiid", uiid},
                      {"label", facts.label},
                      {"units", facts.units},
                      {"width", facts.width},
                      {"accessLevel", facts.access},
                      {"grid", facts.grid},
                      {"fieldId", field.id}});
    }
  }
  const bool found = !list.empty();
  if (workplace.options.json) {
    workplace.Emit(std::move(list));
  } else if (found) {
    table.Print(workplace.Out());
  }
  if (!found) throw UsageError("no field of version " + schema->Version() + " has \"" + filter + "\" in it");
  return ExitCode::Done;
}

}  // namespace

void AddReferenceCommands(CLI::App& app, Action& action) {
  app.add_subcommand("bands", "List the frequency bands with their limits")->callback([&action] {
    action = ListBands;
  });

  struct Arguments {
    std::string filter;
    std::string version;
  };
  auto given = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand("fields", "List the fields of the forms as their metadata tells");
  command->add_option("FILTER", given->filter, "Only fields with this in UIID or label; case does not count");
  command->add_option("--version", given->version, "Database version (else the latest of the KD4410)")
      ->type_name("VERSION");
  command->callback([given, &action] {
    action = [given](Workplace& workplace) { return ListFields(given->filter, given->version, workplace); };
  });
}
