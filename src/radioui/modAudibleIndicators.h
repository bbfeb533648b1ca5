#pragma once

#include <string_view>

#include "common/Handles.h"

/// What the radio sounds. The alerts of a network's six kinds of calls are six records of table 51, those of
/// network 1 first; a network that has too few gets them.
namespace modAudibleIndicators {
// Each call moves all six of a network, and points the network at their records.
void GetAlertDuration(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetAlertDuration(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void GetAlertType(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetAlertType(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modAudibleIndicators
