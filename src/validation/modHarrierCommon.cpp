#include "validation/modHarrierCommon.h"

#include <string>

#include "common/Procedure.h"
#include "validation/modvalControlHead.h"

namespace modHarrierCommon {
bool IsValidDataForControlHead(const ValidatorRef& validator) {
  return Procedure("IsValidDataForControlHead", true, [&] {
    std::string head = validator.Messenger().ControlHead();
    if (head == "Unknown") head = "KDAC2";
    return head != "KDAC5" || modvalControlHead::ValidatePelicanRadio(validator);
  });
}
}  // namespace modHarrierCommon
