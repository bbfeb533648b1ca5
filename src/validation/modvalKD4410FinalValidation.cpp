#include "validation/modvalKD4410FinalValidation.h"

#include <algorithm>

#include "channels/modBandLimits.h"
#include "channels/modvalChannels.h"
#include "platform/Conversions.h"
#include "tier/FormWrites.h"
#include "tier/Messages.h"
#include "tier/Procedure.h"
#include "tier/RadioCodes.h"

namespace modvalKD4410FinalValidation {
namespace {
constexpr double kHertzPerMHz = 1'000'000;

bool Holds(const ProviderRef& provider, std::string_view field, std::int32_t code) {
  const FieldRef stored = provider.Field(field);
  return stored.RecordCount() > 0 && IsCode(stored.Value(1), code);
}

/// A radio that starts scanning does not start as a modem.
bool CheckPowerupState(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  if (!Holds(provider, "DataPowerupState", PowerupState::kVHSD)) return true;
  if (!Holds(provider, "GroupActivityOnPowerUp_k6k", kOn)) return true;
  return AskYesNo(
             validator,
             "You have set the Powerup State (Data form) to 'VHSD' and selected the Group Active on Power Up "
             "check box. Note that group activity will take priority, and the radio will start in scanning "
             "mode, not VHSD. Do you want to continue?") == Button::Yes;
}

bool Acknowledges(const Variant& type) {
  return IsCode(type, AutoAck::kSequence) || IsCode(type, AutoAck::kBeep);
}

/// The first network whose type of acknowledgement and alerts do not go together, in the direction asked for;
/// 0 for none.
RecordNr FindNetworkByAck(const ProviderRef& provider, bool acknowledges) {
  const FieldRef type = provider.Field("AutoAckType");
  const FieldRef alerts[] = {provider.Field("PriorityAutoAck_k6k"), provider.Field("SelcallIndAutoAckOne"),
                             provider.Field("SelcallIndAutoAckTwo")};
  for (const RecordNr network : type.Records()) {
    const bool alertsAcknowledge =
        std::ranges::any_of(alerts, [&](const FieldRef& alert) { return IsTicked(alert.Value(network)); });
    if (Acknowledges(type.Value(network)) == acknowledges && alertsAcknowledge != acknowledges)
      return network;
  }
  return 0;
}

bool AskAboutNetwork(const ValidatorRef& validator, RecordNr network, std::string_view question) {
  if (network == 0) return true;
  const std::string id = CStr(validator.CurrentProvider().Field("NetworkID").Value(network));
  return AskYesNo(validator, question, {id}) == Button::Yes;
}

bool CheckAckHasAlerts(const ValidatorRef& validator) {
  return AskAboutNetwork(
      validator, FindNetworkByAck(validator.CurrentProvider(), true),
      "You have set the Auto Acknowledge Type on network %0:S to Sequence or Beep, but have not "
      "selected the Auto Acknowledge check box on the Alerts form for Rx Decode 1, Rx Decode 2, "
      "or Priority Calls.  Do you want to continue?");
}

bool CheckAlertsHaveAck(const ValidatorRef& validator) {
  return AskAboutNetwork(
      validator, FindNetworkByAck(validator.CurrentProvider(), false),
      "You have selected the Auto Acknowledge check box on the Alerts form for Rx Decode 1, Rx "
      "Decode 2, or Priority Calls but have not set the Auto Acknowledge Type on network %0:S to "
      "Sequence or Beep.  Do you want to continue?");
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

/// A power level that the radio does not know is mended; the user is told.
bool MendLowPowerLevel(const ValidatorRef& validator) {
  const FieldRef level = validator.CurrentProvider().Field("LowPowerLevelMeans");
  if (level.RecordCount() == 0) return true;
  const Variant value = level.Value(1);
  if (IsNumeric(value) && level.Minimum() <= CDbl(value) && CDbl(value) <= level.Maximum()) return true;
  Warn(validator, "The field 'Front Panel Low Power Control' has an invalid value and has been set to 'Low'");
  FormWrites writes(validator);
  writes.Set("LowPowerLevelMeans", 1, TxPower::kLow);
  return writes.Accept();
}

bool CheckItinerantPower(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  if (!Holds(provider, "RFCompliance", kOn)) return true;
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

constexpr bool (*kRules[])(const ValidatorRef& validator) = {
    CheckPowerupState,
    CheckAckHasAlerts,
    CheckAlertsHaveAck,
    CheckBackgroundGroups,
    MendLowPowerLevel,
    CheckItinerantPower,
    modvalChannels::ChannelsFinalValidation,
};
}  // namespace

bool RunFinalValidation(const ValidatorRef& validator) {
  return Procedure("RunFinalValidation", true,
                   [&] { return std::ranges::all_of(kRules, [&](auto rule) { return rule(validator); }); });
}
}  // namespace modvalKD4410FinalValidation
