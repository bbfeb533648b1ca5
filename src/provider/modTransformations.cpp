#include "provider/modTransformations.h"

#include "channels/modBandLimits.h"
#include "channels/modChannels.h"
#include "channels/modSubaudible.h"
#include "common/Lookup.h"
#include "networks/modNetworks.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "radioui/modAudibleIndicators.h"
#include "radioui/modAudioIO.h"
#include "radioui/modData.h"
#include "radioui/modDigitalIO.h"
#include "radioui/modDisplayIndicators.h"
#include "radioui/modFunctionKeys.h"
#include "radioui/modGPS.h"
#include "radioui/modPTT.h"
#include "radioui/modPersonalityOptions.h"
#include "radioui/modUIPreferences.h"
#include "scangroups/modScanGroups.h"
#include "selcall/modControlStatus.h"
#include "selcall/modFreeFormat.h"
#include "selcall/modSelcallMapping.h"
#include "selcall/modToneSets.h"
#include "signalling/modDTMF.h"
#include "signalling/modMDC1200.h"
#include "signalling/modSIBT.h"
#include "signalling/modType99.h"

namespace modTransformations {
namespace {
/// The field's value is right as it stands.
void NoAction(const ProviderRef&, std::string_view, RecordNr) {}

/// The identity of a Selcall system: the form's field and the raw one hold the same.
void SetSelcallID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  provider.Field("29.SelcallID").SetValue(record, provider.Field(fieldId).Value(record));
}
void GetSelcallID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  provider.Field(fieldId).SetValue(record, provider.Field("29.SelcallID").Value(record));
}

