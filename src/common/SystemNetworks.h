#pragma once

#include <cstdint>
#include <vector>

#include "common/ValidatorRef.h"

/// The networks that signal by a system, which they name by signalling type and the system's identity.
namespace SystemNetworks {
/// Ascending.
std::vector<RecordNr> Of(const ProviderRef& provider, std::int32_t signallingType, const Variant& identity);
/// False, and the user is told, when a network of the system sends its ANI sequence in an emergency.
bool AllowEmptyANI(const ValidatorRef& validator, std::int32_t signallingType, const Variant& identity);
}  // namespace SystemNetworks
