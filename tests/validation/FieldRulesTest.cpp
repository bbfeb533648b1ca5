#include <limits>
#include <sstream>

#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

using Settings = std::vector<std::pair<const char*, Variant>>;

/// An edit on a personality of two Selcall networks, and what is to follow.
struct RuleCase {
  Settings given;
  const char* uiid;
  Variant value;
  std::vector<Button> answers;
  bool passes;
  const char* box;    ///< the start of the only text; "" for none
  const char* trail;  ///< boxes, writes and reloads in their order, without the value itself and the controls
  const char* switched;  ///< the controls that change their state, "*" for any
};

class FieldRules : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({1, 1});
  }

  void Run(const RuleCase& row) {
    SCOPED_TRACE(std::string(row.uiid) + " = " + CStr(row.value) + ", " + row.box);
    for (const auto& [field, value] : row.given) provider.Set(field, 1, value);
    messenger.Play(row.answers);
    StartTrail();
    EXPECT_EQ(Validate(row.uiid, row.value), row.passes);
    std::string trail;
    const std::string itself = provider.FieldOf(row.uiid).id + "[1]";
    std::istringstream deeds(Trail());
    for (std::string deed; deeds >> deed;) {
      if (!deed.starts_with("enable:") && deed != itself) trail += (trail.empty() ? "" : " ") + deed;
    }
    EXPECT_EQ(trail, row.trail);
    EXPECT_THAT(messenger.Texts(), testing::SizeIs(*row.box == '\0' ? 0 : 1));
    EXPECT_THAT(messenger.Texts(), testing::Each(StartsWith(row.box)));
    if (std::string_view(row.switched) != "*") {
      EXPECT_EQ(Switched(), row.switched);
    }
  }
};

constexpr const char* kToneBlankingNeeds = "FFSK Tone Blanking requires the SDM option";

