#include <limits>

#include "platform/XArrayDBObject.h"
#include "radioui/modProgIO.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using modProgIO::ProgIOInputActions;
using modProgIO::ProgIOOutputActions;

constexpr const char* kGrid = "55.DigitalIOInputPinID";
constexpr RecordNr kFirstOutput = 4, kLastRow = 15;

class DigitalIO : public ChannelFixture {
 protected:
  /// The cells of a row of the grid but for its pin.
  std::string RowOf(RecordNr row) const {
    std::string texts;
    for (const char* field :
         {"Direction", "Action", "ActiveState", "DebounceTime", "MirroredTo", "Label", "SignalType"}) {
      texts += (texts.empty() ? "" : ",") + Text(std::string("1108.") + field, row);
    }
    return texts;
  }
  void GiveInput(RecordNr record, int pin, int direction, int action = 0) {
    provider.Set("55.DigitalIOInputPinID", record, pin);
    provider.Set("55.DigitalIOInputDirection", record, direction);
    provider.Set("55.DigitalIOInputActivationAction", record, action);
  }
  void GiveOutput(RecordNr record, int pin, int action, int signalType = 0) {
    provider.Set("56.DigitalIOOutputPinID", record, pin);
    provider.Set("56.DigitalIOOutputAction", record, action);
    provider.Set("56.DigitalIOOutputSignalType", record, signalType);
  }
  void GiveRow(RecordNr row, const char* direction, std::string_view action) {
    provider.Set("1108.Direction", row, direction);
    provider.Set("1108.Action", row, action);
    provider.Set("1108.ActiveState", row, "Low");
    provider.Set("1108.DebounceTime", row, "20");
  }
};

TEST_F(DigitalIO, TheGridHasARowForEachPinHoweverManyThereWere) {
  EXPECT_TRUE(ToUI(kGrid));
  EXPECT_EQ(provider.Count(1108), 15);
  EXPECT_EQ(Text("1108.Pin", 1) + " " + Text("1108.Pin", 15), "AUX_GPI1 CH_GPIO1");
  EXPECT_EQ(RowOf(2), "None,No Action,None,None,None,PIN_5,None");
}

TEST_F(DigitalIO, InputsAndOutputsAreShownOnTheRowsOfTheirPins) {
  GiveInput(1, 30, 1, 33);  // RTS control
  provider.Set("55.DigitalIOInputActiveState", 1, 1);
  provider.Set("55.DigitalIOInputMirroredTo", 1, 25);
  provider.Set("55.DigitalIOInputLabel", 1, "MODEM");
  provider.Set("55.DigitalIOInputDebounceTime", 1, 50);
  GiveInput(2, 25, 2);
  provider.Set("55.DigitalIOInputActiveState", 2, 0);
  GiveInput(3, 22, 1, 17);  // no such input action
  GiveInput(4, 27, 0, 5);
  provider.Set("55.DigitalIOInputLabel", 4, "SPARE");
  GiveInput(5, 0, 0);  // no pin, no direction: passed over
  GiveOutput(1, 25, 23);
  GiveOutput(2, 26, 14);
  GiveOutput(3, 28, 22, 1);
  GiveOutput(4, 0, 1);                             // not used
  provider.Set("1108.SignalType", 9, "Latching");  // of an earlier reading
  EXPECT_TRUE(ToUI(kGrid));
  EXPECT_EQ(RowOf(9), "Input,RTS Control (DCE),High,50,AUX_GPIO4,MODEM,None");
  EXPECT_EQ(RowOf(4), "Output,No Action,Low,None,None,PIN_10,None");
  EXPECT_EQ(Text("56.DigitalIOOutputAction", 1), "0")
      << "an action that was withdrawn is taken out of the radio";
  EXPECT_EQ(RowOf(5), "Output,F2 Key Status,None,None,None,PIN_2,Momentary");
  EXPECT_EQ(RowOf(7), "Output,CTS Control (DCE),None,None,None,PIN_1,Latching");
  EXPECT_EQ(RowOf(1), "Input,,None,10,None,PIN_12,None");
  EXPECT_EQ(RowOf(6), "None,No Action,None,None,None,SPARE,None");
  EXPECT_EQ(Text("IOPRTS") + " " + Text("IOPCTS"), "30 28");
  for (const int direction : {1, 2}) {  // a pin that is none has no row
    GiveInput(5, 37, direction);
    ExpectTermination();
    ToUI(kGrid);
  }
  EXPECT_EQ(Terminations(), 2);
}

