#pragma once

#include <string_view>

#include "common/ValidatorRef.h"

/// What follows when the host has added, inserted or deleted a record.
namespace modPostAddProcessing {
/// Completes the last record of the grid's table. A grid that is not known changes nothing; a box tells.
void CheckAddedRecord(const ValidatorRef& validator, const ProviderRef& provider, std::string_view gridName);
/// Likewise for an inserted record; most grids know no insert.
void CheckInsertedRecord(const ValidatorRef& validator, const ProviderRef& provider,
                         std::string_view gridName, RecordNr record);
/// `name` is a grid or its key field. A scan group that goes, or a member, reloads the list of members.
bool RecordDeleted(const ValidatorRef& validator, std::string_view name);
}  // namespace modPostAddProcessing
