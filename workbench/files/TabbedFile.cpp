#include "workbench/files/TabbedFile.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/CaseText.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"

namespace {
constexpr char kSeparator = '\t';

/// Empty when the cell is not exactly one number.
template <typename Number>
std::optional<Number> Parse(std::string_view cell) {
  Number number{};
  const char* end = cell.data() + cell.size();
  const auto [stop, problem] = std::from_chars(cell.data(), end, number);
  if (problem != std::errc() || stop != end) return {};
  return number;
}

std::string Joined(std::span<const std::string_view> words, std::string_view separator) {
  std::string text;
  for (const std::string_view word : words) {
    if (!text.empty()) text += separator;
    text += word;
  }
  return text;
}
}  // namespace

std::optional<std::int32_t> ParseInteger(std::string_view text) { return Parse<std::int32_t>(text); }

TabbedFile::TabbedFile(const std::string& path, std::span<const std::string_view> columns)
    : path_(path), columns_(columns), text_(AtomicFile(path).Read()) {
  cells_.resize(columns_.size());
  CheckHeader();
}

bool TabbedFile::NextLine(std::string_view& line) {
  if (position_ >= text_.size()) return false;
  const std::size_t end = std::min(text_.find('\n', position_), text_.size());
  line = std::string_view(text_).substr(position_, end - position_);
  position_ = end + 1;
  ++line_;
  return true;
}

bool TabbedFile::NextRow() {
  std::string_view line;
  while (NextLine(line)) {
    if (line.empty() || line.front() == '#') continue;
    Split(line);
    return true;
  }
  return false;
}

void TabbedFile::CheckHeader() {
  if (NextRow() && std::ranges::equal(cells_, columns_)) return;
  throw FileError(path_, line_, "header", "expected the columns " + Joined(columns_, ", "));
}

void TabbedFile::Split(std::string_view line) {
  std::ranges::fill(cells_, std::string_view());
  for (std::size_t column = 0;; ++column) {
    if (column == columns_.size()) {
      throw FileError(path_, line_, "", "more than " + std::to_string(columns_.size()) + " cells");
    }
    const std::size_t end = line.find(kSeparator);
    cells_[column] = line.substr(0, end);
    if (end == std::string_view::npos) return;
    line.remove_prefix(end + 1);
  }
}

std::int32_t TabbedFile::Integer(std::size_t column) const {
  const auto number = ParseInteger(cells_[column]);
  if (!number) Fail(column, "not an integer");
  return *number;
}

std::int32_t TabbedFile::Integer(std::size_t column, std::int32_t ifEmpty) const {
  return cells_[column].empty() ? ifEmpty : Integer(column);
}

double TabbedFile::Number(std::size_t column) const {
  const auto number = Parse<double>(cells_[column]);
  if (!number) Fail(column, "not a number");
  return *number;
}

std::size_t TabbedFile::Choice(std::size_t column, std::span<const std::string_view> words,
                               std::size_t ifEmpty) const {
  if (cells_[column].empty() && ifEmpty < words.size()) return ifEmpty;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (EqualsIgnoringCase(cells_[column], words[i])) return i;
  }
  Fail(column, "not one of " + Joined(words, ", "));
}

void TabbedFile::Fail(std::size_t column, const std::string& reason) const {
  std::string text = reason;
  if (!cells_[column].empty()) text.append(": ").append(Printable::Quoted(cells_[column]));
  throw FileError(path_, line_, std::string(columns_[column]), std::move(text));
}
