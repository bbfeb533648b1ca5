#include <gmock/gmock.h>

#include "tests/selcall/BurstFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

/// Two systems with seven sequences each; the forms show sequence 3 of system 2, record 10.
class FreeFormatRules : public BurstFixture {
 protected:
  static constexpr RecordNr kRecord = 10;
  void SetUp() override {
    BurstFixture::SetUp();
    provider.SetCount(49, 15);
    provider.Set("CurrentFreeFormRecordNr", 1, kRecord);
    messenger.Clear();
  }
  std::string Outcome(const char* uiid, const Variant& value, RecordNr record = kRecord) {
    messenger.Clear();
    if (!Validate(uiid, value, record)) return messenger.Boxes().back().unfilled;
    provider.Set(uiid, record, validated);
    return CStr(validated);
  }
  void GiveParts(const std::vector<std::string>& bursts, const std::vector<int>& gaps, const char* status) {
    constexpr const char* kBursts[] = {"FreeFormBurstB", "FreeFormBurstR1", "FreeFormBurstR2",
                                       "FreeFormBurstR3"};
    constexpr const char* kGaps[] = {"FreeFormGap1", "FreeFormGap2", "FreeFormGap3", "FreeFormGap4"};
    for (std::size_t i = 0; i < 4; ++i) {
      provider.Set(kBursts[i], kRecord, bursts[i]);
      provider.Set(kGaps[i], kRecord, gaps[i]);
    }
    EXPECT_EQ(Outcome("FreeFormStatus", status), status);
  }
  bool Leave() {
    messenger.Clear();
    return LeaveForm("usrCtlFreeFormatKE2210", false);
  }
};

TEST_F(FreeFormatRules, AnEditIsShownInTheWholeSequenceHereAndAtItsSystem) {
  provider.Set("GroupTone", 2, 9);
  EXPECT_EQ(Outcome("FreeFormBurstB", "19"), "1G");  // the digit of the group tone is a G
  EXPECT_EQ(Outcome("FreeFormGap1", 2), "2");
  StartTrail();
  EXPECT_EQ(Outcome("FreeFormBurstR3", "77"), "77");
  EXPECT_EQ(Text("FreeFormSequence", kRecord) + " " + Text("FreeFormSequence3", 2), "1G--77 1G--77");
  EXPECT_EQ(Refreshed(), "FreeFormSequence FreeFormSequence3");
  EXPECT_EQ(Outcome("FreeFormStatus", "19"), "19");  // a status keeps its digits
  EXPECT_EQ(Text("FreeFormSequence3", 2), "1G--7719");
  EXPECT_EQ(Column("FreeFormSequence4"), " ");
  EXPECT_EQ(Outcome("FreeFormBurstR1", "5", 15), "5");  // of no system
  EXPECT_EQ(Text("FreeFormSequence", 15), "5");
  EXPECT_EQ(Column("FreeFormSequence1"), " ");
  EXPECT_TRUE(Validate("FreeFormBurstR1", "5", 16));
}

TEST_F(FreeFormatRules, TheRepeatToneIsInNoBurstAndNoGap) {
  const char* kRefusal = "You must not use the repeat tone '%0:S' in this sequence.";
  provider.Set("RepeatTone", 2, 8);
  EXPECT_EQ(Outcome("FreeFormBurstR2", "181"), kRefusal);
  EXPECT_EQ(messenger.Boxes()[0].parameters, "8");
  EXPECT_EQ(Outcome("FreeFormGap2", 8), kRefusal);  // a gap of eight, too
  EXPECT_EQ(Outcome("FreeFormStatus", "08"), "08");
  EXPECT_EQ(Outcome("FreeFormBurstR2", "E"), "E");            // of the other system
  EXPECT_EQ(Outcome("FreeFormBurstR2", "181", 1), kRefusal);  // the tones of the system shown count
}

TEST_F(FreeFormatRules, AStatusFollowsTheDoubleDigitBox) {
  const char* kMixed =
      "You have a 'V' with another character in the status burst.  If a 'V' is defined it must be the only "
      "character in this field.";
  const char* kBoxFirst =
      "The Status is 2 digits.  The Double Digit Status box must be ticked first before a double digit "
      "status can be entered.";
  const std::tuple<int, const char*, const char*> cases[] = {
      {0, "15", "15"},   {0, "16", kBoxFirst}, {0, "5", "5"},         {0, "VV", "V"},
      {0, "1V", kMixed}, {0, "", ""},          {0, "VVV", kBoxFirst}, {1, "16", "16"},
      {1, "5", "05"},    {1, "V", "V"},        {1, "V1", kMixed},     {1, "", ""}};
  for (const auto& [box, typed, outcome] : cases) {
    provider.Set("FreeForm2DigitStatus", kRecord, box);
    EXPECT_EQ(Outcome("FreeFormStatus", typed), outcome) << box << typed;
  }
}

TEST_F(FreeFormatRules, AStatusOfAnyLengthIsRefusedAndEndsNothing) {
  provider.Set("FreeForm2DigitStatus", kRecord, 0);
  EXPECT_TRUE(Outcome("FreeFormStatus", std::string(400, '9')).starts_with("The Status is 2 digits."));
}

