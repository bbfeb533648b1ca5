#include "platform/XArrayDBObject.h"
#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class NetworkRules : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 1, 1});
    GiveChannels({11, 12});
  }
  /// Numbers for the records from 1 on, in every table that holds them.
  void Number(const std::vector<Variant>& numbers) {
    for (const char* field : {"NetworkID", "EmNetworkID", "SIBTNetworkID_k6k", "DTMFPatchNetworkID_k6k",
                              "DTMFPatchTonesNetworkID_k6k", "CustomerDataNetworkID"}) {
      provider.Fill(field, numbers);
    }
    for (const std::int32_t table : {36, 78}) provider.SetCount(table, static_cast<RecordNr>(numbers.size()));
  }
};

TEST_F(NetworkRules, SignallingWithPTTGoesWithTheType) {
  const auto kPressNeeds = [](const char* type) {
    return std::string("This option is not available when the Network Signalling Type is set to ") + type;
  };
  const char* const kReleaseNeeds =
      "This option not available when the Network Signalling Type is set to Two-Tone or None";
  const std::tuple<int, const char*, int, std::string> cases[] = {
      {2, "SignallingOnPTTPress_k6k", 1, kPressNeeds("DTMF")},
      {4, "SignallingOnPTTPress_k6k", 2, kPressNeeds("MDC1200")},
      {2, "SignallingOnPTTPress_k6k", 0, ""},
      {4, "SignallingOnPTTPress_k6k", 0, ""},
      {0, "SignallingOnPTTPress_k6k", 1, ""},
      {0, "SignallingOnPTTRelease_k6k", 1, kReleaseNeeds},
      {3, "SignallingOnPTTRelease_k6k", 1, kReleaseNeeds},
      {3, "SignallingOnPTTRelease_k6k", 2, ""},
      {2, "SignallingOnPTTRelease_k6k", 1, ""}};
  for (const auto& [type, field, value, text] : cases) {
    messenger.Clear();
    provider.Set("SignallingType", 1, type);
    EXPECT_EQ(Validate(field, value), text.empty()) << field << type;
    EXPECT_EQ(messenger.Texts(), text.empty() ? std::vector<std::string>() : std::vector{text});
  }
  const char* const kAll =
      "+IncludePTTSignallingWithPTT_k6k+IncludePTTSignallingWithEPTT1_k6k+IncludePTTSignallingWithEPTT2_k6k"
      "+ANISuppressionTime_k6k";
  messenger.Clear();
  EXPECT_TRUE(Validate("SignallingOnPTTRelease_k6k", 2));
  EXPECT_EQ(Switched(), std::string(kAll) + "+AutoOverBeepFrequency");
  provider.Set("SignallingOnPTTRelease_k6k", 1, 2);
  messenger.Clear();
  EXPECT_TRUE(Validate("SignallingOnPTTPress_k6k", 0));
  EXPECT_EQ(Switched(), std::string(kAll) + "-SuppressPTTPressWhenBusy_k6k");
}

TEST_F(NetworkRules, CallMuteOpensAllMutesOnConsent) {
  provider.Set("CurrentNetworkNr", 1, 2);
  provider.Set("MonitorOverrides_k6k", 2, 0);
  messenger.Play({kNo, kYes});
  EXPECT_FALSE(Validate("CallMute", 1, 2));
  EXPECT_EQ(Column("MonitorOverrides_k6k"), "1 0 1");
  EXPECT_TRUE(Validate("CallMute", 1, 2));
  EXPECT_EQ(Column("MonitorOverrides_k6k"), "1 1 1");
  EXPECT_EQ(Switched(), "+HookswitchMonitorOverrides_k6k+MonitorOverrides_k6k");
  provider.Set("MonitorOverrides_k6k", 2, 0);
  EXPECT_TRUE(Validate("CallMute", 0, 2));  // off: no question
}

TEST_F(NetworkRules, NoAcknowledgementIsNoneForAnyAlert) {
  for (const char* alert : {"PriorityAutoAck_k6k", "SelcallIndAutoAckOne", "SelcallIndAutoAckTwo"}) {
    provider.Set(alert, 2, 1);
  }
  provider.Set("CurrentNetworkNr", 1, 2);
  EXPECT_TRUE(Validate("AutoAckType", 2, 1));  // it acts on the network that the forms show
  EXPECT_EQ(Text("PriorityAutoAck_k6k", 2), "1");
  EXPECT_TRUE(Validate("AutoAckType", 0, 2));
  EXPECT_EQ(Refreshed(), "PriorityAutoAck_k6k SelcallIndAutoAckOne SelcallIndAutoAckTwo");
  EXPECT_EQ(Text("SelcallIndAutoAckTwo", 2), "0");
}

