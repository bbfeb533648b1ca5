#include "platform/Conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

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

template <typename Convert>
void Expect(Convert convert, std::initializer_list<std::pair<Variant, std::string>> rows) {
  for (const auto& [value, text] : rows) EXPECT_EQ(Outcome(convert, value), text) << Outcome(CStr, value);
}

template <typename Convert>
void ExpectEach(Convert convert, const std::string& text, std::initializer_list<Variant> values) {
  for (const Variant& value : values) EXPECT_EQ(Outcome(convert, value), text) << Outcome(CStr, value);
}

ArrayObject AnArray() { return std::make_shared<XArrayDBObject>(); }

class Conversions : public testing::Test {
 protected:
  Conversions() { SetDecimalSymbol('.'); }
  ~Conversions() override { SetDecimalSymbol('\0'); }
};

TEST_F(Conversions, ToIntegersRoundHalvesToEvenAndRefuseWhatDoesNotFit) {
  Expect(CLng, {{{}, "0"}, {true, "-1"}, {0.5, "0"}, {1.5, "2"}, {2.5F, "2"}, {-0.5, "0"}, {-1.5, "-2"}});
  Expect(CLng, {{-2.5, "-2"}, {Currency{25'000}, "2"}, {Currency{35'001}, "4"}, {Date{2.5}, "2"}});
  Expect(CLng, {{2147483647.4, "2147483647"}, {-2147483648.5, "-2147483648"}, {"2.5", "2"}, {"3.5", "4"}});
  ExpectEach(CLng, "error 6", {2147483647.5, -2147483649.0, "2147483648", 1E300});
  Expect(CInt, {{-1.5, "-2"}, {32767.4, "32767"}, {-32768.5, "-32768"}});
  ExpectEach(CInt, "error 6", {32767.5, -32768.6, "&H8000"});
}

TEST_F(Conversions, ReadNumbersFromTexts) {
  Expect(CDbl, {{"-0", "0"}, {" 12 ", "12"}, {"+7", "7"}, {"-7.25", "-7.25"}, {".5", "0.5"}, {"5.", "5"}});
  Expect(CDbl, {{"007", "7"}, {"1e+3", "1000"}, {"25E-1", "2.5"}, {"-1E-2", "-0.01"}, {"&hfF", "255"}});
  Expect(CDbl, {{"&o17", "15"}, {" &H10 ", "16"}, {"&H7FFFFFFF", "2147483647"}, {"156.8", "156.8"}});
  ExpectEach(CDbl, "error 6", {"1E400", "-1E400"});
  ExpectEach(CDbl, "error 13",
             {"",    " ",    "abc", "1.2.3", "1,5", "1 5", "--1",  "- 1",   "&H",   "&HG",
              "&O8", "&H-1", "1E",  "E1",    "inf", ".",   "0x10", "&H1.5", "True", AnArray()});
}

TEST_F(Conversions, ReadPointAndTheUsersSymbolAndWriteTheUsersSymbol) {
  SetDecimalSymbol(',');
  Expect(CDbl, {{"1,5", "1,5"}, {"1.5", "1,5"}, {Currency{5}, "0,0005"}, {"1,5E20", "1,5E+20"}});
  ExpectEach(CDbl, "error 13", {"1.5,5", "1,5.5", "1,5,5", ","});
  Expect(IsNumeric, {{"1,5", "True"}, {"1.5", "True"}, {"1.000,5", "False"}});
  EXPECT_TRUE(SameValue("1,5", 1.5));
  EXPECT_EQ(FormatFixed(156.8, 3, 6), "156,800000");
}

