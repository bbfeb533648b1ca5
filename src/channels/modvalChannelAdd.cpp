#include <string>

#include "channels/modvalChannels.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modvalChannels {
namespace {
constexpr std::string_view kPresetOwner = "76.DSDBM_PRESET_CALL_CHANNEL_REF";

/// Preset calls name their channel by its record, from 1.
void MovePresetOwners(const ProviderRef& provider, RecordNr from, RecordNr by) {
  const FieldRef owners = provider.Field(kPresetOwner);
  for (const RecordNr record : owners.Records()) {
    const std::int32_t owner = CLng(owners.Value(record));
    if (owner >= from) owners.SetValue(record, owner + by);
  }
}
}  // namespace

void AddChannelK6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr channel) {
  Procedure("AddChannelK6000", [&] {
    InsertChannelK6000(validator, provider, channel);
    const ScopedAutoUpdate silent(provider, false);
    const FieldRef networks = provider.Field("21.NetworkIDTracker");
    if (networks.HasRecord(1)) provider.Field("5.ChannelNetworkIdUI").SetValue(channel, networks.Value(1));
    FormWrites writes(validator);
    ResetChannelSelcallPresets(writes, channel);
    const std::string none = modCommonGlobals::LocalizeString("000.000000");
    provider.Field("5.ChannelTxFreqUI").SetValue(channel, none);
    provider.Field("5.ChannelRxFreqUI").SetValue(channel, none);
  });
}

void InsertChannelK6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr channel) {
  Procedure("InsertChannelK6000", [&] {
    const FieldRef numbers = provider.Field("5.ChannelIDTracker");
    const Variant number = modProjectGlobals::FreeNumber(numbers);  // neither a channel's nor a group's
    if (!number.IsEmpty()) numbers.SetValue(channel, number);
    const bool isInserted = channel < provider.Table("5").RecordCount();
    if (isInserted) MovePresetOwners(provider, channel, 1);
    ReloadList(validator, "ChannelID_k6k");
  });
}

void DeletePresetCalls(const ProviderRef& provider, RecordNr channel) {
  const ScopedAutoUpdate silent(provider, false);
  const TableRef presets = provider.Table("76");
  const FieldRef owners = provider.Field(kPresetOwner);
  for (RecordNr record = presets.RecordCount(); record > 0; --record) {
    if (SameValue(owners.Value(record), channel)) presets.DeleteRecord(record);
  }
  MovePresetOwners(provider, channel + 1, -1);
}
}  // namespace modvalChannels
