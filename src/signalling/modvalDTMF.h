#pragma once

#include "common/FieldEdit.h"

/// The rules of DTMF systems and of their preset sequences. The presets of all systems stand in table 65 from
/// record 2; table 1098 shows those of the system on the form, CurrentDTMFNr, and they are edited there.
namespace modvalDTMF {
/// CURRENTDTMFNR: brings the shown presets back, and shows those of the system that the forms turn to.
bool ValidateCurrentDTMF(FieldEdit& edit);
/// The sequences of a system.
bool ValidateDTMFSequence(FieldEdit& edit);
/// DTMFPRESETSEQUENCE: the channels that use a preset follow it, also where a later test refuses it.
bool ValidatePresetSequence(FieldEdit& edit);

/// Never refuses.
bool ValidateDTMFForm(const ValidatorRef& validator);
/// Gives a system that is about to come its presets, at the end of their table. What belongs to no system
/// goes first, and a system that lacks presets gets them.
void AppendPresets(const ValidatorRef& validator, const ProviderRef& provider);
/// Completes the new system `record`: a free number, empty sequences, the presets that belong to nobody. The
/// forms turn to it.
void AddDTMF6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record);
/// Deletes the presets of a system that no network uses; the forms show another one. The system itself is the
/// host's to delete.
bool DeleteDTMF(const ValidatorRef& validator, RecordNr system);
}  // namespace modvalDTMF
