#include "selcall/modToneSets.h"

#include <array>
#include <cstdio>

#include "common/ArrayRows.h"
#include "common/LibraryArray.h"
#include "common/Procedure.h"
#include "platform/Conversions.h"
#include "platform/Error.h"
#include "selcall/ToneSets.h"

namespace modToneSets {
namespace {
using ToneSets::kToneCodes;
using ToneSets::Tone;
using ToneSets::ToneSet;

constexpr std::int32_t kCodes = kToneCodes;
constexpr std::int32_t kLastCode = kCodes - 1;

/// In the first row, or in any, of the frequencies: it was never set.
constexpr std::int32_t kNeverSet = 4095;
/// The tones of a standard set; another pair makes it a user's.
constexpr std::int32_t kStandardGroupTone = 10;
constexpr std::int32_t kStandardRepeatTone = 14;

// The columns of a set laid out by tone code.
constexpr std::int32_t kNominal = 0;
constexpr std::int32_t kLowest = 1;
constexpr std::int32_t kHighest = 2;
constexpr std::int32_t kCode = 3;
constexpr std::int32_t kColumns = 4;

std::string_view FormFieldOf(std::int32_t code) {
  return kFrequencyFields[static_cast<std::size_t>(code)].id;
}

std::string HexRow(const Tone& tone) {
  char text[32];
  std::snprintf(text, sizeof text, tone.increment == 0 ? "%04X,%04X,%04X" : "%04X,%04X,%04X,%04X",
                static_cast<unsigned>(tone.nominal), static_cast<unsigned>(tone.lowest),
                static_cast<unsigned>(tone.highest), static_cast<unsigned>(tone.increment));
  return text;
}

std::string RemapText(const ToneSet& set) {
  std::string text;
  for (const std::uint8_t place : set.remap) text += (text.empty() ? "" : ",") + std::to_string(place);
  return text;
}

/// The number of hertz that code c has in the stored frequencies; of a row that is not there 4095.
Variant StoredFrequency(const Variant& frequencies, std::int32_t code) {
  const Variant* stored = ArrayRows::Find(frequencies, code + 1);
  return stored == nullptr ? Variant(kNeverSet) : *stored;
}
bool IsNeverSet(const Variant& frequency) { return SameValue(frequency, kNeverSet); }

/// Whether frequencies were set, and one of them is not that of the set.
bool DiffersFrom(const ToneSet* set, const Variant& frequencies) {
  if (IsNeverSet(StoredFrequency(frequencies, 0))) return false;
  for (std::int32_t code = 0; code < kCodes; ++code) {
    const Variant* stored = ArrayRows::Find(frequencies, code + 1);
    if (set == nullptr || stored == nullptr) return true;
    if (!SameValue(*stored, set->OfCode(static_cast<std::size_t>(code)).nominal)) return true;
  }
  return false;
}

/// False for a system without a record in table 31: a damaged file is not to be taken for a user's set.
bool HasOtherTone(const ProviderRef& provider, std::string_view field, RecordNr record,
                  std::int32_t standard) {
  const FieldRef tone = provider.Field(field);
  return tone.HasRecord(record) && !SameValue(tone.Value(record), standard);
}

/// One column of the rows 0 to 15 as the radio holds it: rows 1 to 16, row 0 unused.
ArrayObject ColumnOf(const XArrayDBObject& tones, std::int32_t column) {
  auto raw = std::make_shared<LibraryArray>();
  raw->Redim(0, kCodes, ArrayRows::kColumn, ArrayRows::kColumn);
  for (std::int32_t row = 0; row < kCodes; ++row) {
    raw->SetValue(row + 1, ArrayRows::kColumn, tones.GetValue(row, column));
  }
  return raw;
}

/// Writes the four arrays of a record of table 48 or 74; `tones` stand in the order of their codes and are
/// sorted on the way.
void StoreTones(const ProviderRef& provider, const std::string& table, RecordNr record,
                XArrayDBObject& tones) {
  provider.Field(table + ".CustomFrequencies").SetValue(record, ColumnOf(tones, kNominal));
  using SortKey = XArrayDBObject::SortKey;
  const SortKey byLimit[] = {{kLowest, SortKey::kAscending, SortKey::kNumber}};
  tones.SortRows(tones.LowerBound(1), kLastCode, byLimit);
  provider.Field(table + ".ToneSetRemapTable").SetValue(record, ColumnOf(tones, kCode));
  provider.Field(table + ".ToneSetLowFreq").SetValue(record, ColumnOf(tones, kLowest));
  provider.Field(table + ".ToneSetHighFreq").SetValue(record, ColumnOf(tones, kHighest));
}

/// The first tone of that frequency, by tone code; null for none, and for a text that is no number.
const Tone* FindTone(const ToneSet* base, const Variant& frequency) {
  if (base == nullptr || !IsNumeric(frequency)) return nullptr;
  for (std::size_t code = 0; code < base->tones.size(); ++code) {
    if (SameValue(frequency, base->OfCode(code).nominal)) return &base->OfCode(code);
  }
  return nullptr;
}

/// The frequencies of the form by tone code. One that the base set does not have has neither limits nor code.
std::shared_ptr<XArrayDBObject> TonesOfForm(const ProviderRef& provider, const ToneSet* base,
                                            RecordNr record) {
  auto tones = std::make_shared<LibraryArray>();
  tones->Redim(0, kLastCode, 0, kColumns - 1);
  for (std::int32_t code = 0; code < kCodes; ++code) {
    const Variant frequency = CStr(provider.Field(FormFieldOf(code)).Value(record));
    tones->SetValue(code, kNominal, frequency);
    const Tone* tone = FindTone(base, frequency);
    if (tone == nullptr) continue;
    tones->SetValue(code, kLowest, tone->lowest);
    tones->SetValue(code, kHighest, tone->highest);
    tones->SetValue(code, kCode, code);
  }
  return tones;
}

bool AreAllNeverSet(const XArrayDBObject& tones) {
  for (std::int32_t code = 0; code < kCodes; ++code) {
    if (!IsNeverSet(tones.GetValue(code, kNominal))) return false;
  }
  return true;
}

/// Of a set that is stored by its number.
std::int32_t SetOf(const ProviderRef& provider, std::string_view field, RecordNr record) {
  return CLng(provider.Field(field).Value(record));
}
}  // namespace

std::vector<std::string> ToneSetData(std::int32_t toneSet) {
  std::vector<std::string> data;
  const ToneSet* set = ToneSets::Find(toneSet);
  if (set == nullptr) return data;
  for (const Tone& tone : set->tones) data.push_back(HexRow(tone));
  data.push_back(RemapText(*set));
  return data;
}

std::vector<std::string> FrequenciesOfToneset(std::int32_t toneSet, bool byToneCode) {
  std::vector<std::string> frequencies;
  const ToneSet* set = ToneSets::Find(toneSet);
  for (std::size_t i = 0; set != nullptr && i < set->tones.size(); ++i) {
    const Tone& tone = byToneCode ? set->OfCode(i) : set->tones[i];
    frequencies.push_back(std::to_string(tone.nominal));
  }
  return frequencies;
}

std::shared_ptr<XArrayDBObject> xaGetToneSetDataFor(std::int32_t toneSet) {
  auto data = std::make_shared<LibraryArray>();
  Procedure("xaGetToneSetDataFor", [&] {
    const ToneSet* set = ToneSets::Find(toneSet);
    const auto rows = static_cast<std::int32_t>(set == nullptr ? 0 : set->tones.size());
    data->Redim(0, rows - 1, 0, kColumns - 1);
    for (std::int32_t row = 0; row < rows; ++row) {
      const Tone& tone = set->OfCode(static_cast<std::size_t>(row));
      data->SetValue(row, kNominal, static_cast<double>(tone.nominal));
      data->SetValue(row, kLowest, static_cast<double>(tone.lowest));
      data->SetValue(row, kHighest, static_cast<double>(tone.highest));
      data->SetValue(row, kCode, row);
    }
  });
  return data;
}

void SetTonesetDetails(const ProviderRef& provider, std::string_view tableId, std::int32_t toneSet,
                       RecordNr record) {
  Procedure("SetTonesetDetails", [&] {
    constexpr std::int32_t kNotHandled = ErrorNumber::kObjectError + 0x406;
    const std::string table(tableId);
    const ToneSet* details = ToneSets::Find(toneSet);
    // Bandwidth and mixing frequency of a user's set are its own, whatever its base.
    const std::int32_t number =
        toneSet == ToneSets::kUserDefined ? SetOf(provider, table + ".BasedOnToneSet", record) : toneSet;
    if (ToneSets::Find(number) == nullptr) {
      throw Error(kNotHandled, "SetToneSet", "Tone Set ID not handled");  // the name is wanted so
    }
    provider.Field(table + ".SelcallToneSet").SetValue(record, number);
    provider.Field(table + ".ToneSetBandwidth").SetValue(record, details->bandwidth);
    provider.Field(table + ".ToneSetMixingFrequency").SetValue(record, details->mixingHertz);
  });
}

void GetToneSet(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetToneSet", [&] {
    std::int32_t set = SetOf(provider, "48.SelcallToneSet", record);
    provider.Field("48.BasedOnToneSet").SetValue(record, set);
    const Variant frequencies = provider.Field("48.CustomFrequencies").Value(record);
    const bool isCustomised = set != ToneSets::kUncompared &&
                              (DiffersFrom(ToneSets::Find(set), frequencies) ||
                               HasOtherTone(provider, "31.GroupTone", record, kStandardGroupTone) ||
                               HasOtherTone(provider, "31.RepeatTone", record, kStandardRepeatTone));
    if (isCustomised) set = ToneSets::kUserDefined;
    provider.Field(fieldId).SetValue(record, set);
  });
}

