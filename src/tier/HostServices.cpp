#include "tier/HostServices.h"

#include "platform/System.h"
#include "tier/Handles.h"

namespace HostServices {
namespace {
std::shared_ptr<IhostServices> current;
}

void Set(std::shared_ptr<IhostServices> services) { current = std::move(services); }

std::shared_ptr<IprovInfo> CreateProvInfo() {
  if (current == nullptr) return nullptr;
  return Ask<std::shared_ptr<IprovInfo>>(*current, &IhostServices::CreateProvInfo);
}

std::int32_t ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title) {
  std::int32_t answer = 0;
  const bool shown = current != nullptr && current->ShowMessageBox(text, style, title, answer).Ok();
  return shown ? answer : System::ShowMessageBox(text, style, title);
}

std::string ApplicationFolder() {
  if (current == nullptr) return System::LibraryFolder();
  return Ask<std::string>(*current, &IhostServices::ApplicationFolder);
}

Status RaiseEvent(std::int32_t number) { return current == nullptr ? Status() : current->RaiseEvent(number); }
}  // namespace HostServices
