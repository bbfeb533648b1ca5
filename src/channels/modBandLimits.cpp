#include "channels/modBandLimits.h"

#include <algorithm>
#include <cmath>

#include "common/Procedure.h"
#include "common/modCommonGlobals.h"
#include "platform/Conversions.h"

namespace modBandLimits {
namespace {
constexpr double kMHz = 1'000'000;
constexpr double kBirdiePpm = 75;
constexpr std::int32_t kUnsupportedBand = ErrorNumber::kObjectError + 1026;
constexpr std::string_view kSteps = "6250|5000|3125|2500";

/// Edges and tolerances in MHz.
constexpr SubBand MHz(double lower, double upper, double tolerance) {
  return {lower * kMHz, upper * kMHz, tolerance * kMHz, tolerance * kMHz};
}

// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
constexpr SubBand kA4[] = {MHz(66, 88, 5)};
constexpr SubBand kB1[] = {MHz(136, 174, 10)};
constexpr SubBand kC0[] = {MHz(174, 225, 10)};
constexpr SubBand kD1[] = {MHz(216, 266, 10)};
constexpr SubBand kG2[] = {MHz(350, 400, 10)};
constexpr SubBand kH5[] = {MHz(400, 470, 10)};
constexpr SubBand kH6[] = {MHz(450, 530, 10)};
constexpr SubBand kH7[] = {MHz(450, 520, 10)};
constexpr SubBand kK5Rx[] = {MHz(762, 776, 1), MHz(850, 870, 1)};
constexpr SubBand kK5Tx[] = {MHz(762, 776, 1), MHz(792, 825, 1), MHz(850, 870, 1)};
constexpr SubBand kL3Rx[] = {MHz(935, 941, 1)};
constexpr SubBand kL3Tx[] = {MHz(896, 941, 1)};

/// The public 700 MHz low-power itinerant channels 9 to 12, 959 and 960 and their mobile pairs, in Hz.
constexpr struct {
  std::int32_t lower, upper;
} kItinerantK5[] = {
    {769'050'000, 769'075'000},
    {774'987'500, 775'000'000},
    {799'050'000, 799'075'000},
    {804'987'500, 805'000'000},
};

using Constants = std::array<std::int32_t, 12>;
// clang-format off
constexpr Constants kTuningA4 = {13000000, 25000, 21400029, 32,  459, 139, 91804, 39946240, 1200,  4500, 17000, 0};
constexpr Constants kTuningB1 = {13000000, 25000, 21400029, 32,  459, 139, 91084, 39946240,  563, 15000,  4900, 1};
constexpr Constants kTuningC0 = {13000000, 25000, 21400029, 32,  459, 139, 91084, 39946240,  450, 15000,  4900, 1};
constexpr Constants kTuningD1 = {13000000, 25000, 21400029, 32,  459, 139, 91084, 39946240,  375, 15000,  4900, 1};
constexpr Constants kTuningG2 = {13000000, 25000, 45100134, 32, 2286, 329, 91084, 39946240,  250, 15000,  4900, 1};
constexpr Constants kTuningH  = {13000000, 25000, 45100134, 32, 2286, 329, 91084, 39946240,  170, 15000,  4900, 1};
constexpr Constants kTuningKL = {13000000, 25000, 45100134, 32, 2286, 329,     0,        0,    0,     0,     0, 1};

/// By position in the band list. No band has the number 9.
constexpr BandLimits kBands[kBandCount] = {
    // type  upper     lower       tuning     description         steps   clock A  clock B  Rx   Tx   sub-bands
    { 0,  88'000'000,  66'000'000, kTuningA4, "A4 (66-88 MHz)",   kSteps, 0.256, 0.048,  77,  82, kA4,   kA4},
    { 1, 174'000'000, 136'000'000, kTuningB1, "B1 (136-174 MHz)", kSteps, 0.256, 0.048, 150, 155, kB1,   kB1},
    { 2, 225'000'000, 174'000'000, kTuningC0, "C0 (174-225 MHz)", kSteps, 0.256, 0.256, 194, 199, kC0,   kC0},
    { 3, 266'000'000, 216'000'000, kTuningD1, "D1 (216-266 MHz)", kSteps, 0.256, 0.256, 236, 241, kD1,   kD1},
    { 4, 400'000'000, 350'000'000, kTuningG2, "G2 (350-400 MHz)", kSteps, 0.256, 0.256, 363, 368, kG2,   kG2},
    { 5, 470'000'000, 400'000'000, kTuningH,  "H5 (400-470 MHz)", kSteps, 0.256, 0.256, 430, 435, kH5,   kH5},
    { 6, 530'000'000, 450'000'000, kTuningH,  "H6 (450-530 MHz)", kSteps, 0.256, 0.256, 485, 490, kH6,   kH6},
    { 7, 520'000'000, 450'000'000, kTuningH,  "H7 (450-520 MHz)", kSteps, 0.256, 0.256, 480, 485, kH7,   kH7},
    { 8, 870'000'000, 762'000'000, kTuningKL, "K5 (762-870 MHz)", kSteps, 0.256, 0.256, 769, 800, kK5Rx, kK5Tx},
    {10, 941'000'000, 896'000'000, kTuningKL, "L3 (896-941 MHz)", kSteps, 0.256, 0.256, 935, 896, kL3Rx, kL3Tx},
};
// clang-format on

constexpr std::int32_t kReservedPositions[] = {10, 11};
constexpr BandLimits kReserved{};

constexpr bool EdgesLieWithinLimits(const BandLimits& band) {
  const auto fits = [&](const SubBand& range) {
    return band.LowerLimit <= range.Lower && range.Lower < range.Upper && range.Upper <= band.UpperLimit;
  };
  return std::ranges::all_of(band.RxSubBands, fits) && std::ranges::all_of(band.TxSubBands, fits);
}
static_assert(std::ranges::all_of(kBands, EdgesLieWithinLimits));

/// How far the nearest harmonic of the clock lies from the frequency, in parts per million.
double DeviationPpm(double frequencyMHz, double clockMHz) {
  const double harmonic = modCommonGlobals::RoundHalfAway(frequencyMHz / clockMHz, 0) * clockMHz;
  return std::abs((harmonic - frequencyMHz) / frequencyMHz * 1'000'000);
}
}  // namespace

const BandLimits& GetBandLimitsByComboBoxPosition(std::int32_t position) {
  if (position >= 0 && position < kBandCount) return kBands[position];
  if (std::ranges::find(kReservedPositions, position) != std::end(kReservedPositions)) return kReserved;
  RaiseSubscript("GetBandLimitsByComboBoxPosition");
}

std::int32_t GetComboBoxPositionByBandType(std::int32_t bandType) {
  return Procedure("GetComboBoxPositionByBandType", kPositionH5, [&] {
    const auto found = std::ranges::find(kBands, bandType, &BandLimits::BandType);
    if (found == std::end(kBands)) {
      throw Error(kUnsupportedBand, "GetComboBoxPositionByBandType", "The selected Band is not supported");
    }
    return static_cast<std::int32_t>(found - std::begin(kBands));
  });
}

bool IsBirdieChannel(double frequencyMHz, std::int32_t position) {
  return Procedure("IsBirdieChannel", false, [&] {
    if (frequencyMHz == 0) return false;
    const BandLimits& band = GetBandLimitsByComboBoxPosition(position);
    return DeviationPpm(frequencyMHz, band.BirdieClockA) < kBirdiePpm ||
           DeviationPpm(frequencyMHz, band.BirdieClockB) < kBirdiePpm;
  });
}

bool IsItinerant(std::int32_t frequencyHertz, std::int32_t position) {
  return position == kPositionK5 && std::ranges::any_of(kItinerantK5, [&](const auto& range) {
           return range.lower <= frequencyHertz && frequencyHertz <= range.upper;
         });
}

void GetBand(const ProviderRef& provider, std::string_view fieldId, RecordNr) {
  Procedure("GetBand", [&] {
    const std::int32_t bandType = CLng(provider.Field("34.Band").Value(1));
    provider.Field(fieldId).SetValue(1, GetComboBoxPositionByBandType(bandType));
  });
}

void SetBand(const ProviderRef& provider, std::string_view fieldId, RecordNr) {
  Procedure("SetBand", [&] {
    const std::int32_t position = CLng(provider.Field(fieldId).Value(1));
    provider.Field("34.Band").SetValue(1, GetBandLimitsByComboBoxPosition(position).BandType);
  });
}
}  // namespace modBandLimits
