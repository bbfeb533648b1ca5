#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "host/TierLibrary.h"
#include "tests/support/Temporary.h"

/// The built plug-in, loaded from a copy of its own, so that its state is that of a new process. Whoever uses
/// it lets go of all objects first.
class FreshLibrary {
 public:
  FreshLibrary();
  ~FreshLibrary();
  FreshLibrary(const FreshLibrary&) = delete;
  FreshLibrary& operator=(const FreshLibrary&) = delete;

  std::string Path() const { return std::filesystem::canonical(folder_.PathOf("tier.so")).string(); }
  void* Symbol(const char* name) const;
  template <typename Function>
  Function EntryPoint(const char* name) const {
    return reinterpret_cast<Function>(Symbol(name));
  }

  /// Null for a class that the library does not have.
  std::shared_ptr<IclassFactory> Factory(std::string_view className = "clsKD4410Tier") const;
  void SetServices(std::shared_ptr<IhostServices> services) const;
  bool CanUnloadNow() const { return EntryPoint<DllCanUnloadNowFunction>("DllCanUnloadNow")() == 0; }
  std::shared_ptr<Itier> CreateTier() const;
  std::shared_ptr<ItierUserInterface> CreateUserInterface() const;

 private:
  TemporaryFolder folder_;
  void* handle_ = nullptr;
};
