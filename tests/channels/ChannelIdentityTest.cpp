#include "tests/channels/ChannelFixture.h"

namespace {
using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::string_view kMany[] = {"Priority1Channel_k6k",
                                      "Priority2Channel_k6k",
                                      "ScanPresetTxChannel_k6k",
                                      "GroupChannelUI_k6k",
                                      "EmChannel",
                                      "FilteredScanGroupChannelMemberID"};
constexpr std::string_view kSingle[] = {
    "ActionParamPresetChannel",      "ActionParamHomeChannel", "GPSPollResponseChannel",
    "ChannelGroupIDForRadioStartup", "FK1Parameter1",          "FK4Parameter1"};

class ChannelNumber : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveChannels({11, 12});
    for (const std::string_view name : kMany) provider.Fill(name, {"None", "12", "11"});
    for (const std::string_view name : kSingle) provider.Set(name, 1, "11");
    provider.Fill("VotePresetTxChannelUI", {"11", "11", "11"});
    for (const std::string_view name : kMany) provider.Set(name, 3, "11");
    for (const auto& [name, action] :
         {std::pair{"FunctionKey1", 22}, {"FunctionKey2", 22}, {"FunctionKey3", 21}, {"FunctionKey4", 22}}) {
      provider.Set(name, 1, action);
    }
    provider.Set("FK2Parameter1", 1, "12");
    provider.Set("FK3Parameter1", 1, "11");
  }
};

const std::string kRenumber = QuestionBox(
    "Changing this Channel ID will cause all references to it to be updated. %0:S Do you wish to proceed?",
    "\r\n");

TEST_F(ChannelNumber, MovesEveryReferenceAfterOneQuestion) {
  messenger.Play({Button::Yes});
  EXPECT_TRUE(Validate("ChannelID_k6k", 15, 1));
  EXPECT_THAT(Boxes(), ElementsAre(kRenumber));
  for (const std::string_view name : kMany)
    EXPECT_THAT(Column(name), ElementsAre("None", "12", "15")) << name;
  for (const std::string_view name : kSingle) EXPECT_EQ(Text(name), "15") << name;
  EXPECT_EQ(Text("FK2Parameter1") + Text("FK3Parameter1"), "1211");
  EXPECT_EQ(Text("ChannelID_k6k", 1), "11");  // the host stores it
  EXPECT_THAT(Column("VotePresetTxChannelUI"), Each("11"));
  EXPECT_THAT(
      messenger.Refreshed(),
      ElementsAre("Priority1Channel_k6k", "Priority2Channel_k6k", "ScanPresetTxChannel_k6k",
                  "GroupChannelUI_k6k", "EmChannel", "ActionParamPresetChannel", "ActionParamHomeChannel",
                  "GPSPollResponseChannel", "FilteredScanGroupChannelMemberID",
                  "ChannelGroupIDForRadioStartup", "FK1Parameter1", "FK4Parameter1"));
}

TEST_F(ChannelNumber, OnlyYesMovesAReference) {
  messenger.Play({Button::No});
  StartTrail();
  EXPECT_FALSE(Validate("ChannelID_k6k", 15, 1));
  EXPECT_THAT(Trail(), ElementsAre("Imessenger.ShowMessage"));
  AlwaysAnswer(Button::Cancel);
  EXPECT_FALSE(Validate("ChannelID_k6k", 15, 1));
  EXPECT_EQ(Text("EmChannel", 3), "11");
}

TEST_F(ChannelNumber, AnEqualNumberOrOneWithoutReferenceNeedsNoQuestion) {
  StartTrail();
  EXPECT_TRUE(Validate("ChannelID_k6k", "11", 1));
  GiveChannels({11, 13});
  EXPECT_TRUE(Validate("ChannelID_k6k", 15, 2));
  EXPECT_THAT(Trail(), IsEmpty());
}

class ChannelNetwork : public ChannelFixture {
 protected:
  /// Networks 1 to 5: Selcall, DTMF, two-tone with an in-band tone, MDC1200, none.
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 2, 3, 4, 0});
    GiveChannels({11, 12});
    provider.Set("SIBTEnabled_k6k", 3, 1);
    for (const std::string_view name : kPresets) provider.Set(name, 2, "1");
  }
  static constexpr std::string_view kPresets[] = {
      "5.RepeaterBurstSeq",      "5.CallerIDBurstSeq", "5.TXCallBurstSeq",        "5.StatusBurstSeq",
      "5.RepeaterAccessToneSeq", "5.Lead-In-ToneSeq",  "5.DTMFPresetCallSequence"};
};

