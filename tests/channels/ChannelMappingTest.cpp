#include "channels/modChannels.h"
#include "selcall/modSelcallMapping.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

class ChannelMapping : public ChannelFixture {
 protected:
  ProviderRef Ref() const { return ProviderRef(sharedProvider); }
};

TEST_F(ChannelMapping, NumbersGoToTableSevenAndBack) {
  GiveChannels({11, 12});
  provider.Set("5.ChannelIDTracker", 2, "12");
  provider.Set("5.HiddenChannel", 2, -1);
  for (const RecordNr channel : {1, 2}) EXPECT_TRUE(FromUI("5.ChannelIDTracker", channel));
  EXPECT_THAT(Column("7.CibChannelID"), ElementsAre("11", "12"));
  EXPECT_THAT(Column("7.CibChannelRec"), ElementsAre("0", "1"));
  EXPECT_THAT(Column("7.CibChannelBlockRec"), ElementsAre("0", "0"));
  EXPECT_THAT(Column("5.HiddenChannel"), ElementsAre("0", "0"));
  EXPECT_EQ(std::get<std::int32_t>(provider.Get("7.CibChannelID", 2)), 12);

  provider.Set("5.ChannelIDTracker", 2, 0);
  EXPECT_TRUE(ToUI("5.ChannelIDTracker", 2));
  EXPECT_EQ(std::get<std::int32_t>(provider.Get("5.ChannelIDTracker", 2)), 12);
}

TEST_F(ChannelMapping, ALongerTableSevenIsEmptiedAShorterOneGrowsByOne) {
  GiveChannels({11, 12, 13});
  provider.Fill("7.CibChannelID", {1, 2, 3, 4});
  StartTrail();
  EXPECT_TRUE(FromUI("5.ChannelIDTracker", 1));
  EXPECT_THAT(Column("7.CibChannelID"), ElementsAre("11"));
  EXPECT_EQ(Trail()[0], "Iprovider.ClearTable 7");
  EXPECT_TRUE(ToUI("5.ChannelIDTracker", 2));  // not in table 7 yet
  EXPECT_EQ(Text("5.ChannelIDTracker", 2), "12");

  provider.Fill("7.CibChannelID", {1, 2, 3});  // as long as table 5
  EXPECT_TRUE(FromUI("5.ChannelIDTracker", 3));
  EXPECT_THAT(Column("7.CibChannelID"), ElementsAre("1", "2", "13"));

  ExpectTermination();
  provider.SetCount(7, 1);
  FromUI("5.ChannelIDTracker", 3);
  EXPECT_EQ(provider.Count(7), 2);
  EXPECT_GE(Terminations(), 1);
}

TEST_F(ChannelMapping, FrequenciesAreWholeHertzInTheRadioAndSixDecimalsOnTheForm) {
  const struct {
    std::string_view typed;
    double hertz;
    std::string_view shown;
  } cases[] = {
      {"066.005000", 66005000, "066.005000"}, {"869.999999", 869999999, "869.999999"},
      {"150.1", 150100000, "150.100000"},     {"0", 0, "000.000000"},
      {"000.000001", 1, "000.000001"},        {"136.0000005", 136000001, "136.000001"},
  };
  provider.SetCount(5, 2);
  for (const auto& [typed, hertz, shown] : cases) {
    for (const auto& [form, raw, other] :
         {std::tuple{"5.ChannelTxFreqUI", "5.ChannelTxFreq", "5.ChannelRxFreq"},
          {"5.ChannelRxFreqUI", "5.ChannelRxFreq", "5.ChannelTxFreq"}}) {
      provider.Set(other, 2, 77);
      provider.Set(form, 2, typed);
      EXPECT_TRUE(FromUI(form, 2));
      EXPECT_EQ(std::get<double>(provider.Get(raw, 2)), hertz) << typed;
      EXPECT_EQ(Text(other, 2), "77");
      EXPECT_TRUE(ToUI(form, 2));
      EXPECT_EQ(std::get<std::string>(provider.Get(form, 2)), shown);
    }
  }
}

