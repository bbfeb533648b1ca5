#pragma once

#include <string_view>

#include "workbench/conform/Calls.h"

namespace Conform {

/// An operation of the tier, as a call of it is prepared by the host and carried out.
struct Operation {
  std::string_view name;
  Subject subject;
  /// What the host does before; null for nothing.
  void (*prepare)(Bench& bench, const Call& call);
  Status (*run)(Bench& bench, const Call& call, Answer& answer);
};

}  // namespace Conform
