#pragma once

#include <string_view>

#include "common/Handles.h"

/// The three push-to-talk sources, the mic's and the two external ones: records 1 to 3 of table 25. The form
/// shows them in one record (1096), each field with the digit of its source behind its name. Which fields
/// they have the table itself says.
namespace modPTT {
void GetGeneratePTT(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetGeneratePTT(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modPTT
