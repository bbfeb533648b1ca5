#include "validation/modvalEnablement.h"

#include "common/Procedure.h"
#include "validation/ConditionReader.h"
#include "validation/ConditionWords.h"

namespace modvalEnablement {
bool GetEnabledStatebyUIID(const ValidatorRef& validator, std::string_view uiid, RecordNr record) {
  return Procedure("GetEnabledStatebyUIID", true, [&] {
    const Condition* condition = FindCondition(uiid);
    return condition == nullptr || ConditionReader(validator.CurrentProvider(), record).IsMet(*condition);
  });
}

EnablementReason ReasonByUIID(const ValidatorRef& validator, std::string_view uiid, RecordNr record) {
  EnablementReason reason;
  reason.enabled = ToBoolean(GetEnabledStatebyUIID(validator, uiid, record));
  const Condition* condition = FindCondition(uiid);
  if (condition == nullptr) return reason;
  ConditionReader reader(validator.CurrentProvider(), record);
  const ConditionWords words(validator);
  reason.condition = words.Of(*condition);
  reason.readings = words.Readings(*condition, reader);
  if (reason.enabled == kFalse) reason.missing = words.Missing(*condition, reader);
  return reason;
}
}  // namespace modvalEnablement
