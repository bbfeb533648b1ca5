#include <algorithm>
#include <array>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/modProjectGlobals.h"
#include "radioui/LinkAdvice.h"
#include "radioui/ProgIOGrid.h"
#include "radioui/modvalProgIO.h"

namespace modvalProgIO {
namespace {
using namespace modProgIO;

constexpr std::string_view kLow = "Low";
constexpr std::string_view kStandardDebounceMs = "10";

/// What the parameters of an action go back to when no pin has it any more.
enum class Reset { Default, Zero, FirstChannel, FirstGroup };
struct ParameterReset {
  std::string_view key;
  bool isInput;
  Reset reset;
  std::array<std::string_view, 5> fields;
  std::array<std::string_view, 5> disabled;
};
// clang-format off
constexpr std::array<std::string_view, 5> kAlarms = {
    "AlarmStunned", "AlarmOutofLock", "AlarmHighTemp", "AlarmVeryHighTemp", "AlarmHighReversePower"};
constexpr ParameterReset kParameterResets[] = {  // the first match counts
    {"SEND_EMERGENCY_CALL",              true,  Reset::Default,      {"ActionParamEmergencyMode"},           {"ActionParamEmergencyMode"}},
    {"TOGGLE_MUTE_EXTERNAL_AUDIO_INPUT", true,  Reset::Default,      {"ActionParamToggleMuteExternalAudio"}, {"ActionParamToggleMuteExternalAudio"}},
    {"MUTE_AUDIO_OUTPUT_PATH",           true,  Reset::Default,      {"ActionParamMuteAudioOutput"},         {"ActionParamMuteAudioOutput"}},
    {"UNMUTE_AUDIO_OUTPUT_PATH",         true,  Reset::Default,      {"ActionParamUnMuteAudioOutput"},       {"ActionParamUnMuteAudioOutput"}},
    {"GOTO_HOME_CHANNEL",                true,  Reset::FirstChannel, {"ActionParamHomeChannel"},             {"ActionParamHomeChannel"}},
    {"PRESET_CHANNEL",                   true,  Reset::FirstChannel, {"ActionParamPresetChannel"},           {"ActionParamPresetChannel"}},
    {"IGNITION_STATE",                   true,  Reset::Zero,         {"DisableOnOffControl"},                {}},
    {"ALARM_STATUS",                     false, Reset::Zero,         kAlarms,                                kAlarms},
    // The number of a group goes to the parameter of the channel; wanted so.
    {"PRESET_GROUP",                     true,  Reset::FirstGroup,   {"ActionParamPresetChannel"},           {"ActionParamPresetGroup"}},
    {"RADIO_TRANSMISSION_STATUS",        false, Reset::Zero,         {"UiPreCarrierIndicationTime"},         {"UiPreCarrierIndicationTime"}},
};
// clang-format on

/// The number of the first record, "None" for none.
Variant FirstNumber(const ProviderRef& provider, std::string_view field) {
  const FieldRef numbers = provider.Field(field);
  return numbers.HasRecord(1) ? Variant(CStr(numbers.Value(1))) : Variant(kNone);
}

Variant ValueAfter(const ProviderRef& provider, Reset reset, std::string_view field) {
  switch (reset) {
    case Reset::Default:
      return provider.Field(field).Default();
    case Reset::Zero:
      return 0;
    case Reset::FirstChannel:
      return FirstNumber(provider, "ChannelID_k6k");
    case Reset::FirstGroup:
      return FirstNumber(provider, "GroupID_k6k");
  }
  return {};
}

void ResetParametersOf(FieldEdit& edit, std::string_view action) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  const auto* row = std::ranges::find_if(kParameterResets, [&](const ParameterReset& one) {
    return (one.isInput ? InputAction(one.key) : OutputAction(one.key)).strName == action;
  });
  if (row == std::end(kParameterResets)) return;
  for (const std::string_view field : row->fields) {
    if (!field.empty()) edit.writes.Set(field, kOnly, ValueAfter(provider, row->reset, field));
  }
  for (const std::string_view control : row->disabled) {
    if (!control.empty()) edit.writes.Enable(control, false);
  }
}

/// A change of a pin's direction, on its way.
class DirectionChange {
 public:
  explicit DirectionChange(FieldEdit& edit)
      : edit_(edit),
        grid_(edit.validator.CurrentProvider()),
        row_(edit.record),
        now_(CStr(edit.value)),
        before_(grid_.Direction(row_)),
        action_(grid_.Action(row_)) {}

