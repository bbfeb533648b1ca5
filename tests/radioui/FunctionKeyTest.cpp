#include <tuple>

#include "radioui/FunctionKeyActions.h"
#include "radioui/modvalFunctionKeys.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kConverted = "15.FnKeyShortPressActionID";
constexpr const char* kPointers[] = {kConverted, "15.FnKeyLongPressActionID", "15.FnKeyUpActionID",
                                     "15.FnKeyDownActionID"};

/// Four channels, 11 to 14, of which 12 and 13 are members of group 201, the first, and 14 of group 202.
class FunctionKeys : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveChannels({11, 12, 13, 14});
    provider.Fill("7.CibChannelID", {11, 12, 13, 14});
    for (const char* field : {"16.GroupIDTracker", "16.GroupIdentity"}) provider.Fill(field, {201, 202});
    provider.Fill("18.GroupIDNumber", {201, 201, 202});
    provider.Fill("GroupChannelUI_k6k", {"12", "13", "14"});
  }

  void SetKey(int key, const Variant& action, const Variant& parameter = "None") {
    provider.Set("FunctionKey" + std::to_string(key), 1, action);
    provider.Set("FK" + std::to_string(key) + "Parameter1", 1, parameter);
  }
  std::string Key(int key) const {
    const std::string number = std::to_string(key);
    return Text("FunctionKey" + number) + "/" + Text("FK" + number + "Parameter1") + "/" +
           Text("FK" + number + "Parameter2");
  }
  std::string Keys() const { return Key(1) + " " + Key(2) + " " + Key(3) + " " + Key(4); }
  /// What the pointers of a key lead to: "type/parameter/parameter", "-" for none.
  std::string Presses(int key) const {
    std::string presses;
    for (const char* pointer : kPointers) {
      const RecordNr record = CLng(provider.Get(pointer, key));
      presses += presses.empty() ? "" : " ";
      presses += record == 0 ? "-"
                             : Text("24.ProgrammableActionType", record) + "/" +
                                   Text("24.Parameter1", record) + "/" + Text("24.Parameter2", record);
    }
    return presses;
  }
  void ToRadio() { EXPECT_TRUE(FromUI(kConverted)); }
  /// The key in the radio: the types of short and long press, and of up.
  std::string Read(int key, std::vector<int> types) {
    provider.SetCount(24, 3);
    for (RecordNr record = 1; record <= 3; ++record) {
      const int type = types[static_cast<std::size_t>(record - 1)];
      provider.Set("24.ProgrammableActionType", record, type - 1);
      provider.Set(kPointers[record - 1], key, type == 0 ? 0 : record);
    }
    EXPECT_TRUE(ToUI(kConverted));
    return Text("FunctionKey" + std::to_string(key));
  }
};

TEST_F(FunctionKeys, EveryActionOnEveryKeyComesBackWithItsParameter) {
  const auto parameters = [](FunctionKeyActions::Parameter parameter) -> std::vector<std::string> {
    using enum FunctionKeyActions::Parameter;
    if (parameter == None) return {"None"};
    if (parameter == Group) return {"201", "202"};
    if (parameter == Channel) return {"11", "14"};
    const auto texts = FunctionKeyActions::TextsOf(parameter);
    return {texts.begin(), texts.end()};
  };
  for (int action = 0; action < FunctionKeyActions::kCount; ++action) {
    for (const std::string& parameter : parameters(FunctionKeyActions::Of(action).parameter)) {
      for (int key = 1; key <= 4; ++key) {
        for (int other = 1; other <= 4; ++other) SetKey(other, other == key ? action : 18);
        provider.Set("FK" + std::to_string(key) + "Parameter1", 1, parameter);
        ToRadio();
        for (int each = 1; each <= 4; ++each) SetKey(each, 1, "left");
        EXPECT_TRUE(ToUI(kConverted));
        EXPECT_EQ(Key(key), std::to_string(action) + "/" + parameter + "/0") << key;
        EXPECT_EQ(Key(key % 4 + 1), "18/None/0") << action;
      }
    }
  }
}

