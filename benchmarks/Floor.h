#pragma once

#include <cstdint>

/// The named host calls of one run of something measured.
struct HostCalls {
  std::int64_t lookups = 0;
  std::int64_t reads = 0;
  std::int64_t writes = 0;
  std::int64_t others = 0;
  std::int64_t All() const { return lookups + reads + writes + others; }
};

/// The processor time of this process so far: other processes on the machine do not count.
double CpuMicroseconds();

/// The processor time in microseconds that the same calls take on a bare provider behind the same virtual
/// interface: a map of names and one plain array a field. Nothing that goes through the border can be faster.
double FloorMicroseconds(const HostCalls& calls);
