#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "common/Handles.h"

/// The members of the scan groups, which are records of table 16. Members and channels are read when they are
/// first asked for, and once for all groups; to be made anew after they have changed.
class GroupMembers {
 public:
  explicit GroupMembers(const ProviderRef& provider) : provider_(provider) {}

  std::int32_t CountOf(RecordNr group) const;
  /// Whether the channel with that number is a member.
  bool HasChannel(RecordNr group, const Variant& channel) const;
  /// Whether every channel is a member; so it is when there are no channels.
  bool AreAllChannels(RecordNr group) const;

 private:
  /// The places in table 18 of the group's members, in order. A group whose number is none has nobody.
  const std::vector<std::size_t>& Of(RecordNr group) const;
  const Variant& ChannelOf(std::size_t member) const;

  ProviderRef provider_;
  mutable std::optional<std::map<double, std::vector<std::size_t>>> members_;  // by the number of the group
  mutable std::optional<std::vector<Variant>> channels_;                       // of the members
  mutable std::optional<std::vector<Variant>> allChannels_;                    // the numbers of all
};
