#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <thread>

#include "platform/Locale.h"
#include "tests/workbench/ProcessCommand.h"
#include "workbench/conform/DecimalLocale.h"

namespace {
using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;
using Given = std::vector<std::string>;

/// What scripts rely on.
class ScriptContract : public ProcessCommand {
 protected:
  std::string PowerOf(const std::string& path, const std::string& record) const {
    return json::parse(Run({"get", path, "TxPower_k6k", record, "--json"}).out)["values"][0]["value"].dump();
  }
  std::string Program() const { return std::string(kWorkbench) + " --tier " + kTierLibrary + " "; }
  const std::string other = folder.Write("q.json", marine);
};

TEST_F(ScriptContract, AScriptServesManyFilesAndSavesAllOrWhatRan) {
  const std::string fine =
      folder.Write("fine", "set FILE TxPower_k6k 1 2\nset " + folder.PathOf("./p.json") +
                               " TxPower_k6k 2 3 # read again\nget FILE TxPower_k6k 1\n");
  const std::string failing = folder.Write(
      "failing", "set FILE TxPower_k6k 1 2\nset FILE TxPower_k6k 2 FILE\nset FILE TxPower_k6k 3 1\n");
  const std::string created = folder.PathOf("n.json");
  const std::string making = folder.Write("making", "new " + created + " --version KD4410.0094\nadd " +
                                                        created + " channel\nconvert FILE --to 0093 --out " +
                                                        folder.PathOf("v.json") + " --force\n");
  const struct {
    Given words;
    int code;
    const char* powers;  // of records 1 to 3 of the first file, then of record 1 of the second
    bool creates = false;
  } cases[] = {
      {{"run", fine, "--file", file, "--file", other}, 0, "2342"},
      {{"run", fine, "--file", file, "--file", other, "--atomic"}, 0, "2342"},
      {{"run", failing, "--file", file, "--file", other}, 1, "2444"},
      {{"run", failing, "--file", file, "--file", other, "--keep-going"}, 1, "2412"},
      {{"run", failing, "--file", file, "--file", other, "--atomic"}, 1, "4444"},
      {{"run", fine, "--file", file, "--atomic", "--keep-going"}, 2, "4444"},
      {{"run", "-", "--file", file}, 0, "2344"},
      {{"run", making, "--file", file, "--atomic"}, 0, "4444", true},
      {{"run", fine, "--file", file, "--file", created, "--atomic"}, 2, "4444"},
  };
  for (const auto& [given, code, powers, creates] : cases) {
    for (const bool asJson : {false, true}) {
      SCOPED_TRACE(testing::PrintToString(given));
      folder.Write("p.json", marine);
      folder.Write("q.json", marine);
      std::filesystem::remove(created);
      Given words = given;
      if (asJson) words.emplace_back("--json");
      EXPECT_EQ(Run(words, fine).code, code);
      EXPECT_EQ(PowerOf(file, "1") + PowerOf(file, "2") + PowerOf(file, "3") + PowerOf(other, "1"), powers);
      EXPECT_EQ(std::filesystem::exists(created), creates);
      if (creates) {
        EXPECT_EQ(json::parse(Run({"get", created, "ChannelID_k6k", "--json"}).out)["values"].size(), 1U);
      }
      EXPECT_FALSE(std::filesystem::exists(folder.PathOf(".p.json.saving")));
    }
  }
  const json told = json::parse(Run({"run", fine, "--file", file, "--atomic", "--json"}).out);
  EXPECT_EQ(told["written"], json::array({file}));
  EXPECT_EQ(told["lines"][0]["data"]["saved"], false);
  EXPECT_EQ(told["lines"][0]["file"], file);
}

TEST_F(ScriptContract, AKilledScriptThatSavesAllOrNothingHasSavedNothing) {
  std::string lines = "set FILE TxPower_k6k 1 2\n";
  for (int i = 0; i < 5000; ++i) lines += "info FILE\n";  // for minutes
  const std::string script = folder.Write("s", lines);
  EXPECT_NE(Shell("timeout -s KILL 1 " + Program() + "run " + script + " --atomic --file " + file).code, 0);
  EXPECT_TRUE(ContentOf(file) == marine);
  EXPECT_EQ(Run({"set", file, "TxPower_k6k", "1", "3"}).code, 0) << "its lock went with it";
}

TEST_F(ScriptContract, ReadsAPersonalityFromStandardInputOnce) {
  EXPECT_THAT(Run({"info", "-"}, file).out, HasSubstr("KD4410.0094"));
  EXPECT_EQ(Run({"diff", "-", file}, file).code, 0);
  const std::pair<Given, const char*> wrong[] = {
      {{"diff", "-", "-"}, "read once"},
      {{"set", "-", "TxPower_k6k", "1", "2"}, "can only be read"},
      {{"new", "-", "--version", "KD4410.0094"}, "can only be read"},
      {{"convert", "-", "--to", "0093"}, "--out is required"},
  };
  for (const auto& [words, message] : wrong) {
    const ProcessOutcome outcome = Run(words, file);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_THAT(outcome.err, HasSubstr(message));
  }
  EXPECT_THAT(Run({"info", "-", "--json"}, "/dev/null").out, HasSubstr("\"file\": \"standard input\""));
}

TEST_F(ScriptContract, ChecksManyFilesALineForEach) {
  const std::string missing = folder.PathOf("missing.json");
  const std::string list = folder.Write("list", file + "\r\n\n" + missing + "\n");
  const std::tuple<Given, int, std::size_t> cases[] = {
      {{"check", Sample("minimal"), Sample("full")}, 0, 2},
      {{"check", Sample("minimal"), file}, 1, 2},
      {{"check", "--files-from", list}, 2, 2},
      {{"check", Sample("minimal"), "--files-from", "-"}, 2, 3},
  };
  for (const auto& [given, code, count] : cases) {
    Given words = given;
    words.emplace_back("--json");
    const ProcessOutcome outcome = Run(words, list);
    EXPECT_EQ(outcome.code, code) << testing::PrintToString(words) << outcome.err;
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(outcome.out, '\n')), count) << outcome.out;
    EXPECT_EQ(outcome.out.find("\"error\"") != std::string::npos, code == 2);
  }
  EXPECT_THAT(Run({"check", Sample("minimal"), file}).out, HasSubstr(file + ":\nnotice:\n"));
  EXPECT_EQ(Run({"check"}).code, 2);
  const json told =
      json::parse(Run({"run", "-", "--json"}, folder.Write("s", "check " + file + " " + missing)).out);
  EXPECT_EQ(told["lines"][0]["data"].size(), 2U);
}

