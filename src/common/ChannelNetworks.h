#pragma once

#include <vector>

#include "common/Handles.h"

/// The networks of channels and the systems by which they signal, for a walk over many channels: the
/// networks' numbers are read once. To be made anew after networks or systems have changed.
class ChannelNetworks {
 public:
  explicit ChannelNetworks(const ProviderRef& provider);

  /// The network of a channel by number; 0 when none matches.
  RecordNr FindNetworkOf(RecordNr channel) const;
  /// The network of a channel by number: the last one when none matches, 0 when there are none.
  RecordNr NetworkOf(RecordNr channel) const;
  /// The Selcall system of a network; 0 for a network that signals in another way, and for none.
  RecordNr SelcallSystemOf(RecordNr network) const;
  /// By network record, from index 0: whether its channels signal by that Selcall system.
  std::vector<bool> OfSelcallSystem(RecordNr system) const;

 private:
  const ProviderRef& provider_;
  FieldRef networkOfChannel_;
  std::vector<Variant> numbers_;  // of the networks
};
