#pragma once

#include <string>
#include <string_view>

#include "common/Handles.h"

/// The networks between the radio and the forms, one record of table 21 and of its companions a call. Get
/// goes to the form, Set comes from it; `fieldId` is the form's field.
namespace modNetworks {
/// Which radio a tier is for, by the tier's name.
bool IsKD4410Tier(std::string_view name);
bool IsKE2210Tier(std::string_view name);
bool IsKnownTier(std::string_view name);

/// The network's number. On the way to the form the network's emergency settings take it too.
void GetSystemID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetSystemID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The identity of the network's signalling system against its index in the table of its type. An
/// identity that no system has points at the first one.
void GetNetworkSignallingID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetNetworkSignallingID(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// Signalling on a press and on the release of PTT: one choice on the form, two switches in the radio. What
/// the choices do not cover leaves the other side as it is.
void GetSignallingOnPTTPress(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetSignallingOnPTTPress(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void GetSignallingOnPTTRelease(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetSignallingOnPTTRelease(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The signalling type as text: it comes from the network and goes, as a number, to its emergency settings.
/// That the two differ is wanted.
void GetEmergencyType(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetEmergencyType(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// The text of a signalling type; empty for one that the radio does not have.
std::string_view SignallingTypeText(std::int32_t type);

/// The field with the ANI or the emergency sequence of the systems of a type, as text; empty for a type whose
/// systems have none.
std::string_view ANISequenceField(std::int32_t type);
std::string_view EmergencySequenceField(std::int32_t type);
/// The sequence in the system of that type and identity; empty without such a system. Raises 5 for a type
/// without systems.
std::string SequenceOf(const ProviderRef& provider, std::int32_t type, const Variant& identity,
                       std::string_view sequenceField);

/// Tone frequencies: tenths of a hertz in the radio, hertz on the form. Those of emergency cycling are whole
/// numbers on both sides, halves to the even neighbour. One conversion a call: where the host keeps both in
/// one field, the two ways have to alternate.
void GetTxCyclingBegin(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetTxCyclingBegin(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void GetTxCyclingEnd(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetTxCyclingEnd(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void GetAutoOverBeep(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetAutoOverBeep(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void GetCWIDFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetCWIDFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// How long emergency cycling takes at most, from the settings of the record: for the form alone.
void SetEmergencyMaximumCyclingTime(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Likewise from its parts, in their unit: the total of a fixed number of cycles, "-" for any other type.
Variant MaximumCyclingTime(bool isFixedNumber, double rxTime, double txTime, double cycles);
}  // namespace modNetworks
