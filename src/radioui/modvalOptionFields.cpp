#include "radioui/modvalOptionFields.h"

#include <algorithm>
#include <string>

#include "common/Messages.h"
#include "common/RadioCodes.h"
#include "platform/Conversions.h"

namespace modvalOptionFields {
namespace {
constexpr double kShortestCarrierDelayMs = 10;
constexpr double kLongestCarrierDelayMs = 90;

bool IsCarrierDelay(const Variant& value) {
  if (!IsNumeric(value)) return false;
  const double delayMs = CDbl(value);
  return delayMs == 0 || (kShortestCarrierDelayMs <= delayMs && delayMs <= kLongestCarrierDelayMs);
}

/// False when the user keeps the channels' encryption.
bool TurnOffChannelEncryption(FieldEdit& edit) {
  const FieldRef encryption = edit.validator.CurrentProvider().Field("ChannelEncryption");
  bool asked = false;
  for (const RecordNr channel : encryption.Records()) {
    if (!IsTicked(encryption.Value(channel))) continue;
    if (!asked &&
        AskYesNo(edit.validator,
                 "One or more channels has Encrypt Channel ticked.  By Setting Global Encryption these "
                 "values will be unticked and the fields greyed out.  Do you wish to continue?") !=
            Button::Yes) {
      return false;
    }
    asked = true;
    edit.writes.Set("ChannelEncryption", channel, kOff);
  }
  return true;
}
}  // namespace

bool ValidateLowPowerStart(FieldEdit& edit) {
  const auto turnsItOff = [&](const FunctionKey& key) {
    return edit.Holds(key.action, KeyAction::kLowPowerTransmit, kOnly);
  };
  if (edit.Is(kOn) && std::ranges::none_of(kFunctionKeys, turnsItOff)) {
    Notify(
        edit.validator,
        "It is recommended that you add the Low Power Transmit option to a function key in the Key Settings "
        "form. This will allow the radio user to change back to the channel's default power level.");
  }
  return true;
}

bool ValidateGroupActivity(FieldEdit& edit) {
  const bool on = edit.Is(kOn);
  const Variant firstChannel = edit.Stored("ChannelID_k6k", 1);
  if (on && CStr(edit.Stored("ChannelGroupIDForRadioStartup", kOnly)).empty() && !firstChannel.IsEmpty()) {
    edit.writes.Set("ChannelGroupIDForRadioStartup", 1, firstChannel);
  }
  return true;
}

bool ValidateKeypadMic(FieldEdit& edit) {
  if (!edit.Is(kOn)) return true;
  if (edit.Holds("DataCCDIPort", SerialPort::kMic, kOnly)) {
    return Refuse(edit.validator, "The Mic can not be set to Keypad Mic because the Data Port is set to Mic");
  }
  if (edit.Holds("GPSSerialPort", SerialPort::kMic, kOnly)) {
    return Refuse(edit.validator, "The Mic can not be set to Keypad Mic because the GPS Port is set to Mic");
  }
  return true;
}

bool ValidateCarrierDelay(FieldEdit& edit) {
  return IsCarrierDelay(edit.value) ||
         Refuse(edit.validator, "The Carrier Delay Time must be a value between 10 and 90 milliseconds.");
}

bool ValidateGlobalEncryption(FieldEdit& edit) { return !edit.Is(kOn) || TurnOffChannelEncryption(edit); }
}  // namespace modvalOptionFields
