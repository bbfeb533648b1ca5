#include "compat/modStepsTo0054.h"

#include <algorithm>

#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "compat/VersionStep.h"
#include "platform/Conversions.h"

namespace modStepsTo0054 {
namespace {
constexpr double kVolumeFactor = 8.5;
constexpr std::int32_t kHighestVolume = 255, kHighestVolumeOf0029 = 30;

/// Codes of the microphone for covert work. Up to 0051 there are two of them.
namespace CovertMic {
constexpr std::int32_t kStandard = 0, kAux = 1, kCovert = 2;
constexpr std::int32_t kCovertOf0051 = 1;
}  // namespace CovertMic

/// Up to 0051 networks count from 0. Where a version has both fields, the first one is meant.
void CountNetworks(const VersionStep& step, std::int32_t more) {
  const bool hasNumber = step.Destination().HasField("21.NetworkID");
  step.ChangeEach(hasNumber ? "21.NetworkID" : "21.NetworkPointer",
                  [&](std::int32_t number) { return number + more; });
}
}  // namespace

bool Up0029To0051(const VersionStep& step) {
  constexpr std::int32_t kLongestDelay = 250;
  step.ChangeEach("36.SubAudInvalidConfDelay",
                  [&](std::int32_t delay) { return std::min(delay, kLongestDelay); });
  step.ChangeEach("34.PAPresetVolLevel", [&](std::int32_t level) {
    return std::min(RoundToLong(level * kVolumeFactor), kHighestVolume);
  });
  step.TakeForNetworks("21.NetworkPointer", step.Source(), "21.NetworkID");
  return true;
}

bool Down0051To0029(const VersionStep& step) {
  if (step.SourceHolds("21.SignallingType", {SignallingType::kDTMF})) {
    return step.Refuse(
        "DTMF signalling systems can not be used on Networks in this database version. You must change the "
        "Signalling Type for the Networks using DTMF signalling before continuing.");
  }
  step.ChangeEach("34.PAPresetVolLevel", [&](std::int32_t level) {
    return std::min(static_cast<std::int32_t>(level / kVolumeFactor), kHighestVolumeOf0029);
  });
  return true;
}

bool Up0051To0052(const VersionStep& step) {
  CountNetworks(step, 1);
  // The codes counted from 1.
  step.ChangeEach("69.GPSSDMCompatibility", [&](std::int32_t code) { return std::max(code - 1, 0); });
  step.ChangeEach("34.CovertMicFitted", [&](std::int32_t code) {
    return code == CovertMic::kCovertOf0051 ? CovertMic::kCovert : code;
  });
  return true;
}

bool Down0052To0051(const VersionStep& step) {
  CountNetworks(step, -1);
  step.ChangeEach("69.GPSSDMCompatibility", [&](std::int32_t code) { return code + 1; });
  step.ReplaceEach({"34.CovertMicFitted"}, CovertMic::kAux, CovertMic::kStandard,
                   "The Emergency Mic can not be set to 'Aux' for this database version, and will be set to "
                   "'Standard'");
  step.ChangeEach("34.CovertMicFitted", [&](std::int32_t code) {
    return code == CovertMic::kCovert ? CovertMic::kCovertOf0051 : code;
  });
  return true;
}

bool Up0053To0054(const VersionStep& step) {
  step.TakeForNetworks("21.NetworkID", step.Source(), "21.NetworkPointer");
  // A microphone path that is tapped without a tap point.
  constexpr std::int32_t kTap = 0, kNoPoint = 0, kMicrophone = 1;
  const auto source = step.Writable("59.AudioIOMicSource");
  const auto point = step.Writable("59.AudioIOTapIn");
  for (RecordNr path = 2; source && point && path <= std::min(source->RecordCount(), 4); ++path) {
    const bool isTapped = CLng(source->Value(path)) == kTap && CLng(point->Value(path)) == kNoPoint;
    if (isTapped) source->SetValue(path, kMicrophone);
  }
  return true;
}

bool Down0054To0053(const VersionStep& step) {
  step.TakeForNetworks("21.NetworkPointer", step.Destination(), "21.NetworkID");
  return true;
}
}  // namespace modStepsTo0054
