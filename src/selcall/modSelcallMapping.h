#pragma once

#include <string>
#include <string_view>

#include "common/Handles.h"

/// Tone sequences between the radio and the forms. The radio holds an array with one column: row 0 is
/// unused, rows 1 to n hold tone codes. The form shows a character a tone: "0" to "9" and "A" to "F" are
/// the codes 0 to 15, "-" is 16 (gap), "G" 17 (group tone), "V" 18 (variable).
namespace modSelcallMapping {
/// The fixed-format bursts of one system in table 30, whose record 1 belongs to none.
inline constexpr RecordNr kBurstsPerSystem = 141;

/// What a form shows of a sequence: "None" and "Undefined", in any case, stand for no tones.
std::string SequenceText(const Variant& shown);

/// Raises 13 for a character that is none of the above; a lower-case letter is none.
ArrayObject StringToNumarray(std::string_view text);
/// An empty value is an empty sequence.
std::string NumarrayToString(const Variant& sequence);

/// A burst of system 0 has no text.
std::string MapBurstToUI(const ProviderRef& provider, RecordNr system, const std::string& text);
std::string MapBurstFromUI(const ProviderRef& provider, RecordNr system, const std::string& text);

/// The length of a tone or a gap in ms: of its code, 1 to 7. Any other number is a length already.
std::int32_t PeriodMs(const Variant& period);

/// The Selcall system, from 1, that owns a record of table 30; 0 for record 1.
RecordNr GetSigSysRecNrForFixedFormBurst(RecordNr burst);
}  // namespace modSelcallMapping
