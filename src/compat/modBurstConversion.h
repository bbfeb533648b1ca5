#pragma once

class ProviderRef;
class VersionStep;

/// The blocks of fixed-format bursts, which hold ten Tx call sequences a system up to 0089 and a hundred from
/// 0090 on. Bursts go by their place in their block; what points at one follows it.
namespace modBurstConversion {
/// Whether a channel of a personality of 0090 or later calls a sequence behind the tenth.
bool CallsBeyondTen(const ProviderRef& provider);
/// Always true: what does not fit is dropped, with a warning if it was in use.
bool SelCallFixedFormatBurstsConversion90To89(const VersionStep& step);
void SelCallFixedFormatBurstsConversion89To90(const VersionStep& step);
}  // namespace modBurstConversion