TEST_F(NetworkRules, IntervalsFollowTheTimingOfTheCurrentSystem) {
  provider.Fill("NetworkSignallingID", {"4", "9", "4"});
  provider.Fill("EmCalloutType", {1, 1, 1});
  provider.Fill("EmCalloutNumber", {1, 1, 2});
  provider.Fill("EmCalloutRepeatInterval", {5000, 5000, 5000});
  provider.Fill("29.GapPeriod", {7, 7});
  provider.Fill("29.TonePeriod", {7, 7});
  EXPECT_TRUE(Validate("TonePeriod", 7));
  EXPECT_TRUE(Validate("TonePeriod", 6));
  EXPECT_THAT(messenger.Texts(), IsEmpty());
  EXPECT_EQ(Column("EmCalloutRepeatInterval"), "370 5000 5000");
  EXPECT_TRUE(Validate("GapPeriod", 5));
  EXPECT_THAT(Boxes(),
              ElementsAre(NoticeBox(
                  "The Gap Period is less than the Tone Period.  Selcall sequences may not be decoded "
                  "properly.\r\nRecommend setting the Gap Period equal to the Tone Period regardless of "
                  "whether Gaps are used in any sequences.")));
  EXPECT_EQ(Text("29.GapPeriod"), "5");  // written by the rule
  EXPECT_EQ(Column("EmCalloutRepeatInterval"), "250 5000 5000");
  provider.Set("CurrentSelcallNumber", 1, 2);
  EXPECT_TRUE(Validate("GapPeriod", 6, 2));
  EXPECT_EQ(Column("EmCalloutRepeatInterval"), "250 310 5000");
  provider.Set("SignallingType", 1, 2);
  provider.Fill("DTMFStandardTonePeriod", {100, 100});
  EXPECT_TRUE(Validate("DTMFIntertoneGap", 90));
  EXPECT_EQ(Column("EmCalloutRepeatInterval"), "370 310 5000");
}

TEST_F(NetworkRules, ANewNumberMovesChannelsAndCompanionsOnConsent) {
  Number({1, 2, 3});
  GiveChannels({11, 12, 13});
  provider.Fill("5.ChannelNetworkIdUI", {2, 1, 2});
  messenger.Play({kNo, kYes});
  EXPECT_FALSE(Validate("NetworkID", 8, 2));
  EXPECT_THAT(Boxes(),
              ElementsAre(QuestionBox("Changing this Network ID will cause all references to it to be "
                                      "updated.  Do you wish to proceed?")));
  EXPECT_EQ(Column("5.ChannelNetworkIdUI"), "2 1 2");
  EXPECT_TRUE(Validate("NetworkID", "8", 2));
  EXPECT_EQ(Column("5.ChannelNetworkIdUI"), "8 1 8");
  for (const char* field : {"53.NetworkID", "EmNetworkID", "SIBTNetworkID_k6k", "DTMFPatchNetworkID_k6k",
                            "DTMFPatchTonesNetworkID_k6k", "CustomerDataNetworkID"}) {
    EXPECT_EQ(std::get<std::int32_t>(provider.Get(field, 2)), 8) << field;
  }
  EXPECT_EQ(Switched(), "+AlertRingPattern2+AlertRingPatternGroup+AlertRingPatternAll");
  StartTrail();
  EXPECT_TRUE(Validate("NetworkID", "2", 2));  // the number that it has
  EXPECT_EQ(Trail(), "");
  provider.Set("SignallingType", 3, 3);
  EXPECT_TRUE(Validate("CurrentNetworkNr", 3));
  EXPECT_EQ(Switched(),
            "-AlertRingPattern1-AlertRingPattern2-AlertRingPatternGroup-AlertRingPatternPriority"
            "-AlertRingPatternEmergency");
}

