#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/workbench/InProcessCommand.h"
#include "workbench/cli/Verb.h"

namespace {
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using Given = std::vector<std::string>;

/// Each output is held against its schema by the fixture.
class JsonOutput : public InProcessCommand {
 protected:
  /// A personality with a band that does not exist, on which the tier ends the application.
  std::string Faulty() const {
    std::string document = sample;
    document.replace(document.find("\"Band\": 5"), 9, "\"Band\": 9");
    return folder.Write("faulty.json", document);
  }
  json Parsed() const { return json::parse(out.str()); }
};

TEST_F(JsonOutput, OfEveryVerbIsDocumented) {
  for (const Verb* verb : Verb::All()) {
    const std::string name = verb->About().name;
    if (name == "record") continue;                        // prints what the command prints that it records
    if (name == "help" || name == "completion") continue;  // texts
    EXPECT_TRUE(std::filesystem::exists(JsonSchemaFile(name))) << name;
  }
}

TEST_F(JsonOutput, IsAnObjectOfTheSchemaHoweverTheCommandEnds) {
  const std::string fleet = folder.Write("fleet.json", ContentOf(Sample("city-fleet")));
  const std::string full = folder.Write("full.json", ContentOf(Sample("full")));
  const std::string old = Sample("harbour-0029");
  const std::string trace = folder.PathOf("t.jsonl");
  const std::string radio = folder.Write("radio.json", "{\"model\": \"KE2210 Rx\"}");
  const std::string script =
      folder.Write("script", "info " + fleet + "\nget \"x\nget " + fleet + " Nix\n\nshow " + old + " 5\n");
  using enum ExitCode;
  const std::pair<Given, ExitCode> cases[] = {
      {{"add", fleet, "channel", "--dry-run"}, Done},
      {{"add", file, "mdc1200"}, Done},
      {{"insert", fleet, "channel", "3", "--dry-run"}, Done},
      {{"insert", file, "channel", "99"}, CouldNot},
      {{"delete", fleet, "network", "1"}, No},
      {{"delete", full, "channel", "1"}, No},
      {{"delete", full, "two-tone", "2", "--dry-run", "--answer", "yes"}, Done},
      {{"bands"}, Done},
      {{"check", Sample("marine-harbour")}, No},
      {{"check", file}, Done},
      {{"combo", file, "TxPower_k6k"}, Done},
      {{"combo", full, "TXCallBurstIndex_k6k", "1"}, Done},
      {{"conform", "--list"}, Done},
      {{"convert", full, "--to", "0091", "--dry-run"}, Done},
      {{"convert", fleet, "--to", "0029", "--dry-run", "--answer", "yes"}, No},
      {{"convert", "--explain", "0090", "0089"}, Done},
      {{"diff", full, old}, No},
      {{"diff", file, file}, Done},
      {{"enabled", file, "TxPower_k6k", "--why"}, Done},
      {{"enabled", Sample("marine-harbour"), "AllowSDMOverwrite", "--why"}, No},
      {{"enabled", full, "--all"}, Done},
      {{"fields", "freq"}, Done},
      {{"fields", "no such"}, CouldNot},
      {{"form", "--list"}, Done},
      {{"form", full, "channels"}, Done},
      {{"get", full, "37.T99ToneSetLowerBound"}, Done},
      {{"get", file, "MDC1200RadioIDDerived"}, Done},
      {{"info", old}, Done},
      {{"new", folder.PathOf("new.json"), "--version", "KD4410.0094"}, Done},
      {{"preprogram", file, "--radio", radio, "--answer", "yes"}, Done},
      {{"record", trace, "info", file}, Done},
      {{"record", trace, "info", file}, CouldNot},
      {{"replay", trace}, Done},
      {{"replay", radio}, CouldNot},
      {{"run", script}, CouldNot},
      {{"run", script, "--keep-going"}, CouldNot},
      {{"set", full, "SignallingType", "1", "0", "--answer", "yes", "--dry-run"}, Done},
      {{"set", full, "TxPower_k6k", "1", "9"}, No},
      {{"set", fleet, "FreeFormSequence5", "1", "2"}, No},
      {{"show", full, "keys"}, Done},
      {{"versions"}, Done},
      {{"versions", "--model", "x"}, CouldNot},
      {{"show", fleet, "systems"}, CouldNot},
      {{"nix"}, CouldNot},
      {{"check", Faulty()}, CouldNot},
  };
  for (const auto& [given, code] : cases) {
    Given words = given;
    words.push_back("--json");
    EXPECT_EQ(Run(words), code) << testing::PrintToString(words) << messages;
    EXPECT_EQ(Parsed().contains("error"), code >= CouldNot && given.front() != "run") << out.str();
  }
}

TEST_F(JsonOutput, EveryPartOfEverySampleIsAsItsSchemaTells) {
  for (const char* name : {"minimal", "city-fleet", "full", "hospital-paging", "harbour-0029"}) {
    for (const char* what : {"channels", "networks", "scan-groups", "keys", "selcall", "dtmf", "two-tone",
                             "mdc1200", "io", "sounds", "0", "37"}) {
      Told({"show", Sample(name), what, "--json"});
    }
  }
  Run({"show", Sample("city-fleet"), "channels", "--json"});
  EXPECT_EQ(Parsed()["channels"][0]["rxHz"], 460012500);
  EXPECT_EQ(Parsed()["channels"][0]["network"], 2);
  Run({"set", file, "TxPower_k6k", "1", "3", "--json"});
  EXPECT_EQ(Parsed()["now"], 3) << "a number, though a text was typed";
  Run({"check", Sample("marine-harbour"), "--json"});
  EXPECT_THAT(Parsed()["findings"][0]["text"].get<std::string>(),
              AllOf(HasSubstr("Frequencies\n\nThe"), testing::Not(HasSubstr("\r"))));
}

TEST_F(JsonOutput, AnErrorTellsItsKindAndItsPlace) {
  std::string wrong = sample;
  wrong.replace(wrong.find("\"TxPower_k6k\": 4"), 16, "\"TxPower_k6k\": \"4\"");
  const std::string damaged = folder.Write("damaged.json", wrong);
  const std::string faulty = Faulty();
  const std::string missing = folder.PathOf("missing.json");
  const std::string script = folder.Write("s", "info " + damaged + "\n");
  const std::tuple<Given, ExitCode, json> cases[] = {
      {{"info"}, ExitCode::CouldNot, {{"kind", "usage"}}},
      {{"info", file, "--no-such"}, ExitCode::CouldNot, {{"kind", "usage"}}},
      {{"get", file, "Nix"}, ExitCode::CouldNot, {{"kind", "usage"}}},
      {{"info", missing}, ExitCode::CouldNot, {{"kind", "file"}, {"file", missing}, {"path", "read"}}},
      {{"info", damaged},
       ExitCode::CouldNot,
       {{"kind", "file"}, {"file", damaged}, {"path", "tables.5[1].TxPower_k6k"}}},
      {{"info", faulty}, ExitCode::CouldNot, {{"kind", "file"}, {"file", faulty}, {"path", "tables.34[1]"}}},
      {{"bands", "--data", SCHEMA_FOLDER "/.."}, ExitCode::Fault, {{"kind", "tier"}}},  // without its files
  };
  for (const auto& [given, code, expected] : cases) {
    Given words = given;
    words.push_back("--json");
    EXPECT_EQ(Run(words), code) << messages;
    json error = Parsed()["error"];
    EXPECT_THAT(messages, HasSubstr(error["message"].get<std::string>()));
    EXPECT_EQ(error.contains("line"), expected.value("path", "").starts_with("tables.")) << error;
    error.erase("message");
    error.erase("line");
    EXPECT_EQ(error, expected);
  }
  EXPECT_EQ(Run({"run", script, "--json"}), ExitCode::CouldNot);
  const json line = Parsed()["lines"][0];
  EXPECT_EQ(line["exitCode"], 2);
  EXPECT_EQ(line["data"]["error"]["file"], damaged);
}
}  // namespace
