#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/Handles.h"

/// Free-format sequences: telegrams of the user's own making, seven for each Selcall system. A record of
/// table 49 holds the bursts of one; the record of its system in table 29 mirrors the whole sequence.
namespace modFreeFormat {
inline constexpr RecordNr kSequencesPerSystem = 7;

/// A part of a sequence and the gap behind it, by their fields and by what the forms call them.
struct Part {
  std::string_view form, uiid;
  std::string_view gap = {};
  std::string_view gapUiid = {};
  constexpr bool IsStatus() const { return gap.empty(); }
};
/// In the order of the telegram; the status comes last and has no gap.
inline constexpr Part kParts[] = {
    {"49.FreeFormBurstB_UI", "FreeFormBurstB", "49.FreeFormGap1", "FreeFormGap1"},
    {"49.FreeFormBurstR1_UI", "FreeFormBurstR1", "49.FreeFormGap2", "FreeFormGap2"},
    {"49.FreeFormBurstR2_UI", "FreeFormBurstR2", "49.FreeFormGap3", "FreeFormGap3"},
    {"49.FreeFormBurstR3_UI", "FreeFormBurstR3", "49.FreeFormGap4", "FreeFormGap4"},
    {"49.FreeFormStatus_UI", "FreeFormStatus"},
};
/// So many tones of silence, a "-" each. An empty value is none.
std::string Gap(const Variant& tones);

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
