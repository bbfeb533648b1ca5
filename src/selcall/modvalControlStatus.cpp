#include "selcall/modvalControlStatus.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "selcall/modControlStatus.h"

namespace modvalControlStatus {
namespace {
constexpr std::string_view kValue = "ControlStatusValue";
constexpr std::string_view kType = "ControlStatusType";

/// The formats that a status is held against.
struct Formats {
  std::string_view given;
  std::string rx, tx;  // of the values that are received or sent; empty where a format is given
};

std::int32_t StatusTones(std::string_view format) { return modCommonGlobals::CharCount(format, 'S'); }

/// A value may stand in either notation; none for what is no value, or higher than any that is looked for.
std::optional<std::int32_t> ValueOf(const Variant& value) {
  constexpr double kHighest = 99;
  const std::string text = CStr(value);
  const bool isTone = text.size() == 1 && text.find_first_of("ABCDEFabcdef") == 0;
  if (!isTone && !IsWholeNumberUpTo(text, kHighest)) return std::nullopt;
  return modCommonGlobals::ConvertToneToNumber(text);
}

/// The lowest number that no other row holds; the new one holds nothing yet.
std::int32_t LowestFree(const FieldRef& field, RecordNr newRow, std::int32_t lowest) {
  std::set<std::int32_t> used;
  for (const RecordNr row : field.Records()) {
    if (row == newRow) continue;
    if (const auto value = ValueOf(field.Value(row))) used.insert(*value);
  }
  while (used.contains(lowest)) ++lowest;
  return lowest;
}

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
                               FinalReport* beforeSave) {
  return Procedure("ValidateControlStatusTone", true, [&] {
    if (!format.empty() && system != kEverySystem) {
      return ValidateCtrlStatusTonesBySigSys(validator, kEverySystem, format, system, beforeSave);
    }
    const ProviderRef provider = validator.CurrentProvider();
    const FieldRef identities = provider.Field("29.SignalSystemId");
    bool areValid = true;
    for (const RecordNr one : identities.Records()) {
      const Variant identity = identities.Value(one);
      areValid = ValidateCtrlStatusTonesBySigSys(validator, identity, format, system, beforeSave) && areValid;
      if (!areValid && (beforeSave == nullptr || !beforeSave->LooksOn())) break;
    }
    return areValid;
  });
}

bool ValidateCtrlStatusTonesBySigSys(const ValidatorRef& validator, const Variant& identity,
                                     std::string_view format, RecordNr system, FinalReport* beforeSave) {
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
    const FinalPlace origin{"SignalSystemId_k6k", place};
    if (beforeSave != nullptr && HasTwins(provider, place)) {
      beforeSave->Refuse(
          origin,
          "Two or more Control Status Values in the same Selcall System have the same value. They "
          "must be unique before saving to file or programming a radio.");
      return false;
    }
    if (AreInRange(provider, formats, place)) return true;
    const std::string text =
        "One or more Control Status Values are outside of the allowed range. These must be updated before "
        "saving to file or programming a radio.";
    if (beforeSave == nullptr) return AskYesNo(validator, text + " Do you wish to continue?") == Button::Yes;
    beforeSave->Refuse(origin, text);
    return false;
  });
}

void UpdateFilteredGrid(FormWrites& writes, const ProviderRef& provider, RecordNr system) {
  Procedure("UpdateFilteredGrid", [&] {
    {
      const ScopedAutoUpdate silent(provider, false);
      modControlStatus::CopyFromControlUI(provider, CurrentSelcallSystem(provider));
      modControlStatus::CopyToControlUI(provider, system);
    }
    writes.Reload(kValue);
  });
}

void SortControlStatus(const ValidatorRef& validator) {
  Procedure("SortControlStatus", [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const ScopedAutoUpdate silent(provider, false);
    const RecordNr system = CurrentSelcallSystem(provider);
    modControlStatus::CopyFromControlUI(provider, system);
    modControlStatus::CopyFromIntermediateToRaw(provider);
    provider.Table("32").Sort(provider, "32.SignalSystemId|32.ValueTracker");
    modControlStatus::CopyToIntermediateFromRaw(provider);
    modControlStatus::CopyToControlUI(provider, system);
    provider.SetAutoUpdate(true);  // the form reloads whatever the state was
    validator.Messenger().RefreshField(kValue);
  });
}

bool ValidateControlStatusForm(const ValidatorRef& validator) {
  SortControlStatus(validator);
  return true;
}

bool ValidateControlStatusType(FieldEdit& edit) {
  return Procedure("ValidateControlStatusType", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const FieldRef types = provider.Field(kType);
    if (!types.HasRecord(edit.record)) return edit.PassUnchanged();
    for (const RecordNr row : types.Records()) {
      if (row == edit.record || !SameValue(types.Value(row), edit.value)) continue;
      const std::string other = CStr(provider.Field("1115.ValueTracker").Value(row));
      if (AskYesNo(edit.validator,
                   "The Control Status Type must be unique, this type has been used by Control Status Value "
                   "%0:S. %1:S Do you want to swap them?",
                   {other, kLineBreak}) != Button::Yes) {
        return false;
      }
      types.SetValue(row, types.Value(edit.record));
      types.SetValue(edit.record, edit.value);
      edit.writes.ReloadInHand(kType);
      return true;
    }
    return true;
  });
}

bool HasStatusBurst(const ProviderRef& provider) {
  const RecordNr system = CurrentSelcallSystem(provider);
  return CStr(StoredValue(provider, "RxFormat_k6k", system)).find('S') != std::string::npos;
}

void AddControlStatus(const ValidatorRef&, const ProviderRef& provider, RecordNr record) {
  Procedure("AddControlStatus", [&] {
    const FieldRef values = provider.Field("1115.ValueTracker");
    const FieldRef types = provider.Field(kType);
    const std::int32_t value = LowestFree(values, record, 1);
    // The number of the system, though its place is what the form's rows hold: nobody reads it back.
    const RecordNr system = CurrentSelcallSystem(provider);
    provider.Field("1115.SelcallID").SetValue(record, StoredValue(provider, "SignalSystemId_k6k", system));
    values.SetValue(record, std::to_string(value));
    types.SetValue(record, LowestFree(types, record, 0));
  });
}

void ValidateControlStatusesFinal(FinalReport& report) {
  {
    const ProviderRef provider = report.Provider();
    const ScopedAutoUpdate silent(provider, false);
    // Values that stand twice are looked for among those of all systems.
    modControlStatus::CopyFromControlUI(provider, CurrentSelcallSystem(provider));
  }
  ValidateControlStatusTone(report.Validator(), {}, kEverySystem, &report);
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
