#include "tier/modItierSchemaSupport.h"

#include <algorithm>

#include "common/Handles.h"
#include "platform/CaseText.h"
#include "tier/colProvInfo.h"

namespace modItierSchemaSupport {
namespace {
bool HasKey(const Versions& versions, std::string_view key) {
  return std::ranges::any_of(versions, [&](const auto& one) { return EqualsIgnoringCase(Key(one), key); });
}

/// Exact comparison; empty when none has the key.
std::shared_ptr<IprovInfo> FindByKey(const Versions& versions, std::string_view key) {
  const auto found = std::ranges::find_if(versions, [&](const auto& one) { return Key(one) == key; });
  return found == versions.end() ? nullptr : *found;
}
}  // namespace

std::string Key(const std::shared_ptr<IprovInfo>& version) {
  return Ask<std::string>(Deref(version, "IprovInfo"), &IprovInfo::Key);
}

Versions Siblings(const std::shared_ptr<IprovInfo>& version) {
  return Ask<Versions>(Deref(version, "IprovInfo"), &IprovInfo::Siblings);
}

std::string MenuText(const Versions& versions) {
  std::string menu;
  for (const auto& version : versions) {
    if (Ask<Boolean>(*version, &IprovInfo::ShowInMenu) == kFalse) continue;
    if (!menu.empty()) menu += '|';
    menu += Ask<std::string>(*version, &IprovInfo::BaseKey) + '|' +
            Ask<std::string>(*version, &IprovInfo::DisplayText) + '|' + Key(version);
  }
  return menu;
}

std::shared_ptr<IcolProvInfo> ListWithSiblings(const Versions& versions) {
  const auto list = std::make_shared<colProvInfo>();
  for (const auto& version : versions) {
    const Versions siblings = Siblings(version);
    const std::string key = Key(version);
    if (!HasKey(siblings, key)) RaiseIfFailed(list->Add(version, key));
    for (const auto& sibling : siblings) RaiseIfFailed(list->Add(sibling, Key(sibling)));
  }
  return list;
}

std::vector<std::string> WalkBaseKeys(std::shared_ptr<IprovInfo> version) {
  std::vector<std::string> path;
  while (version != nullptr && std::ranges::find(path, Key(version)) == path.end()) {
    path.push_back(Key(version));
    const std::string baseKey = Ask<std::string>(*version, &IprovInfo::BaseKey);
    version = baseKey.empty() ? nullptr : FindByKey(Siblings(version), baseKey);
  }
  return path;
}

void SortVersionPath(std::vector<std::string>& path) { std::ranges::sort(path); }
}  // namespace modItierSchemaSupport