  bool Run() {
    if (now_ == before_) return edit_.PassUnchanged();
    if (before_ == kOutput && IsMirrored()) return false;
    if (LosesCells() ? !LoseCells() : !FillCells()) return false;
    ResetParametersOf(edit_, action_);
    if (now_ == kNone) LinkAdvice::TellUnused(edit_.validator, grid_.Pin(row_));
    return true;
  }

 private:
  bool Holds(std::string_view uiid, std::string_view text) const { return grid_.Cell(uiid, row_) == text; }
  bool HasAction() const { return action_ != kNoAction; }
  bool LosesState() const { return now_ == kNone && !Holds("DigitalIOActiveState", kNone); }
  bool Concerns(std::string_view direction) const { return before_ == direction || now_ == direction; }
  bool IsMirroring() const { return !Holds("DigitalIOMirroredTo", kNone); }

  /// An active state that is to be given is no loss.
  bool LosesCells() const {
    return HasAction() || LosesState() || IsMirroring() || now_ == kNone ||
           (Concerns(kInput) && !Holds("DigitalIODebounceTime", kNone)) ||
           (Concerns(kOutput) && !Holds("DigitalIOSignalType", kNone));
  }

  bool IsMirrored() const {
    const std::string pin = grid_.Pin(row_);
    for (const RecordNr other : grid_.Rows()) {
      if (grid_.Cell("DigitalIOMirroredTo", other) != pin) continue;
      // The placeholder is the second, the parameter the first; wanted so.
      Refuse(edit_.validator,
             "Another pin is currently mirrored to this output pin. To change this pin's direction, set the "
             "Mirrored To property of %1:S to another value.",
             {grid_.Pin(other)});
      return true;
    }
    return false;
  }

  /// The first row keeps the pending direction behind each of these writes, while its host redraws it.
  void Set(std::string_view uiid, std::string_view text) {
    edit_.writes.Set(uiid, row_, text);
    if (row_ == 1) edit_.writes.Set(edit_.uiid, row_, edit_.value);
  }
  void SetDebounce() { Set("DigitalIODebounceTime", now_ == kInput ? kStandardDebounceMs : kNone); }

  bool FillCells() {
    if (Concerns(kInput)) SetDebounce();
    if (Concerns(kOutput)) {
      Set("DigitalIOSignalType", now_ == kOutput && IsKeyStatus(action_) ? kMomentary : kNone);
    }
    if (now_ != kNone && Holds("DigitalIOActiveState", kNone)) Set("DigitalIOActiveState", kLow);
    return true;
  }

  bool LoseCells() {
    const bool losesState = LosesState(), mirrors = IsMirroring();
    if (HasAction() && !LoseAction()) return false;
    if (losesState) edit_.writes.Set("DigitalIOActiveState", row_, kNone);
    if (Concerns(kInput)) SetDebounce();
    if (mirrors) Set("DigitalIOMirroredTo", kNone);
    if (Concerns(kOutput)) Set("DigitalIOSignalType", kNone);
    return true;
  }

  bool LoseAction() {
    if (AskYesNo(
            edit_.validator,
            "Changing the direction will cause one or more fields to be set back to their default values. "
            "Do you wish to continue?") != Button::Yes) {
      return false;
    }
    if (before_ == kInput && action_ == InputAction("RTS_Control").strName) FreeLine("IOPRTS");
    if (before_ == kOutput && action_ == OutputAction("CTS_Control").strName) FreeLine("IOPCTS");
    edit_.writes.Set("DigitalIOAction", row_, kNoAction);
    return true;
  }

  void FreeLine(std::string_view line) {
    ProvideFlowControl(edit_.validator.CurrentProvider());
    edit_.writes.Set(line, kOnly, 0);
  }

  FieldEdit& edit_;
  ProgIOGrid grid_;
  RecordNr row_;
  std::string now_, before_, action_;
};
}  // namespace

bool ValidateDigitalIODirection(FieldEdit& edit) {
  return Procedure("ValidateDigitalIODirection", true, [&] {
    const bool exists = ProgIOGrid(edit.validator.CurrentProvider()).HasRow(edit.record);
    return exists ? DirectionChange(edit).Run() : edit.PassUnchanged();
  });
}
}  // namespace modvalProgIO
