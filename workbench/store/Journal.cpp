#include "workbench/store/Journal.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/store/LastingOrder.h"
#include "workbench/store/ProviderObjects.h"

namespace {
/// 0 for an array without values. Row 0 is unused; an array may be without it.
std::int32_t LastRow(const XArrayDBObject& array) { return std::max(array.UpperBound(1), 0); }

bool SameArray(const XArrayDBObject& a, const XArrayDBObject& b) {
  if (LastRow(a) != LastRow(b)) return false;
  for (std::int32_t row = 1; row <= LastRow(a); ++row) {
    if (!SameCell(a.GetValue(row, 0), b.GetValue(row, 0))) return false;
  }
  return true;
}

}  // namespace

bool SameCell(const Variant& a, const Variant& b) {
  const auto* left = std::get_if<ArrayObject>(&a);
  const auto* right = std::get_if<ArrayObject>(&b);
  if (left == nullptr || right == nullptr) return SameValue(a, b);
  if (*left == *right) return true;
  return *left != nullptr && *right != nullptr && SameArray(**left, **right);
}

Journal::Journal(Provider& provider)
    : state_(provider.state_), autoUpdate_(state_->autoUpdate), factoryMode_(state_->factoryMode) {
  if (state_->records.Listener() != nullptr) throw std::logic_error("The provider has an open journal");
  state_->records.SetListener(this);
}

Journal::~Journal() { state_->records.SetListener(nullptr); }

bool Journal::HasCopyOf(std::size_t tableIndex) const {
  return std::ranges::any_of(tables_, [&](const Copy& copy) { return copy.table->index == tableIndex; });
}

void Journal::BeforeCell(const SchemaField& field, RecordNr record, Variant before) {
  if (!HasCopyOf(field.tableIndex)) cells_.push_back({&field, record, std::move(before)});
}

void Journal::BeforeTable(const SchemaTable& table) {
  if (!HasCopyOf(table.index)) tables_.push_back({&table, state_->records.ContentOf(table)});
}

std::map<std::size_t, TableContent> Journal::TouchedTables() const {
  const Records& records = state_->records;
  std::map<std::size_t, TableContent> touched;
  for (const Copy& copy : tables_) touched.emplace(copy.table->index, copy.content);
  // From the last write to the first: what a cell held before the first of them is left.
  for (auto place = cells_.rbegin(); place != cells_.rend(); ++place) {
    const Cell& cell = *place;
    const SchemaTable& table = records.GetSchema().TableOf(*cell.field);
    const auto [content, isNew] = touched.try_emplace(table.index);
    if (isNew) content->second = records.ContentOf(table);
    content->second.columns[cell.field->column][static_cast<std::size_t>(cell.record - 1)] = cell.before;
  }
  return touched;
}

void Journal::AddChanges(const SchemaTable& table, const TableContent& before,
                         std::vector<Change>& changes) const {
  const Records& records = state_->records;
  if (before.count != records.Count(table)) {
    Change& change = changes.emplace_back(table);
    change.before = before.count;
    change.now = records.Count(table);
    return;
  }
  std::vector<std::size_t> oldPlaces, places;
  if (const SchemaField* grouping = LastingOrder::GroupingOf(records.GetSchema(), table)) {
    oldPlaces = LastingOrder::Of(before.columns[grouping->column]);
    places = LastingOrder::Of(records.Values(*grouping));
  }
  for (const SchemaField& field : records.GetSchema().FieldsOf(table)) {
    const auto& old = before.columns[field.column];
    const auto& now = records.Values(field);
    for (std::size_t i = 0; i < now.size(); ++i) {
      const std::size_t oldPlace = oldPlaces.empty() ? i : oldPlaces[i];
      const std::size_t place = places.empty() ? i : places[i];
      if (SameCell(old[oldPlace], now[place])) continue;
      Change& change = changes.emplace_back(table);
      change.field = &field;
      change.record = static_cast<RecordNr>(place + 1);
      change.before = old[oldPlace];
      change.now = now[place];
    }
  }
}

std::vector<Change> Journal::Changes() const {
  std::vector<Change> changes;
  for (const auto& [table, before] : TouchedTables()) {
    AddChanges(state_->records.GetSchema().Tables()[table], before, changes);
  }
  return changes;
}

void Journal::Rollback() {
  Records& records = state_->records;
  // A copy was taken after the noted writes to its table, so the copies go back first.
  for (Copy& copy : tables_) records.Restore(*copy.table, std::move(copy.content));
  for (auto place = cells_.rbegin(); place != cells_.rend(); ++place) {
    records.Restore(*place->field, place->record, std::move(place->before));
  }
  tables_.clear();
  cells_.clear();
  state_->autoUpdate = autoUpdate_;
  state_->factoryMode = factoryMode_;
}

std::vector<Change> ChangedCells(const Provider& before, const Provider& now) {
  std::vector<Change> changes;
  for (const SchemaField& field : now.GetSchema().Fields()) {
    const SchemaTable& table = now.GetSchema().TableOf(field);
    const RecordNr last = field.IsRaw() ? std::max(before.Count(table), now.Count(table)) : 0;
    for (RecordNr record = 1; record <= last; ++record) {
      Change change(table);
      change.field = &field;
      change.record = record;
      if (record <= before.Count(table)) change.before = before.Get(field, record);
      if (record <= now.Count(table)) change.now = now.Get(field, record);
      const bool isThere = record <= std::min(before.Count(table), now.Count(table));
      if (!isThere || !SameCell(change.before, change.now)) changes.push_back(std::move(change));
    }
  }
  return changes;
}
