#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "scangroups/modvalScanGroups.h"

/// The members of the groups, those of all and those on the form.
namespace modvalScanGroups {
namespace {
constexpr std::string_view kNumbers = "16.GroupIDTracker";
constexpr std::string_view kShownMember = "1119.FilteredScanGroupChannelMemberID";
constexpr std::string_view kShownMemberUiid = "FilteredScanGroupChannelMemberID";
constexpr std::string_view kMember = "18.GroupChannelUI";

/// The record of the group with that number; 0 for none.
RecordNr GroupOf(const ProviderRef& provider, const Variant& number) {
  return modProjectGlobals::FindRecord(provider.Field(kNumbers), number);
}

bool IsNoChannel(const std::string& text) { return text.empty() || text == kNone; }

// What refers to a member

/// The fields of a group that name a channel, as far as they are in use, that was the member.
class MemberReferences {
 public:
  MemberReferences(const ValidatorRef& validator, const ProviderRef& provider, RecordNr group,
                   const Variant& member)
      : validator_(validator), provider_(provider), group_(group), member_(member) {}

  bool ArePriority() const { return Refers("Priority1Channel_k6k") || Refers("Priority2Channel_k6k"); }
  bool ArePreset() const { return Refers("ScanPresetTxChannel_k6k"); }

  void Follow(FormWrites& writes, const Variant& member) const {
    std::vector<std::string_view> fields;
    for (const std::string_view uiid : kFields) {
      if (Refers(uiid)) fields.push_back(uiid);
    }
    for (const std::string_view uiid : fields) writes.Set(uiid, group_, member);
  }

 private:
  static constexpr std::string_view kFields[] = {"Priority1Channel_k6k", "Priority2Channel_k6k",
                                                 "ScanPresetTxChannel_k6k"};
  bool Refers(std::string_view uiid) const {
    return SameValue(StoredValue(provider_, uiid, group_), member_) && validator_.IsEnabled(uiid, group_);
  }

  const ValidatorRef& validator_;
  const ProviderRef& provider_;
  RecordNr group_;
  Variant member_;
};

/// The references that were the old member become the new one, on consent.
bool FollowMember(const ValidatorRef& validator, FormWrites& writes, RecordNr group, const Variant& old,
                  const Variant& member) {
  const ProviderRef provider = validator.CurrentProvider();
  if (IsNoChannel(CStr(old)) || SameValue(old, member) || !provider.Field(kNumbers).HasRecord(group))
    return true;
  const MemberReferences references(validator, provider, group, old);
  const bool isPriority = references.ArePriority(), isPreset = references.ArePreset();
  if (!isPriority && !isPreset) return true;
  const std::string_view question =
      isPriority && isPreset
          ? "This group member channel is in use both as a Priority Scan Channel and a Preset Tx Channel, "
            "updating it here will also update the Preset Tx Channel and the Priority Scan Channel(s).  "
            "Do you wish to continue?"
      : isPriority ? "This group member channel is in use as a Priority Scan Channel, updating it here will "
                     "also update the Priority Scan Channel(s).  Do you wish to continue?"
                   : "This group member channel is in use as a Preset Tx Channel, updating it here will also "
                     "update the Preset Tx Channel.  Do you wish to continue?";
  if (AskYesNo(validator, question) != Button::Yes) return false;
  references.Follow(writes, member);
  return true;
}

/// Of a member in the table of all: the form's row of it takes the value, too.
void ShowMember(FieldEdit& edit, const ProviderRef& provider, RecordNr group) {
  if (group != CurrentScanGroup(provider)) return;
  const FieldRef groups = provider.Field("18.GroupIDNumber");
  const Variant number = groups.Value(edit.record);
  RecordNr row = 0;
  for (RecordNr record = 1; record <= edit.record; ++record) {
    if (SameValue(groups.Value(record), number)) ++row;
  }
  if (provider.Field(kShownMember).HasRecord(row)) {
    edit.writes.Set(kShownMember, kShownMemberUiid, row, edit.value);
  }
}

/// The first channel, in the order of their records, that is in no row but the new one; empty for none.
Variant FreeChannel(const ProviderRef& provider, RecordNr newRow) {
  const FieldRef channels = provider.Field("5.ChannelIDTracker");
  const FieldRef members = provider.Field(kShownMember);
  for (const RecordNr channel : channels.Records()) {
    Variant number = channels.Value(channel);
    RecordNr row = members.RecordCount();
    while (row > 0 && (row == newRow || !SameValue(members.Value(row), number))) --row;
    if (row == 0) return number;
  }
  return {};
}

}  // namespace

bool UpdateGroupMemberRefs(FieldEdit& edit) {
  return Procedure("UpdateGroupMemberRefs", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const bool isOnForm = EqualsIgnoringCase(edit.uiid, kShownMemberUiid);
    const FieldRef members = provider.Field(isOnForm ? kShownMember : kMember);
    if (!members.HasRecord(edit.record)) return edit.PassUnchanged();
    const RecordNr group = isOnForm
                               ? CurrentScanGroup(provider)
                               : GroupOf(provider, provider.Field("18.GroupIDNumber").Value(edit.record));
    const Variant old = members.Value(edit.record);
    if (!FollowMember(edit.validator, edit.writes, group, old, edit.value)) return false;
    if (!isOnForm) ShowMember(edit, provider, group);
    return true;
  });
}

