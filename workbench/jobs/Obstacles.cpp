#include "workbench/jobs/Obstacles.h"

#include <algorithm>
#include <limits>

#include "platform/Conversions.h"
#include "workbench/jobs/BurstPlaces.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {

constexpr double kAnyLow = std::numeric_limits<double>::lowest();
constexpr double kAnyHigh = std::numeric_limits<double>::max();

/// Values of a field with which a step refuses. The text is told by a part of it.
struct Cause {
  std::string_view version;  // to which the step leads, by its digits
  std::string_view text;
  std::string_view field;
  double lowest, highest;       // values from here to there; of a text field that is no number: none
  std::string_view shown = {};  // or this text
};
constexpr std::string_view kInputs = "55.DigitalIOInputActivationAction";
constexpr std::string_view kOutputs = "DigitalIOAction";

// clang-format off
constexpr Cause kCauses[] = {
    {"0029", "DTMF signalling",       "21.SignallingType", 2, 2},
    {"0054", "Two-Tone signalling",   "21.SignallingType", 3, 3},
    {"0083", "Serial Data",           kOutputs, 1, 0, "Serial Data In Progress"},
    {"0083", "2 or 5ms",              "DigitalIODebounceTime", 2, 5},
    {"0083", "150 or 200ms",          "DigitalIODebounceTime", 150, 200},
    {"0084", "Network Preset Call",   kInputs, 38, 40},
    {"0085", "Encryption Status",     kOutputs, 1, 0, "Encryption Status"},
    {"0085", "Busy Status",           kOutputs, 1, 0, "Busy Status"},
    {"0085", "Invalid Confirmation",  "36.SubAudInvalidConfDelay", kAnyLow, 19},
    {"0085", "Invalid Confirmation",  "36.SubAudInvalidConfDelay", 251, kAnyHigh},
    {"0085", "excess Scan Groups",    "16.GroupIDTracker", kAnyLow, kAnyHigh},
    {"0085", "FFSK Lead-In",          "9.DataLeadInDelay", 241, kAnyHigh},
    {"0088", "MDC1200",               "80.MDC1200SignallingSystemID", kAnyLow, kAnyHigh},
    {"0088", "Invalid Confirmation",  "36.SubAudInvalidConfDelay", kAnyLow, 9},
    {"0089", "VHSD Lead-In",          "9.VHSDLeadInDelay", kAnyLow, 19},
    {"0089", "FFSK Lead-In",          "9.DataLeadInDelay", kAnyLow, 3},
    {"0089", "Economy Mode",          kInputs, 42, 42},
    {"0089", "Economy Mode",          "FunctionKey1", 9, 9},
    {"0089", "Economy Mode",          "FunctionKey2", 9, 9},
    {"0089", "Economy Mode",          "FunctionKey3", 9, 9},
    {"0089", "Economy Mode",          "FunctionKey4", 9, 9},
    {"0089", "BCD Trigger",           kInputs, 43, 45},
    {"0089", "DTMF Dialling",         "FunctionKey1", 8, 8},
    {"0089", "DTMF Dialling",         "FunctionKey2", 8, 8},
    {"0089", "DTMF Dialling",         "FunctionKey3", 8, 8},
    {"0089", "DTMF Dialling",         "FunctionKey4", 8, 8},
    {"0093", "L3 Band",               "34.Band", 10, 10},
};
// clang-format on
constexpr std::string_view kTxCalls = "Selcall Fixed Format Tx Sequences";

bool Holds(const Cause& cause, const Variant& value) {
  if (!cause.shown.empty()) return CStr(value) == cause.shown;
  return IsNumeric(value) && cause.lowest <= CDbl(value) && CDbl(value) <= cause.highest;
}

/// A record of the digital lines is a row of their grid. An output may hold the code of an input that it was
/// once: the form does not show it.
void NamePin(const Provider& forms, Obstacle& obstacle) {
  const bool isLine = obstacle.field->id == kInputs || obstacle.field->table == 1108;
  if (!isLine || obstacle.record > forms.Count(1108)) return;
  obstacle.where = CStr(forms.Get("DigitalIOPin", obstacle.record));
  const bool isHidden =
      obstacle.field->id == kInputs && CStr(forms.Get("DigitalIODirection", obstacle.record)) != "Input";
  if (isHidden) obstacle.way = "make it an input, save, then make it what it was again";
}

/// Calls behind the tenth, as the forms show them.
void AddTxCalls(const Provider& forms, std::vector<Obstacle>& obstacles) {
  constexpr BurstPlace kTenth{1, 2, 10};
  const BurstPlaces places(forms.GetSchema());
  const SchemaField& text = forms.FieldOf("5.TXCallBurstSeq");
  for (RecordNr channel = 1; channel <= forms.Count(text.table); ++channel) {
    auto place = places.Of(CLng(forms.Get("5.TXCallBurst", channel)) + 1);
    if (!place) continue;
    place->system = kTenth.system;
    if (places.RecordOf(*place) > places.RecordOf(kTenth))
      obstacles.push_back({&text, channel, forms.Get(text, channel), {}, {}});
  }
}

}  // namespace

std::vector<Obstacle> ObstaclesTo(std::string_view version, std::string_view text, const Provider& forms) {
  std::vector<Obstacle> obstacles;
  if (version.ends_with("0089") && text.find(kTxCalls) != std::string_view::npos)
    AddTxCalls(forms, obstacles);
  for (const Cause& cause : kCauses) {
    const bool isMeant = version.ends_with(cause.version) && text.find(cause.text) != std::string_view::npos;
    const SchemaField* field = isMeant ? forms.GetSchema().Find(cause.field) : nullptr;
    if (field == nullptr) continue;
    for (RecordNr record = 1; record <= forms.Count(field->table); ++record) {
      const Variant& value = forms.Get(*field, record);
      if (!Holds(cause, value)) continue;
      Obstacle& obstacle = obstacles.emplace_back(Obstacle{field, record, value, {}, {}});
      NamePin(forms, obstacle);
    }
  }
  return obstacles;
}
