#include <CLI/CLI.hpp>
#include <array>
#include <charconv>
#include <memory>
#include <ostream>
#include <span>

#include "platform/Conversions.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueText.h"

namespace {

using Json = Workplace::Json;
using Words = std::span<const std::string_view>;

constexpr std::string_view kPowers[] = {"Off", "Very Low", "Low", "Medium", "High"};
constexpr std::string_view kSignallingTypes[] = {"None", "Selcall", "DTMF", "Two-tone", "MDC1200"};

/// A column of a view: where its value comes from and what it is called for a person and in JSON. With
/// words the value is an index into them.
struct ViewColumn {
  std::string_view heading;
  std::string_view key;
  std::string_view field;
  TextTable::Align align = TextTable::Align::Left;
  Words words = {};
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

std::string Worded(std::string text, Words words) {
  if (words.empty() || !IsNumeric(text)) return text;
  const auto index = static_cast<std::size_t>(CLng(text));
  return index < words.size() ? std::string(words[index]) : text;
}

void ShowView(const View& view, const Provider& content, Workplace& workplace) {
  std::vector<TextTable::Column> columns = {{"Record", TextTable::Align::Right}};
  for (const ViewColumn& column : view.columns)
    columns.push_back({std::string(column.heading), column.align});
  TextTable table(std::move(columns));
  Json list = Json::array();
  for (RecordNr record = 1; record <= content.Count(view.table); ++record) {
    std::vector<std::string> row = {std::to_string(record)};
    Json item = {{"record", record}};
    for (const ViewColumn& column : view.columns) {
      row.push_back(Worded(ValueText::At(content, column.field, record), column.words));
      item[std::string(column.key)] = row.back();
    }
    table.Add(std::move(row));
    list.push_back(std::move(item));
  }
  if (workplace.options.json) {
    workplace.Emit(std::move(list));
  } else {
    table.Print(workplace.Out());
  }
}

Json RecordAsJson(const Provider& content, const SchemaTable& table, RecordNr record) {
  Json fields = Json::object();
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

void ShowTable(const SchemaTable& table, Session& session, Workplace& workplace) {
  const Provider& content = session.Content();
  const RecordNr count = content.Count(table);
  if (workplace.options.json) {
    Json records = Json::array();
    for (RecordNr record = 1; record <= count; ++record)
      records.push_back(RecordAsJson(content, table, record));
    workplace.Emit({{"table", table.number}, {"title", table.title}, {"records", std::move(records)}});
    return;
  }
  workplace.Out() << "Table " << table.number << ": " << table.title << ", " << count << " of at most "
                  << table.maximum << " records\n";
  for (RecordNr record = 1; record <= count; ++record) PrintRecord(session, table, record, workplace.Out());
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

ExitCode Show(const std::string& file, const std::string& what, Workplace& workplace) {
  OpenedFile opened(workplace, file, workplace.Messenger());
  opened.GetSession().ConvertToForms();
  for (const View& view : kViews) {
    if (what != view.name) continue;
    ShowView(view, opened.Content(), workplace);
    return ExitCode::Done;
  }
  ShowTable(TableOfNumber(opened.Content().GetSchema(), what), opened.GetSession(), workplace);
  return ExitCode::Done;
}

}  // namespace

void AddShowCommand(CLI::App& app, Action& action) {
  struct Arguments {
    std::string file;
    std::string what;
  };
  auto given = std::make_shared<Arguments>();
  CLI::App* command = app.add_subcommand("show", "Show channels, networks or any table of a personality");
  command->add_option("FILE", given->file, "The personality")->required();
  command->add_option("WHAT", given->what, "channels, networks, or the number of a table")->required();
  command->callback([given, &action] {
    action = [given](Workplace& workplace) { return Show(given->file, given->what, workplace); };
  });
}
