#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <iterator>

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
