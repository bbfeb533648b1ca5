#include "workbench/jobs/FiledEdit.h"

#include <algorithm>

#include "platform/Conversions.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/LastingOrder.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace {

/// Collects what two personalities of one version store differently.
class Changes {
 public:
  Changes(const ComparedPersonality& before, const ComparedPersonality& after)
      : before_(before), after_(after), keysBefore_(before), keysAfter_(after) {}

  FiledChanges ByKey() {
    Difference difference = Compare(before_, after_);
    cells_ = std::move(difference.cells);
    for (const SchemaTable& table : before_.stored->GetSchema().Tables()) {
      if (!table.IsRaw() || RecordKeys::IsLaidOutAnew(table)) continue;
      for (const std::string& key : keysBefore_.Of(table))
        if (keysAfter_.Find(table, key) == 0) AddRecord(table, keysBefore_.Find(table, key), 0);
      for (const std::string& key : keysAfter_.Of(table))
        if (keysBefore_.Find(table, key) == 0) AddRecord(table, 0, keysAfter_.Find(table, key));
    }
    return {std::move(cells_), std::move(difference.moved), {}};
  }

  FiledChanges ByPlace() {
    for (const SchemaTable& table : before_.stored->GetSchema().Tables()) {
      if (!table.IsRaw() || RecordKeys::IsLaidOutAnew(table)) continue;
      const RecordNr lastBefore = before_.stored->Count(table);
      const RecordNr lastAfter = after_.stored->Count(table);
      for (RecordNr record = 1; record <= std::max(lastBefore, lastAfter); ++record) {
        AddRecord(table, record > lastBefore ? 0 : record, record > lastAfter ? 0 : record);
      }
    }
    return {std::move(cells_), {}, {}};
  }

  /// Whether the record stays where it is, but is known by another key.
  bool IsRenamed(const SchemaTable& table, RecordNr record) {
    const RecordNr count = before_.stored->Count(table);
    if (record > count || count != after_.stored->Count(table)) return false;
    const auto place = static_cast<std::size_t>(record - 1);
    return keysBefore_.Of(table)[place] != keysAfter_.Of(table)[place];
  }

 private:
  /// What differs between the two; 0 for a record that is not there.
  void AddRecord(const SchemaTable& table, RecordNr before, RecordNr after) {
    const auto place = static_cast<std::size_t>(std::max(before, after) - 1);
    const std::string& key = (before > 0 ? keysBefore_ : keysAfter_).Of(table)[place];
    for (const SchemaField& field : before_.stored->GetSchema().FieldsOf(table)) {
      if (!field.IsRaw()) continue;
      const Variant a = before > 0 ? before_.stored->Get(field, before) : Variant();
      const Variant b = after > 0 ? after_.stored->Get(field, after) : Variant();
      const bool isSame = before > 0 && after > 0 && SameCell(a, b);
      if (!isSame) cells_.push_back({&table, &field, &field, key, a, b, a, b});
    }
  }

  const ComparedPersonality& before_;
  const ComparedPersonality& after_;
  RecordKeys keysBefore_;
  RecordKeys keysAfter_;
  std::vector<CellDifference> cells_;
};

bool IsSame(const SchemaTable& table, const Provider& a, const Provider& b) {
  const RecordNr count = a.Count(table);
  if (count != b.Count(table)) return false;
  return std::ranges::all_of(a.GetSchema().FieldsOf(table), [&](const SchemaField& field) {
    RecordNr record = 1;
    while (record <= count && SameCell(a.Get(field, record), b.Get(field, record))) ++record;
    return record > count;
  });
}

bool IsOnForms(const SchemaField& field) { return !field.IsRaw() || !field.uiids.empty(); }

/// What the content holds where the forms have the record; Empty where it has none.
Variant ValueIn(const Provider& content, const FiledEdit& edit, const SchemaField& field, RecordNr record) {
  const SchemaTable& table = content.GetSchema().TableOf(field);
  const RecordNr place = LastingOrder::SamePlace(edit.forms, record, content, table);
  return place == 0 ? Variant() : content.Get(field, place);
}

