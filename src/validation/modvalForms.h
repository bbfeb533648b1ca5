#pragma once

#include <string_view>

#include "common/ValidatorRef.h"

namespace modvalForms {
/// Whether a form may be left; a form without a check may.
bool FormValidationByFormName(const ValidatorRef& validator, std::string_view formName, bool refresh);
}  // namespace modvalForms
