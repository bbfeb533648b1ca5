#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/Handles.h"

class XArrayDBObject;

/// The tone set of a Selcall system between the radio and the forms. The radio holds frequencies in the order
/// of the tone codes, and beside them limits in ascending order with the code that each belongs to. Record n
/// of tables 31 and 48 belongs to record n of table 29.
namespace modToneSets {
/// The form field of the frequency of a tone code, and what the forms call it.
struct FrequencyField {
  std::string_view id, uiid;
};
/// In the order of the tone codes.
inline constexpr std::array<FrequencyField, 16> kFrequencyFields = {{
    {"48.DerivedCustomFrequencies0", "CustomFrequencies0"},
    {"48.DerivedCustomFrequencies1", "CustomFrequencies1"},
    {"48.DerivedCustomFrequencies2", "CustomFrequencies2"},
    {"48.DerivedCustomFrequencies3", "CustomFrequencies3"},
    {"48.DerivedCustomFrequencies4", "CustomFrequencies4"},
    {"48.DerivedCustomFrequencies5", "CustomFrequencies5"},
    {"48.DerivedCustomFrequencies6", "CustomFrequencies6"},
    {"48.DerivedCustomFrequencies7", "CustomFrequencies7"},
    {"48.DerivedCustomFrequencies8", "CustomFrequencies8"},
    {"48.DerivedCustomFrequencies9", "CustomFrequencies9"},
    {"48.DerivedCustomFrequenciesA", "CustomFrequenciesA"},
    {"48.DerivedCustomFrequenciesB", "CustomFrequenciesB"},
    {"48.DerivedCustomFrequenciesC", "CustomFrequenciesC"},
    {"48.DerivedCustomFrequenciesD", "CustomFrequenciesD"},
    {"48.DerivedCustomFrequenciesE", "CustomFrequenciesE"},
    {"48.DerivedCustomFrequenciesF", "CustomFrequenciesF"},
}};

/// The rows of a set as hexadecimal texts, four digits a number ("03A2,0370,03C9"), and behind them the
/// places of the tone codes ("12,3,4"). Empty for a number outside 0 to 9.
std::vector<std::string> ToneSetData(std::int32_t toneSet);
/// The frequencies of a set in decimal, in ascending order or by tone code: of set 9 the sixteen defaults,
/// then the rest. Empty for a number outside 0 to 9.
std::vector<std::string> FrequenciesOfToneset(std::int32_t toneSet, bool byToneCode);
/// The tones of a set by tone code, rows from 0: nominal frequency, lower and upper limit, and the row. Of
/// set 9 all tones. No rows for a number outside 0 to 9.
std::shared_ptr<XArrayDBObject> xaGetToneSetDataFor(std::int32_t toneSet);

/// What the radio keeps of the set in a record of table 48 or 74: its number, of a user-defined set that of
/// its base, bandwidth and mixing frequency. Raises an object's own error for a set that there is not.
void SetTonesetDetails(const ProviderRef& provider, std::string_view table, std::int32_t toneSet,
                       RecordNr record);

/// The set that a form shows: 9 where frequencies, group tone or repeat tone differ from the stored set.
void GetToneSet(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetToneSet(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// The sixteen frequencies, each with a form field of its own, and the limits that the base set gives them.
void GetCustomFrequencies(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetCustomFrequencies(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Lays table 74 out anew: the nine standard sets.
void SetGenerateCCR(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// For a new system: the set by its frequencies alone.
void SetSelcallToneSet(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// For a new system, asked for each tone code; the call for code 1 fills all sixteen form fields, those that
/// were never set with the frequencies of the set.
void SetSelcallTonesetDefaults(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modToneSets
