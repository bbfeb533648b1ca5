#pragma once

#include "common/ValidatorRef.h"

/// The radio that is attached.
namespace modHarrierCommon {
/// Whether the control head of the attached radio takes the personality, or the user does not mind. A model
/// that was not read is taken for KDAC2.
bool IsValidDataForControlHead(const ValidatorRef& validator);
}  // namespace modHarrierCommon
