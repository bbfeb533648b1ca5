#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/Temporary.h"

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

struct Outcome {
  int code = -1;
  std::string out;
  std::string err;
};

std::string ContentOf(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string Sample(const std::string& name) { return std::string(SAMPLES_FOLDER) + "/" + name + ".json"; }

/// The built command line, in a folder of its own.
class CommandLine : public testing::Test {
 protected:
  Outcome Execute(const std::vector<std::string>& words) const {
    std::string line;
    for (const std::string& word : words) line += "'" + word + "' ";
    const std::string out = folder.PathOf("stdout");
    const std::string err = folder.PathOf("stderr");
    const int status = std::system((line + "> " + out + " 2> " + err + " < /dev/null").c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ContentOf(out), ContentOf(err)};
  }

  Outcome Run(std::vector<std::string> words) const {
    words.insert(words.begin(), {WORKBENCH, "--tier", TIER_LIBRARY});
    return Execute(words);
  }

  /// A copy of the sample that may be written to.
  std::string CopyOf(const std::string& sample) const {
    return folder.Write("p.json", ContentOf(Sample(sample)));
  }

  TemporaryFolder folder;
};

TEST_F(CommandLine, TellsByItsExitCodeHowItEnded) {
  const std::string file = CopyOf("marine-harbour");
  const std::string damaged = folder.Write("damaged.json", "{\"version\": ");
  // BandType 9 does not exist, on which the tier ends the application.
  std::string noBand = ContentOf(Sample("minimal"));
  noBand.replace(noBand.find("\"Band\": 5"), 9, "\"Band\": 9");
  const std::string faulty = folder.Write("faulty.json", noBand);
  const struct {
    std::vector<std::string> words;
    int code;
    const char* message;
  } cases[] = {
      {{"--help"}, 0, ""},
      {{"set", "--help"}, 0, ""},
      {{"check", Sample("minimal")}, 0, ""},
      {{"check", file}, 1, ""},
      {{"set", file, "TxFreq_k6k", "1", "780"}, 1, "outside the allowable range for this band 136-174 MHz."},
      {{}, 2, "subcommand"},
      {{"open", file}, 2, ""},
      {{"show", file}, 2, "WHAT"},
      {{"show", file, "6"}, 2, "neither channels nor networks nor a table"},
      {{"show", folder.PathOf("missing"), "channels"}, 2, "No such file"},
      {{"show", folder.Path(), "channels"}, 2, "Is a directory"},
      {{"check", damaged}, 2, "damaged.json:1: "},
      {{"get", file, "TxFreq_k6k", "0"}, 2, "records count from 1"},
      {{"get", file, "TxFreq_k6k", "19"}, 2, "record 19 is outside 1..18"},
      {{"set", file, "TxFreq_k6k", "0", "157"}, 2, "record 0 is outside 1..18"},
      {{"set", file, "TxFreq_k6k", "19", "157"}, 2, "record 19 is outside 1..18"},
      {{"set", file, "TxFreq_k6k", "one", "157"}, 2, "RECORD"},
      {{"set", file, "TxFreqk6k", "1", "157"}, 2, "do you mean TxFreq_k6k"},
      {{"set", file, "5.ChannelTxFreq", "1", "157"}, 2, "is not edited on a form"},
      {{"new", file, "--version", "KD4410.0094"}, 2, "is there already"},
      {{"new", folder.PathOf("n.json"), "--version", "KD4410.0030"}, 2, "KD4410.0029"},
      {{"new", folder.PathOf("n.json"), "--version", "KD4410.0094", "--band", "Z9"}, 2, "A4, B1"},
      {{"--tier", damaged, "check", file}, 2, "damaged.json"},
      {{"check", faulty}, 3, "a fault of the tier"},
      {{"set", faulty, "TxFreq_k6k", "1", "440.5"}, 3, "Nothing was saved"},
  };
  for (const auto& given : cases) {
    const Outcome outcome = Run(given.words);
    EXPECT_EQ(outcome.code, given.code) << testing::PrintToString(given.words) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr(given.message));
    if (given.code > 1) {
      EXPECT_THAT(outcome.out, IsEmpty()) << testing::PrintToString(given.words);
    }
  }
  EXPECT_EQ(ContentOf(file), ContentOf(Sample("marine-harbour")));
  EXPECT_EQ(ContentOf(faulty), noBand);
  EXPECT_FALSE(std::filesystem::exists(folder.PathOf("n.json")));
}

