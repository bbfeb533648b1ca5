#pragma once

#include "common/FieldEdit.h"

namespace modvalBandLimits {
/// Clears the frequencies of all channels that lie outside the band at the new position, after one
/// question, and the noise blankers where the band has none. False when the user declines, with nothing
/// changed, or after an error.
bool ValidateBandFreqs(const ValidatorRef& validator, std::int32_t newPosition, FormWrites& writes);

/// The rule of the band field: stores the new band's number behind the form's back, so that the checks
/// that follow see it.
bool ValidateBand(FieldEdit& edit);
}  // namespace modvalBandLimits
