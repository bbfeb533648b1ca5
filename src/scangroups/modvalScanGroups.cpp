#include "scangroups/modvalScanGroups.h"

#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"

namespace modvalScanGroups {
namespace {
constexpr std::string_view kScanType = "ScanType_k6k";
constexpr std::string_view kDisplay = "ScanGroupDisplayIndicator_k6k";
constexpr std::string_view kCurrentChannel = "ScanInclCurrentChan_k6k";
constexpr std::string_view kPriority = "PriorityScan_k6k";
constexpr std::string_view kCall = "ScanDefaultTxChannel_k6k";
constexpr std::string_view kRespond = "ScanTxChannelSelect_k6k";
constexpr std::string_view kCapturedTime = "CapturedChanPriSampleTime_k6k";
constexpr std::string_view kBusyTime = "BusyPrioritySampleTime_k6k";

/// The edit of a field of a group.
struct GroupEdit {
  FieldEdit& edit;
  ProviderRef provider;

  bool IsOf(std::string_view uiid) const { return EqualsIgnoringCase(edit.uiid, uiid); }
  /// What the field holds once the edit stands.
  bool WillHold(std::string_view uiid, std::int32_t code) const {
    return IsOf(uiid) ? edit.Is(code) : edit.Holds(uiid, code, edit.record);
  }
  /// The present value, typed once more, changes nothing.
  bool IsChange() const { return !SameValue(edit.Stored(edit.uiid, edit.record), edit.value); }
};

bool AnotherIsBackground(const GroupEdit& group) {
  if (!group.edit.Is(ScanType::kBackground)) return false;
  const FieldRef types = group.provider.Field(kScanType);
  for (const RecordNr other : types.Records()) {
    if (other != group.edit.record && IsCode(types.Value(other), ScanType::kBackground)) return true;
  }
  return false;
}

bool PresetBecomesBackground(const GroupEdit& group) {
  return group.edit.Is(ScanType::kBackground) &&
         IsPresetGroup(group.provider, group.edit.Stored("GroupID_k6k", group.edit.record));
}

bool ShowsTxChannelInVornAx(const GroupEdit& group) {
  return group.WillHold(kDisplay, GroupDisplay::kTxChannel) && group.WillHold(kScanType, ScanType::kVornAx);
}

bool ShowsTxChannelOnLastFree(const GroupEdit& group) {
  return group.WillHold(kDisplay, GroupDisplay::kTxChannel) &&
         group.WillHold(kCall, InitiateCallChannel::kLastFree);
}

bool HasSelectedPriority(const GroupEdit& group) {
  return group.edit.Holds(kPriority, PriorityScan::kSelected, group.edit.record);
}

bool LeavesBackgroundOfSelected(const GroupEdit& group) {
  return group.IsChange() && !group.edit.Is(ScanType::kBackground) && HasSelectedPriority(group);
}

bool ExcludesCurrentOfSelected(const GroupEdit& group) {
  return group.IsChange() && group.edit.Is(kOff) && HasSelectedPriority(group);
}

bool SelectsWithoutBoth(const GroupEdit& group) {
  return group.edit.Is(PriorityScan::kSelected) &&
         !(group.WillHold(kScanType, ScanType::kBackground) && group.WillHold(kCurrentChannel, kOn));
}

bool CallsLastCapturedOnDefault(const GroupEdit& group) {
  return group.WillHold(kCall, InitiateCallChannel::kLastCaptured) &&
         group.WillHold(kRespond, RespondOn::kDefault);
}

bool CallsLastFreeOnDefault(const GroupEdit& group) {
  return group.WillHold(kCall, InitiateCallChannel::kLastFree) &&
         group.WillHold(kRespond, RespondOn::kDefault);
}

bool CallsNextFreeWithoutVornAx(const GroupEdit& group) {
  return group.edit.Is(InitiateCallChannel::kNextFree) && !group.WillHold(kScanType, ScanType::kVornAx);
}

bool CallsSelectedWithoutBackground(const GroupEdit& group) {
  return group.edit.Is(InitiateCallChannel::kSelected) && !group.WillHold(kScanType, ScanType::kBackground);
}

bool HadBothTimesEqual(const GroupEdit& group) {
  return group.IsChange() && SameValue(group.edit.Stored(kCapturedTime, group.edit.record),
                                       group.edit.Stored(kBusyTime, group.edit.record));
}

enum class Reaction { Refuse, DisablePriority, TellBusyTime };

struct Rule {
  std::string_view uiid;  // of the field in hand
  bool (*applies)(const GroupEdit& group);
  Reaction reaction;
  std::string_view text;
};
constexpr std::string_view kTxChannelInVornAx =
    "Scan Group Display Indicator can not be set to Tx Channel if the Scan Type is set to VornAx.";
constexpr std::string_view kLastCapturedOnDefault =
    "The Initiate Call Channel can not be set to Last Captured when Channel to Respond On is set to Default";
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given; in the order of the checks.
constexpr Rule kRules[] = {
    {kScanType, AnotherIsBackground, Reaction::Refuse,
     "Another group has the Scan Type set to Background.  Only one group may be set to background scanning "
     "at a time."},
    {kScanType, PresetBecomesBackground, Reaction::Refuse,
     "This Scan Group is assigned as a Prog IO 'Preset Group' Action parameter, which cannot be a Background "
     "Group.  Please remove it from the Prog IO Action Parameter before amending."},
    {kScanType, ShowsTxChannelInVornAx, Reaction::Refuse, kTxChannelInVornAx},
    {kDisplay, ShowsTxChannelInVornAx, Reaction::Refuse, kTxChannelInVornAx},
    {kDisplay, ShowsTxChannelOnLastFree, Reaction::Refuse,
     "Scan Group Display Indicator can not be set to Tx Channel if the Initiate Call Channel is set to Last "
     "Free."},
    {kScanType, LeavesBackgroundOfSelected, Reaction::DisablePriority,
     "The Scan Type must be Background to have Selected in the Priority Scan field.  If you proceed then "
     "Priority Scan will be set to Disabled. Do you wish to proceed?"},
    {kCurrentChannel, ExcludesCurrentOfSelected, Reaction::DisablePriority,
     "This check box must be selected to have Selected in the Priority Scan field. If you proceed then "
     "Priority Scan will be set to Disabled. Do you wish to proceed?"},
    {kPriority, SelectsWithoutBoth, Reaction::Refuse,
     "Priority Scan can only be set to Selected for Background scan groups with Include Current Channel in "
     "Scan Regime enabled."},
    {kCall, CallsLastCapturedOnDefault, Reaction::Refuse, kLastCapturedOnDefault},
    {kRespond, CallsLastCapturedOnDefault, Reaction::Refuse, kLastCapturedOnDefault},
    {kCall, CallsNextFreeWithoutVornAx, Reaction::Refuse,
     "Initiate Call Channel can not be set to Next Free if Scan Type is not set to VornAx."},
    {kCall, CallsSelectedWithoutBackground, Reaction::Refuse,
     "The Initiate Call Channel can only be set to Selected for a Scan Type of Background."},
    {kCall, CallsLastFreeOnDefault, Reaction::Refuse,
     "The Initiate Call Channel can not be set to Last Free when Respond On Captured Channel is set to "
     "Default"},
    {kRespond, CallsLastFreeOnDefault, Reaction::Refuse,
     "The Initiate Call Channel can not be set to Last Free when Channel to Respond On is set to Default"},
    {kCapturedTime, HadBothTimesEqual, Reaction::TellBusyTime,
     "Changing this value will also cause the Busy Priority Sample Time to change (when the two values are "
     "the same)."},
};

/// The rule of priority scan switches the controls beside it.
bool DisablesPriority(const GroupEdit& group, std::string_view question) {
  if (AskYesNo(group.edit.validator, question) != Button::Yes) return false;
  Variant disabled = PriorityScan::kDisabled;
  if (!group.edit.validator.Accepts(kPriority, disabled, group.edit.record)) return false;
  group.edit.writes.Set(kPriority, group.edit.record, disabled);
  return true;
}

bool Passes(const GroupEdit& group, const Rule& rule) {
  switch (rule.reaction) {
    case Reaction::Refuse:
      return Refuse(group.edit.validator, rule.text);
    case Reaction::DisablePriority:
      return DisablesPriority(group, rule.text);
    case Reaction::TellBusyTime:
      Notify(group.edit.validator, rule.text);
      group.edit.writes.Set(kBusyTime, group.edit.record, group.edit.value);
      return true;
  }
  return true;
}

/// Calls go on a channel that the scan type has: the control is enabled for standard scans alone.
void PullCallChannelAlong(const GroupEdit& group) {
  const auto set = [&](std::int32_t code) { group.edit.writes.Set(kCall, group.edit.record, code); };
  const auto calls = [&](std::int32_t code) { return group.edit.Holds(kCall, code, group.edit.record); };
  if (group.edit.Is(ScanType::kBackground)) set(InitiateCallChannel::kSelected);
  if (group.edit.Is(ScanType::kVornAx)) set(InitiateCallChannel::kNextFree);
  const bool isOfOtherScans = calls(InitiateCallChannel::kNextFree) || calls(InitiateCallChannel::kSelected);
  if (group.edit.Is(ScanType::kStandard) && isOfOtherScans) set(InitiateCallChannel::kPreset);
}
}  // namespace

bool IsPresetGroup(const ProviderRef& provider, const Variant& number) {
  if (!SameValue(StoredValue(provider, "ActionParamPresetGroup", kOnly), number)) return false;
  const FieldRef actions = provider.Field("1108.Action");
  for (const RecordNr pin : actions.Records()) {
    if (ReadsAs(actions.Value(pin), "Preset Group")) return true;
  }
  return false;
}

bool ValidateScanGroup(FieldEdit& edit) {
  return Procedure("ValidateScanGroup", true, [&] {
    const GroupEdit group{edit, edit.validator.CurrentProvider()};
    if (!group.provider.Field(kScanType).HasRecord(edit.record)) return edit.PassUnchanged();
    for (const Rule& rule : kRules) {
      if (group.IsOf(rule.uiid) && rule.applies(group) && !Passes(group, rule)) return false;
    }
    if (!group.IsOf(kScanType) || !group.IsChange()) return true;
    edit.StoreNow();
    PullCallChannelAlong(group);
    return true;
  });
}
}  // namespace modvalScanGroups
