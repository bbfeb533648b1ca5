#include "workbench/files/AtomicFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <utility>

#include "workbench/files/FileError.h"
#include "workbench/files/FileLock.h"
#include "workbench/files/FileStage.h"

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

/// A lock over a network may ask for a file that is open for writing.
int OpenToLock(const std::string& path) {
  constexpr int kFlags = O_CLOEXEC | O_NONBLOCK;
  const int file = ::open(path.c_str(), O_RDWR | kFlags);
  return file >= 0 ? file : ::open(path.c_str(), O_RDONLY | kFlags);
}

std::string SidePath(const std::string& path) {
  const auto slash = path.rfind('/');
  const auto start = slash == std::string::npos ? 0 : slash + 1;
  return path.substr(0, start) + "." + path.substr(start) + ".saving";
}

}  // namespace

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
        file_(std::make_shared<Descriptor>(
            ::open(path_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666))) {
    if (!file_->IsOpen()) target_.Fail("write of the file beside it");
    // Another save may have renamed the file between our opening and locking it: it is the target now.
    if (FileLock::Try(*file_) == FileLock::Attempt::HeldByAnother || !FileLock::IsNamedBy(*file_, path_)) {
      struct stat status {};
      ::fstat(file_->Number(), &status);
      throw BusyFile(target_.name_, FileLock::HolderOf(status));
    }
  }
  SideFile(const SideFile&) = delete;
  SideFile& operator=(const SideFile&) = delete;
  ~SideFile() {
    if (!isRenamed_) ::unlink(path_.c_str());
  }

  void Write(std::string_view content) {
    if (::ftruncate(file_->Number(), 0) != 0) target_.Fail("write");
    if (target_.found_) KeepOwnerAndMode(*target_.found_);
    while (!content.empty()) {
      const ssize_t written = target_.layer_->Write(file_->Number(), content.data(), content.size());
      if (written < 0 && errno == EINTR) continue;
      if (written == 0) errno = ENOSPC;
      if (written <= 0) target_.Fail("write");
      content.remove_prefix(static_cast<std::size_t>(written));
    }
    if (target_.layer_->Sync(file_->Number()) != 0) target_.Fail("sync");
  }

  void Rename() {
    target_.RefuseIfChanged();
    if (target_.layer_->Rename(path_.c_str(), target_.path_.c_str()) != 0) target_.Fail("rename");
    isRenamed_ = true;
  }

  /// What is open; its lock is that of the target once it has been renamed.
  const std::shared_ptr<Descriptor>& File() const { return file_; }

 private:
  void KeepOwnerAndMode(const Identity& old) const {
    // Only a privileged user can give a file away; for any other the file becomes the user's own.
    if (::fchown(file_->Number(), old.owner, old.group) != 0) errno = 0;
    if (::fchmod(file_->Number(), old.mode & 07777U) != 0) target_.Fail("access mode");
  }

  const AtomicFile& target_;
  std::string path_;
  std::shared_ptr<Descriptor> file_;
  bool isRenamed_ = false;
};

AtomicFile::AtomicFile(const std::string& path, FileLayer& layer, FileStage* stage)
    : name_(IsStandardInput(path) ? "standard input" : path),
      path_(IsStandardInput(path) ? path : Resolved(path)),
      layer_(&layer),
      stage_(stage),
      found_(Look()) {}

AtomicFile AtomicFile::Unstaged() const {
  AtomicFile file = *this;
  file.stage_ = nullptr;
  return file;
}

bool AtomicFile::Exists() const {
  return found_.has_value() || (stage_ != nullptr && stage_->ContentOf(path_) != nullptr);
}

AtomicFile::Identity AtomicFile::IdentityOf(const struct stat& status) {
  return {status.st_dev,  status.st_ino, status.st_size, status.st_mtim,
          status.st_mode, status.st_uid, status.st_gid};
}

