#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

#include "tests/workbench/ProcessCommand.h"

namespace {
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using Given = std::vector<std::string>;
using Outcome = ProcessOutcome;

class CommandLine : public ProcessCommand {
 protected:
  std::string FrequencyOf(const char* record) const { return Run({"get", file, "TxFreq_k6k", record}).out; }
};

TEST_F(CommandLine, TellsByItsExitCodeHowItEnded) {
  const std::string damaged = folder.Write("damaged.json", "{\"version\": ");
  const std::string fresh = folder.PathOf("n.json");
  // BandType 9 does not exist, on which the tier ends the application.
  std::string noBand = ContentOf(Sample("minimal"));
  noBand.replace(noBand.find("\"Band\": 5"), 9, "\"Band\": 9");
  const std::string faulty = folder.Write("faulty.json", noBand);
  const std::tuple<Given, int, const char*> cases[] = {
      {{"check", Sample("minimal")}, 0, ""},
      {{"check", file}, 1, ""},
      {{"set", file, "TxFreq_k6k", "1", "780"}, 1, "outside the allowable range for this band 136-174 MHz."},
      {{}, 2, "give a command"},
      {{"show", file, "6"},
       2,
       "\"6\" is no table of version KD4410.0094; what can be shown is channels, networks"},
      {{"show", folder.PathOf("missing"), "channels"}, 2, "No such file"},
      {{"check", damaged}, 2, "damaged.json:1: "},
      {{"get", file, "TxFreq_k6k", "0"}, 2, "records count from 1"},
      {{"set", file, "TxFreq_k6k", "20", "157"}, 2, "record 20 is outside 1..19"},
      {{"set", file, "TxFreqk6k", "1", "157"}, 2, "did you mean TxFreq_k6k"},
      {{"set", file, "5.ChannelTxFreq", "1", "157"}, 2, "is not edited on a form"},
      {{"new", file, "--version", "KD4410.0094"}, 2, "is there already"},
      {{"new", fresh, "--version", "KD4410.0030"}, 2, "KD4410.0029"},
      {{"new", fresh, "--version", "KD4410.0094", "--band", "Z9"}, 2, "A4, B1"},
      {{"--tier", damaged, "check", file}, 2, "damaged.json"},
      {{"enabled", file, "SecurityPIN9"}, 2, "did you mean SecurityPIN1"},
      {{"enabled", file, "5.ChannelTxFreq"}, 2, "has no control"},
      {{"enabled", file, "SecurityPIN1", "0"}, 2, "records count from 1"},
      {{"enabled", file, "--", "SecurityPIN1", "-1"}, 2, "records count from 1"},
      {{"enabled", file}, 2, "give one of these"},
      {{"enabled", file, "SecurityPIN1", "--all"}, 2, "give one of these"},
      {{"enabled", file, "--form", "PTT", "--all"}, 2, "give one of these"},
      {{"enabled", file, "--all", "--why"}, 2, "give its UIID"},
      {{"enabled", file, "--all", "--record", "0"}, 2, "records count from 1"},
      {{"form", file, "USRCTLPTTS"}, 2, "did you mean USRCTLPTT"},
      {{"form", file}, 2, "FILE and FORM"},
      {{"form", file, "Channels", "--record", "20"}, 2, "record 20 is outside 1..19"},
      {{"form", file, "PTT", "--record", "1"}, 2, "does not show one record"},
      {{"check", faulty}, 2, "the tier can not open the file"},
      {{"set", faulty, "TxFreq_k6k", "1", "440.5"}, 2, "the tier can not open the file"},
  };
  for (const auto& [words, code, message] : cases) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.code, code) << testing::PrintToString(words) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr(message));
    EXPECT_TRUE(code < 2 || outcome.out.empty()) << outcome.out;
  }
  EXPECT_EQ(ContentOf(file), marine);
  EXPECT_EQ(ContentOf(faulty), noBand);
  EXPECT_FALSE(std::filesystem::exists(fresh));
}

