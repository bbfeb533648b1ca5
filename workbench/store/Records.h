#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "platform/Types.h"
#include "platform/Variant.h"
#include "workbench/schema/Schema.h"

/// The records of one table, one column of values for each of its fields. Of several records that are deleted
/// one after the other, from the last to the first, those behind close up once, when one of them is asked
/// for.
struct TableContent {
  RecordNr count = 0;
  RecordNr inPlace = 0;           ///< so many stand where their numbers say; all, unless some are to close up
  std::vector<std::size_t> gone;  ///< places of the columns, descending, that are to be closed
  std::vector<std::vector<Variant>> columns;

  void CloseUp();
};

/// Is told of a write to the records before it is made.
class WriteListener {
 public:
  /// A cell gets another value; `before` is the one that it had.
  virtual void BeforeCell(const SchemaField& field, RecordNr record, Variant before) = 0;
  /// The set of records of the table changes, or their order.
  virtual void BeforeTable(const SchemaTable& table) = 0;

 protected:
  ~WriteListener() = default;
};

/// The values of a personality at one version. Records count from 1; a record outside 1..Count raises 9,
/// one more than the table holds raises 5. Writes are told to the listener.
class Records {
 public:
  /// Every table starts with its minimum of records, holding default values.
  explicit Records(std::shared_ptr<const Schema> schema);

  const Schema& GetSchema() const { return *schema_; }
  const std::shared_ptr<const Schema>& SharedSchema() const { return schema_; }

  RecordNr Count(const SchemaTable& table) const { return tables_[table.index].count; }
  /// By record, from index 0.
  const std::vector<Variant>& Values(const SchemaField& field) const {
    return Closed(field.tableIndex).columns[field.column];
  }
  const Variant& Get(const SchemaField& field, RecordNr record) const;
  void Set(const SchemaField& field, RecordNr record, Variant value);
  /// What a tier hands in: of an array the store keeps one of its own, for that of a tier would keep its
  /// library loaded for as long as the content lives.
  void Take(const SchemaField& field, RecordNr record, const Variant& value);

  /// The new record stands at `record`, 1..Count+1.
  void Insert(const SchemaTable& table, RecordNr record);
  void Delete(const SchemaTable& table, RecordNr record);
  /// Removes records from the end or adds new ones there.
  void SetCount(const SchemaTable& table, RecordNr count);
  /// Ascending by the fields of the table, in their order of weight; equal records keep their order.
  void Sort(const SchemaTable& table, std::span<const SchemaField* const> keys);

  /// How often anything was changed: what was made of the records is still right while this is the same.
  std::uint64_t Changes() const { return changes_; }

  /// At most one listens; null for none.
  WriteListener* Listener() const { return listener_; }
  void SetListener(WriteListener* listener) { listener_ = listener; }

  const TableContent& ContentOf(const SchemaTable& table) const { return Closed(table.index); }

  /// Whether the content is in the shape of the forms: new records take defaults in the shown unit.
  bool IsOnForms() const { return isOnForms_; }
  void SetOnForms(bool on) { isOnForms_ = on; }
  const Variant& NewValueOf(const SchemaField& field) const {
    return isOnForms_ ? field.shownStandard : field.standard;
  }

  // The listener is not told of these.

  /// Takes over all records of a store of the same schema.
  void CopyContent(const Records& other) {
    ++changes_;
    tables_ = other.tables_;
    isOnForms_ = other.isOnForms_;
  }
  void Restore(const SchemaTable& table, TableContent content) {
    ++changes_;
    tables_[table.index] = std::move(content);
  }
  void Restore(const SchemaField& field, RecordNr record, Variant value);

 private:
  Variant& Cell(const SchemaField& field, RecordNr record) const;
  TableContent& Closed(std::size_t tableIndex) const {
    TableContent& content = tables_[tableIndex];
    if (!content.gone.empty()) content.CloseUp();
    return content;
  }
  /// To be called before the set of records of the table changes.
  TableContent& ContentToChange(const SchemaTable& table);

  std::shared_ptr<const Schema> schema_;
  mutable std::vector<TableContent> tables_;  // a read may close up what deletions have left
  WriteListener* listener_ = nullptr;
  std::uint64_t changes_ = 0;
  bool isOnForms_ = false;
};
