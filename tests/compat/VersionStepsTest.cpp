#include <gmock/gmock.h>

#include <sstream>

#include "platform/Conversions.h"
#include "selcall/BurstSlots.h"
#include "selcall/modSelcallMapping.h"
#include "tests/support/TierFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// One step on what both versions share, and on what only the old one has.
class VersionSteps : public TierFixture {
 protected:
  void Open(const std::string& from, const std::string& to, const std::string& model = "KD4410.") {
    from_ = model + from;
    to_ = model + to;
    source = std::make_shared<Provider>(ProjectSchemas()->At(from_));
    destination = std::make_shared<Provider>(ProjectSchemas()->At(to_));
    for (Provider* content : {source.get(), destination.get()}) {
      for (const std::int32_t table : {21, 36, 53, 75, 77, 78}) content->SetCount(table, 3);
      for (const std::int32_t table : {5, 29, 64}) content->SetCount(table, 2);
    }
  }
  static void Put(Provider& content, const std::string& cell, const std::string& value) {
    const auto open = cell.find('[');
    const std::string field = cell.substr(0, open);
    const RecordNr record =
        open == std::string::npos ? 1 : CLng(cell.substr(open + 1, cell.size() - open - 2));
    const SchemaField* known = content.GetSchema().Find(field);
    if (known == nullptr) return;
    if (content.Count(known->table) < record) content.SetCount(known->table, record);
    const bool isText = known->type == FieldType::Text;
    content.Set(field, record, isText ? Variant(value) : Variant(CLng(value)));
  }
  /// "field[record]=value field=value" in both; "+21" or "-16" a record more or less of a table.
  void PutAll(const std::string& cells) {
    std::istringstream words(cells);
    for (std::string word; words >> word;) {
      const auto equals = word.find('=');
      for (Provider* content : {source.get(), destination.get()}) {
        if (equals != std::string::npos)
          Put(*content, word.substr(0, equals), word.substr(equals + 1));
        else {
          const int table = CLng(word.substr(1));
          const RecordNr count = content->Count(table) + (word[0] == '+' ? 1 : -1);
          const RecordNr most = content->GetSchema().FindTable(table)->maximum;
          content->SetCount(table, std::min(count, most));
        }
      }
    }
  }
  /// What stands in the cells of the destination now, written as they were put.
  std::string Read(const std::string& cells) const {
    std::istringstream words(cells);
    std::string told;
    for (std::string word; words >> word;) {
      const std::string cell = word.substr(0, word.find('='));
      const auto open = cell.find('[');
      const RecordNr record =
          open == std::string::npos ? 1 : CLng(cell.substr(open + 1, cell.size() - open - 2));
      told += (told.empty() ? "" : " ") + cell + "=" + CStr(destination->Get(cell.substr(0, open), record));
    }
    return told;
  }
  bool Run() {
    messenger.Clear();
    Boolean goesOn = kFalse;
    EXPECT_TRUE(ProviderOwner()->BackwardsCompatibility(source, from_, destination, to_, {}, goesOn).Ok());
    return goesOn != kFalse;
  }
  /// Each box as "W text" or "E text", with its parameter behind a bar.
  std::vector<std::string> Told() const {
    std::vector<std::string> told;
    for (const Shown& box : messenger.Boxes()) {
      EXPECT_EQ(box.style, MessageStyle::kExclamation);
      EXPECT_TRUE(box.title == "Warning" || box.title == "Error") << box.title;
      told.push_back(box.title.substr(0, 1) + " " + box.text.substr(0, 60) +
                     (box.parameters.empty() ? "" : "|" + box.parameters));
    }
    return told;
  }

  std::shared_ptr<Provider> source, destination;
  std::string from_, to_;
};

struct Row {
  const char* from;
  const char* to;
  const char* put;
  const char* box;  // how it begins; empty for none
  const char* left;
};

