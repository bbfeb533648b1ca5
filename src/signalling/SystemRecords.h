#pragma once

#include "common/Handles.h"

/// What the systems of DTMF, of two tones and of MDC1200 have in common as records.
namespace SystemRecords {
/// Gives a new system the lowest number that none has.
void TakeFreeNumber(const ProviderRef& provider, std::string_view identity, RecordNr system);
}  // namespace SystemRecords
