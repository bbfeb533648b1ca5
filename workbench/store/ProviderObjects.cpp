#include "workbench/store/ProviderObjects.h"

#include "platform/Border.h"
#include "workbench/files/TabbedFile.h"
#include "workbench/store/ValueLists.h"

namespace {
[[noreturn]] void RaiseUnknown(const char* what, std::string_view name, const char* reason = "") {
  throw Error(ErrorNumber::kInvalidCall, "Provider",
              "Unknown " + std::string(what) + ": " + std::string(name) + reason);
}
}  // namespace

std::string CallName(const char* operation, std::string_view what) {
  std::string name = operation;
  if (!what.empty()) name.append(" ").append(what);
  return name;
}

ProviderState::ProviderState(std::shared_ptr<const Schema> schema) : records(std::move(schema)) {
  fields.reserve(GetSchema().Fields().size());
  for (const SchemaField& field : GetSchema().Fields()) fields.emplace_back(*this, field);
  tables.reserve(GetSchema().Tables().size());
  for (const SchemaTable& table : GetSchema().Tables()) tables.emplace_back(*this, table);
}

const SchemaField& ProviderState::FieldOf(std::string_view name) const {
  const SchemaField* field = GetSchema().Find(name);
  if (field == nullptr) [[unlikely]] {
    RaiseUnknown("field", name, GetSchema().IsAmbiguous(name) ? " (several tables have it)" : "");
  }
  return *field;
}

const SchemaTable& ProviderState::TableOf(std::string_view tableId) const {
  if (const auto number = ParseInteger(tableId)) {
    if (const SchemaTable* table = GetSchema().FindTable(*number)) return *table;
  } else if (const SchemaField* field = GetSchema().Find(tableId)) {
    return GetSchema().TableOf(*field);
  }
  RaiseUnknown("table", tableId);
}

const std::shared_ptr<FreeValueList>& ProviderState::FreeValuesOf(const SchemaField& field) {
  if (freeValuesMade_ != records.Changes()) freeValues_.clear();
  freeValuesMade_ = records.Changes();
  std::shared_ptr<FreeValueList>& list = freeValues_[field.index];
  if (list == nullptr) list = std::make_shared<FreeValueList>(records, field);
  return list;
}

template <typename Work>
Status FieldObject::Call(const char* operation, Work work) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Other, [&] { return CallName(operation, field_.id); });
    work();
  });
}

Status FieldObject::TransformId(std::int32_t& out) {
  return Call("Ifield.TransformId", [&] { out = field_.transform; });
}

Status FieldObject::Default(Variant& out) {
  return Call("Ifield.Default", [&] { out = state_.records.NewValueOf(field_); });
}

Status FieldObject::Name(std::string& out) {
  return Call("Ifield.Name", [&] { out = field_.Name(); });
}

Status FieldObject::TableNumber(std::int32_t& out) {
  return Call("Ifield.TableNumber", [&] { out = field_.table; });
}

Status FieldObject::Maximum(std::int32_t& out) {
  return Call("Ifield.Maximum", [&] { out = field_.maximum; });
}

Status FieldObject::Minimum(std::int32_t& out) {
  return Call("Ifield.Minimum", [&] { out = field_.minimum; });
}

Status FieldObject::ListCount(std::int32_t& out) {
  return Call("Ifield.ListCount", [&] { out = state_.FreeValuesOf(field_)->Size(); });
}

Status FieldObject::Scale(Currency& out) {
  return Call("Ifield.Scale", [&] { out = field_.scale; });
}

Status FieldObject::RecordCount(RecordNr& out) {
  return Call("Ifield.RecordCount", [&] { out = state_.records.Count(state_.GetSchema().TableOf(field_)); });
}

Status FieldObject::Value(RecordNr record, Variant& out) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Read,
                          [&] { return "Ifield.Value " + field_.id + "[" + std::to_string(record) + "]"; });
    out = state_.records.Get(field_, record);
  });
}

Status FieldObject::SetValue(RecordNr record, const Variant& value) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Write, [&] {
      return "Ifield.SetValue " + field_.id + "[" + std::to_string(record) + "]";
    });
    state_.records.Take(field_, record, value);
  });
}

Status FieldObject::Values(std::vector<Variant>& out) {
  return Call("Ifield.Values", [&] { out = state_.records.Values(field_); });
}

Status FieldObject::Units(std::string& out) {
  return Call("Ifield.Units", [&] { out = field_.units; });
}

Status FieldObject::FreeValues(std::shared_ptr<IvalueList>& out) {
  return Call("Ifield.FreeValues", [&] { out = state_.FreeValuesOf(field_); });
}

