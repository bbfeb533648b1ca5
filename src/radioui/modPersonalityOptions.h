#pragma once

#include <string_view>

#include "common/Handles.h"

/// Options that the radio holds as one array and the forms as plain fields. All in record 1, whatever the
/// record.
namespace modPersonalityOptions {
/// The security PIN: three digits in the radio, or none. On the form a tick and three fields: without a PIN
/// the tick is off and the fields are 0, and a tick that is off leaves no PIN in the radio.
void GetSecurityPIN(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetSecurityPIN(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The gain of the two microphones. Without a value in the radio the form's field stays as it is.
void GetGenerateMicGain(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetGenerateMicGain(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modPersonalityOptions
