#pragma once

#include <cstdint>
#include <string_view>

#include "common/FormWrites.h"

/// DTMF sequences: "*" and "#" on the form are the codes 15 and 14 in the radio.
namespace modDTMF {
/// Fills the form fields of all systems: the timings from the record of table 63 that the system points at,
/// the sequences from the system's records of table 66. A system without a timing record keeps its timings,
/// a sequence without a record is empty.
void GetDTMF(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Rebuilds tables 63 and 66 from the form fields of all systems: a timing record for each, to which the
/// system is made to point, and six sequences. Raises 13 for a sequence with a character that is no key.
void SetDTMF(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Appends a system's sequence to table 66: the text of the named form field, under that type.
void SetNewDTMFNetworkSequence(const ProviderRef& provider, std::string_view fieldName, std::int32_t type,
                               RecordNr record);

/// The patch sequences of a network are four records of table 68, those of network 1 first. Sequences whose
/// record is missing are empty. Both tables of the patches get the network's number.
void GetPatchSequences(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Writes a network's four records; network 1 empties the table before, so that a walk over all networks
/// rebuilds it. Also writes the network's pointer to its tones.
void SetPatchSequences(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The preset sequences of table 65 for all records. The way to the form also writes each record's number to
/// its sort order.
void GetChannelPreset(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetChannelPreset(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// Record 1 of table 65 belongs to no system.
inline constexpr RecordNr kFirstPreset = 2;
/// Shows the presets of the system `record` in table 1098, which is empty for a record that is not there.
bool GetPresetFilteredGrid(FormWrites& writes, const ProviderRef& provider, RecordNr record);
/// Brings the presets of table 1098 back to those of the system on the form; an empty table brings nothing.
bool SetPresetFilteredGrid(const ProviderRef& provider);
/// The sequences of a system, but for its presets.
void BlankSequences(const ProviderRef& provider, RecordNr system);
}  // namespace modDTMF
