#pragma once

#include "common/LibraryObject.h"
#include "common/TierChild.h"
#include "host/Itier.h"

/// The tier object: owns the four children that answer the host and knows the database version that is
/// current.
class clsKD4410Tier final : public Itier,
                            public Iterminator,
                            public std::enable_shared_from_this<clsKD4410Tier>,
                            private LibraryObject {
 public:
  ~clsKD4410Tier() override;
  Status Activate(Boolean& out) override;
  Status CurrentProvInfo(std::shared_ptr<IprovInfo>& out) override;
  Status CurrentProvider(std::shared_ptr<Iprovider>& out) override;
  Status ProviderOwner(std::shared_ptr<IproviderOwner>& out) override;
  Status Schema(std::shared_ptr<ItierSchema>& out) override;
  Status Terminator(std::shared_ptr<Iterminator>& out) override;
  Status UserInterface(std::shared_ptr<ItierUserInterface>& out) override;
  Status Validator(std::shared_ptr<ItierValidator>& out) override;
  Status Initialize(std::string_view tierName, std::shared_ptr<IvalidatorHost> validatorHost,
                    std::shared_ptr<Imessenger> messenger, const Variant& uiArgument, Boolean& out) override;
  Status Terminate() override;
  Status TierKey(std::string& out) override;
  Status SetTierKey(std::string_view key) override;
  Status SetTierName(std::string_view name) override;
  Status TierName(std::string& out) override;
  Status Messenger(std::shared_ptr<Imessenger>& out) override;
  Status InitializeAsDelegate(Itier* delegatingTier, std::shared_ptr<IvalidatorHost> validatorHost) override;
  Status TerminateApplication() override;

 private:
  bool Build(const Variant& uiArgument, const std::shared_ptr<IvalidatorHost>& validatorHost);
  bool CreateSchema();
  bool CreateUserInterface(const Variant& uiArgument);
  /// Binds provider owner, user interface and validator to a tier.
  void BindChildren(Itier* tier, const std::shared_ptr<IvalidatorHost>& validatorHost);
  std::shared_ptr<IprovInfo> FindCurrentProvInfo();
  /// An operation in which the host may let go of the tier.
  template <typename Work>
  Status Call(Work work);

  std::shared_ptr<const TierTime> time_;
  std::shared_ptr<IproviderOwner> providerOwner_;
  std::shared_ptr<ItierSchema> schema_;
  std::shared_ptr<ItierUserInterface> userInterface_;
  std::shared_ptr<ItierValidator> validator_;
  std::string tierKey_;
  std::string tierName_;
  std::shared_ptr<Imessenger> messenger_;
  std::shared_ptr<IprovInfo> currentProvInfo_;
  std::shared_ptr<IvalidatorHost> validatorHost_;
};
