#include "tests/support/Temporary.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>

TemporaryFolder::TemporaryFolder() {
  std::string name = testing::TempDir() + "kd4410-XXXXXX";
  EXPECT_NE(::mkdtemp(name.data()), nullptr);
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::Write(std::string_view name, std::string_view content) const {
  std::ofstream file(path_ / name, std::ios::binary);
  file << content;
  EXPECT_TRUE(file.flush());
  return PathOf(name);
}
