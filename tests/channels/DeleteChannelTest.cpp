#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;

const std::string kMember = ErrorBox(
    "This Channel is a member of one or more Scan Groups.  You must remove it from the Scan Groups before it "
    "can be deleted.");
const std::string kPin =
    ErrorBox("This Channel is a Programmable I/O Preset or Home channel and can not be deleted.");
const std::string kKeys = QuestionBox(
    "This channel is referenced by a function key. If you proceed the action of the function key will be set "
    "to 'None'. Do you wish to proceed?");
const std::string kEmergency = QuestionBox(
    "This Channel is in use as a Dedicated Emergency Channel. If you proceed the Emergency Channel Type will "
    "be set to 'Current'.  Do you wish to proceed?");
const std::string kGPS = QuestionBox(
    "This Channel is in use as the GPS Poll Response Channel. If you proceed the GPS Poll Response Channel "
    "Type will be set to 'Current'.  Do you wish to proceed?");
const std::string kStartup = QuestionBox(
    "This channel is set to be active on Startup.  If you proceed the Channel/Group Active on Power Up field "
    "will be unticked.  Do you wish to proceed?");

class DeleteChannel : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 1, 1});
    GiveChannels({11, 12, 13});
  }

  /// All that refers to a channel without keeping it from being deleted.
  void Refer(std::string_view channel) {
    for (const char* key : {"FunctionKey1", "FunctionKey2", "FunctionKey4"}) provider.Set(key, 1, 22);
    provider.Set("FunctionKey3", 1, 21);
    for (const char* name :
         {"FK1Parameter1", "FK3Parameter1", "FK4Parameter1", "GPSPollResponseChannel",
          "ActionParamHomeChannel", "ActionParamPresetChannel", "17.ChannelGroupIDForRadioStartup"}) {
      provider.Set(name, 1, channel);
    }
    provider.Set("FK2Parameter1", 1, "99");
    for (const char* name : {"FK1Parameter2", "FK2Parameter2", "FK4Parameter2"}) provider.Set(name, 1, 5);
    provider.Fill("EmChannel", {channel, channel, channel});
    provider.Fill("EmChannelType", {1, 0, 1});
    provider.Set("GPSPollResponseChannelType", 1, 1);
    provider.Set("17.GroupActivityOnPowerUp", 1, 1);
    provider.Set("CurrentChannelNr", 1, provider.Count(5));
  }

  std::string Keys() const {
    return Row(
        {"FunctionKey1", "FK1Parameter1", "FK1Parameter2", "FunctionKey4", "FK4Parameter1", "FK4Parameter2"});
  }
  std::string Emergencies() const { return Row({"EmChannelType"}) + Text("EmChannel", 3); }
  std::string GPS() const { return Row({"GPSPollResponseChannelType", "GPSPollResponseChannel"}); }
  std::string Heirs() const {
    return Row({"ActionParamHomeChannel", "ActionParamPresetChannel", "CurrentChannelNr"});
  }
  std::string Startup() const {
    return Row({"17.GroupActivityOnPowerUp", "17.ChannelGroupIDForRadioStartup"});
  }
};

TEST_F(DeleteChannel, AGroupMemberAndAPinsChannelStayBeforeAnyQuestion) {
  Refer("12");
  provider.Set("1108.Action", 9, "Home Channel");
  provider.Fill("GroupChannelUI_k6k", {"11", "12"});
  StartTrail();
  EXPECT_FALSE(Delete(2));
  provider.Fill("GroupChannelUI_k6k", {"11", "13"});
  EXPECT_FALSE(Delete(2));
  EXPECT_THAT(Boxes(), ElementsAre(kMember, kPin));
  EXPECT_EQ(Trail(), "box box");
}

TEST_F(DeleteChannel, APinCountsWithTheChannelOfItsOwnAction) {
  const std::tuple<const char*, const char*, const char*, bool> cases[] = {
      {"Home Channel", "12", "None", false}, {"Preset Channel", "None", "12", false},
      {"Home Channel", "None", "12", true},  {"Preset Channel", "12", "None", true},
      {"Home Channel", "11", "None", true},  {"No Action", "12", "12", true}};
  for (const auto& [action, home, preset, mayGo] : cases) {
    provider.Set("1108.Action", 15, action);
    provider.Set("ActionParamHomeChannel", 1, home);
    provider.Set("ActionParamPresetChannel", 1, preset);
    EXPECT_EQ(Delete(2), mayGo) << action << home << preset;
  }
}

