#include "provider/modTransformations.h"

#include "channels/modBandLimits.h"
#include "channels/modChannels.h"
#include "channels/modSubaudible.h"
#include "networks/modNetworks.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "signalling/modDTMF.h"
#include "tier/Lookup.h"

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
// clang-format off
constexpr Transformation kTransformations[] = {
    // number, from the form,                    to the form
    {500, SetChannelID,                        GetChannelID, "5.ChannelIDTracker"},
    {501, SetTxFrequency,                      GetTxFrequency},
    {502, SetRxFrequency,                      GetRxFrequency},
    {510, SetSubAudSignalling,                 GetSubAudSignalling},
    {512, modNetworks::SetSystemID,            modNetworks::GetSystemID},
    {513, SetIsBirdieChannel,                  GetIsBirdieChannel},
    {514, SetChannelNetworkID,                 GetChannelNetworkID},
    {515, NoAction,                            NoAction},
    {522, NoAction,                            NoAction},
    {523, NoAction,                            NoAction},
    {525, SetPresetSelcallIndex,               GetPresetSelcallIndex},
    {532, NoAction,                            NoAction},
    {534, modSubaudible::SetGenerateCTCSSDCS,  modSubaudible::GenerateCTCSSDCS},
    {538, NoAction,                            NoAction},
    {540, modBandLimits::SetBand,              modBandLimits::GetBand},
    {542, SetSelcallID,                        GetSelcallID},
    {543, NoAction,                            NoAction},
    {547, modNetworks::SetNetworkSignallingID, modNetworks::GetNetworkSignallingID},
    {549, modSubaudible::SetOutputLevel,       modSubaudible::GetTxDeviation},
    {567, SetCompanding,                       GetCompanding},
    {574, modDTMF::SetChannelPreset,           modDTMF::GetChannelPreset},
    {575, SetDTMFPreset,                       GetDTMFPreset},
    {578, NoAction,                            NoAction},
};
// clang-format on
static_assert(std::ranges::is_sorted(kTransformations, {}, &Transformation::number));
}  // namespace

const Transformation* Find(std::int32_t number, std::string_view fieldId) {
  const auto* row = std::ranges::lower_bound(kTransformations, number, {}, &Transformation::number);
  for (; row != std::end(kTransformations) && row->number == number; ++row) {
    if (row->fieldId.empty() || EqualsIgnoringCase(row->fieldId, fieldId)) return row;
  }
  return nullptr;
}
}  // namespace modTransformations
