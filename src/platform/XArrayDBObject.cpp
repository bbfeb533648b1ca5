#include "platform/XArrayDBObject.h"

#include <algorithm>
#include <iterator>
#include <numeric>

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

void XArrayDBObject::CheckRow(std::int32_t row) const {
  if (row < firstRow_ || row > UpperBound(kRows)) RaiseOutside();
}

void XArrayDBObject::CheckColumn(std::int32_t column) const {
  if (column < firstColumn_ || column > UpperBound(kColumns)) RaiseOutside();
}

std::size_t XArrayDBObject::Place(std::int32_t row, std::int32_t column) const {
  return static_cast<std::size_t>(row - firstRow_) * static_cast<std::size_t>(columns_) +
         static_cast<std::size_t>(column - firstColumn_);
}

const Variant& XArrayDBObject::GetValue(std::int32_t row, std::int32_t column) const {
  CheckRow(row);
  CheckColumn(column);
  return cells_[Place(row, column)];
}

void XArrayDBObject::SetValue(std::int32_t row, std::int32_t column, Variant value) {
  CheckRow(row);
  CheckColumn(column);
  cells_[Place(row, column)] = std::move(value);
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
      next.cells_[next.Place(row, column)] = std::move(cells_[Place(row, column)]);
    }
  }
  *this = std::move(next);
}

void XArrayDBObject::TakeColumn(std::vector<Variant> cells) {
  firstRow_ = firstColumn_ = 0;
  columns_ = 1;
  rows_ = cells.size();
  cells_ = std::move(cells);
}

void XArrayDBObject::AppendRows(std::int32_t dimension, std::int32_t count) {
  if (dimension != kRows || count < 0) RaiseOutside();
  const std::size_t rows = rows_ + static_cast<std::size_t>(count);
  cells_.resize(rows * static_cast<std::size_t>(columns_));
  rows_ = rows;
}

void XArrayDBObject::DeleteRows(std::int32_t row, std::int32_t count) {
  if (count <= 0) return;
  CheckRow(row);
  CheckRow(row + count - 1);
  const auto at = [&](std::int32_t place) {
    return cells_.begin() + static_cast<std::ptrdiff_t>(Place(place, firstColumn_));
  };
  cells_.erase(at(row), at(row + count));
  rows_ -= static_cast<std::size_t>(count);
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
  for (const SortKey& key : keys) CheckColumn(key.column);
  CheckRow(firstRow);
  CheckRow(lastRow);
  std::vector<std::int32_t> order(static_cast<std::size_t>(lastRow - firstRow + 1));
  std::iota(order.begin(), order.end(), firstRow);
  std::ranges::stable_sort(order, [&](std::int32_t a, std::int32_t b) {
    for (const SortKey& key : keys) {
      const int sign = Compare(GetValue(a, key.column), GetValue(b, key.column), key.type) * key.order;
      if (sign != 0) return sign < 0;
    }
    return false;
  });
  std::vector<Variant> sorted;
  sorted.reserve(order.size() * static_cast<std::size_t>(columns_));
  for (const std::int32_t row : order) {
    const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(Place(row, firstColumn_));
    std::move(first, first + columns_, std::back_inserter(sorted));
  }
  std::ranges::move(sorted, cells_.begin() + static_cast<std::ptrdiff_t>(Place(firstRow, firstColumn_)));
}

std::int32_t XArrayDBObject::Count(std::int32_t dimension) const {
  CheckDimension(dimension);
  return dimension == kRows ? static_cast<std::int32_t>(rows_) : columns_;
}

std::int32_t XArrayDBObject::UpperBound(std::int32_t dimension) const {
  return LowerBound(dimension) + Count(dimension) - 1;
}
