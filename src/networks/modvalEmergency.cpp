#include "networks/modvalEmergency.h"

#include <algorithm>
#include <limits>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "networks/modNetworks.h"
#include "platform/Conversions.h"
#include "selcall/modSelcallMapping.h"

namespace modvalEmergency {
namespace {
constexpr std::int64_t kShortestIntervalMs = 200;

/// Another network whose dedicated emergency channel belongs to the network with number `id`; 0 for none.
RecordNr FindDedicatedUser(const ProviderRef& provider, RecordNr network, const Variant& id) {
  const FieldRef enabled = provider.Field("EmergencyEnabled");
  const FieldRef type = provider.Field("EmChannelType");
  const FieldRef emergencyChannel = provider.Field("EmChannel");
  const FieldRef networkOfChannel = provider.Field("ChannelNetworkID_k6k");
  for (const RecordNr other : enabled.Records()) {
    if (other == network || !IsTicked(enabled.Value(other))) continue;
    if (!SameValue(type.Value(other), ChannelType::kDedicated)) continue;
    const RecordNr channel = modProjectGlobals::ChannelRecordNr(provider, emergencyChannel.Value(other));
    if (channel != 0 && SameValue(networkOfChannel.Value(channel), id)) return other;
  }
  return 0;
}

/// Gap and tone of the network's signalling system; 0 without one that has them.
struct Timing {
  std::int32_t gapMs = 0;
  std::int32_t toneMs = 0;
};

Timing TimingOf(const ProviderRef& provider, RecordNr network) {
  const std::int32_t type = CLng(provider.Field("SignallingType").Value(network));
  if (type != SignallingType::kSelcall && type != SignallingType::kDTMF) return {};
  const Variant identity = provider.Field("NetworkSignallingID").Value(network);
  const RecordNr system = modProjectGlobals::SigSysRecordNr(provider, type, identity, true);
  if (system == 0) return {};
  if (type == SignallingType::kSelcall) {
    return {modSelcallMapping::PeriodMs(provider.Field("GapPeriod").Value(system)),
            modSelcallMapping::PeriodMs(provider.Field("TonePeriod").Value(system))};
  }
  return {CLng(provider.Field("DTMFIntertoneGap").Value(system)),
          CLng(provider.Field("DTMFStandardTonePeriod").Value(system))};
}

/// A damaged file holds timings of any length, the field does not.
std::int64_t LongestIntervalMs(const FieldRef& field) {
  const std::int64_t limit = field.Maximum();
  return limit > kShortestIntervalMs ? limit : std::numeric_limits<std::int32_t>::max();
}

/// At the record of the network's number, not of the network: wanted so. There may be no such record.
void ClearSIBTCycling(FieldEdit& edit, RecordNr networkId) {
  const FieldRef cycling = edit.validator.CurrentProvider().Field("SIBTTxCyclingEnabled_k6k");
  if (cycling.HasRecord(networkId)) edit.writes.Set("SIBTTxCyclingEnabled_k6k", networkId, kOff);
}
/// Why emergency ANI can not be enabled while the network's system has no ANI sequence.
constexpr struct {
  std::int32_t type;
  std::string_view text;
} kNoANI[] = {
    {SignallingType::kSelcall,
     "You can not enable Emergency ANI for this Selcall Network because an ANI sequence has not been "
     "defined. Please define an ANI sequence in the Selcall Free Format Bursts form."},
    {SignallingType::kDTMF,
     "You can not enable Emergency ANI for this DTMF Network because an ANI sequence has not been defined. "
     "Please define an ANI sequence in the DTMF form."},
    {SignallingType::kMDC1200,
     "You can not enable Emergency ANI for this MDC1200 Network because an ANI sequence has not been "
     "defined. Please define an ANI sequence in the MDC1200 form."},
};

/// Endless cycling: advice where nothing can reset it, a question where an acknowledgement does.
bool ContinuesOnPurpose(const FieldEdit& edit) {
  if (!edit.Is(EmCycling::kContinuous)) return true;
  const bool isSelcall = edit.Holds("SignallingType", SignallingType::kSelcall, edit.record);
  if (!isSelcall && edit.Holds("EmergencyEnabled", kOn, edit.CurrentNetwork())) {
    Notify(edit.validator,
           "The current network does not use Selcall signalling, therefore emergency cycling cannot be reset "
           "remotely. Consider using a fixed number of cycles instead.");
  }
  if (!isSelcall) return true;
  return AskYesNo(
             edit.validator,
             "Setting the cycling type to Continuous will result in an infinite number of transmissions if "
             "no acknowledgement is received. Do you want to continue?") != Button::No;
}
}  // namespace

bool ValidateEmCyclingType(FieldEdit& edit) {
  return Procedure("ValidateEmCyclingType", true, [&] {
    if (!ContinuesOnPurpose(edit)) return false;
    const bool isFixedNumber = edit.Is(EmCycling::kFixedNumber);
    const auto number = [&](std::string_view field) { return CDbl(edit.Stored(field, edit.record)); };
    edit.writes.Set("EmCyclingMaxTime", edit.record,
                    modNetworks::MaximumCyclingTime(isFixedNumber, number("EmCyclingRxTime"),
                                                    number("EmCyclingTxTime"), number("EmCyclingNumber")));
    return true;
  });
}

bool ValidateEmergencyANIEnabled(FieldEdit& edit) {
  return Procedure("ValidateEmergencyANIEnabled", true, [&] {
    if (edit.Is(kOff)) return true;
    const Variant identity = edit.Stored("NetworkSignallingID", edit.record);
    for (const auto& [type, text] : kNoANI) {
      if (!edit.Holds("SignallingType", type, edit.record)) continue;
      const std::string sequence = modNetworks::SequenceOf(edit.validator.CurrentProvider(), type, identity,
                                                           modNetworks::ANISequenceField(type));
      return !sequence.empty() || Refuse(edit.validator, text);
    }
    return true;
  });
}

bool ValidateEmChannel(FieldEdit& edit) {
  return Procedure("ValidateEmChannel", true, [&] {
    if (CStr(edit.value) == kNone) return true;
    const ProviderRef provider = edit.validator.CurrentProvider();
    const RecordNr channel = modProjectGlobals::ChannelRecordNr(provider, edit.value);
    if (channel == 0) return true;
    if (HoldsCode(provider, "TxPower_k6k", TxPower::kOff, channel) &&
        AskYesNo(
            edit.validator,
            "The channel you are trying to use has a Tx Power setting of 'Off'.  Do you still want to use "
            "the channel?") != Button::Yes) {
      return false;
    }
    const Variant network = provider.Field("5.ChannelNetworkIdUI").Value(channel);
    if (SameValue(network, provider.Field("NetworkID").Value(edit.record))) return true;
    return AskYesNo(edit.validator,
                    "This Channel is on a different Network. The Emergency sequence, callout, and cycling "
                    "options for the dedicated Channel's Network will be used.  Do you want to continue?") ==
           Button::Yes;
  });
}

bool ValidateEmergencyEnabled(FieldEdit& edit) {
  return Procedure("ValidateEmergencyEnabled", true, [&] {
    if (!edit.Is(kOff)) return true;
    const ProviderRef provider = edit.validator.CurrentProvider();
    const FieldRef networkId = provider.Field("NetworkID");
    const Variant id = networkId.Value(edit.record);
    ClearSIBTCycling(edit, CLng(id));
    const RecordNr user = FindDedicatedUser(provider, edit.record, id);
    if (user != 0) {
      return Refuse(
          edit.validator,
          "You can not turn off Emergency for this Network because it contains Channel %0:S which is "
          "being used as an Emergency Dedicated Channel on Network %1:S.",
          {CStr(provider.Field("EmChannel").Value(user)), CStr(networkId.Value(user))});
    }
    edit.writes.Set("EmChannelType", edit.record, ChannelType::kCurrent);
    edit.writes.Set("EmChannel", edit.record, kNone);
    edit.writes.Set("EmCalloutType", edit.record, EmCallout::kDisabled);
    edit.writes.Set("EmCyclingType", edit.record, EmCycling::kFixedNumber);
    return true;
  });
}

void ValidateRepeatInterval(FieldEdit& edit, std::string_view intervalField, RecordNr network) {
  Procedure("ValidateRepeatInterval", [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const Timing timing = TimingOf(provider, network);
    const std::int64_t interval = std::int64_t{3} * timing.gapMs + timing.toneMs;
    edit.writes.Set(intervalField, network,
                    static_cast<std::int32_t>(std::clamp(interval, kShortestIntervalMs,
                                                         LongestIntervalMs(provider.Field(intervalField)))));
  });
}
}  // namespace modvalEmergency
