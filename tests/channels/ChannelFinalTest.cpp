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
  const struct {
    std::vector<Variant> tx;
    bool mayBeSaved;
    std::string box;
  } cases[] = {
      {{}, true, ""},
      {{"156.8", "243.000"}, true, NoticeBox(kMaritimeNotice)},
      {{"430", "243.000", "156.8"}, false, ErrorBox(kDistressError)},
      {{"430", "406.1"}, false, ErrorBox(kDistressError)},
      {{"430", "406.100001"}, true, ""},
      {{157.175, "157.175"}, true, NoticeBox(kMaritimeNotice)},
  };
  for (const auto& [tx, mayBeSaved, box] : cases) {
    provider.Fill("TxFreq_k6k", tx);
    messenger.Clear();
    EXPECT_EQ(FinalValidation(), mayBeSaved);
    const std::vector<std::string> wanted = box.empty() ? std::vector<std::string>{} : std::vector{box};
    EXPECT_EQ(Boxes(), wanted);
  }
}

TEST_F(ChannelFinal, ChannelsWithoutPowerNeedOneYes) {
  provider.Set("TxPower_k6k", 2, 0);
  provider.Set("TxPower_k6k", 3, 0);
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
  AlwaysAnswer(Button::Cancel);
  EXPECT_FALSE(FinalValidation());
}

TEST_F(ChannelFinal, PresetsComeFirstThenPowerThenFrequencies) {
  provider.Set("TxPower_k6k", 1, 0);
  provider.Set("TxFreq_k6k", 1, "243.000");
  messenger.Play({Button::No, Button::Yes});
  EXPECT_FALSE(FinalValidation());
  EXPECT_THAT(Boxes(), ElementsAre(kPowerOff));
  EXPECT_FALSE(FinalValidation());
  EXPECT_THAT(Boxes(), ElementsAre(kPowerOff, kPowerOff, ErrorBox(kDistressError)));
  messenger.Clear();
  provider.Set("5.StatusBurstSeq", 3, "1");
  EXPECT_FALSE(FinalValidation());
  EXPECT_EQ(Boxes().size(), 1U);
  EXPECT_EQ(messenger.Boxes()[0].parameters, "13");
}

TEST_F(ChannelFinal, TurningOffADedicatedEmergencyChannelNeedsConsent) {
  const struct {
    std::vector<Variant> channels, types;
    Variant power;
    bool asks;
  } cases[] = {
      {{"None", "12"}, {1, 1}, 0, true},  {{"None", 12}, {0, 1}, "0", true},
      {{"12", "None"}, {0, 1}, 0, false}, {{"11", "13"}, {1, 1}, 0, false},
      {{"12", "12"}, {1, 1}, 1, false},   {{"12", "12"}, {1, 1}, 0, true},
  };
  for (const auto& [channels, types, power, asks] : cases) {
    provider.Fill("EmChannel", channels);
    provider.Fill("EmChannelType", types);
    messenger.Clear();
    if (asks) messenger.Play({Button::No, Button::Yes});
    EXPECT_EQ(Validate("TxPower_k6k", power, 2), !asks);
    EXPECT_TRUE(Validate("TxPower_k6k", power, 2));
    EXPECT_THAT(Boxes(), testing::Each(kDedicatedOff));
    EXPECT_EQ(Boxes().size(), asks ? 2U : 0U);
  }
  AlwaysAnswer(Button::Cancel);
  EXPECT_TRUE(Validate("TxPower_k6k", 0, 2));  // only No refuses
}
}  // namespace
