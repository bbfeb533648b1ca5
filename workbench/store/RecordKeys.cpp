#include "workbench/store/RecordKeys.h"

#include <algorithm>
#include <iterator>

#include "platform/Conversions.h"
#include "workbench/files/TabbedFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Journal.h"
#include "workbench/store/Provider.h"

namespace {

// clang-format off
/// A programmable action is known by the key that points at it, and by how it is pressed.
constexpr std::int32_t kActions = 24;
constexpr struct { std::string_view pointer, press; } kPresses[] = {
    {"15.FnKeyShortPressActionID", "short press"},
    {"15.FnKeyLongPressActionID",  "long press"},
    {"15.FnKeyUpActionID",         "up"},
    {"15.FnKeyDownActionID",       "down"},
};
// clang-format on

/// The lists of the codes in use, in the order in which channels were saved: what points at one means the
/// code.
bool IsCodeList(const SchemaLayout& layout) { return layout.upkeep == Upkeep::Anew && !layout.key.empty(); }

/// Whether the record says that the field points where the row has it.
bool Holds(const SchemaReference& reference, const Provider& stored, RecordNr record) {
  if (reference.selector.empty()) return true;
  return SameValue(stored.Get(stored.FieldOf(reference.selector), record), reference.selected);
}

}  // namespace

std::string ListOf(const std::vector<std::string>& keys) {
  const auto continues = [&](std::size_t i) {
    const std::string& before = keys[i - 1];
    const std::size_t digits = before.find_last_not_of("0123456789") + 1;
    const auto number = ParseInteger(std::string_view(before).substr(digits));
    return number && keys[i] == before.substr(0, digits) + std::to_string(*number + 1);
  };
  constexpr std::size_t kShortestRun = 3;
  std::string list;
  for (std::size_t first = 0; first < keys.size();) {
    std::size_t end = first + 1;
    while (end < keys.size() && continues(end)) ++end;
    const bool isRun = end - first >= kShortestRun;
    list += (first == 0 ? "" : ", ") + keys[first] + (isRun ? " to " + keys[end - 1] : "");
    first = isRun ? end : first + 1;
  }
  return list;
}

const SchemaReference* RecordKeys::ReferenceIn(const Provider& stored, const SchemaField& field,
                                               RecordNr record) {
  const auto right = std::ranges::find_if(
      field.references, [&](const SchemaReference& reference) { return Holds(reference, stored, record); });
  return right == field.references.end() ? nullptr : &*right;
}

bool RecordKeys::IsLaidOutAnew(const SchemaTable& table) { return table.layout.upkeep == Upkeep::Anew; }

bool RecordKeys::IsFilledByFirstSave(const SchemaTable& table) {
  return table.layout.upkeep == Upkeep::FirstSave || table.layout.upkeep == Upkeep::FirstSaveInPlace;
}

bool RecordKeys::AwaitsFirstSave(const Provider& stored, const SchemaTable& table) {
  if (table.layout.upkeep != Upkeep::FirstSaveInPlace) return false;
  for (const SchemaField& field : stored.GetSchema().FieldsOf(table)) {
    for (RecordNr record = 1; field.IsRaw() && record <= stored.Count(table); ++record) {
      if (!SameCell(stored.Get(field, record), field.standard)) return false;
    }
  }
  return true;
}

std::optional<RecordNr> RecordKeys::NeededRecords(const Provider& stored, const SchemaTable& table) {
  const SchemaLayout& layout = table.layout;
  if (layout.each == 0 || layout.upkeep != Upkeep::InStep) return {};
  return layout.ownerless + layout.each * stored.Count(layout.owner);
}

const SchemaTable* RecordKeys::OwnerOf(const SchemaTable& table) const {
  const std::int32_t owner = table.layout.owner;
  return owner == 0 ? nullptr : personality_.stored->GetSchema().FindTable(owner);
}

