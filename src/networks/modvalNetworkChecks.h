#pragma once

#include "common/ValidatorRef.h"

/// What holds over all networks before a save. Each tells the user of the first network that it finds; false
/// ends the walk.
namespace modvalNetworkChecks {
/// An emergency callout needs the emergency sequence of the network's system.
bool CheckEmergencySequences(const ValidatorRef& validator);
/// Acknowledgement and the alerts that use it go together, in both directions: questions.
bool CheckAckHasAlerts(const ValidatorRef& validator);
bool CheckAlertsHaveAck(const ValidatorRef& validator);
/// Acknowledgement by a sequence, and ANI on PTT, need their sequences.
bool CheckAckAndANISequences(const ValidatorRef& validator);
/// A call that the PTT sets up is to be heard: on consent every network gets side tones.
bool OfferSideTones(const ValidatorRef& validator);
/// The fast FFSK modem does not go with single in-band tones on Selcall.
bool CheckFFSKBaudRate(const ValidatorRef& validator);
}  // namespace modvalNetworkChecks
