#include "platform/Conversions.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/CaseText.h"
#include "platform/DecimalText.h"
#include "platform/Error.h"

namespace {
constexpr int kDoubleDigits = 15;
constexpr int kSingleDigits = 7;
constexpr double kCurrencyUnits = 10'000;
constexpr int kCurrencyDecimals = 4;

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

double NumberIn(const std::string& text) {
  const auto number = ParseNumber(text);
  if (!number) RaiseTypeMismatch();
  if (!std::isfinite(*number)) RaiseOverflow();
  return *number;
}

/// For comparisons: never an error. A value that is no number has none.
std::optional<double> NumberOf(const Variant& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  if (!IsNumeric(value)) return std::nullopt;
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr ? ParseNumber(*text) : CDbl(value);
}

template <typename Integer>
Integer RoundTo(double value) {
  const double whole = std::nearbyint(value);  // ties to even, the default rounding mode
  const bool fits = whole >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
                    whole <= static_cast<double>(std::numeric_limits<Integer>::max());
  if (!fits) RaiseOverflow();
  return static_cast<Integer>(whole);
}

/// Whether cutting the digits behind that place rounds up, halves to the even neighbour.
bool RoundsUp(const DecimalDigits& number, int place, bool isOdd) {
  const char first = number.BehindPoint(place + 1);
  if (first != '5') return first > '5';
  for (int next = place + 2; number.point + next <= DecimalDigits::kCount; ++next) {
    if (number.BehindPoint(next) != '0') return true;
  }
  return isOdd;
}

namespace dates {
using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kEpoch = sys_days{std::chrono::year{1899} / 12 / 30};
constexpr double kSecondsPerDay = 86'400;
/// The days of the years 100 to 9999.
constexpr double kFirstDay = -657'434;
constexpr double kLastDay = 2'958'466;

/// Rounded to whole seconds, so that the last half second of a day belongs to the next one.
double SecondsOf(Date date) { return std::round(date.days * kSecondsPerDay); }

bool IsInCalendar(Date date) { return date.days >= kFirstDay && SecondsOf(date) < kLastDay * kSecondsPerDay; }

std::string ToText(Date date) {
  if (!IsInCalendar(date)) RaiseOverflow();
  const double total = SecondsOf(date);
  const double whole = std::floor(total / kSecondsPerDay);
  const year_month_day day{kEpoch + days{RoundTo<std::int32_t>(whole)}};
  std::string text = FormatFixed(static_cast<int>(day.year()), 4, 0) + '-' +
                     FormatFixed(static_cast<unsigned>(day.month()), 2, 0) + '-' +
                     FormatFixed(static_cast<unsigned>(day.day()), 2, 0);
  const auto time = static_cast<std::int32_t>(total - whole * kSecondsPerDay);
  if (time != 0) {
    const std::int32_t minutes = time / 60;
    const std::int32_t hours = minutes / 60;
    text += ' ' + FormatFixed(hours, 2, 0) + ':' + FormatFixed(minutes - hours * 60, 2, 0) + ':' +
            FormatFixed(time - minutes * 60, 2, 0);
  }
  return text;
}

/// The number at `text`, which then points behind it and behind `separator`; -1 when either is missing.
int Piece(std::string_view& text, std::size_t width, char separator) {
  int number = -1;
  const auto [stop, problem] =
      std::from_chars(text.data(), text.data() + std::min(width, text.size()), number);
  const auto used = static_cast<std::size_t>(stop - text.data());
  if (problem != std::errc() || used != width) return -1;
  text.remove_prefix(used);
  if (separator == '\0') return number;
  if (text.empty() || text.front() != separator) return -1;
  text.remove_prefix(1);
  return number;
}

Date FromText(std::string_view text) {
  text = Trim(text);
  const int year = Piece(text, 4, '-');
  const int month = Piece(text, 2, '-');
  const int day = Piece(text, 2, '\0');
  if (year < 0 || month < 0 || day < 0) RaiseTypeMismatch();
  const year_month_day date{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                            std::chrono::day{static_cast<unsigned>(day)}};
  if (!date.ok()) RaiseTypeMismatch();
  double result = static_cast<double>((sys_days{date} - kEpoch).count());
  if (!text.empty()) {
    if (text.front() != ' ' && text.front() != 'T') RaiseTypeMismatch();
    text.remove_prefix(1);
    const int hour = Piece(text, 2, ':');
    const int minute = Piece(text, 2, ':');
    const int second = Piece(text, 2, '\0');
    if (!text.empty() || hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) {
      RaiseTypeMismatch();
    }
    result += (hour * 3600 + minute * 60 + second) / kSecondsPerDay;
  }
  return Date{result};
}
}  // namespace dates

/// No number that is infinite, no date beyond the calendar and no array.
bool HasText(const Variant& value) {
  if (const auto* date = std::get_if<Date>(&value)) return dates::IsInCalendar(*date);
  return value.IsText() || value.IsEmpty() || (!value.IsArray() && std::isfinite(CDbl(value)));
}
}  // namespace

