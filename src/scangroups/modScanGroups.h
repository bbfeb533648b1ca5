#pragma once

#include <string_view>

#include "common/Handles.h"

/// Scan and vote groups between the radio and the forms. The radio refers to a channel by the index of its
/// record, from 0; the forms show its number as text. The members of a group are records of table 18, which
/// the radio follows as a ring.
namespace modScanGroups {
/// The number of a group, and the two characters by which the radio's display knows it.
void GetGroupID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetGroupID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// A reference to a channel: the priorities and preset channels of a group, its members, the emergency
/// channel of a network, the channel or group with which the radio starts. The FieldId is compared exactly;
/// any other gets a plain message box, and nothing is written.
///
/// To the form: an index that no channel has shows the first channel; without channels the form keeps what it
/// shows.
void GetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// From the form: "None", no text, and a number that no channel has are the first channel. A member is linked
/// into the ring of its group, which is complete once every member has been converted.
void SetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modScanGroups