std::string RecordKeys::OwnerKey(const SchemaTable& table, RecordNr record) {
  const SchemaTable* owner = OwnerOf(table);
  if (owner == nullptr) return {};
  const SchemaLayout& layout = table.layout;
  if (!layout.IsParallel()) return Part(layout.key.front(), record);
  if (record <= layout.ownerless) return {};
  const RecordNr ownerRecord = (record - layout.ownerless - 1) / layout.each + 1;
  const auto& keys = Of(*owner);
  return ownerRecord <= std::ssize(keys) ? keys[static_cast<std::size_t>(ownerRecord - 1)] : std::string();
}

const std::vector<std::string>& RecordKeys::Of(const SchemaTable& table) { return KeysOf(table).byRecord; }

RecordNr RecordKeys::Find(const SchemaTable& table, const std::string& key) {
  const auto& records = KeysOf(table).records;
  const auto found = records.find(key);
  return found == records.end() ? 0 : found->second;
}

RecordKeys::TableKeys& RecordKeys::KeysOf(const SchemaTable& table) {
  const auto [place, isNew] = tables_.try_emplace(table.index);
  TableKeys& keys = place->second;
  if (!isNew) return keys;
  std::unordered_map<std::string, int> uses;
  const RecordNr count = personality_.stored->Count(table);
  for (RecordNr record = 1; record <= count; ++record) {
    std::string key = KeyOf(table, record);
    const int use = ++uses[key];
    if (use > 1) key += " #" + std::to_string(use);
    keys.records.emplace(key, record);
    keys.byRecord.push_back(std::move(key));
  }
  return keys;
}

std::string RecordKeys::PressOf(RecordNr action) const {
  const Provider& stored = *personality_.stored;
  for (const auto& [pointer, press] : kPresses) {
    const SchemaField& field = stored.FieldOf(pointer);
    for (RecordNr key = 1; key <= stored.Count(field.table); ++key) {
      if (SameValue(stored.Get(field, key), action))
        return "key " + std::to_string(key) + " " + std::string(press);
    }
  }
  return "record " + std::to_string(action);
}

std::string RecordKeys::KeyOf(const SchemaTable& table, RecordNr record) {
  if (table.number == kActions) return PressOf(record);
  const SchemaLayout& layout = table.layout;
  if (!layout.key.empty()) {
    std::string key;
    for (const std::string& field : layout.key) key += (key.empty() ? "" : "/") + Part(field, record);
    return key;
  }
  if (layout.IsParallel()) {
    const std::string owner = OwnerKey(table, record);
    if (owner.empty()) return "record " + std::to_string(record);
    const RecordNr place = (record - layout.ownerless - 1) % layout.each + 1;
    return layout.each == 1 ? owner : owner + "/" + std::to_string(place);
  }
  // Of the forms: some identities are stored elsewhere and made by a conversion.
  const SchemaField* identity = personality_.forms->GetSchema().IdentityOf(table);
  const bool isShown = identity != nullptr && record <= personality_.forms->Count(table);
  return isShown ? CStr(personality_.forms->Get(*identity, record)) : std::to_string(record);
}

std::string RecordKeys::Part(std::string_view fieldId, RecordNr record) {
  const SchemaField* field = personality_.stored->GetSchema().Find(fieldId);
  if (field == nullptr) return {};
  const std::optional<std::string> target = Target(*field, record);
  return target ? *target : CStr(personality_.stored->Get(*field, record));
}

std::optional<std::string> RecordKeys::Target(const SchemaField& field, RecordNr record) {
  const Provider& stored = *personality_.stored;
  const SchemaReference* reference = ReferenceIn(stored, field, record);
  if (reference == nullptr || reference->IsByNumber()) return {};
  const SchemaTable* table = stored.GetSchema().FindTable(reference->table);
  const Variant& value = stored.Get(field, record);
  if (!IsNumeric(value)) return {};
  if (reference->MayBeNone() && CLng(value) == 0) return "None";
  const RecordNr target = CLng(value) - reference->Base() + 1;
  if (target < 1 || target > stored.Count(*table)) return CStr(value) + " (no record)";
  if (IsCodeList(table->layout)) return Part(table->layout.key.front(), target);
  return Of(*table)[static_cast<std::size_t>(target - 1)];
}
