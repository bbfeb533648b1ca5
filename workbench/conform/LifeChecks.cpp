#include <functional>
#include <tuple>

#include "host/Itier.h"
#include "platform/XArrayDBObject.h"
#include "workbench/conform/Calls.h"
#include "workbench/conform/Check.h"
#include "workbench/host/HostObjects.h"
#include "workbench/host/Messengers.h"
#include "workbench/host/TierLoader.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

/// The life of a tier: what it has and answers before, during and after its time.
namespace Conform {
namespace {

/// A failed status as a text; empty for success.
std::string ProblemOf(const Status& status) {
  if (status.Ok()) return {};
  return "error " + std::to_string(status.Reason().number) + ": " + status.Reason().description;
}

template <typename Child>
void ExpectChild(CheckRun& run, Itier& tier, Status (Itier::*operation)(std::shared_ptr<Child>&),
                 bool isThere, const std::string& at) {
  std::shared_ptr<Child> child;
  const Status status = (tier.*operation)(child);
  run.Judge(at, ProblemOf(status));
  run.Expect((child != nullptr) == isThere, at, isThere ? "is missing" : "is there out of its time");
}

void ExpectChildren(CheckRun& run, Itier& tier, bool areThere, const std::string& when) {
  ExpectChild(run, tier, &Itier::ProviderOwner, areThere, when + ": provider owner");
  ExpectChild(run, tier, &Itier::Schema, areThere, when + ": schema");
  ExpectChild(run, tier, &Itier::UserInterface, areThere, when + ": user interface");
  ExpectChild(run, tier, &Itier::Validator, areThere, when + ": validator");
}

/// A tier that was made, and the platform that it runs on; not initialised yet.
struct Newborn {
  explicit Newborn(CheckRun& run)
      : library(TierLibrary::Load(run.Parts().tierLibrary)),
        personality(std::make_shared<OpenPersonality>(run.Parts().schemas)),
        services(std::make_shared<ApplicationServices>(personality, run.Parts().dataFolder)) {
    personality->Open(run.Personalities().front().stored->Copy());
    tier = library->CreateTier(services);
  }
  ~Newborn() {
    tier.reset();
    library->WithdrawServices();
  }
  Newborn(const Newborn&) = delete;
  Newborn& operator=(const Newborn&) = delete;

  Status Initialize(Boolean& out) const {
    return tier->Initialize(personality->Current()->model, host, messenger, Variant(), out);
  }

