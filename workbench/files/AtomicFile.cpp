#include "workbench/files/AtomicFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "workbench/files/FileError.h"

ssize_t FileLayer::Write(int file, const void* data, std::size_t size) { return ::write(file, data, size); }
int FileLayer::Sync(int file) { return ::fsync(file); }
int FileLayer::Rename(const char* from, const char* to) { return ::rename(from, to); }

FileLayer& FileLayer::OfSystem() {
  static FileLayer layer;
  return layer;
}

namespace {

std::string Reason() { return std::strerror(errno); }

/// The file behind a symbolic link; the path itself for any other and for a file that is still to come.
std::string Resolved(const std::string& path) {
  const std::unique_ptr<char, decltype(&::free)> real(::realpath(path.c_str(), nullptr), &::free);
  if (real != nullptr) return real.get();
  struct stat link {};
  if (::lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode)) {
    throw FileError(path, 0, "read", "a symbolic link that leads nowhere: " + Reason());
  }
  return path;
}

std::string FolderOf(const std::string& path) {
  const auto slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string SidePath(const std::string& path) {
  const auto slash = path.rfind('/');
  const auto start = slash == std::string::npos ? 0 : slash + 1;
  return path.substr(0, start) + "." + path.substr(start) + ".saving";
}

}  // namespace

class AtomicFile::Descriptor {
 public:
  explicit Descriptor(int file) : file_(file) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (file_ >= 0) ::close(file_);
  }
  bool IsOpen() const { return file_ >= 0; }
  int Number() const { return file_; }

 private:
  int file_;
};

bool AtomicFile::Identity::SameContentAs(const Identity& other) const {
  return device == other.device && inode == other.inode && size == other.size &&
         modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
}

/// The file beside the target. It is locked while it is written, so that of two saves at once the second
/// is refused, and a lock that a killed save has left behind is none. Removed unless it was renamed.
class AtomicFile::SideFile {
 public:
  explicit SideFile(const AtomicFile& target)
      : target_(target),
        path_(SidePath(target.path_)),
        file_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666)) {
    if (!file_.IsOpen()) target_.Fail("write of the file beside it");
    Lock();
    if (::ftruncate(file_.Number(), 0) != 0) FailAndRemove("write");
    if (target_.found_) KeepOwnerAndMode(*target_.found_);
  }

  void Write(std::string_view content) {
    while (!content.empty()) {
      const ssize_t written = target_.layer_.Write(file_.Number(), content.data(), content.size());
      if (written < 0 && errno == EINTR) continue;
      if (written == 0) errno = ENOSPC;
      if (written <= 0) FailAndRemove("write");
      content.remove_prefix(static_cast<std::size_t>(written));
    }
    if (target_.layer_.Sync(file_.Number()) != 0) FailAndRemove("sync");
  }

  void Rename() {
    try {
      target_.RefuseIfChanged();
    } catch (const FileError&) {
      Remove();
      throw;
    }
    if (target_.layer_.Rename(path_.c_str(), target_.path_.c_str()) != 0) FailAndRemove("rename");
  }

 private:
  void Lock() const {
    struct stat opened {};
    struct stat named {};
    const bool locked = ::flock(file_.Number(), LOCK_EX | LOCK_NB) == 0;
    // Another save may have renamed the file between our opening and locking it: it is the target now.
    const bool ours = locked && ::fstat(file_.Number(), &opened) == 0 &&
                      ::lstat(path_.c_str(), &named) == 0 && opened.st_ino == named.st_ino;
    if (!ours) throw FileError(target_.name_, 0, "write", "another program is saving this file");
  }

  void KeepOwnerAndMode(const Identity& old) const {
    // Only a privileged user can give a file away; for any other the file becomes the user's own.
    if (::fchown(file_.Number(), old.owner, old.group) != 0) errno = 0;
    if (::fchmod(file_.Number(), old.mode & 07777U) != 0) FailAndRemove("access mode");
  }

  void Remove() const { ::unlink(path_.c_str()); }

  [[noreturn]] void FailAndRemove(const std::string& step) const {
    const int reason = errno;
    Remove();
    errno = reason;
    target_.Fail(step);
  }

  const AtomicFile& target_;
  std::string path_;
  Descriptor file_;
};

AtomicFile::AtomicFile(const std::string& path, FileLayer& layer)
    : name_(path), path_(Resolved(path)), layer_(layer), found_(Look()) {}

AtomicFile::Identity AtomicFile::IdentityOf(const struct stat& status) {
  return {status.st_dev,  status.st_ino, status.st_size, status.st_mtim,
          status.st_mode, status.st_uid, status.st_gid};
}

std::optional<AtomicFile::Identity> AtomicFile::Look() const {
  struct stat status {};
  if (::stat(path_.c_str(), &status) == 0) return IdentityOf(status);
  if (errno != ENOENT) Fail("read");
  return {};
}

std::string AtomicFile::Read() {
  // Not to wait for the writer of a pipe: it is refused below.
  const Descriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) Fail("read");
  if (S_ISDIR(status.st_mode)) throw FileError(name_, 0, "read", std::strerror(EISDIR));
  if (!S_ISREG(status.st_mode)) throw FileError(name_, 0, "read", "not a regular file");
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size > kLargestSize) {
    throw FileError(name_, 0, "read",
                    "too large for a personality: " + std::to_string(size) + " bytes, at most " +
                        std::to_string(kLargestSize));
  }
  std::string content(size, '\0');
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t got = ::read(file.Number(), content.data() + filled, size - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) Fail("read");
    if (got == 0) throw FileError(name_, 0, "read", "it became shorter meanwhile");
    filled += static_cast<std::size_t>(got);
  }
  found_ = IdentityOf(status);
  return content;
}

void AtomicFile::RequireRegular() const {
  if (found_ && !S_ISREG(found_->mode)) throw FileError(name_, 0, "write", "not a regular file");
}

void AtomicFile::Write(std::string_view content) {
  RequireRegular();
  // A rename would replace a write-protected file all the same.
  if (found_ && ::access(path_.c_str(), W_OK) != 0 && errno != ENOENT) Fail("write");
  {
    SideFile side(*this);
    side.Write(content);
    side.Rename();
  }
  found_ = Look();
  const Descriptor folder(::open(FolderOf(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen() || layer_.Sync(folder.Number()) != 0) {
    throw FileError(name_, 0, "sync of the folder", Reason() + "; the file has its new content");
  }
}

void AtomicFile::RefuseIfChanged() const {
  const std::optional<Identity> now = Look();
  if (!now && !found_) return;
  const char* change = !now ? "removed" : !found_ ? "created" : "changed";
  if (now && found_ && now->SameContentAs(*found_)) return;
  throw FileError(name_, 0, "write", std::string(change) + " by someone else since it was read");
}

void AtomicFile::Fail(const std::string& step) const {
  throw FileError(name_, 0, step, std::strerror(errno));
}
