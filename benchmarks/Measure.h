#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <string>

class CallMonitor;

/// A figure as the table of the benchmarks has it.
struct Figure {
  std::string name;
  /// The most processor time that one of it should take on a quiet machine, in microseconds; 0 where no limit
  /// stands.
  double limit = 0;
  /// How many times its floor it may take on any machine; 0 where no limit stands.
  double ratio = 0;
  /// How many of what is measured are in one run of the work: the figure is told for one of them.
  std::int64_t parts = 1;
};

struct Work {
  std::function<void()> run;
  /// Called before each run, and not measured; empty for work that leaves things as they were.
  std::function<void()> prepare = nullptr;
};

/// Runs the work in the benchmark's loop, and once each, apart from the loop, to count its host calls and its
/// memory. What the table shows goes into the counters of `state`: cpu_us, floor_us, host_calls, heap_bytes
/// limit_us and limit_ratio. `monitor` is that of the host's store; null for work that calls no host.
void Measure(benchmark::State& state, const Figure& figure, CallMonitor* monitor, const Work& work);