TEST_F(FieldRules, DataModesRestOnEachOther) {
  const char* const kModemGoes = "VHSD Modem requires Transparent Mode";
  // clang-format off
  const RuleCase cases[] = {
      {{{"DataOptionsEnabled", 0}}, "DataPowerupState", 1, {}, false, "You may only choose FFSK", "box", ""},
      {{{"DataVHSDModemEnabled", 0}}, "DataPowerupState", "2", {}, false, "You may only choose VHSD", "box",
       ""},
      {{{"DataVHSDModemEnabled", 1}}, "DataPowerupState", 2, {}, true, "", "", ""},
      {{{"DataOptionsEnabled", 1}, {"DataPowerupState", 1}}, "DataOptionsEnabled", 0, {kNo}, false,
       kModemGoes, "box", ""},
      {{{"DataSDMOptionsEnabled", 1}, {"DataVHSDLayer2Enabled", 1}, {"MuteOnFFSKReceiving", 1}},
       "DataOptionsEnabled", 0, {kYes}, true, kModemGoes,
       "box 9.DataVHSDModemEnabled[1] 9.DataVHSDModemEnabled[1] 9.DataPowerupState[1] "
       "refresh:DataVHSDModemEnabled refresh:DataPowerupState", "*"},
      {{{"DataPowerupState", 2}, {"DataSDMOptionsEnabled", 0}}, "DataOptionsEnabled", 0, {}, false,
       kToneBlankingNeeds, "box", ""},
      {{{"FFSKChecking", 0}}, "DataOptionsEnabled", 1, {}, true, "", "",
       "+DataIgnoreEsc+TModeUARTWriteDelay-FFSKMaximumInitialFrameLength+DataVHSDModemEnabled"
       "+DataTMBaudRate+DataTMFlowControl+FFSKChecking"},
      // The states of the last thirteen follow the new value, not the one still stored.
      {{{"DataVHSDModemEnabled", 1}}, "DataVHSDModemEnabled", 0, {}, true, "",
       "9.DataPowerupState[1] refresh:DataPowerupState",
       "-DataHSDBaudRate-DataHSDFlowControl-DataVHSDLayer2Enabled-VHSDForwardErrorCorrection"
       "-VHSDLeadInDelay-VHSDLeadOutDelay-VornWidebandModem-DataVHSDNumFECCodewords-dataTotalModeService"
       "-dataTotalRadioIdHex-dataTotalSystemIdHex-dataTotalDestinationIdHex-dataTotalLinkIdHex"
       "-dataTotalMtuSize-dataTotalValidateCrc-dataTotalConfirmedModeRetries"
       "-dataTotalConfirmedModeTimeout-dataTxBackoffOnBusyPeriod-dataTxBackoffTimeMin"
       "-dataTxBackoffTimeMax-dataChannelAccessMethod"},
      {{{"MuteOnFFSKReceiving", 0}, {"DataOptionsEnabled", 0}}, "MuteOnFFSKReceiving", 1, {}, false,
       "FFSK Tone Blanking may only be enabled", "box", ""},
      {{{"MuteOnFFSKReceiving", 1}}, "DataSDMOptionsEnabled", 0, {}, false, kToneBlankingNeeds, "box", ""},
      {{{"GPSEnabled", 1}}, "DataSDMOptionsEnabled", false, {}, false, "You can not disable SDM", "box", ""},
      {{{"CCDISDMOutputEnabled", 0}}, "CCDISDMOutputEnabled", 0, {}, true, "",
       "9.CCDISDMTextOnly[1] refresh:CCDISDMTextOnly", "-CCDISDMTextOnly"},
      {{{"DataXon", "1a"}}, "DataXoff", "1A", {}, false, "The XOFF and XON Characters", "box", ""},
      {{{"DataXoff", "05"}}, "DataXon", "5", {}, false, "The XON and XOFF Characters", "box", ""},
      {{{"DataXon", "00"}}, "DataXoff", "", {}, false, "The XOFF and XON Characters", "box", ""},
      {{{"DataXon", "50"}}, "DataXoff", "5", {}, true, "", "", ""},
      {{}, "DataIdentity", "1234567", {}, false, "Data Identity must be eight", "box", ""},
      {{}, "DataIdentity", "", {}, true, "", "", ""},
      {{}, "DataIdentity", "Zürich12", {}, true, "", "", ""},  // eight characters, nine bytes
      {{}, "DataIdentity", "Zürich1", {}, false, "Data Identity must be eight", "box", ""},
      {{}, "GPSAVLDespatcherAddress", "Bären-12", {}, true, "", "", ""},
      {{{"dataTxBackoffTimeMax", 40}}, "dataTxBackoffTimeMin", "41", {}, true, "",
       "9.dataTxBackoffTimeMax[1] refresh:dataTxBackoffTimeMax", ""},
      {{{"dataTxBackoffTimeMin", 41}}, "dataTxBackoffTimeMax", 40, {}, false, "The Tx Back-off Time Maximum",
       "box", ""},
      {{}, "dataTxBackoffTimeMax", 41, {}, true, "", "", ""},
  };
  // clang-format on
  for (const RuleCase& row : cases) Run(row);
}

TEST_F(FieldRules, ThePortsAreShared) {
  const char* const kHardwareGoes = "Flow Control can not be set to hardware";
  // clang-format off
  const RuleCase cases[] = {
      {{{"DataTMFlowControl", 1}, {"DataCMFlowControl", 2}, {"KeypadMic", 1}}, "DataCCDIPort", 0, {}, false,
       "Data Port can not be set to Mic", "box", ""},
      {{{"KeypadMic", 0}, {"DataCCDIPort", 1}}, "DataCCDIPort", 0, {kNo}, false, kHardwareGoes, "box", ""},
      {{}, "DataCCDIPort", 0, {kYes}, true, kHardwareGoes,
       "box 9.DataTMFlowControl[1] refresh:DataTMFlowControl", ""},
      {{{"DataCCDIPort", 0}}, "DataHSDFlowControl", 1, {}, false,
       "Flow Control can not be set to Hardware when the Data Port is set to Mic.", "box", ""},
      {{}, "DataHSDFlowControl", 2, {}, true, "", "", ""},
      {{{"GPSSerialPort", 0}}, "KeypadMic", 1, {}, false,
       "The Mic can not be set to Keypad Mic because the Data Port is set to Mic", "box", ""},
      {{{"DataCCDIPort", 1}}, "KeypadMic", 1, {}, false,
       "The Mic can not be set to Keypad Mic because the GPS Port is set to Mic", "box", ""},
      {{{"KeypadMic", 1}}, "GPSSerialPort", 0, {}, false, "GPS Port can not be set to Mic", "box", ""},
      {{}, "GPSSerialPort", 1, {}, true, "", "", ""},
  };
  // clang-format on
  for (const RuleCase& row : cases) Run(row);
}

