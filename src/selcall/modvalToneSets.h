#pragma once

#include "common/FieldEdit.h"

/// The rules of the tone settings. A record of table 48 is the tone set of a Selcall system.
namespace modvalToneSets {
/// Another tone set brings its frequencies; of the user-defined one (9) those of its base. A standard set
/// brings the standard group and repeat tone, too, and all that holds them follows, on consent.
bool ValidateToneSets(FieldEdit& edit);
/// Another base set: its frequencies come into the sixteen fields. A base without tones leaves them.
bool ValidateBasedOnToneSet(FieldEdit& edit);
/// No two codes have one frequency: the code that had it takes the old one of the code in hand.
bool ValidateCustomFrequencies(FieldEdit& edit);
/// On leaving the form: whether the radio can tell the user-defined tones of the current system apart.
bool ValidateUserDefinedTones(const ValidatorRef& validator);
}  // namespace modvalToneSets
