#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kPowerOff =
    QuestionBox("There is at least one channel with a Tx power setting of 'Off'  Do you wish to proceed?");
const std::string kDedicatedOff = QuestionBox(
    "This Channel is being used as a Dedicated Emergency Channel. Are you sure you want to turn off the Tx "
    "power?");

class ChannelFinal : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 0});
    GiveChannels({11, 12, 13});
  }
};

TEST_F(ChannelFinal, ReservedFrequenciesEndTheWalkAtTheFirst) {
  const std::tuple<std::vector<Variant>, bool, std::vector<std::string>> cases[] = {
      {{"430", "406.100001"}, true, {}},
      {{"156.8", "243.000"}, true, {NoticeBox(kMaritimeNotice)}},
      {{"430", "243.000", "156.8"}, false, {ErrorBox(kDistressError)}}};
  for (const auto& [tx, mayBeSaved, boxes] : cases) {
    provider.Fill("TxFreq_k6k", tx);
    messenger.Clear();
    EXPECT_EQ(FinalValidation(), mayBeSaved);
    EXPECT_EQ(Boxes(), boxes);
  }
}

TEST_F(ChannelFinal, ChannelsWithoutPowerNeedOneYes) {
  provider.Fill("TxPower_k6k", {4, 0, 0});
  messenger.Play({Button::Yes, Button::No});
  EXPECT_TRUE(FinalValidation());
  EXPECT_FALSE(FinalValidation());
  EXPECT_THAT(Boxes(), ElementsAre(kPowerOff, kPowerOff));
  messenger.Clear();
  provider.Set("0.RadioTier", 1, "KE2210 Rx");
  EXPECT_TRUE(FinalValidation());
  provider.Set("0.RadioTier", 1, "KE2210 Tx");
  provider.SetFactoryMode(true);
  EXPECT_TRUE(FinalValidation());
  EXPECT_THAT(Boxes(), IsEmpty());
  provider.SetFactoryMode(false);
  CloseEveryBox();
  EXPECT_FALSE(FinalValidation());
}

TEST_F(ChannelFinal, PresetsComeFirstThenPowerThenFrequencies) {
  provider.Set("TxPower_k6k", 1, 0);
  provider.Set("TxFreq_k6k", 1, "243.000");
  messenger.Play({Button::No, Button::Yes});
  EXPECT_FALSE(FinalValidation());
  EXPECT_FALSE(FinalValidation());
  EXPECT_THAT(Boxes(), ElementsAre(kPowerOff, kPowerOff, ErrorBox(kDistressError)));
  messenger.Clear();
  provider.Set("5.StatusBurstSeq", 3, "1");
  EXPECT_FALSE(FinalValidation());
  ASSERT_EQ(Boxes().size(), 1U);
  EXPECT_EQ(messenger.Boxes()[0].parameters, "13");
}

TEST_F(ChannelFinal, TurningOffADedicatedEmergencyChannelNeedsConsent) {
  const std::tuple<std::vector<Variant>, std::vector<Variant>, Variant, bool> cases[] = {
      {{"None", 12}, {0, 1}, "0", true},
      {{"12", "None"}, {0, 1}, 0, false},
      {{"11", "13"}, {1, 1}, 0, false},
      {{"12", "12"}, {1, 1}, 1, false},
      {{"12", "12"}, {1, 1}, 0, true}};
  for (const auto& [channels, types, power, asks] : cases) {
    provider.Fill("EmChannel", channels);
    provider.Fill("EmChannelType", types);
    messenger.Clear();
    if (asks) messenger.Play({Button::No, Button::Yes});
    EXPECT_EQ(Validate("TxPower_k6k", power, 2), !asks);
    EXPECT_TRUE(Validate("TxPower_k6k", power, 2));
    EXPECT_EQ(Boxes(), std::vector<std::string>(asks ? 2 : 0, kDedicatedOff));
  }
  CloseEveryBox();
  EXPECT_TRUE(Validate("TxPower_k6k", 0, 2));  // only No refuses
}
}  // namespace
