#include "workbench/jobs/Conversion.h"

#include <algorithm>
#include <iterator>

#include "workbench/jobs/Session.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"

namespace {

/// The field of the same name and storage, else of the same fact; null when the version has none.
const SchemaField* Counterpart(const Schema& schema, const SchemaField& field) {
  const SchemaField* other = schema.Find(field.id);
  if (other == nullptr && !field.twin.empty()) other = schema.Find(field.twin);
  return other != nullptr && other->kind == field.kind ? other : nullptr;
}

void CopyColumn(const Provider& source, const SchemaField& from, Provider& destination,
                const SchemaField& to) {
  const RecordNr count = std::min(source.Count(from.table), destination.Count(to.table));
  for (RecordNr record = 1; record <= count; ++record) destination.Set(to, record, source.Get(from, record));
}

/// The tables that the version does not let be as empty as they are in the source.
std::vector<Change> FilledTables(const Provider& source, const Provider& shared) {
  std::vector<Change> changes;
  for (const SchemaTable& table : shared.GetSchema().Tables()) {
    const SchemaTable* from = source.GetSchema().FindTable(table.number);
    const RecordNr count = from == nullptr ? 0 : source.Count(*from);
    if (!table.IsRaw() || count >= shared.Count(table)) continue;
    Change& change = changes.emplace_back(table);
    change.before = count;
    change.now = shared.Count(table);
  }
  return changes;
}

/// The values of a field that the version does not have.
void AddLostValues(const Provider& source, const SchemaField& field, RecordNr count,
                   std::vector<Loss>& losses) {
  for (RecordNr record = 1; record <= count; ++record) {
    const Variant& value = source.Get(field, record);
    if (SameCell(value, field.standard)) continue;
    losses.push_back({&source.GetSchema().TableOf(field), &field, record, record, value, {}});
  }
}

std::vector<Loss> LossesOf(const Provider& source, const Schema& destination) {
  std::vector<Loss> losses;
  for (const SchemaTable& table : source.GetSchema().Tables()) {
    if (!table.IsRaw()) continue;
    const SchemaTable* to = destination.FindTable(table.number);
    const RecordNr count = source.Count(table);
    const RecordNr kept = to == nullptr ? count : std::min(count, to->maximum);
    if (kept < count) losses.push_back({&table, nullptr, kept + 1, count, {}, {}});
    for (const SchemaField& field : source.GetSchema().FieldsOf(table)) {
      if (field.IsRaw() && Counterpart(destination, field) == nullptr) {
        AddLostValues(source, field, kept, losses);
      }
    }
  }
  return losses;
}

/// Names the records that are lost by what a person knows them by.
void AddIdentities(const ComparedPersonality& personality, std::vector<Loss>& losses) {
  RecordKeys keys(personality);
  for (Loss& loss : losses) {
    const auto fields = personality.stored->GetSchema().FieldsOf(*loss.table);
    if (loss.field != nullptr || !std::ranges::any_of(fields, &SchemaField::isIdentity)) continue;
    const auto& all = keys.Of(*loss.table);
    loss.identities.assign(all.begin() + (loss.record - 1), all.begin() + loss.last);
  }
}

/// What a step writes as the forms show it.
bool IsShown(const SchemaField& field) { return field.kind == StorageKind::Form || field.isInPlace; }

/// What differs in the fields that are stored, or in those that are shown; both have the same schema. A
/// record that was not there before is compared with the defaults.
std::vector<Change> ChangesBetween(const Provider& before, const Provider& now, StorageKind kind) {
  const auto isWanted = [&](const SchemaField& field) {
    return kind == StorageKind::Form ? IsShown(field) : field.kind == kind;
  };
  std::vector<Change> changes;
  for (const SchemaTable& table : now.GetSchema().Tables()) {
    const RecordNr old = before.Count(table);
    const RecordNr count = now.Count(table);
    if (table.kind == kind && old != count) {
      Change& change = changes.emplace_back(table);
      change.before = old;
      change.now = count;
    }
    for (const SchemaField& field : now.GetSchema().FieldsOf(table)) {
      for (RecordNr record = 1; isWanted(field) && record <= count; ++record) {
        const Variant& was = record <= old ? before.Get(field, record) : field.standard;
        if (SameCell(was, now.Get(field, record))) continue;
        Change& change = changes.emplace_back(table);
        change.field = &field;
        change.record = record;
        change.before = was;
        change.now = now.Get(field, record);
      }
    }
  }
  return changes;
}

/// What is stored beyond the limits of its field, unless it was so before.
std::vector<OutsideValue> OutsideValues(const Provider& source, const Provider& result) {
  std::vector<OutsideValue> outside;
  for (const SchemaField& field : result.GetSchema().Fields()) {
    const SchemaField* before = Counterpart(source.GetSchema(), field);
    for (RecordNr record = 1; field.IsRaw() && record <= result.Count(field.table); ++record) {
      const Variant& value = result.Get(field, record);
      if (IsWithinLimits(field, value)) continue;
      if (before == nullptr || IsWithinLimits(*before, value)) outside.push_back({&field, record, value});
    }
  }
  return outside;
}

}  // namespace

