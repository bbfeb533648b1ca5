#include "channels/modBandLimits.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kQuestion = QuestionBox(
    "You have one or more channels with frequencies falling outside the range defined by the new band.  If "
    "you "
    "proceed these will be set to 0.  Do you wish to proceed?");

class BandChange : public ChannelFixture {
 protected:
  void GiveFrequencies(std::vector<Variant> tx, std::vector<Variant> rx) {
    provider.Fill("TxFreq_k6k", std::move(tx));
    provider.Fill("RxFreq_k6k", std::move(rx));
  }
};

TEST_F(BandChange, JudgesWholeMegahertzHalvesToTheEvenNeighbour) {
  const struct {
    std::string_view frequency;
    bool isInside;  // 136 to 174 MHz
  } cases[] = {
      {"174.400000", true}, {"174.500000", true},  {"174.600000", false}, {"175.500000", false},
      {"135.500000", true}, {"135.400000", false}, {"136.000000", true},  {"000.000000", false},
  };
  for (const auto& [frequency, isInside] : cases) {
    for (const std::string_view edited : {"TxFreq_k6k", "RxFreq_k6k"}) {
      SCOPED_TRACE(std::string(edited).append(" ").append(frequency));
      messenger.Clear();
      GiveFrequencies({"150"}, {"150"});
      provider.Set(edited, 1, frequency);
      if (!isInside) messenger.Play({Button::Yes});
      EXPECT_TRUE(Validate("Band_k6k", 1));
      EXPECT_EQ(Boxes().size(), isInside ? 0U : 1U);
      EXPECT_EQ(Text(edited), isInside ? frequency : "0");
    }
  }
}

TEST_F(BandChange, AsksOnceAndClearsEachSideByItself) {
  GiveFrequencies({"430", "0", "100", "400"}, {"150", "430", "100", "470"});
  messenger.Play({Button::Yes});
  EXPECT_TRUE(Validate("Band_k6k", 5));
  EXPECT_THAT(Boxes(), ElementsAre(kQuestion));
  EXPECT_THAT(Column("TxFreq_k6k"), ElementsAre("430", "0", "0", "400"));
  EXPECT_THAT(Column("RxFreq_k6k"), ElementsAre("0", "430", "0", "470"));
  EXPECT_TRUE(std::holds_alternative<std::int32_t>(provider.Get("TxFreq_k6k", 3)));
}

TEST_F(BandChange, NothingHappensUnlessTheUserSaysYes) {
  const auto expectNothing = [&] {
    EXPECT_THAT(Column("TxFreq_k6k"), ElementsAre("430", "150"));
    EXPECT_EQ(Text("NoiseBlanker_k6k", 1), "1");
    EXPECT_EQ(Text("RFCompliance"), "1");
    EXPECT_EQ(Text("34.Band"), "8");
  };
  GiveFrequencies({"430", "150"}, {"430", "150"});
  provider.Set("NoiseBlanker_k6k", 1, 1);
  provider.Set("RFCompliance", 1, 1);
  provider.Set("34.Band", 1, 8);
  messenger.Play({Button::No});
  StartTrail();
  EXPECT_FALSE(Validate("Band_k6k", 5));
  EXPECT_THAT(Trail(), ElementsAre("Imessenger.ShowMessage"));
  expectNothing();
  AlwaysAnswer(Button::Cancel);
  EXPECT_FALSE(Validate("Band_k6k", 5));
  expectNothing();
}

