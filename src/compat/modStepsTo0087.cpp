#include "compat/modStepsTo0087.h"

#include <algorithm>
#include <string>

#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "compat/VersionStep.h"
#include "platform/Conversions.h"
#include "radioui/modDigitalIO.h"
#include "radioui/modProgIO.h"
#include "selcall/modSelcallMapping.h"

namespace modStepsTo0087 {
namespace {
/// Codes of what an output shows; as inputs they are other actions.
namespace OutputCode {
constexpr std::int32_t kBusyStatus = 1, kSerialDataTx = 33, kEncryptionStatus = 34;
}  // namespace OutputCode

/// The grid of the personality that is left. A host may not have filled it.
void ProvideGrid(const ProviderRef& source) {
  if (source.Table("1108").RecordCount() > 0) return;
  const ScopedAutoUpdate silent(source, false);
  modDigitalIO::GetGridAndDigitalIO(source, {}, kOnly);
}

/// The outputs of the grid that show this.
std::int32_t OutputsOf(const ProviderRef& source, std::int32_t code) {
  const std::string_view name = modProgIO::GetDigitalIOActionName(code, false);
  const FieldRef directions = source.Field("DigitalIODirection");
  const FieldRef actions = source.Field("DigitalIOAction");
  std::int32_t count = 0;
  for (const RecordNr row : directions.Records()) {
    if (ReadsAs(directions.Value(row), modProgIO::kOutput) && ReadsAs(actions.Value(row), name)) ++count;
  }
  return count;
}

/// A timer that counts gaps in 0085 and milliseconds in 0086.
void ToneBlankingDeactivationTimer(const ProviderRef& provider, bool up) {
  const FieldRef timer = provider.Field("21.ToneBlankingDeactivationTimer");
  const FieldRef gaps = provider.Field("29.GapPeriod");
  for (const RecordNr network : timer.Records()) {
    const auto value = [&](std::string_view field) { return provider.Field(field).Value(network); };
    if (!IsCode(value("SignallingType"), SignallingType::kSelcall) ||
        !IsCode(value("ToneBlankingTimer"), kOn)) {
      continue;
    }
    // What names no system is a form that nobody has filled: the radio's own pointer counts.
    RecordNr system = modProjectGlobals::SigSysRecordNr(provider, SignallingType::kSelcall,
                                                        value("21.NetworkSignallingID"), true);
    if (system == 0) system = CLng(value("21.SignallingPointer")) + 1;
    if (!gaps.HasRecord(system)) continue;
    const std::int32_t gap = modSelcallMapping::PeriodMs(gaps.Value(system));
    const double before = CDbl(timer.Value(network));
    if (up)
      timer.SetValue(network, RoundToLong(before * gap));
    else if (gap > 0)
      timer.SetValue(network, RoundToLong(before / gap));
  }
}

bool FitConfirmationDelays(const VersionStep& step) {
  constexpr std::int32_t kShortest = 20, kLongest = 250;
  const std::vector<Variant> delays = step.Source().Field("SubaudInvalidConfDelay_k6k").Values();
  return std::ranges::all_of(
      delays, [](const Variant& delay) { return kShortest <= CDbl(delay) && CDbl(delay) <= kLongest; });
}
}  // namespace

bool Down0084To0083(const VersionStep& step) {
  const ProviderRef& source = step.Source();
  ProvideGrid(source);
  const std::string_view serialData = modProgIO::GetDigitalIOActionName(OutputCode::kSerialDataTx, false);
  const FieldRef directions = source.Field("DigitalIODirection");
  const FieldRef actions = source.Field("DigitalIOAction");
  const FieldRef debounceTimes = source.Field("DigitalIODebounceTime");
  for (const RecordNr row : directions.Records()) {
    if (ReadsAs(directions.Value(row), modProgIO::kOutput) && ReadsAs(actions.Value(row), serialData)) {
      return step.Refuse(
          "This database version does not support the Programmable I/O Digital Output Trigger 'Serial Data "
          "Tx In Progress'.  Please unselect this action from all Output Pins.");
    }
    const std::string debounceTime = CStr(debounceTimes.Value(row));
    if (debounceTime == "2" || debounceTime == "5") {
      return step.Refuse(
          "This database version does not support Digital IO Debounce Times of 2 or 5ms.  Please select "
          "other Debounce Time values.");
    }
    if (debounceTime == "150" || debounceTime == "200") {
      return step.Refuse(
          "This database version does not support Digital IO Debounce Times of 150 or 200ms.  Please select "
          "other Debounce Time values.");
    }
  }
  return true;
}

bool Down0085To0084(const VersionStep& step) {
  constexpr std::int32_t kPresetCall2 = 38, kPresetCall3 = 39, kPresetCall4 = 40;
  if (!step.SourceHolds("55.DigitalIOInputActivationAction", {kPresetCall2, kPresetCall3, kPresetCall4}))
    return true;
  return step.Refuse("This database version does not support Digital IO Send Network Preset Call 2, 3 or 4.");
}

bool Up0085To0086(const VersionStep& step) {
  ToneBlankingDeactivationTimer(step.Destination(), true);
  return true;
}

bool Down0086To0085(const VersionStep& step) {
  const ProviderRef& source = step.Source();
  ProvideGrid(source);
  if (OutputsOf(source, OutputCode::kEncryptionStatus) > 0) {
    return step.Refuse(
        "This database version does not support the Programmable I/O Digital Output Trigger 'Encryption "
        "Status'.  Please unselect this action from all Output Pins.");
  }
  if (OutputsOf(source, OutputCode::kBusyStatus) > 1) {
    return step.Refuse(
        "This database version does not support two pins set to 'Busy Status'.  Please unselect this action "
        "from one Output Pin.");
  }
  if (!FitConfirmationDelays(step)) {
    return step.Refuse(
        "This database version only supports Invalid Confirmation Delays of 20 - 250, one or more Networks "
        "has a value outside this range.");
  }
  const RecordNr groups = source.Table("16").RecordCount();
  if (groups == 0)
    return step.Refuse("This database version must have 1 Scan Group.  Please add a Scan Group.");
  if (groups > 1)
    return step.Refuse("This database version must have 1 Scan Group.  Please remove excess Scan Groups.");

  // From here on the destination changes; what refuses behind it leaves that.
  ToneBlankingDeactivationTimer(step.Destination(), false);
  constexpr std::int32_t kMostGaps = 100;
  const FieldRef timer = step.Destination().Field("21.ToneBlankingDeactivationTimer");
  for (const RecordNr network : timer.Records()) {
    if (CLng(timer.Value(network)) <= kMostGaps) continue;
    step.Warn(
        "Tone Blanking Deactivation Timer can only have a maximum value of 100 in this database version.  "
        "Value reset.");
    timer.SetValue(network, kMostGaps);
  }
  constexpr std::int32_t kStoredToMs = 5, kLongestLeadIn = 1200;
  if (CLng(StoredValue(source, "9.DataLeadInDelay", kOnly)) * kStoredToMs > kLongestLeadIn) {
    return step.Refuse(
        "This database version only supports a FFSK Lead-In Delay of up to 1200.  Please change this field "
        "value.");
  }
  constexpr RecordNr kMostChannels = 24;
  if (source.Table("5").RecordCount() > kMostChannels) {
    return step.Refuse("This database version only supports 24 channels.  Please remove excess channels.");
  }
  return true;
}
}  // namespace modStepsTo0087
