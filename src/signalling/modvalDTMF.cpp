#include "signalling/modvalDTMF.h"

#include <algorithm>
#include <array>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/StoredValues.h"
#include "common/SystemNetworks.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "signalling/SystemRecords.h"
#include "signalling/modDTMF.h"

namespace modvalDTMF {
namespace {
constexpr std::string_view kIdentity = "DTMFNetworkSigSystemID";
constexpr std::string_view kANISequence = "DTMFANISEQUENCE";
constexpr std::string_view kPreset = "DTMFPresetSequence";
constexpr std::string_view kPresetOwner = "65.DTMFChannelPresetSeqSigSysID";
constexpr std::string_view kChannelPreset = "DTMFPresetCallSequence";
constexpr std::string_view kCurrentSystem = "CurrentDTMFNr";
constexpr RecordNr kPresetsPerSystem = 10;

RecordNr CurrentSystem(const ProviderRef& provider) {
  return CLng(StoredValue(provider, kCurrentSystem, kOnly));
}

/// The number of the system on the form; empty for none.
Variant CurrentNumber(const ProviderRef& provider) {
  return StoredValue(provider, kIdentity, CurrentSystem(provider));
}

// Presets

/// The channels of the system on the form that use the preset.
std::vector<RecordNr> UsersOf(const ProviderRef& provider, const std::string& preset) {
  std::vector<RecordNr> users;
  const FieldRef sequences = provider.Field(kChannelPreset);
  const std::vector<RecordNr> networks =
      SystemNetworks::Of(provider, SignallingType::kDTMF, CurrentNumber(provider));
  for (const RecordNr channel : sequences.Records()) {
    if (!ReadsAs(sequences.Value(channel), preset)) continue;
    const RecordNr network = modProjectGlobals::GetChannelNetworkRecordNr(provider, channel);
    if (std::ranges::binary_search(networks, network)) users.push_back(channel);
  }
  return users;
}

bool ValidateChannelPresetSequence(FieldEdit& edit) {
  return Procedure("ValidateChannelPresetSequence", true, [&] {
    const std::string old = CStr(edit.Stored(kPreset, edit.record));
    const std::string sequence = CStr(edit.value);
    if (old.empty() || old == sequence) return true;
    const std::vector<RecordNr> users = UsersOf(edit.validator.CurrentProvider(), old);
    if (users.empty()) return true;
    if (AskYesNo(
            edit.validator,
            "This sequence is being used by one or more Channels.  Changing this sequence will affect all "
            "of those Channels using it. Do you still want to change the sequence?") != Button::Yes) {
      return false;
    }
    for (const RecordNr channel : users) {
      edit.writes.Set(kChannelPreset, channel, sequence.empty() ? std::string(kNone) : sequence);
    }
    return true;
  });
}

/// A key alone may stand in several rows. The walk begins at the row with the number of the system on the
/// form; wanted so.
bool IsUnique(const FieldEdit& edit) {
  const std::string sequence = CStr(edit.value);
  if (sequence.size() <= 1) return true;
  const ProviderRef provider = edit.validator.CurrentProvider();
  const FieldRef presets = provider.Field(kPreset);
  const RecordNr last = presets.RecordCount();
  for (RecordNr row = std::max(CurrentSystem(provider), 1); row <= last; ++row) {
    if (row != edit.record && ReadsAs(presets.Value(row), sequence)) return false;
  }
  return true;
}

// Records

void DeletePresets(const ProviderRef& provider, const Variant& number) {
  const TableRef table = provider.Table("65");
  const FieldRef owners = provider.Field(kPresetOwner);
  for (RecordNr preset = table.RecordCount(); preset >= modDTMF::kFirstPreset; --preset) {
    if (SameValue(owners.Value(preset), number)) table.DeleteRecord(preset);
  }
}

void GivePreset(const ProviderRef& provider, RecordNr preset, const Variant& number) {
  provider.Field(kPresetOwner).SetValue(preset, number);
  provider.Field("65.SortOrder").SetValue(preset, preset);
  provider.Field("65.DTMFChannelPresetSequenceUI").SetValue(preset, "");
}

/// Presets of a system that is not there would go to the next new one, and one with too few can not be edited
/// in all its rows.
void AlignPresets(const ProviderRef& provider) {
  const TableRef table = provider.Table("65");
  table.FillTo(modDTMF::kFirstPreset - 1);
  const FieldRef owners = provider.Field(kPresetOwner);
  const FieldRef numbers = provider.Field(kIdentity);
  for (RecordNr preset = table.RecordCount(); preset >= modDTMF::kFirstPreset; --preset) {
    if (modProjectGlobals::FindRecord(numbers, owners.Value(preset)) == 0) table.DeleteRecord(preset);
  }
  for (const Variant& number : numbers.Values()) {
    const std::vector<Variant> all = owners.Values();
    auto own = std::count_if(all.begin() + modDTMF::kFirstPreset - 1, all.end(),
                             [&](const Variant& owner) { return SameValue(owner, number); });
    for (; own < kPresetsPerSystem && table.RecordCount() < table.MaxRecords(); ++own) {
      GivePreset(provider, table.AppendRecord(), number);
    }
  }
}

/// The system that the forms show once `gone` of so many is deleted, by its record until then; 0 for none.
RecordNr HeirOf(RecordNr current, RecordNr gone, RecordNr count) {
  if (current != gone) return current;
  return gone < count ? gone + 1 : gone - 1;
}
}  // namespace

bool ValidateCurrentDTMF(FieldEdit& edit) {
  const ProviderRef provider = edit.validator.CurrentProvider();
  modDTMF::SetPresetFilteredGrid(provider);
  return modDTMF::GetPresetFilteredGrid(edit.writes, provider, CLng(edit.value));
}

bool ValidateDTMFSequence(FieldEdit& edit) {
  return Procedure("ValidateDTMFSequence", true, [&] {
    const std::string sequence = CStr(edit.value);
    if (!sequence.empty()) {
      if (sequence.front() != '-' && sequence.back() != '-') return true;
      return Refuse(edit.validator, "The DTMF Sequence can not start or end with a gap.");
    }
    if (edit.uiid != kANISequence) return true;
    const Variant number = CurrentNumber(edit.validator.CurrentProvider());
    return number.IsEmpty() || SystemNetworks::AllowEmptyANI(edit.validator, SignallingType::kDTMF, number);
  });
}

bool ValidatePresetSequence(FieldEdit& edit) {
  if (!ValidateChannelPresetSequence(edit) || !ValidateDTMFSequence(edit)) return false;
  return IsUnique(edit) ||
         Refuse(edit.validator, "The DTMF Preset Sequences must be unique in relation to each other.");
}

bool ValidateDTMFForm(const ValidatorRef& validator) {
  return Procedure("ValidateDTMFForm", true, [&] {
    modDTMF::SetPresetFilteredGrid(validator.CurrentProvider());
    FormWrites writes(validator);
    writes.Reload(kIdentity);
    writes.Reload(kPreset);
    return writes.Follow(true);
  });
}

void AppendPresets(const ValidatorRef&, const ProviderRef& provider) {
  const ScopedAutoUpdate silent(provider, false);
  AlignPresets(provider);
  const TableRef presets = provider.Table("65");
  for (RecordNr added = 0; added < kPresetsPerSystem; ++added) presets.AppendRecord();
}

void AddDTMF6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record) {
  Procedure("AddDTMF6000", [&] {
    modDTMF::SetPresetFilteredGrid(provider);  // the forms still show another system
    SystemRecords::TakeFreeNumber(provider, kIdentity, record);
    modDTMF::BlankSequences(provider, record);
    const Variant number = provider.Field(kIdentity).Value(record);
    const FieldRef owners = provider.Field(kPresetOwner);
    const RecordNr last = owners.RecordCount();
    for (RecordNr preset = modDTMF::kFirstPreset; preset <= last; ++preset) {
      const Variant owner = owners.Value(preset);
      if (!IsNumeric(owner) || SameValue(owner, 0)) GivePreset(provider, preset, number);
    }
    FormWrites writes(validator);
    writes.Set(kCurrentSystem, kOnly, record);
    modDTMF::GetPresetFilteredGrid(writes, provider, record);
    writes.Follow(true);
  });
}

bool DeleteDTMF(const ValidatorRef& validator, RecordNr system) {
  return Procedure("DeleteDTMF", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const FieldRef numbers = provider.Field(kIdentity);
    const Variant number = numbers.Value(system);
    if (!SystemNetworks::Of(provider, SignallingType::kDTMF, number).empty()) {
      return Refuse(validator,
                    "This DTMF System is being used on one or more Networks and can not be deleted");
    }
    FormWrites writes(validator);
    const RecordNr current = CurrentSystem(provider);
    const RecordNr count = numbers.RecordCount();  // the host deletes the system afterwards
    {
      const ScopedAutoUpdate silent(provider, false);
      if (current != system) modDTMF::SetPresetFilteredGrid(provider);
      DeletePresets(provider, number);
    }
    modDTMF::GetPresetFilteredGrid(writes, provider, HeirOf(current, system, count));
    const bool movesUp = current > system || (current == system && system == count && system != 1);
    if (movesUp) writes.Set(kCurrentSystem, kOnly, current - 1);
    return writes.Follow(true);
  });
}
}  // namespace modvalDTMF
