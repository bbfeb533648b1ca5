#include "selcall/BurstSlots.h"

#include "platform/Conversions.h"

const BurstLayout& BurstLayoutOf(const ProviderRef& provider) {
  constexpr std::int32_t kFirstOfLargeBlocks = 90;
  const std::int32_t version = CLng(provider.Field("39.Databaseversion").Value(kOnly));
  return version < kFirstOfLargeBlocks ? kEarlyBurstLayout : kBurstLayout;
}
