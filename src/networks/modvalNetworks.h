#pragma once

#include "common/FieldEdit.h"

/// The rules of the networks: their signalling, their numbers, their forms. `edit.record` is a network unless
/// told otherwise. True lets the host keep the change.
namespace modvalNetworks {
/// A new signalling type needs a system. The presets of the network's channels, emergency ANI and the
/// settings that the type does not have go, with the user's consent; what earlier steps wrote stays when a
/// later one refuses. The same type again changes nothing.
bool ValidateSignallingType(FieldEdit& edit);
/// A new system of the same type, likewise. The same one again changes nothing.
bool ValidateSignallingID(FieldEdit& edit);

/// Signalling with a press and with the release of PTT.
bool ValidateSignallingOnPTTPress(FieldEdit& edit);
bool ValidateSignallingOnPTTRelease(FieldEdit& edit);
/// Without acknowledgement no alert acknowledges.
bool ValidateAutoAckType(FieldEdit& edit);
/// Call mute goes with monitors that open all mutes.
bool ValidateCallMute(FieldEdit& edit);
/// Any value passes: 0 opens the sub-audible mute alone, 1 all mutes.
bool ValidateHookswitchMonitor(FieldEdit& edit);
bool ValidateMonitorOverrides(FieldEdit& edit);

/// Gap and tone of the Selcall or DTMF system `edit.record`: a Selcall gap below the tone gets a notice, and
/// the repeat intervals that rest on the current system follow.
bool ValidateGapPeriod(FieldEdit& edit);
bool OnChangeTonePeriod(FieldEdit& edit);
bool OnChangeDTMFGapPeriod(FieldEdit& edit);
bool ValidateDTMFTonePeriod(FieldEdit& edit);

/// A new number moves the channels of the network, after one question, and its companion records.
bool ValidateNetworkID(FieldEdit& edit);

/// Whether the network may be deleted: not while a channel uses it. Deletes the records that belong to it.
bool DeleteNetwork(const ValidatorRef& validator, RecordNr network);

/// The checks of the network forms, of the current network. When they pass, all but that of the PTT form sort
/// the networks.
bool ValidateBasicSettingsForm(const ValidatorRef& validator);
bool ValidateEmergencyForm(const ValidatorRef& validator);
bool ValidatePTTSignallingForm(const ValidatorRef& validator);
bool ValidateDTMFPatchForm(const ValidatorRef& validator);
bool ValidateFeaturesForm(const ValidatorRef& validator);

/// Sorts the networks by number, the current one staying current.
void SortNetworks(const ValidatorRef& validator);
}  // namespace modvalNetworks
