#include "tier/FieldEdit.h"

#include "platform/Conversions.h"

bool FieldEdit::Is(std::int32_t code) const { return IsCode(value, code); }

Variant FieldEdit::Stored(std::string_view field, RecordNr at) const {
  const ProviderRef provider = validator.CurrentProvider();
  if (!provider.HasField(field)) return {};
  const FieldRef stored = provider.Field(field);
  return stored.HasRecord(at) ? stored.Value(at) : Variant();
}

bool FieldEdit::Holds(std::string_view field, std::int32_t code, RecordNr at) const {
  const Variant stored = Stored(field, at);
  return !stored.IsEmpty() && IsCode(stored, code);
}

RecordNr FieldEdit::CurrentNetwork() const { return CLng(Stored("CurrentNetworkNr")); }

void FieldEdit::EnableAll(std::span<const std::string_view> controls, bool enabled) {
  for (const std::string_view control : controls) writes.Enable(control, enabled);
}

void FieldEdit::EnableByRule(std::span<const std::string_view> controls) {
  for (const std::string_view control : controls) {
    writes.Enable(control, validator.IsEnabled(control, record));
  }
}
