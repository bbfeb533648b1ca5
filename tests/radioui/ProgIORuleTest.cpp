#include "radioui/modProgIO.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kLosesCells = QuestionBox(
    "Changing the direction will cause one or more fields to be set back to their default values. Do you "
    "wish to continue?");
const std::string kUnusedLink =
    NoticeBox("If a link is fitted for this pin, please ensure you remove it or leave the pin unconnected.");
std::string OnlyOne(std::string_view fill, std::string_view end = ".") {
  return ErrorBox(
      "%0:S is already set to %1:S.  Only one %2:S pin can be set to this Action" + std::string(end), fill);
}

/// The grid with all pins free; rows 1 to 7 are AUX, 8 to 14 IOP, 15 the control head.
class ProgIORules : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveChannels({11, 12});
    EXPECT_TRUE(ToUI("55.DigitalIOInputPinID"));
  }
  /// Direction, action, active state, debounce time, mirror, signal type.
  void GiveRow(RecordNr row, const std::vector<std::string>& cells) {
    std::size_t i = 0;
    for (const char* field : kCells) provider.Set(field, row, i < cells.size() ? cells[i++] : "None");
  }
  std::string RowOf(RecordNr row) const {
    std::string texts;
    for (const char* field : kCells) texts += (texts.empty() ? "" : ",") + Text(field, row);
    return texts;
  }
  bool Direct(RecordNr row, const char* direction, const std::vector<Button>& answers = {}) {
    return Edit("DigitalIODirection", row, direction, answers);
  }
  bool Act(RecordNr row, std::string_view action, const std::vector<Button>& answers = {}) {
    return Edit("DigitalIOAction", row, std::string(action), answers);
  }
  bool Edit(const char* uiid, RecordNr row, const std::string& text, const std::vector<Button>& answers) {
    messenger.Clear();
    messenger.Play(answers);
    const bool accepted = Validate(uiid, text, row);
    if (accepted) provider.Set(uiid, row, validated);
    return accepted;
  }

 private:
  static constexpr const char* kCells[] = {"DigitalIODirection",   "DigitalIOAction",
                                           "DigitalIOActiveState", "DigitalIODebounceTime",
                                           "DigitalIOMirroredTo",  "DigitalIOSignalType"};
};

TEST_F(ProgIORules, ADirectionGivesItsCellsAndAsksWhereAnActionIsLost) {
  const struct {
    std::vector<std::string> cells;
    const char* direction;
    std::vector<Button> answers;
    bool passes;
    const char* after;
    std::vector<std::string> boxes;
  } cases[] = {
      {{"None", "No Action"}, "Input", {}, true, "Input,No Action,Low,10,None,None", {}},
      {{"None", "No Action"}, "Output", {}, true, "Output,No Action,Low,None,None,None", {}},
      {{"Output", "No Action", "High"}, "Input", {}, true, "Input,No Action,High,10,None,None", {}},
      {{"Input", "Monitor", "Low", "20"},
       "Output",
       {kNo},
       false,
       "Input,Monitor,Low,20,None,None",
       {kLosesCells}},
      {{"Input", "Monitor", "Low", "20", "AUX_GPIO4"},
       "Output",
       {kYes},
       true,
       "Output,No Action,Low,None,None,None",
       {kLosesCells}},
      {{"Input", "No Action", "Low", "20", "AUX_GPIO4"},
       "None",
       {},
       true,
       "None,No Action,None,None,None,None",
       {}},
      {{"Output", "F1 Key Status", "High", "None", "None", "Latching"},
       "None",
       {kYes},
       true,
       "None,No Action,None,None,None,None",
       {kLosesCells}},
      {{"Input", "No Action", "High", "20"}, "Output", {}, true, "Output,No Action,High,None,None,None", {}},
  };
  for (const auto& one : cases) {
    GiveRow(5, one.cells);
    EXPECT_EQ(Direct(5, one.direction, one.answers), one.passes);
    EXPECT_EQ(RowOf(5), one.after);
    EXPECT_EQ(Boxes(), one.boxes);
  }
  EXPECT_TRUE(Direct(5, "Output"));
  EXPECT_EQ(Refreshed() + Switched(), "") << "the same direction changes nothing";
}