std::optional<AtomicFile::Identity> AtomicFile::Look() const {
  struct stat status {};
  if (IsStandardInput(path_)) return {};
  if (::stat(path_.c_str(), &status) == 0) return IdentityOf(status);
  if (errno != ENOENT) Fail("read");
  return {};
}

std::string AtomicFile::ReadStandardInput() {
  static bool isRead = false;
  if (std::exchange(isRead, true)) throw FileError(name_, 0, "read", "it can be read once only");
  std::string content;
  char part[65536];
  while (true) {
    const ssize_t got = ::read(STDIN_FILENO, part, sizeof part);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) Fail("read");
    if (got == 0) return content;
    content.append(part, static_cast<std::size_t>(got));
    if (content.size() > kLargestSize) RefuseSize("more than " + std::to_string(kLargestSize));
  }
}

std::string AtomicFile::Read() {
  if (IsStandardInput(path_)) return ReadStandardInput();
  if (const std::string* staged = stage_ == nullptr ? nullptr : stage_->ContentOf(path_)) return *staged;
  // Not to wait for the writer of a pipe: it is refused below.
  const Descriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0) Fail("read");
  if (S_ISDIR(status.st_mode)) throw FileError(name_, 0, "read", std::strerror(EISDIR));
  if (!S_ISREG(status.st_mode)) throw FileError(name_, 0, "read", "not a regular file");
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size > kLargestSize) RefuseSize(std::to_string(size));
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

void AtomicFile::RefuseSize(const std::string& bytes) const {
  throw FileError(
      name_, 0, "read",
      "too large for a personality: " + bytes + " bytes, at most " + std::to_string(kLargestSize));
}

void AtomicFile::Lock(std::chrono::milliseconds patience) {
  if (stage_ != nullptr) {
    stage_->Lock(*this, patience);
    found_ = Look();
    return;
  }
  constexpr std::chrono::milliseconds kPause(20);
  const auto end = std::chrono::steady_clock::now() + patience;
  for (; found_ && S_ISREG(found_->mode); found_ = Look()) {
    const auto file = std::make_shared<Descriptor>(OpenToLock(path_));
    if (!file->IsOpen() && errno == ENOENT) continue;
    if (!file->IsOpen()) Fail("read");
    const FileLock::Attempt attempt = FileLock::Try(*file);
    if (attempt == FileLock::Attempt::NotPossible) return;
    if (attempt == FileLock::Attempt::Taken) {
      // A save may have put another file in the place of the one that was waited for.
      if (!FileLock::IsNamedBy(*file, path_)) continue;
      lock_ = file;
      found_ = Look();
      return;
    }
    if (std::chrono::steady_clock::now() >= end) {
      struct stat status {};
      ::fstat(file->Number(), &status);
      throw BusyFile(name_, FileLock::HolderOf(status));
    }
    std::this_thread::sleep_for(kPause);
  }
}

void AtomicFile::RequireRegular() const {
  if (found_ && !S_ISREG(found_->mode)) throw FileError(name_, 0, "write", "not a regular file");
}

void AtomicFile::RequireWritable() const {
  if (IsStandardInput(path_)) throw FileError(name_, 0, "write", "it can only be read: name a file");
  RequireRegular();
  // A rename would replace a write-protected file all the same.
  if (found_ && ::access(path_.c_str(), W_OK) != 0 && errno != ENOENT) Fail("write");
}

void AtomicFile::Write(std::string_view content) {
  RequireWritable();
  if (stage_ != nullptr) {
    stage_->EntryOf(*this).content = content;
    return;
  }
  Replace(*WriteBeside(content));
}

std::shared_ptr<AtomicFile::SideFile> AtomicFile::WriteBeside(std::string_view content) const {
  auto side = std::make_shared<SideFile>(*this);
  side->Write(content);
  return side;
}

void AtomicFile::Replace(SideFile& side) {
  side.Rename();
  if (lock_ != nullptr) lock_ = side.File();
  found_ = Look();
  const Descriptor folder(::open(FolderOf(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen() || layer_->Sync(folder.Number()) != 0) {
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
