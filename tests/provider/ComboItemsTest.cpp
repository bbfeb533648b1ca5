#include "common/Handles.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "host/IproviderOwner.h"
#include "platform/XArrayDBObject.h"
#include "radioui/modProgIOLists.h"
#include "tests/channels/ChannelFixture.h"
#include "tests/support/ErrorNumberOf.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Items = std::vector<std::string>;

Items TextsOf(const XArrayDBObject& list, std::int32_t column = 0) {
  Items texts;
  for (std::int32_t row = 0; row <= list.UpperBound(1); ++row)
    texts.push_back(CStr(list.GetValue(row, column)));
  return texts;
}

class ComboItems : public ChannelFixture {
 protected:
  Status Ask(std::string_view uiid, RecordNr record, std::shared_ptr<XArrayDBObject>& list) {
    result = kFalse;
    return ProviderOwner()->GetComboItemsByUIID(sharedProvider, uiid, record, list, result);
  }
  Items List(std::string_view uiid, RecordNr record = 1) {
    std::shared_ptr<XArrayDBObject> list;
    EXPECT_TRUE(Ask(uiid, record, list).Ok() && result == kTrue) << uiid;
    return TextsOf(*list);
  }
  /// An array with two rows, as a host may hand in again.
  static std::shared_ptr<XArrayDBObject> UsedArray() {
    auto list = std::make_shared<XArrayDBObject>();
    list->Redim(0, 1, 0, 0);
    list->SetValue(0, 0, "a");
    list->SetValue(1, 0, "b");
    return list;
  }
  /// The form's row 1 with this pin.
  void GiveRow(const char* pin, const char* direction, const char* action) {
    provider.Set("1108.Pin", 1, pin);
    provider.Set("1108.Direction", 1, direction);
    provider.Set("1108.Action", 1, action);
  }
  Boolean result = kFalse;
};

TEST_F(ComboItems, ANetworkIsOfferedItsOwnNumberAndANewOneOnlyWhatIsFree) {
  provider.Fill("NetworkID", {1, "3", 16, "x"});
  EXPECT_THAT(List("NETWORKID", 2),
              ElementsAre("2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15"));
  for (const RecordNr outside : {0, -1, 5}) EXPECT_THAT(List("networkid", outside), SizeIs(13)) << outside;
  std::vector<Variant> all;
  for (std::int32_t number = 1; number <= 16; ++number) all.emplace_back(number);
  provider.Fill("NetworkID", all);
  EXPECT_THAT(List("NetworkID", 16), ElementsAre("16"));
  auto list = UsedArray();
  EXPECT_TRUE(Ask("NetworkID", 17, list).Ok());
  EXPECT_EQ(list->UpperBound(1), -1);
}

TEST_F(ComboItems, AFieldWithoutListIsUndefinedAndAnUnknownOneLeavesTheArray) {
  const std::tuple<const char*, Items, Items> cases[] = {
      // UIID, new array, used array
      {"TxFreq_k6k", {"Undefined"}, {"Undefined"}},        // a number without list
      {"AudioIOMicLabels", {"Undefined"}, {"Undefined"}},  // a number without list, too
      {"TxPower_k6k", {"Undefined"}, {"a", "b"}},          // no number
      {"NoSuchField", {"Undefined"}, {"a", "b"}}};
  for (const auto& [uiid, created, kept] : cases) {
    EXPECT_EQ(List(uiid), created) << uiid;
    auto list = UsedArray();
    EXPECT_TRUE(Ask(uiid, 1, list).Ok() && result == kTrue);
    EXPECT_EQ(TextsOf(*list), kept) << uiid;
  }
}

TEST_F(ComboItems, TonesOfATwoToneSystemAreThoseOfItsFormat) {
  provider.Fill("T99TableFormat_k6k", {0, 1});
  const auto tones = [&](RecordNr system) { return List("T99ToneB_k6k", system); };
  EXPECT_EQ(tones(1).size(), 81U);
  EXPECT_EQ(tones(2).size(), 32U);
  EXPECT_THAT(tones(2), testing::IsSupersetOf({"0", "517.5", "967.5"}));
  EXPECT_EQ(tones(1).at(4) + " " + tones(1).back(), "313.0 2468.2");
  EXPECT_EQ(tones(3), tones(1)) << "of no system: MOT";
}