TEST_F(FieldRules, GPSRestsOnShortDataMessages) {
  // clang-format off
  const RuleCase cases[] = {
      {{{"DataSDMOptionsEnabled", 0}}, "GPSEnabled", 1, {}, false, "You must enable SDM", "box", ""},
      {{{"DataSDMOptionsEnabled", 1}, {"GPSSDMCompatibility", 1}}, "GPSEnabled", 1, {}, false,
       "GPS Position Reporting can not be enabled", "box", ""},
      {{{"GPSSDMCompatibility", 0}, {"GPSPollResponseChannelType", 0}}, "GPSEnabled", 1, {}, true, "", "",
       "+GPSSerialPort+GPSBaudRate+GPSNMEAStringType+GPSConnectionTimeOut+GPSAlarmCalloutInterval"
       "+GPSMaxNumberCallouts+GPSPollResponseChannelType-GPSPollResponseChannel+GPSAVLDespatcherAddress"
       "+GPSSDMLeadInDelay"},
      {{{"GPSEnabled", 1}}, "GPSSDMCompatibility", 1, {}, false, "GPS SDM Format can not be set", "box", ""},
      {{}, "GPSPollResponseChannelType", 0, {}, true, "",
       "69.GPSPollResponseChannelUI[1] refresh:GPSPollResponseChannel", "-GPSPollResponseChannel"},
      {{}, "GPSAVLDespatcherAddress", "", {}, false, "Despatcher address must be eight", "box", ""},
      {{}, "GPSMaxNumberCallouts", 0, {}, true, "The value is been set to 0", "box", ""},
      {{{"GPSNetworkSendPosOnEPTT1", 2}}, "GPSNetworkSendPosOnPTT", 0, {}, true, "", "",
       "+PttGPSSuppressionTime"},
      {{}, "GPSNetworkSendPosOnEPTT1", 0, {}, true, "", "", "-PttGPSSuppressionTime"},
      // not what is stored
  };
  // clang-format on
  for (const RuleCase& row : cases) Run(row);
}

TEST_F(FieldRules, EmergencyTimesAndCalloutsFollow) {
  // clang-format off
  const RuleCase cases[] = {
      {{{"EmCyclingType", 2}, {"EmCyclingTxTime", 20}, {"EmCyclingNumber", 3}, {"EmCyclingRxTime", 1}},
       "EmCyclingRxTime", "10", {}, true, "", "53.EmCyclingMaxTime[1] refresh:EmCyclingMaxTime", ""},
      {{{"EmChannelType", 1}}, "EmChannelType", 0, {}, true, "", "53.ChannelIDTracker[1] refresh:EmChannel",
       "-EmChannel"},
      {{{"EmergencyEnabled", 1}, {"53.SignallingTypeUI", "DTMF"}, {"SignallingType", 2}, {"EmCalloutNumber",
       2}}, "EmCalloutType", 1, {}, true, "The current network is DTMF", "box",
       "-EmCalloutNumber+EmCalloutRepeatInterval"},
      {{}, "EmCalloutType", 2, {}, true, "", "", "+EmCalloutNumber+EmCalloutRepeatInterval"},
      {{{"SignallingType", 1}, {"29.GapPeriod", 7}, {"29.TonePeriod", 6}}, "EmCalloutNumber", 1, {}, true, "",
       "53.EmCalloutRepeatInterval[1] refresh:EmCalloutRepeatInterval",
       "-EmCalloutRepeatInterval"},
      {{{"SignallingType", 4}}, "StealthFalsePowerdown", 1, {}, true, "If False Power Down is selected", "box"
       , ""},
  };
  // clang-format on
  for (const RuleCase& row : cases) Run(row);
  EXPECT_EQ(Text("EmCyclingMaxTime"), "90");          // the new time, not the stored one
  EXPECT_EQ(Text("EmCalloutRepeatInterval"), "370");  // 3 gaps of 100 ms and a tone of 70 ms
  provider.Set("29.GapPeriod", 1, 20);
  provider.Set("29.TonePeriod", 1, 1);
  provider.Set("SignallingType", 1, 1);
  EXPECT_TRUE(Validate("EmCalloutNumber", 1));
  EXPECT_EQ(Text("EmCalloutRepeatInterval"), "200");                          // not below
  provider.Set("29.GapPeriod", 1, std::numeric_limits<std::int32_t>::max());  // of a damaged file
  EXPECT_TRUE(Validate("EmCalloutNumber", 1));
  EXPECT_EQ(Text("EmCalloutRepeatInterval"), "60000");  // the longest that the field takes
  provider.Set("EmCyclingType", 1, 1);
  EXPECT_TRUE(Validate("EmCyclingNumber", 5));
  EXPECT_EQ(Text("EmCyclingMaxTime"), "-");
}

