#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "radioui/LinkAdvice.h"
#include "radioui/ProgIOGrid.h"
#include "radioui/modProgIOLists.h"
#include "radioui/modvalProgIO.h"

namespace modvalProgIO {
namespace {
using namespace modProgIO;

/// Actions with parameters, by their keys, and the controls that are enabled while a pin has one.
struct ParameterUse {
  bool isInput;
  std::string_view key;
  std::array<std::string_view, 5> controls;
};
// clang-format off
constexpr ParameterUse kParameterUses[] = {  // in the order in which the form is told
    {true,  "PRESET_CHANNEL",                   {"ActionParamPresetChannel"}},
    {true,  "GOTO_HOME_CHANNEL",                {"ActionParamHomeChannel"}},
    {true,  "SEND_EMERGENCY_CALL",              {"ActionParamEmergencyMode"}},
    {true,  "TOGGLE_MUTE_EXTERNAL_AUDIO_INPUT", {"ActionParamToggleMuteExternalAudio"}},
    {true,  "MUTE_AUDIO_OUTPUT_PATH",           {"ActionParamMuteAudioOutput"}},
    {true,  "UNMUTE_AUDIO_OUTPUT_PATH",         {"ActionParamUnMuteAudioOutput"}},
    {false, "ALARM_STATUS",                     {"AlarmStunned", "AlarmOutofLock", "AlarmHighTemp",
                                                 "AlarmVeryHighTemp", "AlarmHighReversePower"}},
    {true,  "PRESET_GROUP",                     {"ActionParamPresetGroup"}},
    {false, "RADIO_TRANSMISSION_STATUS",        {"UiPreCarrierIndicationTime"}},
};
// clang-format on
constexpr std::string_view kCarrierTime = "UiPreCarrierIndicationTime";
constexpr std::size_t kUses = std::size(kParameterUses);

std::string_view NameOf(const ParameterUse& use) {
  return (use.isInput ? InputAction(use.key) : OutputAction(use.key)).strName;
}

bool IsBCD(std::string_view action) { return action.starts_with("BCD Pin "); }
constexpr std::string_view kFirstBCD = "BCD Pin 0";

/// A change of what a pin does, on its way. The order of its steps is given: what it tells, writes and asks
/// before it refuses is known to its users.
class ActionChange {
 public:
  explicit ActionChange(FieldEdit& edit)
      : edit_(edit),
        provider_(edit.validator.CurrentProvider()),
        grid_(provider_),
        row_(edit.record),
        now_(CStr(edit.value)),
        before_(grid_.Action(row_)) {}

  bool Run() {
    NoteUses();
    if (now_ != kNoAction) {
      if (!CheckOtherPins()) return false;
      AdviseOnLinks();
      if (!CheckEconomy() || !GivePresetGroup()) return false;
    }
    if (!LeaveIgnition()) return false;
    if (IsPin("CH_GPIO1") && IsNow("TOGGLE_SLEEP_MODE")) SetState("Low");
    GiveDebounce();
    edit_.StoreNow();
    GiveSignalType();
    TakeFlowControl();
    if (now_ == kNoAction) LinkAdvice::TellUnused(edit_.validator, grid_.Pin(row_));
    TellUses();
    return true;
  }

 private:
  bool IsPin(std::string_view name) const { return grid_.Pin(row_) == name; }
  bool IsNow(std::string_view inputKey) const { return InputAction(inputKey).strName == now_; }
  void SetState(std::string_view state) { edit_.writes.Set("DigitalIOActiveState", row_, state); }

  /// Which parameters are in use once the change stands.
  void NoteUses() {
    for (std::size_t use = 0; use < kUses; ++use) {
      const std::string_view action = NameOf(kParameterUses[use]);
      isUsed_[use] = now_ == action;
      for (const RecordNr other : grid_.Rows()) {
        if (other != row_ && grid_.Action(other) == action) isUsed_[use] = true;
      }
    }
  }

  /// Row by row: whether the action is free, then whether its bank of channel bits is on one interface. The
  /// first row that tells of the bank is the last that is asked.
  bool CheckOtherPins() {
    bool isBankTold = false;
    for (const RecordNr other : grid_.Rows()) {
      if (other != row_ && grid_.Action(other) == now_ && !MayShare(other)) return false;
      if (isBankTold || !IsOfBank(grid_.Action(other))) continue;
      isBankTold = true;
      TellBank(other);
    }
    return true;
  }

  /// Of another row with the same action.
  bool MayShare(RecordNr other) const {
    constexpr std::string_view kOneEach =
        "%0:S is already set to %1:S.  Only one %2:S pin can be set to this Action";
    if (IsNow("TOGGLE_TX_INHIBIT")) {  // once on each interface, on the control head as often as wanted
      const std::string_view interface = grid_.Interface(row_);
      const bool isLimited = interface == "AUX" || interface == "IOP";
      if (!isLimited || grid_.Interface(other) != interface) return true;
      return RefuseFor(other, std::string(kOneEach) + " for " + std::string(interface));
    }
    if (OutputAction("BUSY_STATUS").strName == now_) {
      return OthersWithIt() < 2 || RefuseFor(other, "Two pins are already set to Busy Status");
    }
    const bool maySeveral = grid_.Direction(row_) == kOutput && now_ != OutputAction("CTS_CONTROL").strName &&
                            now_ != OutputAction("SERIAL_DATA_TX_IN_PROGRESS").strName;
    return maySeveral || RefuseFor(other, std::string(kOneEach) + ".");
  }
  bool RefuseFor(RecordNr other, std::string_view text) const {
    return Refuse(edit_.validator, text, {grid_.Pin(other), now_, grid_.Direction(other)});
  }
  int OthersWithIt() const {
    int others = 0;
    for (const RecordNr other : grid_.Rows()) others += other != row_ && grid_.Action(other) == now_ ? 1 : 0;
    return others;
  }

