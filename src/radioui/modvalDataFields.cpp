#include "radioui/modvalDataFields.h"

#include <algorithm>

#include "common/Messages.h"
#include "common/RadioCodes.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"

namespace modvalDataFields {
namespace {
constexpr std::string_view kFlowControls[] = {"DataCMFlowControl", "DataTMFlowControl", "DataHSDFlowControl"};

/// Tone blanking is on and the last of the two options that it may rest on goes.
bool LeavesToneBlankingAlone(const FieldEdit& edit, std::string_view otherOption) {
  return edit.Holds(otherOption, kOff, kOnly) && edit.Holds("MuteOnFFSKReceiving", kOn, kOnly);
}

bool RefuseForToneBlanking(const FieldEdit& edit) {
  return Refuse(
      edit.validator,
      "FFSK Tone Blanking requires the SDM option to be enabled, or the Transparent Mode option to be "
      "enabled.");
}

/// False when the user keeps the modem.
bool TurnOffVHSDModem(FieldEdit& edit) {
  if (AskYesNo(edit.validator,
               "VHSD Modem requires Transparent Mode to be enabled.  If you proceed the VHSD Modem will be "
               "deactivated.  Do you wish to proceed?") != Button::Yes) {
    return false;
  }
  Variant off = kOff;
  if (!edit.validator.Accepts("DataVHSDModemEnabled", off, 1)) return false;
  edit.writes.Set("DataVHSDModemEnabled", 1, off);
  return true;
}

/// The state whose mode is turned off falls back to command mode.
void LeavePowerupState(FieldEdit& edit, std::int32_t state) {
  if (edit.Holds("DataPowerupState", state, kOnly))
    edit.writes.Set("DataPowerupState", 1, PowerupState::kCommand);
}

/// The digits of a hexadecimal number that count: 5 is 05, and no text is 0.
std::string Significant(const Variant& hex) {
  const std::string digits = CStr(hex);
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

bool SameCharacter(const FieldEdit& edit, std::string_view otherField) {
  const Variant other = edit.Stored(otherField, kOnly);
  return !other.IsEmpty() && EqualsIgnoringCase(Significant(edit.value), Significant(other));
}
}  // namespace

bool ValidatePowerupState(FieldEdit& edit) {
  if (edit.Is(PowerupState::kFFSKTransparent) && edit.Holds("DataOptionsEnabled", kOff, kOnly)) {
    return Refuse(
        edit.validator,
        "You may only choose FFSK Transparent Mode as the Powerup State when Transparent Mode is enabled");
  }
  if (edit.Is(PowerupState::kVHSD) && edit.Holds("DataVHSDModemEnabled", kOff, kOnly)) {
    return Refuse(edit.validator,
                  "You may only choose VHSD as the Powerup State when the VHSD Modem is enabled");
  }
  return true;
}

bool ValidateTransparentMode(FieldEdit& edit) {
  if (edit.Is(kOff)) {
    if (LeavesToneBlankingAlone(edit, "DataSDMOptionsEnabled")) return RefuseForToneBlanking(edit);
    if (edit.Holds("DataVHSDModemEnabled", kOn, kOnly) && !TurnOffVHSDModem(edit)) return false;
    LeavePowerupState(edit, PowerupState::kFFSKTransparent);
  }
  return true;
}

bool ValidateVHSDModem(FieldEdit& edit) {
  if (edit.Is(kOff)) LeavePowerupState(edit, PowerupState::kVHSD);
  return true;
}

bool ValidateSDMOptions(FieldEdit& edit) {
  if (edit.Is(kOff) && edit.Holds("GPSEnabled", kOn, kOnly)) {
    return Refuse(edit.validator, "You can not disable SDM when GPS Position Reporting is enabled.");
  }
  if (edit.Is(kOff) && LeavesToneBlankingAlone(edit, "DataOptionsEnabled"))
    return RefuseForToneBlanking(edit);
  return true;
}

bool ValidateSDMOutput(FieldEdit& edit) {
  if (edit.Is(kOff)) edit.writes.Set("CCDISDMTextOnly", 1, kOff);
  return true;
}

bool ValidateToneBlanking(FieldEdit& edit) {
  if (!edit.Is(kOn) || !edit.Holds("DataSDMOptionsEnabled", kOff, kOnly) ||
      !edit.Holds("DataOptionsEnabled", kOff, kOnly)) {
    return true;
  }
  return Refuse(
      edit.validator,
      "FFSK Tone Blanking may only be enabled when the SDM option is enabled, or the Transparent Mode "
      "option is enabled.");
}

bool ValidateXon(FieldEdit& edit) {
  return !SameCharacter(edit, "DataXoff") ||
         Refuse(edit.validator, "The XON and XOFF Characters must not be the same.");
}

bool ValidateXoff(FieldEdit& edit) {
  return !SameCharacter(edit, "DataXon") ||
         Refuse(edit.validator, "The XOFF and XON Characters must not be the same.");
}

bool ValidateDataIdentity(FieldEdit& edit) {
  const std::size_t length = CharacterCount(CStr(edit.value));
  return length == 0 || length == 8 ||
         Refuse(edit.validator, "Data Identity must be eight characters in length.");
}

bool ValidateDataPort(FieldEdit& edit) {
  if (!edit.Is(SerialPort::kMic)) return true;
  if (edit.Holds("KeypadMic", kOn, kOnly)) {
    return Refuse(edit.validator, "Data Port can not be set to Mic when the Mic field is set to Keypad Mic.");
  }
  const auto isHardware = [&](std::string_view field) {
    return edit.Holds(field, FlowControl::kHardware, kOnly);
  };
  if (std::ranges::none_of(kFlowControls, isHardware)) return true;
  if (AskYesNo(
          edit.validator,
          "Flow Control can not be set to hardware when the Data Port is set to Mic.  If you continue the "
          "Flow Control fields that are set to 'Hardware' will be set to 'None'. Do you want to "
          "continue?") != Button::Yes) {
    return false;
  }
  for (const std::string_view field : kFlowControls) {
    if (isHardware(field)) edit.writes.Set(field, 1, FlowControl::kNone);
  }
  return true;
}

bool ValidateFlowControl(FieldEdit& edit) {
  if (!edit.Is(FlowControl::kHardware) || !edit.Holds("DataCCDIPort", SerialPort::kMic, kOnly)) return true;
  return Refuse(edit.validator, "Flow Control can not be set to Hardware when the Data Port is set to Mic.");
}

bool ValidateBackoffMinimum(FieldEdit& edit) {
  if (IsAbove(edit.value, edit.Stored("dataTxBackoffTimeMax", kOnly))) {
    edit.writes.Set("dataTxBackoffTimeMax", 1, CLng(edit.value));
  }
  return true;
}

bool ValidateBackoffMaximum(FieldEdit& edit) {
  if (!IsAbove(edit.Stored("dataTxBackoffTimeMin", kOnly), edit.value)) return true;
  return Refuse(
      edit.validator,
      "The Tx Back-off Time Maximum value must be greater then the Tx Back-off Time Minimum value.");
}
}  // namespace modvalDataFields