TEST_F(FieldRules, TurningEmergencyOffSparesTheChannelOfAnotherNetwork) {
  GiveChannels({11, 12});
  provider.Set("ChannelNetworkID_k6k", 2, 2);
  provider.Fill("EmergencyEnabled", {1, 1});
  provider.Fill("EmChannelType", {1, 1});
  provider.Fill("EmChannel", {"11", "12"});
  provider.Fill("SIBTTxCyclingEnabled_k6k", {1, 1});
  provider.Fill("NetworkID", {2, 1});  // numbers cross the records
  EXPECT_FALSE(Validate("EmergencyEnabled", 0, 1));
  EXPECT_THAT(Boxes(),
              ElementsAre(ErrorBox("You can not turn off Emergency for this Network because it contains "
                                   "Channel %0:S which is being used as an Emergency Dedicated Channel on "
                                   "Network %1:S.",
                                   "12|1")));
  EXPECT_EQ(Column("SIBTTxCyclingEnabled_k6k"),
            "1 0");  // at the record of the number, and before the refusal
  EXPECT_EQ(Row({"EmChannelType", "EmChannel"}), "1 11");

  provider.Set("EmChannel", 2, "11");  // of another network
  EXPECT_TRUE(Validate("EmergencyEnabled", 0, 1));
  EXPECT_EQ(Row({"EmChannelType", "EmChannel", "EmCalloutType", "EmCyclingType"}), "0 None 0 2");
  provider.Set("NetworkID", 1, 9);  // a number beyond the records is no fault
  EXPECT_TRUE(Validate("EmergencyEnabled", 0, 1));
}

