#include "signalling/modMDC1200.h"

#include <string>

#include "common/Procedure.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modMDC1200 {
namespace {
constexpr std::size_t kDigits = 4;

/// The types of table 81, as those of the DTMF sequences.
constexpr struct {
  std::int32_t type;
  std::string_view form;
} kSequences[] = {
    {4, "80.MDC1200ANISequence"},
    {6, "80.MDC1200EmergencySequence"},
};

std::string ToForm(const Variant& number) {
  return modProjectGlobals::LeftPadString(modCommonGlobals::ConvertNumericToHex(CStr(number)), '0', kDigits);
}

std::string FromForm(const Variant& hex) { return modCommonGlobals::ConvertHexToNumeric(CStr(hex)); }

void AppendSequence(const ProviderRef& provider, const Variant& identity, std::int32_t type,
                    const Variant& hex) {
  const RecordNr added = provider.Table("81").AppendRecord();
  provider.Field("81.MDC1200NetworkPresetSeqSigSystemID").SetValue(added, identity);
  provider.Field("81.MDC1200NetworkPresetSeqSeqType").SetValue(added, type);
  provider.Field("81.MDC1200NetworkPresetSeqSequence").SetValue(added, FromForm(hex));
}

void RemoveAllSequences(const ProviderRef& provider) {
  const TableRef table = provider.Table("81");
  for (RecordNr left = table.RecordCount(); left > 0; --left) table.DeleteRecord(1);
}
}  // namespace

void RemoveOwnSequences(const ProviderRef& provider, const Variant& identity) {
  const TableRef table = provider.Table("81");
  const FieldRef owner = provider.Field("81.MDC1200NetworkPresetSeqSigSystemID");
  for (RecordNr sequence = table.RecordCount(); sequence > 0; --sequence) {
    if (SameValue(owner.Value(sequence), identity)) table.DeleteRecord(sequence);
  }
}

bool IsNoSequence(std::string_view hex) { return hex.find_first_not_of('0') == std::string_view::npos; }

void GetMDC1200(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetMDC1200", [&] {
    const Variant identity = provider.Field("80.MDC1200SignallingSystemID").Value(record);
    provider.Field("80.MDC1200RadioIDDerived")
        .SetValue(record, ToForm(provider.Field("80.MDC1200RadioID").Value(record)));
    for (const auto& sequence : kSequences) provider.Field(sequence.form).SetValue(record, "");
    const FieldRef owner = provider.Field("81.MDC1200NetworkPresetSeqSigSystemID");
    const FieldRef type = provider.Field("81.MDC1200NetworkPresetSeqSeqType");
    const FieldRef raw = provider.Field("81.MDC1200NetworkPresetSeqSequence");
    for (const RecordNr stored : owner.Records()) {
      if (!SameValue(owner.Value(stored), identity)) continue;
      for (const auto& sequence : kSequences) {
        if (!SameValue(type.Value(stored), sequence.type)) continue;
        provider.Field(sequence.form).SetValue(record, ToForm(raw.Value(stored)));
      }
    }
  });
}

void SetMDC1200(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetMDC1200", [&] {
    const Variant identity = provider.Field("80.MDC1200SignallingSystemID").Value(record);
    if (record == 1) {
      RemoveAllSequences(provider);
    } else {
      // A system that is stored alone, after an edit, is not to leave its old sequences behind: they would
      // fill the table and bring back one that was emptied. A walk from system 1 finds none.
      RemoveOwnSequences(provider, identity);
    }
    provider.Field("80.MDC1200RadioID")
        .SetValue(record, FromForm(provider.Field("80.MDC1200RadioIDDerived").Value(record)));
    for (const auto& [type, form] : kSequences) {
      const Variant hex = provider.Field(form).Value(record);
      if (!CStr(hex).empty()) AppendSequence(provider, identity, type, hex);
    }
  });
}
}  // namespace modMDC1200
