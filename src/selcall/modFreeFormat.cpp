#include "selcall/modFreeFormat.h"

#include <algorithm>

#include "common/Procedure.h"
#include "platform/Conversions.h"

namespace modFreeFormat {
namespace {
std::string WholeSequence(const ProviderRef& provider, RecordNr record) {
  std::string sequence;
  for (const Part& part : kParts) {
    sequence += CStr(provider.Field(part.form).Value(record));
    if (!part.IsStatus()) sequence += Gap(provider.Field(part.gap).Value(record));
  }
  return sequence;
}

/// The monitor flag of the sequence at its system.
FieldRef Monitor(const ProviderRef& provider, RecordNr record) {
  return provider.Field("29.FreeFormMonitor" + std::to_string(GetFreeFormatDerivedFieldNumber(record)));
}
}  // namespace

std::string Gap(const Variant& tones) {
  constexpr std::int32_t kMost = 255;  // a damaged file is not to make a text that fills the memory
  return std::string(static_cast<std::size_t>(std::clamp(CLng(tones), 0, kMost)), '-');
}

// Asked for any number before anyone knows that there is such a record, so the arithmetic is of 64 bits.
RecordNr GetSelcallRecordFromFreeFormatRecord(RecordNr record) {
  return static_cast<RecordNr>((std::int64_t{record} - 1) / kSequencesPerSystem + 1);
}

std::int32_t GetFreeFormatDerivedFieldNumber(RecordNr record) { return GetSequenceID(record) + 1; }

std::int32_t GetSequenceID(RecordNr record) {
  return static_cast<std::int32_t>((std::int64_t{record} - 1) % kSequencesPerSystem);
}

std::string GetFreeFormatFieldName(RecordNr record) {
  return "FreeFormSequence" + std::to_string(GetFreeFormatDerivedFieldNumber(record));
}

void GetFreeFormatSequence(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetFreeFormatSequence", [&] {
    const std::string sequence = WholeSequence(provider, record);
    provider.Field("49.FreeFormSequence").SetValue(record, sequence);
    provider.Field("49.FreeFormSeqID").SetValue(record, GetSequenceID(record));
    const RecordNr system = GetSelcallRecordFromFreeFormatRecord(record);
    if (!provider.Table("29").HasRecord(system)) return;
    provider.Field(GetFreeFormatFieldName(record)).SetValue(system, sequence);
    const Variant monitor = provider.Field("49.FreeFormActivateMonitor").Value(record);
    Monitor(provider, record).SetValue(system, monitor);
  });
}

void SetFreeFormatFields(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetFreeFormatFields", [&] {
    const RecordNr system = GetSelcallRecordFromFreeFormatRecord(record);
    if (!provider.Table("29").HasRecord(system)) return;
    const Variant identity = provider.Field("29.SignalSystemId").Value(system);
    provider.Field("49.FreeFormSigSysID").SetValue(record, identity);
    provider.Field("49.FreeFormSeqID").SetValue(record, GetSequenceID(record));
    const Variant monitor = Monitor(provider, record).Value(system);
    provider.Field("49.FreeFormActivateMonitor").SetValue(record, monitor);
  });
}
}  // namespace modFreeFormat
