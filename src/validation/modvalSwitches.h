#pragma once

#include <span>
#include <string_view>

#include "common/FieldEdit.h"

struct Condition;

/// What an edit that passes does to the controls beside it.
namespace modvalSwitches {
struct SwitchRow {
  std::string_view edited;   ///< the UIID of the field, in upper case
  std::string_view control;  ///< that takes its state anew
  /// By what, where the edit is to switch otherwise than the control's own condition would; null: by that.
  const Condition* wanted = nullptr;
  std::string_view reason = {};  ///< why it is wanted
};
/// The rows of one field stand together, in the order in which the controls are switched.
std::span<const SwitchRow> Rows();
/// The controls whose condition reads the signalling of the network, apart from those that the rows of
/// SIGNALLINGTYPE name: they follow them.
std::span<const std::string_view> MoreOfSignallingType();

/// Gives each control of the field its state. Conditions read what is stored: where one reads the field
/// itself, its value is stored first.
void SwitchControls(FieldEdit& edit);
}  // namespace modvalSwitches
