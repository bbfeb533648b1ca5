#pragma once

#include "common/FieldEdit.h"

/// The rules of the emergency form that need no more than their neighbours. `edit.record` is a network. True
/// lets the host keep the change.
namespace modvalEmergencyFields {
/// The current channel is no dedicated one.
bool ValidateChannelType(FieldEdit& edit);
/// Callouts: without end they get a notice on a network that does not acknowledge.
bool ValidateCalloutType(FieldEdit& edit);
bool ValidateCalloutNumber(FieldEdit& edit);
/// A radio that looks switched off can be reset by Selcall alone: a notice.
bool ValidateFalsePowerdown(FieldEdit& edit);
/// The times and the number of cycles: the longest time that cycling takes follows.
bool ValidateCyclingTime(FieldEdit& edit);
}  // namespace modvalEmergencyFields
