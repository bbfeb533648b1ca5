#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "platform/Error.h"

/// What a call on the host does: look a field or table up by name, read one value, write one value,
/// anything else.
enum class CallGroup : std::size_t { Lookup, Read, Write, Other };

/// Counts the calls that the tier makes on the host, makes a chosen one fail and keeps the names of calls
/// when asked to. Costs a call two counters and a comparison.
class CallMonitor {
 public:
  /// The failure of a call that was chosen to fail, where a test gives none of its own.
  static Fault PlannedFault() { return {ErrorNumber::kInvalidCall, "Host", "The host is out of order."}; }

  /// Counts a call. Raises the planned fault when it is this call's turn. `describe` gives the call's name
  /// and is asked only when somebody wants it.
  template <typename Describe>
  void Enter(CallGroup group, Describe describe) {
    ++counts_[static_cast<std::size_t>(group)];
    if (--untilStop_ == 0) [[unlikely]] {
      Stop(describe());
    }
  }

  /// The `call`-th call from now fails, 1 is the next one.
  void FailOnce(std::int64_t call, Fault fault = PlannedFault()) {
    PlanFailure(call, false, std::move(fault));
  }
  /// The `call`-th call from now fails, and all after it.
  void FailFrom(std::int64_t call, Fault fault = PlannedFault()) {
    PlanFailure(call, true, std::move(fault));
  }
  void NeverFail() { PlanFailure(kNever, false, {}); }
  /// How many calls have failed by plan.
  std::int64_t Failures() const { return failures_; }

  /// Keeps the names of all calls from now on ("Ifield.SetValue 5.ChannelTxFreq[3]").
  void Record(bool on);
  const std::vector<std::string>& Calls() const { return calls_; }

  std::int64_t Count() const;
  std::int64_t Count(CallGroup group) const { return counts_[static_cast<std::size_t>(group)]; }
  /// Forgets counts and names; plans stay.
  void Clear();

 private:
  static constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

  void Stop(std::string call);
  void PlanFailure(std::int64_t call, bool isLasting, Fault fault);
  /// Sets the next stop.
  void Arm();

  std::array<std::int64_t, 4> counts_{};
  /// Calls until one needs more than counting: the next while names are kept, else the one that fails.
  std::int64_t untilStop_ = kNever;
  std::int64_t armedWith_ = kNever;     // what `untilStop_` was set to
  std::int64_t untilFailure_ = kNever;  // as of then
  bool isLasting_ = false;
  std::int64_t failures_ = 0;
  Fault fault_;
  bool isRecording_ = false;
  std::vector<std::string> calls_;
};
