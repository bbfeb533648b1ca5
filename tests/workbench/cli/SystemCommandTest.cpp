#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tests/workbench/InProcessCommand.h"

/// DTMF, two-tone and MDC1200 systems on the command line: the city fleet has one DTMF system with three
/// presets, each used by a channel, the hospital pages by two tones.
namespace {
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class SystemCommands : public InProcessCommand {
 protected:
  const std::string city = folder.Write("city.json", ContentOf(Sample("city-fleet")));
  const std::string hospital = folder.Write("hospital.json", ContentOf(Sample("hospital-paging")));
};

TEST_F(SystemCommands, AreShownAsATechnicianReadsThem) {
  EXPECT_THAT(Told({"show", city, "dtmf"}),
              AllOf(HasSubstr("DTMF system 1, record 1, used by network 4\n"), HasSubstr("500 ms\n"),
                    HasSubstr("DTMF ANI Sequence             7*7\n"), HasSubstr("    2  *13#  channel 32\n"),
                    Not(HasSubstr("    4"))));
  EXPECT_THAT(Told({"show", city, "dtmf", "1", "--all"}), HasSubstr("\n    10\n"));
  EXPECT_THAT(
      Told({"show", hospital, "two-tone", "1"}),
      AllOf(HasSubstr("Format             MOT\n"), HasSubstr("Tone A                        510.5 Hz\n"),
            HasSubstr("Tone D                        none\n"), HasSubstr("All Call"),
            Not(HasSubstr("Custom Tone A"))));
  EXPECT_THAT(Told({"show", hospital, "two-tone", "2"}),
              AllOf(HasSubstr("used by network 2\n"), HasSubstr("Custom Tone A               600.5 Hz\n"),
                    Not(HasSubstr("All Call"))));
  const json system = json::parse(Told({"show", hospital, "two-tone", "--json"}))["systems"][1];
  EXPECT_EQ(system["formatWord"].get<std::string>() + " " + system["toneD"].get<std::string>(), "CNE 940.5");
  EXPECT_EQ(Told({"show", city, "mdc1200"}), "The personality has no MDC1200 system.\n");
  EXPECT_EQ(Run({"show", city, "dtmf", "2"}), ExitCode::CouldNot);
  EXPECT_EQ(Run({"show", city, "networks", "--all"}), ExitCode::CouldNot);
}

TEST_F(SystemCommands, AnEditOfAPresetMovesItsChannelsWithIt) {
  EXPECT_THAT(Told({"set", city, "DTMFPresetSequence", "2", "12a", "--answer", "yes"}),
              AllOf(HasSubstr("record 22  *13# -> 12A\n"), Not(HasSubstr("DTMFPresetCallPointer"))));
  Told({"add", city, "dtmf"});
  Told({"set", city, "DTMFPresetSequence", "10", "777", "--dtmf", "2"});
  EXPECT_EQ(Run({"set", city, "DTMFPresetSequence", "1", "99", "--answer", "no"}), ExitCode::No);
  EXPECT_EQ(Run({"set", city, "DTMFPresetSequence", "1", std::string(1000, '1')}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("takes at most 32 characters"));
  EXPECT_EQ(Run({"set", city, "DTMFPresetSequence", "1", "xyz"}), ExitCode::No);
  EXPECT_THAT(
      Told({"show", city, "dtmf"}),
      AllOf(HasSubstr("*12#  channel 31\n"), HasSubstr("2  12A   channel 32\n"), HasSubstr("    10  777\n")));
  Told({"check", city});
}

TEST_F(SystemCommands, AreAddedAndDeletedWithWhatBelongsToThem) {
  EXPECT_THAT(Told({"add", city, "dtmf"}), HasSubstr("records   11 -> 21"));
  EXPECT_EQ(Run({"delete", city, "dtmf", "1"}), ExitCode::No);
  EXPECT_THAT(messages, HasSubstr("This DTMF System is being used on one or more Networks"));
  Told({"set", city, "NetworkSignallingID", "4", "2", "--network", "4", "--answer", "yes"});
  Told({"delete", city, "dtmf", "1"});
  EXPECT_THAT(Told({"show", city, "dtmf", "--all"}),
              AllOf(HasSubstr("DTMF system 2, record 1, used by network 4\n"), HasSubstr("\n    10\n")));
  Told({"add", city, "mdc1200", "--count", "2"});
  Told({"set", city, "MDC1200ANISequence", "1", "12ff"});
  Told({"set", city, "MDC1200EmergencySequence", "2", "5"});
  EXPECT_EQ(Run({"set", city, "MDC1200RadioIDDerived", "1", "12345"}), ExitCode::No);
  Told({"set", city, "MDC1200RadioIDDerived", "1", "0c5"});  // the second system keeps its sequence
  EXPECT_THAT(Told({"show", city, "mdc1200"}),
              AllOf(HasSubstr("12FF\n"), HasSubstr("0005\n"), HasSubstr("00C5\n")));
  EXPECT_THAT(Told({"delete", city, "mdc1200", "1"}), HasSubstr("MDC1200 sequences  records  2 -> 1"));
  Told({"add", city, "two-tone", "--count", "4"});
  EXPECT_EQ(Run({"add", city, "two-tone"}), ExitCode::No);
  Told({"delete", city, "two-tone", "2"});
  Told({"check", city});
}

TEST_F(SystemCommands, WhatIsConvertedInPlaceIsEditedInTheShownUnit) {
  Told({"set", hospital, "T99MaxGapPeriod_k6k", "2", "1000"});
  Told({"set", hospital, "T99MinFirstTonePeriod_k6k", "2", "250"});
  Told({"set", hospital, "SIBTFrequency_k6k", "3", "1499"});
  EXPECT_EQ(Told({"get", hospital, "SIBTFrequency_k6k", "3"}), "1499\n");
  EXPECT_THAT(Told({"show", hospital, "two-tone", "2"}),
              AllOf(HasSubstr("Minimum First Tone Period   250 ms\n"),
                    HasSubstr("Maximum Gap Period          1000 ms\n"),
                    HasSubstr("Maximum Second Tone Period  4000 ms\n")));
  Told({"add", hospital, "network"});
  EXPECT_EQ(Told({"get", hospital, "SIBTFrequency_k6k", "4"}), "2000\n");
  const json tables = json::parse(ContentOf(hospital))["tables"];
  EXPECT_EQ(tables["75"][3]["SIBTFrequency"], 20000);
  EXPECT_EQ(tables["37"][1]["T99MaxGapPeriod"], 20);
  Told({"new", folder.PathOf("new.json"), "--version", "KD4410.0094"});
  EXPECT_EQ(Told({"get", folder.PathOf("new.json"), "SIBTFrequency_k6k"}), "2000\n");
  EXPECT_THAT(Told({"set", hospital, "T99TableFormat_k6k", "1", "cne"}),
              AllOf(HasSubstr("12000 -> 4000\n"), HasSubstr("240 -> 80\n")));
  Told({"check", hospital});
}

TEST_F(SystemCommands, PresetsInAnotherNumberAreToldByACheck) {
  for (const std::size_t count : {1U, 9U, 12U}) {
    nlohmann::ordered_json document = nlohmann::ordered_json::parse(ContentOf(Sample("city-fleet")));
    nlohmann::ordered_json& presets = document["tables"]["65"];
    while (presets.size() < count) presets.push_back(presets.back());
    presets.erase(presets.begin() + static_cast<std::ptrdiff_t>(count), presets.end());
    folder.Write("city.json", document.dump());
    EXPECT_EQ(Run({"check", city}), ExitCode::No);
    EXPECT_THAT(out.str(), HasSubstr("presets in another number than 10: " + std::to_string(count - 1)));
    EXPECT_EQ(out.str().find("It points at no record of table 65") != std::string::npos, count == 1);
    Told({"add", city, "dtmf", "--repair"});
    EXPECT_THAT(Told({"show", city, "dtmf", "2", "--all"}), HasSubstr("\n    10\n"));
    Told({"delete", city, "dtmf", "2", "--repair"});
  }
}
}  // namespace
