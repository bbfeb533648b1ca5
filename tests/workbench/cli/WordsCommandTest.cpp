#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/workbench/InProcessCommand.h"

/// Codes on the command line: a person reads the word, a script the code and the word beside it.
namespace {
using nlohmann::json;
using testing::HasSubstr;

class WordCommands : public InProcessCommand {
 protected:
  const std::string city = folder.Write("city.json", ContentOf(Sample("city-fleet")));
};

TEST_F(WordCommands, EveryVerbTellsACodeByItsWord) {
  const std::string low = folder.Write("low.json", ContentOf(city));
  Told({"set", low, "TxPower_k6k", "2", "low"});
  Told({"set", low, "DCSTxPolarity", "1", "no"});
  nlohmann::ordered_json document = nlohmann::ordered_json::parse(ContentOf(city));
  document["tables"]["9"][0]["DataSDMOptionsEnabled"] = 0;
  const std::string faulty = folder.Write("faulty.json", document.dump(1));
  // The text, and what JSON tells at a place.
  const struct {
    std::vector<std::string> command;
    const char* text;
    const char* place;
    const char* told;
  } cases[] = {
      {{"get", low, "TxPower_k6k", "2"}, "Low\n", "/values/0", R"({"record": 2, "value": 2, "word": "Low"})"},
      {{"get", city, "FunctionKey1"}, "None\n", "/values/0", R"({"record": 1, "value": 0, "word": "None"})"},
      {{"get", city, "Band_k6k"}, "H5\n", "/values/0", R"({"record": 1, "value": 5, "word": "H5"})"},
      {{"show", city, "17"},
       "StartingWithChannelOrGroup         Channel\n",
       "/words/0/StartingWithChannelOrGroup",
       R"("Channel")"},
      {{"show", city, "1099"}, "FunctionKey1   None", "/records/0/FunctionKey1", "0"},
      {{"combo", city, "TxPower_k6k"}, "Very Low     1\n", "/items/1", R"({"item": "Very Low", "code": 1})"},
      {{"combo", city, "Band_k6k"}, "L3       9\n", "/items/9", R"({"item": "L3", "code": 9})"},
      {{"fields", "TxPower"},
       "Off, Very Low, Low, Medium, High\n",
       "/fields/0/words/4",
       R"({"code": 4, "word": "High"})"},
      {{"fields", "txpower_k6k"}, "Tx Power (TxPower_k6k)\n", "/field/defaultWord", R"("High")"},
      {{"fields", "21.AutoOverBeepFrequencyUI"},
       "Range     300 to 3000 Hz\n  Decimals  at most 1\n",
       "/field/enabledWhen",
       R"("Signalling On PTT Release is Auto Over Beep")"},
      {{"fields", "EmChannel"}, "Control  list\n", "/field/entries", "[]"},
      {{"fields", "ChannelID_k6k"}, ":\n      1 to 999\n", "/field/entries/998", R"({"item": "999"})"},
      {{"enabled", city, "EmCalloutNumber", "2", "--why"},
       "Callout Type is Fixed Number                    2  Disabled  no\n",
       "/why/readings/2/word",
       R"("Disabled")"},
      {{"diff", city, low}, "Tx Power (5.TxPower_k6k)  Medium  Low\n", "/cells/0/bWord", R"("Low")"},
      {{"check", faulty}, ": \"No\" [DataSDMOptionsEnabled]", "/findings/0/word", R"("No")"},
      {{"set", city, "TxPower_k6k", "1", "off", "--dry-run"},
       "record 1: High -> Off\n",
       "/stored/0/storedAfterWord",
       R"("Off")"},
      {{"set", city, "Sequence1AlertType", "2", "beep", "--dry-run"},
       "51.CallAlertType    record 7  Ring -> Beep\n",
       "/alsoChanged/0/nowWord",
       R"("Beep")"},
      {{"set", city, "TxInhibit_k6k", "1", "perhaps"},
       "\"perhaps\" is refused: the field takes yes or no",
       "/beforeWord",
       R"("No")"},
      {{"show", city, "selcall", "1"}, "Group Tone         A\n", "/systems/0/groupToneWord", R"("A")"},
  };
  for (auto [command, text, place, told] : cases) {
    SCOPED_TRACE(command[0] + " " + command[1]);
    Run(command);
    EXPECT_THAT(out.str(), HasSubstr(text)) << messages;
    command.emplace_back("--json");
    Run(command);
    const json data = json::parse(out.str());
    ASSERT_TRUE(data.contains(json::json_pointer(place))) << data.dump(1);
    EXPECT_EQ(data[json::json_pointer(place)], json::parse(told));
  }
}

/// The radio has the opposite of what the form shows: its own code is told by the number.
TEST_F(WordCommands, ATickThatIsStoredTheOtherWayRoundIsNoWordInTheFile) {
  const std::string told = Told({"set", city, "DCSTxPolarity", "1", "off"});
  EXPECT_THAT(told, HasSubstr("record 1: Yes -> No\n"));
  EXPECT_THAT(told, HasSubstr("Sub-audible settings 1  0 -> 1\n"));
  EXPECT_EQ(Told({"get", city, "DCSTxPolarity", "1"}), "No\n");
  EXPECT_EQ(Run({"diff", Sample("city-fleet"), city}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("DCS Tx Polarity Inverted (36.DCSTxPolarity)  0  1\n"));
}
}  // namespace
