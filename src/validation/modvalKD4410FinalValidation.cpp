#include "validation/modvalKD4410FinalValidation.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "channels/modBandLimits.h"
#include "channels/modvalChannels.h"
#include "common/FinalReport.h"
#include "common/FormWrites.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "networks/modvalNetworkChecks.h"
#include "platform/Conversions.h"
#include "platform/Error.h"
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
void CheckPowerupState(FinalReport& report) {
  const ProviderRef provider = report.Provider();
  if (!HoldsCode(provider, "DataPowerupState", PowerupState::kVHSD, kOnly)) return;
  if (!HoldsCode(provider, "GroupActivityOnPowerUp_k6k", kOn, kOnly)) return;
  report.AskYesNo(
      {"DataPowerupState", kOnly},
      "You have set the Powerup State (Data form) to 'VHSD' and selected the Group Active on Power Up "
      "check box. Note that group activity will take priority, and the radio will start in scanning "
      "mode, not VHSD. Do you want to continue?");
}

void CheckEncryptionKeys(FinalReport& report) {
  const ProviderRef provider = report.Provider();
  if (!HoldsCode(provider, "GlobalEncryption", kOff, kOnly)) return;
  for (const FunctionKey& key : kFunctionKeys) {
    if (!HoldsCode(provider, key.action, KeyAction::kEncryption, kOnly)) continue;
    const bool looksOn = report.Refuse(
        {std::string(key.action), kOnly},
        "One or more function keys are set to Encryption.  Global Encryption must also be Enabled.");
    if (!looksOn) return;
  }
}

/// A power level that the radio does not know is mended; the user is told.
void MendLowPowerLevel(FinalReport& report) {
  const FieldRef level = report.Provider().Field("LowPowerLevelMeans");
  if (level.RecordCount() == 0) return;
  const Variant value = level.Value(kOnly);
  if (IsNumeric(value) && level.Minimum() <= CDbl(value) && CDbl(value) <= level.Maximum()) return;
  report.Warn({"LowPowerLevelMeans", kOnly},
              "The field 'Front Panel Low Power Control' has an invalid value and has been set to 'Low'");
  FormWrites writes(report.Validator());
  writes.Set("LowPowerLevelMeans", kOnly, TxPower::kLow);
  writes.Follow(true);
}

void CheckItinerantPower(FinalReport& report) {
  const ProviderRef provider = report.Provider();
  if (!HoldsCode(provider, "RFCompliance", kOn, kOnly)) return;
  const std::int32_t band = CLng(provider.Field("Band_k6k").Value(1));
  const FieldRef frequency = provider.Field("TxFreq_k6k");
  const FieldRef power = provider.Field("TxPower_k6k");
  for (const RecordNr channel : frequency.Records()) {
    const std::int32_t hertz = RoundToLong(CDbl(frequency.Value(channel)) * kHertzPerMHz);
    if (!modBandLimits::IsItinerant(hertz, band) || CLng(power.Value(channel)) <= TxPower::kVeryLow) continue;
    const bool looksOn = report.Refuse(
        {"TxPower_k6k", channel},
        "The field 'FCC Itinerant Channel Compliant' is ticked yet one of the Itinerant channels has a "
        "power level higher than 'Very Low'.  Please correct this and try again.");
    if (!looksOn) return;
  }
}

struct Rule {
  std::string_view name;
  void (*check)(FinalReport& report);
};
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
constexpr Rule kRules[] = {
    {"1", CheckPowerupState},
    {"2", modvalProgIO::CheckSimulatedKeys},
    {"3", modvalProgIO::CheckPTTInhibit},
    {"4", modvalProgIO::WarnOfIdlePins},
    {"5", modvalNetworkChecks::CheckSelcallEmergency},
    {"6", modvalNetworkChecks::CheckDTMFEmergency},
    {"7", modvalNetworkChecks::CheckMDC1200Emergency},
    {"8", modvalSelcall::CheckRMRSequences},
    {"9", modvalNetworkChecks::CheckAckHasAlerts},
    {"10", modvalNetworkChecks::CheckAlertsHaveAck},
    {"11", modvalNetworkChecks::CheckSelcallAck},
    {"12", modvalNetworkChecks::CheckSelcallANI},
    {"13", modvalNetworkChecks::CheckDTMFANI},
    {"14", modvalPTT::CheckMicTap},
    {"15", modvalPTT::CheckExternalTap1},
    {"16", modvalPTT::CheckExternalTap2},
    {"17", modvalProgIO::CheckFlowControlPins},
    {"18", modvalNetworkChecks::OfferSideTones},
    {"19", modvalScanGroups::CheckBackgroundGroups},
    {"20", modvalScanGroups::CheckGroupMembers},
    {"21", CheckEncryptionKeys},
    {"22", modvalScanGroups::CheckStartUpChannel},
    {"23", MendLowPowerLevel},
    {"24", modvalNetworkChecks::CheckFFSKBaudRate},
    {"25", CheckItinerantPower},
    {"ChannelsFinalValidation", modvalChannels::ChannelsFinalValidation},
    {"ValidateTxSequences", modvalSelcall::ValidateTxSequences},
    {"ValidateControlStatusTone", modvalControlStatus::ValidateControlStatusesFinal},
    {"ValidateGroupFormatFinal", modvalSelcall::ValidateGroupFormatFinal},
    {"ValidateFunctionKeyFinalValidation", modvalFunctionKeys::ValidateFunctionKeyFinalValidation},
    {"ValidateHiddenChannels", modvalScanGroups::ValidateHiddenChannels},
};

bool Passes(const ValidatorRef& validator, const Rule& rule) {
  FinalReport report(validator, FinalReport::Scope::FirstFinding);
  rule.check(report);
  return report.HasPassed();
}
}  // namespace

bool RunFinalValidation(const ValidatorRef& validator) {
  return Procedure("RunFinalValidation", true, [&] {
    modDTMF::SetPresetFilteredGrid(validator.CurrentProvider());
    return std::ranges::all_of(kRules, [&](const Rule& rule) { return Passes(validator, rule); });
  });
}

std::int32_t RuleCount() { return static_cast<std::int32_t>(std::size(kRules)); }

FinalOutcome RunRule(const ValidatorRef& validator, std::int32_t number) {
  if (number < 1 || number > RuleCount()) RaiseSubscript("RunFinalRule");
  const Rule& rule = kRules[number - 1];
  FinalReport report(validator, FinalReport::Scope::EveryFinding);
  Procedure("RunFinalRule", [&] {
    modDTMF::SetPresetFilteredGrid(validator.CurrentProvider());
    rule.check(report);
  });
  return {std::string(rule.name), report.HasPassed() ? kTrue : kFalse, report.Places()};
}
}  // namespace modvalKD4410FinalValidation
