#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// Names ignore case. Only the letters A to Z have a case here; other bytes of a UTF-8 text stand as
/// they are.
constexpr char UpperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

constexpr bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
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

inline std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = UpperChar(c);
  return upper;
}

/// Transparent hash and comparison, so that a look-up by name folds no case into a new string.
struct NameHash {
  using is_transparent = void;
  constexpr std::size_t operator()(std::string_view name) const {
    std::uint64_t hash = 1469598103934665603ULL;
    for (const char c : name) {
      hash = (hash ^ static_cast<unsigned char>(UpperChar(c))) * 1099511628211ULL;
    }
    return static_cast<std::size_t>(hash);
  }
};

struct NameEqual {
  using is_transparent = void;
  constexpr bool operator()(std::string_view a, std::string_view b) const { return EqualsIgnoringCase(a, b); }
};
