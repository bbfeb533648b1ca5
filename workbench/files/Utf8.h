#pragma once

#include <string_view>

/// Texts in UTF-8, as personalities hold them and as they are typed.
namespace Utf8 {

bool IsValid(std::string_view text);
/// The first character with a code above `highest`; empty for none. The text is valid.
std::string_view FirstAbove(std::string_view text, char32_t highest);
/// The code of a valid character.
char32_t CodeOf(std::string_view character);

}  // namespace Utf8
