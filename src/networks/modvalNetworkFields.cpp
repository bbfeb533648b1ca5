#include "networks/modvalNetworkFields.h"

#include "common/Messages.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "signalling/modMDC1200.h"

namespace modvalNetworkFields {
namespace {
/// A field as it will stand after the edit.
std::string TextAfter(const FieldEdit& edit, std::string_view field) {
  return CStr(EqualsIgnoringCase(field, edit.uiid) ? edit.value : edit.Stored(field, edit.record));
}
}  // namespace

bool ValidateInvalidCallReset(FieldEdit& edit) {
  if (edit.Is(kOn) && edit.Holds("ThirdToneReset_k6k", kOn, edit.record)) {
    if (AskYesNo(
            edit.validator,
            "Third Tone Reset can not be used with this option and will be unticked if you continue.  Do you "
            "want to continue?") != Button::Yes) {
      return false;
    }
    edit.writes.Set("ThirdToneReset_k6k", edit.record, kOff);
  }
  return true;
}

bool ValidateSequenceTwoMonitor(FieldEdit& edit) {
  const bool monitors = edit.Is(kOn) || edit.Holds("RxSeqOneMonitorOn", kOn, edit.record);
  if (!monitors) edit.writes.Set("MonitorCallReceived_k6k", edit.record, kOff);
  return true;
}

bool ValidateTxDuration(FieldEdit& edit) {
  edit.writes.Set("21.TxDurationTimingEnabled", "TxDurationTimingEnabled", edit.record,
                  edit.Is(0) ? kOff : kOn);
  return true;
}

bool ValidateAutoOverBeep(FieldEdit& edit) {
  if (!edit.Is(kOn) || !edit.Holds("TrailingANI_k6k", kOn, edit.record)) return true;
  const ValidatorRef& validator = edit.validator;
  if (AskYesNo(validator, "%0:S will be disabled if %1:S is set.  Do you wish to proceed?",
               {validator.LabelOf("TrailingANI_k6k"), validator.LabelOf("AutoOverBeep")}) != Button::Yes) {
    return false;
  }
  edit.writes.Set("TrailingANI_k6k", edit.record, kOff);
  return true;
}

bool ValidateAlertType(FieldEdit& edit) {
  if (!edit.Is(AlertType::kRing)) return true;
  if (!edit.Holds("SignallingType", SignallingType::kTwoTone, edit.record)) return true;
  return Refuse(edit.validator, "Ring alerts are not available for Two Tone networks.");
}

bool ValidateDeferredCalling(FieldEdit& edit) {
  if (edit.Is(kOff)) edit.writes.Set("TimeRadioAttemptsDeferredCall", edit.record, 0);
  return true;
}

bool ValidateMDC1200Identity(FieldEdit& edit) {
  const bool hasSequence = !modMDC1200::IsNoSequence(TextAfter(edit, "MDC1200ANISequence")) ||
                           !modMDC1200::IsNoSequence(TextAfter(edit, "MDC1200EmergencySequence"));
  if (!hasSequence || !TextAfter(edit, "MDC1200RadioIDDerived").empty()) return true;
  return Refuse(edit.validator, "A Radio ID must be defined.");
}
}  // namespace modvalNetworkFields
