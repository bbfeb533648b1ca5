#include "radioui/modProgIO.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "common/Handles.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"

namespace modProgIO {
namespace {
constexpr std::string_view kLow = "Low";
constexpr std::string_view kHigh = "High";

struct NamedId {
  std::int32_t id;
  std::string_view name;
};
// clang-format off
constexpr NamedId kTapTypes[] = {
    {TapType::kBypassIn,   "A - Bypass In"},
    {TapType::kCombine,    "B - Combine"},
    {TapType::kBypassOut,  "C - Bypass Out"},
    {TapType::kSplit,      "D - Split"},
    {TapType::kSplice,     "E - Splice"},
    {TapType::kCombine0dB, "H - Combine 0dB"},
};
constexpr NamedId kUnmuteConditions[] = {
    {UnmuteCondition::kNone,             kNone},
    {UnmuteCondition::kOnPTT,            "On PTT"},
    {UnmuteCondition::kBusyDetect,       "Busy Detect"},
    {UnmuteCondition::kBusyDetectSubaud, "Busy Detect + Subaud"},
    {UnmuteCondition::kRxMuteOpen,       "Rx Mute Open"},
    {UnmuteCondition::kExceptOnPTT,      "Except on PTT"},
};
// clang-format on

/// The first row whose `member` is `value`; null for none.
template <typename Row, std::size_t N, typename Member, typename Value>
const Row* FindBy(const Row (&rows)[N], Member Row::*member, const Value& value) {
  const Row* found = std::ranges::find(rows, value, member);
  return found == std::end(rows) ? nullptr : found;
}

std::string_view NameOf(const NamedId* row) { return row == nullptr ? std::string_view() : row->name; }

const clsProgIOActions* FindInputByName(std::string_view name) {
  const std::string_view wanted = Trim(name);
  for (const clsProgIOActions& action : ProgIOInputActions) {
    if (Trim(action.strName) == wanted) return &action;
  }
  return nullptr;
}

const clsProgIOActions& ActionOf(std::span<const clsProgIOActions> actions, std::string_view key) {
  for (const clsProgIOActions& action : actions) {
    if (EqualsIgnoringCase(action.strKey, key)) return action;
  }
  throw Error(ErrorNumber::kInvalidCall, "modProgIO",
              "Invalid procedure call or argument: no action has the key " + std::string(key));
}
}  // namespace

const clsProgIOPins* FindPin(std::string_view name) {
  for (const clsProgIOPins& pin : ProgIOPins) {
    if (EqualsIgnoringCase(pin.strName, name)) return &pin;
  }
  return nullptr;
}

const clsProgIOActions& InputAction(std::string_view key) { return ActionOf(ProgIOInputActions, key); }
const clsProgIOActions& OutputAction(std::string_view key) { return ActionOf(ProgIOOutputActions, key); }

bool IsKeyStatus(std::string_view action) {
  return action.starts_with('F') && action.ends_with("Key Status");
}

std::string_view GetDigitalIOPinName(std::int32_t pinId) {
  const clsProgIOPins* pin = FindBy(ProgIOPins, &clsProgIOPins::bytPinID, pinId);
  return pin == nullptr ? std::string_view() : pin->strName;
}

std::int32_t GetDigitalIOGridRow(std::string_view pinName) {
  const clsProgIOPins* pin = FindPin(pinName);
  return pin == nullptr ? 0 : static_cast<std::int32_t>(pin - ProgIOPins) + 1;
}

std::int32_t GetDigitalIOPinID(std::string_view pinName) {
  const clsProgIOPins* pin = FindPin(pinName);
  return pin == nullptr ? 0 : pin->bytPinID;
}

std::int32_t GetDigitalIOActionID(std::string_view name) {
  const clsProgIOActions* action = FindInputByName(name);
  if (action == nullptr) action = FindBy(ProgIOOutputActions, &clsProgIOActions::strName, name);
  return action == nullptr ? 0 : action->bytActionID;
}

std::int32_t GetDigitalIODeactivationActionID(std::string_view name) {
  const clsProgIOActions* action = FindInputByName(name);
  return action != nullptr && action->blnDeactivationState ? action->bytActionID : 0;
}

std::string_view GetDigitalIOActionName(std::int32_t actionId, bool input) {
  const clsProgIOActions* action =
      input ? FindBy(ProgIOInputActions, &clsProgIOActions::bytActionID, actionId)
            : FindBy(ProgIOOutputActions, &clsProgIOActions::bytActionID, actionId);
  return action == nullptr ? std::string_view() : action->strName;
}

std::int32_t GetDigitalIOActiveStateID(std::string_view name) {
  return name == kLow ? 0 : name == kHigh ? 1 : 2;
}

std::string_view GetDigitalIOActiveStateName(std::int32_t state) {
  return state == 0 ? kLow : state == 1 ? kHigh : kNone;
}

std::string_view GetAudioIOTapTypeName(std::int32_t id) {
  return NameOf(FindBy(kTapTypes, &NamedId::id, id));
}

std::int32_t GetAudioIOTapTypeID(std::string_view name) {
  const NamedId* type = FindBy(kTapTypes, &NamedId::name, name);
  return type == nullptr ? 0 : type->id;
}

std::string_view GetUnmuteConditionName(std::int32_t id) {
  return NameOf(FindBy(kUnmuteConditions, &NamedId::id, id));
}

std::int32_t GetUnmuteConditionID(std::string_view name) {
  const NamedId* condition = FindBy(kUnmuteConditions, &NamedId::name, name);
  return condition == nullptr ? UnmuteCondition::kNone : condition->id;
}

bool TapPointRxPath(std::int32_t tapPoint) {
  const TapPoint* point = FindBy(kTapPoints, &TapPoint::code, tapPoint);
  return point != nullptr && point->onRxPath;
}

bool IsInputAction(std::string_view name, std::span<const std::string_view> keys) {
  return std::ranges::any_of(keys, [&](std::string_view key) { return InputAction(key).strName == name; });
}

void ProvideFlowControl(const ProviderRef& provider) { provider.Table("1109").FillTo(kOnly); }

bool IsProgIOActionInList(const ProviderRef& provider, std::string_view fieldId,
                          std::string_view actionName) {
  return Procedure("IsProgIOActionInList", false, [&] {
    const FieldRef actions = provider.Field(fieldId);
    for (const RecordNr record : actions.Records()) {
      if (CStr(actions.Value(record)) == actionName) return true;
    }
    return false;
  });
}
}  // namespace modProgIO
