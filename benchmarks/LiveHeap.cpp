#include "benchmarks/LiveHeap.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {
struct {
  bool isWatched = false;
  std::int64_t live = 0;  // below 0 when older blocks went
  std::int64_t peak = 0;
} heap;

std::int64_t SizeOf(void* block) { return static_cast<std::int64_t>(malloc_usable_size(block)); }

void Free(void* block) noexcept {
  if (heap.isWatched) [[unlikely]] {
    heap.live -= SizeOf(block);
  }
  std::free(block);
}
}  // namespace

HeapWatch::HeapWatch() { heap = {.isWatched = true}; }
HeapWatch::~HeapWatch() { heap.isWatched = false; }
std::int64_t HeapWatch::PeakBytes() const { return heap.peak; }

// Outside a watch they cost a test of a flag beside malloc and free: times do not suffer. The forms for
// arrays and those that do not throw call these.
void* operator new(std::size_t size) {
  void* block = std::malloc(std::max<std::size_t>(size, 1));
  if (block == nullptr) throw std::bad_alloc();
  if (heap.isWatched) [[unlikely]] {
    heap.live += SizeOf(block);
    heap.peak = std::max(heap.peak, heap.live);
  }
  return block;
}
void operator delete(void* block) noexcept { Free(block); }
void operator delete(void* block, std::size_t) noexcept { Free(block); }