Status FieldObject::UsedValues(std::shared_ptr<IvalueList>& out) {
  return Call("Ifield.UsedValues", [&] { out = std::make_shared<UsedValueList>(state_.records, field_); });
}

Status FieldObject::Validation(std::string& out) {
  return Call("Ifield.Validation", [&] { out = field_.validation; });
}

const SchemaField* FieldsObject::Find(std::string_view name) const {
  return state_.GetSchema().Find(table_, name);
}

Status FieldsObject::Exists(std::string_view name, Boolean& out) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Lookup, [&] { return CallName("Ifields.Exists", name); });
    out = ToBoolean(Find(name) != nullptr);
  });
}

Status FieldsObject::Item(std::string_view name, std::shared_ptr<Ifield>& out) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Lookup, [&] { return CallName("Ifields.Item", name); });
    const SchemaField* field = Find(name);
    if (field == nullptr) RaiseUnknown("field", std::to_string(table_.number) + "." + std::string(name));
    out = {state_.Shared(), &state_.fields[field->index]};
  });
}

Status FieldsObject::NewEnum(std::vector<std::shared_ptr<Ifield>>& out) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Other,
                          [&] { return CallName("Ifields.NewEnum", std::to_string(table_.number)); });
    std::vector<std::shared_ptr<Ifield>> all;
    for (const SchemaField& field : state_.GetSchema().FieldsOf(table_)) {
      all.emplace_back(state_.Shared(), &state_.fields[field.index]);
    }
    out = std::move(all);
  });
}

template <typename Work>
Status TableObject::Call(const char* operation, Work work) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Other,
                          [&] { return CallName(operation, std::to_string(table_.number)); });
    work();
  });
}

Status TableObject::RecordCount(RecordNr& out) {
  return Call("Itable.RecordCount", [&] { out = state_.records.Count(table_); });
}

Status TableObject::MinRecords(RecordNr& out) {
  return Call("Itable.MinRecords", [&] { out = table_.minimum; });
}

Status TableObject::MaxRecords(RecordNr& out) {
  return Call("Itable.MaxRecords", [&] { out = table_.maximum; });
}

Status TableObject::Fields(std::shared_ptr<Ifields>& out) {
  return Call("Itable.Fields", [&] { out = {state_.Shared(), &fields_}; });
}

std::vector<const SchemaField*> TableObject::SortKeys(std::string_view key) const {
  std::vector<const SchemaField*> keys;
  while (true) {
    const std::size_t end = key.find('|');
    const SchemaField& field = state_.FieldOf(key.substr(0, end));
    if (field.tableIndex != table_.index) RaiseUnknown("field", field.id, " (of another table)");
    keys.push_back(&field);
    if (end == std::string_view::npos) return keys;
    key.remove_prefix(end + 1);
  }
}

Status TableObject::Sort(Iprovider&, std::string_view key, std::int32_t order) {
  constexpr std::int32_t kAscending = 1;
  return Call("Itable.Sort", [&] {
    if (order != kAscending) {
      throw Error(ErrorNumber::kInvalidCall, "Provider", "Unknown order: " + std::to_string(order));
    }
    state_.records.Sort(table_, SortKeys(key));
  });
}

Status TableObject::InsertRecord(RecordNr record) {
  return Call("Itable.InsertRecord", [&] { state_.records.Insert(table_, record); });
}

Status TableObject::Append(const char* operation, RecordNr& out) {
  return Call(operation, [&] {
    const RecordNr record = state_.records.Count(table_) + 1;
    state_.records.Insert(table_, record);
    out = record;
  });
}

Status TableObject::NewRecord(RecordNr& out) { return Append("Itable.NewRecord", out); }

Status TableObject::AppendRecord(RecordNr& out) { return Append("Itable.AppendRecord", out); }

Status TableObject::DeleteRecord(RecordNr record, RecordNr& out) {
  return Call("Itable.DeleteRecord", [&] {
    state_.records.Delete(table_, record);
    out = state_.records.Count(table_);
  });
}

Status TablesObject::FieldExists(std::string_view name, Boolean& out) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Lookup, [&] { return CallName("Itables.FieldExists", name); });
    out = ToBoolean(state_.GetSchema().Find(name) != nullptr);
  });
}

Status TablesObject::Field(std::string_view name, std::shared_ptr<Ifield>& out) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Lookup, [&] { return CallName("Itables.Field", name); });
    out = {state_.Shared(), &state_.fields[state_.FieldOf(name).index]};
  });
}

Status TablesObject::Table(std::string_view tableId, std::shared_ptr<Itable>& out) {
  return Border([&] {
    state_.monitor->Enter(CallGroup::Lookup, [&] { return CallName("Itables.Table", tableId); });
    out = {state_.Shared(), &state_.tables[state_.TableOf(tableId).index]};
  });
}
