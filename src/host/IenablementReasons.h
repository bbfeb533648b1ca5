#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Status.h"
#include "platform/Types.h"
#include "platform/Variant.h"

/// One test of a field that has its part in the state of a control.
struct EnablementReading {
  std::string field;  ///< UIID or FieldId
  std::string test;   ///< in words, with the field's label: "Signalling Type is Selcall or DTMF"
  RecordNr record = 0;
  Variant value;  ///< empty when the record does not exist
  Boolean exists = 0;
  Boolean holds = 0;
};

/// Why a control is enabled or disabled.
struct EnablementReason {
  Boolean enabled = 0;
  /// When the control is enabled, in words; empty for a control without a condition, which always is.
  std::string condition;
  /// What the condition asks, in its order, whether or not the answer was needed.
  std::vector<EnablementReading> readings;
  /// What has yet to be so for the control to be enabled; empty when it is.
  std::string missing;
};

/// The reasons behind `ItierValidator.GetEnabledStatebyUIID`. An extra that a host asks the tier's validator
/// for by a dynamic cast; a tier without it gives a null pointer.
class IenablementReasons {
 public:
  virtual ~IenablementReasons() = default;
  /// The state of the control and how it came about. Legal when GetEnabledStatebyUIID is; a record that
  /// does not exist yet is no error.
  virtual Status ReasonByUIID(std::string_view uiid, RecordNr record, EnablementReason& out) = 0;
};
