#pragma once

#include "common/FieldEdit.h"

namespace modvalUIPreference {
/// A backlight that is always on leaves nothing to keys that switch it. True lets the host keep the change.
bool ValidateBacklight(FieldEdit& edit);

/// Takes the backlight timer off the function keys, each after a question. False when the user declines; the
/// keys before stay changed.
bool ValidateFuncKey(FieldEdit& edit);
}  // namespace modvalUIPreference
