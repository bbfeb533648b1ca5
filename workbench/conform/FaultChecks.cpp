#include <algorithm>
#include <limits>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "workbench/conform/Calls.h"
#include "workbench/conform/Check.h"
#include "workbench/conform/Operations.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

/// The host's calls fail, each in turn: the tier ends the application in good order.
namespace Conform {
namespace {

enum class Lasts { Once, FromThenOn };

/// A call on the tier, and the calls on the host that it makes when nothing fails.
struct Scenario {
  Call call;
  Answer clean;
  std::vector<std::string> hostCalls;
};

bool SetsAutoUpdate(const std::string& hostCall) { return hostCall.starts_with("Iprovider.SetAutoUpdate"); }

/// Whether AutoUpdate can not be restored: the call that does it fails.
bool BreaksRestoring(const Scenario& scenario, std::size_t failing, Lasts lasts) {
  const auto first = scenario.hostCalls.begin() + static_cast<std::ptrdiff_t>(failing - 1);
  const auto next = std::find_if(first, scenario.hostCalls.end(), SetsAutoUpdate);
  return lasts == Lasts::Once ? next == first : next != scenario.hostCalls.end();
}

/// "KD4410: Procedure\r\n...what the host said": the fault has come to the tail of a procedure.
bool IsTailOf(const std::string& box, const std::string& model) {
  const std::size_t name = model.size() + 2;
  const std::size_t end = box.find("\r\n");
  return box.starts_with(model + ": ") && end != std::string::npos && end > name &&
         box.ends_with(CallMonitor::PlannedFault().description);
}

std::string TroubleOf(const Answer& answer, bool before, bool mayLeaveAutoUpdate, const std::string& model,
                      Lasts lasts) {
  if (!answer.escaped.empty()) return "an exception crossed the border: " + answer.escaped;
  if (answer.fault) return "the fault was not shown, it went on to the host: " + answer.Text();
  const std::size_t boxes = answer.boxes.size();
  if (boxes != static_cast<std::size_t>(answer.terminations) || boxes == 0 ||
      (lasts == Lasts::Once && boxes > 1)) {
    return std::to_string(boxes) + " boxes and " + std::to_string(answer.terminations) +
           " requests to end the application";
  }
  for (const std::string& box : answer.boxes) {
    if (!IsTailOf(box, model)) return "the box does not name procedure and fault: " + box;
  }
  // Which of the two stood when the fault struck is the procedure's own.
  if (answer.result != kTrue && answer.result != kFalse) return std::to_string(answer.result) + " is no flag";
  if (answer.isAutoUpdating != before && !mayLeaveAutoUpdate) return "leaves AutoUpdate changed";
  return {};
}

/// The rounds of a walk over many records make the same calls, and the time to fail in each of them grows
/// with the square: to start with, those at both ends have to do. A sample is one call in ten of both ends of
/// all scenarios together, for builds that are a hundred times slower.
enum class Rounds { Sample, FirstAndLast, All };
constexpr std::size_t kSampledOneIn = 10;

/// How often a call is to fail, from its first round on; its last round comes on top.
int MostOf(Rounds rounds) {
  switch (rounds) {
    case Rounds::Sample:
      return 1;
    case Rounds::FirstAndLast:
      return 8;
    case Rounds::All:
      break;
  }
  return std::numeric_limits<int>::max();
}

/// The host calls that are to fail, from 1.
std::vector<std::size_t> FailingCalls(const std::vector<std::string>& hostCalls, Rounds rounds) {
  const int most = MostOf(rounds);
  struct Made {
    int times = 0;
    std::size_t last = 0;
  };
  std::unordered_map<std::string_view, Made> made;  // by the call without its record
  std::set<std::size_t> failing;
  for (std::size_t number = 1; number <= hostCalls.size(); ++number) {
    const std::string_view call = hostCalls[number - 1];
    Made& one = made[call.substr(0, call.find('['))];
    if (++one.times <= most) failing.insert(number);
    one.last = number;
  }
  for (const auto& [call, one] : made) failing.insert(one.last);
  return {failing.begin(), failing.end()};
}

void FailEach(CheckRun& run, std::string_view personality, Bench& bench, const Scenario& scenario,
              std::span<const std::size_t> failingCalls, Lasts lasts) {
  const bool before = bench.Content().IsAutoUpdating();
  const std::string& model = bench.Content().GetSchema().Model();
  for (const std::size_t failing : failingCalls) {
    const auto plan = [&] {
      const auto call = static_cast<std::int64_t>(failing);
      lasts == Lasts::Once ? bench.Monitor().FailOnce(call) : bench.Monitor().FailFrom(call);
    };
    const Answer answer = bench.Try(scenario.call, plan);
    const std::string what =
        TroubleOf(answer, before, BreaksRestoring(scenario, failing, lasts), model, lasts);
    if (what.empty()) {
      run.Judge("", "");
    } else {
      run.Judge(std::string(personality) + ": " + scenario.call.Text() + ", host call " +
                    std::to_string(failing) + " (" + scenario.hostCalls[failing - 1] + ")",
                what);
    }
  }
}

template <Lasts lasts, Rounds rounds>
void FailEach(CheckRun& run) {
  std::size_t met = 0;
  const auto isLeftOut = [&](std::size_t) { return rounds == Rounds::Sample && met++ % kSampledOneIn != 0; };
  for (const Personality& personality : run.Personalities()) {
    Bench bench(run.Parts(), *personality.stored);
    for (const Call& call : AllCallsOn(bench)) {
      if (!call.isLegal) continue;
      bench.Monitor().Record(true);
      Scenario scenario{call, bench.Try(call), bench.Monitor().Calls()};
      bench.Monitor().Record(false);
      // What fails by itself is told by other checks.
      if (scenario.clean.fault || !scenario.clean.boxes.empty()) continue;
      std::vector<std::size_t> failing = FailingCalls(scenario.hostCalls, rounds);
      std::erase_if(failing, isLeftOut);
      FailEach(run, personality.name, bench, scenario, failing, lasts);
    }
  }
}

// clang-format off
constexpr Check kFaultChecks[] = {
    {"sampled-faults", 7, "one call on the host in ten fails once: one box names procedure and fault, the application "
                          "ends, AutoUpdate is restored", FailEach<Lasts::Once, Rounds::Sample>},
    {"single-faults",  8, "every call on the host fails once (of a walk the first rounds and the last): one box names "
                          "procedure and fault, the application ends, AutoUpdate is restored", FailEach<Lasts::Once, Rounds::FirstAndLast>},
    {"lasting-faults", 8, "every call on the host fails (likewise), and all after it: each box with its end of the "
                          "application", FailEach<Lasts::FromThenOn, Rounds::FirstAndLast>},
    {"all-faults",     9, "single-faults in every round of every walk; takes long", FailEach<Lasts::Once, Rounds::All>},
    {"all-lasting-faults", 9, "lasting-faults likewise", FailEach<Lasts::FromThenOn, Rounds::All>},
};
// clang-format on

}  // namespace

std::span<const Check> FaultChecks() { return kFaultChecks; }

}  // namespace Conform
