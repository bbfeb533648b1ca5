#include "radioui/modvalFunctionKeys.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "common/GroupMembers.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "radioui/FunctionKeyActions.h"
#include "radioui/modProgIO.h"
#include "radioui/modvalProgIO.h"

namespace modvalFunctionKeys {
namespace {
using FunctionKeyActions::Parameter;

constexpr std::int32_t kKeys = std::size(kFunctionKeys);

const FunctionKey& KeyOf(std::int32_t number) { return kFunctionKeys[number - 1]; }

std::int32_t ActionOf(const ProviderRef& provider, const FunctionKey& key) {
  const Variant action = StoredValue(provider, key.action, kOnly);
  return IsNumeric(action) ? CLng(action) : KeyAction::kUnassigned;
}

/// From 1.
std::int32_t NumberOf(std::string_view uiid) {
  std::int32_t number = 1;
  while (number < kKeys && !EqualsIgnoringCase(KeyOf(number).action, uiid)) ++number;
  return number;
}

// The parameters of a new action

/// The first record's number; "None" without records.
std::string FirstNumber(const FieldEdit& edit, std::string_view uiid) {
  const Variant number = edit.Stored(uiid, 1);
  return number.IsEmpty() ? std::string(kNone) : CStr(number);
}

std::string DefaultParameter(const FieldEdit& edit) {
  const std::int32_t action = IsNumeric(edit.value) ? CLng(edit.value) : KeyAction::kUnassigned;
  switch (const Parameter parameter = FunctionKeyActions::Of(action).parameter) {
    case Parameter::None:
      return std::string(kNone);
    case Parameter::Group:
      return FirstNumber(edit, "GroupID_k6k");
    case Parameter::Channel:
      return FirstNumber(edit, "ChannelID_k6k");
    default:
      return std::string(FunctionKeyActions::TextsOf(parameter).front());
  }
}

// What an action asks for

/// The sequences of a network's system that the key could call, and the type of the network.
struct NetworkPresets {
  std::int32_t type;
  std::string_view sequences[4];
};
constexpr NetworkPresets kNetworkPresets[] = {
    {SignallingType::kSelcall,
     {"FreeFormSequence1", "FreeFormSequence2", "FreeFormSequence3", "FreeFormSequence4"}},
    {SignallingType::kDTMF,
     {"DTMFNetworkSequence1", "DTMFNetworkSequence2", "DTMFNetworkSequence3", "DTMFNetworkSequence4"}},
};

bool HasSystems(const FieldEdit& edit, std::int32_t) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  return provider.Field("ToneSigSystemID").HasRecord(1) ||
         provider.Field("DTMFNetworkSigSystemID").HasRecord(1) ||
         Refuse(edit.validator,
                "This option is not valid as there are no DTMF or Selcall systems defined. Either define a "
                "system with network preset calls, or select another function key option.");
}

/// A network on a system that is not there has nothing to judge.
bool LacksPresets(const StoredRecord& network, const NetworkPresets& presets) {
  if (!network.Holds("SignallingType", presets.type)) return false;
  const StoredRecord system{network.provider,
                            modProjectGlobals::SigSysRecordNr(network.provider, presets.type,
                                                              network.Text("NetworkSignallingID"), true)};
  return system.record != 0 && std::ranges::all_of(presets.sequences, [&](std::string_view sequence) {
           return modProjectGlobals::IsBlankSequence(system.Text(sequence));
         });
}

bool AnyNetworkLacksPresets(const ProviderRef& provider) {
  for (const RecordNr record : provider.Field("NetworkID").Records()) {
    const auto lacks = [&](const NetworkPresets& presets) {
      return LacksPresets({provider, record}, presets);
    };
    if (std::ranges::any_of(kNetworkPresets, lacks)) return true;
  }
  return false;
}

/// Passes all the same.
bool HasPresets(const FieldEdit& edit, std::int32_t) {
  if (AnyNetworkLacksPresets(edit.validator.CurrentProvider())) {
    Warn(edit.validator,
         "One or more selective systems in use do not have any network preset calls defined. This function "
         "key option may not work as intended on some channels.");
  }
  return true;
}

/// Passes all the same.
bool HasEmergencies(const FieldEdit& edit, std::int32_t) {
  const FieldRef enabled = edit.validator.CurrentProvider().Field("EmergencyEnabled");
  const std::vector<Variant> values = enabled.Values();
  if (!std::ranges::all_of(values, IsTicked)) {
    Warn(edit.validator,
         "One or more networks do not have emergency mode enabled. This may result in the function key "
         "having no effect.");
  }
  return true;
}

bool HasOneSignalState(const FieldEdit& edit, std::int32_t key) {
  return modvalProgIO::ProgIOSignalStatesIdentical(edit.validator.CurrentProvider(), key) ||
         Refuse(
             edit.validator,
             "The Signal States for Digital Prog IO Action's 'F%0:s Key Status' are not identical.  Please "
             "amend them before setting Function Key %0:s to 'Action Digital Output Line'.",
             {std::to_string(key)});
}

bool HasNoEconomyPin(const FieldEdit& edit, std::int32_t) {
  return !modProgIO::IsProgIOActionInList(edit.validator.CurrentProvider(), "DigitalIOAction",
                                          modProgIO::InputAction("ECONOMY_MODE").strName) ||
         Refuse(
             edit.validator,
             "Function Keys can not be assigned to 'Economy' when a Prog IO Pin has been set to 'Economy'");
}

bool HasBacklightToSwitch(const FieldEdit& edit, std::int32_t key) {
  const Variant mode = edit.Stored("BacklightMode", kOnly);
  return mode.IsEmpty() || IsCode(mode, Backlight::kWithActivity) ||
         Refuse(edit.validator,
                "You can only set %0:S to Backlight Timer or Backlight Timer/Toggle %1:Swhen the Backlight "
                "Mode is 'With Activity'",
                {"Function Key " + std::to_string(key), kLineBreak});
}

bool HasGroups(const FieldEdit& edit, std::int32_t) {
  return edit.validator.CurrentProvider().Table("16").HasRecord(1) ||
         Refuse(
             edit.validator,
             "Function Keys can not be assigned to 'Activate Scanning' or 'Scanning/Nuisance Delete' when no "
             "Scan Groups are defined");
}

/// Whether a group hides every channel that the radio has.
bool HidesAllChannels(const ProviderRef& provider, RecordNr group) {
  return HoldsCode(provider, "HiddenChannels_k6k", kOn, group) &&
         modProjectGlobals::AllChannelsAreMembers(GroupMembers(provider), group);
}

/// By the first group, which is the parameter so far.
bool LeavesAChannel(const FieldEdit& edit, std::int32_t) {
  return !HidesAllChannels(edit.validator.CurrentProvider(), 1) ||
         Refuse(edit.validator,
                "Function Keys can not be assigned to 'Activate Scanning' or 'Scanning/Nuisance Delete' when "
                "all of the Channels are included as Scan Group members and the Group's 'Hidden Channels' "
                "option is enabled");
}

// Given by the maintainers' reference, like all that ARCHITECTURE lists as given; in the order of the checks.
constexpr struct {
  std::int32_t action;
  bool (*passes)(const FieldEdit& edit, std::int32_t key);
} kRules[] = {
    {KeyAction::kNetworkPresetCalls, HasSystems},
    {KeyAction::kNetworkPresetCalls, HasPresets},
    {KeyAction::kEmergencyMode, HasEmergencies},
    {KeyAction::kActionDigitalOutputLine, HasOneSignalState},
    {KeyAction::kEconomy, HasNoEconomyPin},
    {KeyAction::kBacklightTimer, HasBacklightToSwitch},
    {KeyAction::kBacklightToggle, HasBacklightToSwitch},
    {KeyAction::kBacklightTimerToggle, HasBacklightToSwitch},
    {KeyAction::kScanning, HasGroups},
    {KeyAction::kScanningNuisanceDelete, HasGroups},
    {KeyAction::kScanning, LeavesAChannel},
    {KeyAction::kScanningNuisanceDelete, LeavesAChannel},
};

// What stands on the keys together

/// What may stand on several keys.
constexpr std::int32_t kRepeatable[] = {
    KeyAction::kUnassigned,
    KeyAction::kActionDigitalOutputLine,
    KeyAction::kScanning,
    KeyAction::kNetworkPresetCalls,
    KeyAction::kPhonePatch,
    KeyAction::kPresetChannel,
    KeyAction::kScanningNuisanceDelete,
};
constexpr bool IsRepeatable(std::int32_t action) {
  return std::ranges::find(kRepeatable, action) != std::end(kRepeatable);
}

/// Actions that lead the radio to the same programmable action.
struct ExcludingPair {
  std::int32_t a, b;  // a < b
};
constexpr ExcludingPair kExcludingPairs[] = {
    {KeyAction::kBacklightTimer, KeyAction::kBacklightTimerToggle},
    {KeyAction::kBacklightToggle, KeyAction::kBacklightTimerToggle},
    {KeyAction::kCallCleardown, KeyAction::kResetMonitorCallCleardown},
    {KeyAction::kMonitor, KeyAction::kMonitorSquelchOverride},
    {KeyAction::kMonitorSquelchOverride, KeyAction::kSquelchOverride},
    {KeyAction::kNuisanceDelete, KeyAction::kScanningNuisanceDelete},
    {KeyAction::kResetMonitor, KeyAction::kResetMonitorCallCleardown},
};
constexpr bool ExcludeEachOther(std::int32_t a, std::int32_t b) {
  return std::ranges::any_of(kExcludingPairs, [&](const ExcludingPair& pair) {
    return pair.a == std::min(a, b) && pair.b == std::max(a, b);
  });
}

/// The pairs are those, and no others, whose presses lead to one programmable action. Two that may each stand
/// on several keys go with each other, too.
constexpr bool AreThePairsThatShareAType() {
  using namespace FunctionKeyActions;
  for (std::int32_t a = 0; a < kCount; ++a) {
    for (std::int32_t b = a + 1; b < kCount; ++b) {
      const bool excludes = ShareType(kActions[a], kActions[b]) && !(IsRepeatable(a) && IsRepeatable(b));
      if (excludes != ExcludeEachOther(a, b)) return false;
    }
  }
  return true;
}
static_assert(AreThePairsThatShareAType());

struct KeyPair {
  std::int32_t first, second;  // the actions, in the order of the keys
};

/// Of the first two keys, in their order, whose actions `conflict`; none for keys that go together.
template <typename Conflict>
std::optional<KeyPair> FindPair(const ProviderRef& provider, Conflict conflict) {
  for (std::int32_t first = 1; first < kKeys; ++first) {
    const std::int32_t action = ActionOf(provider, KeyOf(first));
    for (std::int32_t second = first + 1; second <= kKeys; ++second) {
      const KeyPair pair{action, ActionOf(provider, KeyOf(second))};
      if (conflict(pair.first, pair.second)) return pair;
    }
  }
  return {};
}

bool IsForbiddenTwice(std::int32_t a, std::int32_t b) { return a == b && !IsRepeatable(a); }

std::string_view NameOf(std::int32_t action) { return FunctionKeyActions::Of(action).name; }

// Scanning

bool Scans(const ProviderRef& provider, const FunctionKey& key) {
  return FunctionKeyActions::Of(ActionOf(provider, key)).parameter == Parameter::Group;
}

/// Why a key can not scan the group; empty when it can. A group of one scans when it is in the background and
/// has the current channel beside it.
std::string_view WhyNotScan(const StoredRecord& group, const GroupMembers& members) {
  if (group.provider.Table("5").RecordCount() < 2) {
    return "Scanning requires at least two channels in the Channels form. You must add another channel "
           "in the Channels form to enable 'Group Scanning Activity' on a Function Key";
  }
  const bool isOne = !modProjectGlobals::MultipleChannelMembers(members, group.record);
  if (isOne && !group.Holds("ScanType_k6k", ScanType::kBackground)) {
    return "There must be at least two Channels in the Scan Group members to activate scanning.  You "
           "must add another Channel to the Group Membership list or remove 'Group Scanning Activity' "
           "from the Function Keys or change the Scan Type to 'Background' and enable 'Hidden "
           "Channels' before proceeding";
  }
  const bool hides = group.Holds("HiddenChannels_k6k", kOn);
  if (isOne && !(hides && group.Holds("ScanInclCurrentChan_k6k", kOn))) {
    return "There must be at least two Scan Group members to activate scanning.  You must add another "
           "Channel to the Group Membership list or enable 'Hidden Channels' and 'Include Current Channel "
           "In Scan Regime' or remove 'Group Scanning Activity' from the Function Keys before "
           "proceeding";
  }
  if (hides && modProjectGlobals::AllChannelsAreMembers(members, group.record)) {
    return "Function Keys can not be assigned to 'Activate Scanning' or 'Scanning/Nuisance Delete' when "
           "all of the Channels are included as Scan Group members and the Group's 'Hidden Channels' "
           "option is enabled.";
  }
  return {};
}
}  // namespace

