#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/FormWrites.h"
#include "signalling/TwoToneFormats.h"

/// Two-tone systems. The forms show hertz with one decimal and milliseconds; the radio holds tenths of a
/// hertz and counts of steps.
namespace modType99 {
enum class eDurationType : std::int32_t {
  MinFirstTone,
  MaxFirstTone,
  MinGap,
  MaxGap,
  MinSecondTone,
  MaxSecondTone,
  MinAllCallTone,
  MaxAllCallTone,
};
enum class eConstraint : std::int32_t { Minimum, Maximum, Default, Step, Forbidden };
inline constexpr std::int32_t kNothingForbidden = -1;

struct PeriodField {
  std::string_view id, uiid;
};
/// As eDurationType counts them: each shortest period stands before its longest.
inline constexpr std::array<PeriodField, TwoTone::kPeriods> kPeriodFields = {{
    {"37.T99MinFirstTonePeriod", "T99MinFirstTonePeriod_k6k"},
    {"37.T99MaxFirstTonePeriod", "T99MaxFirstTonePeriod_k6k"},
    {"37.T99MinGapPeriod", "T99MinGapPeriod_k6k"},
    {"37.T99MaxGapPeriod", "T99MaxGapPeriod_k6k"},
    {"37.T99MinSecondTonePeriod", "T99MinSecondTonePeriod_k6k"},
    {"37.T99MaxSecondTonePeriod", "T99MaxSecondTonePeriod_k6k"},
    {"37.T99MinAllCallTonePeriod", "T99MinAllCallTonePeriod_k6k"},
    {"37.T99MaxAllCallTonePeriod", "T99MaxAllCallTonePeriod_k6k"},
}};

struct ToneField {
  std::string_view id, uiid;
};
using ToneFields = std::array<ToneField, 4>;
/// Of the tones from the format's list, A to D, and of the tones of the user's own.
inline constexpr ToneFields kFrequencyFields = {{{"37.T99ToneA", "T99ToneA_k6k"},
                                                 {"37.T99ToneB", "T99ToneB_k6k"},
                                                 {"37.T99ToneC", "T99ToneC_k6k"},
                                                 {"37.T99ToneD", "T99ToneD_k6k"}}};
inline constexpr ToneFields kCustomFrequencyFields = {{{"37.T99CustomToneA", "T99CustomToneA_k6k"},
                                                       {"37.T99CustomToneB", "T99CustomToneB_k6k"},
                                                       {"37.T99CustomToneC", "T99CustomToneC_k6k"},
                                                       {"37.T99CustomToneD", "T99CustomToneD_k6k"}}};

// What a format allows, frequencies in tenths of a hertz. Each raises 5 for a number that is no format.
std::int32_t GetCustomFrequencyPrecision(std::int32_t format);
std::int32_t GetDefaultFrequency(std::int32_t format);
std::int32_t GetLowerBoundOffset(std::int32_t format);
std::int32_t GetUpperBoundOffset(std::int32_t format);
std::int32_t GetMixingFrequency(std::int32_t format);  ///< in hertz
std::int32_t GetFrequencyMin(std::int32_t format);
std::int32_t GetFrequencyMax(std::int32_t format);
/// What a custom tone may not be; nothing for a format that excludes none.
std::optional<TwoTone::FrequencyRange> GetFrequencyRange(std::int32_t format);
/// The tones on offer as the forms show them; the first is "0", no tone.
std::vector<std::string> GetToneFrequencyList(std::int32_t format);
/// In milliseconds. Raises 5 also for a period or a constraint that is none.
std::int32_t GetToneDurationConstraint(std::int32_t format, eDurationType durationType,
                                       eConstraint constraint);

/// A frequency as the forms show it, with the user's decimal symbol; "0" for none.
std::string HertzText(std::int32_t tenths);
/// The frequency of a form's text; 0 for an empty one. Raises 13 for a text that is no number.
std::int32_t TenthsOf(const Variant& hertz);

/// Shows the radio's tones in the fields of the active set, and no tone in those of the other. A tone that
/// the format does not allow, that is missing or no number is none.
void GetToneFrequencies(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Writes the tones of the active set with the bounds and the order in which the decoder looks for them.
void SetToneFrequencies(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// All eight periods of a record, in place: each call moves them, so there is to be one for each way. A
/// format without calls to all leaves the periods of these as they are.
void GetGenerateToneDurations(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetGenerateToneDurations(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// Gives a system no tones, neither of the list nor its own, and the periods of the format.
void SetDefaultValues(FormWrites& writes, const ProviderRef& provider, std::int32_t format, RecordNr record);
}  // namespace modType99