TEST_F(CommandLine, JudgesAFrequencyAsItIsTyped) {
  // On band B1: the exit code and the value that then stands in the file.
  const struct {
    const char* typed;
    int code;
    const char* stands;
  } cases[] = {
      {"abc", 1, "156.800000"},   {"1501", 0, "150.100000"},    {"1501.25", 0, "150.125000"},
      {"0", 0, "000.000000"},     {"77", 1, "156.800000"},      {"780", 1, "156.800000"},
      {"156.8", 0, "156.800000"}, {"243.000", 1, "156.800000"}, {"", 1, "156.800000"},
      {"1E2", 1, "156.800000"},
  };
  for (const auto& given : cases) {
    const std::string file = CopyOf("marine-harbour");
    EXPECT_EQ(Run({"set", file, "TxFreq_k6k", "1", given.typed}).code, given.code) << given.typed;
    EXPECT_EQ(Run({"get", file, "TxFreq_k6k", "1"}).out, std::string(given.stands) + "\n") << given.typed;
  }
}

TEST_F(CommandLine, ADryRunTellsAllAndSavesNothing) {
  const std::string file = CopyOf("marine-harbour");
  const Outcome outcome = Run({"set", file, "TxFreq_k6k", "2", "157.5", "--dry-run"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("156.300000 -> 157.500000"), HasSubstr("5.ChannelTxFreq"),
                                 HasSubstr("156300000 -> 157500000"), HasSubstr("nothing is saved")));
  EXPECT_EQ(ContentOf(file), ContentOf(Sample("marine-harbour")));
}

TEST_F(CommandLine, AQuestionIsAnsweredNoUnlessToldOtherwise) {
  const std::string file = CopyOf("marine-harbour");
  const std::string answers = folder.Write("answers", "no\nyes\n");
  const std::vector<std::string> edit = {"set", file, "TxFreq_k6k", "2", "157.5001"};
  const std::pair<std::vector<std::string>, int> cases[] = {
      {{}, 1}, {{"--answer", "no"}, 1}, {{"--answer", answers}, 1}, {{"--answer", "yes"}, 0}};
  for (const auto& [options, code] : cases) {
    std::vector<std::string> words = edit;
    words.insert(words.end(), options.begin(), options.end());
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.code, code);
    EXPECT_THAT(outcome.err,
                AllOf(HasSubstr("Do you still want to continue?"), HasSubstr(code == 0 ? "Yes" : "No")));
    EXPECT_EQ(ContentOf(file) == ContentOf(Sample("marine-harbour")), code == 1);
  }
}

TEST_F(CommandLine, ARefusalLeavesTheFileAndToldSoInJson) {
  const std::string file = CopyOf("marine-harbour");
  const Outcome outcome = Run({"--json", "set", file, "TxFreq_k6k", "1", "243"});
  EXPECT_EQ(outcome.code, 1);
  const json data = json::parse(outcome.out);
  EXPECT_EQ(data["accepted"], false);
  EXPECT_EQ(data["saved"], false);
  EXPECT_EQ(data["now"], "156.800000");
  EXPECT_EQ(data["messages"][0]["kind"], "error");
  EXPECT_EQ(ContentOf(file), ContentOf(Sample("marine-harbour")));
}

TEST_F(CommandLine, ShowsChannelsAsAPersonReadsThem) {
  const Outcome outcome = Run({"show", Sample("marine-harbour"), "channels"});
  EXPECT_THAT(outcome.out,
              AllOf(HasSubstr("16  156.800000  156.800000  None     None           1  High\n"),
                    HasSubstr("101  163.125000  158.525000  C103.5   C103.5         1  High\n")));
  for (std::size_t start = 0; start < outcome.out.size();) {
    const std::size_t end = outcome.out.find('\n', start);
    EXPECT_LE(end - start, 80U);
    start = end + 1;
  }
  const json data = json::parse(Run({"show", Sample("city-fleet"), "channels", "--json"}).out);
  EXPECT_EQ(data.size(), 20U);
  EXPECT_EQ(data[0]["rxTone"], "D023");
  EXPECT_EQ(data[0]["network"], "2");
}

