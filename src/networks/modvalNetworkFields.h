#pragma once

#include "common/FieldEdit.h"

/// The rules of the network forms that need no more than their neighbours, and those of the Selcall and
/// MDC1200 systems. `edit.record` is a network or a system. True lets the host keep the change.
namespace modvalNetworkFields {
/// The third tone reset of a Selcall system does not go with the reset by an invalid call.
bool ValidateInvalidCallReset(FieldEdit& edit);
/// The sequences that open the monitor: without both there is no call to monitor.
bool ValidateSequenceTwoMonitor(FieldEdit& edit);
/// The longest transmission; 0 is no limit.
bool ValidateTxDuration(FieldEdit& edit);
/// The over beep takes the place of the trailing ANI.
bool ValidateAutoOverBeep(FieldEdit& edit);
/// A two-tone network has no ring alerts.
bool ValidateAlertType(FieldEdit& edit);
bool ValidateDeferredCalling(FieldEdit& edit);
/// A sequence of an MDC1200 system needs a radio identity.
bool ValidateMDC1200Identity(FieldEdit& edit);
}  // namespace modvalNetworkFields
