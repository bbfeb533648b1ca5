#pragma once

#include <stdexcept>
#include <string>
#include <utility>

/// Input of the workbench that can not be used: which file, which line of it (0 for none), where in it
/// (a column, a JSON path, a step; empty for none) and why.
class FileError : public std::runtime_error {
 public:
  FileError(std::string file, int line, std::string where, std::string reason)
      : std::runtime_error(Text(file, line, where, reason)),
        file_(std::move(file)),
        line_(line),
        where_(std::move(where)),
        reason_(std::move(reason)) {}

  const std::string& File() const { return file_; }
  int Line() const { return line_; }
  const std::string& Where() const { return where_; }
  const std::string& Reason() const { return reason_; }

 protected:
  /// A message that stands for itself.
  FileError(const std::string& message, std::string file)
      : std::runtime_error(message), file_(std::move(file)), line_(0), reason_(message) {}

 private:
  /// "FILE:LINE: WHERE: REASON" without what is missing.
  static std::string Text(const std::string& file, int line, const std::string& where,
                          const std::string& reason);

  std::string file_;
  int line_;
  std::string where_;
  std::string reason_;
};

/// A file that another process is saving.
class BusyFile : public FileError {
 public:
  /// `holder` as FileLock tells it.
  BusyFile(const std::string& file, const std::string& holder)
      : FileError(file + " is in use by " + holder, file) {}
};
