#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;

class ChannelNumber : public ChannelFixture {
 protected:
  static constexpr std::string_view kMany[] = {"Priority1Channel_k6k",
                                               "Priority2Channel_k6k",
                                               "ScanPresetTxChannel_k6k",
                                               "GroupChannelUI_k6k",
                                               "EmChannel",
                                               "FilteredScanGroupChannelMemberID"};
  static constexpr std::string_view kSingle[] = {
      "ActionParamPresetChannel",      "ActionParamHomeChannel", "GPSPollResponseChannel",
      "ChannelGroupIDForRadioStartup", "FK1Parameter1",          "FK4Parameter1"};

  void SetUp() override {
    ChannelFixture::SetUp();
    GiveChannels({11, 12});
    for (const std::string_view name : kMany) provider.Fill(name, {"None", "12", "11"});
    for (const std::string_view name : kSingle) provider.Set(name, 1, "11");
    provider.Fill("VotePresetTxChannelUI", {"11", "11", "11"});
    for (const char* key : {"FunctionKey1", "FunctionKey2", "FunctionKey4"}) provider.Set(key, 1, 22);
    provider.Set("FunctionKey3", 1, 21);  // its parameter is no channel
    provider.Set("FK2Parameter1", 1, "12");
    provider.Set("FK3Parameter1", 1, "11");
  }
};

TEST_F(ChannelNumber, MovesEveryReferenceAfterOneQuestion) {
  messenger.Play({Button::Yes});
  EXPECT_TRUE(Validate("ChannelID_k6k", 15, 1));
  EXPECT_THAT(Boxes(), ElementsAre(QuestionBox("Changing this Channel ID will cause all references to it to "
                                               "be updated. %0:S Do you wish to proceed?",
                                               "\r\n")));
  for (const auto name : kMany) EXPECT_EQ(Column(name), "None 12 15") << name;
  for (const auto name : kSingle) EXPECT_EQ(Text(name), "15") << name;
  EXPECT_EQ(Text("FK2Parameter1") + Text("FK3Parameter1"), "1211");
  EXPECT_EQ(Text("ChannelID_k6k", 1), "11");  // the host stores it
  EXPECT_EQ(Column("VotePresetTxChannelUI"), "15 15 15");
  EXPECT_EQ(
      Refreshed(),
      "Priority1Channel_k6k Priority2Channel_k6k ScanPresetTxChannel_k6k VotePresetTxChannelUI "
      "GroupChannelUI_k6k EmChannel ActionParamPresetChannel ActionParamHomeChannel GPSPollResponseChannel "
      "FilteredScanGroupChannelMemberID ChannelGroupIDForRadioStartup FK1Parameter1 FK4Parameter1");
}

TEST_F(ChannelNumber, OnlyYesMovesAReferenceAndWithoutOneThereIsNoQuestion) {
  messenger.Play({Button::No});
  StartTrail();
  EXPECT_FALSE(Validate("ChannelID_k6k", 15, 1));
  EXPECT_EQ(Trail(), "box");
  StartTrail();
  EXPECT_TRUE(Validate("ChannelID_k6k", "11", 1));
  GiveChannels({11, 13});
  EXPECT_TRUE(Validate("ChannelID_k6k", 15, 2));
  EXPECT_EQ(Trail(), "");
  provider.Set("FK4Parameter1", 1, 13);  // the last place that is looked at
  messenger.Play({Button::No});
  EXPECT_FALSE(Validate("ChannelID_k6k", 15, 2));
  EXPECT_EQ(Text("FK4Parameter1"), "13");
  CloseEveryBox();
  EXPECT_FALSE(Validate("ChannelID_k6k", 15, 1));
  EXPECT_EQ(Text("EmChannel", 3), "11");
}

