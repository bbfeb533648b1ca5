#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Variant.h"

/// The only way from a Variant to a number or a text. Halves go to the even neighbour. A text is read
/// with "." or the user's decimal symbol, or as "&H" hexadecimal or "&O" octal. An empty value is 0 or
/// "", true is -1 or "True". A text that is no number raises 13, a number beyond the target's range 6.

std::int32_t CLng(const Variant& value);
std::int16_t CInt(const Variant& value);
float CSng(const Variant& value);
double CDbl(const Variant& value);
Currency CCur(const Variant& value);
bool CBool(const Variant& value);
/// Integers in decimal, doubles with up to 15 significant digits and the user's decimal symbol, dates
/// as "2024-02-29" with " 13:45:00" behind it where there is a time of day. An array raises 13.
std::string CStr(const Variant& value);
/// An ISO text or a number of days; raises 13 for any other text.
Date CDate(const Variant& value);
/// The array; raises 13 for any other value.
const XArrayDBObject& CArray(const Variant& value);

/// `value` as a 32-bit integer, halves to the even neighbour; raises 6.
std::int32_t RoundToLong(double value);

/// True when the value is a number, or a text that a user may type as one.
bool IsNumeric(const Variant& value);

/// Equality of two values from the host: both numeric, as numbers; else as exact text. A number and a
/// word differ, never an error; arrays equal nothing.
bool SameValue(const Variant& a, const Variant& b);
/// Whether CStr of the value is that text, to the letter.
bool ReadsAs(const Variant& value, std::string_view text);
/// Whether both are numbers and the first is the greater one.
bool IsAbove(const Variant& a, const Variant& b);
/// A number as an integer, what is none as it is.
Variant WholeNumberOf(const Variant& value);

/// A tick is on when the absolute numeric value is 1 (true is -1). A text that is no number is off.
bool IsTicked(const Variant& value);

/// Whether the value is that code; a tick that is on is the code 1. A text that is no number is none.
bool IsCode(const Variant& value, std::int32_t code);
