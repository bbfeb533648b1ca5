#pragma once

#include <memory>

#include "common/LibraryObject.h"
#include "host/IcolProvInfo.h"
#include "platform/KeyedCollection.h"

/// The versions of a tier under their keys. Its errors go to the caller as they are. `Exists` never answers
/// false on purpose: an absent key raises the collection's error.
class colProvInfo final : public IcolProvInfo, private LibraryObject {
 public:
  Status Add(std::shared_ptr<IprovInfo> provInfo, std::string_view key) override;
  Status Item(const Variant& keyOrIndex, std::shared_ptr<IprovInfo>& out) override;
  Status Count(std::int32_t& out) override;
  Status Remove(const Variant& keyOrIndex) override;
  Status NewEnum(std::vector<std::shared_ptr<IprovInfo>>& out) override;
  Status Exists(std::string_view key, Boolean& out) override;

 private:
  KeyedCollection<std::shared_ptr<IprovInfo>> versions_;
};
