#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/IprovInfo.h"

/// What the platform around the application gives a tier. Implemented by the host and handed to the
/// class factory before the first object is created. Without it no version can be created (so
/// `Itier::Initialize` is false), message boxes go to standard error, the application's folder is that
/// of the library, and events are lost.
class IhostServices {
 public:
  virtual ~IhostServices() = default;
  /// A new, empty description of a database version.
  virtual Status CreateProvInfo(std::shared_ptr<IprovInfo>& out) = 0;
  /// A message box of the operating system, for faults of the tier itself. Style 0 plain, 16 critical,
  /// 20 critical with Yes and No. Gives the button (1 OK, 6 Yes, 7 No).
  virtual Status ShowMessageBox(std::string_view text, std::int32_t style, std::string_view title,
                                std::int32_t& out) = 0;
  /// The folder of the application, where the tier's data files lie.
  virtual Status ApplicationFolder(std::string& out) = 0;
  /// An event of the tier object. Number 1: an unexpected error, the host ends the application.
  virtual Status RaiseEvent(std::int32_t number) = 0;
};
