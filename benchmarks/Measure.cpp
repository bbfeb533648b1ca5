#include "benchmarks/Measure.h"

#include "benchmarks/Floor.h"
#include "benchmarks/LiveHeap.h"
#include "workbench/store/CallMonitor.h"

namespace {
void Prepare(const Work& work) {
  if (work.prepare) work.prepare();
}

/// Of one part. `monitor` is not null.
HostCalls CallsOf(const Work& work, CallMonitor& monitor, std::int64_t parts) {
  Prepare(work);
  monitor.Clear();
  work.run();
  return {monitor.Count(CallGroup::Lookup) / parts, monitor.Count(CallGroup::Read) / parts,
          monitor.Count(CallGroup::Write) / parts, monitor.Count(CallGroup::Other) / parts};
}

/// Of a whole run: its parts give back what they took.
std::int64_t PeakBytesOf(const Work& work) {
  Prepare(work);
  const HeapWatch watch;
  work.run();
  return watch.PeakBytes();
}

/// The processor time of all runs of the loop. The clock takes longer than the shortest work: it is read
/// around the whole loop where nothing has to be left out.
double TimeOfLoop(benchmark::State& state, const Work& work) {
  double left = 0;
  const double start = CpuMicroseconds();
  for (auto _ : state) {
    if (work.prepare) {
      const double pause = CpuMicroseconds();
      work.prepare();
      left += CpuMicroseconds() - pause;
    }
    work.run();
  }
  return CpuMicroseconds() - start - left;
}
}  // namespace

void Measure(benchmark::State& state, const Figure& figure, CallMonitor* monitor, const Work& work) {
  Prepare(work);
  work.run();  // warm
  state.SetLabel(figure.name);
  if (figure.limit > 0) state.counters["limit_us"] = figure.limit;
  if (figure.ratio > 0) state.counters["limit_ratio"] = figure.ratio;
  state.counters["heap_bytes"] = static_cast<double>(PeakBytesOf(work));
  const HostCalls calls = monitor == nullptr ? HostCalls{} : CallsOf(work, *monitor, figure.parts);
  state.counters["host_calls"] = static_cast<double>(calls.All());
  const double time = TimeOfLoop(state, work);
  state.counters["cpu_us"] = time / static_cast<double>(state.iterations() * figure.parts);
  if (calls.All() > 0) state.counters["floor_us"] = FloorMicroseconds(calls);
}
