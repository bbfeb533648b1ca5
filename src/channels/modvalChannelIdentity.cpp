#include "channels/modvalChannels.h"
#include "common/ChannelNetworks.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/Renumbering.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modvalChannels {
namespace {
/// The fields that refer to a channel by its number, in every record; and the first parameter of a function
/// key that selects a preset channel.
constexpr std::string_view kReferences[] = {
    "Priority1Channel_k6k",
    "Priority2Channel_k6k",
    "ScanPresetTxChannel_k6k",
    "VotePresetTxChannelUI",  // or the next save would make it the first channel
    "GroupChannelUI_k6k",
    "EmChannel",
    "ActionParamPresetChannel",
    "ActionParamHomeChannel",
    "GPSPollResponseChannel",
    "FilteredScanGroupChannelMemberID",
    "ChannelGroupIDForRadioStartup",
};

constexpr std::string_view kQuestion =
    "Changing this Channel ID will cause all references to it to be updated. %0:S Do you wish to proceed?";

bool ValidateNumber(FieldEdit& edit) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  const Variant old = provider.Field("ChannelID_k6k").Value(edit.record);
  if (SameValue(old, edit.value)) return true;
  Renumbering renumbering(edit, old, kQuestion, kLineBreak);
  for (const std::string_view name : kReferences) {
    if (!renumbering.MoveAll(name, name)) return false;
  }
  for (const FunctionKey& key : kFunctionKeys) {
    const Variant action = provider.Field(key.action).Value(1);
    const bool isChannel = SameValue(action, KeyAction::kPresetChannel);
    if (isChannel && !renumbering.Move(key.parameter1, key.parameter1, 1)) return false;
  }
  return true;
}

/// The same network again runs through all of it too.
bool ValidateNetwork(FieldEdit& edit) {
  if (!ValidateChannelID(edit.validator, edit.record)) return false;
  if (!ValidatePresetSelcallAgainstTxFormat(edit.validator, edit.record)) return false;
  edit.writes.Set(edit.uiid, edit.record, edit.value);
  ResetChannelSelcallPresets(edit.writes, edit.record);
  edit.writes.Set("DTMFPresetCallSequence", edit.record, kNone);
  return true;
}
}  // namespace

bool ValidateChannelID(FieldEdit& edit) {
  return Procedure("ValidateChannelID", true, [&] {
    return edit.uiid == "CHANNELID_K6K" ? ValidateNumber(edit) : ValidateNetwork(edit);
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

RecordNr FindChannelsNetworkRecordNr(const ValidatorRef& validator, RecordNr channel) {
  return Procedure("FindChannelsNetworkRecordNr", RecordNr{0}, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    return ChannelNetworks(provider).NetworkOf(channel);
  });
}
}  // namespace modvalChannels
