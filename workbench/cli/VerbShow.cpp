#include <charconv>
#include <optional>
#include <ostream>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "workbench/cli/IOSheet.h"
#include "workbench/cli/Report.h"
#include "workbench/cli/Sections.h"
#include "workbench/cli/SoundSheet.h"
#include "workbench/cli/SystemSheets.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/BurstSlots.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueText.h"

namespace {

/// A column of a view: where its value comes from and what it is called for a person and in JSON. A code that
/// has a word is shown by it.
struct ViewColumn {
  std::string_view heading;
  std::string_view key;
  std::string_view field;
  TextTable::Align align = TextTable::Align::Left;
  std::vector<std::string> (*list)(const Provider& content,
                                   RecordNr record) = nullptr;  // in place of a field
  std::string_view data = {};                                   // the field that JSON has in its place
};

/// The numbers of a group's channels, in the order of the members.
std::vector<std::string> MembersOf(const Provider& content, RecordNr group) {
  std::vector<std::string> members;
  const Variant number = content.Get("GroupID_k6k", group);
  const SchemaField& owner = content.FieldOf("18.GroupIDNumber");
  for (RecordNr member = 1; member <= content.Count(owner.table); ++member) {
    if (!SameValue(content.Get(owner, member), number)) continue;
    members.push_back(CStr(content.Get("GroupChannelUI_k6k", member)));
  }
  return members;
}

// clang-format off
constexpr ViewColumn kChannelColumns[] = {
    {"Channel", "channel",  "ChannelID_k6k",        TextTable::Align::Right},
    {"Rx MHz",  "rxHz",     "RxFreq_k6k",           TextTable::Align::Right, nullptr, "5.ChannelRxFreq"},
    {"Tx MHz",  "txHz",     "TxFreq_k6k",           TextTable::Align::Right, nullptr, "5.ChannelTxFreq"},
    {"Rx tone", "rxTone",   "RxSignalling_k6k"},
    {"Tx tone", "txTone",   "TxSignalling_k6k"},
    {"Network", "network",  "ChannelNetworkID_k6k", TextTable::Align::Right},
    {"Power",   "power",    "TxPower_k6k",          TextTable::Align::Left},
};
constexpr ViewColumn kNetworkColumns[] = {
    {"Network",    "network",    "NetworkID",           TextTable::Align::Right},
    {"Signalling", "signalling", "SignallingType",      TextTable::Align::Left},
    {"System",     "system",     "NetworkSignallingID", TextTable::Align::Right},
};
constexpr ViewColumn kGroupColumns[] = {
    {"Group",         "group",     "GroupID_k6k",          TextTable::Align::Right},
    {"Type",          "type",      "GroupType_k6k"},
    {"Scan type",     "scanType",  "ScanType_k6k"},
    {"Priority scan", "priority",  "PriorityScan_k6k"},
    {"Priority 1",    "priority1", "Priority1Channel_k6k", TextTable::Align::Right},
    {"Priority 2",    "priority2", "Priority2Channel_k6k", TextTable::Align::Right},
    {"Hidden",        "hidden",    "HiddenChannels_k6k"},
    {"Members",       "members",   {}, TextTable::Align::Left, MembersOf},
};
constexpr ViewColumn kKeyColumns[] = {
    {"Action",    "action",    "FunctionKey#"},
    {"Parameter", "parameter", "FK#Parameter1"},
};
// clang-format on

struct View {
  std::string_view name, key;
  std::int32_t table;
  std::span<const ViewColumn> columns;
  std::string_view row = "Record", rowKey = "record";
  /// Of a form of one record whose fields have the number of a row in place of "#": so many rows.
  RecordNr numbered = 0;
};
constexpr std::string_view kSelcall = "selcall";
constexpr View kViews[] = {{"channels", "channels", 5, kChannelColumns},
                           {"networks", "networks", 21, kNetworkColumns},
                           {"scan-groups", "scanGroups", 16, kGroupColumns},
                           {"keys", "keys", 1099, kKeyColumns, "Key", "key", 4}};

/// The field and the record that a column has in a row.
std::pair<std::string, RecordNr> PlaceOf(const View& view, const ViewColumn& column, RecordNr row) {
  std::string field(column.field);
  if (view.numbered == 0) return {std::move(field), row};
  field.replace(field.find('#'), 1, std::to_string(row));
  return {std::move(field), 1};
}

/// What a view shows of the field in a row.
std::string CellOf(const Session& session, const View& view, const ViewColumn& column, RecordNr row) {
  if (column.list != nullptr) return ListOf(column.list(session.Content(), row));
  const auto [field, record] = PlaceOf(view, column, row);
  return Wording::TextAt(session, field, record);
}

/// Adds what JSON has of a row. A column that stands at the right has numbers, also where the form has texts.
void AddTo(Json& item, const Provider& content, const View& view, const ViewColumn& column, RecordNr row,
           const std::string& shown) {
  if (column.list != nullptr) {
    Json numbers = Json::List();
    for (const std::string& number : column.list(content, row)) numbers.Add(Report::NumberOf(number));
    item[column.key] = std::move(numbers);
    return;
  }
  const auto [field, record] = PlaceOf(view, column, row);
  if (!column.data.empty()) {
    item[column.key] = Report::JsonAt(content, column.data, record);
    return;
  }
  const std::string text = ValueText::At(content, field, record);
  const bool isNumber = column.align == TextTable::Align::Right;
  Json value = isNumber ? Report::NumberOf(text) : Report::JsonAt(content, field, record);
  Report::AddWorded(item, column.key, std::move(value), text, shown);
}

void ShowView(const View& view, Session& session, Workplace& workplace) {
  const Provider& content = session.Content();
  std::vector<TextTable::Column> columns = {{std::string(view.row), TextTable::Align::Right}};
  for (const ViewColumn& column : view.columns)
    columns.push_back({std::string(column.heading), column.align});
  TextTable table(std::move(columns));
  Json list = Json::List();
  const RecordNr rows = view.numbered > 0 ? view.numbered : content.Count(view.table);
  for (RecordNr record = 1; record <= rows; ++record) {
    std::vector<std::string> row = {std::to_string(record)};
    Json item = Json::Object();
    item[view.rowKey] = record;
    for (const ViewColumn& column : view.columns) {
      row.push_back(CellOf(session, view, column, record));
      AddTo(item, content, view, column, record, row.back());
    }
    table.Add(std::move(row));
    list.Add(std::move(item));
  }
  workplace.Tell(view.key, std::move(list), table);
}

Json RecordAsJson(const Provider& content, const SchemaTable& table, RecordNr record) {
  Json fields = Json::Object();
  for (const SchemaField& field : content.GetSchema().FieldsOf(table)) {
    fields[field.Name()] = Report::JsonOf(field, content.Get(field, record));
  }
  return fields;
}

void PrintRecord(Session& session, const SchemaTable& table, RecordNr record, std::ostream& out) {
  out << "Record " << record << '\n';
  TextTable fields({{""}, {""}, {""}});
  for (const SchemaField& field : session.Content().GetSchema().FieldsOf(table)) {
    fields.Add({std::string(field.Name()),
                Wording::TextOf(session, field, record, session.Content().Get(field, record)) +
                    (field.units.empty() ? "" : " " + field.units),
                field.uiids.empty() ? "" : session.LabelOf(field)});
  }
  fields.Print(out, 2);
}

/// The words of those values that have one.
Json WordsAsJson(const Session& session, const SchemaTable& table, RecordNr record) {
  Json words = Json::Object();
  for (const SchemaField& field : session.Content().GetSchema().FieldsOf(table)) {
    const auto word = Wording::WordOf(session, field, record, session.Content().Get(field, record));
    if (word) words[field.Name()] = *word;
  }
  return words;
}

Json JsonOf(const SchemaTable& table, const Session& session) {
  Json records = Json::List(), words = Json::List();
  for (RecordNr record = 1; record <= session.Content().Count(table); ++record) {
    records.Add(RecordAsJson(session.Content(), table, record));
    words.Add(WordsAsJson(session, table, record));
  }
  return {{"table", table.number},
          {"title", table.title},
          {"records", std::move(records)},
          {"words", std::move(words)}};
}

void Print(const SchemaTable& table, Session& session, std::ostream& out) {
  const RecordNr count = session.Content().Count(table);
  out << "Table " << table.number << ": " << table.title << ", " << count << " of at most " << table.maximum
      << " records\n";
  for (RecordNr record = 1; record <= count; ++record) PrintRecord(session, table, record, out);
}

/// "channels, networks, ..."
std::string What() {
  const auto sections = ShownSections();
  return ListOf({sections.begin(), sections.end()}) + ", or the number or the title of a table";
}

/// By its number or, in any case, its title.
const SchemaTable& TableNamed(const Schema& schema, const std::string& text) {
  std::int32_t number = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isNumber = error == std::errc() && end == text.data() + text.size();
  const auto sections = ShownSections();
  std::vector<std::string> names(sections.begin(), sections.end());
  for (const SchemaTable& table : schema.Tables()) {
    if (isNumber ? table.number == number : EqualsIgnoringCase(table.title, text)) return table;
    names.push_back(table.title);
  }
  throw UsageError(Printable::Quoted(text) + " is no table of version " + schema.Version() +
                   "; what can be shown is " + What() +
                   (isNumber ? "" : TypedNames::Suggestion(text, std::move(names))));
}

struct ShowArguments {
  std::string file;
  std::string what;
  RecordNr system = 0;
  bool all = false;
};

void Take(Words& words, ShowArguments& given) {
  words.Required("FILE", given.file, "The personality");
  words.Required("WHAT", given.what, What().c_str());
  words.OptionalRecord("SYSTEM", given.system, "Of signalling systems: this one alone, by its record");
  words.Flag("--all", given.all, "Of selcall and dtmf: unused bursts and empty presets, too");
}

/// A Selcall system with its address book.
class SystemView {
 public:
  SystemView(Session& session, RecordNr record, bool all)
      : session_(session), record_(record), entries_(BurstSlots::AddressBook(session.Content(), record)) {
    if (!all) std::erase_if(entries_, [](const BurstSlots::Entry& entry) { return entry.text.empty(); });
  }