TEST_F(CommandLine, AQuestionIsAnsweredNoUnlessToldOtherwise) {
  const std::string answers = folder.Write("answers", "no\nyes\n");
  const std::pair<Given, int> cases[] = {{{}, 1}, {{"--answer", answers}, 1}, {{"--answer", "yes"}, 0}};
  for (const auto& [options, code] : cases) {
    Given words = {"set", file, "TxFreq_k6k", "2", "157.5001"};
    words.insert(words.end(), options.begin(), options.end());
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.code, code);
    EXPECT_THAT(outcome.err,
                AllOf(HasSubstr("Do you still want to continue?"), HasSubstr(code == 0 ? "Yes" : "No")));
    EXPECT_EQ(ContentOf(file) == marine, code == 1);
  }
}

TEST_F(CommandLine, ARefusalOrADryRunLeavesTheFileAndTellsSo) {
  const Outcome dry = Run({"set", file, "TxFreq_k6k", "2", "157.5", "--dry-run"});
  EXPECT_EQ(dry.code, 0);
  EXPECT_THAT(dry.out, AllOf(HasSubstr("156.300000 -> 157.500000"), HasSubstr("5.ChannelTxFreq"),
                             HasSubstr("156300000 -> 157500000"), HasSubstr("nothing is saved")));
  const json told = json::parse(Run({"--json", "set", file, "TxFreq_k6k", "1", "243"}).out);
  EXPECT_EQ(told["accepted"], false);
  EXPECT_EQ(told["saved"], false);
  EXPECT_EQ(told["messages"][0]["kind"], "error");
  EXPECT_EQ(ContentOf(file), marine);
}

