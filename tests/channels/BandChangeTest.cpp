#include "channels/modBandLimits.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;

const std::string kQuestion = QuestionBox(
    "You have one or more channels with frequencies falling outside the range defined by the new band.  If "
    "you proceed these will be set to 0.  Do you wish to proceed?");

class BandChange : public ChannelFixture {
 protected:
  void GiveFrequencies(std::vector<Variant> tx, std::vector<Variant> rx) {
    provider.Fill("TxFreq_k6k", std::move(tx));
    provider.Fill("RxFreq_k6k", std::move(rx));
  }
};

TEST_F(BandChange, JudgesWholeMegahertzHalvesToTheEvenNeighbour) {
  const std::pair<std::string_view, bool> cases[] = {
      {"174.400000", true}, {"174.500000", true},  {"174.600000", false}, {"175.500000", false},
      {"135.500000", true}, {"135.400000", false}, {"136.000000", true},  {"000.000000", false}};
  for (const auto& [frequency, isInside] : cases) {  // 136 to 174 MHz
    for (const std::string_view edited : {"TxFreq_k6k", "RxFreq_k6k"}) {
      messenger.Clear();
      GiveFrequencies({"150"}, {"150"});
      provider.Set(edited, 1, frequency);
      if (!isInside) messenger.Play({Button::Yes});
      EXPECT_TRUE(Validate("Band_k6k", 1));
      EXPECT_EQ(Boxes().size(), isInside ? 0U : 1U) << frequency;
      EXPECT_EQ(Text(edited), isInside ? frequency : "0");
    }
  }
}

TEST_F(BandChange, AsksOnceClearsEachSideByItselfAndRefreshesInTheOrderOfTheWrites) {
  GiveFrequencies({"430", "100"}, {"100", "470"});
  provider.Set("RFCompliance", 1, 1);
  messenger.Play({Button::Yes});
  StartTrail();
  EXPECT_TRUE(Validate("Band_k6k", 5));
  EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
  EXPECT_EQ(Column("TxFreq_k6k"), "430 0");
  EXPECT_EQ(Column("RxFreq_k6k"), "0 470");
  EXPECT_EQ(Trail(),
            "box 5.ChannelRxFreqUI[1] 5.ChannelTxFreqUI[2] 5.NoiseBlanker_k6k[1] 5.NoiseBlanker_k6k[2] "
            "34.RFCompliance[1] 34.Band[1] 34.Band_k6k[1] refresh:RxFreq_k6k refresh:TxFreq_k6k "
            "refresh:NoiseBlanker_k6k refresh:RFCompliance enable:RFCompliance");
}

TEST_F(BandChange, NothingHappensUnlessTheUserSaysYes) {
  GiveFrequencies({"430", "150"}, {"430", "150"});
  messenger.Play({Button::No});
  StartTrail();
  EXPECT_FALSE(Validate("Band_k6k", 5));
  EXPECT_EQ(Trail(), "box");
  CloseEveryBox();
  EXPECT_FALSE(Validate("Band_k6k", 5));
  EXPECT_EQ(Column("TxFreq_k6k"), "430 150");
}

TEST_F(BandChange, ABaseStationOfOneDirectionTakesTheBandsDefault) {
  const std::tuple<const char*, int, double, double> cases[] = {
      {"KE2210 Tx", 5, 435, 0}, {"KE2210 Rx", 5, 0, 430}, {"KE2210 Tx", 9, 896, 0},
      {"KE2210 Rx", 9, 0, 935}, {"KD4410", 5, 0, 0},      {"KE2210", 5, 0, 0}};
  for (const auto& [radio, position, tx, rx] : cases) {
    GiveFrequencies({"100"}, {"100"});
    provider.Set("0.RadioTier", 1, radio);
    messenger.Play({Button::Yes});
    EXPECT_TRUE(Validate("Band_k6k", position));
    EXPECT_EQ(CDbl(provider.Get("TxFreq_k6k")), tx) << radio;
    EXPECT_EQ(CDbl(provider.Get("RxFreq_k6k")), rx) << radio;
  }
}

TEST_F(BandChange, OnlyTheThreeLowestBandsKeepTheNoiseBlanker) {
  for (std::int32_t position = 0; position <= 9; ++position) {
    SCOPED_TRACE(position);
    const BandLimits& band = modBandLimits::GetBandLimitsByComboBoxPosition(position);
    const std::string inside = std::to_string(band.UpperLimit / 1'000'000);
    GiveFrequencies({inside, inside}, {inside, inside});
    provider.Fill("NoiseBlanker_k6k", {1, 1});
    messenger.Clear();
    EXPECT_TRUE(Validate("Band_k6k", position));
    EXPECT_EQ(Column("NoiseBlanker_k6k"), position <= 2 ? "1 1" : "0 0");
    EXPECT_EQ(Refreshed(), position <= 2 ? "" : "NoiseBlanker_k6k");
    EXPECT_EQ(Text("34.Band"), std::to_string(position == 9 ? 10 : position));
  }
}

TEST_F(BandChange, ComplianceIsForTheK5BandAlone) {
  const std::tuple<int, Variant, std::string_view, std::string_view> cases[] = {
      {8, 1, "1", ""}, {0, 1, "0", "RFCompliance"}, {0, true, "0", "RFCompliance"}, {0, 0, "0", ""}};
  for (const auto& [position, ticked, left, refreshed] : cases) {
    provider.Set("RFCompliance", 1, ticked);
    messenger.Clear();
    EXPECT_TRUE(Validate("Band_k6k", position));
    EXPECT_EQ(Text("RFCompliance"), left);
    EXPECT_EQ(Switched(), position == 8 ? "+RFCompliance" : "-RFCompliance");
    EXPECT_EQ(Refreshed(), refreshed);
  }
}

TEST_F(BandChange, AFaultLeavesTheStoredBand) {
  ExpectTermination();
  provider.Set("34.Band", 1, 4);
  GiveFrequencies({"430", ""}, {"430", "430"});
  Validate("Band_k6k", 5);
  EXPECT_EQ(Text("34.Band"), "4");
  EXPECT_EQ(Terminations(), 1);
}
}  // namespace
