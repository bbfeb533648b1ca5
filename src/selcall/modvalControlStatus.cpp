#include "selcall/modvalControlStatus.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modvalControlStatus {
namespace {
/// The formats that a status is held against.
struct Formats {
  std::string_view given;
  std::string rx, tx;  // of the values that are received or sent; empty where a format is given
};

std::int32_t StatusTones(std::string_view format) { return modCommonGlobals::CharCount(format, 'S'); }

/// Of every row, or of every pair of rows, of the system.
bool HasTwins(const ProviderRef& provider, RecordNr system) {
  const FieldRef systems = provider.Field("1111.SelcallID");
  const FieldRef values = provider.Field("1111.ValueTracker");
  for (const RecordNr row : systems.Records()) {
    if (!SameValue(systems.Value(row), system)) continue;
    for (RecordNr other = 1; other < row; ++other) {
      if (SameValue(systems.Value(other), system) && SameValue(values.Value(other), values.Value(row)))
        return true;
    }
  }
  return false;
}

/// Only a format that is asked counts: a value that no format has room for is still one that nobody sends.
bool IsInRange(const ProviderRef& provider, const Formats& formats, RecordNr row) {
  const Variant value = provider.Field("1115.ValueTracker").Value(row);
  const auto fits = [&](std::string_view format) { return ValidateRange(StatusTones(format), value); };
  const auto isTicked = [&](std::string_view field) { return IsTicked(provider.Field(field).Value(row)); };
  if (!formats.given.empty() && !fits(formats.given)) return false;
  if (isTicked("1115.Rx") && !fits(formats.rx)) return false;
  return !isTicked("1115.Tx") || fits(formats.tx);
}

bool AreInRange(const ProviderRef& provider, const Formats& formats) {
  for (const RecordNr row : provider.Field("1115.ValueTracker").Records()) {
    if (!IsInRange(provider, formats, row)) return false;
  }
  return true;
}
}  // namespace

bool ValidateControlStatusTone(const ValidatorRef& validator, std::string_view format, RecordNr system,
                               bool isFinal) {
  return Procedure("ValidateControlStatusTone", true, [&] {
    if (!format.empty() && system != kEverySystem) {
      return ValidateCtrlStatusTonesBySigSys(validator, kEverySystem, format, system, isFinal);
    }
    const ProviderRef provider = validator.CurrentProvider();
    const FieldRef identities = provider.Field("29.SignalSystemId");
    for (const RecordNr one : identities.Records()) {
      if (!ValidateCtrlStatusTonesBySigSys(validator, identities.Value(one), format, system, isFinal))
        return false;
    }
    return true;
  });
}

bool ValidateCtrlStatusTonesBySigSys(const ValidatorRef& validator, const Variant& identity,
                                     std::string_view format, RecordNr system, bool isFinal) {
  return Procedure("ValidateCtrlStatusTonesBySigSys", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    Formats formats{format, {}, {}};
    RecordNr place = system;
    if (format.empty() || system == kEverySystem) {
      place = modProjectGlobals::SigSysRecordNr(provider, SignallingType::kSelcall, identity, true);
    }
    if (format.empty()) {
      formats.rx = CStr(StoredValue(provider, "29.DerivedRxFormat", place));
      formats.tx = CStr(StoredValue(provider, "29.DerivedTxFormat", place));
    }
    if (isFinal && HasTwins(provider, place)) {
      return Refuse(
          validator,
          "Two or more Control Status Values in the same Selcall System have the same value. They must be "
          "unique before saving to file or programming a radio.");
    }
    if (AreInRange(provider, formats)) return true;
    const std::string text =
        "One or more Control Status Values are outside of the allowed range. These must be updated before "
        "saving "
        "to file or programming a radio.";
    if (isFinal) return Refuse(validator, text);
    return AskYesNo(validator, text + " Do you wish to continue?") == Button::Yes;
  });
}

bool ValidateRange(std::int32_t statusTones, const Variant& value) {
  return Procedure("ValidateRange", true, [&] {
    const auto number = [&](auto ofDigits) {
      return std::abs(IsNumeric(value) ? CDbl(value) : ofDigits(CStr(value)));
    };
    switch (statusTones) {
      case 1:
        return number([](const std::string& tone) { return CDbl("&H" + tone); }) <= 15;
      case 2:
        return number([](const std::string& tone) {
                 return static_cast<double>(modCommonGlobals::ConvertToneToNumber(tone));
               }) <= 99;
      default:
        return true;
    }
  });
}
}  // namespace modvalControlStatus
