#include "platform/Conversions.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

#include "platform/CaseText.h"
#include "platform/DecimalText.h"
#include "platform/Error.h"

namespace {
constexpr int kDoubleDigits = 15;
constexpr int kSingleDigits = 7;
constexpr double kCurrencyUnits = 10'000;

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

double NumberIn(const std::string& text) {
  const auto number = ParseNumber(text);
  if (!number) RaiseTypeMismatch();
  return *number;
}

template <typename Integer>
Integer RoundTo(double value) {
  const double whole = std::nearbyint(value);  // ties to even, the default rounding mode
  const bool fits = whole >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
                    whole <= static_cast<double>(std::numeric_limits<Integer>::max());
  if (!fits) RaiseOverflow();
  return static_cast<Integer>(whole);
}

namespace dates {
using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kEpoch = sys_days{std::chrono::year{1899} / 12 / 30};
constexpr double kSecondsPerDay = 86'400;

std::string ToText(Date date) {
  const double whole = std::floor(date.days);
  const year_month_day day{kEpoch + days{RoundTo<std::int32_t>(whole)}};
  std::string text = FormatFixed(static_cast<int>(day.year()), 4, 0) + '-' +
                     FormatFixed(static_cast<unsigned>(day.month()), 2, 0) + '-' +
                     FormatFixed(static_cast<unsigned>(day.day()), 2, 0);
  const auto time = static_cast<std::int32_t>(std::lround((date.days - whole) * kSecondsPerDay));
  if (time != 0) {
    text += ' ' + FormatFixed(time / 3600, 2, 0) + ':' + FormatFixed(time / 60 % 60, 2, 0) + ':' +
            FormatFixed(time % 60, 2, 0);
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
    text.remove_prefix(1);  // a blank or "T"
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
  const double units = std::nearbyint(CDbl(value) * kCurrencyUnits);
  constexpr double kLimit = 9'223'372'036'854'775'808.0;  // 2 to the power 63
  if (!(units >= -kLimit && units < kLimit)) RaiseOverflow();
  return Currency{static_cast<std::int64_t>(units)};
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
  if (a.IsArray() || b.IsArray()) return false;
  if (IsNumeric(a) && IsNumeric(b)) return CDbl(a) == CDbl(b);
  return CStr(a) == CStr(b);
}

bool IsTicked(const Variant& value) { return IsNumeric(value) && std::fabs(CDbl(value)) == 1; }
