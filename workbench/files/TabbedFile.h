#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The text as one decimal integer of 32 bits, nothing before or behind it.
std::optional<std::int32_t> ParseInteger(std::string_view text);

/// A text file of rows whose cells a tab separates: a header line that names the columns, then a row a
/// line. Lines that start with '#' and empty lines say nothing. Cells missing at the end of a row are
/// empty. Whatever is not so throws a FileError with line and column.
class TabbedFile {
 public:
  /// Reads the file, which must have exactly these columns.
  TabbedFile(const std::string& path, std::span<const std::string_view> columns);

  /// Goes to the next row; false after the last.
  bool NextRow();
  int Line() const { return line_; }
  /// A view of the file's text, valid as long as this object.
  std::string_view Cell(std::size_t column) const { return cells_[column]; }
  std::int32_t Integer(std::size_t column) const;
  /// As Integer, for a cell that may be empty.
  std::int32_t Integer(std::size_t column, std::int32_t ifEmpty) const;
  double Number(std::size_t column) const;
  /// The place of the cell's word in `words`, ignoring case; `ifEmpty` for an empty cell.
  std::size_t Choice(std::size_t column, std::span<const std::string_view> words, std::size_t ifEmpty) const;
  [[noreturn]] void Fail(std::size_t column, const std::string& reason) const;

 private:
  void CheckHeader();
  bool NextLine(std::string_view& line);
  void Split(std::string_view line);

  std::string path_;
  std::span<const std::string_view> columns_;
  std::string text_;
  std::size_t position_ = 0;
  int line_ = 0;
  std::vector<std::string_view> cells_;
};
