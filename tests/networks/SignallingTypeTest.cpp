#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// Network 2 (number 7) is Selcall and has channel 2 with a call; channel 1 is of another network.
class SignallingRules : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 1});
    GiveChannels({11, 12, 13});
    provider.Fill("37.T99NetworkID", {4});
    provider.Fill("80.MDC1200SignallingSystemID", {4, 9});
    provider.Set("NetworkID", 2, "7");
    provider.Fill("5.ChannelNetworkIdUI", {1, 7, 7});
    provider.Fill("5.TXCallBurstSeq", {"123", "456", "None"});
    provider.Fill("DTMFPresetCallSequence", {"1", "None", "None"});
    provider.Set("CurrentNetworkNr", 1, 2);
  }
  void GiveEmergency(int callout, int ani) {
    provider.Set("EmergencyEnabled", 2, 1);
    provider.Set("EmCalloutType", 2, callout);
    provider.Set("EmCyclingANI", 2, ani);
  }
  std::string Network() const {
    return Text("SignallingType", 2) + " " + Text("NetworkSignallingID", 2) + " " + Text("EmCyclingANI", 2);
  }
};

TEST_F(SignallingRules, ATypeNeedsASystem) {
  const std::tuple<int, int, const char*> cases[] = {
      {2, 64, "No DTMF signalling systems exist.  You can create them from the DTMF Signalling form."},
      {3, 37, "No Two Tone signalling systems exist.  You can create them from the Two-Tone Options form."},
      {4, 80, "No MDC1200 signalling systems exist.  You can create them from the MDC1200 Options form."}};
  for (const auto& [type, table, text] : cases) {
    messenger.Clear();
    provider.SetCount(table, 0);
    EXPECT_FALSE(Validate("SignallingType", type, 2));
    EXPECT_THAT(Boxes(), ElementsAre(ErrorBox(text)));
  }
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "123 456 None");  // before any question
  provider.Set("SignallingType", 2, 0);
  provider.SetCount(29, 0);
  EXPECT_FALSE(Validate("SignallingType", 1, 2));
}

TEST_F(SignallingRules, WhatWasAgreedStaysWhenALaterStepRefuses) {
  const auto kPresetsGo = QuestionBox(
      "Changing the Signalling Type from Selcall will reset the Signalling Presets on the Channels form to "
      "None. Do you want to continue?");
  messenger.Play({kNo});
  EXPECT_FALSE(Validate("SignallingType", 2, 2));
  EXPECT_THAT(Boxes(), ElementsAre(kPresetsGo));
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "123 456 None");

  GiveEmergency(1, 1);
  messenger.Clear();
  messenger.Play({kYes});
  EXPECT_FALSE(Validate("SignallingType", 2, 2));
  EXPECT_THAT(Boxes(), ElementsAre(kPresetsGo, StartsWith("48|Caption Error|Emergency is enabled for this")));
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "123 None None");  // of this network alone
  EXPECT_EQ(Text("5.StatusBurstSeq", 3), "None");

  provider.Set("EmCalloutType", 2, 0);
  provider.Set("5.TXCallBurstSeq", 3, "789");
  messenger.Clear();
  messenger.Play({kYes, kNo});
  EXPECT_FALSE(Validate("SignallingType", 2, 2));
  EXPECT_THAT(Boxes(),
              ElementsAre(kPresetsGo, QuestionBox("Emergency ANI is enabled, but DTMF System %0:s does "
                                                  "not have a valid ANI sequence. Emergency ANI will be "
                                                  "disabled if you continue. Do you want to proceed?",
                                                  "4")));
  EXPECT_EQ(Network(), "1 4 1");
  EXPECT_THAT(messenger.EnabledStates(), IsEmpty());
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("SignallingType", 2, 2));
  EXPECT_EQ(Network(), "2 4 0");
  EXPECT_EQ(Text("SignallingTypeUI", 2), "DTMF");
}

TEST_F(SignallingRules, WithoutSignallingTheNetworkKeepsNothingOfIt) {
  for (const char* field : {"CallMute", "InhibitPTTWhenCallInactive_k6k", "InhibitEPTT1WhenCallInactive_k6k",
                            "InhibitEPTT2WhenCallInactive_k6k", "EmergencyEnabled"}) {
    provider.Set(field, 2, 1);
  }
  provider.Set("MonitorOverrides_k6k", 2, 0);
  provider.Set("HookswitchMonitorOverrides_k6k", 2, 0);
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("SignallingType", "0", 2));
  EXPECT_THAT(messenger.Texts(), ElementsAre(StartsWith("Changing Signalling Type from Selcall to None")));
  for (const auto& [field, value] : std::initializer_list<std::pair<const char*, const char*>>{
           {"SignallingType", "0"},
           {"NetworkSignallingID", "None"},
           {"SignallingTypeUI", "None"},
           {"CallMute", "0"},
           {"HookswitchMonitorOverrides_k6k", "1"},
           {"MonitorOverrides_k6k", "1"},
           {"InhibitPTTWhenCallInactive_k6k", "0"},
           {"InhibitEPTT2WhenCallInactive_k6k", "0"}}) {
    EXPECT_EQ(Text(field, 2), value) << field;
  }
  // Each by its own condition, from the new type; those without one are enabled.
  EXPECT_THAT(
      Switched(),
      StartsWith(
          "-CallMute-SubaudGenerate_k6k-SubaudValidate_k6k-MonitorOnCallAck_k6k-MonitorCallReceived_k6k"
          "-SignallingOnPTTPress_k6k+SignallingOnPTTRelease_k6k-NetworkProceedToTalkTone-EmCalloutType"
          "-EmCalloutRepeatInterval+SIBTEnabled_k6k-SIBTTxCyclingEnabled_k6k-ToneBlankingTimer-AutoAckType"
          "-SelcallRMRAcknowledge-SelcallRMRAlert-SelcallRMRCallClear-ExpectAck+DeferredCalling_k6k"
          "+SelcallAudibleSideTones+RxSeqOneMonitorOn+RxSeqTwoMonitorOn-StealthtoggleCycling"
          "+StealthFalsePowerdown+EmSignallingType+Sequence1AlertType+Sequence2AlertType+GroupCallAlertType"
          "+AllCallAlertType+PriorityCallAlertType+EmergencyCallAlertType"));
}

