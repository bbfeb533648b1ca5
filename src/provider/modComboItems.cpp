#include "provider/modComboItems.h"

#include <algorithm>
#include <optional>
#include <string>

#include "channels/modChannels.h"
#include "common/LibraryArray.h"
#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "radioui/ItemLists.h"
#include "radioui/modFunctionKeyLists.h"
#include "radioui/modProgIOLists.h"
#include "selcall/modToneSets.h"
#include "signalling/modType99.h"
#include "ui/modUserInterface.h"

namespace modComboItems {
namespace {
using namespace ItemLists;

void GetK6000AvailableChannelAndGroupIDs(const ProviderRef& provider, std::string_view, RecordNr,
                                         XArrayDBObject& items) {
  Procedure("GetK6000AvailableChannelAndGroupIDs",
            [&] { ItemList(items).AddValues(provider.Field("5.ChannelIDTracker").FreeValues()); });
}

void GetK6000UsedChannelIDs(const ProviderRef& provider, std::string_view, RecordNr, XArrayDBObject& items) {
  Procedure("GetK6000UsedChannelIDs", [&] { OfferUsedChannels(items, provider); });
}

void GetK6000AvailableEmergencyChannelIDs(const ProviderRef& provider, std::string_view, RecordNr,
                                          XArrayDBObject& items) {
  Procedure("GetK6000AvailableEmergencyChannelIDs", [&] { OfferUsedChannels(items, provider); });
}

void GetGPSPollResponseChannel(const ProviderRef& provider, std::string_view, RecordNr,
                               XArrayDBObject& items) {
  Procedure("GetGPSPollResponseChannel", [&] { OfferUsedChannels(items, provider); });
}

void OfferChannelsAndGroups(XArrayDBObject& items, const ProviderRef& provider) {
  ItemList list(items);
  list.AddValues(provider.Field("5.ChannelIDTracker"));
  list.AddValues(provider.Field("16.GroupIDTracker"));
}

void GetScanGroupMembersList(const ProviderRef& provider, std::string_view, RecordNr, XArrayDBObject& items) {
  Procedure("GetScanGroupMembersList", [&] { OfferChannelsAndGroups(items, provider); });
}

void GetUsedChannelAndGroupIDs(const ProviderRef& provider, std::string_view, RecordNr,
                               XArrayDBObject& items) {
  Procedure("GetUsedChannelAndGroupIDs", [&] { OfferChannelsAndGroups(items, provider); });
}

void GetK6000AvailableCTCSSDCS(const ProviderRef&, std::string_view, RecordNr, XArrayDBObject& items) {
  Procedure("GetK6000AvailableCTCSSDCS", [&] {
    ItemList list(items);
    list.Add(kNone);
    for (const std::string& tone : modUserInterface::CTCSS().NewEnum()) list.Add("C" + tone);
    for (const std::string& code : modUserInterface::DCS().NewEnum()) list.Add("D" + code);
  });
}

/// The identity of the record in hand stays in its list.
void GetK6000NetworkIDs(const ProviderRef& provider, std::string_view, RecordNr record,
                        XArrayDBObject& items) {
  Procedure("GetK6000NetworkIDs", [&] {
    const FieldRef identity = provider.Field("NetworkID");
    ItemList list(items);
    const std::int32_t highest = identity.Maximum();
    for (std::int32_t number = identity.Minimum(); number <= highest; ++number) list.Add(number);
    const bool exists = identity.HasRecord(record);
    const Variant own = exists ? identity.Value(record) : Variant();
    for (const Variant& used : identity.Values()) {
      if (IsNumeric(used) && !(exists && SameValue(used, own))) list.Remove(used);
    }
  });
}

void GetK6000UsedNetworkIDs(const ProviderRef& provider, std::string_view, RecordNr, XArrayDBObject& items) {
  Procedure("GetK6000UsedNetworkIDs", [&] { OfferValues(items, provider.Field("NetworkID")); });
}

void GetK6000AvailableStatusIDs(const ProviderRef& provider, std::string_view, RecordNr,
                                XArrayDBObject& items) {
  Procedure("GetK6000AvailableStatusIDs",
            [&] { ItemList(items).AddValues(provider.Field("ControlStatusValue").FreeValues()); });
}

void GetK6000AvailableSelcallIDs(const ProviderRef& provider, std::string_view, RecordNr,
                                 XArrayDBObject& items) {
  Procedure("GetK6000AvailableSelcallIDs",
            [&] { ItemList(items).AddValues(provider.Field("SignalSystemId_k6k").FreeValues()); });
}

void GetK6000UsedSelcallIDs(const ProviderRef& provider, std::string_view, RecordNr, XArrayDBObject& items) {
  Procedure("GetK6000UsedSelcallIDs", [&] { OfferValues(items, provider.Field("SignalSystemId_k6k")); });
}

void GetK6000UsedDTMFIDs(const ProviderRef& provider, std::string_view, RecordNr, XArrayDBObject& items) {
  Procedure("GetK6000UsedDTMFIDs", [&] { OfferValues(items, provider.Field("DTMFNetworkSigSystemID")); });
}

/// The systems of the type that the record's network has; a network to come has none yet.
void GetK6000UsedSignallingIDs(const ProviderRef& provider, std::string_view, RecordNr record,
                               XArrayDBObject& items) {
  Procedure("GetK6000UsedSignallingIDs", [&] {
    const FieldRef types = provider.Field("21.SignallingType");
    const Variant type = types.HasRecord(record) ? types.Value(record) : Variant(SignallingType::kNone);
    const std::string_view identity =
        IsNumeric(type) ? modProjectGlobals::SystemIdentityField(CLng(type)) : std::string_view();
    if (identity.empty()) return OfferOnly(items, kNone);
    OfferValues(items, provider.Field(identity));
  });
}

void GetK6000SelcallPreset(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                           XArrayDBObject& items) {
  Procedure("GetK6000SelcallPreset", [&] {
    ItemList list(items);
    list.Add(kNone);
    for (const std::string& burst : modChannels::BurstsOnOffer(provider, uiid, record)) {
      if (burst != kUndefined) list.Add(burst);
    }
  });
}

void GetK6000SelcallCustomTones(const ProviderRef& provider, std::string_view, RecordNr record,
                                XArrayDBObject& items) {
  Procedure("GetK6000SelcallCustomTones", [&] {
    ItemList list(items);
    const Variant base = StoredValue(provider, "48.BasedOnToneSet", record);
    if (!IsNumeric(base)) return;
    for (const std::string& hertz : modToneSets::FrequenciesOfToneset(CLng(base), false)) list.Add(hertz);
  });
}

void GetK6000DTMFChannelPresets(const ProviderRef& provider, std::string_view, RecordNr record,
                                XArrayDBObject& items) {
  constexpr RecordNr kFirstPreset = 2;  // record 1 belongs to no system
  Procedure("GetK6000DTMFChannelPresets", [&] {
    ItemList list(items);
    list.Add(kNone);
    const auto identity = modChannels::SystemOfChannel(provider, record, SignallingType::kDTMF);
    if (!identity) return;
    const FieldRef systems = provider.Field("65.DTMFChannelPresetSeqSigSysID");
    const FieldRef sequences = provider.Field("65.DTMFChannelPresetSequenceUI");
    const RecordNr last = systems.RecordCount();
    for (RecordNr preset = kFirstPreset; preset <= last; ++preset) {
      if (!SameValue(systems.Value(preset), *identity)) continue;
      const std::string sequence = CStr(sequences.Value(preset));
      if (!sequence.empty()) list.Add(sequence);
    }
  });
}

/// The list of the record's format; MOT's where there is no such record.
void GetK6000Type99Tones(const ProviderRef& provider, std::string_view, RecordNr record,
                         XArrayDBObject& items) {
  Procedure("GetK6000Type99Tones", [&] {
    const std::int32_t format = CLng(StoredValue(provider, "37.T99TableFormat", record));
    ItemList list(items);
    for (const std::string& hertz : modType99::GetToneFrequencyList(format)) list.Add(hertz);
  });
}

struct ComboList {
  std::int32_t number;  ///< of the field's transformation
  void (*routine)(const ProviderRef& provider, std::string_view uiid, RecordNr record, XArrayDBObject& items);
  /// Where one number serves several kinds of lists, the field of this row; "" serves the rest.
  std::string_view uiid = {};
};

using namespace modFunctionKeyLists;
using namespace modProgIOLists;
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
constexpr ComboList kLists[] = {  // the first match decides
    {500, GetK6000AvailableChannelAndGroupIDs},
    {508, GetK6000UsedChannelIDs},
    {510, GetK6000AvailableCTCSSDCS},
    {511, GetScanGroupMembersList, "CHANNELGROUPIDFORRADIOSTARTUP"},
    {511, GetUsedChannelAndGroupIDs},
    {512, GetK6000NetworkIDs},
    {514, GetK6000UsedNetworkIDs},
    {515, GetK6000SelcallCustomTones},
    {522, GetK6000FunctionKeyItems},
    {523, GetK6000FKParameter1},
    {525, GetK6000SelcallPreset},
    {526, GetK6000AvailableEmergencyChannelIDs},
    {528, GetK6000AvailableStatusIDs},
    {531, GetActionParameters},
    {532, GetK6000ProgIODigital},
    {538, GetK6000ProgIOAudio},
    {542, GetK6000AvailableSelcallIDs},
    {543, GetK6000UsedSelcallIDs},
    {547, GetK6000UsedSignallingIDs},
    {553, GetGPSPollResponseChannel},
    {566, GetK6000UsedDTMFIDs},
    {575, GetK6000DTMFChannelPresets},
    {578, GetK6000Type99Tones},
};
// clang-format on

/// Null for a number without list.
const ComboList* Find(std::int32_t number, std::string_view uiid) {
  for (const ComboList& list : kLists) {
    if (list.number == number && (list.uiid.empty() || EqualsIgnoringCase(list.uiid, uiid))) return &list;
  }
  return nullptr;
}

std::shared_ptr<XArrayDBObject> NewItems() {
  auto items = std::make_shared<LibraryArray>();
  OfferOnly(*items, kUndefined);
  return items;
}
}  // namespace

bool GetComboItemsByUIID(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                         std::shared_ptr<XArrayDBObject>& items) {
  constexpr std::int32_t kNoTransformation = -1;
  return Procedure("GetComboItemsByUIID", true, [&] {
    if (items == nullptr) items = NewItems();
    const std::int32_t number = provider.HasField(uiid) ? provider.TransformIdOf(uiid) : kNoTransformation;
    if (number == kNoTransformation) return true;
    if (const ComboList* list = Find(number, uiid)) {
      list->routine(provider, uiid, record, *items);
    } else {
      OfferOnly(*items, kUndefined);
    }
    return true;
  });
}
}  // namespace modComboItems
