#include "common/Handles.h"

#include <exception>

#include "common/ValidatorRef.h"

void RaiseNothing(std::string_view what) {
  throw Error(ErrorNumber::kObjectNotSet, "KD4410", "Object reference not set: " + std::string(what));
}

void TableRef::Sort(const ProviderRef& provider, std::string_view key) const {
  constexpr std::int32_t kAscending = 1;
  RaiseIfFailed(Host().Sort(provider.Host(), key, kAscending));
}

ScopedAutoUpdate::ScopedAutoUpdate(const ProviderRef& provider, bool state)
    : provider_(provider), before_(provider.AutoUpdate()) {
  if (before_ != state) provider_.SetAutoUpdate(state);
}

ScopedAutoUpdate::~ScopedAutoUpdate() noexcept(false) {
  const Status restored = provider_.TrySetAutoUpdate(before_);
  if (!restored.Ok() && std::uncaught_exceptions() == 0) throw Error(restored.Reason());
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

std::shared_ptr<ItierValidator> ValidatorRef::Validator() const {
  return Ask<std::shared_ptr<ItierValidator>>(Tier(), &Itier::Validator);
}

std::string ValidatorRef::Caption() const {
  const auto host =
      Ask<std::shared_ptr<IvalidatorHost>>(Deref(Validator(), "ItierValidator"), &ItierValidator::Validator);
  return Ask<std::string>(Deref(host, "IvalidatorHost"), &IvalidatorHost::Caption);
}

std::string ValidatorRef::LabelOf(std::string_view name) const {
  const auto ui = Ask<std::shared_ptr<ItierUserInterface>>(Tier(), &Itier::UserInterface);
  const std::string_view field = name.substr(name.find('.') + 1);  // npos + 1 is 0: no point, the whole name
  std::string label;
  Boolean known = kFalse;
  RaiseIfFailed(Deref(ui, "ItierUserInterface").GetLabelByUIID(field, label, known));
  return label.empty() ? std::string(field) : label;
}

bool ValidatorRef::Accepts(std::string_view uiid, Variant& value, RecordNr record) const {
  Boolean accepted = kFalse;
  RaiseIfFailed(Deref(Validator(), "ItierValidator").ValidateByUIID(uiid, value, record, accepted));
  return accepted != kFalse;
}

bool ValidatorRef::IsEnabled(std::string_view uiid, RecordNr record) const {
  Boolean enabled = kFalse;
  RaiseIfFailed(Deref(Validator(), "ItierValidator").GetEnabledStatebyUIID(uiid, record, enabled));
  return enabled != kFalse;
}
