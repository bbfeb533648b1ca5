#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class EmergencyRules : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 0});
    GiveChannels({11, 12});
    provider.Fill("EmCyclingRxTime", {1, 10});
    provider.Fill("EmCyclingTxTime", {2, 20});
    provider.Fill("EmCyclingNumber", {3, 4});
    provider.Fill("EmCyclingMaxTime", {"-", "-"});
  }
};

TEST_F(EmergencyRules, EndlessCyclingIsAskedAboutOnSelcallAndAdvisedOnElsewhere) {
  messenger.Play({kNo});
  EXPECT_FALSE(Validate("EmCyclingType", 1, 1));
  EXPECT_THAT(messenger.Texts(), ElementsAre(StartsWith("Setting the cycling type to Continuous")));
  EXPECT_THAT(messenger.EnabledStates(), IsEmpty());
  messenger.Clear();
  provider.Set("CurrentNetworkNr", 1, 2);
  EXPECT_TRUE(Validate("EmCyclingType", 1, 2));  // it has no emergency
  EXPECT_THAT(messenger.Texts(), IsEmpty());
  EXPECT_EQ(Switched(), "-EmCyclingNumber+EmCyclingRxTime+EmCyclingTxTime");
  provider.Set("EmergencyEnabled", 2, 1);
  EXPECT_TRUE(Validate("EmCyclingType", 1, 2));
  EXPECT_THAT(messenger.Texts(),
              ElementsAre(StartsWith("The current network does not use Selcall signalling")));
  EXPECT_TRUE(Validate("EmCyclingType", 2, 2));
  EXPECT_EQ(Column("EmCyclingMaxTime"), "- 120");
  EXPECT_TRUE(Validate("EmCyclingType", 0, 2));
  EXPECT_EQ(Column("EmCyclingMaxTime"), "- -");
}

TEST_F(EmergencyRules, OnlyANoKeepsCyclingFromGoingOnForEver) {
  CloseEveryBox();
  EXPECT_TRUE(Validate("EmCyclingType", 1, 1));
  provider.Set("TxPower_k6k", 2, 0);
  EXPECT_FALSE(Validate("EmChannel", "12", 1));  // here only a Yes counts
}

TEST_F(EmergencyRules, TheCyclingControlsFollowTheFirstNetwork) {
  provider.Fill("EmCyclingType", {0, 2});
  provider.Set("CurrentNetworkNr", 1, 2);
  EXPECT_TRUE(Validate("EmSignallingType", 1, 2));
  EXPECT_EQ(Switched(),
            "+EmCyclingType-EmCyclingNumber-EmCyclingRxTime-EmCyclingTxTime+EmCyclingANI+EmCyclingAlertTone"
            "+EmCyTxBeginToneFreq+EmCyTxEndToneFreq+EmCyTxBeginToneDuration+EmCyTxEndToneDuration");
  messenger.Clear();
  EXPECT_TRUE(Validate("EmSignallingType", 2, 2));
  EXPECT_EQ(Switched(),
            "-EmCyclingType-EmCyclingNumber-EmCyclingRxTime-EmCyclingTxTime-EmCyclingANI-EmCyclingAlertTone"
            "-EmCyTxBeginToneFreq-EmCyTxEndToneFreq-EmCyTxBeginToneDuration-EmCyTxEndToneDuration");
}

TEST_F(EmergencyRules, EmergencyANINeedsASequenceOfTheNetworksOwnSystem) {
  provider.Fill("80.MDC1200SignallingSystemID", {4, 9});
  const std::tuple<int, const char*, const char*> cases[] = {{1, "FreeFormSequence5", "Selcall"},
                                                             {2, "DTMFANISequence", "DTMF"},
                                                             {4, "MDC1200ANISequence", "MDC1200"}};
  provider.Set("NetworkSignallingID", 1, "9");
  for (const auto& [type, sequence, name] : cases) {
    messenger.Clear();
    provider.Set("SignallingType", 1, type);
    provider.Set(sequence, 1, "1");
    EXPECT_FALSE(Validate("EmCyclingANI", 1)) << name;
    EXPECT_THAT(messenger.Texts(),
                ElementsAre(StartsWith("You can not enable Emergency ANI for this " + std::string(name))));
    EXPECT_TRUE(Validate("EmCyclingANI", 0));  // turning it off needs nothing
    provider.Set(sequence, 2, "1");
    EXPECT_TRUE(Validate("EmCyclingANI", 1)) << name;
  }
  for (const int type : {0, 3, 7}) {
    provider.Set("SignallingType", 1, type);
    EXPECT_TRUE(Validate("EmCyclingANI", 1)) << type;
  }
  provider.Set("SignallingType", 1, 1);
  provider.Set("NetworkSignallingID", 1, "None");
  EXPECT_FALSE(Validate("EmCyclingANI", 1));
  provider.Set("CurrentNetworkNr", 1, 3);
  EXPECT_TRUE(Validate("EmCyclingANI", 1));  // there is no such network
}

TEST_F(EmergencyRules, ADedicatedChannelOfAnotherNetworkOrWithoutPowerNeedsConsent) {
  provider.Set("TxPower_k6k", 2, 0);
  provider.Set("5.ChannelNetworkIdUI", 2, 2);
  for (const char* harmless : {"None", "11", "99"}) EXPECT_TRUE(Validate("EmChannel", harmless, 1));
  EXPECT_THAT(messenger.Texts(), IsEmpty());
  messenger.Play({kYes, kNo});
  EXPECT_FALSE(Validate("EmChannel", "12", 1));
  messenger.Play({kYes, kYes});
  EXPECT_TRUE(Validate("EmChannel", 12, 1));
  EXPECT_THAT(messenger.Texts().back(), StartsWith("This Channel is on a different Network."));
}
}  // namespace
