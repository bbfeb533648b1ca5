#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/Handles.h"

/// The channel table between the radio and the forms. Each routine converts one record of table 5 (the
/// burst routines also of table 76); `fieldId` names the form field. Get goes to the form, Set comes from
/// it. All are procedures: an error is shown and ends the application.
namespace modChannels {
/// The channel's number, kept in table 7. SetChannelID gives table 7 at most one new record a call:
/// records are converted in ascending order.
void GetChannelID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetChannelID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// Hertz in the radio, megahertz as a text "000.000000" on the form.
void GetTxFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetTxFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void GetRxFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetRxFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The birdie flag of the radio: what the band says of the receive frequency, inverted by the user's
/// tick. The flag has no form value of its own, so the way to the form does nothing.
void GetIsBirdieChannel(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetIsBirdieChannel(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// A tone or code as text ("C67.0", "D023", "None") against type and index into table 50 or 61. Every use
/// appends a record of its own, so those tables are emptied before a whole personality is converted.
void GetSubAudSignalling(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetSubAudSignalling(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The network's number against the index of its record. A number that no network has leaves the index.
void GetChannelNetworkID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetChannelNetworkID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// Companding, which the radio keeps in two halves.
void GetCompanding(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetCompanding(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The channel's DTMF preset as text against its index in table 65; 0 for none.
void GetDTMFPreset(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetDTMFPreset(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// A Selcall burst as text against its index in table 30; "None" for 0. A channel whose network does not
/// use Selcall keeps none, a text that its system does not have leaves the index. A channel on a network
/// that is gone is put on the first one, which the user is told.
void GetPresetSelcallIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetPresetSelcallIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The texts of the bursts that a burst field of the record may take, in the order of their table: those of
/// the channel's Selcall system that are not empty. None without such a system, and for a record to come.
std::vector<std::string> BurstsOnOffer(const ProviderRef& provider, std::string_view uiid, RecordNr record);
/// The identity of the system by which a channel signals; none when its network signals in another way, and
/// for a channel to come.
std::optional<Variant> SystemOfChannel(const ProviderRef& provider, RecordNr channel,
                                       std::int32_t signallingType);
}  // namespace modChannels
