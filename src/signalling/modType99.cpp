#include "signalling/modType99.h"

#include <algorithm>
#include <utility>

#include "common/ArrayRows.h"
#include "common/LibraryArray.h"
#include "common/Procedure.h"
#include "common/modCommonGlobals.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "platform/Error.h"

namespace modType99 {
namespace {
using TwoTone::PeriodLimits;

constexpr std::string_view kTableFormat = "37.T99TableFormat";
constexpr std::int32_t kTenthsPerHertz = 10;
constexpr std::int32_t kNoTone = 0;
/// Where the fourth tone stands for a decoder that has three.
constexpr std::int32_t kOutOfReach = 31000;

const TwoTone::Format& FormatOf(std::int32_t format, std::string_view operation) {
  if (format >= 0 && format < std::ssize(TwoTone::kFormats)) {
    return TwoTone::kFormats[static_cast<std::size_t>(format)];
  }
  throw Error(ErrorNumber::kInvalidCall, "modType99." + std::string(operation),
              "Unsupported format " + std::to_string(format));
}

[[noreturn]] void RaiseOutOfBounds(std::string_view argument) {
  throw Error(ErrorNumber::kInvalidCall, "modType99.GetToneDurationConstraint",
              "Invalid argument: " + std::string(argument) + " is out of bounds.");
}

std::int32_t StoredFormat(const ProviderRef& provider, RecordNr record) {
  return CLng(provider.Field(kTableFormat).Value(record));
}

/// The fields of the set that applies, then those of the other.
std::pair<const ToneFields&, const ToneFields&> ToneSets(const ProviderRef& provider, RecordNr record) {
  if (IsTicked(provider.Field("37.T99CustomSet").Value(record))) {
    return {kCustomFrequencyFields, kFrequencyFields};
  }
  return {kFrequencyFields, kCustomFrequencyFields};
}

struct Tone {
  std::int32_t row;  ///< from 1, A to D
  std::int32_t tenths;
};
using Tones = std::array<Tone, 4>;

template <typename ValueOf>
ArrayObject ColumnOf(const Tones& tones, ValueOf valueOf) {
  std::vector<Variant> cells(1);  // row 0 is unused
  cells.reserve(tones.size() + 1);
  for (const Tone& tone : tones) cells.emplace_back(valueOf(tone));
  auto raw = std::make_shared<LibraryArray>();
  raw->TakeColumn(std::move(cells));
  return raw;
}

/// The limit of what the decoder takes for a tone; of one that it does not look for the tone itself.
std::int32_t Bound(const Tone& tone, std::int32_t offset) {
  if (tone.tenths == kNoTone || tone.tenths == kOutOfReach) return tone.tenths;
  return RoundToLong(static_cast<double>(tone.tenths) + offset);
}

Tones ShownTones(const ProviderRef& provider, RecordNr record) {
  Tones tones{};
  std::int32_t row = 0;
  for (const ToneField& field : ToneSets(provider, record).first) {
    Tone& tone = tones[static_cast<std::size_t>(row)];
    tone = {++row, TenthsOf(provider.Field(field.id).Value(record))};
  }
  return tones;
}

std::int32_t StoredTone(const Variant& tones, std::int32_t row, std::int32_t format) {
  const Variant* stored = ArrayRows::Find(tones, row);
  const std::int32_t tenths = stored != nullptr && IsNumeric(*stored) ? CLng(*stored) : kNoTone;
  return tenths < GetFrequencyMin(format) || tenths > GetFrequencyMax(format) ? kNoTone : tenths;
}

/// Calls `convert(period, step)` for each period that the format has, and stores what it gives.
template <typename Convert>
void ConvertPeriods(const ProviderRef& provider, RecordNr record, Convert convert) {
  const std::int32_t format = StoredFormat(provider, record);
  for (std::size_t type = 0; type < kPeriodFields.size(); ++type) {
    const std::int32_t step =
        GetToneDurationConstraint(format, static_cast<eDurationType>(type), eConstraint::Step);
    if (step == 0) continue;
    const FieldRef period = provider.Field(kPeriodFields[type].id);
    period.SetValue(record, RoundToLong(convert(CDbl(period.Value(record)), step)));
  }
}
}  // namespace

std::int32_t GetCustomFrequencyPrecision(std::int32_t format) {
  FormatOf(format, "GetCustomFrequencyPrecision");
  return 1;
}

std::int32_t GetDefaultFrequency(std::int32_t format) {
  FormatOf(format, "GetDefaultFrequency");
  return kNoTone;
}

std::int32_t GetLowerBoundOffset(std::int32_t format) {
  FormatOf(format, "GetLowerBoundOffset");
  return 75;
}

std::int32_t GetUpperBoundOffset(std::int32_t format) {
  FormatOf(format, "GetUpperBoundOffset");
  return 75;
}

std::int32_t GetMixingFrequency(std::int32_t format) {
  return FormatOf(format, "GetMixingFrequency").mixingHertz;
}

std::int32_t GetFrequencyMin(std::int32_t format) {
  return FormatOf(format, "GetFrequencyMin").custom.lowest;
}

std::int32_t GetFrequencyMax(std::int32_t format) {
  return FormatOf(format, "GetFrequencyMax").custom.highest;
}

std::optional<TwoTone::FrequencyRange> GetFrequencyRange(std::int32_t format) {
  return FormatOf(format, "GetFrequencyExclusions").excluded;  // its fault names it so
}

std::vector<std::string> GetToneFrequencyList(std::int32_t format) {
  std::vector<std::string> texts;
  for (const std::int32_t tenths : FormatOf(format, "GetToneFrequencyList").tones) {
    texts.push_back(HertzText(tenths));
  }
  return texts;
}

std::int32_t GetToneDurationConstraint(std::int32_t format, eDurationType durationType,
                                       eConstraint constraint) {
  const TwoTone::Format& allowed = FormatOf(format, "GetToneDurationConstraint");
  const auto type = static_cast<std::size_t>(durationType);
  if (type >= allowed.periods.size()) RaiseOutOfBounds("eDurationType");
  const PeriodLimits& limits = allowed.periods[type];
  switch (constraint) {
    case eConstraint::Minimum:
      return limits.minimum;
    case eConstraint::Maximum:
      return limits.maximum;
    case eConstraint::Default:
      return limits.standard;
    case eConstraint::Step:
      return limits.step;
    case eConstraint::Forbidden:
      return limits.forbidden.value_or(kNothingForbidden);
  }
  RaiseOutOfBounds("eConstraint");
}

std::string HertzText(std::int32_t tenths) {
  return FormatFixed(static_cast<double>(tenths) / kTenthsPerHertz, 1, tenths == 0 ? 0 : 1);
}

std::int32_t TenthsOf(const Variant& hertz) {
  const std::string text = CStr(hertz);
  return text.empty() ? kNoTone : RoundToLong(modCommonGlobals::CDblLocal(text) * kTenthsPerHertz);
}

void GetToneFrequencies(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetToneFrequencies", [&] {
    const std::int32_t format = StoredFormat(provider, record);
    const Variant stored = provider.Field("37.T99TableFreq").Value(record);
    const auto [active, other] = ToneSets(provider, record);
    std::int32_t row = 0;
    for (const ToneField& field : active) {
      provider.Field(field.id).SetValue(record, HertzText(StoredTone(stored, ++row, format)));
    }
    const std::string none = HertzText(GetDefaultFrequency(format));
    for (const ToneField& field : other) provider.Field(field.id).SetValue(record, none);
  });
}