TEST_F(FunctionKeys, TheRadioGetsAnActionForEachPressAndPointersFromOne) {
  SetKey(1, 31, "202");
  SetKey(2, 21, "Sequence 4");
  SetKey(3, 27, "201");
  SetKey(4, 2);
  ToRadio();
  EXPECT_EQ(Column(kConverted), "1 3 5 0");
  EXPECT_EQ(Column("15.FnKeyLongPressActionID"), "2 4 6 0");
  EXPECT_EQ(Column("15.FnKeyUpActionID"), "0 0 0 7");
  EXPECT_EQ(Column("15.FnKeyDownActionID"), "0 0 0 8");
  EXPECT_EQ(Presses(1), "12/1/0 13/0/0 - -") << "the long press names no group";
  EXPECT_EQ(Presses(2), "27/3/1 28/3/1 - -");
  EXPECT_EQ(Presses(3), "19/0/0 24/0/2 - -") << "the long press alone tells its key";
  EXPECT_EQ(Presses(4), "- - 20/0/0 20/0/0");

  SetKey(1, 22, "13");
  SetKey(2, "10", "Deactivate");
  SetKey(3, 29, "14");
  SetKey(4, 19, "Preset 3");
  ToRadio();
  EXPECT_EQ(provider.Count(24), 4) << "the actions of before are gone";
  EXPECT_EQ(Presses(1) + Presses(2), "9/2/0 - - -17/2/1 - - -");
  EXPECT_EQ(Presses(3) + Presses(4), "29/0/2 - - -14/2/3 - - -");
}

TEST_F(FunctionKeys, AParameterThatNamesNothingIsNoneOnTheFormAndTheFirstInTheRadio) {
  const std::tuple<int, const char*, int> texts[] = {{10, "stealth", 0}, {12, "203", 0}, {12, "None", 0},
                                                     {22, "", 0},        {21, "5", 0},   {22, "15", 0}};
  for (const auto& [action, text, stored] : texts) {
    SetKey(1, action, text);
    ToRadio();
    EXPECT_EQ(Text("24.Parameter1"), std::to_string(stored)) << text;
  }
  provider.Set("16.GroupIdentity", 2, 77);  // the radio's own number counts
  const std::tuple<int, int, const char*> indexes[] = {
      {10, 2, "Deactivate"}, {10, 3, "None"},  {12, 1, "77"},       {31, 2, "None"},
      {22, 3, "14"},         {22, 4, "None"},  {19, 3, "Preset 4"}, {21, 4, "None"},
      {22, -1, "None"},      {21, -1, "None"}, {17, 2, "None"}};
  for (const auto& [action, index, text] : indexes) {
    SetKey(2, action);
    ToRadio();
    provider.Set("24.Parameter1", CLng(provider.Get(kConverted, 2)), index);
    provider.Set("FK2Parameter2", 1, 9);
    EXPECT_TRUE(ToUI(kConverted));
    EXPECT_EQ(Key(2), std::to_string(action) + "/" + text + "/0") << index;
  }
}

TEST_F(FunctionKeys, TheLongPressTellsApartWhatBeginsAlike) {
  const std::pair<std::vector<int>, const char*> cases[] = {
      {{9, 0, 0}, "17"},  {{9, 17, 0}, "18"}, {{9, 14, 0}, "0"},   {{13, 14, 0}, "31"}, {{13, 13, 0}, "0"},
      {{19, 4, 0}, "5"},  {{19, 25, 0}, "0"}, {{20, 25, 0}, "27"}, {{20, 4, 0}, "0"},   {{17, 9, 0}, "30"},
      {{28, 0, 0}, "21"}, {{25, 20, 0}, "6"},  // elsewhere it does not count
      {{0, 0, 21}, "2"},  {{0, 0, 20}, "0"},  {{21, 0, 0}, "2"},   {{11, 0, 21}, "0"},  {{1, 0, 21}, "28"},
      {{0, 17, 0}, "0"},  {{22, 0, 0}, "0"},  {{29, 0, 0}, "0"},   {{33, 0, 0}, "0"},   {{-1, 0, 0}, "0"},
  };
  for (const auto& [types, action] : cases) EXPECT_EQ(Read(3, types), action) << types[0] << " " << types[1];
}