TEST_F(VersionSteps, EachStepDoesWhatItsVersionsNeed) {
  const Row rows[] = {
      {"0029", "0051", "SubaudInvalidConfDelay_k6k[2]=251 34.PAPresetVolLevel=11 21.NetworkID[2]=5", "",
       "SubaudInvalidConfDelay_k6k[2]=250 34.PAPresetVolLevel=94 21.NetworkPointer[2]=5"},
      {"0029", "0051", "34.PAPresetVolLevel=30", "", "34.PAPresetVolLevel=255"},
      {"0051", "0029", "21.SignallingType[3]=2 34.PAPresetVolLevel=100", "E DTMF signalling systems",
       "34.PAPresetVolLevel=100"},
      {"0051", "0029", "34.PAPresetVolLevel=254", "", "34.PAPresetVolLevel=29"},
      {"0051", "0052", "21.NetworkPointer[2]=4 GPSSDMCompatibility=2 34.CovertMicFitted=1", "",
       "21.NetworkPointer[2]=5 GPSSDMCompatibility=1 34.CovertMicFitted=2"},
      {"0051", "0052", "GPSSDMCompatibility=0", "", "GPSSDMCompatibility=0"},
      {"0052", "0051", "21.NetworkPointer[2]=4 GPSSDMCompatibility=1 34.CovertMicFitted=2", "",
       "21.NetworkPointer[2]=3 GPSSDMCompatibility=2 34.CovertMicFitted=1"},
      {"0052", "0051", "34.CovertMicFitted=1", "W The Emergency Mic can not be", "34.CovertMicFitted=0"},
      {"0052", "0053", "5.TxCompression[1]=1", "", "5.TxCompression[1]=1"},
      {"0054", "0053", "21.NetworkID[2]=7 21.NetworkPointer[2]=1", "", "21.NetworkPointer[2]=7"},
      {"0053", "0054",
       "21.NetworkPointer[3]=9 59.AudioIOMicSource[1]=0 59.AudioIOTapIn[1]=0 59.AudioIOMicSource[2]=0 "
       "59.AudioIOTapIn[2]=0 59.AudioIOMicSource[3]=0 59.AudioIOTapIn[3]=4 59.AudioIOMicSource[4]=2 "
       "59.AudioIOTapIn[4]=0",
       "",
       "21.NetworkID[3]=9 59.AudioIOMicSource[1]=0 59.AudioIOMicSource[2]=1 59.AudioIOMicSource[3]=0 "
       "59.AudioIOMicSource[4]=2"},
      {"0081", "0054", "21.SignallingType[2]=3", "", "21.SignallingType[2]=3"},
      {"0081", "0054", "+37 21.SignallingType[2]=3", "E Two-Tone signalling systems", ""},
      {"0054", "0081",
       "55.DigitalIOInputActivationAction[15]=19 55.DigitalIOInputDirection[15]=1 "
       "55.DigitalIOInputActiveState[15]=1 55.DigitalIOInputDebounceTime[15]=50 "
       "55.DigitalIOInputDeactivationAction[15]=19 55.DigitalIOInputMirroredTo[15]=3",
       "W You can not have an External PTT",
       "55.DigitalIOInputActivationAction[15]=0 55.DigitalIOInputDirection[15]=0 "
       "55.DigitalIOInputActiveState[15]=2 55.DigitalIOInputDebounceTime[15]=10 "
       "55.DigitalIOInputDeactivationAction[15]=0 55.DigitalIOInputMirroredTo[15]=0"},
      {"0054", "0081",
       "55.DigitalIOInputActivationAction[2]=35 55.DigitalIOInputDeactivationAction[2]=35 "
       "55.DigitalIOInputActivationAction[15]=20",
       "W Deactivate Alarm Mode is no longer",
       "55.DigitalIOInputActivationAction[2]=0 55.DigitalIOInputDeactivationAction[2]=0 "
       "55.DigitalIOInputActivationAction[15]=20"},
      {"0081", "0082", "GPSEnabled=1 GPSSDMWaitForAck=1", "W GPS auto-acknowledgements are not", ""},
      {"0081", "0082", "GPSEnabled=0 GPSSDMWaitForAck=1 GPSNMEAStringType=0", "", "GPSNMEAStringType=0"},
      {"0081", "0082", "GPSEnabled=1 GPSNMEAStringType=0", "W The GPS NMEA String Type",
       "GPSNMEAStringType=1"},
      {"0081", "0082",
       "DataSDMAutoAck=1 DataSDMOptionsEnabled=1 TxDurationTimer[2]=251 TxLockoutTimer[3]=600 "
       "59.AudioIOMicSource[1]=3 59.AudioIOMicSource[4]=3",
       "",
       "TextSDMAutoAckTransmission=1 TxDurationTimer[2]=250 TxLockoutTimer[3]=250 59.AudioIOMicSource[1]=3 "
       "59.AudioIOMicSource[4]=1"},
      {"0081", "0082", "DataSDMAutoAck=1 DataSDMOptionsEnabled=0 TextSDMAutoAckTransmission=1", "",
       "TextSDMAutoAckTransmission=0"},
      {"0082", "0081", "GPSEnabled=1 TextSDMAutoAckTransmission=1", "",
       "GPSSDMWaitForAck=1 DataSDMAutoAck=1"},
      {"0085", "0084", "55.DigitalIOInputActivationAction[4]=39", "E This database version does not", ""},
      {"0085", "0084", "55.DigitalIOInputActivationAction[4]=41", "", ""},
      {"0085", "0086",
       "21.SignallingType[2]=1 ToneBlankingTimer[2]=1 21.SignallingPointer[2]=1 29.GapPeriod[2]=3 "
       "21.ToneBlankingDeactivationTimer[2]=7 21.SignallingType[3]=1 21.ToneBlankingDeactivationTimer[3]=7",
       "", "21.ToneBlankingDeactivationTimer[2]=280 21.ToneBlankingDeactivationTimer[3]=7"},
      {"0086", "0085",
       "+16 21.SignallingType[2]=1 ToneBlankingTimer[2]=1 21.SignallingPointer[2]=1 29.GapPeriod[2]=3 "
       "21.ToneBlankingDeactivationTimer[2]=290 21.ToneBlankingDeactivationTimer[1]=100 "
       "21.ToneBlankingDeactivationTimer[3]=101",
       "W Tone Blanking Deactivation Timer",
       "21.ToneBlankingDeactivationTimer[1]=100 21.ToneBlankingDeactivationTimer[2]=7 "
       "21.ToneBlankingDeactivationTimer[3]=100"},
      {"0086", "0085", "+16 SubaudInvalidConfDelay_k6k[3]=19", "E This database version only supports Inv",
       ""},
      {"0086", "0085", "+16 SubaudInvalidConfDelay_k6k[3]=251", "E This database version only supports Inv",
       ""},
      {"0086", "0085", "", "E This database version must have 1 Scan Group.  Please add", ""},
      {"0086", "0085", "+16 +16", "E This database version must have 1 Scan Group.  Please remove", ""},
      {"0086", "0085", "+16 9.DataLeadInDelay=241 21.ToneBlankingDeactivationTimer[2]=100",
       "E This database version only supports a FFSK", ""},
      {"0086", "0085", "+16 9.DataLeadInDelay=240", "", ""},
      {"0086", "0085",
       "+16 5.TxPower_k6k[24]=1 21.ToneBlankingDeactivationTimer[1]=5 "
       "21.ToneBlankingDeactivationTimer[2]=5 21.ToneBlankingDeactivationTimer[3]=5",
       "", ""},
      {"0087", "0088", "9.DataOptionsEnabled=1", "", "9.FFSKMaximumInitialFrameLength=1"},
      {"0087", "0088", "9.DataOptionsEnabled=0", "", "9.FFSKMaximumInitialFrameLength=0"},
      {"0088", "0087", "59.AudioIOTapInType[2]=5 59.AudioIOTapInType[3]=4", "",
       "59.AudioIOTapInType[2]=1 59.AudioIOTapInType[3]=4"},
      {"0088", "0089",
       "55.DigitalIOInputPinID[2]=23 55.DigitalIOInputDirection[2]=1 55.DigitalIOInputActivationAction[2]=4 "
       "55.DigitalIOInputActiveState[2]=1",
       "W The Digital Programmable I/O Active State for Enter", "55.DigitalIOInputActiveState[2]=0"},
      {"0088", "0089",
       "55.DigitalIOInputPinID[3]=24 55.DigitalIOInputDirection[3]=2 55.DigitalIOInputActivationAction[3]=2 "
       "55.DigitalIOInputActiveState[3]=0",
       "W The Digital Programmable I/O Active State for Power", "55.DigitalIOInputActiveState[3]=1"},
      {"0088", "0089",
       "55.DigitalIOInputPinID[3]=35 55.DigitalIOInputDirection[3]=1 55.DigitalIOInputActivationAction[3]=1 "
       "55.DigitalIOInputActiveState[3]=0",
       "W The Digital Programmable I/O Active State for IOP_GPIO7", "55.DigitalIOInputActiveState[3]=1"},
      {"0088", "0089",
       "55.DigitalIOInputPinID[3]=35 55.DigitalIOInputDirection[3]=2 55.DigitalIOInputActivationAction[3]=1 "
       "55.DigitalIOInputActiveState[3]=0",
       "", "55.DigitalIOInputActiveState[3]=0"},
      {"0089", "0088",
       "55.DigitalIOInputPinID[3]=35 55.DigitalIOInputDirection[3]=1 "
       "55.DigitalIOInputActivationAction[3]=41",
       "W The Digital Programmable I/O Action Power Sense (Internal)",
       "55.DigitalIOInputActivationAction[3]=2 55.DigitalIOInputDeactivationAction[3]=2"},
      {"0089", "0088", "+80", "E This database version does not support MDC1200", ""},
      {"0089", "0088", "36.SubAudInvalidConfDelay[2]=9", "E This database version does not support an 'Inv",
       ""},
      {"0089", "0088", "36.SubAudInvalidConfDelay[2]=10", "", ""},
      {"0090", "0089", "VHSDLeadInDelay=19 9.DataLeadInDelay=3",
       "E This database version does not support a 'V", ""},
      {"0090", "0089", "9.DataLeadInDelay=3", "E This database version does not support a 'F", ""},
      {"0090", "0089", "VHSDLeadInDelay=20 9.DataLeadInDelay=4", "", ""},
      {"0090", "0089", "55.DigitalIOInputActivationAction[9]=43 55.DigitalIOInputActivationAction[12]=42",
       "E This database version does not support 'Economy Mode'", ""},
      {"0090", "0089", "55.DigitalIOInputActivationAction[9]=45 FunctionKey2=9",
       "E This database version does not support BCD", ""},
      {"0090", "0089", "FunctionKey1=8 FunctionKey4=9", "E This database version does not support 'Economy",
       ""},
      {"0090", "0089", "FunctionKey4=8 5.TXCallBurst[2]=18",
       "E This database version does not support a Func", ""},
      {"0090", "0089", "5.TXCallBurst[2]=18", "E This database version does not support more than 10", ""},
      {"0091", "0090", "FrontPanelChannelSelectionLockout=2 VHSDLeadInDelay=250",
       "W This database version does not support the Digital", "FrontPanelChannelSelectionLockout=1"},
      {"0091", "0090", "VHSDLeadInDelay=251", "W This database version does not support A VHSD",
       "VHSDLeadInDelay=250"},
      {"0091", "0093", "UiPreCarrierIndicationTime=91", "", "UiPreCarrierIndicationTime=90"},
      {"0091", "0093", "UiPreCarrierIndicationTime=1", "", "UiPreCarrierIndicationTime=10"},
      {"0091", "0093", "UiPreCarrierIndicationTime=0", "", "UiPreCarrierIndicationTime=0"},
      {"0093", "0091",
       "55.DigitalIOInputActivationAction[2]=48 55.DigitalIOInputDeactivationAction[2]=48 RxBusyDetectType=1",
       "W Inhibit Channel Change",
       "55.DigitalIOInputActivationAction[2]=0 55.DigitalIOInputDeactivationAction[2]=48 RxBusyDetectType=0"},
      {"0093", "0094", "DataVHSDNumFECCodewords=0", "", "DataVHSDNumFECCodewords=7"},
      {"0093", "0094", "DataVHSDNumFECCodewords=6", "", "DataVHSDNumFECCodewords=6"},
      {"0094", "0093", "34.Band=10 DataVHSDLayer2Enabled=2 DataVHSDNumFECCodewords=7 VHSDLeadInDelay=0",
       "E This database version does not support the L3 Band",
       "DataVHSDLayer2Enabled=1 DataVHSDNumFECCodewords=7 VHSDLeadInDelay=0"},
      {"0094", "0093", "DataVHSDNumFECCodewords=7 VHSDLeadInDelay=4", "",
       "DataVHSDNumFECCodewords=0 VHSDLeadInDelay=5"},
  };
  for (const auto& [from, to, put, box, left] : rows) {
    SCOPED_TRACE(std::string(from) + " to " + to + ": " + put);
    Open(from, to);
    PutAll(put);
    EXPECT_EQ(Run(), box[0] != 'E');
    if (box[0] == '\0')
      EXPECT_THAT(Told(), IsEmpty());
    else
      EXPECT_THAT(Told(), ElementsAre(StartsWith(box)));
    EXPECT_EQ(Read(left), left);
  }
}

