#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/workbench/InProcessCommand.h"

namespace {
using nlohmann::json;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// The address books of Selcall at the command line, on a copy of the city's fleet: 37 bursts of system 1, 17
/// of system 2, whose channels are 13 to 16.
class SelcallCommands : public InProcessCommand {
 protected:
  const std::string file = folder.Write("fleet.json", ContentOf(Sample("city-fleet")));
  json Told() const { return json::parse(out.str()); }
  std::string Burst(const char* uiid, const char* row, const char* system) {
    EXPECT_EQ(Run({"get", file, uiid, row, "--selcall", system}), ExitCode::Done) << messages;
    return out.str();
  }
};

TEST_F(SelcallCommands, ABurstIsEditedInTheSystemThatIsNamedAndItsChannelsAreListed) {
  EXPECT_EQ(Run({"set", file, "BurstSequence2_k6k", "2", "35999", "--selcall", "2", "--answer", "yes"}),
            ExitCode::Done);
  EXPECT_THAT(out.str(), AllOf(HasSubstr("35102 -> 35999\n"), HasSubstr("TXCallBurstIndex_k6k"),
                               HasSubstr("Saved.\n"), HasSubstr("30.FixedFormatBurstSeq")));
  EXPECT_EQ(Burst("BurstSequence2_k6k", "2", "2"), "35999\n");
  EXPECT_EQ(Burst("BurstSequence2_k6k", "2", "1"), "21012\n");
  EXPECT_EQ(Run({"get", file, "TXCallBurstIndex_k6k", "14"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "35999\n");
  EXPECT_EQ(Run({"check", file}), ExitCode::Done) << out.str();
}

TEST_F(SelcallCommands, WhatIsRefusedLeavesTheFile) {
  const std::string before = ContentOf(file);
  const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
      {"BurstSequence2_k6k", "2", "35999", "no", "[y/N] No"},
      {"BurstSequence2_k6k", "2", "", "no", "[y/N] No"},
      {"BurstSequence2_k6k", "9", "359", "yes", "number of 'R's in the Tx Format"},
      {"BurstSequence2_k6k", "9", "35E99", "yes", "the repeat tone 'E'"},
      {"BurstSequence2_k6k", "9", "35101", "yes", "must be unique"},
      {"BurstSequence3_k6k", "12", "100", "yes", "between 0 and 99 or V"},
      {"BurstSequence2_k6k", "9",
       "3\xC3\xA4"
       "999",
       "yes", ""},
      {"BurstSequence4_k6k", "1", "123456789012345678901234567890123", "yes", ""},
      {"TxFormat_k6k", "2", "RRX", "yes", ""},
      {"BasedOnToneSet", "2", "10", "yes", ""},  // the mark of the radio is no set to choose
  };
  for (const auto& [uiid, row, typed, answer, told] : cases) {
    EXPECT_EQ(Run({"set", file, uiid, row, typed, "--selcall", "2", "--answer", answer}), ExitCode::No)
        << uiid << typed;
    EXPECT_THAT(messages, HasSubstr(told));
    EXPECT_THAT(out.str(), EndsWith("The file is as it was.\n"));
    EXPECT_TRUE(ContentOf(file) == before);
  }
  EXPECT_EQ(Run({"set", file, "BurstSequence5_k6k", "6", "123"}), ExitCode::CouldNot);
  EXPECT_THAT(messages, HasSubstr("record 6 is outside 1..5, the records of table 1106"));
  EXPECT_EQ(Run({"set", file, "CurrentSelcallNumber", "1", "1"}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("no file holds it; --selcall N shows another one\nThe file is as"));
}

TEST_F(SelcallCommands, TheOrderInWhichSystemsWereShownIsNoChange) {
  // Each of the four systems has statuses, and a burst of any kind in slot 3.
  for (const char* system : {"1", "2", "3", "4"}) {
    EXPECT_EQ(Run({"set", Sample("full"), "BurstSequence5_k6k", "3", "15", "--selcall", system, "--dry-run"}),
              ExitCode::Done);
    EXPECT_THAT(out.str(), testing::Not(HasSubstr("1111."))) << system;
    EXPECT_EQ(Run({"set", Sample("full"), "ControlStatusType", "1", "3", "--selcall", system, "--answer",
                   "yes", "--dry-run"}),
              ExitCode::Done)
        << out.str();
    EXPECT_THAT(out.str(), AllOf(HasSubstr("15 -> 3\n"), HasSubstr("3 -> 15\n"))) << system;
  }
}

TEST_F(SelcallCommands, CapitalsAreMadeOfSmallTonesAndAWordForNoneEmptiesASequence) {
  EXPECT_EQ(Run({"set", file, "FreeFormBurstR1", "1", "1b2"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("21001 -> 1B2\n"));
  EXPECT_EQ(Run({"set", file, "RxFormat_k6k", "2", "rrrrr", "--answer", "yes"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("RRRRR-SS -> RRRRR\n"));
  EXPECT_EQ(Run({"set", file, "RxDecodeSeq1_k6k", "1", "none"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("21001 -> \n"));
}

TEST_F(SelcallCommands, EveryVerbTakesTheRecordsThatItsFormsShow) {
  for (const char* option : {"--channel", "--network", "--selcall", "--dtmf"}) {
    EXPECT_EQ(Run({"form", "--list", option, "1"}), ExitCode::Done) << option;
    EXPECT_EQ(Run({"get", file, "TxPower_k6k", "1", option, "1"}), ExitCode::Done) << option;
  }
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"--selcall", "3", "--selcall 3: there is no such record; table 29 (Selcall systems) has 2"},
      {"--selcall", "0", "--selcall 0: "},
      {"--channel", "x", "--channel x: there is no such record; table 5 (Channels) has 23"},
      {"--mdc1200", "1", "--mdc1200 1: there is no such record; table 80 "},
      {"--two-tone", "1", "table 37 "},
      {"--group", "3", "table 16 "}};
  for (const auto& [option, number, told] : cases) {
    for (const char* verb : {"check", "info"}) {
      EXPECT_EQ(Run({verb, file, option, number}), ExitCode::CouldNot) << option;
      EXPECT_THAT(messages, HasSubstr(told));
    }
  }
}

TEST_F(SelcallCommands, ShowTellsTheAddressBookAndWhoUsesIt) {
  EXPECT_EQ(Run({"show", file, "selcall", "2"}), ExitCode::Done);
  EXPECT_THAT(out.str(), AllOf(StartsWith("Selcall system 2, record 2\n"),
                               HasSubstr("Tx Format          RRRRR-CCCCC-SS\n"),
                               HasSubstr("  Tx Call Bursts\n    1  35101  channel 13\n"),
                               HasSubstr("1  01  channel 13 to 16\n"), Not(HasSubstr("Repeater Bursts"))));
  EXPECT_EQ(Run({"show", file, "selcall", "--json"}), ExitCode::Done);
  EXPECT_EQ(Told()["systems"][0]["bursts"].size(), 39U);
  EXPECT_EQ(Told()["systems"][1]["bursts"][1]["channels"], json::array({13}));
  EXPECT_EQ(Run({"show", file, "selcall", "--all", "--json"}), ExitCode::Done);
  EXPECT_EQ(Told()["systems"][1]["bursts"].size(), 141U);
  EXPECT_EQ(Run({"show", file, "selcall", "3"}), ExitCode::CouldNot);
  EXPECT_EQ(Run({"show", file, "channels", "1"}), ExitCode::CouldNot);
  EXPECT_EQ(Run({"show", Sample("minimal"), "selcall"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "The personality has no Selcall system.\n");
}

TEST_F(SelcallCommands, AChannelIsOfferedTheBurstsOfItsSystem) {
  EXPECT_EQ(Run({"combo", file, "CallerIDBurstIndex_k6k", "1"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "None\n21001\n21002\n");
  EXPECT_EQ(Run({"combo", file, "CallerIDBurstIndex_k6k", "13"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "None\n35000\n");
  EXPECT_EQ(Run({"combo", file, "CallerIDBurstIndex_k6k", "17"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "None\n");
}

TEST_F(SelcallCommands, CheckJudgesTheBurstsOfEverySystemAndNoneAgainstItself) {
  nlohmann::ordered_json document = nlohmann::ordered_json::parse(ContentOf(file));
  nlohmann::ordered_json& bursts = document["tables"]["30"];
  const auto record = [](int system, int slot) { return (system - 1) * 141 + slot; };
  bursts[record(1, 9)]["FixedFormatBurstSeq"] =
      bursts[record(1, 8)]["FixedFormatBurstSeq"];  // row 2 is row 1
  bursts[record(2, 12)]["FixedFormatBurstSeq"] = {3, 5};
  folder.Write("fleet.json", document.dump());
  EXPECT_EQ(Run({"check", file, "--json"}), ExitCode::No);
  std::vector<std::string> places;
  const json told = Told();
  for (const json& finding : told["findings"]) {
    places.push_back(finding["rule"].get<std::string>() + " " + finding["identity"].dump() + "/" +
                     finding["record"].dump());
  }
  EXPECT_THAT(places, testing::ElementsAre("BurstSequence2_k6k 1/1", "BurstSequence2_k6k 1/2",
                                           "TxFormat_k6k 2/2", "BurstSequence2_k6k 2/5"));
}

TEST_F(SelcallCommands, AMarkOfTheRadioThatNoSaveTakesIsNamedBeforeTheSaveBegins) {
  nlohmann::ordered_json document = nlohmann::ordered_json::parse(ContentOf(file));
  document["tables"]["48"][1]["SelcallToneSet"] = 10;
  const std::string before = document.dump();
  folder.Write("fleet.json", before);
  EXPECT_EQ(Run({"check", file}), ExitCode::Done) << out.str();
  EXPECT_EQ(Run({"set", file, "TxPower_k6k", "1", "2"}), ExitCode::CouldNot);
  EXPECT_THAT(messages, HasSubstr("fleet.json: ToneSet, record 2: \"10\" is shown but can not be saved"));
  EXPECT_TRUE(ContentOf(file) == before);
}

TEST_F(SelcallCommands, AFaultOfAConversionNamesItsPlace) {
  nlohmann::ordered_json document = nlohmann::ordered_json::parse(ContentOf(file));
  document["tables"]["29"][1]["TxFormat"] = {0, 2};                   // a status of one tone
  document["tables"]["30"][141 + 109]["FixedFormatBurstSeq"] = {17};  // which "G" is not
  for (const char* table : {"5", "7", "16", "18"})
    document["tables"][table] = nlohmann::ordered_json::array();
  folder.Write("fleet.json", document.dump());
  EXPECT_EQ(Run({"check", file}), ExitCode::CouldNot);
  EXPECT_THAT(messages,
              HasSubstr("fleet.json:1: tables.30[251]: the tier can not open the file: 30.UGBurstSeq, "
                        "record 251, to the forms: the tier met"));
}

TEST_F(SelcallCommands, AFrequencyIsOneOfItsBaseSet) {
  EXPECT_EQ(Run({"set", file, "CustomFrequencies0", "1", "1000"}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("\"1000\" is not in the list"));
  EXPECT_EQ(Run({"combo", file, "CustomFrequencies0", "1"}), ExitCode::Done);
  EXPECT_THAT(out.str(), StartsWith("930\n991\n1055\n"));
}

/// The list of what every save lays out anew is told apart from the edit.
TEST_F(SelcallCommands, TheStandardToneSetsAreLaidOutAnewByNobodysEdit) {
  nlohmann::ordered_json document = nlohmann::ordered_json::parse(ContentOf(file));
  document["tables"]["74"] = nlohmann::ordered_json::array();
  folder.Write("fleet.json", document.dump());
  EXPECT_EQ(Run({"set", file, "TxPower_k6k", "1", "2"}), ExitCode::Done);
  EXPECT_THAT(
      out.str(),
      EndsWith("Channels 1  High -> Low\nLaid out anew, as by every save: table 74 (Standard tone sets)\n"));
  EXPECT_EQ(Run({"set", file, "TxPower_k6k", "1", "3", "--json"}), ExitCode::Done);
  EXPECT_EQ(Told()["laidOutAnew"], json::array());
}

TEST_F(SelcallCommands, ASystemComesAndGoesWithoutATrace) {
  const std::string before = ContentOf(file);
  EXPECT_EQ(Run({"add", file, "selcall"}), ExitCode::Done);
  EXPECT_THAT(out.str(), AllOf(StartsWith("Selcall systems, record 3 (Selcall System ID 3): added\n"),
                               HasSubstr("Fixed-format bursts      records  283 -> 424\n")));
  EXPECT_EQ(Run({"add", file, "Selcall6000", "--count", "2"}), ExitCode::No);
  EXPECT_THAT(out.str(), StartsWith("Selcall systems, new record: a personality"));  // not the one that fits
  EXPECT_EQ(Run({"add", file, "Selcall6000"}), ExitCode::Done);
  EXPECT_EQ(Run({"add", file, "selcall"}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("holds at most 4 records of table 29"));
  EXPECT_EQ(Run({"set", file, "TxFormat_k6k", "4", "RRRRR", "--answer", "no"}), ExitCode::Done) << messages;
  EXPECT_EQ(Run({"delete", file, "selcall", "1"}), ExitCode::No);
  EXPECT_THAT(messages, HasSubstr("is being used on one or more Networks and can not be deleted"));
  EXPECT_EQ(Run({"delete", file, "selcall", "3", "--selcall", "4"}), ExitCode::Done);
  EXPECT_EQ(Run({"delete", file, "selcall", "3", "--selcall", "2"}), ExitCode::Done);
  const std::string original = folder.Write("original.json", before);
  EXPECT_EQ(Run({"diff", original, file}), ExitCode::Done) << out.str();
}

TEST_F(SelcallCommands, AControlStatusIsAddedWhereThereIsRoomForIt) {
  EXPECT_EQ(Run({"add", file, "control-status", "--selcall", "2"}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("each of the types 0 to 15 is in use"));
  EXPECT_EQ(Run({"add", file, "control-status"}), ExitCode::No);  // system 1 receives none
  EXPECT_THAT(messages, HasSubstr("There is no 'S' burst present in the Rx Format"));
  EXPECT_EQ(Run({"delete", file, "control-status", "5", "--selcall", "2"}), ExitCode::Done);
  EXPECT_EQ(Run({"add", file, "control-status", "--selcall", "2"}), ExitCode::Done) << messages;
  EXPECT_EQ(Burst("ControlStatusValue", "16", "2") + Burst("ControlStatusType", "16", "2"), "5\n4\n");
  EXPECT_EQ(Run({"set", file, "ControlStatusType", "16", "3", "--selcall", "2"}), ExitCode::No);
  EXPECT_THAT(messages, HasSubstr("has been used by Control Status Value 4."));
  EXPECT_EQ(Run({"set", file, "ControlStatusType", "16", "3", "--selcall", "2", "--answer", "yes"}),
            ExitCode::Done);
  EXPECT_EQ(Burst("ControlStatusType", "4", "2"), "4\n");
  for (const char* refused : {"G", "VV", "-", "256", "3"}) {
    EXPECT_EQ(Run({"set", file, "ControlStatusValue", "1", refused, "--selcall", "2"}), ExitCode::No)
        << refused;
  }
  EXPECT_EQ(Run({"set", file, "ControlStatusValue", "1", "77", "--selcall", "2"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("Control statuses 2/77"));
  EXPECT_EQ(Run({"show", file, "selcall", "2"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("  Control Statuses\n    77  type 0   Rx\n     2  type 1   Rx, Tx\n"));
}

TEST_F(SelcallCommands, WhatTheFormsLeaveOutIsToldAndNotLost) {
  nlohmann::ordered_json document = nlohmann::ordered_json::parse(ContentOf(file));
  document["tables"]["32"][13]["SignalSystemId"] = 9;
  const std::string before = document.dump();
  folder.Write("fleet.json", before);
  const char* told =
      "fleet.json: 32.SignalSystemId, record 14: there is no Selcall system 9; the control statuses "
      "up to record 16 are not on the forms";
  EXPECT_EQ(Run({"get", file, "ControlStatusValue", "13", "--selcall", "2"}), ExitCode::Done);
  EXPECT_THAT(messages, HasSubstr(told));
  EXPECT_EQ(Run({"check", file}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("up to record 16 are not on the forms\n  - 32.SignalSystemId"));
  EXPECT_EQ(Run({"set", file, "TxPower_k6k", "1", "2", "--repair"}), ExitCode::CouldNot);
  EXPECT_THAT(messages, HasSubstr("so that a save would lose what is left out"));
  EXPECT_TRUE(ContentOf(file) == before);
}

TEST_F(SelcallCommands, AToneSetIsReadAgainWhereItsTonesChange) {
  EXPECT_EQ(Run({"set", file, "GroupTone", "1", "11"}), ExitCode::Done);
  EXPECT_THAT(out.str(), testing::ContainsRegex("ToneSet +Tone Set +record 1 +0 -> Custom\n"));
  EXPECT_EQ(Run({"set", file, "RepeatTone", "1", "1"}), ExitCode::No);
  EXPECT_THAT(messages, HasSubstr("The repeat tone '1' is contained in one or more sequences."));
  EXPECT_EQ(Run({"set", file, "RepeatTone", "1", "11"}), ExitCode::No);
  EXPECT_EQ(Run({"set", file, "ToneSet", "1", "5", "--json"}), ExitCode::Done) << messages;
  EXPECT_EQ(Run({"get", file, "ToneSet", "1"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "5\n");
}
}  // namespace
