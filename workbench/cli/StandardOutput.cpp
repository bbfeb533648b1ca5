#include "workbench/cli/StandardOutput.h"

#include <unistd.h>

#include <cerrno>

int StandardOutput::sync() {
  for (const char* next = pbase(); problem_ == 0 && next != pptr();) {
    const ssize_t written = ::write(STDOUT_FILENO, next, static_cast<std::size_t>(pptr() - next));
    if (written >= 0) {
      next += written;
    } else if (errno != EINTR) {
      problem_ = errno;
    }
  }
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  return problem_ == 0 ? 0 : -1;
}

StandardOutput::int_type StandardOutput::overflow(int_type next) {
  if (sync() != 0) return traits_type::eof();
  if (!traits_type::eq_int_type(next, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(next);
    pbump(1);
  }
  return traits_type::not_eof(next);
}
