#include "channels/modBandLimits.h"
#include "tier/Lookup.h"
#include "tier/RadioCodes.h"
#include "tier/modProjectGlobals.h"
#include "validation/Conditions.h"
#include "validation/modvalEnablement.h"

namespace modvalEnablement {
namespace {
using namespace Conditions;

constexpr Condition kNever{};

// Networks. "On" is the value 1; the two times are on when they are not 0.
constexpr Condition kHasSignalling = Not(OneOf<SignallingType::kNone>("SignallingType", At::Network));
constexpr Condition kSelcall = OneOf<SignallingType::kSelcall>("SignallingType", At::Network);
constexpr Condition kTwoTone = OneOf<SignallingType::kTwoTone>("SignallingType", At::Network);
constexpr Condition kNotTwoTone = Not(kTwoTone);
constexpr Condition kSelcallOrTwoTone =
    OneOf<SignallingType::kSelcall, SignallingType::kTwoTone>("SignallingType", At::Network);
constexpr Condition kSelcallDTMFOrMDC1200 =
    OneOf<SignallingType::kSelcall, SignallingType::kDTMF, SignallingType::kMDC1200>("SignallingType",
                                                                                     At::Network);
constexpr Condition kSequenceOneMonitor = On("RxSeqOneMonitorOn", At::Network);
constexpr Condition kSequenceTwoMonitor = On("RxSeqTwoMonitorOn", At::Network);
constexpr Condition kSequenceMonitor = AnyOf<kSequenceOneMonitor, kSequenceTwoMonitor>();
constexpr Condition kMonitoredSelcall = AllOf<kSelcall, kSequenceMonitor>();
constexpr Condition kMayMonitorCalls = AnyOf<kTwoTone, kMonitoredSelcall>();
constexpr Condition kCallMute = On("CallMute", At::Network);
constexpr Condition kHookswitchMonitor = On("HookswitchMonitor_k6k", At::Network);
constexpr Condition kExpectAck = On("ExpectAck", At::Network);
constexpr Condition kToneBlanking = On("ToneBlankingTimer", At::Network);
constexpr Condition kDeferredCalling = On("DeferredCalling_k6k", At::Network);
constexpr Condition kSignallingOnPress = Not(OneOf<0>("21.SignallingOnPTTPress", At::Network));
constexpr Condition kPressOn = On("SignallingOnPTTPress_k6k", At::Network);
constexpr Condition kReleaseBeep = OneOf<2>("SignallingOnPTTRelease_k6k", At::Network);
constexpr Condition kReleaseSignals = OneOf<1, 2>("SignallingOnPTTRelease_k6k", At::Network);
constexpr Condition kPressSignals = OneOf<1, 2>("SignallingOnPTTPress_k6k", At::Network);
constexpr Condition kPTTSignalling = AnyOf<kReleaseSignals, kPressSignals>();
constexpr Condition kTxDuration = Not(OneOf<0>("TxDurationTimer", At::Network));
constexpr Condition kReverseToneBurst = Not(OneOf<0>("ReverseToneBurstDuration_k6k", At::Network));
constexpr Condition kNoAutoOverBeep = Not(On("AutoOverBeep", At::Network));
constexpr Condition kAutoQuiet = Above<0>("AutoQuietTime_k6k", At::Network);
constexpr Condition kSIBT = On("SIBTEnabled_k6k", At::Network);
constexpr Condition kCWID = On("CWIDEnabled", At::Network);

// Channels.
constexpr Condition kSelcallChannel = OneOf<SignallingType::kSelcall>("SignallingType", At::ChannelNetwork);
constexpr Condition kDTMFChannel = OneOf<SignallingType::kDTMF>("SignallingType", At::ChannelNetwork);
constexpr Condition kTwoToneChannel = OneOf<SignallingType::kTwoTone>("SignallingType", At::ChannelNetwork);
constexpr Condition kReceives = Not(OneOf<0>("RxFreq_k6k", At::Drawn));
constexpr Condition kNoRxSignalling = Holds("RxSignalling_k6k", kNone, At::Drawn);
constexpr Condition kNoTxSignalling = Holds("TxSignalling_k6k", kNone, At::Drawn);
constexpr Condition kChannelSIBT = On("SIBTEnabled_k6k", At::ChannelNetwork);
constexpr Condition kChannelMaySendSIBT = AllOf<kNoRxSignalling, kNoTxSignalling, kChannelSIBT>();
constexpr Condition kNoGlobalEncryption = OneOf<kOff>("GlobalEncryption");
constexpr Condition kNoiseBlankerBand = Not(Above<2>("Band_k6k"));
constexpr Condition kK5Band = OneOf<modBandLimits::kPositionK5>("Band_k6k");
// A channel may change its network on the form of its own network as on that of any other.
constexpr Condition kOwnNetwork{.kind = Kind::ThisNetwork, .at = At::Drawn, .field = "ChannelNetworkID_k6k"};
constexpr Condition kOtherNetwork = Not(kOwnNetwork);
constexpr Condition kOwnOrOtherNetwork = AnyOf<kOwnNetwork, kOtherNetwork>();

// Emergency.
constexpr Condition kEmergency = On("EmergencyEnabled", At::Network);
constexpr Condition kCyclesFixed = OneOf<EmCycling::kFixedNumber>("EmCyclingType", At::Network);
constexpr Condition kCyclesAtAll = Not(OneOf<EmCycling::kNone>("EmCyclingType", At::Network));
constexpr Condition kAlertTone = On("EmCyclingAlertTone", At::Network);
constexpr Condition kDedicated = Above<ChannelType::kCurrent>("EmChannelType", At::Network);
constexpr Condition kHasCalloutSystem = Not(Holds("53.SignallingTypeUI", kNone, At::Network));
constexpr Condition kCalloutContinuous = OneOf<EmCallout::kContinuous>("EmCalloutType", At::Network);
constexpr Condition kCalloutFixed = OneOf<EmCallout::kFixedNumber>("EmCalloutType", At::Network);
constexpr Condition kSeveralCallouts = Above<1>("EmCalloutNumber", At::Network);
constexpr Condition kSeveralFixedCallouts = AllOf<kCalloutFixed, kSeveralCallouts>();
constexpr Condition kCalloutRepeats = AnyOf<kCalloutContinuous, kSeveralFixedCallouts>();
constexpr Condition kFixedCycles = AllOf<kEmergency, kCyclesFixed>();
constexpr Condition kCycles = AllOf<kEmergency, kCyclesAtAll>();
constexpr Condition kEmergencyAlertTone = AllOf<kEmergency, kAlertTone>();
constexpr Condition kEmergencyWithANI = AllOf<kEmergency, kSelcallDTMFOrMDC1200>();
constexpr Condition kEmergencySelcall = AllOf<kEmergency, kSelcall>();
constexpr Condition kDedicatedEmergencyChannel = AllOf<kEmergency, kDedicated>();
constexpr Condition kEmergencyCallout = AllOf<kEmergency, kHasCalloutSystem>();
constexpr Condition kFixedCallouts = AllOf<kEmergency, kHasCalloutSystem, kCalloutFixed>();
constexpr Condition kRepeatedCallouts = AllOf<kEmergency, kHasCalloutSystem, kCalloutRepeats>();
constexpr Condition kSIBTInEmergency = AllOf<kSIBT, kEmergency>();

// Scan groups. The type of a group decides about the current group, all else about the group being drawn.
constexpr Condition kScanGroup = OneOf<GroupType::kScan>("GroupType_k6k", At::ScanGroup);
constexpr Condition kVoteGroup = OneOf<GroupType::kVote>("GroupType_k6k", At::ScanGroup);
constexpr Condition kCurrentBeyondStandard =
    Not(OneOf<ScanType::kVornAx, ScanType::kStandard>("ScanType_k6k", At::ScanGroup));
constexpr Condition kCurrentStandard = OneOf<ScanType::kStandard>("ScanType_k6k", At::ScanGroup);
constexpr Condition kGroupBackground = AllOf<kScanGroup, kCurrentBeyondStandard>();
constexpr Condition kStandardScan = AllOf<kScanGroup, kCurrentStandard>();
constexpr Condition kDrawnScanGroup = OneOf<GroupType::kScan>("GroupType_k6k", At::Drawn);
constexpr Condition kDrawnBackground = OneOf<ScanType::kBackground>("ScanType_k6k", At::Drawn);
constexpr Condition kDrawnNotVornAx = Not(OneOf<ScanType::kVornAx>("ScanType_k6k", At::Drawn));
constexpr Condition kCallsOnPreset =
    OneOf<InitiateCallChannel::kPreset>("ScanDefaultTxChannel_k6k", At::Drawn);
constexpr Condition kBackgroundScan = AllOf<kDrawnScanGroup, kDrawnBackground>();
constexpr Condition kNotVornAx = AllOf<kDrawnScanGroup, kDrawnNotVornAx>();
constexpr Condition kScanTypeOn = On("ScanType_k6k", At::Drawn);
constexpr Condition kPresetTxChannel = AllOf<kCallsOnPreset, kDrawnScanGroup, kDrawnNotVornAx>();
constexpr Condition kVornAxScan = OneOf<ScanType::kVornAx>("ScanType_k6k", At::Drawn);
constexpr Condition kPriorityScan = On("PriorityScan_k6k", At::Drawn);
constexpr Condition kDualPriorityScan = On("DualPriorityScan_k6k", At::Drawn);
constexpr Condition kNoSubaudPriority = Not(On("SubaudScanPriority_k6k", At::Drawn));
constexpr Condition kBusySampling = AllOf<kPriorityScan, kNoSubaudPriority>();
constexpr Condition kNuisanceDelete = On("16.NuisanceDelete", At::Drawn);
constexpr Condition kDeletePriority = AllOf<kPriorityScan, kNuisanceDelete>();
constexpr Condition kOffHookScan = On("OffHookScan_k6k", At::Drawn);

// Data and GPS.
constexpr Condition kTransparentMode = On("DataOptionsEnabled");
constexpr Condition kVHSD = On("DataVHSDModemEnabled");
constexpr Condition kLayer2 = On("DataVHSDLayer2Enabled");
constexpr Condition kTotalMode = AllOf<kVHSD, kLayer2>();
constexpr Condition kSDM = On("DataSDMOptionsEnabled");
constexpr Condition kAckReception = On("TextSDMAutoAckReception");
constexpr Condition kAckTransmission = On("TextSDMAutoAckTransmission");
constexpr Condition kSDMWaitForAck = AllOf<kSDM, kAckReception>();
constexpr Condition kSDMAutoAck = AllOf<kSDM, kAckTransmission>();
constexpr Condition kCCDIOutput = On("CCDISDMOutputEnabled");
constexpr Condition kGPS = On("GPSEnabled");
constexpr Condition kPollDedicated = Not(OneOf<ChannelType::kCurrent>("GPSPollResponseChannelType"));
constexpr Condition kGPSDedicated = AllOf<kGPS, kPollDedicated>();
constexpr Condition kPositionOnPTT = OneOf<2>("GPSNetworkSendPosOnPTT", At::Network);
constexpr Condition kPositionOnEPTT1 = OneOf<2>("GPSNetworkSendPosOnEPTT1", At::Network);
constexpr Condition kPositionOnEPTT2 = OneOf<2>("GPSNetworkSendPosOnEPTT2", At::Network);
constexpr Condition kGPSOnPTT = AnyOf<kPositionOnPTT, kPositionOnEPTT1, kPositionOnEPTT2>();

// Selcall and two-tone systems.
constexpr Condition kNoInvalidCallReset = Not(On("InvalidCallReset_k6k", At::Drawn));
constexpr Condition kCustomToneSet = OneOf<9>("ToneSet", At::SelcallSystem);
constexpr Condition kStandardTones = Not(On("T99Custom_k6k", At::Drawn));
constexpr Condition kCustomTones = On("T99Custom_k6k", At::Drawn);
constexpr Condition kFourTones = On("T99TableFormat_k6k", At::Drawn);
constexpr Condition kToneFormatCNE = OneOf<0>("T99TableFormat_k6k", At::Drawn);
constexpr Condition kStandardToneD = AllOf<kStandardTones, kFourTones>();
constexpr Condition kCustomToneD = AllOf<kCustomTones, kFourTones>();

// The radio's keys, pins and options.
constexpr Condition kPTT1Transmits = Not(OneOf<PTTTransmission::kNone>("PTTTransmissionType1_k6k"));
constexpr Condition kPTT2Transmits = Not(OneOf<PTTTransmission::kNone>("PTTTransmissionType2_k6k"));
constexpr Condition kPTT3Transmits = Not(OneOf<PTTTransmission::kNone>("PTTTransmissionType3_k6k"));
constexpr Condition kSecurityLock = On("SecurityLockOnPowerUp");
constexpr Condition kGroupActivity = On("GroupActivityOnPowerUp_k6k");
constexpr Condition kKeypadMic = On("KeypadMic");
consteval Condition TakesParameter(std::string_view key) {
  return OneOf<KeyAction::kEmergencyMode, KeyAction::kScanning, KeyAction::kNetworkPresetCalls,
               KeyAction::kPhonePatch, KeyAction::kPresetChannel, KeyAction::kScanningNuisanceDelete>(key);
}
constexpr Condition kKey1TakesParameter = TakesParameter("FunctionKey1");
constexpr Condition kKey2TakesParameter = TakesParameter("FunctionKey2");
constexpr Condition kKey3TakesParameter = TakesParameter("FunctionKey3");
constexpr Condition kKey4TakesParameter = TakesParameter("FunctionKey4");
constexpr Condition kAlarmStatus = ActionInUse("Alarm Status");
constexpr Condition kPresetChannelAction = ActionInUse("Preset Channel");
constexpr Condition kHomeChannelAction = ActionInUse("Home Channel");
constexpr Condition kEmergencyModeAction = ActionInUse("Enter Emergency Mode");
constexpr Condition kMuteExternalAudioAction = ActionInUse("Mute External Audio Input");
constexpr Condition kMuteAudioOutputAction = ActionInUse("Mute Audio Output Path");
constexpr Condition kUnmuteAudioOutputAction = ActionInUse("Unmute Audio Output Path");
constexpr Condition kPresetGroupAction = ActionInUse("Preset Group");
constexpr Condition kPowerSenseAction = ActionInUse("Power Sense (Ignition)");
constexpr Condition kTransmissionStatusAction = ActionInUse("Radio Transmission Status");

// clang-format off
constexpr EnablementRow kRows[] = {
    // channels
    {"RXDECODEONEENABLED_K6K",              &kSelcallChannel},
    {"RXDECODETWOENABLED_K6K",              &kSelcallChannel},
    {"GROUPCALLDECODE_K6K",                 &kSelcallChannel},
    {"REPEATERACCESSTONEINDEX_K6K",         &kSelcallChannel},
    {"LEAD-IN-TONEINDEX_K6K",               &kSelcallChannel},
    {"REPEATERBURSTINDEX_K6K",              &kSelcallChannel},
    {"CALLERIDBURSTINDEX_K6K",              &kSelcallChannel},
    {"TXCALLBURSTINDEX_K6K",                &kSelcallChannel},
    {"STATUSBURSTINDEX_K6K",                &kSelcallChannel},
    {"DTMFPRESETCALLSEQUENCE",              &kDTMFChannel},
    {"T99INDIVIDUALCALLRECEIVE_K6K",        &kTwoToneChannel},
    {"T99GROUPCALLRECEIVE_K6K",             &kTwoToneChannel},
    {"T99ALLCALLRECEIVE_K6K",               &kTwoToneChannel},
    {"TXINHIBIT_K6K",                       &kReceives},
    {"CHANNELSIBTENABLED_K6K",              &kChannelMaySendSIBT},
    {"CHANNELENCRYPTION",                   &kNoGlobalEncryption},
    {"NOISEBLANKER_K6K",                    &kNoiseBlankerBand},
    {"RFCOMPLIANCE",                        &kK5Band},
    // networks
    {"SIGNALLINGONPTTPRESS_K6K",            &kSelcallDTMFOrMDC1200},
    {"SELCALLRMRACKNOWLEDGE",               &kSelcall},
    {"SELCALLRMRALERT",                     &kSelcall},
    {"SELCALLRMRCALLCLEAR",                 &kSelcall},
    {"TONEBLANKINGTIMER",                   &kHasSignalling},
    {"NETWORKSIGNALLINGID",                 &kHasSignalling},
    {"SUBAUDGENERATE_K6K",                  &kHasSignalling},
    {"AUTOACKTYPE",                         &kHasSignalling},
    {"AUTOACKDELAY",                        &kHasSignalling},
    {"MONITORONCALLACK_K6K",                &kSelcall},
    {"EXPECTACK",                           &kSelcall},
    {"MONITORCALLRECEIVED_K6K",             &kMayMonitorCalls},
    {"SUBAUDVALIDATE_K6K",                  &kSelcallOrTwoTone},
    {"CALLMUTE",                            &kSelcallOrTwoTone},
    {"INHIBITPTTWHENCALLINACTIVE_K6K",      &kCallMute},
    {"INHIBITEPTT1WHENCALLINACTIVE_K6K",    &kCallMute},
    {"INHIBITEPTT2WHENCALLINACTIVE_K6K",    &kCallMute},
    {"HOOKSWITCHMONITOROVERRIDES_K6K",      &kHookswitchMonitor},
    {"NOACKRETRYNUMBER",                    &kExpectAck},
    {"WAITFORACKTIME",                      &kExpectAck},
    {"NETWORKTONEBLANKING",                 &kToneBlanking},
    {"TONEBLANKINGDEACTIVATIONTIMER",       &kToneBlanking},
    {"TIMERADIOATTEMPTSDEFERREDCALL",       &kDeferredCalling},
    {"SUPPRESSPTTPRESSWHENBUSY_K6K",        &kSignallingOnPress},
    {"NETWORKPROCEEDTOTALKTONE",            &kPressOn},
    {"AUTOOVERBEEPFREQUENCY",               &kReleaseBeep},
    {"INCLUDEPTTSIGNALLINGWITHPTT_K6K",     &kPTTSignalling},
    {"INCLUDEPTTSIGNALLINGWITHEPTT1_K6K",   &kPTTSignalling},
    {"INCLUDEPTTSIGNALLINGWITHEPTT2_K6K",   &kPTTSignalling},
    {"ANISUPPRESSIONTIME_K6K",              &kPTTSignalling},
    {"TXLOCKOUTTIMER",                      &kTxDuration},
    {"RTBPHASESHIFT",                       &kReverseToneBurst},
    {"TRAILINGANI_K6K",                     &kNoAutoOverBeep},
    {"AUTOQUIETCOUNTDOWN_K6K",              &kAutoQuiet},
    {"CHANNELNETWORKID_K6K",                &kOwnOrOtherNetwork},
    {"ALERTRINGPATTERN1",                   &kNotTwoTone},
    {"ALERTRINGPATTERN2",                   &kNotTwoTone},
    {"ALERTRINGPATTERNGROUP",               &kNotTwoTone},
    {"ALERTRINGPATTERNALL",                 &kNotTwoTone},
    {"ALERTRINGPATTERNPRIORITY",            &kNotTwoTone},
    {"ALERTRINGPATTERNEMERGENCY",           &kNotTwoTone},
    {"SEQUENCE1ALERTTYPE",                  &kNotTwoTone},
    {"SEQUENCE2ALERTTYPE",                  &kNotTwoTone},
    {"GROUPCALLALERTTYPE",                  &kNotTwoTone},
    {"ALLCALLALERTTYPE",                    &kNotTwoTone},
    {"PRIORITYCALLALERTTYPE",               &kNotTwoTone},
    {"EMERGENCYCALLALERTTYPE",              &kNotTwoTone},
    {"SELCALLINDIVCALLALERTDURATION1",      &kNotTwoTone},
    {"SELCALLINDIVCALLALERTDURATION2",      &kNotTwoTone},
    {"SELCALLGROUPCALLALERTDURATION",       &kNotTwoTone},
    {"T99ALLCALLALERTDURATION",             &kNotTwoTone},
    {"SELCALLPRIORITYCALLALERTDURATION",    &kNotTwoTone},
    {"SELCALLEMERGENCYCALLALERTDURATION",   &kNotTwoTone},
    {"EXTERNALALERTPTR1_K6K",               &kNotTwoTone},
    {"EXTERNALALERTPTR2_K6K",               &kNotTwoTone},
    {"EXTERNALALERTPTRGROUP_K6K",           &kNotTwoTone},
    {"EXTERNALALERTPTRALL_K6K",             &kNotTwoTone},
    {"EXTERNALALERTPTRPRIORITY_K6K",        &kNotTwoTone},
    {"EXTERNALALERTPTREMERGENCY_K6K",       &kNotTwoTone},
    {"SELCALLINDIVCALLRXCADENCE1",          &kNotTwoTone},
    {"SELCALLINDIVCALLRXCADENCE2",          &kNotTwoTone},
    {"SELCALLGROUPCALLRXCADENCE",           &kNotTwoTone},
    {"T99ALLCALLRXCADENCE",                 &kNotTwoTone},
    {"SELCALLPRIORITYCALLRXCADENCE",        &kNotTwoTone},
    {"SELCALLEMERGENCYCALLRXCADENCE",       &kNotTwoTone},
    // emergency
    {"EMSIGNALLINGTYPE",                    &kEmergency},
    {"EMCYCLINGTYPE",                       &kEmergency},
    {"EMCYCLINGALERTTONE",                  &kEmergency},
    {"EMCYCLINGUIID",                       &kEmergency},
    {"EMCHANNELTYPE",                       &kEmergency},
    {"EMTXONHIGHPOWER",                     &kEmergency},
    {"STEALTHFALSEPOWERDOWN",               &kEmergency},
    {"EMCYCLINGNUMBER",                     &kFixedCycles},
    {"EMCYCLINGRXTIME",                     &kCycles},
    {"EMCYCLINGTXTIME",                     &kCycles},
    {"EMCYTXBEGINTONEFREQ",                 &kEmergencyAlertTone},
    {"EMCYTXENDTONEFREQ",                   &kEmergencyAlertTone},
    {"EMCYTXBEGINTONEDURATION",             &kEmergencyAlertTone},
    {"EMCYTXENDTONEDURATION",               &kEmergencyAlertTone},
    {"EMCYCLINGANI",                        &kEmergencyWithANI},
    {"STEALTHTOGGLECYCLING",                &kEmergencySelcall},
    {"EMCHANNEL",                           &kDedicatedEmergencyChannel},
    {"EMCALLOUTTYPE",                       &kEmergencyCallout},
    {"EMCALLOUTNUMBER",                     &kFixedCallouts},
    {"EMCALLOUTREPEATINTERVAL",             &kRepeatedCallouts},
    {"NONSTEALTHINDICATOR",                 &kNever},
    {"NONSTEALTHTXSIGNALLINGINDICATOR",     &kNever},
    {"NONSTEALTHMUTEAUDIO",                 &kNever},
    {"NONSTEALTHFALSEPOWERDOWN",            &kNever},
    {"NONSTEALTHTOGGLECYCLING",             &kNever},
    {"STEALTHINDICATOR",                    &kNever},
    {"STEALTHTXSIGNALLINGINDICATOR",        &kNever},
    {"STEALTHMUTEAUDIO",                    &kNever},
    // scan groups
    {"SCANTYPE_K6K",                        &kScanGroup},
    {"STOPSCANONPTT_K6K",                   &kScanGroup},
    {"PRIORITYSCAN_K6K",                    &kScanGroup},
    {"REVOTEONPTTRELEASE",                  &kVoteGroup},
    {"VOTEWITHSIGNALLING",                  &kVoteGroup},
    {"GROUPVOTINGLEADINDELAY_K6K",          &kVoteGroup},
    {"REVOTEINTERVAL_K6K",                  &kVoteGroup},
    {"GROUPVOTE",                           &kVoteGroup},
    {"SCANTXCHANNELSELECT_K6K",             &kGroupBackground},
    {"SCANDEFAULTTXCHANNEL_K6K",            &kStandardScan},
    {"SCANGROUPDISPLAYINDICATOR_K6K",       &kBackgroundScan},
    {"SUBAUDSCANNONPRIORITY_K6K",           &kNotVornAx},
    {"SCANINCLCURRENTCHAN_K6K",             &kScanTypeOn},
    {"SCANPRESETTXCHANNEL_K6K",             &kPresetTxChannel},
    {"GROUPTXCHANNELSEARCHTIMER",           &kVornAxScan},
    {"GROUPTXCHANNELCAPTUREDALERT",         &kVornAxScan},
    {"GROUPTXCHANNELSEARCHINDICATOR",       &kVornAxScan},
    {"PRIORITY1CHANNEL_K6K",                &kPriorityScan},
    {"DUALPRIORITYSCAN_K6K",                &kPriorityScan},
    {"SUBAUDSCANPRIORITY_K6K",              &kPriorityScan},
    {"CAPTUREDCHANPRISAMPLETIME_K6K",       &kPriorityScan},
    {"NONCAPTUREDCHANPRISAMPLETIME_K6K",    &kPriorityScan},
    {"PRIORITY2CHANNEL_K6K",                &kDualPriorityScan},
    {"BUSYPRIORITYSAMPLETIME_K6K",          &kBusySampling},
    {"DELETEPRIORITYCHANNELS_K6K",          &kDeletePriority},
    {"RESUMESCANWHENPUTONHOOK_K6K",         &kOffHookScan},
    // data and GPS
    {"DATAVHSDMODEMENABLED",                &kTransparentMode},
    {"DATATMBAUDRATE",                      &kTransparentMode},
    {"DATATMFLOWCONTROL",                   &kTransparentMode},
    {"DATAIGNOREESC",                       &kTransparentMode},
    {"FFSKCHECKING",                        &kTransparentMode},
    {"FFSKMAXIMUMINITIALFRAMELENGTH",       &kTransparentMode},
    {"TMODEUARTWRITEDELAY",                 &kTransparentMode},
    {"VHSDFORWARDERRORCORRECTION",          &kVHSD},
    {"VHSDLEADINDELAY",                     &kVHSD},
    {"VHSDLEADOUTDELAY",                    &kVHSD},
    {"DATAVHSDNUMFECCODEWORDS",             &kVHSD},
    {"DATAHSDBAUDRATE",                     &kVHSD},
    {"DATAHSDFLOWCONTROL",                  &kVHSD},
    {"DATAVHSDLAYER2ENABLED",               &kVHSD},
    {"VORNWIDEBANDMODEM",                   &kVHSD},
    {"DATATXBACKOFFTIMEMIN",                &kVHSD},
    {"DATATXBACKOFFTIMEMAX",                &kVHSD},
    {"DATACHANNELACCESSMETHOD",             &kVHSD},
    {"DATATOTALMODESERVICE",                &kTotalMode},
    {"DATATOTALRADIOIDHEX",                 &kTotalMode},
    {"DATATOTALSYSTEMIDHEX",                &kTotalMode},
    {"DATATOTALDESTINATIONIDHEX",           &kTotalMode},
    {"DATATOTALLINKIDHEX",                  &kTotalMode},
    {"DATATOTALMTUSIZE",                    &kTotalMode},
    {"DATATOTALVALIDATECRC",                &kTotalMode},
    {"DATATOTALCONFIRMEDMODERETRIES",       &kTotalMode},
    {"DATATOTALCONFIRMEDMODETIMEOUT",       &kTotalMode},
    {"DATATXBACKOFFONBUSYPERIOD",           &kTotalMode},
    {"SDMENCODECALLERIDENABLED",            &kSDM},
    {"TEXTSDMAUTOACKTRANSMISSION",          &kSDM},
    {"TEXTSDMAUTOACKRECEPTION",             &kSDM},
    {"DATAIDENTITY",                        &kSDM},
    {"GPSSDMCOMPATIBILITY",                 &kSDM},
    {"TEXTSDMINDICATOR",                    &kSDM},
    {"ALLOWSDMOVERWRITE",                   &kSDM},
    {"DATASDMWAITFORACK",                   &kSDMWaitForAck},
    {"DATASDMAUTOACKDELAY",                 &kSDMAutoAck},
    {"CCDISDMTEXTONLY",                     &kCCDIOutput},
    {"GPSSERIALPORT",                       &kGPS},
    {"GPSBAUDRATE",                         &kGPS},
    {"GPSNMEASTRINGTYPE",                   &kGPS},
    {"GPSCONNECTIONTIMEOUT",                &kGPS},
    {"GPSALARMCALLOUTINTERVAL",             &kGPS},
    {"GPSMAXNUMBERCALLOUTS",                &kGPS},
    {"GPSAVLDESPATCHERADDRESS",             &kGPS},
    {"GPSSDMLEADINDELAY",                   &kGPS},
    {"GPSSENDONEMERGENCYCALLOUT",           &kGPS},
    {"GPSPOLLRESPONSECHANNELTYPE",          &kGPS},
    {"GPSPOLLRESPONSEDELAYTIME",            &kGPS},
    {"GPSPOLLRESPONSECHANNEL",              &kGPSDedicated},
    {"PTTGPSSUPPRESSIONTIME",               &kGPSOnPTT},
    // other forms
    {"THIRDTONERESET_K6K",                  &kNoInvalidCallReset},
    {"MICSELECT1_K6K",                      &kPTT1Transmits},
    {"PTTPRIORITY1_K6K",                    &kPTT1Transmits},
    {"PTTINHIBITEDBYMICONHOOK1_K6K",        &kPTT1Transmits},
    {"MICSELECT2_K6K",                      &kPTT2Transmits},
    {"PTTPRIORITY2_K6K",                    &kPTT2Transmits},
    {"PTTINHIBITEDBYMICONHOOK2_K6K",        &kPTT2Transmits},
    {"MICSELECT3_K6K",                      &kPTT3Transmits},
    {"PTTPRIORITY3_K6K",                    &kPTT3Transmits},
    {"PTTINHIBITEDBYMICONHOOK3_K6K",        &kPTT3Transmits},
    {"SECURITYPIN1",                        &kSecurityLock},
    {"SECURITYPIN2",                        &kSecurityLock},
    {"SECURITYPIN3",                        &kSecurityLock},
    {"CHANNELGROUPIDFORRADIOSTARTUP",       &kGroupActivity},
    {"CWIDMODE",                            &kCWID},
    {"CWIDINTERVAL",                        &kCWID},
    {"CWIDSTRING",                          &kCWID},
    {"CWIDWORDSPERMINUTE",                  &kCWID},
    {"CWIDTONEFREQUENCY",                   &kCWID},
    {"CWIDSUBAUDENABLED",                   &kCWID},
    {"DTMFDIALLINGENABLED",                 &kKeypadMic},
    {"SIBTTONEPOSITION_K6K",                &kSIBT},
    {"SIBTFREQUENCY_K6K",                   &kSIBT},
    {"SIBTTONEENCODEDURATION_K6K",          &kSIBT},
    {"SIBTTONELEADINDELAY_K6K",             &kSIBT},
    {"SIBTTONELEADOUTDELAY_K6K",            &kSIBT},
    {"SIBTMINIMUMDECODEDURATION_K6K",       &kSIBT},
    {"SIBTTXCYCLINGENABLED_K6K",            &kSIBTInEmergency},
    {"T99TONEA_K6K",                        &kStandardTones},
    {"T99TONEB_K6K",                        &kStandardTones},
    {"T99TONEC_K6K",                        &kStandardTones},
    {"T99CUSTOMTONEA_K6K",                  &kCustomTones},
    {"T99CUSTOMTONEB_K6K",                  &kCustomTones},
    {"T99CUSTOMTONEC_K6K",                  &kCustomTones},
    {"T99TONED_K6K",                        &kStandardToneD},
    {"T99CUSTOMTONED_K6K",                  &kCustomToneD},
    {"T99MINALLCALLTONEPERIOD_K6K",         &kToneFormatCNE},
    {"T99MAXALLCALLTONEPERIOD_K6K",         &kToneFormatCNE},
    {"BASEDONTONESET",                      &kCustomToneSet},
    {"CUSTOMFREQUENCIES0",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIES1",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIES2",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIES3",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIES4",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIES5",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIES6",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIES7",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIES8",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIES9",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIESA",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIESB",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIESC",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIESD",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIESE",                  &kCustomToneSet},
    {"CUSTOMFREQUENCIESF",                  &kCustomToneSet},
    {"GROUPTONE",                           &kCustomToneSet},
    {"REPEATTONE",                          &kCustomToneSet},
    {"FK1PARAMETER1",                       &kKey1TakesParameter},
    {"FK1PARAMETER2",                       &kKey1TakesParameter},
    {"FK2PARAMETER1",                       &kKey2TakesParameter},
    {"FK2PARAMETER2",                       &kKey2TakesParameter},
    {"FK3PARAMETER1",                       &kKey3TakesParameter},
    {"FK3PARAMETER2",                       &kKey3TakesParameter},
    {"FK4PARAMETER1",                       &kKey4TakesParameter},
    {"FK4PARAMETER2",                       &kKey4TakesParameter},
    {"ALARMSTUNNED",                        &kAlarmStatus},
    {"ALARMOUTOFLOCK",                      &kAlarmStatus},
    {"ALARMHIGHTEMP",                       &kAlarmStatus},
    {"ALARMVERYHIGHTEMP",                   &kAlarmStatus},
    {"ALARMHIGHREVERSEPOWER",               &kAlarmStatus},
    // actions of programmable I/O
    {"ACTIONPARAMPRESETCHANNEL",            &kPresetChannelAction},
    {"ACTIONPARAMHOMECHANNEL",              &kHomeChannelAction},
    {"ACTIONPARAMEMERGENCYMODE",            &kEmergencyModeAction},
    {"ACTIONPARAMTOGGLEMUTEEXTERNALAUDIO",  &kMuteExternalAudioAction},
    {"ACTIONPARAMMUTEAUDIOOUTPUT",          &kMuteAudioOutputAction},
    {"ACTIONPARAMUNMUTEAUDIOOUTPUT",        &kUnmuteAudioOutputAction},
    {"ACTIONPARAMPRESETGROUP",              &kPresetGroupAction},
    {"DISABLEONOFFCONTROL",                 &kPowerSenseAction},
    {"UIPRECARRIERINDICATIONTIME",          &kTransmissionStatusAction},
};
// clang-format on
constexpr NameIndex kIndex(kRows, &EnablementRow::uiid);
}  // namespace

std::span<const EnablementRow> Rows() { return kRows; }

const Condition* FindCondition(std::string_view uiid) {
  const EnablementRow* row = kIndex.Find(uiid);
  return row == nullptr ? nullptr : row->enabledWhen;
}
}  // namespace modvalEnablement
