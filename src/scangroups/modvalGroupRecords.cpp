#include <algorithm>
#include <string>

#include "common/GroupMembers.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/Renumbering.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "scangroups/modvalScanGroups.h"

/// The groups as a set: their numbers, a new one, the deletion of one, what holds before a save.
namespace modvalScanGroups {
namespace {
constexpr std::string_view kStartUp = "17.ChannelGroupIDForRadioStartup";
constexpr std::string_view kStartUpUiid = "ChannelGroupIDForRadioStartup";
constexpr std::string_view kActivity = "17.GroupActivityOnPowerUp";

/// Whether the key's parameter names a group.
bool GoesToGroup(const ProviderRef& provider, const FunctionKey& key) {
  return HoldsCode(provider, key.action, KeyAction::kScanning, kOnly) ||
         HoldsCode(provider, key.action, KeyAction::kScanningNuisanceDelete, kOnly);
}

/// One deletion. A question that is declined ends it; nothing was written before.
class GroupDeletion {
 public:
  GroupDeletion(const ValidatorRef& validator, RecordNr group)
      : validator_(validator),
        provider_(validator.CurrentProvider()),
        writes_(validator),
        group_(group),
        number_(provider_.Field("16.GroupIDTracker").Value(group)),
        current_(CurrentScanGroup(provider_)) {}

  bool Run() { return writes_.Follow(Releases()); }

 private:
  bool Releases() {
    if (IsOnKey()) {
      return Refuse(
          validator_,
          "This scan group is already assigned to a function key parameter.  Please remove from the "
          "function key parameter before deleting.");
    }
    if (IsPresetGroup(provider_, number_)) {
      return Refuse(validator_,
                    "This Scan Group is assigned as a Prog IO Input 'Preset Group' Action parameter.  Please "
                    "change the Prog IO Action Parameter before deleting.");
    }
    if (!ReleasesStartUp()) return false;
    TakeMembers();
    return true;
  }

  bool RefersHere(std::string_view field) const {
    return SameValue(StoredValue(provider_, field, kOnly), number_);
  }

  bool IsOnKey() const {
    return std::ranges::any_of(kFunctionKeys, [&](const FunctionKey& key) {
      return GoesToGroup(provider_, key) && RefersHere(key.parameter1);
    });
  }

  /// The radio starts with the first channel then.
  bool ReleasesStartUp() {
    if (!RefersHere(kStartUp)) return true;
    if (HoldsCode(provider_, kActivity, kOn, kOnly)) {
      if (AskYesNo(
              validator_,
              "This group is set to be active on startup.  If you proceed the Channel/Group Active on Power "
              "Up field will be unticked.  Do you wish to proceed?") != Button::Yes) {
        return false;
      }
      writes_.Set(kActivity, "GroupActivityOnPowerUp_k6k", kOnly, kOff);
    }
    const FieldRef channels = provider_.Field("5.ChannelIDTracker");
    if (channels.HasRecord(1)) writes_.Set(kStartUp, kStartUpUiid, kOnly, channels.Value(1));
    return true;
  }

  void TakeMembers() {
    if (current_ != group_) UpdateUnfilteredScanGroupMembersList(provider_);
    {
      const ScopedAutoUpdate silent(provider_, false);
      const TableRef members = provider_.Table("18");
      const FieldRef groups = provider_.Field("18.GroupIDNumber");
      for (RecordNr record = members.RecordCount(); record > 0; --record) {
        if (SameValue(groups.Value(record), number_)) members.DeleteRecord(record);
      }
    }
    // Table 16 still has the group: what will be shown is told by the records of before.
    const RecordNr count = provider_.Table("16").RecordCount();
    const bool isLast = group_ == count;
    const bool moves = current_ > group_ || (current_ == group_ && isLast && group_ > 1);
    if (moves) writes_.Set("CurrentScanGroupNr", kOnly, current_ - 1);
    const RecordNr shown = current_ != group_ ? current_ : isLast ? group_ - 1 : group_ + 1;
    UpdateFilteredScanGroupMembersList(validator_, provider_, shown);
  }

  const ValidatorRef& validator_;
  ProviderRef provider_;
  FormWrites writes_;
  RecordNr group_;
  Variant number_;
  RecordNr current_;
};
}  // namespace

bool ValidateGroupID(FieldEdit& edit) {
  return Procedure("ValidateGroupID", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const Variant old = StoredValue(provider, "GroupID_k6k", edit.record);
    if (old.IsEmpty() || SameValue(old, edit.value)) return true;
    Renumbering renumbering(
        edit, old,
        "Changing this Group ID will cause all references to it to be updated.  Do you wish to proceed?");
    for (const FunctionKey& key : kFunctionKeys) {
      if (GoesToGroup(provider, key) && !renumbering.Move(key.parameter1, key.parameter1, kOnly))
        return false;
    }
    return renumbering.MoveAll("ActionParamPresetGroup", "ActionParamPresetGroup") &&
           renumbering.MoveAll(kStartUp, kStartUpUiid) && renumbering.MoveAll("18.GroupIDNumber", {}) &&
           renumbering.MoveAll("1119.FilteredScanGroupID", {});
  });
}

