#include "workbench/files/Printable.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(Printable, ShowsWhatATerminalShouldNotGetByItsCode) {
  const std::tuple<std::string, const char*> cases[] = {
      {"Gr\u00fc\u00dfe \u2013 \U0001F4FB ~", "Gr\u00fc\u00dfe \u2013 \U0001F4FB ~"},
      {std::string("a\0b", 3), "a\\x00b"},
      {"\x1b[2J\x7f", "\\x1B[2J\\x7F"},
      {"1\n2\r\t", "1\\n2\\r\\t"},
      {"\u0080\u009b\u009f\u00a0", "\\u0080\\u009B\\u009F\u00a0"},
      {"\u2027\u2028\u202e\u202f", "\u2027\\u2028\\u202E\u202f"},
      {"\u2065\u2066\u2069\u206a", "\u2065\\u2066\\u2069\u206a"},
      {"\x9b\xff\xc3", "\\x9B\\xFF\\xC3"},                                      // no UTF-8
      {"\xc0\x9b\xe0\x80\x9b", "\\xC0\\x9B\\xE0\\x80\\x9B"},                    // longer than need be
      {"\xed\xa0\x80\xf4\x90\x80\x80", "\\xED\\xA0\\x80\\xF4\\x90\\x80\\x80"},  // beyond the characters
      {"\xe2\x80", "\\xE2\\x80"},
  };
  for (const auto& [text, shown] : cases) {
    EXPECT_EQ(Printable::Text(text), shown);
    EXPECT_EQ(Printable::Text(shown), shown) << "shown twice";
  }
  EXPECT_EQ(Printable::Lines("a\n\x1b\n"), "a\n\\x1B\n");
}

TEST(Printable, CutsALongTextBetweenCharacters) {
  std::string text;
  for (int i = 0; i < 200; ++i) text += "\u00fc";
  EXPECT_EQ(Printable::Shortened(text), text);
  EXPECT_EQ(Printable::Quoted(text + "\u00fc"), "\"" + text + "... (201 characters)\"");
}

}  // namespace
