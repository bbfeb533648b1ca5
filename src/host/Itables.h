#pragma once

#include <memory>
#include <string_view>

#include "host/Itable.h"

/// The tables of a personality. Implemented by the host. A field is named by its FieldId
/// ("5.ChannelTxFreq") or its plain name; names ignore case.
class Itables {
 public:
  virtual ~Itables() = default;
  /// Whether the field exists in this database version: the one question that no unknown name fails.
  virtual Status FieldExists(std::string_view name, Boolean& out) = 0;
  /// As `Iprovider::Field`.
  virtual Status Field(std::string_view name, std::shared_ptr<Ifield>& out) = 0;
  /// The table of a number ("5") or the table that holds the field of a plain name. Error 5 for a
  /// table that this database version does not have.
  virtual Status Table(std::string_view tableId, std::shared_ptr<Itable>& out) = 0;
};
