#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

/// Names ignore case. Only the letters A to Z have a case here; other bytes of a UTF-8 text stand as
/// they are.
constexpr char UpperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

constexpr bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (a == b) return true;  // most callers spell a name as it was given
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (UpperChar(a[i]) != UpperChar(b[i])) return false;
  }
  return true;
}

constexpr int CompareIgnoringCase(std::string_view a, std::string_view b) {
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    const char left = UpperChar(a[i]);
    const char right = UpperChar(b[i]);
    if (left != right) return left < right ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

/// Where `word` first stands in `text`; npos for nowhere.
constexpr std::size_t FindIgnoringCase(std::string_view text, std::string_view word) {
  for (std::size_t at = 0; at + word.size() <= text.size(); ++at) {
    if (EqualsIgnoringCase(text.substr(at, word.size()), word)) return at;
  }
  return std::string_view::npos;
}

/// The characters of a UTF-8 text.
constexpr std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (const char c : text) count += (static_cast<unsigned char>(c) & 0xC0U) == 0x80U ? 0 : 1;
  return count;
}

/// The first character of a UTF-8 text, with the bytes that continue it; empty for no text.
constexpr std::string_view FirstCharacter(std::string_view text) {
  std::size_t length = std::size_t{!text.empty()};
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) ++length;
  return text.substr(0, length);
}

inline std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = UpperChar(c);
  return upper;
}

/// Hash of a name, whatever its case, eight bytes at a time: the tier looks fields up by name more often than
/// it does anything else, and a hash byte by byte takes longer than the rest of the look-up. With NameEqual a
/// look-up folds no case into a new string.
struct NameHash {
  using is_transparent = void;
  /// Not noexcept: so a map keeps the hash of each entry instead of taking it anew along its chains.
  constexpr std::size_t operator()(std::string_view name) const {
    std::uint64_t hash = name.size();
    if (name.size() < kWord) return static_cast<std::size_t>(Mix(hash, LoadShort(name)));
    const char* const last = name.data() + name.size() - kWord;  // it may share bytes with the one before
    for (const char* word = name.data(); word < last; word += kWord) hash = Mix(hash, Load(word));
    return static_cast<std::size_t>(Mix(hash, Load(last)));
  }

 private:
  static constexpr std::size_t kWord = sizeof(std::uint64_t);
  static constexpr std::uint64_t kFold = 0xDFDFDFDFDFDFDFDF;  // a-z to A-Z; folding other signs does no harm

  static constexpr std::uint64_t LoadShort(std::string_view text) {
    std::uint64_t word = 0;
    for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
    return word & kFold;
  }

  static constexpr std::uint64_t Load(const char* text) {
    std::uint64_t word = 0;
    if (std::is_constant_evaluated()) {
      for (std::size_t i = 0; i < kWord; ++i) {
        const std::size_t place = std::endian::native == std::endian::little ? i : kWord - 1 - i;
        word |= std::uint64_t{static_cast<unsigned char>(text[i])} << (8 * place);
      }
    } else {
      std::memcpy(&word, text, kWord);
    }
    return word & kFold;
  }

  static constexpr std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) {
    hash = (hash ^ word) * 0x9E3779B97F4A7C15;
    return hash ^ (hash >> 32);
  }
};

struct NameEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return EqualsIgnoringCase(a, b); }
};
