#pragma once

#include <string>
#include <string_view>

#include "common/FieldEdit.h"

/// The rules of the free-format sequences, records of table 49. The tones that count are those of the system
/// that the forms show.
namespace modvalFreeFormat {
/// A burst, a gap, the status or its double-digit box. What passes is shown in the whole sequence, here and
/// at the system; that preview is no edit by itself.
bool ValidateFreeFormatBurst(FieldEdit& edit);
/// Likewise, held against a repeat tone; "" is that of the system.
bool ValidateFreeFormatBurst(FieldEdit& edit, std::string_view repeatTone);
/// The sequence with the field in hand, by its UIID, at its new value, in which the digit of the group tone
/// becomes "G". No field: as it is stored.
std::string GetFreeFormatSequenceFromBursts(const ProviderRef& provider, RecordNr record,
                                            std::string_view uiid, Variant& value);
/// Shows that sequence, here and at the system; that is no edit by itself.
void ShowSequence(FormWrites& writes, const ProviderRef& provider, RecordNr record, std::string_view uiid,
                  Variant& value);

/// On leaving the form: whether the sequence that it shows may be kept.
bool ValidateCurrentSequence(const ValidatorRef& validator);
}  // namespace modvalFreeFormat
