#include "workbench/jobs/Difference.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "workbench/jobs/Session.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Journal.h"
#include "workbench/store/Provider.h"

namespace {

/// Stored fields whose form field has another name than their own and an ending.
struct FormName {
  std::string_view stored;
  std::string_view form;
};
// clang-format off
constexpr FormName kFormNames[] = {
    {"5.RxSubaudibleIndex",                  "5.RxSignallingUI"},
    {"5.TxSubaudibleIndex",                  "5.TxSignallingUI"},
    {"5.DTMFPresetCallPointer",              "5.DTMFPresetCallSequence"},
    {"17.ChannelGroupRecordForRadioStartup", "17.ChannelGroupIDForRadioStartup"},
    {"18.GroupChannelRecordNum",             "18.GroupChannelUI"},
    {"21.SignallingPointer",                 "21.NetworkSignallingID"},
    {"29.TxFormat",                          "29.DerivedTxFormat"},
    {"29.RxFormat",                          "29.DerivedRxFormat"},
    {"29.RxSeqOne",                          "29.DerivedRxDecode1"},
    {"29.RxSeqTwo",                          "29.DerivedRxDecode2"},
    {"30.FixedFormatBurstSeq",               "30.UGBurstSeq"},
    {"48.SelcallToneSet",                    "48.DerivedSelcallToneSet"},
    {"53.ChannelRecordNr",                   "53.ChannelIDTracker"},
};
// clang-format on
constexpr std::string_view kFormEndings[] = {"UI", "_UI", "Seq", "Hex", "Derived", "_k6k"};

const SchemaField* StoredField(const Schema& schema, const SchemaField& like) {
  const SchemaField* field = schema.Find(like.id);
  return field != nullptr && field->IsRaw() ? field : nullptr;
}

/// The records of a table that both personalities have, in the order of the first.
struct RecordPair {
  RecordNr a;
  RecordNr b;
};

class Comparison {
 public:
  Comparison(const ComparedPersonality& a, const ComparedPersonality& b)
      : a_(a),
        b_(b),
        schemaA_(a.stored->GetSchema()),
        schemaB_(b.stored->GetSchema()),
        keysA_(a),
        keysB_(b) {}

  Difference Result() {
    result_.sameVersion = schemaA_.Version() == schemaB_.Version();
    for (const SchemaTable& table : schemaA_.Tables()) {
      const SchemaTable* other = schemaB_.FindTable(table.number);
      const bool isShared = table.IsRaw() && other != nullptr && other->IsRaw();
      if (isShared && !RecordKeys::IsLaidOutAnew(table)) CompareTable(table, *other);
    }
    result_.extraInA = ExtraValues(a_, keysA_, schemaB_);
    result_.extraInB = ExtraValues(b_, keysB_, schemaA_);
    return std::move(result_);
  }

 private:
  void CompareTable(const SchemaTable& table, const SchemaTable& other) {
    const std::vector<RecordPair> pairs = CommonRecords(table, other);
    AddSingles(keysA_, keysB_, table, other, result_.onlyInA);
    AddSingles(keysB_, keysA_, other, table, result_.onlyInB);
    const bool isOrdered = std::ranges::is_sorted(pairs, {}, &RecordPair::b);
    if (!isOrdered && keysA_.OwnerOf(table) == nullptr) result_.reordered.push_back(&table);
    for (const SchemaField& field : schemaA_.FieldsOf(table)) {
      const SchemaField* otherField = field.IsRaw() ? StoredField(schemaB_, field) : nullptr;
      if (otherField == nullptr) continue;
      for (const RecordPair& pair : pairs) CompareCell(field, *otherField, pair);
    }
  }

  std::vector<RecordPair> CommonRecords(const SchemaTable& table, const SchemaTable& other) {
    std::vector<RecordPair> pairs;
    RecordNr record = 0;
    for (const std::string& key : keysA_.Of(table)) {
      ++record;
      if (const RecordNr otherRecord = keysB_.Find(other, key)) pairs.push_back({record, otherRecord});
    }
    return pairs;
  }