TEST_F(FunctionKeys, ShortTablesAreReadAsNoKeysAndCompletedByAWrite) {
  Read(4, {9, 17, 0});
  provider.Set(kConverted, 4, 4);  // beyond the last action
  provider.SetCount(1099, 0);
  EXPECT_TRUE(ToUI(kConverted));
  EXPECT_EQ(Keys(), "0/None/0 0/None/0 0/None/0 0/None/0");
  for (const RecordNr keys : {3, 0}) {
    provider.SetCount(15, keys);
    provider.SetCount(3, keys == 0 ? 64 : 0);
    provider.SetCount(24, 0);
    EXPECT_TRUE(ToUI(kConverted));
    EXPECT_EQ(provider.Count(15), keys) << "reading adds nothing to what is stored";
    SetKey(4, 28);
    ToRadio();
    EXPECT_EQ(provider.Count(15), 4);
    EXPECT_EQ(provider.Count(3), 65);
    EXPECT_EQ(Presses(4), "0/0/0 - - -");
    EXPECT_EQ(Text("3.AnnunciatorMode", 65) + Text("3.AnnunciatorNumber", 1), "15");
  }
  for (const Variant& none : {Variant(32), Variant(-1)}) {
    SetKey(4, none);
    ToRadio();
    EXPECT_EQ(Presses(4), "- - - -");
  }
}

TEST_F(FunctionKeys, EachLightsTheAnnunciatorsOfItsActionAndTheOthersAreAsWithoutKeys) {
  const auto plain = [&] {
    for (int key = 1; key <= 4; ++key) SetKey(key, 0);
    ToRadio();
    return Column("3.AnnunciatorMode") + "|" + Column("3.AnnunciatorDuration") + "|" +
           Column("3.AnnunciatorNumber");
  };
  const std::string without = plain();
  const auto number = [&](RecordNr record) { return Text("3.AnnunciatorNumber", record); };
  SetKey(1, 18);
  SetKey(2, 27);  // of the two that light 41 the later key has it
  SetKey(3, 1);
  SetKey(4, 2);
  provider.Set("3.AnnunciatorNumber", 24, 8);
  ToRadio();
  EXPECT_EQ(number(41) + number(44) + number(33) + number(34), "4355");
  EXPECT_EQ(Text("3.AnnunciatorDuration", 24) + number(24), "26");
  EXPECT_EQ(Text("3.AnnunciatorDuration", 23), "0");
  SetKey(1, 21, "Sequence 1");
  SetKey(4, 22, "11");
  ToRadio();
  EXPECT_EQ(number(53) + number(28), "36");
  EXPECT_EQ(plain(), without) << "a key that is gone leaves no light";
}

/// An edit of a key, which stood at Emergency Mode, Stealth.
class KeyRules : public FunctionKeys {
 protected:
  bool Edit(int key, const Variant& action, std::vector<Button> answers = {}) {
    SetKey(key, 10, "Stealth");
    provider.Set("FK" + std::to_string(key) + "Parameter2", 1, 7);
    messenger.Clear();
    messenger.Play(std::move(answers));
    return Validate("FunctionKey" + std::to_string(key), action);
  }
};

