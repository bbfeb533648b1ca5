#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/workbench/InProcessCommand.h"

namespace {
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// The city fleet has channels beyond those that the smallest control head can show.
class PreprogramCommand : public InProcessCommand {
 protected:
  ExitCode Program(const std::string& radio, std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"preprogram", path, "--radio", folder.Write("radio.json", radio)});
    return Run(std::move(more));
  }
  const std::string path = folder.Write("fleet.json", ContentOf(Sample("city-fleet")));
};

TEST_F(PreprogramCommand, TheAnswerDecidesAndNothingIsSaved) {
  const std::string before = ContentOf(path);
  const char* smallest = R"({"model": "KD4410", "databaseVersion": "0094", "controlHead": "KDAC5"})";
  const std::tuple<const char*, ExitCode, bool> cases[] = {
      {"yes", ExitCode::Done, true}, {"no", ExitCode::Done, true}, {"cancel", ExitCode::No, false}};
  for (const auto& [answer, code, mayProgram] : cases) {
    EXPECT_EQ(Program(smallest, {"--answer", answer, "--json"}), code) << messages;
    const json told = json::parse(out.str());
    EXPECT_EQ(told["mayProgram"], mayProgram);
    EXPECT_EQ(told["differences"], json::array());
    ASSERT_FALSE(told["messages"].empty());
    const std::string text = told["messages"][0]["text"];
    EXPECT_THAT(text, AllOf(testing::StartsWith("The following error occurred while programming the radio:"),
                            HasSubstr("Channel IDs in the range 10 to")));
  }
  EXPECT_EQ(Program(smallest), ExitCode::Done) << "without a terminal it is a No";
  EXPECT_TRUE(ContentOf(path) == before);
}

TEST_F(PreprogramCommand, ARadioThatTellsLittleIsNotAskedFor) {
  EXPECT_EQ(Program("{}"), ExitCode::Done);
  EXPECT_EQ(out.str(), "The radio may be programmed.\n");
  EXPECT_EQ(Program(R"({"model": "KE2210 Rx", "databaseVersion": "0089", "controlHead": "KDAC4"})"),
            ExitCode::Done);
  EXPECT_EQ(out.str(),
            "The model of the radio is KE2210 Rx, of the personality KD4410.\n"
            "The database version of the radio is 0089, of the personality 0094.\n"
            "The radio may be programmed.\n");
}

TEST_F(PreprogramCommand, ADescriptionThatIsNoneIsToldWithItsLine) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "radio.json:1: "},
      {"[]", "radio.json:1: a radio is an object"},
      {"{\n\"controlHaed\": \"KDAC5\"}",
       "radio.json:2: controlHaed: a radio has no such field; did you mean controlHead?"},
      {"{\"model\": \"KD4410\",\n\"model\": \"KD4410\"}", "radio.json:2: model: given twice"},
      {"{\"controlHead\":\n5}", "radio.json:2: controlHead: a text is expected"},
      {"{\"model\": {\"a\": \"b\"}}", "radio.json:1: model: a text is expected"},
      {"{\"model\": \"KD4410\"", "radio.json:1: "}};
  for (const auto& [document, told] : cases) {
    EXPECT_EQ(Program(document), ExitCode::CouldNot) << document;
    EXPECT_THAT(messages, HasSubstr(told));
    EXPECT_EQ(out.str(), "");
  }
  EXPECT_EQ(Run({"preprogram", path, "--radio", "nowhere.json"}), ExitCode::CouldNot);
  EXPECT_THAT(messages, AllOf(HasSubstr("nowhere.json"), Not(HasSubstr("fleet"))));
}
}  // namespace
