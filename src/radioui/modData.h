#pragma once

#include <string_view>

#include "common/Handles.h"

/// The data options of table 9, one record, between the radio and the forms.
namespace modData {
/// The XON and the XOFF character: a code in the radio, its two hexadecimal digits on the form, of which a
/// larger code shows the last two. Any other field is left alone. Raises 13 for a text that is not
/// hexadecimal.
void GetXonXoff(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetXonXoff(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The unit data identity: "None" in the radio is no text on the form, and no text on the form is eight
/// characters of code 0 in the radio.
void GetDataIdentity(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetDataIdentity(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// Short data messages decode the caller's identity where they encode their own.
void CopyCallerIDEncode(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// GPS messages follow the short data messages in both; nothing of it shows on the form.
void SetCCDICallerID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void GetCCDICallerID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The customer data of a network bear its number.
void GetCustomerDataNetworkID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The four identities of the TOTAL service, all of them whatever the field: numbers in the radio,
/// hexadecimal digits on the form. Raises 13 for a text that is not hexadecimal.
void GetTOTALFields(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetTOTALFields(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modData
