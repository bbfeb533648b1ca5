#include "radioui/modFunctionKeys.h"

#include <algorithm>
#include <string>

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "radioui/FunctionKeyActions.h"
#include "radioui/modDisplayIndicators.h"

namespace modFunctionKeys {
namespace {
using FunctionKeyActions::Action;
using FunctionKeyActions::Light;
using FunctionKeyActions::Parameter;
using FunctionKeyActions::Press;

constexpr RecordNr kKeys = std::size(kFunctionKeys);

// The pointers of a key, a record of table 15 each.
constexpr std::string_view kShortPress = "15.FnKeyShortPressActionID";
constexpr std::string_view kLongPress = "15.FnKeyLongPressActionID";
constexpr std::string_view kUp = "15.FnKeyUpActionID";
constexpr std::string_view kDown = "15.FnKeyDownActionID";

/// A parameter that names a record: the radio has the record's index, the forms its number.
struct NamedRecord {
  std::string_view stored, shown;
};
constexpr NamedRecord kGroup = {"16.GroupIdentity", "16.GroupIDTracker"};
constexpr NamedRecord kChannel = {"7.CibChannelID", "5.ChannelIDTracker"};
/// Null for another parameter.
constexpr const NamedRecord* RecordOf(Parameter parameter) {
  return parameter == Parameter::Group ? &kGroup : parameter == Parameter::Channel ? &kChannel : nullptr;
}

// To the forms

/// What table 24 holds for a key.
class StoredKey {
 public:
  StoredKey(const ProviderRef& provider, RecordNr key)
      : provider_(provider), types_(provider.Field("24.ProgrammableActionType")), key_(key) {}

  std::int32_t Value() const {
    return FunctionKeyActions::Decode(TypeOf(kShortPress), TypeOf(kLongPress), TypeOf(kUp));
  }
  /// Of a key that has a short press.
  std::int32_t ParameterIndex() const {
    return CLng(provider_.Field("24.Parameter1").Value(RecordOf(kShortPress)));
  }

 private:
  /// 0 for none, and for one that is not there.
  RecordNr RecordOf(std::string_view pointer) const {
    const RecordNr record = CLng(StoredValue(provider_, pointer, key_));
    return types_.HasRecord(record) ? record : 0;
  }
  std::int64_t TypeOf(std::string_view pointer) const {
    const RecordNr record = RecordOf(pointer);
    return record == 0 ? 0 : std::int64_t{CLng(types_.Value(record))} + 1;
  }

