#include "signalling/modSIBT.h"

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/modCommonGlobals.h"
#include "platform/Conversions.h"

namespace modSIBT {
namespace {
constexpr std::int32_t kTenthsPerHertz = 10;
/// Half of what the decoder takes for the tone, in tenths of a hertz.
constexpr double kHalfWidth = 75;
/// From here on the decoder mixes with the lower of its two frequencies; in tenths of a hertz.
constexpr std::int32_t kHighTone = 15000;
constexpr std::int32_t kMixingLowTones = 17130;
constexpr std::int32_t kMixingHighTones = 12870;

constexpr std::string_view kFrequency = "75.SIBTFrequency";
constexpr std::string_view kRawEnabled = "75.SIBTRawEnabled";
constexpr std::string_view kEnabled = "75.SIBTEnabled";
constexpr std::string_view kPosition = "75.SIBTTonePosition";

// 75.SIBTRawEnabled
constexpr std::int32_t kRawOff = 0;
constexpr std::int32_t kRawFirstPosition = 1;
constexpr std::int32_t kRawSecondPosition = 2;
}  // namespace

void GetGenerateSIBTFrequency(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetGenerateSIBTFrequency", [&] {
    const FieldRef frequency = provider.Field(kFrequency);
    frequency.SetValue(record, CDbl(frequency.Value(record)) / kTenthsPerHertz);
    const FieldRef network = provider.Field("21.NetworkIDTracker");
    if (!network.HasRecord(record)) return;  // a damaged file
    provider.Field("75.SIBTNetworkID").SetValue(record, CLng(network.Value(record)));
  });
}

void SetGenerateSIBTFrequency(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetGenerateSIBTFrequency", [&] {
    const FieldRef frequency = provider.Field(kFrequency);
    const double hertz = modCommonGlobals::CDblLocal(CStr(frequency.Value(record)));
    const std::int32_t tenths = RoundToLong(hertz * kTenthsPerHertz);  // a file may hold tenths
    frequency.SetValue(record, tenths);
    provider.Field("75.SIBTLowerBound").SetValue(record, RoundToLong(tenths - kHalfWidth));
    provider.Field("75.SIBTUpperBound").SetValue(record, RoundToLong(tenths + kHalfWidth));
    provider.Field("75.SIBTToneBandwidth").SetValue(record, 0);
    provider.Field("75.SIBTMixingFrequency")
        .SetValue(record, tenths < kHighTone ? kMixingLowTones : kMixingHighTones);
  });
}

void GetSIBTEnabled(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetSIBTEnabled", [&] {
    const std::int32_t raw = CLng(provider.Field(kRawEnabled).Value(record));
    const FieldRef position = provider.Field(kPosition);
    provider.Field(kEnabled).SetValue(record, raw > kRawOff ? kOn : kOff);
    if (raw > kRawOff) {
      position.SetValue(record, raw == kRawFirstPosition ? 0 : 1);
    } else {
      position.SetValue(record, position.Default());
    }
  });
}

void SetSIBTEnabled(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetSIBTEnabled", [&] {
    const bool isOn = IsTicked(provider.Field(kEnabled).Value(record));
    const bool isFirst = IsCode(provider.Field(kPosition).Value(record), 0);
    const std::int32_t position = isFirst ? kRawFirstPosition : kRawSecondPosition;
    provider.Field(kRawEnabled).SetValue(record, isOn ? position : kRawOff);
  });
}
}  // namespace modSIBT
