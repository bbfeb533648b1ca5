#include "validation/modvalForms.h"

#include <algorithm>

#include "channels/modvalChannels.h"
#include "common/Procedure.h"
#include "networks/modvalNetworks.h"
#include "platform/CaseText.h"
#include "radioui/modvalData.h"
#include "radioui/modvalFunctionKeys.h"
#include "radioui/modvalPTT.h"
#include "radioui/modvalProgIO.h"
#include "scangroups/modvalScanGroups.h"
#include "selcall/modvalControlStatus.h"
#include "selcall/modvalFreeFormat.h"
#include "selcall/modvalSelcall.h"
#include "selcall/modvalToneSets.h"
#include "signalling/modvalDTMF.h"
#include "signalling/modvalType99.h"

namespace modvalForms {
namespace {
/// The check of a form that has no list to refresh.
template <bool (*check)(const ValidatorRef& validator)>
bool Plain(const ValidatorRef& validator, bool) {
  return check(validator);
}

// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
constexpr struct {
  std::string_view form;
  bool (*check)(const ValidatorRef& validator, bool refresh);
} kForms[] = {
    {"USRCTLCHANNELSKD4410", modvalChannels::ValidateForm},
    {"USRCTLCHANNELSKE2210", modvalChannels::ValidateForm},
    {"USRCTLKEYSETTINGSKD4410", Plain<modvalFunctionKeys::FormIsValid>},
    {"USRCTLKEYSETTINGSKE2210", Plain<modvalFunctionKeys::FormIsValid>},
    {"USRCTLFREEFORMATKD4410", Plain<modvalFreeFormat::ValidateCurrentSequence>},
    {"USRCTLFREEFORMATKE2210", Plain<modvalFreeFormat::ValidateCurrentSequence>},
    {"USRCTLPROGIOKD4410", Plain<modvalProgIO::ValidateProgIOForm>},
    {"USRCTLPROGIOKE2210", Plain<modvalProgIO::ValidateProgIOForm>},
    {"USRCTLSCANGROUPSKD4410", Plain<modvalScanGroups::ValidateScanGroupForm>},
    {"USRCTLSCANGROUPSKE2210", Plain<modvalScanGroups::ValidateScanGroupForm>},
    {"USRCTLSELCALLSETUPKD4410", modvalSelcall::ValidateSelcallForm},
    {"USRCTLSELCALLSETUPKE2210", modvalSelcall::ValidateSelcallForm},
    {"USRCTLCONTROLSTATUSKD4410", Plain<modvalControlStatus::ValidateControlStatusForm>},
    {"USRCTLCONTROLSTATUSKE2210", Plain<modvalControlStatus::ValidateControlStatusForm>},
    {"USRCTLSELCALLTONESETTINGS", Plain<modvalToneSets::ValidateUserDefinedTones>},
    {"USRCTLDTMF", Plain<modvalDTMF::ValidateDTMFForm>},
    {"USRCTLTYPE99", Plain<modvalType99::ValidateType99Form>},
    {"USRCTLPTT", Plain<modvalPTT::FormIsValid>},
    {"USRCTLNETWORKS", Plain<modvalNetworks::ValidateBasicSettingsForm>},
    {"USRCTLDTMFPATCH", Plain<modvalNetworks::ValidateDTMFPatchForm>},
    {"USRCTLEMERGENCYKD4410", Plain<modvalNetworks::ValidateEmergencyForm>},
    {"USRCTLEMERGENCYKE2210", Plain<modvalNetworks::ValidateEmergencyForm>},
    {"USRCTLNETWORKFEATURES", Plain<modvalNetworks::ValidateFeaturesForm>},
    {"USRCTLNETWORKPTT", Plain<modvalNetworks::ValidatePTTSignallingForm>},
    {"USRCTLNETWORKDATA", Plain<modvalData::ValidateDataForm>},
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
