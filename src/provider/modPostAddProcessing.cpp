#include "provider/modPostAddProcessing.h"

#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/modCommonErrorHandler.h"
#include "platform/CaseText.h"
#include "provider/GridRecords.h"

namespace modPostAddProcessing {
namespace {
void TellUnknown(std::string_view gridName) {
  modCommonErrorHandler::ShowMessageBox(
      "The " + std::string(gridName) + " grid is not handled in post add processing", MessageStyle::kCritical,
      "Post Add Processing Error");
}

/// Null for a grid without that completion; a box has told so.
const GridRecords* FindHandled(std::string_view gridName, GridRecords::Complete GridRecords::*completion) {
  const GridRecords* grid = GridRecords::Find(gridName);
  if (grid != nullptr && grid->*completion != nullptr) return grid;
  TellUnknown(gridName);
  return nullptr;
}

/// The key field of a grid where the scan group members follow; an own name stands for itself.
std::string_view KeyField(std::string_view name) {
  if (EqualsIgnoringCase(name, "ScanGroup")) return "GroupID_k6k";
  if (EqualsIgnoringCase(name, "GroupMembership")) return "FilteredScanGroupChannelMemberID";
  return name;
}
}  // namespace

void CheckAddedRecord(const ValidatorRef& validator, const ProviderRef& provider, std::string_view gridName) {
  Procedure("CheckAddedRecord", [&] {
    const GridRecords* grid = FindHandled(gridName, &GridRecords::completeAdded);
    if (grid == nullptr) return;
    const ScopedAutoUpdate loud(provider, true);
    const RecordNr last = provider.Table(std::to_string(grid->table)).RecordCount();
    grid->completeAdded(validator, provider, last);
  });
}

void CheckInsertedRecord(const ValidatorRef& validator, const ProviderRef& provider,
                         std::string_view gridName, RecordNr record) {
  Procedure("CheckInsertedRecord", [&] {
    const GridRecords* grid = FindHandled(gridName, &GridRecords::completeInserted);
    if (grid == nullptr) return;
    const ScopedAutoUpdate loud(provider, true);
    grid->completeInserted(validator, provider, record);
  });
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
