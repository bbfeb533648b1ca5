#pragma once

#include "common/FieldEdit.h"

/// The rules of two-tone systems: their formats, tones and periods, and their records.
namespace modvalType99 {
/// Another format takes all tones and gives all periods anew, unasked.
bool OnChangeTableFormat(FieldEdit& edit);
// Of a shortest and a longest period the first is not above the second.
bool ValidateFirstTonePeriodMin(FieldEdit& edit);
bool ValidateFirstTonePeriodMax(FieldEdit& edit);
bool ValidateGapPeriodMin(FieldEdit& edit);
bool ValidateGapPeriodMax(FieldEdit& edit);
bool ValidateSecondTonePeriodMin(FieldEdit& edit);
bool ValidateSecondTonePeriodMax(FieldEdit& edit);
bool ValidateAllCallTonePeriodMin(FieldEdit& edit);
bool ValidateAllCallTonePeriodMax(FieldEdit& edit);
bool ValidateCustomTone(FieldEdit& edit);

/// Whether the user's own tones of the system on the form can be told apart.
bool ValidateType99Form(const ValidatorRef& validator);
/// Completes the new system `record`: a free number, the periods of its format, no tones.
void AddType99_6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record);
/// Whether no network uses the system. The system itself is the host's to delete.
bool DeleteType99(const ValidatorRef& validator, RecordNr record);
}  // namespace modvalType99
