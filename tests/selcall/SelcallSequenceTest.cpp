#include <gmock/gmock.h>

#include "tests/selcall/BurstFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

/// The text of the refusal; "" for a value that stands.
class SelcallSequences : public BurstFixture {
 protected:
  std::string Outcome(const char* uiid, const Variant& value, RecordNr record = 2) {
    messenger.Clear();
    const bool stands = Validate(uiid, value, record);
    EXPECT_TRUE(stands || !messenger.Boxes().empty()) << uiid;
    return stands ? "" : messenger.Boxes().back().unfilled;
  }
};

TEST_F(SelcallSequences, AReceivedSequenceIsRefusedByTheFirstThingThatIsWrong) {
  const std::string kEnds = "The first and last characters of the %0:S must not be gap characters.";
  const std::string kGaps = "The sequence must have only one gap.";
  const std::string kGapAlone =
      "There must not be a gap '-' character in the sequence if a status is not specified in the Rx Format. "
      "%0:SThe Rx Format is '%1:S'.";
  const std::string kOneG =
      "When the Group format type is Sigtec, only one 'G' burst is allowed in the sequence.";
  const std::string kPlaceG =
      "When the Group format type is Sigtec all of the 'G's in the sequence must be first or last.";
  const std::string kLength =
      "The sequence length is different from the number of 'R's specified in the Rx Format. %0:SThe Rx "
      "Format  is '%1:S'.";
  const std::string kLong =
      "The status number does not match the number of 'S's in the Rx Format. %0:SEnter from 0 to 15 if there "
      "is one 'S' in the Rx Format, or from 0 to 99 if there are 2 'S's in the Rx Format.";
  const std::string kVariable =
      "The variable status in the sequence is not valid. A variable status can only be one 'V'.";
  const std::string kNumeric = "The status number for the sequence must be variable (V) or numeric.";
  const std::string kTo15 =
      "The status number for the sequence must be in the range 0-15 %0:S when there is one 'S' in the Rx "
      "Format. The Rx Format is '%1:S'.";
  const std::string kRepeatTone = "You must not use the repeat tone '%0:S' in this sequence.";
  const struct {
    const char *format, *sequence;
    std::string refusal;
  } cases[] = {
      {"RRRRR-S", "12345-V", ""},
      {"RRRRR-S", "12345-VV", kVariable},
      {"RRRRR-S", "12345-16", kTo15},
      {"RRRRR-SS", "12345-16", ""},
      {"RRRRR-SS", "12345-99", ""},
      {"RRRRR", "12345-1", kGapAlone},
      {"RRRRR", "12345", ""},
      {"RRRRR-S", "12345", ""},
      {"RRRRR", "-12345", kEnds},
      {"RRRRR", "12345-", kEnds},
      {"RRRRR", "1-2-3", kGaps},
      {"RRRRR", "1234", kLength},
      {"RRRRR-S", "1234-5", kLength},
      {"RRRRR-SS", "12345-123", kLong},
      {"RRRRR-SS", "12345-A1", kNumeric},
      {"RRRRR", "GG3GG", kOneG},
      {"RRRRR", "1GG45", kPlaceG},
      {"RRRRR", "GG345", ""},
      {"RRRRR", "123GG", ""},
      {"RRRRR-S", "123GG-1", ""},
      {"RRRRR-S", "1G345-1", kPlaceG},
      {"RRRRR", "1234E", kRepeatTone},
      {"RRRRR", "", ""},
      {"RRRRR", "None", ""},
      {"RRRRR", "UNDEFINED", ""},
  };
  for (const auto& [format, sequence, refusal] : cases) {
    provider.Set("RxFormat_k6k", 2, format);
    for (const char* uiid : {"RxDecodeSeq1_k6k", "RMRBurst_k6k"})
      EXPECT_EQ(Outcome(uiid, sequence), refusal) << format << " " << sequence;
  }
  provider.Set("GroupFormat", 2, 1);
  EXPECT_EQ(Outcome("RxDecodeSeq2_k6k", "GG3GG"), "");
}

