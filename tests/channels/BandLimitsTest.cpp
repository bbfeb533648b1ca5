#include "channels/modBandLimits.h"

#include "common/modProjectGlobals.h"
#include "platform/Error.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using namespace modBandLimits;

constexpr const char* kUnsupported =
    "KD4410: GetComboBoxPositionByBandType\r\nThe selected Band is not supported";

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
      {-420.096, 5, true},    {0, 0, false},         {0, 5, false},
  };
  for (const auto& [megahertz, position, isBirdie] : cases) {
    EXPECT_EQ(IsBirdieChannel(megahertz, position), isBirdie) << megahertz << " in band " << position;
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
  for (const auto& [position, type] : {std::pair{"0", "0"}, {"5", "5"}, {"8", "8"}, {"9", "10"}}) {
    provider.Set("Band_k6k", 1, position);
    EXPECT_TRUE(FromUI("34.Band_k6k", 3));  // the record in hand does not count
    EXPECT_EQ(Text("34.Band"), type);
    provider.Set("Band_k6k", 1, -1);
    EXPECT_TRUE(ToUI("34.Band_k6k", 3));
    EXPECT_EQ(Text("Band_k6k"), position);
  }
}

TEST_F(BandField, AnUnknownNumberEndsTheApplicationAndShowsTheDefaultBand) {
  ExpectTermination();
  provider.Set("34.Band", 1, 9);  // there is none between 8 and 10
  EXPECT_TRUE(ToUI("34.Band_k6k"));
  EXPECT_EQ(Text("Band_k6k"), "5");
  EXPECT_THAT(ServiceBoxes(), testing::ElementsAre(Box(16, "Programming Application", kUnsupported)));
  provider.Set("Band_k6k", 1, 12);
  FromUI("34.Band_k6k");
  EXPECT_EQ(Text("34.Band"), "9") << "an unknown position leaves what is stored";
  EXPECT_GE(Terminations(), 2);
}
}  // namespace
