#include "radioui/modAudibleIndicators.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "common/Procedure.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "radioui/AudibleIndicatorTables.h"

namespace modAudibleIndicators {
namespace {
using AudibleIndicators::CallAlert;
using AudibleIndicators::Indicator;
using AudibleIndicators::kCallAlerts;
using AudibleIndicators::kIndicators;
using AudibleIndicators::kProgrammes;
using AudibleIndicators::Programme;

/// A table of one record has nothing of the user's.
constexpr RecordNr kFewestFilled = 2;

/// Table 4.
struct StoredIndicators {
  explicit StoredIndicators(const ProviderRef& provider)
      : table(provider.Table("4")),
        enabled(provider.Field("4.EnabledFlag")),
        programme(provider.Field("4.ProgIndex")),
        repeats(provider.Field("4.RepeatFlag")) {}

  void WriteFixed(RecordNr record, const Indicator& row) const {
    programme.SetValue(record, row.programme);
    repeats.SetValue(record, row.repeats);
  }
  void Append(const Indicator& row) const {
    const RecordNr record = table.AppendRecord();
    enabled.SetValue(record, row.enabled);
    WriteFixed(record, row);
  }
  /// What is missing behind the end is as its row says; what is there stays.
  void Complete() const {
    for (auto count = static_cast<std::size_t>(table.RecordCount()); count < std::size(kIndicators);
         ++count) {
      Append(kIndicators[count]);
    }
  }

  TableRef table;
  FieldRef enabled, programme, repeats;
};

/// Table 1117: its record n is the n-th listed indicator.
struct ListedIndicators {
  explicit ListedIndicators(const ProviderRef& provider)
      : table(provider.Table("1117")),
        name(provider.Field("1117.AudibleIndicators_k6k")),
        enabled(provider.Field("1117.EnabledFlag")) {}

  void Show(RecordNr record, const Indicator& row, const Variant& isEnabled) const {
    if (!table.HasRecord(record)) table.AppendRecord();
    name.SetValue(record, row.name);
    enabled.SetValue(record, isEnabled);
  }
  Variant EnabledOr(RecordNr record, std::int32_t standard) const {
    return table.HasRecord(record) ? enabled.Value(record) : Variant(standard);
  }

  TableRef table;
  FieldRef name, enabled;
};

void ListIndicators(const ProviderRef& provider, bool keepsFlags) {
  Procedure("CreateIndicatorList", [&] {
    const StoredIndicators stored(provider);
    const ListedIndicators listed(provider);
    const RecordNr before = stored.table.RecordCount();
    const bool isFilled = before >= kFewestFilled;
    stored.Complete();
    RecordNr record = 0, shown = 0;
    for (const Indicator& row : kIndicators) {
      ++record;
      if (!isFilled && record <= before) {
        if (!keepsFlags) stored.enabled.SetValue(record, row.enabled);
        stored.WriteFixed(record, row);
      }
      if (!row.isListed) continue;
      listed.Show(++shown, row, isFilled ? stored.enabled.Value(record) : Variant(row.enabled));
    }
  });
}

void WriteIndicators(const ProviderRef& provider) {
  const StoredIndicators stored(provider);
  const ListedIndicators listed(provider);
  stored.Complete();
  RecordNr record = 0, shown = 0;
  for (const Indicator& row : kIndicators) {
    ++record;
    stored.enabled.SetValue(record,
                            row.isListed ? listed.EnabledOr(++shown, row.enabled) : Variant(row.enabled));
    stored.WriteFixed(record, row);
  }
}

/// The cadence of a record of table 60.
struct StoredCadence {
  explicit StoredCadence(const ProviderRef& provider)
      : pattern(provider.Field("60.AudibleIndicatorCadence")),
        tones(provider.Field("60.TonesPerIndicator")) {}

  void Write(RecordNr record, std::int32_t bits, std::int32_t count) const {
    pattern.SetValue(record, bits);
    tones.SetValue(record, count);
  }

