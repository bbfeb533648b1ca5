#pragma once

#include <string>

#include "platform/Status.h"
#include "platform/Types.h"

/// A list of values of one field, as `Ifield` hands it out. Implemented by the host.
class IvalueList {
 public:
  virtual ~IvalueList() = default;
  /// The entry at the zero-based `index`, numbers as decimal text. Error 9 for an index outside
  /// 0..Count-1. Item(0) of the free values is the next identity to give out.
  virtual Status Item(std::int32_t index, std::string& out) = 0;
  virtual Status Count(std::int32_t& out) = 0;
};
