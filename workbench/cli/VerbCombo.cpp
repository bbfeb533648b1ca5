#include <iostream>
#include <ostream>
#include <utility>
#include <vector>

#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/jobs/ComboList.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/TypedNames.h"

namespace {

void Print(const ComboList& list, std::ostream& out) {
  TextTable table(list.hasCodes ? std::vector<TextTable::Column>{{"Item"}, {"Code", TextTable::Align::Right}}
                                : std::vector<TextTable::Column>{{""}});
  for (const ComboItem& item : list.items) {
    std::vector<std::string> cells = {item.text};
    if (item.code) cells.push_back(std::to_string(*item.code));
    table.Add(std::move(cells));
  }
  table.Print(out);
}

Json JsonOf(const ComboList& list) {
  Json items = Json::List();
  for (const ComboItem& item : list.items) {
    items.Add({{"item", item.text}});
    if (item.code) items.Last()["code"] = *item.code;
  }
  return items;
}

/// The tier's list; of a field without one its words.
ComboList ListOf(const TierHost& host, const Provider& content, const SchemaField& field, RecordNr record) {
  ComboList list = ComboListOf(host, content, field.CommonName(), record);
  const CodeWords words = Wording::WordsOf(host, field);
  if (!list.IsNone() || words.Entries().empty()) return list;
  list = {.items = {}, .hasCodes = true};
  for (const auto& [code, word] : words.Entries()) list.items.push_back({word, code});
  return list;
}

struct ComboArguments {
  std::string file;
  std::string uiid;
  RecordNr record = 1;
};

void Take(Words& words, ComboArguments& given) {
  words.Required("FILE", given.file, "The personality");
  words.Required("UIID", given.uiid, "The field, by its UIID or FieldId");
  words.OptionalRecord("RECORD", given.record, "The record (else 1); one past the end is a record to come");
}

ExitCode Combo(const ComboArguments& arguments, Workplace& workplace) {
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  opened.ShowForms();
  const SchemaField& field = TypedNames::FieldNamed(opened.Content().GetSchema(), arguments.uiid);
  const std::string& uiid = field.CommonName();
  const ComboList list = ListOf(opened.GetSession().Host(), opened.Content(), field, arguments.record);
  workplace.Tell(
      [&] {
        return Json({{"uiid", uiid},
                     {"fieldId", field.id},
                     {"record", arguments.record},
                     {"hasList", !list.IsNone()},
                     {"items", JsonOf(list)}});
      },
      [&](std::ostream& out) { Print(list, out); });
  if (list.IsNone()) std::cerr << uiid << " has no list.\n";
  if (list.items.empty()) std::cerr << "The list of " << uiid << " is empty.\n";
  return ExitCode::Done;
}

const Verb kCombo({.name = "combo",
                   .about = "Show what the list of a field offers",
                   .examples = {{"The channels that an emergency may use",
                                 "kd4410 combo samples/city-fleet.json EmChannel"},
                                {"The tones of the second channel",
                                 "kd4410 combo samples/city-fleet.json TxSignalling_k6k 2"}}},
                  Take, Combo);

}  // namespace