  Json AsJson() const {
    Json json = {{"record", record_}, {"system", Value("SignalSystemID_k6k")}};
    for (const auto& [key, uiid] : kFacts) Report::AddValue(json, key, Value(uiid), WordOf(uiid));
    Json bursts = Json::List();
    for (const BurstSlots::Entry& entry : entries_) {
      Json channels = Json::List();
      for (const std::string& channel : entry.channels) channels.Add(Report::NumberOf(channel));
      bursts.Add({{"kind", BurstSlots::kKinds[entry.kind].key},
                  {"label", LabelOf(entry)},
                  {"row", entry.row},
                  {"record", entry.record},
                  {"burst", entry.text},
                  {"channels", std::move(channels)}});
    }
    json["bursts"] = std::move(bursts);
    Json statuses = Json::List();
    for (const RecordNr row : Statuses()) {
      Json status;
      for (const auto& [key, name] : kStatusFields) {
        const SchemaField& field = session_.Content().FieldOf(name);
        Report::AddValue(status, key, Report::JsonOf(field, Status(name, row)),
                         Wording::WordOf(session_, field, row, Status(name, row)));
      }
      statuses.Add(std::move(status));
    }
    json["controlStatuses"] = std::move(statuses);
    return json;
  }

  void Print(std::ostream& out) const {
    out << "Selcall system " << Text("SignalSystemID_k6k") << ", record " << record_ << '\n';
    TextTable facts({{""}, {""}});
    for (const auto& [key, uiid] : kFacts)
      facts.Add({session_.LabelOf(uiid), WordOf(uiid).value_or(Text(uiid))});
    facts.Print(out, 2);
    for (std::size_t kind = 0; kind < BurstSlots::kKinds.size(); ++kind) Print(kind, out);
    PrintStatuses(out);
  }

