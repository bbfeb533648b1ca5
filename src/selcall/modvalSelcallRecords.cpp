#include <algorithm>
#include <string>

#include "common/Messages.h"
#include "common/Procedure.h"
#include "common/StoredValues.h"
#include "common/SystemNetworks.h"
#include "common/modCommonGlobals.h"
#include "common/modProjectGlobals.h"
#include "platform/Conversions.h"
#include "selcall/modControlStatus.h"
#include "selcall/modSelcallRecords.h"
#include "selcall/modvalBursts.h"
#include "selcall/modvalControlStatus.h"
#include "selcall/modvalSelcall.h"

/// The systems as a set: their form, their order, and the deletion of one.
namespace modvalSelcall {
namespace {
bool AreStatusesOfOneLength(const ValidatorRef& validator, const ProviderRef& provider, RecordNr system) {
  const auto statusTones = [&](std::string_view format) {
    return modCommonGlobals::CharCount(CStr(StoredValue(provider, format, system)), 'S');
  };
  const std::int32_t sent = statusTones(kTxFormat), received = statusTones(kRxFormat);
  if (sent == 0 || received == 0 || sent == received) return true;
  return Refuse(validator, "The Rx Format and Tx Format 'S' burst are not the same length in Selcall %0:S.",
                {CStr(StoredValue(provider, kIdentity, system))});
}

/// The pointer when one of the records is gone. There is no record 0 to show.
RecordNr ShownAfterwards(RecordNr current, RecordNr left) { return std::max(std::min(current, left), 1); }
}  // namespace

bool ValidateSelcallForm(const ValidatorRef& validator, bool sort) {
  return Procedure("ValidateSelcallForm", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const RecordNr system = CurrentSelcallSystem(provider);
    const FieldRef formats = provider.Field(kRxFormat);
    const bool fits =
        !formats.HasRecord(system) || RxSequencesValid(validator, CStr(formats.Value(system)), system);
    if (fits && !AreStatusesOfOneLength(validator, provider, system)) return false;
    if (!sort) return true;
    SortSelcall(validator);
    ReloadList(validator, kIdentity);
    return true;
  });
}

void SortSelcall(const ValidatorRef& validator) {
  Procedure("SortSelcall", [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const RecordNr system = CurrentSelcallSystem(provider);
    {
      const ScopedAutoUpdate silent(provider, false);
      // The forms tell the control statuses by the places of their systems, the radio's table by their
      // numbers.
      modControlStatus::CopyFromControlUI(provider, system);
      modControlStatus::CopyFromIntermediateToRaw(provider);
      modSelcallRecords::Sort(provider);
      modControlStatus::CopyToIntermediateFromRaw(provider);
      modControlStatus::CopyToControlUI(provider, system);
    }
    modvalControlStatus::SortControlStatus(validator);
    FormWrites writes(validator);
    modvalBursts::UpdateFilteredGridsTest(writes, provider, system);
    writes.Follow(true);
  });
}

bool DeleteSelcall(const ValidatorRef& validator, RecordNr system) {
  return Procedure("DeleteSelcall", true, [&] {
    const ProviderRef provider = validator.CurrentProvider();
    const FieldRef identities = provider.Field(kIdentity);
    if (!SystemNetworks::Of(provider, SignallingType::kSelcall, identities.Value(system)).empty()) {
      return Refuse(validator,
                    "This Selcall System is being used on one or more Networks and can not be deleted");
    }
    FormWrites writes(validator);
    // Table 29 still has the system.
    const RecordNr current = CurrentSelcallSystem(provider);
    const RecordNr shown = ShownAfterwards(current, identities.RecordCount() - 1);
    modSelcallRecords::DeleteCompanions(provider, system);
    {
      const ScopedAutoUpdate silent(provider, false);
      modControlStatus::DeletedSelcallRecord(provider, system, shown);
    }
    writes.Reload("ControlStatusValue");
    if (shown != current) writes.Set("CurrentSelcallNumber", kOnly, shown);
    const RecordNr sequence = CLng(StoredValue(provider, "CurrentFreeFormRecordNr", kOnly));
    const RecordNr shownSequence = ShownAfterwards(sequence, provider.Table("49").RecordCount());
    if (shownSequence != sequence) writes.Set("CurrentFreeFormRecordNr", kOnly, shownSequence);
    modvalBursts::UpdateFilteredGridsTest(writes, provider, shown);
    return writes.Follow(true);
  });
}
}  // namespace modvalSelcall