std::int32_t RoundToLong(double value) { return RoundTo<std::int32_t>(value); }

double CDbl(const Variant& value) {
  constexpr Overloaded toDouble{
      [](Empty) { return 0.0; },
      [](bool flag) { return flag ? -1.0 : 0.0; },
      [](std::int16_t number) { return static_cast<double>(number); },
      [](std::int32_t number) { return static_cast<double>(number); },
      [](float number) { return static_cast<double>(number); },
      [](double number) { return number; },
      [](Currency amount) { return static_cast<double>(amount.tenThousandths) / kCurrencyUnits; },
      [](Date date) { return date.days; },
      [](const std::string& text) { return NumberIn(text); },
      [](const ArrayObject&) -> double { RaiseTypeMismatch(); },
  };
  return std::visit(toDouble, static_cast<const VariantBase&>(value));
}

std::int32_t CLng(const Variant& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  return RoundTo<std::int32_t>(CDbl(value));
}

std::int16_t CInt(const Variant& value) { return RoundTo<std::int16_t>(CDbl(value)); }

float CSng(const Variant& value) {
  const double number = CDbl(value);
  if (std::fabs(number) > static_cast<double>(std::numeric_limits<float>::max())) RaiseOverflow();
  return static_cast<float>(number);
}

Currency CCur(const Variant& value) {
  if (const auto* amount = std::get_if<Currency>(&value)) return *amount;
  const DecimalDigits number = DigitsOf(CDbl(value));
  constexpr int kMostUnitDigits = 19;
  if (number.point + kCurrencyDecimals > kMostUnitDigits) RaiseOverflow();
  std::uint64_t units = 0;
  for (int place = 1 - std::max(number.point, 0); place <= kCurrencyDecimals; ++place) {
    units = units * 10 + static_cast<std::uint64_t>(number.BehindPoint(place) - '0');
  }
  if (RoundsUp(number, kCurrencyDecimals, units % 2 != 0)) ++units;
  if (units > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) RaiseOverflow();
  const auto amount = static_cast<std::int64_t>(units);
  return Currency{number.negative ? -amount : amount};
}

bool CBool(const Variant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (EqualsIgnoringCase(*text, "True")) return true;
    if (EqualsIgnoringCase(*text, "False")) return false;
  }
  return CDbl(value) != 0;
}

std::string CStr(const Variant& value) {
  constexpr Overloaded toText{
      [](Empty) { return std::string(); },
      [](bool flag) { return std::string(flag ? "True" : "False"); },
      [](std::int16_t number) { return std::to_string(number); },
      [](std::int32_t number) { return std::to_string(number); },
      [](float number) { return GeneralText(static_cast<double>(number), kSingleDigits); },
      [](double number) { return GeneralText(number, kDoubleDigits); },
      [](Currency amount) {
        return GeneralText(static_cast<double>(amount.tenThousandths) / kCurrencyUnits, kDoubleDigits);
      },
      [](Date date) { return dates::ToText(date); },
      [](const std::string& text) { return text; },
      [](const ArrayObject&) -> std::string { RaiseTypeMismatch(); },
  };
  return std::visit(toText, static_cast<const VariantBase&>(value));
}

Date CDate(const Variant& value) {
  if (const auto* date = std::get_if<Date>(&value)) return *date;
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr && !IsNumericText(*text) ? dates::FromText(*text) : Date{CDbl(value)};
}

const XArrayDBObject& CArray(const Variant& value) {
  const auto* array = std::get_if<ArrayObject>(&value);
  if (array == nullptr || *array == nullptr) RaiseTypeMismatch();
  return **array;
}

bool IsNumeric(const Variant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return IsNumericText(*text);
  return !value.IsEmpty() && !value.IsArray();
}

bool SameValue(const Variant& a, const Variant& b) {
  const auto* first = std::get_if<std::int32_t>(&a);  // the most frequent pair
  const auto* second = std::get_if<std::int32_t>(&b);
  if (first != nullptr && second != nullptr) return *first == *second;
  const auto left = NumberOf(a);
  const auto right = NumberOf(b);
  if (left && right) return *left == *right;
  return HasText(a) && HasText(b) && CStr(a) == CStr(b);
}

bool ReadsAs(const Variant& value, std::string_view text) {
  if (const auto* stored = std::get_if<std::string>(&value)) return *stored == text;
  return CStr(value) == text;
}

bool IsAbove(const Variant& a, const Variant& b) {
  const auto left = NumberOf(a);
  const auto right = NumberOf(b);
  return left && right && *left > *right;
}

Variant WholeNumberOf(const Variant& value) { return IsNumeric(value) ? Variant(CLng(value)) : value; }

bool IsTicked(const Variant& value) {
  const auto number = NumberOf(value);
  return number && std::fabs(*number) == 1;
}

bool IsCode(const Variant& value, std::int32_t code) {
  return code == 1 ? IsTicked(value) : SameValue(value, code);
}
