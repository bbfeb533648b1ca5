#include "workbench/cli/StoredReport.h"

#include <algorithm>
#include <map>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/cli/Report.h"
#include "workbench/cli/StoredFile.h"
#include "workbench/cli/TextTable.h"
#include "workbench/jobs/Difference.h"
#include "workbench/jobs/FiledEdit.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/ValueText.h"

namespace {

/// So many values of new or gone records of a table are told one by one.
constexpr std::size_t kToldByValue = 8;

std::string TextOf(const Variant& value, const std::optional<std::string>& word) {
  return value.IsEmpty() ? "(no record)" : word.value_or(ValueText::Of(value));
}
std::string TextOfStored(const SchemaField& field, const Variant& value) {
  return TextOf(value, Wording::WordOfStored(field, value));
}

/// Of what a person reads.
std::optional<std::string> WordOf(const CellDifference& cell, const Session& session, const Variant& value) {
  return Report::WordOfShown(session, *cell.field, *cell.shownAs, value);
}

/// By its meaning, and behind it what is stored where that is something else.
std::string TextOf(const CellDifference& cell, const Session& session) {
  const auto meant = [&](const Variant& value) { return TextOf(value, WordOf(cell, session, value)); };
  const auto stored = [&](const Variant& value) { return TextOfStored(*cell.field, value); };
  const std::string change = meant(cell.a) + " -> " + meant(cell.b);
  const std::string storedChange = stored(cell.storedA) + " -> " + stored(cell.storedB);
  const bool isSame = SameCell(cell.a, cell.storedA) && SameCell(cell.b, cell.storedB);
  const bool tellsMore = !isSame && storedChange != change && stored(cell.storedA) != stored(cell.storedB);
  return tellsMore ? change + " (stored: " + storedChange + ")" : change;
}

/// The records of a table that come, or go, with how many values they have.
struct WholeRecords {
  std::vector<std::string> keys;
  std::size_t values = 0;
  void Add(const std::string& key) {
    if (std::ranges::find(keys, key) == keys.end()) keys.push_back(key);
    ++values;
  }
  std::string Text(const char* what) const {
    return (keys.size() == 1 ? "record " : "records ") + ListOf(keys) + ' ' + what + ", " +
           std::to_string(values) + " values";
  }
};
/// By table, and whether they are new.
using RecordsOfTables = std::map<std::pair<const SchemaTable*, bool>, WholeRecords>;

/// Whether the record is there on one side alone.
template <typename Value>
bool IsWhole(const Value& before, const Value& after) {
  return before.IsEmpty() != after.IsEmpty();
}

void PrintWhole(const RecordsOfTables& records, TextTable& table) {
  for (const auto& [of, whole] : records) {
    if (whole.values > kToldByValue)
      table.Add({"table " + std::to_string(of.first->number), of.first->title, "",
                 whole.Text(of.second ? "new" : "gone")});
  }
}

void PrintFollowed(const std::vector<CellDifference>& followed, TextTable& table) {
  std::map<const SchemaField*, std::size_t> counts;
  for (const CellDifference& cell : followed) ++counts[cell.field];
  for (const auto& [field, count] : counts) {
    table.Add({field->id, "", "",
               std::to_string(count) + (count == 1 ? " value follows" : " values follow") +
                   " the record pointed at"});
  }
}

void PrintLaidOutAnew(const std::vector<const SchemaTable*>& tables, bool saved, std::ostream& out) {
  for (const SchemaTable* table : tables) {
    const bool isEvery = RecordKeys::IsLaidOutAnew(*table);
    out << (saved ? "Laid out anew" : "Would be laid out anew")
        << (isEvery ? ", as by every save: table " : ", as by the first save: table ") << table->number
        << " (" << table->title << ")\n";
  }
}

Json JsonOfCells(const std::vector<CellDifference>& cells, const Session& session) {
  Json list = Json::List();
  for (const CellDifference& cell : cells) {
    Json one = {{"table", cell.table->number},
                {"title", cell.table->title},
                {"record", Report::NumberOf(cell.record)},
                {"fieldId", cell.field->id},
                {"label", session.LabelOf(*cell.shownAs)}};
    const auto addShown = [&](const char* name, const Variant& value) {
      Report::AddValue(one, name, Report::JsonOf(*cell.shownAs, value), WordOf(cell, session, value));
    };
    const auto addStored = [&](const char* name, const Variant& value) {
      Report::AddValue(one, name, Report::JsonOf(*cell.field, value),
                       Wording::WordOfStored(*cell.field, value));
    };
    addShown("before", cell.a);
    addShown("after", cell.b);
    addStored("storedBefore", cell.storedA);
    addStored("storedAfter", cell.storedB);
    list.Add(std::move(one));
  }
  return list;
}

/// What stands beside a FieldId: nothing where it is the label, too.
std::string LabelBeside(const Session& session, const SchemaField& field) {
  const std::string label = session.LabelOf(field);
  return label == field.id ? "" : label;
}

std::string PathOf(const Change& change) {
  return PersonalityFile::Place{change.table, change.record, change.field}.Path();
}

/// Cells of tables that are laid out anew are told by the table.
void PrintRepaired(const Repair& repair, const Session& session, TextTable& table) {
  std::vector<const Change*> told;
  RecordsOfTables whole;
  for (const Change& change : repair.cells) {
    if (std::ranges::count(repair.laidOutAnew, change.table) > 0) continue;
    told.push_back(&change);
    if (IsWhole(change.before, change.now))
      whole[{change.table, change.before.IsEmpty()}].Add(std::to_string(change.record));
  }
  for (const Change* change : told) {
    const bool isOfMany = IsWhole(change->before, change->now) &&
                          whole[{change->table, change->before.IsEmpty()}].values > kToldByValue;
    if (isOfMany) continue;
    table.Add(
        {PathOf(*change), LabelBeside(session, *ShownAs(session.Content().GetSchema(), *change->field)),
         TextOfStored(*change->field, change->before) + " -> " + TextOfStored(*change->field, change->now)});
  }
  for (const auto& [of, records] : whole) {
    if (records.values > kToldByValue)
      table.Add({PersonalityFile::Place{of.first}.Path(), of.first->title,
                 records.Text(of.second ? "new" : "gone")});
  }
}

}  // namespace

