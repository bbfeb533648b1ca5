#include "compat/modStepsFrom0087.h"

#include <algorithm>
#include <array>
#include <string>

#include "channels/modBandLimits.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "compat/VersionStep.h"
#include "compat/modBurstConversion.h"
#include "platform/Conversions.h"
#include "radioui/modProgIO.h"

namespace modStepsFrom0087 {
namespace {
constexpr std::string_view kPin = "55.DigitalIOInputPinID", kDirection = "55.DigitalIOInputDirection",
                           kState = "55.DigitalIOInputActiveState",
                           kActivation = "55.DigitalIOInputActivationAction",
                           kDeactivation = "55.DigitalIOInputDeactivationAction";
constexpr std::int32_t kInput = 1;
constexpr std::int32_t kLow = 0, kHigh = 1;

/// Codes of what an input does.
namespace InputCode {
constexpr std::int32_t kNone = 0, kPowerOn = 1, kPowerSense = 2, kEnterEmergency = 4;
constexpr std::int32_t kInternalPowerSense = 41;
}  // namespace InputCode

/// An input record of the radio.
struct InputLine {
  const VersionStep& step;
  RecordNr record;

  bool Holds(std::string_view field, std::int32_t code) const {
    return CLng(step.Destination().Field(field).Value(record)) == code;
  }
  bool IsInput(std::string_view pin) const {
    return Holds(kPin, modProgIO::GetDigitalIOPinID(pin)) && Holds(kDirection, kInput);
  }
  void SetState(std::int32_t state, std::string_view warning) const {
    step.Warn(warning);
    step.Set(kState, record, state);
  }
  void SetAction(std::int32_t code, std::string_view warning) const {
    step.Warn(warning);
    step.Set(kActivation, record, code);
    step.Set(kDeactivation, record, code);
  }
};

constexpr std::string_view kInternalPin = "IOP_GPIO7";

/// What the power lines need from 0089 on, in this order: an action that is renamed is then looked at again.
void MendPowerLine(const InputLine& line) {
  if (line.IsInput("AUX_GPI2") && line.Holds(kActivation, InputCode::kEnterEmergency) &&
      line.Holds(kState, kHigh)) {
    line.SetState(kLow,
                  "The Digital Programmable I/O Active State for Enter Emergency Mode on AUX_GPI2 is set to "
                  "High this has been changed to Low.");
  }
  const bool isOnGPI3 = line.Holds(kPin, modProgIO::GetDigitalIOPinID("AUX_GPI3"));
  if (isOnGPI3 && line.Holds(kActivation, InputCode::kPowerSense) && line.Holds(kState, kLow)) {
    line.SetState(
        kHigh,
        "The Digital Programmable I/O Active State for Power Sense (Ignition) on AUX_GPI3 is set to "
        "Low this has been changed to High.");
  }
  if (!line.IsInput(kInternalPin)) return;
  if (line.Holds(kActivation, InputCode::kPowerSense)) {
    line.SetAction(InputCode::kInternalPowerSense,
                   "The Digital Programmable I/O Action Power Sense (Ignition) on IOP_GPIO7 has been changed "
                   "to Power Sense (Internal).");
  }
  const bool needsHigh = line.Holds(kActivation, InputCode::kInternalPowerSense) ||
                         line.Holds(kActivation, InputCode::kEnterEmergency) ||
                         line.Holds(kActivation, InputCode::kPowerOn);
  if (needsHigh && line.Holds(kState, kLow)) {
    line.SetState(kHigh,
                  "The Digital Programmable I/O Active State for IOP_GPIO7 is set to Low this has been "
                  "changed to High for the Action on that pin.");
  }
}

/// An action that the version does not know.
void DropAction(const VersionStep& step, std::int32_t code, std::string_view warning) {
  step.ReplaceEach({kActivation}, code, InputCode::kNone, warning);
}

bool RefuseBelowLimit(const VersionStep& step, std::int32_t limit, std::string_view message) {
  return step.Refuse(message, {std::to_string(limit)});
}

/// Whether a function key of the personality that is left has the action.
bool IsOnKey(const VersionStep& step, std::int32_t action) {
  return std::ranges::any_of(kFunctionKeys,
                             [&](const FunctionKey& key) { return step.SourceHolds(key.action, {action}); });
}

/// Programmed sequences of indicators that 0090 brought.
void AppendIndicators(const VersionStep& step) {
  constexpr RecordNr kComplete = 47;
  constexpr struct { std::int32_t program, repeats; } kAdded[] = {{40, 1}, {42, 0}, {43, 1}, {46, 0}};
  const TableRef table = step.Destination().Table("4");
  if (table.RecordCount() >= kComplete) return;
  for (const auto& [program, repeats] : kAdded) {
    const RecordNr record = table.AppendRecord();
    step.Set("4.EnabledFlag", record, kOn);
    step.Set("4.ProgIndex", record, program);
    step.Set("4.RepeatFlag", record, repeats);
  }
}
}  // namespace

bool Up0087To0088(const VersionStep& step) {
  if (step.Holds("9.DataOptionsEnabled", kOn)) step.Set("9.FFSKMaximumInitialFrameLength", kOnly, 1);
  step.CutToNetworks("77");
  step.CutToNetworks("78");
  return true;
}

bool Down0088To0087(const VersionStep& step) {
  const FieldRef types = step.Destination().Field("59.AudioIOTapInType");
  for (const RecordNr path : types.Records()) {
    const bool isNewer = CStr(types.Value(path)) >= "5";  // as texts
    if (isNewer) types.SetValue(path, modProgIO::TapType::kCombine);
  }
  return true;
}

bool Up0088To0089(const VersionStep& step) {
  for (const RecordNr record : step.Destination().Table("55").Records()) MendPowerLine({step, record});
  return true;
}

bool Down0089To0088(const VersionStep& step) {
  for (const RecordNr record : step.Destination().Table("55").Records()) {
    const InputLine line{step, record};
    if (!line.IsInput(kInternalPin) || !line.Holds(kActivation, InputCode::kInternalPowerSense)) continue;
    line.SetAction(InputCode::kPowerSense,
                   "The Digital Programmable I/O Action Power Sense (Internal) on IOP_GPIO7 has been changed "
                   "to Power Sense (Ignition).");
  }
  if (step.Source().Table("80").RecordCount() > 0) {
    return step.Refuse(
        "This database version does not support MDC1200.  Please remove all MDC1200 Signalling Systems.");
  }
  std::int32_t limit = 0;
  if (!step.IsBelowLimit("36.SubAudInvalidConfDelay", limit)) return true;
  return RefuseBelowLimit(step, limit,
                          "This database version does not support an 'Invalid Confirmation delay' of less "
                          "than %0:S.  Please amend the value.");
}

bool Up0089To0090(const VersionStep& step) {
  AppendIndicators(step);
  modBurstConversion::SelCallFixedFormatBurstsConversion89To90(step);
  return true;
}

bool Down0090To0089(const VersionStep& step) {
  std::int32_t limit = 0;
  if (step.IsBelowLimit("9.VHSDLeadInDelay", limit)) {
    return RefuseBelowLimit(step, limit,
                            "This database version does not support a 'VHSD Lead-In Delay' of less than "
                            "%0:S.  Please amend the value.");
  }
  if (step.IsBelowLimit("9.DataLeadInDelay", limit)) {
    return RefuseBelowLimit(step, limit,
                            "This database version does not support a 'FFSK Lead-In Delay' of less than "
                            "%0:S.  Please amend the value.");
  }
  constexpr std::int32_t kEconomyInput = 42, kBCD5 = 43, kBCD6 = 44, kBCD7 = 45;
  constexpr std::string_view kNoEconomy =
      "This database version does not support 'Economy Mode'.  Please unselect this action from all "
      "Function keys and Input Pins.";
  if (step.SourceHolds(kActivation, {kEconomyInput})) return step.Refuse(kNoEconomy);
  if (step.SourceHolds(kActivation, {kBCD5, kBCD6, kBCD7})) {
    return step.Refuse(
        "This database version does not support BCD Trigger lines 5 to 7.  Please unselect these from all "
        "Digital Programmable I/O Input Pins.");
  }
  if (IsOnKey(step, KeyAction::kEconomy)) return step.Refuse(kNoEconomy);
  if (IsOnKey(step, KeyAction::kDTMFDialling)) {
    return step.Refuse(
        "This database version does not support a Function Key set to 'DTMF Dialling'.  Please deselect "
        "this action.");
  }
  if (modBurstConversion::CallsBeyondTen(step.Source())) {
    return step.Refuse(
        "This database version does not support more than 10 Selcall Fixed Format Tx Sequences.  A channels "
        "Tx Call Burst is set to one that is outside of this range. Please amend the value.");
  }
  return modBurstConversion::SelCallFixedFormatBurstsConversion90To89(step);
}

bool Down0091To0090(const VersionStep& step) {
  constexpr std::int32_t kAfterSelection = 1, kAlways = 2;
  step.ReplaceEach({"FrontPanelChannelSelectionLockout"}, kAlways, kAfterSelection,
                   "This database version does not support the Digital Programmable I/O Front Panel Channel "
                   "Selection Lockout Field value of 'Always'.  It has been set to 'After Selection'.");
  constexpr std::int32_t kLongest = 250;
  if (CLng(StoredValue(step.Destination(), "VHSDLeadInDelay", kOnly)) <= kLongest) return true;
  step.Warn(
      "This database version does not support A VHSD Lead In Delay value greater than 250, this field has "
      "been set to 250.");
  step.Set("VHSDLeadInDelay", kOnly, kLongest);
  return true;
}

bool Up0091To0093(const VersionStep& step) {
  constexpr std::int32_t kShortest = 10, kLongest = 90;  // ms, unless it is off
  step.ChangeEach("UiPreCarrierIndicationTime",
                  [&](std::int32_t time) { return time > 0 ? std::clamp(time, kShortest, kLongest) : time; });
  return true;
}

bool Down0093To0091(const VersionStep& step) {
  constexpr std::int32_t kVHSDAntiCollision = 47, kInhibitChannelChange = 48;
  DropAction(step, kVHSDAntiCollision,
             "Activate VHSD Anti Collision Programmable I/O input action is not supported in this database "
             "version.  This will be set to 'No Action'.");
  step.ChangeEach("RxBusyDetectType", [&](std::int32_t type) { return type == 1 ? 0 : type; });
  DropAction(step, kInhibitChannelChange,
             "Inhibit Channel Change Programmable I/O input action is not supported in this database "
             "version.  This will be set to 'No Action'.");
  return true;
}

namespace {
/// As many as the radio sees fit: 0, and from 0094 on 7.
constexpr std::int32_t kAnyCodewords = 0, kAnyCodewordsFrom0094 = 7;
}  // namespace

bool Up0093To0094(const VersionStep& step) {
  step.ChangeEach("DataVHSDNumFECCodewords", [&](std::int32_t codewords) {
    return codewords == kAnyCodewords ? kAnyCodewordsFrom0094 : codewords;
  });
  return true;
}

bool Down0094To0093(const VersionStep& step) {
  constexpr std::int32_t kOverrideBacklighting = 49;
  DropAction(step, kOverrideBacklighting,
             "Override Backlighting Programmable I/O input action is not supported in this database "
             "version.  This will be set to 'No Action'.");
  step.ChangeEach("DataVHSDLayer2Enabled", [&](std::int32_t mode) { return mode == 2 ? 1 : mode; });
  constexpr std::int32_t kBandL3 = 10;
  if (step.SourceHolds("34.Band", {kBandL3})) {
    return step.Refuse(
        "This database version does not support the L3 Band.  Please select another band before "
        "continuing.");
  }
  step.ChangeEach("DataVHSDNumFECCodewords", [&](std::int32_t codewords) {
    return codewords == kAnyCodewordsFrom0094 ? kAnyCodewords : codewords;
  });
  constexpr std::int32_t kShortestLeadIn = 5;
  step.ChangeEach("VHSDLeadInDelay", [&](std::int32_t delay) { return std::max(delay, kShortestLeadIn); });
  return true;
}
}  // namespace modStepsFrom0087