TEST_F(ChannelMapping, FrequenciesFollowTheUsersDecimalSymbol) {
  const DecimalComma comma;
  provider.SetCount(5, 1);
  for (const std::string_view typed : {"150,125", "150.125"}) {
    provider.Set("5.ChannelTxFreqUI", 1, typed);
    EXPECT_TRUE(FromUI("5.ChannelTxFreqUI"));
    EXPECT_EQ(CDbl(provider.Get("5.ChannelTxFreq")), 150125000) << typed;
    EXPECT_TRUE(ToUI("5.ChannelTxFreqUI"));
    EXPECT_EQ(Text("5.ChannelTxFreqUI"), "150,125000");
  }
}

TEST_F(ChannelMapping, AFrequencyThatIsNoNumberEndsTheApplicationAndKeepsTheStoredOne) {
  ExpectTermination();
  provider.SetCount(5, 1);
  provider.Set("5.ChannelTxFreq", 1, 150e6);
  provider.Set("5.ChannelTxFreqUI", 1, "abc");
  FromUI("5.ChannelTxFreqUI");
  EXPECT_EQ(CDbl(provider.Get("5.ChannelTxFreq")), 150e6);
  EXPECT_EQ(Terminations(), 1);
}

constexpr struct {
  const char *form, *type, *index;
} kDirections[] = {{"5.TxSignallingUI", "5.TxSubaudibleType", "5.TxSubaudibleIndex"},
                   {"5.RxSignallingUI", "5.RxSubaudibleType", "5.RxSubaudibleIndex"}};

TEST_F(ChannelMapping, ToneIndicesOutsideTheirTableShowNone) {
  const struct {
    std::int32_t type, index;
    std::string_view shown;
  } cases[] = {
      {0, 0, "None"}, {1, 0, "C67.0"}, {1, 1, "C100.0"}, {1, 2, "None"}, {1, -1, "None"},
      {2, 0, "D023"}, {2, 1, "None"},  {2, -1, "None"},  {3, 0, "None"},
  };
  provider.SetCount(5, 1);
  provider.Fill("50.CTCSSfreq", {670, 1000});
  provider.Fill("61.DCScodeword", {19});
  for (const auto& [type, index, shown] : cases) {
    for (const auto& direction : kDirections) {
      provider.Set(direction.type, 1, type);
      provider.Set(direction.index, 1, index);
      EXPECT_TRUE(ToUI(direction.form));
      EXPECT_EQ(Text(direction.form), shown) << type << " " << index;
    }
  }
}

TEST_F(ChannelMapping, EachToneAppendsARecordOfItsOwn) {
  const struct {
    std::string_view typed;
    std::int32_t type, index;
    std::size_t tones, codes;  // in the tables afterwards
  } cases[] = {
      {"C67.0", 1, 1, 2, 2}, {"C67.0", 1, 2, 3, 2},  {"D023", 2, 2, 3, 3},  {"None", 0, 0, 3, 3},
      {"", 0, -1, 3, 3},     {"c67.0", 0, -1, 3, 3}, {"67.0", 0, -1, 3, 3},
  };
  provider.SetCount(5, 2);
  for (const auto& direction : kDirections) {
    provider.Fill("50.CTCSSfreq", {1000});
    provider.Fill("61.DCScodeword", {1, 2});
    provider.Set(direction.type, 1, 7);
    for (const auto& [typed, type, index, tones, codes] : cases) {
      SCOPED_TRACE(typed);
      provider.Set(direction.form, 2, typed);
      EXPECT_TRUE(FromUI(direction.form, 2));
      EXPECT_EQ(CLng(provider.Get(direction.type, 2)), type);
      EXPECT_EQ(CLng(provider.Get(direction.index, 2)), index);
      EXPECT_EQ(Column("50.CTCSSfreq").size(), tones);
      EXPECT_EQ(Column("61.DCScodeword").size(), codes);
    }
    EXPECT_THAT(Column("50.CTCSSfreq"), ElementsAre("1000", "670", "670"));
    EXPECT_THAT(Column("61.DCScodeword"), ElementsAre("1", "2", "19"));
    EXPECT_EQ(Text(direction.type, 1), "7");
  }
}

