#include <algorithm>
#include <string>
#include <vector>

#include "channels/modvalChannels.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "networks/modNetworks.h"
#include "networks/modvalEmergency.h"
#include "networks/modvalNetworks.h"
#include "platform/Conversions.h"

namespace modvalNetworks {
namespace {
/// What a signalling type asks of its systems.
struct TypeNeeds {
  std::int32_t type;
  std::string_view identity;  ///< of the systems
  std::string_view noSystem;
  std::string_view noANI = {};          ///< "" for a type without ANI
  std::string_view noANIOfSystem = {};  ///< when the system changes and the type stays
};
constexpr TypeNeeds kTypes[] = {
    {SignallingType::kSelcall, "SignalSystemId_k6k",
     "No Selcall signalling systems exist.  You can create them from the Selcall Identity form.",
     "Emergency ANI is enabled, but Selcall System %0:s does not have a valid ANI sequence. Emergency ANI "
     "will be disabled if you continue. Do you want to proceed?",
     "Emergency ANI is enabled, but this Selcall system does not have a valid ANI sequence. Emergency ANI "
     "will be disabled if you continue. Do you want to proceed?"},
    {SignallingType::kDTMF, "DTMFNetworkSigSystemID",
     "No DTMF signalling systems exist.  You can create them from the DTMF Signalling form.",
     "Emergency ANI is enabled, but DTMF System %0:s does not have a valid ANI sequence. Emergency ANI will "
     "be disabled if you continue. Do you want to proceed?",
     "Emergency ANI is enabled, but this DTMF system does not have a valid ANI sequence. Emergency ANI will "
     "be disabled if you continue. Do you want to proceed?"},
    {SignallingType::kTwoTone, "T99NetworkID_k6k",
     "No Two Tone signalling systems exist.  You can create them from the Two-Tone Options form."},
    {SignallingType::kMDC1200, "MDC1200SignallingSystemID",
     "No MDC1200 signalling systems exist.  You can create them from the MDC1200 Options form.",
     "Emergency ANI is enabled, but MDC1200 System %0:s does not have a valid ANI sequence. Emergency ANI "
     "will be disabled if you continue. Do you want to proceed?",
     "Emergency ANI is enabled, but this MDC1200 system does not have a valid ANI sequence. Emergency ANI "
     "will be disabled if you continue. Do you want to proceed?"},
};

/// Null for a type without systems.
const TypeNeeds* FindType(const Variant& type) {
  for (const TypeNeeds& row : kTypes) {
    if (IsCode(type, row.type)) return &row;
  }
  return nullptr;
}

/// What stays as it is without signalling.
constexpr struct {
  std::string_view uiid;
  std::int32_t value;
} kWithoutSignalling[] = {
    {"CallMute", kOff},
    {"HookswitchMonitorOverrides_k6k", MonitorOverrides::kAllMutes},
    {"MonitorOverrides_k6k", MonitorOverrides::kAllMutes},
    {"InhibitPTTWhenCallInactive_k6k", kOff},
    {"InhibitEPTT1WhenCallInactive_k6k", kOff},
    {"InhibitEPTT2WhenCallInactive_k6k", kOff},
};

/// The fields that show what the system makes of the network.
constexpr std::string_view kSystemFields[] = {
    "AutoAckType",           "AutoAckDelay",        "ExpectAck",
    "SelcallRMRAcknowledge", "SelcallRMRAlert",     "SelcallRMRCallClear",
    "ToneBlankingTimer",     "DeferredCalling_k6k", "NetworkPreemphasiseSignalling_k6k",
    "NoAckRetryNumber",      "WaitForAckTime",      "ToneBlankingDeactivationTimer",
    "NetworkToneBlanking"};

/// The channels of a network, and what a change of its signalling does to their presets.
class NetworkChannels {
 public:
  explicit NetworkChannels(FieldEdit& edit) : edit_(edit), provider_(edit.validator.CurrentProvider()) {
    const Variant number = provider_.Field("NetworkID").Value(edit.record);
    const FieldRef networkOfChannel = provider_.Field("5.ChannelNetworkIdUI");
    for (const RecordNr channel : networkOfChannel.Records()) {
      if (SameValue(networkOfChannel.Value(channel), number)) channels_.push_back(channel);
    }
  }

