#include "common/modCommonGlobals.h"

#include <gmock/gmock.h>

#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "platform/Locale.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TierFixture.h"

namespace {
using namespace modCommonGlobals;
using namespace modProjectGlobals;
using testing::ElementsAre;
using testing::IsEmpty;

class Globals : public testing::Test {
 protected:
  Globals() { SetDecimalSymbol('.'); }
  ~Globals() override { SetDecimalSymbol('\0'); }

  const std::shared_ptr<Provider> shared = std::make_shared<Provider>(ProjectSchemas()->At("KD4410.0094"));
  Provider& provider = *shared;
  const ProviderRef ref{shared};
};

TEST_F(Globals, HexadecimalTextsHaveAnEvenLength) {
  for (const auto& [number, hex] : {std::pair{"255", "FF"}, {"10", "0A"}, {"", "00"}, {"-1", "FFFFFFFF"}})
    EXPECT_EQ(ConvertNumericToHex(number), hex) << number;
  for (const auto& [hex, number] : {std::pair{"fF", "0255"}, {"5", "05"}, {"", "00"}, {"1000", "4096"}})
    EXPECT_EQ(ConvertHexToNumeric(hex), number) << hex;
  for (const auto& [hex, number] : {std::pair{"G", 13}, {"&HF", 13}, {"80000000", 6}})
    EXPECT_EQ(ErrorNumberOf([text = hex] { ConvertHexToNumeric(text); }), number) << hex;
}

TEST_F(Globals, LocalTextsTakeTheUsersSymbol) {
  SetDecimalSymbol(',');
  EXPECT_EQ(LocalizeString("1.2.3"), "1,2,3");
  for (const char* text : {"67.5", "67,5"}) EXPECT_EQ(CDblLocal(text), 67.5);
  EXPECT_EQ(ErrorNumberOf([] { CDblLocal("1.2,3"); }), 13);
  for (const auto& [text, digits] : {std::pair{"1.250", 2}, {"1,25", 2}, {"12.", 0}, {"word", -1}})
    EXPECT_EQ(Precision(text), digits) << text;
  EXPECT_EQ(ConvertLongToCTCSSstring(670), "C67,0");
  for (const char* text : {"C67.0", "C67,0"}) EXPECT_EQ(ConvertCTCSSstringToLong(text), 670);
}

TEST_F(Globals, Split2ConvertsAtMostSoManyPieces) {
  const auto split = [](std::string_view text, std::int32_t maximum = kNoMaximum,
                        VarType type = VarType::String, CompareMode mode = CompareMode::Exact) {
    std::vector<std::string> texts;
    for (const Variant& piece : Split2(text, "X", maximum, mode, type)) texts.push_back(CStr(piece));
    return texts;
  };
  EXPECT_THAT(split(""), IsEmpty());
  EXPECT_THAT(split("aXXbX"), ElementsAre("a", "", "b", ""));
  EXPECT_THAT(split("aXbXc", 2), ElementsAre("a", "bXc"));
  EXPECT_THAT(split("1x2X3", 9), ElementsAre("1x2", "3"));
  EXPECT_THAT(split("1x2X3", 9, VarType::Long, CompareMode::IgnoreCase), ElementsAre("1", "2", "3"));
  EXPECT_THAT(split("2.5", 1, VarType::Integer), ElementsAre("2"));
  EXPECT_THAT(split("1X2.50", 2, VarType::Double), ElementsAre("1", "2.5"));
  EXPECT_EQ(ErrorNumberOf([&] { split("1X", 2, VarType::Long); }), 13);
  EXPECT_EQ(ErrorNumberOf([&] { split("40000", 1, VarType::Integer); }), 6);
  EXPECT_EQ(ErrorNumberOf([&] { split("1", 1, VarType{9}); }), 5);
}

TEST_F(Globals, FormatCountMeasuresRunsAndDecryptStringSkipsWhatIsNoPair) {
  const auto runs = FormatCount("AABxxxAyB", "AB");
  EXPECT_THAT(runs.runCounts, ElementsAre(2, 2, 2));
  EXPECT_THAT(runs.longestRuns, ElementsAre(3, 2, 1));
  EXPECT_THAT(runs.lastPositions, ElementsAre(8, 7, 9));
  EXPECT_EQ(DecryptString("8564b4c4"), "UIID");
  EXPECT_EQ(DecryptString("16g"), "\xFF");  // "6g" is none but keeps its place, "1" stands second
}

TEST_F(Globals, RoundHalfAwayLooksAtTheFirstDigitBehindAlone) {
  const std::tuple<double, int, double> rows[] = {
      {-2.5, 0, -3},  {2.49, 0, 2},  {0.49999, 0, 0}, {1.005, 2, 1.01}, {2.675, 2, 2.68},
      {0.04, 1, 0},   {9.95, 1, 10}, {15, -1, 20},    {14.9, -1, 10},   {66.005 * 1E6, 0, 66'005'000},
      {1E18, 0, 1E18}};
  for (const auto& [value, decimals, rounded] : rows)
    EXPECT_EQ(RoundHalfAway(value, decimals), rounded) << value;
}

TEST_F(Globals, TonesAndCodes) {
  for (const auto& [code, text] : {std::pair{0, "None"}, {19, "D023"}, {511, "D777"}, {512 + 19, "D023"}})
    EXPECT_EQ(ConvertLongToDCSstring(code), text);
  for (const auto& [text, code] : {std::pair{"None", 0}, {"D023", 19}, {"x777", 511}})
    EXPECT_EQ(ConvertDCSstringToLong(text), code) << text;
  for (const char* text : {"", "D", "D089", "NONE", "D-1"})
    EXPECT_EQ(ErrorNumberOf([&] { ConvertDCSstringToLong(text); }), 13) << text;
  for (const auto& [code, text] : {std::pair{0, "None"}, {670, "C67.0"}, {2541, "C254.1"}, {5, "C.5"}}) {
    EXPECT_EQ(ConvertLongToCTCSSstring(code), text);
    EXPECT_EQ(ConvertCTCSSstringToLong(text), code);
  }
  for (const char* text : {"", "C", "none", "C67.0.0"})
    EXPECT_EQ(ErrorNumberOf([&] { ConvertCTCSSstringToLong(text); }), 13) << text;
}

TEST_F(Globals, ReservedFrequenciesIncludeBothEdges) {
  for (const auto& [low, high] :
       {std::pair{156'425'000, 157'175'000}, {242'995'000, 243'005'000}, {406'000'000, 406'100'000}}) {
    const bool maritime = high < 200'000'000;
    for (const std::int32_t hertz : {low - 1, low, high, high + 1}) {
      const bool inside = low <= hertz && hertz <= high;
      EXPECT_EQ(!GetMaritimeFrequencyWarning(hertz).empty(), inside && maritime) << hertz;
      EXPECT_EQ(!GetDistressBeaconFrequencyError(hertz).empty(), inside && !maritime) << hertz;
    }
  }
}

TEST_F(Globals, MembersOfAScanGroupAreCountedByItsNumber) {
  provider.Fill("16.GroupIDTracker", {7, 8});
  provider.Fill("18.GroupIDNumber", {"7", 8, 7});
  provider.Fill("GroupChannelUI_k6k", {1, 1, 2});
  EXPECT_TRUE(MultipleChannelMembers(GroupMembers(ref), 1));
  EXPECT_FALSE(MultipleChannelMembers(GroupMembers(ref), 2));
  for (const auto& channels : {std::vector<Variant>{}, {2, "1"}}) {
    provider.Fill("ChannelID_k6k", channels);
    EXPECT_TRUE(AllChannelsAreMembers(GroupMembers(ref), 1));
    EXPECT_EQ(AllChannelsAreMembers(GroupMembers(ref), 2), channels.empty());
  }
}

TEST_F(Globals, ANetworkThatIsNotThereIsTheLast) {
  provider.Fill("5.ChannelNetworkIdUI", {12, 13, "11"});
  provider.Fill("21.NetworkIDTracker", {11, 12, 12});
  for (const auto& [channel, network] : {std::pair{1, 2}, {2, 3}, {3, 1}})
    EXPECT_EQ(GetChannelNetworkRecordNr(ref, channel), network);
  for (const RecordNr outside : {0, 4})
    EXPECT_EQ(ErrorNumberOf([&] { GetChannelNetworkRecordNr(ref, outside); }), 5);
  EXPECT_EQ(ErrorNumberOf([] { GetChannelNetworkRecordNr(ProviderRef(nullptr), 1); }), 5);
  provider.SetCount(21, 0);
  EXPECT_EQ(GetChannelNetworkRecordNr(ref, 1), 0);
}
}  // namespace