  std::shared_ptr<TierLibrary> library;
  std::shared_ptr<OpenPersonality> personality;
  std::shared_ptr<ApplicationServices> services;
  std::shared_ptr<ValidatorHost> host = std::make_shared<ValidatorHost>();
  std::shared_ptr<WatchfulMessenger> messenger = std::make_shared<WatchfulMessenger>();
  std::shared_ptr<Itier> tier;
};

void ExpectTrue(CheckRun& run, const Status& status, Boolean out, const std::string& at) {
  run.Judge(at, ProblemOf(status));
  run.Expect(out == kTrue, at, "is not true");
}

void Initialising(CheckRun& run) {
  const Newborn newborn(run);
  ExpectChildren(run, *newborn.tier, false, "before Initialize");
  Boolean done = kFalse;
  const Status status = newborn.Initialize(done);
  ExpectTrue(run, status, done, "Initialize");
  ExpectChildren(run, *newborn.tier, true, "after Initialize");

  std::shared_ptr<Imessenger> messenger;
  run.Judge("Messenger", ProblemOf(newborn.tier->Messenger(messenger)));
  run.Expect(messenger == newborn.messenger, "Messenger", "is not the one that was given");
  std::string key;
  run.Judge("TierKey", ProblemOf(newborn.tier->TierKey(key)));
  run.Expect(key == newborn.personality->Current()->Key(), "TierKey", "is " + key);
  run.Expect(newborn.services->Boxes().empty(), "Initialize", "shows a box");
}

void Terminating(CheckRun& run) {
  for (const char* time : {"the first tier", "a tier after it"}) {
    const Newborn newborn(run);
    const std::string at = time;
    Boolean done = kFalse;
    const Status initialised = newborn.Initialize(done);
    ExpectTrue(run, initialised, done, at + ": Initialize");
    done = kFalse;
    const Status active = newborn.tier->Activate(done);
    ExpectTrue(run, active, done, at + ": Activate once more");
    ExpectChildren(run, *newborn.tier, true, at + ", activated");
    run.Judge(at + ": Terminate", ProblemOf(newborn.tier->Terminate()));
    ExpectChildren(run, *newborn.tier, false, at + ", terminated");
    run.Expect(newborn.messenger.use_count() == 1, at + ", terminated", "still holds the messenger");
    run.Judge(at + ": Terminate once more", ProblemOf(newborn.tier->Terminate()));
  }
}

/// What is unknown may stand and has no conversion, no list and no label.
void UnknownNames(CheckRun& run) {
  Bench bench(run.Parts(), *run.Personalities()[1].stored);
  const TierHost& host = bench.GetSession().Host();
  const auto& store = bench.GetSession().SharedContent();
  std::shared_ptr<XArrayDBObject> items;
  Variant value(7);
  std::string label = "before";
  const std::string unknown = "NoSuchName";
  using Work = std::function<Status(Boolean&)>;
  const std::tuple<const char*, Work, Boolean> cases[] = {
      {"ValidateByUIID",
       [&](Boolean& out) { return host.Validator().ValidateByUIID(unknown, value, 1, out); }, kTrue},
      {"GetEnabledStatebyUIID",
       [&](Boolean& out) { return host.Validator().GetEnabledStatebyUIID(unknown, 1, out); }, kTrue},
      {"FormValidationByFormName",
       [&](Boolean& out) { return host.Validator().FormValidationByFormName(unknown, kTrue, out); }, kTrue},
      {"PermissionToOpenFormByFormName",
       [&](Boolean& out) { return host.Validator().PermissionToOpenFormByFormName(unknown, out); }, kTrue},
      {"ExecuteByTriggerID", [&](Boolean& out) { return host.Validator().ExecuteByTriggerID(unknown, out); },
       kFalse},
      {"ExitFocusByUIID",
       [&](Boolean& out) { return host.Validator().ExitFocusByUIID(unknown, value, 1, out); }, kTrue},
      {"EnterFocusByUIID",
       [&](Boolean& out) { return host.Validator().EnterFocusByUIID(unknown, value, 1, out); }, kFalse},
      {"AddRecord", [&](Boolean& out) { return host.Validator().AddRecord(unknown, store, out); }, kTrue},
      {"DeleteRecord", [&](Boolean& out) { return host.Validator().DeleteRecord(unknown, 1, store, out); },
       kTrue},
      {"GetLabelByUIID",
       [&](Boolean& out) { return host.UserInterface().GetLabelByUIID(unknown, label, out); }, kFalse},
  };
  for (const auto& [operation, work, expected] : cases) {
    Boolean out = Answer::kUnwritten;
    const std::string at = std::string(operation) + " " + unknown;
    run.Judge(at, ProblemOf(work(out)));
    run.Expect(out == expected, at,
               "answers " + std::to_string(out) + " instead of " + std::to_string(expected));
  }
  run.Expect(ValueText::Of(value) == "7", "ValidateByUIID " + unknown, "changes the value");
  run.Expect(label == "before", "GetLabelByUIID " + unknown, "writes a label");
  run.Expect(host.Services().Boxes().empty(), unknown, "ends the application");
}

void UnboundValidator(CheckRun& run) {
  constexpr std::int32_t kNotBound = 9001;
  Bench bench(run.Parts(), *run.Personalities()[1].stored);
  ItierValidator& validator = bench.GetSession().Host().Validator();
  const auto& store = bench.GetSession().SharedContent();
  Variant value(7);
  using Work = std::function<Status(Boolean&)>;
  const std::pair<const char*, Work> guarded[] = {
      {"AddRecord", [&](Boolean& out) { return validator.AddRecord("Network", store, out); }},
      {"DeleteRecord", [&](Boolean& out) { return validator.DeleteRecord("Network", 1, store, out); }},
      {"ExecuteByTriggerID", [&](Boolean& out) { return validator.ExecuteByTriggerID("x", out); }},
      {"FormValidationByFormName",
       [&](Boolean& out) { return validator.FormValidationByFormName("x", kTrue, out); }},
      {"GetEnabledStatebyUIID", [&](Boolean& out) { return validator.GetEnabledStatebyUIID("x", 1, out); }},
      {"PermissionToOpenFormByFormName",
       [&](Boolean& out) { return validator.PermissionToOpenFormByFormName("x", out); }},
      {"RunPreProgramValidation", [&](Boolean& out) { return validator.RunPreProgramValidation(out); }},
      {"RunFinalValidation", [&](Boolean& out) { return validator.RunFinalValidation(out); }},
      {"ValidateByUIID", [&](Boolean& out) { return validator.ValidateByUIID("x", value, 1, out); }},
      {"ExitFocusByUIID", [&](Boolean& out) { return validator.ExitFocusByUIID("x", value, 1, out); }},
  };
  std::shared_ptr<IvalidatorHost> bound;
  run.Judge("Validator", ProblemOf(validator.Validator(bound)));
  run.Judge("SetValidator of none", ProblemOf(validator.SetValidator(nullptr)));
  for (const auto& [operation, work] : guarded) {
    Boolean out = Answer::kUnwritten;
    const Status status = work(out);
    const bool isRefused = !status.Ok() && status.Reason().number == kNotBound;
    run.Expect(isRefused, operation, "does not fail with 9001");
    run.Expect(out == Answer::kUnwritten, operation, "writes a result all the same");
  }
  Boolean out = Answer::kUnwritten;
  run.Judge("EnterFocusByUIID", ProblemOf(validator.EnterFocusByUIID("x", value, 1, out)));
  run.Judge("SetValidator", ProblemOf(validator.SetValidator(bound)));
  run.Judge("ValidateByUIID, bound again", ProblemOf(validator.ValidateByUIID("x", value, 1, out)));
  run.Expect(bench.GetSession().Host().Services().Boxes().empty(), "the validator", "ends the application");
}

// clang-format off
constexpr Check kLifeChecks[] = {
    {"initialising",      2, "Initialize makes the children and keeps what it was given",        Initialising},
    {"terminating",       2, "Activate may come again; Terminate drops all; another tier begins anew", Terminating},
    {"unknown-names",     2, "unknown names are answered without a fault",                       UnknownNames},
    {"unbound-validator", 2, "without its host the validator fails with 9001 and writes nothing", UnboundValidator},
};
// clang-format on

}  // namespace

std::span<const Check> LifeChecks() { return kLifeChecks; }

}  // namespace Conform
