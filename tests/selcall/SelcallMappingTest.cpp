#include "selcall/modSelcallMapping.h"

#include <gtest/gtest.h>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "tests/support/ErrorNumberOf.h"

namespace {
using namespace modSelcallMapping;

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
  for (const std::string_view text : {"a", "12f", "g", "H", " ", ".", "*", "1,2"}) {
    EXPECT_EQ(ErrorNumberOf([&] { StringToNumarray(text); }), 13) << text;
  }
}

TEST(Periods, AreLengthsOfTheirCodesAndAnyOtherNumberIsALength) {
  for (const auto& [period, length] : {std::pair{0, 0}, {1, 20}, {2, 33}, {7, 100}, {8, 8}, {-1, -1}})
    EXPECT_EQ(PeriodMs(period), length) << period;
}

TEST(FixedFormatBursts, BelongToTheSystemOfTheirBlock) {
  const std::pair<RecordNr, RecordNr> cases[] = {{1, 0},   {2, 1},   {142, 1}, {143, 2},
                                                 {283, 2}, {284, 3}, {565, 4}};
  for (const auto& [burst, system] : cases)
    EXPECT_EQ(GetSigSysRecNrForFixedFormBurst(burst), system) << burst;
}
}  // namespace
