#pragma once

#include "common/FieldEdit.h"
#include "common/FinalReport.h"

/// The rules of programmable I/O: what one pin does decides what its neighbours may do. The record of a rule
/// of the grid is its row.
namespace modvalProgIO {
bool ValidateDigitalIODirection(FieldEdit& edit);
/// Writes the new action itself, for what follows depends on it. Refused, it may have set the active state:
/// advice on the hardware comes first.
bool ValidateDigitalIOAction(FieldEdit& edit);
bool ValidateDigitalIOActiveState(FieldEdit& edit);
bool ValidateDigitalIOMirroredTo(FieldEdit& edit);
/// IOPRTS and IOPCTS: the pin that was the line's becomes free, the new one takes its direction and action.
bool ValidateCTSRTS(FieldEdit& edit);
/// AUDIOIOTAPIN, AUDIOIOTAPOUT, TAPINTYPE, TAPOUTTYPE
bool ValidateAudioTap(FieldEdit& edit);

bool ValidateProgIOForm(const ValidatorRef& validator);
/// Whether all outputs that reflect the key, 1 to 4, have one signal type.
bool ProgIOSignalStatesIdentical(const ProviderRef& provider, int key);

// Before a save.
/// Pins that simulate a key that does nothing.
void CheckSimulatedKeys(FinalReport& report);
/// A pin that inhibits PTTs of which none can be inhibited.
void CheckPTTInhibit(FinalReport& report);
/// Pins that have a direction and nothing to do; never refuses.
void WarnOfIdlePins(FinalReport& report);
/// Hardware flow control needs its two lines.
void CheckFlowControlPins(FinalReport& report);
}  // namespace modvalProgIO
