#pragma once

#include <string_view>

#include "common/Handles.h"

/// References to a channel between the radio, which holds the index of its record, and the forms, which show
/// its number as text: the emergency channel of a network, "53.ChannelIDTracker". Any other field gets a
/// plain message box, and nothing is written.
namespace modChannelIndex {
/// "None" while the network uses its current channel; an index that no channel has shows the first channel.
/// Without channels the form keeps what it shows.
void GetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// "None" and a number that no channel has are the first channel.
void SetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modChannelIndex
