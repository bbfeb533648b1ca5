#pragma once

#include <string_view>

#include "common/Handles.h"

/// MDC1200 systems: the form shows identity and sequences as hexadecimal text of at least four digits, the
/// radio holds decimal text.
namespace modMDC1200 {
/// Whether a form's text stands for no sequence: it is empty, or holds zeros alone.
bool IsNoSequence(std::string_view hex);
/// Fills the form fields of a system of table 80 from its radio identity and from table 81. A sequence
/// without a record there is empty.
void GetMDC1200(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Writes the radio identity and appends a system's sequences to table 81; an empty one leaves no record.
/// System 1 empties the table first, so that a walk over all systems rebuilds it. Raises 13 for a text that
/// is not hexadecimal.
void SetMDC1200(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// A system that goes takes its sequences along.
void RemoveOwnSequences(const ProviderRef& provider, const Variant& identity);
}  // namespace modMDC1200
