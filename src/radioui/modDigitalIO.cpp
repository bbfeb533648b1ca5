#include "radioui/modDigitalIO.h"

#include <array>
#include <iterator>
#include <string>

#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/Error.h"
#include "radioui/modProgIO.h"

namespace modDigitalIO {
namespace {
using namespace modProgIO;

constexpr RecordNr kRows = std::size(ProgIOPins);

// 55.DigitalIOInputDirection
constexpr std::int32_t kNoDirection = 0;
constexpr std::int32_t kInputDirection = 1;
constexpr std::int32_t kOutputDirection = 2;

/// A text that is none.
std::string LabelOf(const Variant& stored) {
  std::string label = CStr(stored);
  return label.empty() ? std::string(kNone) : label;
}

void SetFlowControl(const ProviderRef& provider, std::string_view field, const Variant& pinId) {
  ProvideFlowControl(provider);
  provider.Field(field).SetValue(kOnly, pinId);
}

/// The cells of the grid that are not the pin's.
struct GridFields {
  explicit GridFields(const ProviderRef& provider)
      : direction(provider.Field("1108.Direction")),
        label(provider.Field("1108.Label")),
        action(provider.Field("1108.Action")),
        activeState(provider.Field("1108.ActiveState")),
        debounceTime(provider.Field("1108.DebounceTime")),
        mirroredTo(provider.Field("1108.MirroredTo")),
        signalType(provider.Field("1108.SignalType")) {}

  /// What an unused row holds: a second reading is not to keep the cells of the first.
  void Clear(RecordNr row) const {
    for (const FieldRef* field :
         {&direction, &label, &activeState, &debounceTime, &mirroredTo, &signalType}) {
      field->SetValue(row, kNone);
    }
    action.SetValue(row, kNoAction);
  }

