#include "compat/VersionStep.h"

#include <algorithm>
#include <string>

#include "common/modCommonGlobals.h"
#include "platform/Conversions.h"

void VersionStep::Show(std::string_view message, std::string_view title, Parameters parameters) const {
  tier_.Messenger().ShowMessage(message, MessageStyle::kExclamation, title,
                                modCommonGlobals::MakeParamString(parameters));
}

void VersionStep::Warn(std::string_view message) const { Show(message, "Warning", {}); }

bool VersionStep::Refuse(std::string_view message, Parameters parameters) const {
  Show(message, "Error", parameters);
  return false;
}

std::optional<FieldRef> VersionStep::Readable(std::string_view field) const {
  if (destination_.HasField(field)) return destination_.Field(field);
  if (source_.HasField(field)) return source_.Field(field);
  return {};
}

std::optional<FieldRef> VersionStep::Writable(std::string_view field) const {
  if (!destination_.HasField(field)) return {};
  return destination_.Field(field);
}

bool VersionStep::Holds(std::string_view field, std::int32_t code) const {
  const auto readable = Readable(field);
  return readable && readable->HasRecord(kOnly) && IsCode(readable->Value(kOnly), code);
}

void VersionStep::Set(std::string_view field, RecordNr record, const Variant& value) const {
  const auto writable = Writable(field);
  if (writable && writable->HasRecord(record)) writable->SetValue(record, value);
}

void VersionStep::ChangeEach(std::string_view field,
                             const std::function<std::int32_t(std::int32_t)>& change) const {
  const auto writable = Writable(field);
  if (!writable) return;
  for (const RecordNr record : writable->Records()) {
    const std::int32_t before = CLng(writable->Value(record));
    const std::int32_t after = change(before);
    if (after != before) writable->SetValue(record, after);
  }
}

void VersionStep::ReplaceEach(std::initializer_list<std::string_view> fields, std::int32_t old,
                              std::int32_t code, std::string_view warning) const {
  const auto writable = Writable(*fields.begin());
  if (!writable) return;
  for (const RecordNr record : writable->Records()) {
    if (CLng(writable->Value(record)) != old) continue;
    Warn(warning);
    for (const std::string_view field : fields) Set(field, record, code);
  }
}

void VersionStep::TakeForNetworks(std::string_view field, const ProviderRef& from,
                                  std::string_view fromField) const {
  const auto to = Writable(field);
  if (!to || !from.HasField(fromField)) return;
  const FieldRef values = from.Field(fromField);
  const RecordNr count = std::min(to->RecordCount(), values.RecordCount());
  for (const RecordNr network : RecordRange(count)) to->SetValue(network, values.Value(network));
}

void VersionStep::CutToNetworks(std::string_view tableId) const {
  const RecordNr networks = destination_.Table("21").RecordCount();
  const TableRef table = destination_.Table(tableId);
  for (RecordNr record = table.RecordCount(); record > networks; --record) table.DeleteRecord(record);
}

bool VersionStep::SourceHolds(std::string_view field, std::initializer_list<std::int32_t> codes) const {
  if (!source_.HasField(field)) return false;
  const std::vector<Variant> values = source_.Field(field).Values();
  return std::ranges::any_of(values, [&](const Variant& value) {
    return IsNumeric(value) && std::ranges::find(codes, CLng(value)) != codes.end();
  });
}

bool VersionStep::IsBelowLimit(std::string_view field, std::int32_t& limit) const {
  if (!source_.HasField(field) || !destination_.HasField(field)) return false;
  const FieldRef target = destination_.Field(field);
  limit = target.Minimum();
  const double lowest = limit * target.Scale();
  const std::vector<Variant> values = source_.Field(field).Values();
  return std::ranges::any_of(values, [&](const Variant& value) { return CDbl(value) < lowest; });
}
