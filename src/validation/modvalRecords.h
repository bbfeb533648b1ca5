#pragma once

#include <string_view>

#include "common/ValidatorRef.h"

namespace modvalRecords {
/// Whether a record may be added to the table; what has to be there before it is added is made.
bool AddRecord(const ValidatorRef& validator, std::int32_t table, const ProviderRef& provider);
/// Whether the record may be deleted; clears what refers to it and deletes what belongs to it alone.
bool DeleteRecord(const ValidatorRef& validator, std::int32_t table, RecordNr record);
}  // namespace modvalRecords
