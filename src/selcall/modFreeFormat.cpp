#include "selcall/modFreeFormat.h"

#include <algorithm>
#include <iterator>

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modCommonGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "selcall/modSelcallMapping.h"

namespace modFreeFormat {
namespace {
constexpr RecordNr kSequencesPerSystem = 7;

constexpr std::string_view kTwoDigits = "49.FreeForm2DigitStatus";
constexpr std::string_view kVariable = "V";
constexpr std::string_view kVariableOfTwoDigits = "VV";

/// A part of a sequence, and the gap behind it.
struct Part {
  std::string_view raw, form;
  std::string_view gap = {};
};
constexpr Part kParts[] = {
    // in the order of the telegram
    {"49.FreeFormBurstB", "49.FreeFormBurstB_UI", "49.FreeFormGap1"},
    {"49.FreeFormBurstR1", "49.FreeFormBurstR1_UI", "49.FreeFormGap2"},
    {"49.FreeFormBurstR2", "49.FreeFormBurstR2_UI", "49.FreeFormGap3"},
    {"49.FreeFormBurstR3", "49.FreeFormBurstR3_UI", "49.FreeFormGap4"},
    {"49.FreeFormStatus", "49.FreeFormStatus_UI"},
};

/// Null for a field that is no part of a sequence.
const Part* FindPart(std::string_view fieldId) {
  const auto* found =
      std::ranges::find_if(kParts, [&](const Part& part) { return EqualsIgnoringCase(part.form, fieldId); });
  return found == std::end(kParts) ? nullptr : found;
}

bool IsStatus(const Part& part) { return part.gap.empty(); }

std::string Gap(const Variant& tones) {
  constexpr std::int32_t kMost = 255;  // a damaged file is not to make a text that fills the memory
  return std::string(static_cast<std::size_t>(std::clamp(CLng(tones), 0, kMost)), '-');
}

std::string WholeSequence(const ProviderRef& provider, RecordNr record) {
  std::string sequence;
  for (const Part& part : kParts) {
    sequence += CStr(provider.Field(part.form).Value(record));
    if (!part.gap.empty()) sequence += Gap(provider.Field(part.gap).Value(record));
  }
  return sequence;
}

/// The monitor flag of the sequence at its system.
FieldRef Monitor(const ProviderRef& provider, RecordNr record) {
  return provider.Field("29.FreeFormMonitor" + std::to_string(GetFreeFormatDerivedFieldNumber(record)));
}

/// Hexadecimal without padding: "12" is "C".
std::string ToHex(std::string_view number) {
  const std::string hex = modCommonGlobals::ConvertNumericToHex(number);
  return hex.front() == '0' ? hex.substr(1) : hex;
}

/// Writes the double-digit box. A status of no tones ticks it too; wanted so.
std::string StatusToForm(const FieldRef& twoDigits, RecordNr record, const std::string& tones) {
  const bool ticked = tones.empty() || tones.size() == 2;
  twoDigits.SetValue(record, ticked ? kOn : kOff);
  if (tones == kVariableOfTwoDigits) return std::string(kVariable);
  const bool isNumber = tones.size() == 1 && tones != kVariable;
  return isNumber ? std::to_string(CLng("&H" + tones)) : tones;
}

std::string StatusFromForm(const Variant& twoDigits, const std::string& text) {
  if (text == kVariable) return std::string(IsTicked(twoDigits) ? kVariableOfTwoDigits : kVariable);
  return !text.empty() && IsCode(twoDigits, kOff) ? ToHex(text) : text;
}
}  // namespace

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

void GetSelcallTone(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetSelcallTone", [&] {
    const Part* part = FindPart(fieldId);
    if (part == nullptr) return;
    std::string text = modSelcallMapping::NumarrayToString(provider.Field(part->raw).Value(record));
    if (IsStatus(*part)) text = StatusToForm(provider.Field(kTwoDigits), record, text);
    provider.Field(part->form).SetValue(record, text);
  });
}

void SetSelcallTone(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSelcallTone", [&] {
    const Part* part = FindPart(fieldId);
    if (part == nullptr) return;
    std::string text = modSelcallMapping::SequenceText(provider.Field(part->form).Value(record));
    if (IsStatus(*part)) text = StatusFromForm(provider.Field(kTwoDigits).Value(record), text);
    provider.Field(part->raw).SetValue(record, modSelcallMapping::StringToNumarray(text));
  });
}
}  // namespace modFreeFormat
