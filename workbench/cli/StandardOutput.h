#pragma once

#include <array>
#include <streambuf>

/// Standard output of the process, which remembers why a write failed: a full disk must not look like a
/// failed save.
class StandardOutput final : public std::streambuf {
 public:
  StandardOutput() { setp(buffer_.data(), buffer_.data() + buffer_.size()); }

  /// The errno of the first write that failed; 0 for none. To be asked after a flush.
  int Problem() const { return problem_; }

 protected:
  int_type overflow(int_type next) override;
  int sync() override;

 private:
  std::array<char, 1U << 16> buffer_;
  int problem_ = 0;
};