  const ProviderRef& provider_;
  FieldRef types_;
  RecordNr key_;
};

/// "None" for an index that names nothing.
std::string ShownParameter(const ProviderRef& provider, Parameter parameter, std::int32_t index) {
  const auto texts = FunctionKeyActions::TextsOf(parameter);
  if (index >= 0 && index < std::ssize(texts)) return std::string(texts[static_cast<std::size_t>(index)]);
  const NamedRecord* named = RecordOf(parameter);
  if (named == nullptr) return std::string(kNone);
  const Variant number = ValueAtIndex(provider.Field(named->stored), index);
  return number.IsEmpty() ? std::string(kNone) : CStr(number);
}

void ShowKey(const ProviderRef& provider, const FunctionKey& key, const StoredKey& stored) {
  const std::int32_t value = stored.Value();
  const Parameter parameter = FunctionKeyActions::Of(value).parameter;
  provider.Field(key.action).SetValue(kOnly, value);
  provider.Field(key.parameter1)
      .SetValue(kOnly, parameter == Parameter::None
                           ? std::string(kNone)
                           : ShownParameter(provider, parameter, stored.ParameterIndex()));
  provider.Field(key.parameter2).SetValue(kOnly, 0);
}

// From the forms

/// All of them, as they are without keys.
void LayOutAnnunciators(const ProviderRef& provider) {
  provider.Table("3").FillTo(FunctionKeyActions::kAnnunciators);
  const FieldRef mode = provider.Field("3.AnnunciatorMode");
  const FieldRef duration = provider.Field("3.AnnunciatorDuration");
  const FieldRef number = provider.Field("3.AnnunciatorNumber");
  for (std::int32_t index = 0; index < FunctionKeyActions::kAnnunciators; ++index) {
    modDisplayIndicators::Annunciator annunciator{};
    if (!modDisplayIndicators::HarrierAnnunciator(index, annunciator)) continue;
    mode.SetValue(index + 1, annunciator.mode);
    duration.SetValue(index + 1, annunciator.duration);
    number.SetValue(index + 1, annunciator.number);
  }
}

constexpr std::int32_t LEDOf(RecordNr key) { return key + 2; }

/// What the key does lights its LED.
void LightKey(const ProviderRef& provider, RecordNr key, const Action& action) {
  const FieldRef number = provider.Field("3.AnnunciatorNumber");
  for (const Light& light : action.lights) {
    if (light.index != FunctionKeyActions::kNoAnnunciator) number.SetValue(light.Of(key) + 1, LEDOf(key));
  }
  if (action.upAndDown == 0) return;
  const RecordNr own = 20 + key;  // the annunciator of the key itself
  provider.Field("3.AnnunciatorDuration").SetValue(own, 2);
  number.SetValue(own, LEDOf(key));
}

/// 0 for a text that names nothing.
std::int32_t StoredParameter(const ProviderRef& provider, Parameter parameter, const Variant& shown) {
  const auto texts = FunctionKeyActions::TextsOf(parameter);
  const auto text = std::ranges::find_if(texts, [&](std::string_view one) { return ReadsAs(shown, one); });
  if (text != texts.end()) return static_cast<std::int32_t>(text - texts.begin());
  const NamedRecord* named = RecordOf(parameter);
  if (named == nullptr) return 0;
  return std::max(modProjectGlobals::FindRecord(provider.Field(named->shown), shown) - 1, 0);
}

/// Points the key at a new action; at none for type 0.
void StorePress(const ProviderRef& provider, RecordNr key, std::string_view pointer, const Press& press,
                std::int32_t parameter) {
  if (press.type == 0) return provider.Field(pointer).SetValue(key, 0);
  const RecordNr added = provider.Table("24").AppendRecord();
  provider.Field("24.ProgrammableActionType").SetValue(added, press.type - 1);
  provider.Field("24.Parameter1").SetValue(added, parameter);
  provider.Field("24.Parameter2").SetValue(added, press.tellsKey ? key - 1 : 0);
  provider.Field(pointer).SetValue(key, added);
}

void StoreKey(const ProviderRef& provider, RecordNr key, const Action& action, std::int32_t parameter) {
  StorePress(provider, key, kShortPress, action.shortPress, parameter);
  // A long press that scans is told no group, one that tells its key has the parameter, too.
  StorePress(provider, key, kLongPress, action.longPress, action.longPress.tellsKey ? parameter : 0);
  StorePress(provider, key, kUp, {action.upAndDown}, 0);
  StorePress(provider, key, kDown, {action.upAndDown}, 0);
}
}  // namespace

void GetGenerateFunctionKeys(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetGenerateFunctionKeys", [&] {
    provider.Table("1099").FillTo(1);
    RecordNr number = 0;
    for (const FunctionKey& key : kFunctionKeys) ShowKey(provider, key, StoredKey(provider, ++number));
  });
}

void SetGenerateFunctionKeys(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetGenerateFunctionKeys", [&] {
    provider.Table("15").FillTo(kKeys);
    LayOutAnnunciators(provider);
    provider.ClearTable("24");
    RecordNr number = 0;
    for (const FunctionKey& key : kFunctionKeys) {
      const Action& action = FunctionKeyActions::Of(CLng(provider.Field(key.action).Value(kOnly)));
      const Variant shown = provider.Field(key.parameter1).Value(kOnly);
      LightKey(provider, ++number, action);
      StoreKey(provider, number, action, StoredParameter(provider, action.parameter, shown));
    }
  });
}
}  // namespace modFunctionKeys
