#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/Types.h"

class ProviderRef;

/// One of the radio's general-purpose digital lines.
struct clsProgIOPins {
  std::uint8_t bytPinID;  ///< in raw fields, where 0 is no pin
  bool blnInputPin, blnOutputPin;
  std::string_view strName;          ///< on forms too
  std::string_view strInterface;     ///< "AUX", "IOP", or "CH", the control head
  std::string_view strDefaultLabel;  ///< of a pin without a label of its own
};

/// What a digital line does.
struct clsProgIOActions {
  std::uint8_t bytActionID;   ///< in raw fields; inputs and outputs are numbered apart
  bool blnDeactivationState;  ///< the end of the activation has a code too, the same number
  std::string_view strKey;    ///< by which rules name it
  std::string_view strName;   ///< on forms and in the grid
};

/// A place of the radio's audio path where programmable audio goes in or out.
struct TapPoint {
  std::int32_t code;
  bool onRxPath;
  std::string_view name;
};

/// The pins, actions, states and taps of programmable I/O, and the look-ups over them. Names of pins and keys
/// of actions ignore case.
namespace modProgIO {
extern const clsProgIOPins ProgIOPins[15];             ///< in the order of the grid's rows
extern const clsProgIOActions ProgIOInputActions[48];  ///< in the order of the lists
extern const clsProgIOActions ProgIOOutputActions[27];
extern const TapPoint kTapPoints[13];

/// Directions of a grid row; kNone is the third.
inline constexpr std::string_view kInput = "Input";
inline constexpr std::string_view kOutput = "Output";
inline constexpr std::string_view kNoAction = "No Action";
inline constexpr std::string_view kControlHead = "CH";
/// The audio paths, as the forms call them: the receiver's and those of three microphones.
inline constexpr std::array<std::string_view, 4> kAudioPaths = {"Rx", "Mic PTT", "EPTT1", "EPTT2"};
inline constexpr RecordNr kReceiverPath = 1;
/// Keys of the input actions that give the bits of a number, from the lowest.
inline constexpr std::array<std::string_view, 8> kBCDInputs = {"BCD_INPUT_0", "BCD_INPUT_1", "BCD_INPUT_2",
                                                               "BCD_INPUT_3", "BCD_INPUT_4", "BCD_INPUT_5",
                                                               "BCD_INPUT_6", "BCD_INPUT_7"};
/// Signal types of an output that reflects a key.
inline constexpr std::string_view kMomentary = "Momentary";
inline constexpr std::string_view kLatching = "Latching";

namespace TapType {
inline constexpr std::int32_t kBypassIn = 0;
inline constexpr std::int32_t kCombine = 1;
inline constexpr std::int32_t kBypassOut = 2;
inline constexpr std::int32_t kSplit = 3;
inline constexpr std::int32_t kSplice = 4;
inline constexpr std::int32_t kCombine0dB = 5;
}  // namespace TapType

namespace UnmuteCondition {
inline constexpr std::int32_t kNone = -1;
inline constexpr std::int32_t kOnPTT = 0;
inline constexpr std::int32_t kBusyDetect = 1;
inline constexpr std::int32_t kBusyDetectSubaud = 2;
inline constexpr std::int32_t kRxMuteOpen = 3;
inline constexpr std::int32_t kExceptOnPTT = 4;
}  // namespace UnmuteCondition

/// Null for a name that is no pin, "None" among them.
const clsProgIOPins* FindPin(std::string_view name);
/// The action of a key; raises 5 for an unknown one.
const clsProgIOActions& InputAction(std::string_view key);
const clsProgIOActions& OutputAction(std::string_view key);
/// Whether the action, by its name, reflects a function key: "F1 Key Status".
bool IsKeyStatus(std::string_view action);

/// "" for an unknown id.
std::string_view GetDigitalIOPinName(std::int32_t pinId);
/// From 1; 0 for an unknown name.
std::int32_t GetDigitalIOGridRow(std::string_view pinName);
/// 0 for "None" and unknown names.
std::int32_t GetDigitalIOPinID(std::string_view pinName);

/// The code of an action name, 0 for an unknown one: among the inputs whatever blanks surround it, then
/// exactly among the outputs.
std::int32_t GetDigitalIOActionID(std::string_view name);
/// The code for the end of an input action, found as above; 0 for one without.
std::int32_t GetDigitalIODeactivationActionID(std::string_view name);
/// "" for an unknown code.
std::string_view GetDigitalIOActionName(std::int32_t actionId, bool input);

/// "Low" is 0, "High" 1, any other text 2; any other number is "None".
std::int32_t GetDigitalIOActiveStateID(std::string_view name);
std::string_view GetDigitalIOActiveStateName(std::int32_t state);

/// An unknown id is "", an unknown name 0.
std::string_view GetAudioIOTapTypeName(std::int32_t id);
std::int32_t GetAudioIOTapTypeID(std::string_view name);

/// An unknown id is "", an unknown name -1 as "None": 0 would open the path on PTT.
std::string_view GetUnmuteConditionName(std::int32_t id);
std::int32_t GetUnmuteConditionID(std::string_view name);

/// Whether a tap point lies on the receive path; so does no unknown one.
bool TapPointRxPath(std::int32_t tapPoint);

/// Whether the name is that of one of the input actions, which their keys tell.
bool IsInputAction(std::string_view name, std::span<const std::string_view> keys);
/// Gives the lines of flow control (table 1109) their record where it lacks.
void ProvideFlowControl(const ProviderRef& provider);

/// Whether a record of the field holds exactly that action name.
bool IsProgIOActionInList(const ProviderRef& provider, std::string_view fieldId, std::string_view actionName);
}  // namespace modProgIO