TEST_F(SelcallSequences, AnRxFormatTellsTheSequencesThatItDoesNotFitAndStands) {
  provider.Set("RxDecodeSeq1_k6k", 2, "12345");
  provider.Set("RxDecodeSeq2_k6k", 2, "None");
  provider.Set("RMRBurst_k6k", 2, "123");
  const std::string told =
      "The length of the %0:s sequence(s) is different from the number of 'R's specified in the Rx Format. "
      "The Rx Format is '%1:s'";
  EXPECT_EQ(Outcome("RxFormat_k6k", "RRRR"), "");
  EXPECT_THAT(Boxes(), ElementsAre(Box(48, "Caption Warning", told, "Rx Decode 1, RMR Sequence|RRRR")));
  EXPECT_EQ(Outcome("RxFormat_k6k", "RRRRR"), "");
  EXPECT_THAT(Boxes(), ElementsAre(Box(48, "Caption Warning", told, "RMR Sequence|RRRRR")));
  EXPECT_EQ(Outcome("RxFormat_k6k", "CC"), "You must have at least one burst of type 'R' in the Rx Format.");
  EXPECT_EQ(Outcome("RxFormat_k6k", "RRS-SS"),
            "You can only have one burst of type '%0:S' in the Tx or Rx Format.");
}

TEST_F(SelcallSequences, AThirdToneResetNeedsFourTonesInAll) {
  const char* kRefusal = "Third Tone Monitor Reset requires at least 4 'R's in the Rx Format.";
  provider.Fill("RxFormat_k6k", {"RR-R-R", "RRR"});
  EXPECT_EQ(Outcome("ThirdToneReset_k6k", 1, 1), "");
  EXPECT_EQ(Outcome("ThirdToneReset_k6k", 1, 2), kRefusal);
  EXPECT_EQ(Outcome("ThirdToneReset_k6k", 0, 2), "");
  provider.Fill("ThirdToneReset_k6k", {1, 1});
  EXPECT_EQ(Outcome("RxFormat_k6k", "RRRR", 2), "");
  EXPECT_EQ(Column("ThirdToneReset_k6k"), "1 1");
  EXPECT_EQ(Outcome("RxFormat_k6k", "RRR", 2), "");
  EXPECT_EQ(Column("ThirdToneReset_k6k"), "1 0");
  EXPECT_TRUE(messenger.Boxes()[0].text.ends_with("Third Tone Monitor Reset will now be unchecked."));
  EXPECT_EQ(Refreshed(), "ThirdToneReset_k6k");
}

TEST_F(SelcallSequences, AnRxFormatWithoutStatusTakesTheControlStatusesOnConsent) {
  const char* kQuestion =
      "Removing the 'S' burst will cause all control status values for this signalling system to be deleted. "
      "Do you wish to continue?";
  provider.SetCount(1115, 2);
  messenger.Play({kNo, kYes});
  EXPECT_EQ(Outcome("RxFormat_k6k", "RRRRR"), kQuestion);
  EXPECT_EQ(provider.Count(1115), 2);
  EXPECT_EQ(Outcome("RxFormat_k6k", "RRRRR-S"), "");
  EXPECT_EQ(Outcome("RxFormat_k6k", "RRRRR"), "");
  EXPECT_THAT(Boxes(), ElementsAre(QuestionBox(kQuestion)));
  EXPECT_EQ(provider.Count(1115), 0);
}

TEST_F(SelcallSequences, ABoxThatIsClosedTakesNothingAway) {
  provider.SetCount(1115, 1);
  provider.Set("UGBurstSeq", Slot(2, Burst::Repeater, 1), "123");
  CloseEveryBox();
  EXPECT_FALSE(Validate("RxFormat_k6k", "RRRRR", 2));
  EXPECT_FALSE(Validate("TxFormat_k6k", "RRRRR-CC-SS", 2));
  EXPECT_EQ(std::to_string(provider.Count(1115)) + Text("UGBurstSeq", Slot(2, Burst::Repeater, 1)), "1123");
}

