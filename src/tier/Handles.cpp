#include "tier/Handles.h"

#include <exception>

#include "tier/ValidatorRef.h"

void RaiseNothing(std::string_view what) {
  throw Error(ErrorNumber::kObjectNotSet, "KD4410", "Object reference not set: " + std::string(what));
}

ScopedAutoUpdate::ScopedAutoUpdate(const ProviderRef& provider, bool state)
    : provider_(provider), errorsBefore_(std::uncaught_exceptions()), before_(provider.AutoUpdate()) {
  if (before_ != state) provider_.SetAutoUpdate(state);
}

ScopedAutoUpdate::~ScopedAutoUpdate() noexcept(false) {
  const Status restored = provider_.TrySetAutoUpdate(before_);
  if (std::uncaught_exceptions() == errorsBefore_) Check(restored);
}

Itier& ValidatorRef::Tier() const {
  if (tier_ == nullptr) RaiseNothing("Itier");
  return *tier_;
}

ProviderRef ValidatorRef::CurrentProvider() const {
  return ProviderRef(Ask<std::shared_ptr<Iprovider>>(Tier(), &Itier::CurrentProvider));
}

MessengerRef ValidatorRef::Messenger() const {
  return MessengerRef(Ask<std::shared_ptr<Imessenger>>(Tier(), &Itier::Messenger));
}

std::string ValidatorRef::Caption() const {
  const auto validator = Ask<std::shared_ptr<ItierValidator>>(Tier(), &Itier::Validator);
  const auto host =
      Ask<std::shared_ptr<IvalidatorHost>>(Deref(validator, "ItierValidator"), &ItierValidator::Validator);
  return Ask<std::string>(Deref(host, "IvalidatorHost"), &IvalidatorHost::Caption);
}
