#pragma once

#include "common/FieldEdit.h"
#include "common/FinalReport.h"

/// The rules of the function keys' form.
namespace modvalFunctionKeys {
/// The action of a key. Its parameters take the defaults of the new action before anything is judged, and
/// keep them though the action is then refused.
bool ValidateFunctionKeys(FieldEdit& edit);

/// On leaving the form: what may not stand on two keys, and what may not stand beside each other.
bool FormIsValid(const ValidatorRef& validator);

/// Before a save: a key that scans needs channels to scan, and one that is heard.
void ValidateFunctionKeyFinalValidation(FinalReport& report);

}  // namespace modvalFunctionKeys
