#include "workbench/AtomicFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "tests/workbench/FileHelpers.h"

namespace {
using testing::HasSubstr;

/// Writes at most 3 bytes a call, and fails the n-th call of all with the error told.
class FailingLayer final : public FileLayer {
 public:
  FailingLayer(int failingCall, int error) : untilFailure_(failingCall), error_(error) {}

  ssize_t Write(int file, const void* data, std::size_t size) override {
    return Fails() ? -1 : FileLayer::Write(file, data, std::min<std::size_t>(size, 3));
  }
  int Sync(int file) override { return Fails() ? -1 : FileLayer::Sync(file); }
  int Rename(const char* from, const char* to) override { return Fails() ? -1 : FileLayer::Rename(from, to); }

 private:
  bool Fails() {
    errno = error_;
    return --untilFailure_ == 0;
  }
  int untilFailure_;
  int error_;
};

class AtomicFileTest : public testing::Test {
 protected:
  auto FileCount() const { return std::distance(std::filesystem::directory_iterator(folder.Path()), {}); }

  TemporaryFolder folder;
  const std::string path = folder.Write("p.json", "old");
};

TEST_F(AtomicFileTest, AFailureOfAnyStepLeavesTheOldContentAndNothingBesideIt) {
  const std::tuple<int, int, const char*> cases[] = {{1, EIO, "write"},
                                                     {2, ENOSPC, "write"},
                                                     {3, EIO, "write"},
                                                     {4, ENOSPC, "write"},
                                                     {5, EIO, "sync"},
                                                     {6, EACCES, "rename"},
                                                     {7, EIO, "sync of the folder"}};
  for (const auto& [call, error, step] : cases) {
    folder.Write("p.json", "old");
    FailingLayer layer(call, error);
    AtomicFile file(path, layer);
    file.Read();
    const std::string message = RefusalOf([&] { file.Write("new content"); });
    EXPECT_THAT(message, HasSubstr(path + ": " + step + ": " + std::strerror(error)));
    EXPECT_EQ(ContentOf(path), call < 7 ? "old" : "new content") << message;  // renamed already
    EXPECT_EQ(FileCount(), 1) << message;
    file.Write("next content");
    EXPECT_EQ(ContentOf(path), "next content");
  }
}

TEST_F(AtomicFileTest, KeepsTheAccessModeAndFollowsALink) {
  ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
  const std::string link = folder.PathOf("link.json");
  std::filesystem::create_symlink("p.json", link);
  AtomicFile(link).Write("new");
  EXPECT_EQ(ContentOf(path), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms{0640});
}

TEST_F(AtomicFileTest, RefusesToSaveOverWhatSomeoneElseDid) {
  AtomicFile file(path);
  folder.Write("p.json", "theirs");
  EXPECT_THAT(RefusalOf([&] { file.Write("ours"); }), HasSubstr("changed by someone else since it was read"));
  EXPECT_EQ(ContentOf(path), "theirs");
  std::filesystem::remove(path);
  EXPECT_THAT(RefusalOf([&] { file.Write("ours"); }), HasSubstr("removed by someone else"));
  AtomicFile fresh(path);
  folder.Write("p.json", "theirs");
  EXPECT_THAT(RefusalOf([&] { fresh.Write("ours"); }), HasSubstr("created by someone else"));
  EXPECT_EQ(FileCount(), 1);
}

TEST_F(AtomicFileTest, RefusesASecondSaveWhileOneIsUnderWay) {
  const std::string side = folder.Write(".p.json.saving", "of a killed save");
  const int other = ::open(side.c_str(), O_WRONLY);
  ASSERT_EQ(::flock(other, LOCK_EX), 0);
  AtomicFile file(path);
  EXPECT_THAT(RefusalOf([&] { file.Write("ours"); }), HasSubstr("another program is saving"));
  EXPECT_EQ(ContentOf(side), "of a killed save");
  ::close(other);
  file.Write("ours");  // what a killed save left is no obstacle
  EXPECT_EQ(ContentOf(path), "ours");
  EXPECT_EQ(FileCount(), 1);
}

TEST_F(AtomicFileTest, TellsWhyAFileCanNotBeRead) {
  std::filesystem::resize_file(folder.Write("huge", ""), 100U << 20);
  std::filesystem::create_symlink("nowhere", folder.PathOf("dangling"));
  ASSERT_EQ(::mkfifo(folder.PathOf("pipe").c_str(), 0600), 0);
  for (const auto& [name, reason] : {std::pair{"missing", "No such file or directory"},
                                     {".", "Is a directory"},
                                     {"huge", "104857600 bytes, at most 16777216"},
                                     {"dangling", "leads nowhere"},
                                     {"pipe", "not a regular file"}}) {
    const std::string bad = folder.PathOf(name);
    EXPECT_THAT(RefusalOf([&] { AtomicFile(bad).Read(); }),
                testing::AllOf(HasSubstr(bad), HasSubstr(reason)));
  }
}
}  // namespace
