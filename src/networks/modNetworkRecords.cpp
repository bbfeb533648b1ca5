#include "networks/modNetworkRecords.h"

#include <algorithm>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "radioui/modGPS.h"

namespace modNetworkRecords {
namespace {
/// A table with one record for each network, and the field there by which it is sorted: the network's number,
/// by its plain name and as FieldId.
struct Companion {
  std::string_view table;
  std::string_view number = {};  ///< "": the table has none to sort by, and follows table 21
  std::string_view numberId = {};
};
// clang-format off
constexpr Companion kCompanions[] = {  // in the order in which they are made
    {"53", "EmNetworkID",                 "53.NetworkIDTracker"},
    {"36"},
    {"75", "SIBTNetworkID_k6k",           "75.SIBTNetworkID"},
    {"78"},
    {"77"},
    {"67", "DTMFPatchNetworkID_k6k",      "67.DTMFPatchNetworkID"},
    {"72", "DTMFPatchTonesNetworkID_k6k", "72.DTMFPatchTonesNetworkID"},
};
// clang-format on

/// A table with a block of records for each network.
struct Blocks {
  std::string_view table;
  std::size_t perNetwork;
};
constexpr Blocks kBlocks[] = {{"51", 6}, {"68", 4}};

/// A field that holds the index, from 0, of a network or of a record that belongs to one.
struct Pointer {
  std::string_view fieldId;
  std::int32_t perNetwork = 1;
};
constexpr Pointer kPointers[] = {
    {"5.ChannelNetworkId"},           {"21.SIBTPointer"},         {"21.EmergencyPointer"},
    {"67.DTMFPatchToneSetupPointer"}, {"21.Ind1CallAlertPtr", 6}, {"21.Ind2CallAlertPtr", 6},
    {"21.GroupCallAlertPtr", 6},      {"21.AllCallAlertPtr", 6},  {"21.PriorityCallAlertPtr", 6},
    {"21.EmergencyCallAlertPtr", 6},  {"51.CallAlertID", 6},
};

constexpr std::string_view kPatchSequences[] = {
    "67.DTMFPatchSequence1", "67.DTMFPatchLineCapturedSeq1", "67.DTMFPatchLineReleaseSeq1",
    "67.DTMFPatchSequence2", "67.DTMFPatchLineCapturedSeq2", "67.DTMFPatchLineReleaseSeq2",
    "67.DTMFPatchSequence3", "67.DTMFPatchLineCapturedSeq3", "67.DTMFPatchLineReleaseSeq3",
    "67.DTMFPatchSequence4", "67.DTMFPatchLineCapturedSeq4", "67.DTMFPatchLineReleaseSeq4"};

/// The order of the networks after a sort: the index, from 0, that the n-th one had before.
using Order = std::vector<std::size_t>;

/// `newIndex` gives the new index of a network for its old one, both from 0.
template <typename NewIndex>
void MovePointers(const ProviderRef& provider, NewIndex newIndex) {
  for (const Pointer& pointer : kPointers) {
    const FieldRef field = provider.Field(pointer.fieldId);
    for (const RecordNr record : field.Records()) {
      const std::int32_t index = CLng(field.Value(record));
      if (index < 0) continue;  // none
      const std::int32_t moved =
          newIndex(index / pointer.perNetwork) * pointer.perNetwork + index % pointer.perNetwork;
      if (moved != index) field.SetValue(record, moved);
    }
  }
}

/// A damaged personality may lack records of the last networks.
void Complete(const TableRef& table, std::size_t needed) {
  for (RecordNr count = table.RecordCount(); count < static_cast<RecordNr>(needed); ++count)
    table.AppendRecord();
}

/// A record that lacks would shift those behind it in a sort, and a number that disagrees with the network's
/// would be sorted apart from it.
void Align(const ProviderRef& provider) {
  const FieldRef networks = provider.Field("NetworkID");
  for (const Companion& companion : kCompanions) {
    Complete(provider.Table(companion.table), static_cast<std::size_t>(networks.RecordCount()));
    if (companion.number.empty()) continue;
    const FieldRef numbers = provider.Field(companion.number);
    for (const RecordNr record : networks.Records()) {
      const Variant number = networks.Value(record);
      if (!SameValue(numbers.Value(record), number)) numbers.SetValue(record, CLng(number));
    }
  }
}

void SortBy(const ProviderRef& provider, std::string_view number, std::string_view numberId) {
  provider.Table(number).Sort(provider, number);
  provider.RefreshValues(numberId);
}

Order OrderOf(const std::vector<Variant>& before, const std::vector<Variant>& after) {
  Order order;
  std::vector<bool> taken(before.size());
  for (const Variant& number : after) {
    std::size_t old = 0;
    while (old < before.size() && (taken[old] || !SameValue(before[old], number))) ++old;
    if (old == before.size()) return {};  // the host's sort changed the numbers: nothing to follow
    taken[old] = true;
    order.push_back(old);
  }
  return order;
}

void Reorder(const ProviderRef& provider, const Blocks& blocks, const Order& order) {
  const TableRef table = provider.Table(blocks.table);
  if (table.RecordCount() == 0) return;  // the radio has none yet
  Complete(table, order.size() * blocks.perNetwork);
  for (const FieldRef& field : table.Fields().NewEnum()) {
    const std::vector<Variant> values = field.Values();
    for (std::size_t to = 0; to < order.size() * blocks.perNetwork; ++to) {
      const std::size_t from = order[to / blocks.perNetwork] * blocks.perNetwork + to % blocks.perNetwork;
      if (from != to) field.SetValue(static_cast<RecordNr>(to) + 1, values[from]);
    }
  }
}
}  // namespace

void AppendCompanions(const ProviderRef& provider) {
  const ScopedAutoUpdate silent(provider, false);
  for (const Companion& companion : kCompanions) {
    const RecordNr added = provider.Table(companion.table).AppendRecord();
    if (companion.table != "36") continue;
    provider.Field("DCSTxPolarity").SetValue(added, 0);
    provider.Field("DCSRxPolarity").SetValue(added, 0);
  }
}

void AddNetwork(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record) {
  Procedure("AddNetwork", [&] {
    const auto set = [&](std::string_view field, const Variant& value) {
      provider.Field(field).SetValue(record, value);
    };
    const Variant number = provider.DefaultValue("NetworkID");
    {
      const ScopedAutoUpdate silent(provider, false);
      for (const std::string_view field :
           {"NetworkID", "53.NetworkID", "77.CustomerDataNetworkID", "75.SIBTNetworkID"}) {
        set(field, number);
      }
      set("EmNetworkID", number);  // or the next sort would separate the emergency settings
      set("21.EmergencyPointer", record - 1);
      set("75.SIBTFrequency", provider.DefaultValue("75.SIBTFrequency"));
      set("67.DTMFPatchNetworkID", number);
      for (const std::string_view field : kPatchSequences) set(field, "");
    }
    // These reach the host's own follow-up work.
    set("72.DTMFPatchTonesNetworkID", number);
    set("NetworkSignallingID", kNone);
    ReloadLists(validator);
  });
}

void DeleteCompanions(const ProviderRef& provider, RecordNr network) {
  const ScopedAutoUpdate silent(provider, false);
  for (const Companion& companion : kCompanions) {
    const TableRef table = provider.Table(companion.table);
    if (table.HasRecord(network)) table.DeleteRecord(network);
  }
  for (const Blocks& blocks : kBlocks) {
    const TableRef table = provider.Table(blocks.table);
    const auto perNetwork = static_cast<RecordNr>(blocks.perNetwork);
    for (RecordNr record = network * perNetwork; record > (network - 1) * perNetwork; --record) {
      if (table.HasRecord(record)) table.DeleteRecord(record);
    }
  }
  MovePointers(provider, [&](std::int32_t index) { return index >= network ? index - 1 : index; });
  Order left;
  for (const RecordNr record : provider.Table("21").Records()) {
    if (record != network) left.push_back(static_cast<std::size_t>(record - 1));
  }
  modGPS::MoveRows(provider, left);
}

void Sort(const ProviderRef& provider) {
  const ScopedAutoUpdate silent(provider, false);
  Align(provider);
  const FieldRef numbers = provider.Field("NetworkID");
  const std::vector<Variant> before = numbers.Values();
  SortBy(provider, "NetworkID", "21.NetworkIDTracker");
  for (const Companion& companion : kCompanions) {
    if (!companion.number.empty()) SortBy(provider, companion.number, companion.numberId);
  }
  const Order order = OrderOf(before, numbers.Values());
  if (std::ranges::is_sorted(order)) return;  // nothing moved
  for (const Companion& companion : kCompanions) {
    if (companion.number.empty()) Reorder(provider, {companion.table, 1}, order);
  }
  for (const Blocks& blocks : kBlocks) Reorder(provider, blocks, order);
  const auto count = static_cast<std::int32_t>(order.size());
  MovePointers(provider, [&](std::int32_t index) {
    if (index < 0 || index >= count) return index;
    return static_cast<std::int32_t>(std::ranges::find(order, static_cast<std::size_t>(index)) -
                                     order.begin());
  });
  modGPS::MoveRows(provider, order);
}

void ReloadLists(const ValidatorRef& validator) {
  ReloadList(validator, "NetworkID");
  for (const Companion& companion : kCompanions) {
    if (!companion.number.empty()) ReloadList(validator, companion.number);
  }
}
}  // namespace modNetworkRecords
