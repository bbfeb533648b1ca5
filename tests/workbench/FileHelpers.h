#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/Temporary.h"
#include "workbench/files/FileError.h"

/// Of older versions.
inline constexpr const char* kOldSamples[] = {"harbour-0029", "harbour-0054", "harbour-0081", "harbour-0089"};
inline constexpr const char* kSamples[] = {"minimal", "marine-harbour", "city-fleet", "full"};

inline std::string ContentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}
inline std::string Sample(const std::string& name) { return SAMPLES_FOLDER "/" + name + ".json"; }

/// The message of the FileError that `work` raises.
template <typename Work>
std::string RefusalOf(Work work) {
  try {
    work();
  } catch (const FileError& error) {
    return error.what();
  }
  return "no FileError";
}