  FieldRef direction, label, action, activeState, debounceTime, mirroredTo, signalType;
};

// To the forms

struct Inputs {
  explicit Inputs(const ProviderRef& provider)
      : pin(provider.Field("55.DigitalIOInputPinID")),
        direction(provider.Field("55.DigitalIOInputDirection")),
        activeState(provider.Field("55.DigitalIOInputActiveState")),
        activation(provider.Field("55.DigitalIOInputActivationAction")),
        deactivation(provider.Field("55.DigitalIOInputDeactivationAction")),
        debounceTime(provider.Field("55.DigitalIOInputDebounceTime")),
        mirroredTo(provider.Field("55.DigitalIOInputMirroredTo")),
        label(provider.Field("55.DigitalIOInputLabel")) {}
  FieldRef pin, direction, activeState, activation, deactivation, debounceTime, mirroredTo, label;
};

struct Outputs {
  explicit Outputs(const ProviderRef& provider)
      : pin(provider.Field("56.DigitalIOOutputPinID")),
        action(provider.Field("56.DigitalIOOutputAction")),
        label(provider.Field("56.DigitalIOOutputLabel")),
        signalType(provider.Field("56.DigitalIOOutputSignalType")) {}
  FieldRef pin, action, label, signalType;
};

RecordNr RowOfPin(const Variant& pinId) { return GetDigitalIOGridRow(GetDigitalIOPinName(CLng(pinId))); }

std::string ActiveStateName(const Variant& state) {
  return std::string(GetDigitalIOActiveStateName(CLng(state)));
}

/// A record of a pin that is none has row 0, and the provider says so.
void ShowInput(const ProviderRef& provider, const GridFields& grid, const Inputs& inputs, RecordNr record,
               RecordNr row) {
  grid.label.SetValue(row, LabelOf(inputs.label.Value(record)));
  grid.direction.SetValue(row, kInput);
  grid.activeState.SetValue(row, ActiveStateName(inputs.activeState.Value(record)));
  const std::int32_t action = CLng(inputs.activation.Value(record));
  grid.action.SetValue(row, GetDigitalIOActionName(action, true));
  const std::int32_t mirrored = CLng(inputs.mirroredTo.Value(record));
  grid.mirroredTo.SetValue(row, mirrored == 0 ? kNone : GetDigitalIOPinName(mirrored));
  grid.debounceTime.SetValue(row, CStr(inputs.debounceTime.Value(record)));
  if (action == InputAction("RTS_CONTROL").bytActionID) {
    SetFlowControl(provider, "IOPRTS", inputs.pin.Value(record));
  }
}

void ShowInputs(const ProviderRef& provider, const GridFields& grid) {
  const Inputs inputs(provider);
  for (const RecordNr record : inputs.pin.Records()) {
    const RecordNr row = RowOfPin(inputs.pin.Value(record));
    switch (CLng(inputs.direction.Value(record))) {
      case kInputDirection:
        ShowInput(provider, grid, inputs, record, row);
        break;
      case kOutputDirection:  // all else of the row comes from the outputs
        grid.activeState.SetValue(row, ActiveStateName(inputs.activeState.Value(record)));
        break;
      case kNoDirection:
        if (row != 0) grid.label.SetValue(row, LabelOf(inputs.label.Value(record)));
        break;
      default:
        break;
    }
  }
}

/// The action of an output, one that the radio no longer has taken out.
std::int32_t MendedAction(const FieldRef& actions, RecordNr record) {
  constexpr std::int32_t kWithdrawn = 23;
  const std::int32_t action = CLng(actions.Value(record));
  if (action != kWithdrawn) return action;
  actions.SetValue(record, 0);
  return 0;
}

std::string_view SignalTypeName(const Variant& signalType, std::string_view action) {
  if (SameValue(signalType, 1)) return kLatching;
  return IsKeyStatus(action) ? kMomentary : kNone;
}

void ShowOutputs(const ProviderRef& provider, const GridFields& grid) {
  const Outputs outputs(provider);
  for (const RecordNr record : outputs.pin.Records()) {
    const RecordNr row = RowOfPin(outputs.pin.Value(record));
    if (row < 1) continue;  // an output that is not used
    grid.direction.SetValue(row, kOutput);
    grid.label.SetValue(row, LabelOf(outputs.label.Value(record)));
    const std::int32_t code = MendedAction(outputs.action, record);
    const std::string_view known = GetDigitalIOActionName(code, false);
    const std::string_view action = known.empty() ? kNoAction : known;
    grid.action.SetValue(row, action);
    grid.signalType.SetValue(row, SignalTypeName(outputs.signalType.Value(record), action));
    if (code == OutputAction("CTS_CONTROL").bytActionID) {
      SetFlowControl(provider, "IOPCTS", outputs.pin.Value(record));
    }
  }
}

void GiveDefaultLabels(const GridFields& grid) {
  for (RecordNr row = 1; row <= kRows; ++row) {
    if (ReadsAs(grid.label.Value(row), kNone)) {
      grid.label.SetValue(row, ProgIOPins[row - 1].strDefaultLabel);
    }
  }
}

// To the radio

/// A row of the grid on its way.
struct Row {
  Row(const GridFields& grid, RecordNr row)
      : number(row),
        direction(CStr(grid.direction.Value(row))),
        action(CStr(grid.action.Value(row))),
        label(CStr(grid.label.Value(row))) {
    if (label == kNone) label.clear();
  }
  bool IsInput() const { return direction == kInput; }
  bool IsOutput() const { return direction == kOutput; }
  const clsProgIOPins& Pin() const { return ProgIOPins[number - 1]; }

  RecordNr number;
  std::string direction, action, label;
};

/// Writes the records of the grid's rows, in their order.
class RowWriter {
 public:
  explicit RowWriter(const ProviderRef& provider)
      : grid_(provider), pins_(provider.Field("1108.Pin")), inputs_(provider), outputs_(provider) {}

  void WriteAll() {
    for (RecordNr number = 1; number <= kRows; ++number) {
      const Row row(grid_, number);
      WriteInput(row);
      if (row.IsOutput()) {
        WriteOutput(row);
      } else if (row.Pin().blnOutputPin) {
        outputs_.action.SetValue(++output_, 0);  // no other field: without a pin it is not read
      }
    }
  }

 private:
  std::int32_t PinId(const Row& row) const { return GetDigitalIOPinID(CStr(pins_.Value(row.number))); }
  std::int32_t ActiveStateId(const Row& row) const {
    return GetDigitalIOActiveStateID(CStr(grid_.activeState.Value(row.number)));
  }

