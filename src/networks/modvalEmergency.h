#pragma once

#include "tier/FieldEdit.h"

/// The rules of a network's emergency mode. True lets the host keep the change.
namespace modvalEmergency {
/// Turning emergency mode off: not while another network uses a channel of this one as its dedicated
/// emergency channel. Otherwise the settings that go with it are reset.
bool ValidateEmergencyEnabled(FieldEdit& edit);
/// Writes the shortest repeat interval, in ms, that the signalling of the network `edit.record` allows to the
/// field.
void ValidateRepeatInterval(FieldEdit& edit, std::string_view intervalField);
/// Whether the channel may change its network: not while it is an emergency dedicated channel.
bool ValidateChannelID(const ValidatorRef& validator, RecordNr channel);
}  // namespace modvalEmergency
