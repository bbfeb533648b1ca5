#include "workbench/store/Records.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

#include "platform/Conversions.h"
#include "platform/Error.h"
#include "platform/XArrayDBObject.h"

namespace {
[[noreturn]] void RaiseNoRecord(const std::string& what, RecordNr record, RecordNr last) {
  throw Error(ErrorNumber::kSubscript, "Provider",
              "Record " + std::to_string(record) + " of " + what + " is outside 1.." + std::to_string(last));
}

std::string NameOf(const SchemaTable& table) { return "table " + std::to_string(table.number); }

void CheckCapacity(const SchemaTable& table, RecordNr count) {
  if (count <= table.maximum) return;
  throw Error(ErrorNumber::kInvalidCall, "Provider",
              "Table " + std::to_string(table.number) + " is full: it holds at most " +
                  std::to_string(table.maximum) + " records");
}

/// A value made ready to be compared with many others.
struct SortValue {
  bool isNumber;
  double number;
  std::string text;

  explicit SortValue(const Variant& value)
      : isNumber(IsNumeric(value)), number(isNumber ? CDbl(value) : 0), text(CStr(value)) {}

  /// Below 0, 0, above 0.
  int Compare(const SortValue& other) const {
    if (!isNumber || !other.isNumber) return text.compare(other.text);
    return number < other.number ? -1 : number > other.number ? 1 : 0;
  }
};

/// The indices of the records in sorted order.
std::vector<std::size_t> SortedOrder(const std::vector<std::vector<SortValue>>& columns, std::size_t count) {
  std::vector<std::size_t> order(count);
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) {
    for (const auto& column : columns) {
      const int result = column[a].Compare(column[b]);
      if (result != 0) return result < 0;
    }
    return false;
  });
  return order;
}
}  // namespace

void TableContent::CloseUp() {
  for (auto& values : columns) {
    auto next = gone.rbegin();
    std::size_t to = *next;
    for (std::size_t place = to; place < values.size(); ++place) {
      const bool isGone = next != gone.rend() && *next == place;
      if (isGone)
        ++next;
      else
        values[to++] = std::move(values[place]);
    }
    values.resize(to);
  }
  gone.clear();
  inPlace = count;
}

Records::Records(std::shared_ptr<const Schema> schema) : schema_(std::move(schema)) {
  tables_.resize(schema_->Tables().size());
  for (const SchemaTable& table : schema_->Tables()) {
    TableContent& content = tables_[table.index];
    content.count = content.inPlace = table.minimum;
    content.columns.reserve(table.fieldCount);
    for (const SchemaField& field : schema_->FieldsOf(table)) {
      content.columns.emplace_back(static_cast<std::size_t>(table.minimum), field.standard);
    }
  }
}

Variant& Records::Cell(const SchemaField& field, RecordNr record) const {
  TableContent& content = tables_[field.tableIndex];
  if (record < 1 || record > content.inPlace) [[unlikely]] {
    if (record < 1 || record > content.count) RaiseNoRecord(field.id, record, content.count);
    content.CloseUp();
  }
  return content.columns[field.column][static_cast<std::size_t>(record - 1)];
}

const Variant& Records::Get(const SchemaField& field, RecordNr record) const { return Cell(field, record); }

void Records::Set(const SchemaField& field, RecordNr record, Variant value) {
  Variant& cell = Cell(field, record);
  if (listener_ != nullptr) listener_->BeforeCell(field, record, std::move(cell));
  ++changes_;
  cell = std::move(value);
}

void Records::Take(const SchemaField& field, RecordNr record, const Variant& value) {
  const auto* array = std::get_if<ArrayObject>(&value);
  if (array == nullptr || *array == nullptr) return Set(field, record, value);
  Variant& cell = Cell(field, record);
  const auto* own = std::get_if<ArrayObject>(&cell);
  const bool isReusable = listener_ == nullptr && own != nullptr && own->use_count() == 1;
  if (!isReusable) return Set(field, record, ArrayObject(std::make_shared<XArrayDBObject>(**array)));
  ++changes_;  // nobody else holds the array that stands there: its memory serves again
  *std::const_pointer_cast<XArrayDBObject>(*own) = **array;
}

void Records::Restore(const SchemaField& field, RecordNr record, Variant value) {
  ++changes_;
  Cell(field, record) = std::move(value);
}

TableContent& Records::ContentToChange(const SchemaTable& table) {
  if (listener_ != nullptr) listener_->BeforeTable(table);
  ++changes_;
  return Closed(table.index);
}

void Records::Insert(const SchemaTable& table, RecordNr record) {
  const RecordNr newCount = Count(table) + 1;
  if (record < 1 || record > newCount) RaiseNoRecord(NameOf(table), record, newCount);
  CheckCapacity(table, newCount);
  TableContent& content = ContentToChange(table);
  for (const SchemaField& field : schema_->FieldsOf(table)) {
    auto& values = content.columns[field.column];
    values.insert(values.begin() + (record - 1), NewValueOf(field));
  }
  content.count = content.inPlace = newCount;
}

void Records::Delete(const SchemaTable& table, RecordNr record) {
  if (record < 1 || record > Count(table)) RaiseNoRecord(NameOf(table), record, Count(table));
  if (listener_ != nullptr) listener_->BeforeTable(table);
  ++changes_;
  TableContent& content = tables_[table.index];
  if (record > content.inPlace) content.CloseUp();  // not the next one towards the first
  --content.count;
  content.inPlace = record - 1;
  content.gone.push_back(static_cast<std::size_t>(record - 1));
  const bool isLast = content.inPlace == content.count;
  if (isLast) content.CloseUp();
}

void Records::SetCount(const SchemaTable& table, RecordNr count) {
  if (count == Count(table)) return;
  if (count < 0) RaiseNoRecord(NameOf(table), count, Count(table));
  CheckCapacity(table, count);
  TableContent& content = ContentToChange(table);
  for (const SchemaField& field : schema_->FieldsOf(table)) {
    content.columns[field.column].resize(static_cast<std::size_t>(count), NewValueOf(field));
  }
  content.count = content.inPlace = count;
}

void Records::Sort(const SchemaTable& table, std::span<const SchemaField* const> keys) {
  std::vector<std::vector<SortValue>> keyColumns;
  for (const SchemaField* key : keys) {
    const auto& values = Values(*key);
    keyColumns.emplace_back(values.begin(), values.end());
  }
  const auto order = SortedOrder(keyColumns, static_cast<std::size_t>(Count(table)));
  for (auto& values : ContentToChange(table).columns) {
    std::vector<Variant> sorted;
    sorted.reserve(values.size());
    for (const std::size_t place : order) sorted.push_back(std::move(values[place]));
    values = std::move(sorted);
  }
}