TEST_F(KeyRules, ANewActionGivesItsParametersAndTheirControls) {
  const std::tuple<Variant, const char*, bool> cases[] = {
      {0, "None", false},        {"12", "201", true},  {31, "201", true},
      {21, "Sequence 1", true},  {22, "11", true},     {8, "None", false},
      {10, "Non Stealth", true}, {"x", "None", false}, {32, "None", false},
  };
  provider.Fill("EmergencyEnabled", {1});
  for (const auto& [action, parameter, switchesOn] : cases) {
    EXPECT_TRUE(Edit(3, action)) << CStr(action);
    EXPECT_EQ(Row({"FK3Parameter1", "FK3Parameter2"}), parameter + std::string(" 0"));
    EXPECT_EQ(Refreshed(), "FK3Parameter1 FK3Parameter2");
    EXPECT_EQ(Switched(), switchesOn ? "+FK3Parameter1+FK3Parameter2" : "-FK3Parameter1-FK3Parameter2");
    EXPECT_THAT(Boxes(), IsEmpty());
  }
  provider.SetCount(5, 0);
  EXPECT_TRUE(Edit(1, 22));
  EXPECT_EQ(Text("FK1Parameter1"), "None");
  provider.SetCount(1099, 0);
  EXPECT_TRUE(Validate("FunctionKey1", 22)) << "before there is a record";
}

TEST_F(KeyRules, WhatIsRefusedHasItsParametersAllTheSame) {
  const auto refused = [&](int key, int action, std::string_view text, std::string_view fill = {}) {
    EXPECT_FALSE(Edit(key, action)) << action;
    EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(text, fill)));
    const std::string number = std::to_string(key);
    EXPECT_EQ(Text("FK" + number + "Parameter2"), "0");
    EXPECT_EQ(Refreshed(), "FK" + number + "Parameter1 FK" + number + "Parameter2");
    EXPECT_EQ(Switched(), "");
    return Text("FK" + number + "Parameter1");
  };
  provider.Set("16.HiddenChannels", 1, 1);
  provider.Fill("18.GroupIDNumber", {201, 201, 201, 201});
  provider.Fill("GroupChannelUI_k6k", {"12", "13", "14", "11"});
  for (const int action : {12, 31}) {
    EXPECT_EQ(
        refused(2, action,
                "Function Keys can not be assigned to 'Activate Scanning' or 'Scanning/Nuisance Delete' "
                "when all of the Channels are included as Scan Group members and the Group's 'Hidden "
                "Channels' option is enabled"),
        "201");
  }
  provider.Set("16.HiddenChannels", 1, 0);
  provider.Set("16.HiddenChannels", 2, 1);  // of another group
  EXPECT_TRUE(Edit(2, 31));
  provider.SetCount(16, 0);
  for (const int action : {12, 31}) {
    EXPECT_EQ(
        refused(2, action,
                "Function Keys can not be assigned to 'Activate Scanning' or 'Scanning/Nuisance Delete' "
                "when no Scan Groups are defined"),
        "None");
  }
  provider.Set("BacklightMode", 1, 1);
  for (const int action : {3, 4, 5}) {
    EXPECT_EQ(
        refused(4, action,
                "You can only set %0:S to Backlight Timer or Backlight Timer/Toggle %1:Swhen the Backlight "
                "Mode is 'With Activity'",
                "Function Key 4|\r\n"),
        "None");
  }
  provider.Set("BacklightMode", 1, 0);
  for (const int action : {3, 4, 5}) EXPECT_TRUE(Edit(4, action));
  EXPECT_TRUE(Edit(1, 9));
  provider.Set("DigitalIOAction", 7, "Economy");
  EXPECT_EQ(refused(1, 9,
                    "Function Keys can not be assigned to 'Economy' when a Prog IO Pin has been set to "
                    "'Economy'"),
            "None");
}

TEST_F(KeyRules, AnOutputLineHasOneSignalOnAllPinsOfTheKey) {
  const std::tuple<std::vector<const char*>, std::vector<const char*>, bool> cases[] = {
      {{"F2 Key Status", "F2 Key Status"}, {"Latching", "Latching"}, true},
      {{"F2 Key Status", "F2 Key Status"}, {"Latching", "Momentary"}, false},
      {{"F3 Key Status", "F2 Key Status"}, {"Latching", "Momentary"}, true},
      {{"No Action", "No Action"}, {"None", "Momentary"}, true},
  };
  for (const auto& [actions, signals, passes] : cases) {
    for (const RecordNr pin : {0, 1}) {
      provider.Set("1108.Action", 4 + 9 * pin, actions[static_cast<std::size_t>(pin)]);
      provider.Set("1108.SignalType", 4 + 9 * pin, signals[static_cast<std::size_t>(pin)]);
    }
    EXPECT_EQ(Edit(2, 2), passes);
    EXPECT_EQ(Row({"FK2Parameter1", "FK2Parameter2"}), "None 0");
    if (passes) continue;
    EXPECT_THAT(Boxes(),
                ElementsAre(ErrorBox("The Signal States for Digital Prog IO Action's 'F%0:s Key Status' "
                                     "are not identical.  Please amend them before setting Function Key "
                                     "%0:s to 'Action Digital Output Line'.",
                                     "2")));
  }
}