 private:
  /// By their keys in JSON and their UIIDs.
  static constexpr std::pair<std::string_view, const char*> kFacts[] = {{"toneSet", "ToneSet"},
                                                                        {"basedOnToneSet", "BasedOnToneSet"},
                                                                        {"groupTone", "GroupTone"},
                                                                        {"repeatTone", "RepeatTone"},
                                                                        {"txFormat", "TxFormat_k6k"},
                                                                        {"rxFormat", "RxFormat_k6k"},
                                                                        {"rxDecode1", "RxDecodeSeq1_k6k"},
                                                                        {"rxDecode2", "RxDecodeSeq2_k6k"}};

  static constexpr std::pair<std::string_view, const char*> kStatusFields[] = {
      {"value", "1111.ValueTracker"}, {"type", "1111.Type"}, {"rx", "1111.Rx"}, {"tx", "1111.Tx"}};

  Variant Status(std::string_view field, RecordNr row) const { return session_.Content().Get(field, row); }
  /// The rows of the system among those of all; nothing has been edited since they were read.
  std::vector<RecordNr> Statuses() const {
    std::vector<RecordNr> rows;
    const RecordNr count = session_.Content().Count(1111);
    for (RecordNr row = 1; row <= count; ++row) {
      if (SameValue(Status("1111.SelcallID", row), record_)) rows.push_back(row);
    }
    return rows;
  }
  void PrintStatuses(std::ostream& out) const {
    const std::vector<RecordNr> rows = Statuses();
    if (rows.empty()) return;
    out << "  Control Statuses\n";
    TextTable table({{"", TextTable::Align::Right}, {""}, {""}});
    for (const RecordNr row : rows) {
      const auto isOn = [&](const char* field) { return SameValue(Status(field, row), 1); };
      const bool rx = isOn("1111.Rx"), tx = isOn("1111.Tx");
      table.Add({CStr(Status("1111.ValueTracker", row)), "type " + CStr(Status("1111.Type", row)),
                 rx && tx ? "Rx, Tx"
                 : rx     ? "Rx"
                 : tx     ? "Tx"
                          : ""});
    }
    table.Print(out, 4);
  }

