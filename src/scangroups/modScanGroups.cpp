#include "scangroups/modScanGroups.h"

#include <algorithm>
#include <string>

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modCommonErrorHandler.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modScanGroups {
namespace {
constexpr std::string_view kMember = "18.GroupChannelUI";
constexpr std::string_view kEmergencyChannel = "53.ChannelIDTracker";
constexpr std::string_view kStartUp = "17.ChannelGroupIDForRadioStartup";
constexpr std::string_view kPriority1 = "16.Priority1ChannelUI";
/// What the form of the members shows is a view of table 18.
constexpr std::string_view kViews[] = {"1119.FilteredScanGroupID", "1119.FilteredScanGroupChannelMemberID"};

/// A channel on the form, and its index.
struct Reference {
  std::string_view form, index;
};
constexpr Reference kReferences[] = {
    {kPriority1, "16.Priority1Channel"},
    {"16.Priority2ChannelUI", "16.Priority2Channel"},
    {"16.ScanPresetTxChannelUI", "16.ScanPresetTxChannel"},
    {"16.VotePresetTxChannelUI", "16.VotePresetTxChannel"},
    {kEmergencyChannel, "53.ChannelRecordNr"},
    {kMember, "18.GroupChannelRecordNum"},
};

bool IsView(std::string_view fieldId) { return std::ranges::find(kViews, fieldId) != std::end(kViews); }

/// Null for another field, of which the user has been told.
const Reference* FindReference(std::string_view fieldId) {
  const auto* reference = std::ranges::find(kReferences, fieldId, &Reference::form);
  if (reference != std::end(kReferences)) return reference;
  modCommonErrorHandler::ShowMessageBox("field " + std::string(fieldId) +
                                        " not found during Scan Group mapping");
  return nullptr;
}

/// "None" and no text count as channel 0; a word is no number.
Variant NumberOf(const Variant& shown) {
  const std::string text = CStr(shown);
  return text.empty() || text == kNone ? Variant(0) : WholeNumberOf(shown);
}

// The members

/// Whether a record before holds the value, asked from the nearest one on.
bool IsAnyBefore(const FieldRef& field, RecordNr record, const Variant& value) {
  RecordNr before = record - 1;
  while (before > 0 && !SameValue(field.Value(before), value)) --before;
  return before > 0;
}

/// A member points at the next one, the last one at the first. The first one is looked for at both ends of
/// the ring alone: every member between would walk the table for what the last one finds as well.
void Link(const ProviderRef& provider, RecordNr record) {
  const FieldRef groups = provider.Field("18.GroupIDNumber");
  const Variant group = groups.Value(record);
  const RecordNr later = modProjectGlobals::FindRecord(groups, group, record + 1);
  const bool isFirst = !IsAnyBefore(groups, record, group);
  const RecordNr first = isFirst ? record : later == 0 ? modProjectGlobals::FindRecord(groups, group) : 0;
  provider.Field("18.GroupNextMemberRecordNum").SetValue(record, (later == 0 ? first : later) - 1);
  const RecordNr owner = modProjectGlobals::FindRecord(provider.Field("16.GroupIDTracker"), group);
  if (owner == 0) return;
  if (first != 0) provider.Field("16.FirstGroupMember").SetValue(owner, first - 1);
  provider.Field("18.GroupRecordNumber").SetValue(record, owner - 1);
  if (!IsTicked(provider.Field("16.HiddenChannels").Value(owner))) return;
  // Only ever set here: the conversion of the channels has cleared it before.
  const RecordNr channel = CLng(provider.Field("18.GroupChannelRecordNum").Value(record)) + 1;
  const FieldRef hidden = provider.Field("5.HiddenChannel");
  if (hidden.HasRecord(channel)) hidden.SetValue(channel, kOn);
}

void NameGroup(const ProviderRef& provider, RecordNr member) {
  const FieldRef identities = provider.Field("16.GroupIdentity");
  const std::int64_t group = std::int64_t{CLng(provider.Field("18.GroupRecordNumber").Value(member))} + 1;
  if (group < 1 || group > identities.RecordCount()) return;
  provider.Field("18.GroupIDNumber").SetValue(member, identities.Value(static_cast<RecordNr>(group)));
}

// The start-up

constexpr std::string_view kStartUpFlag = "17.StartingWithChannelOrGroup";
constexpr std::string_view kStartUpRecord = "17.ChannelGroupRecordForRadioStartup";

/// A number that is both a channel's and a group's leaves the record of the group with the flag of the
/// channel; wanted so.
void SetStartUp(const ProviderRef& provider, RecordNr record) {
  const std::string text = CStr(provider.Field(kStartUp).Value(record));
  if (text.empty()) return;
  const Variant number = NumberOf(text);
  const FieldRef index = provider.Field(kStartUpRecord);
  const FieldRef channels = provider.Field("5.ChannelIDTracker");
  std::int32_t flag = StartUp::kGroup;
  for (const RecordNr channel : channels.Records()) {
    if (!SameValue(channels.Value(channel), number)) continue;
    flag = StartUp::kChannel;
    index.SetValue(record, channel - 1);
  }
  const FieldRef groups = provider.Field("16.GroupIDTracker");
  for (const RecordNr group : groups.Records()) {
    if (SameValue(groups.Value(group), number)) index.SetValue(record, group - 1);
  }
  provider.Field(kStartUpFlag).SetValue(record, flag);
}

/// The number of the record at an index, the first one's for an index outside; empty without records.
Variant NumberAt(const FieldRef& numbers, const Variant& index) {
  const std::int64_t stored = std::int64_t{CLng(index)} + 1;
  const bool isThere = 1 <= stored && stored <= numbers.RecordCount();
  const RecordNr record = isThere ? static_cast<RecordNr>(stored) : 1;
  return numbers.HasRecord(record) ? numbers.Value(record) : Variant();
}

void Show(const ProviderRef& provider, std::string_view fieldId, RecordNr record, const Variant& number) {
  if (!number.IsEmpty()) provider.Field(fieldId).SetValue(record, CStr(number));
}

void GetStartUp(const ProviderRef& provider, RecordNr record) {
  const bool isGroup = IsCode(provider.Field(kStartUpFlag).Value(record), StartUp::kGroup);
  const FieldRef numbers = provider.Field(isGroup ? "16.GroupIDTracker" : "5.ChannelIDTracker");
  Show(provider, kStartUp, record, NumberAt(numbers, provider.Field(kStartUpRecord).Value(record)));
}

/// Two digits at least.
std::string AliasOf(std::int32_t number) {
  const std::string digits = std::to_string(number);
  return digits.size() == 1 ? "0" + digits : digits;
}
}  // namespace

void GetGroupID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetGroupID", [&] {
    provider.Field(fieldId).SetValue(record, provider.Field("16.GroupIdentity").Value(record));
  });
}

