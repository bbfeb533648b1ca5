#include "common/StoredValues.h"

#include "platform/Conversions.h"

Variant StoredValue(const ProviderRef& provider, std::string_view field, RecordNr record) {
  if (!provider.HasField(field)) return {};
  const FieldRef stored = provider.Field(field);
  return stored.HasRecord(record) ? stored.Value(record) : Variant();
}

Variant ValueAtIndex(const FieldRef& field, std::int32_t index) {
  const bool isThere = index >= 0 && index < field.RecordCount();
  return isThere ? field.Value(index + 1) : Variant();
}

bool HoldsCode(const ProviderRef& provider, std::string_view field, std::int32_t code, RecordNr record) {
  const Variant stored = StoredValue(provider, field, record);
  return !stored.IsEmpty() && IsCode(stored, code);
}

std::string StoredRecord::Text(std::string_view field) const { return CStr(Value(field)); }

RecordNr CurrentNetwork(const ProviderRef& provider) {
  return CLng(StoredValue(provider, "CurrentNetworkNr", kOnly));
}

RecordNr CurrentSelcallSystem(const ProviderRef& provider) {
  return CLng(StoredValue(provider, "CurrentSelcallNumber", kOnly));
}

RecordNr CurrentScanGroup(const ProviderRef& provider) {
  return CLng(StoredValue(provider, "CurrentScanGroupNr", kOnly));
}
