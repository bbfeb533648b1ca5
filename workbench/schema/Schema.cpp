#include "workbench/schema/Schema.h"

#include <algorithm>
#include <utility>

#include "host/IproviderOwner.h"
#include "platform/CaseText.h"

namespace {
constexpr SchemaField* kAmbiguous = nullptr;

/// The fields with a conversion, in the order of the contract, else in their own.
std::vector<const SchemaField*> Converted(const std::vector<SchemaField>& fields,
                                          std::span<const ConversionOrder> order) {
  std::vector<const SchemaField*> converted;
  for (const SchemaField& field : fields) {
    if (field.transform != 0) converted.push_back(&field);
  }
  std::ranges::stable_sort(
      converted, {}, [&](const SchemaField* field) { return ConversionPlace(field->transform, order); });
  return converted;
}
}  // namespace

Schema::Schema(VersionName version, std::vector<SchemaTable> tables, std::vector<SchemaField> fields)
    : name_(std::move(version)),
      version_(name_.Text()),
      tables_(std::move(tables)),
      fields_(std::move(fields)) {
  for (const SchemaTable& table : tables_) tableByNumber_.emplace(table.number, table.index);
  AddNames();
  toForms_ = Converted(fields_, kToUIOrder);
  toRadio_ = Converted(fields_, kFromUIOrder);
}

void Schema::AddNames() {
  constexpr std::size_t kNamesPerField = 3;
  fieldByName_.reserve(fields_.size() * kNamesPerField);
  for (const SchemaField& field : fields_) {
    fieldByName_.emplace(field.id, &field);
    for (const std::string& uiid : field.uiids) fieldByName_.emplace(uiid, &field);
  }
  // What is bound stands; only the other names can be ambiguous.
  std::unordered_map<std::string_view, const SchemaField*, NameHash, NameEqual> ownNames;
  ownNames.reserve(fields_.size());
  for (const SchemaField& field : fields_) {
    const auto [entry, isNew] = ownNames.emplace(field.Name(), &field);
    if (!isNew) entry->second = kAmbiguous;
  }
  fieldByName_.merge(ownNames);
}

std::span<const SchemaField> Schema::FieldsOf(const SchemaTable& table) const {
  return std::span(fields_).subspan(table.firstField, table.fieldCount);
}

const SchemaField* Schema::IdentityOf(const SchemaTable& table) const {
  const std::span<const SchemaField> fields = FieldsOf(table);
  const auto found = std::ranges::find_if(fields, &SchemaField::isIdentity);
  return found == fields.end() ? nullptr : &*found;
}

const SchemaTable* Schema::FindTable(std::int32_t number) const {
  const auto found = tableByNumber_.find(number);
  return found == tableByNumber_.end() ? nullptr : &tables_[found->second];
}

const SchemaField* Schema::Find(std::string_view name) const {
  const auto found = fieldByName_.find(name);
  return found == fieldByName_.end() ? nullptr : found->second;
}

bool Schema::IsAmbiguous(std::string_view name) const {
  const auto found = fieldByName_.find(name);
  return found != fieldByName_.end() && found->second == kAmbiguous;
}

std::string VersionName::Digits() const {
  constexpr std::size_t kDigits = 4;
  const std::string digits = std::to_string(number);
  return std::string(kDigits - std::min(kDigits, digits.size()), '0') + digits;
}

std::string VersionName::Text() const { return model + "." + Digits(); }

std::string VersionName::Key() const { return Digits() + "." + model; }
