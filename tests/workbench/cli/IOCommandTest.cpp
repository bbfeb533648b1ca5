#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tests/workbench/InProcessCommand.h"

/// Programmable I/O on the command line, on the hospital: a fire alarm comes in and shows on an output.
namespace {
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class IOCommands : public InProcessCommand {
 protected:
  const std::string file = folder.Write("hospital.json", ContentOf(Sample("hospital-paging")));
};

TEST_F(IOCommands, PinsPathsAndLinesAreShown) {
  EXPECT_THAT(
      Told({"show", file, "io"}),
      AllOf(HasSubstr("  8  IOP_GPIO1  Input      Enter Emergency Mode    Low     100  IOP_GPIO2  FIRE\n"),
            HasSubstr("RTS is on IOP_GPIO3\n"), HasSubstr("Emergency Mode Type  Non Stealth\n"),
            HasSubstr("A - Bypass In")));
  const json shown = json::parse(Told({"show", file, "io", "--json"}));
  EXPECT_EQ(shown["flowControl"]["ctsWord"], "IOP_GPIO4");
  EXPECT_EQ(shown["pins"][8]["action"], "Alarm Status");
  EXPECT_EQ(Run({"show", file, "io", "1"}), ExitCode::CouldNot);
}

TEST_F(IOCommands, WhatAPersonReadsIsWhatIsTyped) {
  EXPECT_EQ(Run({"set", file, "DigitalIOAction", "5", "toggle tx rf inhibit"}), ExitCode::No);  // an output
  EXPECT_EQ(Run({"set", file, "DigitalIOAction", "6", "Monitor"}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("set DigitalIODirection first"));
  EXPECT_THAT(Told({"set", file, "DigitalIODirection", "6", "input"}), HasSubstr("None -> Low"));
  EXPECT_THAT(Told({"set", file, "DigitalIOAction", "6", "toggle tx rf inhibit"}),
              HasSubstr("No Action -> Toggle Tx RF Inhibit"));
  EXPECT_EQ(Run({"set", file, "DigitalIOAction", "6", "Togle Tx RF Inhibit"}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("did you mean Toggle Tx RF Inhibit"));
  EXPECT_EQ(Run({"set", file, "DigitalIODirection", "1", "Output"}), ExitCode::No);
  EXPECT_EQ(Run({"set", file, "DigitalIOPin", "1", "AUX_GPI2"}), ExitCode::No);
  EXPECT_EQ(Run({"set", file, "AudioIOTapIn", "2", "R7"}), ExitCode::No);
  Told({"set", file, "AudioIOTapIn", "2", "t3"});
  Told({"set", file, "DigitalIODirection", "11", "None", "--answer", "yes"});
  EXPECT_EQ(json::parse(Told({"show", file, "io", "--json"}))["flowControl"]["cts"], 0);
  Told({"check", file});
}

TEST_F(IOCommands, WhateverIsTriedOnAPinThePersonalitySavesAndOpens) {
  const auto set = [&](const char* uiid, int row, const char* text, const char* answer) {
    const ExitCode code = Run({"set", file, uiid, std::to_string(row), text, "--answer", answer});
    EXPECT_TRUE(code == ExitCode::Done || code == ExitCode::No) << uiid << row << text << messages;
  };
  for (const char* answer : {"no", "yes"}) {
    for (const int row : {1, 4, 7, 8, 15}) {  // of each interface; inputs only, and with links
      for (const char* direction : {"Input", "Output", "Input", "None"}) {
        set("DigitalIODirection", row, direction, answer);
        for (const char* action : {"External PTT 1", "Home Channel", "BCD Pin 0", "Busy Status",
                                   "F1 Key Status", "CTS Control (DCE)", "No Action"}) {
          set("DigitalIOAction", row, action, answer);
        }
      }
    }
    Run({"check", file, "--json"});
    const json checked = json::parse(out.str());
    for (const json& finding : checked["findings"]) EXPECT_NE(finding["kind"], "error") << finding;
  }
}

TEST_F(IOCommands, AFileThatNeverHeldPinsIsToldByTheTableWhenItIsFilled) {
  auto content = nlohmann::ordered_json::parse(ContentOf(Sample("city-fleet")));
  for (const char* table : {"3", "15", "24", "25", "55", "56", "57", "59"}) content["tables"].erase(table);
  const std::string fresh = folder.Write("fresh.json", content.dump());
  const std::string filled = Told({"set", fresh, "DigitalIODirection", "2", "Input"});
  for (const char* table : {"25", "55", "59"}) {
    EXPECT_THAT(filled, HasSubstr(std::string("as by the first save: table ") + table + " ("));
  }
  EXPECT_THAT(filled, HasSubstr("The file holds the same values as before."));  // in all other tables
  EXPECT_THAT(Told({"set", fresh, "DigitalIODirection", "2", "None"}),
              AllOf(HasSubstr("55.DigitalIOInputDirection"), Not(HasSubstr("first save"))));
}

TEST_F(IOCommands, ALineOfNoPinIsRefusedWithItsPlace) {
  constexpr struct {
    const char *table, *field;
    std::size_t index;
    int pin;
  } kDamages[] = {
      {"55", "DigitalIOInputPinID", 7, 0},   {"55", "DigitalIOInputPinID", 7, 21},
      {"55", "DigitalIOInputPinID", 7, 37},  {"56", "DigitalIOOutputPinID", 5, 0},
      {"56", "DigitalIOOutputPinID", 5, 21}, {"56", "DigitalIOOutputPinID", 5, 37},
      {"56", "DigitalIOOutputPinID", 5, 24},  // an input only
  };
  for (const auto& damage : kDamages) {
    auto document = nlohmann::ordered_json::parse(ContentOf(Sample("hospital-paging")));
    document["tables"][damage.table][damage.index][damage.field] = damage.pin;
    const std::string damaged = folder.Write("damaged.json", document.dump());
    EXPECT_EQ(Run({"check", damaged}), ExitCode::CouldNot) << damage.field << damage.pin;
    const std::string place =
        "tables." + std::string(damage.table) + "[" + std::to_string(damage.index + 1) + "].";
    EXPECT_THAT(messages, HasSubstr("damaged.json:1: " + place + damage.field)) << damage.pin;
  }
}
}  // namespace
