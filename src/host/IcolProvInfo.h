#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "host/IprovInfo.h"

/// A collection of database versions. Implemented by the tier. A number selects by 1-based index, a
/// text always by key; keys ignore case. An absent key is error 5, an index outside 1..Count error 9.
class IcolProvInfo {
 public:
  virtual ~IcolProvInfo() = default;
  /// An empty key adds without key, reachable by index alone; a key added twice is error 457.
  virtual Status Add(std::shared_ptr<IprovInfo> provInfo, std::string_view key) = 0;
  virtual Status Item(const Variant& keyOrIndex, std::shared_ptr<IprovInfo>& out) = 0;
  virtual Status Count(std::int32_t& out) = 0;
  virtual Status Remove(const Variant& keyOrIndex) = 0;
  /// All entries in the order of adding.
  virtual Status NewEnum(std::vector<std::shared_ptr<IprovInfo>>& out) = 0;
  /// True for a key that is there; a key that is not is error 5 and no answer.
  virtual Status Exists(std::string_view key, Boolean& out) = 0;
};
