#pragma once

#include "common/FinalReport.h"

/// What holds over all networks before a save.
namespace modvalNetworkChecks {
/// An emergency callout needs the emergency sequence of the network's system.
void CheckSelcallEmergency(FinalReport& report);
void CheckDTMFEmergency(FinalReport& report);
void CheckMDC1200Emergency(FinalReport& report);
/// Acknowledgement and the alerts that use it go together, in both directions: questions.
void CheckAckHasAlerts(FinalReport& report);
void CheckAlertsHaveAck(FinalReport& report);
/// Acknowledgement by a sequence, and ANI on PTT, need their sequences.
void CheckSelcallAck(FinalReport& report);
void CheckSelcallANI(FinalReport& report);
void CheckDTMFANI(FinalReport& report);
/// A call that the PTT sets up is to be heard: on consent every network gets side tones.
void OfferSideTones(FinalReport& report);
/// The fast FFSK modem does not go with single in-band tones on Selcall.
void CheckFFSKBaudRate(FinalReport& report);
}  // namespace modvalNetworkChecks
