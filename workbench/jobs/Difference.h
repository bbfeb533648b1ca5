#pragma once

#include <string>
#include <vector>

#include "platform/Variant.h"
#include "workbench/store/RecordKeys.h"

struct HostParts;
class Schema;
class Imessenger;

/// A cell of a record that both personalities have.
struct CellDifference {
  const SchemaTable* table;
  const SchemaField* field;    // as it is stored
  const SchemaField* shownAs;  // the form field of it, where there is one
  std::string record;          // its key
  Variant storedA, storedB;
  /// What a person reads: the form's value, what a pointer points at, else the stored value.
  Variant a, b;
};

/// A record that one of them has alone.
struct RecordDifference {
  const SchemaTable* table;
  std::string record;
};

/// A value, other than its default, in a field that the version of the other does not have.
struct ExtraValue {
  const SchemaField* field;
  std::string record;
  Variant value;
};

/// Tables and fields are those of the first personality's schema, where it has them.
struct Difference {
  bool sameVersion = true;
  std::vector<RecordDifference> onlyInA, onlyInB;
  std::vector<CellDifference> cells;
  std::vector<ExtraValue> extraInA, extraInB;
  /// Pointers to the same record, which stands elsewhere. That alone is no difference.
  std::vector<CellDifference> moved;
  /// Whose common records stand in another order. That alone is no difference.
  std::vector<const SchemaTable*> reordered;

  bool IsEqual() const {
    return sameVersion && onlyInA.empty() && onlyInB.empty() && cells.empty() && extraInA.empty() &&
           extraInB.empty();
  }
};

/// Converts a copy of the content for the forms. A fault of the tier leaves by a TierFault.
ComparedPersonality ForComparison(const HostParts& parts, std::shared_ptr<Provider> content,
                                  std::shared_ptr<Imessenger> messenger);

/// The form field that shows a stored one; the stored one itself where there is none.
const SchemaField* ShownAs(const Schema& schema, const SchemaField& field);

/// Compares what is stored, record by record as RecordKeys tells them, in schema order. The lists of codes in
/// use are left out: what points at them is compared by the codes. A record whose owner the other does not
/// have either is not told on its own.
Difference Compare(const ComparedPersonality& a, const ComparedPersonality& b);
