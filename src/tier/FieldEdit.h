#pragma once

#include <string_view>

#include "tier/FormWrites.h"

/// One edit, on its way through a rule. What `value` holds after the rule passed is what the host stores.
struct FieldEdit {
  const ValidatorRef& validator;
  std::string_view uiid;  ///< in upper case, as the rules are listed
  Variant& value;
  RecordNr record;
  FormWrites writes;
};
