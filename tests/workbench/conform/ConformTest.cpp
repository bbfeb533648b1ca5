#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <set>

#include "tests/support/BuiltFiles.h"
#include "tests/workbench/FileHelpers.h"
#include "workbench/conform/Check.h"

namespace {
using nlohmann::json;
using testing::HasSubstr;

struct Outcome {
  int code = -1;
  std::string out;
  std::string err;
};

// A fault in every call takes the sanitizers as long as all else; scripts/prove.sh runs them there.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KD4410_SLOW
#endif
#endif
#ifdef KD4410_SLOW
constexpr int kLevel = 7;
#else
constexpr int kLevel = Conform::kHighestLevel - 1;  // the highest takes long: scripts/prove.sh
#endif

class Conformance : public testing::Test {
 protected:
  Outcome Run(const std::string& arguments, const std::string& breach = "") const {
    const std::string out = folder.PathOf("out");
    const std::string err = folder.PathOf("err");
    const std::string line = "KD4410_BROKEN='" + breach + "' '" + kWorkbench + "' " + arguments + " >'" +
                             out + "' 2>'" + err + "' </dev/null";
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ContentOf(out), ContentOf(err)};
  }
  /// The result of one check, with a broken tier.
  json Result(const std::string& check, const std::string& breach, const std::string& tier) const {
    const Outcome outcome =
        Run("--tier '" + tier + "' conform --json --patience 120 --check " + check, breach);
    EXPECT_EQ(outcome.code, 1) << check << outcome.err;
    const json data = json::parse(outcome.out, nullptr, false);
    return data.is_object() ? data["checks"][0] : json::object();
  }

  TemporaryFolder folder;
};

TEST_F(Conformance, TheTierKeepsAllPromisesOfEveryLevel) {
  const Outcome outcome =
      Run("--tier '" + std::string(kTierLibrary) + "' conform --json --level " + std::to_string(kLevel));
  EXPECT_EQ(outcome.code, 0) << outcome.out;
  const json data = json::parse(outcome.out);
  const auto all = Conform::AllChecks();
  const auto isMeant = [](const Conform::Check& check) { return check.level <= kLevel; };
  EXPECT_EQ(data["checks"].size(), static_cast<std::size_t>(std::ranges::count_if(all, isMeant)));
  for (const json& check : data["checks"]) EXPECT_GT(check["tried"], 0) << check["name"];
}

