#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;

/// Networks of the types MDC1200 and DTMF.
class MDC1200Records : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({4, 4, 2});
  }
};

TEST_F(MDC1200Records, ANewSystemHasTheLowestFreeNumber) {
  provider.Fill("MDC1200SignallingSystemID", {1, 3});
  Add("MDC1200", 80);
  EXPECT_EQ(Column("MDC1200SignallingSystemID") + "|" + Text("MDC1200RadioIDDerived", 3), "1 3 2|0000");
}

TEST_F(MDC1200Records, ASystemGoesWithItsSequencesUnlessANetworkUsesIt) {
  provider.Fill("MDC1200SignallingSystemID", {4, 9});
  provider.Fill("81.MDC1200NetworkPresetSeqSigSystemID", {4, 9, 4, 9});
  EXPECT_FALSE(Delete(1, "MDC1200"));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox(
                  "This MDC1200 System is being used on one or more Networks and can not be deleted")));
  EXPECT_TRUE(Delete(2, "MDC1200"));
  EXPECT_EQ(Column("81.MDC1200NetworkPresetSeqSigSystemID"), "4 4");
  EXPECT_EQ(provider.Count(80), 2) << "the system is the host's to delete";
}

TEST_F(MDC1200Records, AFirstNumberThatCountsTheSystemsIsLoweredAndItsNetworksFollow) {
  const struct {
    std::vector<Variant> numbers;
    RecordNr gone;
    const char *left, *networks;
  } cases[] = {
      {{3, 7, 8}, 2, "2 7 8", "2 5 3"},  // the third network is of DTMF
      {{3, 2, 8}, 3, "3 2 8", "3 5 3"},  // another one has that number
      {{3, 2, 8}, 2, "3 2 8", "3 5 3"},  // still has it
      {{4, 7, 8}, 2, "4 7 8", "3 5 3"}, {{1}, 1, "1", "3 5 3"},
  };
  for (const auto& one : cases) {
    provider.Fill("MDC1200SignallingSystemID", one.numbers);
    provider.Fill("21.NetworkSignallingID", {"3", "5", "3"});
    EXPECT_TRUE(Delete(one.gone, "MDC1200"));
    EXPECT_EQ(Column("MDC1200SignallingSystemID"), one.left);
    EXPECT_EQ(Column("21.NetworkSignallingID"), one.networks);
  }
}
}  // namespace