TEST_F(KeyRules, NetworkPresetsWantASystemAndSequences) {
  const std::string warning =
      Box(48, "Caption Warning",
          "One or more selective systems in use do not have any network preset calls "
          "defined. This function key option may not work as intended on some channels.");
  EXPECT_FALSE(Edit(1, 19));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox("This option is not valid as there are no DTMF or Selcall systems "
                                   "defined. Either define a system with network preset calls, or select "
                                   "another function key option.")));
  EXPECT_EQ(Text("FK1Parameter1"), "Preset 1");
  GiveNetworks({0, 1, 2, 3});
  provider.Fill("ToneSigSystemID", {4, 9});
  provider.Set("FreeFormSequence4", 1, "12");
  provider.Set("DTMFNetworkSequence2", 1, "12");
  const auto told = [&] {
    EXPECT_TRUE(Edit(1, 19));
    return Boxes();
  };
  EXPECT_THAT(told(), IsEmpty());
  provider.Set("FreeFormSequence4", 1, " ");
  provider.Set("FreeFormSequence5", 1, "12");  // the ANI is no preset
  EXPECT_THAT(told(), ElementsAre(warning));
  provider.Set("21.NetworkSignallingID", 2, "5");  // a system that is gone
  EXPECT_THAT(told(), IsEmpty());
  provider.Set("21.NetworkSignallingID", 3, "9");
  EXPECT_THAT(told(), ElementsAre(warning));
  provider.Set("21.SignallingType", 3, 3);
  EXPECT_THAT(told(), IsEmpty());
  for (const char* systems : {"ToneSigSystemID", "DTMFNetworkSigSystemID"}) {
    provider.SetCount(provider.FieldOf(systems).table, 0);
    EXPECT_EQ(Edit(1, 19), systems == std::string("ToneSigSystemID")) << "one kind is enough";
  }
}

TEST_F(KeyRules, AnEmergencyThatANetworkDoesNotHaveIsToldOnce) {
  GiveNetworks({1, 2, 3});
  for (const RecordNr network : {1, 2, 3}) provider.Set("EmergencyEnabled", network, network == 2 ? 1 : 0);
  EXPECT_TRUE(Edit(4, 10));
  EXPECT_THAT(Boxes(),
              ElementsAre(Box(48, "Caption Warning",
                              "One or more networks do not have emergency mode enabled. This may result "
                              "in the function key having no effect.")));
  EXPECT_EQ(Text("FK4Parameter1"), "Non Stealth") << "the same action once more begins anew";
}