TEST_F(DigitalIO, EveryActionInBothDirectionsComesBackFromTheRadio) {
  for (const auto& action : ProgIOInputActions) {
    EXPECT_TRUE(ToUI(kGrid));
    GiveRow(3, "Input", action.strName);
    EXPECT_TRUE(FromUI(kGrid));
    EXPECT_EQ(Text("55.DigitalIOInputDeactivationAction", 3),
              std::to_string(action.blnDeactivationState ? action.bytActionID : 0));
    EXPECT_TRUE(ToUI(kGrid));
    EXPECT_EQ(RowOf(3), "Input," + std::string(action.strName) + ",Low,20,None,PIN_4,None");
  }
  for (const auto& action : ProgIOOutputActions) {
    for (RecordNr row = kFirstOutput; row <= kLastRow; ++row) GiveRow(row, "Output", action.strName);
    EXPECT_TRUE(FromUI(kGrid) && ToUI(kGrid));
    EXPECT_THAT(RowOf(kLastRow), testing::StartsWith("Output," + std::string(action.strName) + ",Low,None,"));
  }
}

TEST_F(DigitalIO, TheRadioGetsARecordForEachRowAndOutputsAsTheyAreCounted) {
  EXPECT_TRUE(ToUI(kGrid));
  GiveRow(2, "Input", "BCD Pin 5");
  provider.Set("1108.MirroredTo", 2, "AUX_GPIO5");
  provider.Set("1108.Label", 2, "None");
  GiveRow(5, "Output", "Busy Status");
  GiveRow(6, "Input", "BCD Pin 5");  // the last one counts
  GiveRow(7, "Output", "F1 Key Status");
  provider.Set("1108.SignalType", 7, "Latching");
  GiveRow(15, "Output", "Busy Status");
  for (RecordNr record = 1; record <= 15; ++record) provider.Set("55.DigitalIOInputMirroredTo", record, 9);
  provider.SetCount(55, 14);  // completed
  EXPECT_TRUE(FromUI(kGrid));
  EXPECT_EQ(Column("55.DigitalIOInputPinID"), "22 23 24 25 26 27 28 29 30 31 32 33 34 35 36");
  EXPECT_EQ(Column("55.DigitalIOInputDirection"), "0 1 0 0 2 1 2 0 0 0 0 0 0 0 2");
  EXPECT_EQ(Column("55.DigitalIOInputMirroredTo"), "0 26 0 0 0 0 9 0 0 0 0 0 0 0 5")
      << "busy outputs are a chain of records; what another output held stays";
  EXPECT_EQ(Text("55.DigitalIOInputLabel", 2) + Text("55.DigitalIOInputLabel", 3), "PIN_4");
  EXPECT_EQ(Column("56.DigitalIOOutputPinID"), "0 26 0 28 0 0 0 0 0 0 0 36");
  EXPECT_EQ(Column("56.DigitalIOOutputAction"), "0 1 0 13 0 0 0 0 0 0 0 1");
  EXPECT_EQ(Column("56.DigitalIOOutputSignalType"), "0 0 0 1 0 0 0 0 0 0 0 0");
  EXPECT_EQ(Column("57.ReverseBCDLookup"), "0 0 0 0 0 27 0 0");
}

