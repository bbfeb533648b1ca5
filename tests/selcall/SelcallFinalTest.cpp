#include <gmock/gmock.h>

#include "tests/selcall/BurstFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

std::string Warning(std::string_view text, std::string_view fill) {
  return Box(48, "Caption Warning", text, fill);
}

/// Two systems, 4 and 9, of which the first is on the forms.
class SelcallFinal : public BurstFixture {
 protected:
  void SetUp() override {
    BurstFixture::SetUp();
    provider.Fill("29.SignalSystemId", {4, 9});
    provider.Fill("21.NetworkSignallingID", {4, 9, "None"});
    provider.Fill("TxFormat_k6k", {"RRRRR-SS", "RRRRR-S"});
    provider.Fill("RxFormat_k6k", {"RRRRR-SS", "RRRRR-S"});
    provider.Fill("GroupFormat", {1, 1});
    provider.SetCount(49, 14);
    EXPECT_TRUE(ToUI("30.FixedFormatBurstSeq"));
    Show(1);
    messenger.Clear();
  }
  std::vector<std::string> Told(bool passes) {
    messenger.Clear();
    EXPECT_EQ(FinalValidation(), passes);
    return Boxes();
  }
};

TEST_F(SelcallFinal, ACallThatAnotherOneHidesIsToldOfEachSystem) {
  const char* text =
      "The RMR sequence for Selcall system %0:S is the same as the %1:S sequence so you will never receive "
      "the "
      "RMR call. You should change one of these sequences.";
  provider.Fill("RMRBurst_k6k", {"12345", "None"});
  provider.Fill("RxDecodeSeq1_k6k", {"12344", "None"});
  provider.Fill("RxDecodeSeq2_k6k", {"12345", "12345"});
  EXPECT_THAT(Told(true), ElementsAre(Warning(text, "4|Rx Decode 2")));
  provider.Fill("RMRBurst_k6k", {"12344", "12345"});
  EXPECT_THAT(Told(true), ElementsAre(Warning(text, "4|Rx Decode 1"), Warning(text, "9|Rx Decode 2")));
}

TEST_F(SelcallFinal, BurstsOfAnotherLengthThanTheFormatsEndTheSave) {
  provider.Set("UGBurstSeq", Slot(2, Burst::TxCall, 4), "1234");
  EXPECT_THAT(Told(false), ElementsAre(ErrorBox(
                               "The length of one or more %0:s for signalling system %1:s is different from "
                               "the number of '%2:s's specified in the Tx Format. The Tx Format is '%3:s'",
                               "Tx Call Bursts|9|R|RRRRR-S")));
}

TEST_F(SelcallFinal, StatusesAreInRangeAndStandOnceInTheEditsOfTheForm) {
  const char* twins =
      "Two or more Control Status Values in the same Selcall System have the same value. They must be unique "
      "before saving to file or programming a radio.";
  provider.Fill("1115.ValueTracker", {7, 8});
  provider.Fill("1111.SelcallID", {1, 1, 2});
  provider.Fill("1111.ValueTracker", {5, 5, 16});  // of the system shown the form has others
  EXPECT_THAT(Told(true), IsEmpty());
  provider.Set("1111.Rx", provider.Count(1111) - 2, 1);
  EXPECT_EQ(Column("1111.SelcallID"), "2 1 1");
  EXPECT_THAT(Told(false),
              ElementsAre(ErrorBox("One or more Control Status Values are outside of the allowed "
                                   "range. These must be updated before saving to file or "
                                   "programming a radio.")));
  provider.Set("1115.ValueTracker", 2, 7);
  EXPECT_THAT(Told(false), ElementsAre(ErrorBox(twins)));
}

TEST_F(SelcallFinal, TheFirstBurstWithATonesBehindAGroupToneIsTold) {
  const char* fixed =
      "There is a Fixed Format %0:S Burst of '%1:S' in Selcall System %2:S with an invalid 'G' tone "
      "sequence.  "
      "You must correct this burst to follow the Sigtec Group Format by placing all 'G's at the end of the "
      "burst.";
  const char* free =
      "The Free Format Burst '%0:S' in Selcall System %1:S has an invalid 'G' tone sequence.  You must "
      "correct "
      "this burst to follow the Sigtec Group Format by placing 'G's at the end of the burst they occur in.";
  provider.Set("UGBurstSeq", Slot(2, Burst::TxCall, 1), "123GG");
  provider.Set("UGBurstSeq", Slot(2, Burst::TxCall, 2), "1G3GG");
  provider.Set("FreeFormSequence", 4, "1G--2G3-G4");
  provider.Set("FreeFormSequence", 5, "G1");
  EXPECT_THAT(Told(true), IsEmpty());  // in the other format
  provider.Fill("GroupFormat", {1, 0});
  EXPECT_THAT(Told(true), ElementsAre(Warning(fixed, "Tx Call|1G3GG|9")));
  provider.Fill("GroupFormat", {0, 0});
  EXPECT_THAT(Told(true), ElementsAre(Warning(free, "2G3|4")));
  provider.Set("FreeFormSequence", 4, "1G");  // the last three sequences are not looked at
  EXPECT_THAT(Told(true), ElementsAre(Warning(fixed, "Tx Call|1G3GG|9")));
}
}  // namespace
