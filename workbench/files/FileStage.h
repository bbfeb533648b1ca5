#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/files/AtomicFile.h"

/// Files that are written all or none. What is written to one of them stays here, where it is read again,
/// until all are published. Their locks are kept as long.
class FileStage {
 public:
  /// Writes each file beside its own, then lets all take their places. The names of those that were written.
  /// A FileError of the first half leaves all as they were; one of the second names those that are new.
  std::vector<std::string> Publish();

 private:
  friend class AtomicFile;
  struct Entry {
    std::string place;  // the same for each way to spell a path
    AtomicFile file;    // as it was found first
    std::optional<std::string> content;
  };
  /// Null for none.
  const std::string* ContentOf(const std::string& path) const;
  Entry& EntryOf(const AtomicFile& file);
  void Lock(const AtomicFile& file, std::chrono::milliseconds patience);

  std::vector<Entry> entries_;
};