void SetToneFrequencies(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetToneFrequencies", [&] {
    const std::int32_t format = StoredFormat(provider, record);
    Tones tones = ShownTones(provider, record);
    const ArrayObject shown = ColumnOf(tones, [](const Tone& tone) { return tone.tenths; });
    if (format == TwoTone::kMOT) tones.back().tenths = kOutOfReach;
    std::ranges::stable_sort(tones, {}, &Tone::tenths);
    const auto bounds = [&](std::int32_t offset) {
      return ColumnOf(tones, [&](const Tone& tone) { return Bound(tone, offset); });
    };
    provider.Field("37.T99TableFreq").SetValue(record, shown);
    provider.Field("37.T99ToneSetUpperBound").SetValue(record, bounds(GetUpperBoundOffset(format)));
    provider.Field("37.T99ToneSetLowerBound").SetValue(record, bounds(-GetLowerBoundOffset(format)));
    provider.Field("37.T99ToneSetRemapTable").SetValue(record, ColumnOf(tones, [](const Tone& tone) {
                                                         return tone.row;
                                                       }));
    provider.Field("37.T99ToneSetMixingFreq").SetValue(record, GetMixingFrequency(format));
  });
}

void GetGenerateToneDurations(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetGenerateToneDurations", [&] {
    ConvertPeriods(provider, record, [](double steps, std::int32_t step) { return steps * step; });
  });
}

void SetGenerateToneDurations(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetGenerateToneDurations", [&] {
    ConvertPeriods(provider, record, [](double ms, std::int32_t step) { return ms / step; });
  });
}

void SetDefaultValues(FormWrites& writes, const ProviderRef& provider, std::int32_t format, RecordNr record) {
  Procedure("SetDefaultValues", [&] {
    const auto [active, other] = ToneSets(provider, record);
    const std::string none = HertzText(GetDefaultFrequency(format));
    for (const ToneFields& fields : {active, other}) {
      for (const ToneField& field : fields) writes.Set(field.id, field.uiid, record, none);
    }
    for (std::size_t type = 0; type < kPeriodFields.size(); ++type) {
      const auto& [id, uiid] = kPeriodFields[type];
      writes.Set(id, uiid, record,
                 GetToneDurationConstraint(format, static_cast<eDurationType>(type), eConstraint::Default));
    }
  });
}
}  // namespace modType99
