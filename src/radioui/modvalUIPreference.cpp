#include "radioui/modvalUIPreference.h"

#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"

namespace modvalUIPreference {
bool ValidateBacklight(FieldEdit& edit) { return !edit.Is(Backlight::kContinuous) || ValidateFuncKey(edit); }

bool ValidateFuncKey(FieldEdit& edit) {
  return Procedure("ValidateFuncKey", true, [&] {
    std::int32_t number = 0;
    for (const FunctionKey& key : kFunctionKeys) {
      ++number;
      if (!edit.Holds(key.action, KeyAction::kBacklightTimerToggle, kOnly) &&
          !edit.Holds(key.action, KeyAction::kBacklightTimer, kOnly)) {
        continue;
      }
      if (AskYesNo(edit.validator,
                   "Changing this value will set Function %0:S back to 'None'.%1:SDo you still want to "
                   "continue?",
                   {std::to_string(number), kLineBreak}) != Button::Yes) {
        return false;
      }
      // Not the code of "None", whatever the question says; wanted so.
      edit.writes.Set(key.action, 1, KeyAction::kActionDigitalOutputLine);
    }
    return true;
  });
}
}  // namespace modvalUIPreference
