#include "signalling/SystemRecords.h"

#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace SystemRecords {
void TakeFreeNumber(const ProviderRef& provider, std::string_view identity, RecordNr system) {
  const FieldRef numbers = provider.Field(identity);
  numbers.SetValue(system, modProjectGlobals::FreeNumber(numbers));
}

bool IsInUse(const ProviderRef& provider, std::int32_t signallingType, const Variant& number) {
  const FieldRef types = provider.Field("21.SignallingType");
  const FieldRef systems = provider.Field("21.NetworkSignallingID");
  for (const RecordNr network : types.Records()) {
    if (IsCode(types.Value(network), signallingType) && SameValue(systems.Value(network), number))
      return true;
  }
  return false;
}
}  // namespace SystemRecords