void SetGroupID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetGroupID", [&] {
    const std::int32_t number = CLng(provider.Field(fieldId).Value(record));
    provider.Field("16.GroupIdentity").SetValue(record, number);
    const auto holds = [&](std::string_view field, std::int32_t code) {
      return IsCode(provider.Field(field).Value(record), code);
    };
    const bool isScan =
        holds("16.GroupType", GroupType::kScan) && holds("16.ScanGroupDisplayIndicator", GroupDisplay::kSC);
    const bool isVote = holds("16.GroupType", GroupType::kVote) && holds("16.GroupVote", kOff);
    provider.Field("16.GroupAlias").SetValue(record, isScan || isVote ? "SC" : AliasOf(number));
  });
}

void GetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetChannelIndex", [&] {
    if (IsView(fieldId)) return;
    if (fieldId == kStartUp) return GetStartUp(provider, record);
    const Reference* reference = FindReference(fieldId);
    if (reference == nullptr) return;
    if (fieldId == kMember) NameGroup(provider, record);
    if (fieldId == kEmergencyChannel &&
        IsCode(provider.Field("53.ChannelType").Value(record), ChannelType::kCurrent)) {
      return Show(provider, fieldId, record, kNone);
    }
    const Variant index = provider.Field(reference->index).Value(record);
    Show(provider, fieldId, record, NumberAt(provider.Field("5.ChannelIDTracker"), index));
  });
}

void SetChannelIndex(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetChannelIndex", [&] {
    if (IsView(fieldId)) return;
    if (fieldId == kStartUp) return SetStartUp(provider, record);
    const Reference* reference = FindReference(fieldId);
    if (reference == nullptr) return;
    const Variant number = NumberOf(provider.Field(fieldId).Value(record));
    const RecordNr channel = modProjectGlobals::FindRecord(provider.Field("5.ChannelIDTracker"), number);
    provider.Field(reference->index).SetValue(record, std::max(channel - 1, 0));
    if (fieldId == kPriority1) provider.Field("16.GroupSleepTime").SetValue(record, 0);
    if (fieldId == kMember) Link(provider, record);
  });
}
}  // namespace modScanGroups
