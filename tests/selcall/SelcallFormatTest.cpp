#include <gmock/gmock.h>

#include "selcall/modvalControlStatus.h"
#include "selcall/modvalSelcall.h"
#include "tests/selcall/BurstFixture.h"

namespace {
using testing::ElementsAre;

class SelcallFormat : public BurstFixture {
 protected:
  /// "" for a format that stands, else the text of the refusal.
  std::string Refusal(std::string_view format) {
    messenger.Clear();
    const ValidatorRef validator(Tier().get());
    FormWrites writes(validator);
    const bool stands = modvalSelcall::ValidateTxFormat6000(validator, writes, format, 2, false);
    EXPECT_EQ(stands, messenger.Boxes().empty()) << format;
    return stands ? "" : messenger.Boxes()[0].unfilled;
  }
};

TEST_F(SelcallFormat, IsRefusedByTheFirstThingThatIsWrong) {
  const char* kTwice = "You can only have one burst of type '%0:S' in the Tx or Rx Format.";
  const char* kLong = "A burst in the Tx or Rx Format must be no longer than 12 characters.";
  const char* kStatus =
      "The maximum length allowed for a burst of 'S' in the Tx or Rx format is 2 characters.";
  const char* kGap = "The maximum length allowed for a gap in the Tx or Rx format is 8 characters.";
  const char* kFirst = "The repeater 'B' burst must be at the beginning of the format.";
  const char* kLast = "The status 'S' burst must be at the end of the format.";
  const char* kEnds = "The format must not start or end with a gap.";
  const char* kNoR = "You must have at least one burst of type 'R' in the Tx Format.";
  const std::pair<const char*, const char*> cases[] = {
      {"BBB-RRRRR-SS", ""},
      {"RRRRRRRRRRRR-CC", ""},
      {"RRRRR-SS-RR", kTwice},
      {"SRS-", kTwice},
      {"RRRRRRRRRRRRR", kLong},
      {"RRRRRRRCCCCCC", kLong},
      {"R-CCCCCCCCCCCCC", kLong},
      {"RSSS", kStatus},
      {"R--------C", ""},
      {"R---------C", kGap},
      {"---------", kGap},
      {"RB", kFirst},
      {"-BR", kFirst},
      {"S-RRRRR", kLast},
      {"RS-", kLast},
      {"-RRRRR", kEnds},
      {"RRRRR-", kEnds},
      {"BBB-SS", kNoR},
      {"", kNoR},
      {"rrrrr", ""},
      {"RRR-X", ""},
  };
  for (const auto& [format, refusal] : cases) EXPECT_EQ(Refusal(format), refusal) << format;
}

class ControlStatus : public BurstFixture {
 protected:
  void SetUp() override {
    BurstFixture::SetUp();
    provider.SetCount(1115, 1);
    provider.Set("1115.ValueTracker", 1, 16);
  }
  void Tick(int rx, int tx) {
    provider.Set("1115.Rx", 1, rx);
    provider.Set("1115.Tx", 1, tx);
  }
  bool Passes(std::string_view format, RecordNr system, bool isFinal = false) {
    messenger.Clear();
    const ValidatorRef validator(Tier().get());
    FinalReport report(validator, FinalReport::Scope::FirstFinding);
    return modvalControlStatus::ValidateControlStatusTone(validator, format, system,
                                                          isFinal ? &report : nullptr);
  }
};

constexpr const char* kOutside =
    "One or more Control Status Values are outside of the allowed range. These must be updated before saving "
    "to file or programming a radio.";

TEST_F(ControlStatus, IsHeldAgainstAFormatThatIsHandedInElseAgainstThoseOfItsDirections) {
  provider.Fill("RxFormat_k6k", {"RR", "RR-S"});
  provider.Fill("TxFormat_k6k", {"RR", "RR-SS"});
  const std::tuple<int, int, const char*, bool> cases[] = {
      {1, 0, "", false},    {0, 1, "", true},     {0, 0, "", true}, {-1, 0, "", false},
      {0, 0, "R-S", false}, {1, 1, "R-SS", true}, {1, 0, "R", true}};
  for (const auto& [rx, tx, format, passes] : cases) {
    Tick(rx, tx);
    if (!passes) messenger.Play({kNo});
    EXPECT_EQ(Passes(format, 2), passes) << rx << tx << format;
    EXPECT_EQ(Passes(format, 2, true), passes);
    const std::vector<std::string> refusal(passes ? 0 : 1, ErrorBox(kOutside));
    EXPECT_EQ(Boxes(), refusal);
  }
}

TEST_F(ControlStatus, OutsideItsRangeIsLetThroughOnConsent) {
  messenger.Play({kYes, kNo});
  EXPECT_TRUE(Passes("R-S", 2));
  EXPECT_THAT(Boxes(), ElementsAre(QuestionBox(std::string(kOutside) + " Do you wish to continue?")));
  provider.Set("TxFormat_k6k", 2, "RR");
  provider.Set("RxFormat_k6k", 2, "RR-S");
  EXPECT_FALSE(Validate("BurstSequence2_k6k", "11"));  // a format without status asks the other one
}

TEST_F(ControlStatus, OfASystemThatTheFormDoesNotShowIsFoundAmongThoseOfAll) {
  provider.Fill("RxFormat_k6k", {"RR-S", "RR-S"});
  Tick(0, 0);
  provider.Fill("1111.SelcallID", {1, 2});  // system 2 is on the form: its row there does not count
  provider.Fill("1111.ValueTracker", {15, 16});
  provider.Fill("1111.Rx", {1, 1});
  EXPECT_TRUE(Passes("", modvalControlStatus::kEverySystem, true));
  provider.Set("1111.ValueTracker", 1, 16);
  EXPECT_FALSE(Passes("", modvalControlStatus::kEverySystem, true));
}

TEST_F(ControlStatus, StandsOnceInASystemBeforeASave) {
  provider.Fill("1111.SelcallID", {1, "2", 2, 1});
  provider.Fill("1111.ValueTracker", {5, 5, 6, 7});
  EXPECT_TRUE(Passes("R-SS", 2, true));
  provider.Set("1111.ValueTracker", 3, "5");
  EXPECT_TRUE(Passes("R-SS", 1, true));
  EXPECT_FALSE(Passes("R-SS", 2, true));
  EXPECT_TRUE(Passes("R-SS", 2));
}

TEST_F(ControlStatus, HasTheRangeOfItsTonesWhateverItsSign) {
  using modvalControlStatus::ValidateRange;
  const std::tuple<int, const char*, bool> cases[] = {
      {1, "15", true},  {1, "16", false},   {1, "-16", false}, {1, "F", true},
      {1, "1F", false}, {2, "99", true},    {2, "100", false}, {1, "", true},
      {2, "F", true},   {2, "-100", false}, {0, "1000", true}, {3, "x", true}};
  for (const auto& [tones, value, holds] : cases)
    EXPECT_EQ(ValidateRange(tones, value), holds) << tones << value;
}
}  // namespace
