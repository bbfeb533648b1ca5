#include "signalling/modvalType99.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/SystemNetworks.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "signalling/SystemRecords.h"
#include "signalling/modType99.h"

namespace modvalType99 {
namespace {
using modType99::eConstraint;
using modType99::eDurationType;
using modType99::HertzText;

constexpr std::string_view kIdentity = "T99NetworkID_k6k";
constexpr std::string_view kTableFormat = "T99TableFormat_k6k";
constexpr std::string_view kCurrentSystem = "CurrentType99Nr";
constexpr double kTenthsPerHertz = 10;

/// MOT for a record that does not exist.
std::int32_t FormatOf(const FieldEdit& edit) { return CLng(edit.Stored(kTableFormat, edit.record)); }

std::string UnitsOf(const ValidatorRef& validator, std::string_view uiid) {
  return validator.CurrentProvider().Field(uiid).Units();
}

// Periods

const modType99::PeriodField& FieldOf(eDurationType type) {
  return modType99::kPeriodFields[static_cast<std::size_t>(type)];
}

bool ValidateDuration(const FieldEdit& edit, eDurationType type) {
  return Procedure("ValidateDuration", true, [&] {
    const std::int32_t format = FormatOf(edit);
    const auto limit = [&](eConstraint constraint) {
      return modType99::GetToneDurationConstraint(format, type, constraint);
    };
    const auto text = [&](eConstraint constraint) { return std::to_string(limit(constraint)); };
    const ValidatorRef& validator = edit.validator;
    const std::string_view uiid = FieldOf(type).uiid;
    const double ms = CDbl(edit.value);
    if (ms < limit(eConstraint::Minimum) || ms > limit(eConstraint::Maximum)) {
      return Refuse(validator, "The %0:S must be a value within the range %1:S to %2:S %3:S ",
                    {validator.LabelOf(uiid), text(eConstraint::Minimum), text(eConstraint::Maximum),
                     UnitsOf(validator, uiid)});
    }
    const std::int32_t step = limit(eConstraint::Step);
    if (step != 0 && std::fmod(ms, step) != 0) {
      return Refuse(validator, "The %0:S must have a step of %1:S %2:S",
                    {validator.LabelOf(uiid), std::to_string(step), UnitsOf(validator, uiid)});
    }
    if (ms == limit(eConstraint::Forbidden)) {
      return Refuse(validator,
                    "A duration of %0:S is not allowed.  Enter a value within the range 100 and %1:S, or 0 "
                    "for no duration.",
                    {CStr(edit.value), text(eConstraint::Maximum)});
    }
    return true;
  });
}

/// `type` is one of `shortest` and the one behind it.
bool ValidatePeriod(std::string_view procedure, FieldEdit& edit, eDurationType type, eDurationType shortest) {
  return Procedure(procedure, true, [&] {
    if (!ValidateDuration(edit, type)) return false;
    const std::string_view least = FieldOf(shortest).uiid;
    const std::string_view most = modType99::kPeriodFields[static_cast<std::size_t>(shortest) + 1].uiid;
    const auto msOf = [&](std::string_view uiid) {
      return uiid == FieldOf(type).uiid ? edit.value : edit.Stored(uiid, edit.record);
    };
    const Variant longest = msOf(most);
    if (longest.IsEmpty() || CDbl(msOf(least)) <= CDbl(longest)) return true;
    const ValidatorRef& validator = edit.validator;
    return Refuse(validator, "The value of %0:S cannot exceed the value of %1:S",
                  {validator.LabelOf(least), validator.LabelOf(most)});
  });
}

// Tones

/// Whether the frequency, in hertz, is one that the format takes.
bool IsAllowed(const FieldEdit& edit, std::int32_t format, double hertz) {
  const ValidatorRef& validator = edit.validator;
  const std::string units = UnitsOf(validator, edit.uiid);
  const std::int32_t lowest = modType99::GetFrequencyMin(format);
  if (hertz < lowest / kTenthsPerHertz) {
    return Refuse(validator, "Values below %0:S %1:S are not valid.", {HertzText(lowest), units});
  }
  const std::int32_t highest = modType99::GetFrequencyMax(format);
  if (hertz > highest / kTenthsPerHertz) {
    return Refuse(validator, "Values above %0:S %1:S are not valid.", {HertzText(highest), units});
  }
  const auto excluded = modType99::GetFrequencyRange(format);
  const bool isExcluded =
      excluded && hertz >= excluded->lowest / kTenthsPerHertz && hertz <= excluded->highest / kTenthsPerHertz;
  if (!isExcluded) return true;
  return Refuse(
      validator, "Values in the range %1:S to %2:S %3:S are not valid.",
      {validator.LabelOf(edit.uiid), HertzText(excluded->lowest), HertzText(excluded->highest), units});
}

using Tenths = std::array<std::int32_t, modType99::kCustomFrequencyFields.size()>;

/// In ascending order.
Tenths CustomTones(const ProviderRef& provider, RecordNr system) {
  Tenths tones{};
  std::ranges::transform(modType99::kCustomFrequencyFields, tones.begin(), [&](const auto& field) {
    return modType99::TenthsOf(StoredValue(provider, field.id, system));
  });
  std::ranges::sort(tones);
  return tones;
}
}  // namespace

bool OnChangeTableFormat(FieldEdit& edit) {
  return Procedure("OnChangeTableFormat", true, [&] {
    const Variant format = edit.Stored(kTableFormat, edit.record);
    const bool isFormat = edit.Is(TwoTone::kMOT) || edit.Is(TwoTone::kCNE);
    if (format.IsEmpty() || !isFormat || SameValue(format, edit.value)) return edit.PassUnchanged();
    modType99::SetDefaultValues(edit.writes, edit.validator.CurrentProvider(), CLng(edit.value), edit.record);
    return true;
  });
}

bool ValidateFirstTonePeriodMin(FieldEdit& edit) {
  return ValidatePeriod("ValidateFirstTonePeriodMin", edit, eDurationType::MinFirstTone,
                        eDurationType::MinFirstTone);
}

bool ValidateFirstTonePeriodMax(FieldEdit& edit) {
  return ValidatePeriod("ValidateFirstTonePeriodMax", edit, eDurationType::MaxFirstTone,
                        eDurationType::MinFirstTone);
}

bool ValidateGapPeriodMin(FieldEdit& edit) {
  return ValidatePeriod("ValidateGapPeriodMin", edit, eDurationType::MinGap, eDurationType::MinGap);
}

bool ValidateGapPeriodMax(FieldEdit& edit) {
  return ValidatePeriod("ValidateGapPeriodMax", edit, eDurationType::MaxGap, eDurationType::MinGap);
}

bool ValidateSecondTonePeriodMin(FieldEdit& edit) {
  return ValidatePeriod("ValidateSecondTonePeriodMin", edit, eDurationType::MinSecondTone,
                        eDurationType::MinSecondTone);
}

bool ValidateSecondTonePeriodMax(FieldEdit& edit) {
  return ValidatePeriod("ValidateSecondTonePeriodMax", edit, eDurationType::MaxSecondTone,
                        eDurationType::MinSecondTone);
}

bool ValidateAllCallTonePeriodMin(FieldEdit& edit) {
  return ValidatePeriod("ValidateAllCallTonePeriodMin", edit, eDurationType::MinAllCallTone,
                        eDurationType::MinAllCallTone);
}

bool ValidateAllCallTonePeriodMax(FieldEdit& edit) {
  return ValidatePeriod("ValidateAllCallTonePeriodMax", edit, eDurationType::MaxAllCallTone,
                        eDurationType::MinAllCallTone);
}

bool ValidateCustomTone(FieldEdit& edit) {
  return Procedure("ValidateCustomTone", true, [&] {
    if (!IsNumeric(edit.value)) return Refuse(edit.validator, "Invalid frequency format");
    const std::int32_t format = FormatOf(edit);
    const double hertz = CDbl(edit.value);
    if (hertz == modType99::GetDefaultFrequency(format) / kTenthsPerHertz) return true;
    const std::int32_t decimals = modType99::GetCustomFrequencyPrecision(format);
    if (modCommonGlobals::Precision(edit.value) > decimals) {
      return Refuse(edit.validator, "The number of decimal places allowed for this field is %0:S.",
                    {std::to_string(decimals)});
    }
    return IsAllowed(edit, format, hertz);
  });
}

bool ValidateType99Form(const ValidatorRef& validator) {
  return Procedure("ValidateType99Form", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const StoredRecord system{provider, CLng(StoredValue(provider, kCurrentSystem, kOnly))};
    if (!IsTicked(system.Value("37.T99CustomSet"))) return true;
    const std::int32_t format = CLng(system.Value(kTableFormat));
    const std::int32_t distance =
        modType99::GetUpperBoundOffset(format) + modType99::GetLowerBoundOffset(format);
    const Tenths tones = CustomTones(provider, system.record);
    for (std::size_t i = 1; i < tones.size(); ++i) {
      if (tones[i - 1] == 0 || tones[i] == 0) continue;
      const std::int64_t apart = std::int64_t{tones[i]} - tones[i - 1];  // of tones as a file may hold them
      if (apart == 0) {
        return Refuse(validator, "Each tone must have a unique frequency.");
      }
      if (apart < distance) {
        return Refuse(validator, "Each tone must be %0:S%1:S or more apart.",
                      {CStr(distance / kTenthsPerHertz),
                       UnitsOf(validator, modType99::kCustomFrequencyFields[0].uiid)});
      }
    }
    return true;
  });
}

