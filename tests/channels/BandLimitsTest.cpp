#include "channels/modBandLimits.h"

#include "platform/Error.h"
#include "tests/channels/ChannelFixture.h"
#include "tier/modProjectGlobals.h"

namespace {
using namespace modBandLimits;
using testing::ElementsAre;

constexpr std::int32_t kUnsupported = -2147220478;
constexpr const char* kUnsupportedText =
    "KD4410: GetComboBoxPositionByBandType\r\nThe selected Band is not supported";

TEST(BandLimits, NumberNineIsMissingAndTenStandsAtPositionNine) {
  for (std::int32_t type = 0; type <= 8; ++type) EXPECT_EQ(GetComboBoxPositionByBandType(type), type);
  EXPECT_EQ(GetComboBoxPositionByBandType(10), 9);
  for (const std::int32_t unknown : {-1, 9, 11}) {
    try {
      GetComboBoxPositionByBandType(unknown);
      ADD_FAILURE() << unknown << " is a band";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), kUnsupported);
      EXPECT_EQ(error.Reason().source, "GetComboBoxPositionByBandType");
      EXPECT_EQ(error.Reason().description, kUnsupportedText);
    }
  }
}

TEST(BandLimits, PositionsTenAndElevenAreEmptyAndOthersDoNotExist) {
  for (const std::int32_t reserved : {10, 11}) {
    const BandLimits& band = GetBandLimitsByComboBoxPosition(reserved);
    EXPECT_EQ(band.BandType, 0);
    EXPECT_EQ(band.UpperLimit, 0);
    EXPECT_EQ(band.Description, "");
    EXPECT_EQ(band.Steps, "");
    EXPECT_TRUE(band.RxSubBands.empty() && band.TxSubBands.empty());
  }
  for (const std::int32_t unknown : {-1, 12}) {
    EXPECT_THROW(GetBandLimitsByComboBoxPosition(unknown), Error) << unknown;
  }
}

TEST(BandLimits, BandsThatDifferFromTheirNeighbours) {
  const struct {
    std::int32_t position, lowerMHz, upperMHz;
    double clockB, rxMHz, txMHz, toleranceMHz;
    std::size_t rxRanges, txRanges;
  } bands[] = {
      {0, 66, 88, 0.048, 77, 82, 5, 1, 1},      {1, 136, 174, 0.048, 150, 155, 10, 1, 1},
      {2, 174, 225, 0.256, 194, 199, 10, 1, 1}, {6, 450, 530, 0.256, 485, 490, 10, 1, 1},
      {7, 450, 520, 0.256, 480, 485, 10, 1, 1}, {8, 762, 870, 0.256, 769, 800, 1, 2, 3},
      {9, 896, 941, 0.256, 935, 896, 1, 1, 1},
  };
  for (const auto& wanted : bands) {
    const BandLimits& band = GetBandLimitsByComboBoxPosition(wanted.position);
    SCOPED_TRACE(band.Description);
    EXPECT_EQ(band.LowerLimit, wanted.lowerMHz * 1'000'000);
    EXPECT_EQ(band.UpperLimit, wanted.upperMHz * 1'000'000);
    EXPECT_EQ(band.BirdieClockB, wanted.clockB);
    EXPECT_EQ(band.DefaultRxFreq, wanted.rxMHz);
    EXPECT_EQ(band.DefaultTxFreq, wanted.txMHz);
    EXPECT_EQ(band.RxSubBands.size(), wanted.rxRanges);
    EXPECT_EQ(band.TxSubBands.size(), wanted.txRanges);
    EXPECT_EQ(band.RxSubBands.front().LowerTolerance, wanted.toleranceMHz * 1e6);
  }
}

TEST(BandLimits, BirdiesLieWithin75PartsPerMillionOfAHarmonic) {
  const struct {
    double megahertz;
    std::int32_t position;
    bool isBirdie;
  } cases[] = {
      {420.096, 5, true},  // 1641 times 0.256
      {420.064494, 5, false}, {420.064496, 5, true}, {420.127509, 5, true}, {420.12751, 5, false},
      {420.224, 5, false},  // half way between two harmonics
      {77.04, 0, true},     // 1605 times 0.048, no harmonic of the first clock
      {77.04, 1, true},       {77.04, 2, false},     {77.034222, 0, false}, {77.034223, 0, true},
      {77.045778, 0, true},   {77.045779, 0, false}, {76.8, 2, true},  // 300 times 0.256
      {-420.096, 5, true},
  };
  for (const auto& [megahertz, position, isBirdie] : cases) {
    EXPECT_EQ(IsBirdieChannel(megahertz, position), isBirdie) << megahertz << " in band " << position;
  }
  for (std::int32_t position = 0; position < kBandCount; ++position) {
    EXPECT_FALSE(IsBirdieChannel(0, position));
  }
}

TEST(BandLimits, EdgesOfTheReservedRangesBelongToThem) {
  using namespace modProjectGlobals;
  const struct {
    std::int32_t hertz;
    std::string_view maritime, distress;
  } cases[] = {
      // clang-format off
      {156'424'999, "", ""}, {156'425'000, kMaritimeNotice, ""}, {157'175'000, kMaritimeNotice, ""},
      {157'175'001, "", ""}, {242'994'999, "", ""}, {242'995'000, "", kDistressError},
      {243'005'001, "", ""}, {243'005'000, "", kDistressError}, {405'999'999, "", ""},
      {406'100'001, "", ""}, {406'000'000, "", kDistressError}, {406'100'000, "", kDistressError},
      // clang-format on
  };
  for (const auto& [hertz, maritime, distress] : cases) {
    EXPECT_EQ(GetMaritimeFrequencyWarning(hertz), maritime) << hertz;
    EXPECT_EQ(GetDistressBeaconFrequencyError(hertz), distress) << hertz;
  }
}

class BandField : public ChannelFixture {};

TEST_F(BandField, KeepsTheStoredNumberAndShowsThePositionInTheFirstRecord) {
  for (const auto& [position, type] : {std::pair{0, 0}, {5, 5}, {8, 8}, {9, 10}}) {
    provider.Set("Band_k6k", 1, std::to_string(position));
    EXPECT_TRUE(FromUI("34.Band_k6k", 3));  // the record in hand does not count
    EXPECT_EQ(std::get<std::int32_t>(provider.Get("34.Band")), type);
    provider.Set("Band_k6k", 1, -1);
    EXPECT_TRUE(ToUI("34.Band_k6k", 3));
    EXPECT_EQ(std::get<std::int32_t>(provider.Get("Band_k6k")), position);
  }
}

TEST_F(BandField, AnUnknownStoredNumberEndsTheApplicationAndShowsTheDefaultBand) {
  ExpectTermination();
  provider.Set("34.Band", 1, 9);
  provider.Set("Band_k6k", 1, 3);
  EXPECT_TRUE(ToUI("34.Band_k6k"));
  EXPECT_EQ(Text("Band_k6k"), "5");
  EXPECT_THAT(ServiceBoxes(), ElementsAre(Box(16, "Programming Application", kUnsupportedText)));
  EXPECT_EQ(Terminations(), 1);
}

TEST_F(BandField, AnUnknownPositionLeavesTheStoredNumber) {
  ExpectTermination();
  provider.Set("34.Band", 1, 4);
  provider.Set("Band_k6k", 1, 12);
  FromUI("34.Band_k6k");
  EXPECT_EQ(Text("34.Band"), "4");
  EXPECT_GE(Terminations(), 1);
}
}  // namespace
