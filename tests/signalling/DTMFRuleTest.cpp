#include <algorithm>
#include <map>
#include <random>

#include "common/Handles.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kFollowing = QuestionBox(
    "This sequence is being used by one or more Channels.  Changing this sequence will affect all of those "
    "Channels using it. Do you still want to change the sequence?");
const std::string kGap = ErrorBox("The DTMF Sequence can not start or end with a gap.");
const std::string kTwice = ErrorBox("The DTMF Preset Sequences must be unique in relation to each other.");

/// DTMF systems 4 and 9, of which the forms show the first. Networks 1 (DTMF, 4), 2 (DTMF, 9), 3 (Selcall,
/// 4); a channel of each that calls "12".
class DTMFRules : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({2, 2, 1});
    provider.Set("21.NetworkSignallingID", 2, "9");
    GiveChannels({11, 12, 13});
    provider.Fill("5.ChannelNetworkIdUI", {1, 2, 3});
    provider.Fill("DTMFPresetCallSequence", {"12", "12", "12"});
    provider.Fill("65.DTMFChannelPresetSeqSigSysID", {4, 4, 9, 4, 9});  // the first is no preset
    provider.Fill("65.DTMFChannelPresetSequenceUI", {"x", "12", "34", "56", ""});
    Turn(1);
  }
  void Turn(RecordNr system) {
    EXPECT_TRUE(Validate("CurrentDTMFNr", system));
    provider.Set("CurrentDTMFNr", 1, system);
    messenger.Clear();
  }
  std::string Shown() const { return provider.Count(1098) == 0 ? "-" : Column("DTMFPresetSequence"); }
  std::string Stored() const { return Column("65.DTMFChannelPresetSequenceUI"); }
};

TEST_F(DTMFRules, TheFormShowsThePresetsOfItsSystemAndBringsThemBack) {
  EXPECT_EQ(Shown(), "12 56");
  provider.Fill("DTMFPresetSequence", {"7", "8"});
  StartTrail();
  EXPECT_TRUE(Validate("CurrentDTMFNr", 2));
  EXPECT_EQ(Stored() + "|" + Shown(), "x 7 34 8 |34 ");
  EXPECT_THAT(Trail(), testing::EndsWith("refresh:DTMFPresetSequence"));
  EXPECT_NE(provider.IsAutoUpdating(), false);
  provider.Set("CurrentDTMFNr", 1, 2);
  provider.Fill("DTMFPresetSequence", {"A"});  // fewer rows than presets
  EXPECT_TRUE(LeaveForm("usrCtlDTMF", true));
  EXPECT_EQ(Stored(), "x 7 A 8 ");
  EXPECT_THAT(Refreshed(), testing::EndsWith("DTMFNetworkSigSystemID DTMFPresetSequence"));
  provider.Fill("DTMFPresetSequence", {"B"});
  EXPECT_TRUE(FinalValidation());
  EXPECT_EQ(Stored(), "x 7 B 8 ");
  for (const int beyond : {3, 0}) {
    EXPECT_TRUE(Validate("CurrentDTMFNr", beyond));
    EXPECT_EQ(Shown(), "-") << beyond;
  }
  EXPECT_TRUE(LeaveForm("usrCtlDTMF", true));
  EXPECT_EQ(Stored(), "x 7 B 8 ") << "an empty grid brings nothing";
}

TEST_F(DTMFRules, ASequenceHasNoGapAtItsEndsAndAnEmptyANINoUser) {
  for (const char* uiid :
       {"DTMFEmergSequence", "DTMFANISequence", "DTMFNetworkSequence1", "DTMFNetworkSequence4"}) {
    messenger.Clear();
    for (const char* sequence : {"-1", "1-", "-"}) EXPECT_FALSE(Validate(uiid, sequence)) << uiid << sequence;
    for (const char* sequence : {"1-2", "*A#", ""}) EXPECT_TRUE(Validate(uiid, sequence)) << uiid << sequence;
    EXPECT_THAT(Boxes(), ElementsAre(kGap, kGap, kGap));
  }
  provider.Set("EmCyclingANI", 2, 1);  // of system 9
  provider.Set("EmCyclingANI", 3, 1);  // of the Selcall system 4
  EXPECT_TRUE(Validate("DTMFANISequence", ""));
  provider.Set("EmCyclingANI", 1, 1);
  messenger.Clear();
  EXPECT_FALSE(Validate("DTMFANISequence", ""));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox(
                  "If you wish to have an empty ANI sequence you must first disable Emergency ANI.")));
  EXPECT_TRUE(Validate("DTMFEmergSequence", ""));
}

