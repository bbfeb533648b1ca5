#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Variant.h"

/// String and number helpers that more than one module uses.
namespace modCommonGlobals {
/// False in the finished program; true would ask before a fault goes on.
constexpr bool IsExecutingFromIDE() { return false; }

/// `text` with each "." replaced by the user's decimal symbol.
std::string LocalizeString(std::string_view text);
/// The number in a text, written with "." or the user's decimal symbol. Raises 13 for any other text.
double CDblLocal(std::string_view text);

/// The hexadecimal digit of a tone code, "0" to "F". Raises 5 for a number that is none.
std::string ConvertToneToString(std::int32_t tone);
/// The tone code of a hexadecimal digit, whatever its case; "" is 0. A longer text is read as a decimal
/// number. Raises 5 for another character, 13 for a text that is no number.
std::int32_t ConvertToneToNumber(std::string_view tone);

/// "C" for 12; a negative number is its 32-bit complement.
std::string Hex(std::int32_t number);
/// The hexadecimal text of a number in decimal, upper case, with a leading "0" when its length is odd:
/// "10" is "0A", "" is "00". A negative number is its 32-bit complement.
std::string ConvertNumericToHex(std::string_view number);
/// The decimal text of a hexadecimal one, with a leading "0" when its length is odd: "FF" is "0255", ""
/// is "00". Raises 13 for a character that is no hexadecimal digit, 6 beyond 32 bits.
std::string ConvertHexToNumeric(std::string_view hex);

/// The values joined by a vertical bar, as a messenger takes them.
std::string MakeParamString(std::initializer_list<std::string_view> values);

/// How many characters of `text` equal `character`, whatever the case.
std::int32_t CharCount(std::string_view text, char character);

/// The table number and the field name of a FieldId; without a point the table is "".
std::pair<std::string_view, std::string_view> SplitFieldId(std::string_view fieldId);

/// The type words of a variant.
enum class VarType : std::int32_t {
  Integer = 2,
  Long = 3,
  Single = 4,
  Double = 5,
  Currency = 6,
  Date = 7,
  String = 8,
  Boolean = 11,
};
enum class CompareMode : std::int32_t { Exact = 0, IgnoreCase = 1 };
inline constexpr std::int32_t kNoMaximum = -1;

/// Splits at the delimiter into at most `maximum` pieces, the last of which holds the rest, and converts
/// each to the target type. No text, no pieces. Raises 5 for an unknown type.
std::vector<Variant> Split2(std::string_view text, std::string_view delimiter, std::int32_t maximum,
                            CompareMode compare, VarType target);

/// The digits behind the decimal symbol of the value's text as a double; -1 for what is no number.
std::int32_t Precision(const Variant& value);

/// The runs of letters in a Selcall format: element i belongs to letter i of the alphabet (from 1),
/// element 0 to all other characters. Positions are 1-based.
struct FormatRuns {
  std::vector<std::int32_t> runCounts, longestRuns, lastPositions;
};
FormatRuns FormatCount(std::string_view sequence, std::string_view alphabet);

/// `value` rounded half away from zero to `decimals` decimals, judged by the first digit behind them in
/// its decimal text alone.
double RoundHalfAway(double value, std::int32_t decimals);

/// Unscrambles one line of a data file: bytes as pairs of hexadecimal digits, each shifted by its place.
/// A pair that is no hexadecimal number gives no byte.
std::string DecryptString(std::string_view scrambled);
}  // namespace modCommonGlobals
