#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Difference.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/ValueText.h"

namespace {

/// The two personalities, what tells them apart, and a session that knows the labels.
struct Compared {
  const std::string& fileA;
  const std::string& fileB;
  const Schema& schemaA;
  const Schema& schemaB;
  const Difference& difference;
  const Session& session;
};

std::string NameOf(const SchemaTable& table) {
  return "table " + std::to_string(table.number) + " " + table.title;
}

/// The word of what a person reads of the first personality.
std::optional<std::string> WordOfA(const Compared& compared, const CellDifference& cell) {
  return Report::WordOfShown(compared.session, *cell.field, *cell.shownAs, cell.a);
}

/// Of the second: another version may have other words.
std::optional<std::string> WordOfB(const Compared& compared, const CellDifference& cell) {
  const SchemaField* stored = compared.schemaB.Find(cell.field->id);
  const SchemaField* shownAs = compared.schemaB.Find(cell.shownAs->id);
  if (stored == nullptr || shownAs == nullptr) return {};
  return Report::WordOfShown(compared.session, *stored, *shownAs, cell.b);
}

std::optional<std::string> WordOfStoredB(const Compared& compared, const CellDifference& cell) {
  const SchemaField* stored = compared.schemaB.Find(cell.field->id);
  return stored == nullptr ? std::nullopt : Wording::WordOfStored(*stored, cell.storedB);
}

/// The label of the form field and, behind it, what is stored.
std::string PlaceOf(const Session& session, const CellDifference& cell) {
  const std::string label = session.LabelOf(*cell.shownAs);
  return label == cell.field->id ? label : label + " (" + cell.field->id + ")";
}

void PrintRecords(const std::vector<RecordDifference>& records, const std::string& heading,
                  std::ostream& out) {
  if (records.empty()) return;
  out << heading << '\n';
  for (auto one = records.begin(); one != records.end();) {
    const SchemaTable* table = one->table;
    std::vector<std::string> keys;
    for (; one != records.end() && one->table == table; ++one) keys.push_back(one->record);
    out << "  " << NameOf(*table) << ": " << ListOf(keys) << '\n';
  }
}

void PrintExtra(const Session& session, const std::vector<ExtraValue>& values, const std::string& version,
                std::ostream& out) {
  if (values.empty()) return;
  out << "Only version " << version << " has:\n";
  TextTable table({{""}, {""}, {""}, {""}});
  for (const ExtraValue& one : values) {
    const std::string label = session.LabelOf(*one.field);
    table.Add({one.field->id, label == one.field->id ? "" : label, one.record,
               Wording::WordOfStored(*one.field, one.value).value_or(ValueText::Of(one.value))});
  }
  table.Print(out, 2);
}

void PrintCells(const Compared& compared, std::ostream& out) {
  const std::vector<CellDifference>& cells = compared.difference.cells;
  const SchemaTable* current = nullptr;
  for (auto cell = cells.begin(); cell != cells.end();) {
    current = cell->table;
    out << "Different in " << NameOf(*current) << '\n';
    TextTable table({{"Record"}, {"Field"}, {"A"}, {"B"}});
    for (; cell != cells.end() && cell->table == current; ++cell) {
      table.Add({cell->record, PlaceOf(compared.session, *cell),
                 WordOfA(compared, *cell).value_or(ValueText::Of(cell->a)),
                 WordOfB(compared, *cell).value_or(ValueText::Of(cell->b))});
    }
    table.Print(out, 2);
  }
}

void Print(const Compared& compared, std::ostream& out) {
  const Difference& difference = compared.difference;
  out << "A: " << Printable::Text(compared.fileA) << ", version " << compared.schemaA.Version()
      << "\nB: " << Printable::Text(compared.fileB) << ", version " << compared.schemaB.Version() << '\n';
  PrintRecords(difference.onlyInA, "Only in A", out);
  PrintRecords(difference.onlyInB, "Only in B", out);
  PrintCells(compared, out);
  PrintExtra(compared.session, difference.extraInA, compared.schemaA.Version(), out);
  PrintExtra(compared.session, difference.extraInB, compared.schemaB.Version(), out);
  for (const SchemaTable* table : difference.reordered) {
    out << "The records of " << NameOf(*table) << " stand in another order, which is no difference.\n";
  }
  out << (difference.IsEqual() ? "The personalities are equal.\n" : "The personalities differ.\n");
}

Json JsonOf(const std::vector<RecordDifference>& records) {
  Json list = Json::List();
  for (const RecordDifference& one : records) {
    list.Add({{"table", one.table->number},
              {"title", one.table->title},
              {"record", Report::NumberOf(one.record)}});
  }
  return list;
}

Json JsonOf(const Session& session, const std::vector<ExtraValue>& values) {
  Json list = Json::List();
  for (const ExtraValue& one : values) {
    Json value = {{"fieldId", one.field->id},
                  {"label", session.LabelOf(*one.field)},
                  {"record", Report::NumberOf(one.record)}};
    Report::AddValue(value, "value", Report::JsonOf(*one.field, one.value),
                     Wording::WordOfStored(*one.field, one.value));
    list.Add(std::move(value));
  }
  return list;
}

Json CellsOf(const Compared& compared) {
  Json list = Json::List();
  for (const CellDifference& cell : compared.difference.cells) {
    Json one = {{"table", cell.table->number},
                {"title", cell.table->title},
                {"record", Report::NumberOf(cell.record)},
                {"fieldId", cell.field->id},
                {"label", compared.session.LabelOf(*cell.shownAs)}};
    const auto shown = [&](const Variant& value) { return Report::JsonOf(*cell.shownAs, value); };
    const auto stored = [&](const Variant& value) { return Report::JsonOf(*cell.field, value); };
    Report::AddValue(one, "a", shown(cell.a), WordOfA(compared, cell));
    Report::AddValue(one, "b", shown(cell.b), WordOfB(compared, cell));
    Report::AddValue(one, "storedA", stored(cell.storedA), Wording::WordOfStored(*cell.field, cell.storedA));
    Report::AddValue(one, "storedB", stored(cell.storedB), WordOfStoredB(compared, cell));
    list.Add(std::move(one));
  }
  return list;
}

Json JsonOf(const Compared& compared) {
  const Difference& difference = compared.difference;
  Json reordered = Json::List();
  for (const SchemaTable* table : difference.reordered) reordered.Add(table->number);
  return {{"a", {{"file", compared.fileA}, {"version", compared.schemaA.Version()}}},
          {"b", {{"file", compared.fileB}, {"version", compared.schemaB.Version()}}},
          {"equal", difference.IsEqual()},
          {"onlyInA", JsonOf(difference.onlyInA)},
          {"onlyInB", JsonOf(difference.onlyInB)},
          {"cells", CellsOf(compared)},
          {"fieldsOfVersionA", JsonOf(compared.session, difference.extraInA)},
          {"fieldsOfVersionB", JsonOf(compared.session, difference.extraInB)},
          {"reorderedTables", std::move(reordered)}};
}

ComparedPersonality Read(const std::string& file, Workplace& workplace) {
  AtomicFile input = workplace.FileAt(file);
  const StoredFile stored(workplace, input, OnDamage::Warn, workplace.Messenger());
  return stored.Opening(
      [&] { return ForComparison(workplace.Parts(), stored.Content(), workplace.Messenger()); });
}

struct DiffArguments {
  std::string a;
  std::string b;
};

void Take(Words& words, DiffArguments& given) {
  words.Required("A", given.a, "A personality");
  words.Required("B", given.b, "The one to compare it with");
}

ExitCode Diff(const DiffArguments& arguments, Workplace& workplace) {
  const ComparedPersonality a = Read(arguments.a, workplace);
  const ComparedPersonality b = Read(arguments.b, workplace);
  const Difference difference = Compare(a, b);
  const Session labels(workplace.Parts(), a.forms, workplace.Messenger());
  const Compared compared{arguments.a,           arguments.b, a.stored->GetSchema(),
                          b.stored->GetSchema(), difference,  labels};
  workplace.Tell([&] { return JsonOf(compared); }, [&](std::ostream& out) { Print(compared, out); });
  return difference.IsEqual() ? ExitCode::Done : ExitCode::No;
}

const Verb kDiff(
    {.name = "diff",
     .about = "Compare two personalities by the identities of their records, whatever their order",
     .details = "A pointer to a record is the same when it points at the same record. The lists of tones "
                "in use (tables 50 and 61) are compared through the channels that use them; the standard "
                "tone sets (74), which every save lays out anew, are not compared. Exit code 0: equal, "
                "1: different, 2: one of the files can not be read.",
     .examples = {{"What tells two fleets apart", "kd4410 diff samples/minimal.json samples/city-fleet.json"},
                  {"Across two versions",
                   "kd4410 diff samples/harbour-0081.json samples/harbour-0089.json"}}},
    Take, Diff);

}  // namespace
