#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <random>

#include "common/Handles.h"
#include "tests/scangroups/GroupFixture.h"

/// Random edits of channels, groups and members against a plain model.
namespace {
class GroupWalk : public GroupFixture {
 protected:
  using Group = std::vector<int>;  // the numbers of its members, in order

  std::size_t Below(std::size_t count) { return random() % count; }
  int ChannelAt(RecordNr record) const { return CLng(provider.Get("5.ChannelIDTracker", record)); }
  int GroupAt(RecordNr record) const { return CLng(provider.Get("16.GroupIDTracker", record)); }
  RecordNr Shown() const { return CLng(provider.Get("CurrentScanGroupNr")); }
  Group& OnForm() { return model.at(GroupAt(Shown())); }
  RecordNr AnyChannel() { return static_cast<RecordNr>(Below(channels.size())) + 1; }
  RecordNr AnyGroup() { return static_cast<RecordNr>(Below(model.size())) + 1; }
  TableRef TableOf(const char* number) const { return ProviderRef(sharedProvider).Table(number); }
  /// The host asks the rule of the group shown once more after it has changed what the form shows.
  void Refill() { EXPECT_TRUE(Validate("CurrentScanGroupNr", Shown())); }
  void Turn(RecordNr group) {
    EXPECT_TRUE(Validate("CurrentScanGroupNr", group));
    provider.Set("CurrentScanGroupNr", 1, group);
  }
  bool IsMember(int channel) const {
    return std::ranges::any_of(model,
                               [&](const auto& one) { return std::ranges::count(one.second, channel) > 0; });
  }

