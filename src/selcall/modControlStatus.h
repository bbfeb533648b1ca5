#pragma once

#include <string_view>

#include "common/Handles.h"

/// Control statuses between the radio and the forms. Table 32 holds those of all Selcall systems, told apart
/// by the number of the system (29.SignalSystemId). Table 1111 holds them for the forms, told apart by the
/// place of the system in table 29, a number or its text. Table 1115 shows those of one system: while it is
/// shown its rows count, and the rows of table 1111 wait for them.
namespace modControlStatus {
/// The value of a status as a number on the form. The field of the form's own rows is no conversion's.
void GetControlStatus(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetControlStatus(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// Lays tables 1111 and 1115 out anew, the latter for the first system. A status of a system that there is
/// not ends it: neither that one nor those behind it come to the forms.
void GetGenerateControlStatus(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Lays table 32 out anew, by system in the order of table 29; rows of one system keep their order. The
/// values for the radio are to be converted after that.
void SetGenerateControlStatus(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The same as the first one, but table 1115 stays as it is.
void CopyToIntermediateFromRaw(const ProviderRef& provider);
/// Table 1111 to table 32. What table 1115 shows is to be copied back before.
void CopyFromIntermediateToRaw(const ProviderRef& provider);
/// Shows the rows of a system.
void CopyToControlUI(const ProviderRef& provider, RecordNr system);
/// The rows that are shown replace those of the system.
void CopyFromControlUI(const ProviderRef& provider, RecordNr system);

/// The rows of a system that is about to go are deleted, those of later systems move up. `shownAfterwards` is
/// the system that the forms show when it is gone, by its place then.
void DeletedSelcallRecord(const ProviderRef& provider, RecordNr system, RecordNr shownAfterwards);
}  // namespace modControlStatus
