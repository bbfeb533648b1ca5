#include "networks/modNetworks.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modNetworks {
namespace {
/// The field that a network's identity is read from: that of the systems, which for Selcall has a raw
/// twin that is right before any conversion.
std::string_view StoredIdentityField(std::int32_t type) {
  return type == SignallingType::kSelcall ? "29.SelcallID" : modProjectGlobals::SystemIdentityField(type);
}

std::string IdentityText(const ProviderRef& provider, std::int32_t type, std::int32_t index) {
  const std::string_view name = StoredIdentityField(type);
  if (name.empty()) return std::string(kNone);
  return CStr(ValueAtIndex(provider.Field(name), index));
}

struct TypeFacts {
  std::int32_t type;
  std::string_view text;
  std::string_view ani = {}, emergency = {};  ///< sequences of its systems
};
constexpr TypeFacts kSignallingTypes[] = {
    {SignallingType::kNone, kNone},
    {SignallingType::kSelcall, "Selcall", "FreeFormSequence5", "FreeFormSequence7"},
    {SignallingType::kDTMF, "DTMF", "DTMFANISequence", "DTMFEmergSequence"},
    {SignallingType::kTwoTone, "Two-Tone"},
    {SignallingType::kMDC1200, "MDC1200", "MDC1200ANISequence", "MDC1200EmergencySequence"},
};

/// One fact of a type; empty for a type that the radio does not have.
std::string_view FactOf(std::int32_t type, std::string_view TypeFacts::*fact) {
  const auto* row = std::ranges::find(kSignallingTypes, type, &TypeFacts::type);
  return row == std::end(kSignallingTypes) ? std::string_view() : row->*fact;
}

/// The two switches of a press or a release, and the code of an ANI that is on.
struct PTTSwitches {
  std::string_view ani, tone;
  std::int32_t aniOn;
};
constexpr PTTSwitches kPress = {"21.LeadingANI", "21.PTTPressRepeaterAccessTone", 2};
constexpr PTTSwitches kRelease = {"21.TrailingANI", "21.AutoOverBeep", kOn};

/// None for switches that no choice of the form stands for.
std::optional<std::int32_t> ChoiceOf(const PTTSwitches& switches, const ProviderRef& provider,
                                     RecordNr record) {
  if (IsCode(provider.Field(switches.ani).Value(record), switches.aniOn)) return SignallingOnPTT::kANI;
  const Variant tone = provider.Field(switches.tone).Value(record);
  if (IsCode(tone, kOff)) return SignallingOnPTT::kNone;
  if (IsCode(tone, kOn)) return SignallingOnPTT::kTone;
  return std::nullopt;
}

void SwitchesToForm(const PTTSwitches& switches, const ProviderRef& provider, std::string_view fieldId,
                    RecordNr record) {
  if (const auto choice = ChoiceOf(switches, provider, record)) {
    provider.Field(fieldId).SetValue(record, *choice);
  }
}

void FormToSwitches(const PTTSwitches& switches, const ProviderRef& provider, std::string_view fieldId,
                    RecordNr record) {
  const Variant choice = provider.Field(fieldId).Value(record);
  const bool isKnown = IsCode(choice, SignallingOnPTT::kNone) || IsCode(choice, SignallingOnPTT::kANI) ||
                       IsCode(choice, SignallingOnPTT::kTone);
  if (!isKnown) return;
  provider.Field(switches.ani)
      .SetValue(record, IsCode(choice, SignallingOnPTT::kANI) ? switches.aniOn : kOff);
  provider.Field(switches.tone).SetValue(record, IsCode(choice, SignallingOnPTT::kTone) ? kOn : kOff);
}
}  // namespace

bool IsKD4410Tier(std::string_view name) { return name == "KD4410"; }

bool IsKE2210Tier(std::string_view name) { return name == "KE2210 Tx" || name == "KE2210 Rx"; }

bool IsKnownTier(std::string_view name) { return IsKD4410Tier(name) || IsKE2210Tier(name); }

void GetSystemID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetSystemID", [&] {
    const std::string number = CStr(provider.Field("21.NetworkPointer").Value(record));
    provider.Field(fieldId).SetValue(record, number);
    const FieldRef emergency = provider.Field("EmNetworkID");
    if (emergency.HasRecord(record)) emergency.SetValue(record, number);  // the table may be too short
  });
}

