#include "workbench/schema/Schema.h"

#include <algorithm>
#include <bit>
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
  AddTables();
  AddNames();
  toForms_ = Converted(fields_, kToUIOrder);
  toRadio_ = Converted(fields_, kFromUIOrder);
}

void Schema::AddTables() {
  for (const SchemaTable& table : tables_) {
    const auto number = static_cast<std::size_t>(table.number);
    if (number >= tableByNumber_.size()) tableByNumber_.resize(number + 1);
    tableByNumber_[number] = &table;
    FieldNames& names = fieldsOfTable_.emplace_back(table.fieldCount);
    for (const SchemaField& field : FieldsOf(table)) names.Add(field.Name(), &field);
  }
}

void Schema::AddNames() {
  std::size_t names = 0;
  for (const SchemaField& field : fields_) names += 2 + field.uiids.size();
  fieldByName_ = FieldNames(names);
  for (const SchemaField& field : fields_) {
    fieldByName_.Add(field.id, &field);
    for (const std::string& uiid : field.uiids) fieldByName_.Add(uiid, &field);
  }
  // What is bound stands; only the other names can be ambiguous.
  FieldNames ownNames(fields_.size());
  for (const SchemaField& field : fields_) {
    FieldNames::Entry& entry = ownNames.Add(field.Name(), &field);
    if (entry.field != &field) entry.field = kAmbiguous;
  }
  for (const SchemaField& field : fields_) {
    fieldByName_.Add(field.Name(), ownNames.Find(field.Name())->field);
  }
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
  const bool isKnown = number >= 0 && number < std::ssize(tableByNumber_);
  return isKnown ? tableByNumber_[static_cast<std::size_t>(number)] : nullptr;
}

const SchemaField* Schema::Find(std::string_view name) const {
  const FieldNames::Entry* found = fieldByName_.Find(name);
  return found == nullptr ? nullptr : found->field;
}

const SchemaField* Schema::Find(const SchemaTable& table, std::string_view name) const {
  const FieldNames::Entry* found = fieldsOfTable_[table.index].Find(name);
  return found == nullptr ? nullptr : found->field;
}

bool Schema::IsAmbiguous(std::string_view name) const {
  const FieldNames::Entry* found = fieldByName_.Find(name);
  return found != nullptr && found->field == kAmbiguous;
}

bool SchemaField::PointsInto(std::int32_t target) const {
  return std::ranges::any_of(references, [&](const SchemaReference& reference) {
    return reference.table == target && !reference.IsByNumber();
  });
}

FieldNames::FieldNames(std::size_t capacity)
    : places_(std::bit_ceil(2 * capacity + 1)), mask_(places_.size() - 1) {}

FieldNames::Entry& FieldNames::Add(std::string_view name, const SchemaField* field) {
  Entry& entry = places_[Place(name)];
  if (entry.name.empty()) entry = {name, field};
  return entry;
}

std::string VersionName::Digits() const {
  constexpr std::size_t kDigits = 4;
  const std::string digits = std::to_string(number);
  return std::string(kDigits - std::min(kDigits, digits.size()), '0') + digits;
}

std::string VersionName::Text() const { return model + "." + Digits(); }

bool VersionName::IsMeantBy(std::string_view word) const {
  return EqualsIgnoringCase(Text(), word) || Digits() == word || std::to_string(number) == word;
}

std::string VersionName::Key() const { return Digits() + "." + model; }
