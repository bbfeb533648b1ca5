#pragma once

#include <memory>
#include <string_view>

#include "host/Ifields.h"

class Iprovider;

/// One table of a personality. Implemented by the host. Records count from 1 without a gap: when one
/// is inserted or deleted, the later ones move.
class Itable {
 public:
  virtual ~Itable() = default;
  virtual Status RecordCount(RecordNr& out) = 0;
  /// The number of records that the table is to hold at least.
  virtual Status MinRecords(RecordNr& out) = 0;
  /// The table's capacity in the radio.
  virtual Status MaxRecords(RecordNr& out) = 0;
  virtual Status Fields(std::shared_ptr<Ifields>& out) = 0;
  /// Sorts the records in place, equal ones keeping their order. `key` is one field, by FieldId or plain
  /// name, or several joined by a vertical bar; `order` is 1 (ascending). Two numeric values compare as
  /// numbers, others as text by bytes.
  virtual Status Sort(Iprovider& provider, std::string_view key, std::int32_t order) = 0;
  /// A new record with default values comes in at `record` (1..RecordCount+1).
  /// A full table is an error, here and in the next two.
  virtual Status InsertRecord(RecordNr record) = 0;
  /// A new record with default values at the end; `out` is its number.
  virtual Status NewRecord(RecordNr& out) = 0;
  virtual Status AppendRecord(RecordNr& out) = 0;
  /// Removes the record; `out` is the number of records left.
  virtual Status DeleteRecord(RecordNr record, RecordNr& out) = 0;
};
