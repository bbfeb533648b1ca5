#pragma once

#include <cstdint>
#include <string_view>

/// Codes of the radio's fields, by the field that holds them.
/// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.

/// A tick box.
inline constexpr std::int32_t kOff = 0;
inline constexpr std::int32_t kOn = 1;

namespace ChannelType {  ///< EmChannelType, GPSPollResponseChannelType
inline constexpr std::int32_t kCurrent = 0;
inline constexpr std::int32_t kDedicated = 1;
}  // namespace ChannelType

namespace TxPower {  ///< TxPower_k6k; LowPowerLevelMeans from kVeryLow to kMedium
inline constexpr std::int32_t kOff = 0;
inline constexpr std::int32_t kVeryLow = 1;
inline constexpr std::int32_t kLow = 2;
inline constexpr std::int32_t kMedium = 3;
inline constexpr std::int32_t kHigh = 4;
}  // namespace TxPower

namespace KeyAction {  ///< FunctionKey1 to FunctionKey4
inline constexpr std::int32_t kUnassigned = 0;
inline constexpr std::int32_t kActionDigitalOutputLine = 2;
inline constexpr std::int32_t kBacklightTimer = 3;
inline constexpr std::int32_t kBacklightToggle = 4;
inline constexpr std::int32_t kBacklightTimerToggle = 5;
inline constexpr std::int32_t kCallCleardown = 6;
inline constexpr std::int32_t kDTMFDialling = 8;
inline constexpr std::int32_t kEconomy = 9;
inline constexpr std::int32_t kEmergencyMode = 10;
inline constexpr std::int32_t kEncryption = 11;
inline constexpr std::int32_t kScanning = 12;
inline constexpr std::int32_t kLowPowerTransmit = 16;
inline constexpr std::int32_t kMonitor = 17;
inline constexpr std::int32_t kMonitorSquelchOverride = 18;
inline constexpr std::int32_t kNetworkPresetCalls = 19;
inline constexpr std::int32_t kNuisanceDelete = 20;
inline constexpr std::int32_t kPhonePatch = 21;
inline constexpr std::int32_t kPresetChannel = 22;
inline constexpr std::int32_t kResetMonitor = 26;
inline constexpr std::int32_t kResetMonitorCallCleardown = 27;
inline constexpr std::int32_t kSquelchOverride = 30;
inline constexpr std::int32_t kScanningNuisanceDelete = 31;
}  // namespace KeyAction

namespace ScanType {  ///< ScanType_k6k
inline constexpr std::int32_t kStandard = 0;
inline constexpr std::int32_t kBackground = 1;
inline constexpr std::int32_t kVornAx = 2;
}  // namespace ScanType

namespace GroupType {  ///< GroupType_k6k
inline constexpr std::int32_t kScan = 0;
inline constexpr std::int32_t kVote = 1;
}  // namespace GroupType

namespace InitiateCallChannel {  ///< ScanDefaultTxChannel_k6k
inline constexpr std::int32_t kPreset = 0;
inline constexpr std::int32_t kLastCaptured = 1;
inline constexpr std::int32_t kLastFree = 2;
inline constexpr std::int32_t kNextFree = 3;
inline constexpr std::int32_t kSelected = 4;
}  // namespace InitiateCallChannel

namespace RespondOn {  ///< ScanTxChannelSelect_k6k
inline constexpr std::int32_t kCaptured = 0;
inline constexpr std::int32_t kDefault = 1;
}  // namespace RespondOn

namespace PriorityScan {  ///< PriorityScan_k6k
inline constexpr std::int32_t kDisabled = 0;
inline constexpr std::int32_t kEnabled = 1;
inline constexpr std::int32_t kSelected = 2;
}  // namespace PriorityScan

namespace GroupDisplay {  ///< ScanGroupDisplayIndicator_k6k
inline constexpr std::int32_t kSC = 0;
inline constexpr std::int32_t kGroupID = 1;
inline constexpr std::int32_t kTxChannel = 2;
}  // namespace GroupDisplay

namespace StartUp {  ///< StartingWithChannelOrGroup
inline constexpr std::int32_t kChannel = 0;
inline constexpr std::int32_t kGroup = 1;
}  // namespace StartUp

