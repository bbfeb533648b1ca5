#include "platform/System.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace {
std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::filesystem::path RegistrationFolder() {
  if (const auto chosen = Environment("KD4410_REGISTRATION_DIR"); !chosen.empty()) return chosen;
  if (const auto data = Environment("XDG_DATA_HOME"); !data.empty())
    return std::filesystem::path(data) / "kd4410";
  if (const auto home = Environment("HOME"); !home.empty()) {
    return std::filesystem::path(home) / ".local/share/kd4410";
  }
  return {};
}
}  // namespace

namespace System {
std::int32_t ShowMessageBox(std::string_view text, std::int32_t, std::string_view title) {
  constexpr std::int32_t kOk = 1;
  std::cerr << title << ": " << text << std::endl;
  return kOk;
}

std::string LibraryPath() {
  static const char here = 0;  // an address inside this library
  Dl_info info{};
  if (dladdr(&here, &info) == 0 || info.dli_fname == nullptr) return {};
  std::error_code problem;
  const auto path = std::filesystem::weakly_canonical(info.dli_fname, problem);
  return problem ? info.dli_fname : path.string();
}

std::string LibraryFolder() { return std::filesystem::path(LibraryPath()).parent_path().string(); }

std::string RegistrationFile() {
  const auto folder = RegistrationFolder();
  return folder.empty() ? "" : (folder / "kd4410tier.registration").string();
}

std::string PathIn(std::string_view folder, std::string_view name) {
  return (std::filesystem::path(folder) / name).string();
}
}  // namespace System
