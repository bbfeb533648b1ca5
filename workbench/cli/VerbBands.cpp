#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"

namespace {

/// Of the tier's "6250|5000|3125|2500", in Hz.
std::vector<std::int32_t> StepsOf(const std::string& text) {
  std::vector<std::int32_t> steps;
  std::istringstream list(text);
  for (std::string step; std::getline(list, step, '|');) steps.push_back(CLng(step));
  return steps;
}

/// "6.25, 5, 3.125, 2.5"
std::string InKHz(const std::vector<std::int32_t>& steps) {
  std::string text;
  for (const std::int32_t step : steps) text += (text.empty() ? "" : ", ") + CStr(step / 1e3);
  return text;
}

Json JsonOf(const std::vector<std::int32_t>& steps) {
  Json list = Json::List();
  for (const std::int32_t step : steps) list.Add(step);
  return list;
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
    std::string listed;
    host.Require(host.Owner().GetFrequencyRanges(position, txLowest, txHighest, rxLowest, rxHighest, listed));
    const std::vector<std::int32_t> steps = StepsOf(listed);
    table.Add({std::to_string(position), name, CStr(rxLowest / 1e6), CStr(rxHighest / 1e6), InKHz(steps)});
    list.Add({{"position", position},
              {"band", name},
              {"lowestHz", rxLowest},
              {"highestHz", rxHighest},
              {"stepsHz", JsonOf(steps)}});
  }
  workplace.Tell("bands", std::move(list), table);
  return ExitCode::Done;
}

void Take(Words&, NoArguments&) {}

const Verb kBands({.name = "bands",
                   .about = "List the frequency bands with their limits",
                   .examples = {{"The bands with their steps", "kd4410 bands"},
                                {"The same for a program", "kd4410 bands --json"}}},
                  Take, ListBands);

}  // namespace