TEST_F(VersionSteps, ALimitIsTheOneThatTheFormShows) {
  Open("0090", "0089");
  PutAll("9.DataLeadInDelay=3");
  EXPECT_FALSE(Run());
  EXPECT_EQ(messenger.Boxes()[0].parameters, "20");
}

TEST_F(VersionSteps, WhatIsToldOfSeveralRecordsIsToldOfEachInItsOrder) {
  Open("0093", "0091", "KE2210 Tx.");
  PutAll(
      "55.DigitalIOInputActivationAction[1]=48 55.DigitalIOInputActivationAction[2]=47 "
      "55.DigitalIOInputActivationAction[5]=48");
  EXPECT_TRUE(Run());
  EXPECT_THAT(Told(), ElementsAre(StartsWith("W Activate VHSD"), StartsWith("W Inhibit Channel"),
                                  StartsWith("W Inhibit Channel")));
  Open("0088", "0089");  // an action that gets another name is looked at again
  PutAll(
      "55.DigitalIOInputPinID[3]=35 55.DigitalIOInputDirection[3]=1 "
      "55.DigitalIOInputActivationAction[3]=2 55.DigitalIOInputActiveState[3]=0");
  EXPECT_TRUE(Run());
  EXPECT_THAT(Told(), ElementsAre(StartsWith("W The Digital Programmable I/O Action Power"),
                                  StartsWith("W The Digital Programmable I/O Active State for IOP")));
  const char* left =
      "55.DigitalIOInputActivationAction[3]=41 55.DigitalIOInputDeactivationAction[3]=41 "
      "55.DigitalIOInputActiveState[3]=1";
  EXPECT_EQ(Read(left), left);
  Open("0086", "0085");
  PutAll(
      "+16 9.DataLeadInDelay=241 21.ToneBlankingDeactivationTimer[1]=500 "
      "21.ToneBlankingDeactivationTimer[2]=101 21.ToneBlankingDeactivationTimer[3]=900");
  EXPECT_FALSE(Run());
  EXPECT_THAT(Told(), testing::SizeIs(4));
  EXPECT_EQ(Read("21.ToneBlankingDeactivationTimer[3]"), "21.ToneBlankingDeactivationTimer[3]=100");
}