  /// Every row has a record here, whatever its direction.
  void WriteInput(const Row& row) {
    const RecordNr record = row.number;
    inputs_.pin.SetValue(record, PinId(row));
    inputs_.label.SetValue(record, row.label);
    if (row.IsInput()) return WriteActions(row);
    if (row.IsOutput()) return WriteState(row);
    inputs_.direction.SetValue(record, kNoDirection);
    inputs_.activeState.SetValue(record, 2);
    inputs_.activation.SetValue(record, 0);
    inputs_.deactivation.SetValue(record, 0);
    inputs_.debounceTime.SetValue(record, 10);
    inputs_.mirroredTo.SetValue(record, 0);
  }

  void WriteActions(const Row& row) const {
    const RecordNr record = row.number;
    inputs_.direction.SetValue(record, kInputDirection);
    inputs_.activeState.SetValue(record, ActiveStateId(row));
    inputs_.activation.SetValue(record, GetDigitalIOActionID(row.action));
    inputs_.deactivation.SetValue(record, GetDigitalIODeactivationActionID(row.action));
    inputs_.debounceTime.SetValue(record, WholeNumberOf(grid_.debounceTime.Value(row.number)));
    inputs_.mirroredTo.SetValue(record, GetDigitalIOPinID(CStr(grid_.mirroredTo.Value(row.number))));
  }

  /// Outputs that show a busy channel are a chain: each names the record of the one before it, the first 0.
  /// What another output held there stays.
  void WriteState(const Row& row) {
    const RecordNr record = row.number;
    inputs_.direction.SetValue(record, kOutputDirection);
    inputs_.activeState.SetValue(record, ActiveStateId(row));
    if (row.action != OutputAction("BUSY_STATUS").strName) return;
    inputs_.mirroredTo.SetValue(record, busy_);
    busy_ = record;
  }

  void WriteOutput(const Row& row) {
    ++output_;
    outputs_.action.SetValue(output_, GetDigitalIOActionID(row.action));
    outputs_.label.SetValue(output_, row.label);
    outputs_.pin.SetValue(output_, PinId(row));
    const bool latches = ReadsAs(grid_.signalType.Value(row.number), kLatching);
    outputs_.signalType.SetValue(output_, latches ? 1 : 0);
  }

