#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "host/IenablementReasons.h"
#include "host/IproviderOwner.h"
#include "host/ItierSchema.h"
#include "host/ItierUserInterface.h"
#include "host/ItierValidator.h"

class ApplicationServices;
class Imessenger;
class Itier;
class OpenPersonality;
class Provider;
class SchemaFiles;
class TierLibrary;
namespace Trace {
class Recorder;
}

/// The tier failed: it answered a call with an error, or asked to end the application. What it was working
/// on is not kept.
class TierFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The tier does not support what it was asked for: nothing failed, and nothing was changed.
class UnsupportedByTier : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Where the parts of a host lie.
struct HostParts {
  std::shared_ptr<const SchemaFiles> schemas;
  std::string tierLibrary;
  std::string dataFolder;
  std::shared_ptr<Trace::Recorder> recorder = nullptr;  // of all calls between host and tier; null for none
};

/// A tier, loaded from its library and initialised, and the platform that it runs on.
class TierHost {
 public:
  /// `provider` is the open personality; null for none, which serves what needs no personality.
  TierHost(const HostParts& parts, std::shared_ptr<Provider> provider, std::shared_ptr<Imessenger> messenger);
  ~TierHost();
  TierHost(const TierHost&) = delete;
  TierHost& operator=(const TierHost&) = delete;

  /// The tier turns to another personality of its model, of any version.
  void Open(std::shared_ptr<Provider> provider);
  /// The tier finds this store for its version from now on.
  void UseStore(std::shared_ptr<Provider> provider);

  IproviderOwner& Owner() const { return *owner_; }
  ItierSchema& Versions() const { return *versions_; }
  ItierValidator& Validator() const { return *validator_; }
  ItierUserInterface& UserInterface() const { return *userInterface_; }
  Itier& Tier() const { return *tier_; }
  ApplicationServices& Services() const { return *services_; }

  /// Why a control is enabled or disabled; no value from a tier that does not tell.
  std::optional<EnablementReason> ReasonOf(std::string_view uiid, RecordNr record) const;

  /// Raises a TierFault for a failed status, and for a tier that has asked to end the application; an
  /// UnsupportedByTier for an operation that the tier does not have.
  void Require(const Status& status) const {
    if (!status.Ok() || HasEnded()) [[unlikely]] {
      Fail(status);
    }
  }

 private:
  bool HasEnded() const;
  [[noreturn]] void Fail(const Status& status) const;
  void CreateTier(std::shared_ptr<Imessenger> messenger);

  std::shared_ptr<OpenPersonality> personality_;
  std::shared_ptr<ApplicationServices> services_;
  std::shared_ptr<TierLibrary> library_;
  std::shared_ptr<Itier> tier_;
  std::shared_ptr<IproviderOwner> owner_;
  std::shared_ptr<ItierSchema> versions_;
  std::shared_ptr<ItierValidator> validator_;
  std::shared_ptr<ItierUserInterface> userInterface_;
};
