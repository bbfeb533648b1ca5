#pragma once

#include <string>
#include <string_view>

#include "common/Handles.h"

class BurstLayout;

/// Selcall formats and tone sequences between the radio and the forms. The radio holds an array with one
/// column: row 0 is unused, rows 1 to n hold codes. The form shows a character a code. A format has the
/// letters "RCS-B", the codes 0 to 4. Of a sequence "0" to "9" and "A" to "F" are the codes 0 to 15, "-" is
/// 16 (gap), "G" 17 (group tone), "V" 18 (variable).
namespace modSelcallMapping {
/// What a form shows of a sequence: "None" and "Undefined", in any case, stand for no tones.
std::string SequenceText(const Variant& shown);

/// Raises 13 for a character that is none of the above; a lower-case letter is none.
ArrayObject StringToNumarray(std::string_view text);
/// An empty value is an empty sequence. A code that is no tone stands there in decimal.
std::string NumarrayToString(const Variant& sequence);

/// The codes of a format. A letter that is none is told, and takes the code of the letter before it, the
/// first one 0.
ArrayObject FormatCodes(std::string_view format);
/// The letters of a format; a code that is none is told and left out.
std::string FormatText(const Variant& codes);

/// A burst of system 0 has no text; of any other it is `text` itself.
std::string_view MapBurstToUI(const ProviderRef& provider, RecordNr system, std::string_view text);
std::string_view MapBurstFromUI(const ProviderRef& provider, RecordNr system, std::string_view text);

/// The length of a tone or a gap in ms: of its code, 1 to 7. Any other number is a length already.
std::int32_t PeriodMs(const Variant& period);

/// The Tx format that the forms show of a system; empty for a system that is not there.
std::string TxFormatOf(const ProviderRef& provider, RecordNr system);
/// What the form shows of a stored burst. A status of one tone is a decimal number there.
std::string BurstToForm(const ProviderRef& provider, const BurstLayout& layout, RecordNr burst);

/// A format. A code or letter that is none is told and left out.
void GetSelcallFormat(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetSelcallFormat(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// A sequence: of a system, a burst slot, a part of a free-format sequence. A status of one tone is a decimal
/// number on the form. Of a free-format status the way to the form sets the double-digit box by its length,
/// the way back asks it. A row of the burst grids shows the first system's burst; the way back ignores it,
/// for the rule of the grid stores the burst in its slot. Both raise 13 for what is no tone, and for a status
/// of one digit that is no number.
void GetSelcallTone(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetSelcallTone(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// After a read: fills the burst grids with rows, empties the burst of no system and tells each slot its
/// system, its number and its kind.
void GetUnfilteredGridData(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modSelcallMapping