TEST_F(ComboItems, UsedChannelsAreListedWithoutGroupsAndWithTheirDuplicates) {
  GiveChannels({7, 5, 9, 5, 9});
  provider.Fill("16.GroupIDTracker", {9, 8});
  for (const char* uiid : {"Priority1Channel_k6k", "EmChannel", "GPSPollResponseChannel",
                           "ActionParamHomeChannel", "FilteredScanGroupChannelMemberID"}) {
    EXPECT_THAT(List(uiid), ElementsAre("7", "5", "5", "9")) << uiid << ": a group takes out one item";
  }
  EXPECT_THAT(List("ChannelGroupIDForRadioStartup"), ElementsAre("7", "5", "9", "5", "9", "9", "8"));
  const Items free = List("ChannelID_k6k", 1);
  EXPECT_THAT(free, SizeIs(999 - 4));
  EXPECT_THAT(Items(free.begin() + 3, free.begin() + 6), ElementsAre("4", "6", "10"));
}

TEST_F(ComboItems, SystemsAreThoseOfTheNetworksType) {
  GiveNetworks({SignallingType::kNone, SignallingType::kSelcall, SignallingType::kDTMF, 99});
  provider.Set("64.DTMFNetworkSigSystemID", 2, 10);
  const Items cases[] = {{"None"}, {"4", "9"}, {"4", "10"}, {"None"}, {"None"}};
  for (RecordNr network = 1; network <= 5; ++network)
    EXPECT_EQ(List("NetworkSignallingID", network), cases[network - 1]) << network;
  EXPECT_THAT(List("SignalSystem_k6k"), SizeIs(14)) << "what is free";
  EXPECT_THAT(List("FreeFormSigSysID"), ElementsAre("4", "9"));
  EXPECT_THAT(List("ChannelNetworkID_k6k"), ElementsAre("1", "2", "3", "4"));
}

TEST_F(ComboItems, ASubaudibleCodeIsATextThatTheRadioUnderstands) {
  const Items codes = List("TxSignalling_k6k");
  EXPECT_EQ(codes.front(), "None");
  GiveChannels({1});
  for (const std::string& code : codes) {
    provider.Set("TxSignalling_k6k", 1, code);
    ASSERT_TRUE(FromUI("5.TxSignallingUI") && ToUI("5.TxSignallingUI"));
    ASSERT_EQ(Text("TxSignalling_k6k"), code);
    provider.SetCount(50, 0);
    provider.SetCount(61, 0);
  }
}

TEST_F(ComboItems, ABurstIsOfTheChannelsSystemInTheRecordsOfItsKind) {
  GiveNetworks({SignallingType::kSelcall, SignallingType::kDTMF});
  GiveChannels({1, 2});
  provider.Set("5.ChannelNetworkIdUI", 2, 2);
  provider.Set("21.NetworkSignallingID", 1, "9");  // the second system, whose block starts at record 142
  provider.SetCount(30, 283);
  for (RecordNr burst = 1; burst <= 283; ++burst) provider.Set("30.UGBurstSeq", burst, std::to_string(burst));
  provider.Set("30.UGBurstSeq", 144, "");
  provider.Set("30.UGBurstSeq", 145, "Undefined");
  EXPECT_THAT(List("RepeaterBurstIndex_k6k"), ElementsAre("None", "143", "146", "147"));
  EXPECT_THAT(List("CALLERIDBURSTINDEX_K6K"), ElementsAre("None", "148", "149"));
  EXPECT_THAT(List("Lead-In-ToneIndex_k6k"), ElementsAre("None", "279", "280", "281", "282", "283"));
  provider.SetCount(76, 1);
  provider.Set("76.DSDBM_PRESET_CALL_CHANNEL_REF", 1, 1);
  EXPECT_THAT(List("76.CallerIDBurstSeq"), ElementsAre("None", "148", "149"));
  provider.SetCount(30, 280);
  EXPECT_THAT(List("Lead-In-ToneIndex_k6k"), ElementsAre("None", "279", "280"));
  for (const RecordNr other : {2, 3}) EXPECT_THAT(List("RepeaterBurstIndex_k6k", other), ElementsAre("None"));
  provider.Set("21.NetworkSignallingID", 1, "5");
  EXPECT_THAT(List("RepeaterBurstIndex_k6k"), ElementsAre("None")) << "the system is gone";
}

