#pragma once

#include <cstdint>
#include <string_view>

#include "common/Handles.h"

/// What the radio shows on its two-character display and on its LEDs. Nobody edits it: the tier writes fixed
/// tables. What the codes mean is the radio's own affair.
namespace modDisplayIndicators {
struct DisplayIndicator {
  std::string_view label;  ///< two characters
  std::int32_t mode, duration, opaque;
};

struct Annunciator {
  std::int32_t mode, duration, number;
};

/// The indicator of a record of table 10, 1 to 20. For any other number the user is told, the result is
/// false, and nothing is written to `indicator`.
bool HarrierDisplayIndicator(std::int32_t number, DisplayIndicator& indicator);

/// The annunciator with an index, 0 to 64; it belongs to the next record of table 3. For any other index the
/// user is told, the result is false, and nothing is written to `annunciator`.
bool HarrierAnnunciator(std::int32_t index, Annunciator& annunciator);

/// Writes the indicator of one record of table 10. A record without one is left alone.
void GenerateDisplayIndicators(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modDisplayIndicators
