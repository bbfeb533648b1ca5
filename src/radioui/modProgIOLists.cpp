#include "radioui/modProgIOLists.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "common/LibraryArray.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "radioui/ItemLists.h"
#include "radioui/modProgIO.h"

namespace modProgIOLists {
namespace {
using namespace ItemLists;
using namespace modProgIO;

using OfferList = void (*)(const ProviderRef& provider, RecordNr record, XArrayDBObject& items);
struct ListOfField {
  std::string_view uiid;
  OfferList offer;
};

template <std::size_t N>
void OfferByUIID(const ListOfField (&lists)[N], const ProviderRef& provider, std::string_view uiid,
                 RecordNr record, XArrayDBObject& items) {
  for (const ListOfField& list : lists) {
    if (EqualsIgnoringCase(list.uiid, uiid)) return list.offer(provider, record, items);
  }
  OfferOnly(items, kUndefined);
}

template <const auto& texts>
void OfferTexts(const ProviderRef&, RecordNr, XArrayDBObject& items) {
  Offer(items, texts);
}

void OfferChannels(const ProviderRef& provider, RecordNr, XArrayDBObject& items) {
  OfferUsedChannels(items, provider);
}

// The grid

constexpr std::string_view kActiveStates[] = {"Low", "High"};
constexpr std::string_view kDebounceTimes[] = {"2", "5", "10", "20", "50", "100", "150", "200"};  // ms
constexpr std::string_view kSignalTypes[] = {kMomentary, kLatching};
constexpr std::string_view kNotOnControlHead[] = {"TOGGLE_TX_INHIBIT", "EXT_PTT_1", "EXT_PTT_2"};

std::string CellOf(const FieldRef& column, RecordNr row) {
  return column.HasRecord(row) ? CStr(column.Value(row)) : std::string();
}

std::string DirectionOf(const ProviderRef& provider, RecordNr row) {
  return CellOf(provider.Field("1108.Direction"), row);
}

/// Null for a row without pin.
const clsProgIOPins* PinOf(const ProviderRef& provider, RecordNr row) {
  return FindPin(CellOf(provider.Field("1108.Pin"), row));
}

void OfferDirections(const ProviderRef& provider, RecordNr row, XArrayDBObject& items) {
  ItemList list(items);
  list.Add(kNone);
  list.Add(kInput);
  const clsProgIOPins* pin = PinOf(provider, row);
  if (pin != nullptr && pin->blnOutputPin) list.Add(kOutput);
}

void OfferInputActions(const clsProgIOPins* pin, XArrayDBObject& items) {
  const bool onControlHead = pin != nullptr && pin->strInterface == kControlHead;
  ItemList list(items);
  for (const clsProgIOActions& action : ProgIOInputActions) {
    const bool barred = onControlHead && std::ranges::count(kNotOnControlHead, action.strKey) > 0;
    if (!barred) list.Add(action.strName);
  }
}

void OfferActions(const ProviderRef& provider, RecordNr row, XArrayDBObject& items) {
  const std::string direction = DirectionOf(provider, row);
  if (direction == kInput) return OfferInputActions(PinOf(provider, row), items);
  if (direction != kOutput) return OfferOnly(items, kNoAction);
  ItemList list(items);
  for (const clsProgIOActions& action : ProgIOOutputActions) list.Add(action.strName);
}

void OfferActiveStates(const ProviderRef& provider, RecordNr row, XArrayDBObject& items) {
  const std::string direction = DirectionOf(provider, row);
  if (direction != kInput && direction != kOutput) return OfferOnly(items, kNone);
  Offer(items, kActiveStates);
}

void OfferDebounceTimes(const ProviderRef& provider, RecordNr row, XArrayDBObject& items) {
  if (DirectionOf(provider, row) != kInput) return OfferOnly(items, kNone);
  Offer(items, kDebounceTimes);
}

/// An input mirrors to the pins that are outputs now.
void OfferMirrors(const ProviderRef& provider, RecordNr row, XArrayDBObject& items) {
  ItemList list(items);
  list.Add(kNone);
  if (DirectionOf(provider, row) != kInput) return;
  const FieldRef pins = provider.Field("1108.Pin");
  for (const RecordNr other : pins.Records()) {
    if (DirectionOf(provider, other) == kOutput) list.Add(pins.Value(other));
  }
}

void OfferSignalTypes(const ProviderRef& provider, RecordNr row, XArrayDBObject& items) {
  const bool reflectsKey =
      DirectionOf(provider, row) == kOutput && IsKeyStatus(CellOf(provider.Field("1108.Action"), row));
  if (!reflectsKey) return OfferOnly(items, kNone);
  Offer(items, kSignalTypes);
}

template <bool clsProgIOPins::*isAble>
void OfferPins(const ProviderRef&, RecordNr, XArrayDBObject& items) {
  ItemList list(items, 2);
  list.Add(kNone, 0);
  for (const clsProgIOPins& pin : ProgIOPins) {
    if (pin.*isAble) list.Add(pin.strName, pin.bytPinID);
  }
}

constexpr ListOfField kDigitalLists[] = {
    {"DigitalIODirection", OfferDirections},
    {"DigitalIOAction", OfferActions},
    {"DigitalIOActiveState", OfferActiveStates},
    {"DigitalIODebounceTime", OfferDebounceTimes},
    {"DigitalIOMirroredTo", OfferMirrors},
    {"DigitalIOSignalType", OfferSignalTypes},
    {"IOPRTS", OfferPins<&clsProgIOPins::blnInputPin>},
    {"IOPCTS", OfferPins<&clsProgIOPins::blnOutputPin>},
};

// The audio paths

enum class PointKind { None, Rx, Other };

PointKind PointOf(const FieldRef& points, RecordNr path) {
  const Variant point = points.HasRecord(path) ? points.Value(path) : Variant(0);
  if (!IsNumeric(point) || CLng(point) == 0) return PointKind::None;
  return TapPointRxPath(CLng(point)) ? PointKind::Rx : PointKind::Other;
}

template <typename Name>
void OfferNamed(XArrayDBObject& items, std::initializer_list<std::int32_t> ids, Name nameOf) {
  ItemList list(items);
  for (const std::int32_t id : ids) list.Add(nameOf(id));
}

void OfferTapPoints(const ProviderRef&, RecordNr, XArrayDBObject& items) {
  ItemList list(items, 2);
  for (const TapPoint& point : kTapPoints) list.Add(point.name, point.code);
}

void OfferTypes(XArrayDBObject& items, std::initializer_list<std::int32_t> ids) {
  OfferNamed(items, ids, GetAudioIOTapTypeName);
}

void OfferTapInTypes(const ProviderRef& provider, RecordNr path, XArrayDBObject& items) {
  using namespace TapType;
  switch (PointOf(provider.Field("AudioIOTapIn"), path)) {
    case PointKind::None:
      return OfferTypes(items, {kBypassIn});
    case PointKind::Rx:
      return OfferTypes(items, {kBypassIn, kCombine, kSplice});
    case PointKind::Other:
      return OfferTypes(items, {kBypassIn, kCombine, kSplice, kCombine0dB});
  }
}

void OfferTapOutTypes(const ProviderRef& provider, RecordNr path, XArrayDBObject& items) {
  using namespace TapType;
  if (PointOf(provider.Field("AudioIOTapOut"), path) != PointKind::None) {
    return OfferTypes(items, {kBypassOut, kSplit, kSplice});
  }
  OfferTypes(items, {path == kReceiverPath ? kSplit : kBypassOut});
}

/// The first items of types and conditions fit each other on both sides of a path, for a splice needs that.
void OfferConditions(PointKind point, XArrayDBObject& items) {
  namespace Condition = UnmuteCondition;
  switch (point) {
    case PointKind::None:
      return OfferNamed(items, {Condition::kNone}, GetUnmuteConditionName);
    case PointKind::Rx:
      return OfferNamed(items,
                        {Condition::kNone, Condition::kBusyDetect, Condition::kBusyDetectSubaud,
                         Condition::kRxMuteOpen, Condition::kExceptOnPTT},
                        GetUnmuteConditionName);
    case PointKind::Other:
      return OfferNamed(items, {Condition::kNone, Condition::kOnPTT}, GetUnmuteConditionName);
  }
}

void OfferTapInConditions(const ProviderRef& provider, RecordNr path, XArrayDBObject& items) {
  OfferConditions(PointOf(provider.Field("AudioIOTapIn"), path), items);
}

void OfferTapOutConditions(const ProviderRef& provider, RecordNr path, XArrayDBObject& items) {
  OfferConditions(PointOf(provider.Field("AudioIOTapOut"), path), items);
}

constexpr ListOfField kAudioLists[] = {
    {"AudioIOTapIn", OfferTapPoints},
    {"AudioIOTapOut", OfferTapPoints},
    {"TapInType", OfferTapInTypes},
    {"TapOutType", OfferTapOutTypes},
    {"TapInUnmuteCondition", OfferTapInConditions},
    {"TapOutUnmuteCondition", OfferTapOutConditions},
};

// The parameters of actions

constexpr std::string_view kEmergencyModes[] = {"Non Stealth", "Stealth"};

/// The vote groups, and of the others those of the standard scan type.
void OfferPresetGroups(const ProviderRef& provider, RecordNr, XArrayDBObject& items) {
  ItemList list(items);
  const FieldRef identity = provider.Field("16.GroupIDTracker");
  const FieldRef groupType = provider.Field("16.GroupType");
  const FieldRef scanType = provider.Field("16.ScanType");
  for (const RecordNr group : identity.Records()) {
    if (SameValue(groupType.Value(group), GroupType::kVote) ||
        SameValue(scanType.Value(group), ScanType::kStandard)) {
      list.Add(identity.Value(group));
    }
  }
}

constexpr ListOfField kActionParameters[] = {
    {"ActionParamPresetChannel", OfferChannels},
    {"ActionParamHomeChannel", OfferChannels},
    {"ActionParamPresetGroup", OfferPresetGroups},
    {"ActionParamEmergencyMode", OfferTexts<kEmergencyModes>},
    {"ActionParamUnMuteAudioOutput", OfferTexts<kAudioPaths>},
    {"ActionParamMuteAudioOutput", OfferTexts<kAudioPaths>},
    {"ActionParamToggleMuteExternalAudio", OfferTexts<kAudioPaths>},
};
using GetList = void (*)(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                         XArrayDBObject& items);

std::string EntryOf(GetList getList, const ProviderRef& provider, std::string_view uiid, RecordNr record,
                    std::int32_t entry) {
  LibraryArray items;
  getList(provider, uiid, record, items);
  const std::int32_t last = items.UpperBound(1);
  return last < 0 ? std::string() : CStr(items.GetValue(std::min(entry, last), 0));
}
}  // namespace

void GetK6000ProgIODigital(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                           XArrayDBObject& items) {
  Procedure("GetK6000ProgIODigital", [&] { OfferByUIID(kDigitalLists, provider, uiid, record, items); });
}

void GetK6000ProgIOAudio(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                         XArrayDBObject& items) {
  Procedure("GetK6000ProgIOAudio", [&] { OfferByUIID(kAudioLists, provider, uiid, record, items); });
}

std::string DigitalEntry(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                         std::int32_t entry) {
  return EntryOf(GetK6000ProgIODigital, provider, uiid, record, entry);
}

std::string AudioEntry(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                       std::int32_t entry) {
  return EntryOf(GetK6000ProgIOAudio, provider, uiid, record, entry);
}

void GetActionParameters(const ProviderRef& provider, std::string_view uiid, RecordNr record,
                         XArrayDBObject& items) {
  Procedure("GetActionParameters", [&] { OfferByUIID(kActionParameters, provider, uiid, record, items); });
}
}  // namespace modProgIOLists
