#pragma once

#include <memory>
#include <string_view>

#include "host/IcolProvInfo.h"
#include "host/IhostServices.h"
#include "host/Itier.h"
#include "platform/Export.h"

/// Creates the objects of one public class of the tier library. Each factory makes objects of its own
/// class alone: asked for another it fails with error 430.
class IclassFactory {
 public:
  virtual ~IclassFactory() = default;
  /// The services serve the whole library; an empty pointer withdraws them.
  virtual Status SetHostServices(std::shared_ptr<IhostServices> services) = 0;
  virtual Status CreateTier(std::shared_ptr<Itier>& out) = 0;
  virtual Status CreateSchema(std::shared_ptr<ItierSchema>& out) = 0;
  virtual Status CreateUserInterface(std::shared_ptr<ItierUserInterface>& out) = 0;
  virtual Status CreateProviderOwner(std::shared_ptr<IproviderOwner>& out) = 0;
  virtual Status CreateValidator(std::shared_ptr<ItierValidator>& out) = 0;
};

// The exported entry points. Host and library are built with the same compiler and standard library.
// Result 0 is success; each function gives another number for a failure.
extern "C" {

/// The factory of a public class: clsKD4410Tier, clsSchema, clsTierUI, clsKD4410ProvOwn or
/// cKD4410TierValidator, whatever the case. Result 5: no such class.
KD4410_EXPORT std::int32_t DllGetClassObject(std::string_view className, std::shared_ptr<IclassFactory>& out);
/// 0 when no object of the library lives, so that it may be unloaded; else 1.
KD4410_EXPORT std::int32_t DllCanUnloadNow();
/// Writes the registration file: for each public class a line with its name, a tab and the path of the
/// library. It lies in the folder that KD4410_REGISTRATION_DIR names, else in kd4410 of the user's
/// data folder. Result 75: it can not be written.
KD4410_EXPORT std::int32_t DllRegisterServer();
/// Removes the registration file; one that is not there is a success. Result 75: it can not be removed.
KD4410_EXPORT std::int32_t DllUnregisterServer();
}

/// The types of the entry points, for a host that looks them up by name.
using DllGetClassObjectFunction = decltype(&DllGetClassObject);
using DllCanUnloadNowFunction = decltype(&DllCanUnloadNow);
using DllRegisterServerFunction = decltype(&DllRegisterServer);
using DllUnregisterServerFunction = decltype(&DllUnregisterServer);
