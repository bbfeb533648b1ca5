#include "platform/DecimalText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "platform/Error.h"
#include "platform/Locale.h"

namespace {
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsDecimalSymbol(char c) { return c == '.' || c == DecimalSymbol(); }

/// The first `keep` digits, rounded half away from zero; a carry may move the point.
void RoundTo(DecimalDigits& number, int keep) {
  if (keep >= DecimalDigits::kCount) return;
  const auto begin = number.digits.begin();
  const bool up = keep >= 0 && number.digits[static_cast<std::size_t>(keep)] >= '5';
  std::fill(begin + std::max(keep, 0), number.digits.end(), '0');
  if (!up) return;
  int i = keep - 1;
  while (i >= 0 && number.digits[static_cast<std::size_t>(i)] == '9') {
    number.digits[static_cast<std::size_t>(i--)] = '0';
  }
  if (i >= 0) {
    ++number.digits[static_cast<std::size_t>(i)];
  } else {  // 9.99 has become 10.0
    number.digits[0] = '1';
    ++number.point;
  }
}

bool AllZero(const DecimalDigits& number) {
  return std::all_of(number.digits.begin(), number.digits.end(), [](char c) { return c == '0'; });
}

/// Places from 1 lie behind the decimal point, 0 and below before it.
void AppendPlaces(std::string& text, const DecimalDigits& number, int first, int last) {
  for (int place = first; place <= last; ++place) text += number.BehindPoint(place);
}

std::optional<double> ParseWithBase(std::string_view digits, int base) {
  std::uint32_t value = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, problem] = std::from_chars(digits.data(), end, value, base);
  if (problem != std::errc() || stop != end || digits.empty()) return std::nullopt;
  return value;
}

/// Length of a leading sign: 0 or 1.
std::size_t SignLength(std::string_view text) {
  return !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
}

/// Length of the digits and decimal symbol at the head of `text`; 0 when no digit is among them.
std::size_t MantissaLength(std::string_view text) {
  std::size_t length = 0;
  bool symbol = false;
  bool digit = false;
  for (; length < text.size(); ++length) {
    if (IsDigit(text[length])) {
      digit = true;
    } else if (IsDecimalSymbol(text[length]) && !symbol) {
      symbol = true;
    } else {
      break;
    }
  }
  return digit ? length : 0;
}

bool IsExponent(std::string_view text) {
  if (text.size() < 2 || (text[0] != 'E' && text[0] != 'e')) return false;
  text.remove_prefix(1);
  text.remove_prefix(SignLength(text));
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}
/// Of a number that no double holds, without its sign: whether it is too small and not too large.
bool IsTiny(std::string_view number) {
  return number.starts_with('0') || number.starts_with('.') || number.find('-') != std::string_view::npos;
}
}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

DecimalDigits DigitsOf(double value) {
  if (!std::isfinite(value)) RaiseOverflow();
  char text[32];  // d.ddddddddddddddE+xxx
  const auto [end, problem] = std::to_chars(std::begin(text), std::end(text), std::fabs(value),
                                            std::chars_format::scientific, DecimalDigits::kCount - 1);
  DecimalDigits result;
  result.negative = std::signbit(value) && value != 0;
  result.digits[0] = text[0];
  std::copy_n(text + 2, DecimalDigits::kCount - 1, result.digits.begin() + 1);
  const char* exponent = text + DecimalDigits::kCount + 2;
  std::from_chars(*exponent == '+' ? exponent + 1 : exponent, end, result.point);
  ++result.point;
  return result;
}

std::string FormatFixed(double value, int minIntegerDigits, int decimals) {
  DecimalDigits number = DigitsOf(value);
  RoundTo(number, number.point + decimals);
  const bool zero = AllZero(number);
  const int integerDigits = zero ? 0 : std::max(number.point, 0);
  std::string text;
  text.reserve(24);
  if (number.negative && !zero) text += '-';
  text.append(static_cast<std::size_t>(std::max(minIntegerDigits - integerDigits, 0)), '0');
  AppendPlaces(text, number, 1 - integerDigits, 0);
  if (decimals > 0) text += DecimalSymbol();
  AppendPlaces(text, number, 1, decimals);
  return text;
}

std::string GeneralText(double value, int digits) {
  DecimalDigits number = DigitsOf(value);
  RoundTo(number, digits);
  if (AllZero(number)) return "0";
  int used = DecimalDigits::kCount;
  while (number.digits[static_cast<std::size_t>(used - 1)] == '0') --used;
  const int exponent = number.point - 1;
  const bool scientific = exponent >= digits || exponent < -4;
  if (scientific) number.point = 1;
  std::string text = number.negative ? "-" : "";
  if (number.point <= 0) text += '0';
  AppendPlaces(text, number, 1 - std::max(number.point, 0), 0);
  if (used > number.point) text += DecimalSymbol();
  AppendPlaces(text, number, 1, used - number.point);
  if (scientific) {
    text += exponent < 0 ? "E-" : "E+";
    text += FormatFixed(std::abs(exponent), 2, 0);
  }
  return text;
}

std::optional<double> ParseNumber(std::string_view text) {
  text = Trim(text);
  if (text.size() > 2 && text[0] == '&') {
    if (text[1] == 'H' || text[1] == 'h') return ParseWithBase(text.substr(2), 16);
    if (text[1] == 'O' || text[1] == 'o') return ParseWithBase(text.substr(2), 8);
    return std::nullopt;
  }
  const std::size_t sign = SignLength(text);
  const std::string_view number = text.substr(sign);
  const std::size_t mantissa = MantissaLength(number);
  if (mantissa == 0 || (mantissa < number.size() && !IsExponent(number.substr(mantissa)))) {
    return std::nullopt;
  }
  std::string plain(number);
  std::replace_if(
      plain.begin(), plain.end(), [](char c) { return IsDecimalSymbol(c); }, '.');
  double value = 0;
  const auto [stop, problem] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (problem == std::errc::result_out_of_range) value = IsTiny(plain) ? 0 : HUGE_VAL;
  return sign == 1 && text[0] == '-' ? -value : value;
}

bool IsDigits(std::string_view text) {
  return text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsWholeNumberUpTo(std::string_view text, double highest) {
  return !text.empty() && IsDigits(text) && *ParseNumber(text) <= highest;
}

bool IsNumericText(std::string_view text) {
  text = Trim(text);
  text.remove_prefix(SignLength(text));
  return !text.empty() && MantissaLength(text) == text.size();
}