TEST_F(NetworkRules, LeavingAFormSortsTheNetworksWithAllThatBelongsToThem) {
  Number({"10", "9", 2});
  provider.Set("EmNetworkID", 3, 7);  // a number that disagrees does not part a network from its settings
  provider.SetCount(78, 2);           // nor does a record that lacks
  provider.Fill("SIBTToneLeadInDelay_k6k", {100, 90, 20});
  provider.Set("CWIDString", 1, "ten");
  provider.Set("CWIDString", 2, "nine");
  provider.Fill("36.DCSTxPolarity", {0, 0, 1});
  provider.Fill("EmCyclingNumber", {100, 90, 20});
  provider.SetCount(51, 18);
  for (RecordNr record = 1; record <= 18; ++record) {
    provider.Set("51.CallAlertID", record, record - 1);
    provider.Set("51.CallAlertInternalDuration", record, record);
  }
  provider.Fill("21.EmergencyCallAlertPtr", {5, 11, 17});
  provider.Fill("21.EmergencyPointer", {0, 1, 2});
  provider.Fill("5.ChannelNetworkId", {2, 0});
  provider.Set("CurrentNetworkNr", 1, 1);
  provider.Fill("21.cboGPSNetworkSendPosOnPTT", {2, 1, 0});
  ASSERT_TRUE(FromUI("21.cboGPSNetworkSendPosOnPTT"));
  StartTrail();
  for (const char* form : {"usrctlNetworkPTT", "usrctlNetworkFeatures"}) {
    EXPECT_TRUE(LeaveForm(form, true));
    const bool sorts = std::string_view(form) == "usrctlNetworkFeatures";
    EXPECT_EQ(Column("NetworkID"), sorts ? "2 9 10" : "10 9 2");
  }
  const std::pair<const char*, const char*> columns[] = {
      {"EmNetworkID", "2 9 10"},
      {"SIBTToneLeadInDelay_k6k", "20 90 100"},
      {"CWIDString", " nine ten"},
      {"36.DCSTxPolarity", "1 0 0"},
      {"EmCyclingNumber", "20 90 100"},
      {"CustomerDataNetworkID", "2 9 10"},
      {"21.EmergencyPointer", "0 1 2"},
      {"21.EmergencyCallAlertPtr", "5 11 17"},
      {"5.ChannelNetworkId", "0 2"},
      {"51.CallAlertID", "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17"},
      {"51.CallAlertInternalDuration", "13 14 15 16 17 18 7 8 9 10 11 12 1 2 3 4 5 6"},
      {"CurrentNetworkNr", "3"}};
  for (const auto& [field, values] : columns) EXPECT_EQ(Column(field), values) << field;
  ASSERT_TRUE(ToUI("21.cboGPSNetworkSendPosOnPTT"));  // from the arrays, which have moved too
  EXPECT_EQ(Column("21.cboGPSNetworkSendPosOnPTT"), "0 1 2");
  constexpr const char* kLists =
      "NetworkID EmNetworkID SIBTNetworkID_k6k DTMFPatchNetworkID_k6k DTMFPatchTonesNetworkID_k6k";
  EXPECT_EQ(Refreshed(), std::string("CurrentNetworkNr ") + kLists);
  EXPECT_THAT(Trail(), HasSubstr("values:21.NetworkIDTracker values:53.NetworkIDTracker"));
}

TEST_F(NetworkRules, AFormTellsWhatIsMissingAndSortsNothing) {
  Number({3, 2, 1});
  provider.Set("CurrentNetworkNr", 1, 2);
  struct Case {
    const char* form;
    std::vector<std::pair<const char*, Variant>> given;  ///< of the network that the form shows
    std::string box;
  };
  const Case cases[] = {
      {"usrctlNetworks",
       {{"NetworkSignallingID", "None"}},
       "You must select a Signalling ID when a Signalling Type other than None has been selected."},
      {"usrctlNetworks",
       {{"NetworkSignallingID", "4"},
        {"SIBTEnabled_k6k", 1},
        {"SIBTToneEncodeDuration_k6k", 199},
        {"SIBTMinimumDecodeDuration_k6k", 200}},
       "SIBT Encode Duration must be equal or greater than SIBT Minimum Decode Duration."},
      {"usrctlEmergencyKD4410",
       {{"EmergencyEnabled", 1}},
       "A callout and/or cycling phase must be specified when the Emergency Enabled check box is selected."},
      {"usrctlEmergencyKE2210",
       {{"EmergencyEnabled", 0}, {"EmChannelType", 1}},
       "You must specify a Channel when the Channel Type is set to Dedicated"},
      {"usrctlNetworkPTT",
       {{"SignallingOnPTTRelease_k6k", 2}, {"IncludePTTSignallingWithPTT_k6k", 0}},
       "You have defined signalling on a PTT press or release, but not selected any PTT to include the "
       "signalling "
       "with."}};
  for (const auto& [form, given, box] : cases) {
    messenger.Clear();
    for (const auto& [field, value] : given) provider.Set(field, 2, value);
    EXPECT_FALSE(LeaveForm(form, true)) << box;
    EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(box)));
  }
  EXPECT_EQ(Column("NetworkID"), "3 2 1");
  provider.Set("CurrentNetworkNr", 1, 4);  // no such network
  EXPECT_TRUE(LeaveForm("usrctlNetworkPTT", true));
  provider.Set("CurrentNetworkNr", 1, 2);
  provider.Set("SIBTToneEncodeDuration_k6k", 2, 200);
  EXPECT_TRUE(LeaveForm("usrctlNetworks", true));
}

