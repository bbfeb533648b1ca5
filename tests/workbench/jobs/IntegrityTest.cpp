#include "workbench/jobs/Integrity.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/support/TierFixture.h"
#include "tests/workbench/InProcessCommand.h"
#include "workbench/jobs/Session.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {
using testing::AllOf;
using testing::HasSubstr;
using OrderedJson = nlohmann::ordered_json;

/// Commands on a sample in which something is wrong.
class DamagedFiles : public InProcessCommand {
 protected:
  /// The sample with what `change` makes of its tables, over several lines.
  template <typename Change>
  std::string Damaged(const std::string& name, Change change) {
    OrderedJson document = OrderedJson::parse(ContentOf(Sample(name)));
    change(document["tables"]);
    return folder.Write("damaged.json", document.dump(1));
  }
  /// What a check finds in the file itself.
  std::vector<OrderedJson> Told(const std::string& path) {
    EXPECT_THAT(Run({"check", path, "--json"}), testing::AnyOf(ExitCode::No, ExitCode::CouldNot)) << messages;
    std::vector<OrderedJson> findings;
    OrderedJson told = OrderedJson::parse(out.str());
    for (OrderedJson& finding : told["findings"]) {
      if (finding.contains("path")) findings.push_back(std::move(finding));
    }
    return findings;
  }
  static std::string LineOf(const std::string& document, int number) {
    std::istringstream lines(document);
    std::string line;
    for (int i = 0; i < number; ++i) std::getline(lines, line);
    return line;
  }
};

TEST_F(DamagedFiles, EachDamageIsToldWithItsPlaceAndWithWhatASaveMakesOfIt) {
  struct Case {
    const char *sample, *table;
    std::size_t index;
    const char* field;
    OrderedJson value;
    const char *rule, *text, *consequence;
  };
  const Case cases[] = {
      {"city-fleet", "5", 2, "ChannelNetworkId", 4, "reference",
       "It points at no record of table 21 (Networks), which has 4, counted from 0.", "a save makes 0 of it"},
      {"harbour-0029", "5", 2, "ChannelNetworkId", -1, "reference", "which has 3, counted from 0.",
       "a save makes 0 of it"},
      {"full", "76", 3, "DSDBM_PRESET_CALL_CHANNEL_REF", 0, "reference", "which has 90, counted from 1.",
       "a save keeps it"},
      {"city-fleet", "18", 0, "GroupIDNumber", 7, "reference",
       "No record of table 16 (Scan groups) is known by", "a save makes 101 of it"},
      {"city-fleet", "32", 0, "SignalSystemId", 9, "reference",
       "No record of table 29 (Selcall systems) is known",
       "it can not be saved: 32.SignalSystemId, record 1: there is no Selcall system 9"},
      {"city-fleet", "7", 4, "CibChannelID", 1, "number",
       "Record 1 of the table is known by the same number.", "a save keeps it"},
      {"city-fleet", "64", 0, "DTMFNetworkSigSystemID", 0, "number",
       "known by no number: it is outside 1 to 16.", "a save keeps it"},
      {"city-fleet", "18", 1, "GroupNextMemberRecordNum", 5, "chain",
       "linked in another order than they stand.", "a save makes 2 of it"},
      {"city-fleet", "39", 0, "Databaseversion", 93, "version", "The document is of database version 0094.",
       "a save keeps it"},
      {"city-fleet", "44", 0, "MaxAudioLevel", {128}, "shape", "The array has 1 rows, it needs 2.", "a save"},
      {"city-fleet", "9", 0, "DataLeadInDelay", 501, "range", "9.DataLeadInDelay is outside 0 to 500.",
       "a save keeps it"},
      {"city-fleet", "75", 1, "SIBTFrequency", 2990, "range", "75.SIBTFrequency is outside 3000 to 30000.",
       "a save"},
  };
  for (const Case& one : cases) {
    const std::string path = Damaged(
        one.sample, [&](OrderedJson& tables) { tables[one.table][one.index][one.field] = one.value; });
    const std::string wanted =
        "tables." + std::string(one.table) + "[" + std::to_string(one.index + 1) + "]." + one.field;
    SCOPED_TRACE(wanted);
    const std::vector<OrderedJson> told = Told(path);
    const auto found =
        std::ranges::find_if(told, [&](const OrderedJson& finding) { return finding["path"] == wanted; });
    ASSERT_TRUE(found != told.end()) << out.str();
    EXPECT_EQ((*found)["rule"], one.rule);
    EXPECT_THAT(std::string((*found)["text"]), HasSubstr(one.text));
    EXPECT_THAT(std::string((*found)["consequence"]), HasSubstr(one.consequence));
    EXPECT_EQ((*found)["value"], one.value);
    EXPECT_THAT(LineOf(ContentOf(path), (*found)["line"]), HasSubstr("\"" + std::string(one.field) + "\": "));
  }
}

