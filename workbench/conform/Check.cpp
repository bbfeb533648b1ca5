#include "workbench/conform/Check.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "workbench/files/AtomicFile.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace Conform {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::int64_t kMostFindings = 40;

std::shared_ptr<Provider> Sample(const HostParts& parts, const char* name) {
  AtomicFile file(parts.dataFolder + "/samples/" + name);
  return PersonalityFile::Parse(file.Name(), file.Read(), *parts.schemas);
}

void Tell(std::ostream& out, const Json& line) {
  out << line.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
}

}  // namespace

CheckRun::CheckRun(HostParts parts, std::uint64_t seed, std::ostream& out)
    : parts_(std::move(parts)), seed_(seed), out_(out) {}

const std::vector<Personality>& CheckRun::Personalities() {
  if (personalities_.empty()) {
    personalities_ = {{"empty", NewPersonality(*parts_.schemas, "KD4410.0094"), true},
                      {"minimal", Sample(parts_, "minimal.json")},
                      {"full", Sample(parts_, "full.json")}};
  }
  return personalities_;
}

void CheckRun::Judge(std::string_view at, std::string_view what) {
  ++tried_;
  if (what.empty()) return;
  Tell(out_, {{"at", at}, {"what", what}});
  if (++findings_ == kMostFindings) throw Enough();
}

void CheckRun::Run(const Check& check) {
  try {
    check.run(*this);
  } catch (const Enough&) {
    Tell(out_, {{"at", check.name}, {"what", "ends here: there may be more"}});
  } catch (const std::exception& error) {
    Tell(out_, {{"at", check.name}, {"what", error.what()}});
  }
  Tell(out_, {{"tried", tried_}});
}

std::vector<Check> AllChecks() {
  std::vector<Check> all;
  for (const auto checks : {LoadChecks(), LifeChecks(), CallChecks(), EffectChecks(), OrderChecks(),
                            ContentChecks(), SessionChecks(), FaultChecks()}) {
    all.insert(all.end(), checks.begin(), checks.end());
  }
  return all;
}

}  // namespace Conform
