#pragma once

#include <cstdint>
#include <string_view>

#include "common/FieldEdit.h"
#include "common/FinalReport.h"

/// The rules of the control statuses: values of a Selcall system to which the radio ties a function. Table
/// 1111 holds those of all systems, table 1115 those of the one on the form.
namespace modvalControlStatus {
/// In place of a system: all of them in turn.
inline constexpr RecordNr kEverySystem = -1;

/// Whether the statuses lie in the range that the formats give them: the one that is handed in, else for each
/// system the Rx and the Tx format of the values that are received and sent. `beforeSave` is null for an
/// edit; before a save no question is asked, and values that stand twice are refused, too.
bool ValidateControlStatusTone(const ValidatorRef& validator, std::string_view format, RecordNr system,
                               FinalReport* beforeSave);
/// The same for one system: of that identity, or with a format the system of that record.
bool ValidateCtrlStatusTonesBySigSys(const ValidatorRef& validator, const Variant& identity,
                                     std::string_view format, RecordNr system, FinalReport* beforeSave);
/// The form turns from the system that it shows to another one.
void UpdateFilteredGrid(FormWrites& writes, const ProviderRef& provider, RecordNr system);
/// Sorts the statuses by system and value, on the forms and in table 32; the form reads them again.
void SortControlStatus(const ValidatorRef& validator);
/// On leaving the form, which is left sorted. Always true.
bool ValidateControlStatusForm(const ValidatorRef& validator);
/// The type of a status, which no other one on the form has: on consent the other one takes its old type.
bool ValidateControlStatusType(FieldEdit& edit);
/// Whether the system on the form receives statuses at all.
bool HasStatusBurst(const ProviderRef& provider);
/// Completes a new status on the form: the lowest value from 1 and the lowest type from 0 that are free.
void AddControlStatus(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record);
/// Before a save: the statuses of all systems are in range, and none stands twice.
void ValidateControlStatusesFinal(FinalReport& report);
/// Empties table 1115.
void DeleteCurrentSystemControlStatuses(const ProviderRef& provider);
/// Whether a format with so many status tones has room for the value: 0 to 15 for one, 0 to 99 for two. Any
/// other number of tones has room for all. A sign does not count.
bool ValidateRange(std::int32_t statusTones, const Variant& value);
}  // namespace modvalControlStatus
