#include "host/IfinalRules.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class FinalRules : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 1, 1});
    GiveChannels({11, 12});
  }
};

TEST_F(FinalRules, ARadioThatScansFirstIsNoModem) {
  provider.Set("DataPowerupState", 1, 2);
  EXPECT_TRUE(FinalValidation());
  provider.Set("GroupActivityOnPowerUp_k6k", 1, 1);
  provider.Set("AutoAckType", 1, 1);
  messenger.Play({Button::No});
  EXPECT_FALSE(FinalValidation());
  EXPECT_THAT(messenger.Texts(),
              ElementsAre(StartsWith("You have set the Powerup State (Data form) to 'VHSD'")));
}

TEST_F(FinalRules, AcknowledgementAndAlertsGoTogether) {
  provider.Set("FreeFormSequence6", 1, "12345");
  provider.Set("AutoAckType", 2, 2);
  provider.Set("SelcallIndAutoAckTwo", 3, 1);
  messenger.Play({Button::Yes, Button::No});
  EXPECT_FALSE(FinalValidation());
  const auto boxes = Boxes();
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_THAT(boxes[0], StartsWith("68|Caption Warning|You have set the Auto Acknowledge Type"));
  EXPECT_TRUE(boxes[0].ends_with("|2")) << boxes[0];
  EXPECT_THAT(boxes[1], StartsWith("68|Caption Warning|You have selected the Auto Acknowledge"));
  EXPECT_TRUE(boxes[1].ends_with("|3")) << boxes[1];
  provider.Set("SelcallIndAutoAckTwo", 2, 1);
  provider.Set("AutoAckType", 3, 1);
  messenger.Clear();
  EXPECT_TRUE(FinalValidation());
  EXPECT_THAT(Boxes(), IsEmpty());
  CloseEveryBox();
  provider.Set("AutoAckType", 2, 0);  // the second question alone
  EXPECT_FALSE(FinalValidation());
  provider.Set("AutoAckType", 2, 2);
  provider.Set("SelcallIndAutoAckTwo", 2, 0);  // the first
  EXPECT_FALSE(FinalValidation());
}

TEST_F(FinalRules, ASequenceThatANetworkUsesIsNotBlank) {
  struct Case {
    int type;
    std::vector<std::pair<const char*, int>> settings;
    const char* sequence;
    const char* box;
  };
  provider.Fill("80.MDC1200SignallingSystemID", {1, 9});
  const std::vector<std::pair<const char*, int>> callout = {{"EmergencyEnabled", 1}, {"EmCalloutType", 2}};
  const Case cases[] = {
      {1, callout, "FreeFormSequence7", "You have activated emergency callout on network %0:S"},
      {2, callout, "DTMFEmergSequence", "You have activated emergency callout on network %0:S"},
      {4, callout, "MDC1200EmergencySequence", "You have activated emergency callout on network %0:S"},
      {1, {{"AutoAckType", 1}, {"PriorityAutoAck_k6k", 1}}, "FreeFormSequence6", "You have set the Auto Ack"},
      {1, {{"SignallingOnPTTPress_k6k", 1}}, "FreeFormSequence5", "You have activated an ANI sequence"},
      {2, {{"SignallingOnPTTRelease_k6k", 1}}, "DTMFANISequence", "You have activated an ANI sequence"},
  };
  for (const auto& [type, settings, sequence, box] : cases) {
    SCOPED_TRACE(sequence);
    messenger.Clear();
    provider.Set("SignallingType", 2, type);
    provider.Set("NetworkSignallingID", 2, "9");  // the second system
    for (const auto& [field, value] : settings) provider.Set(field, 2, value);
    provider.Set(sequence, 1, "123");  // of another system
    EXPECT_FALSE(FinalValidation());
    const auto boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0], StartsWith(std::string("48|Caption Error|") + box));
    EXPECT_TRUE(boxes[0].ends_with("|2|9")) << boxes[0];
    provider.Set(sequence, 2, "123");
    EXPECT_TRUE(FinalValidation());
    provider.Set(sequence, 2, "0000");
    EXPECT_EQ(FinalValidation(), type != 4);  // with which MDC1200 sends nothing
    provider.Set(sequence, 2, " None ");
    provider.Set("NetworkSignallingID", 2, "7");  // there is no such system to judge
    EXPECT_TRUE(FinalValidation());
    provider.Set("NetworkSignallingID", 2, "9");
    EXPECT_FALSE(FinalValidation());
    for (const auto& [field, value] : settings) provider.Set(field, 2, 0);
  }
  provider.Set("SignallingOnPTTPress_k6k", 2, 2);  // a tone, no ANI
  EXPECT_TRUE(FinalValidation());
}

