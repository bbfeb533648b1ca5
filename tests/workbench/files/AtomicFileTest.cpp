#include "workbench/files/AtomicFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "tests/workbench/FileHelpers.h"
#include "workbench/files/FileStage.h"

namespace {
using testing::HasSubstr;

/// What becomes of a call: 0 and so many bytes written, or the error that it fails with.
struct Outcome {
  int error;
  std::size_t written;
};

/// Writes at most 16 kB a call. The n-th call of all has the outcome told; only a write can come out short.
class FailingLayer final : public FileLayer {
 public:
  FailingLayer(int call, Outcome outcome) : untilFailure_(call), outcome_(outcome) {}

  ssize_t Write(int file, const void* data, std::size_t size) override {
    size = std::min<std::size_t>(size, 1U << 14);
    if (Fails("write")) return -1;
    return FileLayer::Write(file, data, IsDue() ? outcome_.written : size);
  }
  int Sync(int) override { return Fails(renamed_ ? "sync of the folder" : "sync") ? -1 : 0; }
  int Rename(const char* from, const char* to) override {
    if (Fails("rename")) return -1;
    renamed_ = true;
    return FileLayer::Rename(from, to);
  }

  bool IsRenamed() const { return renamed_; }
  bool WasReached() const { return untilFailure_ <= 0; }
  /// The step that failed; empty for none.
  const std::string& FailedStep() const { return failedStep_; }

 private:
  bool IsDue() const { return untilFailure_ == 0; }
  bool Fails(const char* step) {
    --untilFailure_;
    if (!IsDue() || outcome_.error == 0) return false;
    errno = outcome_.error;
    failedStep_ = step;
    return true;
  }
  int untilFailure_;
  Outcome outcome_;
  bool renamed_ = false;
  std::string failedStep_;
};

class AtomicFileTest : public testing::Test {
 protected:
  auto FileCount() const { return std::distance(std::filesystem::directory_iterator(folder.Path()), {}); }

  TemporaryFolder folder;
  const std::string path = folder.Write("p.json", "old");
};

TEST_F(AtomicFileTest, WhicheverCallFailsTheFileIsTheOldOneOrTheNewAndAloneAndTheNextSaveWorks) {
  const std::string before = ContentOf(Sample("minimal"));
  const std::string after = ContentOf(Sample("marine-harbour"));
  for (const Outcome& outcome : {Outcome{EIO, 0}, {ENOSPC, 0}, {EINTR, 0}, {0, 0}, {0, 1}, {0, 1000}}) {
    for (int call = 1;; ++call) {
      SCOPED_TRACE(testing::Message()
                   << "call " << call << ", error " << outcome.error << ", written " << outcome.written);
      folder.Write("p.json", before);
      FailingLayer layer(call, outcome);
      AtomicFile file(path, layer);
      const std::string message = RefusalOf([&] { file.Write(after); });
      if (!layer.WasReached()) break;  // a save has fewer calls
      EXPECT_TRUE(ContentOf(path) == (layer.IsRenamed() ? after : before)) << message;
      EXPECT_EQ(FileCount(), 1);
      if (!layer.IsRenamed() || layer.FailedStep() == "sync of the folder") {
        const std::string step = layer.FailedStep().empty() ? "write" : layer.FailedStep();
        const int reason = outcome.error == 0 ? ENOSPC : outcome.error;  // a write of nothing: no space
        EXPECT_THAT(message, HasSubstr(path + ": " + step + ": " + std::strerror(reason)));
      } else {
        EXPECT_EQ(message, "no FileError");  // a write that was interrupted or short was gone on with
      }
      file.Write(before);
      EXPECT_TRUE(ContentOf(path) == before);
    }
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

TEST_F(AtomicFileTest, ReplacesNothingButARegularFile) {
  ASSERT_EQ(::mkfifo(folder.PathOf("pipe").c_str(), 0600), 0);
  std::filesystem::create_directory(folder.PathOf("folder"));
  std::filesystem::create_symlink("pipe", folder.PathOf("link"));
  for (const char* name : {"pipe", "folder", "link"}) {
    const std::string special = folder.PathOf(name);
    const auto type = std::filesystem::status(special).type();
    EXPECT_EQ(RefusalOf([&] { AtomicFile(special).Write("new"); }), special + ": write: not a regular file");
    EXPECT_EQ(std::filesystem::status(special).type(), type);
  }
  EXPECT_EQ(FileCount(), 4) << "nothing is left beside them";
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
  EXPECT_THAT(RefusalOf([&] { file.Write("ours"); }),
              HasSubstr("p.json is in use by process " + std::to_string(::getpid()) + " (kd4410_"));
  EXPECT_EQ(ContentOf(side), "of a killed save");
  ::close(other);
  file.Write("ours");  // what a killed save left is no obstacle
  EXPECT_EQ(ContentOf(path), "ours");
  EXPECT_EQ(FileCount(), 1);
}

TEST_F(AtomicFileTest, StagedFilesAreAllWrittenOrNone) {
  const std::string second = folder.Write("q.json", "old");
  for (int call = 1; call <= 4; ++call) {  // write, sync, rename, sync of the folder
    SCOPED_TRACE(call);
    folder.Write("p.json", "old");
    folder.Write("q.json", "old");
    FailingLayer layer(call, {ENOSPC, 0});
    FileStage stage;
    AtomicFile first(path, FileLayer::OfSystem(), &stage), last(second, layer, &stage);
    first.Write("new");
    last.Write("new");
    EXPECT_EQ(AtomicFile(folder.PathOf("./p.json"), FileLayer::OfSystem(), &stage).Read(), "new");
    EXPECT_EQ(ContentOf(path), "old");
    const std::string message = RefusalOf([&] { stage.Publish(); });
    EXPECT_THAT(message, HasSubstr(second));
    EXPECT_EQ(ContentOf(path), call <= 2 ? "old" : "new");
    EXPECT_EQ(message.find("saved before it: " + path) != std::string::npos, call > 2) << message;
    EXPECT_EQ(FileCount(), 2) << "nothing is left beside them";
  }
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
