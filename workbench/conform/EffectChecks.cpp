#include <algorithm>

#include "host/Itier.h"
#include "platform/Conversions.h"
#include "workbench/conform/Calls.h"
#include "workbench/conform/Check.h"
#include "workbench/conform/Operations.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

/// What calls do beside their answers.
namespace Conform {
namespace {

/// Tries every legal call on each personality, with AutoUpdate on and off; `judge` looks at what it did.
template <typename Judge>
void TryAll(CheckRun& run, Judge judge) {
  for (const Personality& personality : run.Personalities()) {
    Bench bench(run.Parts(), *personality.stored);
    for (const bool autoUpdate : {true, false}) {
      RaiseIfFailed(bench.Content().SetAutoUpdate(ToBoolean(autoUpdate)));
      for (const Call& call : AllCallsOn(bench)) {
        if (!call.isLegal) continue;
        const Answer answer = bench.Try(call);
        const std::string at =
            std::string(personality.name) + ", AutoUpdate " + (autoUpdate ? "on: " : "off: ") + call.Text();
        run.Judge(at, judge(bench, answer, autoUpdate));
      }
    }
  }
}

void AutoUpdateIsRestored(CheckRun& run) {
  TryAll(run, [](Bench&, const Answer& answer, bool before) {
    return answer.isAutoUpdating == before ? "" : "leaves AutoUpdate changed";
  });
}

void SilentForms(CheckRun& run) {
  TryAll(run, [](Bench& bench, const Answer&, bool) -> std::string {
    const auto& reloaded = bench.Messenger().ReloadedInSilence();
    return reloaded.empty() ? "" : "reloads " + reloaded.front() + " while AutoUpdate is off";
  });
}

/// The call on the version of the key, and how often it asked that provider.
std::int64_t CallsAt(const VersionName& version, Bench& bench, const Call& call, CallMonitor& monitor) {
  RaiseIfFailed(bench.GetSession().Host().Tier().SetTierKey(version.Key()));
  monitor.Clear();
  static_cast<void>(bench.Try(call));
  return monitor.Count();
}

/// A key of another version makes another provider current; the one before is asked nothing any more.
void NoProviderIsKept(CheckRun& run) {
  Bench bench(run.Parts(), *run.Personalities()[1].stored);
  const VersionName& here = bench.Content().GetSchema().Name();
  const std::vector<VersionName> versions = SchemaFiles::VersionsOf(here.model);
  const VersionName& older = *std::prev(std::ranges::find(versions, here));
  const auto other = SharedContent(*run.Parts().schemas, bench.Content(), older.Text());
  bench.GetSession().Host().UseStore(other);
  // One of its own: that of the bench counts the messages, too.
  const auto monitor = std::make_shared<CallMonitor>();
  bench.Content().SetMonitor(monitor);
  for (const Subject subject : {Subject::FieldRule, Subject::ControlState, Subject::Form}) {
    for (const Call& call : CallsOn(bench, subject)) {
      const bool isKnown = subject == Subject::Form || other->GetSchema().Find(call.name) != nullptr;
      if (!call.isLegal || !isKnown) continue;
      const std::int64_t asked = CallsAt(here, bench, call, *monitor);
      monitor->Clear();
      const std::int64_t askedOther = CallsAt(older, bench, call, other->Monitor());
      run.Expect(monitor->Count() == 0, call.Text(), "asks the provider of the version before");
      run.Expect(asked == 0 || askedOther > 0, call.Text(), "does not ask the new provider");
    }
  }
}

/// What the names of the calls on the host tell: the record stands in brackets at the end.
std::string WrongRecord(const std::string& name) {
  return name.ends_with("[0]") ? "asks the host for record 0: " + name : "";
}

void NoRecordZero(CheckRun& run) {
  for (const Personality& personality : run.Personalities()) {
    Bench bench(run.Parts(), *personality.stored);
    bench.Monitor().Record(true);
    for (const Call& call : AllCallsOn(bench)) {
      if (!call.isLegal) continue;
      static_cast<void>(bench.Try(call));
      std::string wrong;
      for (const std::string& name : bench.Monitor().Calls()) {
        if (wrong.empty()) wrong = WrongRecord(name);
      }
      run.Judge(std::string(personality.name) + ": " + call.Text(), wrong);
    }
  }
}

/// Whether a call on the provider, told by its name, asks for what the schema does not have.
bool IsForeign(const Schema& schema, std::string_view call) {
  const std::size_t blank = std::min(call.find(' '), call.size());
  const std::string_view operation = call.substr(0, blank);
  const std::string name(call.substr(std::min(blank + 1, call.size())));
  constexpr std::string_view kByField[] = {"Iprovider.Field",         "Iprovider.DefaultValue",
                                           "Iprovider.RefreshField",  "Iprovider.RefreshValues",
                                           "Iprovider.TransformIdOf", "Itables.Field"};
  if (std::ranges::find(kByField, operation) != std::end(kByField)) return schema.Find(name) == nullptr;
  if (operation != "Itables.Table" && operation != "Iprovider.ClearTable") return false;
  return IsNumeric(name) ? schema.FindTable(CLng(name)) == nullptr : schema.Find(name) == nullptr;
}

void NamesOfTheVersion(CheckRun& run) {
  const auto& minimal = *run.Personalities()[1].stored;
  for (const VersionName& version : SchemaFiles::Versions()) {
    Bench bench(run.Parts(), *SharedContent(*run.Parts().schemas, minimal, version.Text()));
    const Schema& schema = bench.Content().GetSchema();
    bench.Monitor().Record(true);
    for (const Call& call : AllCallsOn(bench)) {
      // A conversion asks two versions; what is illegal may ask for anything.
      if (!call.isLegal || call.operation->subject == Subject::VersionPair) continue;
      static_cast<void>(bench.Try(call));
      std::string wrong;
      for (const std::string& name : bench.Monitor().Calls()) {
        if (wrong.empty() && IsForeign(schema, name))
          wrong = "asks for what the version does not have: " + name;
      }
      run.Judge(version.Text() + ": " + call.Text(), wrong);
    }
  }
}

// clang-format off
constexpr Check kEffectChecks[] = {
    {"auto-update",   4, "AutoUpdate is afterwards as it was before",             AutoUpdateIsRestored},
    {"silent-forms",  4, "no form is reloaded while AutoUpdate is off",           SilentForms},
    {"kept-provider", 4, "no provider is kept over a change of the tier's key",   NoProviderIsKept},
    {"record-zero",   4, "records are asked for from 1",                          NoRecordZero},
    {"version-names", 4, "only names of the open version are asked for",          NamesOfTheVersion},
};
// clang-format on

}  // namespace

std::span<const Check> EffectChecks() { return kEffectChecks; }

}  // namespace Conform
