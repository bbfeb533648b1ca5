#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

/// Numbers as decimal text. Nothing here asks the C library's locale: the decimal symbol is an argument
/// or the user's (Locale.h).

/// A double as its 15 significant decimal digits: 0.d1d2d3... times 10 to the power `point`.
/// Rounding by these digits sees the value as a person writes it, without its binary residue.
struct DecimalDigits {
  static constexpr int kCount = 15;
  bool negative = false;
  int point = 0;
  std::array<char, kCount> digits{};  // '0' to '9'

  /// The digit that stands `place` places behind the decimal point (1 is the first), '0' outside.
  char BehindPoint(int place) const {
    const int index = point + place - 1;
    return index < 0 || index >= kCount ? '0' : digits[static_cast<std::size_t>(index)];
  }
};

/// Raises 6 for a value that is not finite.
DecimalDigits DigitsOf(double value);

/// `value` with exactly `decimals` decimals, rounded half away from zero on its decimal digits, and at
/// least `minIntegerDigits` digits before the user's decimal symbol: (3, 6) is "000.000000",
/// (0, 1) is "###.0", (2, 0) is "00".
std::string FormatFixed(double value, int minIntegerDigits, int decimals);

/// The shortest usual text with up to `digits` significant digits: "0.5", "156.8", "1E+20".
std::string GeneralText(double value, int digits);

/// Reads a number: blanks around it, a sign, digits with at most one decimal symbol ("." or the user's),
/// an exponent; or "&H" and hexadecimal, "&O" and octal digits. Nothing else is a number. One that no double
/// holds is infinite, one too small for it 0.
std::optional<double> ParseNumber(std::string_view text);

/// True for what a user may type as a number: blanks around it, an optional sign, digits, at most one
/// decimal symbol ("." or the user's). "1E1" is three tones, not ten.
bool IsNumericText(std::string_view text);

/// Whether all of the text is digits, no sign and no symbol among them; also of no text.
bool IsDigits(std::string_view text);
/// Whether the text is a whole number of plain digits up to `highest`, however long it is.
bool IsWholeNumberUpTo(std::string_view text, double highest);

/// `text` without the blanks around it.
std::string_view Trim(std::string_view text);
