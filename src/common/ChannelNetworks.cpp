#include "common/ChannelNetworks.h"

#include <algorithm>

#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

ChannelNetworks::ChannelNetworks(const ProviderRef& provider)
    : provider_(provider),
      networkOfChannel_(provider.Field("ChannelNetworkId_k6k")),
      numbers_(provider.Field("NetworkID").Values()) {}

RecordNr ChannelNetworks::FindNetworkOf(RecordNr channel) const {
  const Variant number = networkOfChannel_.Value(channel);
  const auto network =
      std::ranges::find_if(numbers_, [&](const Variant& one) { return SameValue(one, number); });
  return network == numbers_.end() ? 0 : static_cast<RecordNr>(network - numbers_.begin()) + 1;
}

RecordNr ChannelNetworks::NetworkOf(RecordNr channel) const {
  const RecordNr network = FindNetworkOf(channel);
  return network != 0 ? network : static_cast<RecordNr>(numbers_.size());
}

RecordNr ChannelNetworks::SelcallSystemOf(RecordNr network) const {
  if (network == 0 || CLng(provider_.Field("SignallingType").Value(network)) != SignallingType::kSelcall) {
    return 0;
  }
  const Variant identity = provider_.Field("NetworkSignallingID").Value(network);
  return modProjectGlobals::SigSysRecordNr(provider_, SignallingType::kSelcall, identity, true);
}

std::vector<bool> ChannelNetworks::OfSelcallSystem(RecordNr system) const {
  std::vector<bool> uses;
  while (uses.size() < numbers_.size()) {
    uses.push_back(SelcallSystemOf(static_cast<RecordNr>(uses.size()) + 1) == system);
  }
  return uses;
}
