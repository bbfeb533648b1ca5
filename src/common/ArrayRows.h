#pragma once

#include <cstdint>
#include <memory>

#include "platform/XArrayDBObject.h"

/// Raw settings of several values are arrays of one column, 0, whose values stand in the rows from 1.
namespace ArrayRows {
inline constexpr std::int32_t kColumn = 0;

/// The value in the row, which lives as long as `setting`; null for a row that is not there and for a setting
/// that is no array.
inline const Variant* Find(const Variant& setting, std::int32_t row) {
  constexpr std::int32_t kRows = 1;
  const auto* array = std::get_if<ArrayObject>(&setting);
  if (array == nullptr || *array == nullptr) return nullptr;
  const bool isThere = (*array)->LowerBound(kRows) <= row && row <= (*array)->UpperBound(kRows);
  return isThere ? &(*array)->GetValue(row, kColumn) : nullptr;
}
}  // namespace ArrayRows
