#pragma once

#include "common/FieldEdit.h"

/// The rules of a network's emergency mode. True lets the host keep the change.
namespace modvalEmergency {
/// Turning emergency mode off: not while another network uses a channel of this one as its dedicated
/// emergency channel. Otherwise the settings that go with it are reset.
bool ValidateEmergencyEnabled(FieldEdit& edit);
/// Emergency ANI needs a sequence in the network's system, where its type has one.
bool ValidateEmergencyANIEnabled(FieldEdit& edit);
/// How the emergency is cycled; endless cycling gets advice or a question. The longest time follows.
bool ValidateEmCyclingType(FieldEdit& edit);
/// The dedicated channel, by number: one that can not transmit, or of another network, needs consent.
bool ValidateEmChannel(FieldEdit& edit);
/// Writes the shortest repeat interval, in ms, that the signalling of the network allows to its field.
void ValidateRepeatInterval(FieldEdit& edit, std::string_view intervalField, RecordNr network);
}  // namespace modvalEmergency