TEST_F(ScriptContract, EditsOfOneFileAtOnceAllLandOneBehindTheOther) {
  constexpr int kEdits = 12;
  std::vector<std::thread> editors;
  std::array<int, kEdits> codes{};
  for (int i = 0; i < kEdits; ++i) {
    editors.emplace_back([&, i] {
      const std::string line = Program() + "set " + file + " TxPower_k6k " + std::to_string(i + 1) +
                               " 1 --wait 60 > /dev/null 2>&1 < /dev/null";
      codes[static_cast<std::size_t>(i)] = std::system(line.c_str());
    });
  }
  for (std::thread& editor : editors) editor.join();
  for (int i = 0; i < kEdits; ++i) {
    EXPECT_EQ(codes[static_cast<std::size_t>(i)], 0) << i;
    EXPECT_EQ(PowerOf(file, std::to_string(i + 1)), "1") << i;
  }
}

TEST_F(ScriptContract, AFileInUseIsToldWithItsHolderAndIsReadAllTheSame) {
  const int held = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(::flock(held, LOCK_EX), 0);
  const std::string holder = "process " + std::to_string(::getpid()) + " (";
  for (const Given& words :
       std::vector<Given>{{"set", file, "TxPower_k6k", "1", "2"},
                          {"add", file, "channel"},
                          {"convert", other, "--to", "0093", "--out", file, "--force"}}) {
    Given now = words;
    now.insert(now.end(), {"--wait", "0", "--json"});
    const ProcessOutcome outcome = Run(now);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_THAT(outcome.err, HasSubstr(file + " is in use by " + holder));
    EXPECT_EQ(json::parse(outcome.out)["error"]["kind"], "busy");
  }
  EXPECT_EQ(Run({"info", file}).code, 0);
  EXPECT_EQ(Run({"set", file, "TxPower_k6k", "1", "2", "--dry-run", "--wait", "0"}).code, 0);
  EXPECT_TRUE(ContentOf(file) == marine);
  ::close(held);
}

