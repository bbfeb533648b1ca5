#pragma once

#include <string>
#include <string_view>

#include "host/Itier.h"
#include "tier/Handles.h"

/// What a rule works with, all of it fetched anew on every call: the tier, its current provider, its
/// messenger, and the caption of the validator host.
class ValidatorRef {
 public:
  explicit ValidatorRef(Itier* tier) : tier_(tier) {}
  Itier& Tier() const;
  ProviderRef CurrentProvider() const;
  MessengerRef Messenger() const;
  std::string Caption() const;

 private:
  Itier* tier_;
};