TEST_F(ProgIORules, TheFirstRowKeepsItsDirectionBehindEachWriteThatDependsOnIt) {
  const auto trail = [&](RecordNr row) {
    GiveRow(row, {"None", "No Action"});
    StartTrail();
    EXPECT_TRUE(Validate("DigitalIODirection", "Input", row));
    return Trail().substr(0, Trail().find(" refresh"));
  };
  EXPECT_EQ(trail(1), "1108.DebounceTime[1] 1108.Direction[1] 1108.ActiveState[1] 1108.Direction[1]");
  EXPECT_EQ(trail(2), "1108.DebounceTime[2] 1108.ActiveState[2]");
}

TEST_F(ProgIORules, AnOutputThatIsMirroredKeepsItsDirection) {
  GiveRow(5, {"Output", "No Action", "Low"});
  GiveRow(2, {"Input", "No Action", "Low", "10", "AUX_GPIO5"});
  EXPECT_FALSE(Direct(5, "Input"));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox(
                  "Another pin is currently mirrored to this output pin. To change this pin's direction, "
                  "set the Mirrored To property of %1:S to another value.",
                  "AUX_GPI2")));
}

TEST_F(ProgIORules, ALostActionTakesItsParametersAndTheLineOfFlowControl) {
  const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
      {"Input", "Home Channel", "ActionParamHomeChannel", "11", "-ActionParamHomeChannel"},
      {"Input", "Preset Group", "ActionParamPresetChannel", "None", "-ActionParamPresetGroup"},
      {"Input", "Power Sense (Ignition)", "DisableOnOffControl", "0", ""},
      {"Input", "Enter Emergency Mode", "ActionParamEmergencyMode", "0", "-ActionParamEmergencyMode"},
      {"Output", "Radio Transmission Status", "UiPreCarrierIndicationTime", "0",
       "-UiPreCarrierIndicationTime"},
      {"Output", "Alarm Status", "AlarmHighReversePower", "0",
       "-AlarmStunned-AlarmOutofLock-AlarmHighTemp-AlarmVeryHighTemp-AlarmHighReversePower"},
      {"Input", "RTS Control (DCE)", "IOPRTS", "0", ""},
      {"Output", "CTS Control (DCE)", "IOPCTS", "0", ""},
  };
  for (const auto& [direction, action, field, value, told] : cases) {
    provider.Set(field, 1, 1);
    GiveRow(5, {direction, action, "Low", "10"});
    GiveRow(6, {direction, action, "Low", "10"});  // that another pin has the action does not count
    EXPECT_TRUE(Direct(5, "None", {kYes})) << action;
    EXPECT_EQ(Text(field), value) << action;
    EXPECT_EQ(Switched(), told) << action;
  }
}

TEST_F(ProgIORules, AFreedPinWithALinkIsAdvisedOn) {
  for (const RecordNr row : {2, 3, 14, 5}) {
    GiveRow(row, {"Input", "No Action", "Low", "10"});
    EXPECT_TRUE(Direct(row, "None"));
    EXPECT_EQ(Boxes(), row == 5 ? std::vector<std::string>() : std::vector<std::string>{kUnusedLink});
  }
}

TEST_F(ProgIORules, AnActionIsGivenOnceButWhereItMayBeShared) {
  const struct {
    RecordNr other;
    const char* direction;
    RecordNr row;
    const char *rowDirection, *action;
    std::vector<std::string> boxes;
  } cases[] = {
      {1, "Input", 4, "Input", "External PTT 1", {OnlyOne("AUX_GPI1|External PTT 1|Input")}},
      {4, "Output", 5, "Output", "Reflect PTT Status", {}},
      {4, "Output", 5, "Output", "CTS Control (DCE)", {OnlyOne("AUX_GPIO4|CTS Control (DCE)|Output")}},
      {4,
       "Output",
       5,
       "Output",
       "Serial Data In Progress",
       {OnlyOne("AUX_GPIO4|Serial Data In Progress|Output")}},
      {1,
       "Input",
       4,
       "Input",
       "Toggle Tx RF Inhibit",
       {OnlyOne("AUX_GPI1|Toggle Tx RF Inhibit|Input", " for AUX")}},
      {1, "Input", 9, "Input", "Toggle Tx RF Inhibit", {}},  // one on each interface
      {8,
       "Input",
       9,
       "Input",
       "Toggle Tx RF Inhibit",
       {OnlyOne("IOP_GPIO1|Toggle Tx RF Inhibit|Input", " for IOP")}},
      {4, "Output", 5, "Output", "Busy Status", {}},
  };
  for (const auto& one : cases) {
    for (RecordNr row = 1; row <= 15; ++row) GiveRow(row, {"None", "No Action"});
    GiveRow(one.other, {one.direction, one.action, "Low", "10"});
    GiveRow(one.row, {one.rowDirection, "No Action", "Low", "10"});
    EXPECT_EQ(Act(one.row, one.action), one.boxes.empty()) << one.action;
    EXPECT_EQ(Boxes(), one.boxes) << one.action;
  }
  GiveRow(4, {"Output", "Busy Status", "Low"});
  GiveRow(5, {"Output", "Busy Status", "Low"});
  GiveRow(6, {"Output", "No Action", "Low"});
  EXPECT_FALSE(Act(6, "Busy Status"));
  EXPECT_THAT(Boxes(), ElementsAre(ErrorBox("Two pins are already set to Busy Status",
                                            "AUX_GPIO4|Busy Status|Output")));
}

