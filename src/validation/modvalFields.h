#pragma once

#include <string_view>
#include <vector>

#include "common/FieldEdit.h"

namespace modvalFields {
/// Judges a changed value by the rule of its UIID, in any case; a UIID without a rule is true.
bool ValidateByUIID(const ValidatorRef& validator, std::string_view uiid, Variant& value, RecordNr record);
/// The fields that have a rule, in upper case.
std::vector<std::string_view> UIIDs();
}  // namespace modvalFields
