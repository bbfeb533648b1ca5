#include <nlohmann/json.hpp>

#include "workbench/conform/Calls.h"
#include "workbench/conform/Check.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

/// Each route of the tier is taken once: no call that a host may make is a fault.
namespace Conform {
namespace {

void CallAll(CheckRun& run, std::string_view personality, Bench& bench, const std::vector<Call>& calls) {
  for (const Call& call : calls) {
    run.Judge(std::string(personality) + ": " + call.Text(), TroubleOf(call, bench.Try(call)));
  }
}

void CallEach(CheckRun& run, std::string_view personality, const Provider& stored, Subject subject) {
  Bench bench(run.Parts(), stored);
  CallAll(run, personality, bench, CallsOn(bench, subject));
}

template <Subject subject>
void CallEach(CheckRun& run) {
  for (const Personality& personality : run.Personalities()) {
    CallEach(run, personality.name, *personality.stored, subject);
  }
}

/// The personalities go with all that each version can hold of them.
void CallVersionPairs(CheckRun& run) {
  for (const Personality& personality : run.Personalities()) {
    for (const VersionName& version : SchemaFiles::Versions()) {
      const auto content = SharedContent(*run.Parts().schemas, *personality.stored, version.Text());
      CallEach(run, std::string(personality.name) + " at " + version.Text(), *content, Subject::VersionPair);
    }
  }
}

/// Where the tier reckons with the number of a record, none may be too large or too small for it.
void CallStrays(CheckRun& run) {
  for (const Personality& personality : run.Personalities()) {
    Bench bench(run.Parts(), *personality.stored);
    CallAll(run, personality.name, bench, StrayCallsOn(bench));
  }
}

// clang-format off
constexpr Check kCallChecks[] = {
    {"field-rules",     3, "every field rule answers",                 CallEach<Subject::FieldRule>},
    {"control-states",  3, "every control is enabled or not, also before its record exists",
                                                                       CallEach<Subject::ControlState>},
    {"forms",           3, "every form may be left or not",            CallEach<Subject::Form>},
    {"grids",           3, "records of every grid are added and deleted or refused", CallEach<Subject::Grid>},
    {"transformations", 3, "every field is converted in both directions", CallEach<Subject::Transformation>},
    {"combo-lists",     3, "every combo has its list or none",         CallEach<Subject::ComboList>},
    {"version-pairs",   3, "neighbouring versions are converted in both directions", CallVersionPairs},
    {"stray-records",   3, "records that no table has are answered in good order", CallStrays},
    {"whole",           3, "what concerns a personality as a whole is answered",     CallEach<Subject::Whole>},
};
// clang-format on

}  // namespace

std::span<const Check> CallChecks() { return kCallChecks; }

}  // namespace Conform
