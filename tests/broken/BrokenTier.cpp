// A tier that breaks one promise: the real one, with a channel between it and the host that does something
// wrong in one operation. The environment variable KD4410_BROKEN names what.

#include <dlfcn.h>
#include <unistd.h>

#include <bit>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "workbench/conform/DecimalLocale.h"
#include "workbench/trace/Objects.h"

namespace {
using Trace::BorderCall;
using Trace::Json;

/// The number of calls of the broken operation so far, this one among them.
int calls = 0;
/// The operations of the tier that the host is in, as text: "IproviderOwner.TransformToUI".
std::string within;

Status Real(BorderCall& call) {
  Status status = call.Run();
  if (status.Ok()) call.TakeResults();
  return status;
}

Status Answer(BorderCall& call, const char* results) {
  call.ReadResults(Json::parse(results));
  return {};
}

std::string FirstArgument(BorderCall& call) { return call.Arguments().front().get<std::string>(); }

template <typename I>
std::shared_ptr<I> CalleeOf(BorderCall& call, Trace::Objects& objects) {
  auto callee = objects.FindOfHost<I>(call.Object());
  if (callee == nullptr) std::abort();
  return callee;
}

using Breach = Status (*)(BorderCall&, Trace::Objects&);

// Breaches. Each stands for the operation; most carry it out and do something more or less.
Status Skip(BorderCall&, Trace::Objects&) { return {}; }
Status SkipAsTrue(BorderCall& call, Trace::Objects&) { return Answer(call, "[-1]"); }
Status Fail(BorderCall&, Trace::Objects&) { return {9, "BrokenTier", "Subscript out of range"}; }
Status Crash(BorderCall&, Trace::Objects&) { std::abort(); }
Status Leave(BorderCall&, Trace::Objects&) { ::_exit(0); }
Status Hang(BorderCall&, Trace::Objects&) {
  while (true) ::pause();
}
Status NeverUnload(BorderCall& call, Trace::Objects&) { return Answer(call, "[1]"); }
Status KnowEveryClass(BorderCall& call, Trace::Objects&) {
  Status status = Real(call);
  return call.Results()[0].is_null() ? Answer(call, "[null, 0]") : std::move(status);
}
/// Carries the call out and gives another last result.
Status Changed(BorderCall& call, const std::function<int(int)>& change) {
  Status status = Real(call);
  Json results = call.Results();
  results.back() = change(results.back().get<int>());
  call.ReadResults(results);
  return status;
}
Status RefuseUnknown(BorderCall& call, Trace::Objects&) {
  if (FirstArgument(call) != "NoSuchName") return Real(call);
  return Changed(call, [](int) { return 0; });
}
Status NoFlag(BorderCall& call, Trace::Objects&) {
  return Changed(call, [](int) { return 7; });
}
Status Whimsical(BorderCall& call, Trace::Objects&) {
  // No number of calls after which the moods come again.
  const bool isInMood = std::popcount(static_cast<unsigned>(calls)) % 2 == 0;
  return Changed(call, [&](int flag) { return isInMood ? -1 - flag : flag; });
}
Status MinusTheSecond(BorderCall& call, Trace::Objects&) { return calls % 2 == 0 ? Status() : Real(call); }
Status SkipWhileShowing(BorderCall& call, Trace::Objects&) {
  return within == "IproviderOwner.TransformToUI" ? Status() : Real(call);
}
Status CapitalsOnly(BorderCall& call, Trace::Objects&) {
  const std::string uiid = FirstArgument(call);
  return uiid.find_first_of("abcdefghijklmnopqrstuvwxyz") == std::string::npos ? Answer(call, "[5]")
                                                                               : Real(call);
}
Status FailInTheEnd(BorderCall& call, Trace::Objects& objects) {
  return calls > 20 ? Fail(call, objects) : Real(call);
}
Status AskRecordZero(BorderCall& call, Trace::Objects& objects) {
  Variant ignored;
  static_cast<void>(CalleeOf<Ifield>(call, objects)->Value(0, ignored));
  return Real(call);
}
Status AskForeignName(BorderCall& call, Trace::Objects& objects) {
  std::shared_ptr<Ifield> ignored;
  static_cast<void>(CalleeOf<Iprovider>(call, objects)->Field("9999.NoSuchField", ignored));
  return Real(call);
}
/// Reads what only the last conversion to the forms fills.
Status ReadAhead(BorderCall& call, Trace::Objects& objects) {
  std::shared_ptr<Ifield> preset;
  Variant ignored;
  static_cast<void>(CalleeOf<Iprovider>(call, objects)->Field("5.DTMFPresetCallSequence", preset));
  if (preset != nullptr) static_cast<void>(preset->Value(1, ignored));
  return Real(call);
}
/// What is read to be shown is stored again.
Status StoreWhileShowing(BorderCall& call, Trace::Objects& objects) {
  Variant value;
  const auto field = CalleeOf<Ifield>(call, objects);
  if (within == "IproviderOwner.TransformToUI" && field->Value(1, value).Ok()) {
    static_cast<void>(field->SetValue(1, value));
  }
  return Real(call);
}
Status ShowGarbage(BorderCall& call, Trace::Objects& objects) {
  std::int32_t ignored = 0;
  static_cast<void>(
      CalleeOf<Imessenger>(call, objects)->ShowMessage("%0:S is what?", 48, "Oops", "", ignored));
  return Real(call);
}

// clang-format off
constexpr struct {
  std::string_view name;
  std::string_view operation;
  Breach breach;
} kBreaches[] = {
    {"knows every class",         "IentryPoints.DllGetClassObject",          KnowEveryClass},
    {"is never unloaded",         "IentryPoints.DllCanUnloadNow",            NeverUnload},
    {"does not initialise",       "Itier.Initialize",                        SkipAsTrue},
    {"does not terminate",        "Itier.Terminate",                         Skip},
    {"refuses unknown names",     "ItierValidator.ValidateByUIID",           RefuseUnknown},
    {"keeps its host",            "ItierValidator.SetValidator",             Skip},
    {"crashes",                   "ItierValidator.ValidateByUIID",           Crash},
    {"hangs",                     "ItierValidator.GetEnabledStatebyUIID",    Hang},
    {"fails in a form",           "ItierValidator.FormValidationByFormName", Fail},
    {"fails in a grid",           "ItierValidator.AddRecord",                Fail},
    {"fails in a conversion",     "IproviderOwner.TransformFromUI",          Fail},
    {"answers no flag",           "IproviderOwner.GetComboItemsByUIID",      NoFlag},
    {"leaves the process",        "IproviderOwner.BackwardsCompatibility",   Leave},
    {"fails before a save",       "ItierValidator.RunFinalValidation",       Fail},
    {"does not restore",          "Iprovider.SetAutoUpdate",                 MinusTheSecond},
    {"writes aloud",              "Iprovider.SetAutoUpdate",                 Skip},
    {"reloads at any time",       "Iprovider.AutoUpdate",                    SkipAsTrue},
    {"keeps its provider",        "Itier.SetTierKey",                        Skip},
    {"asks for record 0",         "Ifield.Value",                            AskRecordZero},
    {"asks for another version",  "Iprovider.Field",                         AskForeignName},
    {"loses what it shows",       "Ifield.SetValue",                         SkipWhileShowing},
    {"reads ahead",               "Iprovider.Field",                         ReadAhead},
    {"stores while showing",      "Ifield.Value",                            StoreWhileShowing},
    {"changes its mind",          "ItierValidator.GetEnabledStatebyUIID",    Whimsical},
    {"reads small letters",       "ItierValidator.GetEnabledStatebyUIID",    CapitalsOnly},
    {"shows garbage",             "Imessenger.ShowMessage",                  ShowGarbage},
    {"fails in the end",          "ItierValidator.ValidateByUIID",           FailInTheEnd},
    {"shows no fault",            "IhostServices.ShowMessageBox",            Skip},
    {"never ends",                "IhostServices.RaiseEvent",                Skip},
};
// clang-format on

std::string_view Chosen() {
  const char* name = std::getenv("KD4410_BROKEN");
  return name == nullptr ? "" : name;
}

/// Carries calls to the other side, but for the operation that is broken.
class BrokenChannel final : public Trace::Channel {
 public:
  Status Carry(BorderCall& call) noexcept override {
    const std::string outer = within;
    if (call.Callee() == Trace::Side::Tier) within = call.Operation();
    Status status = Broken(call);
    within = outer;
    return status;
  }
  void Release(std::int32_t number) noexcept override { objects_.Release(number); }
  Trace::Objects& KnownObjects() override { return objects_; }