TEST_F(ComboItems, DTMFPresetsAreTheFilledOnesOfTheChannelsSystem) {
  GiveNetworks({SignallingType::kDTMF, SignallingType::kSelcall});
  GiveChannels({1, 2});
  provider.Set("5.ChannelNetworkIdUI", 2, 2);
  provider.Fill("65.DTMFChannelPresetSequenceUI", {"1", "2*", "3#", "", "2*"});
  for (RecordNr preset = 1; preset <= 5; ++preset)
    provider.Set("65.DTMFChannelPresetSeqSigSysID", preset, preset == 3 ? 9 : 4);
  EXPECT_THAT(List("DTMFPresetCallSequence"), ElementsAre("None", "2*", "2*"));
  for (const RecordNr other : {2, 3}) EXPECT_THAT(List("DTMFPresetCallSequence", other), ElementsAre("None"));
}

TEST_F(ComboItems, TheParameterOfAKeyIsThatOfItsOwnAction) {
  GiveChannels({3, 8});
  provider.Fill("16.GroupIDTracker", {8, 6});
  const std::pair<Variant, Items> cases[] = {{10, {"Non Stealth", "Stealth", "Deactivate"}},
                                             {"12", {"8", "6"}},
                                             {19, {"Preset 1", "Preset 2", "Preset 3", "Preset 4"}},
                                             {21, {"Sequence 1", "Sequence 2", "Sequence 3", "Sequence 4"}},
                                             {22, {"3"}},
                                             {31, {"8", "6"}},
                                             {9, {"None"}},
                                             {"x", {"None"}}};
  for (const auto& [action, items] : cases) {
    provider.Set("FunctionKey3", 1, action);
    EXPECT_EQ(List("fk3parameter1"), items) << CStr(action);
    EXPECT_THAT(List("FK2Parameter1"), ElementsAre("None"));
  }
  provider.SetCount(1099, 0);
  EXPECT_THAT(List("FK3Parameter1"), ElementsAre("None"));
  EXPECT_EQ(List("FunctionKey4", 2)[KeyAction::kScanningNuisanceDelete], "Scanning / Nuisance Delete");
}

TEST_F(ComboItems, APresetGroupVotesOrScansAsStandard) {
  provider.Fill("16.GroupIDTracker", {1, 2, 3, 4});
  for (const RecordNr vote : {2, 4}) provider.Set("GroupType_k6k", vote, GroupType::kVote);
  for (const RecordNr background : {3, 4}) provider.Set("ScanType_k6k", background, ScanType::kBackground);
  EXPECT_THAT(List("ActionParamPresetGroup"), ElementsAre("1", "2", "4"));
}

TEST_F(ComboItems, ARowOfTheGridIsOfferedWhatItsPinAndDirectionAllow) {
  struct {
    const char *pin, *direction, *action;
    std::size_t directions, actions;
    const char *state, *debounce, *signal;  // first items
  } cases[] = {{"AUX_GPI1", "Input", "No Action", 2, 48, "Low", "2", "None"},
               {"IOP_GPIO1", "Output", "F3 Key Status", 3, 27, "Low", "None", "Momentary"},
               {"IOP_GPIO1", "Output", "Busy Status", 3, 27, "Low", "None", "None"},
               {"ch_gpio1", "Input", "F3 Key Status", 3, 45, "Low", "2", "None"},
               {"CH_GPIO1", "Output", "No Action", 3, 27, "Low", "None", "None"},
               {"AUX_GPIO4", "None", "No Action", 3, 1, "None", "None", "None"}};
  for (const auto& row : cases) {
    GiveRow(row.pin, row.direction, row.action);
    EXPECT_THAT(List("DigitalIODirection"), SizeIs(row.directions)) << row.pin;
    EXPECT_THAT(List("DigitalIOAction"), SizeIs(row.actions)) << row.pin;
    EXPECT_EQ(List("DigitalIOActiveState")[0], row.state) << row.pin;
    EXPECT_EQ(List("DigitalIODebounceTime")[0], row.debounce) << row.pin;
    EXPECT_EQ(List("DigitalIOSignalType")[0], row.signal) << row.pin << row.action;
  }
  GiveRow("CH_GPIO1", "Input", "");
  for (const char* barred : {"Toggle Tx RF Inhibit", "External PTT 1", "External PTT 2"})
    EXPECT_THAT(List("DigitalIOAction"), testing::Not(testing::Contains(barred)));
  EXPECT_THAT(List("DigitalIODirection", 16), ElementsAre("None", "Input"));
  EXPECT_THAT(List("DigitalIOAction", 16), ElementsAre("No Action"));
}

