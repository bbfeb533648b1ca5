#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kMember = ErrorBox(
    "This Channel is a member of one or more Scan Groups.  You must remove it from the Scan Groups before it "
    "can be "
    "deleted.");
const std::string kPin =
    ErrorBox("This Channel is a Programmable I/O Preset or Home channel and can not be deleted.");
const std::string kKeys = QuestionBox(
    "This channel is referenced by a function key. If you proceed the action of the function key will be set "
    "to "
    "'None'. Do you wish to proceed?");
const std::string kEmergency = QuestionBox(
    "This Channel is in use as a Dedicated Emergency Channel. If you proceed the Emergency Channel Type will "
    "be set "
    "to 'Current'.  Do you wish to proceed?");
const std::string kGPS = QuestionBox(
    "This Channel is in use as the GPS Poll Response Channel. If you proceed the GPS Poll Response Channel "
    "Type will "
    "be set to 'Current'.  Do you wish to proceed?");
const std::string kStartup = QuestionBox(
    "This channel is set to be active on Startup.  If you proceed the Channel/Group Active on Power Up field "
    "will be "
    "unticked.  Do you wish to proceed?");

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
    for (const char* parameter : {"FK1Parameter1", "FK3Parameter1", "FK4Parameter1"}) {
      provider.Set(parameter, 1, channel);
    }
    provider.Set("FK2Parameter1", 1, "99");
    for (const char* parameter : {"FK1Parameter2", "FK2Parameter2", "FK3Parameter2", "FK4Parameter2"}) {
      provider.Set(parameter, 1, 5);
    }
    provider.Fill("EmChannel", {channel, channel, channel});
    provider.Fill("EmChannelType", {1, 0, 1});
    provider.Set("GPSPollResponseChannelType", 1, 1);
    for (const char* name : {"GPSPollResponseChannel", "ActionParamHomeChannel", "ActionParamPresetChannel",
                             "17.ChannelGroupIDForRadioStartup"}) {
      provider.Set(name, 1, channel);
    }
    provider.Set("17.GroupActivityOnPowerUp", 1, 1);
    provider.Set("CurrentChannelNr", 1, provider.Count(5));
  }

  std::string Keys() const {
    std::string all;
    for (const char* name : {"FunctionKey1", "FK1Parameter1", "FK1Parameter2", "FunctionKey4",
                             "FK4Parameter1", "FK4Parameter2"}) {
      all += Text(name) + " ";
    }
    return all;
  }
  std::string Emergencies() const {
    return testing::PrintToString(Column("EmChannelType")) + testing::PrintToString(Column("EmChannel"));
  }
  std::string GPS() const { return Text("GPSPollResponseChannelType") + Text("GPSPollResponseChannel"); }
  std::string Heirs() const {
    return Text("ActionParamHomeChannel") + Text("ActionParamPresetChannel") + Text("CurrentChannelNr");
  }
  std::string Startup() const {
    return Text("17.GroupActivityOnPowerUp") + Text("17.ChannelGroupIDForRadioStartup");
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
  EXPECT_THAT(Trail(), ElementsAre("Imessenger.ShowMessage", "Imessenger.ShowMessage"));
}

TEST_F(DeleteChannel, APinCountsWithTheChannelOfItsOwnAction) {
  const struct {
    const char *action, *home, *preset;
    bool mayGo;
  } cases[] = {
      {"Home Channel", "12", "None", false}, {"Preset Channel", "None", "12", false},
      {"Home Channel", "None", "12", true},  {"Preset Channel", "12", "None", true},
      {"Home Channel", "11", "None", true},  {"No Action", "12", "12", true},
  };
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
  StartTrail();
  EXPECT_TRUE(Delete(3));
  EXPECT_THAT(Boxes(), ElementsAre(kKeys, kEmergency, kGPS, kStartup));
  EXPECT_EQ(Keys(), "0 None 0 0 None 0 ");
  EXPECT_EQ(Text("FK2Parameter1") + Text("FK2Parameter2") + Text("FunctionKey3") + Text("FK3Parameter1"),
            "9952113");
  EXPECT_THAT(Column("EmChannelType"), ElementsAre("0", "0", "0"));
  EXPECT_THAT(Column("EmChannel"), ElementsAre("None", "13", "None"));
  EXPECT_EQ(GPS(), "0None");
  EXPECT_EQ(Heirs(), "11112");
  EXPECT_EQ(Startup(), "011");
  EXPECT_THAT(messenger.Refreshed(),
              ElementsAre("FunctionKey1", "FK1Parameter1", "FK1Parameter2", "FunctionKey4", "FK4Parameter1",
                          "FK4Parameter2", "EmChannelType", "EmChannel", "GPSPollResponseChannelType",
                          "GPSPollResponseChannel", "ActionParamHomeChannel", "ActionParamPresetChannel",
                          "CurrentChannelNr", "GroupActivityOnPowerUp_k6k", "ChannelGroupIDForRadioStartup"));
  EXPECT_EQ(provider.Count(5), 3);  // the host deletes the record
}

