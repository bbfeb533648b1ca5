#include "radioui/modFunctionKeyLists.h"

#include <iterator>

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "radioui/ItemLists.h"

namespace modFunctionKeyLists {
namespace {
using namespace ItemLists;

constexpr std::string_view kActions[] = {
    // by the value of FunctionKey1 to FunctionKey4, from 0
    kNone,
    "Audible Indicators Volume",
    "Action Digital Output Line",
    "Backlighting Timer",
    "Backlighting Toggle",
    "Backlighting Timer / Toggle",
    "Call Cleardown",
    "Channel Preset Call",
    "DTMF Dialling",
    "Economy",
    "Emergency Mode",
    "Encryption",
    "Group Scanning Activity",
    "Ignore Two-Tone",
    "Keypress Tones Toggle",
    "Keypress Tones Volume",
    "Low Power Transmit",
    "Monitor",
    "Monitor / Squelch Override",
    "Network Preset Calls",
    "Nuisance Delete",
    "Phone Patch Call Request/Release",
    "Preset Channel",
    "Quiet Operation",
    "Repeater Access Tone Tx",
    "Repeater Talkaround",
    "Reset Monitor",
    "Reset Monitor / Call Cleardown",
    "Silent Operation",
    "Single In-Band Tone",
    "Squelch Override",
    "Scanning / Nuisance Delete",
};
static_assert(std::size(kActions) == KeyAction::kScanningNuisanceDelete + 1);
static_assert(kActions[KeyAction::kPresetChannel] == "Preset Channel");

constexpr std::string_view kEmergencyModes[] = {"Non Stealth", "Stealth", "Deactivate"};
constexpr std::string_view kPresets[] = {"Preset 1", "Preset 2", "Preset 3", "Preset 4"};
constexpr std::string_view kSequences[] = {"Sequence 1", "Sequence 2", "Sequence 3", "Sequence 4"};

using Parameters = void (*)(XArrayDBObject& items, const ProviderRef& provider);

template <const auto& texts>
void OfferTexts(XArrayDBObject& items, const ProviderRef&) {
  Offer(items, texts);
}

void OfferGroups(XArrayDBObject& items, const ProviderRef& provider) {
  OfferValues(items, provider.Field("16.GroupIDTracker"));
}

// clang-format off
constexpr struct {
  std::int32_t action;
  Parameters offer;
} kParameters[] = {
    {KeyAction::kEmergencyMode,          OfferTexts<kEmergencyModes>},
    {KeyAction::kScanning,               OfferGroups},
    {KeyAction::kNetworkPresetCalls,     OfferTexts<kPresets>},
    {KeyAction::kPhonePatch,             OfferTexts<kSequences>},
    {KeyAction::kPresetChannel,          OfferUsedChannels},
    {KeyAction::kScanningNuisanceDelete, OfferGroups},
};
// clang-format on

/// The action of the key that the parameter belongs to.
Variant ActionOf(const ProviderRef& provider, std::string_view parameter) {
  for (const FunctionKey& key : kFunctionKeys) {
    if (!EqualsIgnoringCase(key.parameter1, parameter)) continue;
    const FieldRef action = provider.Field(key.action);
    if (action.HasRecord(1)) return action.Value(1);
  }
  return KeyAction::kUnassigned;
}
}  // namespace

void GetK6000FunctionKeyItems(const ProviderRef&, std::string_view, RecordNr, XArrayDBObject& items) {
  Procedure("GetK6000FunctionKeyItems", [&] { Offer(items, kActions); });
}

void GetK6000FKParameter1(const ProviderRef& provider, std::string_view uiid, RecordNr,
                          XArrayDBObject& items) {
  Procedure("GetK6000FKParameter1", [&] {
    const Variant action = ActionOf(provider, uiid);
    for (const auto& row : kParameters) {
      if (SameValue(action, row.action)) return row.offer(items, provider);
    }
    OfferOnly(items, kNone);
  });
}
}  // namespace modFunctionKeyLists
