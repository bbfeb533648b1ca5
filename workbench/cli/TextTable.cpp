#include "workbench/cli/TextTable.h"

#include <algorithm>
#include <ostream>

#include "platform/CaseText.h"
#include "workbench/files/Printable.h"

void TextTable::Add(std::vector<std::string> cells) {
  for (std::string& cell : cells) cell = Printable::Text(cell);
  rows_.push_back(std::move(cells));
}

void TextTable::Print(std::ostream& out, std::size_t indent) const {
  std::vector<std::string> headings;
  std::vector<std::size_t> widths;
  for (const Column& column : columns_) {
    headings.push_back(column.heading);
    widths.push_back(CharacterCount(column.heading));
  }
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], CharacterCount(row[i]));
  }
  const auto print = [&](const std::vector<std::string>& row) {
    std::string line(indent, ' ');
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string padding(widths[i] - CharacterCount(row[i]), ' ');
      line += i > 0 ? "  " : "";
      line += columns_[i].align == Align::Right ? padding + row[i] : row[i] + padding;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  };
  const bool hasHeading = !std::ranges::all_of(headings, &std::string::empty);
  if (hasHeading) print(headings);
  for (const auto& row : rows_) print(row);
}
