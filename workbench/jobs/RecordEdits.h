#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Types.h"
#include "platform/Variant.h"
#include "workbench/store/Journal.h"

class Itable;
class Schema;
class Session;
struct ComparedPersonality;
struct SchemaTable;

/// An editable view of a table on a form, by the name under which the tier knows it.
struct Grid {
  std::string_view name;
  std::string_view word;  // by which the command line calls it
  std::int32_t table;
  bool inserts = false;  // also before a record
};

namespace Grids {
std::span<const Grid> All();
/// The grid of a name, of its word, of a table's number or of its title in the schema. An unknown one is a
/// UsageError that suggests what is spelled alike.
const Grid& Named(const Schema& schema, std::string_view text);
}  // namespace Grids

/// Where a new record or a deletion is refused, in the order of the steps.
enum class RecordStep {
  Capacity,        // by this host: the table would hold more or fewer records than the version allows
  Permission,      // the tier does not permit it
  PostProcessing,  // the tier refuses what has been added or deleted
  Show,            // the tier refuses to show the new record on its form
  Save,            // a save would lose it, or something else with it
};
std::string_view NameOf(RecordStep step);

/// What became of a record that was to be added, inserted or deleted.
struct RecordResult {
  bool accepted = false;
  /// Why not, and at which step; of no meaning when it was accepted.
  std::string refusal;
  RecordStep step = RecordStep::Capacity;
  /// Of the new or the deleted record, of several new ones the last; 0 for a record that was never added.
  RecordNr record = 0;
  /// The number by which a person knows it; empty in a table without identities.
  Variant identity;
  RecordNr count = 0;  // so many were added
  /// What else changed; after a refusal, all that had been written before it.
  std::vector<Change> others;
};

/// Adds, inserts and deletes records of one grid the way a host's grid does: it asks the tier for permission,
/// on which companions come and go, changes the table, and lets the tier complete what follows. The session
/// is on its forms. What was written before a refusal stays in the content, so a refused session is not to be
/// saved. A fault of the tier leaves by a TierFault, an operation that the tier does not have yet by an
/// UnsupportedByTier.
class RecordEdits {
 public:
  RecordEdits(Session& session, const Grid& grid);

  /// At the end of the table; the forms are turned to the last of the new records. All are added or none is
  /// to be kept. `from` is a record whose values the new ones take, all but its number; 0 for none, a
  /// UsageError for one that is not there, and in a grid whose records have others beside them.
  RecordResult Add(RecordNr count = 1, RecordNr from = 0);
  /// Before a record, to which the forms are turned. A record that is not there is a UsageError, and so is a
  /// grid that adds at the end alone.
  RecordResult Insert(RecordNr record);
  /// The forms go on showing what they show. A record that is not there is a UsageError.
  RecordResult Delete(RecordNr record);

  const SchemaTable& Table() const { return table_; }

 private:
  /// What permission, the table and the completion by the tier make of it; false for a refusal. `make` puts
  /// the record into the table, `complete` has the tier complete it.
  template <typename Make, typename Complete>
  bool MakeCompleted(RecordResult& result, Make make, Complete complete) const;
  bool AddCompleted(RecordResult& result, RecordNr from) const;
  bool InsertCompleted(RecordResult& result) const;
  void CopyValues(RecordNr from, RecordNr to) const;
  bool DeleteCompleted(RecordResult& result) const;
  /// Whether a save would keep the change; later records have moved, and with them what points at them.
  bool IsKept(RecordResult& result) const;
  bool KeepsPointers(const ComparedPersonality& before, RecordResult& result, bool isInserted) const;
  ComparedPersonality Snapshot() const;

  std::shared_ptr<Itable> OpenTable() const;
  Variant IdentityOf(RecordNr record) const;

  Session& session_;
  const Grid& grid_;
  const SchemaTable& table_;
};
