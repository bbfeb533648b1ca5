#pragma once

#include "common/FieldEdit.h"
#include "common/FinalReport.h"

/// Rules of the push-to-talk sources.
namespace modvalPTT {
/// Whether no two sources have the same priority.
bool PTTPrioritiesAreUnique(const ValidatorRef& validator);

bool ValidatePTTTransmissionType(FieldEdit& edit);
/// The check of the form.
bool FormIsValid(const ValidatorRef& validator);

// Before a save: who speaks into a tap of the programmable I/O has one.
void CheckMicTap(FinalReport& report);
void CheckExternalTap1(FinalReport& report);
void CheckExternalTap2(FinalReport& report);
}  // namespace modvalPTT
