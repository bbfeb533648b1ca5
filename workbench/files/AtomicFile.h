#pragma once

#include <sys/stat.h>

#include <chrono>
#include <cstddef>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// The system calls of a save, each answering as the call of its name does: -1 and errno for a failure.
/// A test puts its own in their place and has any of them fail.
class FileLayer {
 public:
  virtual ~FileLayer() = default;
  virtual ssize_t Write(int file, const void* data, std::size_t size);
  virtual int Sync(int file);
  virtual int Rename(const char* from, const char* to);

  static FileLayer& OfSystem();
};

class Descriptor;
class FileStage;

/// A file that is replaced as a whole or not at all: its content is written to a file beside it
/// (".NAME.saving"), synced and renamed. A reader sees the old content or the new, a crash leaves one of
/// them. Every failure is a FileError that names file, step and reason, and leaves the file as it was.
/// "-" stands for standard input, which can be read once.
class AtomicFile {
 public:
  static constexpr std::size_t kLargestSize = 16U << 20;

  /// A symbolic link stands for the file that it points to. With a stage, which outlives this object, a save
  /// goes there.
  explicit AtomicFile(const std::string& path, FileLayer& layer = FileLayer::OfSystem(),
                      FileStage* stage = nullptr);

  /// As given on construction; "standard input" for "-".
  const std::string& Name() const { return name_; }
  /// The word that stands for it on a command line.
  const std::string& Word() const { return IsStandardInput(path_) ? path_ : name_; }
  static bool IsStandardInput(std::string_view path) { return path == "-"; }
  bool Exists() const;
  std::string Read();
  /// Keeps the file from other processes that lock it, over saves of this object too, as long as it lives.
  /// A BusyFile when another one holds it longer than `patience`. A file that is still to come has no lock,
  /// nor has one where the file system knows none: of two saves at once the second is refused there.
  void Lock(std::chrono::milliseconds patience);
  bool IsLocked() const { return lock_ != nullptr; }
  /// Refuses to write over what is no regular file: a rename would replace it all the same.
  void RequireRegular() const;
  /// Refuses when the file is no longer the one that was found on construction or last read or written.
  void Write(std::string_view content);

 private:
  /// What tells one content of a file from another without reading it.
  struct Identity {
    dev_t device;
    ino_t inode;
    off_t size;
    timespec modified;
    mode_t mode;
    uid_t owner;
    gid_t group;

    bool SameContentAs(const Identity& other) const;
  };
  class SideFile;
  friend class FileStage;

  static Identity IdentityOf(const struct stat& status);
  std::optional<Identity> Look() const;
  void RefuseIfChanged() const;
  void RequireWritable() const;
  AtomicFile Unstaged() const;
  std::string ReadStandardInput();
  [[noreturn]] void RefuseSize(const std::string& bytes) const;

  // The halves of a save.

  std::shared_ptr<SideFile> WriteBeside(std::string_view content) const;
  void Replace(SideFile& side);

  /// The failure of a system call, told by errno.
  [[noreturn]] void Fail(const std::string& step) const;

  std::string name_;
  std::string path_;
  FileLayer* layer_;
  FileStage* stage_;
  std::optional<Identity> found_;
  std::shared_ptr<Descriptor> lock_;
};
