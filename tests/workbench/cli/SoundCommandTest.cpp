#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "tests/workbench/InProcessCommand.h"

namespace {
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class SoundCommands : public InProcessCommand {
 protected:
  const std::string full = folder.Write("full.json", ContentOf(Sample("full")));
};

TEST_F(SoundCommands, ShowWhatSoundsAndHowNetworksAlert) {
  const std::string told = Told({"show", full, "sounds"});
  EXPECT_THAT(told, AllOf(HasSubstr("     1  Acknowledgement                  No\n"),
                          HasSubstr("     2  Computer Control                 Yes\n"),
                          HasSubstr("    26  High Reverse Power Warning Tone  No\n"),
                          HasSubstr("Individual call 1  10110110\n"),
                          HasSubstr("All call           1011011011011011\n"),
                          HasSubstr("      1  Ring 1 s   Beep 2 s   None   Ring 4 s   Beep 5 s   None\n")));
  std::istringstream lines(told);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;

  const json sounds = json::parse(Told({"show", full, "sounds", "--json"}));
  EXPECT_EQ(sounds["indicators"].size(), 26U);
  EXPECT_EQ(sounds["indicators"][7]["indicator"], "Function Deactivated");
  EXPECT_EQ(sounds["indicators"][7]["sounds"], 1);
  EXPECT_EQ(sounds["cadences"]["emergency"], "1011011011");
  EXPECT_EQ(sounds["networks"].size(), 16U);
  EXPECT_EQ(sounds["networks"][15]["alerts"]["priority"],
            json({{"type", 2}, {"typeWord", "Beep"}, {"seconds", 95}}));
  EXPECT_EQ(Run({"show", full, "sounds", "1"}), ExitCode::CouldNot);
}

TEST_F(SoundCommands, ACadenceAndAnAlertAreTypedAsTheyAreRead) {
  Told({"set", full, "AlertRingPatternGroup", "1", "1101"});
  Told({"set", full, "GroupCallAlertType", "3", "beep", "--network", "3"});
  EXPECT_THAT(Told({"show", full, "sounds"}), HasSubstr("Group call         1101\n"));
  for (const char* refused : {"11111111111111111", "12"}) {
    EXPECT_EQ(Run({"set", full, "AlertRingPattern1", "1", refused}), ExitCode::No) << refused;
  }
  EXPECT_EQ(Run({"set", full, "ExternalAlertPtrAll_k6k", "1", "4"}), ExitCode::No);
  Told({"set", full, "ExternalAlertPtrAll_k6k", "1", "3"});
  Told({"check", full});
}

TEST_F(SoundCommands, AnIndicatorOfTheListIsTickedAndNotRenamed) {
  EXPECT_THAT(Told({"set", full, "AudibleIndicators_k6k", "3", "no"}),
              AllOf(HasSubstr("4.EnabledFlag    Audible indicator list 6  Yes -> No"),
                    Not(HasSubstr("Audible indicator cadences"))));
  Told({"set", full, "AudibleIndicators_k6k", "1", "1"});
  EXPECT_THAT(Told({"show", full, "sounds"}), AllOf(HasSubstr("Acknowledgement                  Yes\n"),
                                                    HasSubstr("Emergency Activated              No\n")));
  for (const char* refused : {"2", "Beep"}) {
    EXPECT_EQ(Run({"set", full, "AudibleIndicators_k6k", "3", refused}), ExitCode::No) << refused;
  }
}

TEST_F(SoundCommands, AFileThatNeverHeldSoundsIsToldByTheTableWhenItIsFilled) {
  auto content = nlohmann::ordered_json::parse(ContentOf(Sample("minimal")));
  content["tables"]["4"] = nlohmann::ordered_json::array();
  auto& cadences = content["tables"]["60"];
  cadences.erase(cadences.begin() + 30, cadences.end());
  const std::string fresh = folder.Write("fresh.json", content.dump());
  EXPECT_THAT(Told({"set", fresh, "AlertRingPattern2", "1", "111"}),
              AllOf(HasSubstr("Laid out anew, as by the first save: table 4 (Audible indicator list)\n"),
                    HasSubstr("Laid out anew, as by the first save: table 60 "), HasSubstr("63488 -> 57344"),
                    Not(HasSubstr("(no record)"))));
  EXPECT_THAT(Told({"set", fresh, "AlertRingPattern2", "1", "11"}),
              AllOf(HasSubstr("57344 -> 49152"), Not(HasSubstr("first save"))));
}
}  // namespace