  std::string Text(std::string_view uiid) const {
    const Provider& content = session_.Content();
    const bool exists = record_ <= content.Count(content.FieldOf(uiid).table);
    return exists ? ValueText::At(content, uiid, record_) : std::string();
  }
  std::optional<std::string> WordOf(std::string_view uiid) const {
    return Wording::WordOf(session_, session_.Content().FieldOf(uiid), record_, Text(uiid));
  }
  Json Value(std::string_view uiid) const { return Report::JsonAt(session_.Content(), uiid, record_); }
  std::string LabelOf(const BurstSlots::Entry& entry) const {
    return session_.LabelOf(BurstSlots::kKinds[entry.kind].uiid);
  }

  void Print(std::size_t kind, std::ostream& out) const {
    TextTable table({{"", TextTable::Align::Right}, {""}, {""}});
    bool isEmpty = true;
    for (const BurstSlots::Entry& entry : entries_) {
      if (entry.kind != kind) continue;
      if (isEmpty) out << "  " << LabelOf(entry) << '\n';
      isEmpty = false;
      table.Add({std::to_string(entry.row), entry.text,
                 entry.channels.empty() ? "" : "channel " + ListOf(entry.channels)});
    }
    if (!isEmpty) table.Print(out, 4);
  }

  const Session& session_;
  RecordNr record_;
  std::vector<BurstSlots::Entry> entries_;
};

void ShowSelcall(const ShowArguments& arguments, Session& session, Workplace& workplace) {
  const SchemaTable& systems = *session.Content().GetSchema().FindTable(29);
  if (arguments.system > 0) TypedNames::RequireRecord(session.Content(), systems, arguments.system);
  std::vector<SystemView> views;
  for (RecordNr record = 1; record <= session.Content().Count(systems); ++record) {
    if (arguments.system == 0 || arguments.system == record)
      views.emplace_back(session, record, arguments.all);
  }
  workplace.Tell(
      [&] {
        Json list = Json::List();
        for (const SystemView& view : views) list.Add(view.AsJson());
        return Json({{"systems", std::move(list)}});
      },
      [&](std::ostream& out) {
        for (const SystemView& view : views) view.Print(out);
        if (views.empty()) out << "The personality has no Selcall system.\n";
      });
}

/// As it is listed, however its letters were typed; any other word as it stands.
std::string SectionMeant(const std::string& what) {
  for (const std::string_view section : ShownSections()) {
    if (EqualsIgnoringCase(section, what)) return std::string(section);
  }
  return what;
}

ExitCode Show(const ShowArguments& given, Workplace& workplace) {
  ShowArguments arguments = given;
  arguments.what = SectionMeant(given.what);
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  opened.ShowForms();
  const Provider& content = opened.Content();
  const bool isSelcall = arguments.what == kSelcall, isOther = SystemSheets::IsKind(arguments.what);
  if (!isSelcall && !isOther && (arguments.system > 0 || arguments.all)) {
    throw UsageError("SYSTEM and --all are words of show FILE selcall, dtmf, two-tone and mdc1200");
  }
  if (isOther) {
    SystemSheets::Show(arguments.what, arguments.system, arguments.all, opened.GetSession(), workplace);
    return ExitCode::Done;
  }
  if (isSelcall) {
    ShowSelcall(arguments, opened.GetSession(), workplace);
    return ExitCode::Done;
  }
  if (arguments.what == IOSheet::kName) {
    IOSheet::Show(opened.GetSession(), workplace);
    return ExitCode::Done;
  }
  if (arguments.what == SoundSheet::kName) {
    SoundSheet::Show(opened.GetSession(), workplace);
    return ExitCode::Done;
  }
  for (const View& view : kViews) {
    if (arguments.what != view.name) continue;
    ShowView(view, opened.GetSession(), workplace);
    return ExitCode::Done;
  }
  const SchemaTable& table = TableNamed(content.GetSchema(), arguments.what);
  workplace.Tell([&] { return JsonOf(table, opened.GetSession()); },
                 [&](std::ostream& out) { Print(table, opened.GetSession(), out); });
  return ExitCode::Done;
}

const Verb kShow({.name = "show",
                  .about = "Show channels, networks, scan groups, function keys, signalling systems, sounds, "
                           "inputs and outputs or any table of a personality",
                  .examples = {{"The channels", "kd4410 show samples/city-fleet.json channels"},
                               {"The first Selcall system with the bursts that it does not use",
                                "kd4410 show samples/city-fleet.json selcall 1 --all"}}},
                 Take, Show);

}  // namespace

std::vector<std::string_view> ShownSections() {
  std::vector<std::string_view> names;
  for (const View& view : kViews) names.push_back(view.name);
  names.push_back(kSelcall);
  for (const std::string_view kind : SystemSheets::Kinds()) names.push_back(kind);
  names.insert(names.end(), {IOSheet::kName, SoundSheet::kName});
  return names;
}
