#pragma once

#include <string>

#include "platform/Status.h"

/// What the validator asks of the host that it serves. Implemented by the host.
class IvalidatorHost {
 public:
  virtual ~IvalidatorHost() = default;
  /// The text that stands before "Error" or "Warning" in the title of a message box.
  virtual Status Caption(std::string& out) = 0;
};
