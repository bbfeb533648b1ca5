#include "radioui/modvalData.h"

#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modvalData {
namespace {
/// The largest MTU of a TOTAL service, in bytes, without and with forward error correction.
struct MTULimits {
  std::int32_t plain, corrected;
};
constexpr std::int32_t kFirstService = 0;
constexpr MTULimits kFirstServiceLimits{2667, 1524};
constexpr MTULimits kOtherServiceLimits{4864, 2816};

/// Whether there is nothing but blanks and what the radio keeps for no identity, characters of code 0.
bool IsBlank(std::string_view identity) {
  constexpr std::string_view kBlanks(" \0", 2);
  return identity.find_first_not_of(kBlanks) == std::string_view::npos;
}

bool CheckDataIdentity(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  if (!IsBlank(CStr(StoredValue(provider, "DataIdentity", kOnly))) ||
      !HoldsCode(provider, "SDMEncodeCallerIDEnabled", kOn, kOnly)) {
    return true;
  }
  return Refuse(validator,
                "A Unit Data Identity must be defined for SDM Caller ID to be enabled.  Specify a Unit Data "
                "Identity or uncheck SDM Caller ID.");
}

/// GPS needs a port of its own, and would have one of the two on the mic.
bool CheckPorts(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  const Variant dataPort = StoredValue(provider, "DataCCDIPort", kOnly);
  const Variant gpsPort = StoredValue(provider, "GPSSerialPort", kOnly);
  if (!HoldsCode(provider, "GPSEnabled", kOn, kOnly) || dataPort.IsEmpty() || gpsPort.IsEmpty()) return true;
  if (SameValue(dataPort, gpsPort)) {
    return Refuse(validator,
                  "The Data Port field on the Serial Communications tab can not be the same setting as the "
                  "GPS Port on the GPS tab.  Please change one of these fields, or untick the GPS Position "
                  "Reporting Enabled field on the GPS tab before proceeding.");
  }
  if (!SameValue(dataPort, SerialPort::kMic) && !SameValue(gpsPort, SerialPort::kMic)) {
    Notify(validator, "When GPS is enabled, you should choose Mic for the Data Port or the GPS Port.");
  }
  return true;
}

bool CheckMTU(const ValidatorRef& validator) {
  const ProviderRef provider = validator.CurrentProvider();
  const MTULimits& limits = HoldsCode(provider, "dataTotalModeService", kFirstService, kOnly)
                                ? kFirstServiceLimits
                                : kOtherServiceLimits;
  const std::int32_t limit =
      HoldsCode(provider, "VHSDForwardErrorCorrection", kOff, kOnly) ? limits.plain : limits.corrected;
  const Variant size = StoredValue(provider, "dataTotalMtuSize", kOnly);
  if (!IsAbove(size, limit)) return true;
  return Refuse(validator,
                "TOTAL MTU Size can not exceed %0:S for this combination of FEC Enabled and TOTAL Service.",
                {std::to_string(limit)});
}
}  // namespace

bool ValidateGPSPollResponseChannel(const ValidatorRef& validator) {
  return Procedure("ValidateGPSPollResponseChannel", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    if (!HoldsCode(provider, "GPSPollResponseChannelType", ChannelType::kDedicated, kOnly) ||
        CStr(StoredValue(provider, "GPSPollResponseChannel", kOnly)) != kNone) {
      return true;
    }
    return Refuse(validator,
                  "You must specify a Channel when the Poll Response Channel Type is set to Dedicated");
  });
}

bool ValidateDataForm(const ValidatorRef& validator) {
  return Procedure("ValidateDataForm", true, [&] {
    return ValidateGPSPollResponseChannel(validator) && CheckDataIdentity(validator) &&
           CheckPorts(validator) && CheckMTU(validator);
  });
}
}  // namespace modvalData
