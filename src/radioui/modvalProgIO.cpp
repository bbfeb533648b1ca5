#include "radioui/modvalProgIO.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "radioui/LinkAdvice.h"
#include "radioui/ProgIOGrid.h"
#include "radioui/modProgIOLists.h"

namespace modvalProgIO {
namespace {
using namespace modProgIO;

// Cells of the grid

/// A state that the circuits behind a pin do not allow, for some actions by their keys.
struct BarredState {
  std::string_view pin;
  std::span<const std::string_view> actions;
  std::string_view state, message;
};
constexpr std::array<std::string_view, 1> kEmergency = {"SEND_EMERGENCY_CALL"};
constexpr std::array<std::string_view, 1> kIgnition = {"IGNITION_STATE"};
constexpr BarredState kBarredStates[] = {
    {"AUX_GPI2", kEmergency, "High",
     "If AUX_GPI2 is set to 'Enter Emergency Mode' then the Active State can not be 'High'."},
    {"AUX_GPI3", kIgnition, "Low",
     "If AUX_GPI3 is set to 'Power Sense (Ignition)' then the Active State can not be 'Low'."},
    {"IOP_GPIO7", LinkAdvice::kPowerActions, "Low",
     "The Active State can not be set to 'Low' for this Action."},
};

// Flow control

struct Cell {
  std::string_view fieldId, uiid, text;
};
using Cells = std::array<Cell, 7>;
/// What an unused row holds, in the order of the writes.
constexpr Cells kUnusedCells = {{
    {"1108.Direction", "DigitalIODirection", kNone},
    {"1108.Label", "DigitalIOLabel", kNone},
    {"1108.Action", "DigitalIOAction", kNoAction},
    {"1108.ActiveState", "DigitalIOActiveState", kNone},
    {"1108.DebounceTime", "DigitalIODebounceTime", kNone},
    {"1108.SignalType", "DigitalIOSignalType", kNone},
    {"1108.MirroredTo", "DigitalIOMirroredTo", kNone},
}};

/// What a row takes for a line; likewise.
Cells CellsOf(bool isRTS) {
  const std::string_view action =
      isRTS ? InputAction("RTS_CONTROL").strName : OutputAction("CTS_CONTROL").strName;
  return {{
      {"1108.Direction", "DigitalIODirection", isRTS ? kInput : kOutput},
      {"1108.Label", "DigitalIOLabel", isRTS ? "RTS" : "CTS"},
      {"1108.Action", "DigitalIOAction", action},
      {"1108.DebounceTime", "DigitalIODebounceTime", isRTS ? "10" : kNone},
      {"1108.SignalType", "DigitalIOSignalType", kNone},
      {"1108.ActiveState", "DigitalIOActiveState", "Low"},
      {"1108.MirroredTo", "DigitalIOMirroredTo", kNone},
  }};
}

void SetCells(FieldEdit& edit, RecordNr row, const Cells& cells) {
  for (const auto& [fieldId, uiid, text] : cells) edit.writes.Set(fieldId, uiid, row, text);
}

RecordNr RowOfPin(const Variant& pinId) {
  return IsNumeric(pinId) ? GetDigitalIOGridRow(GetDigitalIOPinName(CLng(pinId))) : 0;
}

// Audio taps

constexpr std::string_view kSplice = "E - Splice";

/// Where a tap point may not lie, and what is told: the texts name fewer points than the rules hold; wanted
/// so.
struct TapRule {
  std::string_view uiid;
  std::string_view onReceiver, onMicrophone;
};
constexpr TapRule kTapRules[] = {
    {"AUDIOIOTAPIN", "You may only choose tap in points R7 and R10 here",
     "You may not choose tap in point R7 here"},
    {"AUDIOIOTAPOUT", "You may not choose tap in points T3 and T4 here",
     "You may only choose tap in points T3, T4 and R10 here"},
};

bool HoldsPoint(std::span<const std::int32_t> points, const Variant& point) {
  return std::ranges::any_of(points, [&](std::int32_t one) { return SameValue(point, one); });
}

bool MayLieOn(RecordNr path, const Variant& point) {
  constexpr std::int32_t kReceiver[] = {0, 1, 2, 4, 5, 7, 10};
  constexpr std::int32_t kNotOfMicrophone[] = {1, 2, 4, 5, 7};
  return path == kReceiverPath ? HoldsPoint(kReceiver, point) : !HoldsPoint(kNotOfMicrophone, point);
}

/// Of its list, which rests on what is stored by then; a list with one entry gives that for the second, too.
void TakeEntry(FieldEdit& edit, std::string_view uiid, std::int32_t entry) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  edit.writes.Set(uiid, edit.record, modProgIOLists::AudioEntry(provider, uiid, edit.record, entry));
}
void TakeFirst(FieldEdit& edit, std::string_view uiid) { TakeEntry(edit, uiid, 0); }

void FollowTapIn(FieldEdit& edit) {
  edit.StoreNow();
  TakeFirst(edit, "TapInType");
  TakeFirst(edit, "TapInUnmuteCondition");
}

/// Point 3 stands among them here and nowhere else; wanted so.
void FollowTapOut(FieldEdit& edit) {
  constexpr std::int32_t kSecondType[] = {1, 2, 3, 4, 5, 7, 10};
  edit.StoreNow();
  TakeEntry(edit, "TapOutType", HoldsPoint(kSecondType, edit.value) ? 1 : 0);
  TakeFirst(edit, "TapOutUnmuteCondition");
}

/// The first item of the conditions fits each type.
bool FollowType(FieldEdit& edit) {
  TakeFirst(edit, edit.uiid == "TAPINTYPE" ? "TapInUnmuteCondition" : "TapOutUnmuteCondition");
  return true;
}

/// Whether a path that is spliced is so on both sides, at one point, under one condition.
bool IsSplicedSoundly(const ProviderRef& provider, RecordNr path) {
  const auto cell = [&](std::string_view uiid) { return CStr(StoredValue(provider, uiid, path)); };
  const bool in = cell("TapInType") == kSplice, out = cell("TapOutType") == kSplice;
  const bool samePoint =
      SameValue(StoredValue(provider, "AudioIOTapIn", path), StoredValue(provider, "AudioIOTapOut", path));
  if ((in || out) && !(in && out && samePoint)) return false;
  return !in || cell("TapInUnmuteCondition") == cell("TapOutUnmuteCondition");
}

bool CheckSplices(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  bool isSound = true;
  for (RecordNr path = 1; path <= std::ssize(kAudioPaths); ++path)
    isSound = isSound && IsSplicedSoundly(provider, path);
  return isSound ||
         Refuse(
             validator,
             "If a Tap Type is set to Splice then the corresponding In or Out Tap Type must be Splice.  Both "
             "Tap Points must also be identical, as well as both Unmute Conditions.  One or more Audio "
             "Sources needs correcting.");
}

// Before a save

bool IsHardware(const ProviderRef& provider, std::string_view field) {
  return HoldsCode(provider, field, FlowControl::kHardware, kOnly);
}

bool UsesHardwareFlowControl(const ProviderRef& provider) {
  const auto isOn = [&](std::string_view box) { return HoldsCode(provider, box, kOn, kOnly); };
  return IsHardware(provider, "DataCMFlowControl") ||
         (isOn("DataOptionsEnabled") && IsHardware(provider, "DataTMFlowControl")) ||
         (isOn("DataVHSDModemEnabled") && IsHardware(provider, "DataHSDFlowControl"));
}
}  // namespace

