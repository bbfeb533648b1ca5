#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// A new, empty folder that goes with this object, whatever is in it then.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string Path() const { return path_.string(); }
  std::string PathOf(std::string_view name) const { return (path_ / name).string(); }
  /// Writes the file and gives its path.
  std::string Write(std::string_view name, std::string_view content) const;

 private:
  std::filesystem::path path_;
};
