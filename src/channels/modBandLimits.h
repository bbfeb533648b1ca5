#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "common/Handles.h"

inline constexpr double kHertzPerMHz = 1'000'000;

/// A range in which a channel may receive or transmit, in Hz. The tolerances widen it into a range that
/// is not refused outright but needs the user's consent.
struct SubBand {
  double Lower;
  double Upper;
  double LowerTolerance;
  double UpperTolerance;
};

/// One frequency band of the radio.
struct BandLimits {
  std::int32_t BandType;                         ///< the number stored in 34.Band
  std::int32_t UpperLimit;                       ///< Hz
  std::int32_t LowerLimit;                       ///< Hz
  std::array<std::int32_t, 12> TuningConstants;  ///< carried by the record; nothing reads them
  std::string_view Description;  ///< the text of the band list; its first two characters are the code
  std::string_view Steps;        ///< channel steps in Hz, joined by vertical bars
  double BirdieClockA;           ///< MHz
  double BirdieClockB;           ///< MHz
  /// MHz; what a channel of a receive-only or transmit-only base station takes when a change of band
  /// throws its frequency out.
  double DefaultRxFreq;
  double DefaultTxFreq;
  std::span<const SubBand> RxSubBands;
  std::span<const SubBand> TxSubBands;
};

namespace modBandLimits {
inline constexpr std::int32_t kBandCount = 10;
/// The positions in the band list of the bands that rules name.
inline constexpr std::int32_t kPositionH5 = 5;
inline constexpr std::int32_t kPositionK5 = 8;

/// The band at a position of the band list, 0 to 9. Positions 10 and 11 are reserved and hold an empty
/// record; any other raises 9. The only reader of the table.
const BandLimits& GetBandLimitsByComboBoxPosition(std::int32_t position);

/// The position of the band with the stored number. An unknown number raises -2147220478; where the
/// application is ended for it, the result is that of H5.
std::int32_t GetComboBoxPositionByBandType(std::int32_t bandType);

/// Whether a harmonic of one of the band's clocks lies within 75 parts per million of the frequency.
bool IsBirdieChannel(double frequencyMHz, std::int32_t position);

/// Whether the frequency lies in one of the band's itinerant ranges, ends included, where a transmitter that
/// moves about is limited to very low power. Only the K5 band has any.
bool IsItinerant(std::int32_t frequencyHertz, std::int32_t position);

/// The band of the radio: the stored number against the position that the form shows. Both always work
/// on record 1.
void GetBand(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetBand(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modBandLimits
