#include "radioui/LinkAdvice.h"

#include <algorithm>
#include <iterator>

#include "common/Messages.h"
#include "radioui/modProgIO.h"

namespace LinkAdvice {
namespace {
using modProgIO::InputAction;

/// The last letters of a pin's name in the texts are a zero and a 7; wanted so.
struct Link {
  std::string_view pin;
  std::string_view action;  ///< the key of what the link is fitted for
  std::string_view fitted, removed;
  std::string_view state;  ///< that the pin takes
  bool onlyForPower;       ///< takes it for actions of power and emergency alone
};
constexpr Link kLinks[] = {
    {"AUX_GPI3", "IGNITION_STATE",
     "To select 'Power Sense (Ignition)' for AUX_GPI3, the hardware link LK2 must be fitted (default factory "
     "configuration).",
     "To select an action other than 'Power Sense (Ignition)' for AUX_GPI3, the hardware link LK2 must be "
     "removed.",
     "High", false},
    {"IOP_GPIO7", "IGNITION_STATE_IOP",
     "To select 'Power Sense (Internal)' for IOP_GPI07, the hardware link LK4 must be fitted.",
     "To select an action other than 'Power Sense (Internal)' for IOP_GPI07, the hardware link LK4 must be "
     "removed (default factory configuration).",
     "High", true},
    {"AUX_GPI2", "SEND_EMERGENCY_CALL",
     "To set the radio to enter Emergency Mode from a powered off state, the hardware link LK3 must be "
     "fitted (default factory configuration).",
     "To select an action other than Emergency Mode for AUX_GPI2, the hardware link LK3 must be removed.",
     "Low", false},
};

/// Null for a pin without link.
const Link* Find(std::string_view pin) {
  const auto* link = std::ranges::find(kLinks, pin, &Link::pin);
  return link == std::end(kLinks) ? nullptr : link;
}
}  // namespace

void TellUnused(const ValidatorRef& validator, std::string_view pin) {
  if (Find(pin) == nullptr) return;
  Notify(validator,
         "If a link is fitted for this pin, please ensure you remove it or leave the pin unconnected.");
}

std::string_view TellUsed(const ValidatorRef& validator, std::string_view pin, std::string_view action) {
  const Link* link = Find(pin);
  if (link == nullptr) return {};
  Notify(validator, InputAction(link->action).strName == action ? link->fitted : link->removed);
  return link->onlyForPower && !modProgIO::IsInputAction(action, kPowerActions) ? std::string_view()
                                                                                : link->state;
}
}  // namespace LinkAdvice
