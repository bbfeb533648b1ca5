#include "workbench/store/RecordKeys.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>

#include "platform/Conversions.h"
#include "workbench/files/TabbedFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Journal.h"
#include "workbench/store/Provider.h"

namespace {

/// A table whose records are laid out after those of another: `each` of them for each of its records, behind
/// `ownerless` ones at the head.
struct ParallelTable {
  std::int32_t table;
  std::int32_t owner;
  RecordNr each = 1;
  RecordNr ownerless = 0;
  std::int32_t lastVersion = std::numeric_limits<std::int32_t>::max();  // that is laid out so
};
/// A table whose records say themselves what they are. Of several records with one key the second is "KEY
/// #2".
struct KeyedTable {
  std::int32_t table;
  std::int32_t owner;  // the identity of whose records the first field holds; 0 for none
  std::array<std::string_view, 3> fields;
};
/// What the value of a pointer counts.
enum class Counts {
  FromZero,        // 0 is record 1
  FromZeroOrNone,  // likewise, but 0 is no record
  FromOne,
  FromOneOrNone,  // likewise, but 0 is no record
};
/// A stored field that points at a record. Of the rows of a field the one is right whose selector holds the
/// value; where none does the field is no pointer.
struct Pointer {
  std::string_view field;
  std::int32_t table;
  Counts counts = Counts::FromZero;
  std::string_view selector = {};
  std::int32_t selected = 0;
};

// clang-format off
constexpr ParallelTable kParallel[] = {
    { 7,  5}, {36, 21}, {53, 21}, {67, 21}, {72, 21}, {75, 21}, {77, 21}, {78, 21}, {51, 21, 6},
    {31, 29}, {48, 29}, {63, 64}, {38, 37}, {30, 29, 51, 1, 89}, {30, 29, 141, 1},
};

/// Told apart by their keys, and laid out in blocks all the same.
constexpr ParallelTable kKeyedBlocks[] = {{49, 29, 7}};
/// Every save lays these out for the records there are.
constexpr std::int32_t kFollowers[] = {7, 38, 51, 63};

constexpr KeyedTable kKeyed[] = {
    {16,  0, {"16.GroupIdentity"}},
    {18, 16, {"18.GroupIDNumber", "18.GroupChannelRecordNum"}},
    {32, 29, {"32.SignalSystemId", "32.Value"}},
    {49, 29, {"49.FreeFormSigSysID", "49.FreeFormSeqID"}},
    {65, 64, {"65.DTMFChannelPresetSeqSigSysID"}},
    {66, 64, {"66.DTMFNetworkPresetSeqSigSysID", "66.DTMFNetworkPresetSeqType"}},
    {68, 21, {"68.DTMFPatchSeqNetworkID", "68.DTMFPatchSeqSequenceType"}},
    {76,  5, {"76.DSDBM_PRESET_CALL_CHANNEL_REF"}},
    {81, 80, {"81.MDC1200NetworkPresetSeqSigSystemID", "81.MDC1200NetworkPresetSeqSeqType"}},
};

/// The codes in use, in the order in which channels were saved.
struct CodeList { std::int32_t table; std::string_view code; };
constexpr CodeList kCodeLists[] = {{50, "50.CTCSSfreq"}, {61, "61.DCScodeword"}};

/// The same for all radios, or told by other tables.
constexpr std::int32_t kLaidOutAnew[] = {3, 74};

/// A programmable action is known by the key that points at it, and by how it is pressed.
constexpr std::int32_t kActions = 24;
constexpr struct { std::string_view pointer, press; } kPresses[] = {
    {"15.FnKeyShortPressActionID", "short press"},
    {"15.FnKeyLongPressActionID",  "long press"},
    {"15.FnKeyUpActionID",         "up"},
    {"15.FnKeyDownActionID",       "down"},
};

/// The audible indicators and their cadences, what push-to-talk does, the lines of the programmable I/O.
constexpr std::int32_t kFilledByFirstSave[] = {4, 25, 55, 59, 60};
/// Those of them that have all their records from the beginning; a save never leaves all of them as new ones.
constexpr std::int32_t kFilledInPlace[] = {25, 55, 59};

constexpr Pointer kPointers[] = {
    {"5.ChannelNetworkId",                  21},
    {"5.RxSubaudibleIndex",                 50, Counts::FromZero, "5.RxSubaudibleType", 1},
    {"5.RxSubaudibleIndex",                 61, Counts::FromZero, "5.RxSubaudibleType", 2},
    {"5.TxSubaudibleIndex",                 50, Counts::FromZero, "5.TxSubaudibleType", 1},
    {"5.TxSubaudibleIndex",                 61, Counts::FromZero, "5.TxSubaudibleType", 2},
    {"5.RepeaterBurst",                     30, Counts::FromZeroOrNone},
    {"5.CallerIDBurst",                     30, Counts::FromZeroOrNone},
    {"5.TXCallBurst",                       30, Counts::FromZeroOrNone},
    {"5.StatusBurst",                       30, Counts::FromZeroOrNone},
    {"5.RepeaterAccessTone",                30, Counts::FromZeroOrNone},
    {"5.Lead-In-Tone",                      30, Counts::FromZeroOrNone},
    {"5.DTMFPresetCallPointer",             65, Counts::FromZeroOrNone},
    {"7.CibChannelRec",                      5},
    {"15.FnKeyShortPressActionID",          24, Counts::FromOneOrNone},
    {"15.FnKeyLongPressActionID",           24, Counts::FromOneOrNone},
    {"15.FnKeyUpActionID",                  24, Counts::FromOneOrNone},
    {"15.FnKeyDownActionID",                24, Counts::FromOneOrNone},
    {"16.FirstGroupMember",                 18},
    {"16.Priority1Channel",                  5},
    {"16.Priority2Channel",                  5},
    {"16.ScanPresetTxChannel",               5},
    {"16.VotePresetTxChannel",               5},
    {"17.ChannelGroupRecordForRadioStartup", 5, Counts::FromZero, "17.StartingWithChannelOrGroup", 0},
    {"17.ChannelGroupRecordForRadioStartup", 16, Counts::FromZero, "17.StartingWithChannelOrGroup", 1},
    {"18.GroupRecordNumber",                16},
    {"18.GroupNextMemberRecordNum",         18},
    {"18.GroupChannelRecordNum",             5},
    {"21.SIBTPointer",                      75},
    {"21.EmergencyPointer",                 53},
    {"21.SignallingPointer",                29, Counts::FromZero, "21.SignallingType", 1},
    {"21.SignallingPointer",                64, Counts::FromZero, "21.SignallingType", 2},
    {"21.SignallingPointer",                37, Counts::FromZero, "21.SignallingType", 3},
    {"21.SignallingPointer",                80, Counts::FromZero, "21.SignallingType", 4},
    {"21.Ind1CallAlertPtr",                 51},
    {"21.Ind2CallAlertPtr",                 51},
    {"21.GroupCallAlertPtr",                51},
    {"21.AllCallAlertPtr",                  51},
    {"21.PriorityCallAlertPtr",             51},
    {"21.EmergencyCallAlertPtr",            51},
    {"24.Parameter1",                        5, Counts::FromZero, "24.ProgrammableActionType", 9},
    {"24.Parameter1",                       16, Counts::FromZero, "24.ProgrammableActionType", 12},
    {"31.ToneSetPointer",                   48},
    {"51.CallAlertID",                      51},
    {"53.NetworkID",                        21},
    {"53.ChannelRecordNr",                   5, Counts::FromZero, "53.ChannelType", 1},
    {"55.GPIOActivation1",                   5, Counts::FromZero, "55.DigitalIOInputActivationAction", 23},
    {"55.GPIOActivation1",                   5, Counts::FromZero, "55.DigitalIOInputActivationAction", 24},
    {"55.GPIOActivation1",                  16, Counts::FromZero, "55.DigitalIOInputActivationAction", 46},
    {"55.GPIODeActivation1",                 5, Counts::FromZero, "55.DigitalIOInputActivationAction", 23},
    {"55.GPIODeActivation1",                16, Counts::FromZero, "55.DigitalIOInputActivationAction", 46},
    {"64.DTMFNetworkToneSetupRecord",       63},
    {"67.DTMFPatchToneSetupPointer",        72},
    {"69.GPSPollResponseChannel",            5, Counts::FromZero, "69.GPSPollResponseChannelType", 1},
    {"76.DSDBM_PRESET_CALL_CHANNEL_REF",     5, Counts::FromOne},
    {"76.DSDBM_CHANNEL_SEL_RPT_BURST_INDEX_POINTER", 30, Counts::FromZeroOrNone},
    {"76.DSDBM_CHANNEL_SEL_CALLER_ID_INDEX_POINTER", 30, Counts::FromZeroOrNone},
    {"76.DSDBM_CHANNEL_SEL_TXCALL_INDEX_POINTER",    30, Counts::FromZeroOrNone},
    {"76.DSDBM_CHANNEL_SEL_STATUS_INDEX_POINTER",    30, Counts::FromZeroOrNone},
};
// clang-format on

/// The row of a table; null for none.
template <typename Row, std::size_t count>
const Row* RowOf(const Row (&rows)[count], std::int32_t table) {
  const Row* row = std::ranges::find(rows, table, &Row::table);
  return row == std::end(rows) ? nullptr : row;
}

const ParallelTable* ParallelOf(const Schema& schema, std::int32_t table) {
  const auto* row = std::ranges::find_if(kParallel, [&](const ParallelTable& one) {
    return one.table == table && schema.Number() <= one.lastVersion;
  });
  return row == std::end(kParallel) ? nullptr : row;
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

bool RecordKeys::PointsAt(std::string_view fieldId, std::int32_t table) {
  return std::ranges::any_of(
      kPointers, [&](const Pointer& pointer) { return pointer.field == fieldId && pointer.table == table; });
}

bool RecordKeys::IsLaidOutAnew(const SchemaTable& table) {
  return std::ranges::find(kLaidOutAnew, table.number) != std::end(kLaidOutAnew) ||
         RowOf(kCodeLists, table.number) != nullptr;
}

bool RecordKeys::IsFilledByFirstSave(const SchemaTable& table) {
  return std::ranges::find(kFilledByFirstSave, table.number) != std::end(kFilledByFirstSave);
}

bool RecordKeys::AwaitsFirstSave(const Provider& stored, const SchemaTable& table) {
  if (std::ranges::find(kFilledInPlace, table.number) == std::end(kFilledInPlace)) return false;
  for (const SchemaField& field : stored.GetSchema().FieldsOf(table)) {
    for (RecordNr record = 1; field.IsRaw() && record <= stored.Count(table); ++record) {
      if (!SameCell(stored.Get(field, record), field.standard)) return false;
    }
  }
  return true;
}

std::optional<RecordNr> RecordKeys::NeededRecords(const Provider& stored, const SchemaTable& table) {
  if (std::ranges::find(kFollowers, table.number) != std::end(kFollowers)) return {};
  const ParallelTable* blocks = ParallelOf(stored.GetSchema(), table.number);
  if (blocks == nullptr) blocks = RowOf(kKeyedBlocks, table.number);
  if (blocks == nullptr) return {};
  return blocks->ownerless + blocks->each * stored.Count(blocks->owner);
}

const SchemaTable* RecordKeys::OwnerOf(const SchemaTable& table) const {
  const ParallelTable* parallel = ParallelOf(personality_.stored->GetSchema(), table.number);
  const KeyedTable* keyed = RowOf(kKeyed, table.number);
  const std::int32_t owner = parallel != nullptr ? parallel->owner : keyed != nullptr ? keyed->owner : 0;
  return owner == 0 ? nullptr : personality_.stored->GetSchema().FindTable(owner);
}

std::string RecordKeys::OwnerKey(const SchemaTable& table, RecordNr record) {
  const SchemaTable* owner = OwnerOf(table);
  if (owner == nullptr) return {};
  const ParallelTable* parallel = ParallelOf(personality_.stored->GetSchema(), table.number);
  if (parallel == nullptr) return Part(RowOf(kKeyed, table.number)->fields.front(), record);
  if (record <= parallel->ownerless) return {};
  const RecordNr ownerRecord = (record - parallel->ownerless - 1) / parallel->each + 1;
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
  if (const KeyedTable* keyed = RowOf(kKeyed, table.number)) {
    std::string key;
    for (const std::string_view field : keyed->fields) {
      if (!field.empty()) key += (key.empty() ? "" : "/") + Part(field, record);
    }
    return key;
  }
  if (const ParallelTable* parallel = ParallelOf(personality_.stored->GetSchema(), table.number)) {
    const std::string owner = OwnerKey(table, record);
    if (owner.empty()) return "record " + std::to_string(record);
    const RecordNr place = (record - parallel->ownerless - 1) % parallel->each + 1;
    return parallel->each == 1 ? owner : owner + "/" + std::to_string(place);
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
  const Schema& schema = stored.GetSchema();
  const auto isRight = [&](const Pointer& row) {
    if (row.field != field.id) return false;
    if (row.selector.empty()) return true;
    const SchemaField* selector = schema.Find(row.selector);
    return selector != nullptr && SameValue(stored.Get(*selector, record), row.selected);
  };
  const Pointer* row = std::ranges::find_if(kPointers, isRight);
  if (row == std::end(kPointers)) return {};
  const SchemaTable* table = schema.FindTable(row->table);
  const Variant& value = stored.Get(field, record);
  if (table == nullptr || !IsNumeric(value)) return {};
  const bool mayBeNone = row->counts == Counts::FromZeroOrNone || row->counts == Counts::FromOneOrNone;
  if (mayBeNone && CLng(value) == 0) return "None";
  const bool isFromOne = row->counts == Counts::FromOne || row->counts == Counts::FromOneOrNone;
  const RecordNr target = CLng(value) + (isFromOne ? 0 : 1);
  if (target < 1 || target > stored.Count(*table)) return CStr(value) + " (no record)";
  if (const CodeList* list = RowOf(kCodeLists, table->number)) return Part(list->code, target);
  return Of(*table)[static_cast<std::size_t>(target - 1)];
}
