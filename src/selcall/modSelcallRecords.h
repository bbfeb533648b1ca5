#pragma once

#include "common/ValidatorRef.h"

/// The records of a Selcall system. Record n of tables 31 and 48, a block of table 30 and seven records of
/// table 49 belong to record n of table 29: they come, go and move together.
namespace modSelcallRecords {
/// Gives a system that is about to come its companions. Tables that do not go with the systems there are, are
/// made to go with them first.
void AppendCompanions(const ValidatorRef& validator, const ProviderRef& provider);
/// Completes the new system `record`, whose companions stand: a free number, which they take too, numbered
/// slots, empty sequences, the tone set of its record. The forms reload their list.
void AddSelcall6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record);
/// Deletes the companions of a system that is about to go, where they exist. What points at bursts of other
/// systems goes on doing so; what points at one of its own points at none. The system itself is the host's to
/// delete.
void DeleteCompanions(const ProviderRef& provider, RecordNr system);
/// Brings the systems and their companions into ascending order of the systems' numbers; what points at
/// bursts stays with them.
void Sort(const ProviderRef& provider);
}  // namespace modSelcallRecords
