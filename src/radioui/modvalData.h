#pragma once

#include "common/ValidatorRef.h"

/// The check of the data form when it is left. True lets the user go.
namespace modvalData {
/// A dedicated channel that answers polls is to be named.
bool ValidateGPSPollResponseChannel(const ValidatorRef& validator);

/// The response channel, the identity that short data messages send, the port that GPS and data share, and
/// the size of a TOTAL packet, up to the first that is refused. Ports that GPS does not like are a notice
/// only.
bool ValidateDataForm(const ValidatorRef& validator);
}  // namespace modvalData
