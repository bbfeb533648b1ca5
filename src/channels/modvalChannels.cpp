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
bool CheckReservedFrequencies(const ValidatorRef& validator) {
  using namespace modProjectGlobals;
  const FieldRef txFrequency = validator.CurrentProvider().Field("TxFreq_k6k");
  for (const RecordNr channel : txFrequency.Records()) {
    const std::int32_t hertz = RoundToLong(CDbl(txFrequency.Value(channel)) * kHertzPerMHz);
    if (const auto warning = GetMaritimeFrequencyWarning(hertz); !warning.empty()) {
      Notify(validator, warning);
      return true;
    }
    const auto error = GetDistressBeaconFrequencyError(hertz);
    if (!error.empty()) return Refuse(validator, error);
  }
  return true;
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

bool ValidateTxPowerForAllChannels(const ValidatorRef& validator) {
  return Procedure("ValidateTxPowerForAllChannels", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    if (provider.FactoryMode() || CStr(provider.Field("0.RadioTier").Value(1)) == "KE2210 Rx") return true;
    const FieldRef power = provider.Field("TxPower_k6k");
    for (const RecordNr channel : provider.Field("ChannelID_k6k").Records()) {
      if (CLng(power.Value(channel)) != TxPower::kOff) continue;
      return AskYesNo(validator,
                      "There is at least one channel with a Tx power setting of 'Off'  Do you wish to "
                      "proceed?") == Button::Yes;
    }
    return true;
  });
}

bool ChannelsFinalValidation(const ValidatorRef& validator) {
  return Procedure("ChannelsFinalValidation", true, [&] {
    return ValidatePresetsForAllChannels(validator) && ValidateTxPowerForAllChannels(validator) &&
           CheckReservedFrequencies(validator);
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
