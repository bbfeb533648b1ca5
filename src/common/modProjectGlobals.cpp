#include "common/modProjectGlobals.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "common/Procedure.h"
#include "common/modCommonGlobals.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"

namespace modProjectGlobals {
namespace {
constexpr std::string_view kDistressHeading = "Distress and Safety Frequencies\r\n\r\n";
constexpr std::string_view kMaritimeText =
    "The frequency range 156.8 MHz ± 375 kHz are reserved worldwide for use as maritime distress "
    "frequencies.  Do not program transmitters to operate in this range unless the use is specifically "
    "for the maritime service.";
constexpr std::string_view kBeaconText =
    "The frequency ranges 243 MHz ± 5 kHz, and 406.0 to 406.1 MHz are reserved worldwide for use by "
    "distress beacons.  You cannot program transmitters to operate in these range of frequencies.";

constexpr struct {
  std::int32_t signallingType;
  std::string_view identityField;
} kSystems[] = {
    {SignallingType::kSelcall, "29.SignalSystemId"},
    {SignallingType::kDTMF, "64.DTMFNetworkSigSystemID"},
    {SignallingType::kTwoTone, "37.T99NetworkID"},
    {SignallingType::kMDC1200, "80.MDC1200SignallingSystemID"},
};

constexpr std::size_t kDCSDigits = 3;

bool IsWithin(std::int32_t value, std::int32_t lowest, std::int32_t highest) {
  return lowest <= value && value <= highest;
}
}  // namespace

bool MultipleChannelMembers(const GroupMembers& members, RecordNr scanGroup) {
  return Procedure("MultipleChannelMembers", false, [&] { return members.CountOf(scanGroup) > 1; });
}

bool AllChannelsAreMembers(const GroupMembers& members, RecordNr scanGroup) {
  return Procedure("AllChannelsAreMembers", false, [&] { return members.AreAllChannels(scanGroup); });
}

std::string_view SystemIdentityField(std::int32_t signallingType) {
  for (const auto& system : kSystems) {
    if (system.signallingType == signallingType) return system.identityField;
  }
  return {};
}

RecordNr SigSysRecordNr(const ProviderRef& provider, std::int32_t signallingType, const Variant& identity,
                        bool fromOne) {
  return Procedure("SigSysRecordNr", RecordNr{0}, [&]() -> RecordNr {
    const std::string_view name = SystemIdentityField(signallingType);
    if (name.empty()) throw Error(ErrorNumber::kInvalidCall, "SigSysRecordNr", "Invalid Signalling Type");
    const FieldRef identities = provider.Field(name);
    for (const RecordNr system : identities.Records()) {
      if (SameValue(identities.Value(system), identity)) return fromOne ? system : system - 1;
    }
    return 0;
  });
}

RecordNr GetChannelNetworkRecordNr(const ProviderRef& provider, RecordNr channel) {
  return Procedure("GetChannelNetworkRecordNr", RecordNr{0}, [&] {
    if (provider.IsNothing()) {
      throw Error(ErrorNumber::kInvalidCall, "GetChannelNetworkRecordNr",
                  "Invalid argument: Provider is Nothing.");
    }
    const FieldRef networkOfChannel = provider.Field("5.ChannelNetworkIdUI");
    if (!IsWithin(channel, 1, networkOfChannel.RecordCount())) {
      throw Error(ErrorNumber::kInvalidCall, "GetChannelNetworkRecordNr",
                  "Invalid argument: lngChannelRecordNr is out of bounds.");
    }
    const Variant number = networkOfChannel.Value(channel);
    const FieldRef numbers = provider.Field("21.NetworkIDTracker");
    for (const RecordNr network : numbers.Records()) {
      if (SameValue(numbers.Value(network), number)) return network;
    }
    return numbers.RecordCount();
  });
}

bool IsBlankSequence(std::string_view sequence) {
  sequence = Trim(sequence);
  return sequence.empty() || sequence == kNone || sequence == kUndefined;
}

RecordNr FindRecord(const FieldRef& field, const Variant& value, RecordNr from) {
  const RecordNr last = field.RecordCount();
  for (RecordNr record = from; record <= last; ++record) {
    if (SameValue(field.Value(record), value)) return record;
  }
  return 0;
}

Variant FreeNumber(const FieldRef& numbers) {
  const ValueListRef free = numbers.FreeValues();
  return free.Count() > 0 ? Variant(free.Item(0)) : Variant();
}

RecordNr ChannelRecordNr(const ProviderRef& provider, const Variant& number) {
  const std::vector<Variant> numbers = provider.Field("5.ChannelIDTracker").Values();
  const auto found = std::find_if(numbers.begin(), numbers.end(),
                                  [&](const Variant& one) { return SameValue(one, number); });
  return found == numbers.end() ? 0 : static_cast<RecordNr>(found - numbers.begin()) + 1;
}

std::string LeftPadString(std::string_view text, char pad, std::size_t width) {
  return std::string(width - std::min(width, text.size()), pad) + std::string(text);
}

std::string GetMaritimeFrequencyWarning(std::int32_t hertz) {
  if (!IsWithin(hertz, 156'425'000, 157'175'000)) return {};
  return std::string(kDistressHeading) + std::string(kMaritimeText);
}

std::string GetDistressBeaconFrequencyError(std::int32_t hertz) {
  const bool reserved =
      IsWithin(hertz, 242'995'000, 243'005'000) || IsWithin(hertz, 406'000'000, 406'100'000);
  return reserved ? std::string(kDistressHeading) + std::string(kBeaconText) : std::string();
}

std::string ConvertLongToDCSstring(std::int32_t code) {
  if (code == 0) return std::string(kNone);
  char octal[16];
  const auto [end, problem] =
      std::to_chars(std::begin(octal), std::end(octal), static_cast<std::uint32_t>(code), 8);
  const std::string digits = LeftPadString({octal, end}, '0', kDCSDigits);
  return "D" + digits.substr(digits.size() - kDCSDigits);
}

std::int32_t ConvertDCSstringToLong(std::string_view text) {
  if (text == kNone) return 0;
  return CLng("&O" + std::string(text.substr(std::min<std::size_t>(text.size(), 1))));
}

std::string ConvertLongToCTCSSstring(std::int32_t code) {
  if (code == 0) return std::string(kNone);
  return "C" + FormatFixed(code / 10.0, 0, 1);
}

std::int32_t ConvertCTCSSstringToLong(std::string_view text) {
  if (text == kNone) return 0;
  return RoundToLong(modCommonGlobals::CDblLocal(text.substr(std::min<std::size_t>(text.size(), 1))) * 10);
}
}  // namespace modProjectGlobals
