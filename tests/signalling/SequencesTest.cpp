#include <limits>

#include "selcall/modSelcallMapping.h"
#include "tests/channels/ChannelFixture.h"

namespace {
constexpr const char* kDTMF = "64.DTMFNetworkToneSetupRecord";
constexpr const char* kPatch = "67.DTMFPatchNetworkID";
constexpr const char* kMDC1200 = "80.MDC1200RadioIDDerived";

class Sequences : public ChannelFixture {
 protected:
  std::string Tones(std::string_view field, RecordNr record) const {
    return modSelcallMapping::NumarrayToString(provider.Get(field, record));
  }
};

TEST_F(Sequences, DTMFSystemsComeBackFromTheTablesRebuiltOfThem) {
  provider.Fill("64.DTMFNetworkSigSystemID", {4, 9});
  provider.Fill("64.DTMFANISequence", {"*12#", ""});
  provider.Fill("64.DTMFEmergSequence", {"", "AD-0"});
  provider.Fill("64.DTMFLeadOutDelay", {70, 80});
  provider.SetCount(63, 3);
  provider.SetCount(66, 24);
  EXPECT_TRUE(FromUI(kDTMF));
  EXPECT_EQ(Column("66.DTMFNetworkPresetSeqSigSysID"), "4 4 4 4 4 4 9 9 9 9 9 9");
  EXPECT_EQ(Column("66.DTMFNetworkPresetSeqType"), "0 1 2 3 4 6 0 1 2 3 4 6");
  EXPECT_EQ(Tones("66.DTMFNetworkPresetSequence", 5), "F12E");
  EXPECT_EQ(Column("63.DTMFLeadOutDelay") + " " + Column(kDTMF), "70 80 0 1");
  for (const char* field : {"64.DTMFANISequence", "64.DTMFEmergSequence", "64.DTMFLeadOutDelay"}) {
    provider.Fill(field, {"5", "5"});
  }
  EXPECT_TRUE(ToUI(kDTMF));
  EXPECT_EQ(Column("64.DTMFANISequence") + "," + Column("64.DTMFEmergSequence"), "*12# , AD-0");
  EXPECT_EQ(Column("64.DTMFLeadOutDelay"), "70 80");
}

TEST_F(Sequences, DTMFTimingsAreThoseASystemPointsAtAndStrangersAreLeftAlone) {
  provider.Fill("64.DTMFNetworkSigSystemID", {4, 9, 2});
  provider.Fill(kDTMF, {1, -1, 2147483647});
  provider.Fill("64.DTMFLeadOutDelay", {5, 6, 7});
  provider.Fill("64.DTMFEmergSequence", {"5", "5", "5"});
  provider.Fill("63.DTMFLeadOutDelay", {70, 80});
  provider.Fill("66.DTMFNetworkPresetSeqSigSysID", {4, 7, 9});
  provider.Fill("66.DTMFNetworkPresetSeqType", {5, 3, 3});
  const ArrayObject tones = modSelcallMapping::StringToNumarray("1");
  provider.Fill("66.DTMFNetworkPresetSequence", {tones, tones, tones});
  EXPECT_TRUE(ToUI(kDTMF));
  EXPECT_EQ(Column("64.DTMFLeadOutDelay"), "80 6 7");
  EXPECT_EQ(Column("64.DTMFNetworkSequence4") + Column("64.DTMFEmergSequence"), " 1   ");
}

TEST_F(Sequences, PatchSequencesAreFourRecordsOfEachNetwork) {
  provider.Fill("21.NetworkIDTracker", {"7", "3", "5"});
  provider.Fill("67.DTMFPatchSequence4", {"*4", "", "5"});
  provider.Fill("67.DTMFPatchLineReleaseSeq1", {"", "#1", ""});
  provider.SetCount(68, 64);
  for (const RecordNr network : {1, 2, 3, 3}) EXPECT_TRUE(FromUI(kPatch, network));  // 3 once more, alone
  EXPECT_EQ(Column("68.DTMFPatchSeqNetworkID"), "7 7 7 7 3 3 3 3 5 5 5 5");
  EXPECT_EQ(Column("68.DTMFPatchSeqSequenceType"), "0 1 2 3 0 1 2 3 0 1 2 3");
  EXPECT_EQ(Tones("68.DTMFPatchSeqSequence", 4) + Tones("68.DTMFPatchSeqLineReleaseSeq", 5), "F4E1");
  EXPECT_EQ(Column("67.DTMFPatchToneSetupPointer"), "0 1 2");

  provider.SetCount(68, 11);  // network 3 lacks its last record, and its number
  provider.SetCount(21, 2);
  provider.Fill("67.DTMFPatchSequence4", {"9", "9", "9"});
  provider.Fill("68.DTMFPatchSeqNetworkID", std::vector<Variant>(11, 0));
  for (const RecordNr network : {1, 2, 3}) EXPECT_TRUE(ToUI(kPatch, network));
  EXPECT_EQ(Column("67.DTMFPatchSequence4") + "," + Column("67.DTMFPatchLineReleaseSeq1"), "*4  , #1 ");
  EXPECT_EQ(Column("68.DTMFPatchSeqNetworkID"), "7 7 7 7 3 3 3 3 0 0 0");
  EXPECT_EQ(Column("72.DTMFPatchTonesNetworkID"), "7") << "table 72 ends behind network 1";
}

TEST_F(Sequences, ANetworkBeyondAllTablesIsAFaultAndAddsNoPatchSequences) {
  ExpectTermination();
  EXPECT_TRUE(FromUI(kPatch, std::numeric_limits<RecordNr>::max()));
  EXPECT_EQ(Terminations(), 1);
  EXPECT_EQ(provider.Count(68), provider.GetSchema().FindTable(68)->minimum);
}

/// The list of a preset offers these words, and a control without a list shows the second.
TEST_F(Sequences, NoneAndUndefinedAreEmptySequences) {
  provider.Fill("64.DTMFANISequence", {"None", "1"});
  provider.Fill("67.DTMFPatchSequence1", {"Undefined", "2"});
  provider.Fill("65.DTMFChannelPresetSequenceUI", {"", "UNDEFINED", "none", "3"});
  EXPECT_TRUE(FromUI(kDTMF) && FromUI(kPatch, 1) && FromUI("65.DTMFChannelPresetSequenceUI"));
  EXPECT_EQ(Tones("66.DTMFNetworkPresetSequence", 5) + Tones("66.DTMFNetworkPresetSequence", 11), "1");
  EXPECT_EQ(Tones("68.DTMFPatchSeqSequence", 1), "");
  const std::string kPreset = "65.DTMFChannelPresetSequence";
  EXPECT_EQ(Tones(kPreset, 2) + Tones(kPreset, 3) + "," + Tones(kPreset, 4), ",3");
}

TEST_F(Sequences, MDC1200TextsAreHexadecimalOnTheFormAndDecimalInTheRadio) {
  provider.Fill("80.MDC1200SignallingSystemID", {4, 9});
  provider.Fill(kMDC1200, {"0001", "FFF"});
  provider.Fill("80.MDC1200ANISequence", {"64", ""});
  provider.Fill("80.MDC1200EmergencySequence", {"", "12345"});
  provider.SetCount(81, 8);
  EXPECT_TRUE(FromUI(kMDC1200, 1) && FromUI(kMDC1200, 2));
  EXPECT_EQ(Column("80.MDC1200RadioID"), "01 4095");
  EXPECT_EQ(Column("81.MDC1200NetworkPresetSeqSeqType"), "4 6");
  EXPECT_EQ(Column("81.MDC1200NetworkPresetSeqSequence"), "0100 074565");
  provider.Fill("80.MDC1200ANISequence", {"5", "5"});
  EXPECT_TRUE(ToUI(kMDC1200, 1) && ToUI(kMDC1200, 2));
  EXPECT_EQ(Column(kMDC1200) + "," + Column("80.MDC1200ANISequence"), "0001 0FFF,0064 ");
  EXPECT_EQ(Column("80.MDC1200EmergencySequence"), " 012345");

  provider.Set("80.MDC1200EmergencySequence", 2, "");
  EXPECT_TRUE(FromUI(kMDC1200, 2) && ToUI(kMDC1200, 2));  // alone, it replaces its own
  EXPECT_EQ(Column("81.MDC1200NetworkPresetSeqSigSystemID"), "4");
  EXPECT_EQ(Text("80.MDC1200EmergencySequence", 2), "");
}
}  // namespace
