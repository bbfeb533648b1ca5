#include "compat/modBackwardsCompatibility.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "common/Procedure.h"
#include "compat/VersionStep.h"
#include "compat/modStepsFrom0087.h"
#include "compat/modStepsTo0054.h"
#include "compat/modStepsTo0083.h"
#include "compat/modStepsTo0087.h"
#include "platform/Conversions.h"

namespace modBackwardsCompatibility {
namespace {
using Step = bool (*)(const VersionStep& step);

/// The versions differ in their number alone.
constexpr Step kRenumbering = nullptr;
/// They differ in fields that the host's copy leaves at their defaults.
constexpr Step kNothing = nullptr;

/// Two neighbours on the way of versions, and the steps between them.
struct Rung {
  std::string_view lower, upper;
  Step up, down;
};
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
constexpr Rung kRungs[] = {
    {"0029", "0051", modStepsTo0054::Up0029To0051,   modStepsTo0054::Down0051To0029},
    {"0051", "0052", modStepsTo0054::Up0051To0052,   modStepsTo0054::Down0052To0051},
    {"0052", "0053", kNothing,                       kRenumbering},
    {"0053", "0054", modStepsTo0054::Up0053To0054,   modStepsTo0054::Down0054To0053},
    {"0054", "0081", modStepsTo0083::Up0054To0081,   modStepsTo0083::Down0081To0054},
    {"0081", "0082", modStepsTo0083::Up0081To0082,   modStepsTo0083::Down0082To0081},
    {"0082", "0083", kRenumbering,                   kRenumbering},
    {"0083", "0084", kRenumbering,                   modStepsTo0087::Down0084To0083},
    {"0084", "0085", kRenumbering,                   modStepsTo0087::Down0085To0084},
    {"0085", "0086", modStepsTo0087::Up0085To0086,   modStepsTo0087::Down0086To0085},
    {"0086", "0087", kRenumbering,                   kRenumbering},
    {"0087", "0088", modStepsFrom0087::Up0087To0088, modStepsFrom0087::Down0088To0087},
    {"0088", "0089", modStepsFrom0087::Up0088To0089, modStepsFrom0087::Down0089To0088},
    {"0089", "0090", modStepsFrom0087::Up0089To0090, modStepsFrom0087::Down0090To0089},
    {"0090", "0091", kNothing,                       modStepsFrom0087::Down0091To0090},
    {"0091", "0093", modStepsFrom0087::Up0091To0093, modStepsFrom0087::Down0093To0091},
    {"0093", "0094", modStepsFrom0087::Up0093To0094, modStepsFrom0087::Down0094To0093},
};
// clang-format on
/// Each rung stands on the one before it.
constexpr bool IsOneWay() {
  for (std::size_t i = 1; i < std::size(kRungs); ++i) {
    if (kRungs[i].lower != kRungs[i - 1].upper) return false;
  }
  return true;
}
static_assert(IsOneWay());

/// The pairs that are walked version by version, first to last on the way.
constexpr struct {
  std::string_view from, to;
} kWalks[] = {
    {"KD4410.0029", "KD4410.0054"},
    {"KD4410.0054", "KD4410.0029"},
    {"KD4410.0054", "KD4410.0083"},
    {"KD4410.0083", "KD4410.0054"},
};

constexpr std::string_view kModel = "KD4410";
/// From here on there are versions of the other models, too.
constexpr std::string_view kFirstOfAllModels = "0087";

struct VersionText {
  std::string_view model, digits;

  explicit VersionText(std::string_view text)
      : model(text.substr(0, text.find('.'))),
        digits(model.size() < text.size() ? text.substr(model.size() + 1) : std::string_view()) {}
};

bool IsModelOf(std::string_view model, const Rung& rung) {
  if (model == kModel) return true;
  return rung.lower >= kFirstOfAllModels && (model == "KE2210 Rx" || model == "KE2210 Tx");
}

/// Null for a pair that has none: to another model, or not of neighbours.
Step FindStep(std::string_view fromVersion, std::string_view toVersion) {
  const VersionText from(fromVersion), to(toVersion);
  if (from.model != to.model) return nullptr;
  for (const Rung& rung : kRungs) {
    if (!IsModelOf(from.model, rung)) continue;
    if (rung.lower == from.digits && rung.upper == to.digits) return rung.up;
    if (rung.upper == from.digits && rung.lower == to.digits) return rung.down;
  }
  return nullptr;
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
void WalkWay(const ValidatorRef& tier, std::string_view fromVersion, std::string_view toVersion,
             const ProviderRef& source, const ProviderRef& destination) {
  const auto at = [](std::string_view version, std::string_view Rung::*end) {
    return std::ranges::find(kRungs, VersionText(version).digits, end);
  };
  const auto hop = [&](std::string_view from, std::string_view to, bool isFirst) {
    const std::string name = std::string(kModel) + ".";
    static_cast<void>(BackwardsCompatibility(tier, name + std::string(from), isFirst ? source : destination,
                                             name + std::string(to), destination));
  };
  if (fromVersion < toVersion) {
    const auto* first = at(fromVersion, &Rung::lower);
    const auto* last = at(toVersion, &Rung::upper);
    for (const auto* rung = first; rung <= last; ++rung) hop(rung->lower, rung->upper, rung == first);
  } else {
    const auto* first = at(fromVersion, &Rung::upper);
    const auto* last = at(toVersion, &Rung::lower);
    for (const auto* rung = first; rung >= last; --rung) hop(rung->upper, rung->lower, rung == first);
  }
}
}  // namespace

bool BackwardsCompatibility(const ValidatorRef& tier, std::string_view fromVersion, const ProviderRef& source,
                            std::string_view toVersion, const ProviderRef& destination) {
  return Procedure("BackwardsCompatibility", true, [&] {
    const ScopedAutoUpdate silent(destination, false);
    WriteVersion(destination, toVersion);
    const bool isWalk = std::ranges::any_of(
        kWalks, [&](const auto& walk) { return walk.from == fromVersion && walk.to == toVersion; });
    if (isWalk) {
      WalkWay(tier, fromVersion, toVersion, source, destination);
      return true;
    }
    const Step step = FindStep(fromVersion, toVersion);
    return step == nullptr || step(VersionStep(tier, source, destination));
  });
}
}  // namespace modBackwardsCompatibility