TEST_F(ScriptContract, AFullOutputIsNoFailedSave) {
  const std::tuple<const char*, const char*, int> cases[] = {
      {"set p.json TxPower_k6k 1 2", "No space left on device; the file was saved", 2},
      {"set p.json TxPower_k6k 1 9", "No space left on device; nothing was saved", 2},
      {"bands", "No space left on device; nothing was to be saved", 2},
  };
  for (const auto& [words, message, code] : cases) {
    const ProcessOutcome full =
        Shell("( cd " + folder.Path() + "; exec 3>&1; " + Program() + words + " 2>&3 >/dev/full )");
    EXPECT_EQ(full.code, code) << words;
    EXPECT_THAT(full.out, HasSubstr(message)) << words;
  }
  EXPECT_EQ(PowerOf(file, "1"), "2");
  const ProcessOutcome closed =
      Shell("bash -c 'set -o pipefail; " + Program() + "set " + file + " TxPower_k6k 1 3 | true'");
  EXPECT_THAT(closed.err, HasSubstr("Broken pipe; the file was saved"));
  EXPECT_EQ(PowerOf(file, "1"), "3");
}

/// What a command writes to a terminal.
std::string AtATerminal(Given words) {
  words.insert(words.begin(), {kWorkbench, "--tier", kTierLibrary});
  int terminal = -1;
  const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ::execv(arguments.front(), arguments.data());
    std::_Exit(127);
  }
  std::string told;
  char part[4096];
  for (ssize_t got = 0; (got = ::read(terminal, part, sizeof part)) > 0;) {
    told.append(part, static_cast<std::size_t>(got));
  }
  ::waitpid(child, nullptr, 0);
  ::close(terminal);
  return told;
}

TEST_F(ScriptContract, APersonAtATerminalHasTheDecimalSymbolOfTheLocaleAndAProgramAPoint) {
  {
    const Conform::DecimalLocale locale(',');
    const auto set = [&](const char* value) { return AtATerminal({"set", file, "TxFreq_k6k", "2", value}); };
    EXPECT_THAT(AtATerminal({"get", file, "TxFreq_k6k", "1"}), StartsWith("156,800000"));
    EXPECT_THAT(set("157.5"), HasSubstr("156,300000 -> 157,500000"));
    EXPECT_THAT(set("157,6"), HasSubstr("157,500000 -> 157,600000"));
    EXPECT_THAT(AtATerminal({"set", file, "RxSignalling_k6k", "2", "C103.5"}), HasSubstr("None -> C103"));
    EXPECT_THAT(AtATerminal({"get", file, "TxFreq_k6k", "2", "--json"}), HasSubstr("\"157.600000\""));
    EXPECT_EQ(Run({"get", file, "TxFreq_k6k", "2"}).out, "157.600000\n");
    EXPECT_EQ(Run({"set", file, "TxFreq_k6k", "2", "157,7"}).code, 1);
    const std::string script = folder.Write("s", "set " + file + " TxFreq_k6k 2 157.8\n");
    EXPECT_THAT(AtATerminal({"run", script}), HasSubstr("157.600000 -> 157.800000"));
    EXPECT_THAT(AtATerminal({"set", file, "TxFreq_k6k", "2", "--", "157.9"}), HasSubstr("157.900000"));
  }
  SetDecimalSymbol('\0');
  for (const char* name : {"LOCPATH", "LANG", "LC_NUMERIC"}) ::unsetenv(name);
}
}  // namespace
