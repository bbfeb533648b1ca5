#include "workbench/jobs/Conversion.h"

#include <algorithm>
#include <iterator>

#include "platform/Conversions.h"
#include "workbench/jobs/BurstPlaces.h"
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

/// What a field holds in some records that has no place in the version.
void AddLostValues(const Provider& source, const SchemaField& field, RecordNr first, RecordNr last,
                   std::vector<Loss>& losses) {
  for (RecordNr record = first; field.IsRaw() && record <= last; ++record) {
    const Variant& value = source.Get(field, record);
    if (SameCell(value, field.standard)) continue;
    losses.push_back({&source.GetSchema().TableOf(field), &field, record, record, value, {}, {}});
  }
}

/// Records of a table, and each value that they hold.
void AddLostRecords(const Provider& source, const SchemaTable& table, RecordNr first, RecordNr last,
                    std::vector<Loss>& losses) {
  losses.push_back({&table, nullptr, first, last, {}, {}, {}});
  for (const SchemaField& field : source.GetSchema().FieldsOf(table)) {
    AddLostValues(source, field, first, last, losses);
  }
}

std::vector<Loss> LossesOf(const Provider& source, const Schema& destination) {
  std::vector<Loss> losses;
  for (const SchemaTable& table : source.GetSchema().Tables()) {
    if (!table.IsRaw()) continue;
    const SchemaTable* to = destination.FindTable(table.number);
    const RecordNr count = source.Count(table);
    const RecordNr kept = to == nullptr ? count : std::min(count, to->maximum);
    if (kept < count) AddLostRecords(source, table, kept + 1, count, losses);
    for (const SchemaField& field : source.GetSchema().FieldsOf(table)) {
      if (Counterpart(destination, field) == nullptr) AddLostValues(source, field, 1, kept, losses);
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

constexpr std::int32_t kBursts = 30;  // table

/// Records that a step has removed. Bursts are told by their places.
void AddRemovedRecords(const Provider& content, const Provider& result, std::vector<Loss>& losses) {
  for (const SchemaTable& table : result.GetSchema().Tables()) {
    const SchemaTable* from = content.GetSchema().FindTable(table.number);
    if (!table.IsRaw() || from == nullptr || table.number == kBursts) continue;
    const RecordNr shared = std::min(content.Count(*from), table.maximum);
    if (result.Count(table) < shared) AddLostRecords(content, *from, result.Count(table) + 1, shared, losses);
  }
}

/// Tells bursts, and what points at them, by their places: a version may have its blocks divided otherwise.
class BurstReport {
 public:
  BurstReport(const Provider& content, const Provider& result, Hop& hop)
      : content_(content),
        result_(result),
        hop_(hop),
        before_(content.GetSchema()),
        after_(result.GetSchema()) {}

  void Tell() const {
    if (before_ == after_) return;
    std::erase_if(hop_.changes, [](const Change& change) {
      return change.field != nullptr && (change.table->number == kBursts || IsPointer(*change.field));
    });
    for (RecordNr record = 2; record <= content_.Count(kBursts); ++record) TellBurst(record);
    for (const SchemaField& field : result_.GetSchema().Fields()) {
      for (RecordNr record = 1; IsPointer(field) && record <= result_.Count(field.table); ++record) {
        TellPointer(field, record);
      }
    }
  }

 private:
  static bool IsPointer(const SchemaField& field) { return field.IsRaw() && field.PointsInto(kBursts); }
  /// The record in the new version; 0 for none.
  RecordNr NewRecord(RecordNr record) const {
    const auto place = before_.Of(record);
    const RecordNr moved = place ? after_.RecordOf(*place) : record;
    return moved <= result_.Count(kBursts) ? moved : 0;
  }

  void TellBurst(RecordNr record) const {
    const SchemaTable& table = *content_.GetSchema().FindTable(kBursts);
    const RecordNr moved = NewRecord(record);
    const SchemaField& sequence = content_.FieldOf("30.FixedFormatBurstSeq");
    const Variant& value = content_.Get(sequence, record);
    if (moved != 0) return TellChanges(record, moved);
    if (SameCell(value, sequence.standard)) return;
    const auto place = before_.Of(record);
    hop_.losses.push_back({&table, &sequence, record, record, value, {}, place ? place->Name() : ""});
  }

  void TellChanges(RecordNr record, RecordNr moved) const {
    const SchemaTable& table = *result_.GetSchema().FindTable(kBursts);
    for (const SchemaField& field : result_.GetSchema().FieldsOf(table)) {
      // The number of a slot moves with the slot.
      if (!field.IsRaw() || field.id == "30.FixedFormatBurstID") continue;
      Add(field, moved, content_.Get(field.id, record), result_.Get(field, moved));
    }
  }

  void TellPointer(const SchemaField& field, RecordNr record) const {
    const SchemaField* from = content_.GetSchema().Find(field.id);
    if (from == nullptr || record > content_.Count(from->table)) return;
    const std::int32_t before = CLng(content_.Get(*from, record));
    const RecordNr moved = before > 0 ? NewRecord(before + 1) : 0;
    const bool hasMoved = before > 0 && moved > 0 && CLng(result_.Get(field, record)) == moved - 1;
    if (!hasMoved) Add(field, record, before, result_.Get(field, record));
  }

  void Add(const SchemaField& field, RecordNr record, const Variant& before, const Variant& now) const {
    if (SameCell(before, now)) return;
    Change& change = hop_.changes.emplace_back(result_.GetSchema().TableOf(field));
    change.field = &field;
    change.record = record;
    change.before = before;
    change.now = now;
  }

  const Provider& content_;
  const Provider& result_;
  Hop& hop_;
  BurstPlaces before_, after_;
};

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

Converter::~Converter() = default;

Conversion Converter::Convert(const std::shared_ptr<Provider>& content, const std::vector<std::string>& way) {
  Conversion conversion{{}, content};
  for (std::size_t i = 1; i < way.size() && conversion.result != nullptr; ++i) {
    Hop& hop = conversion.hops.emplace_back();
    hop.from = way[i - 1];
    hop.to = way[i];
    conversion.result = Take(*conversion.result, hop);
  }
  host_.reset();
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
  AddRemovedRecords(content, *result, hop.losses);
  BurstReport(content, *result, hop).Tell();
  hop.outside = OutsideValues(content, *result);
  return result;
}

bool Converter::NeedsForms(const Hop& hop) const {
  using Step = bool (*)(TierHost&, const ConversionPair&);
  const Step* step = step_.target<Step>();
  const bool isOfTier = step != nullptr && *step == StepOfTier;
  const auto reads = [&](const StepOnForms& row) {
    return hop.from.ends_with(row.from) && hop.to.ends_with(row.to);
  };
  const auto isOfRecords = [](const Loss& loss) { return loss.field == nullptr; };
  return !isOfTier || std::ranges::any_of(kStepsOnForms, reads) ||
         std::ranges::any_of(hop.losses, isOfRecords);
}

bool Converter::RunStep(const Provider& content, const std::shared_ptr<Provider>& destination, Hop& hop) {
  const std::shared_ptr<Provider> source = content.Copy();
  if (NeedsForms(hop)) {
    const auto session = OpenOnForms(source);
    AddIdentities({content.Copy(), source}, hop.losses);
    AskTier(session->Host(), source, destination, hop);
  } else {
    if (host_ == nullptr)
      host_ = std::make_unique<TierHost>(parts_, source, messenger_);
    else
      host_->Open(source);
    AskTier(*host_, source, destination, hop);
  }
  if (!hop.accepted && !hop.messages.empty()) {
    if (!NeedsForms(hop)) OpenOnForms(source);
    hop.obstacles = ObstaclesTo(hop.to, hop.messages.back().text, *source);
  }
  return hop.accepted;
}

void Converter::AskTier(TierHost& host, const std::shared_ptr<Provider>& source,
                        const std::shared_ptr<Provider>& destination, Hop& hop) {
  host.UseStore(destination);
  messenger_->Clear();
  hop.accepted = step_(host, {source, hop.from, destination, hop.to});
  hop.messages = messenger_->Boxes();
}

std::unique_ptr<Session> Converter::OpenOnForms(const std::shared_ptr<Provider>& content) {
  host_.reset();  // one tier at a time
  auto session = std::make_unique<Session>(parts_, content, messenger_);
  session->ConvertToForms();
  return session;
}

/// The content with what the step wrote to form fields, converted for the radio together with the forms that
/// follow from all else.
std::shared_ptr<Provider> Converter::WithForms(const std::shared_ptr<Provider>& content,
                                               const std::vector<Change>& written) {
  if (written.empty()) return content;
  const auto session = OpenOnForms(content);
  for (const Change& change : written) {
    const bool isThere = change.field != nullptr && change.record <= content->Count(*change.table);
    if (isThere) session->Store(*change.field, change.record, change.now);
  }
  return session->ConvertedToRaw();
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
