#include <gmock/gmock.h>

#include "selcall/modFreeFormat.h"
#include "selcall/modToneSets.h"
#include "selcall/modvalSelcall.h"
#include "tests/selcall/BurstFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kQuestion =
    "The repeat tone '%0:S' is contained in one or more sequences. If you continue, tone '%0:S' will be "
    "replaced with the old repeat tone '%1:S' in these sequences. Do you want to continue?";
constexpr const char* kSigtecNotice =
    "Please be aware for the 'Sigtec' group format: when a group tone 'G' is used in a sequence all "
    "remaining "
    "tones of the burst must also be group tones.";

/// Two systems, of which the second is on the forms, with sequences; channels 1 and 3 signal by it, channel 2
/// by system 1. Preset calls 1 and 2 are those of channels 1 and 2.
class ToneSwaps : public BurstFixture {
 protected:
  void SetUp() override {
    BurstFixture::SetUp();
    provider.SetCount(48, 2);
    provider.SetCount(49, 14);
    provider.SetCount(76, 3);
    provider.Fill("76.DSDBM_PRESET_CALL_CHANNEL_REF", {1, 2, 99});
    provider.Fill("GroupFormat", {1, 1});
    GiveChannels({11, 12, 13});
    provider.Fill("5.ChannelNetworkIdUI", {2, 1, 2});
  }
  /// The same text in every slot, row, sequence and channel.
  void GiveEverywhere(const char* text) {
    for (const RecordNr record : RecordRange(provider.Count(30))) provider.Set("UGBurstSeq", record, text);
    for (const BurstUser& user : kBurstUsers) provider.Fill(user.form, {text, text, text});
    for (const RecordNr record : RecordRange(14)) {
      for (const auto& part : modFreeFormat::kParts) provider.Set(part.form, record, text);
    }
    for (const std::string_view uiid : modvalSelcall::kRxSequences) provider.Fill(uiid, {text, text});
    Show(2);
    messenger.Clear();
  }
  /// The places in a field that do not hold the text, runs in short.
  std::string Touched(std::string_view field, const std::string& text) const {
    std::string places;
    const RecordNr count = provider.Count(provider.FieldOf(field).table);
    for (RecordNr first = 1; first <= count; ++first) {
      if (Text(field, first) == text) continue;
      RecordNr last = first;
      while (last < count && Text(field, last + 1) != text) ++last;
      places += (places.empty() ? "" : " ") + std::to_string(first) +
                (last > first ? "-" + std::to_string(last) : "");
      first = last;
    }
    return places;
  }
  std::string TouchedByKind(const std::string& text, RecordNr from, RecordNr to) const {
    std::string touched;
    for (RecordNr user = from; user < to; ++user) {
      touched += "[" + Touched(kBurstUsers[static_cast<std::size_t>(user)].form, text) + "]";
    }
    return touched;
  }
  std::string TouchedInGrids(const std::string& text) const {
    std::string touched;
    for (const BurstFields& grid : kBurstFields) touched += "[" + Touched(grid.sequence, text) + "]";
    return touched;
  }
};