TEST_F(CommandLine, CheckListsAllFindingsEachOnce) {
  const json marine = json::parse(Run({"--json", "check", Sample("marine-harbour")}).out);
  EXPECT_EQ(marine["count"], 11);  // one for each channel that transmits in the maritime range
  for (const json& finding : marine["findings"]) {
    EXPECT_EQ(finding["kind"], "notice");
    EXPECT_EQ(finding["rule"], "TxFreq_k6k");
  }
  EXPECT_EQ(marine["findings"][0]["identity"], "16");

  // A value beyond the schema's limits, a channel outside its band, one off the channel steps.
  std::string damaged = ContentOf(Sample("minimal"));
  damaged.replace(damaged.find("440500000"), 9, "780000000");
  damaged.replace(damaged.rfind("440500000"), 9, "440500001");
  damaged.replace(damaged.find("\"TxPower_k6k\": 4"), 16, "\"TxPower_k6k\": 9");
  const Outcome outcome = Run({"--json", "check", folder.Write("d.json", damaged)});
  EXPECT_EQ(outcome.code, 1);
  std::vector<std::string> found;
  const json findings = json::parse(outcome.out)["findings"];
  for (const json& finding : findings) {
    found.push_back(finding["kind"].get<std::string>() + " " + finding["rule"].get<std::string>());
  }
  EXPECT_THAT(found, testing::UnorderedElementsAre("error range", "error RxFreq_k6k", "question TxFreq_k6k",
                                                   "question Band_k6k"))
      << outcome.out;
}

TEST_F(CommandLine, AScriptStopsAtTheFirstLineThatFails) {
  const std::string file = CopyOf("marine-harbour");
  const std::string script = folder.Write("script",
                                          "# two edits\n"
                                          "set \"" +
                                              file +
                                              "\" TxFreq_k6k 1 \"157.5\"  # fine\n"
                                              "\n"
                                              "set " +
                                              file +
                                              " TxFreq_k6k 2 780\n"
                                              "set " +
                                              file +
                                              " NoSuchField 2 780\n"
                                              "set " +
                                              file + " TxFreq_k6k 3 157.6\n");
  const Outcome stopped = Run({"run", script});
  EXPECT_EQ(stopped.code, 1);
  EXPECT_EQ(Run({"get", file, "TxFreq_k6k", "1"}).out, "157.500000\n");
  EXPECT_EQ(Run({"get", file, "TxFreq_k6k", "3"}).out, "156.400000\n");

  const Outcome all = Run({"run", script, "--keep-going", "--json"});
  EXPECT_EQ(all.code, 2);
  EXPECT_THAT(all.err, HasSubstr("script:5: \"NoSuchField\" is no field"));
  EXPECT_EQ(Run({"get", file, "TxFreq_k6k", "3"}).out, "157.600000\n");
  EXPECT_EQ(json::parse(all.out).size(), 4U);

  const Outcome unclosed = Run({"run", folder.Write("u", "get \"a b\n")});
  EXPECT_EQ(unclosed.code, 2);
  EXPECT_THAT(unclosed.err, HasSubstr("u:1: a quote is not closed"));
}

TEST_F(CommandLine, ANewPersonalityOfEachModelIsSound) {
  for (const char* version : {"KD4410.0029", "KD4410.0094", "KE2210 Rx.0087", "KE2210 Tx.0094"}) {
    const std::string file = folder.PathOf("new.json");
    EXPECT_EQ(Run({"new", file, "--version", version, "--band", "b1", "--force"}).code, 0) << version;
    EXPECT_THAT(Run({"info", file}).out, AllOf(HasSubstr(version), HasSubstr("B1 (136-174 MHz)")));
    const Outcome checked = Run({"check", file});
    EXPECT_EQ(checked.out, "0 findings\n") << version << checked.err;
  }
}

TEST_F(CommandLine, OutputThatCanNotBeWrittenIsNoSuccess) {
  const Outcome outcome = Execute({"/bin/sh", "-c", std::string(WORKBENCH) + " bands > /dev/full"});
  EXPECT_EQ(outcome.code, 2);
}

TEST_F(CommandLine, TheSamplesAreWhatTheGeneratorWrites) {
  const auto generator = std::filesystem::path(WORKBENCH).parent_path() / "kd4410-make-samples";
  const std::string data = std::filesystem::path(TIER_LIBRARY).parent_path().string();
  const Outcome outcome =
      Execute({generator.string(), folder.Path(), "--tier", TIER_LIBRARY, "--data", data});
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  for (const char* name : {"minimal", "marine-harbour", "city-fleet", "full"}) {
    EXPECT_TRUE(ContentOf(folder.PathOf(std::string(name) + ".json")) == ContentOf(Sample(name))) << name;
  }
}

TEST_F(CommandLine, AKilledSaveLeavesTheOldContentOrTheNew) {
  const std::string script = std::string(SAMPLES_FOLDER) + "/../tests/kill_during_save.sh";
  const Outcome outcome = Execute({"bash", script, WORKBENCH, TIER_LIBRARY, Sample("full"), "12"});
  EXPECT_EQ(outcome.code, 0) << outcome.out << outcome.err;
}

}  // namespace