TEST_F(Conformance, EveryCheckCatchesATierThatIsBrokenForIt) {
  const std::string noLibrary = folder.Write("tier.so", "no library");
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"factories", "knows every class", "failed", "clsNothing"},
      {"lifetimes", "is never unloaded", "failed", "may not be unloaded"},
      {"initialising", "does not initialise", "failed", "is missing"},
      {"terminating", "does not terminate", "failed", "out of its time"},
      {"unknown-names", "refuses unknown names", "failed", "answers 0 instead of -1"},
      {"unbound-validator", "keeps its host", "failed", "does not fail with 9001"},
      {"field-rules", "crashes", "crashed", "Aborted"},
      {"forms", "fails in a form", "failed", "error 9"},
      {"grids", "fails in a grid", "failed", "AddRecord"},
      {"transformations", "fails in a conversion", "failed", "TransformFromUI"},
      {"combo-lists", "answers no flag", "failed", "7 is no flag"},
      {"version-pairs", "leaves the process", "ended", "without a result"},
      {"stray-records", "crashes", "crashed", "Aborted"},
      {"whole", "fails before a save", "failed", "RunFinalValidation"},
      {"auto-update", "does not restore", "failed", "leaves AutoUpdate changed"},
      {"silent-conversions", "writes aloud", "failed", "writes while AutoUpdate is on"},
      {"silent-forms", "reloads at any time", "failed", "while AutoUpdate is off"},
      {"kept-provider", "keeps its provider", "failed", "asks the provider of the version before"},
      {"record-zero", "asks for record 0", "failed", "[0]"},
      {"version-names", "asks for another version", "failed", "9999.NoSuchField"},
      {"round-trips", "loses what it shows", "failed", "is saved as"},
      {"conversion-order", "reads ahead", "failed", "5.DTMFPresetCallSequence, which was read before by"},
      {"conversion-sides", "stores while showing", "failed", "writes to the other side"},
      {"repeatable", "changes its mind", "failed", "differs in the second run"},
      {"letter-case", "reads small letters", "failed", "the case of the name counts"},
      {"decimal-point", "writes commas", "failed", "the other decimal symbol"},
      {"decimal-comma", "writes points", "failed", "the other decimal symbol"},
      {"messages", "shows garbage", "failed", "has the title Oops"},
      {"random-sessions", "fails in the end", "failed", "seed 1"},
      {"sampled-faults", "shows no fault", "failed", "0 boxes and 1 requests"},
      {"single-faults", "shows no fault", "failed", "0 boxes and 1 requests"},
      {"lasting-faults", "never ends", "failed", "0 requests"},
      {"all-faults", "shows no fault", "failed", "0 boxes and 1 requests"},
      {"all-lasting-faults", "never ends", "failed", "0 requests"},
  };
  std::set<std::string> caught = {"load", "exports", "control-states"};  // below
  for (const auto& [check, breach, outcome, what] : cases) {
    const json result = Result(check, breach, kBrokenTier);
    EXPECT_EQ(result["outcome"], outcome) << result.dump(1);
    EXPECT_THAT(result.dump(), HasSubstr(what));
    caught.insert(check);
  }
  EXPECT_THAT(Result("load", "", noLibrary).dump(), HasSubstr("tier.so: load"));
  EXPECT_THAT(Result("exports", "", noLibrary).dump(), HasSubstr("not a shared library"));
  EXPECT_THAT(Result("exports", "", kTalkativeTier).dump(), HasSubstr("TooMuch"));
  EXPECT_EQ(caught.size(), Conform::AllChecks().size()) << "a check without a tier that it catches";
}

TEST_F(Conformance, AHangIsEndedAndTold) {
  const Outcome outcome = Run(
      "--tier '" + std::string(kBrokenTier) + "' conform --patience 1 --check control-states --check load",
      "hangs");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_THAT(outcome.out, HasSubstr("control-states: hung"));
  EXPECT_THAT(outcome.out, HasSubstr("load: passed"));
}

TEST_F(Conformance, WrongUseRunsNothing) {
  const std::tuple<const char*, const char*> cases[] = {
      {"conform --check loud", "did you mean load"},
      {"conform --level 10", "10"},
      {"--tier /nowhere/tier.so conform", "/nowhere/tier.so"},
      {"conform --here", "--check"},
  };
  for (const auto& [arguments, message] : cases) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 2) << arguments;
    EXPECT_THAT(outcome.err, HasSubstr(message));
    EXPECT_EQ(outcome.out, "");
  }
}

/// What the workbench does as a host when the tier fails in the middle of a command.
TEST_F(Conformance, AFaultInACommandLeavesTheFileAsItWas) {
  const std::string before = ContentOf(Sample("city-fleet"));
  const std::string file = folder.Write("p.json", before);
  const std::pair<const char*, std::string> cases[] = {
      {"fails in a conversion", "set '" + file + "' TxFreq_k6k 1 450.5"},
      {"fails in a conversion", "add '" + file + "' Network"},
      {"fails in a grid", "add '" + file + "' Network"},
  };
  for (const auto& [breach, command] : cases) {
    const Outcome outcome = Run("--tier '" + std::string(kBrokenTier) + "' --answer yes " + command, breach);
    EXPECT_EQ(outcome.code, 3) << command << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("Subscript out of range. Nothing was saved."));
    EXPECT_TRUE(ContentOf(file) == before) << command;
  }
}
}  // namespace
