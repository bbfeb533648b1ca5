#include "validation/ConditionWords.h"

#include <algorithm>
#include <iterator>

#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"

using Kind = Condition::Kind;

namespace {
/// What the forms call the codes that conditions ask for.
constexpr struct {
  std::string_view field;
  std::int32_t code;
  std::string_view name;
} kCodeNames[] = {
    {"SignallingType", SignallingType::kNone, "None"},
    {"SignallingType", SignallingType::kSelcall, "Selcall"},
    {"SignallingType", SignallingType::kDTMF, "DTMF"},
    {"SignallingType", SignallingType::kTwoTone, "Two-tone"},
    {"SignallingType", SignallingType::kMDC1200, "MDC1200"},
    {"EmCyclingType", EmCycling::kNone, "None"},
    {"EmCyclingType", EmCycling::kFixedNumber, "Fixed Number"},
    {"EmCalloutType", EmCallout::kContinuous, "Continuous"},
    {"EmCalloutType", EmCallout::kFixedNumber, "Fixed Number"},
    {"GroupType_k6k", GroupType::kScan, "Scan"},
    {"GroupType_k6k", GroupType::kVote, "Vote"},
    {"ScanType_k6k", ScanType::kStandard, "Standard"},
    {"ScanType_k6k", ScanType::kBackground, "Background"},
    {"ScanType_k6k", ScanType::kVornAx, "VornAx"},
    {"ScanDefaultTxChannel_k6k", InitiateCallChannel::kPreset, "Preset"},
    {"GPSPollResponseChannelType", ChannelType::kCurrent, "Current"},
    {"SignallingOnPTTPress_k6k", SignallingOnPTT::kANI, "Leading ANI"},
    {"SignallingOnPTTPress_k6k", SignallingOnPTT::kTone, "Repeater Access Tone"},
    {"SignallingOnPTTRelease_k6k", SignallingOnPTT::kANI, "Trailing ANI"},
    {"SignallingOnPTTRelease_k6k", SignallingOnPTT::kTone, "Auto Over Beep"},
    {"PTTTransmissionType1_k6k", PTTTransmission::kNone, "None"},
    {"PTTTransmissionType2_k6k", PTTTransmission::kNone, "None"},
    {"PTTTransmissionType3_k6k", PTTTransmission::kNone, "None"},
    {"T99TableFormat_k6k", 0, "MOT"},
    {"ToneSet", 9, "Custom"},
};

std::string CodeText(std::string_view field, std::int32_t code) {
  const auto* row = std::ranges::find_if(kCodeNames, [&](const auto& entry) {
    return entry.code == code && EqualsIgnoringCase(entry.field, field);
  });
  return row == std::end(kCodeNames) ? std::to_string(code) : std::string(row->name);
}

/// "Selcall", "Selcall/DTMF".
std::string CodeList(const Condition& test) {
  std::string list;
  for (const std::int32_t code : test.codes) {
    if (!list.empty()) list += '/';
    list += CodeText(test.field, code);
  }
  return list;
}

/// The parts of a combination; a part that is one of the other kind stands in parentheses.
std::string Joined(const std::vector<std::string>& parts, Kind kind) {
  const std::string_view link = kind == Kind::AllOf ? " and " : " or ";
  const std::string_view otherLink = kind == Kind::AllOf ? " or " : " and ";
  std::string text;
  for (const std::string& part : parts) {
    if (!text.empty()) text += link;
    const bool isCompound = parts.size() > 1 && part.find(otherLink) != std::string::npos;
    text += isCompound ? "(" + part + ")" : part;
  }
  return text;
}
}  // namespace

std::string ConditionWords::OfTest(const Condition& test) const {
  const std::string is = test.negated ? " is not " : " is ";
  const std::string label = validator_.LabelOf(test.field);
  switch (test.kind) {
    case Kind::On:
      return label + (test.negated ? " is off" : " is on");
    case Kind::OneOf:
      return label + is + CodeList(test);
    case Kind::Above:
      return label + is + "above " + CodeText(test.field, test.codes.front());
    case Kind::Text:
      return label + is + '"' + std::string(test.text) + '"';
    case Kind::ActionInUse:
      return "a programmable I/O pin has the action \"" + std::string(test.text) + '"';
    case Kind::ThisNetwork:
      return label + is + "the current network";
    case Kind::Never:
    case Kind::AllOf:
    case Kind::AnyOf:
      break;
  }
  return "never";
}

std::string ConditionWords::Of(const Condition& condition) const {
  if (condition.IsTest()) return OfTest(condition);
  std::vector<std::string> parts;
  for (const Condition* part : condition.parts) parts.push_back(Of(*part));
  return Joined(parts, condition.kind);
}

std::vector<EnablementReading> ConditionWords::Readings(const Condition& condition,
                                                        const ConditionReader& reader) const {
  if (condition.kind == Kind::Never) return {};
  std::vector<EnablementReading> readings;
  if (condition.IsTest()) {
    const ConditionReader::Reading read = reader.Read(condition);
    readings.push_back({.field = std::string(condition.field),
                        .test = OfTest(condition),
                        .record = read.record,
                        .value = read.value.value_or(Variant()),
                        .exists = ToBoolean(read.value.has_value()),
                        .holds = ToBoolean(reader.Holds(condition, read))});
  }
  for (const Condition* part : condition.parts) {
    auto inner = Readings(*part, reader);
    std::ranges::move(inner, std::back_inserter(readings));
  }
  return readings;
}

std::string ConditionWords::Missing(const Condition& condition, const ConditionReader& reader) const {
  if (condition.IsTest()) return reader.Holds(condition, reader.Read(condition)) ? "" : OfTest(condition);
  std::vector<std::string> parts;
  for (const Condition* part : condition.parts) {
    std::string missing = Missing(*part, reader);
    if (missing.empty() && condition.kind == Kind::AnyOf) return {};
    if (!missing.empty()) parts.push_back(std::move(missing));
  }
  return Joined(parts, condition.kind);
}
