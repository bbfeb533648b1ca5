#include <gmock/gmock.h>

#include "tests/scangroups/GroupFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kTxChannelInVornAx =
    "Scan Group Display Indicator can not be set to Tx Channel if the Scan Type is set to VornAx.";
const std::string kLastCaptured =
    "The Initiate Call Channel can not be set to Last Captured when Channel to Respond On is set to Default";

class GroupRules : public GroupFixture {
 protected:
  /// A field of group 2, the others as they are in a new group but for those given.
  struct Case {
    std::vector<std::pair<const char*, int>> stored;
    const char* uiid;
    int value;
    std::string refusal;  // empty: it passes
  };
  void Reset() {
    for (const char* field : {"ScanType_k6k", "ScanGroupDisplayIndicator_k6k", "ScanDefaultTxChannel_k6k",
                              "ScanTxChannelSelect_k6k", "PriorityScan_k6k"}) {
      provider.Fill(field, {0, 0});
    }
    provider.Fill("ScanInclCurrentChan_k6k", {1, 1});
    provider.Set("CurrentScanGroupNr", 1, 2);
    messenger.Clear();
  }
};

TEST_F(GroupRules, WhatCanNotBeTogetherIsRefused) {
  constexpr int kStandard = 0, kBackground = 1, kVornAx = 2, kTxChannel = 2;
  const char *type = "ScanType_k6k", *display = "ScanGroupDisplayIndicator_k6k",
             *call = "ScanDefaultTxChannel_k6k", *respond = "ScanTxChannelSelect_k6k",
             *priority = "PriorityScan_k6k", *current = "ScanInclCurrentChan_k6k";
  const std::string lastFree = "The Initiate Call Channel can not be set to Last Free when ";
  const Case cases[] = {
      {{{display, kTxChannel}}, type, kVornAx, kTxChannelInVornAx},
      {{{type, kVornAx}}, display, kTxChannel, kTxChannelInVornAx},
      {{{type, kVornAx}}, display, 1, ""},
      {{{call, 2}},
       display,
       kTxChannel,
       "Scan Group Display Indicator can not be set to Tx Channel if the Initiate Call Channel is set to "
       "Last Free."},
      {{{type, kVornAx}, {call, 2}}, display, kTxChannel, kTxChannelInVornAx},  // the first that holds
      {{},
       priority,
       2,
       "Priority Scan can only be set to Selected for Background scan groups with Include Current Channel in "
       "Scan "
       "Regime enabled."},
      {{{type, kBackground}}, priority, 2, ""},
      {{{type, kBackground}, {current, 0}},
       priority,
       2,
       "Priority Scan can only be set to Selected for Background scan groups with Include Current Channel in "
       "Scan "
       "Regime enabled."},
      {{{respond, 1}}, call, 1, kLastCaptured},
      {{{call, 1}}, respond, 1, kLastCaptured},
      {{{call, 1}}, respond, 0, ""},
      {{}, call, 3, "Initiate Call Channel can not be set to Next Free if Scan Type is not set to VornAx."},
      {{{type, kVornAx}}, call, 3, ""},
      {{}, call, 4, "The Initiate Call Channel can only be set to Selected for a Scan Type of Background."},
      {{{type, kBackground}}, call, 4, ""},
      {{{respond, 1}}, call, 2, lastFree + "Respond On Captured Channel is set to Default"},
      {{{call, 2}}, respond, 1, lastFree + "Channel to Respond On is set to Default"},
      {{{type, kBackground}, {call, 4}}, type, kBackground, ""},  // the stored value again
      {{}, type, kStandard, ""},
  };
  for (const Case& one : cases) {
    Reset();
    for (const auto& [field, code] : one.stored) provider.Set(field, 2, code);
    EXPECT_EQ(Validate(one.uiid, one.value, 2), one.refusal.empty()) << one.uiid << one.value;
    const std::vector<std::string> told(one.refusal.empty() ? 0 : 1, ErrorBox(one.refusal));
    EXPECT_EQ(Boxes(), told) << one.uiid << one.value;
  }
  Reset();
  provider.Set(type, 1, kBackground);
  EXPECT_FALSE(Validate(type, kBackground, 2));
  EXPECT_TRUE(Validate(type, kBackground, 1));
}

TEST_F(GroupRules, AGroupThatAPinGoesToStaysOutOfTheBackground) {
  provider.SetCount(1108, 2);
  provider.Set("ActionParamPresetGroup", 1, "102");
  EXPECT_TRUE(Validate("ScanType_k6k", 1, 2));  // no pin has the action
  provider.Set("1108.Action", 2, "Preset Group");
  Reset();
  EXPECT_TRUE(Validate("ScanType_k6k", 1, 1));
  Reset();
  EXPECT_FALSE(Validate("ScanType_k6k", 1, 2));
  EXPECT_THAT(messenger.Texts().back(),
              testing::StartsWith("This Scan Group is assigned as a Prog IO 'Preset Group'"));
}

