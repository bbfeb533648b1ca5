#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// A new, empty folder that goes with this object, whatever is in it then.
class TemporaryFolder {
 public:
  TemporaryFolder() { EXPECT_NE(::mkdtemp(path_.data()), nullptr); }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string Path() const { return path_; }
  std::string PathOf(std::string_view name) const { return std::filesystem::path(path_) / name; }
  /// Writes the file and gives its path.
  std::string Write(std::string_view name, std::string_view content) const {
    std::ofstream file(PathOf(name), std::ios::binary);
    EXPECT_TRUE((file << content).flush());
    return PathOf(name);
  }

 private:
  std::string path_ = testing::TempDir() + "kd4410-" + std::string(6, 'X');  // mkdtemp replaces them
};