TEST_F(ProgIORules, ABankOfChannelBitsOnTwoInterfacesIsToldAndAllowed) {
  const auto told = [](const char* fill) {
    return ErrorBox("%0:S is on the %1:S interface. %2:S will be on the %3:S interface.", fill);
  };
  GiveRow(4, {"Input", "BCD Pin 0", "Low", "10"});
  GiveRow(8, {"Input", "No Action", "Low", "20"});
  EXPECT_TRUE(Act(8, "BCD Pin 3"));
  EXPECT_THAT(Boxes(), ElementsAre(told("BCD Pin 0|AUX|BCD Pin 3|IOP")));
  EXPECT_EQ(RowOf(8), "Input,BCD Pin 3,Low,10,None,None") << "the time changes with the kind of action";
  EXPECT_TRUE(Act(9, "BCD Pin 4"));  // bit 3 is not compared
  EXPECT_THAT(Boxes(), ElementsAre(told("BCD Pin 0|AUX|BCD Pin 4|IOP")));
  GiveRow(4, {"None", "No Action"});
  GiveRow(5, {"Input", "BCD Pin 7", "Low", "10"});  // the first row of the bank is the last that is asked
  EXPECT_TRUE(Act(6, "BCD Pin 0"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ProgIORules, AdviceOnLinksComesBeforeARefusalAndItsStateStays) {
  const auto fitted = NoticeBox(
      "To set the radio to enter Emergency Mode from a powered off state, the hardware link LK3 must be "
      "fitted (default factory configuration).");
  const auto removed = NoticeBox(
      "To select an action other than Emergency Mode for AUX_GPI2, the hardware link LK3 must be removed.");
  const auto internal = NoticeBox(
      "To select an action other than 'Power Sense (Internal)' for IOP_GPI07, the hardware link LK4 must be "
      "removed (default factory configuration).");
  const auto offWithIt =
      NoticeBox("'Enter Emergency Mode' will not be supported on this pin if the radio is turned off.");
  const std::tuple<RecordNr, const char*, const char*, std::vector<std::string>> cases[] = {
      {2, "Enter Emergency Mode", "Low", {fitted}},
      {2, "Monitor", "Low", {removed}},
      {14, "Monitor", "None", {internal}},
      {14, "Power ON (Stand-by)", "High", {internal}},
      {5, "Enter Emergency Mode", "None", {offWithIt}},
      {15, "Power ON (Stand-by)", "Low", {}},
  };
  for (const auto& [row, action, state, boxes] : cases) {
    for (RecordNr other = 1; other <= 15; ++other) GiveRow(other, {"Input", "No Action"});
    EXPECT_TRUE(Act(row, action)) << action;
    EXPECT_EQ(Boxes(), boxes) << action;
    EXPECT_EQ(Text("DigitalIOActiveState", row), state) << action;
  }
  provider.Set("FunctionKey3", 1, 9);
  GiveRow(2, {"Input", "No Action", "High", "10"});
  EXPECT_FALSE(Act(2, "Economy"));
  EXPECT_THAT(
      Boxes(),
      ElementsAre(removed,
                  ErrorBox("'Economy' cannot be selected while a Function key is assigned to 'Economy'")));
  EXPECT_EQ(RowOf(2), "Input,No Action,Low,10,None,None");
  EXPECT_EQ(Refreshed(), "DigitalIOActiveState");
}

TEST_F(ProgIORules, LeavingTheIgnitionAsksAlsoForNoActionAndForTheSame) {
  const auto asks = QuestionBox(
      "Disable On/Off Control must be unticked if no I/O line actions are set to Power Sense (Ignition).  "
      "Set Disable On/Off Control to unticked?");
  for (const char* action : {"No Action", "Power Sense (Ignition)"}) {
    GiveRow(5, {"Input", "Power Sense (Ignition)", "High", "10"});
    provider.Set("DisableOnOffControl", 1, 1);
    EXPECT_FALSE(Act(5, action, {kNo})) << action;
    EXPECT_THAT(Boxes(), ElementsAre(asks)) << action;
    EXPECT_EQ(Text("DisableOnOffControl") + RowOf(5), "1Input,Power Sense (Ignition),High,10,None,None");
    EXPECT_TRUE(Act(5, action, {kYes})) << action;
    EXPECT_EQ(Text("DisableOnOffControl"), "0") << action;
  }
}

TEST_F(ProgIORules, AnActionTakesWhatBelongsToIt) {
  GiveRow(6, {"Output", "No Action", "Low"});
  EXPECT_TRUE(Act(6, "F2 Key Status"));
  EXPECT_EQ(RowOf(6), "Output,F2 Key Status,Low,None,None,Momentary");
  EXPECT_TRUE(Act(6, "CTS Control (DCE)"));
  EXPECT_EQ(RowOf(6) + Text("IOPCTS"), "Output,CTS Control (DCE),Low,None,None,None27");
  EXPECT_TRUE(Act(6, "No Action"));
  EXPECT_EQ(Text("IOPCTS"), "27") << "only a change of direction frees the line";
  provider.Set("UiPreCarrierIndicationTime", 1, 50);
  EXPECT_TRUE(Act(6, "Radio Transmission Status"));
  EXPECT_EQ(Text("UiPreCarrierIndicationTime"), "50");
  EXPECT_EQ(Switched(),
            "-ActionParamPresetChannel-ActionParamHomeChannel-ActionParamEmergencyMode"
            "-ActionParamToggleMuteExternalAudio-ActionParamMuteAudioOutput-ActionParamUnMuteAudioOutput"
            "-AlarmStunned-AlarmOutofLock-AlarmHighTemp-AlarmVeryHighTemp-AlarmHighReversePower"
            "-ActionParamPresetGroup+UiPreCarrierIndicationTime");
  EXPECT_TRUE(Act(6, "No Action"));
  EXPECT_EQ(Text("UiPreCarrierIndicationTime"), "0");
  GiveRow(5, {"Input", "No Action", "Low", "10"});
  EXPECT_FALSE(Act(5, "Preset Group"));
  EXPECT_THAT(
      Boxes(),
      ElementsAre(ErrorBox(
          "'Preset Group' cannot be selected while there are no Standard Scan Groups or Vote Groups.")));
  provider.SetCount(16, 3);
  provider.Fill("GroupID_k6k", {101, 102, 103});
  provider.Fill("ScanType_k6k", {1, 2, 0});
  EXPECT_TRUE(Act(5, "Preset Group"));
  EXPECT_EQ(Text("ActionParamPresetGroup"), "103");
  provider.Fill("16.GroupType", {0, 1, 0});
  EXPECT_TRUE(Act(5, "Preset Group"));
  EXPECT_EQ(Text("ActionParamPresetGroup"), "102") << "a vote group of any scan type";
}

TEST_F(ProgIORules, StatesMirrorsAndLinesKeepToThePins) {
  const std::tuple<RecordNr, const char*, const char*, bool> states[] = {
      {2, "Enter Emergency Mode", "High", false},  {2, "Monitor", "High", true},
      {3, "Power Sense (Ignition)", "Low", false}, {14, "Power ON (Stand-by)", "Low", false},
      {14, "Power ON (Stand-by)", "High", true},   {4, "Enter Emergency Mode", "High", true}};
  for (const auto& [row, action, state, passes] : states) {
    GiveRow(row, {"Input", action, "None", "10"});
    EXPECT_EQ(Validate("DigitalIOActiveState", state, row), passes) << action << state;
  }
  GiveRow(1, {"Input", "Monitor", "Low", "10", "IOP_GPIO1"});
  EXPECT_FALSE(Edit("DigitalIOMirroredTo", 2, "IOP_GPIO1", {}));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox(
                  "The pin %0:S is already set to mirror the pin %1:S.  Only one input pin can mirror to an "
                  "output pin.",
                  "AUX_GPI1|IOP_GPIO1")));
  EXPECT_TRUE(Edit("DigitalIOMirroredTo", 1, "IOP_GPIO1", {}));
  EXPECT_TRUE(Edit("DigitalIOMirroredTo", 2, "None", {}));
}

