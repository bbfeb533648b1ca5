#include "selcall/modvalToneSets.h"

#include <algorithm>
#include <array>

#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "selcall/ToneSets.h"
#include "selcall/modToneSets.h"
#include "selcall/modvalSelcall.h"

namespace modvalToneSets {
namespace {
using modToneSets::FrequencyField;
using modToneSets::kFrequencyFields;
using ToneSets::Tone;

constexpr std::string_view kBase = "BasedOnToneSet";
constexpr std::string_view kGroupTone = "GroupTone";
constexpr std::string_view kRepeatTone = "RepeatTone";

/// The tone of that frequency among those that a user may choose from; null for none.
const Tone* FindUserTone(const Variant& hertz) {
  const auto& tones = ToneSets::Find(ToneSets::kUserDefined)->tones;
  const auto tone =
      std::ranges::find_if(tones, [&](const Tone& one) { return SameValue(hertz, one.nominal); });
  return tone == tones.end() ? nullptr : &*tone;
}

bool HasRecord(const FieldEdit& edit) {
  return edit.validator.CurrentProvider().Field(kBase).HasRecord(edit.record);
}

/// Null for what is no number of a set.
const ToneSets::ToneSet* FindToneSet(const Variant& number) {
  return IsNumeric(number) ? ToneSets::Find(CLng(number)) : nullptr;
}

void BringFrequencies(FieldEdit& edit, const ToneSets::ToneSet& set) {
  for (std::size_t code = 0; code < kFrequencyFields.size(); ++code) {
    const FrequencyField& field = kFrequencyFields[code];
    edit.writes.Set(field.id, field.uiid, edit.record, std::to_string(set.OfCode(code).nominal));
  }
}

/// The forms read them in this order, before what else follows.
void ReloadTones(FieldEdit& edit) {
  edit.writes.Reload(kBase);
  for (const FrequencyField& field : kFrequencyFields) edit.writes.Reload(field.uiid);
  edit.writes.Reload(kGroupTone);
  edit.writes.Reload(kRepeatTone);
}

/// The standard group and repeat tone. The group tones are swapped out by the tone that is stored, and in by
/// the new one, so the tones are written between the two.
void BringTones(FieldEdit& edit) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  const Variant groupTone = provider.Field(kGroupTone).Default();
  edit.writes.Set(kBase, edit.record, edit.value);
  using modvalSelcall::GroupSwap;
  modvalSelcall::GroupToneValidation(edit, CLng(groupTone), GroupSwap::GToTone);
  if (provider.Field(kGroupTone).HasRecord(edit.record)) {
    edit.writes.Set(kGroupTone, edit.record, groupTone);
    edit.writes.Set(kRepeatTone, edit.record, provider.Field(kRepeatTone).Default());
  }
  modvalSelcall::GroupToneValidation(edit, CLng(groupTone), GroupSwap::ToneToG);
}

/// A limit of the one lies within the other.
bool AreTooClose(const Tone& one, const Tone& other) {
  const auto isWithin = [&](std::int32_t limit) { return limit > one.lowest && limit < one.highest; };
  return isWithin(other.lowest) || isWithin(other.highest);
}

bool RefusePair(const ValidatorRef& validator, const Tone& one, const Tone& other) {
  const std::string parameters =
      modCommonGlobals::MakeParamString({std::to_string(one.nominal), std::to_string(other.nominal)});
  validator.Messenger().ShowMessage("Frequency %0:S is too close to frequency %1:S",
                                    MessageStyle::kExclamation, "Invalid Tone Frequencies", parameters);
  return false;
}
}  // namespace

bool ValidateToneSets(FieldEdit& edit) {
  return Procedure("ValidateToneSets", true, [&] {
    if (FindToneSet(edit.value) == nullptr || !HasRecord(edit)) return edit.PassUnchanged();
    const bool isUserDefined = edit.Is(ToneSets::kUserDefined);
    const auto repeatTone = [&] {
      return CLng(edit.validator.CurrentProvider().Field(kRepeatTone).Default());
    };
    if (!isUserDefined && !modvalSelcall::RepeatToneValidation(edit, repeatTone())) return false;
    ReloadTones(edit);
    if (!isUserDefined) BringTones(edit);
    const Variant base = isUserDefined ? edit.Stored(kBase, edit.record) : edit.value;
    if (const ToneSets::ToneSet* set = FindToneSet(base)) BringFrequencies(edit, *set);
    return true;
  });
}

bool ValidateBasedOnToneSet(FieldEdit& edit) {
  return Procedure("ValidateBasedOnToneSet", true, [&] {
    const ToneSets::ToneSet* base = FindToneSet(edit.value);
    if (base == nullptr || !HasRecord(edit)) return edit.PassUnchanged();
    BringFrequencies(edit, *base);
    return true;
  });
}

bool ValidateCustomFrequencies(FieldEdit& edit) {
  return Procedure("ValidateCustomFrequencies", true, [&] {
    if (!HasRecord(edit)) return edit.PassUnchanged();
    const ProviderRef provider = edit.validator.CurrentProvider();
    const auto* own = std::ranges::find_if(kFrequencyFields, [&](const FrequencyField& field) {
      return EqualsIgnoringCase(field.uiid, edit.uiid);
    });
    for (const FrequencyField& field : kFrequencyFields) {  // those below the code in hand come first
      if (&field == own) continue;
      if (!SameValue(provider.Field(field.id).Value(edit.record), edit.value)) continue;
      edit.writes.Set(field.id, field.uiid, edit.record, provider.Field(own->id).Value(edit.record));
      return true;
    }
    return true;
  });
}

bool ValidateUserDefinedTones(const ValidatorRef& validator) {
  return Procedure("ValidateUserDefinedTones", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const RecordNr system = CurrentSelcallSystem(provider);
    if (!SameValue(StoredValue(provider, kBase, system), ToneSets::kUserDefined)) return true;
    std::array<const Tone*, ToneSets::kToneCodes> tones{};
    for (std::size_t code = 0; code < tones.size(); ++code) {
      tones[code] = FindUserTone(StoredValue(provider, kFrequencyFields[code].id, system));
    }
    for (std::size_t i = 0; i < tones.size(); ++i) {
      for (std::size_t j = i + 1; j < tones.size(); ++j) {
        const bool areThere = tones[i] != nullptr && tones[j] != nullptr;
        if (areThere && AreTooClose(*tones[i], *tones[j])) return RefusePair(validator, *tones[i], *tones[j]);
      }
    }
    return true;
  });
}
}  // namespace modvalToneSets
