#pragma once

#include <string_view>

#include "common/Handles.h"

/// The digital lines: the forms show a grid (table 1108) with a row for each pin, all cells as text; the
/// radio has records of inputs (55), of outputs (56), and which pin selects which bit of a channel (57).
namespace modDigitalIO {
/// Row n of the grid is pin n. Raises 5 when the table can not be brought to so many rows.
void GetDigitalIOGrid(const ProviderRef& provider);
/// Fills the grid, and the lines of flow control (table 1109), from the radio. An output of an action that is
/// no longer there is mended in the radio. Raises 9 for an input or output record of no pin.
void GetDigitalIO(const ProviderRef& provider);

/// By number 533: the grid, then what it shows.
void GetGridAndDigitalIO(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
/// Rebuilds 55, 56 and 57 from the grid. Record n of 55 is row n of the grid.
void SetDigitalIO(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The parameters of the actions, fields of table 0, from and to the inputs that have these actions. A
/// parameter whose action no input has stays as it is.
void GetActionParameters(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
void SetActionParameters(const ProviderRef& provider, std::string_view fieldId, RecordNr record);
}  // namespace modDigitalIO
