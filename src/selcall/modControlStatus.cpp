#include "selcall/modControlStatus.h"

#include <string>

#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"

namespace modControlStatus {
namespace {
constexpr std::string_view kRaw = "32", kAll = "1111", kShown = "1115";

/// A table of control statuses; `owner` is the field that tells the system.
class Statuses {
 public:
  Statuses(const ProviderRef& provider, std::string_view table, std::string_view owner)
      : table_(provider.Table(table)), owner_(provider.Field(owner)) {
    for (const std::string_view name : {"ValueTracker", "Type", "Rx", "Tx"}) {
      fields_.push_back(provider.Field(std::string(table) + "." + std::string(name)));
    }
  }

  RecordRange Rows() const { return RecordRange(table_.RecordCount()); }
  Variant OwnerOf(RecordNr row) const { return owner_.Value(row); }
  bool IsOf(RecordNr row, RecordNr system) const { return SameValue(OwnerOf(row), system); }

  void Append(const Variant& owner, const Statuses& from, RecordNr row) const {
    const RecordNr added = table_.AppendRecord();
    owner_.SetValue(added, owner);
    for (std::size_t i = 0; i < fields_.size(); ++i) fields_[i].SetValue(added, from.fields_[i].Value(row));
  }
  void Delete(RecordNr system) const {
    for (RecordNr row = table_.RecordCount(); row > 0; --row) {
      if (IsOf(row, system)) table_.DeleteRecord(row);
    }
  }
  void MoveUpBehind(RecordNr system) const {
    for (const RecordNr row : Rows()) {
      const std::int32_t place = CLng(OwnerOf(row));
      if (place > system) owner_.SetValue(row, place - 1);
    }
  }

 private:
  TableRef table_;
  FieldRef owner_;
  std::vector<FieldRef> fields_;
};

Statuses RawOf(const ProviderRef& provider) { return {provider, kRaw, "32.SignalSystemId"}; }
Statuses AllOf(const ProviderRef& provider) { return {provider, kAll, "1111.SelcallID"}; }
Statuses ShownOf(const ProviderRef& provider) { return {provider, kShown, "1115.SelcallID"}; }

bool IsOfRadio(std::string_view fieldId) { return modCommonGlobals::SplitFieldId(fieldId).first == kRaw; }
}  // namespace

void GetControlStatus(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("GetControlStatus", [&] {
    if (!IsOfRadio(fieldId)) return;
    provider.Field("32.ValueTracker").SetValue(record, CLng(provider.Field("32.Value").Value(record)));
  });
}

void SetControlStatus(const ProviderRef& provider, std::string_view fieldId, RecordNr record) {
  Procedure("SetControlStatus", [&] {
    if (!IsOfRadio(fieldId)) return;
    provider.Field("32.Value").SetValue(record, CStr(provider.Field("32.ValueTracker").Value(record)));
  });
}

void GetGenerateControlStatus(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("GetGenerateControlStatus", [&] {
    constexpr RecordNr kFirst = 1;
    CopyToIntermediateFromRaw(provider);
    CopyToControlUI(provider, kFirst);
  });
}

void SetGenerateControlStatus(const ProviderRef& provider, std::string_view, RecordNr) {
  Procedure("SetGenerateControlStatus", [&] {
    CopyFromControlUI(provider, CurrentSelcallSystem(provider));
    CopyFromIntermediateToRaw(provider);
  });
}

void CopyToIntermediateFromRaw(const ProviderRef& provider) {
  Procedure("CopyToIntermediateFromRaw", [&] {
    provider.ClearTable(kAll);
    const Statuses raw = RawOf(provider);
    const Statuses all = AllOf(provider);
    Variant identity;
    RecordNr system = 0;
    for (const RecordNr row : raw.Rows()) {
      const Variant owner = raw.OwnerOf(row);
      if (row == 1 || !SameValue(owner, identity)) {
        system = modProjectGlobals::SigSysRecordNr(provider, SignallingType::kSelcall, owner, true);
        identity = owner;
      }
      if (system == 0) return;
      all.Append(system, raw, row);
    }
  });
}

void CopyFromIntermediateToRaw(const ProviderRef& provider) {
  Procedure("CopyFromIntermediateToRaw", [&] {
    provider.ClearTable(kRaw);
    const Statuses raw = RawOf(provider);
    const Statuses all = AllOf(provider);
    const FieldRef identities = provider.Field("29.SignalSystemId");
    for (const RecordNr system : identities.Records()) {
      for (const RecordNr row : all.Rows()) {
        if (all.IsOf(row, system)) raw.Append(identities.Value(system), all, row);
      }
    }
  });
}

void CopyToControlUI(const ProviderRef& provider, RecordNr system) {
  Procedure("CopyToControlUI", [&] {
    provider.ClearTable(kShown);
    const Statuses all = AllOf(provider);
    const Statuses shown = ShownOf(provider);
    for (const RecordNr row : all.Rows()) {
      if (all.IsOf(row, system)) shown.Append(std::to_string(system), all, row);
    }
  });
}

void CopyFromControlUI(const ProviderRef& provider, RecordNr system) {
  Procedure("CopyFromControlUI", [&] {
    const Statuses all = AllOf(provider);
    const Statuses shown = ShownOf(provider);
    all.Delete(system);
    for (const RecordNr row : shown.Rows()) all.Append(system, shown, row);
  });
}

void DeletedSelcallRecord(const ProviderRef& provider, RecordNr system, RecordNr shownAfterwards) {
  Procedure("DeletedSelcallRecord", [&] {
    const RecordNr current = CurrentSelcallSystem(provider);
    // Before the places change: else the edits of the system shown would be lost.
    if (current != system) CopyFromControlUI(provider, current);
    const Statuses all = AllOf(provider);
    all.Delete(system);
    all.MoveUpBehind(system);
    CopyToControlUI(provider, shownAfterwards);
  });
}
}  // namespace modControlStatus
