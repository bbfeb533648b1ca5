#pragma once

#include "common/FieldEdit.h"

/// The rules of the GPS form. Its fields are in record 1. True lets the host keep
/// the change.
namespace modvalGPSFields {
/// GPS position reporting needs SDM, in the standard format.
bool ValidateGPSEnabled(FieldEdit& edit);
bool ValidateGPSPort(FieldEdit& edit);
/// The response channel goes with a dedicated type alone.
bool ValidatePollResponseType(FieldEdit& edit);
bool ValidateSDMFormat(FieldEdit& edit);
/// Eight characters.
bool ValidateDespatcherAddress(FieldEdit& edit);
/// No callouts: a notice.
bool ValidateCallouts(FieldEdit& edit);
}  // namespace modvalGPSFields
