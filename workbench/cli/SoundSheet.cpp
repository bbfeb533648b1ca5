#include "workbench/cli/SoundSheet.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace SoundSheet {
namespace {

/// One kind of call: what it is called in a list, above a column and in JSON, and its fields by their UIIDs.
struct Call {
  std::string_view name, heading, key, cadence, type, duration;
};
// clang-format off
constexpr Call kCalls[] = {
    {"Individual call 1", "Call 1",    "individual1", "AlertRingPattern1",         "Sequence1AlertType",     "SelcallIndivCallAlertDuration1"},
    {"Individual call 2", "Call 2",    "individual2", "AlertRingPattern2",         "Sequence2AlertType",     "SelcallIndivCallAlertDuration2"},
    {"Group call",        "Group",     "group",       "AlertRingPatternGroup",     "GroupCallAlertType",     "SelcallGroupCallAlertDuration"},
    {"All call",          "All",       "all",         "AlertRingPatternAll",       "AllCallAlertType",       "T99AllCallAlertDuration"},
    {"Priority call",     "Priority",  "priority",    "AlertRingPatternPriority",  "PriorityCallAlertType",  "SelcallPriorityCallAlertDuration"},
    {"Emergency call",    "Emergency", "emergency",   "AlertRingPatternEmergency", "EmergencyCallAlertType", "SelcallEmergencyCallAlertDuration"},
};
// clang-format on
constexpr std::string_view kIndicator = "AudibleIndicators_k6k", kSounds = "1117.EnabledFlag";
constexpr std::string_view kNetwork = "NetworkID";

class Sheet {
 public:
  explicit Sheet(const Session& session) : session_(session), content_(session.Content()) {}

  Json AsJson() const {
    Json indicators = Json::List();
    for (RecordNr record = 1; record <= CountOf(kIndicator); ++record) {
      indicators.Add({{"record", record}, {"indicator", Report::JsonAt(content_, kIndicator, record)}});
      Add(indicators.Last(), "sounds", kSounds, record);
    }
    Json cadences = Json::Object();
    for (const Call& call : kCalls) cadences[call.key] = Report::JsonAt(content_, call.cadence, 1);
    Json networks = Json::List();
    for (RecordNr network = 1; network <= CountOf(kNetwork); ++network) networks.Add(NetworkAsJson(network));
    return {{"indicators", std::move(indicators)},
            {"cadences", std::move(cadences)},
            {"networks", std::move(networks)}};
  }

  void Print(std::ostream& out) const {
    PrintIndicators(out);
    PrintCadences(out);
    PrintAlerts(out);
  }

 private:
  RecordNr CountOf(std::string_view field) const { return content_.Count(content_.FieldOf(field).table); }
  /// A code that has a word is told by it.
  std::string Text(std::string_view field, RecordNr record) const {
    return Wording::TextAt(session_, field, record);
  }

  void Add(Json& json, std::string_view key, std::string_view field, RecordNr record) const {
    Report::AddWorded(json, key, Report::JsonAt(content_, field, record),
                      ValueText::At(content_, field, record), Text(field, record));
  }

  Json NetworkAsJson(RecordNr network) const {
    Json alerts = Json::Object();
    for (const Call& call : kCalls) {
      Json& alert = alerts[call.key];
      Add(alert, "type", call.type, network);
      alert["seconds"] = Report::JsonAt(content_, call.duration, network);
    }
    return {{"record", network},
            {"network", Report::JsonAt(content_, kNetwork, network)},
            {"alerts", std::move(alerts)}};
  }

  void PrintIndicators(std::ostream& out) const {
    TextTable table({{"Record", TextTable::Align::Right}, {"Indicator"}, {"Sounds"}});
    for (RecordNr record = 1; record <= CountOf(kIndicator); ++record) {
      table.Add({std::to_string(record), Text(kIndicator, record), Text(kSounds, record)});
    }
    table.Print(out);
  }
  void PrintCadences(std::ostream& out) const {
    TextTable table({{"Call"}, {"Cadence (1: tone, 0: none)"}});
    for (const Call& call : kCalls) table.Add({std::string(call.name), Text(call.cadence, 1)});
    out << '\n';
    table.Print(out);
  }
  void PrintAlerts(std::ostream& out) const {
    std::vector<TextTable::Column> columns = {{"Network", TextTable::Align::Right}};
    for (const Call& call : kCalls) columns.push_back({std::string(call.heading)});
    TextTable table(std::move(columns));
    for (RecordNr network = 1; network <= CountOf(kNetwork); ++network) {
      std::vector<std::string> row = {Text(kNetwork, network)};
      for (const Call& call : kCalls) row.push_back(Alert(call, network));
      table.Add(std::move(row));
    }
    out << '\n';
    table.Print(out);
  }
  /// "Ring 5 s"
  std::string Alert(const Call& call, RecordNr network) const {
    const std::string type = Text(call.type, network);
    if (type == "None") return type;
    return type + " " + Text(call.duration, network) + " " + content_.FieldOf(call.duration).units;
  }

  const Session& session_;
  const Provider& content_;
};

}  // namespace

void Show(const Session& session, Workplace& workplace) {
  const Sheet sheet(session);
  workplace.Tell([&] { return sheet.AsJson(); }, [&](std::ostream& out) { sheet.Print(out); });
}

}  // namespace SoundSheet
