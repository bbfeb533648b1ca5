#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/// A table for a terminal: columns as wide as their widest cell, two blanks between them.
class TextTable {
 public:
  enum class Align { Left, Right };
  struct Column {
    std::string heading;
    Align align = Align::Left;
  };

  explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}
  /// Each is shown on one line, as a terminal may get it.
  void Add(std::vector<std::string> cells);
  /// `indent` blanks before each line. A table whose headings are all empty has no heading line.
  void Print(std::ostream& out, std::size_t indent = 0) const;

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};
