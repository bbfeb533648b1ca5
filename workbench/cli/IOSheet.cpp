#include "workbench/cli/IOSheet.h"

#include <algorithm>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace IOSheet {
namespace {

struct Column {
  std::string_view heading, key, uiid;
};
// clang-format off
constexpr Column kPins[] = {
    {"Pin",       "pin",       "DigitalIOPin"},
    {"Direction", "direction", "DigitalIODirection"},
    {"Action",    "action",    "DigitalIOAction"},
    {"Active",    "active",    "DigitalIOActiveState"},
    {"ms",        "debounce",  "DigitalIODebounceTime"},
    {"Mirrors",   "mirrors",   "DigitalIOMirroredTo"},
    {"Label",     "label",     "DigitalIOLabel"},
    {"Signal",    "signal",    "DigitalIOSignalType"},
};
constexpr Column kPaths[] = {
    {"Path",       "path",       "AudioIOMicLabels"},
    {"Tap in",     "tapIn",      "AudioIOTapIn"},
    {"Type",       "tapInType",  "TapInType"},
    {"Unmute",     "tapInOpens", "TapInUnmuteCondition"},
    {"Tap out",    "tapOut",     "AudioIOTapOut"},
    {"Type",       "tapOutType", "TapOutType"},
    {"Unmute",     "tapOutOpens", "TapOutUnmuteCondition"},
};
constexpr Column kLines[] = {{"RTS", "rts", "IOPRTS"}, {"CTS", "cts", "IOPCTS"}};
constexpr std::string_view kParameters[] = {
    "ActionParamPresetChannel",    "ActionParamHomeChannel",       "ActionParamPresetGroup",
    "ActionParamEmergencyMode",    "ActionParamMuteAudioOutput",   "ActionParamUnMuteAudioOutput",
    "ActionParamToggleMuteExternalAudio"};
// clang-format on

class Sheet {
 public:
  explicit Sheet(Session& session) : session_(session), content_(session.Content()) {}

  Json AsJson() const {
    Json json = {{"pins", Rows(kPins)}, {"audioPaths", Rows(kPaths)}};
    Json lines = Json::Object();
    for (const Column& line : kLines) Add(lines, line.key, line.uiid, 1);
    json["flowControl"] = std::move(lines);
    Json parameters = Json::Object();
    for (const std::string_view uiid : kParameters) {
      if (IsInUse(uiid)) Add(parameters, uiid, uiid, 1);
    }
    json["parameters"] = std::move(parameters);
    return json;
  }

  void Print(std::ostream& out) const {
    Print(kPins, out);
    for (const Column& line : kLines) {
      const std::string pin = Shown(line.uiid, 1);
      if (pin != "None") out << line.heading << " is on " << pin << '\n';
    }
    TextTable parameters({{""}, {""}});
    for (const std::string_view uiid : kParameters) {
      if (IsInUse(uiid)) parameters.Add({session_.LabelOf(uiid), Shown(uiid, 1)});
    }
    parameters.Print(out);
    out << '\n';
    Print(kPaths, out);
  }

 private:
  RecordNr RowsOf(std::span<const Column> columns) const {
    return content_.Count(content_.FieldOf(columns.front().uiid).table);
  }
  /// Adds what is stored, and the entry of its list beside a number that stands for one.
  void Add(Json& json, std::string_view key, std::string_view uiid, RecordNr record) const {
    Report::AddWorded(json, key, Report::JsonAt(content_, uiid, record),
                      ValueText::At(content_, uiid, record), Shown(uiid, record));
  }
  /// A number that stands for an entry of its list is told by it.
  std::string Shown(std::string_view uiid, RecordNr record) const {
    return Wording::TextAt(session_, uiid, record);
  }
  bool IsInUse(std::string_view parameter) const {
    Boolean enabled = kFalse;
    session_.Host().Require(session_.Host().Validator().GetEnabledStatebyUIID(parameter, 1, enabled));
    return enabled != kFalse;
  }

  Json Rows(std::span<const Column> columns) const {
    Json rows = Json::List();
    for (RecordNr record = 1; record <= RowsOf(columns); ++record) {
      Json row = {{"record", record}};
      for (const Column& column : columns) Add(row, column.key, column.uiid, record);
      rows.Add(std::move(row));
    }
    return rows;
  }
  void Print(std::span<const Column> columns, std::ostream& out) const {
    std::vector<TextTable::Column> headings = {{"Row", TextTable::Align::Right}};
    for (const Column& column : columns) headings.push_back({std::string(column.heading)});
    TextTable table(std::move(headings));
    for (RecordNr record = 1; record <= RowsOf(columns); ++record) {
      std::vector<std::string> cells = {std::to_string(record)};
      for (const Column& column : columns) {
        const std::string text = Shown(column.uiid, record);
        cells.push_back(text == "None" ? "" : text);
      }
      table.Add(std::move(cells));
    }
    table.Print(out);
  }

  Session& session_;
  const Provider& content_;
};

}  // namespace

void Show(Session& session, Workplace& workplace) {
  const Sheet sheet(session);
  workplace.Tell([&] { return sheet.AsJson(); }, [&](std::ostream& out) { sheet.Print(out); });
}

}  // namespace IOSheet
