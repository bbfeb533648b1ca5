#include "host/TierLibrary.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "common/HostServices.h"
#include "common/LibraryObject.h"
#include "platform/Border.h"
#include "platform/CaseText.h"
#include "platform/System.h"
#include "provider/clsKD4410ProvOwn.h"
#include "tier/clsKD4410Tier.h"
#include "tier/clsSchema.h"
#include "ui/clsTierUI.h"
#include "validation/cKD4410TierValidator.h"

namespace {
constexpr std::int32_t kSuccess = 0;
constexpr std::int32_t kBusy = 1;
constexpr std::int32_t kPathFileAccess = 75;

/// Makes objects of one public class.
template <typename Class>
class ClassFactory final : public IclassFactory, private LibraryObject {
 public:
  Status SetHostServices(std::shared_ptr<IhostServices> services) override {
    return Border([&] { HostServices::Set(std::move(services)); });
  }
  Status CreateTier(std::shared_ptr<Itier>& out) override { return Create(out); }
  Status CreateSchema(std::shared_ptr<ItierSchema>& out) override { return Create(out); }
  Status CreateUserInterface(std::shared_ptr<ItierUserInterface>& out) override { return Create(out); }
  Status CreateProviderOwner(std::shared_ptr<IproviderOwner>& out) override { return Create(out); }
  Status CreateValidator(std::shared_ptr<ItierValidator>& out) override { return Create(out); }

 private:
  template <typename Interface>
  static Status Create(std::shared_ptr<Interface>& out) {
    if constexpr (std::is_base_of_v<Interface, Class>) {
      return Border([&] { out = std::make_shared<Class>(); });
    } else {
      return {ErrorNumber::kNoSuchInterface, "IclassFactory",
              "Class does not support the expected interface"};
    }
  }
};

template <typename Class>
std::shared_ptr<IclassFactory> MakeFactory() {
  return std::make_shared<ClassFactory<Class>>();
}

constexpr struct {
  std::string_view name;
  std::shared_ptr<IclassFactory> (*makeFactory)();
} kPublicClasses[] = {
    {"clsKD4410Tier", MakeFactory<clsKD4410Tier>},
    {"clsSchema", MakeFactory<clsSchema>},
    {"clsTierUI", MakeFactory<clsTierUI>},
    {"clsKD4410ProvOwn", MakeFactory<clsKD4410ProvOwn>},
    {"cKD4410TierValidator", MakeFactory<cKD4410TierValidator>},
};

void WriteRegistration(const std::filesystem::path& path) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path);
  for (const auto& publicClass : kPublicClasses)
    file << publicClass.name << '\t' << System::LibraryPath() << '\n';
  if (!file.flush()) throw Error(kPathFileAccess, "DllRegisterServer", path.string());
}

std::int32_t NumberOf(const Status& status, std::int32_t failure) { return status.Ok() ? kSuccess : failure; }
}  // namespace

std::int32_t DllGetClassObject(std::string_view className, std::shared_ptr<IclassFactory>& out) {
  for (const auto& publicClass : kPublicClasses) {
    if (!EqualsIgnoringCase(publicClass.name, className)) continue;
    return NumberOf(Border([&] { out = publicClass.makeFactory(); }), ErrorNumber::kInvalidCall);
  }
  return ErrorNumber::kInvalidCall;
}

std::int32_t DllCanUnloadNow() { return LibraryObject::Living() == 0 ? kSuccess : kBusy; }

std::int32_t DllRegisterServer() {
  return NumberOf(Border([] { WriteRegistration(System::RegistrationFile()); }), kPathFileAccess);
}

std::int32_t DllUnregisterServer() {
  return NumberOf(Border([] { std::filesystem::remove(System::RegistrationFile()); }), kPathFileAccess);
}
