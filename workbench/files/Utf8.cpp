#include "workbench/files/Utf8.h"

#include <algorithm>
#include <bit>
#include <nlohmann/json.hpp>

namespace {

/// The ones at its head tell how many bytes a character has; one byte alone has none.
int LeadingOnes(char start) { return std::countl_one(static_cast<unsigned char>(start)); }

}  // namespace

namespace Utf8 {

bool IsValid(std::string_view text) {
  try {
    static_cast<void>(nlohmann::json(text).dump());
    return true;
  } catch (const nlohmann::json::type_error&) {
    return false;
  }
}

std::string_view FirstAbove(std::string_view text, char32_t highest) {
  while (!text.empty()) {
    const auto size = static_cast<std::size_t>(std::max(LeadingOnes(text.front()), 1));
    const std::string_view character = text.substr(0, size);
    if (CodeOf(character) > highest) return character;
    text.remove_prefix(character.size());
  }
  return {};
}

char32_t CodeOf(std::string_view character) {
  char32_t code = static_cast<unsigned char>(character.front()) & (0xFFU >> LeadingOnes(character.front()));
  for (const char byte : character.substr(1)) code = code << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
  return code;
}

}  // namespace Utf8
