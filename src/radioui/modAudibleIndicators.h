#pragma once

#include <string_view>

#include "common/Handles.h"

/// What the radio sounds. Table 4 has its indicators, table 60 the cadences that they play; the forms list
/// those that the user may turn off (1117), and have a text for each cadence that is the user's own (1118),
/// "1" for a step with tone and "0" for one without. The alerts of a network's six kinds of calls are six
/// records of table 51, those of network 1 first; a network that has too few gets them.
namespace modAudibleIndicators {
/// Lists the indicators; table 4 gets the records that it lacks, as the table of indicators has them.
void CreateIndicatorList(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Lays tables 4 and 60 out anew, with what is listed and with the cadences that are the user's.
void CreateIndicatorDataTable(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

void GetCadence(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetCadence(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The forms have a record for the cadences.
void GenerateRecCallAudInd(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

// Each call moves all six of a network, and points the network at their records.
void GetAlertDuration(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetAlertDuration(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void GetAlertType(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetAlertType(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// With the external alerts of the radio, table 52, which are no network's.
void GetAudibleIndicators(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetAudibleIndicators(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modAudibleIndicators
