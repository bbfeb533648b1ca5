#include "radioui/modAudibleIndicators.h"

#include <iterator>

#include "common/Procedure.h"
#include "platform/Conversions.h"

namespace modAudibleIndicators {
namespace {
/// The fields of one kind of call. Given by the maintainers' reference, like all that ARCHITECTURE lists as
/// given.
struct CallAlert {
  std::string_view pointer, type, duration;
};
constexpr CallAlert kCallAlerts[] = {
    {"21.Ind1CallAlertPtr", "21.Sequence1AlertType", "21.SelcallIndivCallAlertDuration1"},
    {"21.Ind2CallAlertPtr", "21.Sequence2AlertType", "21.SelcallIndivCallAlertDuration2"},
    {"21.GroupCallAlertPtr", "21.GroupCallAlertType", "21.SelcallGroupCallAlertDuration"},
    {"21.AllCallAlertPtr", "21.AllCallAlertType", "21.T99AllCallAlertDuration"},
    {"21.PriorityCallAlertPtr", "21.PriorityCallAlertType", "21.SelcallPriorityCallAlertDuration"},
    {"21.EmergencyCallAlertPtr", "21.EmergencyCallAlertType", "21.SelcallEmergencyCallAlertDuration"},
};
constexpr RecordNr kPerNetwork = std::size(kCallAlerts);

constexpr std::string_view kStoredType = "51.CallAlertType";
constexpr std::string_view kStoredDuration = "51.CallAlertInternalDuration";

/// The records of table 51 before those of a network. Far beyond all records it is an overflow.
RecordNr AlertsBefore(double network) { return RoundToLong((network - 1) * kPerNetwork); }

void CreateCallAlertRecords(const ProviderRef& provider, RecordNr network) {
  Procedure("CreateCallAlertRecords", [&] {
    const TableRef alerts = provider.Table("51");
    const RecordNr last = AlertsBefore(network + 1.0);
    for (RecordNr count = alerts.RecordCount(); count < last; ++count) {
      const RecordNr added = alerts.AppendRecord();
      provider.Field("51.CallAlertID").SetValue(added, added - 1);
    }
  });
}

/// Calls `move(form, stored, alert)` with the two fields and the record of each alert.
template <typename Move>
void MoveAlerts(const ProviderRef& provider, RecordNr network, std::string_view CallAlert::*form,
                std::string_view storedField, Move move) {
  CreateCallAlertRecords(provider, network);
  const FieldRef stored = provider.Field(storedField);
  RecordNr alert = AlertsBefore(network);
  for (const CallAlert& call : kCallAlerts) {
    provider.Field(call.pointer).SetValue(network, alert);
    move(provider.Field(call.*form), stored, ++alert);
  }
}

void ToForm(const ProviderRef& provider, RecordNr network, std::string_view CallAlert::*form,
            std::string_view storedField) {
  MoveAlerts(provider, network, form, storedField,
             [&](const FieldRef& shown, const FieldRef& stored, RecordNr alert) {
               shown.SetValue(network, stored.Value(alert));
             });
}

void FromForm(const ProviderRef& provider, RecordNr network, std::string_view CallAlert::*form,
              std::string_view storedField) {
  MoveAlerts(provider, network, form, storedField,
             [&](const FieldRef& shown, const FieldRef& stored, RecordNr alert) {
               stored.SetValue(alert, shown.Value(network));
             });
}
}  // namespace

void GetAlertDuration(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetAlertDuration", [&] { ToForm(provider, record, &CallAlert::duration, kStoredDuration); });
}

void SetAlertDuration(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetAlertDuration", [&] { FromForm(provider, record, &CallAlert::duration, kStoredDuration); });
}

void GetAlertType(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetAlertType", [&] { ToForm(provider, record, &CallAlert::type, kStoredType); });
}

void SetAlertType(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetAlertType", [&] { FromForm(provider, record, &CallAlert::type, kStoredType); });
}
}  // namespace modAudibleIndicators
