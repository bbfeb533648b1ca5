#include "radioui/modDisplayIndicators.h"

#include <iterator>
#include <string>

#include "common/Procedure.h"
#include "common/modCommonErrorHandler.h"

namespace modDisplayIndicators {
namespace {
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
constexpr DisplayIndicator kIndicators[] = {
    // label, mode, duration, opaque; five a line in the order of their numbers, from 1
    {" r", 0, 0, 0}, {" C", 0, 0, 1}, {" P", 0, 0, 1}, {" L", 2, 0, 1}, {" o", 0, 0, 0},
    {"CC", 0, 0, 0}, {"CL", 0, 0, 1}, {"  ", 0, 0, 0}, {"EE", 0, 0, 1}, {"EE", 0, 0, 1},
    {"EE", 0, 0, 1}, {"--", 0, 0, 1}, {"Pr", 0, 0, 1}, {"--", 1, 0, 1}, {"OL", 2, 0, 1},
    {"  ", 0, 0, 0}, {"SC", 0, 0, 0}, {"  ", 0, 0, 0}, {"  ", 0, 0, 0}, {"  ", 0, 0, 0},
};
static_assert(std::size(kIndicators) == 20);

constexpr Annunciator kAnnunciators[] = {
    // mode, duration, number; eight a line in the order of their indexes, from 0
    {3, 4, 5}, {0, 4, 4}, {3, 4, 3}, {2, 4, 2}, {1, 4, 1}, {0, 0, 0}, {2, 0, 1}, {1, 0, 0},
    {2, 0, 0}, {3, 0, 0}, {2, 0, 1}, {0, 1, 0}, {0, 1, 1}, {0, 1, 2}, {0, 0, 1}, {0, 0, 2},
    {2, 0, 2}, {0, 0, 0}, {1, 0, 0}, {3, 0, 0}, {0, 0, 3}, {0, 0, 4}, {0, 0, 5}, {0, 0, 6},
    {0, 1, 3}, {0, 1, 4}, {0, 1, 5}, {0, 1, 6}, {8, 6, 8}, {8, 6, 8}, {0, 0, 8}, {0, 0, 8},
    {0, 1, 8}, {0, 1, 8}, {0, 0, 8}, {0, 1, 8}, {0, 0, 8}, {0, 1, 8}, {0, 1, 8}, {0, 0, 8},
    {0, 0, 8}, {0, 0, 8}, {0, 0, 8}, {0, 0, 8}, {0, 1, 8}, {0, 1, 8}, {0, 1, 8}, {0, 1, 8},
    {3, 0, 0}, {0, 1, 0}, {2, 0, 1}, {2, 0, 1}, {0, 1, 3}, {0, 1, 4}, {0, 1, 5}, {0, 1, 6},
    {0, 0, 3}, {0, 0, 4}, {0, 0, 5}, {0, 0, 6}, {0, 0, 8}, {0, 0, 8}, {0, 0, 8}, {0, 0, 8},
    {1, 0, 1},
};
// clang-format on
static_assert(std::size(kAnnunciators) == 65);

/// Always false.
bool TellUnknown(const std::string& text) {
  modCommonErrorHandler::ShowMessageBox(text, MessageStyle::kCritical, "Unknown Error");
  return false;
}
}  // namespace

bool HarrierDisplayIndicator(std::int32_t number, DisplayIndicator& indicator) {
  return Procedure("HarrierDisplayIndicator", false, [&] {
    if (number < 1 || number > std::ssize(kIndicators)) {
      return TellUnknown("Could not get Display Indicators for indicator number " + std::to_string(number));
    }
    indicator = kIndicators[number - 1];
    return true;
  });
}

bool HarrierAnnunciator(std::int32_t index, Annunciator& annunciator) {
  return Procedure("HarrierAnnunciator", false, [&] {
    if (index < 0 || index >= std::ssize(kAnnunciators)) {
      return TellUnknown("Could not get LED Annunciator settings for annunciator number " +
                         std::to_string(index));
    }
    annunciator = kAnnunciators[index];
    return true;
  });
}

void GenerateDisplayIndicators(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GenerateDisplayIndicators", [&] {
    DisplayIndicator indicator{};
    if (!HarrierDisplayIndicator(record, indicator)) return;
    provider.Field("10.IndicatorLabel").SetValue(record, indicator.label);
    provider.Field("10.IndicatorMode").SetValue(record, indicator.mode);
    provider.Field("10.IndicatorDuration").SetValue(record, indicator.duration);
    provider.Field("10.indicatorOpaque").SetValue(record, indicator.opaque);
  });
}
}  // namespace modDisplayIndicators
