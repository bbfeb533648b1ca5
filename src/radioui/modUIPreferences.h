#pragma once

#include <string_view>

#include "common/Handles.h"

/// The preferences of the user interface between the radio and the forms.
namespace modUIPreferences {
/// The time of the public address: seconds in the radio, minutes with their fraction on the form.
void GetPATimer(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetPATimer(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// Two ticks in the radio, quiet and silent, are one choice on the form, where silent wins over quiet.
void GetUIPrefsAudibleMode(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetUIPrefsAudibleMode(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modUIPreferences