  FieldRef pattern, tones;
};

/// All but the cadences that are the user's are as their rows say, whatever the radio held.
void WriteProgrammes(const ProviderRef& provider) {
  const TableRef table = provider.Table("60");
  const StoredCadence cadence(provider);
  const FieldRef frequency1 = provider.Field("60.AudibleIndicatorFrequency1");
  const FieldRef frequency2 = provider.Field("60.AudibleIndicatorFrequency2");
  const FieldRef duration = provider.Field("60.ToneDuration");
  const FieldRef remaining = provider.Field("60.RemainingCadences");
  const RecordNr before = table.RecordCount();
  RecordNr record = 0;
  for (const Programme& row : kProgrammes) {
    const bool isNew = ++record > before;
    if (isNew) table.AppendRecord();
    if (isNew || !AudibleIndicators::IsUsersCadence(record)) cadence.Write(record, row.pattern, row.tones);
    frequency1.SetValue(record, row.frequency1);
    duration.SetValue(record, row.duration);
    remaining.SetValue(record, row.remaining);
    frequency2.SetValue(record, row.frequency2);
  }
}

void WriteIndicatorTables(const ProviderRef& provider) {
  Procedure("CreateIndicatorDataTable", [&] {
    WriteIndicators(provider);
    WriteProgrammes(provider);
  });
}

bool IsShort(const ProviderRef& provider, std::string_view table, std::ptrdiff_t rows) {
  return provider.Table(table).RecordCount() < rows;
}

/// Of table 60.
RecordNr CadenceRecord(std::string_view fieldId) {
  const auto* alert = std::ranges::find_if(
      kCallAlerts, [&](const CallAlert& one) { return EqualsIgnoringCase(one.cadence, fieldId); });
  if (alert == std::end(kCallAlerts)) RaiseSubscript("modAudibleIndicators");
  return alert->CadenceRecord();
}

constexpr std::int32_t kSteps = 16;

/// The bit of a step, from 0; the first one is the highest.
constexpr std::int32_t BitOf(std::int32_t step) { return 1 << (kSteps - 1 - step); }
static_assert(BitOf(0) == 0x8000 && BitOf(kSteps - 1) == 1);

/// The radio's 16 bits may come as a negative number: those above them are not asked.
std::string StepsOf(std::int32_t pattern, std::int32_t tones) {
  std::string text;
  for (std::int32_t step = 0; step < std::min(tones, kSteps); ++step) {
    text += (pattern & BitOf(step)) != 0 ? '1' : '0';
  }
  return text;
}

std::int32_t PatternOf(std::string_view text) {
  std::int32_t pattern = 0;
  std::int32_t step = 0;
  for (const char tone : text.substr(0, kSteps)) {
    if (tone == '1') pattern |= BitOf(step);
    ++step;
  }
  return pattern;
}
}  // namespace

void CreateIndicatorList(const ProviderRef& provider, std::string_view, RecordNr) {
  ListIndicators(provider, false);
}

void CreateIndicatorDataTable(const ProviderRef& provider, std::string_view, RecordNr) {
  WriteIndicatorTables(provider);
}

void GetCadence(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetCadence", [&] {
    if (IsShort(provider, "4", std::ssize(kIndicators))) ListIndicators(provider, true);
    if (IsShort(provider, "60", std::ssize(kProgrammes))) WriteIndicatorTables(provider);
    const RecordNr programme = CadenceRecord(fieldId);
    const StoredCadence cadence(provider);
    provider.Field(fieldId).SetValue(
        record, StepsOf(CLng(cadence.pattern.Value(programme)), CLng(cadence.tones.Value(programme))));
  });
}

void SetCadence(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetCadence", [&] {
    const std::string value = CStr(provider.Field(fieldId).Value(record));
    const std::string_view steps = Trim(value);
    // The count is that of the whole text, also where the radio has no bits for it.
    StoredCadence(provider).Write(CadenceRecord(fieldId), PatternOf(steps),
                                  static_cast<std::int32_t>(steps.size()));
  });
}

void GenerateRecCallAudInd(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GenerateRecCallAudInd", [&] { provider.Table("1118").FillToCapacity(); });
}
}  // namespace modAudibleIndicators
