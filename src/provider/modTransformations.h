#pragma once

#include <cstdint>
#include <string_view>

#include "common/Handles.h"

namespace modTransformations {
/// Converts one record of a field; a routine that works on a whole table ignores field and record.
using Routine = void (*)(const ProviderRef& provider, std::string_view fieldId, RecordNr record);

/// The two ways of a transformation number.
struct Transformation {
  std::int32_t number;
  Routine fromUI, toUI;
  /// Where one number serves several kinds of fields, the field of this row; "" serves the rest.
  std::string_view fieldId = {};
};

/// The transformation of a field, none when its number is not in the table.
const Transformation* Find(std::int32_t number, std::string_view fieldId);
}  // namespace modTransformations
