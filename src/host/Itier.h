#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/Imessenger.h"
#include "host/IprovInfo.h"
#include "host/IproviderOwner.h"
#include "host/Iterminator.h"
#include "host/ItierSchema.h"
#include "host/ItierUserInterface.h"
#include "host/ItierValidator.h"
#include "host/IvalidatorHost.h"

/// The model plug-in of one radio family, created by the host first of all. Implemented by the tier.
/// Its life: created; `Initialize` (a false result leaves it failed, fit only for `Terminate`); active;
/// `Terminate`. Every operation but Initialize, SetTierName and the keys needs the active state.
/// Operations that hand out a child are legal from Initialize to Terminate; outside, they give an empty
/// pointer. In any callback a host may let go of the tier and its children: whoever works for a call lives
/// until it returns. A child that a host keeps longer than the tier, or beyond Terminate, answers error 91;
/// the validator answers as without a host. Of several tiers the one initialised last ends the
/// application; when it goes the one before it does.
class Itier {
 public:
  virtual ~Itier() = default;
  /// Binds provider owner, user interface and validator to this tier anew. True on success. Reads no
  /// file again.
  virtual Status Activate(Boolean& out) = 0;
  /// The entry of `TierKey` in the schema's tier list, found once and kept until the key changes. Error
  /// 5 when no version has the key.
  virtual Status CurrentProvInfo(std::shared_ptr<IprovInfo>& out) = 0;
  /// The provider of CurrentProvInfo, asked anew on every call.
  virtual Status CurrentProvider(std::shared_ptr<Iprovider>& out) = 0;
  virtual Status ProviderOwner(std::shared_ptr<IproviderOwner>& out) = 0;
  virtual Status Schema(std::shared_ptr<ItierSchema>& out) = 0;
  /// This tier, as the one that ends the application.
  virtual Status Terminator(std::shared_ptr<Iterminator>& out) = 0;
  virtual Status UserInterface(std::shared_ptr<ItierUserInterface>& out) = 0;
  virtual Status Validator(std::shared_ptr<ItierValidator>& out) = 0;
  /// The first call of all: creates the children, reads the metadata files, finds the database versions
  /// and activates the tier. False when a step fails, which the user has been told. From here on an
  /// unexpected error ends the application. `uiArgument` is not used.
  virtual Status Initialize(std::string_view tierName, std::shared_ptr<IvalidatorHost> validatorHost,
                            std::shared_ptr<Imessenger> messenger, const Variant& uiArgument,
                            Boolean& out) = 0;
  /// Drops the four children and the messenger.
  virtual Status Terminate() = 0;
  /// The key of the current database version ("0054.KD4410"). Setting a different one, compared
  /// exactly, makes another provider current; setting the same changes nothing.
  virtual Status TierKey(std::string& out) = 0;
  virtual Status SetTierKey(std::string_view key) = 0;
  virtual Status SetTierName(std::string_view name) = 0;
  virtual Status TierName(std::string& out) = 0;
  /// The messenger given to `Initialize`.
  virtual Status Messenger(std::shared_ptr<Imessenger>& out) = 0;
  /// Binds the three children to another tier, which delegates to this one: they read its provider and
  /// messenger, and answer 91 when it is gone; they notice that by its Terminator.
  virtual Status InitializeAsDelegate(Itier* delegatingTier,
                                      std::shared_ptr<IvalidatorHost> validatorHost) = 0;
};
