#include <nlohmann/json.hpp>

#include "workbench/conform/Calls.h"
#include "workbench/conform/Check.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

/// Each route of the tier is taken once: no call that a host may make is a fault.
namespace Conform {
namespace {

void CallEach(CheckRun& run, std::string_view personality, const Provider& stored, Subject subject) {
  Bench bench(run.Parts(), stored);
  for (const Call& call : CallsOn(bench, subject)) {
    run.Judge(std::string(personality) + ": " + call.Text(), TroubleOf(call, bench.Try(call)));
  }
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
    {"whole",           3, "what concerns a personality as a whole is answered",     CallEach<Subject::Whole>},
};
// clang-format on

}  // namespace

std::span<const Check> CallChecks() { return kCallChecks; }

}  // namespace Conform
