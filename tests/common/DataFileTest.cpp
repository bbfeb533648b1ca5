#include "common/DataFile.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/Error.h"

namespace {
/// Gives a text, then fails as a disk does.
class FailingDisk final : public std::stringbuf {
 public:
  explicit FailingDisk(const std::string& text) : std::stringbuf(text, std::ios::in) {}

 protected:
  int_type underflow() override {
    if (gptr() == egptr()) throw std::ios_base::failure("no such sector");
    return std::stringbuf::underflow();
  }
};

/// The error of reading a file, "" for none.
std::string ErrorOf(std::streambuf& disk) {
  std::istream file(&disk);
  try {
    const DataFile data("some.dat", std::move(file));
    return "";
  } catch (const Error& error) {
    return error.Reason().description;
  }
}

TEST(DataFile, ThatCanNotBeReadToItsEndIsAnErrorAndNotShorter) {
  const std::string rows = "CTCSSID\tCTCSSVALUE\n1\t67.0\n2\t69.3\n";
  std::stringbuf whole(rows);
  EXPECT_EQ(ErrorOf(whole), "");
  FailingDisk behindTheRows(rows);
  EXPECT_EQ(ErrorOf(behindTheRows), "some.dat:4: the file can not be read to its end");
  FailingDisk insideARow(rows + "3\t7");
  EXPECT_EQ(ErrorOf(insideARow), "some.dat:4: the file can not be read to its end");
  FailingDisk insideTheHeader("CTCSSID");
  EXPECT_EQ(ErrorOf(insideTheHeader), "some.dat: the file can not be read or is empty");
  FailingDisk behindTheMark("PCA Set\n");
  EXPECT_EQ(ErrorOf(behindTheMark), "some.dat:2: the header line is missing");
}
}  // namespace
