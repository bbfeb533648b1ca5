#include "signalling/modvalMDC1200.h"

#include "common/FormWrites.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/SystemNetworks.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "signalling/SystemRecords.h"
#include "signalling/modMDC1200.h"

namespace modvalMDC1200 {
namespace {
constexpr std::string_view kIdentity = "MDC1200SignallingSystemID";

/// A first system whose number is that of systems, before one goes, takes the one below, unless another
/// system has that; wanted so.
void LowerFirstNumber(FormWrites& writes, const ProviderRef& provider) {
  constexpr RecordNr kFirst = 1;
  const FieldRef numbers = provider.Field(kIdentity);
  const RecordNr count = numbers.RecordCount();
  const bool isLowered = count != 1 && SameValue(numbers.Value(kFirst), count) &&
                         modProjectGlobals::FindRecord(numbers, count - 1, kFirst + 1) == 0;
  if (!isLowered) return;
  writes.Set(kIdentity, kFirst, count - 1);
  for (const RecordNr network : SystemNetworks::Of(provider, SignallingType::kMDC1200, count)) {
    writes.Set("21.NetworkSignallingID", "NetworkSignallingID", network, count - 1);
  }
}
}  // namespace

void AddMDC1200SignallingSystem(const ValidatorRef&, const ProviderRef& provider, RecordNr record) {
  Procedure("AddMDC1200SignallingSystem",
            [&] { SystemRecords::TakeFreeNumber(provider, kIdentity, record); });
}

bool DeleteMDC1200(const ValidatorRef& validator, RecordNr system) {
  return Procedure("DeleteMDC1200", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const Variant number = provider.Field(kIdentity).Value(system);
    if (!SystemNetworks::Of(provider, SignallingType::kMDC1200, number).empty()) {
      return Refuse(validator,
                    "This MDC1200 System is being used on one or more Networks and can not be deleted");
    }
    FormWrites writes(validator);
    modMDC1200::RemoveOwnSequences(provider, number);
    LowerFirstNumber(writes, provider);
    return writes.Follow(true);
  });
}
}  // namespace modvalMDC1200