void SetToneSet(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetToneSet", [&] {
    SetTonesetDetails(provider, "48", SetOf(provider, fieldId, record), record);
    const FieldRef pointer = provider.Field("31.ToneSetPointer");
    if (pointer.HasRecord(record)) pointer.SetValue(record, record - 1);
  });
}

void GetCustomFrequencies(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetCustomFrequencies", [&] {
    const Variant frequencies = provider.Field("48.CustomFrequencies").Value(record);
    for (std::int32_t code = 0; code < kCodes; ++code) {
      provider.Field(FormFieldOf(code)).SetValue(record, CStr(StoredFrequency(frequencies, code)));
    }
  });
}

void SetCustomFrequencies(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetCustomFrequencies", [&] {
    const ToneSet* base = ToneSets::Find(SetOf(provider, "48.BasedOnToneSet", record));
    const std::shared_ptr<XArrayDBObject> tones = TonesOfForm(provider, base, record);
    if (AreAllNeverSet(*tones)) return;  // a save is not to change what nobody set
    StoreTones(provider, "48", record, *tones);
  });
}

void SetGenerateCCR(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetGenerateCCR", [&] {
    provider.ClearTable("74");
    for (std::int32_t set = 0; set < ToneSets::kStandardSets; ++set) {
      const RecordNr added = provider.Table("74").AppendRecord();
      SetTonesetDetails(provider, "74", set, added);
      StoreTones(provider, "74", added, *xaGetToneSetDataFor(set));
    }
  });
}

