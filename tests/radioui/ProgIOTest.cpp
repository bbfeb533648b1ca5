#include "radioui/modProgIO.h"

#include "common/Handles.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TierFixture.h"

namespace {
using namespace modProgIO;

TEST(ProgIOPins, AreFoundByIdAndByNameInAnyCase) {
  EXPECT_EQ(GetDigitalIOPinName(36), "CH_GPIO1");
  for (const std::int32_t none : {0, 21, 37, 278, -234}) EXPECT_EQ(GetDigitalIOPinName(none), "") << none;
  EXPECT_EQ(GetDigitalIOGridRow("AUX_GPI1"), 1);
  EXPECT_EQ(GetDigitalIOGridRow("ch_gpio1"), 15);
  EXPECT_EQ(GetDigitalIOPinID("Iop_Gpio7"), 35);
  for (const char* none : {"None", "", "PIN_9"})
    EXPECT_EQ(GetDigitalIOGridRow(none) + GetDigitalIOPinID(none), 0) << none;
}

TEST(ProgIOActions, AnInputIsFoundDespiteBlanksAndBeforeAnOutput) {
  struct {
    const char* name;
    std::int32_t activation, deactivation;
  } cases[] = {{"No Action", 0, 0},          {" Preset Group ", 46, 46},   {"Enter Emergency Mode", 4, 0},
               {"CTS Control (DCE)", 22, 0}, {"CTS Control (DCE) ", 0, 0}, {"busy status", 0, 0},
               {"BUSY_STATUS", 0, 0}};
  for (const auto& action : cases) {
    EXPECT_EQ(GetDigitalIOActionID(action.name), action.activation) << action.name;
    EXPECT_EQ(GetDigitalIODeactivationActionID(action.name), action.deactivation) << action.name;
  }
}

TEST(ProgIOActions, ThatHappenOnceHaveNoCodeForTheirEnd) {
  std::vector<int> once;
  for (const clsProgIOActions& action : ProgIOInputActions) {
    if (GetDigitalIODeactivationActionID(action.strName) == 0) once.push_back(action.bytActionID);
  }
  EXPECT_THAT(once, testing::ElementsAre(0, 4, 3, 5, 38, 39, 40, 21, 22, 24));
}

TEST(ProgIOActions, InputsAndOutputsAreNumberedApart) {
  EXPECT_EQ(GetDigitalIOActionName(1, true), "Power ON (Stand-by)");
  EXPECT_EQ(GetDigitalIOActionName(1, false), "Busy Status");
  EXPECT_EQ(GetDigitalIOActionName(17, true), "");
  EXPECT_EQ(GetDigitalIOActionName(49, false), "");
  EXPECT_EQ(InputAction("RTS_Control").strName, "RTS Control (DCE)");
  EXPECT_EQ(OutputAction("no_action").bytActionID, 0);
  EXPECT_EQ(ErrorNumberOf([] { OutputAction("RTS_CONTROL"); }), 5);
}

TEST(ProgIOStates, WhatIsUnknownHasAnAnswerToo) {
  EXPECT_EQ(GetDigitalIOActiveStateID("Low"), 0);
  EXPECT_EQ(GetDigitalIOActiveStateID("High"), 1);
  for (const char* other : {"None", "high", ""}) EXPECT_EQ(GetDigitalIOActiveStateID(other), 2) << other;
  for (const std::int32_t other : {2, -1}) EXPECT_EQ(GetDigitalIOActiveStateName(other), "None") << other;
  EXPECT_EQ(GetAudioIOTapTypeName(5), "H - Combine 0dB");
  EXPECT_EQ(GetAudioIOTapTypeName(6), "");
  EXPECT_EQ(GetAudioIOTapTypeID("C - Bypass Out"), 2);
  EXPECT_EQ(GetAudioIOTapTypeID("C"), 0);
  EXPECT_EQ(GetUnmuteConditionName(-1), "None");
  EXPECT_EQ(GetUnmuteConditionID("On PTT"), 0);
  EXPECT_EQ(GetUnmuteConditionID("?"), -1);
}

TEST(ProgIOTaps, SixPointsLieOnTheReceivePath) {
  std::vector<std::int32_t> onPath;
  for (std::int32_t point = -1; point <= 40; ++point) {
    if (TapPointRxPath(point)) onPath.push_back(point);
  }
  EXPECT_THAT(onPath, testing::ElementsAre(1, 2, 4, 5, 7, 10));
}

class ProgIOActionInList : public TierFixture {};

TEST_F(ProgIOActionInList, IsFoundInAnyRecordAsExactText) {
  const auto holds = [this](const char* action) {
    return IsProgIOActionInList(ProviderRef(sharedProvider), "1108.Action", action);
  };
  provider.Set("1108.Action", 15, "Alarm Status");
  EXPECT_TRUE(holds("Alarm Status"));
  EXPECT_FALSE(holds("alarm status") || holds("Alarm") || holds("Busy Status"));
  ExpectTermination();
  provider.Monitor().FailOnce(1);
  EXPECT_FALSE(holds("Alarm Status"));  // nobody knows
  provider.SetCount(1108, 0);
  EXPECT_FALSE(holds("Alarm Status"));
}
}  // namespace
