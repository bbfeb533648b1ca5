#pragma once

#include <optional>
#include <string>

#include "workbench/trace/Objects.h"

namespace Trace {

/// What an object of the tier has answered.
struct Answer {
  Status status;
  Json results;  // of a success
};

/// Makes a recorded call on object `number` of the tier. Nothing when the object does not have the interface.
/// Raises a BadValue for an unknown operation or object and for arguments that do not fit.
std::optional<Answer> Invoke(const std::string& operation, std::int32_t number, const Json& arguments,
                             Objects& objects);

}  // namespace Trace
