#include <iterator>
#include <string>

#include "common/Procedure.h"
#include "platform/Conversions.h"
#include "radioui/AudibleIndicatorTables.h"
#include "radioui/modAudibleIndicators.h"

namespace modAudibleIndicators {
namespace {
using AudibleIndicators::CallAlert;
using AudibleIndicators::kCallAlerts;

constexpr RecordNr kPerNetwork = std::size(kCallAlerts);

constexpr std::string_view kStoredType = "51.CallAlertType";
constexpr std::string_view kStoredDuration = "51.CallAlertInternalDuration";
constexpr std::string_view kStoredExternal = "51.CallAlertExternalAlertType";

/// The two external alerts, by their records in table 52 less 1: every call alert points at both.
constexpr std::int32_t kFirstExternal = 0, kSecondExternal = 1;

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

void PointAtExternalAlerts(const ProviderRef& provider, RecordNr network) {
  const FieldRef first = provider.Field("51.CallAlertExternalAlert1Pointer");
  const FieldRef second = provider.Field("51.CallAlertExternalAlert2Pointer");
  const RecordNr last = AlertsBefore(network + 1.0);
  for (RecordNr alert = AlertsBefore(network) + 1; alert <= last; ++alert) {
    first.SetValue(alert, kFirstExternal);
    second.SetValue(alert, kSecondExternal);
  }
}

/// What an external alert has: the forms show it in a field of table 0 for each, by the number of its record.
struct ExternalAlertField {
  std::string_view stored, shown;
};
constexpr ExternalAlertField kExternalAlertFields[] = {
    {"52.ExternalAlertDelay", "0.ExternalAlertDelay"},
    {"52.ExternalAlertDuration", "0.ExternalAlertDuration"},
    {"52.ExternalAlertMode", "0.ExternalAlertMode"},
};

/// Calls `move(shown, stored, alert)` for each of them and each external alert.
template <typename Move>
void MoveExternalAlerts(const ProviderRef& provider, Move move) {
  for (const auto& [storedField, shownField] : kExternalAlertFields) {
    const FieldRef stored = provider.Field(storedField);
    for (const RecordNr alert : stored.Records()) {
      move(provider.Field(std::string(shownField) + std::to_string(alert)), stored, alert);
    }
  }
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

void GetAudibleIndicators(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("GetAudibleIndicators", [&] {
    CreateCallAlertRecords(provider, record);
    MoveExternalAlerts(provider, [](const FieldRef& shown, const FieldRef& stored, RecordNr alert) {
      shown.SetValue(kOnly, stored.Value(alert));
    });
    ToForm(provider, record, &CallAlert::external, kStoredExternal);
    PointAtExternalAlerts(provider, record);
  });
}

void SetAudibleIndicators(const ProviderRef& provider, std::string_view, RecordNr record) {
  Procedure("SetAudibleIndicators", [&] {
    CreateCallAlertRecords(provider, record);
    MoveExternalAlerts(provider, [](const FieldRef& shown, const FieldRef& stored, RecordNr alert) {
      stored.SetValue(alert, shown.Value(kOnly));
    });
    FromForm(provider, record, &CallAlert::external, kStoredExternal);
    PointAtExternalAlerts(provider, record);
  });
}
}  // namespace modAudibleIndicators
