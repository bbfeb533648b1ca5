#include "common/SystemNetworks.h"

#include <algorithm>

#include "common/Messages.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "platform/Conversions.h"

namespace SystemNetworks {
std::vector<RecordNr> Of(const ProviderRef& provider, std::int32_t signallingType, const Variant& identity) {
  const FieldRef types = provider.Field("21.SignallingType");
  const FieldRef identities = provider.Field("21.NetworkSignallingID");
  std::vector<RecordNr> networks;
  for (const RecordNr network : types.Records()) {
    const bool isOfSystem =
        IsCode(types.Value(network), signallingType) && SameValue(identities.Value(network), identity);
    if (isOfSystem) networks.push_back(network);
  }
  return networks;
}

bool AllowEmptyANI(const ValidatorRef& validator, std::int32_t signallingType, const Variant& identity) {
  const ProviderRef provider = validator.CurrentProvider();
  const bool isNeeded = std::ranges::any_of(Of(provider, signallingType, identity), [&](RecordNr network) {
    return HoldsCode(provider, "EmCyclingANI", kOn, network);
  });
  return !isNeeded ||
         Refuse(validator, "If you wish to have an empty ANI sequence you must first disable Emergency ANI.");
}
}  // namespace SystemNetworks