 private:
  Status Broken(BorderCall& call) {
    for (const auto& row : kBreaches) {
      if (row.name != Chosen() || row.operation != call.Operation()) continue;
      ++calls;
      return row.breach(call, objects_);
    }
    return Real(call);
  }

  Trace::Objects objects_{*this, Trace::Objects::Hold::Host};
};

/// The functions of the real library.
class RealLibrary final : public Trace::IentryPoints {
 public:
  Status DllGetClassObject(std::string_view className, std::shared_ptr<IclassFactory>& factory,
                           std::int32_t& result) override {
    result = Function<DllGetClassObjectFunction>("DllGetClassObject")(className, factory);
    return {};
  }
  Status DllCanUnloadNow(std::int32_t& result) override {
    result = Function<DllCanUnloadNowFunction>("DllCanUnloadNow")();
    return {};
  }
  template <typename Pointer>
  Pointer Function(const char* name) const {
    return reinterpret_cast<Pointer>(::dlsym(handle_, name));
  }

 private:
  void* handle_ = ::dlopen(REAL_TIER, RTLD_NOW | RTLD_LOCAL);
};

struct Library {
  Library() {
    const bool points = Chosen() == "writes points";
    if (points || Chosen() == "writes commas")
      other = std::make_unique<Conform::DecimalLocale>(points ? '.' : ',');
    real = std::make_shared<RealLibrary>();
    entryPoints = channel->KnownObjects().Cross<Trace::IentryPoints>(real);
  }
  std::unique_ptr<Conform::DecimalLocale> other;
  std::shared_ptr<BrokenChannel> channel = std::make_shared<BrokenChannel>();
  std::shared_ptr<RealLibrary> real;
  std::shared_ptr<Trace::IentryPoints> entryPoints;
};

Library& TheLibrary() {
  static Library library;
  return library;
}
}  // namespace

extern "C" {
std::int32_t DllGetClassObject(std::string_view className, std::shared_ptr<IclassFactory>& out) {
  std::int32_t result = 0;
  return TheLibrary().entryPoints->DllGetClassObject(className, out, result).Ok() ? result : 1;
}
std::int32_t DllCanUnloadNow() {
  std::int32_t result = 0;
  return TheLibrary().entryPoints->DllCanUnloadNow(result).Ok() ? result : 1;
}
std::int32_t DllRegisterServer() {
  return TheLibrary().real->Function<DllRegisterServerFunction>("DllRegisterServer")();
}
std::int32_t DllUnregisterServer() {
  return TheLibrary().real->Function<DllUnregisterServerFunction>("DllUnregisterServer")();
}
#ifdef TALKATIVE
KD4410_EXPORT void TooMuch() {}
#endif
}
