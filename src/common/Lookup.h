#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <string_view>

#include "platform/CaseText.h"

/// Constant tables are written in the order of their subject and looked up through a copy sorted at
/// compile time.

/// The rows of a table in ascending order of their key.
template <typename Row, std::size_t N, typename Key>
constexpr std::array<Row, N> SortedBy(const Row (&rows)[N], Key key) {
  std::array<Row, N> sorted{};
  std::ranges::copy(rows, sorted.begin());
  std::ranges::sort(sorted, std::less{}, key);
  return sorted;
}

/// Whether no two rows of a sorted table have the same key.
template <typename Rows, typename Key>
constexpr bool AllUnique(const Rows& sorted, Key key) {
  return std::ranges::adjacent_find(sorted, std::equal_to{}, key) == std::end(sorted);
}

/// Ends the compilation. What compilers print of it tells the row, from 1, and the name: GCC the subscript,
/// clang the call.
constexpr char ThisNameStandsTwice(std::string_view, std::size_t row) {
  const char aNameStandsTwiceInRow[1] = {};
  return aNameStandsTwiceInRow[row];
}

/// The rows of a constant table by a name that ignores case: a hash table laid out at compile time. A name
/// that stands twice does not compile.
template <typename Row, std::size_t N>
class NameIndex {
 public:
  consteval NameIndex(const Row (&rows)[N], std::string_view Row::*name) : rows_(rows), name_(name) {
    for (std::size_t i = 0; i < N; ++i) {
      std::size_t slot = Slot(rows[i].*name);
      for (; slots_[slot] != 0; slot = (slot + 1) % kSlots) {
        if (EqualsIgnoringCase(rows[slots_[slot] - 1].*name, rows[i].*name)) {
          static_cast<void>(ThisNameStandsTwice(rows[i].*name, i + 1));
        }
      }
      slots_[slot] = static_cast<std::uint16_t>(i + 1);
    }
  }

  /// Null for a name that has no row.
  const Row* Find(std::string_view name) const {
    for (std::size_t slot = Slot(name); slots_[slot] != 0; slot = (slot + 1) % kSlots) {
      const Row& row = rows_[slots_[slot] - 1];
      if (NameEqual()(row.*name_, name)) return &row;
    }
    return nullptr;
  }

 private:
  static constexpr std::size_t kSlots = std::bit_ceil(2 * N + 1);  // at most half full
  static constexpr std::size_t Slot(std::string_view name) { return NameHash()(name) % kSlots; }

  const Row* rows_;
  std::string_view Row::*name_;
  std::array<std::uint16_t, kSlots> slots_{};  // number of the row from 1; 0: free
};