TEST_F(SignallingRules, LeavingDTMFClearsItsPresetsAlone) {
  provider.Set("SignallingType", 2, 2);
  provider.Set("DTMFPresetCallSequence", 3, "5");
  GiveEmergency(1, 1);  // neither matters for two-tone
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("SignallingType", 3, 2));
  EXPECT_THAT(messenger.Texts(), ElementsAre(StartsWith("Changing the Signalling Type from DTMF")));
  EXPECT_EQ(Column("DTMFPresetCallSequence"), "1 None None");
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "123 456 None");
  provider.Set("SignallingType", 2, 2);
  EXPECT_TRUE(Validate("SignallingType", 3, 2));  // there is nothing to ask about
  // A new system clears both kinds.
  provider.Set("5.TXCallBurstSeq", 2, "None");
  provider.Set("DTMFPresetCallSequence", 3, "5");
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("NetworkSignallingID", "9", 2));
  EXPECT_EQ(Column("DTMFPresetCallSequence"), "1 None None");
}

TEST_F(SignallingRules, TheSameTypeOrSystemAgainChangesNothing) {
  StartTrail();
  EXPECT_TRUE(Validate("SignallingType", "1", 2));
  EXPECT_TRUE(Validate("NetworkSignallingID", 4, 2));
  EXPECT_TRUE(Validate("SignallingType", 9, 2));  // no such type
  EXPECT_EQ(Trail(), "");
}

TEST_F(SignallingRules, ANewSystemClearsThePresetsAndSetsTheInterval) {
  GiveEmergency(2, 1);
  provider.Fill("FreeFormSequence5", {"1", ""});
  provider.Fill("29.GapPeriod", {1, 7});
  provider.Fill("29.TonePeriod", {1, 100});
  messenger.Play({kYes, kNo});
  EXPECT_FALSE(Validate("NetworkSignallingID", "9", 2));
  EXPECT_THAT(messenger.Texts(),
              ElementsAre(StartsWith("Changing the Signalling ID will reset"),
                          StartsWith("Emergency ANI is enabled, but this Selcall system")));
  EXPECT_EQ(Network(), "1 4 1");
  EXPECT_EQ(Column("5.TXCallBurstSeq"), "123 None None");

  messenger.Play({kYes});
  messenger.Clear();
  StartTrail();
  EXPECT_TRUE(Validate("NetworkSignallingID", "9", 2));
  EXPECT_EQ(
      Trail(),
      "box 53.EmCyclingANI[2] 21.NetworkSignallingID[2] 53.EmCalloutRepeatInterval[2] "
      "refresh:EmCyclingANI refresh:EmCalloutRepeatInterval refresh:AutoAckType refresh:AutoAckDelay "
      "refresh:ExpectAck refresh:SelcallRMRAcknowledge refresh:SelcallRMRAlert refresh:SelcallRMRCallClear "
      "refresh:ToneBlankingTimer refresh:DeferredCalling_k6k refresh:NetworkPreemphasiseSignalling_k6k "
      "refresh:NoAckRetryNumber refresh:WaitForAckTime refresh:ToneBlankingDeactivationTimer "
      "refresh:NetworkToneBlanking");
  EXPECT_EQ(Text("EmCalloutRepeatInterval", 2), "400");  // of the new system: code 7 is 100 ms, 100 no code
}

TEST_F(SignallingRules, AnMDC1200SystemIsJudgedByItsEmergencySequence) {
  provider.Set("SignallingType", 2, 4);
  provider.Set("5.TXCallBurstSeq", 2, "None");
  GiveEmergency(0, 1);
  provider.Set("MDC1200EmergencySequence", 2, "0001");
  provider.Set("EmCalloutRepeatInterval", 2, 3000);
  EXPECT_TRUE(Validate("NetworkSignallingID", "9", 2));
  EXPECT_EQ(Text("EmCalloutRepeatInterval", 2), "3000");  // no callout, no interval
  provider.Set("NetworkSignallingID", 2, "4");
  provider.Set("MDC1200EmergencySequence", 2, "");
  provider.Set("MDC1200ANISequence", 2, "0001");
  messenger.Play({kNo});
  EXPECT_FALSE(Validate("NetworkSignallingID", "9", 2));
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("NetworkSignallingID", "no such system", 2));
}
}  // namespace
