#pragma once

#include <fstream>
#include <string>

#include "workbench/trace/Values.h"

namespace Trace {

/// Reads a trace line by line. Each line is a JSON object; a last one that was cut off is the end.
class TraceReader {
 public:
  /// Throws a FileError for a file that can not be read.
  explicit TraceReader(std::string path);

  /// The line that comes next; null at the end. Throws a FileError for a damaged one.
  const Json* Peek();
  /// Takes that line.
  Json Take();
  /// The number of the line taken last, from 1.
  int Line() const { return taken_; }
  const std::string& Path() const { return path_; }
  /// Where the recorded session had its application folder, this one has it.
  void SetApplicationFolder(std::string folder) { folder_ = std::move(folder); }

 private:
  std::string path_;
  std::string folder_;
  std::ifstream file_;
  Json next_;  // null when it has not been read
  int taken_ = 0;
};

}  // namespace Trace