TEST_F(KeyRules, TheFormHasEachActionOnceAndNoneBesideItsLike) {
  const auto twice = [](const char* name) {
    return ErrorBox(
        "You have assigned '%0:S' to more than one function key.  This action can only be used on a "
        "single key.",
        name);
  };
  const auto pair = [](const char* names) {
    return ErrorBox("'%0:S' and '%1:S' can not be used together.  Please change one of these settings.",
                    names);
  };
  const std::tuple<std::vector<int>, std::string> cases[] = {
      {{1, 3, 4, 6}, ""},
      {{22, 22, 12, 12}, ""},
      {{31, 31, 12, 19}, ""},
      {{19, 21, 21, 19}, ""},
      {{2, 0, 2, 0}, ""},
      {{9, 0, 0, 9}, twice("Economy")},
      {{17, 18, 9, 9}, twice("Economy")},  // before what excludes each other
      {{10, 7, 7, 10}, twice("Emergency Mode")},
      {{0, 5, 0, 3}, pair("Backlighting Timer / Toggle|Backlighting Timer")},
      {{4, 5, 0, 0}, pair("Backlighting Toggle|Backlighting Timer / Toggle")},
      {{17, 0, 0, 18}, pair("Monitor|Monitor / Squelch Override")},
      {{30, 18, 0, 0}, pair("Squelch Override|Monitor / Squelch Override")},
      {{0, 27, 26, 0}, pair("Reset Monitor / Call Cleardown|Reset Monitor")},
      {{6, 27, 26, 0}, pair("Call Cleardown|Reset Monitor / Call Cleardown")},
      {{0, 0, 31, 20}, pair("Scanning / Nuisance Delete|Nuisance Delete")},
  };
  for (const auto& [actions, box] : cases) {
    for (int key = 1; key <= 4; ++key) SetKey(key, actions[static_cast<std::size_t>(key - 1)]);
    for (const char* form : {"usrCtlKeySettingsKD4410", "USRCTLKEYSETTINGSKE2210"}) {
      messenger.Clear();
      EXPECT_EQ(LeaveForm(form, true), box.empty()) << actions[0] << " " << actions[1];
      EXPECT_EQ(Boxes(), box.empty() ? std::vector<std::string>() : std::vector<std::string>{box});
    }
  }
}

TEST_F(KeyRules, AKeyThatScansHasChannelsToScanBeforeASave) {
  GiveNetworks({0});
  const auto told = [&] {
    messenger.Clear();
    return FinalRule("ValidateFunctionKeyFinalValidation") ? std::string() : Boxes().back();
  };
  const auto group = [&](int type, int hidden, int current) {
    provider.Set("ScanType_k6k", 2, type);
    provider.Set("HiddenChannels_k6k", 2, hidden);
    provider.Set("ScanInclCurrentChan_k6k", 2, current);
    provider.Set("ScanGroupDisplayIndicator_k6k", 2, 2);
    provider.Set("ScanDefaultTxChannel_k6k", 2, 4);
  };
  const auto background =
      StartsWith("48|Caption Error|There must be at least two Scan Group members to activate");
  const auto other =
      StartsWith("48|Caption Error|There must be at least two Channels in the Scan Group members");
  SetKey(1, 11, "202");  // does not scan
  SetKey(2, 12, "201");  // has two members
  group(0, 0, 0);
  EXPECT_FALSE(FinalRule("21"));
  EXPECT_EQ(Boxes().back(),
            "48|Caption Error|One or more function keys are set to Encryption.  Global Encryption must also "
            "be Enabled.|");
  provider.Set("GlobalEncryption", 1, 1);
  EXPECT_TRUE(FinalRule("21"));
  EXPECT_EQ(told(), "");
  SetKey(4, 31, "202");  // has one
  EXPECT_THAT(told(), other);
  group(2, 1, 1);
  EXPECT_THAT(told(), other);
  group(1, 1, 0);
  EXPECT_THAT(told(), background);
  group(1, 0, 1);
  EXPECT_THAT(told(), background);
  group(1, 1, 1);
  EXPECT_EQ(told(), "");
  SetKey(4, 31, "203");  // there is no such group
  group(0, 0, 0);
  EXPECT_EQ(told(), "");

  provider.SetCount(5, 2);  // 11 and 12
  provider.Set("16.HiddenChannels", 1, 1);
  EXPECT_EQ(told(), "");
  provider.Set("GroupChannelUI_k6k", 2, "11");
  EXPECT_EQ(told(),
            "48|Caption Error|Function Keys can not be assigned to 'Activate Scanning' or 'Scanning/Nuisance "
            "Delete' when all of the Channels are included as Scan Group members and the Group's 'Hidden "
            "Channels' option is enabled.|");
  provider.SetCount(5, 1);
  EXPECT_THAT(told(),
              StartsWith("48|Caption Error|Scanning requires at least two channels in the Channels form."));
}
}  // namespace
