#include "common/DataFile.h"

#include <cmath>
#include <fstream>
#include <limits>

#include "common/modCommonGlobals.h"
#include "platform/CaseText.h"
#include "platform/DecimalText.h"
#include "platform/Error.h"

namespace {
constexpr std::string_view kScrambledMark = "PCA Set";

std::vector<std::string> CutAtTabs(std::string_view line) {
  std::vector<std::string> pieces;
  for (;;) {
    const std::size_t tab = line.find('\t');
    std::string_view piece = line.substr(0, tab);
    if (piece.starts_with('"'))
      piece = piece.size() < 2 ? std::string_view() : piece.substr(1, piece.size() - 2);
    pieces.emplace_back(piece);
    if (tab == std::string_view::npos) return pieces;
    line.remove_prefix(tab + 1);
  }
}

std::string Plain(const std::string& line, bool isScrambled) {
  return isScrambled ? modCommonGlobals::DecryptString(line) : line;
}

bool ReadLine(std::istream& file, std::string& line) {
  if (!std::getline(file, line)) return false;
  if (line.ends_with('\r')) line.pop_back();
  return true;
}
}  // namespace

DataFile::DataFile(std::string path, std::istream&& file) : path_(std::move(path)) {
  std::string line;
  if (!file || !ReadLine(file, line)) {
    throw Error(ErrorNumber::kFileNotFound, "DataFile", path_ + ": the file can not be read or is empty");
  }
  int lineNumber = 1;
  const bool isScrambled = line == kScrambledMark;
  if (isScrambled) {
    if (!ReadLine(file, line)) {
      throw Error(ErrorNumber::kFileNotFound, "DataFile", path_ + ":2: the header line is missing");
    }
    ++lineNumber;
  }
  for (const std::string& name : CutAtTabs(Plain(line, isScrambled))) columns_.push_back(UpperCase(name));
  ReadRows(file, lineNumber, isScrambled);
}

DataFile::DataFile(const std::string& path) : DataFile(path, std::ifstream(path, std::ios::binary)) {}

void DataFile::ReadRows(std::istream& file, int lineNumber, bool isScrambled) {
  for (std::string line; ReadLine(file, line);) {
    ++lineNumber;
    if (line.empty()) continue;
    Row row{lineNumber, CutAtTabs(Plain(line, isScrambled))};
    for (; row.pieces.size() > columns_.size(); row.pieces.pop_back()) {
      if (!row.pieces.back().empty()) Raise(ErrorNumber::kSubscript, row, "a value beyond the last column");
    }
    rows_.push_back(std::move(row));
  }
  if (!file.bad()) return;
  throw Error(ErrorNumber::kFileNotFound, "DataFile",
              path_ + ":" + std::to_string(lineNumber + 1) + ": the file can not be read to its end");
}

std::int32_t DataFile::Long(const Row& row, std::size_t column) const {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(Whole(row, column, Limits::min(), Limits::max()));
}

std::int16_t DataFile::Integer(const Row& row, std::size_t column) const {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(Whole(row, column, Limits::min(), Limits::max()));
}

bool DataFile::Flag(const Row& row, std::size_t column) const {
  const std::string& text = row.pieces[column];
  if (EqualsIgnoringCase(text, "True")) return true;
  if (EqualsIgnoringCase(text, "False")) return false;
  return Number(row, column) != 0;
}

double DataFile::Number(const Row& row, std::size_t column) const {
  const auto number = ParseNumber(row.pieces[column]);
  if (number) return *number;
  Raise(ErrorNumber::kTypeMismatch, row, column,
        "\"" + row.pieces[column] + "\" is not of the column's type");
}

double DataFile::Whole(const Row& row, std::size_t column, double lowest, double highest) const {
  const double whole = std::nearbyint(Number(row, column));
  if (whole >= lowest && whole <= highest) return whole;
  Raise(ErrorNumber::kOverflow, row, column, row.pieces[column] + " is out of range");
}

void DataFile::Raise(std::int32_t number, const Row& row, std::string_view reason) const {
  throw Error(number, "DataFile", path_ + ":" + std::to_string(row.line) + ": " + std::string(reason));
}

void DataFile::Raise(std::int32_t number, const Row& row, std::size_t column, std::string_view reason) const {
  Raise(number, row, columns_[column] + ": " + std::string(reason));
}
