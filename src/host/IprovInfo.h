#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Iprovider.h"

/// The host's description of one database version of a tier. Implemented by the host and created
/// through `IhostServices`.
class IprovInfo {
 public:
  virtual ~IprovInfo() = default;
  virtual Status DisplayText(std::string& out) = 0;
  virtual Status ShowInMenu(Boolean& out) = 0;
  /// Version, a point, tier name: "0054.KD4410".
  virtual Status Key(std::string& out) = 0;
  /// The key of the version that this one derives from; empty for the first.
  virtual Status BaseKey(std::string& out) = 0;
  /// The store of the open personality at this version.
  virtual Status Provider(std::shared_ptr<Iprovider>& out) = 0;
  /// The versions known to this one, itself among them.
  virtual Status Siblings(std::vector<std::shared_ptr<IprovInfo>>& out) = 0;
  /// Finds the database versions of a tier and fills the siblings. `currentVersion` receives the version
  /// of the open personality, or stays empty when none is open.
  virtual Status Load(std::string_view tierName, std::string_view version, std::string_view reserved,
                      std::string& currentVersion, Boolean& out) = 0;
};