bool ValidateDigitalIOActiveState(FieldEdit& edit) {
  return Procedure("ValidateDigitalIOActiveState", true, [&] {
    const ProgIOGrid grid(edit.validator.CurrentProvider());
    const std::string pin = grid.Pin(edit.record), action = grid.Action(edit.record);
    for (const BarredState& barred : kBarredStates) {
      if (pin != barred.pin || !ReadsAs(edit.value, barred.state) || !IsInputAction(action, barred.actions))
        continue;
      return Refuse(edit.validator, barred.message);
    }
    return true;
  });
}

bool ValidateDigitalIOMirroredTo(FieldEdit& edit) {
  return Procedure("ValidateDigitalIOMirroredTo", true, [&] {
    const ProgIOGrid grid(edit.validator.CurrentProvider());
    const std::string mirrored = CStr(edit.value);
    if (grid.Direction(edit.record) != kInput || mirrored == kNone) return true;
    for (const RecordNr other : grid.Rows()) {
      if (other == edit.record || grid.Cell("DigitalIOMirroredTo", other) != mirrored) continue;
      return Refuse(
          edit.validator,
          "The pin %0:S is already set to mirror the pin %1:S.  Only one input pin can mirror to an "
          "output pin.",
          {grid.Pin(other), mirrored});
    }
    return true;
  });
}

