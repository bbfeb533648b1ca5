#pragma once

#include "common/ValidatorRef.h"

namespace modvalKD4410PreProgramValidation {
/// Before a personality is written to the radio that is attached; false stops the programming.
bool RunPreProgramValidation(const ValidatorRef& validator);
}  // namespace modvalKD4410PreProgramValidation
