#include "platform/XArrayDBObject.h"

#include <gmock/gmock.h>

#include "platform/Conversions.h"
#include "tests/support/ErrorNumberOf.h"

namespace {
using testing::ElementsAre;
using Key = XArrayDBObject::SortKey;

std::vector<std::string> Column(const XArrayDBObject& array, std::int32_t column = 0) {
  std::vector<std::string> texts;
  for (auto row = array.LowerBound(1); row <= array.UpperBound(1); ++row)
    texts.push_back(CStr(array.GetValue(row, column)));
  return texts;
}

XArrayDBObject Rows(std::vector<Variant> values, std::int32_t firstRow = 0) {
  XArrayDBObject array;
  array.Redim(firstRow, firstRow + static_cast<std::int32_t>(values.size()) - 1, 0, 0);
  for (auto row = firstRow; Variant & value : values) array.SetValue(row++, 0, std::move(value));
  return array;
}

TEST(XArrayDBObject, RedimKeepsWhatLiesInsideTheNewBounds) {
  EXPECT_EQ(XArrayDBObject().UpperBound(1), -1);
  XArrayDBObject array = Rows({"a", "b", "c"}, 1);
  array.Redim(2, 4, -1, 1);
  EXPECT_EQ(array.LowerBound(2), -1);
  EXPECT_THAT(Column(array), ElementsAre("b", "c", ""));

  array.SetValue(2, 1, "dropped");
  array.Redim(2, 4, 0, 0);
  array.Redim(1, 4, 0, 1);
  EXPECT_THAT(Column(array), ElementsAre("", "b", "c", ""));
  EXPECT_THAT(Column(array, 1), ElementsAre("", "", "", ""));

  array.Redim(5, 4, 0, 0);
  EXPECT_EQ(array.UpperBound(1), 4);
  EXPECT_EQ(ErrorNumberOf([&] { array.Redim(0, -2, 0, 0); }), 9);
  EXPECT_EQ(ErrorNumberOf([&] { array.Redim(0, 0, 1, -1); }), 9);
  EXPECT_EQ(array.LowerBound(1), 5);
  array.Redim(1, 1, 0, -1);  // a row of no columns
  EXPECT_EQ(array.UpperBound(2), -1);
}

TEST(XArrayDBObject, TakesAColumnForWhateverItHeld) {
  XArrayDBObject array = Rows({"a", "b"}, 3);
  array.Redim(3, 4, 2, 5);
  array.TakeColumn({7, "x"});
  EXPECT_THAT(Column(array), ElementsAre("7", "x"));
  EXPECT_EQ(array.LowerBound(1) + array.LowerBound(2) + array.Count(2), 1);
}

TEST(XArrayDBObject, RowsAreAppendedAndDeleted) {
  XArrayDBObject array = Rows({"a", "b", "c", "d"}, 1);
  array.AppendRows(1, 2);
  EXPECT_EQ(ErrorNumberOf([&] { array.AppendRows(2, 1); }), 9);
  array.DeleteRows(2, 2);
  EXPECT_THAT(Column(array), ElementsAre("a", "d", "", ""));
  for (const auto& [row, count] : {std::pair{4, 2}, {0, 1}})
    EXPECT_EQ(ErrorNumberOf([&, r = row, c = count] { array.DeleteRows(r, c); }), 9);
  array.DeleteRows(1, 4);
  EXPECT_EQ(array.UpperBound(1), 0);
}

TEST(XArrayDBObject, ACellOutsideTheBoundsIsAnError) {
  XArrayDBObject array = Rows({"a", "b"}, 1);
  for (const auto& [row, column] : {std::pair{0, 0}, {3, 0}, {1, -1}, {1, 1}}) {
    EXPECT_EQ(ErrorNumberOf([&, r = row, c = column] { array.GetValue(r, c); }), 9) << row << ',' << column;
    EXPECT_EQ(ErrorNumberOf([&, r = row, c = column] { array.SetValue(r, c, 1); }), 9) << row;
  }
}

TEST(XArrayDBObject, FindValueComparesExactTexts) {
  const XArrayDBObject array = Rows({"None", 5, "05", 5.0, "none"}, 1);
  for (const auto& [start, text, row] : {std::tuple{1, "5", 2}, {3, "5", 4}, {-9, "none", 5}, {5, "5", -1}})
    EXPECT_EQ(array.FindValue(start, 0, text), row);
}

TEST(XArrayDBObject, SortsByBytesOrByNumberAndKeepsEqualRowsInOrder) {
  XArrayDBObject array = Rows({"10", "9", "b", "B", "1"});
  const Key byText[] = {{.column = 0}};
  array.SortRows(0, 4, byText);
  EXPECT_THAT(Column(array), ElementsAre("1", "10", "9", "B", "b"));

  array = Rows({10, "9", Variant(), -1.5, "2"});
  const Key byNumber[] = {{0, Key::kAscending, Key::kNumber}};
  array.SortRows(0, 4, byNumber);
  EXPECT_THAT(Column(array), ElementsAre("", "-1.5", "2", "9", "10"));
  const Key downwards[] = {{0, Key::kDescending, Key::kNumber}};
  array.SortRows(1, 3, downwards);
  EXPECT_THAT(Column(array), ElementsAre("", "9", "2", "-1.5", "10"));
  EXPECT_EQ(ErrorNumberOf([&] { array.SortRows(0, 5, byNumber); }), 9);

  array = Rows({"b", "a", "b", "a"});
  array.Redim(0, 3, 0, 2);
  for (std::int32_t row = 0; row < 4; ++row) {
    array.SetValue(row, 1, row == 0 ? "2" : "1");
    array.SetValue(row, 2, row);
  }
  const Key both[] = {{.column = 0}, {.column = 1}};
  array.SortRows(0, 3, both);
  EXPECT_THAT(Column(array, 2), ElementsAre("1", "3", "2", "0"));
  array.DeleteRows(1, 2);
  EXPECT_THAT(Column(array, 2), ElementsAre("1", "0"));
}
}  // namespace
