#include "workbench/jobs/RecordEdits.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Difference.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/Session.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"

namespace {

// clang-format off
constexpr Grid kGrids[] = {
    {"Channels6000",      "channel",           5, true},
    {"GroupMembership",   "member",         1119},
    {"Network",           "network",          21},
    {"ControlStatus6000", "control-status", 1115, true},
    {"ScanGroup",         "scan-group",         16},
    {"Selcall6000",       "selcall",          29},
    {"DTMF",              "dtmf",             64},
    {"Type99",            "two-tone",         37},
    {"MDC1200",           "mdc1200",          80},
};
// clang-format on

constexpr std::int32_t kStoredStatuses = 32;
constexpr std::int32_t kShownStatuses = 1115;
constexpr std::int32_t kShownMembers = 1119;
constexpr std::int32_t kDTMFSystems = 64, kPresets = 65;

constexpr std::string_view kSteps[] = {"capacity", "permission", "postProcessing", "show", "save"};

const SchemaTable& TableOf(const Schema& schema, const Grid& grid) {
  const SchemaTable* table = schema.FindTable(grid.table);
  if (table != nullptr) return *table;
  throw UsageError("version " + schema.Version() + " has no table " + std::to_string(grid.table));
}

/// The names by which a person may call the grid.
std::vector<std::string> NamesOf(const Schema& schema, const Grid& grid) {
  std::vector<std::string> names = {std::string(grid.word), TableOf(schema, grid).title,
                                    std::to_string(grid.table)};
  if (!EqualsIgnoringCase(grid.word, grid.name)) names.emplace_back(grid.name);
  return names;
}

bool Refuse(RecordResult& result, RecordStep step, std::string refusal) {
  result.step = step;
  result.refusal = std::move(refusal);
  return false;
}

std::string RecordsOf(const SchemaTable& table, RecordNr count) {
  return std::to_string(count) + (count == 1 ? " record" : " records") + " of table " +
         std::to_string(table.number) + " (" + table.title + ")";
}

std::string AtMost(const Schema& schema, const SchemaTable& table) {
  return "a personality of version " + schema.Version() + " holds at most " + RecordsOf(table, table.maximum);
}

/// The rows of the system on the form are some of those that the radio stores, and each has a type of its
/// own.
std::string FullStatusesRefusal(const Provider& content) {
  const Schema& schema = content.GetSchema();
  const SchemaField& owner = content.FieldOf("1111.SelcallID");
  const SchemaField& type = content.FieldOf("1115.Type");
  const RecordNr shown = Forms::CurrentRecord(content, Forms::kSelcallSystems);
  RecordNr statuses = content.Count(type.table);
  for (RecordNr row = 1; row <= content.Count(owner.table); ++row) {
    if (!SameValue(content.Get(owner, row), shown)) ++statuses;
  }
  const SchemaTable& stored = *schema.FindTable(kStoredStatuses);
  if (statuses >= stored.maximum) return AtMost(schema, stored);
  std::set<std::int32_t> free;
  for (std::int32_t code = type.minimum; code <= type.maximum; ++code) free.insert(code);
  for (RecordNr row = 1; row <= content.Count(type.table); ++row) free.erase(CLng(content.Get(type, row)));
  return free.empty() ? "each of the types " + CStr(type.minimum) + " to " + CStr(type.maximum) + " is in use"
                      : std::string();
}

/// Each row of the group on the form is a member among those of all, and another channel.
std::string FullGroupRefusal(const Provider& content, const SchemaTable& shown) {
  const SchemaTable& stored = *content.GetSchema().FindTable(Forms::TableBehind(shown.number));
  if (content.Count(stored) >= stored.maximum) return AtMost(content.GetSchema(), stored);
  const SchemaField& number = content.FieldOf("5.ChannelIDTracker");
  const SchemaField& member = content.FieldOf("1119.FilteredScanGroupChannelMemberID");
  for (RecordNr channel = 1; channel <= content.Count(number.table); ++channel) {
    RecordNr row = content.Count(shown);
    while (row > 0 && !SameValue(content.Get(member, row), content.Get(number, channel))) --row;
    if (row == 0) return {};
  }
  return "every channel is a member of the group";
}

/// Each DTMF system has ten presets among those of all, or more in a damaged file; the first record belongs
/// to none.
std::string FullPresetsRefusal(const Provider& content) {
  constexpr RecordNr kPresetsPerSystem = 10;
  const SchemaField& number = content.FieldOf("64.DTMFNetworkSigSystemID");
  const SchemaField& owner = content.FieldOf("65.DTMFChannelPresetSeqSigSysID");
  const SchemaTable& presets = *content.GetSchema().FindTable(kPresets);
  RecordNr needed = 1 + kPresetsPerSystem;
  for (RecordNr system = 1; system <= content.Count(number.table); ++system) {
    RecordNr own = 0;
    for (RecordNr preset = 2; preset <= content.Count(presets); ++preset) {
      if (SameValue(content.Get(owner, preset), content.Get(number, system))) ++own;
    }
    needed += std::max(own, kPresetsPerSystem);
  }
  const bool isFull = needed > presets.maximum;
  return isFull ? AtMost(content.GetSchema(), presets) + ", and a system needs " + CStr(kPresetsPerSystem)
                : std::string();
}

/// Why the table takes no more records; empty when it does.
std::string FullRefusal(const Provider& content, const SchemaTable& table) {
  if (content.Count(table) >= table.maximum) return AtMost(content.GetSchema(), table);
  if (table.number == kDTMFSystems) return FullPresetsRefusal(content);
  if (table.number == kShownStatuses) return FullStatusesRefusal(content);
  return table.number == kShownMembers ? FullGroupRefusal(content, table) : std::string();
}

/// They link the members of a group, and are meant to point at another one when one goes.
constexpr std::string_view kLinks[] = {"16.FirstGroupMember", "18.GroupNextMemberRecordNum"};

/// The records that a status on the form and its twin in the radio are.
bool AreOne(const SchemaTable& shown, const SchemaTable& stored) {
  return shown.number == stored.number ||
         (shown.number == kShownStatuses && stored.number == kStoredStatuses);
}

/// What a deletion, or an insertion of the record `inserted`, has led astray: a pointer that does not point
/// any more at what it pointed at, though that is still there, or a record that is told by such a pointer.
/// Empty when there is nothing of that kind.
std::string Stray(const ComparedPersonality& before, const ComparedPersonality& after,
                  const SchemaTable& table, RecordNr deleted, RecordNr inserted) {
  const Difference difference = Compare(before, after);
  RecordKeys keysAfter(after);
  for (const auto& [of, key] : difference.onlyInB) {
    if (inserted != 0 && AreOne(table, *of)) continue;
    const bool isLeftOver =  // a companion of nothing: it is no longer read
        keysAfter.OwnerOf(*of) != nullptr && keysAfter.OwnerKey(*of, keysAfter.Find(*of, key)).empty();
    if (!isLeftOver) return of->title + " " + key;
  }
  RecordKeys keys(before);
  const std::string gone = deleted == 0 ? "" : keys.Of(table)[static_cast<std::size_t>(deleted - 1)];
  for (const CellDifference& cell : difference.cells) {
    if (std::ranges::find(kLinks, cell.field->id) != std::end(kLinks)) continue;
    const auto target = keys.Target(*cell.field, keys.Find(*cell.table, cell.record));
    const bool isGone = deleted != 0 && target && (*target == gone || target->starts_with(gone + "/"));
    if (target && !isGone) return cell.field->id + " of " + cell.record;
  }
  return {};
}

/// The change of the table that the grid shows is what was asked for: it is nothing else.
void LeaveOut(std::vector<Change>& changes, const SchemaTable& table) {
  std::erase_if(changes,
                [&](const Change& change) { return change.field == nullptr && change.table == &table; });
}

}  // namespace