bool ValidateCurrentScanGroup(FieldEdit& edit) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  UpdateUnfilteredScanGroupMembersList(provider);
  UpdateFilteredScanGroupMembersList(edit.validator, provider, CLng(edit.value));
  return true;
}

bool ValidateScanGroupForm(const ValidatorRef& validator) {
  return Procedure("ValidateScanGroupForm", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    UpdateUnfilteredScanGroupMembersList(provider);
    const RecordNr before = CurrentScanGroup(provider);
    const Variant number = StoredValue(provider, kNumbers, before);
    provider.Table("16").Sort(provider, kNumbers);
    const RecordNr now = number.IsEmpty() ? before : GroupOf(provider, number);
    if (now != before) provider.Field("CurrentScanGroupNr").SetValue(kOnly, now);
    UpdateFilteredScanGroupMembersList(validator, provider, now);
    return true;
  });
}

void UpdateUnfilteredScanGroupMembersList(const ProviderRef& provider) {
  Procedure("UpdateUnfilteredScanGroupMembersList", [&] {
    const Variant number = StoredValue(provider, kNumbers, CurrentScanGroup(provider));
    const FieldRef shown = provider.Field(kShownMember);
    const FieldRef shownGroups = provider.Field("1119.FilteredScanGroupID");
    const RecordRange rows = shown.Records();
    if (number.IsEmpty() || !shown.HasRecord(1) || !SameValue(shownGroups.Value(1), number)) return;
    const ScopedAutoUpdate silent(provider, false);
    const TableRef all = provider.Table("18");
    const FieldRef groups = provider.Field("18.GroupIDNumber");
    for (RecordNr record = all.RecordCount(); record > 0; --record) {
      if (SameValue(groups.Value(record), number)) all.DeleteRecord(record);
    }
    for (const RecordNr row : rows) {
      const std::string channel = CStr(shown.Value(row));
      if (IsNoChannel(channel)) continue;
      const RecordNr added = all.AppendRecord();
      groups.SetValue(added, number);
      provider.Field(kMember).SetValue(added, channel);
    }
  });
}

void UpdateFilteredScanGroupMembersList(const ValidatorRef& validator, const ProviderRef& provider,
                                        RecordNr group) {
  Procedure("UpdateFilteredScanGroupMembersList", [&] {
    {
      const ScopedAutoUpdate silent(provider, false);
      provider.ClearTable("1119");
      const Variant number = StoredValue(provider, kNumbers, group);
      const FieldRef groups = provider.Field("18.GroupIDNumber");
      const TableRef shown = provider.Table("1119");
      for (const RecordNr member : groups.Records()) {
        if (number.IsEmpty() || !SameValue(groups.Value(member), number)) continue;
        const RecordNr row = shown.AppendRecord();
        provider.Field("1119.FilteredScanGroupID").SetValue(row, number);
        provider.Field(kShownMember).SetValue(row, provider.Field(kMember).Value(member));
      }
    }
    ReloadList(validator, kShownMemberUiid);
  });
}

bool HasGroups(const ProviderRef& provider) { return provider.Table("16").RecordCount() > 0; }

void ShowMembers(const ValidatorRef& validator, const ProviderRef& provider) {
  if (provider.Table("1119").RecordCount() > 0) return;
  UpdateFilteredScanGroupMembersList(validator, provider, CurrentScanGroup(provider));
}

void AddGroupMembershipK6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr row) {
  Procedure("AddGroupMembershipK6000", [&] {
    const Variant channel = FreeChannel(provider, row);
    if (!channel.IsEmpty()) provider.Field(kShownMember).SetValue(row, CStr(channel));
    const Variant number = StoredValue(provider, kNumbers, CurrentScanGroup(provider));
    if (!number.IsEmpty()) provider.Field("1119.FilteredScanGroupID").SetValue(row, number);
    ReloadList(validator, kShownMemberUiid);
  });
}

bool DeleteScanGroupMember(const ValidatorRef& validator, RecordNr row) {
  return Procedure("DeleteScanGroupMember", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const FieldRef members = provider.Field(kShownMember);
    if (members.RecordCount() == 1) {
      return Refuse(validator, "A Scan Group must have at least 1 channel defined");
    }
    const Variant member = members.Value(row);
    FormWrites writes(validator);
    const RecordNr heir = row == 1 ? 2 : 1;
    return writes.Follow(
        FollowMember(validator, writes, CurrentScanGroup(provider), member, members.Value(heir)));
  });
}
}  // namespace modvalScanGroups
