#pragma once

#include <string_view>

#include "common/Handles.h"

/// The programmable audio paths, records 1 to 4 of table 59: the receiver's and those of three microphones.
/// The forms name tap types and unmute conditions, the radio numbers them.
namespace modAudioIO {
void GetAudioIOMicSources(const ProviderRef& provider);
/// Paths beyond the fourth are removed.
void GetAudioIO(const ProviderRef& provider);

/// By number 539: the labels, then the paths.
void GetLabelsAndAudioIO(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Also writes the microphones of the PTTs (1096.MicSelect1 to 3) to their paths and to table 25.
void SetAudioIO(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modAudioIO