class ChannelNetwork : public ChannelFixture {
 protected:
  /// Networks 1 to 5: Selcall, DTMF, two-tone with an in-band tone, MDC1200, none.
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 2, 3, 4, 0});
    GiveChannels({11, 12});
    provider.Set("SIBTEnabled_k6k", 3, 1);
    for (const std::string_view name : kPresets) provider.Fill(name, {"1", "1"});
  }
  static constexpr std::string_view kPresets[] = {
      "5.RepeaterBurstSeq",      "5.CallerIDBurstSeq", "5.TXCallBurstSeq",        "5.StatusBurstSeq",
      "5.RepeaterAccessToneSeq", "5.Lead-In-ToneSeq",  "5.DTMFPresetCallSequence"};
};

TEST_F(ChannelNetwork, EnablesWhatTheSignallingOfTheNewNetworkUses) {
  const std::pair<const char*, int> controls[] = {
      {"RepeaterBurstIndex_k6k", 1}, {"CallerIDBurstIndex_k6k", 1},       {"TXCallBurstIndex_k6k", 1},
      {"StatusBurstIndex_k6k", 1},   {"RepeaterAccessToneIndex_k6k", 1},  {"Lead-In-ToneIndex_k6k", 1},
      {"RxDecodeOneEnabled_k6k", 1}, {"RxDecodeTwoEnabled_k6k", 1},       {"GroupCallDecode_k6k", 1},
      {"DTMFPresetCallSequence", 2}, {"T99IndividualCallReceive_k6k", 3}, {"T99GroupCallReceive_k6k", 3},
      {"T99AllCallReceive_k6k", 3},  {"ChannelSIBTEnabled_k6k", 3}};
  for (const auto& [number, type] :
       {std::pair{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 0}, {8, 0}}) {  // 8 is unknown: the last counts
    SCOPED_TRACE(number);
    std::string wanted;
    for (const auto& [uiid, user] : controls) wanted += (user == type ? "+" : "-") + std::string(uiid);
    messenger.Clear();
    EXPECT_TRUE(Validate("ChannelNetworkID_k6k", number, 2));
    EXPECT_EQ(Switched(), wanted);
    EXPECT_EQ(Text("5.ChannelNetworkIdUI", 2), std::to_string(number));
  }
}

TEST_F(ChannelNetwork, ClearsAllPresetsAlsoForTheSameNetwork) {
  StartTrail();
  EXPECT_TRUE(Validate("ChannelNetworkID_k6k", 1, 2));
  for (const auto name : kPresets) EXPECT_EQ(Column(name), "1 None") << name;
  EXPECT_TRUE(Trail().starts_with("5.ChannelNetworkIdUI[2] 5.RepeaterBurstSeq[2] ")) << Trail();
  EXPECT_EQ(Refreshed(),
            "RepeaterBurstIndex_k6k CallerIDBurstIndex_k6k TXCallBurstIndex_k6k StatusBurstIndex_k6k "
            "RepeaterAccessToneIndex_k6k Lead-In-ToneIndex_k6k DTMFPresetCallSequence");
}

TEST_F(ChannelNetwork, StaysForAnEmergencyElseANoticeDoesNotHinderIt) {
  provider.Set("5.TXCallBurstSeq", 2, "None");
  provider.Set("TxFormat_k6k", 1, "RRRRR");
  provider.Set("EmChannel", 4, 12);
  provider.Set("EmChannelType", 4, 0);  // the type does not count
  StartTrail();
  EXPECT_FALSE(Validate("ChannelNetworkID_k6k", 2, 2));
  EXPECT_EQ(Trail(), "box");
  provider.Set("EmChannel", 4, 11);
  EXPECT_TRUE(Validate("ChannelNetworkID_k6k", 2, 2));
  EXPECT_THAT(
      Boxes(),
      ElementsAre(ErrorBox("You can not change the Network this Channel belongs to because it is "
                           "being used as an Emergency Dedicated Channel."),
                  NoticeBox("The channel's Fixed Call Sequence must match the Tx Format (%0:S). One or "
                            "more bursts relating to the Tx Format are currently set to None.",
                            "RRRRR")));
  EXPECT_EQ(Text("5.RepeaterBurstSeq", 2), "None");
}
}  // namespace
