#pragma once

#include <dlfcn.h>

#include <memory>

#include "host/TierLibrary.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/Temporary.h"

/// The built plug-in, loaded from a copy of its own, so that its state is that of a new process. Whoever uses
/// it lets go of all objects first.
class FreshLibrary {
 public:
  FreshLibrary() {
    std::filesystem::copy_file(kTierLibrary, folder_.PathOf("tier.so"));
    handle_ = ::dlopen(Path().c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle_ == nullptr) throw std::runtime_error(::dlerror());
  }
  ~FreshLibrary() {
    SetServices(nullptr);
    EXPECT_TRUE(CanUnloadNow()) << "an object outlives its library";
    ::dlclose(handle_);
  }
  FreshLibrary(const FreshLibrary&) = delete;
  FreshLibrary& operator=(const FreshLibrary&) = delete;

  std::string Path() const { return std::filesystem::canonical(folder_.PathOf("tier.so")); }
  template <typename Function>
  Function EntryPoint(const char* name) const {
    return reinterpret_cast<Function>(::dlsym(handle_, name));
  }
  /// Null for a class that the library does not have.
  std::shared_ptr<IclassFactory> Factory(std::string_view className = "clsKD4410Tier") const {
    std::shared_ptr<IclassFactory> factory;
    EntryPoint<DllGetClassObjectFunction>("DllGetClassObject")(className, factory);
    return factory;
  }
  void SetServices(std::shared_ptr<IhostServices> services) const {
    EXPECT_TRUE(Factory()->SetHostServices(std::move(services)).Ok());
  }
  bool CanUnloadNow() const { return EntryPoint<DllCanUnloadNowFunction>("DllCanUnloadNow")() == 0; }
  std::shared_ptr<Itier> CreateTier() const {
    std::shared_ptr<Itier> tier;
    EXPECT_TRUE(Factory()->CreateTier(tier).Ok());
    return tier;
  }

 private:
  TemporaryFolder folder_;
  void* handle_ = nullptr;
};