TEST_F(ProgIORules, ALineOfFlowControlTakesItsPinAndFreesTheOld) {
  EXPECT_TRUE(Edit("IOPRTS", 1, "29", {}));
  EXPECT_EQ(RowOf(8) + "," + Text("1108.Label", 8), "Input,RTS Control (DCE),Low,10,None,None,RTS");
  EXPECT_FALSE(Edit("IOPRTS", 1, "29", {}));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox("RTS Flow control is already set to %0:S.  Please select another Pin.")));
  EXPECT_TRUE(Edit("IOPCTS", 1, "30", {}));
  EXPECT_FALSE(Edit("IOPCTS", 1, "30", {})) << "its own pin has an action";
  EXPECT_FALSE(Edit("IOPCTS", 1, "29", {}));
  EXPECT_THAT(Boxes(), ElementsAre(ErrorBox("The Pin %0:s is already assigned to the Action %1:S.",
                                            "IOP_GPIO1|RTS Control (DCE)")));
  StartTrail();
  EXPECT_TRUE(Validate("IOPRTS", "31"));
  EXPECT_EQ(Trail().substr(0, Trail().find(" refresh")),
            "1108.Direction[8] 1108.Label[8] 1108.Action[8] 1108.ActiveState[8] 1108.DebounceTime[8] "
            "1108.SignalType[8] 1108.MirroredTo[8] "
            "1108.Direction[10] 1108.Label[10] 1108.Action[10] 1108.DebounceTime[10] 1108.SignalType[10] "
            "1108.ActiveState[10] 1108.MirroredTo[10]");
  provider.Set("IOPRTS", 1, validated);
  EXPECT_EQ(RowOf(8) + "," + Text("1108.Label", 8), "None,No Action,None,None,None,None,None");
  EXPECT_TRUE(Edit("IOPCTS", 1, "0", {}));
  EXPECT_EQ(RowOf(9) + RowOf(10).substr(0, 9), "None,No Action,None,None,None,NoneInput,RTS");
}

