#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/conform/Check.h"

namespace Conform {

enum class Outcome {
  Passed,
  Failed,   // with findings
  Crashed,  // it ended by a signal
  Hung,     // it was ended after its time
  Ended,    // it ended without a result
  Idle,     // it found nothing to try
};
std::string_view NameOf(Outcome outcome);

struct Finding {
  std::string at;
  std::string what;
};

struct CheckResult {
  Check check{};
  Outcome outcome = Outcome::Ended;
  std::int64_t tried = 0;
  std::vector<Finding> findings;
  /// How a check ended that has no result, and the last of what it said on standard error.
  std::string end;
  std::string lastWords;
};

/// How the checks are run.
struct RunPlan {
  std::string tierLibrary;
  std::string dataFolder;
  std::uint64_t seed = 1;
  std::chrono::seconds patience{600};
};

/// Runs the checks, each as this program in a process of its own, as many at a time as there are cores. The
/// results come in the order of the checks.
std::vector<CheckResult> RunChecks(const std::vector<Check>& checks, const RunPlan& plan);

}  // namespace Conform
