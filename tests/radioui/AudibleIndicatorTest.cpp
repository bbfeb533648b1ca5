#include "tests/channels/ChannelFixture.h"

namespace {
constexpr const char* kList = "1117.AudibleIndicators_k6k";
constexpr RecordNr kIndicators = 50, kListed = 26, kProgrammes = 47;

class AudibleIndicators : public ChannelFixture {
 protected:
  /// Table 4: flag, programme, repeat.
  std::string Indicator(RecordNr record) const {
    return Text("4.EnabledFlag", record) + " " + Text("4.ProgIndex", record) + " " +
           Text("4.RepeatFlag", record);
  }
  std::string Listed(RecordNr record) const {
    return Text(kList, record) + " " + Text("1117.EnabledFlag", record);
  }
  /// Table 60, in the order of the table of programmes.
  std::string Programme(RecordNr record) const {
    std::string texts;
    for (const char* field : {"AudibleIndicatorCadence", "TonesPerIndicator", "AudibleIndicatorFrequency1",
                              "ToneDuration", "RemainingCadences", "AudibleIndicatorFrequency2"}) {
      texts += (texts.empty() ? "" : ",") + Text("60." + std::string(field), record);
    }
    return texts;
  }
  void GiveProgrammes(RecordNr count) {
    provider.SetCount(60, count);
    for (RecordNr record = 1; record <= count; ++record) {
      provider.Set("60.AudibleIndicatorCadence", record, 0x4000);
      provider.Set("60.TonesPerIndicator", record, 5);
      provider.Set("60.AudibleIndicatorFrequency1", record, 6);
    }
  }
};

TEST_F(AudibleIndicators, OfARadioThatHasNoneAreListedAsTheirRowsSay) {
  for (const RecordNr before : {0, 1}) {
    provider.SetCount(4, before);
    if (before == 1) {
      provider.Set("4.EnabledFlag", 1, 0);
      provider.Set("4.ProgIndex", 1, 9);
    }
    ASSERT_TRUE(ToUI(kList));
    ASSERT_EQ(provider.Count(4), kIndicators);
    ASSERT_EQ(provider.Count(1117), kListed);
    EXPECT_EQ(Indicator(1), "1 0 0");  // of one record nothing is kept
    EXPECT_EQ(Indicator(11) + ", " + Indicator(23) + ", " + Indicator(50), "1 8 0, 1 19 1, 1 46 0");
    EXPECT_EQ(Listed(1) + ", " + Listed(3) + ", " + Listed(26),
              "Acknowledgement 1, Emergency Activated 1, High Reverse Power Warning Tone 1");
  }
}

TEST_F(AudibleIndicators, StoredOnesStayAndMissingOnesAreAppended) {
  provider.SetCount(4, 49);
  provider.Set("4.EnabledFlag", 2, 0);
  provider.Set("4.EnabledFlag", 48, 0);
  provider.Set("4.ProgIndex", 2, 30);
  provider.SetCount(1117, 3);
  ASSERT_TRUE(ToUI(kList));
  EXPECT_EQ(Indicator(2) + ", " + Indicator(50), "0 30 0, 1 46 0");
  EXPECT_EQ(provider.Count(1117), kListed);
  EXPECT_EQ(Listed(1) + ", " + Listed(2) + ", " + Listed(26),
            "Acknowledgement 0, Computer Control 1, High Reverse Power Warning Tone 0");
  provider.SetCount(4, 2);  // the fewest that count as the radio's own
  provider.SetCount(1117, 0);
  ASSERT_TRUE(ToUI(kList));
  EXPECT_EQ(Listed(1) + ", " + Indicator(3) + ", " + Listed(26),
            "Acknowledgement 0, 1 7 0, High Reverse Power Warning Tone 1");
}

TEST_F(AudibleIndicators, TheUserSwitchesThoseThatAreListedAndNoOther) {
  ASSERT_TRUE(ToUI(kList));
  provider.Set("1117.EnabledFlag", 1, 0);
  provider.Set("1117.EnabledFlag", 26, "0");
  for (const RecordNr record : {1, 2, 50}) {
    provider.Set("4.EnabledFlag", record, 0);
    provider.Set("4.ProgIndex", record, 9);
    provider.Set("4.RepeatFlag", record, 1);
  }
  ASSERT_TRUE(FromUI(kList));
  EXPECT_EQ(Indicator(1) + ", " + Indicator(2) + ", " + Indicator(48) + ", " + Indicator(50),
            "1 0 0, 0 1 0, 0 42 0, 1 46 0");
  provider.SetCount(1117, 1);  // those that the list lacks are as their rows say
  provider.SetCount(4, 0);
  ASSERT_TRUE(FromUI(kList));
  EXPECT_EQ(Indicator(2) + ", " + Indicator(48), "0 1 0, 1 42 0");
  EXPECT_EQ(provider.Count(4), kIndicators);
}

TEST_F(AudibleIndicators, ProgrammesAreFixedButForTheCadencesOfTheUser) {
  GiveProgrammes(24);
  ASSERT_TRUE(FromUI(kList));
  ASSERT_EQ(provider.Count(60), kProgrammes);
  const std::pair<RecordNr, const char*> cases[] = {{1, "43690,8,3,200,0,4"},   {12, "57351,16,4,50,1,4"},
                                                    {19, "37376,7,6,40,0,6"},   {20, "16384,5,4,200,0,3"},
                                                    {24, "16384,5,4,200,0,3"},  {25, "0,0,0,0,0,0"},
                                                    {28, "55296,5,4,100,0,4"},  // it was missing
                                                    {44, "32768,1,0,1000,2,0"}, {47, "32768,1,6,100,0,6"}};
  for (const auto& [record, programme] : cases) EXPECT_EQ(Programme(record), programme) << record;
  provider.Set("60.TonesPerIndicator", 28, 2);
  provider.Set("60.TonesPerIndicator", 29, 2);
  ASSERT_TRUE(FromUI(kList));
  EXPECT_EQ(Text("60.TonesPerIndicator", 28) + " " + Text("60.TonesPerIndicator", 29), "2 5");
}

TEST_F(AudibleIndicators, ACadenceIsATextOfItsSteps) {
  struct Case {
    const char* typed;
    const char* pattern;
    const char* tones;
    const char* shown;
  };
  const Case cases[] = {{"1101", "53248", "4", "1101"},
                        {"  11 ", "49152", "2", "11"},
                        {"", "0", "0", ""},
                        {"0000000000000001", "1", "16", "0000000000000001"},
                        {"11111111111111110", "65535", "17", "1111111111111111"},
                        {"1x1", "40960", "3", "101"}};
  const char* const kField = "1118.SelcallIndivCallRxCadence1";
  ASSERT_TRUE(ToUI(kField));  // fills the tables
  EXPECT_EQ(provider.Count(4) + provider.Count(60), kIndicators + kProgrammes);
  EXPECT_EQ(Text(kField), "11011000");
  for (const auto& [typed, pattern, tones, shown] : cases) {
    SCOPED_TRACE(typed);
    provider.Set(kField, 1, typed);
    ASSERT_TRUE(FromUI(kField));
    EXPECT_EQ(Text("60.AudibleIndicatorCadence", 20) + "," + Text("60.TonesPerIndicator", 20),
              std::string(pattern) + "," + tones);
    ASSERT_TRUE(ToUI(kField));
    EXPECT_EQ(Text(kField), shown);
  }
  provider.Set("60.AudibleIndicatorCadence", 20, -10240);  // as a radio may hold it
  provider.Set("60.TonesPerIndicator", 20, 5);
  ASSERT_TRUE(ToUI(kField));
  EXPECT_EQ(Text(kField), "11011");
}

TEST_F(AudibleIndicators, EachCadenceHasAProgrammeOfItsOwn) {
  GiveProgrammes(kProgrammes);
  const std::pair<const char*, RecordNr> cases[] = {
      {"AlertRingPattern1", 20},   {"AlertRingPattern2", 21},        {"AlertRingPatternGroup", 23},
      {"AlertRingPatternAll", 28}, {"AlertRingPatternPriority", 24}, {"AlertRingPatternEmergency", 22}};
  for (const auto& [uiid, record] : cases) {
    provider.Set("60.TonesPerIndicator", record, 16);
    provider.Set("60.AudibleIndicatorCadence", record, record);
  }
  for (const auto& [uiid, record] : cases) {
    SCOPED_TRACE(uiid);
    const std::string& fieldId = provider.FieldOf(uiid).id;
    ASSERT_TRUE(ToUI(fieldId));
    provider.Set(uiid, 1, "1" + Text(uiid).substr(1));
    ASSERT_TRUE(FromUI(fieldId));
    EXPECT_EQ(Text("60.AudibleIndicatorCadence", record), std::to_string(0x8000 + record));
  }
}

TEST_F(AudibleIndicators, ACadenceThatCompletesTheTablesLeavesWhatTheRadioHas) {
  provider.SetCount(4, 1);
  provider.Set("4.EnabledFlag", 1, 0);
  provider.Set("4.ProgIndex", 1, 9);
  GiveProgrammes(kProgrammes);
  ASSERT_TRUE(ToUI("1118.T99AllCallRxCadence"));
  EXPECT_EQ(Indicator(1) + " " + std::to_string(provider.Count(4)), "0 0 0 50");
  EXPECT_EQ(Text("1118.T99AllCallRxCadence"), "01000");
  EXPECT_EQ(Text("60.AudibleIndicatorFrequency1", 1), "6");  // as many as there should be
}

TEST_F(AudibleIndicators, TheFormsHaveARecordForTheCadences) {
  provider.SetCount(1118, 0);
  ASSERT_TRUE(ToUI("51.CallAlertID"));
  EXPECT_EQ(provider.Count(1118), 1);
}

class ExternalAlerts : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 1});
  }
  static constexpr const char* kTypes[] = {"ExternalAlertPtr1_k6k",        "ExternalAlertPtr2_k6k",
                                           "ExternalAlertPtrGroup_k6k",    "ExternalAlertPtrAll_k6k",
                                           "ExternalAlertPtrPriority_k6k", "ExternalAlertPtrEmergency_k6k"};
  std::string OfNetwork(const char* const (&fields)[6], RecordNr network) const {
    std::string texts;
    for (const char* field : fields) texts += Text(field, network) + " ";
    return texts;
  }
};