std::string_view NameOf(RecordStep step) { return kSteps[static_cast<std::size_t>(step)]; }

std::span<const Grid> Grids::All() { return kGrids; }

const Grid& Grids::Named(const Schema& schema, std::string_view text) {
  std::vector<std::string> all;
  for (const Grid& grid : kGrids) {
    for (std::string& name : NamesOf(schema, grid)) {
      if (EqualsIgnoringCase(name, text)) return grid;
      all.push_back(std::move(name));
    }
  }
  std::string names;
  for (const Grid& grid : kGrids) names += (names.empty() ? "" : ", ") + std::string(grid.word);
  throw UsageError("there is no grid " + Printable::Quoted(text) + " (the grids are " + names + ")" +
                   TypedNames::Suggestion(text, std::move(all)));
}

RecordEdits::RecordEdits(Session& session, const Grid& grid)
    : session_(session), grid_(grid), table_(TableOf(session.Content().GetSchema(), grid)) {}

RecordResult RecordEdits::Add(RecordNr count, RecordNr from) {
  RecordResult result;
  Provider& content = session_.Content();
  if (from != 0) {
    if (table_.number != Forms::kChannels)
      throw UsageError("only channels are copied: others have records beside them");
    TypedNames::RequireRecord(content, table_, from);
  }
  bool isAdded = true;
  {
    const Journal journal(content);
    while (isAdded && result.count < count) {
      result.record = 0;  // or a refusal would speak of the one before
      result.identity = {};
      // Before the tier is asked, which adds the companions when it is.
      const std::string isFull = FullRefusal(content, table_);
      isAdded = isFull.empty() ? AddCompleted(result, from) : Refuse(result, RecordStep::Capacity, isFull);
      if (isAdded) ++result.count;
    }
    result.others = journal.Changes();
  }
  if (!isAdded) return result;
  if (!Forms::TurnTo(session_, table_.number, result.record)) {
    Refuse(result, RecordStep::Show, "after it was added, the tier refuses to show it on its form");
    return result;
  }
  result.accepted = IsKept(result);
  if (result.accepted) LeaveOut(result.others, table_);
  return result;
}

