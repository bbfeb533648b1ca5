#include "validation/modvalKD4410PreProgramValidation.h"

#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "platform/Conversions.h"
#include "validation/modHarrierCommon.h"

namespace modvalKD4410PreProgramValidation {
bool RunPreProgramValidation(const ValidatorRef& validator) {
  return Procedure("RunPreProgramValidation", true, [&] {
    const Variant model = StoredValue(validator.CurrentProvider(), "0.RadioTier", kOnly);
    return !ReadsAs(model, "KD4410") || modHarrierCommon::IsValidDataForControlHead(validator);
  });
}
}  // namespace modvalKD4410PreProgramValidation
