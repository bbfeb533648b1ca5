#include "tests/support/FreshLibrary.h"

#include <dlfcn.h>

FreshLibrary::FreshLibrary() {
  const std::string copy = folder_.PathOf("tier.so");
  std::filesystem::copy_file(TIER_LIBRARY, copy);
  handle_ = ::dlopen(copy.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle_ == nullptr) throw std::runtime_error(::dlerror());
}

FreshLibrary::~FreshLibrary() {
  SetServices(nullptr);
  EXPECT_TRUE(CanUnloadNow()) << "an object outlives its library";
  ::dlclose(handle_);
}

void* FreshLibrary::Symbol(const char* name) const { return ::dlsym(handle_, name); }

std::shared_ptr<IclassFactory> FreshLibrary::Factory(std::string_view className) const {
  std::shared_ptr<IclassFactory> factory;
  EntryPoint<DllGetClassObjectFunction>("DllGetClassObject")(className, factory);
  return factory;
}

void FreshLibrary::SetServices(std::shared_ptr<IhostServices> services) const {
  EXPECT_TRUE(Factory()->SetHostServices(std::move(services)).Ok());
}

std::shared_ptr<Itier> FreshLibrary::CreateTier() const {
  std::shared_ptr<Itier> tier;
  EXPECT_TRUE(Factory()->CreateTier(tier).Ok());
  return tier;
}

std::shared_ptr<ItierUserInterface> FreshLibrary::CreateUserInterface() const {
  std::shared_ptr<ItierUserInterface> userInterface;
  EXPECT_TRUE(Factory("clsTierUI")->CreateUserInterface(userInterface).Ok());
  return userInterface;
}
