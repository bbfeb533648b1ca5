#include "networks/modvalEmergency.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/Conversions.h"
#include "tier/Messages.h"
#include "tier/Procedure.h"
#include "tier/RadioCodes.h"
#include "tier/modProjectGlobals.h"

namespace modvalEmergency {
namespace {
/// The length of a Selcall tone or gap in ms, by its code from 1.
constexpr std::int32_t kPeriodsMs[] = {20, 33, 40, 50, 60, 70, 100};
constexpr std::int32_t kShortestIntervalMs = 200;

/// The channel with that number, as text; 0 for none.
RecordNr FindChannel(const ProviderRef& provider, const std::string& number) {
  const FieldRef channelNumber = provider.Field("ChannelID_k6k");
  for (const RecordNr channel : channelNumber.Records()) {
    if (CStr(channelNumber.Value(channel)) == number) return channel;
  }
  return 0;
}

/// Another network whose dedicated emergency channel belongs to the network with number `id`; 0 for none.
RecordNr FindDedicatedUser(const ProviderRef& provider, RecordNr network, const Variant& id) {
  const FieldRef enabled = provider.Field("EmergencyEnabled");
  const FieldRef type = provider.Field("EmChannelType");
  const FieldRef emergencyChannel = provider.Field("EmChannel");
  const FieldRef networkOfChannel = provider.Field("ChannelNetworkID_k6k");
  for (const RecordNr other : enabled.Records()) {
    if (other == network || !IsTicked(enabled.Value(other))) continue;
    if (!SameValue(type.Value(other), ChannelType::kDedicated)) continue;
    const RecordNr channel = FindChannel(provider, CStr(emergencyChannel.Value(other)));
    if (channel != 0 && SameValue(networkOfChannel.Value(channel), id)) return other;
  }
  return 0;
}

/// A number that is no code counts as milliseconds.
std::int32_t PeriodMs(const Variant& period) {
  const std::int32_t code = CLng(period);
  return code >= 1 && code <= std::ssize(kPeriodsMs) ? kPeriodsMs[code - 1] : code;
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
    return {PeriodMs(provider.Field("GapPeriod").Value(system)),
            PeriodMs(provider.Field("TonePeriod").Value(system))};
  }
  return {CLng(provider.Field("DTMFIntertoneGap").Value(system)),
          CLng(provider.Field("DTMFStandardTonePeriod").Value(system))};
}
/// At the record of the network's number, not of the network: wanted so. There may be no such record.
void ClearSIBTCycling(FieldEdit& edit, RecordNr networkId) {
  const FieldRef cycling = edit.validator.CurrentProvider().Field("SIBTTxCyclingEnabled_k6k");
  if (cycling.HasRecord(networkId)) edit.writes.Set("SIBTTxCyclingEnabled_k6k", networkId, kOff);
}
}  // namespace

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

void ValidateRepeatInterval(FieldEdit& edit, std::string_view intervalField) {
  Procedure("ValidateRepeatInterval", [&] {
    const Timing timing = TimingOf(edit.validator.CurrentProvider(), edit.record);
    const std::int32_t interval = std::max(3 * timing.gapMs + timing.toneMs, kShortestIntervalMs);
    edit.writes.Set(intervalField, edit.record, interval);
  });
}

bool ValidateChannelID(const ValidatorRef& validator, RecordNr channel) {
  return Procedure("ValidateChannelID", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const Variant number = provider.Field("ChannelID_k6k").Value(channel);
    const FieldRef emergencyChannel = provider.Field("EmChannel");
    for (const RecordNr network : emergencyChannel.Records()) {
      if (!SameValue(emergencyChannel.Value(network), number)) continue;
      return Refuse(validator,
                    "You can not change the Network this Channel belongs to because it is being used as an "
                    "Emergency Dedicated Channel.");
    }
    return true;
  });
}
}  // namespace modvalEmergency