  bool HavePreset(std::string_view fieldId) const {
    const FieldRef preset = provider_.Field(fieldId);
    return std::any_of(channels_.begin(), channels_.end(),
                       [&](RecordNr channel) { return CStr(preset.Value(channel)) != kNone; });
  }
  void ResetSelcallPresets() {
    for (const RecordNr channel : channels_) {
      modvalChannels::ResetChannelSelcallPresets(edit_.writes, channel);
    }
  }
  void ResetDTMFPresets() {
    for (const RecordNr channel : channels_) edit_.writes.Set("DTMFPresetCallSequence", channel, kNone);
  }

 private:
  FieldEdit& edit_;
  ProviderRef provider_;
  std::vector<RecordNr> channels_;
};

constexpr std::string_view kSelcallPreset = "5.TXCallBurstSeq";
constexpr std::string_view kDTMFPreset = "DTMFPresetCallSequence";

bool Agrees(const FieldEdit& edit, std::string_view question, Parameters parameters = {}) {
  return AskYesNo(edit.validator, question, parameters) == Button::Yes;
}

bool HasEmergencyANI(const FieldEdit& edit) {
  return edit.Holds("EmergencyEnabled", kOn, edit.record) && edit.Holds("EmCyclingANI", kOn, edit.record);
}

/// One change of a network's signalling type, step by step.
class TypeChange {
 public:
  explicit TypeChange(FieldEdit& edit) : edit_(edit), needs_(FindType(edit.value)) {}

  bool Run() {
    if (!HasSystem() || !LeavesSelcall() || !LeavesDTMF() || !GoesWithCallout() || !GoesWithANI())
      return false;
    Rewrite();
    return true;
  }

 private:
  bool HasSystem() const {
    if (needs_ == nullptr) return true;
    if (edit_.validator.CurrentProvider().Field(needs_->identity).RecordCount() > 0) return true;
    return Refuse(edit_.validator, needs_->noSystem);
  }

  bool LeavesType(std::int32_t type) const { return edit_.Holds("SignallingType", type, edit_.record); }

  bool LeavesSelcall() {
    if (!LeavesType(SignallingType::kSelcall)) return true;
    NetworkChannels channels(edit_);
    if (!channels.HavePreset(kSelcallPreset)) return true;
    const bool agreed =
        edit_.Is(SignallingType::kNone)
            ? Agrees(edit_,
                     "Changing Signalling Type from Selcall to None will reset the Signalling Presets on the "
                     "Channels form to None. Do you want to continue?")
            : Agrees(edit_,
                     "Changing the Signalling Type from Selcall will reset the Signalling Presets on the "
                     "Channels form to None. Do you want to continue?");
    if (agreed) channels.ResetSelcallPresets();
    return agreed;
  }

  bool LeavesDTMF() {
    if (!LeavesType(SignallingType::kDTMF)) return true;
    NetworkChannels channels(edit_);
    if (!channels.HavePreset(kDTMFPreset)) return true;
    if (!Agrees(
            edit_,
            "Changing the Signalling Type from DTMF will reset the Signalling Presets on the Channels form "
            "to None. Do you want to continue?")) {
      return false;
    }
    channels.ResetDTMFPresets();
    return true;
  }

  /// A callout waits for an acknowledgement, which these types do not give.
  bool GoesWithCallout() const {
    const bool acknowledges = !edit_.Is(SignallingType::kDTMF) && !edit_.Is(SignallingType::kMDC1200);
    if (acknowledges || !edit_.Holds("EmergencyEnabled", kOn, edit_.record) ||
        edit_.Holds("EmCalloutType", EmCallout::kDisabled, edit_.record)) {
      return true;
    }
    return Refuse(
        edit_.validator,
        "Emergency is enabled for this Network and has callout specified.  You must set the Callout Type to "
        "Disabled (on the Emergency form) before changing this signalling type.");
  }

  /// The network takes the first system of the type.
  std::string FirstIdentity() const { return CStr(edit_.Stored(needs_->identity, 1)); }

