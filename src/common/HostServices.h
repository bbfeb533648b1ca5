#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/IhostServices.h"

/// The platform around the application, as the host gave it to the class factory. One for the process.
namespace HostServices {
void Set(std::shared_ptr<IhostServices> services);
/// Empty when there are no services: no version can be created.
std::shared_ptr<IprovInfo> CreateProvInfo();
/// Never fails: where the host shows no box, the text goes to standard error and the answer is OK.
std::int32_t ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title);
/// The host application's folder; that of the library when there are no services.
std::string ApplicationFolder();
Status RaiseEvent(std::int32_t number);
}  // namespace HostServices