void SetSystemID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSystemID", [&] {
    const std::int32_t number = CLng(provider.Field(fieldId).Value(record));
    provider.Field("21.NetworkPointer").SetValue(record, number);
    // Some versions store the number twice. The plain name is that of the form field.
    if (provider.HasField("21.NetworkID")) provider.Field("21.NetworkID").SetValue(record, number);
    provider.Field("21.SIBTPointer").SetValue(record, record - 1);
  });
}

void GetNetworkSignallingID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetNetworkSignallingID", [&] {
    const std::int32_t index = CLng(provider.Field("21.SignallingPointer").Value(record));
    const std::int32_t type = CLng(provider.Field("21.SignallingType").Value(record));
    provider.Field(fieldId).SetValue(record, IdentityText(provider, type, index));
  });
}

void SetNetworkSignallingID(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetNetworkSignallingID", [&] {
    const std::int32_t type = CLng(provider.Field("21.SignallingType").Value(record));
    const std::string identity = CStr(provider.Field(fieldId).Value(record));
    std::int32_t index = 0;
    if (!modProjectGlobals::SystemIdentityField(type).empty() && identity != kNone) {
      index = modProjectGlobals::SigSysRecordNr(provider, type, identity, false);
    }
    provider.Field("21.SignallingPointer").SetValue(record, index);
  });
}

void GetSignallingOnPTTPress(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetSignallingOnPTTPress", [&] { SwitchesToForm(kPress, provider, fieldId, record); });
}

void SetSignallingOnPTTPress(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSignallingOnPTTPress", [&] { FormToSwitches(kPress, provider, fieldId, record); });
}

void GetSignallingOnPTTRelease(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetSignallingOnPTTRelease", [&] { SwitchesToForm(kRelease, provider, fieldId, record); });
}

void SetSignallingOnPTTRelease(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetSignallingOnPTTRelease", [&] { FormToSwitches(kRelease, provider, fieldId, record); });
}

std::string_view SignallingTypeText(std::int32_t type) { return FactOf(type, &TypeFacts::text); }

std::string_view ANISequenceField(std::int32_t type) { return FactOf(type, &TypeFacts::ani); }

std::string_view EmergencySequenceField(std::int32_t type) { return FactOf(type, &TypeFacts::emergency); }

std::string SequenceOf(const ProviderRef& provider, std::int32_t type, const Variant& identity,
                       std::string_view sequenceField) {
  const RecordNr system = modProjectGlobals::SigSysRecordNr(provider, type, identity, true);
  return CStr(StoredValue(provider, sequenceField, system));
}

void GetEmergencyType(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetEmergencyType", [&] {
    const FieldRef types = provider.Field("21.SignallingType");
    if (!types.HasRecord(record)) return;  // of no network: the table is too long
    const std::string_view text = SignallingTypeText(CLng(types.Value(record)));
    if (!text.empty()) provider.Field(fieldId).SetValue(record, text);
  });
}

void SetEmergencyType(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetEmergencyType", [&] {
    const std::string text = CStr(provider.Field(fieldId).Value(record));
    for (const auto& row : kSignallingTypes) {
      if (row.text == text) provider.Field("53.SignallingType").SetValue(record, row.type);
    }
  });
}

void SetEmergencyMaximumCyclingTime(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetEmergencyMaximumCyclingTime", [&] {
    const auto number = [&](std::string_view field) { return CDbl(provider.Field(field).Value(record)); };
    const bool isFixedNumber = IsCode(provider.Field("EmCyclingType").Value(record), EmCycling::kFixedNumber);
    provider.Field("EmCyclingMaxTime")
        .SetValue(record, MaximumCyclingTime(isFixedNumber, number("EmCyclingRxTime"),
                                             number("EmCyclingTxTime"), number("EmCyclingNumber")));
  });
}

Variant MaximumCyclingTime(bool isFixedNumber, double rxTime, double txTime, double cycles) {
  return isFixedNumber ? Variant(RoundToLong((rxTime + txTime) * cycles)) : Variant("-");
}
}  // namespace modNetworks