  bool GoesWithANI() {
    if (needs_ == nullptr || needs_->noANI.empty() || !HasEmergencyANI(edit_)) return true;
    if (!CStr(edit_.Stored(modNetworks::ANISequenceField(needs_->type), 1)).empty()) return true;
    if (!Agrees(edit_, needs_->noANI, {FirstIdentity()})) return false;
    edit_.writes.Set("EmCyclingANI", edit_.record, kOff);
    return true;
  }

  void Rewrite() {
    edit_.StoreNow();
    const std::string_view text = needs_ == nullptr ? kNone : modNetworks::SignallingTypeText(needs_->type);
    edit_.writes.Set("21.NetworkSignallingID", "NetworkSignallingID", edit_.record,
                     needs_ == nullptr ? std::string(kNone) : FirstIdentity());
    if (edit_.validator.CurrentProvider().Field("53.SignallingTypeUI").HasRecord(edit_.record)) {
      edit_.writes.Set("53.SignallingTypeUI", "SignallingTypeUI", edit_.record, text);  // it may be too short
    }
    if (needs_ == nullptr) {
      for (const auto& [uiid, value] : kWithoutSignalling) edit_.writes.Set(uiid, edit_.record, value);
    }
  }

  FieldEdit& edit_;
  const TypeNeeds* needs_;
};

bool ReleasesPresets(FieldEdit& edit) {
  NetworkChannels channels(edit);
  if (!channels.HavePreset(kSelcallPreset) && !channels.HavePreset(kDTMFPreset)) return true;
  if (!Agrees(
          edit,
          "Changing the Signalling ID will reset the Signalling Presets on the Channels form to None. Do you "
          "want to continue?")) {
    return false;
  }
  channels.ResetSelcallPresets();
  channels.ResetDTMFPresets();
  return true;
}

/// Whether the system with the new identity has an ANI sequence. MDC1200 looks at its emergency sequence:
/// that is wanted.
bool HasSequence(const FieldEdit& edit, std::int32_t type) {
  const std::string_view field = type == SignallingType::kMDC1200 ? modNetworks::EmergencySequenceField(type)
                                                                  : modNetworks::ANISequenceField(type);
  return !modNetworks::SequenceOf(edit.validator.CurrentProvider(), type, edit.value, field).empty();
}

bool SystemGoesWithANI(FieldEdit& edit) {
  const TypeNeeds* needs = FindType(edit.Stored("SignallingType", edit.record));
  if (needs == nullptr || needs->noANI.empty() || !HasEmergencyANI(edit)) return true;
  if (HasSequence(edit, needs->type)) return true;
  if (!Agrees(edit, needs->noANIOfSystem)) return false;
  edit.writes.Set("EmCyclingANI", edit.record, kOff);
  return true;
}
}  // namespace

bool ValidateSignallingType(FieldEdit& edit) {
  return Procedure("ValidateSignallingType", true, [&] {
    // Once more the same type would put the network on the first system.
    if (SameValue(edit.Stored("SignallingType", edit.record), edit.value)) return edit.PassUnchanged();
    const bool isKnown = edit.Is(SignallingType::kNone) || FindType(edit.value) != nullptr;
    if (!isKnown) return edit.PassUnchanged();  // the limits of the field are the host's to watch
    return TypeChange(edit).Run();
  });
}

bool ValidateSignallingID(FieldEdit& edit) {
  return Procedure("ValidateSignallingID", true, [&] {
    if (SameValue(edit.Stored("NetworkSignallingID", edit.record), edit.value)) return true;
    if (!ReleasesPresets(edit) || !SystemGoesWithANI(edit)) return false;
    edit.StoreNow();  // the interval is that of the new system
    if (!edit.Holds("EmCalloutType", EmCallout::kDisabled, edit.record)) {
      modvalEmergency::ValidateRepeatInterval(edit, "EmCalloutRepeatInterval", edit.record);
    }
    for (const std::string_view uiid : kSystemFields) edit.writes.Reload(uiid);
    return true;
  });
}
}  // namespace modvalNetworks
