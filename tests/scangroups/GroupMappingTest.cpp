#include <gmock/gmock.h>

#include "common/Handles.h"
#include "tests/scangroups/GroupFixture.h"

namespace {
using testing::ElementsAre;

class GroupMapping : public GroupFixture {
 protected:
  void MembersToRadio() {
    for (const RecordNr record : RecordRange(provider.Count(18)))
      EXPECT_TRUE(FromUI("18.GroupChannelUI", record));
  }
};

TEST_F(GroupMapping, TheMembersOfAGroupAreARing) {
  GiveMembers(
      {{7, 1}, {102, 11}, {102, 12}, {101, 13}, {102, 14}, {7, 1}, {101, 15}, {102, 15}, {101, 11}, {9, 12}});
  MembersToRadio();
  const auto next = [&](std::initializer_list<RecordNr> records) {
    std::string text;
    for (const RecordNr record : records) text += Text("18.GroupNextMemberRecordNum", record) + " ";
    return text;
  };
  EXPECT_EQ(next({4, 7, 9}), "6 8 3 ");
  EXPECT_EQ(next({2, 3, 5, 8}), "2 4 7 1 ");
  EXPECT_EQ(next({10}), "9 ");  // a group that is not there: a ring of its own
  EXPECT_EQ(Column("16.FirstGroupMember"), "3 1");
  EXPECT_EQ(Column("18.GroupChannelRecordNum"), "0 0 1 2 3 0 4 4 0 1");
  EXPECT_EQ(Text("18.GroupRecordNumber", 2) + Text("18.GroupRecordNumber", 4), "10");
}

TEST_F(GroupMapping, AMemberOfAHiddenGroupIsHidden) {
  provider.Set("16.HiddenChannels", 2, 1);
  GiveMembers({{101, 11}, {102, 13}, {102, 99}});
  provider.Fill("5.HiddenChannel", {0, 1, 0, 0, 0});
  MembersToRadio();
  EXPECT_EQ(Column("5.HiddenChannel"), "1 1 1 0 0");  // 99 is the first channel; none is ever cleared here
}

TEST_F(GroupMapping, AChannelIsFoundByItsNumberAndShownByIt) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"13", "2", "13"}, {"None", "0", "11"}, {"", "0", "11"}, {"99", "0", "11"}, {" 14", "3", "14"}};
  for (const auto& [form, raw] : {std::pair{"16.Priority1ChannelUI", "16.Priority1Channel"},
                                  {"16.Priority2ChannelUI", "16.Priority2Channel"},
                                  {"16.ScanPresetTxChannelUI", "16.ScanPresetTxChannel"},
                                  {"16.VotePresetTxChannelUI", "16.VotePresetTxChannel"}}) {
    for (const auto& [typed, index, shown] : cases) {
      provider.Set("16.GroupSleepTime", 2, 20);
      EXPECT_EQ(InRadio(form, typed, raw, 2), index) << form << typed;
      EXPECT_EQ(Text("16.GroupSleepTime", 2), std::string(form) == "16.Priority1ChannelUI" ? "0" : "20");
      EXPECT_EQ(OnForm(raw, CLng(index), form, 2), shown);
    }
    for (const int index : {-1, 5, 2147483647}) EXPECT_EQ(OnForm(raw, index, form, 2), "11");
  }
  provider.SetCount(5, 0);
  EXPECT_EQ(OnForm("16.Priority1Channel", 3, "16.Priority1ChannelUI"), "None");  // as it was
}

TEST_F(GroupMapping, AMemberShowsTheNumbersOfItsChannelAndGroup) {
  GiveMembers({{5, 0}});
  provider.Set("18.GroupRecordNumber", 1, 1);
  EXPECT_EQ(OnForm("18.GroupChannelRecordNum", 3, "18.GroupChannelUI"), "14");
  EXPECT_EQ(Text("18.GroupIDNumber"), "102");
  provider.Set("18.GroupRecordNumber", 1, 2);  // no such group
  provider.Set("18.GroupIDNumber", 1, 5);
  EXPECT_TRUE(ToUI("18.GroupChannelUI"));
  EXPECT_EQ(Text("18.GroupIDNumber"), "5");
}

TEST_F(GroupMapping, TheStartUpIsAChannelOrAGroup) {
  const auto start = [&](const char* typed) {
    provider.Set("17.ChannelGroupIDForRadioStartup", 1, typed);
    EXPECT_TRUE(FromUI("17.ChannelGroupIDForRadioStartup"));
    const std::string stored =
        Text("17.StartingWithChannelOrGroup") + " " + Text("17.ChannelGroupRecordForRadioStartup");
    EXPECT_TRUE(ToUI("17.ChannelGroupIDForRadioStartup"));
    return stored + " " + Text("17.ChannelGroupIDForRadioStartup");
  };
  EXPECT_EQ(start("14"), "0 3 14");
  EXPECT_EQ(start("102"), "1 1 102");
  EXPECT_EQ(start(""), "1 1 102");
  EXPECT_EQ(start("77"), "1 1 102");  // of nobody: a group, as the record says
  provider.Set("16.GroupIDTracker", 2, 15);
  EXPECT_EQ(start("15"), "0 1 12");  // both: the group's record with the channel's flag
  provider.Set("17.StartingWithChannelOrGroup", 1, 1);
  provider.Set("17.ChannelGroupRecordForRadioStartup", 1, 7);
  EXPECT_TRUE(ToUI("17.ChannelGroupIDForRadioStartup"));
  EXPECT_EQ(Text("17.ChannelGroupIDForRadioStartup"), "101");
}

TEST_F(GroupMapping, AGroupHasANumberAndTwoCharacters) {
  const std::tuple<int, int, int, int, const char*> cases[] = {
      {0, 0, 1, 7, "SC"}, {0, 1, 0, 7, "07"}, {0, 2, 0, 42, "42"}, {1, 0, 1, 123, "123"}, {1, 1, 0, 7, "SC"}};
  for (const auto& [type, display, vote, number, alias] : cases) {
    provider.Set("16.GroupType", 2, type);
    provider.Set("16.ScanGroupDisplayIndicator", 2, display);
    provider.Set("16.GroupVote", 2, vote);
    EXPECT_EQ(InRadio("16.GroupIDTracker", std::to_string(number), "16.GroupIdentity", 2),
              std::to_string(number));
    EXPECT_EQ(Text("16.GroupAlias", 2), alias);
  }
  EXPECT_EQ(OnForm("16.GroupIdentity", 33, "16.GroupIDTracker", 2), "33");
}

TEST_F(GroupMapping, AFieldOfThePointersIsComparedExactly) {
  provider.SetCount(1119, 1);
  provider.Set("1119.FilteredScanGroupChannelMemberID", 1, "13");
  EXPECT_TRUE(ToUI("1119.FilteredScanGroupChannelMemberID"));
  EXPECT_TRUE(FromUI("1119.FilteredScanGroupChannelMemberID"));
  EXPECT_EQ(Text("1119.FilteredScanGroupChannelMemberID"), "13");
  EXPECT_THAT(ServiceBoxes(), ElementsAre());
  EXPECT_TRUE(ToUI("16.priority1channelui"));
  EXPECT_EQ(ServiceBoxes().size(), 1U);
  EXPECT_THAT(ServiceBoxes().front(),
              testing::HasSubstr("field 16.priority1channelui not found during Scan Group mapping"));
}
}  // namespace
