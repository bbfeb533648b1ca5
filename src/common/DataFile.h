#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

/// A data file of the tier: text, one record a line, columns separated by tabs, the first line naming
/// them. A file whose first line is "PCA Set" is scrambled from its second line on. A piece that begins
/// with a double quote loses its first and last character; an entirely empty line is no record.
class DataFile {
 public:
  struct Row {
    int line;                         ///< in the file, from 1
    std::vector<std::string> pieces;  ///< no more than there are columns; "" takes the default
  };

  /// Raises 53 for a file that can not be read to its end, 9 for a piece beyond the header.
  explicit DataFile(const std::string& path);
  /// What an open file holds; `path` names it in errors.
  DataFile(std::string path, std::istream&& file);

  const std::vector<std::string>& Columns() const { return columns_; }  ///< in upper case
  const std::vector<Row>& Rows() const { return rows_; }

  /// The piece as a number, halves to the even neighbour. Raises 13 or 6, naming file, line and column.
  std::int32_t Long(const Row& row, std::size_t column) const;
  std::int16_t Integer(const Row& row, std::size_t column) const;
  /// "True" or "False" in any case, or a number.
  bool Flag(const Row& row, std::size_t column) const;

  /// Raises an error that names the place: file, line, and column where one is meant.
  [[noreturn]] void Raise(std::int32_t number, const Row& row, std::string_view reason) const;
  [[noreturn]] void Raise(std::int32_t number, const Row& row, std::size_t column,
                          std::string_view reason) const;

 private:
  void ReadRows(std::istream& file, int lineNumber, bool isScrambled);
  double Number(const Row& row, std::size_t column) const;
  double Whole(const Row& row, std::size_t column, double lowest, double highest) const;

  std::string path_;
  std::vector<std::string> columns_;
  std::vector<Row> rows_;
};
