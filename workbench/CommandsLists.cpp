#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <ostream>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/Commands.h"
#include "workbench/Provider.h"
#include "workbench/Report.h"
#include "workbench/Schema.h"
#include "workbench/TextTable.h"

namespace {

using Json = Workplace::Json;

constexpr std::int32_t kRows = 1;
constexpr std::int32_t kColumns = 2;

/// The tier's list for a field. The tier is handed a copy: a list is asked for, nothing is changed.
std::shared_ptr<XArrayDBObject> ItemsOf(Session& session, const std::string& uiid, RecordNr record) {
  std::shared_ptr<XArrayDBObject> items;
  Boolean done = kFalse;
  const TierHost& host = session.Host();
  host.Require(host.Owner().GetComboItemsByUIID(session.Content().Copy(), uiid, record, items, done));
  return items;
}

bool HasCodes(const XArrayDBObject& items) { return items.Count(kColumns) > 1; }

void PrintItems(const XArrayDBObject& items, std::ostream& out) {
  TextTable table(HasCodes(items)
                      ? std::vector<TextTable::Column>{{"Item"}, {"Code", TextTable::Align::Right}}
                      : std::vector<TextTable::Column>{{""}});
  for (std::int32_t row = 0; row <= items.UpperBound(kRows); ++row) {
    std::vector<std::string> cells = {CStr(items.GetValue(row, 0))};
    if (HasCodes(items)) cells.push_back(CStr(items.GetValue(row, 1)));
    table.Add(std::move(cells));
  }
  table.Print(out);
}

Json ItemsAsJson(const XArrayDBObject& items) {
  Json list = Json::array();
  for (std::int32_t row = 0; row <= items.UpperBound(kRows); ++row) {
    Json item = {{"item", CStr(items.GetValue(row, 0))}};
    if (HasCodes(items)) item["code"] = CLng(items.GetValue(row, 1));
    list.push_back(std::move(item));
  }
  return list;
}

/// The tier answers a field without list with this one item.
bool IsNoList(const XArrayDBObject& items) {
  return items.Count(kRows) == 1 && CStr(items.GetValue(0, 0)) == "Undefined";
}

struct ComboArguments {
  std::string file;
  std::string uiid;
  RecordNr record = 1;
};

ExitCode Combo(const ComboArguments& arguments, Workplace& workplace) {
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  opened.GetSession().ConvertToForms();
  const SchemaField& field = Report::FieldNamed(opened.Content().GetSchema(), arguments.uiid);
  const std::string& uiid = Report::NameOf(field);
  const auto items = ItemsOf(opened.GetSession(), uiid, arguments.record);
  if (workplace.options.json) {
    workplace.Emit({{"uiid", uiid},
                    {"fieldId", field.id},
                    {"record", arguments.record},
                    {"hasList", !IsNoList(*items)},
                    {"items", ItemsAsJson(*items)}});
  } else {
    PrintItems(*items, workplace.Out());
  }
  if (IsNoList(*items)) std::cerr << uiid << " has no list.\n";
  if (items->Count(kRows) == 0) std::cerr << "The list of " << uiid << " is empty.\n";
  return ExitCode::Done;
}

}  // namespace

void AddComboCommand(CLI::App& app, Action& action) {
  auto given = std::make_shared<ComboArguments>();
  CLI::App* command = app.add_subcommand("combo", "Show what the list of a field offers");
  command->add_option("FILE", given->file, "The personality")->required();
  command->add_option("UIID", given->uiid, "The field, by its UIID or FieldId")->required();
  command->add_option("RECORD", given->record, "The record (else 1); one past the end is a record to come");
  command->callback([given, &action] {
    if (given->record < 1) throw CLI::ValidationError("RECORD", "records count from 1");
    action = [given](Workplace& workplace) { return Combo(*given, workplace); };
  });
}
