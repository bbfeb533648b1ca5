#include "selcall/modToneSets.h"

#include <gmock/gmock.h>

#include "platform/XArrayDBObject.h"
#include "selcall/ToneSets.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using namespace modToneSets;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ToneSetData, GivesTheRowsInHexadecimalAndThePlacesOfTheCodes) {
  const auto standard = ToneSetData(0);
  ASSERT_EQ(standard.size(), 17U);
  EXPECT_EQ(standard[0] + " " + standard[16], "03A2,0370,03C9 12,3,4,5,6,7,8,9,10,11,15,0,14,1,13,2");
  const auto custom = ToneSetData(9);
  ASSERT_EQ(custom.size(), 56U);
  EXPECT_EQ(custom[22], "0464,0453,0479,4483");
  EXPECT_TRUE(custom[55].starts_with("0,3,6,9,12,15,18,21,24,27,30,33,36,39,42,45,1,2,4,"));
  for (const std::int32_t none : {-1, 10}) EXPECT_THAT(ToneSetData(none), IsEmpty()) << none;
}

TEST(FrequenciesOfToneset, StandInAscendingOrderOrByToneCode) {
  const auto join = [](const std::vector<std::string>& all) {
    std::string text;
    for (const std::string& one : all) text += one + " ";
    return text;
  };
  EXPECT_EQ(join(FrequenciesOfToneset(7, false)),
            "571 631 697 770 852 941 1040 1209 1336 1477 1633 1805 1995 2205 2437 2694 ");
  EXPECT_EQ(join(FrequenciesOfToneset(7, true)),
            "1633 631 697 770 852 941 1040 1209 1336 1477 1995 571 2205 2437 1805 2694 ");
  EXPECT_EQ(FrequenciesOfToneset(9, false).size(), 55U);
  EXPECT_TRUE(join(FrequenciesOfToneset(9, true)).starts_with("571 680 741 825 "));
  EXPECT_THAT(FrequenciesOfToneset(10, false), IsEmpty());
}

/// What a row of the tables would have to be wrong for: each set against its frequencies by tone code.
TEST(ToneSets, EachCodeHasItsFrequencyInEachStandardSet) {
  constexpr std::int32_t kHertz[9][16] = {
      {1981, 1124, 1197, 1275, 1358, 1446, 1540, 1640, 1747, 1860, 2400, 930, 2247, 991, 2110, 1055},
      {600, 741, 882, 1023, 1164, 1305, 1446, 1587, 1728, 1869, 2151, 2433, 2010, 2292, 459, 1091},
      {1981, 1124, 1197, 1275, 1358, 1446, 1540, 1640, 1747, 1860, 1055, 930, 2400, 991, 2110, 2247},
      {2400, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000, 2200, 2800, 810, 970, 885, 2600, 680},
      {2400, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000, 2200, 885, 825, 740, 680, 970, 2600},
      {2400, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000, 2200, 885, 810, 2800, 680, 970, 2600},
      {2400, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000, 2200, 970, 810, 2800, 885, 2600, 680},
      {1633, 631, 697, 770, 852, 941, 1040, 1209, 1336, 1477, 1995, 571, 2205, 2437, 1805, 2694},
      {2200, 970, 1060, 1160, 1270, 1400, 1530, 1670, 1830, 2000, 825, 740, 2600, 885, 2400, 680}};
  for (std::int32_t set = 0; set < 9; ++set) {
    for (std::size_t code = 0; code < 16; ++code)
      EXPECT_EQ(ToneSets::Find(set)->OfCode(code).nominal, kHertz[set][code]) << set << " " << code;
  }
}

/// Two Selcall systems with the standard tones.
class ToneSetMapping : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    for (const std::int32_t table : {29, 31, 48}) provider.SetCount(table, 2);
  }
  /// Rows 1 to the last of a raw array, a blank between them.
  std::string Rows(std::string_view field, RecordNr record = 1) const {
    const XArrayDBObject& rows = CArray(provider.Get(field, record));
    std::string text;
    for (std::int32_t row = 1; row <= rows.UpperBound(1); ++row) {
      text += (row == 1 ? "" : " ") + CStr(rows.GetValue(row, 0));
    }
    return text;
  }
  void Store(RecordNr record, const std::vector<std::string>& hertz) {
    auto rows = std::make_shared<XArrayDBObject>();
    rows->Redim(0, static_cast<std::int32_t>(hertz.size()), 0, 0);
    std::int32_t row = 0;
    for (const std::string& one : hertz) rows->SetValue(++row, 0, CLng(one));
    provider.Set("48.CustomFrequencies", record, ArrayObject(std::move(rows)));
  }
  std::string Shown(std::int32_t stored, std::int32_t groupTone = 10, std::int32_t repeatTone = 14) {
    provider.Set("48.SelcallToneSet", 2, stored);
    provider.Set("GroupTone", 2, groupTone);
    provider.Set("RepeatTone", 2, repeatTone);
    EXPECT_TRUE(ToUI("48.DerivedSelcallToneSet", 2));
    return Text("ToneSet", 2) + " on " + Text("BasedOnToneSet", 2);
  }
};

