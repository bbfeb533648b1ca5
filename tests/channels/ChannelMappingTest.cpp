#include "selcall/modSelcallMapping.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;

class ChannelMapping : public ChannelFixture {};

TEST_F(ChannelMapping, NumbersGoToTableSevenAndBack) {
  GiveChannels({11, 12});
  provider.Set("5.HiddenChannel", 2, -1);
  for (const RecordNr channel : {1, 2}) EXPECT_TRUE(FromUI("5.ChannelIDTracker", channel));
  EXPECT_EQ(Column("7.CibChannelID"), "11 12");
  EXPECT_EQ(Column("7.CibChannelRec"), "0 1");
  EXPECT_EQ(Column("5.HiddenChannel"), "0 0");
  provider.Set("5.ChannelIDTracker", 2, 0);
  EXPECT_TRUE(ToUI("5.ChannelIDTracker", 2));
  EXPECT_EQ(Text("5.ChannelIDTracker", 2), "12");
}

TEST_F(ChannelMapping, ALongerTableSevenIsEmptiedAShorterOneGrowsByOne) {
  GiveChannels({11, 12, 13});
  provider.Fill("7.CibChannelID", {1, 2, 3, 4});
  EXPECT_TRUE(FromUI("5.ChannelIDTracker", 1));
  EXPECT_EQ(Column("7.CibChannelID"), "11");
  EXPECT_TRUE(ToUI("5.ChannelIDTracker", 2));  // not in table 7 yet
  EXPECT_EQ(Text("5.ChannelIDTracker", 2), "12");
  provider.Fill("7.CibChannelID", {1, 2, 3});  // as long as table 5
  EXPECT_TRUE(FromUI("5.ChannelIDTracker", 3));
  EXPECT_EQ(Column("7.CibChannelID"), "1 2 13");
  ExpectTermination();
  provider.SetCount(7, 1);
  FromUI("5.ChannelIDTracker", 3);
  EXPECT_EQ(provider.Count(7), 2);
  EXPECT_GE(Terminations(), 1);
}

TEST_F(ChannelMapping, FrequenciesAreWholeHertzInTheRadioAndSixDecimalsOnTheForm) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"066.005000", "66005000", "066.005000"}, {"869.999999", "869999999", "869.999999"},
      {"150.1", "150100000", "150.100000"},     {"0", "0", "000.000000"},
      {"000.000001", "1", "000.000001"},        {"136.0000005", "136000001", "136.000001"}};
  provider.SetCount(5, 2);
  for (const auto& [typed, hertz, shown] : cases) {
    for (const auto& [form, raw, other] :
         {std::tuple{"5.ChannelTxFreqUI", "5.ChannelTxFreq", "5.ChannelRxFreq"},
          {"5.ChannelRxFreqUI", "5.ChannelRxFreq", "5.ChannelTxFreq"}}) {
      provider.Set(other, 2, 77);
      EXPECT_EQ(InRadio(form, typed, raw, 2), hertz) << typed;
      EXPECT_EQ(Text(other, 2), "77");
      EXPECT_TRUE(ToUI(form, 2));
      EXPECT_EQ(std::get<std::string>(provider.Get(form, 2)), shown);
    }
  }
  const DecimalComma comma;
  EXPECT_TRUE(ToUI("5.ChannelTxFreqUI", 2));
  EXPECT_EQ(Text("5.ChannelTxFreqUI", 2), "000,000077");
}

TEST_F(ChannelMapping, AFrequencyThatIsNoNumberEndsTheApplicationAndKeepsTheStoredOne) {
  ExpectTermination();
  provider.SetCount(5, 1);
  provider.Set("5.ChannelTxFreq", 1, 150e6);
  EXPECT_EQ(InRadio("5.ChannelTxFreqUI", "abc", "5.ChannelTxFreq"), "150000000");
  EXPECT_EQ(Terminations(), 1);
}

constexpr struct {
  const char *form, *type, *index;
} kDirections[] = {{"5.TxSignallingUI", "5.TxSubaudibleType", "5.TxSubaudibleIndex"},
                   {"5.RxSignallingUI", "5.RxSubaudibleType", "5.RxSubaudibleIndex"}};

