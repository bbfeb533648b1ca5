#include "common/GroupMembers.h"

#include <algorithm>
#include <set>

#include "platform/Conversions.h"

const GroupMembers::Members& GroupMembers::Read() const {
  if (!members_) {
    members_ =
        Members{provider_.Field("18.GroupIDNumber").Values(), provider_.Field("GroupChannelUI_k6k").Values()};
  }
  return *members_;
}

template <typename Take>
void GroupMembers::ForEach(RecordNr group, Take take) const {
  const Variant number = provider_.Field("16.GroupIDTracker").Value(group);
  const Members& members = Read();
  const std::size_t count = std::min(members.groups.size(), members.channels.size());
  for (std::size_t member = 0; member < count; ++member) {
    if (SameValue(members.groups[member], number)) take(members.channels[member]);
  }
}

std::int32_t GroupMembers::CountOf(RecordNr group) const {
  std::int32_t count = 0;
  ForEach(group, [&](const Variant&) { ++count; });
  return count;
}

bool GroupMembers::HasChannel(RecordNr group, const Variant& channel) const {
  bool has = false;
  ForEach(group, [&](const Variant& member) { has = has || SameValue(member, channel); });
  return has;
}

bool GroupMembers::AreAllChannels(RecordNr group) const {
  std::set<std::int32_t> members;
  ForEach(group, [&](const Variant& member) {
    if (IsNumeric(member)) members.insert(CLng(member));
  });
  if (!channels_) channels_ = provider_.Field("ChannelID_k6k").Values();
  return std::ranges::all_of(*channels_,
                             [&](const Variant& channel) { return members.contains(CLng(channel)); });
}