void AddScanGroupK6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr group) {
  Procedure("AddScanGroupK6000", [&] {
    const FieldRef numbers = provider.Field("16.GroupIDTracker");
    const Variant free = modProjectGlobals::FreeNumber(numbers);
    const Variant number = free.IsEmpty() ? Variant(0) : free;
    numbers.SetValue(group, number);
    {
      const ScopedAutoUpdate silent(provider, false);
      provider.Field("16.Priority1ChannelUI").SetValue(group, kNone);
      provider.Field("16.Priority2ChannelUI").SetValue(group, kNone);
      const FieldRef groups = provider.Field("18.GroupIDNumber");
      for (const RecordNr member : groups.Records()) {
        if (SameValue(groups.Value(member), number))
          provider.Field("18.GroupChannelUI").SetValue(member, kNone);
      }
      constexpr std::int32_t kLeadinMs = 60;
      provider.Field("GroupVotingLeadinDelay_k6k").SetValue(group, kLeadinMs);
      provider.Field("ScanPresetTxChannel_k6k").SetValue(group, "");
    }
    ReloadList(validator, "GroupID_k6k");
  });
}

bool DeleteScanGroup(const ValidatorRef& validator, RecordNr group) {
  return Procedure("DeleteScanGroup", true, [&] { return GroupDeletion(validator, group).Run(); });
}

void CheckBackgroundGroups(FinalReport& report) {
  const ProviderRef provider = report.Provider();
  for (const RecordNr record : provider.Field("ScanType_k6k").Records()) {
    const StoredRecord group{provider, record};
    const bool isSound = !group.Holds("ScanType_k6k", ScanType::kBackground) ||
                         (group.Holds("ScanGroupDisplayIndicator_k6k", GroupDisplay::kTxChannel) &&
                          group.Holds("ScanDefaultTxChannel_k6k", InitiateCallChannel::kSelected));
    if (isSound) continue;
    const bool looksOn = report.Refuse(
        {"ScanType_k6k", record},
        "When the Scan Type is set to 'Background', the Scan Group Display Indicator must be set to 'Tx "
        "Channel' and the Initiate Call Channel must be set to 'Selected'.  Please correct the group that "
        "is set to 'Background'.");
    if (!looksOn) return;
  }
}

void CheckGroupMembers(FinalReport& report) {
  const ProviderRef provider = report.Provider();
  const GroupMembers members(provider);
  for (const RecordNr group : provider.Field("16.GroupIDTracker").Records()) {
    if (HoldsCode(provider, "ScanType_k6k", ScanType::kBackground, group)) continue;
    if (modProjectGlobals::MultipleChannelMembers(members, group)) continue;
    const bool looksOn =
        report.Refuse({"ScanType_k6k", group},
                      "There must be at least two Channels in the Scan Group members unless the Scan Type is "
                      "'Background'.");
    if (!looksOn) return;
  }
}

void CheckStartUpChannel(FinalReport& report) {
  const ProviderRef provider = report.Provider();
  if (!HoldsCode(provider, "GroupActivityOnPowerUp_k6k", kOn, kOnly)) return;
  const Variant channel = StoredValue(provider, "17.ChannelGroupIDForRadioStartup", kOnly);
  const FieldRef hidden = provider.Field("16.HiddenChannels");
  const GroupMembers members(provider);
  for (const RecordNr group : hidden.Records()) {
    if (!IsTicked(hidden.Value(group)) || !members.HasChannel(group, channel)) continue;
    report.Refuse(
        {"ChannelGroupIDForRadioStartup", kOnly},
        "The Channel set for 'Channel/Group Active on Power Up' can not be contained in a group with "
        "the 'Hidden Channels' flag set.");
    return;
  }
}

void ValidateHiddenChannels(FinalReport& report) {
  Procedure("ValidateHiddenChannels", [&] {
    const ProviderRef provider = report.Provider();
    const FieldRef hidden = provider.Field("16.HiddenChannels");
    const GroupMembers members(provider);
    for (const RecordNr group : hidden.Records()) {
      if (!IsTicked(hidden.Value(group)) || !modProjectGlobals::AllChannelsAreMembers(members, group))
        continue;
      const bool starts = HoldsCode(provider, "GroupActivityOnPowerUp_k6k", kOn, kOnly);
      if (starts && !HoldsCode(provider, "StopScanOnPTT_k6k", kOn, group)) continue;
      const bool looksOn = report.Refuse(
          {"HiddenChannels_k6k", group},
          "When all of the Channels are included as Scan Group members and 'Hidden Channels' is enabled "
          "you must activate 'Channel/Group Active on Power Up' and deactivate 'Suspend Scan On PTT "
          "Release' before proceeding");
      if (!looksOn) return;
    }
  });
}
}  // namespace modvalScanGroups
