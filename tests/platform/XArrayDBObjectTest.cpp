#include "platform/XArrayDBObject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/Conversions.h"
#include "tests/support/ErrorNumberOf.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using Key = XArrayDBObject::SortKey;

std::vector<std::string> Column(const XArrayDBObject& array, std::int32_t column = 0) {
  std::vector<std::string> texts;
  for (auto row = array.LowerBound(1); row <= array.UpperBound(1); ++row) {
    texts.push_back(CStr(array.GetValue(row, column)));
  }
  return texts;
}

XArrayDBObject Rows(std::vector<Variant> values, std::int32_t firstRow = 0) {
  XArrayDBObject array;
  array.Redim(firstRow, firstRow + static_cast<std::int32_t>(values.size()) - 1, 0, 0);
  for (auto row = firstRow; Variant & value : values) array.SetValue(row++, 0, std::move(value));
  return array;
}

TEST(XArrayDBObject, IsEmptyAtFirst) {
  const XArrayDBObject array;
  EXPECT_EQ(array.LowerBound(1), 0);
  EXPECT_EQ(array.UpperBound(1), -1);
  EXPECT_EQ(array.Count(1), 0);
  EXPECT_EQ(array.FindValue(0, 0, ""), -1);
}

TEST(XArrayDBObject, RedimKeepsWhatLiesInsideTheNewBounds) {
  XArrayDBObject array = Rows({"a", "b", "c"}, 1);
  array.Redim(2, 4, -1, 1);
  EXPECT_EQ(array.LowerBound(1), 2);
  EXPECT_EQ(array.UpperBound(1), 4);
  EXPECT_EQ(array.LowerBound(2), -1);
  EXPECT_EQ(array.UpperBound(2), 1);
  EXPECT_EQ(array.Count(2), 3);
  EXPECT_THAT(Column(array), ElementsAre("b", "c", ""));
  EXPECT_TRUE(array.GetValue(2, 1).IsEmpty());

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
}

TEST(XArrayDBObject, RowsAreAppendedAndDeleted) {
  XArrayDBObject array = Rows({"a", "b", "c", "d"}, 1);
  array.AppendRows(1, 2);
  EXPECT_EQ(array.UpperBound(1), 6);
  array.DeleteRows(2, 2);
  EXPECT_THAT(Column(array), ElementsAre("a", "d", "", ""));
  EXPECT_EQ(ErrorNumberOf([&] { array.DeleteRows(4, 2); }), 9);
  EXPECT_EQ(ErrorNumberOf([&] { array.DeleteRows(0, 1); }), 9);
  EXPECT_EQ(ErrorNumberOf([&] { array.AppendRows(2, 1); }), 9);
  EXPECT_EQ(array.Count(1), 4);
  array.DeleteRows(1, 4);
  EXPECT_THAT(Column(array), IsEmpty());
  EXPECT_EQ(array.UpperBound(1), 0);
}

TEST(XArrayDBObject, ACellOutsideTheBoundsIsAnError) {
  XArrayDBObject array = Rows({"a", "b"}, 1);
  const std::pair<std::int32_t, std::int32_t> outside[] = {{0, 0}, {3, 0}, {1, -1}, {1, 1}};
  for (const auto& [row, column] : outside) {
    EXPECT_EQ(ErrorNumberOf([&, r = row, c = column] { array.GetValue(r, c); }), 9) << row << ',' << column;
    EXPECT_EQ(ErrorNumberOf([&, r = row, c = column] { array.SetValue(r, c, 1); }), 9)
        << row << ',' << column;
  }
  for (const std::int32_t dimension : {0, 3}) {
    EXPECT_EQ(ErrorNumberOf([&] { array.Count(dimension); }), 9);
    EXPECT_EQ(ErrorNumberOf([&] { array.LowerBound(dimension); }), 9);
    EXPECT_EQ(ErrorNumberOf([&] { array.UpperBound(dimension); }), 9);
  }
}

TEST(XArrayDBObject, FindValueComparesExactTexts) {
  const XArrayDBObject array = Rows({"None", 5, "05", Variant(), 5.0, "none"}, 1);
  EXPECT_EQ(array.FindValue(1, 0, "5"), 2);
  EXPECT_EQ(array.FindValue(3, 0, 5), 5);
  EXPECT_EQ(array.FindValue(1, 0, "none"), 6);
  EXPECT_EQ(array.FindValue(1, 0, ""), 4);
  EXPECT_EQ(array.FindValue(-9, 0, "None", 3, 2, 1), 1);
  EXPECT_EQ(array.FindValue(6, 0, "5"), -1);
  EXPECT_EQ(array.FindValue(7, 0, "5"), -1);
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
  EXPECT_EQ(ErrorNumberOf([&] { array.SortRows(-1, 3, byNumber); }), 9);
  array.SortRows(1, 0, byNumber);  // no rows, nothing to do

  array = Rows({"b", "a", "b", "a"});
  array.Redim(0, 3, 0, 2);
  const char* second[] = {"2", "1", "1", "1"};
  for (std::int32_t row = 0; row < 4; ++row) {
    array.SetValue(row, 1, second[row]);
    array.SetValue(row, 2, row);
  }
  const Key both[] = {{.column = 0}, {.column = 1}};
  array.SortRows(0, 3, both);
  EXPECT_THAT(Column(array, 2), ElementsAre("1", "3", "2", "0"));
}
}  // namespace