bool ValidateFunctionKeys(FieldEdit& edit) {
  return Procedure("ValidateFunctionKeys", true, [&] {
    if (edit.Stored(edit.uiid, kOnly).IsEmpty()) return edit.PassUnchanged();
    const std::int32_t number = NumberOf(edit.uiid);
    edit.writes.Set(KeyOf(number).parameter1, kOnly, DefaultParameter(edit));
    edit.writes.Set(KeyOf(number).parameter2, kOnly, 0);
    return std::ranges::all_of(
        kRules, [&](const auto& rule) { return !edit.Is(rule.action) || rule.passes(edit, number); });
  });
}

bool FormIsValid(const ValidatorRef& validator) {
  return Procedure("FormIsValid", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    if (const auto twice = FindPair(provider, IsForbiddenTwice)) {
      return Refuse(
          validator,
          "You have assigned '%0:S' to more than one function key.  This action can only be used on a "
          "single key.",
          {NameOf(twice->first)});
    }
    const auto pair = FindPair(provider, ExcludeEachOther);
    return !pair ||
           Refuse(validator,
                  "'%0:S' and '%1:S' can not be used together.  Please change one of these settings.",
                  {NameOf(pair->first), NameOf(pair->second)});
  });
}

void ValidateFunctionKeyFinalValidation(FinalReport& report) {
  Procedure("ValidateFunctionKeyFinalValidation", [&] {
    const ProviderRef provider = report.Provider();
    const GroupMembers members(provider);
    for (const FunctionKey& key : kFunctionKeys) {
      if (!Scans(provider, key)) continue;
      const RecordNr group = modProjectGlobals::FindRecord(provider.Field("16.GroupIDTracker"),
                                                           StoredValue(provider, key.parameter1, kOnly));
      if (group == 0) continue;
      const std::string_view reason = WhyNotScan({provider, group}, members);
      if (!reason.empty() && !report.Refuse({std::string(key.action), kOnly}, reason)) return;
    }
  });
}
}  // namespace modvalFunctionKeys
