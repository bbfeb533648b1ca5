#pragma once

#include <string_view>

#include "common/Handles.h"

/// The radio's tone tables as a whole, and the calibration of the sub-audible deviation.
namespace modSubaudible {
/// Empties tables 61 and 50, so that the channels can fill them anew one by one. There is nothing to do on
/// the way to the form.
void SetGenerateCTCSSDCS(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void GenerateCTCSSDCS(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The deviation in per cent against the raw output level of the calibrated field, whose name has
/// "CalibrationOutputLevel" where the form's has "TxDeviation".
void GetTxDeviation(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetOutputLevel(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modSubaudible
