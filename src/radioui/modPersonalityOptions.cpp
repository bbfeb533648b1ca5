#include "radioui/modPersonalityOptions.h"

#include <functional>
#include <memory>
#include <span>

#include "common/ArrayRows.h"
#include "common/LibraryArray.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "platform/Conversions.h"

namespace modPersonalityOptions {
namespace {
// The forms' fields, in the order of the rows from 1.
constexpr std::string_view kPINDigits[] = {"22.SecurityPIN1", "22.SecurityPIN2", "22.SecurityPIN3"};
constexpr std::string_view kMicGains[] = {"44.MaxAudio1", "44.MaxAudio2"};

/// An array of the fields' values, each as `convert` gives it.
template <typename Convert>
ArrayObject Pack(const ProviderRef& provider, std::span<const std::string_view> fields, Convert convert) {
  const auto rows = std::make_shared<LibraryArray>();
  rows->Redim(1, static_cast<std::int32_t>(fields.size()), ArrayRows::kColumn, ArrayRows::kColumn);
  std::int32_t row = 0;
  for (const std::string_view field : fields) {
    rows->SetValue(++row, ArrayRows::kColumn, convert(provider.Field(field).Value(1)));
  }
  return rows;
}
}  // namespace

void GetSecurityPIN(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetSecurityPIN", [&] {
    const Variant pin = provider.Field("22.SecurityPIN").Value(1);
    const bool hasPIN = ArrayRows::Find(pin, 1) != nullptr;
    provider.Field("22.SecurityLockOnPowerUp").SetValue(1, hasPIN ? kOn : kOff);
    std::int32_t row = 0;
    for (const std::string_view field : kPINDigits) {
      const Variant* digit = ArrayRows::Find(pin, ++row);
      provider.Field(field).SetValue(1, digit == nullptr ? Variant(0) : *digit);
    }
  });
}

void SetSecurityPIN(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetSecurityPIN", [&] {
    const bool locks = IsTicked(provider.Field("22.SecurityLockOnPowerUp").Value(1));
    const ArrayObject pin =
        locks ? Pack(provider, kPINDigits, std::identity()) : std::make_shared<LibraryArray>();
    provider.Field("22.SecurityPIN").SetValue(1, pin);
  });
}

void GetGenerateMicGain(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetGenerateMicGain", [&] {
    const Variant gains = provider.Field("44.MaxAudioLevel").Value(1);
    std::int32_t row = 0;
    for (const std::string_view field : kMicGains) {
      const Variant* gain = ArrayRows::Find(gains, ++row);
      if (gain != nullptr) provider.Field(field).SetValue(1, *gain);
    }
  });
}

void SetGenerateMicGain(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetGenerateMicGain",
            [&] { provider.Field("44.MaxAudioLevel").SetValue(1, Pack(provider, kMicGains, CInt)); });
}
}  // namespace modPersonalityOptions
