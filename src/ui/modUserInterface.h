#pragma once

#include "channels/colSubaudible.h"
#include "ui/colUserFields.h"

/// The tables that come from the data files beside the application, one copy for the process.
namespace modUserInterface {
/// Reads the three files once. False when one can not be read; the next call then tries anew.
bool InitialiseUserInterface();
const colUserFields& UserFields();
const colCTCSS& CTCSS();
const colDCS& DCS();
}  // namespace modUserInterface
