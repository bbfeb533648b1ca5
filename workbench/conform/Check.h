#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/host/TierHost.h"

class Provider;

/// What a host may expect of any tier library, put as checks that each run in a process of their own.
namespace Conform {

/// A personality to try a tier on, as its file holds it.
struct Personality {
  std::string_view name;
  std::shared_ptr<Provider> stored;
  bool isNew = false;  // as the schema makes it, never saved
};

struct Check;

/// One check while it runs: what it works with and what it tells. It tells by lines of JSON, so that what was
/// found before a crash is known: {"at": "...", "what": "..."} for each finding, at last {"tried": N}.
class CheckRun {
 public:
  /// `out` receives the lines; `seed` is that of random choices.
  CheckRun(HostParts parts, std::uint64_t seed, std::ostream& out);

  const HostParts& Parts() const { return parts_; }
  std::uint64_t Seed() const { return seed_; }
  /// Three of the newest version: one as the schema makes it, the smallest sample and the largest.
  const std::vector<Personality>& Personalities();

  /// Ends a check that has found so much that more of it would help nobody.
  class Enough {};

  /// One more thing was tried; `what` is wrong with it, empty for nothing. Throws Enough.
  void Judge(std::string_view at, std::string_view what);
  void Expect(bool holds, std::string_view at, std::string_view what) { Judge(at, holds ? "" : what); }
  /// Runs the check to its last line.
  void Run(const Check& check);

 private:
  HostParts parts_;
  std::uint64_t seed_;
  std::ostream& out_;
  std::vector<Personality> personalities_;
  std::int64_t tried_ = 0;
  std::int64_t findings_ = 0;
};

struct Check {
  std::string_view name;
  int level;
  std::string_view promise;  // what holds for a tier that passes
  void (*run)(CheckRun& run);
};

inline constexpr int kLowestLevel = 1;
inline constexpr int kHighestLevel = 9;
inline constexpr int kStandardLevel = 5;

/// All checks by level.
std::vector<Check> AllChecks();

// By subject, each in a source of its own.
std::span<const Check> LoadChecks();     // level 1
std::span<const Check> LifeChecks();     // 2
std::span<const Check> CallChecks();     // 3
std::span<const Check> EffectChecks();   // 4
std::span<const Check> OrderChecks();    // 4 and 5
std::span<const Check> ContentChecks();  // 5
std::span<const Check> SessionChecks();  // 6
std::span<const Check> FaultChecks();    // 7 to 9

}  // namespace Conform