TEST_F(Conversions, ToTextKeepsFifteenDigitsOfADoubleAndSevenOfASingle) {
  Expect(CStr, {{{}, ""}, {true, "True"}, {false, "False"}, {std::int16_t{-32768}, "-32768"}, {-0.0, "0"}});
  Expect(CStr, {{0.1 + 0.2, "0.3"}, {-2 / 3.0, "-0.666666666666667"}, {66004999.99999999, "66005000"}});
  Expect(CStr, {{999999999999999.0, "999999999999999"}, {1E15, "1E+15"}, {1.5E100, "1.5E+100"}});
  Expect(CStr, {{0.0001, "0.0001"}, {0.00001, "1E-05"}, {0.1F, "0.1"}, {9999999.0F, "9999999"}});
  Expect(CStr, {{16777216.0F, "1.677722E+07"}, {Currency{12'345}, "1.2345"}, {Currency{-5}, "-0.0005"}});
  ExpectEach(CStr, "error 6", {std::numeric_limits<double>::infinity(), std::nan("")});
  EXPECT_EQ(Outcome(CStr, AnArray()), "error 13");
}

TEST_F(Conversions, DatesAreIsoTextsAndNumbersOfDays) {
  Expect(CStr, {{Date{0}, "1899-12-30"}, {Date{45351 + 49'500 / 86'400.0}, "2024-02-29 13:45:00"}});
  EXPECT_EQ(CStr(Date{45351 + 86'399.9 / 86'400}), "2024-03-01");  // just before midnight
  constexpr double kEndOfCalendar = 2'958'466;                     // the year 10000
  ExpectEach(CStr, "error 6", {Date{kEndOfCalendar}, Date{kEndOfCalendar - 0.4 / 86'400}, Date{-657'435}});
  EXPECT_EQ(CDate(" 1899-12-31 ").days, 1);
  for (const char* text : {"2024-02-29 18:00:00", "2024-02-29T18:00:00", "45351.75"})
    EXPECT_EQ(CDate(text).days, 45351.75);
  ExpectEach(CDate, "error 13", {"", "today", "2023-02-29", "2024-13-01", "2024-2-9", "2024-02-29 24:00:00"});
}

TEST_F(Conversions, ToFlagsAndTicks) {
  ExpectEach(CBool, "True", {0.4, Currency{1}, "True", "1", "-1"});
  ExpectEach(CBool, "False", {{}, -0.0, "fALSE", "0", "&H0"});
  ExpectEach(CBool, "error 13", {"", "yes", AnArray()});
  ExpectEach(IsTicked, "True", {true, 1, -1, "1", "-1.0"});
  ExpectEach(IsTicked, "False", {{}, false, 2, 0.9, "", "True", "1E0", AnArray()});
}

TEST_F(Conversions, ToCurrencyAndSingle) {
  Expect(CCur, {{"1.00005", "1"}, {"1.00015", "1.0002"}, {"1.00025", "1.0002"}, {"-0.00015", "-0.0002"}});
  EXPECT_EQ(CCur("922337203685477").tenThousandths, 9'223'372'036'854'770'000);
  ExpectEach(CCur, "error 6", {"922337203685478", "-922337203685478"});
  EXPECT_EQ(CSng(3.4E38), 3.4E38F);
  const float largest = std::numeric_limits<float>::max();
  EXPECT_EQ(CSng(largest), largest);
  ExpectEach(CSng, "error 6", {3.5E38, -3.5E38});
}

TEST_F(Conversions, NumericIsWhatAUserTypesAsANumber) {
  ExpectEach(IsNumeric, "True", {"1", " 1 ", "+1", "-1.5", ".5", "5.", "0009", 1.5, true, Currency{1}});
  ExpectEach(IsNumeric, "False", {"", " ", "1E1", "&H1", "1,000", "1 0", "--1", "-", ".", "1a", AnArray()});
}

TEST_F(Conversions, SameValueComparesNumbersAsNumbersAndAllElseAsExactText) {
  const std::pair<Variant, Variant> same[] = {{1, " 01.0 "},  {"1", "1.00"}, {1.5, Currency{15'000}},
                                              {true, -1},     {{}, ""},      {"None", "None"},
                                              {"1E1", "1E1"}, {"True", true}};
  for (const auto& [a, b] : same) EXPECT_TRUE(SameValue(a, b) && SameValue(b, a)) << CStr(a);
  const std::pair<Variant, Variant> different[] = {{true, 1},   {"None", "NONE"}, {"None", 0},
                                                   {"1E1", 10}, {"1E1", "10"},    {"&H10", 16},
                                                   {"a ", "a"}, {"", " "},        {"", AnArray()}};
  for (const auto& [a, b] : different) EXPECT_FALSE(SameValue(a, b) || SameValue(b, a)) << CStr(a);
  for (const Variant& textless : {Variant(HUGE_VAL), Variant(Date{3e6})}) {
    EXPECT_FALSE(SameValue(textless, "None") || SameValue("", textless));
    EXPECT_TRUE(SameValue(textless, textless));
  }
}

TEST_F(Conversions, FixedFormatsRoundHalfAwayOnTheDecimalDigits) {
  const std::pair<double, std::string> rows[] = {
      {-0.0, "000.000000 .0 00"}, {0.0000005, "000.000001 .0 00"},  {-0.0000004, "000.000000 .0 00"},
      {0.05, "000.050000 .1 00"}, {0.95, "000.950000 1.0 01"},      {-2.5, "-002.500000 -2.5 -03"},
      {9.5, "009.500000 9.5 10"}, {254.15, "254.150000 254.2 254"}, {999.9999995, "1000.000000 1000.0 1000"}};
  for (const auto& [value, text] : rows) {
    EXPECT_EQ(FormatFixed(value, 3, 6) + " " + FormatFixed(value, 0, 1) + " " + FormatFixed(value, 2, 0),
              text);
  }
  EXPECT_EQ(FormatFixed(1.005, 1, 2), "1.01");  // below the half in binary, on it in decimal
}
}  // namespace
