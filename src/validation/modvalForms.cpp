#include "validation/modvalForms.h"

#include <algorithm>

#include "channels/modvalChannels.h"
#include "platform/CaseText.h"
#include "tier/Procedure.h"

namespace modvalForms {
namespace {
constexpr struct {
  std::string_view form;
  bool (*check)(const ValidatorRef& validator, bool refresh);
} kForms[] = {
    {"USRCTLCHANNELSKD4410", modvalChannels::ValidateForm},
    {"USRCTLCHANNELSKE2210", modvalChannels::ValidateForm},
};
}  // namespace

bool FormValidationByFormName(const ValidatorRef& validator, std::string_view formName, bool refresh) {
  return Procedure("FormValidationByFormName", true, [&] {
    const auto* row = std::ranges::find_if(
        kForms, [&](const auto& form) { return EqualsIgnoringCase(form.form, formName); });
    return row == std::end(kForms) || row->check(validator, refresh);
  });
}
}  // namespace modvalForms
