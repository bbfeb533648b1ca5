#include "workbench/jobs/Integrity.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "workbench/jobs/Session.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Journal.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/ValueText.h"

namespace {

constexpr std::string_view kDamageNames[] = {"reference", "number",  "companions", "chain",
                                             "presets",   "version", "shape",      "range"};

std::string Named(const SchemaTable& table) {
  return "table " + CStr(table.number) + " (" + table.title + ")";
}

class Judgement {
 public:
  explicit Judgement(const Provider& stored) : stored_(stored), schema_(stored.GetSchema()) {}

  std::vector<Damage> All() {
    JudgeVersion();
    for (const SchemaTable& table : schema_.Tables()) {
      if (!table.IsRaw()) continue;
      JudgeCount(table);
      JudgeNumbers(table);
      for (const SchemaField& field : schema_.FieldsOf(table)) {
        if (field.IsRaw()) JudgeField(field);
      }
    }
    JudgeGroups();
    JudgePresets();
    std::ranges::stable_sort(damages_, {}, [](const Damage& damage) {
      return std::pair(damage.place.table->number, damage.place.record);
    });
    return std::move(damages_);
  }

 private:
  void Add(DamageKind kind, const SchemaField& field, RecordNr record, std::string text) {
    if (!told_.emplace(field.index, record).second) return;
    const SchemaTable& table = schema_.TableOf(field);
    damages_.push_back({kind, {&table, record, &field}, stored_.Get(field, record), std::move(text)});
  }

  void JudgeVersion() {
    const SchemaField& model = stored_.FieldOf("0.RadioTier");
    const SchemaField& version = stored_.FieldOf("39.Databaseversion");
    if (CStr(stored_.Get(model, 1)) != schema_.Model())
      Add(DamageKind::Version, model, 1, "the document is of model " + schema_.Model());
    if (!SameValue(stored_.Get(version, 1), schema_.Number()))
      Add(DamageKind::Version, version, 1, "the document is of database version " + schema_.Name().Digits());
  }

  void JudgeCount(const SchemaTable& table) {
    const std::optional<RecordNr> needed = RecordKeys::NeededRecords(stored_, table);
    const RecordNr count = stored_.Count(table);
    if (!needed || count == *needed) return;
    const std::string text =
        "records of the table: " + CStr(count) + ", needed: " + CStr(*needed) + "; " +
        (count < *needed ? "those that lack are taken as new ones"
                         : "those behind are not read, and go with the next that is added or saved");
    const RecordNr first = count < *needed ? 0 : *needed + 1;
    damages_.push_back({DamageKind::Companions, {&table, first, nullptr}, {}, text});
  }

  /// The limits of the number are those of the identity that the forms show for it.
  void JudgeNumbers(const SchemaTable& table) {
    if (table.layout.number.empty()) return;
    const SchemaField& number = stored_.FieldOf(table.layout.number);
    const SchemaField* shown = schema_.IdentityOf(table);
    if (shown == nullptr && table.layout.owner != 0)
      shown = schema_.IdentityOf(*schema_.FindTable(table.layout.owner));
    std::map<std::int32_t, RecordNr> records;
    for (RecordNr record = 1; record <= stored_.Count(table); ++record) {
      const std::int32_t value = CLng(stored_.Get(number, record));
      if (shown != nullptr && !LimitsOf(*shown).Hold(value)) {
        Add(DamageKind::Number, number, record,
            "the record is known by no number: it is outside " + CStr(shown->minimum) + " to " +
                CStr(shown->maximum));
      } else if (const auto [first, isNew] = records.emplace(value, record); !isNew) {
        Add(DamageKind::Number, number, record,
            "record " + CStr(first->second) + " of the table is known by the same number");
      }
    }
  }

  void JudgeField(const SchemaField& field) {
    const RecordNr count = stored_.Count(schema_.TableOf(field));
    for (RecordNr record = 1; record <= count; ++record) {
      const Variant& value = stored_.Get(field, record);
      if (!field.references.empty()) JudgeReference(field, record, value);
      if (field.type == FieldType::Array) {
        JudgeShape(field, record, value);
      } else if (!IsWithinLimits(field, value)) {
        const Limits limits = StoredLimitsOf(field);
        Add(DamageKind::Range, field, record,
            field.id + " is outside " + CStr(limits.lowest) + " to " + CStr(limits.highest));
      }
    }
  }

  void JudgeReference(const SchemaField& field, RecordNr record, const Variant& value) {
    const SchemaReference* reference = RecordKeys::ReferenceIn(stored_, field, record);
    if (reference == nullptr || (reference->MayBeNone() && SameValue(value, 0))) return;
    const SchemaTable& target = *schema_.FindTable(reference->table);
    const RecordNr count = stored_.Count(target);
    if (reference->IsByNumber()) {
      if (!HasNumber(target, value))
        Add(DamageKind::Reference, field, record,
            "no record of " + Named(target) + " is known by this number");
      return;
    }
    const double place = CDbl(value) - reference->Base() + 1;
    if ((place >= 1 && place <= count) || IsStillNew(field, *reference, value, count)) return;
    Add(DamageKind::Reference, field, record,
        "it points at no record of " + Named(target) + ", which has " + CStr(count) + ", counted from " +
            CStr(reference->Base()));
  }

