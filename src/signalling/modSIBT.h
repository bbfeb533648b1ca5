#pragma once

#include <string_view>

#include "common/Handles.h"

/// The single in-band tone of a network, by the network's record. The forms show hertz, the radio holds
/// tenths of a hertz.
namespace modSIBT {
/// In place: each call moves the frequency, so there is to be one for each way. The tone takes the number of
/// its network, where that is there.
void GetGenerateSIBTFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// In place, too; writes what the decoder needs beside it.
void SetGenerateSIBTFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The box and the position of the tone are one number in the radio; a position that it does not tell is the
/// standard one.
void GetSIBTEnabled(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetSIBTEnabled(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modSIBT