RecordResult RecordEdits::Insert(RecordNr record) {
  RecordResult result;
  Provider& content = session_.Content();
  if (!grid_.inserts)
    throw UsageError("records of " + table_.title + " are added at the end alone (kd4410 add)");
  TypedNames::RequireRecord(content, table_, record);
  const std::string isFull = FullRefusal(content, table_);
  if (!isFull.empty()) {
    Refuse(result, RecordStep::Capacity, isFull);
    return result;
  }
  const ComparedPersonality before = Snapshot();
  bool isInserted = false;
  {
    const Journal journal(content);
    result.record = record;
    isInserted = InsertCompleted(result);
    result.others = journal.Changes();
  }
  if (isInserted && !Forms::TurnTo(session_, table_.number, record)) {
    Refuse(result, RecordStep::Show, "after it was inserted, the tier refuses to show it on its form");
    return result;
  }
  result.accepted = isInserted && IsKept(result) && KeepsPointers(before, result, true);
  result.count = 1;
  if (result.accepted) LeaveOut(result.others, table_);
  return result;
}

RecordResult RecordEdits::Delete(RecordNr record) {
  RecordResult result;
  Provider& content = session_.Content();
  TypedNames::RequireRecord(content, table_, record);
  result.record = record;
  result.identity = IdentityOf(record);
  if (content.Count(table_) <= table_.minimum) {
    Refuse(result, RecordStep::Capacity,
           "a personality of version " + content.GetSchema().Version() + " has at least " +
               RecordsOf(table_, table_.minimum));
    return result;
  }
  const ComparedPersonality before = Snapshot();
  bool isDeleted = false;
  {
    const Journal journal(content);
    isDeleted = DeleteCompleted(result);
    result.others = journal.Changes();
  }
  result.accepted = isDeleted && IsKept(result) && KeepsPointers(before, result, false);
  if (result.accepted) LeaveOut(result.others, table_);
  return result;
}

void RecordEdits::CopyValues(RecordNr from, RecordNr to) const {
  Provider& content = session_.Content();
  for (const SchemaField& field : content.GetSchema().FieldsOf(table_)) {
    if (!field.isIdentity) content.Set(field, to, content.Get(field, from));
  }
}

