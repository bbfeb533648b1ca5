#pragma once

#include <array>
#include <string_view>

#include "common/ValidatorRef.h"

/// Three pins are wired to the radio's power and emergency circuits by links that a fitter sets.
namespace LinkAdvice {
/// What switches the radio on, by the keys of the actions.
inline constexpr std::array<std::string_view, 3> kPowerActions = {"IGNITION_STATE_IOP", "SEND_EMERGENCY_CALL",
                                                                  "TOGGLE_SLEEP_MODE"};

/// Of a pin that is to do nothing.
void TellUnused(const ValidatorRef& validator, std::string_view pin);
/// Of a pin that is to do something, by the action's name: whether its link has to be fitted. The active
/// state that the pin then has; "" when it keeps its own.
std::string_view TellUsed(const ValidatorRef& validator, std::string_view pin, std::string_view action);
}  // namespace LinkAdvice
