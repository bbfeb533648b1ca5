#pragma once

#include <sys/stat.h>

#include <string>

/// A file that is open as long as this object lives.
class Descriptor {
 public:
  explicit Descriptor(int file) : file_(file) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor();
  bool IsOpen() const { return file_ >= 0; }
  int Number() const { return file_; }

 private:
  int file_;
};

/// Locks between processes. A lock belongs to what is open, not to a name, and goes with it, also when its
/// process is killed.
namespace FileLock {

enum class Attempt { Taken, HeldByAnother, NotPossible };
/// Does not wait. Not possible: the file system has no locks.
Attempt Try(const Descriptor& file);

/// Whether the path still names the file that is open: a save puts another one in its place.
bool IsNamedBy(const Descriptor& file, const std::string& path);

/// Who holds the lock of the file: "process 1234 (kd4410)", "another process" where the system does not tell.
std::string HolderOf(const struct stat& file);

}  // namespace FileLock
