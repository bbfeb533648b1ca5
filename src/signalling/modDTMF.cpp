#include "signalling/modDTMF.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "platform/Conversions.h"
#include "selcall/modSelcallMapping.h"

namespace modDTMF {
namespace {
std::string WithReplaced(std::string text, char first, char firstBecomes, char second, char secondBecomes) {
  std::replace(text.begin(), text.end(), first, firstBecomes);
  std::replace(text.begin(), text.end(), second, secondBecomes);
  return text;
}

std::string ToForm(const Variant& sequence) {
  return WithReplaced(modSelcallMapping::NumarrayToString(sequence), 'F', '*', 'E', '#');
}
ArrayObject FromForm(const Variant& keys) {
  using namespace modSelcallMapping;
  return StringToNumarray(WithReplaced(SequenceText(keys), '*', 'F', '#', 'E'));
}

constexpr struct {
  std::string_view raw, form;
} kTimings[] = {
    {"63.DTMFStandardTonePeriod", "64.DTMFStandardTonePeriod"},
    {"63.DTMFSpecialTonePeriod", "64.DTMFSpecialTonePeriod"},
    {"63.DTMFIntertoneGap", "64.DTMFIntertoneGap"},
    {"63.DTMFLeadInDelay", "64.DTMFLeadInDelay"},
    {"63.DTMFFirstTonePeriodMultiplier", "64.DTMFFirstTonePeriodMultiplier"},
    {"63.DTMFLeadOutDelay", "64.DTMFLeadOutDelay"},
};

/// A type of table 66 and its form field; type 5 has none.
struct NetworkSequence {
  std::int32_t type;
  std::string_view form;
};
constexpr NetworkSequence kNetworkSequences[] = {
    {0, "64.DTMFNetworkSequence1"}, {1, "64.DTMFNetworkSequence2"}, {2, "64.DTMFNetworkSequence3"},
    {3, "64.DTMFNetworkSequence4"}, {4, "64.DTMFANISequence"},      {6, "64.DTMFEmergSequence"},
};

/// Null for a type that no field shows.
const NetworkSequence* FindSequence(const Variant& type) {
  const auto* found = std::ranges::find_if(
      kNetworkSequences, [&](const NetworkSequence& sequence) { return SameValue(type, sequence.type); });
  return found == std::end(kNetworkSequences) ? nullptr : found;
}

void TimingsToForm(const ProviderRef& provider, RecordNr system) {
  // The record number of a system differs from its pointer after one before it was deleted.
  const std::int32_t pointer = CLng(provider.Field("64.DTMFNetworkToneSetupRecord").Value(system));
  if (pointer < 0 || pointer >= provider.Table("63").RecordCount()) return;
  for (const auto& timing : kTimings) {
    provider.Field(timing.form).SetValue(system, provider.Field(timing.raw).Value(pointer + 1));
  }
}

void TimingsFromForm(const ProviderRef& provider, RecordNr system) {
  const RecordNr added = provider.Table("63").AppendRecord();
  for (const auto& timing : kTimings) {
    provider.Field(timing.raw).SetValue(added, provider.Field(timing.form).Value(system));
  }
  provider.Field("64.DTMFNetworkToneSetupRecord").SetValue(system, added - 1);
}

void SequencesToForm(const ProviderRef& provider, RecordNr system) {
  BlankSequences(provider, system);
  const Variant identity = provider.Field("64.DTMFNetworkSigSystemID").Value(system);
  const FieldRef owner = provider.Field("66.DTMFNetworkPresetSeqSigSysID");
  const FieldRef type = provider.Field("66.DTMFNetworkPresetSeqType");
  const FieldRef raw = provider.Field("66.DTMFNetworkPresetSequence");
  for (const RecordNr stored : owner.Records()) {
    if (!SameValue(owner.Value(stored), identity)) continue;
    const NetworkSequence* sequence = FindSequence(type.Value(stored));
    if (sequence != nullptr) provider.Field(sequence->form).SetValue(system, ToForm(raw.Value(stored)));
  }
}

/// Calls `take(preset)` for each preset of the system with the number, until it is false.
template <typename Take>
void ForPresetsOf(const ProviderRef& provider, const Variant& number, Take take) {
  const FieldRef owners = provider.Field("65.DTMFChannelPresetSeqSigSysID");
  const RecordNr last = owners.RecordCount();
  for (RecordNr preset = kFirstPreset; preset <= last; ++preset) {
    if (SameValue(owners.Value(preset), number) && !take(preset)) return;
  }
}

constexpr std::string_view kPreset = "65.DTMFChannelPresetSequenceUI";
constexpr std::string_view kShownPreset = "1098.DTMFPresetSequence";

constexpr std::int32_t kPatchesPerNetwork = 4;

/// The number of a patch, 1 to 4, stands behind the name of its form field.
constexpr struct {
  std::string_view raw, form;
} kPatchFields[] = {
    {"68.DTMFPatchSeqSequence", "67.DTMFPatchSequence"},
    {"68.DTMFPatchSeqLineCapturedSeq", "67.DTMFPatchLineCapturedSeq"},
    {"68.DTMFPatchSeqLineReleaseSeq", "67.DTMFPatchLineReleaseSeq"},
};

FieldRef PatchField(const ProviderRef& provider, std::string_view form, std::int32_t patch) {
  return provider.Field(std::string(form) + std::to_string(patch));
}

/// Raises 6 for a network beyond all tables.
RecordNr PatchRecord(RecordNr network, std::int32_t patch) {
  return RoundToLong((network - 1.0) * kPatchesPerNetwork + patch);
}

/// Table 68 has that record afterwards. In a walk over all networks it is the next one; a network that is
/// stored alone, after an edit, finds its own.
void ProvidePatchRecord(const ProviderRef& provider, RecordNr record) { provider.Table("68").FillTo(record); }

/// Tables of a damaged file end at different networks: a record that is missing is left out.
void CopyNetworkNumber(const ProviderRef& provider, RecordNr network, std::string_view field, RecordNr first,
                       RecordNr last) {
  const FieldRef number = provider.Field("21.NetworkIDTracker");
  if (!number.HasRecord(network)) return;
  const std::int32_t value = CLng(number.Value(network));
  const FieldRef copy = provider.Field(field);
  const RecordNr end = std::min(last, copy.RecordCount());
  for (RecordNr record = first; record <= end; ++record) copy.SetValue(record, value);
}

void CopyNumberToPatches(const ProviderRef& provider, RecordNr network) {
  CopyNetworkNumber(provider, network, "68.DTMFPatchSeqNetworkID", PatchRecord(network, 1),
                    PatchRecord(network, kPatchesPerNetwork));
}

void PatchFromForm(const ProviderRef& provider, RecordNr network, std::int32_t patch) {
  const RecordNr record = PatchRecord(network, patch);
  for (const auto& field : kPatchFields) {
    const Variant keys = PatchField(provider, field.form, patch).Value(network);
    provider.Field(field.raw).SetValue(record, FromForm(keys));
  }
  provider.Field("68.DTMFPatchSeqSequenceType").SetValue(record, patch - 1);
}

void PatchToForm(const ProviderRef& provider, RecordNr network, std::int32_t patch, RecordNr stored) {
  const RecordNr record = PatchRecord(network, patch);
  for (const auto& field : kPatchFields) {
    const bool isStored = record <= stored;
    const std::string keys = isStored ? ToForm(provider.Field(field.raw).Value(record)) : std::string();
    PatchField(provider, field.form, patch).SetValue(network, keys);
  }
}
}  // namespace

void GetDTMF(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetDTMF", [&] {
    for (const RecordNr system : provider.Table("64").Records()) {
      TimingsToForm(provider, system);
      SequencesToForm(provider, system);
    }
  });
}

