#pragma once

#include <cstdint>
#include <string_view>

/// Codes of the radio's fields that more than one subject uses.

namespace ChannelType {  ///< of an emergency or a GPS poll response
inline constexpr std::int32_t kCurrent = 0;
inline constexpr std::int32_t kDedicated = 1;
}  // namespace ChannelType

namespace TxPower {
inline constexpr std::int32_t kOff = 0;
}  // namespace TxPower

namespace KeyAction {
inline constexpr std::int32_t kUnassigned = 0;
inline constexpr std::int32_t kPresetChannel = 22;
}  // namespace KeyAction

/// The form fields of one function key, all in record 1.
struct FunctionKey {
  std::string_view action, parameter1, parameter2;
};
inline constexpr FunctionKey kFunctionKeys[] = {
    {"FunctionKey1", "FK1Parameter1", "FK1Parameter2"},
    {"FunctionKey2", "FK2Parameter1", "FK2Parameter2"},
    {"FunctionKey3", "FK3Parameter1", "FK3Parameter2"},
    {"FunctionKey4", "FK4Parameter1", "FK4Parameter2"},
};