TEST_F(ProgIORules, TapPointsLieWhereThePathAllowsAndBringTheirTypes) {
  const std::tuple<const char*, RecordNr, int, const char*> cases[] = {
      {"AudioIOTapIn", 1, 19, "You may only choose tap in points R7 and R10 here"},
      {"AudioIOTapIn", 1, 10, ""},
      {"AudioIOTapIn", 2, 7, "You may not choose tap in point R7 here"},
      {"AudioIOTapIn", 2, 10, ""},
      {"AudioIOTapOut", 1, 19, "You may not choose tap in points T3 and T4 here"},
      {"AudioIOTapOut", 3, 4, "You may only choose tap in points T3, T4 and R10 here"},
      {"AudioIOTapOut", 3, 19, ""},
  };
  for (const auto& [uiid, path, point, text] : cases) {
    messenger.Clear();
    EXPECT_EQ(Validate(uiid, point, path), *text == '\0') << uiid << point;
    EXPECT_EQ(Boxes(), *text == '\0' ? std::vector<std::string>() : std::vector<std::string>{ErrorBox(text)});
  }
  const auto out = [&](RecordNr path, int point) {
    EXPECT_TRUE(Validate("AudioIOTapOut", point, path));
    return Text("TapOutType", path) + "," + Text("TapOutUnmuteCondition", path);
  };
  EXPECT_EQ(out(2, 10), "D - Split,None");
  EXPECT_EQ(out(2, 19), "C - Bypass Out,None");
  EXPECT_EQ(out(2, 3), "D - Split,None") << "a point that none is takes the second, too";
  EXPECT_EQ(out(1, 0) + " " + out(2, 0), "D - Split,None C - Bypass Out,None");
  provider.Set("TapInUnmuteCondition", 1, "Busy Detect");
  EXPECT_TRUE(Validate("TapInType", "E - Splice", 1));
  EXPECT_EQ(Text("TapInUnmuteCondition", 1), "None");
}

