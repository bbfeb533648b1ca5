#pragma once

#include <cstdint>

#include "common/ValidatorRef.h"
#include "host/IfinalRules.h"

namespace modvalKD4410FinalValidation {
/// What holds over the whole personality before a save. The rules run in their order; the first that refuses,
/// or whose question is not answered Yes, ends the walk.
bool RunFinalValidation(const ValidatorRef& validator);

std::int32_t RuleCount();
/// One rule by itself, from 1 in the order of the walk. Raises 9 for a number that no rule has.
FinalOutcome RunRule(const ValidatorRef& validator, std::int32_t number);
}  // namespace modvalKD4410FinalValidation
