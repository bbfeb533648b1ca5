#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tests/workbench/InProcessCommand.h"

/// Function keys on the command line: the largest sample has all four, the city fleet none.
namespace {
using nlohmann::json;
using nlohmann::ordered_json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class KeyCommands : public InProcessCommand {
 protected:
  const std::string city = folder.Write("city.json", ContentOf(Sample("city-fleet")));
  /// The city fleet with what `change` makes of its tables.
  template <typename Change>
  std::string Damaged(Change change) {
    ordered_json document = ordered_json::parse(ContentOf(city));
    change(document["tables"]);
    return folder.Write("damaged.json", document.dump(1));
  }
};

TEST_F(KeyCommands, AreShownByWhatTheyDo) {
  EXPECT_EQ(Told({"show", Sample("full"), "keys"}),
            "Key  Action                            Parameter\n"
            "  1  Scanning / Nuisance Delete        945\n"
            "  2  Phone Patch Call Request/Release  Sequence 4\n"
            "  3  Preset Channel                    417\n"
            "  4  Action Digital Output Line        None\n");
  const json keys = json::parse(Told({"show", city, "keys", "--json"}))["keys"];
  EXPECT_EQ(keys.size(), 4U);
  EXPECT_EQ(keys[3], json::parse(R"({"key": 4, "action": 0, "actionWord": "None", "parameter": "None"})"));
  EXPECT_EQ(Run({"show", city, "keys", "1"}), ExitCode::CouldNot);
}

TEST_F(KeyCommands, AnEditIsToldByTheKeyAndItsPressAndLaysTheLightsOutAnew) {
  EXPECT_THAT(Told({"set", city, "FunctionKey3", "1", "monitor / squelch override"}),
              AllOf(HasSubstr("key 3 long press"), HasSubstr("(no record) -> 16\n"),
                    HasSubstr("Laid out anew, as by every save: table 3 "), Not(HasSubstr("3.Annunciator"))));
  EXPECT_THAT(Told({"set", city, "FunctionKey1", "1", "group scanning activity"}),
              AllOf(HasSubstr("FK1Parameter1  Function Key 1 Parameter 1  record 1  None -> 101"),
                    HasSubstr("None -> key 1 short press"), Not(HasSubstr("key 3"))))
      << "the actions of key 3 go on to other records";
  EXPECT_THAT(Told({"set", city, "FK1Parameter1", "1", "102"}), HasSubstr("101 -> 102 (stored: 0 -> 1)\n"));
  Told({"set", city, "GroupID_k6k", "2", "150", "--answer", "yes"});
  EXPECT_THAT(Told({"show", city, "keys"}), HasSubstr("  1  Group Scanning Activity     150\n"));
  EXPECT_EQ(Run({"diff", Sample("city-fleet"), city}), ExitCode::No);
  EXPECT_THAT(out.str(), AllOf(HasSubstr("key 1 short press, key 3 short press, key 3 long press"),
                               Not(HasSubstr("LED annunciators"))));
  Told({"check", city});
  EXPECT_EQ(Run({"set", city, "FunctionKey4", "1", "monitor"}), ExitCode::Done);
  EXPECT_EQ(Run({"form", city, "usrCtlKeySettingsKD4410"}), ExitCode::No);
  EXPECT_THAT(messages, HasSubstr("'Monitor / Squelch Override' and 'Monitor' can not be used together."));
  EXPECT_EQ(Run({"check", city}), ExitCode::No);
}

TEST_F(KeyCommands, AKeyThatPointsAstrayDoesNothingAndShortTablesAreRefused) {
  Told({"set", city, "FunctionKey2", "1", "Encryption"});
  const auto key = [&](auto change) {
    return Told({"show", Damaged(change), "keys"}).find("  2  None ") != std::string::npos;
  };
  EXPECT_FALSE(key([](ordered_json&) {}));
  EXPECT_TRUE(key([](ordered_json& tables) { tables["15"][1]["FnKeyShortPressActionID"] = 16; }));
  for (const std::int32_t type : {32, -1, 2147483647}) {
    EXPECT_TRUE(key([&](ordered_json& tables) { tables["24"][0]["ProgrammableActionType"] = type; })) << type;
  }
  EXPECT_TRUE(key([](ordered_json& tables) { tables["24"] = ordered_json::array(); }));
  const auto refusal = [&](auto change) {
    EXPECT_EQ(Run({"show", Damaged(change), "keys"}), ExitCode::CouldNot);
    return messages;
  };
  for (const char* table : {"3", "15"}) {
    EXPECT_THAT(refusal([&](ordered_json& tables) { tables[table].erase(0); }), HasSubstr("records"))
        << table;
    EXPECT_THAT(refusal([&](ordered_json& tables) { tables[table].push_back(tables[table][0]); }),
                HasSubstr("records"));
  }
}
}  // namespace
