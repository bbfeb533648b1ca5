#pragma once

#include "tests/channels/ChannelFixture.h"

/// Channels 11 to 15, groups 101 and 102; members as a test gives them.
class GroupFixture : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveChannels({11, 12, 13, 14, 15});
    provider.SetCount(16, 2);
    provider.Fill("16.GroupIDTracker", {101, 102});
    provider.Fill("16.GroupIdentity", {101, 102});
    messenger.Clear();
  }
  /// Group and channel of each member.
  void GiveMembers(const std::vector<std::pair<int, int>>& members) {
    provider.SetCount(18, 0);
    provider.SetCount(18, static_cast<RecordNr>(members.size()));
    RecordNr record = 0;
    for (const auto& [group, channel] : members) {
      provider.Set("18.GroupIDNumber", ++record, group);
      provider.Set("18.GroupChannelUI", record, std::to_string(channel));
    }
  }
  std::string Members() const {
    return provider.Count(18) == 0 ? std::string()
                                   : Column("18.GroupIDNumber") + "|" + Column("18.GroupChannelUI");
  }
};