void AddType99_6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record) {
  Procedure("AddType99_6000", [&] {
    SystemRecords::TakeFreeNumber(provider, kIdentity, record);
    const std::int32_t format = CLng(provider.Field("37.T99TableFormat").Value(record));
    FormWrites writes(validator);
    modType99::SetDefaultValues(writes, provider, format, record);
    for (const eDurationType type : {eDurationType::MinAllCallTone, eDurationType::MaxAllCallTone}) {
      writes.Enable(FieldOf(type).uiid, format == TwoTone::kMOT);
    }
    writes.Follow(true);
  });
}

bool DeleteType99(const ValidatorRef& validator, RecordNr record) {
  return Procedure("DeleteType99", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const FieldRef identities = provider.Field(kIdentity);
    if (!SystemNetworks::Of(provider, SignallingType::kTwoTone, identities.Value(record)).empty()) {
      return Refuse(validator,
                    "This Two Tone System is being used on one or more Networks and can not be deleted");
    }
    FormWrites writes(validator);
    const RecordNr count = identities.RecordCount();  // the host deletes the system afterwards
    const bool showsLast = HoldsCode(provider, kCurrentSystem, count, kOnly);
    if (showsLast && count != 1) writes.Set(kCurrentSystem, kOnly, count - 1);
    return writes.Follow(true);
  });
}
}  // namespace modvalType99
