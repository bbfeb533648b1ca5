#include "workbench/jobs/RecordEdits.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/InProcessCommand.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"

namespace {
using nlohmann::json;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;

constexpr const char* kCompanions[] = {"36", "53", "67", "72", "75", "77", "78"};

/// The commands, on copies of the samples.
class RecordCommands : public InProcessCommand {
 protected:
  std::string CopyOf(const std::string& name) {
    return folder.Write(name + ".json", ContentOf(Sample(name)));
  }
  static json TablesOf(const std::string& path) { return json::parse(ContentOf(path))["tables"]; }
};

TEST_F(RecordCommands, ANetworkComesWithItsCompanionsAndGoesWithoutATrace) {
  for (const char* name : {"minimal", "marine-harbour", "city-fleet"}) {
    const std::string path = CopyOf(name);
    const std::string before = ContentOf(path);
    const std::size_t count = TablesOf(path)["21"].size() + 1;
    ASSERT_EQ(Run({"add", path, "network"}), ExitCode::Done) << messages;
    EXPECT_THAT(out.str(), AllOf(HasSubstr("Networks, record " + std::to_string(count)),
                                 HasSubstr("Customer data networks"), HasSubstr("Saved.")));
    const json tables = TablesOf(path);
    EXPECT_EQ(tables["21"].size(), count) << name;
    EXPECT_EQ(tables["21"].back()["NetworkPointer"], count) << "the lowest free number";
    for (const char* table : kCompanions) EXPECT_EQ(tables[table].size(), count) << name << ' ' << table;
    ASSERT_EQ(Run({"delete", path, "21", std::to_string(count)}), ExitCode::Done) << messages;
    EXPECT_TRUE(ContentOf(path) == before) << name;
  }
}

TEST_F(RecordCommands, WhatStandsBehindADeletedNetworkMovesUpWithAllThatPointsAtIt) {
  const std::string path = CopyOf("city-fleet");
  for (const char* channel : {"13", "14", "15", "16"}) {
    ASSERT_EQ(Run({"set", path, "ChannelNetworkID_k6k", channel, "2", "--answer", "yes"}), ExitCode::Done);
  }
  const json before = TablesOf(path);
  ASSERT_EQ(Run({"delete", path, "Networks", "3", "--json"}), ExitCode::Done) << messages;
  const json told = json::parse(out.str());
  EXPECT_EQ(told["identity"]["value"], 3);
  EXPECT_EQ(told["saved"], true);
  const json tables = TablesOf(path);
  for (const char* table : kCompanions) EXPECT_EQ(tables[table].size(), 3U) << table;
  EXPECT_EQ(tables["51"].size(), 18U);
  EXPECT_EQ(tables["21"][2]["NetworkPointer"], 4);
  EXPECT_EQ(tables["21"][2]["EmergencyCallAlertPtr"], 17);
  EXPECT_EQ(tables["53"][2]["NetworkID"], 2);
  EXPECT_EQ(tables["5"][20]["ChannelNetworkId"], 2);
  EXPECT_EQ(tables["5"][20]["DTMFPresetCallPointer"], before["5"][20]["DTMFPresetCallPointer"]);
  EXPECT_EQ(tables["69"][0]["GPSNetworkSendPosOnPTT"], json::parse("[0, 2, 0]"));
  EXPECT_EQ(Run({"check", path}), ExitCode::Done) << out.str();
}

TEST_F(RecordCommands, ARefusalLeavesTheFileAndTellsWhoRefusedAndWhy) {
  const std::string damaged = folder.Write("damaged.json", "{\n]");
  const std::string full = CopyOf("full");
  const std::string marine = CopyOf("marine-harbour");
  const std::tuple<std::vector<std::string>, ExitCode, const char*, const char*> cases[] = {
      {{"delete", marine, "Network", "2"},
       ExitCode::No,
       "refuses to delete it",
       "used by one or more Channels"},
      {{"delete", file, "Network", "1"}, ExitCode::No, "has at least 1 record of table 21", ""},
      {{"add", full, "Network"}, ExitCode::No, "holds at most 16 records of table 21", ""},
      {{"add", full, "channels"}, ExitCode::No, "refuses to add it", "must not exceed 100"},
      {{"delete", marine, "Network", "4"}, ExitCode::CouldNot, "", "record 4 is outside 1..3"},
      {{"delete", marine, "Network", "0"}, ExitCode::CouldNot, "", "record 0 is outside 1..3"},
      {{"delete", marine, "Netwrok", "1"}, ExitCode::CouldNot, "", "did you mean network"},
      {{"add", marine, "36"}, ExitCode::CouldNot, "", "there is no grid \"36\""},
      {{"add", damaged, "Network"}, ExitCode::CouldNot, "", "damaged.json:2"},
      {{"delete", damaged, "Network", "1"}, ExitCode::CouldNot, "", "damaged.json:2"},
  };
  for (const auto& [words, code, told, message] : cases) {
    const std::string before = ContentOf(words[1]);
    EXPECT_EQ(Run(words), code) << testing::PrintToString(words);
    EXPECT_THAT(out.str(), HasSubstr(told));
    EXPECT_THAT(out.str(), testing::Not(HasSubstr("not kept"))) << "no companion was added";
    EXPECT_THAT(messages, HasSubstr(message));
    EXPECT_TRUE(ContentOf(words[1]) == before) << testing::PrintToString(words);
  }
}

TEST_F(RecordCommands, AQuestionIsAnsweredNoUnlessToldOtherwise) {
  std::string polled = sample;  // positions are reported on its one channel
  for (const std::string name : {"\"GPSEnabled\": ", "\"GPSPollResponseChannelType\": "}) {
    polled.replace(polled.find(name) + name.size(), 1, "1");
  }
  const std::string path = folder.Write("polled.json", polled);
  EXPECT_EQ(Run({"delete", path, "channels", "1", "--json"}), ExitCode::No) << messages;
  const json refused = json::parse(out.str());
  EXPECT_EQ(refused["refusedAt"], "permission");
  EXPECT_EQ(refused["messages"][0]["answer"], "No");
  EXPECT_EQ(Run({"delete", path, "channels", "1", "--answer", "yes", "--dry-run"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("GPSPollResponseChannelType"));
  EXPECT_TRUE(ContentOf(path) == polled);
  EXPECT_EQ(Run({"delete", path, "channels", "1", "--answer", "yes"}), ExitCode::Done) << messages;
  EXPECT_EQ(TablesOf(path)["69"][0]["GPSPollResponseChannelType"], 0);
}

TEST_F(RecordCommands, AScriptAddsRenumbersAndDeletes) {
  const std::string script =
      folder.Write("script", "add " + file + " Network\nset " + file + " NetworkID 2 7\nadd " + file +
                                 " Network\ndelete " + file + " Network 2\n");
  ASSERT_EQ(Run({"run", script}), ExitCode::Done) << messages;
  EXPECT_EQ(TablesOf(file)["21"].size(), 2U);
  EXPECT_EQ(TablesOf(file)["21"][1]["NetworkPointer"], 2);  // 7 was the second record
}

TEST_F(RecordCommands, AChannelAndAStatusAreInsertedBeforeAnother) {
  const std::string path = CopyOf("city-fleet");
  const json before = TablesOf(path);
  ASSERT_EQ(Run({"insert", path, "Channels6000", "3", "--json"}), ExitCode::Done) << messages;
  EXPECT_EQ(json::parse(out.str())["identity"]["value"], 21) << "the lowest that is free";
  const json after = TablesOf(path);
  ASSERT_EQ(after["5"].size(), before["5"].size() + 1);
  EXPECT_EQ(after["7"][3]["CibChannelID"], before["7"][2]["CibChannelID"]) << "they have moved on";
  for (std::size_t member = 0; member < before["18"].size(); ++member) {
    const int pointed = before["18"][member]["GroupChannelRecordNum"];
    EXPECT_EQ(after["18"][member]["GroupChannelRecordNum"], pointed + (pointed >= 2 ? 1 : 0))
        << "follows them";
  }
  EXPECT_EQ(Run({"delete", path, "control-status", "16", "--selcall", "2"}), ExitCode::Done) << messages;
  EXPECT_EQ(Run({"insert", path, "control-status", "1", "--selcall", "2"}), ExitCode::Done) << messages;
  EXPECT_EQ(TablesOf(path)["32"].size(), before["32"].size());

  const std::tuple<std::vector<std::string>, ExitCode, const char*> refused[] = {
      {{"Channels6000", "0"}, ExitCode::CouldNot, "record 0 is outside 1..24"},
      {{"Channels6000", "-1"}, ExitCode::CouldNot, "record -1 is outside 1..24"},
      {{"Channels6000", "25"}, ExitCode::CouldNot, "record 25 is outside 1..24"},
      {{"Network", "1"}, ExitCode::CouldNot, "records of Networks are added at the end alone (kd4410 add)"},
      {{"NetWark", "1"}, ExitCode::CouldNot, "there is no grid \"NetWark\""},
      {{"control-status", "1"}, ExitCode::CouldNot, "record 1 is outside 1..0"}};
  const std::string content = ContentOf(path);
  for (const auto& [words, code, told] : refused) {
    EXPECT_EQ(Run({"insert", path, words[0], words[1]}), code) << words[0] << words[1];
    EXPECT_THAT(out.str() + messages, HasSubstr(told));
    EXPECT_TRUE(ContentOf(path) == content);
  }
  const std::string full = CopyOf("full");
  EXPECT_EQ(Run({"insert", full, "channel", "1"}), ExitCode::No);
  EXPECT_THAT(messages, HasSubstr("must not exceed 100"));
}

TEST_F(RecordCommands, EachValueThatTheFileHoldsThenIsTold) {
  const std::string path = CopyOf("city-fleet");
  const auto told = [&](std::vector<std::string> words) {
    words.insert(words.begin() + 1, path);
    words.push_back("--json");
    std::vector<std::string> dry = words;
    dry.push_back("--dry-run");
    EXPECT_EQ(Run(dry), ExitCode::Done) << messages;
    const json before = json::parse(out.str());
    EXPECT_EQ(Run(words), ExitCode::Done) << messages;
    const json after = json::parse(out.str());
    EXPECT_EQ(before["stored"], after["stored"]);
    return after;
  };
  const auto of = [](const json& list, const char* field) {
    json cells = json::array();
    std::ranges::copy_if(list, std::back_inserter(cells),
                         [&](const json& one) { return one["fieldId"] == field; });
    return cells;
  };
  const json added = told({"add", "network"});
  EXPECT_EQ(of(added["stored"], "21.NetworkPointer").size(), 1U);
  const json positions =
      of(added["stored"], "69.GPSNetworkSendPosOnPTT");  // which a conversion alone makes longer
  ASSERT_EQ(positions.size(), 1U);
  EXPECT_EQ(positions[0]["after"], json({0, 2, 0, 0, 0}));
  EXPECT_EQ(of(added["stored"], "51.CallAlertID").size(), 6U);  // of companions each
  const json inserted = told({"insert", "channel", "3"});
  for (const json& member : of(inserted["followed"], "18.GroupChannelRecordNum"))
    EXPECT_EQ(member["storedAfter"], member["storedBefore"].get<int>() + 1);
  EXPECT_FALSE(of(inserted["followed"], "18.GroupChannelRecordNum").empty());
  EXPECT_EQ(Run({"delete", path, "network", "5"}), ExitCode::Done) << messages;
  EXPECT_THAT(out.str(),
              AllOf(HasSubstr("[0, 2, 0, 0, 0] -> [0, 2, 0, 0]"), HasSubstr("record 5 gone, 60 values"),
                    HasSubstr("records 5/1 to 5/6 gone, 36 values")));
}

/// A table that keeps step with another is one short or long, or as short as a file lets it be.
TEST_F(RecordCommands, ADamagedCompanionTableIsToldAndMendedByTheNextRecord) {
  using nlohmann::ordered_json;  // of a file, whose version comes first
  const auto whole = ordered_json::parse(ContentOf(Sample("city-fleet")));
  const std::string path = folder.Write("damaged.json", "");
  const std::pair<std::vector<const char*>, const char*> grids[] = {
      {{"36", "53", "67", "72", "75", "77", "78"}, "network"}, {{"30", "31", "48", "49"}, "selcall"}};
  for (const auto& [tables, grid] : grids) {
    for (const std::string table : tables) {
      for (const bool isShort : {true, false}) {
        SCOPED_TRACE(table + (isShort ? " short" : " long"));
        ordered_json damaged = whole;
        ordered_json& rows = damaged["tables"][table];
        if (isShort)
          rows.erase(rows.size() - 1);
        else
          rows.push_back(rows.back());
        const auto run = [&](std::vector<std::string> words) {
          folder.Write("damaged.json", damaged.dump());
          words.insert(words.begin() + 1, path);
          words.insert(words.end(), {"--answer", "yes"});
          if (words.front() != "check") words.push_back("--repair");
          const ExitCode code = Run(std::move(words));
          EXPECT_NE(code, ExitCode::Fault) << messages;
          return code;
        };
        EXPECT_EQ(run({"check"}), ExitCode::No);
        EXPECT_THAT(out.str(), HasSubstr("[companions]"));
        run({"set", "SignallingType", "4", "0"});
        run({"set", "NetworkID", "4", "40"});
        run({"delete", "selcall", "1"});
        run({"delete", "network", "4"});
        run({"convert", "--to", "KD4410.0089", "--out", folder.Path() + "/out.json", "--force"});
        ASSERT_EQ(run({"add", grid}), ExitCode::Done) << messages;
        Run({"check", path});
        EXPECT_THAT(out.str(), testing::Not(HasSubstr("[companions]")));
      }
    }
  }
}

/// The path itself, on a sample whose forms hold what no file can yet.
class RecordEditsTest : public testing::Test {
 protected:
  RecordEditsTest() { session.ConvertToForms(); }
  RecordEdits Edits(std::string_view grid) { return {session, Grids::Named(content->GetSchema(), grid)}; }

  const std::shared_ptr<Provider> content =
      PersonalityFile::Parse("city-fleet", ContentOf(Sample("city-fleet")), *ProjectSchemas());
  const std::shared_ptr<ScriptedMessenger> messenger = std::make_shared<ScriptedMessenger>();
  Session session{ProjectParts(), content, messenger};
};

TEST_F(RecordEditsTest, WhatARuleHadWrittenBeforeItsSecondQuestionIsTold) {
  content->Set("FunctionKey1", 1, 22);  // goes to a channel
  content->Set("FK1Parameter1", 1, "5");
  content->Set("GPSPollResponseChannelType", 1, 1);
  content->Set("GPSPollResponseChannel", 1, "5");
  messenger->Play({Button::Yes, Button::No});
  const RecordResult result = Edits("channels").Delete(5);
  EXPECT_FALSE(result.accepted);
  EXPECT_EQ(result.step, RecordStep::Permission);
  EXPECT_EQ(content->Count(5), 23);
  const auto isKey = [&](const Change& change) { return change.field == &content->FieldOf("FunctionKey1"); };
  EXPECT_THAT(result.others, Contains(testing::ResultOf(isKey, true)));
}

TEST_F(RecordEditsTest, AChannelStaysThatAPointerWouldBeLedAstrayBy) {
  // An output that keeps the code of an input that it was: nothing moves its index.
  content->Set("1108.Direction", 4, "Output");
  content->Set("1108.Action", 4, "Alarm Status");
  content->Set("55.DigitalIOInputActivationAction", 4, 23);
  content->Set("55.GPIOActivation1", 4, 7);
  EXPECT_TRUE(Edits("channels").Delete(9).accepted);
  const RecordResult result = Edits("channels").Delete(6);  // the eighth record is another channel then
  EXPECT_FALSE(result.accepted);
  EXPECT_EQ(result.step, RecordStep::Save);
  EXPECT_THAT(result.refusal, HasSubstr("55.GPIOActivation1 of "));
}

TEST_F(RecordEditsTest, AFaultOnTheWayIsNoRefusal) {
  for (const int call : {1, 3, 8}) {
    content->Monitor().FailOnce(call);
    EXPECT_THROW(Edits("Network").Add(), TierFault) << call;
  }
}

/// A host that has added and deleted records may bring any field of any record to the radio before it saves.
TEST(RecordEdits, LeaveTablesInWhichAFieldIsConvertedByItself) {
  for (const char* sample : {"minimal", "city-fleet"}) {
    for (const Grid& grid : Grids::All()) {
      for (const bool isAdding : {true, false}) {
        SCOPED_TRACE(testing::Message() << sample << ' ' << grid.name << (isAdding ? " +" : " -"));
        const auto content = PersonalityFile::Parse(sample, ContentOf(Sample(sample)), *ProjectSchemas());
        Session session(ProjectParts(), content, std::make_shared<ScriptedMessenger>());
        session.ConvertToForms();
        RecordEdits edits(session, grid);
        if (content->Count(grid.table) == 0 && !isAdding) continue;
        static_cast<void>(isAdding ? edits.Add(2) : edits.Delete(1));
        for (const SchemaField* field : content->GetSchema().ConvertedToRadio()) {
          const RecordNr last = content->Count(field->table);
          if (last == 0 || field->isInPlace) continue;
          const Journal journal(*content);
          EXPECT_NO_THROW(session.Store(*field, last, Variant(content->Get(*field, last)))) << field->id;
        }
      }
    }
  }
}
}  // namespace
