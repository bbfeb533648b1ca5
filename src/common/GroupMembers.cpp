#include "common/GroupMembers.h"

#include <algorithm>
#include <set>
#include <utility>

#include "platform/Conversions.h"

const std::vector<std::size_t>& GroupMembers::Of(RecordNr group) const {
  if (!members_) {
    members_.emplace();
    std::pair<const double, std::vector<std::size_t>>* last = nullptr;  // most follow one of the same group
    const std::vector<Variant> groups = provider_.Field("18.GroupIDNumber").Values();
    for (std::size_t member = 0; member < groups.size(); ++member) {
      if (!IsNumeric(groups[member])) continue;
      const double number = CDbl(groups[member]);
      if (last == nullptr || last->first != number) last = &*members_->try_emplace(number).first;
      last->second.push_back(member);
    }
  }
  const Variant number = provider_.Field("16.GroupIDTracker").Value(group);
  static const std::vector<std::size_t> kNobody;
  const auto found = IsNumeric(number) ? members_->find(CDbl(number)) : members_->end();
  return found == members_->end() ? kNobody : found->second;
}

const Variant& GroupMembers::ChannelOf(std::size_t member) const {
  if (!channels_) channels_ = provider_.Field("GroupChannelUI_k6k").Values();
  return (*channels_)[member];
}

std::int32_t GroupMembers::CountOf(RecordNr group) const {
  return static_cast<std::int32_t>(Of(group).size());
}

bool GroupMembers::HasChannel(RecordNr group, const Variant& channel) const {
  return std::ranges::any_of(Of(group),
                             [&](std::size_t member) { return SameValue(ChannelOf(member), channel); });
}

bool GroupMembers::AreAllChannels(RecordNr group) const {
  std::set<std::int32_t> members;
  for (const std::size_t member : Of(group)) {
    if (IsNumeric(ChannelOf(member))) members.insert(CLng(ChannelOf(member)));
  }
  if (!allChannels_) allChannels_ = provider_.Field("ChannelID_k6k").Values();
  return std::ranges::all_of(*allChannels_,
                             [&](const Variant& channel) { return members.contains(CLng(channel)); });
}
