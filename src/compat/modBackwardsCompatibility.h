#pragma once

#include <string_view>

#include "common/ValidatorRef.h"

namespace modBackwardsCompatibility {
/// Converts a personality between two database versions ("KD4410.0054"): writes the new version to table 39
/// and runs the step of the pair. False stops the conversion, which the user has been told. A pair without a
/// step is a pure renumbering. The four pairs that run over several versions are always true.
bool BackwardsCompatibility(const ValidatorRef& tier, std::string_view fromVersion, const ProviderRef& source,
                            std::string_view toVersion, const ProviderRef& destination);
}  // namespace modBackwardsCompatibility