TEST_F(ComboItems, AnInputMirrorsToThePinsThatAreOutputs) {
  GiveRow("AUX_GPI1", "Input", "No Action");
  for (const auto& [row, pin, direction] :
       {std::tuple{4, "AUX_GPIO4", "Output"}, {5, "AUX_GPIO5", "Input"}, {8, "IOP_GPIO1", "Output"}}) {
    provider.Set("1108.Pin", row, pin);
    provider.Set("1108.Direction", row, direction);
  }
  EXPECT_THAT(List("DigitalIOMirroredTo", 1), ElementsAre("None", "AUX_GPIO4", "IOP_GPIO1"));
  EXPECT_THAT(List("DigitalIOMirroredTo", 4), ElementsAre("None"));
}

TEST_F(ComboItems, TapTypesAndConditionsFollowTheTapPoint) {
  struct {
    Variant point;
    const char *inTypes, *outTypesOfReceiver, *outTypesOfMicrophone;
    std::size_t conditions;
  } cases[] = {{0, "A", "D", "C", 1},
               {"R7", "A", "D", "C", 1},
               {10, "ABE", "CDE", "CDE", 5},
               {"7", "ABE", "CDE", "CDE", 5},
               {19, "ABEH", "CDE", "CDE", 2}};
  const auto letters = [this](const char* uiid, RecordNr path) {
    std::string firsts;
    for (const std::string& type : List(uiid, path)) firsts += type[0];
    return firsts;
  };
  for (const auto& row : cases) {
    for (const RecordNr path : {1, 2}) {
      provider.Set("AudioIOTapIn", path, row.point);
      provider.Set("AudioIOTapOut", path, row.point);
      EXPECT_EQ(letters("TapInType", path), row.inTypes) << CStr(row.point);
      EXPECT_EQ(letters("TapOutType", path), path == 1 ? row.outTypesOfReceiver : row.outTypesOfMicrophone);
      for (const char* uiid : {"TapInUnmuteCondition", "TapOutUnmuteCondition"}) {
        EXPECT_THAT(List(uiid, path), SizeIs(row.conditions)) << uiid << CStr(row.point);
        EXPECT_EQ(List(uiid, path)[0], "None");
      }
    }
  }
  for (const RecordNr outside : {0, 5}) EXPECT_EQ(letters("TapOutType", outside), "C") << outside;
}

TEST_F(ComboItems, PinsAndTapPointsCarryTheirCodes) {
  XArrayDBObject list;
  const ProviderRef store(sharedProvider);
  modProgIOLists::GetK6000ProgIODigital(store, "iopcts", 1, list);
  EXPECT_THAT(TextsOf(list), SizeIs(1 + 12)) << "three lines are inputs only";
  EXPECT_EQ(TextsOf(list)[1] + "=" + TextsOf(list, 1)[1], "AUX_GPIO4=25");
  modProgIOLists::GetK6000ProgIODigital(store, "IOPRTS", 1, list);
  EXPECT_THAT(TextsOf(list), SizeIs(1 + 15));
  modProgIOLists::GetK6000ProgIOAudio(store, "AudioIOTapOut", 1, list);
  EXPECT_EQ(TextsOf(list).back() + "=" + TextsOf(list, 1).back(), "T13=29");
  modProgIOLists::GetK6000ProgIOAudio(store, "TapInType", 1, list);
  EXPECT_EQ(list.Count(2), 1) << "no code is left from the list before";
}
}  // namespace
