#pragma once

#include "workbench/samples/SampleContent.h"

namespace Samples {

constexpr std::int32_t kFullNetworks = 16;
// Channels and scan groups share a limit of 100 records.
constexpr std::int32_t kFullChannels = 90;
constexpr std::int32_t kFullGroups = 10;
/// One network in four, without Selcall, has an in-band tone; one channel in two of it sends that, and so
/// none below the voice.
constexpr bool SendsInBandTone(std::int32_t channel) { return channel % 8 == 0; }
/// The last channels are in no group.
constexpr std::int32_t kFullMembers = kFullChannels - 4;

/// What the function keys do: scanning and nuisance delete on a short and a long press, so a phone patch, a
/// preset channel on a short press alone, an output line that follows up and down.
constexpr std::int32_t kFullActions = 7;

/// Every channel, network, system and burst that the version has room for.
Personality Full();
/// Makes a new personality that one, all its other tables filled as well: where the rules leave a stored
/// field another value it holds not only its default, nor only the values of the field beside it.
void FillFull(Provider& content, const Personality& full);

/// Writes what the rules of the forms tie together, and the numbers and pointers of the tables that are not
/// described.
void FillTied(Provider& content);

}  // namespace Samples
