#include "workbench/cli/Paragraph.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <utility>

#include "platform/CaseText.h"
#include "workbench/files/TabbedFile.h"

namespace {

constexpr std::size_t kIndent = 2, kGap = 2;  // of the entries of a list, and behind their names

std::vector<std::string> PiecesOf(std::string_view text) {
  std::istringstream words{std::string(text)};
  std::vector<std::string> pieces;
  for (std::string word; words >> word;) pieces.push_back(word);
  return pieces;
}

/// Behind `line`, which has its indent already; later lines have `indent` blanks.
std::string WrappedBehind(std::string line, const std::vector<std::string>& pieces, std::size_t width,
                          std::size_t indent) {
  std::string text;
  bool isBegun = false;
  for (const std::string& piece : pieces) {
    if (isBegun && CharacterCount(line) + 1 + CharacterCount(piece) > width) {
      text += std::exchange(line, std::string(indent, ' ')) + '\n';
      isBegun = false;
    }
    if (isBegun) line += ' ';
    line += piece;
    isBegun = true;
  }
  return text + line + '\n';
}

}  // namespace

namespace Paragraph {

std::size_t WidthOfTerminal() {
  constexpr std::int32_t kUsual = 80, kLeast = 20;
  const char* columns = std::getenv("COLUMNS");
  const std::optional<std::int32_t> given = columns == nullptr ? std::nullopt : ParseInteger(columns);
  if (given && *given > 0) return static_cast<std::size_t>(std::max(*given, kLeast));
  winsize size{};
  const bool isTold = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return static_cast<std::size_t>(isTold ? std::max<std::int32_t>(size.ws_col, kLeast) : kUsual);
}

std::string Wrapped(std::string_view text, std::size_t width, std::size_t indent) {
  return Wrapped(PiecesOf(text), width, indent);
}

std::string Wrapped(const std::vector<std::string>& pieces, std::size_t width, std::size_t indent) {
  return WrappedBehind(std::string(indent, ' '), pieces, width, indent);
}

std::string List(const std::vector<Entry>& entries, std::size_t width) {
  std::size_t column = 0;
  for (const Entry& entry : entries) {
    const std::size_t end = kIndent + CharacterCount(entry.name) + kGap;
    if (end <= width / 3) column = std::max(column, end);  // a longer name has a line of its own
  }
  if (column == 0) column = 2 * kIndent;
  std::string text;
  for (const Entry& entry : entries) {
    std::string line = std::string(kIndent, ' ') + entry.name;
    if (CharacterCount(line) + kGap > column) text += std::exchange(line, {}) + '\n';
    line.append(column - CharacterCount(line), ' ');
    text += WrappedBehind(std::move(line), PiecesOf(entry.about), width, column);
  }
  return text;
}

}  // namespace Paragraph
