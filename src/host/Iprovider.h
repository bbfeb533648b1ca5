#pragma once

#include <memory>
#include <string_view>

#include "host/Itables.h"

/// The data store of one personality at one database version.
/// Implemented by the host and called on its one thread. Each operation returns a Status; the result is
/// written to the last argument, and only on success. Names ignore case. A FieldId is a table number,
/// a point and a field name; plain field names and the UIIDs of the forms share one name space.
class Iprovider {
 public:
  virtual ~Iprovider() = default;
  /// The value that the schema gives to a new record of the field.
  virtual Status DefaultValue(std::string_view name, Variant& out) = 0;
  /// The record set behind a list field has changed: the provider drops what it has derived for it.
  virtual Status RefreshField(std::string_view name) = 0;
  /// The values of this field have been rewritten directly: its free and used values are found anew.
  virtual Status RefreshValues(std::string_view fieldId) = 0;
  /// The field's transformation number without fetching the field; -1 for none.
  virtual Status TransformIdOf(std::string_view name, std::int32_t& out) = 0;
  /// The field called `name`: a FieldId or a plain name. The call that the tier makes most. Error 5
  /// for a name that is unknown in this database version.
  virtual Status Field(std::string_view name, std::shared_ptr<Ifield>& out) = 0;
  virtual Status Tables(std::shared_ptr<Itables>& out) = 0;
  /// True relaxes the checks of sub-bands and of the Tx power.
  virtual Status FactoryMode(Boolean& out) = 0;
  /// While false, a write stores the value and nothing else; while true it may start the host's
  /// follow-up work for that field.
  virtual Status AutoUpdate(Boolean& out) = 0;
  virtual Status SetAutoUpdate(Boolean state) = 0;
  /// Removes all records of the table. The flag is true in all calls but that for table 1115.
  virtual Status ClearTable(std::string_view tableId, Boolean flag) = 0;
};
