#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Error.h"

namespace modCommonErrorHandler {
/// Puts the application and the procedure in front of the description, unless it already is the
/// procedure's name.
void AddProcToError(Fault& fault, std::string_view procedure);

/// A plain message box of the operating system, for faults of the tier itself; never through the
/// messenger, and it never fails a rule. Gives the button.
std::int32_t ShowMessageBox(std::string_view text, std::int32_t style = 0,
                            std::string_view title = "Programming Application");
}  // namespace modCommonErrorHandler
