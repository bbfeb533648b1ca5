#include "networks/modNetworks.h"
#include "platform/Conversions.h"
#include "tier/Procedure.h"
#include "tier/modCommonGlobals.h"

namespace modNetworks {
namespace {
constexpr double kTenthsPerHertz = 10;

double Hertz(const ProviderRef& provider, std::string_view raw, RecordNr record) {
  return CDbl(provider.Field(raw).Value(record)) / kTenthsPerHertz;
}

/// What the user typed, in tenths of a hertz.
double Tenths(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  return modCommonGlobals::CDblLocal(CStr(provider.Field(fieldId).Value(record))) * kTenthsPerHertz;
}
}  // namespace

void GetTxCyclingBegin(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetTxCyclingBegin", [&] {
    provider.Field(fieldId).SetValue(record, RoundToLong(Hertz(provider, "53.TxBeginToneFreq", record)));
  });
}

void SetTxCyclingBegin(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetTxCyclingBegin", [&] {
    provider.Field("53.TxBeginToneFreq").SetValue(record, RoundToLong(Tenths(provider, fieldId, record)));
  });
}

void GetTxCyclingEnd(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetTxCyclingEnd", [&] {
    provider.Field(fieldId).SetValue(record, RoundToLong(Hertz(provider, "53.TxEndToneFreq", record)));
  });
}

void SetTxCyclingEnd(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetTxCyclingEnd", [&] {
    provider.Field("53.TxEndToneFreq").SetValue(record, RoundToLong(Tenths(provider, fieldId, record)));
  });
}

void GetAutoOverBeep(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetAutoOverBeep", [&] {
    provider.Field(fieldId).SetValue(record, Hertz(provider, "21.AutoOverBeepFrequency", record));
  });
}

void SetAutoOverBeep(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetAutoOverBeep", [&] {
    provider.Field("21.AutoOverBeepFrequency").SetValue(record, Tenths(provider, fieldId, record));
  });
}

void GetCWIDFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetCWIDFrequency", [&] {
    provider.Field(fieldId).SetValue(record, Hertz(provider, "78.CWIDToneFrequency", record));
  });
}

void SetCWIDFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetCWIDFrequency", [&] {
    provider.Field("78.CWIDToneFrequency").SetValue(record, Tenths(provider, fieldId, record));
  });
}
}  // namespace modNetworks
