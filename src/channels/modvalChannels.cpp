#include "channels/modvalChannels.h"

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modvalChannels {
namespace {

/// The walk over all transmit frequencies. The first channel in the maritime range ends it with a notice,
/// without a look at later ones.
void CheckReservedFrequencies(FinalReport& report) {
  using namespace modProjectGlobals;
  const FieldRef txFrequency = report.Provider().Field("TxFreq_k6k");
  for (const RecordNr channel : txFrequency.Records()) {
    const std::int32_t hertz = RoundToLong(CDbl(txFrequency.Value(channel)) * kHertzPerMHz);
    const auto warning = GetMaritimeFrequencyWarning(hertz);
    if (!warning.empty()) report.Notify({"TxFreq_k6k", channel}, warning);
    const auto error = GetDistressBeaconFrequencyError(hertz);
    if (!error.empty()) report.Refuse({"TxFreq_k6k", channel}, error);
    const bool isTold = !warning.empty() || !error.empty();
    if (isTold && !report.LooksOn()) return;
  }
}
/// Turns the other of two options off with the user's consent.
bool Replaces(FieldEdit& edit, std::string_view other, std::string_view question) {
  if (!edit.Is(kOn) || !edit.Holds(other, kOn, edit.record)) return true;
  if (AskYesNo(edit.validator, question) != Button::Yes) return false;
  edit.writes.Set(other, edit.record, kOff);
  return true;
}
}  // namespace

bool ValidateNoiseReduction(FieldEdit& edit) {
  return Replaces(
      edit, "ChannelCompanding",
      "Automatic Noise Reduction and Companding can not be enabled at the same time.  If you proceed "
      "Companding will be turned off.  Do you wish to proceed?");
}

bool ValidateCompanding(FieldEdit& edit) {
  return Replaces(
      edit, "ChannelANR",
      "Automatic Noise Reduction and Companding can not be enabled at the same time.  If you proceed "
      "Automatic Noise Reduction will be turned off.  Do you wish to proceed?");
}

bool ValidateTxPower(FieldEdit& edit) {
  return Procedure("ValidateTxPower", true, [&] {
    if (!edit.Is(TxPower::kOff)) return true;
    const ProviderRef provider = edit.validator.CurrentProvider();
    const Variant channel = provider.Field("5.ChannelIDTracker").Value(edit.record);
    const FieldRef emergencyChannel = provider.Field("EmChannel");
    const FieldRef channelType = provider.Field("EmChannelType");
    for (const RecordNr network : emergencyChannel.Records()) {
      if (CLng(channelType.Value(network)) != ChannelType::kDedicated) continue;
      if (!SameValue(emergencyChannel.Value(network), channel)) continue;
      return AskYesNo(edit.validator,
                      "This Channel is being used as a Dedicated Emergency Channel. Are you sure you want to "
                      "turn off the Tx power?") != Button::No;
    }
    return true;
  });
}

void ValidateTxPowerForAllChannels(FinalReport& report) {
  Procedure("ValidateTxPowerForAllChannels", [&] {
    const ProviderRef provider = report.Provider();
    if (provider.FactoryMode() || CStr(provider.Field("0.RadioTier").Value(1)) == "KE2210 Rx") return;
    const FieldRef power = provider.Field("TxPower_k6k");
    for (const RecordNr channel : provider.Field("ChannelID_k6k").Records()) {
      if (CLng(power.Value(channel)) != TxPower::kOff) continue;
      report.AskYesNo({"TxPower_k6k", channel},
                      "There is at least one channel with a Tx power setting of 'Off'  Do you wish to "
                      "proceed?");
      if (!report.LooksOn()) return;
    }
  });
}

void ChannelsFinalValidation(FinalReport& report) {
  Procedure("ChannelsFinalValidation", [&] {
    for (const auto check :
         {ValidatePresetsForAllChannels, ValidateTxPowerForAllChannels, CheckReservedFrequencies}) {
      if (report.HasPassed() || report.LooksOn()) check(report);
    }
  });
}

bool ValidateForm(const ValidatorRef& validator, bool refresh) {
  return Procedure("ValidateForm", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const RecordNr current = CLng(provider.Field("CurrentChannelNr").Value(1));
    const bool exists = provider.Field("ChannelID_k6k").HasRecord(current);
    if (exists && !ValidatePresetSelcallAgainstTxFormat(validator, current)) return false;
    if (refresh) ReloadList(validator, "ChannelID_k6k");
    return true;
  });
}
}  // namespace modvalChannels