TEST_F(ToneSetMapping, ASetIsTheUsersByItsFrequenciesOrItsTones) {
  EXPECT_EQ(Shown(3), "3 on 3");  // frequencies that were never set are not compared
  EXPECT_EQ(Shown(3, 11), "9 on 3");
  EXPECT_EQ(Shown(3, 10, 13), "9 on 3");
  Store(2, FrequenciesOfToneset(0, true));
  EXPECT_EQ(Shown(0), "0 on 0");
  EXPECT_EQ(Shown(2), "9 on 2");  // the same tones, by other codes
  Store(2, FrequenciesOfToneset(9, true));
  EXPECT_EQ(Shown(9), "9 on 9");
  std::vector<std::string> hertz = FrequenciesOfToneset(4, true);
  Store(2, hertz);
  EXPECT_EQ(Shown(4), "4 on 4");
  hertz[15] = "2601";
  Store(2, hertz);
  EXPECT_EQ(Shown(4), "9 on 4");
  EXPECT_EQ(Shown(10, 1, 1), "10 on 10");  // a mark: nothing is compared
  hertz.pop_back();
  hertz[14] = "970";
  Store(2, hertz);
  EXPECT_EQ(Shown(4), "9 on 4");  // a row that is missing differs
  EXPECT_EQ(Shown(11), "9 on 11");
  provider.SetCount(31, 1);
  provider.Set("48.SelcallToneSet", 2, 3);
  Store(2, {});
  EXPECT_TRUE(ToUI("48.DerivedSelcallToneSet", 2));
  EXPECT_EQ(Text("ToneSet", 2), "3");
}

TEST_F(ToneSetMapping, TheRadioGetsTheNumberOfTheBaseAndTheConstantsOfTheSet) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"0", "5", "0 0 1694"}, {"2", "5", "2 0 1694"}, {"1", "5", "1 1 1516"}, {"5", "5", "5 1 1750"},
      {"8", "5", "8 1 1600"}, {"7", "5", "7 1 1720"}, {"9", "0", "0 1 1600"}, {"9", "9", "9 1 1600"}};
  for (const auto& [set, base, stored] : cases) {
    provider.Set("ToneSet", 2, set);
    provider.Set("BasedOnToneSet", 2, base);
    provider.Set("31.ToneSetPointer", 2, 3);
    EXPECT_TRUE(FromUI("48.DerivedSelcallToneSet", 2));
    EXPECT_EQ(Text("48.SelcallToneSet", 2) + " " + Text("48.ToneSetBandwidth", 2) + " " +
                  Text("48.ToneSetMixingFrequency", 2),
              stored)
        << set;
    EXPECT_EQ(Text("31.ToneSetPointer", 2), "1");
  }
}

TEST_F(ToneSetMapping, ASetThatThereIsNotEndsTheApplicationUnderTheNameOfItsCaller) {
  for (const auto& [set, base] : {std::pair{10, 0}, {-1, 0}, {9, 10}}) {
    provider.Set("ToneSet", 1, set);
    provider.Set("BasedOnToneSet", 1, base);
    provider.Set("48.SelcallToneSet", 1, 4);
    ExpectTermination();
    FromUI("48.DerivedSelcallToneSet");
    EXPECT_THAT(services->Boxes().back().text,
                testing::EndsWith("SetTonesetDetails\r\nTone Set ID not handled"));
    EXPECT_EQ(Text("48.SelcallToneSet"), "4") << set;
  }
}

TEST_F(ToneSetMapping, FrequenciesAreStoredByCodeTheirLimitsInAscendingOrder) {
  provider.Set("BasedOnToneSet", 1, 2);
  const auto hertz = FrequenciesOfToneset(2, true);
  Store(1, hertz);
  EXPECT_TRUE(ToUI("48.CustomFrequencies"));
  EXPECT_EQ(Text("CustomFrequencies0") + " " + Text("CustomFrequenciesF"), "1981 2247");
  provider.Set("CustomFrequenciesB", 1, hertz[13]);  // B and D are swapped
  provider.Set("CustomFrequenciesD", 1, hertz[11]);
  EXPECT_TRUE(FromUI("48.CustomFrequencies"));
  EXPECT_EQ(Rows("48.CustomFrequencies"),
            "1981 1124 1197 1275 1358 1446 1540 1640 1747 1860 1055 991 2400 930 2110 2247");
  EXPECT_EQ(Rows("48.ToneSetRemapTable"), "13 11 10 1 2 3 4 5 6 7 8 9 0 14 15 12");
  EXPECT_EQ(Rows("48.ToneSetLowFreq"),
            "880 971 1037 1106 1178 1255 1336 1422 1515 1612 1717 1823 1945 2072 2207 2300");
  EXPECT_EQ(Rows("48.ToneSetHighFreq"),
            "969 1018 1074 1142 1214 1295 1378 1470 1563 1664 1773 1891 2010 2141 2280 2500");
}

