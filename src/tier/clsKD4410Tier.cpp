#include "tier/clsKD4410Tier.h"

#include "common/Handles.h"
#include "common/HostServices.h"
#include "common/Procedure.h"
#include "common/modRaiseError.h"
#include "platform/Border.h"
#include "provider/clsKD4410ProvOwn.h"
#include "tier/clsSchema.h"
#include "ui/clsTierUI.h"
#include "validation/cKD4410TierValidator.h"

namespace {
constexpr std::int32_t kTerminateEvent = 1;
/// The one version list of this tier.
const std::vector<std::string> kVersionLists = {"KD4410"};
}  // namespace

clsKD4410Tier::~clsKD4410Tier() { modRaiseError::WithdrawTerminator(this); }

template <typename Work>
Status clsKD4410Tier::Call(Work work) {
  const auto self = weak_from_this().lock();
  return Border(work);
}

Status clsKD4410Tier::Initialize(std::string_view tierName, std::shared_ptr<IvalidatorHost> validatorHost,
                                 std::shared_ptr<Imessenger> messenger, const Variant& uiArgument,
                                 Boolean& out) {
  return Call([&] {
    out = ToBoolean(Procedure("Initialize", false, [&] {
      tierName_ = tierName;
      messenger_ = messenger;
      modRaiseError::InitRaiseError(this);  // from here on an unexpected error is fatal
      return Build(uiArgument, validatorHost);
    }));
  });
}

/// A step that fails ends the work; the children created so far stay.
bool clsKD4410Tier::Build(const Variant& uiArgument, const std::shared_ptr<IvalidatorHost>& validatorHost) {
  time_ = std::make_shared<const TierTime>();
  providerOwner_ = std::make_shared<clsKD4410ProvOwn>(time_);
  if (!CreateSchema() || !CreateUserInterface(uiArgument)) return false;
  validator_ = std::make_shared<cKD4410TierValidator>(time_);
  validatorHost_ = validatorHost;
  return Ask<Boolean>(*this, &clsKD4410Tier::Activate) != kFalse;
}

bool clsKD4410Tier::CreateSchema() {
  const auto schema = std::make_shared<clsSchema>(time_);
  schema_ = schema;
  std::string currentVersion;
  Boolean initialized = kFalse;
  RaiseIfFailed(schema->Initialize(this, kVersionLists, currentVersion, initialized));
  if (initialized == kFalse) return false;
  if (!currentVersion.empty()) RaiseIfFailed(SetTierKey(currentVersion + "." + tierName_));
  return true;
}

bool clsKD4410Tier::CreateUserInterface(const Variant& uiArgument) {
  const auto userInterface = std::make_shared<clsTierUI>(time_);
  userInterface_ = userInterface;
  Boolean initialised = kFalse;
  RaiseIfFailed(userInterface->InitialiseUserInterface(this, uiArgument, initialised));
  return initialised != kFalse;
}

Status clsKD4410Tier::Activate(Boolean& out) {
  return Call([&] {
    out = ToBoolean(Procedure("Activate", false, [&] {
      BindChildren(this, validatorHost_);
      return true;
    }));
  });
}

Status clsKD4410Tier::InitializeAsDelegate(Itier* delegatingTier,
                                           std::shared_ptr<IvalidatorHost> validatorHost) {
  return Call(
      [&] { Procedure("InitializeAsDelegate", [&] { BindChildren(delegatingTier, validatorHost); }); });
}

void clsKD4410Tier::BindChildren(Itier* tier, const std::shared_ptr<IvalidatorHost>& validatorHost) {
  RaiseIfFailed(Deref(providerOwner_, "IproviderOwner").Initialize(tier));
  Boolean filesRead = kFalse;  // not looked at: the files were read before
  RaiseIfFailed(
      Deref(userInterface_, "ItierUserInterface").InitialiseUserInterface(tier, Variant(), filesRead));
  RaiseIfFailed(Deref(validator_, "ItierValidator").Initialize(tier, validatorHost));
}

std::shared_ptr<IprovInfo> clsKD4410Tier::FindCurrentProvInfo() {
  if (currentProvInfo_ == nullptr) {
    const auto schema = schema_;
    const auto list =
        Ask<std::shared_ptr<IcolProvInfo>>(Deref(schema, "ItierSchema"), &ItierSchema::TierList);
    currentProvInfo_ =
        Ask<std::shared_ptr<IprovInfo>>(Deref(list, "IcolProvInfo"), &IcolProvInfo::Item, Variant(tierKey_));
  }
  return currentProvInfo_;
}

Status clsKD4410Tier::CurrentProvInfo(std::shared_ptr<IprovInfo>& out) {
  return Call([&] {
    const auto info = FindCurrentProvInfo();
    static_cast<void>(Deref(info, "IprovInfo"));
    out = info;
  });
}

Status clsKD4410Tier::CurrentProvider(std::shared_ptr<Iprovider>& out) {
  return Call([&] {
    const auto info = FindCurrentProvInfo();
    RaiseIfFailed(Deref(info, "IprovInfo").Provider(out));
  });
}

Status clsKD4410Tier::ProviderOwner(std::shared_ptr<IproviderOwner>& out) {
  out = providerOwner_;
  return {};
}

Status clsKD4410Tier::Schema(std::shared_ptr<ItierSchema>& out) {
  out = schema_;
  return {};
}

Status clsKD4410Tier::Terminator(std::shared_ptr<Iterminator>& out) {
  return Call([&] { out = shared_from_this(); });
}

Status clsKD4410Tier::UserInterface(std::shared_ptr<ItierUserInterface>& out) {
  out = userInterface_;
  return {};
}

Status clsKD4410Tier::Validator(std::shared_ptr<ItierValidator>& out) {
  out = validator_;
  return {};
}

Status clsKD4410Tier::Terminate() {
  time_.reset();
  providerOwner_.reset();
  schema_.reset();
  userInterface_.reset();
  validator_.reset();
  messenger_.reset();
  return {};
}

Status clsKD4410Tier::TierKey(std::string& out) {
  out = tierKey_;
  return {};
}

Status clsKD4410Tier::SetTierKey(std::string_view key) {
  if (key == tierKey_) return {};
  tierKey_ = key;
  currentProvInfo_.reset();
  return {};
}

Status clsKD4410Tier::SetTierName(std::string_view name) {
  tierName_ = name;
  return {};
}

Status clsKD4410Tier::TierName(std::string& out) {
  out = tierName_;
  return {};
}

Status clsKD4410Tier::Messenger(std::shared_ptr<Imessenger>& out) {
  out = messenger_;
  return {};
}

Status clsKD4410Tier::TerminateApplication() {
  return Call([] { RaiseIfFailed(HostServices::RaiseEvent(kTerminateEvent)); });
}
