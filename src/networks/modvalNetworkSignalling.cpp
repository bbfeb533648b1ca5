#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "networks/modvalEmergency.h"
#include "networks/modvalNetworks.h"
#include "platform/Conversions.h"
#include "selcall/modSelcallMapping.h"

namespace modvalNetworks {
namespace {
constexpr std::string_view kOverrides[] = {"HookswitchMonitorOverrides_k6k", "MonitorOverrides_k6k"};

void AdviseOnGap(const FieldEdit& edit, const Variant& gap, const Variant& tone) {
  if (modSelcallMapping::PeriodMs(gap) >= modSelcallMapping::PeriodMs(tone)) return;
  Notify(
      edit.validator,
      "The Gap Period is less than the Tone Period.  Selcall sequences may not be decoded properly.\r\n"
      "Recommend setting the Gap Period equal to the Tone Period regardless of whether Gaps are used in any "
      "sequences.");
}

/// The networks whose repeat interval rests on the system that the forms show.
void UpdateRepeatIntervals(FieldEdit& edit, std::string_view identityField, std::string_view currentSystem) {
  const Variant identity = edit.Stored(identityField, CLng(edit.Stored(currentSystem, kOnly)));
  if (identity.IsEmpty()) return;  // there is no such system
  const FieldRef identities = edit.validator.CurrentProvider().Field("NetworkSignallingID");
  for (const RecordNr network : identities.Records()) {
    const Variant used = identities.Value(network);
    if (CStr(used) == kNone || !SameValue(used, identity)) continue;
    if (edit.Holds("EmCalloutType", EmCallout::kDisabled, network) ||
        !edit.Holds("EmCalloutNumber", 1, network)) {
      continue;
    }
    modvalEmergency::ValidateRepeatInterval(edit, "EmCalloutRepeatInterval", network);
  }
}

void UpdateSelcallRepeatInterval(FieldEdit& edit) {
  Procedure("UpdateSelcallRepeatInterval",
            [&] { UpdateRepeatIntervals(edit, "SignalSystemId_k6k", "CurrentSelcallNumber"); });
}

void UpdateDTMFRepeatInterval(FieldEdit& edit) {
  Procedure("UpdateDTMFRepeatInterval",
            [&] { UpdateRepeatIntervals(edit, "DTMFNetworkSigSystemID", "CurrentDTMFNr"); });
}
}  // namespace

bool ValidateSignallingOnPTTPress(FieldEdit& edit) {
  return Procedure("ValidateSignallingOnPTTPress", true, [&] {
    const bool signals = edit.Is(SignallingOnPTT::kANI) || edit.Is(SignallingOnPTT::kTone);
    if (signals && edit.Holds("SignallingType", SignallingType::kDTMF, edit.record)) {
      return Refuse(edit.validator,
                    "This option is not available when the Network Signalling Type is set to DTMF");
    }
    if (signals && edit.Holds("SignallingType", SignallingType::kMDC1200, edit.record)) {
      return Refuse(edit.validator,
                    "This option is not available when the Network Signalling Type is set to MDC1200");
    }
    return true;
  });
}

bool ValidateSignallingOnPTTRelease(FieldEdit& edit) {
  return Procedure("ValidateSignallingOnPTTRelease", true, [&] {
    const bool isANI = !edit.Is(SignallingOnPTT::kNone) && !edit.Is(SignallingOnPTT::kTone);
    const bool hasNoANI = edit.Holds("SignallingType", SignallingType::kNone, edit.record) ||
                          edit.Holds("SignallingType", SignallingType::kTwoTone, edit.record);
    if (isANI && hasNoANI) {
      return Refuse(edit.validator,
                    "This option not available when the Network Signalling Type is set to Two-Tone or None");
    }
    return true;
  });
}

bool ValidateAutoAckType(FieldEdit& edit) {
  // Reports name it after the release of PTT: wanted so.
  return Procedure("ValidateSignallingOnPTTRelease", true, [&] {
    if (!edit.Is(AutoAck::kNone)) return true;
    for (const std::string_view alert :
         {"PriorityAutoAck_k6k", "SelcallIndAutoAckOne", "SelcallIndAutoAckTwo"}) {
      edit.writes.Set(alert, edit.record, kOff);
    }
    return true;
  });
}

bool ValidateCallMute(FieldEdit& edit) {
  return Procedure("ValidateCallMute", true, [&] {
    const auto opensOneMute = [&](std::string_view field) {
      return edit.Holds(field, MonitorOverrides::kSubaudibleOnly, edit.record);
    };
    if (edit.Is(kOn) && (opensOneMute(kOverrides[0]) || opensOneMute(kOverrides[1]))) {
      if (AskYesNo(edit.validator,
                   "Hookswitch Monitor Overrides and Monitor Overrides will now be set to All Mutes.  Do you "
                   "wish to proceed?") != Button::Yes) {
        return false;
      }
      for (const std::string_view field : kOverrides) {
        edit.writes.Set(field, edit.record, MonitorOverrides::kAllMutes);
      }
    }
    return true;
  });
}

bool ValidateHookswitchMonitor(FieldEdit&) { return true; }

bool ValidateMonitorOverrides(FieldEdit&) { return true; }

bool ValidateGapPeriod(FieldEdit& edit) {
  return Procedure("ValidateGapPeriod", true, [&] {
    AdviseOnGap(edit, edit.value, edit.Stored("TonePeriod", edit.record));
    edit.StoreNow();
    UpdateSelcallRepeatInterval(edit);
    return true;
  });
}

bool OnChangeTonePeriod(FieldEdit& edit) {
  return Procedure("OnChangeTonePeriod", true, [&] {
    AdviseOnGap(edit, edit.Stored("GapPeriod", edit.record), edit.value);
    edit.StoreNow();
    UpdateSelcallRepeatInterval(edit);
    return true;
  });
}

bool OnChangeDTMFGapPeriod(FieldEdit& edit) {
  return Procedure("OnChangeDTMFGapPeriod", true, [&] {
    edit.StoreNow();
    UpdateDTMFRepeatInterval(edit);
    return true;
  });
}

bool ValidateDTMFTonePeriod(FieldEdit& edit) {
  return Procedure("ValidateDTMFTonePeriod", true, [&] {
    edit.StoreNow();
    UpdateDTMFRepeatInterval(edit);
    return true;
  });
}
}  // namespace modvalNetworks