TEST_F(NetworkRules, ANewNetworkGetsTheFreeNumberAndCompanions) {
  Number({1, 2, 4});
  Add("Network", 21);
  for (const std::int32_t table : {21, 53, 36, 75, 78, 77, 67, 72})
    EXPECT_EQ(provider.Count(table), 4) << table;
  EXPECT_EQ(provider.Count(51), 0);
  for (const char* field : {"NetworkID", "53.NetworkID", "EmNetworkID", "CustomerDataNetworkID",
                            "SIBTNetworkID_k6k", "DTMFPatchNetworkID_k6k", "DTMFPatchTonesNetworkID_k6k"}) {
    EXPECT_EQ(Text(field, 4), "3") << field;
  }
  EXPECT_EQ(Text("NetworkSignallingID", 4), "None");
  EXPECT_EQ(Text("21.EmergencyPointer", 4), "3");
  EXPECT_EQ(Text("75.SIBTFrequency", 4), "20000");
  Boolean autoUpdate = kFalse;
  EXPECT_TRUE(provider.AutoUpdate(autoUpdate).Ok());
  EXPECT_EQ(autoUpdate, kTrue);
}

TEST_F(NetworkRules, ANetworkInUseStaysAndAnotherGoesWithItsRecords) {
  Number({1, 2, 3});
  provider.Fill("21.EmergencyPointer", {0, 1, 2});
  provider.Fill("EmCyclingNumber", {10, 20, 30});
  provider.SetCount(51, 15);  // the last network has only three
  for (RecordNr record = 1; record <= 15; ++record)
    provider.Set("51.CallAlertInternalDuration", record, record);
  provider.Fill("5.ChannelNetworkId", {0, 2});
  provider.Fill("5.ChannelNetworkIdUI", {1, 3});
  provider.Set("CurrentNetworkNr", 1, 3);
  EXPECT_FALSE(Delete(1, "Network"));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox("This Network is being used by one or more Channels and can not be "
                                   "deleted")));
  EXPECT_EQ(provider.Count(53), 3);
  EXPECT_EQ(Text("CurrentNetworkNr"), "3");

  provider.Fill("21.PttGPSSuppressionTime", {10, 20, 30});
  ASSERT_TRUE(FromUI("21.PttGPSSuppressionTime"));
  EXPECT_TRUE(Delete(2, "Network"));
  EXPECT_EQ(Text("CurrentNetworkNr"), "2");
  EXPECT_EQ(CLng(CArray(provider.Get("69.PttGPSSuppressionTime")).GetValue(2, 0)), 30);
  EXPECT_EQ(provider.Count(21), 3);  // the host's to delete
  for (const std::int32_t table : {53, 36, 75, 78, 77, 67, 72}) EXPECT_EQ(provider.Count(table), 2) << table;
  EXPECT_EQ(Column("EmCyclingNumber"), "10 30");
  EXPECT_EQ(Column("51.CallAlertInternalDuration"), "1 2 3 4 5 6 13 14 15");
  EXPECT_EQ(Text("21.EmergencyPointer", 3), "1");
  EXPECT_EQ(Column("5.ChannelNetworkId"), "0 1");
}

TEST_F(NetworkRules, TheFormsShowTheRecordBeforeTheLastAndNeverRecordZero) {
  Number({1});
  provider.Fill("5.ChannelNetworkIdUI", {2, 2});
  EXPECT_TRUE(Delete(1, "Network"));
  EXPECT_EQ(Text("CurrentNetworkNr"), "1");
  Number({1, 5, 6});
  provider.Set("CurrentNetworkNr", 1, 2);
  EXPECT_TRUE(Delete(3, "Network"));
  EXPECT_EQ(Text("CurrentNetworkNr"), "2");  // not the last one: it shows the same record
}

TEST_F(NetworkRules, GridsWithoutProcessingAreTold) {
  Boolean result = kFalse;
  EXPECT_TRUE(ProviderOwner()->PostAddProcessing(sharedProvider, "Bands", result).Ok());
  EXPECT_EQ(result, kTrue);
  EXPECT_TRUE(ProviderOwner()->PostInsertProcessing(sharedProvider, "Network", 1, result).Ok());
  EXPECT_EQ(result, kTrue);
  const auto kTold = [](std::string grid) {
    return Box(16, "Post Add Processing Error",
               "The " + grid + " grid is not handled in post add processing");
  };
  EXPECT_THAT(ServiceBoxes(), ElementsAre(kTold("Bands"), kTold("Network")));
  for (const char* grid : {"ScanGroup", "filteredscangroupchannelmemberid", "Network"}) {
    EXPECT_TRUE(ProviderOwner()->PostDeleteProcessing(sharedProvider, grid, 1, result).Ok());
    EXPECT_EQ(result, kTrue);
  }
  EXPECT_EQ(Refreshed(), "FilteredScanGroupChannelMemberID FilteredScanGroupChannelMemberID");
}
}  // namespace
