#include "common/HostServices.h"

#include "common/Handles.h"
#include "platform/System.h"

namespace HostServices {
namespace {
std::shared_ptr<IhostServices> current;

/// For one call: the host may withdraw them while it runs.
std::shared_ptr<IhostServices> Current() { return current; }
}  // namespace

void Set(std::shared_ptr<IhostServices> services) { current = std::move(services); }

std::shared_ptr<IprovInfo> CreateProvInfo() {
  const auto services = Current();
  if (services == nullptr) return nullptr;
  return Ask<std::shared_ptr<IprovInfo>>(*services, &IhostServices::CreateProvInfo);
}

std::int32_t ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title) {
  std::int32_t answer = 0;
  const auto services = Current();
  const bool shown = services != nullptr && services->ShowMessageBox(text, style, title, answer).Ok();
  return shown ? answer : System::ShowMessageBox(text, style, title);
}

std::string ApplicationFolder() {
  const auto services = Current();
  if (services == nullptr) return System::LibraryFolder();
  return Ask<std::string>(*services, &IhostServices::ApplicationFolder);
}

Status RaiseEvent(std::int32_t number) {
  const auto services = Current();
  return services == nullptr ? Status() : services->RaiseEvent(number);
}
}  // namespace HostServices
