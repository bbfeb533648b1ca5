#include <gmock/gmock.h>

#include <map>
#include <random>

#include "tests/selcall/BurstFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kChange =
    "One or more channels use this sequence. Changing this sequence will %0:S update all of those channels "
    "using it. Do you still want to change the sequence?";
constexpr const char* kRemove =
    "This sequence is being used by one or more Channels. Removing this sequence will affect all of those "
    "Channels using it. Do you still want to remove the sequence?";
constexpr const char* kSigtec =
    "This is an invalid 'G' tone sequence for the Sigtec Group Format.  You must correct this burst by "
    "placing all 'G's at the end of the burst before saving.";
constexpr const char* kUnique = "The Burst must be unique in relation to the other %0:s.";
constexpr const char* kRepeat = "You must not use the repeat tone '%0:S' in this sequence.";
constexpr const char* kNoStatus =
    "There is no 'S' burst in the Tx Format, so you may not specify a Status burst.%0:SThe Tx Format for "
    "System %1:S is '%2:S'.";
constexpr const char* kOneTone =
    "There is only 1 'S' in the Tx Format, so the Status value must be 0-15 or V.";
constexpr const char* kTwoTones =
    "There are 2 'S's in the Tx Format, so the value must be between 0 and 99 or V. %0:SThe Tx Format for "
    "System %1:S is '%2:S'.";

std::string NoBurst(const char* of) {
  return std::string(of) + " burst in the Tx Format. %0:SThe Tx Format for System %1:S is '%2:S'.";
}
std::string OtherLength(char letter) {
  return "The length of the burst is different to the number of '" + std::string(1, letter) +
         "'s in the Tx Format. %0:SThe Tx Format for System %1:S is '%2:S'.";
}

class BurstRule : public BurstFixture {
 protected:
  /// What the rule made of it: the value that it left or, of a refusal, the template of its box.
  std::string Outcome(Burst kind, std::string_view typed, RecordNr row = 1) {
    messenger.Clear();
    if (Edit(kind, row, typed)) return CStr(validated);
    return messenger.Boxes().empty() ? "silence" : messenger.Boxes().back().unfilled;
  }
};

TEST_F(BurstRule, ABurstHasTheLengthThatTheFormatGivesItsKind) {
  struct Case {
    const char* format;
    Burst kind;
    const char* typed;
    std::string outcome;
  };
  const std::string noRepeater = NoBurst("A Repeater value is only valid if you have a repeater 'B'");
  const std::string noCaller = NoBurst("A Caller ID is only valid if you have a Caller ID 'C'");
  const Case cases[] = {
      {"BBB-RRRRR", Burst::Repeater, "123", "123"},
      {"BBB-RRRRR", Burst::Repeater, "12", OtherLength('B')},
      {"RRRRR", Burst::Repeater, "123", noRepeater},
      {"RRRRR-CC", Burst::CallerId, "12", "12"},
      {"RRRRR-CC", Burst::CallerId, "123", OtherLength('C')},
      {"RRRRR", Burst::CallerId, "12", noCaller},
      {"RRRRR", Burst::TxCall, "1234", OtherLength('R')},
      {"RRRRR", Burst::TxCall, "12345", "12345"},
      {"RRRRR", Burst::Status, "1", kNoStatus},
      {"RRRRR-S", Burst::Status, "15", "15"},
      {"RRRRR-S", Burst::Status, "16", kOneTone},
      {"RRRRR-S", Burst::Status, "7", "7"},
      {"RRRRR-S", Burst::Status, "VV", "V"},
      {"RRRRR-S", Burst::Status, "1E1", kOneTone},  // three tones, not ten
      {"RRRRR-S", Burst::Status, " 5", kOneTone},
      {"RRRRR-S", Burst::Status, "99999999999", kOneTone},
      {"RRRRR-SS", Burst::Status, "7", "07"},
      {"RRRRR-SS", Burst::Status, "99", "99"},
      {"RRRRR-SS", Burst::Status, "100", kTwoTones},
      {"RRRRR-SS", Burst::Status, "V", "V"},
      {"RRRRR-SS", Burst::Status, "VV", kTwoTones},
      {"RRRRR-SS", Burst::Status, "A1", kTwoTones},
      {"RRRRR", Burst::AccessTone, "123456789", "123456789"},
      {"RRRRR", Burst::LeadIn, "1", "1"},
  };
  for (const auto& one : cases) {
    provider.Set("TxFormat_k6k", 2, one.format);
    EXPECT_EQ(Outcome(one.kind, one.typed), one.outcome) << one.format << " " << one.typed;
    const bool isTold = one.outcome.find("%2:S") != std::string::npos;
    EXPECT_TRUE(!isTold || messenger.Boxes()[0].parameters == "\r\n|2|" + std::string(one.format));
    Give(2, one.kind, 1, "");
  }
}

