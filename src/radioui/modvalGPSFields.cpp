#include "radioui/modvalGPSFields.h"

#include "common/Messages.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"

namespace modvalGPSFields {
bool ValidateGPSEnabled(FieldEdit& edit) {
  if (edit.Is(kOn) && edit.Holds("DataSDMOptionsEnabled", kOff, kOnly)) {
    return Refuse(edit.validator, "You must enable SDM before you can enable GPS Position Reporting.");
  }
  if (edit.Is(kOn) && edit.Holds("GPSSDMCompatibility", SDMFormat::kCCDI2Text, kOnly)) {
    return Refuse(edit.validator,
                  "GPS Position Reporting can not be enabled when GPS SDM Format is set to 'CCDI2 Text'");
  }
  return true;
}

bool ValidateGPSPort(FieldEdit& edit) {
  if (!edit.Is(SerialPort::kMic) || !edit.Holds("KeypadMic", kOn, kOnly)) return true;
  return Refuse(edit.validator, "GPS Port can not be set to Mic when the Mic field is set to Keypad Mic.");
}

bool ValidatePollResponseType(FieldEdit& edit) {
  if (edit.Is(ChannelType::kCurrent)) edit.writes.Set("GPSPollResponseChannel", 1, kNone);
  return true;
}

bool ValidateSDMFormat(FieldEdit& edit) {
  if (!edit.Is(SDMFormat::kCCDI2Text) || !edit.Holds("GPSEnabled", kOn, kOnly)) return true;
  return Refuse(edit.validator,
                "GPS SDM Format can not be set to 'CCDI2 Text' when GPS Position Reporting is enabled.");
}

bool ValidateDespatcherAddress(FieldEdit& edit) {
  return CharacterCount(CStr(edit.value)) == 8 ||
         Refuse(edit.validator, "Despatcher address must be eight characters in length.");
}

bool ValidateCallouts(FieldEdit& edit) {
  if (edit.Is(0)) {
    Notify(edit.validator, "The value is been set to 0, this will result in no Callouts been sent.");
  }
  return true;
}

}  // namespace modvalGPSFields
