#include "channels/modvalBandLimits.h"

#include <string>

#include "channels/modBandLimits.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "platform/Conversions.h"

namespace modvalBandLimits {
namespace {
/// The highest band number whose radios have a noise blanker.
constexpr std::int32_t kLastNoiseBlankerBand = 2;

/// The limits are judged on whole megahertz, halves to the even neighbour: 174.4 lies inside a band that
/// ends at 174 MHz, 174.6 outside.
bool IsWithinBand(const Variant& frequency, const BandLimits& band) {
  const std::int64_t hertz = std::int64_t{CLng(frequency)} * 1'000'000;
  return band.LowerLimit <= hertz && hertz <= band.UpperLimit;
}

/// What a frequency outside the band becomes: the band's own default on the base station that has this
/// direction alone, else 0.
Variant Replacement(const std::string& radioTier, std::string_view oneWayTier, double bandDefault) {
  return radioTier == oneWayTier ? Variant(bandDefault) : Variant(0);
}

/// False when the user declines.
bool ClearFrequenciesOutside(const BandLimits& band, const ValidatorRef& validator, FormWrites& writes) {
  const ProviderRef provider = validator.CurrentProvider();
  const FieldRef txFrequency = provider.Field("TxFreq_k6k");
  const FieldRef rxFrequency = provider.Field("RxFreq_k6k");
  bool asked = false;
  for (const RecordNr channel : provider.Field("ChannelID_k6k").Records()) {
    const bool txFits = IsWithinBand(txFrequency.Value(channel), band);
    const bool rxFits = IsWithinBand(rxFrequency.Value(channel), band);
    if (txFits && rxFits) continue;
    if (!asked && AskYesNo(validator,
                           "You have one or more channels with frequencies falling outside the range "
                           "defined by the new band.  If you proceed these will be set to 0.  Do you wish "
                           "to proceed?") != Button::Yes) {
      return false;
    }
    asked = true;
    const std::string radioTier = CStr(provider.Field("0.RadioTier").Value(1));
    if (!txFits) {
      writes.Set("TxFreq_k6k", channel, Replacement(radioTier, "KE2210 Tx", band.DefaultTxFreq));
    }
    if (!rxFits) {
      writes.Set("RxFreq_k6k", channel, Replacement(radioTier, "KE2210 Rx", band.DefaultRxFreq));
    }
  }
  return true;
}
}  // namespace

bool ValidateBandFreqs(const ValidatorRef& validator, std::int32_t newPosition, FormWrites& writes) {
  return Procedure("ValidateBandFreqs", false, [&] {  // an error leaves the stored band alone
    const BandLimits& band = modBandLimits::GetBandLimitsByComboBoxPosition(newPosition);
    if (!ClearFrequenciesOutside(band, validator, writes)) return false;
    if (band.BandType <= kLastNoiseBlankerBand) return true;
    for (const RecordNr channel : validator.CurrentProvider().Field("NoiseBlanker_k6k").Records()) {
      writes.Set("NoiseBlanker_k6k", channel, 0);
    }
    return true;
  });
}

bool ValidateBand(FieldEdit& edit) {
  const std::int32_t position = CLng(edit.value);
  if (!ValidateBandFreqs(edit.validator, position, edit.writes)) return false;
  const ProviderRef provider = edit.validator.CurrentProvider();
  const bool isK5 = position == modBandLimits::kPositionK5;
  if (!isK5 && IsTicked(provider.Field("RFCompliance").Value(1))) edit.writes.Set("RFCompliance", 1, 0);
  const std::int32_t bandType = modBandLimits::GetBandLimitsByComboBoxPosition(position).BandType;
  provider.Field("34.band").SetValue(1, bandType);
  return true;
}
}  // namespace modvalBandLimits
