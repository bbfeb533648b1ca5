#include "compat/modStepsTo0083.h"

#include <algorithm>

#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "compat/VersionStep.h"
#include "platform/Conversions.h"

namespace modStepsTo0083 {
namespace {
constexpr std::string_view kActivation = "55.DigitalIOInputActivationAction";
constexpr std::string_view kDeactivation = "55.DigitalIOInputDeactivationAction";

/// An external PTT on the line to the control head.
void ResetControlHeadPTT(const VersionStep& step) {
  constexpr RecordNr kControlHeadLine = 15;
  constexpr std::int32_t kExternalPTT1 = 18, kExternalPTT2 = 19;
  const FieldRef action = step.Destination().Field(kActivation);
  if (!action.HasRecord(kControlHeadLine)) return;
  const std::int32_t code = CLng(action.Value(kControlHeadLine));
  if (code != kExternalPTT1 && code != kExternalPTT2) return;
  step.Warn(
      "You can not have an External PTT assigned to the Programmable I/O CH_GPIO1 line for this database "
      "version.  This setting will be reset to the defaults");
  for (const std::string_view field :
       {std::string_view("55.DigitalIOInputDirection"), std::string_view("55.DigitalIOInputActiveState"),
        std::string_view("55.DigitalIOInputDebounceTime"), kActivation, kDeactivation,
        std::string_view("55.DigitalIOInputMirroredTo")}) {
    step.Set(field, kControlHeadLine, step.Destination().Field(field).Default());
  }
}

/// Record 1 is no preset; behind it come ten for each system. Those that are there keep their owners.
void CompletePresets(const VersionStep& step) {
  constexpr RecordNr kPresetsPerSystem = 10;
  const std::vector<Variant> systems = step.Destination().Field("64.DTMFNetworkSigSystemID").Values();
  const TableRef presets = step.Destination().Table("65");
  presets.FillTo(1);
  const RecordNr needed = 1 + kPresetsPerSystem * static_cast<RecordNr>(systems.size());
  while (presets.RecordCount() < needed) {
    const RecordNr preset = presets.AppendRecord();
    const auto system = static_cast<std::size_t>((preset - 2) / kPresetsPerSystem);
    step.Set("65.DTMFChannelPresetSeqSigSysID", preset, systems[system]);
    step.Set("65.DTMFChannelPresetSequenceUI", preset, "");
  }
}

/// One record of patch settings for each network, and four sequences.
void CompletePatches(const VersionStep& step) {
  constexpr RecordNr kSequencesPerNetwork = 4;
  const std::vector<Variant> networks = step.Destination().Field("21.NetworkPointer").Values();
  const auto count = static_cast<RecordNr>(networks.size());
  step.Destination().Table("67").FillTo(count);
  step.Destination().Table("68").FillTo(count * kSequencesPerNetwork);
  for (const RecordNr network : RecordRange(count)) {
    step.Set("67.DTMFPatchNetworkID", network, networks[static_cast<std::size_t>(network - 1)]);
    step.Set("67.DTMFPatchToneSetupPointer", network, network - 1);
  }
  for (const RecordNr sequence : RecordRange(count * kSequencesPerNetwork)) {
    step.Set("68.DTMFPatchSeqNetworkID", sequence,
             networks[static_cast<std::size_t>((sequence - 1) / kSequencesPerNetwork)]);
  }
}
}  // namespace

bool Up0054To0081(const VersionStep& step) {
  ResetControlHeadPTT(step);
  CompletePresets(step);
  CompletePatches(step);
  constexpr std::int32_t kInBandTone = 2000;  // hertz, as the forms show it
  step.ChangeEach("75.SIBTFrequency", [&](std::int32_t) { return kInBandTone; });
  constexpr std::int32_t kDeactivateAlarmMode = 35;
  step.ReplaceEach({kActivation, kDeactivation}, kDeactivateAlarmMode, 0,
                   "Deactivate Alarm Mode is no longer available as a Programmable I/O input action.  This "
                   "will be set to 'None'.");
  return true;
}

bool Down0081To0054(const VersionStep& step) {
  if (step.Source().Table("37").RecordCount() == 0) return true;
  if (step.SourceHolds("21.SignallingType", {SignallingType::kTwoTone})) {
    return step.Refuse(
        "Two-Tone signalling systems can not be used on Networks in this database version. You must change "
        "the Signalling Type for the Networks using Two-Tone signalling before continuing.");
  }
  step.Destination().ClearTable("37");
  return true;
}

bool Up0081To0082(const VersionStep& step) {
  const bool hasGPS = step.Holds("GPSEnabled", kOn);
  if (hasGPS && step.Holds("69.GPSSDMWaitForAck", kOn)) {
    step.Warn("GPS auto-acknowledgements are not available in this database version.");
  }
  constexpr std::int32_t kNoString = 0, kGPRMC = 1;
  if (hasGPS) {
    step.ReplaceEach({"69.GPSNMEAStringType"}, kNoString, kGPRMC,
                     "The GPS NMEA String Type 'None' is no longer available in this database version. It "
                     "will be replaced by 'GPRMC'.");
  }
  if (step.Readable("9.DataSDMAutoAck")) {
    const bool acknowledges = step.Holds("9.DataSDMAutoAck", kOn) && step.Holds("DataSDMOptionsEnabled", kOn);
    step.Set("TextSDMAutoAckTransmission", kOnly, acknowledges ? kOn : kOff);
  }
  constexpr std::int32_t kLongest = 250;
  for (const std::string_view timer : {"TxDurationTimer", "TxLockoutTimer"}) {
    step.ChangeEach(timer, [&](std::int32_t seconds) { return std::min(seconds, kLongest); });
  }
  step.CutToNetworks("75");
  constexpr std::int32_t kMicrophone = 1;
  for (RecordNr path = 2; path <= 4; ++path) step.Set("59.AudioIOMicSource", path, kMicrophone);
  return true;
}

bool Down0082To0081(const VersionStep& step) {
  step.Set("69.GPSSDMWaitForAck", kOnly, step.Holds("GPSEnabled", kOn) ? kOn : kOff);
  if (step.Readable("TextSDMAutoAckTransmission")) {
    step.Set("9.DataSDMAutoAck", kOnly, step.Holds("TextSDMAutoAckTransmission", kOn) ? kOn : kOff);
  }
  return true;
}
}  // namespace modStepsTo0083
