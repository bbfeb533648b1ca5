#pragma once

#include "common/ValidatorRef.h"

namespace modvalKD4410FinalValidation {
/// What holds over the whole personality before a save. The rules run in their order; the first that refuses,
/// or whose question is not answered Yes, ends the walk.
bool RunFinalValidation(const ValidatorRef& validator);
}  // namespace modvalKD4410FinalValidation