  /// A new record holds its defaults before there is a record to point at.
  bool IsStillNew(const SchemaField& field, const SchemaReference& reference, const Variant& value,
                  RecordNr count) const {
    if (count > 0 || !SameCell(value, field.standard)) return false;
    return reference.selector.empty() ||
           SameValue(stored_.FieldOf(reference.selector).standard, reference.selected);
  }

  bool HasNumber(const SchemaTable& target, const Variant& value) {
    const auto [place, isNew] = numbers_.try_emplace(target.index);
    if (isNew) {
      const SchemaField& number = stored_.FieldOf(target.layout.number);
      for (RecordNr record = 1; record <= stored_.Count(target); ++record)
        place->second.insert(CLng(stored_.Get(number, record)));
    }
    return place->second.contains(CLng(value));
  }

  /// Where a new record has rows, each has as many.
  void JudgeShape(const SchemaField& field, RecordNr record, const Variant& value) {
    const std::int32_t needed = CArray(field.standard).UpperBound(1);
    const std::int32_t rows = value.IsEmpty() ? 0 : CArray(value).UpperBound(1);
    if (needed == 0 || rows == needed) return;
    Add(DamageKind::Shape, field, record, "the array has " + CStr(rows) + " rows, it needs " + CStr(needed));
  }

  void JudgeGroups() {
    const SchemaField& owner = stored_.FieldOf("18.GroupRecordNumber");
    const RecordNr groups = stored_.Count(stored_.FieldOf("16.GroupIdentity").table);
    std::vector<std::vector<RecordNr>> members(static_cast<std::size_t>(groups));
    for (RecordNr member = 1; member <= stored_.Count(owner.table); ++member) {
      const std::int32_t group = CLng(stored_.Get(owner, member));
      if (group >= 0 && group < groups) members[static_cast<std::size_t>(group)].push_back(member);
    }
    for (RecordNr group = 1; group <= groups; ++group) {
      JudgeMembers(group, members[static_cast<std::size_t>(group - 1)]);
      JudgeRing(group, members[static_cast<std::size_t>(group - 1)]);
    }
  }

  void JudgeMembers(RecordNr group, const std::vector<RecordNr>& members) {
    const SchemaField& number = stored_.FieldOf("18.GroupIDNumber");
    const SchemaField& index = stored_.FieldOf("18.GroupChannelRecordNum");
    std::set<std::int32_t> channels;
    for (const RecordNr member : members) {
      if (!SameValue(stored_.Get(number, member), stored_.Get("16.GroupIdentity", group)))
        Add(DamageKind::Chain, number, member,
            "the member names another group by its record than by its number");
      if (!channels.insert(CLng(stored_.Get(index, member))).second)
        Add(DamageKind::Chain, index, member, "the group has a channel as a member more than once");
    }
  }

  /// The radio follows the ring; what counts for the forms is how the members stand.
  void JudgeRing(RecordNr group, const std::vector<RecordNr>& members) {
    const std::string other = "the members of group " + CStr(stored_.Get("16.GroupIdentity", group)) +
                              " are linked in another order than they stand";
    const SchemaField& first = stored_.FieldOf("16.FirstGroupMember");
    const SchemaField& next = stored_.FieldOf("18.GroupNextMemberRecordNum");
    if (members.empty()) return;
    if (!SameValue(stored_.Get(first, group), members.front() - 1))
      Add(DamageKind::Chain, first, group, other);
    for (std::size_t i = 0; i < members.size(); ++i) {
      if (!SameValue(stored_.Get(next, members[i]), members[(i + 1) % members.size()] - 1))
        Add(DamageKind::Chain, next, members[i], other);
    }
  }

  void JudgePresets() {
    constexpr std::int32_t kPerSystem = 10;
    const SchemaField& system = stored_.FieldOf("64.DTMFNetworkSigSystemID");
    const SchemaField& owner = stored_.FieldOf("65.DTMFChannelPresetSeqSigSysID");
    for (RecordNr record = 1; record <= stored_.Count(system.table); ++record) {
      std::int32_t own = 0;
      for (RecordNr preset = 2; preset <= stored_.Count(owner.table);
           ++preset) {  // the first belongs to no system
        own += SameValue(stored_.Get(owner, preset), stored_.Get(system, record)) ? 1 : 0;
      }
      if (own == kPerSystem) continue;
      Add(DamageKind::Presets, system, record,
          "the system has presets in another number than " + CStr(kPerSystem) + ": " + CStr(own));
    }
  }

  const Provider& stored_;
  const Schema& schema_;
  std::vector<Damage> damages_;
  std::set<std::pair<std::size_t, RecordNr>> told_;        // cells, by the index of the field
  std::map<std::size_t, std::set<std::int32_t>> numbers_;  // by SchemaTable::index
};

}  // namespace

std::string_view NameOf(DamageKind kind) { return kDamageNames[static_cast<std::size_t>(kind)]; }

std::vector<Damage> DamagesOf(const Provider& stored) { return Judgement(stored).All(); }

std::string ConsequenceOf(const Damage& damage, const Provider& stored, const Provider& saved) {
  const auto& [table, record, field] = damage.place;
  const RecordNr count = saved.Count(*table);
  if (field == nullptr) {
    return count == stored.Count(*table) ? "a save keeps it"
                                         : "a save makes a table of " + CStr(count) + " records of it";
  }
  if (record > count) return "a save drops its record";
  const Variant& value = saved.Get(*field, record);
  return SameCell(value, damage.value) ? "a save keeps it"
                                       : "a save makes " + ValueText::Of(value) + " of it";
}
