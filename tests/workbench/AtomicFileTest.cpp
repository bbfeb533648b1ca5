#include "workbench/AtomicFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "support/Temporary.h"
#include "workbench/FileError.h"

namespace {

using testing::HasSubstr;

/// Writes at most 3 bytes a call, and fails the n-th call of all with the error told.
class FailingLayer final : public FileLayer {
 public:
  FailingLayer(int failingCall, int error) : failingCall_(failingCall), error_(error) {}

  ssize_t Write(int file, const void* data, std::size_t size) override {
    return Fails() ? -1 : FileLayer::Write(file, data, std::min<std::size_t>(size, 3));
  }
  int Sync(int file) override { return Fails() ? -1 : FileLayer::Sync(file); }
  int Rename(const char* from, const char* to) override { return Fails() ? -1 : FileLayer::Rename(from, to); }

 private:
  bool Fails() {
    errno = error_;
    return ++calls_ == failingCall_;
  }

  int calls_ = 0;
  int failingCall_;
  int error_;
};

std::string ContentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::size_t FilesIn(const TemporaryFolder& folder) {
  return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
}

std::string MessageOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const FileError& error) {
    return error.what();
  }
  return "no FileError";
}

TEST(AtomicFile, AFailureOfAnyStepLeavesTheOldContentAndNothingBesideIt) {
  const struct {
    int call;
    int error;
    const char* step;
  } cases[] = {
      {1, EIO, "write"}, {2, ENOSPC, "write"}, {4, ENOSPC, "write"}, {5, EIO, "sync"}, {6, EACCES, "rename"}};
  for (const auto& failing : cases) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("p.json", "old");
    FailingLayer layer(failing.call, failing.error);
    AtomicFile file(path, layer);
    file.Read();
    const std::string message = MessageOf([&] { file.Write("new content"); });
    EXPECT_THAT(message, HasSubstr(path + ": " + failing.step + ": " + std::strerror(failing.error)));
    EXPECT_EQ(ContentOf(path), "old") << message;
    EXPECT_EQ(FilesIn(folder), 1U) << message;
    file.Write("new content");  // the next save is not hindered
    EXPECT_EQ(ContentOf(path), "new content");
  }
}

TEST(AtomicFile, AFailedSyncOfTheFolderIsToldThoughTheContentIsNew) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("p.json", "old");
  FailingLayer layer(7, EIO);
  AtomicFile file(path, layer);
  EXPECT_THAT(MessageOf([&] { file.Write("new content"); }), HasSubstr("sync of the folder"));
  EXPECT_EQ(ContentOf(path), "new content");
}

TEST(AtomicFile, KeepsTheAccessModeAndFollowsALink) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("p.json", "old");
  ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
  const std::string link = folder.PathOf("link.json");
  std::filesystem::create_symlink("p.json", link);
  AtomicFile(link).Write("new");
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST(AtomicFile, RefusesToSaveOverWhatSomeoneElseDid) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("p.json", "old");
  AtomicFile file(path);
  file.Read();
  folder.Write("p.json", "theirs");
  EXPECT_THAT(MessageOf([&] { file.Write("ours"); }), HasSubstr("changed by someone else since it was read"));
  EXPECT_EQ(ContentOf(path), "theirs");

  AtomicFile again(path);
  std::filesystem::remove(path);
  EXPECT_THAT(MessageOf([&] { again.Write("ours"); }), HasSubstr("removed by someone else"));

  AtomicFile fresh(path);
  folder.Write("p.json", "theirs");
  EXPECT_THAT(MessageOf([&] { fresh.Write("ours"); }), HasSubstr("created by someone else"));
  EXPECT_EQ(FilesIn(folder), 1U);
}

TEST(AtomicFile, RefusesASecondSaveWhileOneIsUnderWay) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("p.json", "old");
  const std::string side = folder.Write(".p.json.saving", "of a killed save");
  const int other = ::open(side.c_str(), O_WRONLY);
  ASSERT_EQ(::flock(other, LOCK_EX), 0);
  AtomicFile file(path);
  EXPECT_THAT(MessageOf([&] { file.Write("ours"); }), HasSubstr("another program is saving"));
  EXPECT_EQ(ContentOf(side), "of a killed save");
  ::close(other);
  file.Write("ours");  // what a killed save left is no obstacle
  EXPECT_EQ(ContentOf(path), "ours");
  EXPECT_EQ(FilesIn(folder), 1U);
}

TEST(AtomicFile, TellsWhyAFileCanNotBeRead) {
  const TemporaryFolder folder;
  const std::string huge = folder.Write("huge.json", "");
  std::filesystem::resize_file(huge, 100U << 20);
  std::filesystem::create_symlink("nowhere", folder.PathOf("dangling"));
  ASSERT_EQ(::mkfifo(folder.PathOf("pipe").c_str(), 0600), 0);
  const std::pair<std::string, std::string> cases[] = {
      {folder.PathOf("missing"), "No such file or directory"},
      {folder.Path(), "Is a directory"},
      {huge, "104857600 bytes, at most 16777216"},
      {folder.PathOf("dangling"), "leads nowhere"},
      {folder.PathOf("pipe"), "not a regular file"},
  };
  for (const auto& [path, reason] : cases) {
    const std::string message = MessageOf([&name = path] { AtomicFile(name).Read(); });
    EXPECT_THAT(message, testing::AllOf(HasSubstr(path), HasSubstr(reason)));
  }
}

}  // namespace
