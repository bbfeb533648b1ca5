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

/// The statuses of one system: the rows on the form or, of a system that the form does not show, its rows
/// among those of all systems. By the rows of another one a sound system would be refused.
struct Statuses {
  FieldRef values, rx, tx, systems;
  RecordNr system;
  bool areOnForm;

  Statuses(const ProviderRef& provider, const std::string& table, RecordNr owner, bool onForm)
      : values(provider.Field(table + ".ValueTracker")),
        rx(provider.Field(table + ".Rx")),
        tx(provider.Field(table + ".Tx")),
        systems(provider.Field(table + ".SelcallID")),
        system(owner),
        areOnForm(onForm) {}

  bool Has(RecordNr row) const { return areOnForm || SameValue(systems.Value(row), system); }
  bool IsInRange(const Formats& formats, RecordNr row) const {
    const Variant value = values.Value(row);
    const auto fits = [&](std::string_view format) { return ValidateRange(StatusTones(format), value); };
    if (!formats.given.empty() && !fits(formats.given)) return false;
    if (IsTicked(rx.Value(row)) && !fits(formats.rx)) return false;
    return !IsTicked(tx.Value(row)) || fits(formats.tx);
  }
};

bool AreInRange(const ProviderRef& provider, const Formats& formats, RecordNr system) {
  const bool isOnForm = CurrentSelcallSystem(provider) == system;
  const Statuses statuses(provider, isOnForm ? "1115" : "1111", system, isOnForm);
  for (const RecordNr row : statuses.values.Records()) {
    if (statuses.Has(row) && !statuses.IsInRange(formats, row)) return false;
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
      return Refuse(validator,
                    "Two or more Control Status Values in the same Selcall System have the same value. They "
                    "must be unique before saving to file or programming a radio.");
    }
    if (AreInRange(provider, formats, place)) return true;
    const std::string text =
        "One or more Control Status Values are outside of the allowed range. These must be updated before "
        "saving to file or programming a radio.";
    if (isFinal) return Refuse(validator, text);
    return AskYesNo(validator, text + " Do you wish to continue?") == Button::Yes;
  });
}

void DeleteCurrentSystemControlStatuses(const ProviderRef& provider) {
  Procedure("DeleteCurrentSystemControlStatuses", [&] { provider.ClearTable("1115", false); });
}

bool ValidateRange(std::int32_t statusTones, const Variant& value) {
  return Procedure("ValidateRange", true, [&] {
    if (CStr(value).empty()) return true;  // 0
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
