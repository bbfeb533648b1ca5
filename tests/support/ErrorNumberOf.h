#pragma once

#include "platform/Status.h"

/// The number of the error that `work` raises; 0 for none.
template <typename Work>
std::int32_t ErrorNumberOf(Work work) {
  try {
    work();
    return 0;
  } catch (const Error& error) {
    return error.Number();
  }
}

/// The number of a failed status; 0 for success.
inline std::int32_t NumberOf(const Status& status) { return status.Ok() ? 0 : status.Reason().number; }
