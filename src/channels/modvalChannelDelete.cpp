#include <string>

#include "channels/modvalChannels.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modvalChannels {
namespace {
/// One deletion, step by step. Each question that is declined ends it; what earlier steps wrote stays.
class ChannelDeletion {
 public:
  ChannelDeletion(const ValidatorRef& validator, RecordNr channel)
      : validator_(validator),
        provider_(validator.CurrentProvider()),
        writes_(validator),
        channel_(channel),
        identity_(provider_.Field("ChannelID_k6k").Value(channel)),
        heir_(channel == 1 ? 2 : 1) {}

  bool Run() { return writes_.Follow(Releases()); }

 private:
  bool Releases() {
    if (IsGroupMember() || IsPinChannel()) return false;
    if (!ReleaseKeys() || !ReleaseEmergencies() || !ReleaseGPS()) return false;
    Bequeath("ActionParamHomeChannel", "ActionParamHomeChannel");
    Bequeath("ActionParamPresetChannel", "ActionParamPresetChannel");
    MoveCurrentChannel();
    if (!ReleaseStartup()) return false;
    DeletePresetCalls(provider_, channel_);
    return true;
  }

  bool RefersHere(std::string_view name, RecordNr record = 1) const {
    return SameValue(provider_.Field(name).Value(record), identity_);
  }

  bool Agrees(std::string_view question) const { return AskYesNo(validator_, question) == Button::Yes; }

  bool IsGroupMember() const {
    const FieldRef member = provider_.Field("GroupChannelUI_k6k");
    for (RecordNr record = member.RecordCount(); record >= 1; --record) {
      if (!SameValue(member.Value(record), identity_)) continue;
      Refuse(validator_,
             "This Channel is a member of one or more Scan Groups.  You must remove it from the Scan Groups "
             "before it can be deleted.");
      return true;
    }
    return false;
  }

  bool IsPinChannel() const {
    const FieldRef action = provider_.Field("1108.Action");
    for (const RecordNr pin : action.Records()) {
      const std::string name = CStr(action.Value(pin));
      const bool used = (name == "Preset Channel" && RefersHere("ActionParamPresetChannel")) ||
                        (name == "Home Channel" && RefersHere("ActionParamHomeChannel"));
      if (!used) continue;
      Refuse(validator_, "This Channel is a Programmable I/O Preset or Home channel and can not be deleted.");
      return true;
    }
    return false;
  }

  bool ReleaseKeys() {
    bool agreed = false;
    for (const FunctionKey& key : kFunctionKeys) {
      const Variant action = provider_.Field(key.action).Value(1);
      if (!SameValue(action, KeyAction::kPresetChannel) || !RefersHere(key.parameter1)) continue;
      if (!agreed && !Agrees("This channel is referenced by a function key. If you proceed the action of the "
                             "function key will be set to 'None'. Do you wish to proceed?")) {
        return false;
      }
      agreed = true;
      writes_.Set(key.action, 1, KeyAction::kUnassigned);
      writes_.Set(key.parameter1, 1, kNone);
      writes_.Set(key.parameter2, 1, 0);
    }
    return true;
  }

  bool ReleaseEmergencies() {
    bool agreed = false;
    const FieldRef channelType = provider_.Field("EmChannelType");
    for (const RecordNr network : provider_.Field("21.NetworkIDTracker").Records()) {
      if (CLng(channelType.Value(network)) != ChannelType::kDedicated || !RefersHere("EmChannel", network))
        continue;
      if (!agreed && !Agrees("This Channel is in use as a Dedicated Emergency Channel. If you proceed the "
                             "Emergency Channel Type will be set to 'Current'.  Do you wish to proceed?")) {
        return false;
      }
      agreed = true;
      writes_.Set("EmChannelType", network, ChannelType::kCurrent);
      writes_.Set("EmChannel", network, kNone);
    }
    return true;
  }

  bool ReleaseGPS() {
    const std::int32_t type = CLng(provider_.Field("GPSPollResponseChannelType").Value(1));
    if (type != ChannelType::kDedicated || !RefersHere("GPSPollResponseChannel")) return true;
    if (!Agrees("This Channel is in use as the GPS Poll Response Channel. If you proceed the GPS Poll "
                "Response Channel Type will be set to 'Current'.  Do you wish to proceed?")) {
      return false;
    }
    writes_.Set("GPSPollResponseChannelType", 1, ChannelType::kCurrent);
    writes_.Set("GPSPollResponseChannel", 1, kNone);
    return true;
  }

  /// The reference goes to the channel that takes over; the last channel leaves it as it is.
  void Bequeath(std::string_view fieldId, std::string_view uiid) {
    if (!RefersHere(fieldId)) return;
    const FieldRef identities = provider_.Field("5.ChannelIDTracker");
    if (heir_ <= identities.RecordCount()) writes_.Set(fieldId, uiid, 1, identities.Value(heir_));
  }

  void MoveCurrentChannel() {
    const RecordNr current = CLng(provider_.Field("CurrentChannelNr").Value(1));
    const bool isLast = current == provider_.Field("ChannelID_k6k").RecordCount();
    if (isLast && current > 1) writes_.Set("CurrentChannelNr", 1, current - 1);
  }

  bool ReleaseStartup() {
    if (!RefersHere("17.ChannelGroupIDForRadioStartup")) return true;
    if (IsTicked(provider_.Field("17.GroupActivityOnPowerUp").Value(1))) {
      if (!Agrees("This channel is set to be active on Startup.  If you proceed the Channel/Group Active on "
                  "Power Up field will be unticked.  Do you wish to proceed?")) {
        return false;
      }
      writes_.Set("17.GroupActivityOnPowerUp", "GroupActivityOnPowerUp_k6k", 1, 0);
    }
    Bequeath("17.ChannelGroupIDForRadioStartup", "ChannelGroupIDForRadioStartup");
    return true;
  }

  const ValidatorRef& validator_;
  ProviderRef provider_;
  FormWrites writes_;
  RecordNr channel_;
  Variant identity_;
  RecordNr heir_;
};
}  // namespace

bool DeleteChannel(const ValidatorRef& validator, RecordNr channel) {
  return Procedure("DeleteChannel", true, [&] { return ChannelDeletion(validator, channel).Run(); });
}
}  // namespace modvalChannels
