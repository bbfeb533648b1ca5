#include "channels/modvalChannels.h"
#include "common/ChannelNetworks.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
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
    "GroupChannelUI_k6k",
    "EmChannel",
    "ActionParamPresetChannel",
    "ActionParamHomeChannel",
    "GPSPollResponseChannel",
    "FilteredScanGroupChannelMemberID",
    "ChannelGroupIDForRadioStartup",
};

/// Moves the references to a channel from its old number to the new one, after one question.
class Renumbering {
 public:
  Renumbering(FieldEdit& edit, Variant old)
      : edit_(edit), provider_(edit.validator.CurrentProvider()), old_(std::move(old)) {}

  /// False when the user declines, before anything was written.
  bool Run() {
    for (const std::string_view name : kReferences) {
      if (!MoveAll(name)) return false;
    }
    for (const FunctionKey& key : kFunctionKeys) {
      const Variant action = provider_.Field(key.action).Value(1);
      if (SameValue(action, KeyAction::kPresetChannel) && !Move(key.parameter1, 1)) return false;
    }
    return true;
  }

 private:
  bool MoveAll(std::string_view name) {
    for (const RecordNr record : provider_.Field(name).Records()) {
      if (!Move(name, record)) return false;
    }
    return true;
  }

  bool Move(std::string_view name, RecordNr record) {
    const Variant reference = provider_.Field(name).Value(record);
    if (!SameValue(reference, old_) || CStr(reference) == kNone) return true;
    if (!agreed_ &&
        AskYesNo(edit_.validator,
                 "Changing this Channel ID will cause all references to it to be updated. %0:S Do "
                 "you wish to proceed?",
                 {kLineBreak}) != Button::Yes) {
      return false;
    }
    agreed_ = true;
    edit_.writes.Set(name, record, edit_.value);
    return true;
  }

  FieldEdit& edit_;
  ProviderRef provider_;
  Variant old_;
  bool agreed_ = false;
};

bool ValidateNumber(FieldEdit& edit) {
  const Variant old = edit.validator.CurrentProvider().Field("ChannelID_k6k").Value(edit.record);
  return SameValue(old, edit.value) || Renumbering(edit, old).Run();
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