namespace EmCallout {  ///< EmCalloutType
inline constexpr std::int32_t kDisabled = 0;
inline constexpr std::int32_t kContinuous = 1;
inline constexpr std::int32_t kFixedNumber = 2;
}  // namespace EmCallout

namespace EmCycling {  ///< EmCyclingType
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kContinuous = 1;
inline constexpr std::int32_t kFixedNumber = 2;
}  // namespace EmCycling

namespace AutoAck {  ///< AutoAckType
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kSequence = 1;
inline constexpr std::int32_t kBeep = 2;
}  // namespace AutoAck

namespace AlertType {  ///< Sequence1AlertType and its five neighbours
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kRing = 1;
inline constexpr std::int32_t kBeep = 2;
}  // namespace AlertType

namespace PowerupState {  ///< DataPowerupState
inline constexpr std::int32_t kCommand = 0;
inline constexpr std::int32_t kFFSKTransparent = 1;
inline constexpr std::int32_t kVHSD = 2;
}  // namespace PowerupState

namespace SerialPort {  ///< DataCCDIPort, GPSSerialPort
inline constexpr std::int32_t kMic = 0;
inline constexpr std::int32_t kAux = 1;
inline constexpr std::int32_t kInternal = 2;
}  // namespace SerialPort

namespace FlowControl {  ///< DataCMFlowControl, DataTMFlowControl, DataHSDFlowControl
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kHardware = 1;
inline constexpr std::int32_t kSoftware = 2;
}  // namespace FlowControl

namespace SDMFormat {  ///< GPSSDMCompatibility
inline constexpr std::int32_t kStandard = 0;
inline constexpr std::int32_t kCCDI2Text = 1;
}  // namespace SDMFormat

namespace MicSource {  ///< MicSelect1_k6k to MicSelect3_k6k
inline constexpr std::int32_t kAudioTapIn = 0;
inline constexpr std::int32_t kControlHead = 1;
inline constexpr std::int32_t kAuxiliary = 2;
}  // namespace MicSource

namespace PTTTransmission {  ///< PTTTransmissionType1_k6k to PTTTransmissionType3_k6k
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kVoice = 1;
inline constexpr std::int32_t kData = 2;
}  // namespace PTTTransmission

namespace Backlight {  ///< BacklightMode
inline constexpr std::int32_t kWithActivity = 0;
inline constexpr std::int32_t kContinuous = 1;
}  // namespace Backlight

namespace AudibleMode {  ///< UIPrefsAudibleMode
inline constexpr std::int32_t kAll = 0;
inline constexpr std::int32_t kQuiet = 1;
inline constexpr std::int32_t kSilent = 2;
}  // namespace AudibleMode

namespace SignallingOnPTT {  ///< SignallingOnPTTPress_k6k, SignallingOnPTTRelease_k6k
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kANI = 1;
inline constexpr std::int32_t kTone = 2;  ///< repeater access tone on a press, over beep on the release
}  // namespace SignallingOnPTT

namespace MonitorOverrides {  ///< MonitorOverrides_k6k, HookswitchMonitorOverrides_k6k
inline constexpr std::int32_t kSubaudibleOnly = 0;
inline constexpr std::int32_t kAllMutes = 1;
}  // namespace MonitorOverrides

namespace GroupFormat {                     ///< GroupFormat
inline constexpr std::int32_t kSigtec = 0;  ///< group tones stand at the end of a burst
inline constexpr std::int32_t kOther = 1;
}  // namespace GroupFormat

namespace EmSignalling {  ///< EmSignallingType
inline constexpr std::int32_t kNoSignalling = 2;
}  // namespace EmSignalling

/// The form fields of one function key, all in record 1.
struct FunctionKey {
  std::string_view action, parameter1, parameter2;
};
inline constexpr FunctionKey kFunctionKeys[] = {
    {"FunctionKey1", "FK1Parameter1", "FK1Parameter2"},
    {"FunctionKey2", "FK2Parameter1", "FK2Parameter2"},
    {"FunctionKey3", "FK3Parameter1", "FK3Parameter2"},
    {"FunctionKey4", "FK4Parameter1", "FK4Parameter2"},
};