  /// The bits of a channel number are compared with bit 0 alone.
  bool IsOfBank(const std::string& action) const {
    if (!IsBCD(now_)) return false;
    return now_ == kFirstBCD ? IsBCD(action) && action != kFirstBCD : action == kFirstBCD;
  }
  void TellBank(RecordNr other) const {
    const std::string_view theirs = grid_.Interface(other), ours = grid_.Interface(row_);
    if (theirs == ours) return;
    Refuse(edit_.validator, "%0:S is on the %1:S interface. %2:S will be on the %3:S interface.",
           {grid_.Action(other), theirs, now_, ours});  // looks like a refusal, and is none
  }

  void AdviseOnLinks() {
    const std::string_view state = LinkAdvice::TellUsed(edit_.validator, grid_.Pin(row_), now_);
    if (!state.empty()) SetState(state);
    if (!IsNow("SEND_EMERGENCY_CALL") || IsPin("AUX_GPI2") || IsPin("IOP_GPIO7")) return;
    Notify(edit_.validator,
           "'Enter Emergency Mode' will not be supported on this pin if the radio is turned off.");
  }

  bool CheckEconomy() const {
    if (!IsNow("ECONOMY_MODE")) return true;
    const bool hasKey = std::ranges::any_of(kFunctionKeys, [&](const FunctionKey& key) {
      return edit_.Holds(key.action, KeyAction::kEconomy, kOnly);
    });
    return !hasKey || Refuse(edit_.validator,
                             "'Economy' cannot be selected while a Function key is assigned to 'Economy'");
  }

  /// The first standard scan group or vote group.
  bool GivePresetGroup() {
    if (!IsNow("PRESET_GROUP")) return true;
    for (const RecordNr group : provider_.Field("GroupID_k6k").Records()) {
      const bool scans = edit_.Holds("16.GroupType", GroupType::kScan, group) &&
                         edit_.Holds("ScanType_k6k", ScanType::kStandard, group);
      if (!scans && !edit_.Holds("16.GroupType", GroupType::kVote, group)) continue;
      edit_.writes.Set("ActionParamPresetGroup", kOnly, CStr(edit_.Stored("GroupID_k6k", group)));
      return true;
    }
    return Refuse(
        edit_.validator,
        "'Preset Group' cannot be selected while there are no Standard Scan Groups or Vote Groups.");
  }

  /// Asked also when the action stays the same.
  bool LeaveIgnition() {
    const bool leaves = before_ == InputAction("IGNITION_STATE").strName;
    if (!leaves || !edit_.Holds("DisableOnOffControl", kOn, kOnly)) return true;
    if (AskYesNo(edit_.validator,
                 "Disable On/Off Control must be unticked if no I/O line actions are set to Power Sense "
                 "(Ignition).  Set Disable On/Off Control to unticked?") != Button::Yes) {
      return false;
    }
    edit_.writes.Set("DisableOnOffControl", kOnly, kOff);
    return true;
  }

  /// The first row keeps the pending action behind the write, while its host redraws it.
  void GiveDebounce() {
    if (IsBCD(before_) == IsBCD(now_)) return;
    edit_.writes.Set("DigitalIODebounceTime", row_, "10");
    if (row_ == 1) edit_.writes.Set(edit_.uiid, row_, edit_.value);
  }

  /// The list rests on the action that has just been stored.
  void GiveSignalType() {
    constexpr std::string_view kSignal = "DigitalIOSignalType";
    edit_.writes.Set(kSignal, row_, modProgIOLists::DigitalEntry(provider_, kSignal, row_, 0));
  }

  /// Whoever leaves these actions does not free the line: only a change of direction does; wanted so.
  void TakeFlowControl() {
    const std::string direction = grid_.Direction(row_);
    if (direction == kInput && IsNow("RTS_Control")) TakeLine("IOPRTS");
    if (direction == kOutput && now_ == OutputAction("CTS_Control").strName) TakeLine("IOPCTS");
  }
  void TakeLine(std::string_view line) {
    ProvideFlowControl(provider_);
    edit_.writes.Set(line, kOnly, GetDigitalIOPinID(grid_.Pin(row_)));
  }

  void TellUses() {
    for (std::size_t use = 0; use < kUses; ++use) {
      for (const std::string_view control : kParameterUses[use].controls) {
        if (!control.empty()) edit_.writes.Enable(control, isUsed_[use]);
      }
      const bool isCarrierTime = kParameterUses[use].controls.front() == kCarrierTime;
      if (isCarrierTime && !isUsed_[use]) edit_.writes.Set(kCarrierTime, kOnly, 0);
    }
  }

  FieldEdit& edit_;
  ProviderRef provider_;
  ProgIOGrid grid_;
  RecordNr row_;
  std::string now_, before_;
  std::array<bool, kUses> isUsed_{};
};
}  // namespace

bool ValidateDigitalIOAction(FieldEdit& edit) {
  return Procedure("ValidateDigitalIOAction", true, [&] {
    const bool exists = ProgIOGrid(edit.validator.CurrentProvider()).HasRow(edit.record);
    return exists ? ActionChange(edit).Run() : edit.PassUnchanged();
  });
}
}  // namespace modvalProgIO
