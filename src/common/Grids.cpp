#include "common/Grids.h"

#include <algorithm>
#include <charconv>

#include "platform/CaseText.h"

namespace Grids {
namespace {
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
constexpr struct {
  std::string_view name;
  std::int32_t table;
} kGrids[] = {
    {"Channels6000", 5}, {"GroupMembership", 1119}, {"Network", 21}, {"ControlStatus6000", 1115},
    {"ScanGroup", 16},   {"Selcall6000", 29},       {"DTMF", 64},    {"Type99", 37},
    {"MDC1200", 80},
};
}  // namespace

std::int32_t TableOf(std::string_view gridName) {
  const auto* grid =
      std::ranges::find_if(kGrids, [&](const auto& row) { return EqualsIgnoringCase(row.name, gridName); });
  if (grid != std::end(kGrids)) return grid->table;
  std::int32_t table = 0;
  const char* end = gridName.data() + gridName.size();
  const auto [stop, problem] = std::from_chars(gridName.data(), end, table);
  return problem == std::errc() && stop == end ? table : 0;
}
}  // namespace Grids
