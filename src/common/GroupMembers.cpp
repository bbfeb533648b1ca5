#include "common/GroupMembers.h"

#include <algorithm>
#include <set>

#include "platform/Conversions.h"

const std::vector<Variant>& GroupMembers::Of(RecordNr group) const {
  if (!members_) {
    members_.emplace();
    const std::vector<Variant> groups = provider_.Field("18.GroupIDNumber").Values();
    std::vector<Variant> channels = provider_.Field("GroupChannelUI_k6k").Values();
    for (std::size_t i = 0; i < std::min(groups.size(), channels.size()); ++i) {
      if (IsNumeric(groups[i])) (*members_)[CDbl(groups[i])].push_back(std::move(channels[i]));
    }
  }
  const Variant number = provider_.Field("16.GroupIDTracker").Value(group);
  static const std::vector<Variant> kNobody;
  const auto found = IsNumeric(number) ? members_->find(CDbl(number)) : members_->end();
  return found == members_->end() ? kNobody : found->second;
}

std::int32_t GroupMembers::CountOf(RecordNr group) const {
  return static_cast<std::int32_t>(Of(group).size());
}

bool GroupMembers::HasChannel(RecordNr group, const Variant& channel) const {
  return std::ranges::any_of(Of(group), [&](const Variant& member) { return SameValue(member, channel); });
}

bool GroupMembers::AreAllChannels(RecordNr group) const {
  std::set<std::int32_t> members;
  for (const Variant& member : Of(group)) {
    if (IsNumeric(member)) members.insert(CLng(member));
  }
  if (!channels_) channels_ = provider_.Field("ChannelID_k6k").Values();
  return std::ranges::all_of(*channels_,
                             [&](const Variant& channel) { return members.contains(CLng(channel)); });
}