bool ValidateCTSRTS(FieldEdit& edit) {
  return Procedure("ValidateCTSRTS", true, [&] {
    const bool isRTS = edit.uiid == "IOPRTS";
    const Variant present = edit.Stored(edit.uiid, kOnly);
    // The other line is not compared with its own pin; wanted so.
    if (isRTS && !edit.Is(0) && SameValue(present, edit.value)) {
      return Refuse(edit.validator, "RTS Flow control is already set to %0:S.  Please select another Pin.");
    }
    const ProgIOGrid grid(edit.validator.CurrentProvider());
    const RecordNr row = edit.Is(0) ? 0 : RowOfPin(edit.value);
    if (row != 0 && grid.Action(row) != kNoAction) {
      return Refuse(edit.validator, "The Pin %0:s is already assigned to the Action %1:S.",
                    {grid.Pin(row), grid.Action(row)});
    }
    if (const RecordNr left = RowOfPin(present); left != 0) SetCells(edit, left, kUnusedCells);
    if (row != 0) SetCells(edit, row, CellsOf(isRTS));
    return true;
  });
}

bool ValidateAudioTap(FieldEdit& edit) {
  return Procedure("ValidateAudioTap", true, [&] {
    if (!edit.validator.CurrentProvider().Field(edit.uiid).HasRecord(edit.record))
      return edit.PassUnchanged();
    const auto* rule = std::ranges::find(kTapRules, edit.uiid, &TapRule::uiid);
    if (rule == std::end(kTapRules)) return FollowType(edit);
    if (!MayLieOn(edit.record, edit.value)) {
      return Refuse(edit.validator, edit.record == kReceiverPath ? rule->onReceiver : rule->onMicrophone);
    }
    if (rule == kTapRules) {
      FollowTapIn(edit);
    } else {
      FollowTapOut(edit);
    }
    return true;
  });
}

bool ValidateProgIOForm(const ValidatorRef& validator) {
  return Procedure("ValidateProgIOForm", true, [&] {
    const bool areSpliced = CheckSplices(validator);
    const ProviderRef provider = validator.CurrentProvider();
    int key = 0;
    for (const FunctionKey& fields : kFunctionKeys) {
      ++key;
      const bool drivesLine = HoldsCode(provider, fields.action, KeyAction::kActionDigitalOutputLine, kOnly);
      if (!drivesLine || ProgIOSignalStatesIdentical(provider, key)) continue;
      return Refuse(
          validator,
          "The Signal States for Digital Prog IO Action's 'F%0:s Key Status' cannot be different while "
          "Function Key %0:s is set to 'Action Digital Output Line'.",
          {std::to_string(key)});
    }
    return areSpliced;
  });
}

bool ProgIOSignalStatesIdentical(const ProviderRef& provider, int key) {
  return Procedure("ProgIOSignalStatesIdentical", true, [&] {
    const ProgIOGrid grid(provider);
    const std::string action = "F" + std::to_string(key) + " Key Status";
    const RecordNr first = grid.RowWith(action);
    for (const RecordNr row : grid.Rows()) {
      const bool differs = grid.Action(row) == action &&
                           grid.Cell("DigitalIOSignalType", row) != grid.Cell("DigitalIOSignalType", first);
      if (differs) return false;
    }
    return true;
  });
}

