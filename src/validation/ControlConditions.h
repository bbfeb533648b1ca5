#pragma once

#include "channels/modBandLimits.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "radioui/FunctionKeyActions.h"
#include "validation/Conditions.h"

/// The conditions of the controls, each under a name of its own.
namespace ControlConditions {
using namespace Conditions;

inline constexpr Condition kNever{};

// Networks. "On" is the value 1; the two times are on when they are not 0.
inline constexpr Condition kHasSignalling = Not(OneOf<SignallingType::kNone>("SignallingType", At::Network));
inline constexpr Condition kSelcall = OneOf<SignallingType::kSelcall>("SignallingType", At::Network);
inline constexpr Condition kTwoTone = OneOf<SignallingType::kTwoTone>("SignallingType", At::Network);
inline constexpr Condition kNotTwoTone = Not(kTwoTone);
inline constexpr Condition kSelcallOrTwoTone =
    OneOf<SignallingType::kSelcall, SignallingType::kTwoTone>("SignallingType", At::Network);
inline constexpr Condition kSelcallDTMFOrMDC1200 =
    OneOf<SignallingType::kSelcall, SignallingType::kDTMF, SignallingType::kMDC1200>("SignallingType",
                                                                                     At::Network);
inline constexpr Condition kSequenceOneMonitor = On("RxSeqOneMonitorOn", At::Network);
inline constexpr Condition kSequenceTwoMonitor = On("RxSeqTwoMonitorOn", At::Network);
inline constexpr Condition kSequenceMonitor = AnyOf<kSequenceOneMonitor, kSequenceTwoMonitor>();
inline constexpr Condition kMonitoredSelcall = AllOf<kSelcall, kSequenceMonitor>();
inline constexpr Condition kMayMonitorCalls = AnyOf<kTwoTone, kMonitoredSelcall>();
inline constexpr Condition kCallMute = On("CallMute", At::Network);
inline constexpr Condition kHookswitchMonitor = On("HookswitchMonitor_k6k", At::Network);
inline constexpr Condition kExpectAck = On("ExpectAck", At::Network);
inline constexpr Condition kToneBlanking = On("ToneBlankingTimer", At::Network);
inline constexpr Condition kDeferredCalling = On("DeferredCalling_k6k", At::Network);
inline constexpr Condition kSignallingOnPress = Not(OneOf<0>("21.SignallingOnPTTPress", At::Network));
inline constexpr Condition kPressOn = On("SignallingOnPTTPress_k6k", At::Network);
inline constexpr Condition kReleaseBeep = OneOf<2>("SignallingOnPTTRelease_k6k", At::Network);
inline constexpr Condition kReleaseSignals = OneOf<1, 2>("SignallingOnPTTRelease_k6k", At::Network);
inline constexpr Condition kPressSignals = OneOf<1, 2>("SignallingOnPTTPress_k6k", At::Network);
inline constexpr Condition kPTTSignalling = AnyOf<kReleaseSignals, kPressSignals>();
inline constexpr Condition kTxDuration = Not(OneOf<0>("TxDurationTimer", At::Network));
inline constexpr Condition kReverseToneBurst = Not(OneOf<0>("ReverseToneBurstDuration_k6k", At::Network));
inline constexpr Condition kNoAutoOverBeep = Not(On("AutoOverBeep", At::Network));
inline constexpr Condition kAutoQuiet = Above<0>("AutoQuietTime_k6k", At::Network);
inline constexpr Condition kSIBT = On("SIBTEnabled_k6k", At::Network);
inline constexpr Condition kCWID = On("CWIDEnabled", At::Network);

// Channels.
inline constexpr Condition kSelcallChannel =
    OneOf<SignallingType::kSelcall>("SignallingType", At::ChannelNetwork);
inline constexpr Condition kDTMFChannel = OneOf<SignallingType::kDTMF>("SignallingType", At::ChannelNetwork);
inline constexpr Condition kTwoToneChannel =
    OneOf<SignallingType::kTwoTone>("SignallingType", At::ChannelNetwork);
inline constexpr Condition kReceives = Not(OneOf<0>("RxFreq_k6k", At::Drawn));
inline constexpr Condition kNoRxSignalling = Holds("RxSignalling_k6k", kNone, At::Drawn);
inline constexpr Condition kNoTxSignalling = Holds("TxSignalling_k6k", kNone, At::Drawn);
inline constexpr Condition kChannelSIBT = On("SIBTEnabled_k6k", At::ChannelNetwork);
inline constexpr Condition kChannelMaySendSIBT = AllOf<kNoRxSignalling, kNoTxSignalling, kChannelSIBT>();
inline constexpr Condition kNoGlobalEncryption = OneOf<kOff>("GlobalEncryption");
inline constexpr Condition kNoiseBlankerBand = Not(Above<2>("Band_k6k"));
inline constexpr Condition kK5Band = OneOf<modBandLimits::kPositionK5>("Band_k6k");
// A channel may change its network on the form of its own network as on that of any other.
inline constexpr Condition kOwnNetwork{
    .kind = Kind::ThisNetwork, .at = At::Drawn, .field = "ChannelNetworkID_k6k"};
inline constexpr Condition kOtherNetwork = Not(kOwnNetwork);
inline constexpr Condition kOwnOrOtherNetwork = AnyOf<kOwnNetwork, kOtherNetwork>();

// Emergency.
inline constexpr Condition kEmergency = On("EmergencyEnabled", At::Network);
inline constexpr Condition kCyclesFixed = OneOf<EmCycling::kFixedNumber>("EmCyclingType", At::Network);
inline constexpr Condition kCyclesAtAll = Not(OneOf<EmCycling::kNone>("EmCyclingType", At::Network));
inline constexpr Condition kAlertTone = On("EmCyclingAlertTone", At::Network);
inline constexpr Condition kDedicated = Above<ChannelType::kCurrent>("EmChannelType", At::Network);
inline constexpr Condition kHasCalloutSystem = Not(Holds("53.SignallingTypeUI", kNone, At::Network));
inline constexpr Condition kCalloutContinuous = OneOf<EmCallout::kContinuous>("EmCalloutType", At::Network);
inline constexpr Condition kCalloutFixed = OneOf<EmCallout::kFixedNumber>("EmCalloutType", At::Network);
inline constexpr Condition kSeveralCallouts = Above<1>("EmCalloutNumber", At::Network);
inline constexpr Condition kSeveralFixedCallouts = AllOf<kCalloutFixed, kSeveralCallouts>();
inline constexpr Condition kCalloutRepeats = AnyOf<kCalloutContinuous, kSeveralFixedCallouts>();
inline constexpr Condition kFixedCycles = AllOf<kEmergency, kCyclesFixed>();
inline constexpr Condition kCycles = AllOf<kEmergency, kCyclesAtAll>();
inline constexpr Condition kEmergencyAlertTone = AllOf<kEmergency, kAlertTone>();
inline constexpr Condition kEmergencyWithANI = AllOf<kEmergency, kSelcallDTMFOrMDC1200>();
inline constexpr Condition kEmergencySelcall = AllOf<kEmergency, kSelcall>();
inline constexpr Condition kDedicatedEmergencyChannel = AllOf<kEmergency, kDedicated>();
inline constexpr Condition kEmergencyCallout = AllOf<kEmergency, kHasCalloutSystem>();
inline constexpr Condition kFixedCallouts = AllOf<kEmergency, kHasCalloutSystem, kCalloutFixed>();
inline constexpr Condition kRepeatedCallouts = AllOf<kEmergency, kHasCalloutSystem, kCalloutRepeats>();
inline constexpr Condition kSIBTInEmergency = AllOf<kSIBT, kEmergency>();

// Scan groups. The type of a group decides about the current group, all else about the group being drawn.
inline constexpr Condition kScanGroup = OneOf<GroupType::kScan>("GroupType_k6k", At::ScanGroup);
inline constexpr Condition kVoteGroup = OneOf<GroupType::kVote>("GroupType_k6k", At::ScanGroup);
inline constexpr Condition kCurrentBeyondStandard =
    Not(OneOf<ScanType::kVornAx, ScanType::kStandard>("ScanType_k6k", At::ScanGroup));
inline constexpr Condition kCurrentStandard = OneOf<ScanType::kStandard>("ScanType_k6k", At::ScanGroup);
inline constexpr Condition kGroupBackground = AllOf<kScanGroup, kCurrentBeyondStandard>();
inline constexpr Condition kStandardScan = AllOf<kScanGroup, kCurrentStandard>();
inline constexpr Condition kDrawnScanGroup = OneOf<GroupType::kScan>("GroupType_k6k", At::Drawn);
inline constexpr Condition kDrawnBackground = OneOf<ScanType::kBackground>("ScanType_k6k", At::Drawn);
inline constexpr Condition kDrawnNotVornAx = Not(OneOf<ScanType::kVornAx>("ScanType_k6k", At::Drawn));
inline constexpr Condition kCallsOnPreset =
    OneOf<InitiateCallChannel::kPreset>("ScanDefaultTxChannel_k6k", At::Drawn);
inline constexpr Condition kBackgroundScan = AllOf<kDrawnScanGroup, kDrawnBackground>();
inline constexpr Condition kNotVornAx = AllOf<kDrawnScanGroup, kDrawnNotVornAx>();
inline constexpr Condition kScanTypeOn = On("ScanType_k6k", At::Drawn);
inline constexpr Condition kPresetTxChannel = AllOf<kCallsOnPreset, kDrawnScanGroup, kDrawnNotVornAx>();
inline constexpr Condition kVornAxScan = OneOf<ScanType::kVornAx>("ScanType_k6k", At::Drawn);
inline constexpr Condition kPriorityScan = On("PriorityScan_k6k", At::Drawn);
inline constexpr Condition kDualPriorityScan = On("DualPriorityScan_k6k", At::Drawn);
inline constexpr Condition kNoSubaudPriority = Not(On("SubaudScanPriority_k6k", At::Drawn));
inline constexpr Condition kBusySampling = AllOf<kPriorityScan, kNoSubaudPriority>();
inline constexpr Condition kNuisanceDelete = On("16.NuisanceDelete", At::Drawn);
inline constexpr Condition kDeletePriority = AllOf<kPriorityScan, kNuisanceDelete>();
inline constexpr Condition kOffHookScan = On("OffHookScan_k6k", At::Drawn);

// Data and GPS.
inline constexpr Condition kTransparentMode = On("DataOptionsEnabled");
inline constexpr Condition kVHSD = On("DataVHSDModemEnabled");
inline constexpr Condition kLayer2 = On("DataVHSDLayer2Enabled");
inline constexpr Condition kTotalMode = AllOf<kVHSD, kLayer2>();
inline constexpr Condition kSDM = On("DataSDMOptionsEnabled");
inline constexpr Condition kAckReception = On("TextSDMAutoAckReception");
inline constexpr Condition kAckTransmission = On("TextSDMAutoAckTransmission");
inline constexpr Condition kSDMWaitForAck = AllOf<kSDM, kAckReception>();
inline constexpr Condition kSDMAutoAck = AllOf<kSDM, kAckTransmission>();
inline constexpr Condition kCCDIOutput = On("CCDISDMOutputEnabled");
inline constexpr Condition kGPS = On("GPSEnabled");
inline constexpr Condition kPollDedicated = Not(OneOf<ChannelType::kCurrent>("GPSPollResponseChannelType"));
inline constexpr Condition kGPSDedicated = AllOf<kGPS, kPollDedicated>();
inline constexpr Condition kPositionOnPTT = OneOf<2>("GPSNetworkSendPosOnPTT", At::Network);
inline constexpr Condition kPositionOnEPTT1 = OneOf<2>("GPSNetworkSendPosOnEPTT1", At::Network);
inline constexpr Condition kPositionOnEPTT2 = OneOf<2>("GPSNetworkSendPosOnEPTT2", At::Network);
inline constexpr Condition kGPSOnPTT = AnyOf<kPositionOnPTT, kPositionOnEPTT1, kPositionOnEPTT2>();

// Selcall and two-tone systems.
inline constexpr Condition kNoInvalidCallReset = Not(On("InvalidCallReset_k6k", At::Drawn));
inline constexpr Condition kCustomToneSet = OneOf<9>("ToneSet", At::SelcallSystem);
inline constexpr Condition kStandardTones = Not(On("T99Custom_k6k", At::Drawn));
inline constexpr Condition kCustomTones = On("T99Custom_k6k", At::Drawn);
inline constexpr Condition kFourTones = On("T99TableFormat_k6k", At::Drawn);
inline constexpr Condition kToneFormatMOT = OneOf<0>("T99TableFormat_k6k", At::Drawn);
inline constexpr Condition kStandardToneD = AllOf<kStandardTones, kFourTones>();
inline constexpr Condition kCustomToneD = AllOf<kCustomTones, kFourTones>();

// The radio's keys, pins and options.
inline constexpr Condition kPTT1Transmits = Not(OneOf<PTTTransmission::kNone>("PTTTransmissionType1_k6k"));
inline constexpr Condition kPTT2Transmits = Not(OneOf<PTTTransmission::kNone>("PTTTransmissionType2_k6k"));
inline constexpr Condition kPTT3Transmits = Not(OneOf<PTTTransmission::kNone>("PTTTransmissionType3_k6k"));
inline constexpr Condition kSecurityLock = On("SecurityLockOnPowerUp");
inline constexpr Condition kGroupActivity = On("GroupActivityOnPowerUp_k6k");
inline constexpr Condition kKeypadMic = On("KeypadMic");
consteval Condition TakesParameter(std::string_view key) {
  return {.kind = Condition::Kind::OneOf, .field = key, .codes = FunctionKeyActions::kWithParameter};
}
inline constexpr Condition kKey1TakesParameter = TakesParameter("FunctionKey1");
inline constexpr Condition kKey2TakesParameter = TakesParameter("FunctionKey2");
inline constexpr Condition kKey3TakesParameter = TakesParameter("FunctionKey3");
inline constexpr Condition kKey4TakesParameter = TakesParameter("FunctionKey4");
inline constexpr Condition kAlarmStatus = ActionInUse("Alarm Status");
inline constexpr Condition kPresetChannelAction = ActionInUse("Preset Channel");
inline constexpr Condition kHomeChannelAction = ActionInUse("Home Channel");
inline constexpr Condition kEmergencyModeAction = ActionInUse("Enter Emergency Mode");
inline constexpr Condition kMuteExternalAudioAction = ActionInUse("Mute External Audio Input");
inline constexpr Condition kMuteAudioOutputAction = ActionInUse("Mute Audio Output Path");
inline constexpr Condition kUnmuteAudioOutputAction = ActionInUse("Unmute Audio Output Path");
inline constexpr Condition kPresetGroupAction = ActionInUse("Preset Group");
inline constexpr Condition kPowerSenseAction = ActionInUse("Power Sense (Ignition)");
inline constexpr Condition kTransmissionStatusAction = ActionInUse("Radio Transmission Status");
}  // namespace ControlConditions
