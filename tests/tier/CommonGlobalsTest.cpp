#include "tier/modCommonGlobals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "platform/Conversions.h"
#include "platform/Locale.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TierFixture.h"
#include "tier/modProjectGlobals.h"

namespace {
using namespace modCommonGlobals;
using namespace modProjectGlobals;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

class Globals : public testing::Test {
 protected:
  Globals() { SetDecimalSymbol('.'); }
  ~Globals() override { SetDecimalSymbol('\0'); }
};

TEST_F(Globals, HexadecimalTextsHaveAnEvenLength) {
  const std::pair<std::string_view, std::string_view> toHex[] = {
      {"255", "FF"},   {"4096", "1000"},   {"10", "0A"},
      {"0", "00"},     {"", "00"},         {" 2 5 5 ", "FF"},
      {"256", "0100"}, {"-1", "FFFFFFFF"}, {"2147483647", "7FFFFFFF"}};
  for (const auto& [number, hex] : toHex) EXPECT_EQ(ConvertNumericToHex(number), hex) << number;
  const std::pair<std::string_view, std::string_view> toNumber[] = {{"FF", "0255"},
                                                                    {"ff", "0255"},
                                                                    {"5", "05"},
                                                                    {"0A", "10"},
                                                                    {"", "00"},
                                                                    {"1000", "4096"},
                                                                    {"7FFFFFFF", "2147483647"}};
  for (const auto& [hex, number] : toNumber) EXPECT_EQ(ConvertHexToNumeric(hex), number) << hex;
  EXPECT_EQ(ErrorNumberOf([] { ConvertNumericToHex("word"); }), 13);
  EXPECT_EQ(ErrorNumberOf([] { ConvertNumericToHex("2147483648"); }), 6);
  for (const char* text : {"G", "-1", "&HF", "F F"})
    EXPECT_EQ(ErrorNumberOf([&] { ConvertHexToNumeric(text); }), 13);
  EXPECT_EQ(ErrorNumberOf([] { ConvertHexToNumeric("80000000"); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { ConvertHexToNumeric(std::string(2000, 'F')); }), 6);
}

TEST_F(Globals, TextHelpers) {
  EXPECT_EQ(MakeParamString({}), "");
  EXPECT_EQ(MakeParamString({"a"}), "a");
  EXPECT_EQ(MakeParamString({"", "b", ""}), "|b|");
  EXPECT_EQ(CharCount("aAbA", 'a'), 3);
  EXPECT_EQ(CharCount("", 'a'), 0);
  using Parts = std::pair<std::string_view, std::string_view>;
  EXPECT_EQ(SplitFieldId("1107.CurrentScanGroupNr"), Parts("1107", "CurrentScanGroupNr"));
  EXPECT_EQ(SplitFieldId("5.a.b"), Parts("5", "a.b"));
  EXPECT_EQ(SplitFieldId("NetworkID"), Parts("", "NetworkID"));
  EXPECT_EQ(SplitFieldId("5."), Parts("5", ""));
  EXPECT_EQ(LeftPadString("7", '0', 3), "007");
  EXPECT_EQ(LeftPadString("1234", '0', 3), "1234");
}

TEST_F(Globals, LocalTextsTakeTheUsersSymbol) {
  SetDecimalSymbol(',');
  EXPECT_EQ(LocalizeString("1.2.3"), "1,2,3");
  EXPECT_EQ(CDblLocal("67.5"), 67.5);
  EXPECT_EQ(CDblLocal("67,5"), 67.5);
  EXPECT_EQ(ErrorNumberOf([] { CDblLocal("1.2,3"); }), 13);
  EXPECT_EQ(Precision("1.25"), 2);
  EXPECT_EQ(CDbl(Split2("1.5", ";", -1, CompareMode::Exact, VarType::Double)[0]), 1.5);
  EXPECT_EQ(ConvertLongToCTCSSstring(670), "C67,0");
  EXPECT_EQ(ConvertCTCSSstringToLong("C67,0"), 670);
  EXPECT_EQ(ConvertCTCSSstringToLong("C67.0"), 670);
}

std::vector<std::string> Texts(const std::vector<Variant>& pieces) {
  std::vector<std::string> texts;
  for (const Variant& piece : pieces) texts.push_back(CStr(piece));
  return texts;
}

TEST_F(Globals, Split2ConvertsAtMostSoManyPieces) {
  const auto split = [](std::string_view text, std::string_view delimiter, std::int32_t maximum,
                        CompareMode mode) {
    return Texts(Split2(text, delimiter, maximum, mode, VarType::String));
  };
  EXPECT_THAT(split("", "|", -1, CompareMode::Exact), IsEmpty());
  EXPECT_THAT(split("a||b|", "|", -1, CompareMode::Exact), ElementsAre("a", "", "b", ""));
  EXPECT_THAT(split("a|b|c", "|", 2, CompareMode::Exact), ElementsAre("a", "b|c"));
  EXPECT_THAT(split("a|b", "|", 9, CompareMode::Exact), ElementsAre("a", "b"));
  EXPECT_THAT(split("1x2X3", "X", -1, CompareMode::Exact), ElementsAre("1x2", "3"));
  EXPECT_THAT(split("1x2X3", "X", -1, CompareMode::IgnoreCase), ElementsAre("1", "2", "3"));
  EXPECT_THAT(split("a, b", ", ", -1, CompareMode::Exact), ElementsAre("a", "b"));

  const std::pair<VarType, Variant> types[] = {{VarType::Integer, std::int16_t{2}},
                                               {VarType::Long, std::int32_t{2}},
                                               {VarType::Single, 2.5F},
                                               {VarType::Double, 2.5},
                                               {VarType::Currency, Currency{25'000}},
                                               {VarType::Boolean, true}};
  for (const auto& [type, expected] : types) {
    const auto pieces = Split2("2.5", "|", -1, CompareMode::Exact, type);
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_EQ(pieces[0].index(), expected.index());
    EXPECT_EQ(CStr(pieces[0]), CStr(expected));
  }
  EXPECT_EQ(CStr(Split2("2024-02-29", "|", -1, CompareMode::Exact, VarType::Date)[0]), "2024-02-29");
  const auto errorOf = [](std::string_view text, std::int32_t type) {
    return ErrorNumberOf([&] { Split2(text, "|", -1, CompareMode::Exact, static_cast<VarType>(type)); });
  };
  EXPECT_EQ(errorOf("1|", 3), 13);
  EXPECT_EQ(errorOf("40000", 2), 6);
  for (const std::int32_t unknown : {0, 1, 9, 10, 12}) EXPECT_EQ(errorOf("1", unknown), 5) << unknown;
}

TEST_F(Globals, PrecisionCountsTheDigitsOfTheDouble) {
  const std::pair<Variant, std::int32_t> rows[] = {{"12.50", 1}, {"word", -1}, {"", -1},
                                                   {"12", 0},    {12, 0},      {"12.", 0},
                                                   {0.125, 3},   {"1E-3", -1}, {"1.0", 0}};
  for (const auto& [value, digits] : rows) EXPECT_EQ(Precision(value), digits) << CStr(value);
}

TEST_F(Globals, FormatCountMeasuresRuns) {
  const auto none = FormatCount("", "AB");
  EXPECT_THAT(none.runCounts, ElementsAre(0, 0, 0));
  EXPECT_THAT(none.longestRuns, ElementsAre(0, 0, 0));
  EXPECT_THAT(none.lastPositions, ElementsAre(0, 0, 0));

  const auto runs = FormatCount("AABxxxAyB", "AB");
  EXPECT_THAT(runs.runCounts, ElementsAre(2, 2, 2));
  EXPECT_THAT(runs.longestRuns, ElementsAre(3, 2, 1));
  EXPECT_THAT(runs.lastPositions, ElementsAre(8, 7, 9));

  const auto cases = FormatCount("Aaa", "A");  // one place in the alphabet, but two runs
  EXPECT_THAT(cases.runCounts, ElementsAre(0, 2));
  EXPECT_THAT(cases.longestRuns, ElementsAre(0, 2));
  EXPECT_THAT(cases.lastPositions, ElementsAre(0, 2));
}

TEST_F(Globals, RoundHalfAwayLooksAtTheFirstDigitBehindAlone) {
  const struct {
    double value;
    std::int32_t decimals;
    double rounded;
  } rows[] = {{-2.5, 0, -3},
              {2.5, 0, 3},
              {2.49, 0, 2},
              {0.5, 0, 1},
              {0.49999, 0, 0},
              {-0.5, 0, -1},
              {0, 3, 0},
              {1.005, 2, 1.01},
              {2.675, 2, 2.68},
              {0.05, 1, 0.1},
              {0.04, 1, 0},
              {9.95, 1, 10},
              {15, -1, 20},
              {14.9, -1, 10},
              {66.005 * 1E6, 0, 66'005'000},
              {1E18, 0, 1E18},
              {-1234.5678, 2, -1234.57}};
  for (const auto& row : rows) EXPECT_EQ(RoundHalfAway(row.value, row.decimals), row.rounded) << row.value;
  EXPECT_EQ(RoundHalfAway(0.25, 1), 0.3);  // the answer before must not stick
  EXPECT_EQ(RoundHalfAway(0.25, 0), 0);
}

TEST_F(Globals, DecryptStringUndoesTheScramblingAndSkipsWhatIsNoPair) {
  EXPECT_EQ(DecryptString(""), "");
  EXPECT_EQ(DecryptString("8564b4c4"), "UIID");
  EXPECT_EQ(DecryptString("1010"), std::string("\0\xFF", 2));
  EXPECT_EQ(DecryptString("5"), "\x4");  // a pair of one digit
  EXPECT_EQ(DecryptString("g"), "");
  EXPECT_EQ(DecryptString("16g"), "\xFF");  // "6g" is none but keeps its place, "1" stands second
  std::string scrambled;                    // of 300 zero bytes, the last digit in front
  for (int place = 1; place <= 300; ++place) {
    for (const int digit : {place % 256 / 16, place % 16}) scrambled += "0123456789ABCDEF"[digit];
  }
  scrambled = scrambled.back() + scrambled.substr(0, scrambled.size() - 1);
  EXPECT_EQ(DecryptString(scrambled), std::string(300, '\0'));
}

TEST_F(Globals, TonesAndCodes) {
  const std::pair<std::int32_t, std::string_view> dcs[] = {{0, "None"},   {19, "D023"},       {1, "D001"},
                                                           {511, "D777"}, {512 + 19, "D023"}, {-1, "D777"}};
  for (const auto& [code, text] : dcs) EXPECT_EQ(ConvertLongToDCSstring(code), text);
  const std::pair<std::string_view, std::int32_t> codes[] = {
      {"None", 0}, {"D023", 19}, {"x777", 511}, {"D0", 0}};
  for (const auto& [text, code] : codes) EXPECT_EQ(ConvertDCSstringToLong(text), code) << text;
  for (const char* text : {"", "D", "D089", "NONE", "D-1"})
    EXPECT_EQ(ErrorNumberOf([&] { ConvertDCSstringToLong(text); }), 13) << text;

  const std::pair<std::int32_t, std::string_view> ctcss[] = {
      {0, "None"}, {670, "C67.0"}, {1000, "C100.0"}, {2541, "C254.1"}, {5, "C.5"}};
  for (const auto& [code, text] : ctcss) {
    EXPECT_EQ(ConvertLongToCTCSSstring(code), text);
    EXPECT_EQ(ConvertCTCSSstringToLong(text), code);
  }
  for (const char* text : {"", "C", "none", "C67.0.0"})
    EXPECT_EQ(ErrorNumberOf([&] { ConvertCTCSSstringToLong(text); }), 13) << text;
}

TEST_F(Globals, ReservedFrequenciesIncludeBothEdges) {
  const struct {
    std::int32_t hertz;
    bool maritime, beacon;
  } rows[] = {{156'424'999, false, false}, {156'425'000, true, false},  {157'175'000, true, false},
              {157'175'001, false, false}, {242'994'999, false, false}, {242'995'000, false, true},
              {243'005'000, false, true},  {243'005'001, false, false}, {405'999'999, false, false},
              {406'000'000, false, true},  {406'100'000, false, true},  {406'100'001, false, false}};
  for (const auto& row : rows) {
    EXPECT_EQ(GetMaritimeFrequencyWarning(row.hertz) != "", row.maritime) << row.hertz;
    EXPECT_EQ(GetDistressBeaconFrequencyError(row.hertz) != "", row.beacon) << row.hertz;
  }
  constexpr auto kHeading = "Distress and Safety Frequencies\r\n\r\nThe frequency range";
  EXPECT_THAT(GetMaritimeFrequencyWarning(156'800'000),
              StartsWith(std::string(kHeading) + " 156.8 MHz ± 375 kHz are reserved"));
  EXPECT_THAT(GetMaritimeFrequencyWarning(156'800'000),
              EndsWith("  Do not program transmitters to operate in this range unless the use is "
                       "specifically for the maritime service."));
  EXPECT_THAT(GetDistressBeaconFrequencyError(243'000'000),
              StartsWith(std::string(kHeading) + "s 243 MHz ± 5 kHz, and 406.0 to 406.1 MHz are"));
  EXPECT_THAT(
      GetDistressBeaconFrequencyError(243'000'000),
      EndsWith("beacons.  You cannot program transmitters to operate in these range of frequencies."));
}

class ProjectGlobals : public testing::Test {
 protected:
  const std::shared_ptr<Provider> shared = std::make_shared<Provider>(ProjectSchemas()->At("KD4410.0094"));
  Provider& provider = *shared;
  const ProviderRef ref{shared};
};

TEST_F(ProjectGlobals, MembersOfAScanGroupAreCountedByItsNumber) {
  provider.Fill("16.GroupIDTracker", {7, 8});
  provider.Fill("18.GroupIDNumber", {"7", 8, 7});
  provider.Fill("GroupChannelUI_k6k", {1, 1, 2});
  provider.Fill("ChannelID_k6k", {});
  EXPECT_TRUE(MultipleChannelMembers(ref, 1));
  EXPECT_FALSE(MultipleChannelMembers(ref, 2));
  EXPECT_TRUE(AllChannelsAreMembers(ref, 2)) << "without channels";
  provider.Fill("ChannelID_k6k", {2, "1"});
  EXPECT_TRUE(AllChannelsAreMembers(ref, 1));
  EXPECT_FALSE(AllChannelsAreMembers(ref, 2));
  EXPECT_EQ(ErrorNumberOf([&] { MultipleChannelMembers(ref, 3); }), 9);
}

TEST_F(ProjectGlobals, SigSysRecordNrIsTheFirstSystemWithTheIdentity) {
  const std::pair<std::int32_t, std::string_view> types[] = {{1, "29.SignalSystemId"},
                                                             {2, "64.DTMFNetworkSigSystemID"},
                                                             {3, "37.T99NetworkID"},
                                                             {4, "80.MDC1200SignallingSystemID"}};
  for (const auto& [type, field] : types) {
    provider.Fill(field, {3, 5, "5"});
    EXPECT_EQ(SigSysRecordNr(ref, type, "5", true), 2) << field;
    EXPECT_EQ(SigSysRecordNr(ref, type, 5, false), 1) << field;
    EXPECT_EQ(SigSysRecordNr(ref, type, 4, true), 0) << field;
    EXPECT_EQ(SigSysRecordNr(ref, type, "None", false), 0) << field;
  }
  for (const std::int32_t type : {0, 5, -1})
    EXPECT_EQ(ErrorNumberOf([&] { SigSysRecordNr(ref, type, 1, true); }), 5);
  try {
    SigSysRecordNr(ref, 9, 1, true);
  } catch (const Error& error) {
    EXPECT_EQ(error.Reason().source, "SigSysRecordNr");
    EXPECT_THAT(error.Reason().description, EndsWith("\r\nInvalid Signalling Type"));
  }
}

TEST_F(ProjectGlobals, ANetworkThatIsNotThereIsTheLast) {
  provider.Fill("5.ChannelNetworkIdUI", {12, 13, "11"});
  provider.Fill("21.NetworkIDTracker", {11, 12, 12});
  EXPECT_EQ(GetChannelNetworkRecordNr(ref, 1), 2);
  EXPECT_EQ(GetChannelNetworkRecordNr(ref, 2), 3);
  EXPECT_EQ(GetChannelNetworkRecordNr(ref, 3), 1);
  provider.SetCount(21, 0);
  EXPECT_EQ(GetChannelNetworkRecordNr(ref, 1), 0);
  const auto textOf = [](const ProviderRef& any, RecordNr channel) -> std::string {
    try {
      GetChannelNetworkRecordNr(any, channel);
    } catch (const Error& error) {
      return std::to_string(error.Number()) + error.Reason().description;
    }
    return "";
  };
  EXPECT_THAT(textOf(ProviderRef(nullptr), 1), EndsWith("Invalid argument: Provider is Nothing."));
  for (const RecordNr outside : {0, 4}) {
    EXPECT_THAT(textOf(ref, outside),
                testing::AllOf(StartsWith("5"),
                               EndsWith("\r\nInvalid argument: lngChannelRecordNr is out of bounds.")));
  }
}
}  // namespace
