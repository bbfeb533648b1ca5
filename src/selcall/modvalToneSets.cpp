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

namespace modvalToneSets {
namespace {
using modToneSets::FrequencyField;
using modToneSets::kFrequencyFields;
using ToneSets::Tone;

/// The tone of that frequency among those that a user may choose from; null for none.
const Tone* FindUserTone(const Variant& hertz) {
  const auto& tones = ToneSets::Find(ToneSets::kUserDefined)->tones;
  const auto tone =
      std::ranges::find_if(tones, [&](const Tone& one) { return SameValue(hertz, one.nominal); });
  return tone == tones.end() ? nullptr : &*tone;
}

bool HasRecord(const FieldEdit& edit) {
  return edit.validator.CurrentProvider().Field("BasedOnToneSet").HasRecord(edit.record);
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

bool ValidateBasedOnToneSet(FieldEdit& edit) {
  return Procedure("ValidateBasedOnToneSet", true, [&] {
    const ToneSets::ToneSet* base = IsNumeric(edit.value) ? ToneSets::Find(CLng(edit.value)) : nullptr;
    if (base == nullptr || !HasRecord(edit)) return edit.PassUnchanged();
    for (std::size_t code = 0; code < kFrequencyFields.size(); ++code) {
      const FrequencyField& field = kFrequencyFields[code];
      edit.writes.Set(field.id, field.uiid, edit.record, std::to_string(base->OfCode(code).nominal));
    }
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
    if (!SameValue(StoredValue(provider, "BasedOnToneSet", system), ToneSets::kUserDefined)) return true;
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
