#include "platform/Conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "platform/DecimalText.h"
#include "platform/Locale.h"
#include "platform/XArrayDBObject.h"
#include "tests/support/ErrorNumberOf.h"

namespace {
/// The text of what `convert` makes of the value, or "error <number>".
template <typename Convert>
std::string Outcome(Convert convert, const Variant& value) {
  std::string text;
  const std::int32_t number = ErrorNumberOf([&] { text = CStr(Variant(convert(value))); });
  return number == 0 ? text : "error " + std::to_string(number);
}

ArrayObject AnArray() { return std::make_shared<XArrayDBObject>(); }

std::string Describe(const Variant& value) {
  return value.IsArray() ? "array" : "type " + std::to_string(value.index()) + " \"" + CStr(value) + "\"";
}

class Conversions : public testing::Test {
 protected:
  Conversions() { SetDecimalSymbol('.'); }
  ~Conversions() override { SetDecimalSymbol('\0'); }
};

TEST_F(Conversions, ToNumbersRoundHalvesToEvenAndRefuseWhatDoesNotFit) {
  const struct {
    Variant value;
    std::string asDouble, asLong, asInteger;
  } rows[] = {{{}, "0", "0", "0"},
              {true, "-1", "-1", "-1"},
              {false, "0", "0", "0"},
              {std::int16_t{-3}, "-3", "-3", "-3"},
              {0.5, "0.5", "0", "0"},
              {1.5, "1.5", "2", "2"},
              {2.5, "2.5", "2", "2"},
              {-0.5, "-0.5", "0", "0"},
              {-1.5, "-1.5", "-2", "-2"},
              {-2.5, "-2.5", "-2", "-2"},
              {-0.0, "0", "0", "0"},
              {2.5F, "2.5", "2", "2"},
              {Currency{25'000}, "2.5", "2", "2"},
              {Currency{35'001}, "3.5001", "4", "4"},
              {Date{2.5}, "2.5", "2", "2"},
              {32767.4, "32767.4", "32767", "32767"},
              {32767.5, "32767.5", "32768", "error 6"},
              {-32768.5, "-32768.5", "-32768", "-32768"},
              {-32768.6, "-32768.6", "-32769", "error 6"},
              {2147483647.4, "2147483647.4", "2147483647", "error 6"},
              {2147483647.5, "2147483647.5", "error 6", "error 6"},
              {-2147483648.5, "-2147483648.5", "-2147483648", "error 6"},
              {-2147483649.0, "-2147483649", "error 6", "error 6"},
              {1E300, "1E+300", "error 6", "error 6"},
              {AnArray(), "error 13", "error 13", "error 13"}};
  for (const auto& row : rows) {
    EXPECT_EQ(Outcome(CDbl, row.value), row.asDouble) << Describe(row.value);
    EXPECT_EQ(Outcome(CLng, row.value), row.asLong) << Describe(row.value);
    EXPECT_EQ(Outcome(CInt, row.value), row.asInteger) << Describe(row.value);
  }
}

TEST_F(Conversions, ReadNumbersFromTexts) {
  const std::pair<std::string, std::string> rows[] = {
      {"0", "0"},           {"-0", "0"},           {" 12 ", "12"},
      {"+7", "7"},          {"-7.25", "-7.25"},    {".5", "0.5"},
      {"5.", "5"},          {"007", "7"},          {"1E3", "1000"},
      {"1e+3", "1000"},     {"25E-1", "2.5"},      {"-1E-2", "-0.01"},
      {"&HFF", "255"},      {"&hff", "255"},       {"&O17", "15"},
      {"&o17", "15"},       {" &H10 ", "16"},      {"&H7FFFFFFF", "2147483647"},
      {"1E400", "error 6"}, {"-1E400", "error 6"}, {"156.8", "156.8"}};
  for (const auto& [text, number] : rows) EXPECT_EQ(Outcome(CDbl, text), number) << text;
  EXPECT_TRUE(std::signbit(CDbl("-0.1")));
  EXPECT_EQ(Outcome(CLng, "2.5"), "2");
  EXPECT_EQ(Outcome(CLng, "3.5"), "4");
  EXPECT_EQ(Outcome(CLng, "2147483648"), "error 6");
  EXPECT_EQ(Outcome(CInt, "&H8000"), "error 6");

  for (const char* text : {"",     " ",   "abc", "1.2.3", "1,5",  "1 5",   "--1",   "- 1", "1-", "&H",
                           "&",    "&HG", "&O8", "&X1",   "-&H1", "&H-1",  "1E",    "1E+", "E1", "1E1.5",
                           "0x10", "inf", "nan", ".",     "+",    "&H1.5", "1e5e5", "True"}) {
    EXPECT_EQ(Outcome(CDbl, text), "error 13") << '"' << text << '"';
    EXPECT_EQ(Outcome(CLng, text), "error 13") << '"' << text << '"';
  }
}

TEST_F(Conversions, ReadPointAndTheUsersSymbolAndWriteTheUsersSymbol) {
  SetDecimalSymbol(',');
  EXPECT_EQ(CDbl("1,5"), 1.5);
  EXPECT_EQ(CDbl("1.5"), 1.5);
  for (const char* text : {"1.5,5", "1,5.5", "1,5,5", ","})
    EXPECT_EQ(Outcome(CDbl, text), "error 13") << text;
  EXPECT_TRUE(IsNumeric("1,5"));
  EXPECT_TRUE(IsNumeric("1.5"));
  EXPECT_FALSE(IsNumeric("1.000,5"));
  EXPECT_TRUE(SameValue("1,5", 1.5));
  EXPECT_EQ(CStr(1.5), "1,5");
  EXPECT_EQ(CStr(1.5E20), "1,5E+20");
  EXPECT_EQ(CStr(Currency{5}), "0,0005");
  EXPECT_EQ(FormatFixed(156.8, 3, 6), "156,800000");
  EXPECT_EQ(FormatFixed(2, 2, 0), "02");
  SetDecimalSymbol('.');
  EXPECT_EQ(Outcome(CDbl, "1,5"), "error 13");
}

TEST_F(Conversions, ToTextKeepsFifteenDigitsOfADoubleAndSevenOfASingle) {
  const std::pair<Variant, std::string> rows[] = {{{}, ""},
                                                  {true, "True"},
                                                  {false, "False"},
                                                  {std::int16_t{-32768}, "-32768"},
                                                  {std::int32_t{2147483647}, "2147483647"},
                                                  {0.0, "0"},
                                                  {-0.0, "0"},
                                                  {0.1 + 0.2, "0.3"},
                                                  {1 / 3.0, "0.333333333333333"},
                                                  {-2 / 3.0, "-0.666666666666667"},
                                                  {66004999.99999999, "66005000"},
                                                  {123456789012345.0, "123456789012345"},
                                                  {999999999999999.0, "999999999999999"},
                                                  {1E15, "1E+15"},
                                                  {1234567890123456.0, "1.23456789012346E+15"},
                                                  {1.5E100, "1.5E+100"},
                                                  {0.0001, "0.0001"},
                                                  {0.00001, "1E-05"},
                                                  {-1.5E-7, "-1.5E-07"},
                                                  {0.1F, "0.1"},
                                                  {9999999.0F, "9999999"},
                                                  {16777216.0F, "1.677722E+07"},
                                                  {Currency{12'345}, "1.2345"},
                                                  {Currency{-5}, "-0.0005"},
                                                  {"as it is ", "as it is "},
                                                  {Date{0}, "1899-12-30"},
                                                  {Date{45351}, "2024-02-29"},
                                                  {Date{45351 + 49'500 / 86'400.0}, "2024-02-29 13:45:00"},
                                                  {AnArray(), "error 13"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(Outcome(CStr, value), text);
  EXPECT_EQ(Outcome(CStr, std::numeric_limits<double>::infinity()), "error 6");
  EXPECT_EQ(Outcome(CStr, std::nan("")), "error 6");
}

TEST_F(Conversions, ATimeJustBeforeMidnightBelongsToTheNextDay) {
  EXPECT_EQ(CStr(Date{45351 + 86'399.9 / 86'400}), "2024-03-01");
}

TEST_F(Conversions, ReadDatesFromIsoTextsAndNumbers) {
  EXPECT_EQ(CDate("2024-02-29").days, 45351);
  EXPECT_EQ(CDate(" 1899-12-31 ").days, 1);
  EXPECT_EQ(CDate("2024-02-29 18:00:00").days, 45351.75);
  EXPECT_EQ(CDate("2024-02-29T18:00:00").days, 45351.75);
  EXPECT_EQ(CDate("45351.5").days, 45351.5);
  EXPECT_EQ(CDate(true).days, -1);
  EXPECT_EQ(CDate(Date{2.25}).days, 2.25);
  for (const char* text : {"", "today", "2023-02-29", "2024-13-01", "2024-00-01", "2024-2-9", "29.02.2024",
                           "2024-02-29 24:00:00", "2024-02-29 13:60:00", "2024-02-29 13:45:00x",
                           "2024-02-29x13:45:00", "-024-02-29"}) {
    EXPECT_EQ(ErrorNumberOf([&] { CDate(text); }), 13) << text;
  }
}

TEST_F(Conversions, ToFlags) {
  const std::pair<Variant, std::string> rows[] = {
      {{}, "False"},    {0.0, "False"},     {-0.0, "False"},  {0.4, "True"},       {Currency{1}, "True"},
      {"True", "True"}, {"fALSE", "False"}, {"1", "True"},    {"0", "False"},      {"0.4", "True"},
      {"&H0", "False"}, {"-1", "True"},     {"", "error 13"}, {"yes", "error 13"}, {AnArray(), "error 13"}};
  for (const auto& [value, flag] : rows) EXPECT_EQ(Outcome(CBool, value), flag) << Describe(value);
}

TEST_F(Conversions, ToCurrencyRoundTheFifthDecimalToEven) {
  const std::pair<Variant, std::int64_t> rows[] = {
      {2.5, 25'000},
      {"1.00005", 10'000},
      {"1.00015", 10'002},
      {"1.00025", 10'002},
      {"-0.00005", 0},
      {"-0.00015", -2},
      {true, -10'000},
      {{}, 0},
      {Currency{std::numeric_limits<std::int64_t>::max()}, std::numeric_limits<std::int64_t>::max()},
      {"922337203685477", 9'223'372'036'854'770'000}};
  for (const auto& [value, units] : rows) EXPECT_EQ(CCur(value).tenThousandths, units) << Describe(value);
  for (const char* text : {"922337203685478", "-922337203685478", "1E20"}) {
    EXPECT_EQ(ErrorNumberOf([&] { CCur(text); }), 6) << text;
  }
  EXPECT_EQ(ErrorNumberOf([] { CCur("word"); }), 13);
}

TEST_F(Conversions, ToSingle) {
  EXPECT_EQ(CSng("0.1"), 0.1F);
  EXPECT_EQ(CSng(3.4E38), 3.4E38F);
  for (const double number : {3.5E38, -3.5E38}) EXPECT_EQ(ErrorNumberOf([&] { CSng(number); }), 6);
}

TEST_F(Conversions, OnlyAnArrayIsAnArray) {
  const ArrayObject array = AnArray();
  EXPECT_EQ(&CArray(array), array.get());
  for (const Variant& value : {Variant(), Variant(1), Variant("text"), Variant(ArrayObject())}) {
    EXPECT_EQ(ErrorNumberOf([&] { CArray(value); }), 13);
  }
}

TEST_F(Conversions, NumericIsWhatAUserTypesAsANumber) {
  for (const char* text : {"1", " 1 ", "+1", "-1.5", ".5", "5.", "0009", "12345678901234567890"}) {
    EXPECT_TRUE(IsNumeric(text)) << text;
  }
  for (const char* text : {"", " ", "1E1", "1e1", "&H1", "&O7", "1,000", "1 0", "--1", "-", ".", "1.2.3",
                           "abc", "1a", "$1", "True", "\xC2\xB2"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
  for (const Variant& value : {Variant(1), Variant(1.5), Variant(true), Variant(Currency{1})}) {
    EXPECT_TRUE(IsNumeric(value)) << Describe(value);
  }
  EXPECT_FALSE(IsNumeric(AnArray()));
}

TEST_F(Conversions, SameValueComparesNumbersAsNumbersAndAllElseAsExactText) {
  const struct {
    Variant a, b;
    bool same;
  } rows[] = {
      {1, "1", true},       {1, " 01.0 ", true},    {"1", "1.00", true},    {1.5, Currency{15'000}, true},
      {true, -1, true},     {true, 1, false},       {"None", "None", true}, {"None", "NONE", false},
      {"None", 0, false},   {"word", 1, false},     {"1E1", 10, false},     {"1E1", "1E1", true},
      {"1E1", "10", false}, {"&H10", 16, false},    {"a ", "a", false},     {{}, "", true},
      {"", " ", false},     {AnArray(), "", false}, {"12-", "12", false},   {"True", true, true}};
  for (const auto& row : rows) {
    EXPECT_EQ(SameValue(row.a, row.b), row.same) << Describe(row.a) << ", " << Describe(row.b);
    EXPECT_EQ(SameValue(row.b, row.a), row.same) << Describe(row.b) << ", " << Describe(row.a);
  }
}

TEST_F(Conversions, ATickIsOnWhenTheAbsoluteNumberIsOne) {
  for (const Variant& on :
       {Variant(true), Variant(1), Variant(-1), Variant("1"), Variant("-1.0"), Variant(1.0)}) {
    EXPECT_TRUE(IsTicked(on)) << Describe(on);
  }
  for (const Variant& off : {Variant(), Variant(false), Variant(0), Variant(2), Variant(0.9), Variant(""),
                             Variant("True"), Variant("on"), Variant("1E0"), Variant(AnArray())}) {
    EXPECT_FALSE(IsTicked(off)) << Describe(off);
  }
}

TEST_F(Conversions, FixedFormatsRoundHalfAwayOnTheDecimalDigits) {
  const struct {
    double value;
    std::string megahertz, tone, twoDigits;  // "000.000000", "###.0", "00"
  } rows[] = {{0, "000.000000", ".0", "00"},
              {-0.0, "000.000000", ".0", "00"},
              {-0.04, "-000.040000", ".0", "00"},
              {0.0000005, "000.000001", ".0", "00"},
              {-0.0000004, "000.000000", ".0", "00"},
              {0.05, "000.050000", ".1", "00"},
              {0.5, "000.500000", ".5", "01"},
              {0.95, "000.950000", "1.0", "01"},
              {2.5, "002.500000", "2.5", "03"},
              {-2.5, "-002.500000", "-2.5", "-03"},
              {9.5, "009.500000", "9.5", "10"},
              {66.005, "066.005000", "66.0", "66"},
              {254.15, "254.150000", "254.2", "254"},
              {999.9999995, "1000.000000", "1000.0", "1000"},
              {1E20, "100000000000000000000.000000", "100000000000000000000.0", "100000000000000000000"}};
  for (const auto& row : rows) {
    EXPECT_EQ(FormatFixed(row.value, 3, 6), row.megahertz);
    EXPECT_EQ(FormatFixed(row.value, 0, 1), row.tone);
    EXPECT_EQ(FormatFixed(row.value, 2, 0), row.twoDigits);
  }
  EXPECT_EQ(FormatFixed(1.005, 1, 2), "1.01");  // below the half in binary, on it in decimal
  EXPECT_EQ(FormatFixed(2.675, 1, 2), "2.68");
  EXPECT_EQ(ErrorNumberOf([] { FormatFixed(std::nan(""), 1, 0); }), 6);
}

TEST_F(Conversions, GeneralTextRoundsToItsDigits) {
  const std::pair<double, std::string> rows[] = {{1234567.8, "1234568"},     {12345678, "1.234568E+07"},
                                                 {9999999.9, "1E+07"},       {0.00012345678, "0.0001234568"},
                                                 {0.000099999996, "0.0001"}, {-100, "-100"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(GeneralText(value, 7), text);
}
}  // namespace