TEST_F(FreeFormatRules, TheDoubleDigitBoxRewritesTheStatus) {
  const char* kTooHigh =
      "The Status value is higher than 15, the limit for one digit statuses.  Please change the status "
      "first.";
  const std::tuple<int, const char*, const char*, const char*> cases[] = {
      {1, "5", "1", "05"},  {1, "05", "1", "05"},      {1, "V", "1", "V"},
      {1, "", "1", ""},     {0, "05", "0", "5"},       {0, "V", "0", "V"},
      {0, "12", "0", "12"}, {0, "20", kTooHigh, "20"}, {0, "5", "0", "5"}};
  for (const auto& [box, status, outcome, after] : cases) {
    provider.Set("FreeFormStatus", kRecord, status);
    EXPECT_EQ(Outcome("FreeForm2DigitStatus", box), outcome) << box << status;
    EXPECT_EQ(Text("FreeFormStatus", kRecord), after);
  }
}

TEST_F(FreeFormatRules, ASequenceIsKeptOnlyWhenItHoldsTogether) {
  const std::string kNone = "At least one receiver identity burst must be set.";
  const std::string kStart = "The sequence cannot start with a gap.";
  const std::string kEnd = "The sequence cannot end with a gap.";
  const std::string kLong = "The sequence is too long.  It must be no more than 60 characters";
  const std::string kGap =
      "The sequence has at least two gap bursts without another burst between them.  They are combined "
      "resulting in a gap burst longer than 8 characters.  Please reduce their combined length to 8 or less.";
  const std::string kJoined =
      "The sequence has at least 2 bursts joined without a gap burst exceeding 12 characters.  The maximum "
      "burst length between gaps is 12 characters.";
  const std::string ten = "1234567890";
  const struct {
    std::vector<std::string> bursts;
    std::vector<int> gaps;
    const char* status;
    std::string refusal;
  } cases[] = {
      {{"", "", "", ""}, {0, 0, 0, 0}, "", ""},
      {{"", "1", "", ""}, {0, 0, 0, 0}, "", ""},
      {{"1", "", "", ""}, {1, 0, 0, 0}, "2", kNone},
      {{"", "1", "", ""}, {1, 0, 0, 0}, "", kStart},
      {{"", "1", "", ""}, {0, 1, 0, 0}, "", kEnd},
      {{"1", "", "2", ""}, {8, 0, 0, 0}, "", ""},
      {{"1", "", "2", ""}, {5, 4, 0, 0}, "", kGap},
      {{ten, "12", "", ""}, {0, 0, 0, 0}, "", ""},
      {{ten, "12", "", ""}, {0, 0, 0, 0}, "3", kJoined},
      {{ten, ten, ten, ten}, {6, 6, 6, 1}, "1", ""},
      {{ten, ten, ten, ten + "1"}, {6, 6, 6, 1}, "1", kLong},
  };
  for (const auto& one : cases) {
    provider.Set("FreeForm2DigitStatus", kRecord, 0);
    GiveParts(one.bursts, one.gaps, one.status);
    EXPECT_EQ(Leave(), one.refusal.empty()) << Text("FreeFormSequence", kRecord);
    if (!one.refusal.empty()) {
      EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(one.refusal)));
    } else {
      EXPECT_THAT(messenger.Boxes(), IsEmpty());
    }
  }
}

TEST_F(FreeFormatRules, ALoneRepeaterBurstBecomesTheReceiversOnConsent) {
  GiveParts({"123", "", "", ""}, {0, 0, 0, 0}, "");
  messenger.Play({kNo, kYes});
  EXPECT_FALSE(Leave());
  EXPECT_EQ(messenger.Boxes().back().unfilled, "At least one receiver identity burst must be set.");
  EXPECT_EQ(Text("FreeFormBurstB", kRecord) + "|" + Text("FreeFormBurstR1", kRecord), "123|");
  EXPECT_TRUE(Leave());
  EXPECT_EQ(Text("FreeFormBurstB", kRecord) + "|" + Text("FreeFormBurstR1", kRecord), "|123");
  EXPECT_EQ(Refreshed(), "FreeFormBurstR1 FreeFormBurstB");
}

TEST_F(FreeFormatRules, TheSigtecFormatWarnsOfTonesBehindAGroupTone) {
  const auto warning = [](const char* sequence) {
    return Box(48, "Caption Warning",
               "This Burst '%0:S' has an invalid 'G' tone sequence and should follow the Sigtec Group Format "
               "by placing 'G's at the end of the burst they occur in.",
               sequence);
  };
  GiveParts({"1G", "2GG", "", ""}, {1, 0, 0, 0}, "");
  EXPECT_TRUE(Leave());
  EXPECT_THAT(messenger.Boxes(), IsEmpty());
  GiveParts({"1G", "2G3", "", ""}, {1, 0, 0, 0}, "");
  EXPECT_TRUE(Leave());
  EXPECT_THAT(Boxes(), ElementsAre(warning("1G-2G3")));
  provider.Set("GroupFormat", 2, 1);
  EXPECT_TRUE(Leave());
  EXPECT_THAT(messenger.Boxes(), IsEmpty());
}

TEST_F(FreeFormatRules, AnEmptyAniOfTheSystemShownIsJudgedByItsOwnRule) {
  provider.Set("EmCyclingANI", 2, 1);
  provider.Set("CurrentFreeFormRecordNr", 1, 12);  // sequence 5 of system 2
  EXPECT_FALSE(Leave());
  EXPECT_EQ(messenger.Boxes()[0].unfilled,
            "If you wish to have an empty ANI sequence you must first disable Emergency ANI.");
  provider.Set("CurrentFreeFormRecordNr", 1, 11);
  EXPECT_TRUE(Leave());
  provider.Set("CurrentFreeFormRecordNr", 1, 12);
  Show(1);
  EXPECT_TRUE(Leave());
  provider.Set("CurrentFreeFormRecordNr", 1, 16);
  EXPECT_TRUE(Leave());
}
}  // namespace