TEST_F(ProgIORules, TheFormIsLeftWithSoundSplicesAndAlikeSignals) {
  const auto splice = ErrorBox(
      "If a Tap Type is set to Splice then the corresponding In or Out Tap Type must be Splice.  Both Tap "
      "Points must also be identical, as well as both Unmute Conditions.  One or more Audio Sources needs "
      "correcting.");
  const auto signals = ErrorBox(
      "The Signal States for Digital Prog IO Action's 'F%0:s Key Status' cannot be different while Function "
      "Key %0:s is set to 'Action Digital Output Line'.",
      "3");
  const auto leave = [&](const char* in, const char* out, int pointIn, int pointOut, const char* condition) {
    provider.Set("TapInType", 2, in);
    provider.Set("TapOutType", 2, out);
    provider.Set("AudioIOTapIn", 2, pointIn);
    provider.Set("AudioIOTapOut", 2, pointOut);
    provider.Set("TapInUnmuteCondition", 2, condition);
    messenger.Clear();
    return LeaveForm("usrCtlProgIOKD4410", false);
  };
  EXPECT_TRUE(leave("E - Splice", "E - Splice", 10, 10, "None"));
  for (const bool fails : {leave("E - Splice", "D - Split", 10, 10, "None"),
                           leave("A - Bypass In", "E - Splice", 10, 10, "None"),
                           leave("E - Splice", "E - Splice", 10, 19, "None"),
                           leave("E - Splice", "E - Splice", 10, 10, "On PTT")}) {
    EXPECT_FALSE(fails);
  }
  EXPECT_THAT(Boxes(), ElementsAre(splice));
  provider.Set("FunctionKey3", 1, 2);
  GiveRow(5, {"Output", "F3 Key Status", "Low", "None", "None", "Latching"});
  GiveRow(6, {"Output", "F3 Key Status", "Low", "None", "None", "Momentary"});
  EXPECT_FALSE(LeaveForm("usrCtlProgIOKE2210", false));
  EXPECT_THAT(Boxes(), ElementsAre(splice, splice, signals));
}

TEST_F(ProgIORules, ASaveAsksForKeysPTTsAndLines) {
  GiveRow(4, {"Input", "Simulate F2 Key", "Low", "10"});
  const auto refusal = [&] {
    messenger.Clear();
    EXPECT_FALSE(FinalValidation());
    return Boxes().empty() ? std::string() : Boxes().front();
  };
  EXPECT_EQ(refusal(),
            ErrorBox("Programmable I/O pin %0:S is set to %1:S, but Function Key %2:S is Unassigned.",
                     "AUX_GPIO4|Simulate F2 Key|2"));
  GiveRow(4, {"Input", "Simulate F1 Key", "Low", "10"});
  EXPECT_EQ(refusal(),
            ErrorBox("Programmable IO pin %0:S is set to %1:S, but Function Key %2:S is Unassigned.",
                     "AUX_GPIO4|Simulate F1 Key|1"));
  GiveRow(4, {"Input", "Inhibit PTT", "Low", "10"});
  EXPECT_THAT(refusal(), testing::HasSubstr("AUX_GPIO4|Inhibit PTT"));
  provider.Set("PTTInhibitedByExternalControl2_k6k", 1, 1);
  provider.Set("DataCMFlowControl", 1, 1);
  provider.Set("IOPCTS", 1, 30);
  EXPECT_THAT(refusal(), testing::HasSubstr("CTS and RTS hardware flow control lines must be defined"));
  provider.Set("IOPRTS", 1, 31);
  GiveRow(5, {"Output", "No Action", "Low"});
  messenger.Clear();
  EXPECT_TRUE(FinalValidation());
  EXPECT_THAT(Boxes(), ElementsAre(Box(
                           48, "Caption Warning",
                           "One or more Digital IO Pins has a direction set, but no Action associated with "
                           "it and no Input pins mirroring to it.")));
  GiveRow(4, {"Input", "Inhibit PTT", "Low", "10", "AUX_GPIO5"});
  messenger.Clear();
  EXPECT_TRUE(FinalValidation());
  EXPECT_THAT(Boxes(), IsEmpty()) << "an input follows it";
}
}  // namespace
