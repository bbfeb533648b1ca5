#include "tier/clsSchema.h"

#include "common/Handles.h"
#include "common/HostServices.h"
#include "common/Procedure.h"
#include "platform/CaseText.h"
#include "tier/colProvInfo.h"
#include "tier/modItierSchemaSupport.h"

namespace {
namespace support = modItierSchemaSupport;

constexpr std::string_view kTierFamily = "KD4410";

std::string KeyOf(std::string_view version, std::string_view tierName) {
  return std::string(version) + "." + std::string(tierName);
}

std::shared_ptr<IprovInfo> Item(IcolProvInfo& list, std::string_view key) {
  return Ask<std::shared_ptr<IprovInfo>>(list, &IcolProvInfo::Item, Variant(key));
}
}  // namespace

/// After an error that has ended the application the list is empty.
std::shared_ptr<IcolProvInfo> clsSchema::List() const {
  return Procedure("TierList", std::shared_ptr<IcolProvInfo>(std::make_shared<colProvInfo>()), [&] {
    return support::ListWithSiblings({versions_.begin(), versions_.end()});
  });
}

Status clsSchema::TierMenuList(std::string& out) {
  return Call([&](Itier*) { out = menuText_; });
}

Status clsSchema::TierList(std::shared_ptr<IcolProvInfo>& out) {
  return Call([&](Itier*) { out = List(); });
}

Status clsSchema::GetDBVersionPathForTier(std::string_view tierKey, std::vector<std::string>& path,
                                          Boolean& out) {
  return Call([&](Itier*) {
    out = ToBoolean(Procedure("GetDBVersionPathForTier", false, [&](bool& result) {
      KeyedCollection<std::string> keys;
      for (const auto& sibling : support::Siblings(Item(*List(), tierKey))) {
        const std::string key = support::Key(sibling);
        keys.Add(key, key);  // a key that comes twice is an error
        if (EqualsIgnoringCase(key, tierKey)) result = true;
      }
      path.assign(keys.begin(), keys.end());
      support::SortVersionPath(path);
    }));
  });
}

Status clsSchema::GetDBVersionPathForTierAndVersion(std::string_view tierName, std::string_view version,
                                                    std::vector<std::string>& path, Boolean& out) {
  return Call([&](Itier*) {
    path.clear();
    // The one operation that handles its own errors: a version that is not there is the normal way of saying
    // no.
    const Status walked =
        Border([&] { path = support::WalkBaseKeys(Item(*List(), KeyOf(version, tierName))); });
    out = ToBoolean(walked.Ok());
  });
}

Status clsSchema::GetLatestTierForTierNameAndVersion(std::string_view tierName, std::string_view version,
                                                     std::string& out) {
  return Call([&](Itier*) {
    out = Procedure("GetLatestTierForTierNameAndVersion", std::string(), [&]() -> std::string {
      const auto list = List();
      if (Ask<std::int32_t>(*list, &IcolProvInfo::Count) == 0) return {};
      return support::WalkBaseKeys(Item(*list, KeyOf(version, tierName))).back();
    });
  });
}

Status clsSchema::Initialize(Itier* tier, const std::vector<std::string>& versions,
                             std::string& currentVersion, Boolean& out) {
  return Call([&](Itier*) {
    out = ToBoolean(Procedure("Initialize", false, [&] {
      versions_.RemoveAll();
      for (const std::string& version : versions) {
        auto info = HostServices::CreateProvInfo();
        if (info == nullptr) return false;
        Boolean loaded = kFalse;  // not looked at: what counts is what Load has filled
        RaiseIfFailed(info->Load(kTierFamily, version, "", currentVersion, loaded));
        versions_.Add(info, support::Key(info));
      }
      menuText_ = support::MenuText({versions_.begin(), versions_.end()});
      Bind(tier);
      return true;
    }));
  });
}
