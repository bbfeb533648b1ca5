#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "platform/Types.h"
#include "platform/Variant.h"
#include "workbench/Schema.h"

class Journal;

/// The records of one table, one column of values for each of its fields.
struct TableContent {
  RecordNr count = 0;
  std::vector<std::vector<Variant>> columns;
};

/// The values of a personality at one version. Records count from 1; a record outside 1..Count raises 9,
/// one more than the table holds raises 5. Writes are told to the open journal.
class Records {
 public:
  /// Every table starts with its minimum of records, holding default values.
  explicit Records(std::shared_ptr<const Schema> schema);

  const Schema& GetSchema() const { return *schema_; }
  const std::shared_ptr<const Schema>& SharedSchema() const { return schema_; }

  RecordNr Count(const SchemaTable& table) const { return tables_[table.index].count; }
  /// By record, from index 0.
  const std::vector<Variant>& Values(const SchemaField& field) const {
    return tables_[field.tableIndex].columns[ColumnOf(field)];
  }
  const Variant& Get(const SchemaField& field, RecordNr record) const;
  void Set(const SchemaField& field, RecordNr record, Variant value);

  /// The new record stands at `record`, 1..Count+1.
  void Insert(const SchemaTable& table, RecordNr record);
  void Delete(const SchemaTable& table, RecordNr record);
  /// Removes records from the end or adds new ones there.
  void SetCount(const SchemaTable& table, RecordNr count);
  /// Ascending by the fields of the table, in their order of weight; equal records keep their order.
  void Sort(const SchemaTable& table, std::span<const SchemaField* const> keys);

  /// Takes over all records of a store of the same schema; the open journal is not told.
  void CopyContent(const Records& other) { tables_ = other.tables_; }

 private:
  friend class Journal;

  std::size_t ColumnOf(const SchemaField& field) const {
    return field.index - schema_->TableOf(field).firstField;
  }
  std::size_t IndexOf(const SchemaField& field, RecordNr record) const;
  /// To be called before the set of records of the table changes.
  TableContent& ContentToChange(const SchemaTable& table);

  std::shared_ptr<const Schema> schema_;
  std::vector<TableContent> tables_;
  Journal* journal_ = nullptr;
};
