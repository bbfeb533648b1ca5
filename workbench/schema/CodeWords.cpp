#include "workbench/schema/CodeWords.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "workbench/files/TabbedFile.h"

namespace {
constexpr std::int32_t kOff = 0, kOn = 1;

/// What else may be typed for a tick.
constexpr struct {
  std::string_view word;
  std::int32_t code;
} kTickWords[] = {{"on", kOn}, {"off", kOff}, {"true", kOn}, {"false", kOff}};

constexpr std::string_view kTick = "tick", kOppositeTick = "opposite tick";

/// Of one part of a cell, "0=Off".
CodeWords::Entry EntryOf(std::string_view part, const TabbedFile& file, std::size_t column) {
  const std::size_t end = part.find('=');
  const auto code = ParseInteger(part.substr(0, end));
  const std::string_view word = end == std::string_view::npos ? "" : part.substr(end + 1);
  if (!code || word.empty() || Trim(word) != word) {
    file.Fail(column, "neither tick nor codes and words as in 0=Off|1=Low");
  }
  if (IsNumericText(word)) file.Fail(column, std::string(word) + " reads as a number");
  return {*code, std::string(word)};
}

void RequireNew(const CodeWords::Entry& entry, std::span<const CodeWords::Entry> others,
                const TabbedFile& file, std::size_t column) {
  for (const CodeWords::Entry& other : others) {
    if (other.code == entry.code) file.Fail(column, "code " + std::to_string(entry.code) + " stands twice");
    if (EqualsIgnoringCase(other.word, entry.word)) file.Fail(column, entry.word + " stands twice");
  }
}
}  // namespace

CodeWords CodeWords::Read(const TabbedFile& file, std::size_t column) {
  std::string_view cell = file.Cell(column);
  if (cell == kTick || cell == kOppositeTick) {
    CodeWords tick = Tick();
    tick.isOppositeInRadio_ = cell == kOppositeTick;
    return tick;
  }
  std::vector<Entry> entries;
  for (bool isLast = false; !isLast;) {
    const std::size_t end = std::min(cell.find('|'), cell.size());
    isLast = end == cell.size();
    Entry entry = EntryOf(cell.substr(0, end), file, column);
    RequireNew(entry, entries, file, column);
    entries.push_back(std::move(entry));
    cell.remove_prefix(isLast ? end : end + 1);
  }
  return CodeWords(std::move(entries));
}

CodeWords CodeWords::Tick() {
  CodeWords words({{kOff, "No"}, {kOn, "Yes"}});
  words.isTick_ = true;
  return words;
}

std::optional<std::string> CodeWords::WordOf(const Variant& value) const {
  if (!IsNumeric(value)) return {};
  // As a number a flag that is set is -1.
  const double code = isTick_ ? std::abs(CDbl(value)) : CDbl(value);
  const auto found = std::ranges::find_if(entries_, [&](const Entry& entry) { return entry.code == code; });
  return found == entries_.end() ? std::nullopt : std::optional(found->word);
}

std::optional<std::int32_t> CodeWords::CodeOf(std::string_view word) const {
  for (const Entry& entry : entries_) {
    if (EqualsIgnoringCase(entry.word, word)) return entry.code;
  }
  for (const auto& [other, code] : kTickWords) {
    if (isTick_ && EqualsIgnoringCase(other, word)) return code;
  }
  return {};
}
