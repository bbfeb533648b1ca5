#include "workbench/conform/Calls.h"
#include "workbench/conform/Check.h"
#include "workbench/conform/RandomCalls.h"
#include "workbench/store/Provider.h"

/// Whole sessions of a host that does whatever its users may come upon.
namespace Conform {
namespace {

constexpr std::uint64_t kSessions = 25;
constexpr int kSteps = 400;

/// The last calls before the trouble: the seed brings back all of them.
std::string EndOf(const RandomSession& session) {
  constexpr std::size_t kShown = 5;
  std::string text = session.trouble + "; after";
  const std::size_t start = session.calls.size() > kShown ? session.calls.size() - kShown : 0;
  for (std::size_t i = start; i < session.calls.size(); ++i) text += "\n      " + session.calls[i];
  return text;
}

void RandomSessions(CheckRun& run) {
  for (const Personality& personality : run.Personalities()) {
    const std::shared_ptr<Provider> onForms = Bench(run.Parts(), *personality.stored).Content().Copy();
    for (std::uint64_t seed = run.Seed(); seed < run.Seed() + kSessions; ++seed) {
      Choices choices(seed);
      const RandomSession session = RunRandomCalls(run.Parts(), *onForms, choices, kSteps);
      run.Judge(std::string(personality.name) + ", seed " + std::to_string(seed),
                session.trouble.empty() ? "" : EndOf(session));
    }
  }
}

constexpr Check kSessionChecks[] = {
    {"random-sessions", 6, "random legal and illegal calls leave a personality that is saved and read again",
     RandomSessions},
};

}  // namespace

std::span<const Check> SessionChecks() { return kSessionChecks; }

}  // namespace Conform
