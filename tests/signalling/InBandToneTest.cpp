#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

/// Networks 1 and 2; channels 11 and 12 are of network 1, 13 is of network 2.
class InBandTone : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({0, 0});
    GiveChannels({11, 12, 13});
    provider.Set("ChannelNetworkId_k6k", 3, 2);
    provider.Set("CurrentNetworkNr", 1, 2);
  }
};

const std::string kDisablesAll = QuestionBox(
    "SIBT is currently being used on an associated channel. Continuing will disable SIBT on all channels "
    "associated with this network. Are you sure you want to proceed?");

TEST_F(InBandTone, TheRadioHoldsTenthsAndWhatTheDecoderNeeds) {
  const std::tuple<Variant, const char*> cases[] = {{1000, "10000 9925 10075 0 17130"},
                                                    {"1499", "14990 14915 15065 0 17130"},
                                                    {1500, "15000 14925 15075 0 12870"},
                                                    {1499.9, "14999 14924 15074 0 17130"},  // of a file
                                                    {0, "0 -75 75 0 17130"}};
  for (const auto& [hertz, raw] : cases) {
    provider.Set("75.SIBTFrequency", 2, hertz);
    provider.Set("75.SIBTToneBandwidth", 2, 1);
    EXPECT_TRUE(FromUI("75.SIBTFrequency", 2));
    std::string texts = Text("75.SIBTFrequency", 2);
    for (const char* field :
         {"75.SIBTLowerBound", "75.SIBTUpperBound", "75.SIBTToneBandwidth", "75.SIBTMixingFrequency"}) {
      texts += " " + Text(field, 2);
    }
    EXPECT_EQ(texts, raw);
    EXPECT_TRUE(ToUI("75.SIBTFrequency", 2));
    EXPECT_EQ(CDbl(provider.Get("75.SIBTFrequency", 2)), CDbl(hertz));
  }
  provider.Set("21.NetworkIDTracker", 2, "7");
  EXPECT_TRUE(ToUI("75.SIBTFrequency", 2));
  EXPECT_EQ(Column("75.SIBTNetworkID"), "1 7");
  provider.SetCount(75, 3);  // a damaged file: no such network
  EXPECT_TRUE(ToUI("75.SIBTFrequency", 3));
  EXPECT_EQ(Text("75.SIBTNetworkID", 3), Text("75.SIBTNetworkID", 1));
}

TEST_F(InBandTone, AFrequencyWhoseBoundsAreNoNumbersOfTheRadioIsAFault) {
  ExpectTermination();
  provider.Set("75.SIBTFrequency", 2, 214748364.7);
  provider.Set("75.SIBTUpperBound", 2, 7);
  EXPECT_TRUE(FromUI("75.SIBTFrequency", 2));
  EXPECT_EQ(Terminations(), 1);
  EXPECT_EQ(Text("75.SIBTUpperBound", 2), "7");
}

TEST_F(InBandTone, TheBoxAndThePositionAreOneNumberInTheRadio) {
  const std::tuple<int, const char*> shown[] = {{0, "0 1"}, {1, "1 0"}, {2, "1 1"}, {7, "1 1"}};
  for (const auto& [raw, form] : shown) {
    provider.Set("75.SIBTRawEnabled", 2, raw);
    provider.Set("75.SIBTTonePosition", 2, 0);
    EXPECT_TRUE(ToUI("75.SIBTTonePosition", 2));
    EXPECT_EQ(Text("75.SIBTEnabled", 2) + " " + Text("75.SIBTTonePosition", 2), form);
  }
  const std::tuple<int, int, const char*> stored[] = {{0, 0, "0"}, {0, 1, "0"}, {1, 0, "1"}, {1, 1, "2"}};
  for (const auto& [enabled, position, raw] : stored) {
    provider.Set("75.SIBTTonePosition", 2, position);
    EXPECT_EQ(InRadio("75.SIBTEnabled", enabled, "75.SIBTRawEnabled", 2), raw);
  }
}

