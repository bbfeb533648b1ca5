#pragma once

#include <span>
#include <string_view>

#include "common/ValidatorRef.h"
#include "host/IenablementReasons.h"

struct Condition;

namespace modvalEnablement {
/// The condition of one control.
struct EnablementRow {
  std::string_view uiid;
  const Condition* enabledWhen;
};
std::span<const EnablementRow> Rows();
/// The condition of a control, its name in any case; null for a control without one.
const Condition* FindCondition(std::string_view uiid);

/// Whether the control of the record may be edited now. A control without a condition may, and so may one
/// whose condition reads a record that does not exist: controls are drawn before their records are made.
bool GetEnabledStatebyUIID(const ValidatorRef& validator, std::string_view uiid, RecordNr record);
/// The same answer with its reason in words.
EnablementReason ReasonByUIID(const ValidatorRef& validator, std::string_view uiid, RecordNr record);
}  // namespace modvalEnablement
