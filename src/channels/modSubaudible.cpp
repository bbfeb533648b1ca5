#include "channels/modSubaudible.h"

#include <string>

#include "common/Procedure.h"
#include "platform/CaseText.h"
#include "platform/Conversions.h"

namespace modSubaudible {
namespace {
/// The raw output level of 100 per cent.
constexpr double kFullLevel = 18260;

std::string CalibratedField(std::string_view fieldId) {
  constexpr std::string_view kFormWord = "TxDeviation";
  constexpr std::string_view kRawWord = "CalibrationOutputLevel";
  const std::size_t at = FindIgnoringCase(fieldId, kFormWord);
  std::string name(fieldId);
  if (at != std::string::npos) name.replace(at, kFormWord.size(), kRawWord);
  return name;
}
}  // namespace

void SetGenerateCTCSSDCS(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetGenerateCTCSSDCS", [&] {
    provider.ClearTable("61");
    provider.ClearTable("50");
  });
}

void GenerateCTCSSDCS(const ProviderRef&, std::string_view, RecordNr) {}

void GetTxDeviation(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetTxDeviation", [&] {
    const double level = CDbl(provider.Field(CalibratedField(fieldId)).Value(record));
    provider.Field(fieldId).SetValue(record, RoundToLong(100 * level / kFullLevel));
  });
}

void SetOutputLevel(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetOutputLevel", [&] {
    const double percent = CDbl(provider.Field(fieldId).Value(record));
    provider.Field(CalibratedField(fieldId)).SetValue(record, RoundToLong(percent / 100 * kFullLevel));
  });
}
}  // namespace modSubaudible
