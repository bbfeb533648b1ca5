#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/Status.h"
#include "platform/Types.h"

/// Styles of a message box, and the buttons that end it.
namespace MessageStyle {
inline constexpr std::int32_t kPlain = 0;
inline constexpr std::int32_t kCritical = 16;
inline constexpr std::int32_t kExclamation = 48;  // OK
inline constexpr std::int32_t kNotice = 64;       // OK
inline constexpr std::int32_t kYesNoCancel = 67;  // Yes, No, Cancel
inline constexpr std::int32_t kYesNo = 68;        // Yes, No
}  // namespace MessageStyle

enum class Button : std::int32_t { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// The host's channel to the user and to the open forms. Implemented by the host.
class Imessenger {
 public:
  virtual ~Imessenger() = default;
  /// Shows a message box and gives the button that ended it (1 OK, 2 Cancel, 6 Yes, 7 No). The
  /// messenger fills the placeholders %0:S, %1:S, ... (or %0:s) of `message` from `parameters`, which
  /// holds their values joined by a vertical bar; a template without placeholders comes with none.
  virtual Status ShowMessage(std::string_view message, std::int32_t style, std::string_view title,
                             std::string_view parameters, std::int32_t& out) = 0;
  /// Eight texts about the connected radio. The seventh is the model of the control head, "Unknown"
  /// when it is not known; the tier reads no other.
  virtual Status GetRadioInformation(std::array<std::string, 8>& out) = 0;
  /// The form reloads that field or grid from the provider, with the items of its list.
  virtual Status RefreshField(std::string_view uiid) = 0;
  /// The control is enabled or disabled at once.
  virtual Status SetFieldEnabled(std::string_view uiid, Boolean enabled) = 0;
};
