#include "provider/GridRecords.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "channels/modvalChannels.h"
#include "networks/modNetworkRecords.h"
#include "networks/modvalNetworks.h"
#include "platform/CaseText.h"
#include "scangroups/modvalScanGroups.h"
#include "selcall/modSelcallRecords.h"
#include "selcall/modvalControlStatus.h"
#include "selcall/modvalSelcall.h"
#include "signalling/modvalDTMF.h"
#include "signalling/modvalMDC1200.h"
#include "signalling/modvalType99.h"

namespace {
/// The two share the numbers that a person dials.
bool FitChannelsAndGroups(const ProviderRef& provider) {
  constexpr RecordNr kMost = 100;
  return provider.Table("5").RecordCount() + provider.Table("16").RecordCount() < kMost;
}
constexpr std::string_view kTooManyNumbers =
    "The combined number of Channels and Scan Groups must not exceed 100.";
constexpr std::string_view kNoGroups = "Unable to Add Scan Group Members as there is no Scan Groups defined.";
constexpr std::string_view kNoStatusBurst =
    "There is no 'S' burst present in the Rx Format for the current signalling system. Please add an 'S' "
    "burst before adding a control status.";

// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
constexpr GridRecords kGrids[] = {
    {.name = "Channels6000",
     .table = 5,
     .hasRoom = FitChannelsAndGroups,
     .noRoom = kTooManyNumbers,
     .completeAdded = modvalChannels::AddChannelK6000,
     .completeInserted = modvalChannels::InsertChannelK6000,
     .mayDelete = modvalChannels::DeleteChannel},
    {.name = "GroupMembership",
     .table = 1119,
     .hasRoom = modvalScanGroups::HasGroups,
     .noRoom = kNoGroups,
     .prepare = modvalScanGroups::ShowMembers,
     .completeAdded = modvalScanGroups::AddGroupMembershipK6000,
     .mayDelete = modvalScanGroups::DeleteScanGroupMember},
    {.name = "Network",
     .table = 21,
     .prepare = modNetworkRecords::AppendCompanions,
     .completeAdded = modNetworkRecords::AddNetwork,
     .mayDelete = modvalNetworks::DeleteNetwork},
    {.name = "ControlStatus6000",
     .table = 1115,
     .hasRoom = modvalControlStatus::HasStatusBurst,
     .noRoom = kNoStatusBurst,
     .completeAdded = modvalControlStatus::AddControlStatus,
     .completeInserted = modvalControlStatus::AddControlStatus},
    {.name = "ScanGroup",
     .table = 16,
     .hasRoom = FitChannelsAndGroups,
     .noRoom = kTooManyNumbers,
     .completeAdded = modvalScanGroups::AddScanGroupK6000,
     .mayDelete = modvalScanGroups::DeleteScanGroup},
    {.name = "Selcall6000",
     .table = 29,
     .prepare = modSelcallRecords::AppendCompanions,
     .completeAdded = modSelcallRecords::AddSelcall6000,
     .mayDelete = modvalSelcall::DeleteSelcall},
    {.name = "DTMF",
     .table = 64,
     .prepare = modvalDTMF::AppendPresets,
     .completeAdded = modvalDTMF::AddDTMF6000,
     .mayDelete = modvalDTMF::DeleteDTMF},
    {.name = "Type99",
     .table = 37,
     .completeAdded = modvalType99::AddType99_6000,
     .mayDelete = modvalType99::DeleteType99},
    {.name = "MDC1200",
     .table = 80,
     .completeAdded = modvalMDC1200::AddMDC1200SignallingSystem,
     .mayDelete = modvalMDC1200::DeleteMDC1200},
};
}  // namespace

const GridRecords* GridRecords::Find(std::string_view gridName) {
  const auto* grid = std::ranges::find_if(kGrids, [&](const GridRecords& row) {
    return EqualsIgnoringCase(row.name, gridName) || std::to_string(row.table) == gridName;
  });
  return grid == std::end(kGrids) ? nullptr : grid;
}