TEST_F(ChannelMapping, ToneIndicesOutsideTheirTableShowNone) {
  const std::tuple<int, int, const char*> cases[] = {{0, 0, "None"}, {1, 0, "C67.0"}, {1, 1, "C100.0"},
                                                     {1, 2, "None"}, {1, -1, "None"}, {2, 0, "D023"},
                                                     {2, 1, "None"}, {2, -1, "None"}, {3, 0, "None"}};
  provider.SetCount(5, 1);
  provider.Fill("50.CTCSSfreq", {670, 1000});
  provider.Fill("61.DCScodeword", {19});
  for (const auto& [type, index, shown] : cases) {
    for (const auto& [form, typeField, indexField] : kDirections) {
      provider.Set(typeField, 1, type);
      EXPECT_EQ(OnForm(indexField, index, form), shown) << type << " " << index;
    }
  }
}

TEST_F(ChannelMapping, EachToneAppendsARecordOfItsOwn) {
  const struct {
    std::string_view typed, type, index;
  } cases[] = {{"C67.0", "1", "1"}, {"C67.0", "1", "2"},  {"D023", "2", "2"}, {"None", "0", "0"},
               {"", "0", "-1"},     {"c67.0", "0", "-1"}, {"67.0", "0", "-1"}};
  provider.SetCount(5, 2);
  for (const auto& direction : kDirections) {
    provider.Fill("50.CTCSSfreq", {1000});
    provider.Fill("61.DCScodeword", {1, 2});
    for (const auto& [typed, type, index] : cases) {
      EXPECT_EQ(InRadio(direction.form, typed, direction.type, 2), type) << typed;
      EXPECT_EQ(Text(direction.index, 2), index) << typed;
    }
    EXPECT_EQ(Column("50.CTCSSfreq"), "1000 670 670");
    EXPECT_EQ(Column("61.DCScodeword"), "1 2 19");
  }
}

TEST_F(ChannelMapping, TheUsersTickInvertsTheBirdieOfTheReceiveFrequency) {
  const std::tuple<const char*, Variant, const char*> cases[] = {
      {"420.096", 0, "1"}, {"420.096", 1, "0"},  {"420.096", true, "0"}, {"420.000", 0, "0"},
      {"420.000", 1, "1"}, {"420.000", -1, "1"}, {"0", 0, "0"}};
  provider.SetCount(5, 1);
  provider.Set("34.Band", 1, 5);
  provider.Set("Band_k6k", 1, 0);                   // the stored band counts
  provider.Set("5.ChannelTxFreqUI", 1, "420.352");  // a birdie too
  for (const auto& [rx, tick, stored] : cases) {
    provider.Set("5.ChannelRxFreqUI", 1, rx);
    EXPECT_EQ(InRadio("5.IsUserDefinedBirdieChannel", tick, "5.IsBirdieChannel"), stored) << rx;
  }
}

TEST_F(ChannelMapping, NetworksAreIndicesInTheRadioAndNumbersOnTheForm) {
  GiveNetworks({0, 0, 0});
  provider.Fill("21.NetworkIDTracker", {3, 7, "7"});
  provider.Fill("21.NetworkPointer", {30, 70, 71});
  provider.SetCount(5, 2);
  for (const auto& [form, raw] :
       {std::pair{"5.ChannelNetworkIdUI", "5.ChannelNetworkId"}, {"53.NetworkIDTracker", "53.NetworkId"}}) {
    for (const auto& [index, number] : {std::pair{0, "30"}, {2, "71"}, {3, "30"}, {-1, "30"}}) {
      EXPECT_EQ(OnForm(raw, index, form, 2), number) << index;
    }
    const std::pair<Variant, std::string_view> cases[] = {
        {3, "0"}, {"7", "2"}, {7, "2"}, {9, "2"}, {"None", "2"}};  // an unknown one keeps the index
    for (const auto& [number, index] : cases) {
      EXPECT_EQ(InRadio(form, number, raw, 2), index) << CStr(number);
    }
  }
}