TEST_F(VersionSteps, OutputsAreComparedByWhatTheGridShows) {
  const std::tuple<const char*, const char*, const char*, const char*, const char*, const char*> rows[] = {
      {"0084", "0083", "Output", "Serial Data In Progress", "10", "E This database version does not supp"},
      {"0084", "0083", "Input", "Serial Data In Progress", "10", ""},
      {"0084", "0083", "Input", "None", "5",
       "E This database version does not support Digital IO Debounce T"},
      {"0084", "0083", "Input", "None", "25", ""},
      {"0086", "0085", "Output", "Encryption Status", "10", "E This database version does not support the"},
      {"0086", "0085", "Output", "Busy Status", "10", ""},
  };
  for (const auto& [from, to, direction, action, debounceTime, box] : rows) {
    SCOPED_TRACE(std::string(direction) + " " + action + " " + debounceTime);
    Open(from, to);
    PutAll(
        "+16 21.ToneBlankingDeactivationTimer[1]=5 21.ToneBlankingDeactivationTimer[2]=5 "
        "21.ToneBlankingDeactivationTimer[3]=5");
    source->SetCount(1108, 15);
    source->Set("DigitalIODirection", 6, direction);
    source->Set("DigitalIOAction", 6, action);
    source->Set("DigitalIODebounceTime", 6, debounceTime);
    EXPECT_EQ(Run(), box[0] == '\0');
    if (box[0] != '\0') {
      EXPECT_THAT(Told(), ElementsAre(StartsWith(box)));
    }
  }
  source->Set("DigitalIODirection", 7, "Output");
  source->Set("DigitalIOAction", 7, "Busy Status");
  EXPECT_FALSE(Run());
  EXPECT_THAT(Told(), ElementsAre(StartsWith("E This database version does not support two pins")));
}

