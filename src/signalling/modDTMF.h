#pragma once

#include <string_view>

#include "tier/Handles.h"

namespace modDTMF {
/// The preset sequences of table 65 for all records: "*" and "#" on the form are the codes 15 and 14 in
/// the radio. The way to the form also writes each record's number to its sort order.
void GetChannelPreset(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetChannelPreset(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modDTMF
