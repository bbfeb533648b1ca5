#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/IvalueList.h"
#include "platform/Status.h"
#include "platform/Types.h"
#include "platform/Variant.h"

/// One field of one table; a value for each record of the table. Implemented by the host.
/// Records count from 1; a record outside 1..RecordCount is error 9.
class Ifield {
 public:
  virtual ~Ifield() = default;
  /// The number that selects the field's conversion between radio and form; 0 for a field without one.
  virtual Status TransformId(std::int32_t& out) = 0;
  /// The value that the schema gives to a new record.
  virtual Status Default(Variant& out) = 0;
  /// The field's name without the table number.
  virtual Status Name(std::string& out) = 0;
  virtual Status TableNumber(std::int32_t& out) = 0;
  /// The largest and the smallest legal value, unscaled.
  virtual Status Maximum(std::int32_t& out) = 0;
  virtual Status Minimum(std::int32_t& out) = 0;
  /// The number of entries that the field's list holds now.
  virtual Status ListCount(std::int32_t& out) = 0;
  /// The factor between Minimum and Maximum and a stored value: Minimum times Scale compares with it.
  virtual Status Scale(Currency& out) = 0;
  /// The number of records of the field's table, 0 when it is empty.
  virtual Status RecordCount(RecordNr& out) = 0;
  virtual Status Value(RecordNr record, Variant& out) = 0;
  /// Stores the value as given; a number may come as a text.
  virtual Status SetValue(RecordNr record, const Variant& value) = 0;
  /// All values in record order.
  virtual Status Values(std::vector<Variant>& out) = 0;
  /// The units as messages show them ("Hz"); empty for none.
  virtual Status Units(std::string& out) = 0;
  /// The legal values that no record uses, ascending.
  virtual Status FreeValues(std::shared_ptr<IvalueList>& out) = 0;
  /// The values in use, in record order.
  virtual Status UsedValues(std::shared_ptr<IvalueList>& out) = 0;
  /// The alphabet of a Selcall format or tone sequence. Empty for any other field.
  virtual Status Validation(std::string& out) = 0;
};
