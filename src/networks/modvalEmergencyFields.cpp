#include "networks/modvalEmergencyFields.h"

#include "common/Messages.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "networks/modNetworks.h"
#include "networks/modvalEmergency.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"

namespace modvalEmergencyFields {
namespace {
/// A number of the network as it will stand after the edit; what is no number counts as 0.
double NumberAfter(const FieldEdit& edit, std::string_view field) {
  const Variant value = EqualsIgnoringCase(field, edit.uiid) ? edit.value : edit.Stored(field, edit.record);
  return IsNumeric(value) ? CDbl(value) : 0;
}

void WarnOfEndlessCallout(const FieldEdit& edit) {
  if (!edit.Is(EmCallout::kContinuous) || !edit.Holds("EmergencyEnabled", kOn, edit.record)) return;
  if (edit.Holds("SignallingType", SignallingType::kDTMF, edit.record)) {
    Notify(edit.validator,
           "The current network is DTMF, and because DTMF calls are not acknowledged, the callout sequence "
           "will be sent indefinitely. Consider using a fixed number of callouts instead.");
  } else if (edit.Holds("SignallingType", SignallingType::kMDC1200, edit.record)) {
    Notify(edit.validator,
           "The current network is MDC1200, and because MDC1200 calls are not acknowledged, the callout "
           "sequence will be sent indefinitely. Consider using a fixed number of callouts instead.");
  }
}
}  // namespace

bool ValidateChannelType(FieldEdit& edit) {
  if (edit.Is(ChannelType::kCurrent)) edit.writes.Set("EmChannel", edit.record, kNone);
  return true;
}

bool ValidateCalloutType(FieldEdit& edit) {
  WarnOfEndlessCallout(edit);
  if (edit.Holds("EmCalloutNumber", 1, edit.record)) {
    modvalEmergency::ValidateRepeatInterval(edit, "EmCalloutRepeatInterval", edit.record);
  }
  return true;
}

bool ValidateCalloutNumber(FieldEdit& edit) {
  if (edit.Is(1) && !edit.Holds("EmCalloutType", EmCallout::kDisabled, edit.record)) {
    modvalEmergency::ValidateRepeatInterval(edit, "EmCalloutRepeatInterval", edit.record);
  }
  return true;
}

bool ValidateFalsePowerdown(FieldEdit& edit) {
  if (edit.Is(kOn) && !edit.Holds("SignallingType", SignallingType::kSelcall, edit.record)) {
    Notify(edit.validator,
           "If False Power Down is selected there is no way to remotely reset the radio while in Emergency "
           "mode on non-Selcall Systems.");
  }
  return true;
}

bool ValidateCyclingTime(FieldEdit& edit) {
  const bool isFixedNumber = edit.Holds("EmCyclingType", EmCycling::kFixedNumber, edit.record);
  edit.writes.Set("EmCyclingMaxTime", edit.record,
                  modNetworks::MaximumCyclingTime(isFixedNumber, NumberAfter(edit, "EmCyclingRxTime"),
                                                  NumberAfter(edit, "EmCyclingTxTime"),
                                                  NumberAfter(edit, "EmCyclingNumber")));
  return true;
}
}  // namespace modvalEmergencyFields