TEST_F(BurstRule, TheFormatIsJudgedFirstThoughTheBurstIsToGo) {
  provider.Set("TxFormat_k6k", 2, "BBB");
  Give(2, Burst::TxCall, 1, "12345");
  for (const char* typed : {"12345", ""}) {
    EXPECT_EQ(Outcome(Burst::TxCall, typed),
              "You must have at least one burst of type 'R' in the Tx Format.");
  }
  provider.Set("TxFormat_k6k", 2, "RRRRR");
  EXPECT_EQ(Outcome(Burst::TxCall, "  "), "");  // blanks are none
  EXPECT_EQ(Text("UGBurstSeq", Slot(2, Burst::TxCall, 1)), "");
}

TEST_F(BurstRule, TheRepeatToneIsAllowedInAStatusAloneAndLettersCount) {
  for (const Burst kind :
       {Burst::Repeater, Burst::CallerId, Burst::TxCall, Burst::AccessTone, Burst::LeadIn}) {
    const std::string typed = std::string("EE234").substr(0, kind == Burst::CallerId   ? 2
                                                             : kind == Burst::Repeater ? 3
                                                                                       : 5);
    EXPECT_EQ(Outcome(kind, typed), kRepeat) << typed;
    EXPECT_EQ(messenger.Boxes()[0].parameters, "E");
  }
  provider.Set("RepeatTone", 2, 1);
  EXPECT_EQ(Outcome(Burst::Status, "11"), "11");
  EXPECT_EQ(Outcome(Burst::AccessTone, "e"), "e");
}

TEST_F(BurstRule, TheGroupToneIsStoredAsGInTheBurstsThatCallAGroup) {
  provider.Set("GroupTone", 2, 5);
  provider.Set("GroupFormat", 2, 1);
  EXPECT_EQ(Outcome(Burst::TxCall, "12555"), "12GGG");
  EXPECT_EQ(Text("UGBurstSeq", Slot(2, Burst::TxCall, 1)), "12GGG");
  EXPECT_EQ(Outcome(Burst::TxCall, "12GG5", 2), kUnique);  // the forms of one burst collide
  EXPECT_EQ(messenger.Boxes()[0].parameters, "Tx Call Bursts");
  EXPECT_EQ(Outcome(Burst::Repeater, "155"), "1GG");
  EXPECT_EQ(Outcome(Burst::CallerId, "51"), "G1");
  EXPECT_EQ(Outcome(Burst::Status, "15"), "15");
  EXPECT_EQ(Outcome(Burst::AccessTone, "15"), "15");
  EXPECT_EQ(Outcome(Burst::LeadIn, "15"), "15");
  EXPECT_THAT(messenger.Boxes(), IsEmpty());
}

TEST_F(BurstRule, TheSigtecFormatWarnsOfGroupTonesBeforeOthersAndLetsThemStand) {
  for (const auto& [typed, warns] :
       {std::pair{"1G2GG", true}, {"G1234", true}, {"GGGGG", false}, {"123GG", false}}) {
    EXPECT_EQ(Outcome(Burst::TxCall, typed), typed);
    const std::vector<std::string> warning(warns ? 1 : 0, Box(48, "Caption Warning", kSigtec));
    EXPECT_EQ(Boxes(), warning) << typed;
  }
}

TEST_F(BurstRule, APresentValueTypedOnceMoreIsRefusedForItMeetsItself) {
  Give(2, Burst::Status, 3, "07");
  EXPECT_EQ(Outcome(Burst::Status, "7", 3), kUnique);
  EXPECT_EQ(Outcome(Burst::Status, "07", 4), kUnique);
  EXPECT_EQ(Outcome(Burst::Status, "70", 4), "70");
  Give(1, Burst::TxCall, 9, "12345");  // of another system
  EXPECT_EQ(Outcome(Burst::TxCall, "12345"), "12345");
}