TEST_F(DTMFRules, ChannelsFollowTheirPresetAlsoWhereALaterTestRefuses) {
  const struct {
    const char* typed;
    std::vector<Button> answers;
    bool passes;
    const char* channels;
    std::vector<std::string> boxes;
  } cases[] = {
      {"12", {}, true, "12 12 12", {}},  // nothing changes: nobody is asked
      {"78", {kNo}, false, "12 12 12", {kFollowing}},
      {"78", {kYes}, true, "78 12 12", {kFollowing}},
      {"", {kYes}, true, "None 12 12", {kFollowing}},
      {"7-", {kYes}, false, "7- 12 12", {kFollowing, kGap}},
      {"56", {kYes}, false, "56 12 12", {kFollowing, kTwice}},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.typed);
    provider.Fill("DTMFPresetCallSequence", {"12", "12", "12"});
    messenger.Clear();
    messenger.Play(one.answers);
    EXPECT_EQ(Validate("DTMFPresetSequence", one.typed, 1), one.passes);
    EXPECT_EQ(Column("DTMFPresetCallSequence"), one.channels);
    EXPECT_EQ(Boxes(), one.boxes);
  }
  provider.Fill("DTMFPresetSequence", {"", "56"});
  provider.Fill("DTMFPresetCallSequence", {"", "", ""});
  EXPECT_TRUE(Validate("DTMFPresetSequence", "78", 1)) << "what was empty has no user";
  EXPECT_EQ(Column("DTMFPresetCallSequence"), "  ");
}

TEST_F(DTMFRules, PresetsDifferFromTheRowOfTheSystemsNumberOn) {
  provider.Fill("DTMFPresetSequence", {"11", "22", "3", "22"});
  const std::tuple<int, const char*, RecordNr, bool> cases[] = {
      {1, "11", 2, false}, {1, "22", 2, false}, {1, "22", 4, false}, {1, "3", 1, true},  // a key alone
      {1, "3A", 1, true},  {2, "11", 3, true},  {2, "22", 3, false}, {1, "11", 1, true}};
  for (const auto& [system, typed, row, passes] : cases) {
    provider.Set("CurrentDTMFNr", 1, system);
    EXPECT_EQ(Validate("DTMFPresetSequence", typed, row), passes) << system << typed << row;
  }
}

TEST_F(DTMFRules, ASystemInUseStays) {
  EXPECT_FALSE(Delete(2, "DTMF"));
  EXPECT_THAT(
      Boxes(),
      ElementsAre(ErrorBox("This DTMF System is being used on one or more Networks and can not be deleted")));
  EXPECT_EQ(Stored() + "|" + Shown(), "x 12 34 56 |12 56");
  provider.Set("21.SignallingType", 2, 1);
  EXPECT_TRUE(Delete(2, "DTMF"));
  EXPECT_EQ(Stored() + "|" + Shown(), "x 12 56|12 56");
}

TEST_F(DTMFRules, ANewSystemGetsItsPresetsAndTheOthersWhatTheyLack) {
  provider.Set("65.DTMFChannelPresetSeqSigSysID", 3, "");  // of nobody
  provider.Fill("DTMFPresetSequence", {"77", "88"});
  Add("DTMF", 64);
  EXPECT_EQ(Column("DTMFNetworkSigSystemID") + " at " + Text("CurrentDTMFNr"), "4 9 1 at 3");
  EXPECT_EQ(Stored().substr(0, 8), "x 77 88 ") << "the form's presets were brought back, nobody's is gone";
  const auto owned = [&](const char* system) {
    RecordNr count = 0;
    for (RecordNr preset = 2; preset <= provider.Count(65); ++preset) {
      if (Text("65.DTMFChannelPresetSeqSigSysID", preset) == system) ++count;
    }
    return count;
  };
  EXPECT_THAT((std::vector{owned("4"), owned("9"), owned("1")}), ElementsAre(10, 10, 10));
  EXPECT_EQ(provider.Count(65), 31);
  EXPECT_EQ(provider.Count(1098), 10);
  EXPECT_EQ(
      Text("65.SortOrder", 31) + Text("65.DTMFChannelPresetSequenceUI", 31) + Text("DTMFANISequence", 3),
      "31");
}