TEST_F(GroupRules, AnotherScanTypeBringsTheChannelThatItCallsOn) {
  const auto change = [&](int from, int call, int to) {
    Reset();
    provider.Set("ScanType_k6k", 2, from);
    provider.Set("ScanDefaultTxChannel_k6k", 2, call);
    EXPECT_TRUE(Validate("ScanType_k6k", to, 2));
    return Text("ScanDefaultTxChannel_k6k", 2);
  };
  EXPECT_EQ(change(0, 2, 1) + change(0, 0, 2) + change(2, 3, 0) + change(1, 4, 0) + change(1, 2, 0), "43002");
  EXPECT_EQ(change(1, 0, 1), "0");  // no change
  EXPECT_EQ(change(1, 4, 2), "3");
  EXPECT_EQ(Text("ScanType_k6k", 2), "2");  // stored before the controls are switched
  EXPECT_THAT(Switched(), testing::AllOf(testing::HasSubstr("+GroupTxChannelSearchTimer"),
                                         testing::HasSubstr("-ScanDefaultTxChannel_k6k")));
  EXPECT_EQ(Refreshed(), "ScanDefaultTxChannel_k6k");
}

TEST_F(GroupRules, SelectedPriorityGoesWithWhatItNeedsOnConsent) {
  for (const auto& [uiid, value] : {std::pair{"ScanType_k6k", 0}, {"ScanInclCurrentChan_k6k", 0}}) {
    Reset();
    provider.Set("ScanType_k6k", 2, 1);
    provider.Set("PriorityScan_k6k", 2, 2);
    messenger.Play({Button::No, Button::Yes});
    EXPECT_FALSE(Validate(uiid, value, 2));
    EXPECT_EQ(Text("PriorityScan_k6k", 2), "2");
    EXPECT_TRUE(Validate(uiid, 1, 2)) << "as it is";
    EXPECT_TRUE(Validate(uiid, value, 2));
    EXPECT_EQ(Text("PriorityScan_k6k", 2), "0");
    EXPECT_THAT(Switched(), testing::HasSubstr("-Priority1Channel_k6k"));
    EXPECT_THAT(messenger.Texts().back(), testing::HasSubstr("Selected in the Priority Scan field."));
  }
}

TEST_F(GroupRules, TheBusySampleTimeFollowsWhileBothAreEqual) {
  provider.Fill("CapturedChanPriSampleTime_k6k", {1000, 800});
  provider.Fill("BusyPrioritySampleTime_k6k", {1000, 900});
  EXPECT_TRUE(Validate("CapturedChanPriSampleTime_k6k", 700, 2));
  EXPECT_TRUE(Validate("CapturedChanPriSampleTime_k6k", 1000, 1));
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_TRUE(Validate("CapturedChanPriSampleTime_k6k", 700, 1));
  EXPECT_THAT(Boxes(),
              ElementsAre(NoticeBox("Changing this value will also cause the Busy Priority Sample Time to "
                                    "change (when the two values are the same).")));
  EXPECT_EQ(Column("BusyPrioritySampleTime_k6k"), "700 900");
}

