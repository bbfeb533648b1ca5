#include "networks/modNetworkRecords.h"

#include <algorithm>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RecordBlocks.h"
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

constexpr RecordBlocks kBlocks[] = {{"51", 6}, {"68", 4}};

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

/// `newIndex` gives the new index of a network for its old one, both from 0.
template <typename NewIndexOf>
void MoveAllPointers(const ProviderRef& provider, const NewIndexOf& newIndex) {
  for (const Pointer& pointer : kPointers) {
    MovePointers(provider.Field(pointer.fieldId), [&](std::int32_t index) {
      return newIndex(index / pointer.perNetwork) * pointer.perNetwork + index % pointer.perNetwork;
    });
  }
}

/// A record that lacks would shift those behind it in a sort, and a number that disagrees with the network's
/// would be sorted apart from it.
void Align(const ProviderRef& provider) {
  const FieldRef networks = provider.Field("NetworkID");
  for (const Companion& companion : kCompanions) {
    CompleteBlocks(provider, {companion.table}, networks.RecordCount());
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

void Reorder(const ProviderRef& provider, const RecordBlocks& blocks, const RecordOrder& order) {
  if (provider.Table(blocks.table).RecordCount() == 0) return;  // the radio has none yet
  CompleteBlocks(provider, blocks, static_cast<RecordNr>(order.size()));
  ReorderBlocks(provider, blocks, order);
}
}  // namespace

void AppendCompanions(const ValidatorRef&, const ProviderRef& provider) {
  const ScopedAutoUpdate silent(provider, false);
  const RecordNr networks = provider.Table("21").RecordCount();
  for (const Companion& companion : kCompanions) {
    AlignBlocks(provider, {companion.table}, networks);
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
  for (const Companion& companion : kCompanions) DeleteBlock(provider, {companion.table}, network);
  for (const RecordBlocks& blocks : kBlocks) DeleteBlock(provider, blocks, network);
  MoveAllPointers(provider, [&](std::int32_t index) { return index >= network ? index - 1 : index; });
  RecordOrder left;
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
  const RecordOrder order = OrderOf(before, numbers.Values());
  if (std::ranges::is_sorted(order)) return;  // nothing moved
  for (const Companion& companion : kCompanions) {
    if (companion.number.empty()) Reorder(provider, {companion.table}, order);
  }
  for (const RecordBlocks& blocks : kBlocks) Reorder(provider, blocks, order);
  MoveAllPointers(provider, [&](std::int32_t index) { return NewIndex(order, index); });
  modGPS::MoveRows(provider, order);
}

void ReloadLists(const ValidatorRef& validator) {
  ReloadList(validator, "NetworkID");
  for (const Companion& companion : kCompanions) {
    if (!companion.number.empty()) ReloadList(validator, companion.number);
  }
}
}  // namespace modNetworkRecords