void SetDTMF(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetDTMF", [&] {
    provider.ClearTable("66");
    provider.ClearTable("63");
    for (const RecordNr system : provider.Table("64").Records()) {
      TimingsFromForm(provider, system);
      for (const auto& [type, form] : kNetworkSequences) {
        SetNewDTMFNetworkSequence(provider, form, type, system);
      }
    }
  });
}

void SetNewDTMFNetworkSequence(const ProviderRef& provider, std::string_view fieldName, std::int32_t type,
                               RecordNr record) {
  Procedure("SetNewDTMFNetworkSequence", [&] {
    const RecordNr added = provider.Table("66").AppendRecord();
    const Variant identity = provider.Field("64.DTMFNetworkSigSystemID").Value(record);
    provider.Field("66.DTMFNetworkPresetSeqSigSysID").SetValue(added, identity);
    provider.Field("66.DTMFNetworkPresetSeqType").SetValue(added, type);
    const Variant keys = provider.Field(fieldName).Value(record);
    provider.Field("66.DTMFNetworkPresetSequence").SetValue(added, FromForm(keys));
  });
}

void GetPatchSequences(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetPatchSequences", [&] {
    const RecordNr stored = provider.Table("68").RecordCount();
    for (std::int32_t patch = 1; patch <= kPatchesPerNetwork; ++patch) {
      PatchToForm(provider, record, patch, stored);
    }
    CopyNumberToPatches(provider, record);
    CopyNetworkNumber(provider, record, "72.DTMFPatchTonesNetworkID", record, record);
  });
}

