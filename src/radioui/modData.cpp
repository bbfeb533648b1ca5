#include "radioui/modData.h"

#include <algorithm>
#include <string>

#include "common/Procedure.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"

namespace modData {
namespace {
/// A number in the radio that the form shows as hexadecimal text.
struct HexField {
  std::string_view raw, form;
  std::size_t digits;
};
constexpr HexField kFlowCharacters[] = {
    {"9.DataXon", "9.DataXonHex", 2},
    {"9.DataXoff", "9.DataXoffHex", 2},
};
constexpr HexField kTOTALFields[] = {
    {"9.dataTotalRadioId", "9.dataTotalRadioIdHex", 4},
    {"9.dataTotalSystemId", "9.dataTotalSystemIdHex", 2},
    {"9.dataTotalDestinationId", "9.dataTotalDestinationIdHex", 4},
    {"9.dataTotalLinkId", "9.dataTotalLinkIdHex", 2},
};

constexpr std::size_t kIdentityLength = 8;

/// Null for a field that holds none of the two characters.
const HexField* FindFlowCharacter(std::string_view fieldId) {
  const auto* found = std::ranges::find_if(
      kFlowCharacters, [&](const HexField& field) { return EqualsIgnoringCase(field.form, fieldId); });
  return found == std::end(kFlowCharacters) ? nullptr : found;
}
}  // namespace

void GetXonXoff(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetXonXoff", [&] {
    const HexField* field = FindFlowCharacter(fieldId);
    if (field == nullptr) return;
    const std::string code = CStr(provider.Field(field->raw).Value(record));
    const std::string hex = "0" + modCommonGlobals::ConvertNumericToHex(code);
    provider.Field(field->form).SetValue(record, hex.substr(hex.size() - field->digits));
  });
}

void SetXonXoff(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetXonXoff", [&] {
    const HexField* field = FindFlowCharacter(fieldId);
    if (field == nullptr) return;
    const std::string hex = CStr(provider.Field(field->form).Value(record));
    provider.Field(field->raw).SetValue(record, hex.empty() ? 0 : CLng("&H" + hex));
  });
}

void GetDataIdentity(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetDataIdentity", [&] {
    const std::string identity = CStr(provider.Field("9.DataIdentity").Value(record));
    provider.Field(fieldId).SetValue(record, identity == kNone ? std::string() : identity);
  });
}

void SetDataIdentity(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetDataIdentity", [&] {
    std::string identity = CStr(provider.Field(fieldId).Value(record));
    if (identity.empty()) identity.assign(kIdentityLength, '\0');
    provider.Field("9.DataIdentity").SetValue(record, identity);
  });
}

void CopyCallerIDEncode(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("CopyCallerIDEncode", [&] {
    const Variant encodes = provider.Field("9.SDMEncodeCallerIDEnabled").Value(record);
    provider.Field("9.SDMDecodeCallerIDEnabled").SetValue(record, encodes);
  });
}

void SetCCDICallerID(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetCCDICallerID", [&] {
    const std::int32_t encodes = CLng(provider.Field("9.SDMEncodeCallerIDEnabled").Value(record));
    provider.Field("69.GPSEncodeCallerIDEnabled").SetValue(record, encodes);
    provider.Field("69.GPSDecodeCallerIDEnabled").SetValue(record, encodes);
  });
}

void GetCCDICallerID(const ProviderRef&, std::string_view, RecordNr) {}

void GetCustomerDataNetworkID(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetCustomerDataNetworkID", [&] {
    const FieldRef networks = provider.Field("21.NetworkIDTracker");
    if (!networks.HasRecord(record)) return;  // of no network: the table is too long
    provider.Field("77.CustomerDataNetworkID").SetValue(record, networks.Value(record));
  });
}

void GetTOTALFields(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetTOTALFields", [&] {
    for (const HexField& field : kTOTALFields) {
      const std::string hex = modCommonGlobals::ConvertNumericToHex(CStr(provider.Field(field.raw).Value(1)));
      provider.Field(field.form).SetValue(1, modProjectGlobals::LeftPadString(hex, '0', field.digits));
    }
  });
}

/// The radio's numbers are written as decimal text, which the host stores as the number that it is.
void SetTOTALFields(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetTOTALFields", [&] {
    for (const HexField& field : kTOTALFields) {
      const std::string hex = CStr(provider.Field(field.form).Value(1));
      provider.Field(field.raw).SetValue(1, modCommonGlobals::ConvertHexToNumeric(hex));
    }
  });
}
}  // namespace modData