/// Channels 1 and 4 are on network 2 (system 2), 2 on network 1, 3 on a network without signalling.
class BurstsOfChannels : public BurstRule {
 protected:
  void SetUp() override {
    BurstRule::SetUp();
    GiveChannels({11, 12, 13, 14});
    provider.Fill("5.ChannelNetworkIdUI", {2, 1, 3, 2});
    for (std::size_t kind = 0; kind < kBurstKinds; ++kind)
      provider.Fill(ChannelBurst(static_cast<Burst>(kind)).form, {"12345", "12345", "12345", "None"});
    Give(2, Burst::TxCall, 7, "12345");
    provider.Set("GroupTone", 2, 9);
    provider.Set("GroupFormat", 2, 1);
    StartTrail();
  }
};

TEST_F(BurstsOfChannels, FollowAChangeAfterOneQuestionInTheFormThatWasTyped) {
  messenger.Play({kYes});
  EXPECT_TRUE(Edit(Burst::TxCall, 7, "54399"));
  EXPECT_THAT(Boxes(), ElementsAre(QuestionBox(kChange, "\r\n")));
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "54399 12345 12345 None");
  EXPECT_EQ(Column("5.StatusBurstSeq"), "12345 12345 12345 None");
  EXPECT_EQ(CStr(validated), "543GG");
  EXPECT_EQ(Refreshed(), "TXCallBurstIndex_k6k UGBurstSeq");
  EXPECT_EQ(Trail(),
            "box 5.TXCallBurstSeq[1] 30.UGBurstSeq[156] refresh:TXCallBurstIndex_k6k refresh:UGBurstSeq");
}

TEST_F(BurstsOfChannels, AreAskedAboutOnceHoweverManyTheyAre) {
  for (const char* typed : {"54321", ""}) {
    provider.Fill("5.TXCallBurstSeq", {"12345", "12345", "12345", "12345"});
    Give(2, Burst::TxCall, 7, "12345");
    messenger.Play({kYes});
    EXPECT_TRUE(Edit(Burst::TxCall, 7, typed));
    EXPECT_EQ(Text("5.TXCallBurstSeq", 1), Text("5.TXCallBurstSeq", 4));
    EXPECT_NE(Text("5.TXCallBurstSeq", 4), "12345");
  }
}

TEST_F(BurstsOfChannels, StayWhenTheQuestionIsAnsweredOtherwise) {
  CloseEveryBox();
  for (const char* typed : {"54321", ""}) {
    EXPECT_FALSE(Edit(Burst::TxCall, 7, typed)) << typed;
    EXPECT_EQ(Column("5.TXCallBurstSeq"), "12345 12345 12345 None");
    EXPECT_EQ(Text("UGBurstSeq", Slot(2, Burst::TxCall, 7)), "12345");
  }
}

TEST_F(BurstsOfChannels, KeepTheChangeThatALaterCheckRefuses) {
  Give(2, Burst::TxCall, 8, "77777");
  messenger.Play({kYes});
  EXPECT_FALSE(Edit(Burst::TxCall, 7, "77777"));
  EXPECT_EQ(messenger.Boxes().back().unfilled, kUnique);
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "77777 12345 12345 None");
  EXPECT_EQ(Text("UGBurstSeq", Slot(2, Burst::TxCall, 7)), "12345");
}

TEST_F(BurstsOfChannels, LoseABurstThatIsTakenAway) {
  messenger.Play({kYes});
  EXPECT_TRUE(Edit(Burst::TxCall, 7, " "));
  EXPECT_THAT(Boxes(), ElementsAre(QuestionBox(kRemove)));
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "None 12345 12345 None");
  EXPECT_EQ(CStr(validated) + "|" + Text("UGBurstSeq", Slot(2, Burst::TxCall, 7)), "|");
}

TEST_F(BurstsOfChannels, AreNotAskedForWhereTheSlotWasUnusedOrTheSystemIsAnothers) {
  for (const char* unused : {"", "Undefined"}) {
    provider.Set("UGBurstSeq", Slot(2, Burst::TxCall, 1), unused);
    provider.Fill("5.TXCallBurstSeq", {unused, unused, unused, unused});
    EXPECT_EQ(Outcome(Burst::TxCall, "44444"), "44444");
    Give(2, Burst::TxCall, 1, "");
  }
  // Numbers that are not the places: the network of number 2 signals by the system in record 1.
  provider.Fill("29.SignalSystemId", {2, 1});
  provider.Fill("5.TXCallBurstSeq", {"12345", "12345", "12345", "12345"});
  EXPECT_EQ(Outcome(Burst::TxCall, "54321", 7), "54321");
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "12345 12345 12345 12345");
  // What is taken away asks the place alone: network 1 has the number 1, which is that of record 2.
  messenger.Play({kYes});
  Give(2, Burst::TxCall, 7, "12345");
  EXPECT_TRUE(Edit(Burst::TxCall, 7, ""));
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "12345 None 12345 12345");
}

