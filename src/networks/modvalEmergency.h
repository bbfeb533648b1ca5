#pragma once

#include "tier/ValidatorRef.h"

namespace modvalEmergency {
/// Whether the channel may change its network: not while it is an emergency dedicated channel.
bool ValidateChannelID(const ValidatorRef& validator, RecordNr channel);
}  // namespace modvalEmergency
