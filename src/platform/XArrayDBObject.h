#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/Variant.h"

/// A two-dimensional array of variants with free lower bounds: every list that host and tier hand to
/// each other, and every raw sequence (one column 0; row 0 unused, rows 1 to n hold the codes).
/// Dimension 1 counts rows, 2 columns. A row or column outside the bounds raises 9.
class XArrayDBObject {
 public:
  struct SortKey {
    static constexpr std::int32_t kAscending = 1;
    static constexpr std::int32_t kDescending = -1;
    static constexpr std::int32_t kNumber = 5;  // the empty value is the lowest
    static constexpr std::int32_t kString = 8;  // byte order
    std::int32_t column;
    std::int32_t order = kAscending;
    std::int32_t type = kString;
  };

  const Variant& GetValue(std::int32_t row, std::int32_t column) const;
  void SetValue(std::int32_t row, std::int32_t column, Variant value);
  /// Sets the bounds. Cells inside the new bounds keep their value, new ones are empty; a last row or
  /// column one below the first makes the array empty.
  void Redim(std::int32_t firstRow, std::int32_t lastRow, std::int32_t firstColumn, std::int32_t lastColumn);
  /// Makes it an array of one column, 0, with these cells in the rows from 0.
  void TakeColumn(std::vector<Variant> cells);
  void AppendRows(std::int32_t dimension, std::int32_t count);
  /// Removes `count` rows from `row`; later rows move down.
  void DeleteRows(std::int32_t row, std::int32_t count);
  std::int32_t LowerBound(std::int32_t dimension) const;
  /// The first row from `startRow` whose cell in `column` has the same text as `value`; -1 for none. The
  /// three options are fixed at 0, 1 and 0 and change nothing.
  std::int32_t FindValue(std::int32_t startRow, std::int32_t column, const Variant& value,
                         std::int32_t order = 0, std::int32_t condition = 1, std::int32_t type = 0) const;
  /// Sorts the rows firstRow to lastRow, equal rows keeping their order.
  void SortRows(std::int32_t firstRow, std::int32_t lastRow, std::span<const SortKey> keys);
  std::int32_t Count(std::int32_t dimension) const;
  /// The last row or column; one below the lower bound when there is none.
  std::int32_t UpperBound(std::int32_t dimension) const;

 private:
  void CheckRow(std::int32_t row) const;
  void CheckColumn(std::int32_t column) const;
  /// The place of a cell in `cells_`; both have been checked.
  std::size_t Place(std::int32_t row, std::int32_t column) const;

  std::int32_t firstRow_ = 0;
  std::int32_t firstColumn_ = 0;
  std::size_t rows_ = 0;
  std::int32_t columns_ = 1;
  std::vector<Variant> cells_;  // row by row: a sequence of tones is one block of memory
};
