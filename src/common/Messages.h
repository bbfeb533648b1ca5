#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "common/ValidatorRef.h"

/// The boxes that a rule shows. The title is the caption of the validator host, a blank and "Error" or
/// "Warning"; `parameters` fill %0:S, %1:S, ... of the template.
inline constexpr std::string_view kLineBreak = "\r\n";

using Parameters = std::initializer_list<std::string_view>;

/// An error box (style 48). Always false: the edit is refused.
bool Refuse(const ValidatorRef& validator, std::string_view message, Parameters parameters = {});

/// A warning without question (style 48).
void Warn(const ValidatorRef& validator, std::string_view message, Parameters parameters = {});

/// A notice (style 64).
void Notify(const ValidatorRef& validator, std::string_view message, Parameters parameters = {});

/// A question (style 68). The rule says which button counts.
Button AskYesNo(const ValidatorRef& validator, std::string_view message, Parameters parameters = {});

/// The record set behind a list field has changed: provider first, then the form, but that not while the
/// provider's AutoUpdate is false.
void ReloadList(const ValidatorRef& validator, std::string_view uiid);
