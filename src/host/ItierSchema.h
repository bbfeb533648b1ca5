#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/IcolProvInfo.h"

class Itier;

/// The database versions of a tier and the ways between them. Implemented by the tier; legal after
/// `Initialize`. A version path is a list of keys ("0054.KD4410").
class ItierSchema {
 public:
  virtual ~ItierSchema() = default;
  /// For each version that shows in the menu its base key, display text and key, all in one list joined
  /// by vertical bars.
  virtual Status TierMenuList(std::string& out) = 0;
  /// A new collection of all known versions under their keys.
  virtual Status TierList(std::shared_ptr<IcolProvInfo>& out) = 0;
  /// Replaces `path` by the keys of all siblings of the version, ascending. True when the key itself is
  /// among them. An unknown key is error 5.
  virtual Status GetDBVersionPathForTier(std::string_view tierKey, std::vector<std::string>& path,
                                         Boolean& out) = 0;
  /// Replaces `path` by the keys from the version along its base keys to the first. False and an empty
  /// path when the version is not known.
  virtual Status GetDBVersionPathForTierAndVersion(std::string_view tierName, std::string_view version,
                                                   std::vector<std::string>& path, Boolean& out) = 0;
  /// The key that the walk along the base keys of the version ends at; empty when no version is known.
  virtual Status GetLatestTierForTierNameAndVersion(std::string_view tierName, std::string_view version,
                                                    std::string& out) = 0;
  /// Creates one version for each entry of `versions` and has the host load it; `currentVersion` is what
  /// the host gave back. False when the host creates none. Called by `Itier::Initialize`.
  virtual Status Initialize(Itier* tier, const std::vector<std::string>& versions,
                            std::string& currentVersion, Boolean& out) = 0;
};
