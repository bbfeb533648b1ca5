#include "workbench/files/FileLock.h"

#include <sys/file.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>

Descriptor::~Descriptor() {
  if (file_ >= 0) ::close(file_);
}

namespace FileLock {
namespace {

/// As the system's list of locks names a file: "08:01:1234", the device in hexadecimal digits.
std::string ListedName(const struct stat& file) {
  char name[64];
  std::snprintf(name, sizeof name, "%02x:%02x:%ju", major(file.st_dev), minor(file.st_dev),
                static_cast<std::uintmax_t>(file.st_ino));
  return name;
}

}  // namespace

Attempt Try(const Descriptor& file) {
  int result = 0;
  do {
    result = ::flock(file.Number(), LOCK_EX | LOCK_NB);
  } while (result != 0 && errno == EINTR);
  if (result == 0) return Attempt::Taken;
  return errno == EWOULDBLOCK ? Attempt::HeldByAnother : Attempt::NotPossible;
}

bool IsNamedBy(const Descriptor& file, const std::string& path) {
  struct stat opened {};
  struct stat named {};
  return ::fstat(file.Number(), &opened) == 0 && ::stat(path.c_str(), &named) == 0 &&
         opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

std::string HolderOf(const struct stat& file) {
  // "1: FLOCK  ADVISORY  WRITE 1234 08:01:5678 0 EOF"; behind the number of one that waits stands "->".
  const std::string wanted = ListedName(file);
  std::ifstream locks("/proc/locks");
  for (std::string line; std::getline(locks, line);) {
    std::istringstream words(line);
    std::string number, kind, advisory, access, process, place;
    words >> number >> kind >> advisory >> access >> process >> place;
    if (kind != "FLOCK" || place != wanted) continue;
    std::string name;  // none: who took the lock has gone and has left it to a child
    std::getline(std::ifstream("/proc/" + process + "/comm"), name);
    if (!name.empty()) return process.insert(0, "process ").append(" (").append(name).append(")");
  }
  return "another process";
}

}  // namespace FileLock
