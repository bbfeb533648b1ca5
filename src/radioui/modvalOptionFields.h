#pragma once

#include "common/FieldEdit.h"

/// The rules of the radio's options, in record 1. True lets the host keep the change.
namespace modvalOptionFields {
/// Starting on low power without a key that leaves it: a notice.
bool ValidateLowPowerStart(FieldEdit& edit);
/// Group activity on power up needs a channel or group to start with: the first channel, unless there is one.
bool ValidateGroupActivity(FieldEdit& edit);
/// A keypad mic uses the port that data and GPS may use.
bool ValidateKeypadMic(FieldEdit& edit);
/// The carrier delay in ms: 0, or 10 to 90.
bool ValidateCarrierDelay(FieldEdit& edit);
/// Global encryption takes the place of the channels' own, which needs consent.
bool ValidateGlobalEncryption(FieldEdit& edit);
}  // namespace modvalOptionFields