TEST_F(ExternalAlerts, OfANetworkAreItsSixRecords) {
  provider.SetCount(51, 8);
  provider.Set("51.CallAlertExternalAlertType", 1, 1);
  provider.Set("51.CallAlertExternalAlertType", 7, 3);
  provider.Set("51.CallAlertExternalAlertType", 8, 2);
  provider.Set("51.CallAlertExternalAlert1Pointer", 8, 1);
  provider.Set("51.CallAlertExternalAlert2Pointer", 8, 0);
  ASSERT_TRUE(ToUI("21.ExternalAlertPtrGroup", 2));
  EXPECT_EQ(OfNetwork(kTypes, 2) + "/ " + OfNetwork(kTypes, 1), "3 2 0 0 0 0 / 0 0 0 0 0 0 ");
  constexpr const char* kPointers[] = {"21.Ind1CallAlertPtr",     "21.Ind2CallAlertPtr",
                                       "21.GroupCallAlertPtr",    "21.AllCallAlertPtr",
                                       "21.PriorityCallAlertPtr", "21.EmergencyCallAlertPtr"};
  EXPECT_EQ(OfNetwork(kPointers, 2), "6 7 8 9 10 11 ");
  EXPECT_EQ(provider.Count(51), 12);
  EXPECT_EQ(Text("51.CallAlertID", 12), "11");
  EXPECT_EQ(Text("51.CallAlertExternalAlert1Pointer", 8) + Text("51.CallAlertExternalAlert2Pointer", 8),
            "01");

  int type = 0;
  for (const char* field : kTypes) provider.Set(field, 2, ++type % 4);
  provider.Set("51.CallAlertExternalAlert1Pointer", 12, 1);
  ASSERT_TRUE(FromUI("21.ExternalAlertPtr1", 2));
  EXPECT_EQ(Column("51.CallAlertExternalAlertType"), "1 0 0 0 0 0 1 2 3 0 1 2");
  EXPECT_EQ(Text("51.CallAlertExternalAlert1Pointer", 12), "0");
}

TEST_F(ExternalAlerts, OfTheRadioAreSingleValues) {
  constexpr const char* kShown[] = {"0.ExternalAlertDelay1",    "0.ExternalAlertDelay2",
                                    "0.ExternalAlertDuration1", "0.ExternalAlertDuration2",
                                    "0.ExternalAlertMode1",     "0.ExternalAlertMode2"};
  provider.Fill("52.ExternalAlertDelay", {1, 2});
  provider.Fill("52.ExternalAlertDuration", {30, 40});
  provider.Fill("52.ExternalAlertMode", {2, 1});
  ASSERT_TRUE(ToUI("21.ExternalAlertPtr1", 2));
  EXPECT_EQ(OfNetwork(kShown, 1), "1 2 30 40 2 1 ");
  int value = 10;
  for (const char* field : kShown) provider.Set(field, 1, ++value);
  ASSERT_TRUE(FromUI("21.ExternalAlertPtrAll", 1));
  EXPECT_EQ(Column("52.ExternalAlertDelay") + " " + Column("52.ExternalAlertDuration") + " " +
                Column("52.ExternalAlertMode"),
            "11 12 13 14 15 16");
}
}  // namespace