TEST_F(CommandLine, AnEditThatASaveWouldLoseIsRefused) {
  const Outcome outcome = Run({"set", Sample("city-fleet"), "FreeFormSequence5", "1", "2", "--dry-run"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_THAT(outcome.out, HasSubstr("a save would lose the value"));
}

TEST_F(CommandLine, CheckListsAllFindingsEachOnce) {
  const json told = json::parse(Run({"--json", "check", file}).out);
  EXPECT_EQ(std::ranges::count(told["findings"], "TxFreq_k6k", [](const json& one) { return one["rule"]; }),
            11);  // one for each channel that transmits in the maritime range

  // A value beyond the schema's limits, a channel outside its band, one off the channel steps.
  std::string damaged = ContentOf(Sample("minimal"));
  damaged.replace(damaged.find("440500000"), 9, "780000000");
  damaged.replace(damaged.rfind("440500000"), 9, "440500001");
  damaged.replace(damaged.find("\"TxPower_k6k\": 4"), 16, "\"TxPower_k6k\": 9");
  const Outcome outcome = Run({"--json", "check", folder.Write("d.json", damaged)});
  Given found;
  const json findings = json::parse(outcome.out)["findings"];
  for (const json& finding : findings) {
    found.push_back(finding["kind"].get<std::string>() + " " + finding["rule"].get<std::string>());
  }
  EXPECT_THAT(found, testing::UnorderedElementsAre("error range", "error RxFreq_k6k", "question TxFreq_k6k",
                                                   "question Band_k6k"));
}

TEST_F(CommandLine, ADisabledControlTellsWhatItLacksAndIsEnabledByIt) {
  const Outcome disabled = Run({"enabled", file, "AllowSDMOverwrite", "--why"});
  EXPECT_EQ(disabled.code, 1);
  EXPECT_THAT(disabled.out, testing::StartsWith("disabled\nenabled when: "));
  EXPECT_THAT(disabled.out, AllOf(HasSubstr("DataSDMOptionsEnabled"), HasSubstr("to enable it: Short Data")));
  EXPECT_EQ(Run({"set", file, "DataSDMOptionsEnabled", "1", "1"}).code, 0);
  const json why = json::parse(Run({"--json", "enabled", file, "allowsdmoverwrite", "--why"}).out);
  EXPECT_EQ(why["enabled"], true);
  EXPECT_EQ(why["why"]["readings"][0]["holds"], true);
  EXPECT_EQ(why["why"]["missing"], "");
  EXPECT_THAT(Run({"enabled", file, "TxFreq_k6k", "--why"}).out, HasSubstr("it has no condition"));
  EXPECT_EQ(Run({"enabled", file, "StealthIndicator", "--why"}).out, "disabled\nenabled when: never\n");
}

TEST_F(CommandLine, AControlOfANetworkIsThatOfTheRecordThatWasGiven) {
  const std::string fleet = folder.Write("fleet.json", ContentOf(Sample("city-fleet")));
  ASSERT_EQ(Run({"set", fleet, "EmergencyEnabled", "1", "0"}).code, 0);
  ASSERT_EQ(Run({"set", fleet, "EmergencyEnabled", "2", "1"}).code, 0);
  // Record 99: a control is drawn before its record exists.
  const std::pair<const char*, const char*> cases[] = {
      {"1", "disabled\n"}, {"2", "enabled\n"}, {"99", "enabled\n"}};
  for (const auto& [record, state] : cases) {
    EXPECT_EQ(Run({"enabled", fleet, "EmSignallingType", record}).out, state) << record;
    const Outcome form = Run({"--json", "enabled", fleet, "--form", "emergency", "--record", record});
    EXPECT_EQ(form.code, 0);
    const json controls = json::parse(form.out)["controls"];
    for (const json& control : controls) {
      if (control["uiid"] != "EmSignallingType") continue;
      EXPECT_EQ(std::to_string(control["record"].get<int>()), record);
      EXPECT_EQ(control["enabled"], *state == 'e');
    }
  }
}

TEST_F(CommandLine, EachControlIsListedOnceAndOnItsForm) {
  std::set<std::string> uiids;
  std::set<std::string> onEmergency;
  const json all = json::parse(Run({"--json", "enabled", file, "--all"}).out)["controls"];
  for (const json& control : all) {
    const std::string uiid = control["uiid"];
    EXPECT_TRUE(uiids.insert(uiid).second) << uiid;
    if (control["form"] == "Emergency") onEmergency.insert(uiid);
  }
  EXPECT_TRUE(uiids.contains("MDC1200ANISequence"));  // on no form with a check
  std::set<std::string> listed;
  const json ofForm =
      json::parse(Run({"--json", "enabled", file, "--form", "UsrCtlEmergencyKE2210"}).out)["controls"];
  for (const json& control : ofForm) listed.insert(control["uiid"]);
  EXPECT_EQ(listed, onEmergency);
  EXPECT_TRUE(listed.contains("StealthIndicator"));
}

TEST_F(CommandLine, AFormIsLeftWithoutKeepingAnything) {
  const Outcome left = Run({"form", file, "channels", "--record", "18"});
  EXPECT_EQ(left.code, 0) << left.err;
  EXPECT_EQ(left.out, "Channels (USRCTLCHANNELSKD4410), record 18: the form may be left\n");
  const json told = json::parse(Run({"--json", "form", file, "USRCTLPTT"}).out);
  EXPECT_EQ(told["mayBeLeft"], true);
  EXPECT_EQ(json::parse(Run({"--json", "form", "--list"}).out)["forms"].size(), 17U);
  EXPECT_EQ(ContentOf(file), marine);
}

TEST_F(CommandLine, AFormThatMayNotBeLeftIsANoWithItsReason) {
  ASSERT_EQ(Run({"set", file, "EmChannelType", "2", "1"}).code, 0);
  ASSERT_EQ(Run({"set", file, "EmCyclingType", "3", "0"}).code, 0);
  const std::tuple<std::string, int, const char*> cases[] = {
      {"1", 0, ""}, {"2", 0, ""}, {"3", 1, "A callout and/or cycling phase must be specified"}};
  for (const auto& [record, code, text] : cases) {
    const Outcome left = Run({"form", file, "emergency", "--record", record});
    EXPECT_EQ(left.code, code) << record;
    EXPECT_THAT(left.err, HasSubstr(text));
  }
}

/// From burst to sequence to the rules that ask for it, each step in a file of its own.
TEST_F(CommandLine, AnEmergencyNeedsTheSequencesOfItsSystem) {
  auto personality = nlohmann::ordered_json::parse(ContentOf(Sample("full")));
  for (const std::size_t blank : {4U, 6U}) {
    personality["tables"]["49"][blank] = {{"FreeFormSigSysID", 2}, {"FreeFormSeqID", blank}};
  }
  const std::string full = folder.Write("full.json", personality.dump());
  EXPECT_EQ(Run({"set", full, "EmCyclingANI", "1", "1"}).code, 1);
  EXPECT_EQ(Run({"set", full, "FreeFormBurstR1", "5", "12345"}).code, 0);
  EXPECT_EQ(Run({"get", full, "FreeFormSequence5", "1"}).out, "12345\n");
  EXPECT_EQ(Run({"set", full, "EmCyclingANI", "1", "1"}).code, 0);
  EXPECT_EQ(Run({"set", full, "EmCalloutType", "1", "2"}).code, 0);
  const Outcome lacking = Run({"check", full});
  EXPECT_EQ(lacking.code, 1);
  EXPECT_THAT(lacking.out, HasSubstr("You have activated emergency callout on network 1,"));
  EXPECT_EQ(Run({"set", full, "FreeFormBurstR1", "7", "99"}).code, 0);
  EXPECT_EQ(Run({"check", full}).code, 0);
}

TEST_F(CommandLine, AScriptStopsAtTheFirstLineThatFails) {
  const std::string script =
      folder.Write("script", "# two edits\nset \"" + file + "\" TxFreq_k6k 1 \"157.5\"  # fine\n\nset " +
                                 file + " TxFreq_k6k 2 780\nset " + file + " NoSuchField 2 780\nset " + file +
                                 " TxFreq_k6k 3 157.6\n");
  EXPECT_EQ(Run({"run", script}).code, 1);
  EXPECT_EQ(FrequencyOf("1") + FrequencyOf("3"), "157.500000\n156.400000\n");
  const Outcome all = Run({"run", script, "--keep-going", "--json"});
  EXPECT_EQ(all.code, 2);
  EXPECT_THAT(all.err, HasSubstr("script:5: \"NoSuchField\" is no field"));
  EXPECT_EQ(FrequencyOf("3"), "157.600000\n");
  EXPECT_EQ(json::parse(all.out)["lines"].size(), 4U);
  EXPECT_THAT(Run({"run", folder.Write("u", "get \"a b\n")}).err, HasSubstr("u:1: a quote is not closed"));
}

TEST_F(CommandLine, TheProgramTellsItsVersionAndWhatWasMeant) {
  EXPECT_THAT(Run({"--version"}).out, testing::StartsWith("kd4410 "));
  EXPECT_THAT(Run({"chekc", file}).err, HasSubstr("there is no command chekc; did you mean check"));
}

TEST_F(CommandLine, ANewPersonalityOfEachModelIsSound) {
  const std::pair<const char*, const char*> cases[] = {
      {"KD4410.0029", "[final 20]\n\n1 finding\n"},  // has a scan group, that wants its channels
      {"KD4410.0094", "0 findings\n"},
      {"KE2210 Rx.0087", "0 findings\n"},
      {"KE2210 Tx.0094", "0 findings\n"}};
  for (const auto& [version, found] : cases) {
    EXPECT_EQ(Run({"new", file, "--version", version, "--band", "b1", "--force"}).code, 0) << version;
    EXPECT_THAT(Run({"info", file}).out, AllOf(HasSubstr(version), HasSubstr("B1 (136-174 MHz)")));
    EXPECT_THAT(Run({"check", file}).out, testing::EndsWith(found)) << version;
  }
}

TEST_F(CommandLine, TheSamplesAreWhatTheGeneratorWrites) {
  const auto generator = std::filesystem::path(kWorkbench).parent_path() / "kd4410-make-samples";
  const std::string data = std::filesystem::path(kTierLibrary).parent_path().string();
  const Outcome outcome =
      Execute({generator.string(), folder.Path(), "--tier", kTierLibrary, "--data", data});
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  const auto isWritten = [&](const std::string& name) {
    return ContentOf(folder.PathOf(name + ".json")) == ContentOf(Sample(name));
  };
  for (const char* name : kSamples) EXPECT_TRUE(isWritten(name)) << name;
  for (const char* name : kOldSamples) EXPECT_TRUE(isWritten(name)) << name;
}

TEST_F(CommandLine, AKilledSaveLeavesTheOldContentOrTheNew) {
  const std::string script = SAMPLES_FOLDER "/../tests/kill_during_save.sh";
  const Outcome outcome = Execute({"bash", script, kWorkbench, kTierLibrary, Sample("city-fleet"), "12"});
  EXPECT_EQ(outcome.code, 0) << outcome.out << outcome.err;
}
}  // namespace