/// Bursts of system 2 ("BBB-RRRRR-CC-SS"), channels 1 on its network and 2 on another one.
class TxFormatRule : public SelcallSequences {
 protected:
  void SetUp() override {
    SelcallSequences::SetUp();
    GiveChannels({11, 12});
    provider.Fill("5.ChannelNetworkIdUI", {2, 1});
    provider.Fill("5.CallerIDBurstSeq", {"12", "12"});
    Give(2, Burst::TxCall, 1, "12345");
    Give(2, Burst::CallerId, 2, "12");
    Give(2, Burst::Status, 1, "20");
    Give(2, Burst::LeadIn, 1, "1");
    Give(1, Burst::CallerId, 1, "1");
  }
};

constexpr const char* kRemoveKind =
    "There are one or more %0:s for signalling system %1:s. The format (%2:s) does not contain any %0:s. "
    "Continuing will clear all references to these bursts. Do you wish to continue?";
constexpr const char* kWrongLength =
    "The length of one or more %0:s for signalling system %1:s is different from the number of '%2:s's "
    "specified in the Tx Format. The Tx Format is '%3:s'";

TEST_F(TxFormatRule, TellsTheFirstBurstOfAnotherLengthAndStands) {
  const auto warning = [](const char* fill) { return Box(48, "Caption Warning", kWrongLength, fill); };
  EXPECT_EQ(Outcome("TxFormat_k6k", "RRRRR-CC-SS"), "");
  EXPECT_THAT(messenger.Boxes(), IsEmpty());
  EXPECT_EQ(Outcome("TxFormat_k6k", "RRRR-CCC-SS"), "");
  EXPECT_THAT(Boxes(), ElementsAre(warning("Caller ID Bursts|2|C|RRRR-CCC-SS")));
  EXPECT_EQ(Outcome("TxFormat_k6k", "RRRR-CC-SS"), "");
  EXPECT_THAT(Boxes(), ElementsAre(warning("Tx Call Bursts|2|R|RRRR-CC-SS")));
  EXPECT_EQ(Outcome("TxFormat_k6k", "RRRRR-CC-S"), "");  // 20 is more than a tone
  EXPECT_THAT(Boxes(), ElementsAre(warning("Status Bursts|2|S|RRRRR-CC-S")));
  Give(2, Burst::Status, 1, "99999999999");  // more than a number of the radio
  EXPECT_EQ(Outcome("TxFormat_k6k", "RRRRR-CC-S"), "");
  EXPECT_THAT(Boxes(), ElementsAre(warning("Status Bursts|2|S|RRRRR-CC-S")));
  for (const char* fits : {"V", "VV", "15", "Undefined"}) {
    Give(2, Burst::Status, 1, fits);
    EXPECT_EQ(Outcome("TxFormat_k6k", "RRRRR-CC-S"), "");
    EXPECT_THAT(messenger.Boxes(), IsEmpty()) << fits;
  }
  Give(2, Burst::TxCall, 1, "12|345");  // a bar is no tone
  EXPECT_EQ(Outcome("TxFormat_k6k", "RRRRR-CC-S"), "");
  EXPECT_THAT(messenger.Boxes(), IsEmpty());
}

