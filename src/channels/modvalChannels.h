#pragma once

#include <span>

#include "channels/modBandLimits.h"
#include "common/FieldEdit.h"
#include "common/FinalReport.h"

/// The rules of the channel form. True lets the host keep the change.
namespace modvalChannels {
/// A Tx or Rx frequency as the user typed it; rewritten to "000.000000" MHz. 0 clears the frequency. A
/// new channel's receive frequency is copied to the transmit side, but for the K5 band.
bool ValidateFrequency(FieldEdit& edit);
/// Whether the frequency lies in one of the ranges; near them, or in factory mode, the user decides.
bool ValidateFrequencyForSubBands(const ValidatorRef& validator, double frequencyMHz,
                                  std::span<const SubBand> subBands);

/// A channel's number or its network. A new number moves all references, after one question; a new network
/// enables what its signalling uses and clears the channel's presets.
bool ValidateChannelID(FieldEdit& edit);
/// Whether the channel may change its network: not while it is an emergency dedicated channel.
bool ValidateChannelID(const ValidatorRef& validator, RecordNr channel);

/// Turning off the Tx power of an emergency dedicated channel needs consent.
bool ValidateTxPower(FieldEdit& edit);

/// Noise reduction and companding exclude each other: the other one is turned off on consent.
bool ValidateNoiseReduction(FieldEdit& edit);
bool ValidateCompanding(FieldEdit& edit);

/// On leaving the channel form: advice about the current channel's bursts; then, with `refresh`, the grid
/// is reloaded.
bool ValidateForm(const ValidatorRef& validator, bool refresh);

/// What holds over all channels before a save.
void ChannelsFinalValidation(FinalReport& report);
/// A notice when bursts that the Tx format needs are missing. Only for channels of the first Selcall
/// system. Always true.
bool ValidatePresetSelcallAgainstTxFormat(const ValidatorRef& validator, RecordNr channel);
/// Each Selcall channel has either no bursts or all that its system's Tx format needs.
void ValidatePresetsForAllChannels(FinalReport& report);
/// A channel that can not transmit needs consent.
void ValidateTxPowerForAllChannels(FinalReport& report);

/// Sets the channel's six bursts to "None". Always true.
bool ResetChannelSelcallPresets(FormWrites& writes, RecordNr channel);

/// Whether the channel may be deleted; clears what refers to it. What earlier steps cleared stays so when
/// a later question is declined.
bool DeleteChannel(const ValidatorRef& validator, RecordNr channel);

/// The preset calls of a channel that goes are deleted; those of later channels follow them.
void DeletePresetCalls(const ProviderRef& provider, RecordNr channel);
/// Completes a new channel: a free number, the first network, no bursts, no frequencies.
void AddChannelK6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr channel);
/// Of a channel that came in before others: a free number; their preset calls follow them.
void InsertChannelK6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr channel);

/// The network of a channel by number: the last one when none matches, 0 when there are none.
RecordNr FindChannelsNetworkRecordNr(const ValidatorRef& validator, RecordNr channel);
/// The channel's Selcall system, 0 when its network does not use Selcall.
RecordNr FindChannelsSignallingRecordNr(const ValidatorRef& validator, RecordNr channel);
}  // namespace modvalChannels
