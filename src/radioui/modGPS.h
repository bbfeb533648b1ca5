#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "common/Handles.h"

/// The GPS options of table 69, one record, between the radio and the forms.
namespace modGPS {
/// The channel that answers polls: an index in the radio, the channel's number in the form field `fieldId`.
/// It shows "None" while the current channel answers, and for an index that no channel has; a number that no
/// channel has is index 0.
void GetResponseChannels(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetResponseChannels(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// When a network sends its position with a PTT, and how long it does not: arrays of a row for each network
/// in the radio, four fields of the network on the form. All four, whatever the field and the record. On the
/// way to the form a network without a row keeps what its fields hold.
void GetGPSPosOnPTT(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetGPSPosOnPTT(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// The networks have moved or gone: the n-th row of the arrays becomes that of the network which was at the
/// index `order[n - 1]`, from 0. A row that an array does not have is 0.
void MoveRows(const ProviderRef& provider, std::span<const std::size_t> order);
}  // namespace modGPS
