#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Text that is to be read, in lines no longer than `width`. A piece that is longer stands on a line of its
/// own, uncut.
namespace Paragraph {

/// So many characters fit into a line: what COLUMNS says, else the terminal on standard output, else 80.
std::size_t WidthOfTerminal();

/// Broken at its blanks, behind `indent` blanks in each line.
std::string Wrapped(std::string_view text, std::size_t width, std::size_t indent = 0);
/// Likewise of pieces that are not to be broken.
std::string Wrapped(const std::vector<std::string>& pieces, std::size_t width, std::size_t indent = 0);

struct Entry {
  std::string name, about;
};
/// A list with the names in a column of their own.
std::string List(const std::vector<Entry>& entries, std::size_t width);

}  // namespace Paragraph
