#include "provider/modPostAddProcessing.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "common/Grids.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/modCommonErrorHandler.h"
#include "networks/modNetworkRecords.h"
#include "platform/CaseText.h"

namespace modPostAddProcessing {
namespace {
/// By the table of the grid.
constexpr struct {
  std::int32_t table;
  void (*complete)(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record);
} kAdded[] = {
    {21, modNetworkRecords::AddNetwork},
};

/// Tables of grids whose subjects the tier does not have yet.
constexpr std::int32_t kAddedToCome[] = {5, 16, 29, 37, 64, 80, 1115, 1119};
constexpr std::int32_t kInsertedToCome[] = {5, 1115};

bool IsOneOf(std::span<const std::int32_t> tables, std::string_view gridName) {
  return std::ranges::find(tables, Grids::TableOf(gridName)) != tables.end();
}

void TellUnknown(std::string_view gridName) {
  modCommonErrorHandler::ShowMessageBox(
      "The " + std::string(gridName) + " grid is not handled in post add processing", MessageStyle::kCritical,
      "Post Add Processing Error");
}

/// The key field of a grid where the scan group members follow; an own name stands for itself.
std::string_view KeyField(std::string_view name) {
  if (EqualsIgnoringCase(name, "ScanGroup")) return "GroupID_k6k";
  if (EqualsIgnoringCase(name, "GroupMembership")) return "FilteredScanGroupChannelMemberID";
  return name;
}
}  // namespace

bool CanCompleteAdded(std::string_view gridName) { return !IsOneOf(kAddedToCome, gridName); }

bool CanCompleteInserted(std::string_view gridName) { return !IsOneOf(kInsertedToCome, gridName); }

void CheckAddedRecord(const ValidatorRef& validator, const ProviderRef& provider, std::string_view gridName) {
  Procedure("CheckAddedRecord", [&] {
    const std::int32_t table = Grids::TableOf(gridName);
    const auto* row = std::ranges::find_if(kAdded, [&](const auto& grid) { return grid.table == table; });
    if (row == std::end(kAdded)) return TellUnknown(gridName);
    const ScopedAutoUpdate loud(provider, true);
    row->complete(validator, provider, provider.Table(std::to_string(table)).RecordCount());
  });
}

void CheckInsertedRecord(std::string_view gridName) {
  Procedure("CheckInsertedRecord", [&] { TellUnknown(gridName); });
}

bool RecordDeleted(const ValidatorRef& validator, std::string_view name) {
  return Procedure("RecordDeleted", true, [&] {
    const std::string_view key = KeyField(name);
    if (EqualsIgnoringCase(key, "GroupID_k6k") ||
        EqualsIgnoringCase(key, "FilteredScanGroupChannelMemberID")) {
      ReloadList(validator, "FilteredScanGroupChannelMemberID");
    }
    return true;
  });
}
}  // namespace modPostAddProcessing
