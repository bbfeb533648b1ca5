#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

/// The conditions under which controls are enabled, as data: tests of single fields, and combinations of
/// them. Evaluated and put into words by ConditionReader.

/// The record that a test reads.
enum class At : std::uint8_t {
  Only,           ///< record 1 of a table that has one
  Drawn,          ///< the record of the control itself
  Network,        ///< CurrentNetworkNr
  ScanGroup,      ///< CurrentScanGroupNr
  SelcallSystem,  ///< CurrentSelcallNumber
  ChannelNetwork  ///< the network of the channel that is being drawn
};

struct Condition {
  enum class Kind : std::uint8_t {
    Never,
    On,           ///< the field's value is 1
    OneOf,        ///< the field holds one of the codes
    Above,        ///< the field is above the code
    Text,         ///< the field holds the text
    ActionInUse,  ///< a programmable I/O pin has the action
    ThisNetwork,  ///< the channel belongs to the current network
    AllOf,
    AnyOf
  };
  Kind kind = Kind::Never;
  bool negated = false;  ///< of a test: it must not be so
  At at = At::Only;
  std::string_view field = {};  ///< UIID or FieldId
  std::span<const std::int32_t> codes = {};
  std::string_view text = {};
  std::span<const Condition* const> parts = {};

  constexpr bool IsTest() const { return kind != Kind::AllOf && kind != Kind::AnyOf; }
};

namespace Conditions {
template <std::int32_t... codes>
inline constexpr std::int32_t kCodes[] = {codes...};
template <const Condition&... parts>
inline constexpr const Condition* kParts[] = {&parts...};

using Kind = Condition::Kind;

consteval Condition On(std::string_view field, At at = At::Only) {
  return {.kind = Kind::On, .at = at, .field = field};
}
template <std::int32_t... codes>
consteval Condition OneOf(std::string_view field, At at = At::Only) {
  return {.kind = Kind::OneOf, .at = at, .field = field, .codes = kCodes<codes...>};
}
template <std::int32_t code>
consteval Condition Above(std::string_view field, At at = At::Only) {
  return {.kind = Kind::Above, .at = at, .field = field, .codes = kCodes<code>};
}
consteval Condition Holds(std::string_view field, std::string_view text, At at = At::Only) {
  return {.kind = Kind::Text, .at = at, .field = field, .text = text};
}
consteval Condition ActionInUse(std::string_view action) {
  return {.kind = Kind::ActionInUse, .field = "1108.Action", .text = action};
}
consteval Condition Not(Condition test) {
  test.negated = !test.negated;
  return test;
}
template <const Condition&... parts>
consteval Condition AllOf() {
  return {.kind = Kind::AllOf, .parts = kParts<parts...>};
}
template <const Condition&... parts>
consteval Condition AnyOf() {
  return {.kind = Kind::AnyOf, .parts = kParts<parts...>};
}
}  // namespace Conditions
