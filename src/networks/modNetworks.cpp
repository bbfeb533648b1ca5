#include "networks/modNetworks.h"

#include <optional>
#include <string>

#include "platform/Conversions.h"
#include "tier/Procedure.h"
#include "tier/modProjectGlobals.h"

namespace modNetworks {
namespace {
/// The field that a network's identity is read from: that of the systems, which for Selcall has a raw
/// twin that is right before any conversion.
std::string_view StoredIdentityField(std::int32_t type) {
  return type == SignallingType::kSelcall ? "29.SelcallID" : modProjectGlobals::SystemIdentityField(type);
}

std::string IdentityText(const ProviderRef& provider, std::int32_t type, std::int32_t index) {
  const std::string_view name = StoredIdentityField(type);
  if (name.empty()) return std::string(kNone);
  const FieldRef identities = provider.Field(name);
  if (index < 0 || index >= identities.RecordCount()) return {};
  return CStr(identities.Value(index + 1));
}
}  // namespace

void GetSystemID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetSystemID", [&] {
    const std::string number = CStr(provider.Field("21.NetworkPointer").Value(record));
    provider.Field(fieldId).SetValue(record, number);
    provider.Field("EmNetworkID").SetValue(record, number);
  });
}

void SetSystemID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSystemID", [&] {
    const std::int32_t number = CLng(provider.Field(fieldId).Value(record));
    provider.Field("21.NetworkPointer").SetValue(record, number);
    provider.Field("21.SIBTPointer").SetValue(record, record - 1);
  });
}

void GetNetworkSignallingID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetNetworkSignallingID", [&] {
    const std::int32_t index = CLng(provider.Field("21.SignallingPointer").Value(record));
    const std::int32_t type = CLng(provider.Field("21.SignallingType").Value(record));
    provider.Field(fieldId).SetValue(record, IdentityText(provider, type, index));
  });
}

void SetNetworkSignallingID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetNetworkSignallingID", [&] {
    const std::int32_t type = CLng(provider.Field("21.SignallingType").Value(record));
    const std::string identity = CStr(provider.Field(fieldId).Value(record));
    std::int32_t index = 0;
    if (!modProjectGlobals::SystemIdentityField(type).empty() && identity != kNone) {
      index = modProjectGlobals::SigSysRecordNr(provider, type, identity, false);
    }
    provider.Field("21.SignallingPointer").SetValue(record, index);
  });
}
}  // namespace modNetworks