TEST_F(BandChange, ABaseStationOfOneDirectionTakesTheBandsDefault) {
  const struct {
    std::string_view radio;
    std::int32_t position;
    double tx, rx;
  } cases[] = {
      {"KE2210 Tx", 5, 435, 0}, {"KE2210 Rx", 5, 0, 430}, {"KE2210 Tx", 9, 896, 0},
      {"KE2210 Rx", 9, 0, 935}, {"KD4410", 5, 0, 0},      {"KE2210", 5, 0, 0},
  };
  for (const auto& [radio, position, tx, rx] : cases) {
    SCOPED_TRACE(radio);
    GiveFrequencies({"100"}, {"100"});
    provider.Set("0.RadioTier", 1, radio);
    messenger.Play({Button::Yes});
    EXPECT_TRUE(Validate("Band_k6k", position));
    for (const auto& [name, wanted] : {std::pair{"TxFreq_k6k", tx}, {"RxFreq_k6k", rx}}) {
      const Variant written = provider.Get(name);
      EXPECT_EQ(CDbl(written), wanted) << name;
      EXPECT_EQ(std::holds_alternative<double>(written), wanted != 0) << name;
    }
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
    const std::string left = position <= 2 ? "1" : "0";
    EXPECT_THAT(Column("NoiseBlanker_k6k"), ElementsAre(left, left));
    EXPECT_EQ(messenger.Refreshed().size(), position <= 2 ? 0U : 1U);
    EXPECT_EQ(std::get<std::int32_t>(provider.Get("34.Band")), band.BandType);
  }
}

TEST_F(BandChange, ComplianceIsForTheK5BandAlone) {
  const struct {
    std::int32_t position;
    Variant ticked;
    std::string_view left, control;
    bool isRefreshed;
  } cases[] = {
      {8, 1, "1", "+RFCompliance", false},     {0, 1, "0", "-RFCompliance", true},
      {0, true, "0", "-RFCompliance", true},   {0, 0, "0", "-RFCompliance", false},
      {0, "no", "no", "-RFCompliance", false},
  };
  for (const auto& [position, ticked, left, control, isRefreshed] : cases) {
    provider.Set("RFCompliance", 1, ticked);
    messenger.Clear();
    EXPECT_TRUE(Validate("Band_k6k", position));
    EXPECT_EQ(Text("RFCompliance"), left);
    EXPECT_THAT(Switched(), ElementsAre(control));
    EXPECT_EQ(messenger.Refreshed().size(), isRefreshed ? 1U : 0U);
  }
}

TEST_F(BandChange, WritesFirstThenTheFormsAreRefreshedInTheOrderOfTheWrites) {
  GiveFrequencies({"430", "100"}, {"100", "100"});
  provider.Set("RFCompliance", 1, 1);
  messenger.Play({Button::Yes});
  StartTrail();
  EXPECT_TRUE(Validate("Band_k6k", 5));
  EXPECT_THAT(Trail(),
              ElementsAre("Imessenger.ShowMessage", "Ifield.SetValue 5.ChannelRxFreqUI[1]",
                          "Ifield.SetValue 5.ChannelTxFreqUI[2]", "Ifield.SetValue 5.ChannelRxFreqUI[2]",
                          "Ifield.SetValue 5.NoiseBlanker_k6k[1]", "Ifield.SetValue 5.NoiseBlanker_k6k[2]",
                          "Ifield.SetValue 34.RFCompliance[1]", "Imessenger.SetFieldEnabled RFCompliance",
                          "Ifield.SetValue 34.Band[1]", "Imessenger.RefreshField RxFreq_k6k",
                          "Imessenger.RefreshField TxFreq_k6k", "Imessenger.RefreshField NoiseBlanker_k6k",
                          "Imessenger.RefreshField RFCompliance"));
}

TEST_F(BandChange, AFaultLeavesTheStoredBand) {
  ExpectTermination();
  provider.Set("34.Band", 1, 4);
  GiveFrequencies({"430", ""}, {"430", "430"});
  Validate("Band_k6k", 5);
  EXPECT_EQ(Text("34.Band"), "4");
  EXPECT_EQ(Terminations(), 1);
  Validate("Band_k6k", 12);
  EXPECT_EQ(Text("34.Band"), "4");
  EXPECT_THAT(Boxes(), IsEmpty());
}
}  // namespace