template <typename Make, typename Complete>
bool RecordEdits::MakeCompleted(RecordResult& result, Make make, Complete complete) const {
  const TierHost& host = session_.Host();
  const std::shared_ptr<Provider>& provider = session_.SharedContent();
  Boolean accepted = kFalse;
  host.Require(host.Validator().AddRecord(grid_.name, provider, accepted));
  if (accepted == kFalse) return Refuse(result, RecordStep::Permission, "the tier refuses to add it");

  host.Require(provider->SetAutoUpdate(kTrue));
  host.Require(make(*OpenTable()));
  accepted = kFalse;
  host.Require(complete(provider, accepted));
  if (Forms::TableBehind(table_.number) != table_.number)
    Forms::FillViews(session_, *Forms::ViewedBy(table_.number));
  result.identity = IdentityOf(result.record);
  return accepted != kFalse ||
         Refuse(result, RecordStep::PostProcessing, "after it was added, the tier refuses it");
}

bool RecordEdits::AddCompleted(RecordResult& result, RecordNr from) const {
  const auto make = [&](Itable& table) { return table.NewRecord(result.record); };
  const auto complete = [&](const std::shared_ptr<Provider>& provider, Boolean& accepted) {
    Status status = session_.Host().Owner().PostAddProcessing(provider, grid_.name, accepted);
    if (from != 0) CopyValues(from, result.record);
    return status;
  };
  return MakeCompleted(result, make, complete);
}

bool RecordEdits::InsertCompleted(RecordResult& result) const {
  const auto make = [&](Itable& table) { return table.InsertRecord(result.record); };
  const auto complete = [&](const std::shared_ptr<Provider>& provider, Boolean& accepted) {
    return session_.Host().Owner().PostInsertProcessing(provider, grid_.name, result.record, accepted);
  };
  return MakeCompleted(result, make, complete);
}

bool RecordEdits::DeleteCompleted(RecordResult& result) const {
  const TierHost& host = session_.Host();
  const std::shared_ptr<Provider>& provider = session_.SharedContent();
  host.Require(provider->SetAutoUpdate(kTrue));
  Boolean accepted = kFalse;
  host.Require(host.Validator().DeleteRecord(grid_.name, result.record, provider, accepted));
  if (accepted == kFalse) return Refuse(result, RecordStep::Permission, "the tier refuses to delete it");

  RecordNr left = 0;
  host.Require(OpenTable()->DeleteRecord(result.record, left));
  accepted = kFalse;
  host.Require(host.Owner().PostDeleteProcessing(provider, grid_.name, result.record, accepted));
  return accepted != kFalse ||
         Refuse(result, RecordStep::PostProcessing, "after it was deleted, the tier refuses that");
}

bool RecordEdits::IsKept(RecordResult& result) const {
  const Schema& schema = session_.Content().GetSchema();
  if (table_.number == Forms::kChannels) session_.IndexChannels();
  if (const Forms::Current* shown = Forms::ViewedBy(table_.number)) Forms::FillViews(session_, *shown);
  const SchemaTable& behind = *schema.FindTable(Forms::TableBehind(table_.number));
  return (session_.KeepsRecords(table_) && session_.KeepsRecords(behind)) ||
         Refuse(result, RecordStep::Save,
                "a save would lose the change, for the tier does not convert the table for the radio");
}

bool RecordEdits::KeepsPointers(const ComparedPersonality& before, RecordResult& result,
                                bool isInserted) const {
  const std::string stray =
      Stray(before, Snapshot(), table_, isInserted ? 0 : result.record, isInserted ? result.record : 0);
  return stray.empty() ||
         Refuse(result, RecordStep::Save,
                "a save would let " + stray +
                    " point at another record, for the tier does not convert it for the radio");
}

ComparedPersonality RecordEdits::Snapshot() const {
  return {session_.ConvertedToRaw(), session_.Content().Copy()};
}

std::shared_ptr<Itable> RecordEdits::OpenTable() const {
  std::shared_ptr<Itables> tables;
  session_.Host().Require(session_.Content().Tables(tables));
  std::shared_ptr<Itable> table;
  session_.Host().Require(tables->Table(std::to_string(table_.number), table));
  return table;
}

Variant RecordEdits::IdentityOf(RecordNr record) const {
  const Provider& content = session_.Content();
  const SchemaField* identity = content.GetSchema().IdentityOf(table_);
  if (identity == nullptr) return {};
  const Variant& number = content.Get(*identity, record);
  return IsNumeric(number) ? Variant(CLng(number)) : number;  // forms may hold it as text
}
