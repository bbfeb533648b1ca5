#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNotice =
    "The channel's Fixed Call Sequence must match the Tx Format (%0:S). One or more bursts relating to the "
    "Tx Format are currently set to None.";
constexpr const char* kNoTxCall =
    "The Channel %0:S does not have a Tx Call Burst defined.  You must define a Tx Call Burst for this "
    "channel, or set all of the Channel Preset Call (Selcall) bursts for this channel to 'None'";
constexpr const char* kNoRepeater =
    "The Channel %0:S does not have a Repeater Burst defined.  You must define a Repeater Burst for this "
    "channel, or set all of the Channel Preset Call (Selcall) bursts for this channel to 'None'";
constexpr const char* kNoCallerId =
    "The Channel %0:S does not have a Caller ID Burst defined.  You must define a Caller ID Burst for this "
    "channel, or set all of the Channel Preset Call (Selcall) bursts for this channel to 'None'";

class ChannelPresets : public ChannelFixture {
 protected:
  /// Channel record 2 is the current one; its network uses the first of two Selcall systems.
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({0, 1, 2});
    GiveChannels({11, 12});
    provider.Set("5.ChannelNetworkIdUI", 2, 2);
    provider.Set("CurrentChannelNr", 1, 2);
  }
  void GiveBursts(std::string_view txCall, std::string_view status, std::string_view repeater,
                  std::string_view callerId) {
    for (const RecordNr channel : {1, 2}) {
      provider.Set("5.TXCallBurstSeq", channel, txCall);
      provider.Set("5.StatusBurstSeq", channel, status);
      provider.Set("5.RepeaterBurstSeq", channel, repeater);
      provider.Set("5.CallerIDBurstSeq", channel, callerId);
    }
  }
  bool Leave() { return LeaveForm("usrCtlChannelsKD4410", false); }
};

TEST_F(ChannelPresets, AChannelHasNoBurstsOrAllThatTheFormatNeeds) {
  const struct {
    const char *txCall, *status, *repeater, *callerId, *format, *missing;
  } cases[] = {
      // clang-format off
      {"None", "None", "None", "None", "RRBBCC", nullptr}, {"1", "None", "None", "None", "RRSS", nullptr},
      {"1", "None", "2", "3", "BBRRCC", nullptr}, {"1", "None", "None", "3", "", nullptr},
      {"None", "1", "None", "None", "RR", kNoTxCall}, {"None", "None", "1", "None", "BBCC", kNoTxCall},
      {"None", "None", "None", "1", "RR", kNoTxCall}, {"1", "None", "None", "None", "RRCCBB", kNoRepeater},
      {"1", "None", "2", "None", "RRBBCC", kNoCallerId}, {"1", "None", "None", "3", "B", kNoRepeater},
      {"", "None", "None", "None", "B", kNoRepeater},  // only the word is no burst
      // clang-format on
  };
  for (const auto& [txCall, status, repeater, callerId, format, missing] : cases) {
    SCOPED_TRACE(std::string(txCall) + status + repeater + callerId + format);
    GiveBursts(txCall, status, repeater, callerId);
    provider.Set("TxFormat_k6k", 1, format);
    messenger.Clear();
    EXPECT_TRUE(Leave());
    EXPECT_EQ(FinalValidation(), missing == nullptr);
    if (missing == nullptr) {
      EXPECT_THAT(Boxes(), IsEmpty());
    } else {
      EXPECT_THAT(Boxes(), ElementsAre(NoticeBox(kNotice, format), ErrorBox(missing, "12")));
    }
  }
}

TEST_F(ChannelPresets, TheNoticeIsForTheFirstSystemAloneTheErrorForTheFirstChannelByItsOwnFormat) {
  GiveBursts("1", "None", "None", "None");
  provider.Fill("5.ChannelNetworkIdUI", {2, 2});
  provider.Set("21.NetworkSignallingID", 2, 9);
  provider.Set("TxFormat_k6k", 1, "CC");
  provider.Set("TxFormat_k6k", 2, "BB");
  EXPECT_TRUE(Leave());
  EXPECT_FALSE(FinalValidation());
  EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(kNoRepeater, "11")));
}

TEST_F(ChannelPresets, ChannelsWithoutASelcallSystemAreSkipped) {
  GiveBursts("None", "1", "None", "None");
  for (const auto& [network, identity] : {std::pair{1, "4"}, {3, "4"}, {2, "5"}}) {
    provider.Set("5.ChannelNetworkIdUI", 2, network);
    provider.Set("21.NetworkSignallingID", network, identity);
    EXPECT_TRUE(Leave());
    EXPECT_TRUE(FinalValidation());
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ChannelPresets, LeavingTheFormReloadsTheGridWhenAsked) {
  const std::tuple<const char*, bool, const char*> cases[] = {
      {"usrCtlChannelsKD4410", true, "reload:ChannelID_k6k refresh:ChannelID_k6k"},
      {"USRCTLCHANNELSKE2210", true, "reload:ChannelID_k6k refresh:ChannelID_k6k"},
      {"USRCTLCHANNELSKD4410", false, ""},
      {"usrCtlChannels", true, ""}};
  for (const auto& [form, refresh, trail] : cases) {
    StartTrail();
    EXPECT_TRUE(LeaveForm(form, refresh));
    EXPECT_EQ(Trail(), trail) << form;
  }
}
}  // namespace