TEST_F(DigitalIO, AParameterIsOfTheInputWithItsAction) {
  GiveChannels({11, 12, 13});
  provider.Fill("7.CibChannelID", {11, 12, 13});
  provider.Fill("16.GroupIDTracker", {101, 102});
  provider.Fill("16.GroupIdentity", {101, 102});
  EXPECT_TRUE(ToUI(kGrid));
  GiveRow(2, "Input", "Home Channel");
  GiveRow(5, "Input", "Preset Group");
  provider.Set("55.GPIODeActivation1", 2, 7);
  EXPECT_TRUE(FromUI(kGrid));
  const auto stored = [&](const char* field, const Variant& value, RecordNr record) {
    provider.Set(field, 1, value);
    EXPECT_TRUE(FromUI(field));
    return Text("55.GPIOActivation1", record) + " " + Text("55.GPIODeActivation1", record);
  };
  EXPECT_EQ(stored("0.HomeChannel", "13", 2), "2 7") << "an action that happens once has no end";
  EXPECT_EQ(stored("0.HomeChannel", "None", 2), "2 7") << "what is not chosen yet leaves the radio's";
  EXPECT_EQ(stored("0.HomeChannel", "77", 2), "77 7") << "a number that no channel has is written as it is";
  EXPECT_EQ(stored("0.PresetGroup", "102", 5), "1 1");
  EXPECT_EQ(stored("0.PresetChannel", "12", 5), "1 1") << "no pin has that action";
  const auto shown = [&](const char* field) {
    provider.Set(field, 1, "5");
    EXPECT_TRUE(ToUI(field));
    return Text(field);
  };
  provider.Set("55.GPIOActivation1", 2, 1);
  EXPECT_EQ(shown("0.HomeChannel") + " " + shown("0.PresetGroup") + " " + shown("0.PresetChannel"),
            "12 102 5");
  for (const int index : {-1, 3, std::numeric_limits<int>::max()}) {
    provider.Set("55.GPIOActivation1", 2, index);
    EXPECT_EQ(shown("0.HomeChannel"), "5") << "there is no such channel: " << index;
  }
  provider.Set("55.DigitalIOInputDirection", 5, 2);
  EXPECT_EQ(shown("0.PresetGroup"), "5") << "an output keeps the code of an input that it was";
}

TEST_F(DigitalIO, AudioPathsAreNamedOnTheFormsAndNumberedInTheRadio) {
  provider.SetCount(59, 5);
  provider.Fill("59.AudioIOTapOut", {0, 0, 10, 0, 0});
  provider.Fill("59.AudioIOTapOutType", {0, 5, 4, 9, 0});
  provider.Fill("59.AudioIOTapInType", {5, 9, 1, 0, 0});
  provider.Fill("59.AudioIOTapInUnmuteCondition", {-1, 0, 4, 9, 0});
  EXPECT_TRUE(ToUI("59.AudioIOMicLabels"));
  EXPECT_EQ(Column("59.AudioIOMicLabels"), "Rx Mic PTT EPTT1 EPTT2") << "a fifth path is none";
  EXPECT_EQ(Column("59.TapOutType"), "D - Split C - Bypass Out E - Splice C - Bypass Out");
  EXPECT_EQ(Column("59.TapInType"), "H - Combine 0dB  B - Combine A - Bypass In");
  EXPECT_EQ(Column("59.TapInUnmuteCondition"), "None On PTT Except on PTT ");
  provider.Fill("1096.MicSelect1", {7});
  provider.Fill("1096.MicSelect3", {9});
  provider.Set("59.AudioIOLabel", 2, "X");
  EXPECT_TRUE(FromUI("59.AudioIOMicLabels"));
  EXPECT_EQ(Column("59.AudioIOTapInType") + "|" + Column("59.AudioIOTapOutType"), "5 0 1 0|3 2 4 2");
  EXPECT_EQ(Column("59.AudioIOTapInUnmuteCondition") + "|" + Column("59.AudioIOLabel"), "-1 0 4 -1|   ");
  EXPECT_EQ(Text("59.AudioIOMicSource", 2) + Text("25.MicSelect", 1) + Text("59.AudioIOMicSource", 4) +
                Text("25.MicSelect", 3),
            "7799");
  EXPECT_EQ(Text("59.AudioIOMicSource", 1), "0") << "the receiver's path has no microphone";
}
}  // namespace
