#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "platform/CaseText.h"

/// Hash of a field's name, whatever its case, eight bytes at a time: the tier looks fields up by name more
/// often than it does anything else, and a hash byte by byte takes longer than the rest of the look-up.
struct FieldNameHash {
  using is_transparent = void;
  /// Not noexcept: so the map keeps the hash of each entry instead of taking it anew along its chains.
  std::size_t operator()(std::string_view name) const {
    std::uint64_t hash = name.size();
    for (; name.size() >= kWord; name.remove_prefix(kWord)) hash = Mix(hash, Load(name.data()));
    std::uint64_t rest = 0;
    for (const char c : name) rest = rest << 8 | static_cast<unsigned char>(c);
    return static_cast<std::size_t>(Mix(hash, rest & kFold));
  }

 private:
  static constexpr std::size_t kWord = sizeof(std::uint64_t);
  static constexpr std::uint64_t kFold = 0xDFDFDFDFDFDFDFDF;  // a-z to A-Z; folding other signs does no harm

  static std::uint64_t Load(const char* text) {
    std::uint64_t word = 0;
    std::memcpy(&word, text, kWord);
    return word & kFold;
  }

  static std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) {
    hash = (hash ^ word) * 0x9E3779B97F4A7C15;
    return hash ^ (hash >> 32);
  }
};

/// Most callers spell a name as the schema does.
struct FieldNameEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return a == b || EqualsIgnoringCase(a, b); }
};