void CheckSimulatedKeys(FinalReport& report) {
  constexpr std::array<std::string_view, 4> kKeys = {"FN1_KEY", "FN2_KEY", "FN3_KEY", "FN4_KEY"};
  const ProviderRef provider = report.Provider();
  const ProgIOGrid grid(provider);
  for (const RecordNr row : grid.Rows()) {
    for (std::size_t key = 0; key < std::size(kKeys); ++key) {
      if (grid.Action(row) != InputAction(kKeys[key]).strName) continue;
      if (!HoldsCode(provider, kFunctionKeys[key].action, KeyAction::kUnassigned, kOnly)) continue;
      const std::string_view text =  // the first key's has no stroke between its letters
          key == 0 ? "Programmable IO pin %0:S is set to %1:S, but Function Key %2:S is Unassigned."
                   : "Programmable I/O pin %0:S is set to %1:S, but Function Key %2:S is Unassigned.";
      const bool looksOn = report.Refuse({std::string(kFunctionKeys[key].action), kOnly}, text,
                                         {grid.Pin(row), grid.Action(row), std::to_string(key + 1)});
      if (!looksOn) return;
    }
  }
}

void CheckPTTInhibit(FinalReport& report) {
  constexpr std::string_view kInhibited[] = {"PTTInhibitedByExternalControl1_k6k",
                                             "PTTInhibitedByExternalControl2_k6k",
                                             "PTTInhibitedByExternalControl3_k6k"};
  const ProviderRef provider = report.Provider();
  const ProgIOGrid grid(provider);
  const auto isOn = [&](std::string_view box) { return HoldsCode(provider, box, kOn, kOnly); };
  const RecordNr row = grid.RowWith(InputAction("TOGGLE_PTT_INHIBIT").strName);
  if (row == 0 || std::ranges::any_of(kInhibited, isOn)) return;
  report.Refuse(
      {std::string(kInhibited[0]), kOnly},
      "Programmable I/O pin %0:S is set to %1:S.  This setting requires that 'Inhibit PTT When External "
      "PTT Active' be enabled on the PTT, External PTT(1), or External PTT(2).",
      {grid.Pin(row), grid.Action(row)});
}

void WarnOfIdlePins(FinalReport& report) {
  const ProgIOGrid grid(report.Provider());
  const auto isMirrored = [&](const std::string& pin) {
    for (const RecordNr other : grid.Rows()) {
      if (grid.Direction(other) == kInput && grid.Cell("DigitalIOMirroredTo", other) == pin) return true;
    }
    return false;
  };
  for (const RecordNr row : grid.Rows()) {
    const bool isIdle = grid.Direction(row) != kNone && grid.Action(row) == kNoAction;
    if (!isIdle || isMirrored(grid.Pin(row))) continue;
    report.Warn(
        {"DigitalIOAction", row},
        "One or more Digital IO Pins has a direction set, but no Action associated with it and no Input pins "
        "mirroring to it.");
    if (!report.LooksOn()) return;
  }
}

void CheckFlowControlPins(FinalReport& report) {
  const ProviderRef provider = report.Provider();
  constexpr std::string_view kLines[] = {"IOPCTS", "IOPRTS"};
  const auto isDefined = [&](std::string_view line) {
    const Variant pin = StoredValue(provider, line, kOnly);
    return IsNumeric(pin) && !SameValue(pin, 0);
  };
  if (!UsesHardwareFlowControl(provider)) return;
  const auto* missing = std::ranges::find_if_not(kLines, isDefined);
  if (missing == std::end(kLines)) return;
  report.Refuse(
      {std::string(*missing), kOnly},
      "CTS and RTS hardware flow control lines must be defined when Command Mode, or FFSK or VHSD "
      "Transparent Mode hardware flow control is used. Either set the CTS and RTS fields, or ensure "
      "none of the flow controls use hardware.");
}
}  // namespace modvalProgIO