TEST_F(BurstsOfChannels, AChannelWithoutNetworkIsLeftAlone) {
  provider.SetCount(21, 0);
  EXPECT_EQ(Outcome(Burst::TxCall, "54321", 7), "54321");
}

TEST_F(BurstRule, WithoutSystemSlotOrRowNothingIsJudgedAndNothingWritten) {
  StartTrail();
  for (const auto& [system, row] : {std::pair{3, 1}, {0, 1}, {2, 0}, {2, 6}}) {
    provider.Set("CurrentSelcallNumber", 1, system);
    EXPECT_TRUE(Validate("BurstSequence0_k6k", "garbage", row)) << system << " " << row;
  }
  provider.Set("CurrentSelcallNumber", 1, 2);
  provider.SetCount(30, 200);
  EXPECT_TRUE(Validate("BurstSequence5_k6k", "garbage", 1));
  EXPECT_EQ(Trail(), "");
}

TEST_F(BurstRule, TheGridsShowTheSystemWithoutTakingItForAnEdit) {
  Give(1, Burst::LeadIn, 5, "1");
  Give(2, Burst::Repeater, 2, "Undefined");
  Give(2, Burst::Repeater, 3, "22");
  EXPECT_EQ(Column("BurstSequence0_k6k"), "  22  ");
  StartTrail();
  Show(1);
  EXPECT_EQ(Column("BurstSequence5_k6k"), "    1");
  EXPECT_EQ(Refreshed(),
            "BurstSequence0_k6k BurstSequence1_k6k BurstSequence2_k6k BurstSequence3_k6k BurstSequence4_k6k "
            "BurstSequence5_k6k ControlStatusValue");
  EXPECT_EQ(Trail().find("BurstID"), std::string::npos);
  EXPECT_THAT(provider.Monitor().Calls(), testing::Contains("Iprovider.SetAutoUpdate 0"));
  provider.Set("UGBurstType", Slot(1, Burst::LeadIn, 1), 9);  // only its own counter moves
  provider.SetCount(30, Slot(1, Burst::LeadIn, 5) - 1);
  Show(1);
  EXPECT_EQ(Column("BurstSequence5_k6k"), "    ");
  Show(3);  // no such system: nothing of another one stays in sight
  EXPECT_EQ(Column("BurstSequence0_k6k"), "    ");
}

/// The grids are a view of the slots: whatever is edited in whatever order, they tell the same.
TEST_F(BurstRule, GridsAndSlotsStayInStep) {
  std::mt19937 random(13);
  const auto below = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  provider.Fill("TxFormat_k6k", {"BB-RR-CC-SS", "B-R-C-S"});
  using Key = std::tuple<RecordNr, std::size_t, RecordNr>;
  std::map<Key, std::string> model;  // what each slot holds
  for (int step = 0; step < 3000; ++step) {
    const RecordNr system = CLng(provider.Get("CurrentSelcallNumber"));
    if (below(10) == 0) {
      Show(below(2) + 1);
      continue;
    }
    const auto kind = static_cast<std::size_t>(below(6));
    const RecordNr row = below(kBurstLayout.CountOf(static_cast<Burst>(kind))) + 1;
    std::string typed;
    for (int tones = below(3); tones > 0; --tones) typed += "0123456789V"[below(11)];
    messenger.Clear();
    if (Edit(static_cast<Burst>(kind), row, typed)) model[{system, kind, row}] = CStr(validated);
    if (step % 50 != 0) continue;
    for (const auto& [key, text] : model) {
      const auto& [owner, of, at] = key;
      EXPECT_EQ(Text("UGBurstSeq", Slot(owner, static_cast<Burst>(of), at)), text);
      EXPECT_TRUE(owner != system || Text(kBurstFields[of].sequence, at) == text) << step;
    }
  }
  EXPECT_GT(model.size(), 100U);
}
}  // namespace
