#include "networks/modvalEmergencyFields.h"

#include "networks/modNetworks.h"
#include "networks/modvalEmergency.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "tier/Messages.h"
#include "tier/RadioCodes.h"
#include "tier/modProjectGlobals.h"

namespace modvalEmergencyFields {
namespace {
constexpr std::string_view kControls[] = {
    "EmSignallingType",        "EmChannelType",           "EmChannel",
    "EmTxOnHighPower",         "EmCalloutType",           "EmCalloutNumber",
    "EmCalloutRepeatInterval", "EmCyclingType",           "EmCyclingNumber",
    "EmCyclingRxTime",         "EmCyclingTxTime",         "EmCyclingANI",
    "StealthFalsePowerdown",   "StealthtoggleCycling",    "EmCyclingAlertTone",
    "EmCyTxBeginToneFreq",     "EmCyTxBeginToneDuration", "EmCyTxEndToneFreq",
    "EmCyTxEndToneDuration"};
constexpr std::string_view kToneControls[] = {"EmCyTxBeginToneFreq", "EmCyTxBeginToneDuration",
                                              "EmCyTxEndToneFreq", "EmCyTxEndToneDuration"};
constexpr std::string_view kCalloutControls[] = {"EmCalloutNumber", "EmCalloutRepeatInterval"};
constexpr std::string_view kIntervalControl[] = {"EmCalloutRepeatInterval"};

/// A number of the network as it will stand after the edit; what is no number counts as 0.
double NumberAfter(const FieldEdit& edit, std::string_view field) {
  const Variant value = EqualsIgnoringCase(field, edit.uiid) ? edit.value : edit.Stored(field, edit.record);
  return IsNumeric(value) ? CDbl(value) : 0;
}

void WarnOfEndlessCallout(const FieldEdit& edit) {
  const RecordNr network = edit.CurrentNetwork();
  if (!edit.Is(EmCallout::kContinuous) || !edit.Holds("EmergencyEnabled", kOn, network)) return;
  if (edit.Holds("SignallingType", SignallingType::kDTMF, network)) {
    Notify(edit.validator,
           "The current network is DTMF, and because DTMF calls are not acknowledged, the callout sequence "
           "will be sent indefinitely. Consider using a fixed number of callouts instead.");
  } else if (edit.Holds("SignallingType", SignallingType::kMDC1200, network)) {
    Notify(edit.validator,
           "The current network is MDC1200, and because MDC1200 calls are not acknowledged, the callout "
           "sequence will be sent indefinitely. Consider using a fixed number of callouts instead.");
  }
}
}  // namespace

bool ValidateEmergency(FieldEdit& edit) {
  if (!modvalEmergency::ValidateEmergencyEnabled(edit)) return false;
  edit.StoreNow();
  edit.EnableByRule(kControls);
  edit.writes.Enable("SIBTTxCyclingEnabled_k6k",
                     edit.Is(kOn) && edit.Holds("SIBTEnabled_k6k", kOn, edit.CurrentNetwork()));
  return true;
}

bool ValidateAlertTone(FieldEdit& edit) {
  edit.StoreNow();
  edit.EnableByRule(kToneControls);
  return true;
}

bool ValidateChannelType(FieldEdit& edit) {
  if (edit.Is(ChannelType::kCurrent)) edit.writes.Set("EmChannel", edit.record, kNone);
  edit.writes.Enable("EmChannel", !edit.Is(ChannelType::kCurrent));
  return true;
}

bool ValidateCalloutType(FieldEdit& edit) {
  WarnOfEndlessCallout(edit);
  edit.StoreNow();
  if (edit.Holds("EmCalloutNumber", 1, edit.record)) {
    modvalEmergency::ValidateRepeatInterval(edit, "EmCalloutRepeatInterval", edit.record);
  }
  edit.EnableByRule(kCalloutControls);
  return true;
}

bool ValidateCalloutNumber(FieldEdit& edit) {
  edit.StoreNow();
  if (edit.Is(1) && !edit.Holds("EmCalloutType", EmCallout::kDisabled, edit.CurrentNetwork())) {
    modvalEmergency::ValidateRepeatInterval(edit, "EmCalloutRepeatInterval", edit.record);
  }
  edit.EnableByRule(kIntervalControl);
  return true;
}

bool ValidateFalsePowerdown(FieldEdit& edit) {
  if (edit.Is(kOn) && !edit.Holds("SignallingType", SignallingType::kSelcall, edit.CurrentNetwork())) {
    Notify(edit.validator,
           "If False Power Down is selected there is no way to remotely reset the radio while in Emergency "
           "mode on non-Selcall Systems.");
  }
  return true;
}

bool ValidateCyclingTime(FieldEdit& edit) {
  const bool isFixedNumber = edit.Holds("EmCyclingType", EmCycling::kFixedNumber, edit.CurrentNetwork());
  edit.writes.Set("EmCyclingMaxTime", edit.record,
                  modNetworks::MaximumCyclingTime(isFixedNumber, NumberAfter(edit, "EmCyclingRxTime"),
                                                  NumberAfter(edit, "EmCyclingTxTime"),
                                                  NumberAfter(edit, "EmCyclingNumber")));
  return true;
}
}  // namespace modvalEmergencyFields
