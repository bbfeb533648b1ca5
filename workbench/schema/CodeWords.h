#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Variant.h"

class TabbedFile;

/// What the codes of a choice or a tick are called. Codes may be without a word.
class CodeWords {
 public:
  struct Entry {
    std::int32_t code = 0;
    std::string word;
  };

  /// In the order in which they are offered.
  explicit CodeWords(std::vector<Entry> entries) : entries_(std::move(entries)) {}
  /// Of a box that is ticked or not: "No" and "Yes".
  static CodeWords Tick();
  /// Of a cell: "0=Off|1=Low", "tick" or "opposite tick". Throws a FileError for any other, for a code or a
  /// word that stands twice, and for a word that reads as a number.
  static CodeWords Read(const TabbedFile& file, std::size_t column);

  const std::vector<Entry>& Entries() const { return entries_; }
  /// The word of a value that a field holds, a code, a flag or its text; no value for any other.
  std::optional<std::string> WordOf(const Variant& value) const;
  /// The code that a person means by a word, in any case; of a tick also by "on" and "true" and their
  /// opposites.
  std::optional<std::int32_t> CodeOf(std::string_view word) const;

  bool IsTick() const { return isTick_; }
  /// Whether the radio stores the opposite of what the forms show.
  bool IsOppositeInRadio() const { return isOppositeInRadio_; }

 private:
  std::vector<Entry> entries_;
  bool isTick_ = false;
  bool isOppositeInRadio_ = false;
};
