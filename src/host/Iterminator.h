#pragma once

#include "platform/Status.h"

/// The way out after a fault that can not be handled. Implemented by the tier.
class Iterminator {
 public:
  virtual ~Iterminator() = default;
  /// Raises event 1 of the tier: the host ends the application.
  virtual Status TerminateApplication() = 0;
};
