#include "radioui/modUIPreferences.h"

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modCommonGlobals.h"
#include "platform/Conversions.h"

namespace modUIPreferences {
namespace {
constexpr double kSecondsPerMinute = 60;
}

void GetPATimer(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetPATimer", [&] {
    const double seconds = CDbl(provider.Field("34.PATimerRaw").Value(1));
    provider.Field("34.PATimer").SetValue(1, seconds / kSecondsPerMinute);
  });
}

void SetPATimer(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetPATimer", [&] {
    const double minutes = modCommonGlobals::CDblLocal(CStr(provider.Field("34.PATimer").Value(1)));
    provider.Field("34.PATimerRaw").SetValue(1, minutes * kSecondsPerMinute);
  });
}

void GetUIPrefsAudibleMode(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetUIPrefsAudibleMode", [&] {
    std::int32_t mode = AudibleMode::kAll;
    if (IsTicked(provider.Field("QuietMode").Value(record))) mode = AudibleMode::kQuiet;
    if (IsTicked(provider.Field("SilentMode").Value(record))) mode = AudibleMode::kSilent;
    provider.Field(fieldId).SetValue(record, mode);
  });
}

void SetUIPrefsAudibleMode(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetUIPrefsAudibleMode", [&] {
    const Variant mode = provider.Field(fieldId).Value(record);
    provider.Field("SilentMode").SetValue(record, SameValue(mode, AudibleMode::kSilent) ? kOn : kOff);
    provider.Field("QuietMode").SetValue(record, SameValue(mode, AudibleMode::kQuiet) ? kOn : kOff);
  });
}
}  // namespace modUIPreferences