TEST_F(VersionSteps, TablesAreCompletedForTheSystemsAndNetworks) {
  Open("0054", "0081");
  PutAll(
      "64.DTMFNetworkSigSystemID[1]=4 64.DTMFNetworkSigSystemID[2]=9 65.DTMFChannelPresetSeqSigSysID[2]=7 "
      "21.NetworkPointer[1]=3 21.NetworkPointer[2]=5 21.NetworkPointer[3]=8");
  EXPECT_TRUE(Run());
  EXPECT_EQ(destination->Count(65), 21);
  EXPECT_EQ(destination->Count(67), 3);
  EXPECT_EQ(destination->Count(68), 12);
  const char* left =
      "65.DTMFChannelPresetSeqSigSysID[2]=7 65.DTMFChannelPresetSeqSigSysID[11]=4 "
      "65.DTMFChannelPresetSeqSigSysID[12]=9 67.DTMFPatchNetworkID[2]=5 67.DTMFPatchToneSetupPointer[3]=2 "
      "68.DTMFPatchSeqNetworkID[4]=3 68.DTMFPatchSeqNetworkID[5]=5 68.DTMFPatchSeqNetworkID[12]=8 "
      "75.SIBTFrequency[3]=2000";
  EXPECT_EQ(Read(left), left);

  Open("0081", "0054");
  PutAll("+37 +37");
  EXPECT_TRUE(Run());
  EXPECT_EQ(destination->Count(37), 0);

  Open("0081", "0082");
  PutAll("+75 +75");
  EXPECT_TRUE(Run());
  EXPECT_EQ(destination->Count(75), 3);

  for (const RecordNr before : {43, 46, 47}) {
    Open("0089", "0090");
    destination->SetCount(4, before);
    EXPECT_TRUE(Run());
    EXPECT_EQ(destination->Count(4), before < 47 ? before + 4 : before);
    if (before != 43) continue;
    EXPECT_EQ(Read("4.ProgIndex[44] 4.RepeatFlag[45] 4.ProgIndex[47]"),
              "4.ProgIndex[44]=40 4.RepeatFlag[45]=0 4.ProgIndex[47]=46");
  }
}