TEST_F(DamagedFiles, ATableOutOfStepIsToldAsATable) {
  for (const bool isShort : {true, false}) {
    const std::string path = Damaged("city-fleet", [&](OrderedJson& tables) {
      OrderedJson& settings = tables["36"];
      isShort ? settings.erase(3) : settings.push_back(settings.back());
    });
    const std::vector<OrderedJson> told = Told(path);
    ASSERT_EQ(told.size(), 1U) << out.str();
    EXPECT_EQ(told[0]["path"], isShort ? "tables.36" : "tables.36[5]");
    EXPECT_THAT(std::string(told[0]["text"]),
                HasSubstr(isShort ? "table: 3, needed: 4" : "table: 5, needed: 4"));
  }
}

/// Version by version, as new, and of the samples converted to them.
TEST(Integrity, WhatTheWorkbenchMakesIsSound) {
  for (const VersionName& version : SchemaFiles::Versions()) {
    EXPECT_TRUE(DamagesOf(*NewPersonality(*ProjectSchemas(), version.Text())).empty()) << version.Text();
  }
  for (const char* sample : {"minimal", "marine-harbour", "city-fleet", "full", "hospital-paging",
                             "harbour-0029", "harbour-0054", "harbour-0081", "harbour-0089"}) {
    const auto stored = PersonalityFile::Parse(sample, ContentOf(Sample(sample)), *ProjectSchemas());
    for (const Damage& damage : DamagesOf(*stored))
      ADD_FAILURE() << sample << damage.place.Path() << damage.text;
  }
}

TEST_F(DamagedFiles, AConvertedFileIsSound) {
  const std::string converted = folder.PathOf("converted.json");
  for (const VersionName& version : SchemaFiles::VersionsOf("KD4410")) {
    if (version.number == 54) continue;
    ASSERT_EQ(
        Run({"convert", Sample("harbour-0054"), "--to", version.Digits(), "--out", converted, "--force"}),
        ExitCode::Done)
        << messages;
    const auto stored = PersonalityFile::Parse("converted", ContentOf(converted), *ProjectSchemas());
    for (const Damage& damage : DamagesOf(*stored))
      ADD_FAILURE() << version.Text() << damage.place.Path() << damage.text;
  }
}

/// One reference in so many is tried; where all takes too long.
int Stride() {
  const char* told = std::getenv("KD4410_DAMAGE_STRIDE");
  return told == nullptr ? 1 : std::atoi(told);
}

TEST_F(DamagedFiles, NoReferenceIsFollowedUnasked) {
  const OrderedJson sound = OrderedJson::parse(ContentOf(Sample("full")));
  const auto schema = ProjectSchemas()->At("KD4410.0094");
  const std::string path = folder.PathOf("damaged.json");
  int tried = 0;
  for (const SchemaField& field : schema->Fields()) {
    for (const SchemaReference& reference : field.references) {
      OrderedJson document = sound;
      OrderedJson& records = document["tables"][std::to_string(field.table)];
      const auto selects = [&](const OrderedJson& record) {
        return reference.selector.empty() ||
               record[std::string(schema->Find(reference.selector)->Name())] == reference.selected;
      };
      auto damaged = std::ranges::find_if(records, selects);
      if (damaged == records.end() || ++tried % Stride() != 0) continue;
      (*damaged)[std::string(field.Name())] = 777;
      folder.Write("damaged.json", document.dump());
      const std::string wanted = "tables." + std::to_string(field.table) + "[" +
                                 std::to_string(damaged - records.begin() + 1) + "]." +
                                 std::string(field.Name());
      SCOPED_TRACE(wanted);
      EXPECT_TRUE(
          std::ranges::any_of(Told(path), [&](const OrderedJson& one) { return one["path"] == wanted; }));
      EXPECT_EQ(Run({"show", path, "21"}), ExitCode::Done) << messages;
      EXPECT_THAT(messages, HasSubstr("damaged.json: damaged: "));
      EXPECT_NE(Run({"set", path, "TxPower_k6k", "1", "2", "--repair", "--dry-run"}), ExitCode::Fault)
          << messages;
    }
  }
  EXPECT_GT(tried, 60);
}