TEST_F(ToneSwaps, ANewGroupToneReachesAllThatCallsAGroupOfTheSystemShown) {
  provider.Set("GroupTone", 2, 10);
  GiveEverywhere("1GB");  // the group's, and one that is to become the group's
  EXPECT_TRUE(Validate("GroupTone", "b", 2));
  EXPECT_EQ(CStr(validated), "11");
  EXPECT_EQ(Text("UGBurstSeq", Slot(2, Burst::Repeater, 1)), "1AG");
  EXPECT_EQ(Touched("UGBurstSeq", "1GB"), "143-249");  // 107 of system 2: no status, access tone, lead-in
  EXPECT_EQ(TouchedInGrids("1GB"), "[1-5][1-2][1-100][][][]");
  EXPECT_EQ(TouchedByKind("1GB", 0, 6), "[1 3][1 3][1 3][][][]");
  EXPECT_EQ(TouchedByKind("1GB", 6, 10), "[1][1][1][]");
  EXPECT_EQ(Touched("FreeFormBurstR3", "1GB"), "8-14");
  EXPECT_EQ(Touched("FreeFormStatus", "1GB"), "");
  EXPECT_EQ(Touched("RMRBurst_k6k", "1GB"), "");  // a received sequence keeps its G
  EXPECT_EQ(Text("FreeFormSequence", 9) + " " + Text("FreeFormSequence2", 2),
            "1AG1AG1AG1AG1GB 1AG1AG1AG1AG1GB");
  EXPECT_EQ(Text("FreeFormSequence2", 1), "");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ToneSwaps, AWordForNoneHoldsNoTone) {
  provider.Set("GroupTone", 2, 10);
  provider.Set("RepeatTone", 2, 5);
  GiveEverywhere("None");
  provider.Set("UGBurstSeq", Slot(2, Burst::TxCall, 3), "undefined");
  EXPECT_TRUE(Validate("GroupTone", 14, 2));  // an E, and a D after that
  provider.Set("GroupTone", 2, 14);
  EXPECT_TRUE(Validate("GroupTone", 13, 2));
  EXPECT_EQ(TouchedByKind("None", 0, 10), "[][][][][][][][][][]");
  EXPECT_EQ(Text("UGBurstSeq", Slot(2, Burst::TxCall, 3)), "");
  provider.Set("GroupTone", 2, 13);
  EXPECT_TRUE(Validate("RepeatTone", 14, 2));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ToneSwaps, TheTwoTonesDifferAndTheFormatIsExplained) {
  provider.Fill("GroupTone", {10, 11});
  provider.Fill("RepeatTone", {14, 12});
  EXPECT_FALSE(Validate("GroupTone", "C", 2));
  EXPECT_FALSE(Validate("RepeatTone", 11, 2));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox("You can not make the Group Tone value the same as the Repeat Tone"),
                          ErrorBox("You can not make the Repeat Tone value the same as the Group Tone")));
  EXPECT_TRUE(Validate("GroupTone", "Both", 2));
  EXPECT_EQ(CStr(validated), "Both");
  provider.Set("GroupFormat", 2, 0);
  Give(2, Burst::TxCall, 1, "12G");
  messenger.Clear();
  EXPECT_TRUE(Validate("GroupTone", 13, 2));
  EXPECT_THAT(Boxes(), IsEmpty());  // the one group call is a plain one now
  EXPECT_EQ(Text("BurstSequence2_k6k"), "12B");
  Give(2, Burst::TxCall, 1, "12D");
  messenger.Clear();
  EXPECT_TRUE(Validate("GroupTone", 13, 2));
  EXPECT_THAT(Boxes(), ElementsAre(Box(48, "Caption Warning", kSigtecNotice)));
}

// The slots and the channels' fields are those of the radio's maintainers, one place off on purpose.
TEST_F(ToneSwaps, ANewRepeatToneIsReplacedByTheOldOneInAllButStatuses) {
  provider.Fill("RepeatTone", {5, 6});
  provider.Set("GroupTone", 2, 10);
  GiveEverywhere("172");
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("RepeatTone", 7, 2));
  EXPECT_THAT(Boxes(), ElementsAre(QuestionBox(kQuestion, "7|6")));
  EXPECT_EQ(Text("UGBurstSeq", 143), "162");
  EXPECT_EQ(Touched("UGBurstSeq", "172"), "142-248 274-283");  // 249 is the last Tx call
  EXPECT_EQ(TouchedInGrids("172"), "[1-5][1-2][1-100][][1-5][1-5]");
  EXPECT_EQ(TouchedByKind("172", 0, 6), "[1 3][1 3][1 3][][1 3][1 3]");
  EXPECT_EQ(TouchedByKind("172", 6, 10), "[1][1][1][]");
  for (const std::string_view uiid : modvalSelcall::kRxSequences) EXPECT_EQ(Column(uiid), "172 162");
  EXPECT_EQ(Touched("FreeFormBurstB", "172"), "1-14");  // of all systems
  EXPECT_EQ(Touched("FreeFormStatus", "172"), "");
  EXPECT_EQ(Text("FreeFormSequence", 3) + " " + Text("FreeFormSequence3", 1),
            "162162162162172 162162162162172");
}