TEST_F(FinalRules, ThePTTThatCallsIsToBeHeardOnEveryNetwork) {
  provider.Set("PTTPressCallSetup1_k6k", 1, 1);
  provider.Fill("SelcallAudibleSideTones", {1, 0, 1});
  provider.Set("FFSKBaudRate", 1, 2400);
  provider.Set("SIBTEnabled_k6k", 3, 1);
  messenger.Play({Button::No});
  EXPECT_FALSE(FinalValidation());
  EXPECT_EQ(Column("SelcallAudibleSideTones"), "1 0 1");
  messenger.Play({Button::Yes});
  EXPECT_FALSE(FinalValidation());
  EXPECT_EQ(Column("SelcallAudibleSideTones"), "1 1 1");
  EXPECT_THAT(messenger.Texts().back(), StartsWith("FFSK Baud rate can not be 2400"));
  provider.Set("SignallingType", 3, 2);
  EXPECT_TRUE(FinalValidation());
}

TEST_F(FinalRules, ABackgroundGroupShowsAndCallsOnTheSelectedChannel) {
  provider.SetCount(16, 2);
  provider.Fill("16.GroupIDTracker", {201, 202});
  provider.Fill("18.GroupIDNumber", {201, 201, 202, 202});
  const std::tuple<std::int32_t, std::int32_t, std::int32_t, bool> cases[] = {
      {0, 0, 0, true}, {1, 2, 4, true}, {1, 1, 4, false}, {1, 2, 0, false}, {2, 1, 0, true}};
  for (const auto& [scanType, display, callChannel, passes] : cases) {
    provider.Set("ScanType_k6k", 2, scanType);
    provider.Set("ScanGroupDisplayIndicator_k6k", 2, display);
    provider.Set("ScanDefaultTxChannel_k6k", 2, callChannel);
    messenger.Clear();
    EXPECT_EQ(FinalValidation(), passes) << scanType << display << callChannel;
    if (passes) continue;
    EXPECT_THAT(messenger.Texts(), ElementsAre(StartsWith("When the Scan Type is set to 'Background'")));
  }
}

TEST_F(FinalRules, AGroupHasTwoMembersUnlessItScansInTheBackground) {
  const auto fewMembers = StartsWith("There must be at least two Channels in the Scan Group members unless");
  provider.Fill("16.GroupIDTracker", {201, 202});
  provider.Fill("18.GroupIDNumber", {201, 202, 201});
  provider.Fill("GroupChannelUI_k6k", {"11", "11", "12"});
  provider.Set("ScanGroupDisplayIndicator_k6k", 2, 2);
  provider.Set("ScanDefaultTxChannel_k6k", 2, 4);
  for (const int scanType : {0, 1, 2}) {
    provider.Set("ScanType_k6k", 2, scanType);
    messenger.Clear();
    EXPECT_EQ(FinalValidation(), scanType == 1);
    EXPECT_EQ(messenger.Texts().empty(), scanType == 1);
  }
  provider.Fill("18.GroupIDNumber", {201, 202, 202});
  messenger.Clear();
  EXPECT_FALSE(FinalValidation());
  EXPECT_THAT(messenger.Texts(), ElementsAre(fewMembers));
}

