#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>

#include "common/RadioCodes.h"
#include "common/modProjectGlobals.h"

/// What a function key may do, and how the radio is told. Types of programmable actions count from 1 here, 0
/// is none; the radio stores them less 1.
namespace FunctionKeyActions {
/// What the first parameter of a key names.
enum class Parameter { None, EmergencyMode, Group, NetworkPreset, PatchSequence, Channel };

/// One way to press a key.
struct Press {
  std::int32_t type = 0;
  bool tellsKey = false;  ///< the second parameter is the key, from 0
};

inline constexpr std::int32_t kAnnunciators = 65;
inline constexpr std::int32_t kNoAnnunciator = 65;

/// An annunciator by its index, from 0; or four of them, one for each key, from the one behind `index` on.
struct Light {
  std::int32_t index = kNoAnnunciator;
  bool isOfKey = false;
  constexpr std::int32_t Of(std::int32_t key) const { return isOfKey ? index + key : index; }
};
constexpr Light At(std::int32_t index) { return {index, false}; }
constexpr Light OfKeyBehind(std::int32_t index) { return {index, true}; }

struct Action {
  std::string_view name;
  Press shortPress = {}, longPress = {};
  std::array<Light, 2> lights = {};  ///< that take the LED of the key
  Parameter parameter = Parameter::None;
  std::int32_t upAndDown = 0;  ///< the type of both, in place of a press
};

inline constexpr bool kTellsKey = true;
inline constexpr std::int32_t kDigitalLine = 21;

// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
inline constexpr Action kActions[] = {
    // by the value of FunctionKey1 to FunctionKey4, from 0
    {kNone},
    {"Audible Indicators Volume",        { 3},            {},              {At(32), At(33)}},
    {"Action Digital Output Line",       {},              {},              {}, Parameter::None, kDigitalLine},
    {"Backlighting Timer",               {19},            {},              {At(35)}},
    {"Backlighting Toggle",              { 4},            {},              {At(34)}},
    {"Backlighting Timer / Toggle",      {19},            { 4},            {At(35), At(34)}},
    {"Call Cleardown",                   {25, kTellsKey}, {},              {At(40)}},
    {"Channel Preset Call",              {16, kTellsKey}, {},              {At(45)}},
    {"DTMF Dialling",                    {31},            {},              {At(62)}},
    {"Economy",                          {32},            {},              {At(63)}},
    {"Emergency Mode",                   {18, kTellsKey}, {},              {At(47)}, Parameter::EmergencyMode},
    {"Encryption",                       { 5},            {},              {At(36)}},
    {"Group Scanning Activity",          {13},            {},              {At(60)}, Parameter::Group},
    {"Ignore Two-Tone",                  {27},            {},              {At(61)}},
    {"Keypress Tones Toggle",            { 6},            {},              {At(37)}},
    {"Keypress Tones Volume",            { 7},            {},              {At(38)}},
    {"Low Power Transmit",               { 8},            {},              {At(39)}},
    {"Monitor",                          { 9},            {},              {At(40)}},
    {"Monitor / Squelch Override",       { 9},            {17},            {At(40), At(43)}},
    {"Network Preset Calls",             {15, kTellsKey}, {},              {OfKeyBehind(51)}, Parameter::NetworkPreset},
    {"Nuisance Delete",                  {14},            {},              {At(44)}},
    {"Phone Patch Call Request/Release", {28, kTellsKey}, {29, kTellsKey}, {OfKeyBehind(51)}, Parameter::PatchSequence},
    {"Preset Channel",                   {10, kTellsKey}, {},              {OfKeyBehind(23)}, Parameter::Channel},
    {"Quiet Operation",                  { 2},            {},              {At(31)}},
    {"Repeater Access Tone Tx",          {24, kTellsKey}, {},              {At(46)}},
    {"Repeater Talkaround",              {12},            {},              {At(42)}},
    {"Reset Monitor",                    {20},            {},              {At(40)}},
    {"Reset Monitor / Call Cleardown",   {20},            {25, kTellsKey}, {At(40), At(40)}},
    {"Silent Operation",                 { 1},            {},              {At(30)}},
    {"Single In-Band Tone",              {30, kTellsKey}, {},              {}},
    {"Squelch Override",                 {17},            {},              {At(43)}},
    {"Scanning / Nuisance Delete",       {13},            {14},            {At(60), At(44)}, Parameter::Group},
};
// clang-format on
inline constexpr std::int32_t kCount = std::size(kActions);
static_assert(kCount == KeyAction::kScanningNuisanceDelete + 1);
static_assert(kActions[KeyAction::kPresetChannel].name == "Preset Channel");

/// The texts of a parameter that is one of a few; what is stored is their row, from 0. None for the others.
inline constexpr auto kEmergencyModes =
    std::to_array<std::string_view>({"Non Stealth", "Stealth", "Deactivate"});
inline constexpr auto kPresets =
    std::to_array<std::string_view>({"Preset 1", "Preset 2", "Preset 3", "Preset 4"});
inline constexpr auto kSequences =
    std::to_array<std::string_view>({"Sequence 1", "Sequence 2", "Sequence 3", "Sequence 4"});
constexpr std::span<const std::string_view> TextsOf(Parameter parameter) {
  switch (parameter) {
    case Parameter::EmergencyMode:
      return kEmergencyModes;
    case Parameter::NetworkPreset:
      return kPresets;
    case Parameter::PatchSequence:
      return kSequences;
    default:
      return {};
  }
}

/// A value that is no action does nothing.
constexpr const Action& Of(std::int32_t value) { return kActions[value > 0 && value < kCount ? value : 0]; }

/// The action of a key that the radio has, by the types of its presses. Where several actions begin with one
/// short press the long one tells them apart; elsewhere it does not count. A short press may drive the
/// digital line, too, though none is stored so.
constexpr std::int32_t Decode(std::int64_t shortPress, std::int64_t longPress, std::int64_t up) {
  if (shortPress == kDigitalLine || (shortPress == 0 && up == kDigitalLine)) {
    return KeyAction::kActionDigitalOutputLine;
  }
  std::int32_t last = KeyAction::kUnassigned, begun = 0;
  for (std::int32_t value = 1; value < kCount; ++value) {
    if (shortPress == 0 || kActions[value].shortPress.type != shortPress) continue;
    if (kActions[value].longPress.type == longPress) return value;
    last = value;
    ++begun;
  }
  return begun == 1 ? last : KeyAction::kUnassigned;
}

constexpr bool HasParameter(const Action& action) { return action.parameter != Parameter::None; }

/// The actions whose parameter names something.
inline constexpr auto kWithParameter = [] {
  std::array<std::int32_t, std::ranges::count_if(kActions, HasParameter)> values{};
  auto place = values.begin();
  for (std::int32_t value = 0; value < kCount; ++value) {
    if (HasParameter(kActions[value])) *place++ = value;
  }
  return values;
}();

/// Whether two actions lead to one programmable action.
constexpr bool ShareType(const Action& a, const Action& b) {
  const auto has = [&](std::int32_t type) {
    return type != 0 && (type == b.shortPress.type || type == b.longPress.type || type == b.upAndDown);
  };
  return has(a.shortPress.type) || has(a.longPress.type) || has(a.upAndDown);
}

constexpr bool ComesBack(std::int32_t value) {
  const Action& action = kActions[value];
  return Decode(action.shortPress.type, action.longPress.type, action.upAndDown) == value;
}
constexpr bool AllComeBack() {
  std::int32_t value = 0;
  while (value < kCount && ComesBack(value)) ++value;
  return value == kCount;
}
static_assert(AllComeBack());

constexpr bool LightsAreThere(const Action& action) {
  for (const Light& light : action.lights) {
    if (light.index == kNoAnnunciator) continue;
    if (light.Of(1) < 0 || light.Of(std::size(kFunctionKeys)) >= kAnnunciators) return false;
  }
  return true;
}
static_assert(std::ranges::all_of(kActions, LightsAreThere));
}  // namespace FunctionKeyActions
