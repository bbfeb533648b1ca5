#pragma once

#include "common/FieldEdit.h"

/// The rules of the single in-band tone: a channel has it or a subaudible tone, not both.
namespace modvalSIBT {
/// RXSIGNALLING_K6K and TXSIGNALLING_K6K.
bool ValidateRXSignalling(FieldEdit& edit);
bool ValidateTXSignalling(FieldEdit& edit);
/// SIBTENABLED_K6K. Refused, it has switched off the cycling of the tone all the same.
bool ValidateEnableDisableSIBT(FieldEdit& edit);
}  // namespace modvalSIBT