  GridFields grid_;
  FieldRef pins_;
  Inputs inputs_;
  Outputs outputs_;
  RecordNr output_ = 0;
  RecordNr busy_ = 0;
};

/// Of two pins with the same bit the last one counts; a bit without pin keeps what a new record has.
void WriteReverseBCD(const ProviderRef& provider) {
  provider.ClearTable("57");
  provider.Table("57").FillToCapacity();
  const GridFields grid(provider);
  const FieldRef lookup = provider.Field("57.ReverseBCDLookup");
  std::array<std::int32_t, kRows> codes{};
  for (RecordNr number = 1; number <= kRows; ++number) {
    const Row row(grid, number);
    codes[static_cast<std::size_t>(number - 1)] = row.IsInput() ? GetDigitalIOActionID(row.action) : 0;
  }
  RecordNr record = 0;
  for (const std::string_view bit : kBCDInputs) {
    ++record;
    const std::int32_t code = InputAction(bit).bytActionID;
    for (std::size_t i = 0; i < codes.size(); ++i) {
      if (codes[i] == code) lookup.SetValue(record, ProgIOPins[i].bytPinID);
    }
  }
}

// The parameters of actions

struct ActionParameter {
  std::string_view field;
  std::string_view action;       ///< the key
  std::string_view stored = {};  ///< where its number stands in the radio, by an index from 0
  std::string_view shown = {};   ///< and on the forms
};
constexpr ActionParameter kActionParameters[] = {
    {"0.PresetChannel", "PRESET_CHANNEL", "7.CibChannelID", "5.ChannelIDTracker"},
    {"0.HomeChannel", "GOTO_HOME_CHANNEL", "7.CibChannelID", "5.ChannelIDTracker"},
    {"0.EmergencyMode", "SEND_EMERGENCY_CALL"},
    {"0.UnMuteAudioOutput", "UNMUTE_AUDIO_OUTPUT_PATH"},
    {"0.MuteAudioOutput", "MUTE_AUDIO_OUTPUT_PATH"},
    {"0.ToggleMuteExternalAudio", "TOGGLE_MUTE_EXTERNAL_AUDIO_INPUT"},
    {"0.PresetGroup", "PRESET_GROUP", "16.GroupIdentity", "16.GroupIDTracker"},
};

/// Null for a field that is none.
const ActionParameter* FindParameter(std::string_view fieldId) {
  for (const ActionParameter& parameter : kActionParameters) {
    if (EqualsIgnoringCase(parameter.field, fieldId)) return &parameter;
  }
  return nullptr;
}

/// The first input with the action; an output may keep the code of an input that it was. 0 for none.
RecordNr InputWith(const ProviderRef& provider, std::int32_t action) {
  const FieldRef activation = provider.Field("55.DigitalIOInputActivationAction");
  const FieldRef direction = provider.Field("55.DigitalIOInputDirection");
  for (const RecordNr record : activation.Records()) {
    const bool isOutput = SameValue(direction.Value(record), kOutputDirection);
    if (!isOutput && SameValue(activation.Value(record), action)) return record;
  }
  return 0;
}

/// The index, from 0, of the record that the number names, else the number itself.
Variant IndexOf(const ProviderRef& provider, const ActionParameter& parameter, const Variant& number) {
  if (parameter.shown.empty()) return number;
  const RecordNr record = modProjectGlobals::FindRecord(provider.Field(parameter.shown), number);
  return record == 0 ? number : Variant(record - 1);
}
}  // namespace

void GetDigitalIOGrid(const ProviderRef& provider) {
  Procedure("GetDigitalIOGrid", [&] {
    constexpr int kMostPasses = 255;
    const TableRef grid = provider.Table("1108");
    RecordNr count = grid.RecordCount();
    for (int pass = 0; count != kRows; ++pass) {
      if (pass == kMostPasses) throw Error(ErrorNumber::kInvalidCall, "modProgIO", "GetDigitalIOGrid");
      if (count > kRows) {
        grid.DeleteRecord(1);
      } else {
        grid.AppendRecord();
      }
      count = grid.RecordCount();
    }
    const FieldRef pins = provider.Field("1108.Pin");
    for (RecordNr row = 1; row <= kRows; ++row) pins.SetValue(row, ProgIOPins[row - 1].strName);
  });
}

void GetDigitalIO(const ProviderRef& provider) {
  Procedure("GetDigitalIO", [&] {
    const GridFields grid(provider);
    for (RecordNr row = 1; row <= kRows; ++row) grid.Clear(row);
    ShowInputs(provider, grid);
    ShowOutputs(provider, grid);
    GiveDefaultLabels(grid);
  });
}

void GetGridAndDigitalIO(const ProviderRef& provider, std::string_view, RecordNr) {
  GetDigitalIOGrid(provider);
  GetDigitalIO(provider);
}

void SetDigitalIO(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetDigitalIO", [&] {
    provider.Table("55").FillTo(kRows);
    provider.ClearTable("56");
    provider.Table("56").FillToCapacity();
    RowWriter(provider).WriteAll();
    WriteReverseBCD(provider);
  });
}

void GetActionParameters(const ProviderRef& provider, std::string_view fieldId, RecordNr) {
  Procedure("GetActionParameters", [&] {
    const ActionParameter* parameter = FindParameter(fieldId);
    if (parameter == nullptr) return;
    const RecordNr input = InputWith(provider, InputAction(parameter->action).bytActionID);
    if (input == 0) return;
    const Variant value = provider.Field("55.GPIOActivation1").Value(input);
    const FieldRef field = provider.Field(parameter->field);
    if (parameter->stored.empty()) return field.SetValue(kOnly, value);
    const Variant number = ValueAtIndex(provider.Field(parameter->stored), CLng(value));
    if (!number.IsEmpty()) field.SetValue(kOnly, CStr(number));
  });
}

void SetActionParameters(const ProviderRef& provider, std::string_view fieldId, RecordNr) {
  Procedure("SetActionParameters", [&] {
    const ActionParameter* parameter = FindParameter(fieldId);
    if (parameter == nullptr) return;
    const clsProgIOActions& action = InputAction(parameter->action);
    const Variant value = IndexOf(provider, *parameter, provider.Field(parameter->field).Value(kOnly));
    const RecordNr row = modProjectGlobals::FindRecord(provider.Field("1108.Action"), action.strName);
    if (row == 0 || !IsNumeric(value)) return;  // a parameter that was not chosen yet keeps the radio's
    provider.Field("55.GPIOActivation1").SetValue(row, CLng(value));
    if (action.blnDeactivationState) provider.Field("55.GPIODeActivation1").SetValue(row, CLng(value));
  });
}
}  // namespace modDigitalIO