TEST_F(ChannelNetwork, EnablesWhatTheSignallingOfTheNewNetworkUses) {
  constexpr const char* kSelcall[] = {
      "RepeaterBurstIndex_k6k", "CallerIDBurstIndex_k6k",      "TXCallBurstIndex_k6k",
      "StatusBurstIndex_k6k",   "RepeaterAccessToneIndex_k6k", "Lead-In-ToneIndex_k6k",
      "RxDecodeOneEnabled_k6k", "RxDecodeTwoEnabled_k6k",      "GroupCallDecode_k6k"};
  constexpr const char* kTwoTone[] = {"T99IndividualCallReceive_k6k", "T99GroupCallReceive_k6k",
                                      "T99AllCallReceive_k6k"};
  for (const auto& [number, type, hasTone] :
       {std::tuple{1, 1, false},
        {2, 2, false},
        {3, 3, true},
        {4, 4, false},
        {5, 0, false},
        {8, 0, false}}) {  // an unknown number stands for the last network
    SCOPED_TRACE(number);
    std::vector<std::string> wanted;
    const auto expect = [&](bool on, const char* uiid) {
      wanted.push_back((on ? "+" : "-") + std::string(uiid));
    };
    for (const char* uiid : kSelcall) expect(type == 1, uiid);
    expect(type == 2, "DTMFPresetCallSequence");
    for (const char* uiid : kTwoTone) expect(type == 3, uiid);
    expect(hasTone, "ChannelSIBTEnabled_k6k");
    messenger.Clear();
    EXPECT_TRUE(Validate("ChannelNetworkID_k6k", number, 2));
    EXPECT_THAT(Switched(), ElementsAreArray(wanted));
    EXPECT_EQ(Text("5.ChannelNetworkIdUI", 2), std::to_string(number));
  }
}

TEST_F(ChannelNetwork, ClearsAllPresetsAlsoForTheSameNetwork) {
  provider.Set("RepeaterBurstIndex_k6k", 1, "1");
  StartTrail();
  EXPECT_TRUE(Validate("ChannelNetworkID_k6k", 1, 2));
  EXPECT_THAT(Boxes(), IsEmpty());
  for (const std::string_view name : kPresets) EXPECT_EQ(Text(name, 2), "None") << name;
  EXPECT_EQ(Text("RepeaterBurstIndex_k6k", 1), "1");
  EXPECT_EQ(Trail().front(), "Ifield.SetValue 5.ChannelNetworkIdUI[2]");
  EXPECT_EQ(Trail()[1], "Imessenger.SetFieldEnabled RepeaterBurstIndex_k6k");
  EXPECT_THAT(messenger.Refreshed(),
              ElementsAre("RepeaterBurstIndex_k6k", "CallerIDBurstIndex_k6k", "TXCallBurstIndex_k6k",
                          "StatusBurstIndex_k6k", "RepeaterAccessToneIndex_k6k", "Lead-In-ToneIndex_k6k",
                          "DTMFPresetCallSequence"));
}

TEST_F(ChannelNetwork, StaysWhileTheChannelIsNamedForAnEmergency) {
  provider.Set("5.StatusBurstSeq", 2, "None");
  provider.Set("5.TXCallBurstSeq", 2, "None");  // would be a notice
  provider.Set("EmChannel", 4, 12);
  provider.Set("EmChannelType", 4, 0);  // the type does not count
  StartTrail();
  EXPECT_FALSE(Validate("ChannelNetworkID_k6k", 2, 2));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox("You can not change the Network this Channel belongs to because it is "
                                   "being used as an Emergency Dedicated Channel.")));
  EXPECT_THAT(Trail(), ElementsAre("Imessenger.ShowMessage"));
  EXPECT_TRUE(Validate("ChannelNetworkID_k6k", 2, 1));
}

TEST_F(ChannelNetwork, NoticesWhatTheOldNetworkMissesAndGoesOn) {
  provider.Set("5.TXCallBurstSeq", 2, "None");
  provider.Set("TxFormat_k6k", 1, "RRRRR");
  EXPECT_TRUE(Validate("ChannelNetworkID_k6k", 2, 2));
  EXPECT_THAT(Boxes(), ElementsAre(NoticeBox(
                           "The channel's Fixed Call Sequence must match the Tx Format (%0:S). One or "
                           "more bursts relating to the Tx Format are currently set to None.",
                           "RRRRR")));
  EXPECT_EQ(Text("5.RepeaterBurstSeq", 2), "None");
}
}  // namespace