TEST_F(ToneSetMapping, AFrequencyThatTheBaseDoesNotHaveComesFirstWithoutLimits) {
  provider.Set("BasedOnToneSet", 1, 9);
  const auto hertz = FrequenciesOfToneset(9, true);
  Store(1, hertz);
  EXPECT_TRUE(ToUI("48.CustomFrequencies"));
  provider.Set("CustomFrequencies5", 1, "2399");
  provider.Set("CustomFrequencies2", 1, "x");
  EXPECT_TRUE(FromUI("48.CustomFrequencies"));
  EXPECT_TRUE(Rows("48.CustomFrequencies").starts_with("571 680 x 825 885 2399 1040 "));
  EXPECT_TRUE(Rows("48.ToneSetRemapTable").starts_with("  0 1 3 4 6 7 "));
  EXPECT_TRUE(Rows("48.ToneSetHighFreq").starts_with("  589 698 843 "));
}

TEST_F(ToneSetMapping, WhatWasNeverSetStaysSo) {
  for (const std::vector<std::string>& stored :
       {std::vector<std::string>(16, "4095"), {}, {"4095", "4095"}}) {
    Store(1, stored);
    EXPECT_TRUE(ToUI("48.CustomFrequencies"));
    EXPECT_EQ(Text("CustomFrequencies0") + Text("CustomFrequencies9"), "40954095");
    EXPECT_TRUE(FromUI("48.CustomFrequencies"));
    EXPECT_EQ(CArray(provider.Get("48.CustomFrequencies")).UpperBound(1), std::ssize(stored));
    EXPECT_EQ(CArray(provider.Get("48.ToneSetLowFreq")).UpperBound(1), 0);
  }
}

TEST_F(ToneSetMapping, TheStandardSetsAreLaidOutAnew) {
  provider.SetCount(74, 3);
  for (int round = 0; round < 2; ++round) EXPECT_TRUE(FromUI("74.CustomFrequencies"));
  EXPECT_EQ(Column("74.SelcallToneSet"), "0 1 2 3 4 5 6 7 8");
  EXPECT_EQ(Column("74.ToneSetBandwidth"), "0 1 0 1 1 1 1 1 1");
  EXPECT_EQ(Column("74.ToneSetMixingFrequency"), "1694 1516 1694 1750 1600 1750 1750 1720 1600");
  EXPECT_EQ(Rows("74.CustomFrequencies", 9),
            "2200 970 1060 1160 1270 1400 1530 1670 1830 2000 825 740 2600 885 2400 680");
  EXPECT_EQ(Rows("74.ToneSetRemapTable", 9), "15 11 10 13 1 2 3 4 5 6 7 8 9 0 14 12");
  EXPECT_EQ(Rows("74.ToneSetLowFreq", 9),
            "659 719 803 868 952 1040 1138 1248 1373 1500 1638 1795 1963 2160 2341 2475");
}

TEST_F(ToneSetMapping, ANewSystemTakesTheFrequenciesThatItsSetHasForThoseNeverSet) {
  const ProviderRef host(sharedProvider);
  std::vector<std::string> hertz = FrequenciesOfToneset(3, true);
  hertz[1] = "4095";
  Store(1, hertz);
  provider.Set("48.SelcallToneSet", 1, 3);
  provider.Set("GroupTone", 1, 2);  // not asked for
  SetSelcallToneSet(host, "48.DerivedSelcallToneSet", 1);
  EXPECT_EQ(Row({"ToneSet", "BasedOnToneSet"}), "9 3");  // 4095 in another row than the first is compared
  provider.Set("CustomFrequencies2", 1, "untouched");
  SetSelcallTonesetDefaults(host, "48.DerivedCustomFrequencies2", 1);
  EXPECT_EQ(Text("CustomFrequencies2"), "untouched");
  SetSelcallTonesetDefaults(host, "48.DerivedCustomFrequencies1", 1);
  EXPECT_EQ(Row({"CustomFrequencies0", "CustomFrequencies1", "CustomFrequencies2"}), "2400 1060 1160");
  for (const auto& [stored, shown] : {std::pair{9, "9"}, {10, "10"}, {2, "9"}}) {
    provider.Set("48.SelcallToneSet", 1, stored);
    SetSelcallToneSet(host, "48.DerivedSelcallToneSet", 1);
    EXPECT_EQ(Text("ToneSet"), shown);
  }
}

TEST_F(ToneSetMapping, TheListOfACustomToneIsThatOfItsBase) {
  const auto list = [&](RecordNr record) {
    std::shared_ptr<XArrayDBObject> items;
    Boolean done = kFalse;
    EXPECT_TRUE(
        ProviderOwner()->GetComboItemsByUIID(sharedProvider, "CustomFrequenciesA", record, items, done).Ok());
    return items;
  };
  provider.Set("BasedOnToneSet", 2, 1);
  EXPECT_EQ(list(2)->UpperBound(1), 15);
  EXPECT_EQ(CStr(list(2)->GetValue(0, 0)), "459");
  provider.Set("BasedOnToneSet", 2, 10);
  EXPECT_EQ(list(2)->UpperBound(1), -1);
  EXPECT_EQ(list(3)->UpperBound(1), -1);
}
}  // namespace
