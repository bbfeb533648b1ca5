#pragma once

#include <exception>
#include <string>

#include "platform/Status.h"

/// Runs `work` for an operation at the border: no exception leaves it, an escaping one becomes a
/// failed status. The operation writes its by-reference arguments inside `work`, last.
template <typename Work>
Status Border(Work work) noexcept {
  try {
    work();
    return {};
  } catch (const Error& error) {
    return Status(error.Reason());
  } catch (const std::exception& unexpected) {
    return Status(ErrorNumber::kInvalidCall, "KD4410", unexpected.what());
  }
}
