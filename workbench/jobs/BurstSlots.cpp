#include "workbench/jobs/BurstSlots.h"

#include <unordered_map>

#include "platform/Conversions.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace BurstSlots {
namespace {

std::vector<RecordNr> OfKind(const Provider& content, std::size_t kind, RecordNr system) {
  const Variant identity = content.Get("29.SignalSystemId", system);
  const SchemaField& owner = content.FieldOf("30.FixedFormatSigSystemID");
  const SchemaField& type = content.FieldOf("30.FixedFormatBurstType");
  std::vector<RecordNr> records;
  for (RecordNr record = 2; record <= content.Count(owner.table); ++record) {  // the first is no system's
    const bool isOfKind = SameValue(content.Get(type, record), static_cast<std::int32_t>(kind));
    if (isOfKind && SameValue(content.Get(owner, record), identity)) records.push_back(record);
  }
  return records;
}

/// The numbers of the channels by the record of table 30 that they point at.
using Users = std::unordered_map<RecordNr, std::vector<std::string>>;
Users UsersOf(const Provider& content, const Kind& kind) {
  Users users;
  const SchemaField& pointer = content.FieldOf(kind.pointer);
  const SchemaField& number = content.FieldOf("ChannelID_k6k");
  for (RecordNr channel = 1; channel <= content.Count(pointer.table); ++channel) {
    const std::int32_t index = CLng(content.Get(pointer, channel));
    if (index > 0) users[index + 1].push_back(CStr(content.Get(number, channel)));
  }
  return users;
}

}  // namespace

std::vector<RecordNr> Of(const Provider& content, std::int32_t grid, RecordNr system) {
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
    if (content.FieldOf(kKinds[kind].uiid).table == grid) return OfKind(content, kind, system);
  }
  return {};
}

std::vector<Entry> AddressBook(const Provider& content, RecordNr system) {
  std::vector<Entry> entries;
  const SchemaField& text = content.FieldOf("UGBurstSeq");
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
    Users users = UsersOf(content, kKinds[kind]);
    RecordNr row = 0;
    for (const RecordNr record : OfKind(content, kind, system)) {
      entries.push_back({kind, ++row, record, CStr(content.Get(text, record)), std::move(users[record])});
    }
  }
  return entries;
}

}  // namespace BurstSlots
