#pragma once

#include <map>
#include <vector>

#include "workbench/store/Provider.h"

/// One difference between a personality now and when the journal was opened: a cell, or (without field)
/// the number of records of a table.
struct Change {
  explicit Change(const SchemaTable& changed) : table(&changed) {}

  const SchemaTable* table;
  const SchemaField* field = nullptr;  // null: `before` and `now` are record counts
  RecordNr record = 0;                 // 0 for a record count
  Variant before;
  Variant now;
};

/// While it lives, a provider's writes can be told and taken back. One at a time for a provider; going out of
/// scope keeps what was written. Neither opening nor rolling back an unused one allocates.
class Journal final : private WriteListener {
 public:
  explicit Journal(Provider& provider);
  ~Journal();
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  /// Nothing was written, not even a value that was there already.
  bool IsUnused() const { return cells_.empty() && tables_.empty(); }
  /// What differs now, in schema order, then by record. A table whose number of records changed is told
  /// by that number alone. "1" and 1 are the same value.
  std::vector<Change> Changes() const;
  /// Restores records, AutoUpdate and factory mode as they were, and goes on from there.
  void Rollback();

 private:
  /// The value that a cell had before a write.
  struct Cell {
    const SchemaField* field;
    RecordNr record;
    Variant before;
  };
  /// A table as it was before its set of records changed for the first time. Later writes to it need no
  /// note of their own.
  struct Copy {
    const SchemaTable* table;
    TableContent content;
  };

  bool HasCopyOf(std::size_t tableIndex) const;
  void BeforeCell(const SchemaField& field, RecordNr record, Variant before) override;
  void BeforeTable(const SchemaTable& table) override;
  /// The tables that were written to, as they were when the journal was opened.
  std::map<std::size_t, TableContent> TouchedTables() const;
  void AddChanges(const SchemaTable& table, const TableContent& before, std::vector<Change>& changes) const;

  std::shared_ptr<ProviderState> state_;
  bool autoUpdate_;
  bool factoryMode_;
  std::vector<Cell> cells_;
  std::vector<Copy> tables_;
};

/// Equality of two values of one field as a person sees it, and as a file keeps it; arrays by their rows
/// from 1.
bool SameCell(const Variant& a, const Variant& b);

/// The stored cells that differ between two personalities of one version, place by place, in schema order. A
/// record that one of them does not have is told by each of its cells, with Empty on that side.
std::vector<Change> ChangedCells(const Provider& before, const Provider& now);