TEST_F(GroupRules, ANewNumberReachesWhatRefersToTheGroup) {
  GiveMembers({{101, 11}, {102, 12}, {101, 13}});
  provider.Fill("FunctionKey1", {12});
  provider.Fill("FunctionKey2", {22});  // goes to a channel
  provider.Fill("FunctionKey3", {31});
  for (const char* field : {"FK1Parameter1", "FK2Parameter1", "FK3Parameter1", "ActionParamPresetGroup",
                            "17.ChannelGroupIDForRadioStartup"}) {
    provider.Set(field, 1, "101");
  }
  provider.SetCount(1119, 2);
  provider.Fill("1119.FilteredScanGroupID", {101, 101});
  messenger.Play({Button::No, Button::Yes});
  EXPECT_FALSE(Validate("GroupID_k6k", 55, 1));
  EXPECT_EQ(Column("18.GroupIDNumber"), "101 102 101");
  EXPECT_TRUE(Validate("GroupID_k6k", 55, 1));
  EXPECT_EQ(Column("18.GroupIDNumber") + " " + Column("1119.FilteredScanGroupID"), "55 102 55 55 55");
  EXPECT_EQ(Row({"FK1Parameter1", "FK2Parameter1", "FK3Parameter1", "ActionParamPresetGroup",
                 "17.ChannelGroupIDForRadioStartup"}),
            "55 101 55 55 55");
  provider.Set("16.GroupIDTracker", 1, 55);
  messenger.Clear();
  EXPECT_TRUE(Validate("GroupID_k6k", 55, 1));
  EXPECT_TRUE(Validate("GroupID_k6k", 77, 9));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(GroupRules, AGroupThatIsUsedStays) {
  GiveMembers({{101, 11}, {102, 12}});
  provider.SetCount(1108, 1);
  provider.Set("FunctionKey4", 1, 12);
  provider.Set("FK4Parameter1", 1, "102");
  const auto refusal = [&] {
    messenger.Clear();
    return Delete(2, "ScanGroup") ? "gone" : messenger.Boxes().back().unfilled;
  };
  EXPECT_THAT(refusal(),
              testing::StartsWith("This scan group is already assigned to a function key parameter."));
  provider.Set("FunctionKey4", 1, 22);
  provider.Set("ActionParamPresetGroup", 1, "102");
  provider.Set("1108.Action", 1, "Preset Group");
  EXPECT_THAT(refusal(),
              testing::StartsWith("This Scan Group is assigned as a Prog IO Input 'Preset Group'"));
  provider.Set("1108.Action", 1, "No Action");
  provider.Set("17.ChannelGroupIDForRadioStartup", 1, "102");
  provider.Set("17.GroupActivityOnPowerUp", 1, 1);
  messenger.Play({Button::No, Button::Yes});
  EXPECT_FALSE(Delete(2, "ScanGroup"));
  EXPECT_EQ(Members(), "101 102|11 12");
  EXPECT_TRUE(Delete(2, "ScanGroup"));
  EXPECT_EQ(Row({"17.ChannelGroupIDForRadioStartup", "17.GroupActivityOnPowerUp"}) + " " + Members(),
            "11 0 101|11");
}

TEST_F(GroupRules, AMemberThatGoesOrChangesTakesWhatRefersToItAlong) {
  GiveMembers({{101, 14}, {102, 12}, {102, 13}});
  provider.Set("CurrentScanGroupNr", 1, 2);
  EXPECT_TRUE(Validate("CurrentScanGroupNr", 2));
  EXPECT_EQ(Column("FilteredScanGroupChannelMemberID"), "12 13");
  provider.Set("Priority1Channel_k6k", 2, "12");
  provider.Set("Priority2Channel_k6k", 2, "12");  // not in use: no dual priority
  provider.Set("ScanPresetTxChannel_k6k", 2, "12");
  provider.Set("ScanDefaultTxChannel_k6k", 2, 1);  // nor is the preset channel
  provider.Set("PriorityScan_k6k", 2, 1);
  messenger.Clear();
  messenger.Play({Button::No, Button::Yes});
  EXPECT_FALSE(Validate("FilteredScanGroupChannelMemberID", "15", 1));
  EXPECT_TRUE(Validate("FilteredScanGroupChannelMemberID", "15", 1));
  EXPECT_THAT(messenger.Texts().back(),
              testing::StartsWith("This group member channel is in use as a Priority Scan"));
  EXPECT_EQ(
      Text("Priority1Channel_k6k", 2) + Text("Priority2Channel_k6k", 2) + Text("ScanPresetTxChannel_k6k", 2),
      "151212");
  EXPECT_TRUE(Validate("FilteredScanGroupChannelMemberID", "12", 1)) << "its own";
  provider.Set("ScanDefaultTxChannel_k6k", 2, 0);
  provider.Set("DualPriorityScan_k6k", 2, 1);
  messenger.Play({Button::Yes});
  EXPECT_TRUE(Validate("GroupChannelUI_k6k", "15", 2));  // in the table of all
  EXPECT_THAT(messenger.Texts().back(),
              testing::HasSubstr("both as a Priority Scan Channel and a Preset Tx"));
  EXPECT_EQ(Column("FilteredScanGroupChannelMemberID"), "15 13");
  messenger.Play({Button::Yes});
  EXPECT_TRUE(Delete(1, "GroupMembership"));
  EXPECT_EQ(Text("Priority1Channel_k6k", 2) + Text("ScanPresetTxChannel_k6k", 2), "1313");
  provider.SetCount(1119, 1);
  EXPECT_FALSE(Delete(1, "GroupMembership"));
  EXPECT_EQ(messenger.Texts().back(), "A Scan Group must have at least 1 channel defined");
}

TEST_F(GroupRules, ARadioThatHidesAllChannelsStartsWithAGroupAndScansOn) {
  GiveMembers({{101, 11}, {101, 12}, {101, 13}, {101, 14}});
  provider.Set("16.HiddenChannels", 1, 1);
  EXPECT_TRUE(FinalRule("ValidateHiddenChannels"));
  GiveMembers({{101, 11}, {101, 12}, {101, 13}, {101, 14}, {102, 11}, {101, 15}});
  EXPECT_FALSE(FinalRule("ValidateHiddenChannels"));
  EXPECT_THAT(messenger.Texts().back(),
              testing::StartsWith("When all of the Channels are included as Scan Group"));
  provider.Set("GroupActivityOnPowerUp_k6k", 1, 1);
  EXPECT_TRUE(FinalRule("ValidateHiddenChannels"));
  provider.Set("StopScanOnPTT_k6k", 1, 1);
  EXPECT_FALSE(FinalRule("ValidateHiddenChannels"));
  provider.Set("16.HiddenChannels", 1, 0);
  EXPECT_TRUE(FinalRule("ValidateHiddenChannels"));
}
}  // namespace
