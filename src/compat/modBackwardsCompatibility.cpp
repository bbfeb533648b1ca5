#include "compat/modBackwardsCompatibility.h"

#include <span>
#include <string>

#include "common/Procedure.h"
#include "platform/Conversions.h"

namespace modBackwardsCompatibility {
namespace {
constexpr std::string_view kUpTo0054[] = {"KD4410.0029", "KD4410.0051", "KD4410.0052", "KD4410.0053",
                                          "KD4410.0054"};
constexpr std::string_view kDownTo0029[] = {"KD4410.0054", "KD4410.0053", "KD4410.0052", "KD4410.0051",
                                            "KD4410.0029"};
constexpr std::string_view kUpTo0083[] = {"KD4410.0054", "KD4410.0081", "KD4410.0082", "KD4410.0083"};
constexpr std::string_view kDownTo0054[] = {"KD4410.0083", "KD4410.0082", "KD4410.0081", "KD4410.0054"};

/// The pairs that are walked version by version: first to last of each path.
constexpr std::span<const std::string_view> kPaths[] = {kUpTo0054, kDownTo0029, kUpTo0083, kDownTo0054};

std::span<const std::string_view> FindPath(std::string_view fromVersion, std::string_view toVersion) {
  for (const auto path : kPaths) {
    if (path.front() == fromVersion && path.back() == toVersion) return path;
  }
  return {};
}

/// Writes the number at the end of the version to the version record, which it creates where the table is
/// empty.
void WriteVersion(const ProviderRef& destination, std::string_view version) {
  const std::int32_t number = CLng(version.substr(version.size() - std::min<std::size_t>(version.size(), 4)));
  if (destination.Table("39").RecordCount() == 0) destination.Table("39").AppendRecord();
  destination.Field("39.Databaseversion").SetValue(1, number);
}

/// The first hop reads from the source; each later one sees what the one before it wrote. A hop that refuses
/// does not stop those behind it.
void WalkPath(const ValidatorRef& tier, std::span<const std::string_view> path, const ProviderRef& source,
              const ProviderRef& destination) {
  for (std::size_t hop = 1; hop < path.size(); ++hop) {
    const ProviderRef& from = hop == 1 ? source : destination;
    static_cast<void>(BackwardsCompatibility(tier, path[hop - 1], from, path[hop], destination));
  }
}
}  // namespace

bool BackwardsCompatibility(const ValidatorRef& tier, std::string_view fromVersion, const ProviderRef& source,
                            std::string_view toVersion, const ProviderRef& destination) {
  return Procedure("BackwardsCompatibility", true, [&] {
    const ScopedAutoUpdate silent(destination, false);
    WriteVersion(destination, toVersion);
    WalkPath(tier, FindPath(fromVersion, toVersion), source, destination);
    return true;
  });
}
}  // namespace modBackwardsCompatibility