/// A host may hand in anything; a fault would end the application, which fails the test.
TEST_F(VersionSteps, EmptyAndFullTablesAreNoFault) {
  const auto versions = SchemaFiles::VersionsOf("KD4410");
  for (std::size_t i = 1; i < versions.size(); ++i) {
    for (const bool isUp : {true, false}) {
      for (const bool isFull : {true, false}) {
        SCOPED_TRACE(versions[i - isUp].Digits() + (isFull ? " full" : " empty"));
        Open(versions[i - isUp].Digits(), versions[i - !isUp].Digits());
        for (Provider* content : {source.get(), destination.get()}) {
          for (const SchemaTable& table : content->GetSchema().Tables()) {
            if (table.number != 1108) content->SetCount(table.number, isFull ? table.maximum : 0);
          }
        }
        Run();
        EXPECT_EQ(CLng(destination->Get("39.Databaseversion")), versions[i - !isUp].number);
      }
    }
  }
}

/// Blocks with a burst in each slot, told by its system and slot; and channels that point there.
TEST_F(VersionSteps, BurstsGoByTheirPlaceAndWhatPointsAtThemFollows) {
  Open("0089", "0090");
  const auto fill = [&](const BurstLayout& layout) {
    destination->SetCount(30, 1 + 2 * layout.SlotsPerSystem());
    for (RecordNr system = 1; system <= 2; ++system) {
      destination->Set("29.SelcallID", system, system == 1 ? 4 : 9);
      for (RecordNr slot = 1; slot <= layout.SlotsPerSystem(); ++slot) {
        const RecordNr record = layout.RecordOf(system, slot);
        destination->Set("30.FixedFormatSigSystemID", record, system == 1 ? 4 : 9);
        destination->Set("30.FixedFormatBurstType", record, static_cast<int>(layout.KindOf(slot)));
        destination->Set("30.FixedFormatBurstID", record, slot);
        destination->Set("30.FixedFormatBurstSeq", record,
                         modSelcallMapping::StringToNumarray(std::to_string(100 * system + slot)));
      }
    }
  };
  const auto sequence = [&](const BurstLayout& layout, RecordNr system, RecordNr slot) {
    return modSelcallMapping::NumarrayToString(
        destination->Get("30.FixedFormatBurstSeq", layout.RecordOf(system, slot)));
  };
  fill(kEarlyBurstLayout);
  destination->SetCount(76, 1);
  const auto point = [&](const BurstLayout& layout, RecordNr system, RecordNr slot) {
    return layout.RecordOf(system, slot) - 1;
  };
  destination->Set("5.TXCallBurst", 1, point(kEarlyBurstLayout, 2, 17));
  destination->Set("5.StatusBurst", 1, point(kEarlyBurstLayout, 2, 18));
  destination->Set("5.Lead-In-Tone", 2, point(kEarlyBurstLayout, 1, 51));
  destination->Set("5.RepeaterBurst", 2, 0);
  destination->Set("76.DSDBM_CHANNEL_SEL_STATUS_INDEX_POINTER", 1, point(kEarlyBurstLayout, 1, 41));
  const auto before = destination->Copy();

  EXPECT_TRUE(Run());
  EXPECT_EQ(destination->Count(30), 283);
  EXPECT_EQ(sequence(kBurstLayout, 2, 17) + sequence(kBurstLayout, 2, 18) + sequence(kBurstLayout, 1, 108),
            "217118");
  EXPECT_EQ(CLng(destination->Get("30.FixedFormatBurstID", 109)), 108) << "numbered by the slot";
  EXPECT_EQ(CLng(destination->Get("30.FixedFormatBurstType", 108)), 2);
  EXPECT_EQ(CLng(destination->Get("5.TXCallBurst", 1)), point(kBurstLayout, 2, 17));
  EXPECT_EQ(CLng(destination->Get("5.StatusBurst", 1)), point(kBurstLayout, 2, 108));
  EXPECT_EQ(CLng(destination->Get("5.Lead-In-Tone", 2)), point(kBurstLayout, 1, 141));
  EXPECT_EQ(CLng(destination->Get("5.RepeaterBurst", 2)), 0);
  EXPECT_EQ(CLng(destination->Get("76.DSDBM_CHANNEL_SEL_STATUS_INDEX_POINTER", 1)),
            point(kBurstLayout, 1, 131));

  std::swap(from_, to_);
  source = destination;
  EXPECT_TRUE(Run());  // in place: nothing reads what it has written
  EXPECT_THAT(Told(), IsEmpty());
  EXPECT_EQ(destination->Count(30), 103);
  for (RecordNr record = 2; record <= 103; ++record) {
    for (const char* field :
         {"30.FixedFormatSigSystemID", "30.FixedFormatBurstType", "30.FixedFormatBurstID"}) {
      EXPECT_EQ(CLng(destination->Get(field, record)), CLng(before->Get(field, record))) << field << record;
    }
  }
  EXPECT_EQ(sequence(kEarlyBurstLayout, 2, 51), "251");
  EXPECT_EQ(CLng(destination->Get("5.Lead-In-Tone", 2)), point(kEarlyBurstLayout, 1, 51));

  fill(kBurstLayout);
  destination->Set("5.TXCallBurst", 1, 0);
  destination->Set("76.DSDBM_CHANNEL_SEL_TXCALL_INDEX_POINTER", 1, point(kBurstLayout, 1, 18));
  EXPECT_TRUE(Run());
  ASSERT_THAT(messenger.Boxes(), testing::SizeIs(1)) << "one for all systems";
  EXPECT_EQ(
      messenger.Boxes()[0].text,
      "This database version does not support more than 10 Selcall Fixed Format Tx Sequences.  Only the "
      "first ten will be saved for each Selcall System.");
  EXPECT_EQ(CLng(destination->Get("76.DSDBM_CHANNEL_SEL_TXCALL_INDEX_POINTER", 1)), 0);
  EXPECT_EQ(sequence(kEarlyBurstLayout, 1, 17) + sequence(kEarlyBurstLayout, 1, 18), "117208");
}
}  // namespace
