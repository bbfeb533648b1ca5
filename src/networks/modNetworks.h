#pragma once

#include <string_view>

#include "tier/Handles.h"

/// The networks between the radio and the forms, one record of table 21 a call.
namespace modNetworks {
/// The network's number. On the way to the form the network's emergency settings take it too.
void GetSystemID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetSystemID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The identity of the network's signalling system against its index in the table of its type. An
/// identity that no system has points at the first one.
void GetNetworkSignallingID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetNetworkSignallingID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modNetworks