TEST_F(FinalRules, ARadioDoesNotStartOnAChannelThatAGroupHides) {
  GiveChannels({11, 12, 13});
  provider.Fill("16.GroupIDTracker", {201, 202});
  provider.Fill("18.GroupIDNumber", {201, 201, 202, 202});
  provider.Fill("GroupChannelUI_k6k", {"11", "12", "12", "13"});
  provider.Set("16.HiddenChannels", 2, 1);
  const std::tuple<int, const char*, bool> cases[] = {{1, "13", false}, {1, "12", false}, {1, "11", true},
                                                      {0, "13", true},  {1, "202", true}, {1, "None", true}};
  for (const auto& [activity, channel, passes] : cases) {
    provider.Set("GroupActivityOnPowerUp_k6k", 1, activity);
    provider.Set("ChannelGroupIDForRadioStartup", 1, channel);
    messenger.Clear();
    EXPECT_EQ(FinalValidation(), passes) << channel;
    EXPECT_EQ(Boxes(),
              passes ? std::vector<std::string>()
                     : std::vector<std::string>{ErrorBox(
                           "The Channel set for 'Channel/Group Active on Power Up' can not be contained "
                           "in a group with the 'Hidden Channels' flag set.")});
  }
}

TEST_F(FinalRules, EachRuleCanBeRunByItselfAndNamesItsPlaces) {
  auto& rules = dynamic_cast<IfinalRules&>(*Validator());
  std::int32_t count = 0;
  ASSERT_TRUE(rules.FinalRuleCount(count).Ok());
  EXPECT_EQ(count, 31);
  FinalOutcome outcome;
  for (const std::int32_t wrong : {0, count + 1}) {
    EXPECT_EQ(rules.RunFinalRule(wrong, outcome).Reason().number, 9);
  }
  provider.Fill("FreeFormSequence7", {"", "1"});
  for (const RecordNr network : {1, 3}) {
    provider.Set("EmergencyEnabled", network, 1);
    provider.Set("EmCalloutType", network, 1);
  }
  std::string found;
  for (std::int32_t rule = 1; rule <= count; ++rule) {
    messenger.Clear();
    ASSERT_TRUE(rules.RunFinalRule(rule, outcome).Ok());
    EXPECT_EQ(outcome.places.size(), messenger.Boxes().size()) << outcome.name;
    EXPECT_EQ(outcome.passed != kFalse, outcome.places.empty()) << outcome.name;
    for (const auto& [uiid, record] : outcome.places) {
      found += outcome.name + ":" + uiid + "[" + std::to_string(record) + "] ";
    }
  }
  EXPECT_EQ(found, "5:EmCalloutType[1] 5:EmCalloutType[3] ");
}

TEST_F(FinalRules, AnUnknownPowerLevelIsMended) {
  for (const int known : {1, 3}) {
    provider.Set("LowPowerLevelMeans", 1, known);
    EXPECT_TRUE(FinalValidation());
    EXPECT_EQ(Text("LowPowerLevelMeans"), std::to_string(known));
  }
  provider.Set("LowPowerLevelMeans", 1, 4);
  EXPECT_TRUE(FinalValidation());
  EXPECT_THAT(Boxes(),
              ElementsAre(StartsWith("48|Caption Warning|The field 'Front Panel Low Power Control'")));
  EXPECT_EQ(Text("LowPowerLevelMeans"), "2");
  EXPECT_EQ(Refreshed(), "LowPowerLevelMeans");
}

TEST_F(FinalRules, ItinerantChannelsKeepTheirPowerVeryLow) {
  provider.Set("RFCompliance", 1, 1);
  provider.Set("Band_k6k", 1, 8);
  provider.Set("TxPower_k6k", 1, 1);
  const std::tuple<const char*, std::int32_t, bool> cases[] = {
      {"769.050000", 2, false}, {"769.075000", 2, false}, {"769.075001", 2, true},
      {"774.987499", 2, true},  {"805.000000", 2, false}, {"805.000000", 1, true}};
  for (const auto& [frequency, power, passes] : cases) {
    provider.Set("TxFreq_k6k", 2, frequency);
    provider.Set("TxPower_k6k", 2, power);
    EXPECT_EQ(FinalValidation(), passes) << frequency;
  }
  provider.Set("TxPower_k6k", 2, 4);
  EXPECT_FALSE(FinalValidation());
  provider.Set("Band_k6k", 1, 7);
  EXPECT_TRUE(FinalValidation());
}
}  // namespace