  void AddChannel() {
    if (channels.size() + model.size() >= 20) return;
    Add("Channels6000", 5);
    channels.push_back(ChannelAt(provider.Count(5)));
  }
  void RemoveChannel() {
    const RecordNr record = AnyChannel();
    const int number = ChannelAt(record);
    const bool goes = !IsMember(number) && channels.size() > 1;
    if (channels.size() == 1) return;
    EXPECT_EQ(Delete(record), goes);
    if (!goes) return;
    TableOf("5").DeleteRecord(record);
    channels.erase(channels.begin() + record - 1);
    if (start == number) start = channels[0];
    if (emergency == number) emergency = 0;
    if (gps == number) gps = 0;
  }
  void RenumberChannel() {
    const RecordNr record = AnyChannel();
    const int old = ChannelAt(record), number = 200 + static_cast<int>(Below(100));
    if (std::ranges::count(channels, number) > 0 || model.contains(number)) return;
    EXPECT_TRUE(Validate("ChannelID_k6k", number, record));
    provider.Set("5.ChannelIDTracker", record, number);
    std::ranges::replace(channels, old, number);
    for (auto& [group, members] : model) std::ranges::replace(members, old, number);
    for (auto* references : {&preset, &priority}) {
      for (auto& [group, channel] : *references) channel = channel == old ? number : channel;
    }
    for (int* reference : {&start, &emergency, &gps}) *reference = *reference == old ? number : *reference;
  }
  void AddGroup() {
    if (channels.size() + model.size() >= 20) return;
    Add("ScanGroup", 16);
    const RecordNr record = provider.Count(16);
    model[GroupAt(record)] = {};
    preset[GroupAt(record)] = priority[GroupAt(record)] = 0;
    Turn(record);
    AddMember();
  }
  void RemoveGroup() {
    if (model.size() == 1) return;
    const RecordNr record = AnyGroup();
    const int number = GroupAt(record);
    EXPECT_TRUE(Delete(record, "ScanGroup"));
    TableOf("16").DeleteRecord(record);
    model.erase(number);
    preset.erase(number);
    priority.erase(number);
    if (start == number) start = channels[0];
  }
  void RenumberGroup() {
    const RecordNr record = AnyGroup();
    const int number = 300 + static_cast<int>(Below(100));
    if (model.contains(number)) return;
    const int old = GroupAt(record);
    EXPECT_TRUE(Validate("GroupID_k6k", number, record));
    provider.Set("16.GroupIDTracker", record, number);
    model[number] = std::move(model.at(old));
    model.erase(old);
    for (auto* references : {&preset, &priority}) {
      (*references)[number] = references->at(old);
      references->erase(old);
    }
    if (start == old) start = number;
  }
  void AddMember() {
    Group& members = OnForm();
    const auto isFree = [&](int channel) { return std::ranges::count(members, channel) == 0; };
    const auto free = std::ranges::find_if(channels, isFree);
    if (free == channels.end()) return;
    Add("GroupMembership", 1119);
    members.push_back(*free);
    Refill();
  }
  void RemoveMember() {
    Group& members = OnForm();
    if (members.empty()) return;
    const RecordNr row = static_cast<RecordNr>(Below(members.size())) + 1;
    const bool goes = members.size() > 1;
    EXPECT_EQ(Delete(row, "GroupMembership"), goes);
    if (!goes) return;
    Follow(members[static_cast<std::size_t>(row - 1)], members[row == 1 ? 1 : 0]);
    TableOf("1119").DeleteRecord(row);
    members.erase(members.begin() + row - 1);
    Refill();
  }
  void ChangeMember() {
    Group& members = OnForm();
    if (members.empty()) return;
    const auto place = Below(members.size());
    const int channel = ChannelAt(AnyChannel());
    if (std::ranges::count(members, channel) > 0) return;
    const RecordNr row = static_cast<RecordNr>(place) + 1;
    EXPECT_TRUE(Validate("FilteredScanGroupChannelMemberID", std::to_string(channel), row));
    provider.Set("1119.FilteredScanGroupChannelMemberID", row, std::to_string(channel));
    Follow(members[place], channel);
    members[place] = channel;
    Refill();
  }
  /// What was the channel on the form's group is the other one now.
  void Follow(int from, int to) {
    for (auto* references : {&preset, &priority}) {
      int& referred = references->at(GroupAt(Shown()));
      if (referred == from) referred = to;
    }
  }
  /// A dedicated emergency channel, and one for positions.
  void Dedicate() {
    emergency = ChannelAt(AnyChannel());
    gps = ChannelAt(AnyChannel());
    provider.Set("EmChannelType", 1, 1);
    provider.Set("EmChannel", 1, std::to_string(emergency));
    provider.Set("GPSPollResponseChannelType", 1, 1);
    provider.Set("GPSPollResponseChannel", 1, std::to_string(gps));
  }
  void Prioritize() {
    const Group& members = OnForm();
    if (members.empty()) return;
    const int channel = members[Below(members.size())];
    provider.Set("PriorityScan_k6k", Shown(), 1);
    provider.Set("Priority1Channel_k6k", Shown(), std::to_string(channel));
    priority.at(GroupAt(Shown())) = channel;
  }
  /// The preset Tx channel of a standard scan is one of the members.
  void Prefer() {
    const Group& members = OnForm();
    if (members.empty()) return;
    const int channel = members[Below(members.size())];
    provider.Set("ScanPresetTxChannel_k6k", Shown(), std::to_string(channel));
    preset.at(GroupAt(Shown())) = channel;
  }
  void StartWith() {
    start = Below(2) == 0 ? ChannelAt(AnyChannel()) : GroupAt(AnyGroup());
    provider.Set("17.ChannelGroupIDForRadioStartup", 1, std::to_string(start));
  }
  /// To the radio and back, as a save and the next opening do it.
  void Save() {
    EXPECT_TRUE(LeaveForm("usrCtlScanGroupsKD4410", false));
    const auto convert = [&](const char* field, std::int32_t table, auto way) {
      for (const RecordNr record : RecordRange(provider.Count(table)))
        EXPECT_TRUE((this->*way)(field, record));
    };
    const std::pair<const char*, std::int32_t> fields[] = {{"5.ChannelIDTracker", 5},
                                                           {"16.GroupIDTracker", 16},
                                                           {"16.ScanPresetTxChannelUI", 16},
                                                           {"18.GroupChannelUI", 18},
                                                           {"17.ChannelGroupIDForRadioStartup", 17}};
    for (const auto& [field, table] : fields) convert(field, table, &GroupWalk::FromUI);
    ExpectRings();
    for (const auto& [field, table] : fields) convert(field, table, &GroupWalk::ToUI);
    for (auto& [group, channel] : preset) {  // none, and one that is gone, is the first
      if (std::ranges::count(channels, channel) == 0) channel = channels[0];
    }
    provider.SetCount(1119, 0);
    provider.Set("CurrentScanGroupNr", 1, 1);
    Refill();
  }
  /// The radio finds the members of each group from its first one on.
  void ExpectRings() const {
    for (const RecordNr group : RecordRange(provider.Count(16))) {
      const Group& members = model.at(GroupAt(group));
      if (members.empty()) continue;
      Group followed;
      RecordNr record = CLng(provider.Get("16.FirstGroupMember", group)) + 1;
      for (std::size_t i = 0; i < members.size(); ++i) {
        followed.push_back(ChannelAt(CLng(provider.Get("18.GroupChannelRecordNum", record)) + 1));
        record = CLng(provider.Get("18.GroupNextMemberRecordNum", record)) + 1;
      }
      EXPECT_EQ(followed, members) << "group " << GroupAt(group);
      EXPECT_EQ(record, CLng(provider.Get("16.FirstGroupMember", group)) + 1);
    }
  }
  void Step() {
    using Act = void (GroupWalk::*)();
    constexpr Act kActs[] = {&GroupWalk::AddChannel,   &GroupWalk::RemoveChannel, &GroupWalk::RenumberChannel,
                             &GroupWalk::AddGroup,     &GroupWalk::RemoveGroup,   &GroupWalk::RenumberGroup,
                             &GroupWalk::AddMember,    &GroupWalk::AddMember,     &GroupWalk::RemoveMember,
                             &GroupWalk::ChangeMember, &GroupWalk::Prefer,        &GroupWalk::Dedicate,
                             &GroupWalk::Prioritize,   &GroupWalk::StartWith,     &GroupWalk::Save};
    const std::size_t which = Below(std::size(kActs) + 1);
    if (which == std::size(kActs)) return Turn(AnyGroup());
    (this->*kActs[which])();
  }
  Group MembersIn(const char* groupField, const char* memberField, std::int32_t table, int group) const {
    Group members;
    for (const RecordNr row : RecordRange(provider.Count(table))) {
      if (CLng(provider.Get(groupField, row)) == group)
        members.push_back(CLng(provider.Get(memberField, row)));
    }
    return members;
  }
  void ExpectSound() {
    ASSERT_EQ(provider.Count(16), static_cast<RecordNr>(model.size()));
    ASSERT_TRUE(Shown() >= 1 && Shown() <= provider.Count(16));
    for (const auto& [group, members] : model) {
      EXPECT_EQ(MembersIn("18.GroupIDNumber", "18.GroupChannelUI", 18, group), members) << "group " << group;
    }
    EXPECT_EQ(MembersIn("1119.FilteredScanGroupID", "1119.FilteredScanGroupChannelMemberID", 1119,
                        GroupAt(Shown())),
              OnForm());
    EXPECT_EQ(provider.Count(1119), static_cast<RecordNr>(OnForm().size()));
    for (const RecordNr group : RecordRange(provider.Count(16))) {
      const int channel = preset.at(GroupAt(group));
      const std::string text = Text("ScanPresetTxChannel_k6k", group);
      EXPECT_EQ(text, channel == 0 ? "" : std::to_string(channel)) << "group " << GroupAt(group);
    }
    for (const RecordNr group : RecordRange(provider.Count(16))) {
      EXPECT_EQ(Text("Priority1Channel_k6k", group), Named(priority.at(GroupAt(group))));
    }
    EXPECT_EQ(Text("EmChannel") + " " + Text("GPSPollResponseChannel"), Named(emergency) + " " + Named(gps));
    EXPECT_EQ(Text("17.ChannelGroupIDForRadioStartup"), std::to_string(start));
  }

  std::mt19937 random;
  std::vector<int> channels = {11, 12, 13, 14, 15};
  std::map<int, Group> model;
  static std::string Named(int channel) { return channel == 0 ? "None" : std::to_string(channel); }
  std::map<int, int> preset, priority;  // by group; 0: none
  int start = 11, emergency = 0, gps = 0;
};

TEST_F(GroupWalk, EveryReferenceNamesWhatItNamedBefore) {
  messenger.AlwaysAnswer(Button::Yes);
  GiveNetworks({0});
  GiveMembers({{101, 11}, {102, 12}, {101, 13}});
  model = {{101, {11, 13}}, {102, {12}}};
  preset = priority = {{101, 0}, {102, 0}};
  provider.Fill("ScanPresetTxChannel_k6k", {"", ""});
  provider.Set("17.ChannelGroupIDForRadioStartup", 1, "11");
  provider.Set("CurrentScanGroupNr", 1, 1);
  Refill();
  for (int step = 0; step < 4000 && !HasFailure(); ++step) {
    Step();
    ExpectSound();
    if (HasFailure()) ADD_FAILURE() << "at step " << step;
  }
}
}  // namespace
