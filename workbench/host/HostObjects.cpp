#include "workbench/host/HostObjects.h"

#include <algorithm>
#include <iterator>

#include "platform/Border.h"
#include "platform/System.h"

Status ValidatorHost::Caption(std::string& out) {
  out = caption_;
  return {};
}

void OpenPersonality::Open(std::shared_ptr<Provider> provider) {
  Close();
  current_ = provider->GetSchema().Name();
  SetProvider(std::move(provider));
}

void OpenPersonality::Close() {
  current_ = {};
  providers_.clear();
}

void OpenPersonality::SetProvider(std::shared_ptr<Provider> provider) {
  const std::string version = provider->GetSchema().Version();
  providers_.insert_or_assign(version, std::move(provider));
}

std::shared_ptr<Provider> OpenPersonality::ProviderOf(const VersionName& version) {
  auto& provider = providers_[version.Text()];
  if (provider == nullptr) provider = std::make_shared<Provider>(schemas_->At(version.Text()));
  return provider;
}

Status ProvInfo::DisplayText(std::string& out) {
  return Border([&] { out = IsEmpty() ? "" : version_.model + " version " + version_.Digits(); });
}

Status ProvInfo::ShowInMenu(Boolean& out) {
  out = kTrue;
  return {};
}

Status ProvInfo::Key(std::string& out) {
  return Border([&] { out = IsEmpty() ? "" : version_.Key(); });
}

Status ProvInfo::BaseKey(std::string& out) {
  return Border([&] {
    std::string base;
    for (const VersionName& other : SchemaFiles::VersionsOf(version_.model)) {
      if (other.number < version_.number) base = other.Key();
    }
    out = base;
  });
}

Status ProvInfo::Provider(std::shared_ptr<Iprovider>& out) {
  return Border([&] {
    if (IsEmpty()) throw Error(ErrorNumber::kObjectNotSet, "ProvInfo", "The version is not loaded");
    out = personality_->ProviderOf(version_);
  });
}

Status ProvInfo::Siblings(std::vector<std::shared_ptr<IprovInfo>>& out) {
  return Border([&] {
    std::vector<std::shared_ptr<IprovInfo>> siblings;
    for (const VersionName& version : SchemaFiles::VersionsOf(version_.model)) {
      siblings.push_back(std::make_shared<ProvInfo>(personality_, version));
    }
    out = std::move(siblings);
  });
}

Status ProvInfo::Load(std::string_view tierName, std::string_view, std::string_view,
                      std::string& currentVersion, Boolean& out) {
  return Border([&] {
    const VersionName* current = personality_->Current();
    if (current != nullptr) {
      version_ = *current;
    } else {
      const auto versions = SchemaFiles::VersionsOf(tierName);
      if (versions.empty()) {
        throw Error(ErrorNumber::kInvalidCall, "ProvInfo", "Unknown model: " + std::string(tierName));
      }
      version_ = versions.back();
    }
    currentVersion = current == nullptr ? "" : current->Digits();
    out = kTrue;
  });
}

ApplicationServices::ApplicationServices(std::shared_ptr<OpenPersonality> personality,
                                         std::string applicationFolder, BoxSink sink)
    : personality_(std::move(personality)),
      applicationFolder_(std::move(applicationFolder)),
      sink_(std::move(sink)) {}

Status ApplicationServices::CreateProvInfo(std::shared_ptr<IprovInfo>& out) {
  return Border([&] { out = std::make_shared<ProvInfo>(personality_); });
}

Status ApplicationServices::ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title,
                                           std::int32_t& out) {
  return Border([&] {
    const Box& box = boxes_.emplace_back(Box{std::string(text), style, std::string(title)});
    out = sink_ ? sink_(box) : System::ShowMessageBox(text, style, title);
  });
}

Status ApplicationServices::ApplicationFolder(std::string& out) {
  return Border([&] { out = applicationFolder_; });
}

Status ApplicationServices::RaiseEvent(std::int32_t number) {
  constexpr std::int32_t kUnexpectedError = 1;
  if (number == kUnexpectedError) ++terminations_;
  return {};
}

std::vector<std::string> ApplicationServices::BoxTexts() const {
  std::vector<std::string> texts;
  std::ranges::transform(boxes_, std::back_inserter(texts), &Box::text);
  return texts;
}

void ApplicationServices::Clear() {
  boxes_.clear();
  terminations_ = 0;
}