TEST_F(InBandTone, AChannelHasItOrASubaudibleTone) {
  const auto refused = ErrorBox(
      "Subaudible signalling cannot be used when SIBT is enabled on the channel. You must clear the "
      "'Send/Decode SIBT on Channel' check box on the Detailed tab before assigning a value here.");
  for (const auto& [uiid, other] : {std::pair("RxSignalling_k6k", "TxSignalling_k6k"),
                                    std::pair("TxSignalling_k6k", "RxSignalling_k6k")}) {
    provider.Set(other, 3, "None");
    provider.Set("SIBTEnabled_k6k", 2, 1);
    provider.Set("ChannelSIBTEnabled_k6k", 3, 1);
    messenger.Clear();
    EXPECT_FALSE(Validate(uiid, "C67.0", 3));
    EXPECT_THAT(Boxes(), ElementsAre(refused));
    EXPECT_TRUE(Validate(uiid, "", 3));  // no effect
    EXPECT_EQ(Switched(), "");
    EXPECT_TRUE(Validate(uiid, "None", 3));
    EXPECT_EQ(Switched(), "+ChannelSIBTEnabled_k6k");
    provider.Set("ChannelSIBTEnabled_k6k", 3, 0);
    messenger.Clear();
    EXPECT_TRUE(Validate(uiid, "D023", 3));
    EXPECT_EQ(Switched(), "-ChannelSIBTEnabled_k6k");
    provider.Set(other, 3, "C67.0");
    messenger.Clear();
    EXPECT_TRUE(Validate(uiid, "None", 3));
    EXPECT_EQ(Switched(), "-ChannelSIBTEnabled_k6k") << "the other tone is not None";
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(InBandTone, SwitchedOffItLeavesTheChannelsAfterAQuestion) {
  provider.Fill("ChannelSIBTEnabled_k6k", {1, 0, 1});
  const auto enabled = [&] {
    return Column("ChannelSIBTEnabled_k6k") + "|" + Column("SIBTTxCyclingEnabled_k6k");
  };
  provider.Fill("SIBTTxCyclingEnabled_k6k", {1, 1});
  StartTrail();
  messenger.Play({kNo});
  EXPECT_FALSE(Validate("SIBTEnabled_k6k", 0, 1));
  EXPECT_EQ(Trail(), "75.SIBTTxCyclingEnabled_k6k[2] box refresh:SIBTTxCyclingEnabled_k6k");
  EXPECT_EQ(enabled(), "1 0 1|1 0") << "the cycling is off, No or not";
  messenger.Clear();
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("SIBTEnabled_k6k", 0, 1));
  EXPECT_THAT(Boxes(), ElementsAre(kDisablesAll));
  EXPECT_EQ(enabled(), "1 0 0|1 0");
  EXPECT_EQ(Switched(),
            "-SIBTTonePosition_k6k-SIBTFrequency_k6k-SIBTToneEncodeDuration_k6k-SIBTToneLeadInDelay_k6k"
            "-SIBTToneLeadOutDelay_k6k-SIBTMinimumDecodeDuration_k6k");
  provider.Set("SIBTTxCyclingEnabled_k6k", 2, 1);
  messenger.Clear();
  EXPECT_TRUE(Validate("SIBTEnabled_k6k", 0, 1));  // no channel is left: nobody is asked
  EXPECT_EQ(enabled() + (Boxes().empty() ? "" : " asked"), "1 0 0|1 0");
}

TEST_F(InBandTone, TheNumberOfAChannelsNetworkIsTakenForARecordAndAnyValueButOffIsOn) {
  provider.Fill("21.NetworkIDTracker", {2, 5});
  provider.Fill("ChannelNetworkId_k6k", {2, 5, 5});  // the first is of record 1, whose number is 2
  provider.Fill("ChannelSIBTEnabled_k6k", {1, 1, 0});
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("SIBTEnabled_k6k", 0, 1));
  EXPECT_EQ(Column("ChannelSIBTEnabled_k6k"), "0 1 0");
  provider.Fill("ChannelSIBTEnabled_k6k", {1, 1, 0});
  for (const int value : {1, -1, 2}) {
    messenger.Clear();
    EXPECT_TRUE(Validate("SIBTEnabled_k6k", value, 1)) << value;
    EXPECT_EQ(Switched().front(), value == 1 ? '+' : '-') << value;
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}
}  // namespace