TEST_F(ChannelMapping, CompandingHasTwoHalvesOfWhichOneIsRead) {
  provider.SetCount(5, 1);
  EXPECT_EQ(InRadio("5.ChannelCompanding", "1", "5.ReceptionExpansion"), "1");
  EXPECT_EQ(Text("5.TxCompression"), "1");
  EXPECT_EQ(OnForm("5.TxCompression", 0, "5.ChannelCompanding"), "0");
}

TEST_F(ChannelMapping, DTMFPresetsAreFoundBySystemAndExactTextFromRecordTwo) {
  const std::tuple<RecordNr, const char*, const char*> cases[] = {
      {1, "12", "3"},  {1, "34", "2"}, {1, "99", "0"}, {1, "", "0"},   {1, "None", "0"},
      {1, "012", "0"}, {2, "12", "0"}, {3, "12", "0"}, {8, "12", "0"}, {1, "56", "4"}};
  GiveNetworks({2, 1, 0});
  GiveChannels({11, 12});
  provider.Fill("65.DTMFChannelPresetSeqSigSysID", {4, 9, 4, 4, 4});
  provider.Fill("65.DTMFChannelPresetSequenceUI", {"12", "12", "34", "12", "56"});
  for (const auto& [network, text, pointer] : cases) {
    provider.Set("5.ChannelNetworkIdUI", 2, network);
    provider.Set("5.DTMFPresetCallPointer", 2, 1);
    EXPECT_EQ(InRadio("5.DTMFPresetCallSequence", text, "5.DTMFPresetCallPointer", 2), pointer) << text;
  }
  for (const auto& [pointer, shown] :
       {std::pair{0, "None"}, {2, "34"}, {4, "56"}, {5, "None"}, {-1, "None"}}) {
    EXPECT_EQ(OnForm("5.DTMFPresetCallPointer", pointer, "5.DTMFPresetCallSequence", 2), shown) << pointer;
  }
}

constexpr struct {
  const char *form, *pointer;
  RecordNr first, last;  // of the first system
} kBursts[] = {
    {"5.RepeaterBurstSeq", "5.RepeaterBurst", 2, 6},
    {"5.CallerIDBurstSeq", "5.CallerIDBurst", 7, 8},
    {"5.TXCallBurstSeq", "5.TXCallBurst", 9, 108},
    {"5.StatusBurstSeq", "5.StatusBurst", 109, 132},
    {"5.RepeaterAccessToneSeq", "5.RepeaterAccessTone", 133, 137},
    {"5.Lead-In-ToneSeq", "5.Lead-In-Tone", 138, 142},
    {"76.RepeaterBurstSeq", "76.DSDBM_CHANNEL_SEL_RPT_BURST_INDEX_POINTER", 2, 6},
    {"76.CallerIDBurstSeq", "76.DSDBM_CHANNEL_SEL_CALLER_ID_INDEX_POINTER", 7, 8},
    {"76.TXCallBurstSeq", "76.DSDBM_CHANNEL_SEL_TXCALL_INDEX_POINTER", 9, 108},
    {"76.StatusBurstSeq", "76.DSDBM_CHANNEL_SEL_STATUS_INDEX_POINTER", 109, 132},
};
constexpr auto& kTxCall = kBursts[2];
constexpr RecordNr kBlock = 141;

class BurstMapping : public ChannelMapping {
 protected:
  /// Channel 2 is on a Selcall network, channel 1 is not. Table 76 has one record, of channel 2.
  void SetUp() override {
    ChannelMapping::SetUp();
    GiveNetworks({2, 1});
    GiveChannels({11, 12});
    provider.Set("5.ChannelNetworkIdUI", 2, 2);
    provider.SetCount(76, 1);
    provider.Set("76.DSDBM_PRESET_CALL_CHANNEL_REF", 1, 2);
    provider.SetCount(30, 300);
  }