void Report::PrintFiled(const FiledChanges& filed, bool saved, const Session& session, std::ostream& out) {
  if (filed.cells.empty() && filed.followed.empty()) {
    out << "The file holds the same values as before.\n";
  } else {
    out << (saved ? "Changed in the file:\n" : "Would change in the file:\n");
  }
  RecordsOfTables whole;
  for (const CellDifference& cell : filed.cells) {
    if (IsWhole(cell.storedA, cell.storedB)) whole[{cell.table, cell.storedA.IsEmpty()}].Add(cell.record);
  }
  TextTable table({{""}, {""}, {""}, {""}});
  for (const CellDifference& cell : filed.cells) {
    const bool isTold = !IsWhole(cell.storedA, cell.storedB) ||
                        whole[{cell.table, cell.storedA.IsEmpty()}].values <= kToldByValue;
    if (!isTold) continue;
    table.Add({cell.field->id, LabelBeside(session, *cell.shownAs), cell.table->title + " " + cell.record,
               TextOf(cell, session)});
  }
  PrintWhole(whole, table);
  PrintFollowed(filed.followed, table);
  table.Print(out, 2);
  PrintLaidOutAnew(filed.laidOutAnew, saved, out);
}

void Report::AddFiled(Json& data, const FiledChanges& filed, const Session& session) {
  data["stored"] = JsonOfCells(filed.cells, session);
  data["followed"] = JsonOfCells(filed.followed, session);
  Json anew = Json::List();
  for (const SchemaTable* table : filed.laidOutAnew) anew.Add(table->number);
  data["laidOutAnew"] = std::move(anew);
}

void Report::PrintRepair(const std::optional<Repair>& repair, bool saved, const Session& session,
                         std::ostream& out) {
  if (!repair) return;
  out << (saved ? "Repaired in the file" : "Would be repaired in the file") << ", apart from the edit:\n";
  TextTable table({{""}, {""}, {""}});
  PrintRepaired(*repair, session, table);
  if (repair->cells.empty()) table.Add({"nothing", "", ""});
  table.Print(out, 2);
  PrintLaidOutAnew(repair->laidOutAnew, saved, out);
  if (repair->left.empty()) return;
  out << "Left damaged:\n";
  TextTable left({{""}, {""}, {""}});
  for (const Damage& damage : repair->left) {
    left.Add(
        {damage.place.Path(), damage.place.field == nullptr ? "" : ValueText::Of(damage.value), damage.text});
  }
  left.Print(out, 2);
}

void Report::AddRepair(Json& data, const std::optional<Repair>& repair, const Session& session) {
  if (!repair) return;
  Json cells = Json::List();
  for (const Change& change : repair->cells) {
    Json cell = {{"path", PathOf(change)},
                 {"table", change.table->number},
                 {"record", change.record},
                 {"fieldId", change.field->id},
                 {"label", session.LabelOf(*ShownAs(session.Content().GetSchema(), *change.field))}};
    const auto add = [&](const char* name, const Variant& value) {
      AddValue(cell, name, JsonOf(*change.field, value), Wording::WordOfStored(*change.field, value));
    };
    add("before", change.before);
    add("after", change.now);
    cells.Add(std::move(cell));
  }
  Json left = Json::List();
  for (const Damage& damage : repair->left) {
    left.Add({{"kind", NameOf(damage.kind)},
              {"path", damage.place.Path()},
              {"value", JsonOf(damage.value)},
              {"text", damage.text}});
  }
  data["repaired"] = std::move(cells);
  data["leftDamaged"] = std::move(left);
}
