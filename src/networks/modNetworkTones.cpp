#include "common/Procedure.h"
#include "common/modCommonGlobals.h"
#include "networks/modNetworks.h"
#include "platform/Conversions.h"

namespace modNetworks {
namespace {
constexpr double kTenthsPerHertz = 10;

struct Tone {
  std::string_view raw;
  bool isWhole;  ///< both sides hold whole numbers
};
constexpr Tone kCyclingBegin = {"53.TxBeginToneFreq", true};
constexpr Tone kCyclingEnd = {"53.TxEndToneFreq", true};
constexpr Tone kOverBeep = {"21.AutoOverBeepFrequency", false};
constexpr Tone kCWID = {"78.CWIDToneFrequency", false};

Variant ValueOf(const Tone& tone, double frequency) {
  return tone.isWhole ? Variant(RoundToLong(frequency)) : Variant(frequency);
}

void ToForm(const Tone& tone, const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  const double tenths = CDbl(provider.Field(tone.raw).Value(record));
  provider.Field(fieldId).SetValue(record, ValueOf(tone, tenths / kTenthsPerHertz));
}

void FromForm(const Tone& tone, const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  const double hertz = modCommonGlobals::CDblLocal(CStr(provider.Field(fieldId).Value(record)));
  provider.Field(tone.raw).SetValue(record, ValueOf(tone, hertz * kTenthsPerHertz));
}
}  // namespace

void GetTxCyclingBegin(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetTxCyclingBegin", [&] { ToForm(kCyclingBegin, provider, fieldId, record); });
}

void SetTxCyclingBegin(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetTxCyclingBegin", [&] { FromForm(kCyclingBegin, provider, fieldId, record); });
}

void GetTxCyclingEnd(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetTxCyclingEnd", [&] { ToForm(kCyclingEnd, provider, fieldId, record); });
}

void SetTxCyclingEnd(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetTxCyclingEnd", [&] { FromForm(kCyclingEnd, provider, fieldId, record); });
}

void GetAutoOverBeep(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetAutoOverBeep", [&] { ToForm(kOverBeep, provider, fieldId, record); });
}

void SetAutoOverBeep(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetAutoOverBeep", [&] { FromForm(kOverBeep, provider, fieldId, record); });
}

void GetCWIDFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetCWIDFrequency", [&] { ToForm(kCWID, provider, fieldId, record); });
}

void SetCWIDFrequency(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetCWIDFrequency", [&] { FromForm(kCWID, provider, fieldId, record); });
}
}  // namespace modNetworks