TEST_F(DeleteChannel, WhatEarlierStepsDidStaysWhenALaterQuestionIsDeclined) {
  const struct {
    std::vector<Button> answers;
    bool keys, emergencies, gps, heirs;  // done
  } cases[] = {
      {{Button::No}, false, false, false, false},
      {{Button::Yes, Button::No}, true, false, false, false},
      {{Button::Yes, Button::Yes, Button::No}, true, true, false, false},
      {{Button::Yes, Button::Yes, Button::Yes, Button::No}, true, true, true, true},
  };
  for (const auto& [answers, keys, emergencies, gps, heirs] : cases) {
    SCOPED_TRACE(answers.size());
    Refer("13");
    const std::string keysBefore = Keys(), emergenciesBefore = Emergencies(), gpsBefore = GPS(),
                      heirsBefore = Heirs(), startupBefore = Startup();
    messenger.Clear();
    messenger.Play(answers);
    EXPECT_FALSE(Delete(3));
    EXPECT_EQ(Boxes().size(), answers.size());
    EXPECT_EQ(Keys() != keysBefore, keys);
    EXPECT_EQ(Emergencies() != emergenciesBefore, emergencies);
    EXPECT_EQ(GPS() != gpsBefore, gps);
    EXPECT_EQ(Heirs() != heirsBefore, heirs);
    EXPECT_EQ(Startup(), startupBefore);
    EXPECT_THAT(messenger.Refreshed(), IsEmpty());
  }
  Refer("13");
  const auto answering = AlwaysAnswer(Button::Cancel);
  EXPECT_FALSE(Delete(3));
  EXPECT_THAT(BoxesOf(*answering), ElementsAre(kKeys));
}

TEST_F(DeleteChannel, TheFirstChannelIsTheHeirAndTheSecondOfTheFirst) {
  for (const auto& [record, id, heir] : {std::tuple{1, "11", "12"}, {2, "12", "11"}, {3, "13", "11"}}) {
    Refer(id);
    provider.Set("17.GroupActivityOnPowerUp", 1, 0);
    messenger.Play({Button::Yes, Button::Yes, Button::Yes});
    EXPECT_TRUE(Delete(record));
    for (const char* name :
         {"ActionParamHomeChannel", "ActionParamPresetChannel", "ChannelGroupIDForRadioStartup"}) {
      EXPECT_EQ(Text(name), heir) << name;
    }
    EXPECT_EQ(Text("17.GroupActivityOnPowerUp"), "0");
  }
  EXPECT_THAT(Boxes(), testing::Not(testing::Contains(kStartup)));
}

TEST_F(DeleteChannel, TheLastChannelHasNoHeir) {
  GiveChannels({11});
  Refer("11");
  messenger.Play({Button::Yes, Button::Yes, Button::Yes, Button::Yes});
  EXPECT_TRUE(Delete(1));
  EXPECT_EQ(Heirs(), "11111");
  EXPECT_EQ(Startup(), "011");
}

TEST_F(DeleteChannel, TheCurrentChannelMovesDownFromTheEnd) {
  for (const auto& [current, left] : {std::pair{3, "2"}, {2, "2"}, {1, "1"}}) {
    provider.Set("CurrentChannelNr", 1, current);
    EXPECT_TRUE(Delete(1));
    EXPECT_EQ(Text("CurrentChannelNr"), left);
  }
}
}  // namespace