TEST_F(DeleteChannel, ClearsAndBequeathsStepByStepAndThenRefreshes) {
  Refer("13");
  messenger.Play({Button::Yes, Button::Yes, Button::Yes, Button::Yes});
  EXPECT_TRUE(Delete(3));
  EXPECT_THAT(Boxes(), ElementsAre(kKeys, kEmergency, kGPS, kStartup));
  EXPECT_EQ(Keys(), "0 None 0 0 None 0");
  EXPECT_EQ(Row({"FK2Parameter1", "FK2Parameter2", "FunctionKey3", "FK3Parameter1"}), "99 5 21 13");
  EXPECT_EQ(Column("EmChannelType") + " " + Column("EmChannel"), "0 0 0 None 13 None");
  EXPECT_EQ(GPS(), "0 None");
  EXPECT_EQ(Heirs(), "11 11 2");
  EXPECT_EQ(Startup(), "0 11");
  EXPECT_EQ(Refreshed(),
            "FunctionKey1 FK1Parameter1 FK1Parameter2 FunctionKey4 FK4Parameter1 FK4Parameter2 EmChannelType "
            "EmChannel GPSPollResponseChannelType GPSPollResponseChannel ActionParamHomeChannel "
            "ActionParamPresetChannel CurrentChannelNr GroupActivityOnPowerUp_k6k "
            "ChannelGroupIDForRadioStartup");
  EXPECT_EQ(provider.Count(5), 3);  // the host deletes the record
}

TEST_F(DeleteChannel, WhatEarlierStepsDidStaysWhenALaterQuestionIsDeclined) {
  for (std::size_t declined = 1; declined <= 4; ++declined) {
    SCOPED_TRACE(declined);
    Refer("13");
    const std::string keys = Keys(), emergencies = Emergencies(), gps = GPS(), heirs = Heirs(),
                      startup = Startup();
    messenger.Clear();
    messenger.Play(std::vector(declined - 1, Button::Yes));
    messenger.Play({Button::No});
    EXPECT_FALSE(Delete(3));
    EXPECT_EQ(Boxes().size(), declined);
    EXPECT_EQ(Keys() != keys, declined > 1);
    EXPECT_EQ(Emergencies() != emergencies, declined > 2);
    EXPECT_EQ(GPS() != gps, declined > 3);
    EXPECT_EQ(Heirs() != heirs, declined > 3);
    EXPECT_EQ(Startup(), startup);
    EXPECT_EQ(Refreshed().empty(), declined == 1);  // what was written is reloaded
  }
  Refer("13");
  CloseEveryBox();
  EXPECT_FALSE(Delete(3));
}

TEST_F(DeleteChannel, TheFirstChannelIsTheHeirAndTheSecondOfTheFirst) {
  for (const auto& [record, id, heir] : {std::tuple{1, "11", "12"}, {2, "12", "11"}, {3, "13", "11"}}) {
    Refer(id);
    provider.Set("17.GroupActivityOnPowerUp", 1, 0);  // not ticked: nothing is asked
    messenger.Play({Button::Yes, Button::Yes, Button::Yes});
    EXPECT_TRUE(Delete(record));
    EXPECT_EQ(Heirs(), std::string(heir) + " " + heir + " 2");
    EXPECT_EQ(Startup(), std::string("0 ") + heir);
  }
  GiveChannels({11});  // the last one has no heir
  Refer("11");
  messenger.Play({Button::Yes, Button::Yes, Button::Yes, Button::Yes});
  EXPECT_TRUE(Delete(1));
  EXPECT_EQ(Heirs() + Startup(), "11 11 10 11");
}

TEST_F(DeleteChannel, TheCurrentChannelMovesDownFromTheEnd) {
  for (const auto& [current, left] : {std::pair{3, "2"}, {2, "2"}, {1, "1"}}) {
    provider.Set("CurrentChannelNr", 1, current);
    EXPECT_TRUE(Delete(1));
    EXPECT_EQ(Text("CurrentChannelNr"), left);
  }
}
}  // namespace
