#include "radioui/modPTT.h"

#include <cstdlib>
#include <string>

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"

namespace modPTT {
namespace {
constexpr RecordNr kSources = 3;
constexpr std::string_view kPriority = "PTTPriority", kMicSelect = "MicSelect";

std::string ShownAs(const std::string& field, RecordNr source) { return field + std::to_string(source); }

bool IsTheSameOfFirstTwo(const FieldRef& field) { return SameValue(field.Value(1), field.Value(2)); }

/// Two sources may have one priority, or one microphone; a radio that was never set up has both. Source 3
/// plays no part.
bool IsSet(const ProviderRef& provider) {
  if (!provider.Table("25").HasRecord(kSources)) return false;
  return !IsTheSameOfFirstTwo(provider.Field("25.PTTPriority")) ||
         !IsTheSameOfFirstTwo(provider.Field("25.MicSelect"));
}

/// The form has the source that the audio path of that index has. There is no way back: what the form has is
/// stored as it stands.
Variant MicSourceOf(const ProviderRef& provider, const Variant& stored) {
  const Variant path = ValueAtIndex(provider.Field("59.AudioIOMicSource"), CLng(stored));
  return path.IsEmpty() ? stored : path;
}

void ShowSet(const ProviderRef& provider, const FieldRef& field, const FieldsRef& form) {
  const std::string name = field.Name();
  const bool isMic = EqualsIgnoringCase(name, kMicSelect);
  RecordNr source = 0;
  for (const Variant& stored : field.Values()) {
    if (++source > kSources) break;
    const Variant value = isMic ? MicSourceOf(provider, stored) : stored;
    form.Item(ShownAs(name, source)).SetValue(kOnly, CLng(value));
  }
}

/// What the form shows of a radio that was never set up.
Variant Standard(const FieldRef& field, const std::string& name, RecordNr source, bool isShort) {
  if (EqualsIgnoringCase(name, kPriority)) return std::abs(source - kSources);
  if (EqualsIgnoringCase(name, kMicSelect))
    return source == 1 ? MicSource::kControlHead : MicSource::kAuxiliary;
  return isShort ? field.Default() : field.Value(source);
}

void ShowStandard(const FieldRef& field, const FieldsRef& form, bool isShort) {
  const std::string name = field.Name();
  for (RecordNr source = 1; source <= kSources; ++source) {
    form.Item(ShownAs(name, source)).SetValue(kOnly, Standard(field, name, source, isShort));
  }
}
}  // namespace

void GetGeneratePTT(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetGeneratePTT", [&] {
    const TableRef form = provider.Table("1096");
    form.FillTo(kOnly);
    const FieldsRef shown = form.Fields();
    const TableRef sources = provider.Table("25");
    const bool isSet = IsSet(provider), isShort = !sources.HasRecord(kSources);
    for (const FieldRef& field : sources.Fields().NewEnum()) {
      isSet ? ShowSet(provider, field, shown) : ShowStandard(field, shown, isShort);
    }
  });
}

void SetGeneratePTT(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetGeneratePTT", [&] {
    provider.ClearTable("25");
    const TableRef sources = provider.Table("25");
    const FieldsRef form = provider.Table("1096").Fields();
    for (RecordNr source = 1; source <= kSources; ++source) {
      sources.AppendRecord();
      for (const FieldRef& field : sources.Fields().NewEnum()) {
        field.SetValue(source, form.Item(ShownAs(field.Name(), source)).Value(kOnly));
      }
    }
  });
}
}  // namespace modPTT
