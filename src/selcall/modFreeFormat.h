#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/Handles.h"

/// Free-format sequences: telegrams of the user's own making, seven for each Selcall system. A record of
/// table 49 holds the bursts of one; the record of its system in table 29 mirrors the whole sequence.
namespace modFreeFormat {
/// The Selcall system, from 1, that owns a record of table 49.
RecordNr GetSelcallRecordFromFreeFormatRecord(RecordNr record);
/// The place of the sequence in its system, 1 to 7.
std::int32_t GetFreeFormatDerivedFieldNumber(RecordNr record);
/// The same from 0, as the radio counts.
std::int32_t GetSequenceID(RecordNr record);
/// The field of table 29 that mirrors the sequence, by its plain name: "FreeFormSequence1" to
/// "FreeFormSequence7".
std::string GetFreeFormatFieldName(RecordNr record);

/// Joins the form texts of the bursts, with the gaps as runs of "-" between them, to 49.FreeFormSequence,
/// and writes the sequence's number. The system gets sequence and monitor flag too, unless table 29 ends
/// before it. The form texts are to be converted before.
void GetFreeFormatSequence(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Writes identity, sequence number and monitor flag of a record from its system; nothing when table 29
/// ends before it.
void SetFreeFormatFields(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modFreeFormat