/// Random edits of systems and presets against a plain model.
class DTMFWalk : public ChannelFixture {
 protected:
  using Presets = std::vector<std::string>;

  std::size_t Below(std::size_t count) { return random_() % count; }
  RecordNr Shown() const { return CLng(provider.Get("CurrentDTMFNr")); }
  int NumberAt(RecordNr system) const { return CLng(provider.Get("DTMFNetworkSigSystemID", system)); }
  void Turn(RecordNr system) {
    EXPECT_TRUE(Validate("CurrentDTMFNr", system));
    provider.Set("CurrentDTMFNr", 1, system);
  }
  void AddSystem() {
    if (provider.Count(64) == 4) return;
    Add("DTMF", 64);
    model_[NumberAt(provider.Count(64))] = Presets(10);
  }
  void RemoveSystem() {
    if (provider.Count(64) == 0) return;
    const auto system = static_cast<RecordNr>(Below(model_.size())) + 1;
    model_.erase(NumberAt(system));
    EXPECT_TRUE(Delete(system, "DTMF"));
    ProviderRef(sharedProvider).Table("64").DeleteRecord(system);
  }
  void TurnToAny() {
    if (!model_.empty()) Turn(static_cast<RecordNr>(Below(model_.size())) + 1);
  }
  /// A host that asks the rule of the pointer after the edit, or later.
  void Type() {
    if (model_.empty()) return;
    const auto row = Below(10);
    const std::string sequence = std::to_string(1000 + Below(9000));
    if (!Validate("DTMFPresetSequence", sequence, static_cast<RecordNr>(row) + 1)) return;
    provider.Set("DTMFPresetSequence", static_cast<RecordNr>(row) + 1, sequence);
    model_.at(NumberAt(Shown()))[row] = sequence;
    if (Below(2) == 0) Turn(Shown());
  }
  void Leave() {
    if (model_.empty()) return;
    EXPECT_TRUE(LeaveForm("usrCtlDTMF", false));
  }
  void Save() {
    EXPECT_TRUE(FinalValidation());
    EXPECT_TRUE(FromUI("65.DTMFChannelPresetSequenceUI"));
    for (RecordNr preset = 1; preset <= provider.Count(65); ++preset) {
      provider.Set("65.DTMFChannelPresetSequenceUI", preset, "");
    }
    EXPECT_TRUE(ToUI("65.DTMFChannelPresetSequenceUI"));
    if (!model_.empty()) ExpectAllStored();
  }
  void ExpectAllStored() const {
    std::map<int, Presets> stored;
    for (RecordNr preset = 2; preset <= provider.Count(65); ++preset) {
      stored[CLng(provider.Get("65.DTMFChannelPresetSeqSigSysID", preset))].push_back(
          Text("65.DTMFChannelPresetSequenceUI", preset));
    }
    EXPECT_EQ(stored, model_);
  }
  void ExpectShown() const {
    Presets shown;
    for (RecordNr row = 1; row <= provider.Count(1098); ++row)
      shown.push_back(Text("DTMFPresetSequence", row));
    EXPECT_EQ(shown, model_.empty() ? Presets() : model_.at(NumberAt(Shown())));
  }

  void Step() {
    using Act = void (DTMFWalk::*)();
    constexpr Act kActs[] = {&DTMFWalk::AddSystem, &DTMFWalk::RemoveSystem, &DTMFWalk::TurnToAny,
                             &DTMFWalk::Type,      &DTMFWalk::Type,         &DTMFWalk::Type,
                             &DTMFWalk::Leave,     &DTMFWalk::Save};
    (this->*kActs[Below(std::size(kActs))])();
  }

  std::map<int, Presets> model_;
  std::mt19937 random_{16};
};

TEST_F(DTMFWalk, EachSystemKeepsItsPresets) {
  provider.SetCount(65, 1);
  for (int step = 0; step < 3000 && !HasFailure(); ++step) {
    Step();
    ExpectShown();
    EXPECT_EQ(provider.Count(65), 1 + 10 * provider.Count(64)) << step;
  }
}
}  // namespace
