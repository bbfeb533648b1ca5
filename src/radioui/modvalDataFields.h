#pragma once

#include "common/FieldEdit.h"

/// The rules of the data form: serial ports, Transparent Mode, VHSD modem, short data messages. All fields
/// are in record 1. True lets the host keep the change.
namespace modvalDataFields {
/// A powerup state needs its mode.
bool ValidatePowerupState(FieldEdit& edit);
/// Transparent Mode. Without it there is no VHSD modem, which needs consent.
bool ValidateTransparentMode(FieldEdit& edit);
/// The VHSD modem.
bool ValidateVHSDModem(FieldEdit& edit);
/// Short data messages; GPS position reporting and tone blanking may need them.
bool ValidateSDMOptions(FieldEdit& edit);
bool ValidateSDMOutput(FieldEdit& edit);
/// FFSK tone blanking needs SDM or Transparent Mode.
bool ValidateToneBlanking(FieldEdit& edit);
/// The XON character, as hexadecimal text, differs from the XOFF character, and the other way.
bool ValidateXon(FieldEdit& edit);
bool ValidateXoff(FieldEdit& edit);
/// No text or eight characters.
bool ValidateDataIdentity(FieldEdit& edit);
/// The Mic port serves neither a keypad mic nor hardware flow control; the latter is turned off on consent.
bool ValidateDataPort(FieldEdit& edit);
bool ValidateFlowControl(FieldEdit& edit);
/// A minimum above the maximum raises it; a maximum below the minimum is refused.
bool ValidateBackoffMinimum(FieldEdit& edit);
bool ValidateBackoffMaximum(FieldEdit& edit);
}  // namespace modvalDataFields