using namespace modChannels;
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
constexpr Transformation kTransformations[] = {
    // number, from the form,                    to the form
    {500, SetChannelID,                        GetChannelID, "5.ChannelIDTracker"},
    {500, modScanGroups::SetGroupID,           modScanGroups::GetGroupID},
    {501, SetTxFrequency,                      GetTxFrequency},
    {502, SetRxFrequency,                      GetRxFrequency},
    {503, modFunctionKeys::SetGenerateFunctionKeys, modFunctionKeys::GetGenerateFunctionKeys},
    {508, modScanGroups::SetChannelIndex,      modScanGroups::GetChannelIndex},
    {509, modData::SetXonXoff,                 modData::GetXonXoff},
    {510, SetSubAudSignalling,                 GetSubAudSignalling},
    {511, modScanGroups::SetChannelIndex,      modScanGroups::GetChannelIndex},
    {512, modNetworks::SetSystemID,            modNetworks::GetSystemID},
    {513, SetIsBirdieChannel,                  GetIsBirdieChannel},
    {514, SetChannelNetworkID,                 GetChannelNetworkID},
    {515, NoAction,                            NoAction},
    {516, modToneSets::SetToneSet,             modToneSets::GetToneSet},
    {517, modToneSets::SetCustomFrequencies,   modToneSets::GetCustomFrequencies},
    {518, modPTT::SetGeneratePTT,              modPTT::GetGeneratePTT},
    {519, modPersonalityOptions::SetSecurityPIN, modPersonalityOptions::GetSecurityPIN},
    {520, modSelcallMapping::SetSelcallFormat, modSelcallMapping::GetSelcallFormat},
    {521, modSelcallMapping::SetSelcallTone,   modSelcallMapping::GetSelcallTone},
    {522, NoAction,                            NoAction},
    {523, NoAction,                            NoAction},
    {524, NoAction,                            modSelcallMapping::GetUnfilteredGridData},
    {525, SetPresetSelcallIndex,               GetPresetSelcallIndex},
    {526, modScanGroups::SetChannelIndex,      modScanGroups::GetChannelIndex},
    {527, NoAction,                            modControlStatus::GetGenerateControlStatus},
    {528, modControlStatus::SetControlStatus,  modControlStatus::GetControlStatus},
    {529, modControlStatus::SetGenerateControlStatus, NoAction},
    {530, modDigitalIO::SetActionParameters,   modDigitalIO::GetActionParameters},
    {531, modDigitalIO::SetActionParameters,   modDigitalIO::GetActionParameters},
    {532, NoAction,                            NoAction},
    {533, modDigitalIO::SetDigitalIO,          modDigitalIO::GetGridAndDigitalIO},
    {534, modSubaudible::SetGenerateCTCSSDCS,  modSubaudible::GenerateCTCSSDCS},
    {535, modFreeFormat::SetFreeFormatFields,  modFreeFormat::GetFreeFormatSequence},
    {536, modDisplayIndicators::GenerateDisplayIndicators, NoAction},
    {537, modAudibleIndicators::CreateIndicatorDataTable, modAudibleIndicators::CreateIndicatorList},
    {538, NoAction,                            NoAction},
    {539, modAudioIO::SetAudioIO,              modAudioIO::GetLabelsAndAudioIO},
    {540, modBandLimits::SetBand,              modBandLimits::GetBand},
    {541, modPersonalityOptions::SetGenerateMicGain, modPersonalityOptions::GetGenerateMicGain},
    {542, SetSelcallID,                        GetSelcallID},
    {543, NoAction,                            NoAction},
    {544, modAudibleIndicators::SetCadence,    modAudibleIndicators::GetCadence},
    {545, modAudibleIndicators::SetAlertDuration, modAudibleIndicators::GetAlertDuration},
    {546, modAudibleIndicators::SetAlertType,  modAudibleIndicators::GetAlertType},
    {547, modNetworks::SetNetworkSignallingID, modNetworks::GetNetworkSignallingID},
    {548, NoAction,                            modAudibleIndicators::GenerateRecCallAudInd},
    {549, modSubaudible::SetOutputLevel,       modSubaudible::GetTxDeviation},
    {550, modAudibleIndicators::SetAudibleIndicators, modAudibleIndicators::GetAudibleIndicators},
    {551, modNetworks::SetSignallingOnPTTPress,   modNetworks::GetSignallingOnPTTPress},
    {552, modNetworks::SetSignallingOnPTTRelease, modNetworks::GetSignallingOnPTTRelease},
    {553, modGPS::SetResponseChannels,         modGPS::GetResponseChannels},
    {554, modGPS::SetGPSPosOnPTT,              modGPS::GetGPSPosOnPTT},
    {555, modUIPreferences::SetUIPrefsAudibleMode, modUIPreferences::GetUIPrefsAudibleMode},
    {563, modData::SetDataIdentity,            modData::GetDataIdentity},
    {565, modDTMF::SetDTMF,                    modDTMF::GetDTMF},
    {567, SetCompanding,                       GetCompanding},
    {568, modUIPreferences::SetPATimer,        modUIPreferences::GetPATimer},
    {569, modNetworks::SetEmergencyType,       modNetworks::GetEmergencyType},
    {570, modSIBT::SetGenerateSIBTFrequency,   modSIBT::GetGenerateSIBTFrequency},
    {571, modSIBT::SetSIBTEnabled,             modSIBT::GetSIBTEnabled},
    {572, modToneSets::SetGenerateCCR,         NoAction},
    {573, modDTMF::SetPatchSequences,          modDTMF::GetPatchSequences},
    {574, modDTMF::SetChannelPreset,           modDTMF::GetChannelPreset},
    {575, SetDTMFPreset,                       GetDTMFPreset},
    {576, modType99::SetToneFrequencies,       modType99::GetToneFrequencies},
    {577, modType99::SetGenerateToneDurations, modType99::GetGenerateToneDurations},
    {578, NoAction,                            NoAction},
    {579, modNetworks::SetTxCyclingBegin,      modNetworks::GetTxCyclingBegin},
    {580, modNetworks::SetTxCyclingEnd,        modNetworks::GetTxCyclingEnd},
    {581, modData::SetCCDICallerID,            modData::GetCCDICallerID},
    {582, modNetworks::SetAutoOverBeep,        modNetworks::GetAutoOverBeep},
    {583, modData::CopyCallerIDEncode,         NoAction},
    {584, NoAction,                            modNetworks::SetEmergencyMaximumCyclingTime},
    {586, NoAction,                            modData::GetCustomerDataNetworkID},
    {587, modNetworks::SetCWIDFrequency,       modNetworks::GetCWIDFrequency},
    {588, modMDC1200::SetMDC1200,              modMDC1200::GetMDC1200},
    {589, modData::SetTOTALFields,             modData::GetTOTALFields},
};
// clang-format on
static_assert(std::ranges::is_sorted(kTransformations, {}, &Transformation::number));

/// No field would ever come to the row behind.
constexpr bool Hides(const Transformation& row, const Transformation& behind) {
  return row.number == behind.number &&
         (row.fieldId.empty() || EqualsIgnoringCase(row.fieldId, behind.fieldId));
}
constexpr bool HidesAny(const Transformation& row) {
  return std::ranges::any_of(&row + 1, std::end(kTransformations),
                             [&](const Transformation& behind) { return Hides(row, behind); });
}
static_assert(std::ranges::none_of(kTransformations, HidesAny));
}  // namespace

const Transformation* Find(std::int32_t number, std::string_view fieldId) {
  const auto* row = std::ranges::lower_bound(kTransformations, number, {}, &Transformation::number);
  for (; row != std::end(kTransformations) && row->number == number; ++row) {
    if (row->fieldId.empty() || EqualsIgnoringCase(row->fieldId, fieldId)) return row;
  }
  return nullptr;
}
}  // namespace modTransformations
