#include "common/FieldEdit.h"

#include "common/StoredValues.h"
#include "platform/Conversions.h"

bool FieldEdit::Is(std::int32_t code) const { return IsCode(value, code); }

Variant FieldEdit::Stored(std::string_view field, RecordNr at) const {
  return StoredValue(validator.CurrentProvider(), field, at);
}

bool FieldEdit::Holds(std::string_view field, std::int32_t code, RecordNr at) const {
  return HoldsCode(validator.CurrentProvider(), field, code, at);
}

RecordNr FieldEdit::CurrentNetwork() const { return ::CurrentNetwork(validator.CurrentProvider()); }