std::shared_ptr<Provider> SharedContent(const SchemaFiles& schemas, const Provider& source,
                                        std::string_view version) {
  std::shared_ptr<Provider> destination = NewPersonality(schemas, version);
  for (const SchemaTable& table : destination->GetSchema().Tables()) {
    const SchemaTable* from = source.GetSchema().FindTable(table.number);
    if (!table.IsRaw() || from == nullptr || !from->IsRaw()) continue;
    destination->SetCount(table.number, std::clamp(source.Count(*from), table.minimum, table.maximum));
    for (const SchemaField& field : destination->GetSchema().FieldsOf(table)) {
      const SchemaField* fromField = Counterpart(source.GetSchema(), field);
      if (field.IsRaw() && fromField != nullptr) CopyColumn(source, *fromField, *destination, field);
    }
  }
  return destination;
}

bool StepOfTier(TierHost& host, const ConversionPair& pair) {
  Boolean goesOn = kFalse;
  host.Require(host.Owner().BackwardsCompatibility(pair.source, pair.from, pair.destination, pair.to,
                                                   Variant(), goesOn));
  return goesOn != kFalse;
}

Converter::Converter(HostParts parts, std::shared_ptr<RecordingMessenger> messenger, ConversionStep step)
    : parts_(std::move(parts)), messenger_(std::move(messenger)), step_(std::move(step)) {}

Conversion Converter::Convert(const std::shared_ptr<Provider>& content, const std::vector<std::string>& way) {
  Conversion conversion{{}, content};
  for (std::size_t i = 1; i < way.size() && conversion.result != nullptr; ++i) {
    Hop& hop = conversion.hops.emplace_back();
    hop.from = way[i - 1];
    hop.to = way[i];
    conversion.result = Take(*conversion.result, hop);
  }
  return conversion;
}

std::shared_ptr<Provider> Converter::Take(const Provider& content, Hop& hop) {
  const std::shared_ptr<Provider> shared = SharedContent(*parts_.schemas, content, hop.to);
  hop.losses = LossesOf(content, shared->GetSchema());
  const std::shared_ptr<Provider> destination = shared->Copy();
  if (!RunStep(content, destination, hop)) return nullptr;
  std::shared_ptr<Provider> result =
      WithForms(destination, ChangesBetween(*shared, *destination, StorageKind::Form));
  hop.changes = FilledTables(content, *shared);
  std::ranges::move(ChangesBetween(*shared, *result, StorageKind::Raw), std::back_inserter(hop.changes));
  hop.outside = OutsideValues(content, *result);
  return result;
}

bool Converter::RunStep(const Provider& content, const std::shared_ptr<Provider>& destination, Hop& hop) {
  const std::shared_ptr<Provider> source = content.Copy();
  Session session(parts_, source, messenger_);
  session.ConvertToForms();
  AddIdentities({content.Copy(), source}, hop.losses);
  session.Host().UseStore(destination);
  messenger_->Clear();
  hop.accepted = step_(session.Host(), {source, hop.from, destination, hop.to});
  hop.messages = messenger_->Boxes();
  return hop.accepted;
}

/// The content with what the step wrote to form fields, converted for the radio together with the forms that
/// follow from all else.
std::shared_ptr<Provider> Converter::WithForms(const std::shared_ptr<Provider>& content,
                                               const std::vector<Change>& written) {
  if (written.empty()) return content;
  Session session(parts_, content, messenger_);
  session.ConvertToForms();
  for (const Change& change : written) {
    const bool isThere = change.field != nullptr && change.record <= content->Count(*change.table);
    if (isThere) session.Store(*change.field, change.record, change.now);
  }
  return session.ConvertedToRaw();
}

std::string VersionOfKey(std::string_view key) {
  const std::size_t point = std::min(key.find('.'), key.size());
  return std::string(key.substr(std::min(point + 1, key.size()))).append(".").append(key.substr(0, point));
}

std::vector<std::string> VersionPath(TierHost& host, const VersionName& version) {
  std::vector<std::string> keys;
  Boolean isKnown = kFalse;
  host.Require(host.Versions().GetDBVersionPathForTier(version.Key(), keys, isKnown));
  std::ranges::transform(keys, keys.begin(), VersionOfKey);
  return keys;
}

std::vector<std::string> WayBetween(const std::vector<std::string>& path, const std::string& from,
                                    const std::string& to) {
  const auto start = std::ranges::find(path, from);
  const auto end = std::ranges::find(path, to);
  if (start == path.end() || end == path.end()) return {};
  if (start <= end) return {start, end + 1};
  std::vector<std::string> way(end, start + 1);
  std::ranges::reverse(way);
  return way;
}
