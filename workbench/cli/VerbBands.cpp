#include <sstream>
#include <utility>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"

namespace {

/// "6.25, 5, 3.125, 2.5" of the steps in Hz "6250|5000|3125|2500".
std::string StepsInKHz(const std::string& steps) {
  std::string text;
  std::istringstream list(steps);
  for (std::string step; std::getline(list, step, '|');) {
    text += (text.empty() ? "" : ", ") + CStr(CDbl(step) / 1000);
  }
  return text;
}

struct NoArguments {};

ExitCode ListBands(const NoArguments&, Workplace& workplace) {
  const TierHost host(workplace.Parts(), nullptr, workplace.Messenger());
  XArrayDBObject bands;
  host.Require(host.Owner().GetBands(bands));
  TextTable table({{"Position", TextTable::Align::Right},
                   {"Band"},
                   {"Lowest MHz", TextTable::Align::Right},
                   {"Highest MHz", TextTable::Align::Right},
                   {"Steps kHz"}});
  Json list = Json::List();
  for (std::int32_t position = 0; position <= bands.UpperBound(1); ++position) {
    const std::string name = CStr(bands.GetValue(position, 0));
    std::int32_t txLowest = 0, txHighest = 0, rxLowest = 0, rxHighest = 0;
    std::string steps;
    host.Require(host.Owner().GetFrequencyRanges(position, txLowest, txHighest, rxLowest, rxHighest, steps));
    table.Add(
        {std::to_string(position), name, CStr(rxLowest / 1e6), CStr(rxHighest / 1e6), StepsInKHz(steps)});
    list.Add({{"position", position},
              {"band", name},
              {"lowestHz", rxLowest},
              {"highestHz", rxHighest},
              {"stepsHz", steps}});
  }
  workplace.Tell(std::move(list), table);
  return ExitCode::Done;
}

void Take(Words&, NoArguments&) {}

const Verb kBands({.name = "bands",
                   .about = "List the frequency bands with their limits",
                   .examples = {{"The bands with their steps", "kd4410 bands"},
                                {"The same for a program", "kd4410 bands --json"}}},
                  Take, ListBands);

}  // namespace