TEST_F(DamagedFiles, ASaveIsRefusedUnlessItsRepairIsAskedForAndThenTold) {
  const std::string path = Damaged("city-fleet", [](OrderedJson& tables) {
    tables["67"][1]["DTMFPatchToneSetupPointer"] = 9;
    tables["21"][1]["EmergencyPointer"] = 8;
  });
  const std::string before = ContentOf(path);
  const std::vector<std::vector<std::string>> saves = {{"set", path, "TxPower_k6k", "5", "1"},
                                                       {"add", path, "channel"},
                                                       {"insert", path, "channel", "2"},
                                                       {"delete", path, "channel", "7"},
                                                       {"convert", path, "--to", "0093"}};
  for (const std::vector<std::string>& save : saves) {
    EXPECT_EQ(Run(save), ExitCode::CouldNot) << save.front();
    EXPECT_THAT(messages,
                AllOf(HasSubstr(": tables.67[2].DTMFPatchToneSetupPointer: \"9\": it points at no record"),
                      HasSubstr(": tables.21[2].EmergencyPointer: \"8\": it points at no record"),
                      HasSubstr("--repair")));
    EXPECT_TRUE(ContentOf(path) == before);
    std::vector<std::string> repairs = save;
    repairs.insert(repairs.end(), {"--repair", "--dry-run", "--json"});
    EXPECT_EQ(Run(repairs), ExitCode::Done) << messages;
    const OrderedJson told = OrderedJson::parse(out.str());
    ASSERT_EQ(told["repaired"].size(), 1U) << told["repaired"];
    EXPECT_EQ(told["repaired"][0]["path"], "tables.67[2].DTMFPatchToneSetupPointer");
    EXPECT_EQ(told["repaired"][0]["before"], 9);
    EXPECT_EQ(told["repaired"][0]["after"], 1);
    ASSERT_EQ(told["leftDamaged"].size(), 1U);
    EXPECT_EQ(told["leftDamaged"][0]["path"], "tables.21[2].EmergencyPointer");
    EXPECT_TRUE(ContentOf(path) == before);
  }
  std::vector<std::string> repairs = saves.front();
  repairs.push_back("--repair");
  EXPECT_EQ(Run(repairs), ExitCode::Done) << messages;
  EXPECT_THAT(out.str(), AllOf(HasSubstr("Repaired in the file, apart from the edit:\n  tables.67[2].DTMF"),
                               HasSubstr("9 -> 1\n"), HasSubstr("Left damaged:\n  tables.21[2].Emerg")));
  OrderedJson wanted = OrderedJson::parse(before);
  wanted["tables"]["67"][1]["DTMFPatchToneSetupPointer"] = 1;
  wanted["tables"]["5"][4]["TxPower_k6k"] = 1;
  EXPECT_EQ(OrderedJson::parse(ContentOf(path)), wanted);
}

TEST_F(DamagedFiles, RecordsThatARepairMakesAreToldByTheirTable) {
  const std::string path = Damaged("city-fleet", [](OrderedJson& tables) {
    while (tables["51"].size() > 22) tables["51"].erase(22);
  });
  EXPECT_EQ(Run({"set", path, "TxPower_k6k", "5", "1", "--repair", "--dry-run"}), ExitCode::Done) << messages;
  EXPECT_THAT(out.str(), HasSubstr("  Call alerts  records 23, 24 new, 12 values\n"));
}

TEST_F(DamagedFiles, AFileThatTheTierFailsOnIsNoFaultOfTheTier) {
  const std::string path = Damaged("minimal", [](OrderedJson& tables) { tables["34"][0]["Band"] = 11; });
  const std::vector<std::string> verbs[] = {{"check", path},
                                            {"info", path},
                                            {"diff", file, path},
                                            {"show", path, "channels"},
                                            {"set", path, "TxPower_k6k", "1", "2", "--repair"},
                                            {"convert", path, "--to", "0093", "--dry-run", "--repair"}};
  for (const std::vector<std::string>& verb : verbs) {
    EXPECT_EQ(Run(verb), ExitCode::CouldNot) << verb.front();
    EXPECT_THAT(messages,
                HasSubstr(": tables.34[1].Band: \"11\": 34.Band is outside 0 to 10; the tier can not open "
                          "the file: "))
        << verb.front();
  }
  EXPECT_EQ(Told(path).size(), 1U);
}
}  // namespace
