#include "workbench/store/Provider.h"

#include <utility>

#include "platform/Border.h"
#include "workbench/store/ProviderObjects.h"
#include "workbench/store/ValueLists.h"

namespace {
constexpr std::int32_t kNoTransformation = -1;

}  // namespace

Provider::Provider(std::shared_ptr<const Schema> schema)
    : state_(std::make_shared<ProviderState>(std::move(schema))) {
  state_->held = state_;
}

Provider::~Provider() { state_->held.reset(); }

template <typename Describe, typename Work>
Status Provider::Call(CallGroup group, Describe describe, Work work) {
  return Border([&] {
    state_->monitor->Enter(group, describe);
    work();
  });
}

Status Provider::DefaultValue(std::string_view name, Variant& out) {
  return Call(
      CallGroup::Lookup, [&] { return CallName("Iprovider.DefaultValue", name); },
      [&] {
        const SchemaField& field = FieldOf(name);
        out = field.isIdentity ? Variant(state_->FreeValuesOf(field)->At(0))
                               : state_->records.NewValueOf(field);
      });
}

Status Provider::RefreshField(std::string_view name) {
  return Call(
      CallGroup::Other, [&] { return CallName("Iprovider.RefreshField", name); }, [&] { FieldOf(name); });
}

Status Provider::RefreshValues(std::string_view fieldId) {
  return Call(
      CallGroup::Other, [&] { return CallName("Iprovider.RefreshValues", fieldId); },
      [&] { FieldOf(fieldId); });
}

Status Provider::TransformIdOf(std::string_view name, std::int32_t& out) {
  return Call(
      CallGroup::Lookup, [&] { return CallName("Iprovider.TransformIdOf", name); },
      [&] {
        const std::int32_t transform = FieldOf(name).transform;
        out = transform == 0 ? kNoTransformation : transform;
      });
}

Status Provider::Field(std::string_view name, std::shared_ptr<Ifield>& out) {
  return Call(
      CallGroup::Lookup, [&] { return CallName("Iprovider.Field", name); },
      [&] {
        out = {state_, &state_->fields[FieldOf(name).index]};
      });
}

Status Provider::Tables(std::shared_ptr<Itables>& out) {
  return Call(
      CallGroup::Other, [] { return "Iprovider.Tables"; },
      [&] {
        out = {state_, &state_->allTables};
      });
}

Status Provider::FactoryMode(Boolean& out) {
  return Call(
      CallGroup::Other, [] { return "Iprovider.FactoryMode"; },
      [&] { out = ToBoolean(state_->factoryMode); });
}

Status Provider::AutoUpdate(Boolean& out) {
  return Call(
      CallGroup::Other, [] { return "Iprovider.AutoUpdate"; }, [&] { out = ToBoolean(state_->autoUpdate); });
}

Status Provider::SetAutoUpdate(Boolean state) {
  return Call(
      CallGroup::Other, [&] { return CallName("Iprovider.SetAutoUpdate", std::to_string(state)); },
      [&] { state_->autoUpdate = state != kFalse; });
}

Status Provider::ClearTable(std::string_view tableId, Boolean) {
  return Call(
      CallGroup::Other, [&] { return CallName("Iprovider.ClearTable", tableId); },
      [&] { state_->records.SetCount(state_->TableOf(tableId), 0); });
}

Variant Provider::Get(std::string_view name, RecordNr record) const { return Get(FieldOf(name), record); }

const Variant& Provider::Get(const SchemaField& field, RecordNr record) const {
  return state_->records.Get(field, record);
}

void Provider::Set(std::string_view name, RecordNr record, Variant value) {
  Set(FieldOf(name), record, std::move(value));
}

void Provider::Set(const SchemaField& field, RecordNr record, Variant value) {
  state_->records.Set(field, record, std::move(value));
}

void Provider::Fill(std::string_view name, std::vector<Variant> values) {
  const SchemaField& field = FieldOf(name);
  state_->records.SetCount(GetSchema().TableOf(field), static_cast<RecordNr>(values.size()));
  RecordNr record = 0;
  for (Variant& value : values) Set(field, ++record, std::move(value));
}

RecordNr Provider::Count(std::int32_t table) const { return Count(state_->TableOf(std::to_string(table))); }

RecordNr Provider::Count(const SchemaTable& table) const { return state_->records.Count(table); }

void Provider::SetCount(std::int32_t table, RecordNr count) {
  state_->records.SetCount(state_->TableOf(std::to_string(table)), count);
}

void Provider::SetOnForms(bool on) { state_->records.SetOnForms(on); }
bool Provider::IsOnForms() const { return state_->records.IsOnForms(); }

void Provider::SetFactoryMode(bool on) { state_->factoryMode = on; }

bool Provider::IsAutoUpdating() const { return state_->autoUpdate; }

std::shared_ptr<Provider> Provider::Copy() const {
  auto copy = std::make_shared<Provider>(SharedSchema());
  copy->state_->records.CopyContent(state_->records);
  copy->state_->autoUpdate = state_->autoUpdate;
  copy->state_->factoryMode = state_->factoryMode;
  return copy;
}

std::shared_ptr<Provider> Provider::StoredCopy() const {
  auto copy = std::make_shared<Provider>(SharedSchema());
  copy->state_->factoryMode = state_->factoryMode;
  for (const SchemaTable& table : GetSchema().Tables()) {
    if (!table.IsRaw()) continue;
    const RecordNr count = Count(table);
    copy->SetCount(table.number, count);
    for (const SchemaField& field : GetSchema().FieldsOf(table)) {
      for (RecordNr record = 1; field.IsRaw() && record <= count; ++record) {
        copy->Set(field, record, Get(field, record));
      }
    }
  }
  return copy;
}

const Schema& Provider::GetSchema() const { return state_->GetSchema(); }

const std::shared_ptr<const Schema>& Provider::SharedSchema() const { return state_->records.SharedSchema(); }

const SchemaField& Provider::FieldOf(std::string_view name) const { return state_->FieldOf(name); }

CallMonitor& Provider::Monitor() { return *state_->monitor; }

const std::shared_ptr<CallMonitor>& Provider::SharedMonitor() const { return state_->monitor; }

void Provider::SetMonitor(std::shared_ptr<CallMonitor> monitor) { state_->monitor = std::move(monitor); }
