#include "selcall/modSelcallMapping.h"

#include <gtest/gtest.h>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "selcall/BurstSlots.h"
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
}  // namespace