TEST_F(TxFormatRule, TakesTheBurstsOfAKindThatItLacksOnConsent) {
  messenger.Play({kNo, kYes, kYes});
  EXPECT_EQ(Outcome("TxFormat_k6k", "RRRRR"), kRemoveKind);
  EXPECT_THAT(Boxes(), ElementsAre(QuestionBox(kRemoveKind, "Caller ID Bursts|2|RRRRR")));
  EXPECT_EQ(Text("UGBurstSeq", Slot(2, Burst::CallerId, 2)), "12");
  EXPECT_EQ(Outcome("TxFormat_k6k", "RRRRR"), "");
  EXPECT_EQ(messenger.Boxes().size(), 2U);  // one for each kind
  EXPECT_EQ(Text("UGBurstSeq", Slot(2, Burst::CallerId, 2)) + Text("UGBurstSeq", Slot(2, Burst::Status, 1)),
            "UndefinedUndefined");
  EXPECT_EQ(Text("UGBurstSeq", Slot(1, Burst::CallerId, 1)) + Text("UGBurstSeq", Slot(2, Burst::LeadIn, 1)),
            "11");
  EXPECT_EQ(Column("5.CallerIDBurstSeq"), "None 12");
  EXPECT_EQ(Column("BurstSequence1_k6k"), " ");  // the grid follows
}

TEST_F(SelcallSequences, WhatBelongsToASystemTakesItsNewNumber) {
  provider.Fill("31.SelcallToneSignalSystemId", {1, 2});
  provider.Fill("32.SignalSystemId", {2, 1, 2});
  provider.Fill("49.FreeFormSigSysID", {1, "2"});
  provider.Fill("21.SignallingType", {1, 1, 2});
  provider.Fill("21.NetworkSignallingID", {1, 2, 2});  // the last one is a DTMF system's
  StartTrail();
  EXPECT_TRUE(Validate("SignalSystemID_k6k", 9, 2));
  EXPECT_EQ(Column("31.SelcallToneSignalSystemId") + "|" + Column("32.SignalSystemId") + "|" +
                Column("49.FreeFormSigSysID") + "|" + Column("21.NetworkSignallingID"),
            "1 9|9 1 9|1 9|1 9 2");
  EXPECT_EQ(Text("30.FixedFormatSigSystemID", 142) + Text("30.FixedFormatSigSystemID", 143), "19");
  EXPECT_EQ(Refreshed(), "ToneSigSystemID FreeFormSigSysID NetworkSignallingID");
  provider.Set("SignalSystemID_k6k", 2, 9);
  for (const auto& [value, record, stands] :
       {std::tuple{9, 2, true}, {1, 2, false}, {9, 1, false}, {5, 3, true}}) {
    StartTrail();
    EXPECT_EQ(Validate("SignalSystemID_k6k", value, record), stands) << value << record;
    EXPECT_EQ(Trail(), "");
  }
}

TEST_F(SelcallSequences, TheAniIsNotEmptiedWhileAnEmergencySendsIt) {
  EXPECT_EQ(Outcome("FreeFormSequence5", "", 2), "");
  provider.Set("EmCyclingANI", 2, 1);
  EXPECT_EQ(Outcome("FreeFormSequence5", "", 2),
            "If you wish to have an empty ANI sequence you must first disable Emergency ANI.");
  EXPECT_EQ(Outcome("FreeFormSequence5", "1", 2), "");
  EXPECT_EQ(Outcome("FreeFormSequence5", "", 1), "");
  provider.Set("21.SignallingType", 2, 2);
  EXPECT_EQ(Outcome("FreeFormSequence5", "", 2), "");
}

TEST_F(SelcallSequences, TheSigtecFormatIsExplainedOnceWhereGroupTonesAreUsed) {
  EXPECT_EQ(Outcome("GroupFormat", 0), "");
  EXPECT_THAT(messenger.Boxes(), IsEmpty());
  provider.SetCount(49, 1);
  provider.Set("FreeFormSequence", 1, "12G");
  for (const auto& [value, boxes] : {std::pair{0, 1U}, {1, 0U}}) {
    EXPECT_EQ(Outcome("GroupFormat", value), "");
    EXPECT_EQ(messenger.Boxes().size(), boxes);
  }
  Give(1, Burst::TxCall, 1, "G");
  EXPECT_EQ(Outcome("GroupFormat", 0), "");
  EXPECT_EQ(messenger.Boxes().size(), 1U);
}
}  // namespace
