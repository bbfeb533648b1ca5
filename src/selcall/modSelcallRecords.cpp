#include "selcall/modSelcallRecords.h"

#include <algorithm>
#include <array>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/RadioCodes.h"
#include "common/RecordBlocks.h"
#include "common/modCommonGlobals.h"
#include "selcall/BurstSlots.h"
#include "selcall/modFreeFormat.h"
#include "selcall/modSelcallMapping.h"
#include "selcall/modToneSets.h"
#include "selcall/modvalSelcall.h"

namespace modSelcallRecords {
namespace {
using modvalSelcall::kIdentity;

std::array<RecordBlocks, 4> Companions(const ProviderRef& provider) {
  return {{{"48"},
           {"31"},
           {"30", BurstLayoutOf(provider).SlotsPerSystem(), 1},
           {"49", modFreeFormat::kSequencesPerSystem}}};
}

/// `newSystem` gives the new index of a system for its old one, both from 0, and -1 for none.
template <typename NewSystem>
void MoveBurstPointers(const ProviderRef& provider, const NewSystem& newSystem) {
  const std::int32_t slots = BurstLayoutOf(provider).SlotsPerSystem();
  for (const BurstUser& user : kBurstUsers) {
    MovePointers(provider.Field(user.pointer), [&](std::int32_t index) {
      if (index == 0) return index;  // no burst
      const std::int32_t system = newSystem((index - 1) / slots);
      return system < 0 ? 0 : system * slots + (index - 1) % slots + 1;
    });
  }
}

void NumberSlots(const ProviderRef& provider, RecordNr system, const Variant& identity) {
  const BurstLayout& layout = BurstLayoutOf(provider);
  const FieldRef owners = provider.Field("30.FixedFormatSigSystemID");
  const FieldRef kinds = provider.Field("30.FixedFormatBurstType");
  const FieldRef numbers = provider.Field("30.FixedFormatBurstID");
  const RecordNr last = owners.RecordCount();
  for (RecordNr slot = 1; slot <= layout.SlotsPerSystem(); ++slot) {
    const RecordNr record = layout.RecordOf(system, slot);
    if (record > last) return;
    const Burst kind = layout.KindOf(slot);
    owners.SetValue(record, identity);
    kinds.SetValue(record, static_cast<std::int32_t>(kind));
    numbers.SetValue(record, slot - layout.OffsetOf(kind) - 1);  // in its kind, until the next read
  }
}

void EmptySequence(const ProviderRef& provider, RecordNr record, const Variant& identity) {
  const auto set = [&](std::string_view field, const Variant& value) {
    provider.Field(field).SetValue(record, value);
  };
  set("49.FreeFormSigSysID", identity);
  for (const modFreeFormat::Part& part : modFreeFormat::kParts) {
    set(part.form, "");
    if (!part.IsStatus()) set(part.gap, 0);
  }
  set("49.FreeFormSequence", "");
  set("49.FreeFormSeqID", modFreeFormat::GetSequenceID(record));
  set("49.FreeFormActivateMonitor", kOff);
}

void EmptySequences(const ProviderRef& provider, RecordNr system, const Variant& identity) {
  constexpr RecordNr kEach = modFreeFormat::kSequencesPerSystem;
  const RecordNr last = std::min(system * kEach, provider.Table("49").RecordCount());
  for (RecordNr record = (system - 1) * kEach + 1; record <= last; ++record) {
    EmptySequence(provider, record, identity);
  }
  for (RecordNr place = 1; place <= kEach; ++place) {
    provider.Field(modFreeFormat::GetFreeFormatFieldName(place)).SetValue(system, "");
  }
}

void BringToneSet(const ProviderRef& provider, RecordNr system) {
  provider.Field("31.ToneSetPointer").SetValue(system, system - 1);
  modToneSets::SetSelcallToneSet(provider, "48.DerivedSelcallToneSet", system);
  for (const modToneSets::FrequencyField& field : modToneSets::kFrequencyFields) {
    modToneSets::SetSelcallTonesetDefaults(provider, field.id, system);
  }
}
}  // namespace

void AppendCompanions(const ValidatorRef&, const ProviderRef& provider) {
  const ScopedAutoUpdate silent(provider, false);
  const RecordNr systems = provider.Table("29").RecordCount();
  for (const RecordBlocks& blocks : Companions(provider)) {
    AlignBlocks(provider, blocks, systems);
    CompleteBlocks(provider, blocks, systems + 1);
  }
}

void AddSelcall6000(const ValidatorRef& validator, const ProviderRef& provider, RecordNr record) {
  Procedure("AddSelcall6000", [&] {
    const Variant identity = provider.DefaultValue(kIdentity);
    provider.Field(kIdentity).SetValue(record, identity);
    provider.Field("ToneSigSystemID").SetValue(record, identity);
    {
      const ScopedAutoUpdate silent(provider, false);
      for (const std::string_view uiid : modvalSelcall::kRxSequences) {
        const FieldRef sequence = provider.Field(uiid);
        if (modSelcallMapping::SequenceText(sequence.Value(record)).empty()) sequence.SetValue(record, "");
      }
      NumberSlots(provider, record, identity);
      EmptySequences(provider, record, identity);
      BringToneSet(provider, record);
    }
    ReloadList(validator, kIdentity);
  });
}

void DeleteCompanions(const ProviderRef& provider, RecordNr system) {
  const ScopedAutoUpdate silent(provider, false);
  for (const RecordBlocks& blocks : Companions(provider)) DeleteBlock(provider, blocks, system);
  const std::int32_t gone = system - 1;
  MovePointers(provider.Field("31.ToneSetPointer"),
               [&](std::int32_t index) { return index > gone ? index - 1 : index; });
  MoveBurstPointers(provider, [&](std::int32_t index) {
    if (index == gone) return -1;
    return index > gone ? index - 1 : index;
  });
}

void Sort(const ProviderRef& provider) {
  const ScopedAutoUpdate silent(provider, false);
  const FieldRef identities = provider.Field(kIdentity);
  const std::vector<Variant> before = identities.Values();
  provider.Table("29").Sort(provider, kIdentity);
  provider.RefreshValues("29.SignalSystemId");
  const RecordOrder order = OrderOf(before, identities.Values());
  if (std::ranges::is_sorted(order)) return;  // nothing moved
  for (const RecordBlocks& blocks : Companions(provider)) {
    CompleteBlocks(provider, blocks, static_cast<RecordNr>(order.size()));
    ReorderBlocks(provider, blocks, order);
  }
  const auto moved = [&](std::int32_t index) { return NewIndex(order, index); };
  MovePointers(provider.Field("31.ToneSetPointer"), moved);
  MoveBurstPointers(provider, moved);
}
}  // namespace modSelcallRecords
