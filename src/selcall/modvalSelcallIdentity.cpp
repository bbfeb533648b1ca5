#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/SystemNetworks.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "selcall/modvalSelcall.h"

/// The number by which a system is known.
namespace modvalSelcall {
namespace {
/// The fields that hold the number of the system that a record belongs to, and what the forms call them.
struct Holder {
  std::string_view field;
  std::string_view uiid = {};
};
constexpr Holder kHolders[] = {{"30.FixedFormatSigSystemID"},
                               {"31.SelcallToneSignalSystemId", "ToneSigSystemID"},
                               {"32.SignalSystemId"},
                               {"49.FreeFormSigSysID", "FreeFormSigSysID"}};

void Replace(FieldEdit& edit, const ProviderRef& provider, const Holder& holder, const Variant& old) {
  const FieldRef numbers = provider.Field(holder.field);
  for (const RecordNr record : numbers.Records()) {
    if (!SameValue(numbers.Value(record), old)) continue;
    numbers.SetValue(record, edit.value);
    if (!holder.uiid.empty()) edit.writes.Reload(holder.uiid);
  }
}

void ReplaceInNetworks(FieldEdit& edit, const ProviderRef& provider, const Variant& old) {
  for (const RecordNr network : SystemNetworks::Of(provider, SignallingType::kSelcall, old)) {
    edit.writes.Set("NetworkSignallingID", network, edit.value);
  }
}

void UpdateSelcallOtherRecords(FieldEdit& edit, const ProviderRef& provider, const Variant& old) {
  Procedure("UpdateSelcallOtherRecords", [&] {
    for (const Holder& holder : kHolders) Replace(edit, provider, holder, old);
    ReplaceInNetworks(edit, provider, old);
  });
}
}  // namespace

bool ValidateSelcallID(FieldEdit& edit) {
  return Procedure("ValidateSelcallID", true, [&] {
    const ProviderRef provider = edit.validator.CurrentProvider();
    const FieldRef identities = provider.Field(kIdentity);
    for (const RecordNr system : identities.Records()) {
      if (system != edit.record && SameValue(identities.Value(system), edit.value)) return false;
    }
    const Variant old = StoredValue(provider, kIdentity, edit.record);
    if (!old.IsEmpty() && !SameValue(old, edit.value)) UpdateSelcallOtherRecords(edit, provider, old);
    return true;
  });
}
}  // namespace modvalSelcall
