#include "workbench/jobs/FiledEdit.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>
#include <set>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/InProcessCommand.h"
#include "tests/workbench/StoredChanges.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/store/Provider.h"

namespace {
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// `set` on copies of the samples.
class SetCommand : public InProcessCommand {
 protected:
  std::string CopyOf(const std::string& name) {
    return folder.Write(name + ".json", ContentOf(Sample(name)));
  }
  json Told() const { return json::parse(out.str()); }
};

TEST_F(SetCommand, TellsEveryStoredValueThatChangesAndNoOther) {
  const std::tuple<const char*, const char*, const char*, const char*> edits[] = {
      {"city-fleet", "TxFreq_k6k", "2", "460.5"},
      {"city-fleet", "TxPower_k6k", "1", "+2"},
      {"city-fleet", "SDMEncodeCallerIDEnabled", "1", "1"},  // its rule writes three more
      {"city-fleet", "SignallingType", "2", "0"},            // clears what its channels point at
      {"city-fleet", "dataTotalSystemIdHex", "1", "a"},      // "0A" of the forms
      {"city-fleet", "AudioIOTapIn", "1", "R10"},            // stored by its code
      {"city-fleet", "ChannelID_k6k", "3", "500"},           // the record keeps its place
      {"city-fleet", "NetworkID", "1", "16"},                // and what is known by its number
      {"city-fleet", "UGBurstID", "1", "3"},                 // the key of its record
      {"marine-harbour", "EmChannel", "3", "102"},
      {"full", "MDC1200RadioIDDerived", "1", "b"},
  };
  for (const auto& [name, uiid, record, value] : edits) {
    const std::string path = CopyOf(name);
    const std::string before = ContentOf(path);
    EXPECT_EQ(Run({"set", path, uiid, record, value, "--json", "--answer", "yes", "--dry-run"}),
              ExitCode::Done)
        << uiid << out.str();
    const json dry = Told();
    EXPECT_TRUE(ContentOf(path) == before);
    EXPECT_EQ(Run({"set", path, uiid, record, value, "--json", "--answer", "yes"}), ExitCode::Done);
    const json stored = Told()["stored"];
    EXPECT_EQ(StoredChanges(stored), StoredChanges(before, ContentOf(path))) << uiid;
    EXPECT_FALSE(stored.empty()) << uiid;
    EXPECT_EQ(dry["stored"], stored) << uiid;
  }
}

TEST_F(SetCommand, TellsWhatAPointerPointsAtThoughTheCodesAreLaidOutAnew) {
  const std::string path = CopyOf("city-fleet");
  EXPECT_EQ(Run({"set", path, "RxSignalling_k6k", "1", "c103.5"}), ExitCode::Done);
  EXPECT_THAT(out.str(), AllOf(HasSubstr("D023 -> C103.5"), HasSubstr("Saved.\nChanged in the file:\n")));
  EXPECT_EQ(Run({"set", path, "RxSignalling_k6k", "2", "C103.5", "--json"}), ExitCode::Done);
  const json stored = Told()["stored"];
  ASSERT_EQ(stored.size(), 2U) << stored;
  EXPECT_EQ(stored[1]["fieldId"], "5.RxSubaudibleIndex");
  EXPECT_EQ(stored[1]["record"], 2);
  EXPECT_EQ(stored[1]["after"], "C103.5");
  const std::string saved = ContentOf(path);
  EXPECT_EQ(Run({"set", path, "RxSignalling_k6k", "2", "C103.5"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("The file holds the same values as before."));
  EXPECT_TRUE(ContentOf(path) == saved);
}

TEST_F(SetCommand, ARecordThatTheEditAddsIsToldByItsValues) {
  const std::string path = CopyOf("full");
  EXPECT_EQ(Run({"set", path, "MDC1200ANISequence", "1", "", "--json"}), ExitCode::Done) << out.str();
  const json stored = Told()["stored"];
  for (const json& one : stored) EXPECT_TRUE(one["after"].is_null()) << one;
  EXPECT_EQ(stored.size(), 3U) << stored;
  EXPECT_EQ(Run({"set", path, "MDC1200ANISequence", "1", "1f"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("(no record) -> 31"));
}

TEST_F(SetCommand, WhatASaveWouldLoseIsNamedAndNothingIsSaved) {
  const std::string path = CopyOf("city-fleet");
  const std::string before = ContentOf(path);
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"FK1Parameter2", "1", "3", "\"3\": a save would lose the value, for the tier does not"},
      {"PATimer", "1", "10.31", "a save would lose the value, which comes back as \"10.31666"},
      {"AutoOverBeep", "2", "1", "for the tier makes the field from another one of the forms"},
  };
  for (const auto& [uiid, record, value, told] : cases) {
    for (const bool isDry : {false, true}) {
      std::vector<std::string> words = {"set", path, uiid, record, value};
      if (isDry) words.push_back("--dry-run");
      EXPECT_EQ(Run(words), ExitCode::No) << uiid;
      EXPECT_THAT(out.str(),
                  AllOf(HasSubstr(told), HasSubstr("The file is as it was."), Not(HasSubstr("in the file"))));
      words.push_back("--json");
      EXPECT_EQ(Run(words), ExitCode::No) << uiid;
      EXPECT_EQ(Told()["accepted"], false);
      EXPECT_TRUE(Told()["stored"].empty());
      EXPECT_EQ(Told()["now"], Told()["before"]);
    }
  }
  EXPECT_TRUE(ContentOf(path) == before);
}

/// What a tier might make of a file, without one.
TEST(LostValueOf, NamesWhatTheFileChangesThoughNobodyDidOnTheForms) {
  const auto content = PersonalityFile::Parse("fleet", ContentOf(Sample("city-fleet")), *ProjectSchemas());
  content->Set("21.NetworkSignallingID", 3, "2");
  const ComparedPersonality before{content, content};
  const ComparedPersonality after{content->Copy(), content->Copy()};
  const FiledEdit edit{content->FieldOf("TxPower_k6k"), 1, {}, *content, before, after};
  EXPECT_FALSE(LostValueOf(edit));

  after.forms->Set("21.NetworkSignallingID", 3, "9");  // read anew: the file is as it was
  EXPECT_FALSE(LostValueOf(edit));
  after.stored->Set("21.SignallingPointer", 3, 0);
  const auto lost = LostValueOf(edit);
  ASSERT_TRUE(lost);
  EXPECT_EQ(lost->field->id + " " + std::to_string(lost->record), "21.NetworkSignallingID 3");
  EXPECT_EQ(CStr(lost->now) + ">" + CStr(lost->back), "2>9");

  after.forms->Set("21.NetworkSignallingID", 3, "2");  // another way to store the same
  EXPECT_FALSE(LostValueOf(edit));
}

TEST_F(SetCommand, AnotherSpellingOfTheSameValueIsNotLost) {
  const std::string path = CopyOf("full");
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"TxFreq_k6k", "1", "140.05", "140.050000"}, {"MDC1200ANISequence", "1", "a", "000A"},
      {"dataTotalLinkIdHex", "1", "f", "0F"},      {"DTMFANISequence", "1", "012", "012"},
      {"EmTxOnHighPower", "1", "+01", "Yes"},
  };
  for (const auto& [uiid, record, typed, held] : cases) {
    EXPECT_EQ(Run({"set", path, uiid, record, typed, "--answer", "yes"}), ExitCode::Done) << out.str();
    EXPECT_EQ(Run({"get", path, uiid, record}), ExitCode::Done);
    EXPECT_EQ(out.str(), held + std::string("\n"));
  }
}

TEST_F(SetCommand, WhatAControlRefusesIsANoWithTheFileAsItWas) {
  const std::string path = CopyOf("city-fleet");
  const std::string before = ContentOf(path);
  const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
      {"EmChannel", "3", "999", "\"999\" is not in the list of Emergency Channel; it has 1 to 20"},
      {"RxSignalling_k6k", "1", "103.5",
       "record 1: \"103.5\" is not in the list of Rx Subaudible Signalling; did you mean C103.5"},
      {"TxSignalling_k6k", "1", "D999", "\"D999\" is not in the list of Tx Subaudible Signalling"},
      {"TxPower_k6k", "1", "3.5", "\"3.5\" is refused: the field takes whole numbers from 0 to 4"},
      {"dataTotalRadioIdHex", "1", "12345", "\"12345\" is refused: the field takes at most 4 characters"},
      {"CWIDString", "1", "\u20AC", "is refused: the radio has no character \"\u20AC\" (U+20AC)"},
      {"CWIDString", "1", "\xFF", "is refused: the text is not valid UTF-8"},
      {"NetworkID", "1", "3", "\"3\" is refused: number 3 is in use by record 3"},
  };
  for (const auto& [uiid, record, value, told] : cases) {
    EXPECT_EQ(Run({"set", path, uiid, record, value}), ExitCode::No) << uiid;
    EXPECT_THAT(out.str(), AllOf(HasSubstr(told), HasSubstr("\nThe file is as it was.\n")));
    EXPECT_EQ(messages, "") << "the tier was not asked";
    EXPECT_EQ(Run({"set", path, uiid, record, value, "--json"}), ExitCode::No);
    EXPECT_EQ(Told()["accepted"], false);
    EXPECT_NE(Told()["refusal"], "");
  }
  EXPECT_TRUE(ContentOf(path) == before);
}

TEST_F(SetCommand, ForceReplacesRegularFilesOnly) {
  const std::string pipe = folder.PathOf("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::vector<std::string> commands[] = {
      {"new", pipe, "--version", "KD4410.0094", "--force"},
      {"convert", file, "--to", "0093", "--out", pipe, "--force"},
      {"record", "--force", pipe, "info", file},
  };
  for (const auto& words : commands) {
    EXPECT_EQ(Run(words), ExitCode::CouldNot) << words.front();
    EXPECT_THAT(messages, StartsWith(pipe + ": write: not a regular file")) << words.front();
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
  }
}
}  // namespace
