#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

/// What the two formats of two-tone systems allow: their tones, and for how long each may sound.
/// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
namespace TwoTone {
inline constexpr std::int32_t kMOT = 0;
inline constexpr std::int32_t kCNE = 1;

/// In tenths of a hertz, both ends belong to it.
struct FrequencyRange {
  std::int32_t lowest, highest;
  constexpr bool Holds(std::int32_t tenths) const { return lowest <= tenths && tenths <= highest; }
};

/// In milliseconds.
struct PeriodLimits {
  std::int32_t minimum, maximum, standard;
  std::int32_t step;  ///< 0: the format has no such period
  std::optional<std::int32_t> forbidden = {};
};

inline constexpr std::size_t kPeriods = 8;

struct Format {
  std::span<const std::int32_t> tones;  ///< of the list, in tenths of a hertz; the first is no tone
  FrequencyRange custom;                ///< what a user may enter
  std::optional<FrequencyRange> excluded;
  std::int32_t mixingHertz;
  std::array<PeriodLimits, kPeriods> periods;  ///< as eDurationType counts them
};

// clang-format off
inline constexpr std::int32_t kMOTTones[] = {
        0,  2885,  2965,  3047,  3130,  3217,  3305,  3396,  3490,  3586,  3685,  3786,  3890,  3998,
     4108,  4221,  4337,  4457,  4579,  4705,  4835,  4968,  5105,  5246,  5390,  5539,  5691,  5848,
     6009,  6174,  6345,  6519,  6699,  6883,  7073,  7268,  7468,  7674,  7885,  8102,  8325,  8555,
     8790,  9032,  9281,  9537,  9799, 10069, 10347, 10632, 10924, 11225, 11534, 11852, 12178, 12514,
    12858, 13212, 13576, 13950, 14334, 14729, 15135, 15552, 15980, 16420, 16872, 17337, 17815, 18305,
    18810, 19302, 19890, 20438, 20945, 21556, 22122, 22717, 23346, 24010, 24682};
inline constexpr std::int32_t kCNETones[] = {
        0,  5175,  5325,  5475,  5625,  5775,  5925,  6075,  6225,  6375,  6525,  6675,  6825,  6975,
     7125,  7275,  7425,  7575,  7725,  7875,  8025,  8175,  8325,  8475,  8625,  8775,  8925,  9075,
     9225,  9375,  9525,  9675};

inline constexpr std::array<Format, 2> kFormats = {{
    {kMOTTones, {2885, 24682}, FrequencyRange{13975, 14315}, 1413, {{
        { 200,  1000,   500, 50},      // the first tone at least, and at most
        {1000, 12000,  5000, 50},
        {   0,   200,     0, 50, 50},  // the gap, which is 0 or more than one step
        {   0,  1000,   500, 50, 50},
        { 200,  4000,  2000, 50},      // the second tone
        {1000, 12000, 12000, 50},
        {1000,  8000,  7000, 50},      // the tone of a call to all
        {8000, 12000, 12000, 50}}}},
    {kCNETones, {0, 9675}, std::nullopt, 1100, {{
        { 200,  1000,   500, 50},
        {1000,  4000,  1500, 50},
        {   0,   200,     0, 50, 50},
        {   0,  1000,   500, 50, 50},
        { 200,  1000,   500, 50},
        {3000,  6000,  4000, 50},
        {   0,     0,     0,  0},
        {   0,     0,     0,  0}}}},
}};
// clang-format on

constexpr bool HasSoundTones(const Format& format) {
  const auto mayBeEntered = [&](std::int32_t tenths) {
    return format.custom.Holds(tenths) && !(format.excluded && format.excluded->Holds(tenths));
  };
  return format.tones.front() == 0 && std::ranges::is_sorted(format.tones, std::ranges::less_equal()) &&
         std::ranges::all_of(format.tones.subspan(1), mayBeEntered);
}
static_assert(std::ranges::all_of(kFormats, HasSoundTones));

constexpr bool IsSound(const PeriodLimits& limits) {
  const auto isWhole = [&](std::int32_t ms) { return limits.step == 0 ? ms == 0 : ms % limits.step == 0; };
  return limits.minimum <= limits.standard && limits.standard <= limits.maximum && isWhole(limits.minimum) &&
         isWhole(limits.maximum) && isWhole(limits.standard) && limits.forbidden != limits.standard;
}
static_assert(std::ranges::all_of(kFormats, [](const Format& format) {
  return std::ranges::all_of(format.periods, IsSound);
}));
}  // namespace TwoTone
