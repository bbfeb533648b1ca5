#include <algorithm>
#include <chrono>
#include <limits>
#include <ostream>
#include <utility>
#include <vector>

#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/conform/Check.h"
#include "workbench/conform/Runner.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"
#include "workbench/store/TypedNames.h"

namespace {

using Conform::Check;
using Conform::CheckResult;

struct ConformArguments {
  std::int64_t level = Conform::kStandardLevel;
  std::vector<std::string> checks;
  std::int64_t seed = 1;
  std::int64_t seconds = 600;
  bool list = false;
  bool here = false;
};

/// The checks that were asked for by name, else those of the levels up to the one asked for.
std::vector<Check> Chosen(const ConformArguments& arguments) {
  std::vector<Check> all = Conform::AllChecks();
  std::vector<std::string> names;
  names.reserve(all.size());
  for (const Check& check : all) names.emplace_back(check.name);
  for (const std::string& name : arguments.checks) {
    if (std::ranges::find(names, name) != names.end()) continue;
    throw UsageError("there is no check " + Printable::Quoted(name) + " (see kd4410 conform --list)" +
                     TypedNames::Suggestion(name, names));
  }
  std::erase_if(all, [&](const Check& check) {
    if (arguments.checks.empty()) return check.level > arguments.level;
    return std::ranges::find(arguments.checks, check.name) == arguments.checks.end();
  });
  return all;
}

ExitCode List(const std::vector<Check>& checks, Workplace& workplace) {
  Json list = Json::List();
  TextTable table({{"Level", TextTable::Align::Right}, {"Check"}, {"What a tier that passes promises"}});
  for (const Check& check : checks) {
    list.Add({{"level", check.level}, {"name", check.name}, {"promise", check.promise}});
    table.Add({std::to_string(check.level), std::string(check.name), std::string(check.promise)});
  }
  workplace.Tell(
      [&] {
        return Json({{"checks", std::move(list)}});
      },
      [&](std::ostream& out) { table.Print(out); });
  return ExitCode::Done;
}

std::uint64_t Seed(const ConformArguments& arguments) { return static_cast<std::uint64_t>(arguments.seed); }

/// One check, in this process; its lines go to standard output.
ExitCode RunHere(const Check& check, const ConformArguments& arguments, Workplace& workplace) {
  Conform::CheckRun(workplace.Parts(), Seed(arguments), workplace.Out()).Run(check);
  return ExitCode::Done;
}

Json JsonOf(const CheckResult& result) {
  Json findings = Json::List();
  for (const auto& [at, what] : result.findings) findings.Add({{"at", at}, {"what", what}});
  Json json = {{"level", result.check.level},     {"name", result.check.name},
               {"promise", result.check.promise}, {"outcome", Conform::NameOf(result.outcome)},
               {"tried", result.tried},           {"findings", std::move(findings)}};
  if (!result.end.empty()) {
    json["end"] = result.end;
    json["lastWords"] = result.lastWords;
  }
  return json;
}

void Print(const CheckResult& result, std::ostream& out) {
  out << "level " << result.check.level << "  " << result.check.name << ": "
      << Conform::NameOf(result.outcome) << ", " << result.tried << " tried (" << result.check.promise
      << ")\n";
  for (const auto& [at, what] : result.findings) out << "  - " << at << ": " << what << '\n';
  if (!result.end.empty()) out << "  - " << result.end << '\n';
  if (!result.lastWords.empty()) out << "    its last words:\n" << result.lastWords << '\n';
}

ExitCode Run(const ConformArguments& arguments, Workplace& workplace) {
  const std::vector<Check> checks = Chosen(arguments);
  if (arguments.list) return List(checks, workplace);
  if (arguments.here) {
    if (workplace.options.json) throw UsageError("--here prints lines of its own: leave out --json");
    return RunHere(checks.front(), arguments, workplace);
  }

  const HostParts parts = workplace.Parts();
  if (!AtomicFile(parts.tierLibrary).Exists()) {
    throw FileError(parts.tierLibrary, 0, "tier", "No such file or directory");
  }
  const std::vector<CheckResult> results = Conform::RunChecks(
      checks,
      {parts.tierLibrary, parts.dataFolder, Seed(arguments), std::chrono::seconds(arguments.seconds)});
  const auto failed = std::ranges::count_if(
      results, [](const CheckResult& result) { return result.outcome != Conform::Outcome::Passed; });
  workplace.Tell(
      [&] {
        Json list = Json::List();
        for (const CheckResult& result : results) list.Add(JsonOf(result));
        return Json({{"tier", parts.tierLibrary}, {"failed", failed}, {"checks", std::move(list)}});
      },
      [&](std::ostream& out) {
        for (const CheckResult& result : results) Print(result, out);
        out << results.size() << " checks, " << failed << " failed\n";
      });
  return failed == 0 ? ExitCode::Done : ExitCode::No;
}

void Take(Words& words, ConformArguments& given) {
  words.NumberOption("--level", given.level, Conform::kLowestLevel, Conform::kHighestLevel,
                     "The highest level, 1 to 9; 5 when none is given");
  words.ListOption("--check", given.checks, "CHECK",
                   "Only the check of this name; may be given more than once");
  words.NumberOption("--seed", given.seed, 0, std::numeric_limits<std::int64_t>::max(),
                     "Of the random sessions; 1 when none is given");
  words.NumberOption("--patience", given.seconds, 1, std::numeric_limits<std::int32_t>::max(),
                     "Seconds that a check may take; 600 when none is given");
  words.Flag("--list", given.list, "List the checks, run none");
  words.Flag("--here", given.here, "Run one check in this process and print its lines, for a debugger");
  words.Needs("--here", "--check");
}

const Verb kConform(
    {.name = "conform",
     .about = "Prove that a tier library keeps what its interfaces promise, each check in a process of its "
              "own",
     .details = "Levels add up: 1 the library, 2 its life, 3 every call, 4 side effects, 5 round trips "
                "and messages, 6 random sessions, 7 to 9 failing hosts. See --list.",
     .examples = {{"Whether the library loads and lets go", "kd4410 conform --level 1"},
                  {"The checks there are", "kd4410 conform --list"}}},
    Take, Run);

}  // namespace
