#include "selcall/modSelcallMapping.h"

#include <gmock/gmock.h>

#include <random>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "selcall/BurstSlots.h"
#include "tests/selcall/BurstFixture.h"
#include "tests/support/ErrorNumberOf.h"

namespace {
using namespace modSelcallMapping;
using testing::ElementsAre;

TEST(ToneSequences, HoldOneCodeARowBehindAnUnusedRow) {
  const ArrayObject sequence = StringToNumarray("09AF-GV");
  ASSERT_EQ(sequence->UpperBound(1), 7);
  const std::int32_t codes[] = {0, 9, 10, 15, 16, 17, 18};
  for (std::int32_t row = 1; row <= 7; ++row) EXPECT_EQ(CLng(sequence->GetValue(row, 0)), codes[row - 1]);
  EXPECT_EQ(StringToNumarray("")->UpperBound(1), 0);
}

TEST(ToneSequences, ComeBackAsTheyWereAndOtherCharactersAreNoTones) {
  for (const std::string_view text : {"", "0", "0123456789ABCDEF-GV", "VV", "--"}) {
    EXPECT_EQ(NumarrayToString(StringToNumarray(text)), text);
  }
  EXPECT_EQ(NumarrayToString(Variant()), "");
  for (const std::string_view text :
       {"a", "12f", "g", "H", " ", ".", "*", "1,2", "\x80", "1\x80", "1\xC3\xA4"}) {
    EXPECT_EQ(ErrorNumberOf([&] { StringToNumarray(text); }), 13) << text;
  }
}

TEST(ToneSequences, AreTheSameThereAndBackUpToThreeTonesAndAtRandom) {
  constexpr std::string_view kTones = "0123456789ABCDEF-GV";
  const auto comesBack = [](const std::string& text) {
    return NumarrayToString(StringToNumarray(text)) == text;
  };
  for (const char a : kTones) {
    for (const char b : kTones) {
      for (const char c : kTones) ASSERT_TRUE(comesBack({a, b, c}));
      ASSERT_TRUE(comesBack({a, b}));
    }
    ASSERT_TRUE(comesBack({a}));
  }
  std::mt19937 random(7);
  for (int round = 0; round < 1000; ++round) {
    std::string text(random() % 33, '0');
    for (char& tone : text) tone = kTones[random() % kTones.size()];
    ASSERT_TRUE(comesBack(text)) << text;
  }
}

TEST(ToneSequences, ACodeThatIsNoToneStandsThereInDecimal) {
  auto codes = std::make_shared<XArrayDBObject>();
  codes->Redim(0, 3, 0, 0);
  for (const auto& [row, code] : {std::pair{1, 19}, {2, -1}, {3, 5}}) codes->SetValue(row, 0, code);
  EXPECT_EQ(NumarrayToString(ArrayObject(codes)), "19-15");
}

TEST(Periods, AreLengthsOfTheirCodesAndAnyOtherNumberIsALength) {
  for (const auto& [period, length] : {std::pair{0, 0}, {1, 20}, {2, 33}, {7, 100}, {8, 8}, {-1, -1}})
    EXPECT_EQ(PeriodMs(period), length) << period;
}

TEST(BurstSlots, BelongToTheSystemOfTheirBlockInBothLayouts) {
  const std::tuple<const BurstLayout*, RecordNr, RecordNr, RecordNr> cases[] = {
      {&kBurstLayout, 1, 0, 0},        {&kBurstLayout, 2, 1, 1},       {&kBurstLayout, 142, 1, 141},
      {&kBurstLayout, 143, 2, 1},      {&kBurstLayout, 565, 4, 141},   {&kEarlyBurstLayout, 1, 0, 0},
      {&kEarlyBurstLayout, 52, 1, 51}, {&kEarlyBurstLayout, 53, 2, 1}, {&kEarlyBurstLayout, 205, 4, 51}};
  for (const auto& [layout, record, system, slot] : cases) {
    EXPECT_EQ(layout->SystemOf(record), system) << record;
    EXPECT_EQ(layout->SlotOf(record), slot) << record;
    EXPECT_EQ(system == 0 ? 1 : layout->RecordOf(system, slot), record);
  }
}

/// Bursts and formats of two systems in the provider.
class SelcallConversion : public BurstFixture {
 protected:
  std::string Raw(std::string_view field, RecordNr record) const {
    const XArrayDBObject& codes = CArray(provider.Get(field, record));
    std::string text;
    for (std::int32_t row = 1; row <= codes.UpperBound(1); ++row) text += CStr(codes.GetValue(row, 0)) + " ";
    return text;
  }
  /// What the radio holds of a burst that the form shows, and what the form shows of that.
  std::string ThereAndBack(RecordNr slot, std::string_view shown) {
    provider.Set("UGBurstSeq", slot, shown);
    EXPECT_TRUE(FromUI("30.UGBurstSeq", slot));
    std::string stored = Raw("30.FixedFormatBurstSeq", slot);
    EXPECT_TRUE(ToUI("30.UGBurstSeq", slot));
    return stored + "= " + Text("UGBurstSeq", slot);
  }
};

TEST_F(SelcallConversion, AFormatHasACodeALetter) {
  for (const auto& [form, raw] :
       {std::pair{"29.DerivedTxFormat", "29.TxFormat"}, {"29.DerivedRxFormat", "29.RxFormat"}}) {
    for (const auto& [format, codes] : {std::pair{"BB-RC-S", "4 4 3 0 1 3 2 "}, {"", ""}}) {
      provider.Set(form, 2, format);
      EXPECT_TRUE(FromUI(form, 2));
      EXPECT_EQ(Raw(raw, 2), codes);
      provider.Set(form, 2, "gone");
      EXPECT_TRUE(ToUI(form, 2));
      EXPECT_EQ(Text(form, 2), format);
    }
  }
  provider.Set("29.TxFormat", 1, Variant());
  EXPECT_TRUE(ToUI("29.DerivedTxFormat", 1));
  EXPECT_EQ(Text("29.DerivedTxFormat"), "");
}

TEST_F(SelcallConversion, ALetterThatIsNoneIsToldAndTakesTheCodeBeforeIt) {
  const auto told = [](const char* letter) {
    return Box(0, "Programming Application",
               "Character  " + std::string(letter) + " is not valid character for SelcallFormat.");
  };
  provider.Set("29.DerivedTxFormat", 1, "XSrä-N");
  EXPECT_TRUE(FromUI("29.DerivedTxFormat", 1));
  EXPECT_EQ(Raw("29.TxFormat", 1), "0 2 2 2 3 3 ");
  EXPECT_THAT(ServiceBoxes(), ElementsAre(told("X"), told("r"), told("ä"), told("N")));
}

TEST_F(SelcallConversion, ACodeThatIsNoneIsToldAndLeftOut) {
  provider.Set("29.TxFormat", 1, StringToNumarray("05F4"));
  EXPECT_TRUE(ToUI("29.DerivedTxFormat", 1));
  EXPECT_EQ(Text("29.DerivedTxFormat"), "RB");
  EXPECT_THAT(ServiceBoxes(), ElementsAre(Box(16, "Unknown Error", "Invalid Selcall format 5"),
                                          Box(16, "Unknown Error", "Invalid Selcall format 15")));
}

TEST_F(SelcallConversion, AStrangeFieldIsToldButForTheWayOfASequenceToTheRadio) {
  const ProviderRef host(sharedProvider);
  provider.Set("29.FreeFormSequence1", 1, "12");
  SetSelcallFormat(host, "29.FreeFormSequence1", 1);
  SetSelcallTone(host, "29.FreeFormSequence1", 1);
  GetSelcallTone(host, "29.FreeFormSequence1", 1);
  EXPECT_EQ(Text("29.FreeFormSequence1"), "12");
  GetSelcallFormat(host, "29.FreeFormSequence1", 1);
  EXPECT_EQ(Text("29.FreeFormSequence1"), "");
  const std::string field = "Field 29.FreeFormSequence1 not found during ";
  EXPECT_THAT(ServiceBoxes(), ElementsAre(Box(16, "Unknown Error", field + "SetSelcallFormat mapping"),
                                          Box(0, "Programming Application", field + "SelcallTone mapping"),
                                          Box(16, "Unknown Error", field + "GetSelcallFormat mapping")));
}

TEST_F(SelcallConversion, ABurstIsItsTonesAndAStatusOfOneToneANumber) {
  struct Case {
    const char* format;
    Burst kind;
    const char *shown, *outcome;
  };
  const Case cases[] = {
      {"RR-S", Burst::Status, "15", "15 = 15"},   {"RR-SS", Burst::Status, "15", "1 5 = 15"},
      {"RR-S", Burst::Status, "V", "18 = V"},     {"RR-SS", Burst::Status, "V", "18 18 = V"},
      {"RR", Burst::Status, "V", "18 = V"},       {"RR-SS", Burst::TxCall, "V", "18 18 = V"},
      {"RR-S", Burst::TxCall, "12", "1 2 = 12"},  {"RR-S", Burst::AccessTone, "12", "1 2 = 12"},
      {"RR-S", Burst::Status, "12", "12 = 12"},   {"RR-S-S", Burst::Status, "12", "1 2 = 12"},
      {"RR-S", Burst::Status, "07", "7 = 7"},     {"RR", Burst::TxCall, "12G-F", "1 2 17 16 15 = 12G-F"},
      {"RR-S", Burst::Status, "", "= "},          {"RR-S", Burst::Status, "nOne", "= "},
      {"RR-S", Burst::TxCall, "UNDEFINED", "= "},
  };
  for (const auto& [format, kind, shown, outcome] : cases) {
    provider.Set("TxFormat_k6k", 2, format);
    const RecordNr last = kBurstLayout.CountOf(kind);
    for (const RecordNr row : {1, last})
      EXPECT_EQ(ThereAndBack(Slot(2, kind, row), shown), outcome) << format << shown;
  }
  EXPECT_EQ(ThereAndBack(1, "12"), "= ");  // record 1 is no system's
  provider.SetCount(29, 1);
  EXPECT_EQ(ThereAndBack(Slot(2, Burst::Status, 1), "12"),
            "1 2 = 12");  // nor has a system that is gone a format
}

TEST_F(SelcallConversion, AStatusThatIsNoNumberEndsTheApplication) {
  provider.Set("TxFormat_k6k", 2, "RR-S");
  const RecordNr slot = Slot(2, Burst::Status, 1);
  for (const char* tones : {"G", "1-"}) {
    provider.Set("30.FixedFormatBurstSeq", slot, StringToNumarray(tones));
    ExpectTermination();
    ToUI("30.UGBurstSeq", slot);
  }
  EXPECT_EQ(Terminations(), 2);
}

TEST_F(SelcallConversion, OpeningTellsEachSlotWhatItIsAndFillsTheGridsOfTheFirstSystem) {
  for (const std::int32_t table : {1101, 1103, 1106}) provider.SetCount(table, 0);
  provider.SetCount(30, 300);  // beyond the slots of both systems
  provider.Fill("29.SignalSystemId", {7, 3});
  provider.Set("30.FixedFormatSigSystemID", 284, 99);
  provider.Set("30.FixedFormatBurstSeq", 1, StringToNumarray("123"));
  EXPECT_TRUE(ToUI("30.FixedFormatBurstSeq"));
  EXPECT_EQ(Raw("30.FixedFormatBurstSeq", 1) + Text("UGBurstSeq"), "");
  const std::tuple<RecordNr, const char*> slots[] = {{2, "7 1 0"},     {6, "7 5 0"},     {7, "7 6 1"},
                                                     {109, "7 108 3"}, {142, "7 141 5"}, {143, "3 1 0"},
                                                     {275, "3 133 4"}, {283, "3 141 5"}, {284, "99 0 0"}};
  for (const auto& [record, told] : slots) {
    EXPECT_EQ(Text("30.FixedFormatSigSystemID", record) + " " + Text("UGBurstID", record) + " " +
                  Text("UGBurstType", record),
              told)
        << record;
  }
  EXPECT_EQ(provider.Count(1103), 100);
  for (const auto& [slot, grid, row] : {std::tuple{2, "1101", 1}, {108, "1103", 100}, {142, "1106", 5}}) {
    const std::string table = grid;
    provider.Set("UGBurstSeq", slot, "55");
    EXPECT_TRUE(ToUI(table + ".BurstSequence", row));
    EXPECT_EQ(Text(table + ".BurstSequence", row) + " " + Text(table + ".BurstID", row),
              "55 " + std::to_string(row));
  }
  provider.SetCount(30, 100);
  EXPECT_TRUE(ToUI("1106.BurstSequence", 5));
  EXPECT_EQ(Text("1106.BurstSequence", 5), "55");  // no such slot: the row stays
}

/// A version whose blocks have 51 slots.
class EarlySelcall : public ChannelFixture {
 protected:
  EarlySelcall() : ChannelFixture("KD4410.0089") {}
};

TEST_F(EarlySelcall, HasSmallerBlocksForWhoeverReadsThem) {
  GiveNetworks({0, 1});
  GiveChannels({11});
  provider.Fill("29.SignalSystemId", {1, 4});
  provider.Set("5.ChannelNetworkIdUI", 1, 2);
  provider.SetCount(30, 103);
  EXPECT_TRUE(ToUI("30.FixedFormatBurstSeq"));
  EXPECT_EQ(Text("30.FixedFormatSigSystemID", 52) + Text("UGBurstID", 52) + " " +
                Text("30.FixedFormatSigSystemID", 53),
            "151 4");
  EXPECT_EQ(provider.Count(1103), 10);
  provider.Set("UGBurstSeq", 53 + 16, "777");  // the tenth call of system 2
  EXPECT_EQ(InRadio("5.TXCallBurstSeq", "777", "5.TXCallBurst"), "68");
  EXPECT_TRUE(Validate("CurrentSelcallNumber", 2));
  EXPECT_EQ(Text("BurstSequence2_k6k", 10), "777");
}
}  // namespace
