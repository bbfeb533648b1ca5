#pragma once

#include <cstdint>
#include <string_view>

/// The editable views of a table that a host calls by name when a record is added or deleted.
namespace Grids {
/// The table of a grid, its name in any case; a table number stands for itself. 0 for an unknown name.
std::int32_t TableOf(std::string_view gridName);
}  // namespace Grids
