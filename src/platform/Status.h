#pragma once

#include <memory>
#include <utility>

#include "platform/Error.h"

/// The answer of every operation at the border: success, or the fault that prevented it.
/// One pointer wide, and empty when all is well.
class [[nodiscard]] Status {
 public:
  Status() = default;
  explicit Status(Fault fault) : fault_(std::make_unique<const Fault>(std::move(fault))) {}
  Status(std::int32_t number, std::string source, std::string description)
      : Status(Fault{number, std::move(source), std::move(description)}) {}

  bool Ok() const { return fault_ == nullptr; }
  /// Legal only when not Ok().
  const Fault& Reason() const { return *fault_; }

 private:
  std::unique_ptr<const Fault> fault_;
};

/// Raises the fault of a failed status.
inline void RaiseIfFailed(const Status& status) {
  if (!status.Ok()) [[unlikely]] {
    throw Error(status.Reason());
  }
}