TEST_F(FieldRules, NetworkOptionsFollow) {
  provider.SetCount(80, 1);
  // clang-format off
  const RuleCase cases[] = {
      {{{"ThirdToneReset_k6k", 1}}, "InvalidCallReset_k6k", 1, {kNo}, false, "Third Tone Reset can not", "box"
       , ""},
      {{}, "InvalidCallReset_k6k", 1, {kYes}, true, "Third Tone Reset can not",
       "box 29.ThirdToneReset_k6k[1] refresh:ThirdToneReset_k6k", "-ThirdToneReset_k6k"},
      {{{"RxSeqOneMonitorOn", 0}}, "RxSeqTwoMonitorOn", 0, {}, true, "",
       "21.MonitorCallReceived[1] refresh:MonitorCallReceived_k6k", "-MonitorCallReceived_k6k"},
      {{{"RxSeqOneMonitorOn", 1}}, "RxSeqTwoMonitorOn", 0, {}, true, "", "", "+MonitorCallReceived_k6k"},
      {{}, "ExpectAck", true, {}, true, "", "", "+NoAckRetryNumber+WaitForAckTime"},  // a tick
      {{}, "TxDurationTimer", 30, {}, true, "", "21.TxDurationTimingEnabled[1] refresh:TxDurationTimingEnabled", "+TxLockoutTimer"},
      {{{"TrailingANI_k6k", 1}}, "AutoOverBeep", 1, {kYes}, true,
       "Trailing ANI will be disabled if Auto Over Beep", "box 21.TrailingANI[1] refresh:TrailingANI_k6k", ""
       },
      {{{"SignallingType", 3}}, "AllCallAlertType", 1, {}, false, "Ring alerts are not available", "box", ""},
      {{}, "AllCallAlertType", 2, {}, true, "", "", ""},
      {{}, "DeferredCalling_k6k", 0, {}, true, "",
       "21.TimeRadioAttemptsDeferredCall[1] refresh:TimeRadioAttemptsDeferredCall",
       "-TimeRadioAttemptsDeferredCall"},
      {{{"MDC1200RadioIDDerived", ""}, {"MDC1200EmergencySequence", "0"}}, "MDC1200ANISequence", "12", {},
       false, "A Radio ID must be defined.", "box", ""},
      {{}, "MDC1200ANISequence", "0", {}, true, "", "", ""},
      {{{"MDC1200EmergencySequence", "0000"}}, "MDC1200ANISequence", "000", {}, true, "", "", ""},
      {{{"MDC1200EmergencySequence", "0010"}}, "MDC1200ANISequence", "0000", {},
       false, "A Radio ID must be defined.", "box", ""},
      {{{"MDC1200RadioIDDerived", "1234"}, {"MDC1200ANISequence", "12"}}, "MDC1200RadioIDDerived", "", {},
       false, "A Radio ID must be defined.", "box", ""},
  };
  // clang-format on
  for (const RuleCase& row : cases) Run(row);
}

TEST_F(FieldRules, OptionsFollow) {
  GiveChannels({11, 12, 13});
  const char* const kDelay = "The Carrier Delay Time must be";
  // clang-format off
  const RuleCase cases[] = {
      {{{"ChannelCompanding", 1}}, "ChannelANR", 1, {kNo}, false, "Automatic Noise Reduction and", "box", ""},
      {{}, "ChannelANR", 1, {kYes}, true, "Automatic Noise Reduction and",
       "box 5.ChannelCompanding[1] refresh:ChannelCompanding", ""},
      {{}, "UiPreCarrierIndicationTime", 9, {}, false, kDelay, "box", ""},
      {{}, "UiPreCarrierIndicationTime", "10", {}, true, "", "", ""},
      {{}, "UiPreCarrierIndicationTime", 90, {}, true, "", "", ""},
      {{}, "UiPreCarrierIndicationTime", 91, {}, false, kDelay, "box", ""},
      {{}, "UiPreCarrierIndicationTime", "soon", {}, false, kDelay, "box", ""},
      {{}, "UiPreCarrierIndicationTime", 0, {}, true, "", "", ""},
      {{{"FunctionKey3", 16}}, "StartUpInLowPowerMode", 1, {}, true, "", "", ""},
      {{{"FunctionKey3", 0}}, "StartUpInLowPowerMode", 1, {}, true, "It is recommended", "box", ""},
      {{}, "GroupActivityOnPowerUp_k6k", 1, {}, true, "",
       "17.ChannelGroupIDForRadioStartup[1] refresh:ChannelGroupIDForRadioStartup",
       "+ChannelGroupIDForRadioStartup"},
      {{}, "GroupActivityOnPowerUp_k6k", 1, {}, true, "", "", "+ChannelGroupIDForRadioStartup"},
  };
  // clang-format on
  for (const RuleCase& row : cases) Run(row);
  EXPECT_EQ(Text("ChannelGroupIDForRadioStartup"), "11");
}

