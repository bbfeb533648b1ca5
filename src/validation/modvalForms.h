#pragma once

#include <string_view>

#include "tier/ValidatorRef.h"

namespace modvalForms {
/// Whether a form may be left; a form without a check may.
bool FormValidationByFormName(const ValidatorRef& validator, std::string_view formName, bool refresh);
/// What holds over the whole personality before a save. The first rule that fails ends the walk.
bool RunFinalValidation(const ValidatorRef& validator);
}  // namespace modvalForms
