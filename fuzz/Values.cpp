#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <limits>
#include <optional>

#include "common/modCommonGlobals.h"
#include "fuzz/Invariant.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "platform/Error.h"
#include "platform/Locale.h"
#include "platform/XArrayDBObject.h"

/// What holds between the conversions of any values and texts, with both decimal symbols.
namespace {
template <typename Value>
struct Outcome {
  std::optional<Value> value;
  std::int32_t error = 0;
  explicit operator bool() const { return value.has_value(); }
};

/// What the conversion gives. It raises no other errors than a type mismatch and an overflow.
template <typename Conversion, typename Input>
auto Try(Conversion conversion, const Input& input) -> Outcome<decltype(conversion(input))> {
  try {
    return {conversion(input), 0};
  } catch (const Error& error) {
    const bool isKnown =
        error.Number() == ErrorNumber::kTypeMismatch || error.Number() == ErrorNumber::kOverflow;
    Require(isKnown, "error " + std::to_string(error.Number()) + " of a conversion");
    return {std::nullopt, error.Number()};
  }
}

/// Equal to fifteen digits, or within that much.
bool IsNear(double a, double b, double within) {
  return std::fabs(a - b) <= within + 6e-15 * std::max(std::fabs(a), std::fabs(b));
}

Variant ConsumeValue(FuzzedDataProvider& data) {
  switch (data.ConsumeIntegralInRange(0, 11)) {
    case 0:
      return {};
    case 1:
      return data.ConsumeBool();
    case 2:
      return data.ConsumeIntegral<std::int16_t>();
    case 3:
      return data.ConsumeIntegral<std::int32_t>();
    case 4:
      return data.ConsumeFloatingPoint<float>();
    case 5:
      return data.ConsumeFloatingPoint<double>();
    case 6:
      return Currency{data.ConsumeIntegral<std::int64_t>()};
    case 7:
      return Date{data.ConsumeFloatingPointInRange(-700'000.0, 3'000'000.0)};
    case 8:
      return std::make_shared<const XArrayDBObject>();
    case 9:  // halves, and numbers that people write
      return data.ConsumeIntegral<std::int32_t>() / (data.ConsumeBool() ? 2.0 : 1000.0);
    case 10: {
      constexpr double kOdd[] = {HUGE_VAL, -HUGE_VAL, std::numeric_limits<double>::quiet_NaN(), -0.0};
      return data.PickValueInArray(kOdd);
    }
    default:
      return data.ConsumeRandomLengthString(40);
  }
}

void CheckIntegers(const Variant& value) {
  const auto number = Try(CDbl, value);
  const auto asLong = Try(CLng, value);
  const auto asInteger = Try(CInt, value);
  const auto asSingle = Try(CSng, value);
  Require(number || (!asLong && !asInteger && !asSingle), "an integer of what is no number");
  if (asInteger) Require(asLong && *asLong.value == *asInteger.value, "CInt and CLng differ");
  if (asLong) {
    const double off = std::fabs(*asLong.value - *number.value);
    Require(off < 0.5 || (off == 0.5 && *asLong.value % 2 == 0), "CLng does not round to the even neighbour");
  }
  const auto asFlag = Try(CBool, value);
  if (number) Require(asFlag && *asFlag.value == (*number.value != 0), "CBool and CDbl differ");
  const auto amount = Try(CCur, value);
  Require(number || !amount, "an amount of what is no number");
  if (amount) {
    const double units = static_cast<double>(amount.value->tenThousandths) / 10'000;
    Require(IsNear(units, *number.value, 0.000051), "CCur and CDbl differ");
  }
}

void CheckText(const Variant& value) {
  const auto text = Try(CStr, value);
  if (!text) {
    Require(!value.IsText() && !value.IsEmpty(), "a text that is no text");
    return;
  }
  if (const auto* number = std::get_if<double>(&value)) {
    constexpr double kLargestOf15Digits = 1.79769313486231e308;
    if (std::fabs(*number) > kLargestOf15Digits) return;
    const double again = CDbl(*text.value);
    Require(IsNear(again, *number, 0) && CStr(again) == *text.value, "a double is not what its text says");
    Require(CDbl(CStr(again)) == again, "a double that its text holds comes back as another");
  }
  if (const auto* date = std::get_if<Date>(&value)) {
    constexpr double kSecond = 1.0 / 86'400;
    Require(std::fabs(CDate(*text.value).days - date->days) <= 0.51 * kSecond,
            "a date is not what its text says");
  }
}

void CheckEquality(const Variant& a, const Variant& b) {
  Require(SameValue(a, b) == SameValue(b, a), "SameValue depends on the order");
  const auto number = Try(CDbl, a);
  const bool isNotANumber = number && std::isnan(*number.value);
  if (!a.IsArray() && !isNotANumber) Require(SameValue(a, a), "a value does not equal itself");
  Require(IsTicked(a) == IsCode(a, 1), "a tick is not the code 1");
  if (!a.IsArray() && Try(CStr, a) && Try(CStr, b)) {
    Require(CStr(a) != CStr(b) || IsNumeric(a) || SameValue(a, b), "equal words differ");
  }
}

void CheckNumberText(const std::string& text) {
  const auto number = Try(CDbl, Variant(text));
  const bool isNumber = number.error != ErrorNumber::kTypeMismatch;
  Require(isNumber == ParseNumber(text).has_value(), "CDbl and ParseNumber differ");
  if (IsNumeric(text)) Require(isNumber, "a numeric text is no number");
  // What a user may not type as a number and is one all the same: an exponent and the other bases.
  if (isNumber && !IsNumeric(text))
    Require(text.find_first_of("eE&") != text.npos, "a number is not numeric");
  Require(IsNumericText(text) == IsNumericText("  " + text + " "), "blanks make a difference");
  const auto plain = Try(modCommonGlobals::CDblLocal, std::string_view(text));
  if (number) Require(plain && *plain.value == *number.value, "CDbl and CDblLocal differ");
  const auto date = Try(CDate, Variant(text));
  if (date && Try(CStr, Variant(*date.value))) {
    const std::string normal = CStr(*date.value);
    Require(CStr(CDate(normal)) == normal, "a date changes by being written");
  }
}

void CheckFormats(FuzzedDataProvider& data) {
  const double value = data.ConsumeBool() ? data.ConsumeFloatingPoint<double>()
                                          : data.ConsumeFloatingPointInRange(-1e10, 1e10);
  const int integers = data.ConsumeIntegralInRange(1, 6);
  const int decimals = data.ConsumeIntegralInRange(0, 9);
  const auto format = [&](double number) { return FormatFixed(number, integers, decimals); };
  const auto text = Try(format, value);
  Require(static_cast<bool>(text) == std::isfinite(value), "FormatFixed refuses a number");
  if (text && std::fabs(value) < 1e300) {
    const double again = CDbl(*text.value);
    Require(IsNear(again, value, 0.501 * std::pow(10, -decimals)), "FormatFixed gives another number");
    Require(format(again) == *text.value, "FormatFixed changes what it has formatted");
  }
}

void CheckHex(const std::string& text) {
  const auto hex = Try(modCommonGlobals::ConvertNumericToHex, std::string_view(text));
  if (!hex) return;
  const auto numeric = Try(modCommonGlobals::ConvertHexToNumeric, std::string_view(*hex.value));
  if (!numeric) return;  // a negative number is its complement, which 32 bits do not hold
  const auto again = modCommonGlobals::ConvertNumericToHex(*numeric.value);
  Require(again == *hex.value, "a number changes by its hexadecimal text");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  FuzzedDataProvider data(bytes, size);
  SetDecimalSymbol(data.ConsumeBool() ? ',' : '.');
  const Variant a = ConsumeValue(data);
  const Variant b = ConsumeValue(data);
  CheckFormats(data);
  const std::string text = data.ConsumeRemainingBytesAsString();
  for (const Variant& value : {a, b, Variant(text)}) {
    CheckIntegers(value);
    CheckText(value);
    CheckEquality(value, a);
    CheckEquality(value, b);
  }
  CheckNumberText(text);
  CheckHex(text);
  return 0;
}
