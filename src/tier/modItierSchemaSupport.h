#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/IcolProvInfo.h"

/// The versions of a tier and the ways between them.
namespace modItierSchemaSupport {
using Versions = std::vector<std::shared_ptr<IprovInfo>>;

std::string Key(const std::shared_ptr<IprovInfo>& version);
Versions Siblings(const std::shared_ptr<IprovInfo>& version);

/// Base key, display text and key of each version that shows in the menu, joined by vertical bars.
std::string MenuText(const Versions& versions);

/// The versions and all their siblings under their keys: a version itself comes first, unless it stands
/// among its siblings. A key that two siblings share is error 457.
std::shared_ptr<IcolProvInfo> ListWithSiblings(const Versions& versions);

/// The keys of the walk from a version along its base keys, itself first. It ends at a version without base
/// key, at a base key that no sibling has, or where it would come round again.
std::vector<std::string> WalkBaseKeys(std::shared_ptr<IprovInfo> version);

/// Sorts the keys as text: they are of equal width, a four-digit version, a point, the tier name.
void SortVersionPath(std::vector<std::string>& path);
}  // namespace modItierSchemaSupport
