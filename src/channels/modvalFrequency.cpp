#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include "channels/modvalChannels.h"
#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "platform/Locale.h"

namespace modvalChannels {
namespace {
using modCommonGlobals::CDblLocal;

constexpr double kHertzPerKHz = 1'000;
constexpr std::string_view kReceive = "RXFREQ_K6K";

std::string FormatMHz(const std::string& text) { return FormatFixed(CDblLocal(text), 3, 6); }

std::int32_t Hertz(const std::string& text) { return RoundToLong(CDblLocal(text) * kHertzPerMHz); }

/// A text without decimal symbol gets one behind its third character, one that stands behind the fourth
/// moves there: 1501 and 1501.25 become 150.1 and 150.125. "." counts as the user's symbol.
std::string WithDecimalSymbol(std::string_view typed) {
  std::string text = modCommonGlobals::LocalizeString(typed);
  if (text.size() <= 3) return text;
  const char symbol = DecimalSymbol();
  if (text.find(symbol) <= 3) return text;
  std::string rest = text.substr(3);
  std::erase(rest, symbol);
  return text.substr(0, 3) + symbol + rest;
}

/// The frequency is cleared: a channel without one can not inhibit its transmitter.
bool ClearFrequency(FieldEdit& edit, const std::string& text) {
  edit.value = text;
  edit.StoreNow();
  edit.writes.Set("TxInhibit_k6k", edit.record, 0);
  return true;
}

/// The band's steps, "6250|5000|3125|2500".
std::vector<std::int32_t> StepsHertz(std::string_view text) {
  std::vector<std::int32_t> steps;
  steps.reserve(4);
  const char* end = text.data() + text.size();
  for (const char* at = text.data(); at < end; ++at) {
    at = std::from_chars(at, end, steps.emplace_back()).ptr;
  }
  return steps;
}

bool IsOnStep(double megahertz, const std::vector<std::int32_t>& stepsHertz) {
  const std::int32_t hertz = RoundToLong(megahertz * kHertzPerMHz);
  return std::ranges::any_of(stepsHertz, [&](std::int32_t step) { return hertz % step == 0; });
}

/// "6.25, 5, 3.125 or 2.5".
std::string StepsInKHz(const std::vector<std::int32_t>& stepsHertz) {
  std::string list;
  for (std::size_t i = 0; i < stepsHertz.size(); ++i) {
    if (i > 0) list += i + 1 == stepsHertz.size() ? " or " : ", ";
    list += GeneralText(stepsHertz[i] / kHertzPerKHz, 15);
  }
  return list;
}

/// A frequency off the band's steps needs consent.
bool IsStepAccepted(const ValidatorRef& validator, const BandLimits& band, double megahertz) {
  const auto steps = StepsHertz(band.Steps);
  if (IsOnStep(megahertz, steps)) return true;
  return AskYesNo(validator,
                  "This frequency is not a standard channel increment,i.e. not divisible by 6.25, 5, 3.125, "
                  "or 2.5 kHz. %1:SDo you still want to continue?",
                  {StepsInKHz(steps), kLineBreak}) == Button::Yes;
}

/// The notice for the maritime range, then the error for the beacons' ranges: false for the latter.
bool MayTransmitOn(const ValidatorRef& validator, const std::string& text) {
  using namespace modProjectGlobals;
  const std::int32_t hertz = Hertz(text);
  if (const auto warning = GetMaritimeFrequencyWarning(hertz); !warning.empty()) Notify(validator, warning);
  const auto error = GetDistressBeaconFrequencyError(hertz);
  return error.empty() || Refuse(validator, error);
}

/// An empty text counts as no frequency.
bool IsZero(const Variant& frequency) {
  const std::string text = CStr(frequency);
  return text.empty() || CDblLocal(text) == 0;
}

bool IsNewChannel(const FieldEdit& edit) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  return IsZero(provider.Field("RxFreq_k6k").Value(edit.record)) &&
         IsZero(provider.Field("TxFreq_k6k").Value(edit.record));
}

/// The transmit frequency of a new channel follows its receive frequency. A receive frequency of a
/// distress beacon is allowed; only its copy is refused, and the edit ends there.
bool AcceptReceive(FieldEdit& edit, std::int32_t position, const std::string& text) {
  if (position != modBandLimits::kPositionK5 && IsNewChannel(edit)) {
    if (!MayTransmitOn(edit.validator, text)) return edit.PassUnchanged();
    edit.writes.Set("TxFreq_k6k", edit.record, text);
  }
  return true;
}

bool AcceptTransmit(FieldEdit& edit, const std::string& text) {
  if (!MayTransmitOn(edit.validator, text)) return false;
  edit.StoreNow();
  return edit.PassUnchanged();
}

bool Includes(const SubBand& range, double megahertz) {
  return range.Lower / kHertzPerMHz <= megahertz && megahertz <= range.Upper / kHertzPerMHz;
}

bool IsNear(const SubBand& range, double megahertz) {
  return Includes({range.Lower - range.LowerTolerance, range.Upper + range.UpperTolerance, 0, 0}, megahertz);
}

/// " 762-776 850-870".
std::string RangeList(std::span<const SubBand> subBands) {
  std::string list;
  for (const SubBand& range : subBands) {
    list += ' ';
    list += GeneralText(range.Lower / kHertzPerMHz, 15);
    list += '-';
    list += GeneralText(range.Upper / kHertzPerMHz, 15);
  }
  return list;
}
}  // namespace

bool ValidateFrequency(FieldEdit& edit) {
  return Procedure("ValidateFrequency", true, [&] {
    const std::string typed = CStr(edit.value);
    if (!IsNumericText(typed)) return Refuse(edit.validator, "Invalid frequency format");
    const std::string text = FormatMHz(WithDecimalSymbol(Trim(typed)));
    const double megahertz = CDblLocal(text);
    if (CSng(megahertz) == 0) return ClearFrequency(edit, text);

    const std::int32_t position = CLng(edit.validator.CurrentProvider().Field("Band_k6k").Value(1));
    const BandLimits& band = modBandLimits::GetBandLimitsByComboBoxPosition(position);
    const bool receives = edit.uiid == kReceive;
    if (!ValidateFrequencyForSubBands(edit.validator, megahertz,
                                      receives ? band.RxSubBands : band.TxSubBands)) {
      return false;
    }
    if (!IsStepAccepted(edit.validator, band, megahertz)) return false;
    edit.value = text;
    return receives ? AcceptReceive(edit, position, text) : AcceptTransmit(edit, text);
  });
}

bool ValidateFrequencyForSubBands(const ValidatorRef& validator, double frequencyMHz,
                                  std::span<const SubBand> subBands) {
  return Procedure("ValidateFrequencyForSubBands", true, [&] {
    const auto includes = [&](const SubBand& range) { return Includes(range, frequencyMHz); };
    const auto isNear = [&](const SubBand& range) { return IsNear(range, frequencyMHz); };
    if (std::ranges::any_of(subBands, includes)) return true;
    const std::string message = "The value entered is outside the allowable range for this band%0:S MHz.";
    const std::string ranges = RangeList(subBands);
    if (std::ranges::any_of(subBands, isNear) || validator.CurrentProvider().FactoryMode()) {
      return AskYesNo(validator, message + "  Do you wish to continue?", {ranges}) != Button::No;
    }
    return Refuse(validator, message, {ranges});
  });
}
}  // namespace modvalChannels
