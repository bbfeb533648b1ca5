#include "platform/XArrayDBObject.h"

#include <algorithm>

#include "platform/Conversions.h"
#include "platform/Error.h"

namespace {
constexpr std::int32_t kRows = 1;
constexpr std::int32_t kColumns = 2;

[[noreturn]] void RaiseOutside() { RaiseSubscript("XArrayDBObject"); }

void CheckDimension(std::int32_t dimension) {
  if (dimension != kRows && dimension != kColumns) RaiseOutside();
}

/// Below, equal, above: -1, 0, 1.
int Compare(const Variant& a, const Variant& b, std::int32_t type) {
  if (type == XArrayDBObject::SortKey::kString) {
    const int order = CStr(a).compare(CStr(b));
    return order < 0 ? -1 : order > 0 ? 1 : 0;
  }
  const bool aIsEmpty = CStr(a).empty();
  const bool bIsEmpty = CStr(b).empty();
  if (aIsEmpty || bIsEmpty) return static_cast<int>(bIsEmpty) - static_cast<int>(aIsEmpty);
  const double left = CDbl(a);
  const double right = CDbl(b);
  return left < right ? -1 : left > right ? 1 : 0;
}
}  // namespace

std::size_t XArrayDBObject::RowIndex(std::int32_t row) const {
  if (row < firstRow_ || row > UpperBound(kRows)) RaiseOutside();
  return static_cast<std::size_t>(row - firstRow_);
}

std::size_t XArrayDBObject::ColumnIndex(std::int32_t column) const {
  if (column < firstColumn_ || column > UpperBound(kColumns)) RaiseOutside();
  return static_cast<std::size_t>(column - firstColumn_);
}

const Variant& XArrayDBObject::GetValue(std::int32_t row, std::int32_t column) const {
  return rows_[RowIndex(row)][ColumnIndex(column)];
}

void XArrayDBObject::SetValue(std::int32_t row, std::int32_t column, Variant value) {
  rows_[RowIndex(row)][ColumnIndex(column)] = std::move(value);
}

void XArrayDBObject::Redim(std::int32_t firstRow, std::int32_t lastRow, std::int32_t firstColumn,
                           std::int32_t lastColumn) {
  if (lastRow < firstRow - 1 || lastColumn < firstColumn - 1) RaiseOutside();
  XArrayDBObject next;
  next.firstRow_ = firstRow;
  next.firstColumn_ = firstColumn;
  next.columns_ = lastColumn - firstColumn + 1;
  next.AppendRows(kRows, lastRow - firstRow + 1);
  for (auto row = std::max(firstRow, firstRow_); row <= std::min(lastRow, UpperBound(kRows)); ++row) {
    for (auto column = std::max(firstColumn, firstColumn_);
         column <= std::min(lastColumn, UpperBound(kColumns)); ++column) {
      next.SetValue(row, column, std::move(rows_[RowIndex(row)][ColumnIndex(column)]));
    }
  }
  *this = std::move(next);
}

void XArrayDBObject::AppendRows(std::int32_t dimension, std::int32_t count) {
  if (dimension != kRows || count < 0) RaiseOutside();
  rows_.resize(rows_.size() + static_cast<std::size_t>(count), Row(static_cast<std::size_t>(columns_)));
}

void XArrayDBObject::DeleteRows(std::int32_t row, std::int32_t count) {
  if (count <= 0) return;
  const auto first = rows_.begin() + static_cast<std::ptrdiff_t>(RowIndex(row));
  const auto last = rows_.begin() + static_cast<std::ptrdiff_t>(RowIndex(row + count - 1)) + 1;
  rows_.erase(first, last);
}

std::int32_t XArrayDBObject::LowerBound(std::int32_t dimension) const {
  CheckDimension(dimension);
  return dimension == kRows ? firstRow_ : firstColumn_;
}

std::int32_t XArrayDBObject::FindValue(std::int32_t startRow, std::int32_t column, const Variant& value,
                                       std::int32_t, std::int32_t, std::int32_t) const {
  const std::string text = CStr(value);
  for (std::int32_t row = std::max(startRow, firstRow_); row <= UpperBound(kRows); ++row) {
    if (CStr(GetValue(row, column)) == text) return row;
  }
  return -1;
}

void XArrayDBObject::SortRows(std::int32_t firstRow, std::int32_t lastRow, std::span<const SortKey> keys) {
  if (lastRow < firstRow) return;
  for (const SortKey& key : keys) ColumnIndex(key.column);
  const auto first = rows_.begin() + static_cast<std::ptrdiff_t>(RowIndex(firstRow));
  const auto last = rows_.begin() + static_cast<std::ptrdiff_t>(RowIndex(lastRow)) + 1;
  std::stable_sort(first, last, [&](const Row& a, const Row& b) {
    for (const SortKey& key : keys) {
      const std::size_t column = ColumnIndex(key.column);
      const int order = Compare(a[column], b[column], key.type) * key.order;
      if (order != 0) return order < 0;
    }
    return false;
  });
}

std::int32_t XArrayDBObject::Count(std::int32_t dimension) const {
  CheckDimension(dimension);
  return dimension == kRows ? static_cast<std::int32_t>(rows_.size()) : columns_;
}

std::int32_t XArrayDBObject::UpperBound(std::int32_t dimension) const {
  return LowerBound(dimension) + Count(dimension) - 1;
}