TEST_F(ToneSwaps, AChannelFollowsTheSlotByItsPlace) {
  provider.Set("RepeatTone", 2, 6);
  const RecordNr lastSlots[] = {Slot(2, Burst::LeadIn, 4), Slot(2, Burst::LeadIn, 5),
                                Slot(1, Burst::LeadIn, 5)};
  for (const RecordNr slot : lastSlots) {
    provider.Fill("5.RepeaterBurstSeq", {"7", "7", "77"});
    provider.Fill("5.Lead-In-ToneSeq", {"7", "7", "7"});
    provider.Set("UGBurstSeq", slot, "7");
    messenger.Play({kYes});
    EXPECT_TRUE(Validate("RepeatTone", 7, 2));
    EXPECT_EQ(Column("5.RepeaterBurstSeq") + "|" + Column("5.Lead-In-ToneSeq"), "6 7 77|7 7 7") << slot;
  }
}

TEST_F(ToneSwaps, NothingIsWrittenWhenTheRepeatToneIsToStay) {
  provider.Set("RepeatTone", 2, 6);
  GiveEverywhere("172");
  CloseEveryBox();
  StartTrail();
  EXPECT_FALSE(Validate("RepeatTone", 7, 2));
  EXPECT_EQ(Trail(), "");
  GiveEverywhere("1E2");
  EXPECT_FALSE(Validate("ToneSet", 3, 2));
  EXPECT_EQ(Text("BasedOnToneSet", 2) + Touched("UGBurstSeq", "1E2"), "0");  // E is the standard one
}

TEST_F(ToneSwaps, ASetBringsItsTonesAndTheGroupsKeepTheirMeaning) {
  provider.Set("GroupTone", 2, 12);
  provider.Set("RepeatTone", 2, 13);
  Give(2, Burst::TxCall, 1, "1G2A");
  Give(2, Burst::TxCall, 2, "1E2");
  StartTrail();
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("ToneSet", 3, 2));
  EXPECT_THAT(Boxes(), ElementsAre(QuestionBox(kQuestion, "E|D")));
  EXPECT_EQ(Text("BurstSequence2_k6k", 1) + " " + Text("BurstSequence2_k6k", 2), "1C2G 1D2");
  EXPECT_EQ(Text("BasedOnToneSet", 2) + " " + Text("GroupTone", 2) + " " + Text("RepeatTone", 2), "3 10 14");
  EXPECT_EQ(Text("CustomFrequencies1", 2), modToneSets::FrequenciesOfToneset(3, true)[1]);
  EXPECT_EQ(Text("CustomFrequencies1", 1), "1124");
  const std::string refreshed = Refreshed();
  const auto at = [&](const char* uiid) { return refreshed.find(uiid); };
  EXPECT_TRUE(at("BasedOnToneSet") < at("CustomFrequencies0") && at("CustomFrequenciesF") < at("GroupTone") &&
              at("GroupTone") < at("RepeatTone"));
}

TEST_F(ToneSwaps, TheUserDefinedSetStartsFromItsBase) {
  provider.Set("BasedOnToneSet", 2, 7);
  provider.Set("GroupTone", 2, 5);
  messenger.Clear();
  EXPECT_TRUE(Validate("ToneSet", 9, 2));
  EXPECT_EQ(Text("CustomFrequencies1", 2), "631");
  EXPECT_EQ(Text("GroupTone", 2) + " " + Text("BasedOnToneSet", 2), "5 7");
  EXPECT_TRUE(Refreshed().starts_with("BasedOnToneSet CustomFrequencies0 "));
  messenger.Clear();
  EXPECT_TRUE(Validate("ToneSet", 10, 2));
  EXPECT_TRUE(Validate("ToneSet", 3, 9));
  EXPECT_EQ(Refreshed(), "");
}
}  // namespace
