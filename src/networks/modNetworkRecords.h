#pragma once

#include "common/ValidatorRef.h"

/// The records of a network. Record n of several other tables, or a block of their records, belongs to record
/// n of table 21: they come, go and move together.
namespace modNetworkRecords {
/// Gives a network that is about to come its companions. Tables that do not go with the networks there are,
/// are made to go with them first.
void AppendCompanions(const ValidatorRef& validator, const ProviderRef& provider);
/// Completes the new network `record`, whose companions stand: a free number, which they take too, its
/// defaults, and no signalling system. The forms reload their lists.
void AddNetwork(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record);
/// Deletes the companions of a network that is about to go, where they exist; what other records point at
/// stays the same. The network itself is the host's to delete.
void DeleteCompanions(const ProviderRef& provider, RecordNr network);
/// Brings the networks and their companions into ascending order of the networks' numbers; what other records
/// point at stays the same.
void Sort(const ProviderRef& provider);
/// The record sets of the networks and of their companions have changed: the forms reload what lists them.
void ReloadLists(const ValidatorRef& validator);
}  // namespace modNetworkRecords
