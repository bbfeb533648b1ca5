#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// The tone sets that the radios know: 0 to 8 are standard sets, 9 holds the tones that a user may choose
/// from.
namespace ToneSets {
inline constexpr std::size_t kToneCodes = 16;  ///< 0 to F
inline constexpr std::int32_t kStandardSets = 9;
inline constexpr std::int32_t kUserDefined = 9;
/// A mark in the radio: the set is what its frequencies are, and these are compared with none.
inline constexpr std::int32_t kUncompared = 10;

/// In hertz. A tone between the limits is taken for this one.
struct Tone {
  std::int32_t nominal, lowest, highest;
  std::int32_t increment = 0;  ///< of the radio's tone generator; in set 9 alone, and read by nobody
};

struct ToneSet {
  std::span<const Tone> tones;          ///< in ascending order
  std::span<const std::uint8_t> remap;  ///< element i is the place in `tones` of tone code i
  std::int32_t bandwidth;               ///< a code of the radio, 0 or 1
  std::int32_t mixingHertz;

  const Tone& OfCode(std::size_t code) const { return tones[remap[code]]; }
};

/// Null for a number outside 0 to 9.
const ToneSet* Find(std::int32_t number);
}  // namespace ToneSets
