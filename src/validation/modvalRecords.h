#pragma once

#include <string_view>

#include "common/ValidatorRef.h"

namespace modvalRecords {
/// Whether a record may be added to the grid; what has to be there before it is added is made. A grid that is
/// not known allows all.
bool AddRecord(const ValidatorRef& validator, std::string_view gridName, const ProviderRef& provider);
/// Whether the record may be deleted; clears what refers to it and deletes what belongs to it alone.
bool DeleteRecord(const ValidatorRef& validator, std::string_view gridName, RecordNr record);
}  // namespace modvalRecords
