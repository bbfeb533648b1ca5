#pragma once

#include "common/FieldEdit.h"

/// The rules of the burst grids, tables 1101 to 1106, which show the fixed-format bursts of the system that
/// the forms show (CurrentSelcallNumber, a record of table 29).
namespace modvalBursts {
/// A burst as the user typed it, in the row of its grid. What is typed may be rewritten: a status to two
/// digits, the group tone to "G", blanks to nothing. Channels that use the burst follow, after one question;
/// those keep the change when a later check refuses the edit. An empty value takes the burst away.
bool ValidateBurstSequence(FieldEdit& edit);

/// The forms turn to another system: its bursts come into the grids, its control statuses on their form.
bool ValidateCurrentSelcallNumber(FieldEdit& edit);

/// Shows the bursts of a system in the grids, and nothing in rows that it does not reach. Always true.
bool UpdateFilteredGridsTest(FormWrites& writes, const ProviderRef& provider, RecordNr system);
}  // namespace modvalBursts
