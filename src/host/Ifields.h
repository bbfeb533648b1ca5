#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "host/Ifield.h"

/// The fields of one table. Implemented by the host. Names have no table number here and ignore case.
class Ifields {
 public:
  virtual ~Ifields() = default;
  virtual Status Exists(std::string_view name, Boolean& out) = 0;
  /// Error 5 for a name that the table does not have in this database version.
  virtual Status Item(std::string_view name, std::shared_ptr<Ifield>& out) = 0;
  /// All fields, in the schema's order.
  virtual Status NewEnum(std::vector<std::shared_ptr<Ifield>>& out) = 0;
};
