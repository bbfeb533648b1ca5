#include "workbench/host/TierHost.h"

#include "host/Itier.h"
#include "workbench/host/HostObjects.h"
#include "workbench/host/TierLoader.h"
#include "workbench/trace/Recorder.h"

namespace {
std::shared_ptr<TierLibrary> LoadLibrary(const HostParts& parts, const Provider* provider) {
  if (parts.recorder != nullptr) {
    parts.recorder->Begin(parts.tierLibrary, provider == nullptr ? "" : provider->GetSchema().Version(),
                          parts.dataFolder);
  }
  return TierLibrary::Load(parts.tierLibrary, parts.recorder.get());
}
}  // namespace

TierHost::TierHost(const HostParts& parts, std::shared_ptr<Provider> provider,
                   std::shared_ptr<Imessenger> messenger)
    : personality_(std::make_shared<OpenPersonality>(parts.schemas)),
      services_(std::make_shared<ApplicationServices>(personality_, parts.dataFolder)),
      library_(LoadLibrary(parts, provider.get())) {
  // Before the tier is initialised: it takes the model of the open personality for its own.
  if (provider != nullptr) personality_->Open(std::move(provider));
  CreateTier(std::move(messenger));
}

TierHost::~TierHost() {
  userInterface_.reset();
  validator_.reset();
  versions_.reset();
  owner_.reset();
  if (tier_ != nullptr) static_cast<void>(tier_->Terminate());
  tier_.reset();
  library_->WithdrawServices();
}

void TierHost::CreateTier(std::shared_ptr<Imessenger> messenger) {
  tier_ = library_->CreateTier(services_);
  const VersionName* version = personality_->Current();
  Boolean initialised = kFalse;
  Require(tier_->Initialize(version == nullptr ? "KD4410" : version->model, std::make_shared<ValidatorHost>(),
                            std::move(messenger), Variant(), initialised));
  if (initialised == kFalse) throw TierFault("the tier could not be initialised");
  if (version != nullptr) Require(tier_->SetTierKey(version->Key()));
  Require(tier_->ProviderOwner(owner_));
  Require(tier_->Schema(versions_));
  Require(tier_->Validator(validator_));
  Require(tier_->UserInterface(userInterface_));
}

void TierHost::Open(std::shared_ptr<Provider> provider) {
  const std::string key = provider->GetSchema().Name().Key();
  personality_->Open(std::move(provider));
  Require(tier_->SetTierKey(key));
}

void TierHost::UseStore(std::shared_ptr<Provider> provider) {
  personality_->SetProvider(std::move(provider));
}

bool TierHost::HasEnded() const { return services_->Terminations() > 0; }

void TierHost::Fail(const Status& status) const {
  if (status.Ok()) throw TierFault("the tier met an unexpected error and ended the application");
  const Fault& fault = status.Reason();
  if (fault.number == ErrorNumber::kNotSupported) {
    throw UnsupportedByTier("the tier does not support it yet: " + fault.description);
  }
  throw TierFault("error " + std::to_string(fault.number) + " of " + fault.source + ": " + fault.description);
}

std::optional<EnablementReason> TierHost::ReasonOf(std::string_view uiid, RecordNr record) const {
  auto* reasons = dynamic_cast<IenablementReasons*>(validator_.get());
  if (reasons == nullptr) return {};
  EnablementReason reason;
  Require(reasons->ReasonByUIID(uiid, record, reason));
  return reason;
}
