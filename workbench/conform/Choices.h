#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <span>
#include <string>

#include "platform/Types.h"
#include "platform/Variant.h"

/// No table has them, and few a record 5000.
inline constexpr RecordNr kOddRecords[] = {0, -1, std::numeric_limits<RecordNr>::max(),
                                           std::numeric_limits<RecordNr>::min(), 5000};

/// A source of choices: a generator that never ends, or the bytes of an input until they run out. The same
/// seed or input makes the same choices everywhere.
class Choices {
 public:
  explicit Choices(std::uint64_t seed) : generator_(seed), isEndless_(true) {}
  /// The bytes outlive this object.
  explicit Choices(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  bool HasEnded() const { return !isEndless_ && bytes_.empty(); }

  // What is chosen; always the first at the end.

  /// 0 to `count` - 1; `count` is at least 1.
  std::size_t Below(std::size_t count);
  bool OneIn(std::size_t count) { return Below(count) == count - 1; }
  /// `items` are not empty.
  template <typename Items>
  const auto& OneOf(const Items& items) {
    return items[Below(std::size(items))];
  }
  /// 1 to `count`, which is at least 1.
  RecordNr Record(RecordNr count) {
    return static_cast<RecordNr>(Below(static_cast<std::size_t>(count))) + 1;
  }

  // What no form has, and what only looks so.

  std::string OddText();
  Variant OddValue();
  /// Of a table with so many records: the next one, or an odd one.
  RecordNr OddRecord(RecordNr count);
  /// The name, or the same in capitals.
  std::string InAnyCase(std::string name);

 private:
  std::mt19937_64 generator_;
  bool isEndless_ = false;
  std::span<const std::uint8_t> bytes_;
};