  /// What the pointer holds after the text was taken from the form; 99 before.
  template <typename Burst>
  int PointerAfter(const Burst& burst, std::string_view text) {
    const RecordNr record = burst.form[0] == '5' ? 2 : 1;
    provider.Set(burst.pointer, record, 99);
    return std::stoi(InRadio(burst.form, std::string(text), burst.pointer, record));
  }
};

TEST_F(BurstMapping, EachKindIsFoundInItsOwnRecordsOfItsSystem) {
  for (const auto& [system, base] : {std::pair{4, 0}, {9, kBlock}}) {
    provider.Set("21.NetworkSignallingID", 2, system);
    for (const auto& kind : kBursts) {
      SCOPED_TRACE(kind.form);
      const RecordNr first = base + kind.first, last = base + kind.last;
      for (const RecordNr burst : {first - 1, first, last, last + 1}) {
        provider.Set("30.UGBurstSeq", burst, "12345");
        EXPECT_EQ(PointerAfter(kind, "12345"), first <= burst && burst <= last ? burst - 1 : 99) << burst;
        provider.Set("30.UGBurstSeq", burst, "");
      }
      for (const RecordNr burst : {first, last}) provider.Set("30.UGBurstSeq", burst, "777");
      EXPECT_EQ(PointerAfter(kind, "777"), first - 1);
      for (const RecordNr burst : {first, last}) provider.Set("30.UGBurstSeq", burst, "");
      for (const char* none : {"None", ""}) EXPECT_EQ(PointerAfter(kind, none), 0);
    }
  }
}

TEST_F(BurstMapping, WithoutSelcallAPointerIsClearedWithAnUnknownSystemItStays) {
  provider.Set("30.UGBurstSeq", 9, "12345");
  EXPECT_EQ(PointerAfter(kTxCall, "12345"), 8);
  provider.Set("21.NetworkSignallingID", 2, 5);
  EXPECT_EQ(PointerAfter(kTxCall, "12345"), 99);
  for (const std::int32_t type : {0, 2, 3, 4}) {
    provider.Set("21.SignallingType", 2, type);
    EXPECT_EQ(PointerAfter(kTxCall, "12345"), 0);
  }
}

TEST_F(BurstMapping, AChannelOfAnUnknownNetworkIsPutOnTheFirstOne) {
  provider.Set("30.UGBurstSeq", 9, "12345");
  provider.Set("21.SignallingType", 1, 1);
  provider.Set("21.NetworkPointer", 1, 6);
  for (const std::string network : {"8", "02"}) {  // compared as text
    services->Clear();
    provider.Set("5.ChannelNetworkIdUI", 2, network);
    EXPECT_EQ(PointerAfter(kTxCall, "12345"), 8);
    EXPECT_THAT(ServiceBoxes(), ElementsAre(Box(16, "Unknown Error",
                                                "Error processing channel 11).TempValue( network " + network +
                                                    " not found.\r\nUsing network 6 for this channel")));
    EXPECT_EQ(Column("5.ChannelNetworkIdUI"), "1 6");
  }
  provider.SetCount(21, 0);
  EXPECT_EQ(PointerAfter(kTxCall, "12345"), 0);
}

TEST_F(BurstMapping, PointersShowTheStoredTones) {
  provider.SetCount(30, 143);
  for (const auto& [record, tones] : {std::pair{2, "12A-GV"}, {110, "C"}, {143, "77"}}) {
    provider.Set("30.FixedFormatBurstSeq", record, modSelcallMapping::StringToNumarray(tones));
  }
  provider.Set("TxFormat_k6k", 1, "RRRRRS");  // a status slot is shown as its system shows it
  const std::pair<int, const char*> cases[] = {{0, "None"},   {1, "12A-GV"}, {109, "12"}, {142, "77"},
                                               {143, "None"}, {-1, "None"},  {2, ""}};
  for (const auto& [form, pointer, first, last] : kBursts) {
    for (const auto& [index, shown] : cases) {
      EXPECT_EQ(OnForm(pointer, index, form, form[0] == '5' ? 2 : 1), shown) << form << " " << index;
    }
  }
}
}  // namespace
