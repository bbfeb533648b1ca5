#pragma once

#include <string_view>

#include "common/Handles.h"

/// The four function keys between the radio and the forms. The radio has pointers of each key, for a short
/// and a long press, for up and down (table 15), to programmable actions with parameters (table 24), and the
/// annunciators of the LEDs (table 3); the forms show one action and its parameter. The pointers are records,
/// from 1, unlike others; 0 is none.
namespace modFunctionKeys {
/// All keys at once. A pointer to no record is no action; a parameter that names nothing is "None".
void GetGenerateFunctionKeys(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Lays tables 3, 15 and 24 out anew, the first two completed where they are short. A parameter that names
/// nothing is stored as 0.
void SetGenerateFunctionKeys(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modFunctionKeys