/// Whichever record the host names: the forms show one network.
TEST_F(FieldRules, RulesOfNetworkAndEmergencyActOnTheNetworkThatTheFormsShow) {
  provider.Set("CurrentNetworkNr", 1, 2);
  provider.Fill("EmChannel", {"11", "12"});
  provider.Fill("TimeRadioAttemptsDeferredCall", {5, 6});
  provider.Fill("EmCyclingType", {2, 2});
  provider.Fill("EmCyclingRxTime", {1, 10});
  provider.Fill("EmCyclingTxTime", {1, 10});
  provider.Fill("EmCyclingNumber", {1, 10});
  provider.Fill("MonitorCallReceived_k6k", {1, 1});
  provider.Fill("RxSeqOneMonitorOn", {0, 0});
  provider.Fill("EmCalloutRepeatInterval", {1000, 1000});
  const std::tuple<const char*, int, const char*, const char*> cases[] = {
      {"EmChannelType", 0, "EmChannel", "11 None"},
      {"EmergencyEnabled", 0, "EmCyclingType", "2 2"},
      {"EmCalloutNumber", 1, "EmCalloutRepeatInterval", "1000 1000"},
      {"EmCyclingNumber", 4, "EmCyclingMaxTime", "- 80"},
      {"DeferredCalling_k6k", 0, "TimeRadioAttemptsDeferredCall", "5 0"},
      {"TxDurationTimer", 0, "TxDurationTimingEnabled", "1 0"},
      {"RxSeqTwoMonitorOn", 0, "MonitorCallReceived_k6k", "1 0"},
  };
  provider.Fill("EmCyclingMaxTime", {"-", "-"});
  for (const auto& [uiid, value, written, column] : cases) {
    EXPECT_TRUE(Validate(uiid, value, 1)) << uiid;
    EXPECT_EQ(Column(written), column) << uiid;
  }
  provider.Set("CurrentNetworkNr", 1, 3);  // there is none
  EXPECT_TRUE(Validate("EmChannelType", 0, 1));
  EXPECT_EQ(Column("EmChannel"), "11 None");
}

/// What was agreed to before stays; the controls follow a passing rule alone.
TEST_F(FieldRules, ARefusedRuleReloadsWhatItHadWritten) {
  provider.Set("FunctionKey1", 1, 3);
  provider.Set("FunctionKey3", 1, 5);
  messenger.Play({kYes, kNo});
  StartTrail();
  EXPECT_FALSE(Validate("BacklightMode", 1));
  EXPECT_EQ(Trail(), "box 1099.FunctionKey1[1] box refresh:FunctionKey1");
  ASSERT_TRUE(provider.SetAutoUpdate(kFalse).Ok());
  provider.Set("FunctionKey1", 1, 3);
  messenger.Play({kYes, kNo});
  StartTrail();
  EXPECT_FALSE(Validate("BacklightMode", 1));
  EXPECT_EQ(Trail(), "box 1099.FunctionKey1[1] box");
}

TEST_F(FieldRules, GlobalEncryptionAsksOnceForAllChannels) {
  GiveChannels({11, 12, 13});
  provider.Fill("ChannelEncryption", {0, 1, 1});
  messenger.Play({kNo});
  EXPECT_FALSE(Validate("GlobalEncryption", 1));
  EXPECT_EQ(Column("ChannelEncryption"), "0 1 1");
  messenger.Play({kYes});
  EXPECT_TRUE(Validate("GlobalEncryption", 1));
  EXPECT_EQ(Column("ChannelEncryption"), "0 0 0");
  EXPECT_EQ(Switched(), "-ChannelEncryption");
}

TEST_F(FieldRules, ABoxClosedWithoutAnAnswerIsNoConsent) {
  CloseEveryBox();
  GiveChannels({11});
  provider.Fill("ChannelEncryption", {1});
  EXPECT_FALSE(Validate("GlobalEncryption", 1));
  EXPECT_EQ(Column("ChannelEncryption"), "1");
}

TEST_F(FieldRules, ControlsFollowTheReloads) {
  StartTrail();
  EXPECT_TRUE(Validate("EmChannelType", 0));
  EXPECT_EQ(Trail(), "53.ChannelIDTracker[1] 53.ChannelType[1] refresh:EmChannel enable:EmChannel");
}

/// The oldest version has no GPS message format.
class OldFieldRules : public ChannelFixture {
 protected:
  OldFieldRules() : ChannelFixture("KD4410.0029") {}
};

TEST_F(OldFieldRules, AFieldThatTheVersionLacksHoldsNothing) {
  provider.Set("DataSDMOptionsEnabled", 1, 1);
  EXPECT_TRUE(Validate("GPSEnabled", 1));
  EXPECT_THAT(messenger.Texts(), IsEmpty());
}
}  // namespace