TEST_F(ChannelMapping, SignallingOfAnUnknownFieldIsReportedAfterTheToneWasAppended) {
  provider.SetCount(5, 1);
  provider.Set("5.DTMFPresetCallSequence", 1, "C67.0");
  modChannels::SetSubAudSignalling(Ref(), "5.DTMFPresetCallSequence", 1);
  EXPECT_THAT(Column("50.CTCSSfreq"), ElementsAre("670"));
  EXPECT_EQ(Text("5.TxSubaudibleType") + Text("5.RxSubaudibleType"), "00");
  modChannels::GetSubAudSignalling(Ref(), "5.DTMFPresetCallSequence", 1);
  EXPECT_EQ(Text("5.DTMFPresetCallSequence"), "C67.0");
  const std::string box = Box(0, "Programming Application",
                              "field 5.DTMFPresetCallSequence not found during SubAudSignalling mapping");
  EXPECT_THAT(ServiceBoxes(), ElementsAre(box, box));
}

TEST_F(ChannelMapping, TheUsersTickInvertsTheBirdieOfTheReceiveFrequency) {
  const struct {
    std::string_view rx;
    Variant tick;
    int stored;
  } cases[] = {
      {"420.096", 0, 1}, {"420.096", 1, 0},  {"420.096", true, 0}, {"420.000", 0, 0},
      {"420.000", 1, 1}, {"420.000", -1, 1}, {"0", 0, 0},          {"0", 1, 1},
  };
  provider.SetCount(5, 1);
  provider.Set("34.Band", 1, 5);
  provider.Set("Band_k6k", 1, 0);                   // the stored band counts
  provider.Set("5.ChannelTxFreqUI", 1, "420.352");  // a birdie too
  for (const auto& [rx, tick, stored] : cases) {
    provider.Set("5.ChannelRxFreqUI", 1, rx);
    provider.Set("5.IsUserDefinedBirdieChannel", 1, tick);
    EXPECT_TRUE(FromUI("5.IsUserDefinedBirdieChannel"));
    EXPECT_EQ(std::get<std::int32_t>(provider.Get("5.IsBirdieChannel")), stored) << rx;
  }
  provider.Set("34.Band", 1, 10);  // a number, not a position
  EXPECT_TRUE(FromUI("5.IsUserDefinedBirdieChannel"));
  StartTrail();
  EXPECT_TRUE(ToUI("5.IsUserDefinedBirdieChannel"));
  EXPECT_THAT(Trail(), IsEmpty());
}

TEST_F(ChannelMapping, NetworksAreIndicesInTheRadioAndNumbersOnTheForm) {
  GiveNetworks({0, 0, 0});
  provider.Fill("21.NetworkIDTracker", {3, 7, "7"});
  provider.Fill("21.NetworkPointer", {30, 70, 71});
  provider.SetCount(5, 2);
  for (const auto& [form, raw] :
       {std::pair{"5.ChannelNetworkIdUI", "5.ChannelNetworkId"}, {"53.NetworkIDTracker", "53.NetworkId"}}) {
    SCOPED_TRACE(form);
    for (const auto& [index, number] : {std::pair{0, "30"}, {2, "71"}, {3, "30"}, {-1, "30"}}) {
      provider.Set(raw, 2, index);
      EXPECT_TRUE(ToUI(form, 2));
      EXPECT_EQ(Text(form, 2), number) << index;
    }
    const struct {
      Variant number;
      int index;
    } cases[] = {{3, 0}, {"7", 2}, {7, 2}, {9, 2}, {"None", 2}};  // an unknown one keeps the index
    for (const auto& [number, index] : cases) {
      provider.Set(form, 2, number);
      EXPECT_TRUE(FromUI(form, 2));
      EXPECT_EQ(CLng(provider.Get(raw, 2)), index) << CStr(number);
    }
  }
  provider.SetCount(21, 0);
  provider.Set("5.ChannelNetworkIdUI", 2, 5);
  EXPECT_TRUE(ToUI("5.ChannelNetworkIdUI", 2));
  EXPECT_EQ(Text("5.ChannelNetworkIdUI", 2), "5");
}

TEST_F(ChannelMapping, CompandingHasTwoHalvesOfWhichOneIsRead) {
  provider.SetCount(5, 2);
  provider.Set("5.ChannelCompanding", 2, "1");
  EXPECT_TRUE(FromUI("5.ChannelCompanding", 2));
  EXPECT_EQ(std::get<std::int32_t>(provider.Get("5.TxCompression", 2)), 1);
  EXPECT_EQ(std::get<std::int32_t>(provider.Get("5.ReceptionExpansion", 2)), 1);
  provider.Set("5.TxCompression", 2, 0);
  EXPECT_TRUE(ToUI("5.ChannelCompanding", 2));
  EXPECT_EQ(Text("5.ChannelCompanding", 2), "0");
}

