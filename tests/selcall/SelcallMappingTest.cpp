#include "selcall/modSelcallMapping.h"

#include <gtest/gtest.h>

#include "platform/Conversions.h"
#include "platform/Error.h"
#include "platform/XArrayDBObject.h"

namespace {
using namespace modSelcallMapping;

TEST(ToneSequences, HoldOneCodeARowBehindAnUnusedRow) {
  const ArrayObject sequence = StringToNumarray("09AF-GV");
  ASSERT_EQ(sequence->LowerBound(1), 0);
  ASSERT_EQ(sequence->UpperBound(1), 7);
  EXPECT_EQ(sequence->UpperBound(2), 0);
  const std::int32_t codes[] = {0, 9, 10, 15, 16, 17, 18};
  for (std::int32_t row = 1; row <= 7; ++row) EXPECT_EQ(CLng(sequence->GetValue(row, 0)), codes[row - 1]);
  EXPECT_EQ(StringToNumarray("")->UpperBound(1), 0);
}

TEST(ToneSequences, ComeBackAsTheyWere) {
  for (const std::string_view text : {"", "0", "0123456789ABCDEF-GV", "VV", "--"}) {
    EXPECT_EQ(NumarrayToString(StringToNumarray(text)), text);
  }
  EXPECT_EQ(NumarrayToString(Variant()), "");
  const auto beyond = std::make_shared<XArrayDBObject>();
  beyond->Redim(0, 2, 0, 0);
  beyond->SetValue(1, 0, 19);
  beyond->SetValue(2, 0, "7");
  EXPECT_EQ(NumarrayToString(Variant(ArrayObject(beyond))), "197");
}

TEST(ToneSequences, OtherCharactersAreNoTones) {
  for (const std::string_view text : {"a", "12f", "g", "H", " ", ".", "*", "1,2"}) {
    try {
      StringToNumarray(text);
      ADD_FAILURE() << text;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::kTypeMismatch) << text;
    }
  }
}

TEST(FixedFormatBursts, BelongToTheSystemOfTheirBlock) {
  const std::pair<RecordNr, RecordNr> cases[] = {{1, 0},   {2, 1},   {142, 1}, {143, 2},
                                                 {283, 2}, {284, 3}, {565, 4}};
  for (const auto& [burst, system] : cases)
    EXPECT_EQ(GetSigSysRecNrForFixedFormBurst(burst), system) << burst;
}

TEST(FixedFormatBursts, OfNoSystemHaveNoText) {
  const ProviderRef none(nullptr);
  EXPECT_EQ(MapBurstToUI(none, 0, "123") + MapBurstFromUI(none, 0, "123"), "");
  EXPECT_EQ(MapBurstToUI(none, 2, "123") + MapBurstFromUI(none, 2, "45"), "12345");
}
}  // namespace
