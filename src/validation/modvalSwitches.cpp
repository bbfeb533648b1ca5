#include "validation/modvalSwitches.h"

#include <algorithm>
#include <array>

#include "common/Lookup.h"
#include "platform/CaseText.h"
#include "validation/ConditionReader.h"
#include "validation/EnablementRows.h"

namespace modvalSwitches {
namespace {
using namespace Conditions;
using namespace ControlConditions;

// What some edits go by alone, though the control's own condition asks for more, or the control has none.
constexpr Condition kMonitorsSequenceOne = On("RxSeqOneMonitorOn", At::Network);
constexpr Condition kCyclesFixedInFirstNetwork = OneOf<EmCycling::kFixedNumber>("EmCyclingType", At::Only);
constexpr Condition kCyclesInFirstNetwork = Not(OneOf<EmCycling::kNone>("EmCyclingType", At::Only));
constexpr Condition kSignals = Not(OneOf<EmSignalling::kNoSignalling>("EmSignallingType", At::Network));
constexpr Condition kSignalsCyclesFixed = AllOf<kSignals, kCyclesFixedInFirstNetwork>();
constexpr Condition kSignalsCycles = AllOf<kSignals, kCyclesInFirstNetwork>();
constexpr Condition kNotCurrentChannel = Not(OneOf<ChannelType::kCurrent>("EmChannelType", At::Network));
constexpr Condition kFFSKChecking = On("FFSKChecking");
constexpr Condition kCheckedTransparentMode = AllOf<kTransparentMode, kFFSKChecking>();
constexpr Condition kSDMOutput = AllOf<kSDM, kCCDIOutput>();
constexpr Condition kAutoAck = On("DataSDMAutoAck");
constexpr Condition kAutoAckOfSDM = AllOf<kAutoAck, kSDM>();

constexpr Condition kSIBTAboveOff = Above<kOff>("SIBTEnabled_k6k", At::Network);
constexpr Condition kSIBTIsOne = AllOf<kSIBT, kSIBTAboveOff>();

constexpr std::string_view kByCodeOne = "the box is on by its code 1 alone";
constexpr std::string_view kByTypeAlone = "the form switches by the type alone, emergency on or off";
constexpr std::string_view kByMuteAlone = "without call mute there is nothing to override";
constexpr std::string_view kBySDMAlone = "SDM on shows all of its options";
constexpr std::string_view kByBoxAlone = "the box switches its delay, whatever the other boxes say";
constexpr std::string_view kBySignals =
    "an emergency without signalling has no cycling; the first network's type counts";

// clang-format off
constexpr SwitchRow kRows[] = {
    // channels
    {"RXFREQ_K6K", "TxInhibit_k6k"},
    {"TXFREQ_K6K", "TxInhibit_k6k", &kNever, "a cleared frequency inhibits nothing, received or not"},
    {"CHANNELNETWORKID_K6K", "RepeaterBurstIndex_k6k"},
    {"CHANNELNETWORKID_K6K", "CallerIDBurstIndex_k6k"},
    {"CHANNELNETWORKID_K6K", "TXCallBurstIndex_k6k"},
    {"CHANNELNETWORKID_K6K", "StatusBurstIndex_k6k"},
    {"CHANNELNETWORKID_K6K", "RepeaterAccessToneIndex_k6k"},
    {"CHANNELNETWORKID_K6K", "Lead-In-ToneIndex_k6k"},
    {"CHANNELNETWORKID_K6K", "RxDecodeOneEnabled_k6k"},
    {"CHANNELNETWORKID_K6K", "RxDecodeTwoEnabled_k6k"},
    {"CHANNELNETWORKID_K6K", "GroupCallDecode_k6k"},
    {"CHANNELNETWORKID_K6K", "DTMFPresetCallSequence"},
    {"CHANNELNETWORKID_K6K", "T99IndividualCallReceive_k6k"},
    {"CHANNELNETWORKID_K6K", "T99GroupCallReceive_k6k"},
    {"CHANNELNETWORKID_K6K", "T99AllCallReceive_k6k"},
    {"CHANNELNETWORKID_K6K", "ChannelSIBTEnabled_k6k", &kChannelSIBT, "the network's box alone counts; the tones may follow"},
    {"RXSIGNALLING_K6K", "ChannelSIBTEnabled_k6k"},
    {"TXSIGNALLING_K6K", "ChannelSIBTEnabled_k6k"},
    // scan groups
    {"SCANTYPE_K6K", "ScanTxChannelSelect_k6k"},
    {"SCANTYPE_K6K", "ScanDefaultTxChannel_k6k"},
    {"SCANTYPE_K6K", "ScanGroupDisplayIndicator_k6k"},
    {"SCANTYPE_K6K", "SubaudScanNonPriority_k6k"},
    {"SCANTYPE_K6K", "ScanInclCurrentChan_k6k"},
    {"SCANTYPE_K6K", "ScanPresetTxChannel_k6k"},
    {"SCANTYPE_K6K", "GroupTxChannelSearchTimer"},
    {"SCANTYPE_K6K", "GroupTxChannelCapturedAlert"},
    {"SCANTYPE_K6K", "GroupTxChannelSearchIndicator"},
    {"GROUPTYPE_K6K", "ScanType_k6k"},
    {"GROUPTYPE_K6K", "StopScanOnPTT_k6k"},
    {"GROUPTYPE_K6K", "PriorityScan_k6k"},
    {"GROUPTYPE_K6K", "RevoteOnPTTRelease"},
    {"GROUPTYPE_K6K", "VoteWithSignalling"},
    {"GROUPTYPE_K6K", "GroupVotingLeadinDelay_k6k"},
    {"GROUPTYPE_K6K", "RevoteInterval_k6k"},
    {"GROUPTYPE_K6K", "GroupVote"},
    {"GROUPTYPE_K6K", "ScanTxChannelSelect_k6k"},
    {"GROUPTYPE_K6K", "ScanDefaultTxChannel_k6k"},
    {"GROUPTYPE_K6K", "ScanGroupDisplayIndicator_k6k"},
    {"GROUPTYPE_K6K", "SubaudScanNonPriority_k6k"},
    {"GROUPTYPE_K6K", "ScanPresetTxChannel_k6k"},
    {"SCANDEFAULTTXCHANNEL_K6K", "ScanPresetTxChannel_k6k"},
    {"PRIORITYSCAN_K6K", "Priority1Channel_k6k"},
    {"PRIORITYSCAN_K6K", "DualPriorityScan_k6k"},
    {"PRIORITYSCAN_K6K", "SubaudScanPriority_k6k"},
    {"PRIORITYSCAN_K6K", "CapturedChanPriSampleTime_k6k"},
    {"PRIORITYSCAN_K6K", "NonCapturedChanPriSampleTime_k6k"},
    {"PRIORITYSCAN_K6K", "BusyPrioritySampleTime_k6k"},
    {"PRIORITYSCAN_K6K", "DeletePriorityChannels_k6k"},
    {"DUALPRIORITYSCAN_K6K", "Priority2Channel_k6k"},
    {"SUBAUDSCANPRIORITY_K6K", "BusyPrioritySampleTime_k6k"},
    {"OFFHOOKSCAN_K6K", "ResumeScanWhenPutOnHook_k6k"},
    // networks
    {"NETWORKID", "AlertRingPattern2"},
    {"NETWORKID", "AlertRingPatternGroup"},
    {"NETWORKID", "AlertRingPatternAll"},
    {"CURRENTNETWORKNR", "AlertRingPattern1"},
    {"CURRENTNETWORKNR", "AlertRingPattern2"},
    {"CURRENTNETWORKNR", "AlertRingPatternGroup"},
    {"CURRENTNETWORKNR", "AlertRingPatternPriority"},
    {"CURRENTNETWORKNR", "AlertRingPatternEmergency"},
    {"SIGNALLINGTYPE", "CallMute"},
    {"SIGNALLINGTYPE", "SubaudGenerate_k6k"},
    {"SIGNALLINGTYPE", "SubaudValidate_k6k"},
    {"SIGNALLINGTYPE", "MonitorOnCallAck_k6k"},
    {"SIGNALLINGTYPE", "MonitorCallReceived_k6k"},
    {"SIGNALLINGTYPE", "SignallingOnPTTPress_k6k"},
    {"SIGNALLINGTYPE", "SignallingOnPTTRelease_k6k"},
    {"SIGNALLINGTYPE", "NetworkProceedToTalkTone"},
    {"SIGNALLINGTYPE", "EmCalloutType"},
    {"SIGNALLINGTYPE", "EmCalloutRepeatInterval"},
    {"SIGNALLINGTYPE", "SIBTEnabled_k6k"},
    {"SIGNALLINGTYPE", "SIBTTxCyclingEnabled_k6k"},
    {"SIGNALLINGTYPE", "ToneBlankingTimer"},
    {"SIGNALLINGTYPE", "AutoAckType"},
    {"SIGNALLINGTYPE", "SelcallRMRAcknowledge"},
    {"SIGNALLINGTYPE", "SelcallRMRAlert"},
    {"SIGNALLINGTYPE", "SelcallRMRCallClear"},
    {"SIGNALLINGTYPE", "ExpectAck"},
    {"SIGNALLINGTYPE", "DeferredCalling_k6k"},
    {"SIGNALLINGTYPE", "SelcallAudibleSideTones"},
    {"SIGNALLINGTYPE", "RxSeqOneMonitorOn"},
    {"SIGNALLINGTYPE", "RxSeqTwoMonitorOn"},
    {"SIGNALLINGTYPE", "StealthtoggleCycling"},
    {"SIGNALLINGTYPE", "StealthFalsePowerdown"},
    {"SIGNALLINGTYPE", "EmSignallingType"},
    {"SIGNALLINGTYPE", "Sequence1AlertType"},
    {"SIGNALLINGTYPE", "Sequence2AlertType"},
    {"SIGNALLINGTYPE", "GroupCallAlertType"},
    {"SIGNALLINGTYPE", "AllCallAlertType"},
    {"SIGNALLINGTYPE", "PriorityCallAlertType"},
    {"SIGNALLINGTYPE", "EmergencyCallAlertType"},
    {"SIGNALLINGONPTTPRESS_K6K", "IncludePTTSignallingWithPTT_k6k"},
    {"SIGNALLINGONPTTPRESS_K6K", "IncludePTTSignallingWithEPTT1_k6k"},
    {"SIGNALLINGONPTTPRESS_K6K", "IncludePTTSignallingWithEPTT2_k6k"},
    {"SIGNALLINGONPTTPRESS_K6K", "ANISuppressionTime_k6k"},
    {"SIGNALLINGONPTTPRESS_K6K", "SuppressPTTPressWhenBusy_k6k"},
    {"SIGNALLINGONPTTRELEASE_K6K", "IncludePTTSignallingWithPTT_k6k"},
    {"SIGNALLINGONPTTRELEASE_K6K", "IncludePTTSignallingWithEPTT1_k6k"},
    {"SIGNALLINGONPTTRELEASE_K6K", "IncludePTTSignallingWithEPTT2_k6k"},
    {"SIGNALLINGONPTTRELEASE_K6K", "ANISuppressionTime_k6k"},
    {"SIGNALLINGONPTTRELEASE_K6K", "AutoOverBeepFrequency"},
    {"CALLMUTE", "HookswitchMonitorOverrides_k6k", &kCallMute, kByMuteAlone},
    {"CALLMUTE", "MonitorOverrides_k6k", &kCallMute, kByMuteAlone},
    {"RXSEQONEMONITORON", "RxSeqTwoMonitorOn", &kMonitorsSequenceOne, "the second sequence is looked at behind the first"},
    {"RXSEQTWOMONITORON", "MonitorCallReceived_k6k", &kSequenceMonitor, "the form switches by the two boxes alone, whatever the type"},
    {"EXPECTACK", "NoAckRetryNumber"},
    {"EXPECTACK", "WaitForAckTime"},
    {"TONEBLANKINGTIMER", "ToneBlankingDeactivationTimer"},
    {"TONEBLANKINGTIMER", "NetworkToneBlanking"},
    {"TXDURATIONTIMER", "TxLockoutTimer"},
    {"REVERSETONEBURSTDURATION_K6K", "RTBPhaseShift"},
    {"AUTOQUIETTIME_K6K", "AutoQuietCountdown_k6k"},
    {"HOOKSWITCHMONITOR_K6K", "HookswitchMonitorOverrides_k6k"},
    {"DEFERREDCALLING_K6K", "TimeRadioAttemptsDeferredCall"},
    {"CWIDENABLED", "CWIDMode"},
    {"CWIDENABLED", "CWIDInterval"},
    {"CWIDENABLED", "CWIDString"},
    {"CWIDENABLED", "CWIDWordsPerMinute"},
    {"CWIDENABLED", "CWIDToneFrequency"},
    {"CWIDENABLED", "CWIDSubAudEnabled"},
    {"INVALIDCALLRESET_K6K", "ThirdToneReset_k6k"},
    {"SIBTENABLED_K6K", "SIBTTonePosition_k6k", &kSIBTIsOne, kByCodeOne},
    {"SIBTENABLED_K6K", "SIBTFrequency_k6k", &kSIBTIsOne, kByCodeOne},
    {"SIBTENABLED_K6K", "SIBTToneEncodeDuration_k6k", &kSIBTIsOne, kByCodeOne},
    {"SIBTENABLED_K6K", "SIBTToneLeadInDelay_k6k", &kSIBTIsOne, kByCodeOne},
    {"SIBTENABLED_K6K", "SIBTToneLeadOutDelay_k6k", &kSIBTIsOne, kByCodeOne},
    {"SIBTENABLED_K6K", "SIBTMinimumDecodeDuration_k6k", &kSIBTIsOne, kByCodeOne},
    {"T99TABLEFORMAT_K6K", "T99MinAllCallTonePeriod_k6k"},
    {"T99TABLEFORMAT_K6K", "T99MaxAllCallTonePeriod_k6k"},
    {"T99TABLEFORMAT_K6K", "T99ToneD_k6k"},
    {"T99TABLEFORMAT_K6K", "T99CustomToneD_k6k"},
    {"T99CUSTOM_K6K", "T99CustomToneA_k6k"},
    {"T99CUSTOM_K6K", "T99CustomToneB_k6k"},
    {"T99CUSTOM_K6K", "T99CustomToneC_k6k"},
    {"T99CUSTOM_K6K", "T99CustomToneD_k6k"},
    {"T99CUSTOM_K6K", "T99ToneA_k6k"},
    {"T99CUSTOM_K6K", "T99ToneB_k6k"},
    {"T99CUSTOM_K6K", "T99ToneC_k6k"},
    {"T99CUSTOM_K6K", "T99ToneD_k6k"},
    // emergency
    {"EMERGENCYENABLED", "EmSignallingType"},
    {"EMERGENCYENABLED", "EmChannelType"},
    {"EMERGENCYENABLED", "EmChannel"},
    {"EMERGENCYENABLED", "EmTxOnHighPower"},
    {"EMERGENCYENABLED", "EmCalloutType"},
    {"EMERGENCYENABLED", "EmCalloutNumber"},
    {"EMERGENCYENABLED", "EmCalloutRepeatInterval"},
    {"EMERGENCYENABLED", "EmCyclingType"},
    {"EMERGENCYENABLED", "EmCyclingNumber"},
    {"EMERGENCYENABLED", "EmCyclingRxTime"},
    {"EMERGENCYENABLED", "EmCyclingTxTime"},
    {"EMERGENCYENABLED", "EmCyclingANI"},
    {"EMERGENCYENABLED", "StealthFalsePowerdown"},
    {"EMERGENCYENABLED", "StealthtoggleCycling"},
    {"EMERGENCYENABLED", "EmCyclingAlertTone"},
    {"EMERGENCYENABLED", "EmCyTxBeginToneFreq"},
    {"EMERGENCYENABLED", "EmCyTxBeginToneDuration"},
    {"EMERGENCYENABLED", "EmCyTxEndToneFreq"},
    {"EMERGENCYENABLED", "EmCyTxEndToneDuration"},
    {"EMERGENCYENABLED", "SIBTTxCyclingEnabled_k6k"},
    {"EMSIGNALLINGTYPE", "EmCyclingType", &kSignals, kBySignals},
    {"EMSIGNALLINGTYPE", "EmCyclingNumber", &kSignalsCyclesFixed, kBySignals},
    {"EMSIGNALLINGTYPE", "EmCyclingRxTime", &kSignalsCycles, kBySignals},
    {"EMSIGNALLINGTYPE", "EmCyclingTxTime", &kSignalsCycles, kBySignals},
    {"EMSIGNALLINGTYPE", "EmCyclingANI", &kSignals, kBySignals},
    {"EMSIGNALLINGTYPE", "EmCyclingAlertTone", &kSignals, kBySignals},
    {"EMSIGNALLINGTYPE", "EmCyTxBeginToneFreq", &kSignals, kBySignals},
    {"EMSIGNALLINGTYPE", "EmCyTxEndToneFreq", &kSignals, kBySignals},
    {"EMSIGNALLINGTYPE", "EmCyTxBeginToneDuration", &kSignals, kBySignals},
    {"EMSIGNALLINGTYPE", "EmCyTxEndToneDuration", &kSignals, kBySignals},
    {"EMCHANNELTYPE", "EmChannel", &kNotCurrentChannel, kByTypeAlone},
    {"EMCYCLINGTYPE", "EmCyclingNumber", &kCyclesFixed, kByTypeAlone},
    {"EMCYCLINGTYPE", "EmCyclingRxTime", &kCyclesAtAll, kByTypeAlone},
    {"EMCYCLINGTYPE", "EmCyclingTxTime", &kCyclesAtAll, kByTypeAlone},
    {"EMCYCLINGALERTTONE", "EmCyTxBeginToneFreq"},
    {"EMCYCLINGALERTTONE", "EmCyTxBeginToneDuration"},
    {"EMCYCLINGALERTTONE", "EmCyTxEndToneFreq"},
    {"EMCYCLINGALERTTONE", "EmCyTxEndToneDuration"},
    {"EMCALLOUTTYPE", "EmCalloutNumber"},
    {"EMCALLOUTTYPE", "EmCalloutRepeatInterval"},
    {"EMCALLOUTNUMBER", "EmCalloutRepeatInterval"},
    // data
    {"DATAOPTIONSENABLED", "DataIgnoreEsc"},
    {"DATAOPTIONSENABLED", "TModeUARTWriteDelay"},
    {"DATAOPTIONSENABLED", "FFSKMaximumInitialFrameLength", &kCheckedTransparentMode, "the length is that of checked frames"},
    {"DATAOPTIONSENABLED", "DataVHSDModemEnabled"},
    {"DATAOPTIONSENABLED", "DataTMBaudRate"},
    {"DATAOPTIONSENABLED", "DataTMFlowControl"},
    {"DATAOPTIONSENABLED", "FFSKChecking"},
    {"DATAVHSDMODEMENABLED", "DataHSDBaudRate"},
    {"DATAVHSDMODEMENABLED", "DataHSDFlowControl"},
    {"DATAVHSDMODEMENABLED", "DataVHSDLayer2Enabled"},
    {"DATAVHSDMODEMENABLED", "VHSDForwardErrorCorrection"},
    {"DATAVHSDMODEMENABLED", "VHSDLeadInDelay"},
    {"DATAVHSDMODEMENABLED", "VHSDLeadOutDelay"},
    {"DATAVHSDMODEMENABLED", "VornWidebandModem"},
    {"DATAVHSDMODEMENABLED", "DataVHSDNumFECCodewords"},
    {"DATAVHSDMODEMENABLED", "dataTotalModeService"},
    {"DATAVHSDMODEMENABLED", "dataTotalRadioIdHex"},
    {"DATAVHSDMODEMENABLED", "dataTotalSystemIdHex"},
    {"DATAVHSDMODEMENABLED", "dataTotalDestinationIdHex"},
    {"DATAVHSDMODEMENABLED", "dataTotalLinkIdHex"},
    {"DATAVHSDMODEMENABLED", "dataTotalMtuSize"},
    {"DATAVHSDMODEMENABLED", "dataTotalValidateCrc"},
    {"DATAVHSDMODEMENABLED", "dataTotalConfirmedModeRetries"},
    {"DATAVHSDMODEMENABLED", "dataTotalConfirmedModeTimeout"},
    {"DATAVHSDMODEMENABLED", "dataTxBackoffOnBusyPeriod"},
    {"DATAVHSDMODEMENABLED", "dataTxBackoffTimeMin"},
    {"DATAVHSDMODEMENABLED", "dataTxBackoffTimeMax"},
    {"DATAVHSDMODEMENABLED", "dataChannelAccessMethod"},
    {"DATASDMOPTIONSENABLED", "CCDISDMOutputEnabled", &kSDM, kBySDMAlone},
    {"DATASDMOPTIONSENABLED", "CCDISDMTextOnly", &kSDMOutput, kBySDMAlone},
    {"DATASDMOPTIONSENABLED", "SDMEncodeCallerIDEnabled"},
    {"DATASDMOPTIONSENABLED", "DataIdentity"},
    {"DATASDMOPTIONSENABLED", "GPSSDMCompatibility"},
    {"DATASDMOPTIONSENABLED", "AllowSDMOverwrite"},
    {"DATASDMOPTIONSENABLED", "TextSDMAutoAckTransmission"},
    {"DATASDMOPTIONSENABLED", "TextSDMAutoAckReception"},
    {"DATASDMOPTIONSENABLED", "TextSDMIndicator"},
    {"DATASDMOPTIONSENABLED", "DataSDMWaitForAck", &kSDM, kBySDMAlone},
    {"DATASDMOPTIONSENABLED", "DataSDMAutoAckDelay", &kSDM, kBySDMAlone},
    {"DATASDMAUTOACK", "DataSDMAutoAckDelay", &kAutoAckOfSDM, kByBoxAlone},
    {"TEXTSDMAUTOACKTRANSMISSION", "DataSDMAutoAckDelay", &kAckTransmission, kByBoxAlone},
    {"TEXTSDMAUTOACKRECEPTION", "DataSDMWaitForAck", &kAckReception, kByBoxAlone},
    {"CCDISDMOUTPUTENABLED", "CCDISDMTextOnly"},
    // GPS
    {"GPSENABLED", "GPSSerialPort"},
    {"GPSENABLED", "GPSBaudRate"},
    {"GPSENABLED", "GPSNMEAStringType"},
    {"GPSENABLED", "GPSConnectionTimeOut"},
    {"GPSENABLED", "GPSAlarmCalloutInterval"},
    {"GPSENABLED", "GPSMaxNumberCallouts"},
    {"GPSENABLED", "GPSPollResponseChannelType"},
    {"GPSENABLED", "GPSPollResponseChannel"},
    {"GPSENABLED", "GPSAVLDespatcherAddress"},
    {"GPSENABLED", "GPSSDMLeadInDelay"},
    {"GPSPOLLRESPONSECHANNELTYPE", "GPSPollResponseChannel", &kPollDedicated, "the form switches by the type alone, GPS on or off"},
    {"GPSNETWORKSENDPOSONPTT", "PttGPSSuppressionTime"},
    {"GPSNETWORKSENDPOSONEPTT1", "PttGPSSuppressionTime"},
    {"GPSNETWORKSENDPOSONEPTT2", "PttGPSSuppressionTime"},
    // function keys
    {"FUNCTIONKEY1", "FK1Parameter1"},
    {"FUNCTIONKEY1", "FK1Parameter2"},
    {"FUNCTIONKEY2", "FK2Parameter1"},
    {"FUNCTIONKEY2", "FK2Parameter2"},
    {"FUNCTIONKEY3", "FK3Parameter1"},
    {"FUNCTIONKEY3", "FK3Parameter2"},
    {"FUNCTIONKEY4", "FK4Parameter1"},
    {"FUNCTIONKEY4", "FK4Parameter2"},
    // push-to-talk
    {"PTTTRANSMISSIONTYPE1_K6K", "PTTInhibitedByMicOnHook1_k6k"},
    {"PTTTRANSMISSIONTYPE1_K6K", "MicSelect1_k6k"},
    {"PTTTRANSMISSIONTYPE1_K6K", "PTTPriority1_k6k"},
    {"PTTTRANSMISSIONTYPE2_K6K", "PTTInhibitedByMicOnHook2_k6k"},
    {"PTTTRANSMISSIONTYPE2_K6K", "MicSelect2_k6k"},
    {"PTTTRANSMISSIONTYPE2_K6K", "PTTPriority2_k6k"},
    {"PTTTRANSMISSIONTYPE3_K6K", "PTTInhibitedByMicOnHook3_k6k"},
    {"PTTTRANSMISSIONTYPE3_K6K", "MicSelect3_k6k"},
    {"PTTTRANSMISSIONTYPE3_K6K", "PTTPriority3_k6k"},
    // options of the radio
    {"BAND_K6K", "RFCompliance"},
    {"SECURITYLOCKONPOWERUP", "SecurityPIN1"},
    {"SECURITYLOCKONPOWERUP", "SecurityPIN2"},
    {"SECURITYLOCKONPOWERUP", "SecurityPIN3"},
    {"GROUPACTIVITYONPOWERUP_K6K", "ChannelGroupIDForRadioStartup"},
    {"GLOBALENCRYPTION", "ChannelEncryption"},
};
// clang-format on

// What the rest of SIGNALLINGTYPE is, the conditions themselves tell.

/// Whether `isMeant` one of the tests that the condition is made of.
template <typename IsMeant>
constexpr bool HasTest(const Condition& condition, IsMeant isMeant) {
  if (condition.IsTest()) return isMeant(condition);
  return std::ranges::any_of(condition.parts, [&](const Condition* part) { return HasTest(*part, isMeant); });
}

constexpr bool ReadsSignalling(const Condition& condition) {
  constexpr std::string_view kSignalling[] = {"SignallingType", "53.SignallingTypeUI", "CallMute"};
  return HasTest(condition, [&](const Condition& test) {
    return test.at == At::Network && std::ranges::find(kSignalling, test.field) != std::end(kSignalling);
  });
}

// The compiler counts the steps of what it works out here: rows are narrowed down before names are compared.

constexpr std::string_view kSignallingType = "SIGNALLINGTYPE";
constexpr const SwitchRow* kFirstOfSignalling = std::ranges::find(kRows, kSignallingType, &SwitchRow::edited);

constexpr bool IsNamed(std::string_view control) {
  for (const SwitchRow* row = kFirstOfSignalling; row->edited == kSignallingType; ++row) {
    if (row->control.size() == control.size() && EqualsIgnoringCase(row->control, control)) return true;
  }
  return false;
}

constexpr bool IsMore(const modvalEnablement::EnablementRow& row) {
  return ReadsSignalling(*row.enabledWhen) && !IsNamed(row.uiid);
}

constexpr std::size_t kMoreCount = std::ranges::count_if(modvalEnablement::kRows, IsMore);
constexpr auto kMore = [] {
  std::array<std::string_view, kMoreCount> more;
  auto* next = more.begin();
  for (const auto& row : modvalEnablement::kRows) {
    if (IsMore(row)) *next++ = row.uiid;
  }
  return more;
}();

/// Where the rows of one field stand.
struct Group {
  std::string_view edited;
  const SwitchRow* first = nullptr;
  const SwitchRow* last = nullptr;  ///< behind the last one
  bool readsItself = false;         ///< a condition of its controls goes by the field's own value
};

/// A condition about the current network reads the number of its record.
constexpr bool ReadsField(const Condition& condition, std::string_view field) {
  return HasTest(condition, [&](const Condition& test) {
    return EqualsIgnoringCase(test.field, field) ||
           (test.at == At::Network && EqualsIgnoringCase(field, "CurrentNetworkNr"));
  });
}

constexpr const Condition* OwnCondition(std::string_view control) {
  for (const auto& row : modvalEnablement::kRows) {
    if (row.uiid.size() == control.size() && EqualsIgnoringCase(row.uiid, control)) return row.enabledWhen;
  }
  return nullptr;
}

constexpr bool ReadsItself(const SwitchRow& row) {
  const Condition* condition = row.wanted != nullptr ? row.wanted : OwnCondition(row.control);
  return condition != nullptr && ReadsField(*condition, row.edited);
}

constexpr bool StartsGroup(const SwitchRow& row) { return &row == kRows || (&row - 1)->edited != row.edited; }
constexpr std::size_t kGroupCount = std::ranges::count_if(kRows, StartsGroup);

struct Groups {
  Group rows[kGroupCount];
};
constexpr Groups kGroups = [] {
  Groups groups{};
  Group* next = groups.rows;
  for (const SwitchRow& row : kRows) {
    if (StartsGroup(row)) *next++ = {row.edited, &row};
    Group& group = *(next - 1);
    group.last = &row + 1;
    group.readsItself = group.readsItself || ReadsItself(row);
  }
  return groups;
}();
constexpr NameIndex kByEdited(kGroups.rows,
                              &Group::edited);  // a field whose rows stand apart does not compile

void StoreValue(FieldEdit& edit) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  if (provider.HasField(edit.uiid) && provider.Field(edit.uiid).HasRecord(edit.record)) edit.StoreNow();
}

/// By its own condition; a control without one may always be edited.
bool IsEnabled(ConditionReader& reader, const Condition* condition) {
  return condition == nullptr || reader.IsMet(*condition);
}
}  // namespace

std::span<const SwitchRow> Rows() { return kRows; }

std::span<const std::string_view> MoreOfSignallingType() { return kMore; }

void SwitchControls(FieldEdit& edit) {
  const Group* group = kByEdited.Find(edit.uiid);
  if (group == nullptr) return;
  if (group->readsItself && !edit.isStored) StoreValue(edit);
  ConditionReader reader(edit.validator.CurrentProvider(), edit.record);
  const auto push = [&](std::string_view control, const Condition* wanted) {
    const Condition* condition = wanted != nullptr ? wanted : modvalEnablement::FindCondition(control);
    edit.writes.Enable(control, IsEnabled(reader, condition));
  };
  for (const SwitchRow& row : std::span(group->first, group->last)) push(row.control, row.wanted);
  if (edit.uiid != "SIGNALLINGTYPE") return;
  for (const std::string_view control : kMore) push(control, nullptr);
}
}  // namespace modvalSwitches
