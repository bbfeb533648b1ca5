#include "networks/modvalEmergency.h"

#include "platform/Conversions.h"
#include "tier/Messages.h"
#include "tier/Procedure.h"

namespace modvalEmergency {
bool ValidateChannelID(const ValidatorRef& validator, RecordNr channel) {
  return Procedure("ValidateChannelID", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const Variant number = provider.Field("ChannelID_k6k").Value(channel);
    const FieldRef emergencyChannel = provider.Field("EmChannel");
    for (const RecordNr network : emergencyChannel.Records()) {
      if (!SameValue(emergencyChannel.Value(network), number)) continue;
      return Refuse(validator,
                    "You can not change the Network this Channel belongs to because it is being used as an "
                    "Emergency Dedicated Channel.");
    }
    return true;
  });
}
}  // namespace modvalEmergency
