#include <algorithm>
#include <memory>

#include "host/TierLibrary.h"
#include "workbench/conform/Check.h"
#include "workbench/conform/Exports.h"
#include "workbench/files/FileError.h"
#include "workbench/host/TierLoader.h"

/// The library as a file and its class factories; no tier is initialised.
namespace Conform {
namespace {

constexpr std::string_view kEntryPoints[] = {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                             "DllUnregisterServer"};
constexpr std::int32_t kNotMadeHere = 430;
constexpr std::int32_t kNoSuchClass = 5;

/// Asks the factory for a new object of one class and lets go of it: 0, or the number of the error.
template <auto create>
std::int32_t Create(IclassFactory& factory) {
  const auto make = [&]<typename Object>(Status (IclassFactory::*operation)(std::shared_ptr<Object>&)) {
    std::shared_ptr<Object> object;
    const Status status = (factory.*operation)(object);
    constexpr std::int32_t kNothing = -1;
    if (!status.Ok()) return status.Reason().number;
    return object == nullptr ? kNothing : 0;
  };
  return make(create);
}

// clang-format off
constexpr struct {
  std::string_view name;
  std::int32_t (*create)(IclassFactory& factory);
} kClasses[] = {
    {"clsKD4410Tier",        Create<&IclassFactory::CreateTier>},
    {"clsSchema",            Create<&IclassFactory::CreateSchema>},
    {"clsTierUI",            Create<&IclassFactory::CreateUserInterface>},
    {"clsKD4410ProvOwn",     Create<&IclassFactory::CreateProviderOwner>},
    {"cKD4410TierValidator", Create<&IclassFactory::CreateValidator>},
};
// clang-format on

void Load(CheckRun& run) {
  std::string problem;
  try {
    TierLibrary::Load(run.Parts().tierLibrary);
  } catch (const FileError& error) {
    problem = error.what();
  }
  run.Judge("the library", problem);
}

void OnlyEntryPoints(CheckRun& run) {
  const std::vector<std::string> names = ExportedNames(run.Parts().tierLibrary);
  for (const std::string_view name : kEntryPoints) {
    run.Expect(std::ranges::find(names, name) != names.end(), name, "is not exported");
  }
  for (const std::string& name : names) {
    const bool isKnown = std::ranges::find(kEntryPoints, name) != std::end(kEntryPoints);
    run.Expect(isKnown, name, "is exported");
  }
}

void Factories(CheckRun& run) {
  const auto library = TierLibrary::Load(run.Parts().tierLibrary);
  for (const auto& own : kClasses) {
    std::shared_ptr<IclassFactory> factory;
    const std::int32_t result = library->ClassObject(own.name, factory);
    run.Expect(result == 0 && factory != nullptr, own.name, "has no class factory");
    for (const auto& other : kClasses) {
      if (factory == nullptr) break;
      const std::int32_t expected = &own == &other ? 0 : kNotMadeHere;
      const std::int32_t number = other.create(*factory);
      run.Expect(number == expected, std::string(own.name) + " makes " + std::string(other.name),
                 "gives " + std::to_string(number) + " instead of " + std::to_string(expected));
    }
  }
  for (const std::string_view unknown : {"", "clsNothing", "clsKD4410Tier "}) {
    std::shared_ptr<IclassFactory> factory;
    const std::int32_t result = library->ClassObject(unknown, factory);
    run.Expect(result == kNoSuchClass && factory == nullptr, "class \"" + std::string(unknown) + '"',
               "is unknown and gives " + std::to_string(result) + " instead of 5");
  }
}

void Lifetimes(CheckRun& run) {
  constexpr int kTimes = 1000;
  const auto library = TierLibrary::Load(run.Parts().tierLibrary);
  run.Expect(library->CanUnloadNow(), "the library", "may not be unloaded though nothing was made yet");
  for (const auto& one : kClasses) {
    for (int i = 0; i < kTimes; ++i) {
      std::shared_ptr<IclassFactory> factory;
      if (library->ClassObject(one.name, factory) != 0 || one.create(*factory) != 0) {
        run.Judge(one.name, "is not made at time " + std::to_string(i + 1));
        break;
      }
      if (i == 0) run.Expect(!library->CanUnloadNow(), one.name, "lives, yet the library may be unloaded");
    }
    run.Expect(library->CanUnloadNow(), one.name, "was let go, yet the library may not be unloaded");
  }
}

// clang-format off
constexpr Check kLoadChecks[] = {
    {"load",      1, "the library loads with its entry points",                     Load},
    {"exports",   1, "it exports its four entry points and nothing else",           OnlyEntryPoints},
    {"factories", 1, "each class has a factory, which makes this class alone",      Factories},
    {"lifetimes", 1, "objects come and go 1,000 times; it may be unloaded exactly when none lives", Lifetimes},
};
// clang-format on

}  // namespace

std::span<const Check> LoadChecks() { return kLoadChecks; }

}  // namespace Conform
