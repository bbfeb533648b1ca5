#include "signalling/SystemRecords.h"

#include "common/modProjectGlobals.h"

namespace SystemRecords {
void TakeFreeNumber(const ProviderRef& provider, std::string_view identity, RecordNr system) {
  const FieldRef numbers = provider.Field(identity);
  numbers.SetValue(system, modProjectGlobals::FreeNumber(numbers));
}
}  // namespace SystemRecords