/// No value for one that comes back.
std::optional<LostValue> LostIn(const FiledEdit& edit, const SchemaField& field, RecordNr record) {
  if (record > edit.forms.Count(field.table)) return {};  // the edit has deleted it
  LostValue value{&field, record, ValueIn(*edit.before.forms, edit, field, record),
                  edit.forms.Get(field, record), ValueIn(*edit.after.forms, edit, field, record)};
  if (!value.back.IsEmpty() && ValueText::ReadsTheSame(field, value.now, value.back)) return {};
  return value;
}

/// The file holds another value than before, and the forms show it as the edit of nobody.
std::optional<LostValue> ChangedByNobody(const FiledEdit& edit, const SchemaField& stored, RecordNr record) {
  if (SameCell(edit.before.stored->Get(stored, record), edit.after.stored->Get(stored, record))) return {};
  const SchemaField& shown = *ShownAs(edit.before.stored->GetSchema(), stored);
  if (!IsOnForms(shown)) return {};
  std::optional<LostValue> lost = LostIn(edit, shown, record);
  const bool isUntouched = lost && ValueText::ReadsTheSame(shown, lost->before, lost->now);
  return isUntouched ? lost : std::nullopt;
}

std::optional<LostValue> ChangedByNobody(const FiledEdit& edit) {
  const Provider& before = *edit.before.stored;
  for (const SchemaField& field : before.GetSchema().Fields()) {
    const bool isCompared = field.IsRaw() && !RecordKeys::IsLaidOutAnew(before.GetSchema().TableOf(field));
    const RecordNr count = isCompared ? before.Count(field.table) : 0;
    if (count != edit.after.stored->Count(field.table)) continue;
    for (RecordNr record = 1; record <= count; ++record) {
      if (auto lost = ChangedByNobody(edit, field, record)) return lost;
    }
  }
  return {};
}

/// The save gives a table the records, or what they hold, that the file did not have.
bool IsCompleted(const Provider& before, const Provider& after, const SchemaTable& table) {
  return RecordKeys::IsFilledByFirstSave(table) &&
         (before.Count(table) < after.Count(table) || RecordKeys::AwaitsFirstSave(before, table));
}

}  // namespace

FiledChanges ChangesInFile(const ComparedPersonality& before, const ComparedPersonality& after,
                           const SchemaTable* edited, RecordNr record) {
  Changes changes(before, after);
  // What is known by the number of a renamed record has another key, too, and keeps its place.
  const bool isRenamed = edited != nullptr && changes.IsRenamed(*edited, record);
  FiledChanges filed = isRenamed ? changes.ByPlace() : changes.ByKey();
  std::erase_if(filed.cells, [&](const CellDifference& cell) {
    return RecordKeys::AwaitsFirstSave(*before.stored, *cell.table) ||
           (cell.storedA.IsEmpty() && IsCompleted(*before.stored, *after.stored, *cell.table));
  });
  filed.laidOutAnew = LaidOutAnew(*before.stored, *after.stored);
  return filed;
}

std::vector<const SchemaTable*> LaidOutAnew(const Provider& before, const Provider& after) {
  std::vector<const SchemaTable*> tables;
  for (const SchemaTable& table : before.GetSchema().Tables()) {
    const bool isLaidOut = RecordKeys::IsLaidOutAnew(table) || IsCompleted(before, after, table);
    if (isLaidOut && !IsSame(table, before, after)) tables.push_back(&table);
  }
  return tables;
}

std::optional<LostValue> LostValueOf(const FiledEdit& edit) {
  if (auto lost = LostIn(edit, edit.field, edit.record)) return lost;
  for (const Change& change : edit.others) {
    if (change.field == nullptr || !IsOnForms(*change.field)) continue;
    if (auto lost = LostIn(edit, *change.field, change.record)) return lost;
  }
  return ChangedByNobody(edit);
}
