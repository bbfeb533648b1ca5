#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/TierLibrary.h"

namespace Trace {
class IentryPoints;
class Recorder;
}  // namespace Trace

/// The tier as a plug-in, loaded from its shared library and reached through its exported entry points
/// alone. The library stays loaded as long as this object, a tier that it made or another of its objects
/// lives.
class TierLibrary {
 public:
  /// Throws a FileError for a library that can not be loaded or lacks an entry point. With a recorder what is
  /// reached through the library is traced.
  static std::shared_ptr<TierLibrary> Load(const std::string& path, Trace::Recorder* recorder = nullptr);
  ~TierLibrary();
  TierLibrary(const TierLibrary&) = delete;
  TierLibrary& operator=(const TierLibrary&) = delete;

  /// A new tier, not initialised; it keeps this library loaded. Raises what the library answers.
  std::shared_ptr<Itier> CreateTier(std::shared_ptr<IhostServices> services);
  /// What `DllGetClassObject` answers: 0 and the class factory, or the number of the failure.
  std::int32_t ClassObject(std::string_view className, std::shared_ptr<IclassFactory>& out) const;
  /// Withdraws the host's services from the library.
  void WithdrawServices();

  const std::string& Path() const { return path_; }
  /// No object of the library lives.
  bool CanUnloadNow() const;
  Trace::IentryPoints& EntryPoints() const { return *entryPoints_; }
  /// Write and remove the registration file; each raises a FileError when it can not.
  void Register() const;
  void Unregister() const;

 private:
  explicit TierLibrary(std::string path);
  template <typename Function>
  Function EntryPoint(const char* name) const;
  std::shared_ptr<IclassFactory> Factory(std::string_view className) const;

  std::string path_;
  void* handle_ = nullptr;
  std::weak_ptr<TierLibrary> self_;
  std::shared_ptr<Trace::IentryPoints> entryPoints_;
  DllRegisterServerFunction register_ = nullptr;
  DllUnregisterServerFunction unregister_ = nullptr;
};

/// Where the tier library lies: `chosen` if it is not empty, else where the registration file says, else
/// beside the data files. Throws a FileError for a registration file that names none.
std::string FindTierLibrary(const std::string& chosen);

/// The folder of the data files and of `schema`: `chosen` if it is not empty, else the one that was
/// installed with this executable. Throws a FileError when there is no such folder.
std::string FindDataFolder(const std::string& chosen);
