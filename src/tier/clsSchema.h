#pragma once

#include "common/LibraryObject.h"
#include "common/TierChild.h"
#include "host/ItierSchema.h"
#include "platform/KeyedCollection.h"

class clsSchema final : public ItierSchema, public TierChild, private LibraryObject {
 public:
  using TierChild::TierChild;
  Status TierMenuList(std::string& out) override;
  Status TierList(std::shared_ptr<IcolProvInfo>& out) override;
  Status GetDBVersionPathForTier(std::string_view tierKey, std::vector<std::string>& path,
                                 Boolean& out) override;
  Status GetDBVersionPathForTierAndVersion(std::string_view tierName, std::string_view version,
                                           std::vector<std::string>& path, Boolean& out) override;
  Status GetLatestTierForTierNameAndVersion(std::string_view tierName, std::string_view version,
                                            std::string& out) override;
  Status Initialize(Itier* tier, const std::vector<std::string>& versions, std::string& currentVersion,
                    Boolean& out) override;

 private:
  std::shared_ptr<IcolProvInfo> List() const;

  KeyedCollection<std::shared_ptr<IprovInfo>> versions_;
  std::string menuText_;
};
