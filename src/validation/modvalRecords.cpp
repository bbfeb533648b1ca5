#include "validation/modvalRecords.h"

#include <algorithm>

#include "channels/modvalChannels.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "networks/modNetworkRecords.h"
#include "networks/modvalNetworks.h"
#include "scangroups/modvalScanGroups.h"
#include "selcall/modSelcallRecords.h"
#include "selcall/modvalControlStatus.h"
#include "selcall/modvalSelcall.h"
#include "signalling/modvalDTMF.h"
#include "signalling/modvalMDC1200.h"
#include "signalling/modvalType99.h"

namespace modvalRecords {
namespace {
constexpr RecordNr kMostChannelsAndGroups = 100;

bool MayAddChannelOrGroup(const ValidatorRef& validator, const ProviderRef& provider) {
  if (provider.Table("5").RecordCount() + provider.Table("16").RecordCount() < kMostChannelsAndGroups)
    return true;
  Warn(validator, "The combined number of Channels and Scan Groups must not exceed 100.");
  return false;
}

bool AddNetworkCompanions(const ValidatorRef&, const ProviderRef& provider) {
  modNetworkRecords::AppendCompanions(provider);
  return true;
}

bool AddSelcallCompanions(const ValidatorRef&, const ProviderRef& provider) {
  modSelcallRecords::AppendCompanions(provider);
  return true;
}

constexpr struct {
  std::int32_t table;
  bool (*rule)(const ValidatorRef&, const ProviderRef&);
} kAddRules[] = {
    {5, MayAddChannelOrGroup},
    {16, MayAddChannelOrGroup},
    {21, AddNetworkCompanions},
    {29, AddSelcallCompanions},
    {64, modvalDTMF::AddPresets},
    {1115, modvalControlStatus::MayAddControlStatus},
    {1119, modvalScanGroups::MayAddMember},
};

constexpr struct {
  std::int32_t table;
  bool (*rule)(const ValidatorRef&, RecordNr);
} kDeleteRules[] = {
    {5, modvalChannels::DeleteChannel},  {16, modvalScanGroups::DeleteScanGroup},
    {21, modvalNetworks::DeleteNetwork}, {1119, modvalScanGroups::DeleteScanGroupMember},
    {29, modvalSelcall::DeleteSelcall},  {37, modvalType99::DeleteType99},
    {64, modvalDTMF::DeleteDTMF},        {80, modvalMDC1200::DeleteMDC1200},
};

/// The first row of the table's number, or the end.
template <typename Rows>
auto FindTable(const Rows& rows, std::int32_t table) {
  return std::ranges::find_if(rows, [&](const auto& row) { return row.table == table; });
}
}  // namespace

bool AddRecord(const ValidatorRef& validator, std::int32_t table, const ProviderRef& provider) {
  return Procedure("AddRecord", true, [&] {
    const auto* row = FindTable(kAddRules, table);
    return row == std::end(kAddRules) || row->rule(validator, provider);
  });
}

bool DeleteRecord(const ValidatorRef& validator, std::int32_t table, RecordNr record) {
  return Procedure("DeleteRecord", true, [&] {
    const auto* row = FindTable(kDeleteRules, table);
    return row == std::end(kDeleteRules) || row->rule(validator, record);
  });
}
}  // namespace modvalRecords
