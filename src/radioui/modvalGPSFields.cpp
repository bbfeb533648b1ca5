#include "radioui/modvalGPSFields.h"

#include <algorithm>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "tier/Messages.h"
#include "tier/RadioCodes.h"
#include "tier/modProjectGlobals.h"

namespace modvalGPSFields {
namespace {
constexpr std::string_view kControls[] = {
    "GPSSerialPort",           "GPSBaudRate",          "GPSNMEAStringType",         "GPSConnectionTimeOut",
    "GPSAlarmCalloutInterval", "GPSMaxNumberCallouts", "GPSPollResponseChannelType"};

constexpr std::string_view kPositionOnPTT[] = {"GPSNetworkSendPosOnPTT", "GPSNetworkSendPosOnEPTT1",
                                               "GPSNetworkSendPosOnEPTT2"};
constexpr std::int32_t kWithSuppression = 2;
}  // namespace

bool ValidateGPSEnabled(FieldEdit& edit) {
  if (edit.Is(kOn) && edit.Holds("DataSDMOptionsEnabled", kOff)) {
    return Refuse(edit.validator, "You must enable SDM before you can enable GPS Position Reporting.");
  }
  if (edit.Is(kOn) && edit.Holds("GPSSDMCompatibility", SDMFormat::kCCDI2Text)) {
    return Refuse(edit.validator,
                  "GPS Position Reporting can not be enabled when GPS SDM Format is set to 'CCDI2 Text'");
  }
  const bool on = edit.Is(kOn);
  edit.EnableAll(kControls, on);
  edit.writes.Enable("GPSPollResponseChannel",
                     on && edit.Holds("GPSPollResponseChannelType", ChannelType::kDedicated));
  edit.writes.Enable("GPSAVLDespatcherAddress", on);
  edit.writes.Enable("GPSSDMLeadInDelay", on);
  return true;
}

bool ValidateGPSPort(FieldEdit& edit) {
  if (!edit.Is(SerialPort::kMic) || !edit.Holds("KeypadMic", kOn)) return true;
  return Refuse(edit.validator, "GPS Port can not be set to Mic when the Mic field is set to Keypad Mic.");
}

bool ValidatePollResponseType(FieldEdit& edit) {
  if (edit.Is(ChannelType::kCurrent)) edit.writes.Set("GPSPollResponseChannel", 1, kNone);
  edit.writes.Enable("GPSPollResponseChannel", !edit.Is(ChannelType::kCurrent));
  return true;
}

bool ValidateSDMFormat(FieldEdit& edit) {
  if (!edit.Is(SDMFormat::kCCDI2Text) || !edit.Holds("GPSEnabled", kOn)) return true;
  return Refuse(edit.validator,
                "GPS SDM Format can not be set to 'CCDI2 Text' when GPS Position Reporting is enabled.");
}

bool ValidateDespatcherAddress(FieldEdit& edit) {
  return CStr(edit.value).size() == 8 ||
         Refuse(edit.validator, "Despatcher address must be eight characters in length.");
}

bool ValidateCallouts(FieldEdit& edit) {
  if (edit.Is(0)) {
    Notify(edit.validator, "The value is been set to 0, this will result in no Callouts been sent.");
  }
  return true;
}

bool ValidatePositionOnPTT(FieldEdit& edit) {
  const RecordNr network = edit.CurrentNetwork();
  const auto suppresses = [&](std::string_view field) {
    return EqualsIgnoringCase(field, edit.uiid) ? edit.Is(kWithSuppression)
                                                : edit.Holds(field, kWithSuppression, network);
  };
  edit.writes.Enable("PttGPSSuppressionTime", std::ranges::any_of(kPositionOnPTT, suppresses));
  return true;
}
}  // namespace modvalGPSFields