  static void AddSingles(RecordKeys& keys, RecordKeys& otherKeys, const SchemaTable& table,
                         const SchemaTable& other, std::vector<RecordDifference>& singles) {
    const SchemaTable* owner = keys.OwnerOf(table);
    const SchemaTable* otherOwner = otherKeys.OwnerOf(other);
    RecordNr record = 0;
    for (const std::string& key : keys.Of(table)) {
      ++record;
      if (otherKeys.Find(other, key) != 0) continue;
      const std::string ownerKey = keys.OwnerKey(table, record);
      const bool goesWithOwner = owner != nullptr && otherOwner != nullptr &&
                                 keys.Find(*owner, ownerKey) != 0 &&
                                 otherKeys.Find(*otherOwner, ownerKey) == 0;
      if (!goesWithOwner) singles.push_back({&table, key});
    }
  }

  void CompareCell(const SchemaField& field, const SchemaField& otherField, const RecordPair& pair) {
    const Variant& a = a_.stored->Get(field, pair.a);
    const Variant& b = b_.stored->Get(otherField, pair.b);
    const std::optional<std::string> targetA = keysA_.Target(field, pair.a);
    const std::optional<std::string> targetB = keysB_.Target(otherField, pair.b);
    const bool arePointers = targetA && targetB;
    if (SameCell(a, b) && (!arePointers || *targetA == *targetB)) return;
    const bool hasMoved = arePointers && *targetA == *targetB;
    const SchemaTable& table = schemaA_.TableOf(field);
    CellDifference& cell =
        (hasMoved ? result_.moved : result_.cells)
            .emplace_back(CellDifference{&table, &field, ShownAs(schemaA_, field),
                                         keysA_.Of(table)[static_cast<std::size_t>(pair.a - 1)], a, b,
                                         targetA ? Variant(*targetA) : a, targetB ? Variant(*targetB) : b});
    if (!hasMoved) ShowAsOnForms(cell, pair);
  }

  /// Shows the form's values, where they tell the difference.
  void ShowAsOnForms(CellDifference& cell, const RecordPair& pair) const {
    const SchemaField* other = schemaB_.Find(cell.shownAs->id);
    const bool isForm = !cell.shownAs->IsRaw() && other != nullptr;
    if (!isForm || pair.a > a_.forms->Count(*cell.table) || pair.b > b_.forms->Count(other->table)) return;
    const Variant& a = a_.forms->Get(*cell.shownAs, pair.a);
    const Variant& b = b_.forms->Get(*other, pair.b);
    if (SameCell(a, b)) return;
    cell.a = a;
    cell.b = b;
  }

  static std::vector<ExtraValue> ExtraValues(const ComparedPersonality& personality, RecordKeys& keys,
                                             const Schema& other) {
    std::vector<ExtraValue> extra;
    const Schema& schema = personality.stored->GetSchema();
    for (const SchemaField& field : schema.Fields()) {
      if (!field.IsRaw() || StoredField(other, field) != nullptr) continue;
      RecordNr record = 0;
      for (const std::string& key : keys.Of(schema.TableOf(field))) {
        const Variant& value = personality.stored->Get(field, ++record);
        if (!SameCell(value, field.standard)) extra.push_back({&field, key, value});
      }
    }
    return extra;
  }

  const ComparedPersonality& a_;
  const ComparedPersonality& b_;
  const Schema& schemaA_;
  const Schema& schemaB_;
  RecordKeys keysA_;
  RecordKeys keysB_;
  Difference result_;
};

}  // namespace

const SchemaField* ShownAs(const Schema& schema, const SchemaField& field) {
  const auto isForm = [](const SchemaField* form) { return form != nullptr && !form->IsRaw(); };
  if (!field.uiids.empty()) return &field;
  const auto* row = std::ranges::find(kFormNames, field.id, &FormName::stored);
  if (row != std::end(kFormNames) && isForm(schema.Find(row->form))) return schema.Find(row->form);
  for (const std::string_view ending : kFormEndings) {
    const SchemaField* form = schema.Find(field.id + std::string(ending));
    if (isForm(form)) return form;
  }
  return &field;
}

ComparedPersonality ForComparison(const HostParts& parts, std::shared_ptr<Provider> content,
                                  std::shared_ptr<Imessenger> messenger) {
  ComparedPersonality personality{content, content->Copy()};
  Session session(parts, personality.forms, std::move(messenger));
  session.ConvertToForms();
  return personality;
}

Difference Compare(const ComparedPersonality& a, const ComparedPersonality& b) {
  return Comparison(a, b).Result();
}
