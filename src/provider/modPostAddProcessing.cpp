#include "provider/modPostAddProcessing.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "channels/modvalChannels.h"
#include "common/Grids.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/modCommonErrorHandler.h"
#include "networks/modNetworkRecords.h"
#include "platform/CaseText.h"
#include "scangroups/modvalScanGroups.h"
#include "selcall/modSelcallRecords.h"
#include "selcall/modvalControlStatus.h"
#include "signalling/modvalDTMF.h"
#include "signalling/modvalMDC1200.h"
#include "signalling/modvalType99.h"

namespace modPostAddProcessing {
namespace {
/// By the table of the grid.
struct Completion {
  std::int32_t table;
  void (*complete)(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record);
};
constexpr Completion kAdded[] = {
    {5, modvalChannels::AddChannelK6000},
    {16, modvalScanGroups::AddScanGroupK6000},
    {21, modNetworkRecords::AddNetwork},
    {29, modSelcallRecords::AddSelcall6000},
    {37, modvalType99::AddType99_6000},
    {64, modvalDTMF::AddDTMF6000},
    {80, modvalMDC1200::AddMDC1200SignallingSystem},
    {1115, modvalControlStatus::AddControlStatus},
    {1119, modvalScanGroups::AddGroupMembershipK6000},
};

constexpr Completion kInserted[] = {
    {5, modvalChannels::InsertChannelK6000},
    {1115, modvalControlStatus::AddControlStatus},
};

void TellUnknown(std::string_view gridName) {
  modCommonErrorHandler::ShowMessageBox(
      "The " + std::string(gridName) + " grid is not handled in post add processing", MessageStyle::kCritical,
      "Post Add Processing Error");
}

/// Null for a grid that is not handled; a box has told so.
const Completion* FindCompletion(std::span<const Completion> completions, std::string_view gridName) {
  const auto row = std::ranges::find(completions, Grids::TableOf(gridName), &Completion::table);
  if (row != completions.end()) return &*row;
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
    const Completion* completion = FindCompletion(kAdded, gridName);
    if (completion == nullptr) return;
    const ScopedAutoUpdate loud(provider, true);
    const RecordNr last = provider.Table(std::to_string(completion->table)).RecordCount();
    completion->complete(validator, provider, last);
  });
}

void CheckInsertedRecord(const ValidatorRef& validator, const ProviderRef& provider,
                         std::string_view gridName, RecordNr record) {
  Procedure("CheckInsertedRecord", [&] {
    const Completion* completion = FindCompletion(kInserted, gridName);
    if (completion == nullptr) return;
    const ScopedAutoUpdate loud(provider, true);
    completion->complete(validator, provider, record);
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
