#pragma once

#include <string>
#include <string_view>

#include "common/ValidatorRef.h"

/// The rules of the Selcall systems. A record of table 29 is a system; what belongs to it has its place.
namespace modvalSelcall {
/// Whether the format holds together, by itself: runs of its letters, their lengths and places. `longestS` is
/// the longest status. A refusal is told.
bool ValidateSelcallFormat6000(const ValidatorRef& validator, std::string_view format, std::string_view label,
                               std::string_view alphabet, std::int32_t longestS);

/// Whether a system may have the Tx format: the format by itself, and with the control statuses on the form.
bool ValidateTxFormat6000(const ValidatorRef& validator, std::string_view format, RecordNr system);

/// The length of the longest run of a letter in a Tx format; 0 for a letter that its alphabet lacks.
std::int32_t TxBurstLength(const ProviderRef& provider, std::string_view format, char letter);

/// `text` with `to` for each `from`, whatever its case.
std::string ReplaceGroupToneWithG(std::string text, char from, char to);
}  // namespace modvalSelcall
