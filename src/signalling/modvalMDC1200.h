#pragma once

#include "common/ValidatorRef.h"

/// The records of MDC1200 systems.
namespace modvalMDC1200 {
/// Completes the new system `record`: a free number.
void AddMDC1200SignallingSystem(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record);
/// Deletes the sequences of a system that no network uses. The first system may take a lower number, and the
/// networks that use it follow. The system itself is the host's to delete.
bool DeleteMDC1200(const ValidatorRef& validator, RecordNr system);
}  // namespace modvalMDC1200
