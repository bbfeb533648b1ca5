#pragma once

#include "common/ValidatorRef.h"

/// What the systems of DTMF, of two tones and of MDC1200 have in common as records.
namespace SystemRecords {
/// Gives a new system the lowest number that none has.
void TakeFreeNumber(const ProviderRef& provider, std::string_view identity, RecordNr system);
/// Whether a network of that signalling type uses the system with the number.
bool IsInUse(const ProviderRef& provider, std::int32_t signallingType, const Variant& number);
}  // namespace SystemRecords