void SetPatchSequences(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetPatchSequences", [&] {
    if (record == 1) provider.ClearTable("68");
    ProvidePatchRecord(provider, PatchRecord(record, kPatchesPerNetwork));
    for (std::int32_t patch = 1; patch <= kPatchesPerNetwork; ++patch) {
      PatchFromForm(provider, record, patch);
    }
    CopyNumberToPatches(provider, record);
    provider.Field("67.DTMFPatchToneSetupPointer").SetValue(record, record - 1);
  });
}

void GetChannelPreset(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetChannelPreset", [&] {
    const FieldRef raw = provider.Field("65.DTMFChannelPresetSequence");
    const FieldRef form = provider.Field(kPreset);
    const FieldRef sortOrder = provider.Field("65.SortOrder");
    for (const RecordNr preset : raw.Records()) {
      form.SetValue(preset, ToForm(raw.Value(preset)));
      sortOrder.SetValue(preset, preset);
    }
  });
}

void SetChannelPreset(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetChannelPreset", [&] {
    const FieldRef raw = provider.Field("65.DTMFChannelPresetSequence");
    const FieldRef form = provider.Field(kPreset);
    for (const RecordNr preset : form.Records()) {
      raw.SetValue(preset, FromForm(form.Value(preset)));
    }
  });
}

bool GetPresetFilteredGrid(FormWrites& writes, const ProviderRef& provider, RecordNr record) {
  return Procedure("GetPresetFilteredGrid", true, [&] {
    {
      const ScopedAutoUpdate silent(provider, false);  // that the grid is filled is nobody's edit
      provider.ClearTable("1098");
      const Variant number = StoredValue(provider, "64.DTMFNetworkSigSystemID", record);
      const TableRef grid = provider.Table("1098");
      const FieldRef presets = provider.Field(kPreset);
      const FieldRef shown = provider.Field(kShownPreset);
      if (!number.IsEmpty()) {
        ForPresetsOf(provider, number, [&](RecordNr preset) {
          shown.SetValue(grid.AppendRecord(), presets.Value(preset));
          return true;
        });
      }
    }
    writes.Reload("DTMFPresetSequence");
    return true;
  });
}

bool SetPresetFilteredGrid(const ProviderRef& provider) {
  return Procedure("SetPresetFilteredGrid", true, [&] {
    const FieldRef shown = provider.Field(kShownPreset);
    const RecordNr rows = shown.RecordCount();
    const RecordNr current = CLng(StoredValue(provider, "CurrentDTMFNr", kOnly));
    const Variant number = StoredValue(provider, "64.DTMFNetworkSigSystemID", current);
    if (rows == 0 || number.IsEmpty()) return true;
    const FieldRef presets = provider.Field(kPreset);
    RecordNr row = 0;
    ForPresetsOf(provider, number, [&](RecordNr preset) {
      presets.SetValue(preset, shown.Value(++row));
      return row < rows;
    });
    return true;
  });
}

void BlankSequences(const ProviderRef& provider, RecordNr system) {
  for (const NetworkSequence& sequence : kNetworkSequences) {
    provider.Field(sequence.form).SetValue(system, "");
  }
}
}  // namespace modDTMF