void SetSelcallToneSet(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSelcallToneSet", [&] {
    std::int32_t set = SetOf(provider, "48.SelcallToneSet", record);
    provider.Field("48.BasedOnToneSet").SetValue(record, set);
    const ToneSet* data = ToneSets::Find(set);
    const bool isCompared = data != nullptr && set != ToneSets::kUserDefined;
    if (isCompared && DiffersFrom(data, provider.Field("48.CustomFrequencies").Value(record))) {
      set = ToneSets::kUserDefined;
    }
    provider.Field(fieldId).SetValue(record, set);
  });
}

void SetSelcallTonesetDefaults(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSelcallTonesetDefaults", [&] {
    if (!fieldId.ends_with('1')) return;  // one of the sixteen calls serves all codes
    const ToneSet* set = ToneSets::Find(SetOf(provider, "48.BasedOnToneSet", record));
    const Variant frequencies = provider.Field("48.CustomFrequencies").Value(record);
    for (std::int32_t code = 0; code < kCodes; ++code) {
      Variant frequency = StoredFrequency(frequencies, code);
      if (IsNeverSet(frequency) && set != nullptr) {
        frequency = set->OfCode(static_cast<std::size_t>(code)).nominal;
      }
      provider.Field(FormFieldOf(code)).SetValue(record, CStr(frequency));
    }
  });
}
}  // namespace modToneSets
