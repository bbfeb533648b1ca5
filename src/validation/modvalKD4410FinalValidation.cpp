#include "validation/modvalKD4410FinalValidation.h"

#include <algorithm>

#include "channels/modBandLimits.h"
#include "channels/modvalChannels.h"
#include "common/FormWrites.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "networks/modvalNetworkChecks.h"
#include "platform/Conversions.h"
#include "radioui/modvalFunctionKeys.h"
#include "radioui/modvalPTT.h"
#include "radioui/modvalProgIO.h"
#include "scangroups/modvalScanGroups.h"
#include "selcall/modvalControlStatus.h"
#include "selcall/modvalSelcall.h"
#include "signalling/modDTMF.h"

namespace modvalKD4410FinalValidation {
namespace {
constexpr double kHertzPerMHz = 1'000'000;

/// A radio that starts scanning does not start as a modem.
bool CheckPowerupState(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  if (!HoldsCode(provider, "DataPowerupState", PowerupState::kVHSD, kOnly)) return true;
  if (!HoldsCode(provider, "GroupActivityOnPowerUp_k6k", kOn, kOnly)) return true;
  return AskYesNo(
             validator,
             "You have set the Powerup State (Data form) to 'VHSD' and selected the Group Active on Power Up "
             "check box. Note that group activity will take priority, and the radio will start in scanning "
             "mode, not VHSD. Do you want to continue?") == Button::Yes;
}

bool CheckBackgroundGroups(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  const FieldRef scanType = provider.Field("ScanType_k6k");
  const FieldRef display = provider.Field("ScanGroupDisplayIndicator_k6k");
  const FieldRef callChannel = provider.Field("ScanDefaultTxChannel_k6k");
  for (const RecordNr group : scanType.Records()) {
    if (!IsCode(scanType.Value(group), ScanType::kBackground)) continue;
    if (IsCode(display.Value(group), GroupDisplay::kTxChannel) &&
        IsCode(callChannel.Value(group), InitiateCallChannel::kSelected)) {
      continue;
    }
    return Refuse(
        validator,
        "When the Scan Type is set to 'Background', the Scan Group Display Indicator must be set to 'Tx "
        "Channel' and the Initiate Call Channel must be set to 'Selected'.  Please correct the group that "
        "is set to 'Background'.");
  }
  return true;
}

bool CheckEncryptionKeys(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  if (!HoldsCode(provider, "GlobalEncryption", kOff, kOnly)) return true;
  const auto encrypts = [&](const FunctionKey& key) {
    return HoldsCode(provider, key.action, KeyAction::kEncryption, kOnly);
  };
  return std::ranges::none_of(kFunctionKeys, encrypts) ||
         Refuse(validator,
                "One or more function keys are set to Encryption.  Global Encryption must also be Enabled.");
}

/// A power level that the radio does not know is mended; the user is told.
bool MendLowPowerLevel(const ValidatorRef& validator) {
  const FieldRef level = validator.CurrentProvider().Field("LowPowerLevelMeans");
  if (level.RecordCount() == 0) return true;
  const Variant value = level.Value(1);
  if (IsNumeric(value) && level.Minimum() <= CDbl(value) && CDbl(value) <= level.Maximum()) return true;
  Warn(validator, "The field 'Front Panel Low Power Control' has an invalid value and has been set to 'Low'");
  FormWrites writes(validator);
  writes.Set("LowPowerLevelMeans", 1, TxPower::kLow);
  return writes.Follow(true);
}

bool CheckItinerantPower(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  if (!HoldsCode(provider, "RFCompliance", kOn, kOnly)) return true;
  const std::int32_t band = CLng(provider.Field("Band_k6k").Value(1));
  const FieldRef frequency = provider.Field("TxFreq_k6k");
  const FieldRef power = provider.Field("TxPower_k6k");
  for (const RecordNr channel : frequency.Records()) {
    const std::int32_t hertz = RoundToLong(CDbl(frequency.Value(channel)) * kHertzPerMHz);
    if (!modBandLimits::IsItinerant(hertz, band) || CLng(power.Value(channel)) <= TxPower::kVeryLow) continue;
    return Refuse(
        validator,
        "The field 'FCC Itinerant Channel Compliant' is ticked yet one of the Itinerant channels has a "
        "power level higher than 'Very Low'.  Please correct this and try again.");
  }
  return true;
}

// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
constexpr bool (*kRules[])(const ValidatorRef& validator) = {
    CheckPowerupState,
    modvalProgIO::CheckSimulatedKeys,
    modvalProgIO::CheckPTTInhibit,
    modvalProgIO::WarnOfIdlePins,
    modvalNetworkChecks::CheckEmergencySequences,
    modvalSelcall::CheckRMRSequences,
    modvalNetworkChecks::CheckAckHasAlerts,
    modvalNetworkChecks::CheckAlertsHaveAck,
    modvalNetworkChecks::CheckAckAndANISequences,
    modvalPTT::CheckMicTaps,
    modvalProgIO::CheckFlowControlPins,
    modvalNetworkChecks::OfferSideTones,
    CheckBackgroundGroups,
    CheckEncryptionKeys,
    MendLowPowerLevel,
    modvalNetworkChecks::CheckFFSKBaudRate,
    CheckItinerantPower,
    modvalChannels::ChannelsFinalValidation,
    modvalSelcall::ValidateTxSequences,
    modvalControlStatus::ValidateControlStatusesFinal,
    modvalSelcall::ValidateGroupFormatFinal,
    modvalFunctionKeys::ValidateFunctionKeyFinalValidation,
    modvalScanGroups::ValidateHiddenChannels,
};
}  // namespace

bool RunFinalValidation(const ValidatorRef& validator) {
  return Procedure("RunFinalValidation", true, [&] {
    modDTMF::SetPresetFilteredGrid(validator.CurrentProvider());
    return std::ranges::all_of(kRules, [&](auto rule) { return rule(validator); });
  });
}
}  // namespace modvalKD4410FinalValidation
