#include "workbench/files/Printable.h"

#include <algorithm>
#include <bit>

#include "platform/CaseText.h"
#include "workbench/files/Utf8.h"

namespace {

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// The bytes of the character at the head of the text; 1 for a byte that begins none.
std::size_t SizeOfFirst(std::string_view text) {
  constexpr char32_t kLowest[] = {0, 0, 0x80, 0x800, 0x10000};  // by the size
  const auto size = static_cast<std::size_t>(std::countl_one(static_cast<unsigned char>(text.front())));
  if (size < 2 || size > 4 || text.size() < size) return 1;
  if (!std::ranges::all_of(text.substr(1, size - 1), IsContinuation)) return 1;
  const char32_t code = Utf8::CodeOf(text.substr(0, size));
  const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
  return code < kLowest[size] || code > 0x10FFFF || isSurrogate ? 1 : size;
}

/// C0, DEL and C1, the separators of lines and paragraphs, and what turns the direction of writing.
bool IsControl(char32_t code) {
  return code < 0x20 || (code >= 0x7F && code <= 0x9F) || (code >= 0x2028 && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

std::string Hexadecimal(char32_t code, int digits) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  while (--digits >= 0) text += kDigits[code >> (4 * digits) & 0xF];
  return text;
}

std::string Escaped(std::string_view character) {
  switch (character.front()) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      break;
  }
  if (character.size() > 1) return "\\u" + Hexadecimal(Utf8::CodeOf(character), 4);
  return "\\x" + Hexadecimal(static_cast<unsigned char>(character.front()), 2);
}

std::string Shown(std::string_view text, char kept) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const std::string_view character = text.substr(0, SizeOfFirst(text));
    const bool isByte = character.size() == 1;
    const bool isBroken = isByte && static_cast<unsigned char>(character.front()) >= 0x80;
    const bool isShown = isByte && character.front() == kept && kept != '\0';
    if (isShown || (!isBroken && !IsControl(Utf8::CodeOf(character)))) {
      shown += character;
    } else {
      shown += Escaped(character);
    }
    text.remove_prefix(character.size());
  }
  return shown;
}

}  // namespace

namespace Printable {

std::string Text(std::string_view text) { return Shown(text, '\0'); }

std::string Lines(std::string_view text) { return Shown(text, '\n'); }

std::string Shortened(std::string_view text) {
  constexpr std::size_t kLongest = 200;
  const std::size_t characters = CharacterCount(text);
  if (characters <= kLongest) return Text(text);
  std::size_t end = 0;
  for (std::size_t i = 0; i < kLongest; ++i) end += FirstCharacter(text.substr(end)).size();
  return Text(text.substr(0, end)) + "... (" + std::to_string(characters) + " characters)";
}

std::string Quoted(std::string_view text) { return '"' + Shortened(text) + '"'; }

}  // namespace Printable
