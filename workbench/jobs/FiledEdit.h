#pragma once

#include <optional>
#include <vector>

#include "workbench/jobs/Difference.h"
#include "workbench/store/Journal.h"

/// What becomes of an edit in the file. Only a file that is opened again tells: the radio rounds values,
/// makes some from others, and has no place for what the tier does not convert.
struct FiledEdit {
  const SchemaField& field;
  RecordNr record;
  const std::vector<Change>& others;  // what else it has changed in the session
  const Provider& forms;              // the session after the edit
  const ComparedPersonality& before;
  const ComparedPersonality& after;
};

/// What an edit makes of the file, as a comparison tells it.
struct FiledChanges {
  /// A record that is new or gone is told by each of its values; it has none (Empty) on the other side.
  /// Tables that are laid out anew are left out.
  std::vector<CellDifference> cells;
  /// Pointers that are stored anew because what they point at has moved.
  std::vector<CellDifference> followed;
  /// The tables that every save, or the first one, lays out anew and that come out another way than they
  /// were. That is nobody's edit: some follow the channels, some were not there yet.
  std::vector<const SchemaTable*> laidOutAnew;
};
/// `edited` is a table of which a record may have got another number and kept its place; null for none.
FiledChanges ChangesInFile(const ComparedPersonality& before, const ComparedPersonality& after,
                           const SchemaTable* edited = nullptr, RecordNr record = 0);
std::vector<const SchemaTable*> LaidOutAnew(const Provider& before, const Provider& after);

/// A value on the forms that does not come back from the file.
struct LostValue {
  const SchemaField* field;
  RecordNr record;
  Variant before;
  Variant now;   // after the edit; as before where only the file changes it
  Variant back;  // from the file; Empty when its record does not come back
};

/// The first of the edited field, of what its rule has written on the forms, and of what nobody has changed
/// there though the file does. A value that is spelled in another way is not lost.
std::optional<LostValue> LostValueOf(const FiledEdit& edit);
