#include "workbench/store/CallMonitor.h"

#include <algorithm>
#include <numeric>
#include <utility>

void CallMonitor::Arm() { untilStop_ = armedWith_ = isRecording_ ? 1 : untilFailure_; }

void CallMonitor::Stop(std::string call) {
  untilFailure_ -= armedWith_;
  const bool fails = untilFailure_ == 0;
  if (fails) untilFailure_ = isLasting_ ? 1 : kNever;
  Arm();
  if (isRecording_) calls_.push_back(std::move(call));
  if (!fails) return;
  ++failures_;
  throw Error(fault_);
}

void CallMonitor::PlanFailure(std::int64_t call, bool isLasting, Fault fault) {
  untilFailure_ = std::max<std::int64_t>(call, 1);
  isLasting_ = isLasting;
  fault_ = std::move(fault);
  Arm();
}

void CallMonitor::Record(bool on) {
  untilFailure_ -= armedWith_ - untilStop_;
  isRecording_ = on;
  Arm();
}

std::int64_t CallMonitor::Count() const {
  return std::accumulate(counts_.begin(), counts_.end(), std::int64_t{0});
}

void CallMonitor::Clear() {
  counts_.fill(0);
  failures_ = 0;
  calls_.clear();
}
