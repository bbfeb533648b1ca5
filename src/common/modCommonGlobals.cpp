#include "common/modCommonGlobals.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "platform/Error.h"
#include "platform/Locale.h"

namespace modCommonGlobals {
namespace {
std::string WithEvenLength(std::string digits) {
  if (digits.empty()) digits = "0";
  return digits.size() % 2 == 0 ? digits : "0" + digits;
}

/// The value of up to two hexadecimal digits; -1 when they are none.
int HexValue(std::string_view digits) {
  int value = -1;
  const char* end = digits.data() + digits.size();
  const auto [stop, problem] = std::from_chars(digits.data(), end, value, 16);
  return problem == std::errc() && stop == end && digits.front() != '-' ? value : -1;
}

[[noreturn]] void RaiseNoTone() {
  throw Error(ErrorNumber::kInvalidCall, "modCommonGlobals", "Invalid procedure call or argument");
}

bool IsTargetType(VarType type) {
  return (type >= VarType::Integer && type <= VarType::String) || type == VarType::Boolean;
}

Variant ConvertPiece(std::string_view piece, VarType target) {
  switch (target) {
    case VarType::Integer:
      return CInt(LocalizeString(piece));
    case VarType::Long:
      return CLng(LocalizeString(piece));
    case VarType::Single:
      return CSng(LocalizeString(piece));
    case VarType::Double:
      return CDbl(LocalizeString(piece));
    case VarType::Currency:
      return CCur(LocalizeString(piece));
    case VarType::Date:
      return CDate(piece);
    case VarType::String:
      return piece;
    case VarType::Boolean:
      return CBool(piece);
  }
  return {};
}

std::size_t FindDelimiter(std::string_view text, std::string_view delimiter, CompareMode compare) {
  if (delimiter.empty()) return std::string_view::npos;
  return compare == CompareMode::Exact ? text.find(delimiter) : FindIgnoringCase(text, delimiter);
}

/// The 1-based place of a letter in the alphabet, whatever its case; 0 for none.
std::size_t AlphabetIndex(std::string_view alphabet, char letter) {
  const auto found = std::find_if(alphabet.begin(), alphabet.end(),
                                  [&](char c) { return UpperChar(c) == UpperChar(letter); });
  return found == alphabet.end() ? 0 : static_cast<std::size_t>(found - alphabet.begin()) + 1;
}
}  // namespace

std::string LocalizeString(std::string_view text) {
  std::string local(text);
  std::replace(local.begin(), local.end(), '.', DecimalSymbol());
  return local;
}

double CDblLocal(std::string_view text) {
  const auto number = ParseNumber(text);
  if (!number) RaiseTypeMismatch();
  return *number;
}

std::string ConvertToneToString(std::int32_t tone) {
  if (tone < 0 || tone > 15) RaiseNoTone();
  return Hex(tone);
}

std::int32_t ConvertToneToNumber(std::string_view tone) {
  if (tone.empty()) return 0;
  if (tone.size() > 1) return CLng(tone);
  const int code = HexValue(tone);
  if (code < 0) RaiseNoTone();
  return code;
}

std::string Hex(std::int32_t number) {
  char hex[8];
  const auto value = static_cast<std::uint32_t>(number);
  const auto [end, problem] = std::to_chars(std::begin(hex), std::end(hex), value, 16);
  return UpperCase({hex, end});
}

std::string ConvertNumericToHex(std::string_view number) {
  std::string digits(number);
  std::erase(digits, ' ');
  if (digits.empty()) return WithEvenLength(digits);
  return WithEvenLength(Hex(CLng(digits)));
}

std::string ConvertHexToNumeric(std::string_view hex) {
  double sum = 0;
  for (const char digit : hex) {
    const int value = HexValue({&digit, 1});
    if (value < 0) RaiseTypeMismatch();
    sum = sum * 16 + value;
  }
  return WithEvenLength(std::to_string(RoundToLong(sum)));
}

std::string MakeParamString(std::initializer_list<std::string_view> values) {
  std::string joined;
  for (const std::string_view& value : values) {
    if (&value != values.begin()) joined += '|';
    joined += value;
  }
  return joined;
}

std::int32_t CharCount(std::string_view text, char character) {
  const auto same = [&](char c) { return UpperChar(c) == UpperChar(character); };
  return static_cast<std::int32_t>(std::count_if(text.begin(), text.end(), same));
}

std::pair<std::string_view, std::string_view> SplitFieldId(std::string_view fieldId) {
  const std::size_t point = fieldId.find('.');
  if (point == std::string_view::npos) return {{}, fieldId};
  return {fieldId.substr(0, point), fieldId.substr(point + 1)};
}

std::vector<Variant> Split2(std::string_view text, std::string_view delimiter, std::int32_t maximum,
                            CompareMode compare, VarType target) {
  std::vector<Variant> pieces;
  if (!IsTargetType(target)) throw Error(ErrorNumber::kInvalidCall, "Split2", "");
  if (text.empty() || maximum == 0) return pieces;
  for (;;) {
    const bool last = static_cast<std::int32_t>(pieces.size()) + 1 == maximum;
    const std::size_t at = last ? std::string_view::npos : FindDelimiter(text, delimiter, compare);
    pieces.push_back(ConvertPiece(text.substr(0, at), target));
    if (at == std::string_view::npos) return pieces;
    text.remove_prefix(at + delimiter.size());
  }
}

std::int32_t Precision(const Variant& value) {
  if (!IsNumeric(value)) return -1;
  const std::string text = CStr(CDbl(value));
  const std::size_t symbol = text.find(DecimalSymbol());
  return symbol == std::string::npos ? 0 : static_cast<std::int32_t>(text.size() - symbol - 1);
}

FormatRuns FormatCount(std::string_view sequence, std::string_view alphabet) {
  const std::vector<std::int32_t> zeros(alphabet.size() + 1);
  FormatRuns runs{zeros, zeros, zeros};
  char previous = '\0';
  std::size_t previousIndex = 0;
  std::int32_t length = 0;
  const auto endRun = [&] {
    runs.longestRuns[previousIndex] = std::max(runs.longestRuns[previousIndex], length);
  };
  for (std::size_t i = 0; i < sequence.size(); ++i) {
    const std::size_t index = AlphabetIndex(alphabet, sequence[i]);
    if (sequence[i] == previous) {  // a run ends where the letter changes, its case included
      ++length;
    } else {
      endRun();
      runs.lastPositions[index] = static_cast<std::int32_t>(i) + 1;
      ++runs.runCounts[index];
      previous = sequence[i];
      length = 1;
    }
    previousIndex = index;
  }
  endRun();
  return runs;
}

double RoundHalfAway(double value, std::int32_t decimals) {
  DecimalDigits number = DigitsOf(value);
  number.point += decimals;
  if (value == 0 || number.point > DecimalDigits::kCount) return value;  // no digit behind the point
  double whole = 0;
  for (int place = 1 - std::max(number.point, 0); place <= 0; ++place) {
    whole = whole * 10 + (number.BehindPoint(place) - '0');
  }
  if (number.BehindPoint(1) > '4') whole += 1;
  const double power = std::pow(10.0, decimals);
  return (number.negative ? -whole : whole) / power;
}

std::string DecryptString(std::string_view scrambled) {
  if (scrambled.empty()) return {};
  const std::string turned = std::string(scrambled.substr(1)) + scrambled.front();
  std::string plain;
  for (std::size_t at = 0; at < turned.size(); at += 2) {
    const int value = HexValue(std::string_view(turned).substr(at, 2));
    const int shift = static_cast<int>((at / 2 + 1) % 256);  // the place of the pair, from 1
    if (value >= 0) plain += static_cast<char>((value - shift + 256) % 256);
  }
  return plain;
}
}  // namespace modCommonGlobals
