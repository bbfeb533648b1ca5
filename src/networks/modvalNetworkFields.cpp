#include "networks/modvalNetworkFields.h"

#include <algorithm>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "tier/Messages.h"
#include "tier/RadioCodes.h"
#include "tier/modProjectGlobals.h"

namespace modvalNetworkFields {
namespace {
constexpr std::string_view kCWIDControls[] = {"CWIDMode",           "CWIDInterval",      "CWIDString",
                                              "CWIDWordsPerMinute", "CWIDToneFrequency", "CWIDSubAudEnabled"};

/// A field as it will stand after the edit.
std::string TextAfter(const FieldEdit& edit, std::string_view field) {
  return CStr(EqualsIgnoringCase(field, edit.uiid) ? edit.value : edit.Stored(field, edit.record));
}

bool IsSequence(const std::string& text) { return !text.empty() && text != "0"; }
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
  edit.writes.Enable("ThirdToneReset_k6k", !edit.Is(kOn));
  return true;
}

bool ValidateSequenceOneMonitor(FieldEdit& edit) {
  edit.writes.Enable("RxSeqTwoMonitorOn", edit.Is(kOn));
  return true;
}

bool ValidateSequenceTwoMonitor(FieldEdit& edit) {
  const bool monitors = edit.Is(kOn) || edit.Holds("RxSeqOneMonitorOn", kOn, edit.CurrentNetwork());
  if (!monitors) edit.writes.Set("MonitorCallReceived_k6k", edit.record, kOff);
  edit.writes.Enable("MonitorCallReceived_k6k", monitors);
  return true;
}

bool ValidateExpectAck(FieldEdit& edit) {
  edit.writes.Enable("NoAckRetryNumber", edit.Is(kOn));
  edit.writes.Enable("WaitForAckTime", edit.Is(kOn));
  return true;
}

bool ValidateToneBlankingTimer(FieldEdit& edit) {
  edit.writes.Enable("ToneBlankingDeactivationTimer", edit.Is(kOn));
  edit.writes.Enable("NetworkToneBlanking", edit.Is(kOn));
  return true;
}

bool ValidateTxDuration(FieldEdit& edit) {
  const bool isLimited = !edit.Is(0);
  // A field of the radio alone: no form shows it.
  edit.validator.CurrentProvider()
      .Field("21.TxDurationTimingEnabled")
      .SetValue(edit.record, isLimited ? kOn : kOff);
  edit.writes.Enable("TxLockoutTimer", isLimited);
  return true;
}

bool ValidateReverseToneBurst(FieldEdit& edit) {
  edit.writes.Enable("RTBPhaseShift", !edit.Is(0));
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

bool ValidateAutoQuietTime(FieldEdit& edit) {
  edit.writes.Enable("AutoQuietCountdown_k6k", !edit.Is(0));
  return true;
}

bool ValidateHookswitchMonitorSwitch(FieldEdit& edit) {
  edit.writes.Enable("HookswitchMonitorOverrides_k6k", edit.Is(kOn));
  return true;
}

bool ValidateAlertType(FieldEdit& edit) {
  if (!edit.Is(AlertType::kRing)) return true;
  if (!edit.Holds("SignallingType", SignallingType::kTwoTone, edit.CurrentNetwork())) return true;
  return Refuse(edit.validator, "Ring alerts are not available for Two Tone networks.");
}

bool ValidateDeferredCalling(FieldEdit& edit) {
  if (edit.Is(kOff)) edit.writes.Set("TimeRadioAttemptsDeferredCall", edit.record, 0);
  edit.writes.Enable("TimeRadioAttemptsDeferredCall", edit.Is(kOn));
  return true;
}

bool ValidateCWID(FieldEdit& edit) {
  edit.EnableAll(kCWIDControls, edit.Is(kOn));
  return true;
}

bool ValidateMDC1200Identity(FieldEdit& edit) {
  const bool hasSequence = IsSequence(TextAfter(edit, "MDC1200ANISequence")) ||
                           IsSequence(TextAfter(edit, "MDC1200EmergencySequence"));
  if (!hasSequence || !TextAfter(edit, "MDC1200RadioIDDerived").empty()) return true;
  return Refuse(edit.validator, "A Radio ID must be defined.");
}
}  // namespace modvalNetworkFields
