#include "workbench/host/TierLoader.h"

#include <dlfcn.h>

#include <filesystem>
#include <fstream>

#include "platform/CaseText.h"
#include "platform/System.h"
#include "workbench/files/FileError.h"
#include "workbench/trace/Recorder.h"

namespace {
constexpr std::string_view kTierClass = "clsKD4410Tier";
constexpr const char* kLibraryName = "libkd4410tier.so";

std::string LastProblem() {
  const char* problem = ::dlerror();
  return problem == nullptr ? "unknown problem" : problem;
}

/// The folder of library and data files that belongs to this executable.
std::string InstalledFolder() {
  std::error_code problem;
  const auto executable = std::filesystem::read_symlink("/proc/self/exe", problem);
  return (executable.parent_path() / KD4410_LIBRARY_FOLDER).lexically_normal().string();
}

/// The path that the registration file gives for the tier class.
std::string RegisteredLibrary(const std::string& registration) {
  std::ifstream file(registration);
  if (!file) throw FileError(registration, 0, "registration", "can not be read");
  std::string line;
  while (std::getline(file, line)) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string::npos || !EqualsIgnoringCase(line.substr(0, tab), kTierClass)) continue;
    return line.substr(tab + 1);
  }
  throw FileError(registration, 0, "registration", "no line for " + std::string(kTierClass));
}

/// The functions of a library as an object.
class EntryPointsObject final : public Trace::IentryPoints {
 public:
  EntryPointsObject(DllGetClassObjectFunction getClassObject, DllCanUnloadNowFunction canUnloadNow)
      : getClassObject_(getClassObject), canUnloadNow_(canUnloadNow) {}
  Status DllGetClassObject(std::string_view className, std::shared_ptr<IclassFactory>& factory,
                           std::int32_t& result) override {
    result = getClassObject_(className, factory);
    return {};
  }
  Status DllCanUnloadNow(std::int32_t& result) override {
    result = canUnloadNow_();
    return {};
  }

 private:
  DllGetClassObjectFunction getClassObject_;
  DllCanUnloadNowFunction canUnloadNow_;
};
}  // namespace

TierLibrary::TierLibrary(std::string path) : path_(std::move(path)) {
  // A name without a slash would be looked for in the system's folders instead.
  const std::string fullPath = std::filesystem::absolute(path_).string();
  handle_ = ::dlopen(fullPath.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle_ == nullptr) throw FileError(path_, 0, "load", LastProblem());
}

TierLibrary::~TierLibrary() {
  // While an object of the library lives, its code stays.
  if (entryPoints_ == nullptr || CanUnloadNow()) ::dlclose(handle_);
}

bool TierLibrary::CanUnloadNow() const {
  std::int32_t result = 1;
  RaiseIfFailed(entryPoints_->DllCanUnloadNow(result));
  return result == 0;
}

template <typename Function>
Function TierLibrary::EntryPoint(const char* name) const {
  void* address = ::dlsym(handle_, name);
  if (address == nullptr) throw FileError(path_, 0, name, "the library has no such entry point");
  return reinterpret_cast<Function>(address);
}

std::shared_ptr<TierLibrary> TierLibrary::Load(const std::string& path, Trace::Recorder* recorder) {
  std::shared_ptr<TierLibrary> library(new TierLibrary(path));
  library->self_ = library;
  const auto getClassObject = library->EntryPoint<DllGetClassObjectFunction>("DllGetClassObject");
  const auto canUnloadNow = library->EntryPoint<DllCanUnloadNowFunction>("DllCanUnloadNow");
  library->register_ = library->EntryPoint<DllRegisterServerFunction>("DllRegisterServer");
  library->unregister_ = library->EntryPoint<DllUnregisterServerFunction>("DllUnregisterServer");
  library->entryPoints_ = std::make_shared<EntryPointsObject>(getClassObject, canUnloadNow);
  if (recorder != nullptr) library->entryPoints_ = recorder->Attach(library->entryPoints_);
  return library;
}

std::int32_t TierLibrary::ClassObject(std::string_view className, std::shared_ptr<IclassFactory>& out) const {
  std::int32_t result = 0;
  RaiseIfFailed(entryPoints_->DllGetClassObject(className, out, result));
  return result;
}

std::shared_ptr<IclassFactory> TierLibrary::Factory(std::string_view className) const {
  std::shared_ptr<IclassFactory> factory;
  const std::int32_t result = ClassObject(className, factory);
  if (result != 0 || factory == nullptr) {
    throw FileError(path_, 0, std::string(className),
                    "no class factory (result " + std::to_string(result) + ")");
  }
  return factory;
}

std::shared_ptr<Itier> TierLibrary::CreateTier(std::shared_ptr<IhostServices> services) {
  const auto factory = Factory(kTierClass);
  RaiseIfFailed(factory->SetHostServices(std::move(services)));
  std::shared_ptr<Itier> tier;
  RaiseIfFailed(factory->CreateTier(tier));
  // The tier's own code runs when it goes, so the library goes after it.
  struct Loaded {
    std::shared_ptr<TierLibrary> library;
    std::shared_ptr<Itier> tier;
  };
  auto loaded = std::make_shared<Loaded>(Loaded{self_.lock(), tier});
  tier.reset();
  return {loaded, loaded->tier.get()};
}

void TierLibrary::WithdrawServices() { RaiseIfFailed(Factory(kTierClass)->SetHostServices(nullptr)); }

void TierLibrary::Register() const {
  const std::int32_t result = register_();
  if (result != 0) throw FileError(System::RegistrationFile(), 0, "registration", "can not be written");
}

void TierLibrary::Unregister() const {
  const std::int32_t result = unregister_();
  if (result != 0) throw FileError(System::RegistrationFile(), 0, "registration", "can not be removed");
}

std::string FindTierLibrary(const std::string& chosen) {
  if (!chosen.empty()) return chosen;
  const std::string registration = System::RegistrationFile();
  std::error_code problem;
  if (!registration.empty() && std::filesystem::exists(registration, problem)) {
    return RegisteredLibrary(registration);
  }
  return System::PathIn(InstalledFolder(), kLibraryName);
}

std::string FindDataFolder(const std::string& chosen) {
  std::string folder = chosen.empty() ? InstalledFolder() : chosen;
  std::error_code problem;
  if (!std::filesystem::is_directory(folder, problem)) {
    throw FileError(folder, 0, "data folder", "no such folder");
  }
  return folder;
}
