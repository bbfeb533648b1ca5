#pragma once

#include <cstdint>

/// Watches, while it lives, what operator new has given out and not got back, in this executable and in the
/// libraries that it loads. One thread, and one watch at a time.
class HeapWatch {
 public:
  HeapWatch();
  ~HeapWatch();
  HeapWatch(const HeapWatch&) = delete;
  HeapWatch& operator=(const HeapWatch&) = delete;

  /// The most bytes that lived at once, above those that lived when the watch began.
  std::int64_t PeakBytes() const;
};
