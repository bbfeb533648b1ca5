#include "workbench/jobs/BurstSlots.h"

#include "platform/Conversions.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace BurstSlots {

std::vector<RecordNr> Of(const Provider& content, std::int32_t grid, RecordNr system) {
  constexpr std::int32_t kFirstGrid = 1101;
  const std::int32_t kind = grid - kFirstGrid;
  const bool isGrid = kind >= 0 && kind < std::ssize(kKinds);
  return isGrid ? OfKind(content, kind, system) : std::vector<RecordNr>();
}

std::vector<RecordNr> OfKind(const Provider& content, std::int32_t kind, RecordNr system) {
  const Variant identity = content.Get("29.SignalSystemId", system);
  const SchemaField& owner = content.FieldOf("30.FixedFormatSigSystemID");
  const SchemaField& type = content.FieldOf("30.FixedFormatBurstType");
  std::vector<RecordNr> records;
  for (RecordNr record = 2; record <= content.Count(owner.table); ++record) {  // the first is no system's
    const bool isOfKind = SameValue(content.Get(type, record), kind);
    if (isOfKind && SameValue(content.Get(owner, record), identity)) records.push_back(record);
  }
  return records;
}

}  // namespace BurstSlots
