#include <charconv>
#include <ostream>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Conversions.h"
#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueText.h"

namespace {

using ValueNames = std::span<const std::string_view>;

constexpr std::string_view kPowers[] = {"Off", "Very Low", "Low", "Medium", "High"};
constexpr std::string_view kSignallingTypes[] = {"None", "Selcall", "DTMF", "Two-tone", "MDC1200"};

/// A column of a view: where its value comes from and what it is called for a person and in JSON. With
/// words the value is an index into them.
struct ViewColumn {
  std::string_view heading;
  std::string_view key;
  std::string_view field;
  TextTable::Align align = TextTable::Align::Left;
  ValueNames words = {};
};

// clang-format off
constexpr ViewColumn kChannelColumns[] = {
    {"Channel", "channel",  "ChannelID_k6k",        TextTable::Align::Right},
    {"Rx MHz",  "rxMHz",    "RxFreq_k6k",           TextTable::Align::Right},
    {"Tx MHz",  "txMHz",    "TxFreq_k6k",           TextTable::Align::Right},
    {"Rx tone", "rxTone",   "RxSignalling_k6k"},
    {"Tx tone", "txTone",   "TxSignalling_k6k"},
    {"Network", "network",  "ChannelNetworkID_k6k", TextTable::Align::Right},
    {"Power",   "power",    "TxPower_k6k",          TextTable::Align::Left, kPowers},
};
constexpr ViewColumn kNetworkColumns[] = {
    {"Network",    "network",    "NetworkID",           TextTable::Align::Right},
    {"Signalling", "signalling", "SignallingType",      TextTable::Align::Left, kSignallingTypes},
    {"System",     "system",     "NetworkSignallingID", TextTable::Align::Right},
};
// clang-format on

struct View {
  std::string_view name;
  std::int32_t table;
  std::span<const ViewColumn> columns;
};
constexpr View kViews[] = {{"channels", 5, kChannelColumns}, {"networks", 21, kNetworkColumns}};

std::string Worded(std::string text, ValueNames words) {
  if (words.empty() || !IsNumeric(text)) return text;
  const auto index = static_cast<std::size_t>(CLng(text));
  return index < words.size() ? std::string(words[index]) : text;
}

void ShowView(const View& view, const Provider& content, Workplace& workplace) {
  std::vector<TextTable::Column> columns = {{"Record", TextTable::Align::Right}};
  for (const ViewColumn& column : view.columns)
    columns.push_back({std::string(column.heading), column.align});
  TextTable table(std::move(columns));
  Json list = Json::List();
  for (RecordNr record = 1; record <= content.Count(view.table); ++record) {
    std::vector<std::string> row = {std::to_string(record)};
    Json item = {{"record", record}};
    for (const ViewColumn& column : view.columns) {
      row.push_back(Worded(ValueText::At(content, column.field, record), column.words));
      item[std::string(column.key)] = row.back();
    }
    table.Add(std::move(row));
    list.Add(std::move(item));
  }
  workplace.Tell(std::move(list), table);
}

Json RecordAsJson(const Provider& content, const SchemaTable& table, RecordNr record) {
  Json fields = Json::Object();
  for (const SchemaField& field : content.GetSchema().FieldsOf(table)) {
    fields[std::string(field.Name())] = Report::JsonOf(content.Get(field, record));
  }
  return fields;
}

void PrintRecord(Session& session, const SchemaTable& table, RecordNr record, std::ostream& out) {
  out << "Record " << record << '\n';
  TextTable fields({{""}, {""}, {""}});
  for (const SchemaField& field : session.Content().GetSchema().FieldsOf(table)) {
    fields.Add(
        {std::string(field.Name()),
         ValueText::Of(session.Content().Get(field, record)) + (field.units.empty() ? "" : " " + field.units),
         field.uiids.empty() ? "" : session.LabelOf(field)});
  }
  fields.Print(out, 2);
}

Json JsonOf(const SchemaTable& table, const Provider& content) {
  Json records = Json::List();
  for (RecordNr record = 1; record <= content.Count(table); ++record) {
    records.Add(RecordAsJson(content, table, record));
  }
  return {{"table", table.number}, {"title", table.title}, {"records", std::move(records)}};
}

void Print(const SchemaTable& table, Session& session, std::ostream& out) {
  const RecordNr count = session.Content().Count(table);
  out << "Table " << table.number << ": " << table.title << ", " << count << " of at most " << table.maximum
      << " records\n";
  for (RecordNr record = 1; record <= count; ++record) PrintRecord(session, table, record, out);
}

const SchemaTable& TableOfNumber(const Schema& schema, const std::string& text) {
  std::int32_t number = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isNumber = error == std::errc() && end == text.data() + text.size();
  const SchemaTable* table = isNumber ? schema.FindTable(number) : nullptr;
  if (table != nullptr) return *table;
  throw UsageError("\"" + text + "\" is neither channels nor networks nor a table of version " +
                   schema.Version());
}

struct ShowArguments {
  std::string file;
  std::string what;
};

void Take(Words& words, ShowArguments& given) {
  words.Required("FILE", given.file, "The personality");
  words.Required("WHAT", given.what, "channels, networks, or the number of a table");
}

ExitCode Show(const ShowArguments& arguments, Workplace& workplace) {
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  opened.ShowForms();
  const Provider& content = opened.Content();
  for (const View& view : kViews) {
    if (arguments.what != view.name) continue;
    ShowView(view, content, workplace);
    return ExitCode::Done;
  }
  const SchemaTable& table = TableOfNumber(content.GetSchema(), arguments.what);
  workplace.Tell([&] { return JsonOf(table, content); },
                 [&](std::ostream& out) { Print(table, opened.GetSession(), out); });
  return ExitCode::Done;
}

const Verb kShow({.name = "show", .about = "Show channels, networks or any table of a personality"}, Take,
                 Show);

}  // namespace