TEST_F(ChannelMapping, DTMFPresetsAreFoundBySystemAndExactTextFromRecordTwo) {
  const struct {
    RecordNr network;
    std::string_view text;
    int pointer;
  } cases[] = {{1, "12", 3},  {1, "34", 2}, {1, "99", 0}, {1, "", 0},  {1, "None", 0},
               {1, "012", 0}, {2, "12", 0}, {3, "12", 0}, {8, "12", 0}};
  GiveNetworks({2, 1, 0});
  GiveChannels({11, 12});
  provider.Fill("65.DTMFChannelPresetSeqSigSysID", {4, 9, 4, 4, 4});
  provider.Fill("65.DTMFChannelPresetSequenceUI", {"12", "12", "34", "12", "12"});
  for (const auto& [network, text, pointer] : cases) {
    provider.Set("5.ChannelNetworkIdUI", 2, network);
    provider.Set("5.DTMFPresetCallSequence", 2, text);
    provider.Set("5.DTMFPresetCallPointer", 2, 4);
    EXPECT_TRUE(FromUI("5.DTMFPresetCallSequence", 2));
    EXPECT_EQ(CLng(provider.Get("5.DTMFPresetCallPointer", 2)), pointer) << network << " " << text;
  }
  for (const auto& [pointer, shown] :
       {std::pair{0, "None"}, {2, "34"}, {4, "12"}, {5, "None"}, {-1, "None"}}) {
    provider.Set("5.DTMFPresetCallPointer", 2, pointer);
    EXPECT_TRUE(ToUI("5.DTMFPresetCallSequence", 2));
    EXPECT_EQ(Text("5.DTMFPresetCallSequence", 2), shown) << pointer;
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
  int PointerAfter(const char* form, const char* pointer, std::string_view text) {
    const RecordNr record = form[0] == '5' ? 2 : 1;
    provider.Set(form, record, text);
    provider.Set(pointer, record, 99);
    EXPECT_TRUE(FromUI(form, record));
    return CLng(provider.Get(pointer, record));
  }
};

TEST_F(BurstMapping, EachKindIsFoundInItsOwnRecordsOfItsSystem) {
  for (const std::int32_t system : {4, 9}) {
    provider.Set("21.NetworkSignallingID", 2, system);
    const RecordNr base = system == 4 ? 0 : kBlock;
    for (const auto& [form, pointer, first, last] : kBursts) {
      SCOPED_TRACE(form);
      for (const RecordNr burst : {base + first - 1, base + first, base + last, base + last + 1}) {
        provider.Set("30.UGBurstSeq", burst, "12345");
        const bool isOurs = base + first <= burst && burst <= base + last;
        EXPECT_EQ(PointerAfter(form, pointer, "12345"), isOurs ? burst - 1 : 99) << burst;
        provider.Set("30.UGBurstSeq", burst, "");
      }
      provider.Set("30.UGBurstSeq", base + first, "777");
      provider.Set("30.UGBurstSeq", base + last, "777");
      EXPECT_EQ(PointerAfter(form, pointer, "777"), base + first - 1);
      provider.Set("30.UGBurstSeq", base + first, "");
      provider.Set("30.UGBurstSeq", base + last, "");
      EXPECT_EQ(PointerAfter(form, pointer, "None"), 0);
      EXPECT_EQ(PointerAfter(form, pointer, ""), 0);
    }
  }
}

TEST_F(BurstMapping, TheWalkEndsWithTableThirty) {
  provider.SetCount(30, 140);
  provider.Set("30.UGBurstSeq", 140, "5");
  EXPECT_EQ(PointerAfter("5.Lead-In-ToneSeq", "5.Lead-In-Tone", "5"), 139);
  EXPECT_EQ(PointerAfter("5.Lead-In-ToneSeq", "5.Lead-In-Tone", "6"), 99);
}

TEST_F(BurstMapping, WithoutSelcallAPointerIsClearedWithAnUnknownSystemItStays) {
  provider.Set("30.UGBurstSeq", 9, "12345");
  EXPECT_EQ(PointerAfter("5.TXCallBurstSeq", "5.TXCallBurst", "12345"), 8);
  provider.Set("21.NetworkSignallingID", 2, 5);
  EXPECT_EQ(PointerAfter("5.TXCallBurstSeq", "5.TXCallBurst", "12345"), 99);
  for (const std::int32_t type : {0, 2, 3, 4}) {
    provider.Set("21.SignallingType", 2, type);
    EXPECT_EQ(PointerAfter("5.TXCallBurstSeq", "5.TXCallBurst", "12345"), 0);
    EXPECT_EQ(PointerAfter("76.TXCallBurstSeq", "76.DSDBM_CHANNEL_SEL_TXCALL_INDEX_POINTER", "12345"), 0);
  }
}

TEST_F(BurstMapping, AChannelOfAnUnknownNetworkIsPutOnTheFirstOne) {
  const struct {
    const char *form, *pointer, *network;
  } cases[] = {{"5.TXCallBurstSeq", "5.TXCallBurst", "8"},
               {"5.TXCallBurstSeq", "5.TXCallBurst", "02"},  // compared as text
               {"76.TXCallBurstSeq", "76.DSDBM_CHANNEL_SEL_TXCALL_INDEX_POINTER", "8"}};
  provider.Set("30.UGBurstSeq", 9, "12345");
  provider.Set("21.SignallingType", 1, 1);
  provider.Set("21.NetworkPointer", 1, 6);
  for (const auto& [form, pointer, network] : cases) {
    services->Clear();
    provider.Set("5.ChannelNetworkIdUI", 2, network);
    EXPECT_EQ(PointerAfter(form, pointer, "12345"), 8);
    EXPECT_THAT(ServiceBoxes(),
                ElementsAre(Box(16, "Unknown Error",
                                std::string("Error processing channel 11).TempValue( network ") + network +
                                    " not found.\r\nUsing network 6 for this channel")));
    EXPECT_EQ(Text("5.ChannelNetworkIdUI", 2), "6");
    EXPECT_EQ(Text("5.ChannelNetworkIdUI", 1), "1");
  }
  EXPECT_EQ(Terminations(), 0);

  provider.SetCount(21, 0);
  EXPECT_EQ(PointerAfter("5.TXCallBurstSeq", "5.TXCallBurst", "12345"), 0);
}

TEST_F(BurstMapping, PointersShowTheStoredTones) {
  provider.SetCount(30, 143);
  for (const auto& [record, tones] : {std::pair{2, "12A-GV"}, {110, "C"}, {143, "77"}}) {
    provider.Set("30.FixedFormatBurstSeq", record, modSelcallMapping::StringToNumarray(tones));
  }
  provider.Set("TxFormat_k6k", 1, "RRRRRS");  // a status is shown as stored, whatever the format
  const std::pair<int, const char*> cases[] = {{0, "None"},   {1, "12A-GV"}, {109, "C"}, {142, "77"},
                                               {143, "None"}, {-1, "None"},  {2, ""}};
  for (const auto& [form, pointer, first, last] : kBursts) {
    const RecordNr record = form[0] == '5' ? 2 : 1;
    for (const auto& [index, shown] : cases) {
      provider.Set(pointer, record, index);
      EXPECT_TRUE(ToUI(form, record));
      EXPECT_EQ(Text(form, record), shown) << form << " " << index;
    }
  }
}

TEST_F(BurstMapping, FieldsOutsideTheTableShowNoneAndStoreNothing) {
  provider.Set("5.ChannelANR", 1, 7);
  modChannels::GetPresetSelcallIndex(Ref(), "5.ChannelANR", 1);
  EXPECT_EQ(Text("5.ChannelANR"), "None");
  modChannels::GetPresetSelcallIndex(Ref(), "21.CallMute", 1);
  EXPECT_EQ(Text("21.CallMute"), "0");
  StartTrail();
  modChannels::SetPresetSelcallIndex(Ref(), "5.ChannelANR", 1);
  modChannels::SetPresetSelcallIndex(Ref(), "21.CallMute", 1);
  EXPECT_THAT(Trail(), IsEmpty());
  provider.Set("5.TXCallBurst", 2, 4);
  provider.Set("5.TXCallBurstSeq", 2, "None");
  modChannels::SetPresetSelcallIndex(Ref(), "5.txcallburstseq", 2);
  EXPECT_EQ(Text("5.TXCallBurst", 2), "0");
}
}  // namespace
