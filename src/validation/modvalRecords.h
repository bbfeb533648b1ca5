#pragma once

#include <string_view>

#include "tier/ValidatorRef.h"

namespace modvalRecords {
/// The table of a grid name, whatever its case; a table number stands for itself. 0 for an unknown name.
std::int32_t GridTable(std::string_view gridName);
/// False for a table whose rules the tier does not have yet. A table that needs none has all it needs.
bool HasAddRule(std::int32_t table);
bool HasDeleteRule(std::int32_t table);
/// Whether a record may be added to the table.
bool AddRecord(const ValidatorRef& validator, std::int32_t table, const ProviderRef& provider);
/// Whether the record may be deleted; clears what refers to it.
bool DeleteRecord(const ValidatorRef& validator, std::int32_t table, RecordNr record);
}  // namespace modvalRecords
