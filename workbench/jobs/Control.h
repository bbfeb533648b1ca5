#pragma once

#include <string>
#include <string_view>

#include "platform/Types.h"

class CodeWords;
class Session;
struct SchemaField;

/// What a form's control makes of what is typed into it.
struct Entry {
  /// Why it does not let it through to the tier: what the field takes, and what is near. Empty when it does.
  std::string refusal;
  /// What is handed on: the number, or the text as the list of the field spells it.
  std::string value;
};

/// What kind of control the field has, in a word or two: "tick", "choice", "list", "whole number",
/// "frequency".
std::string_view ControlKindOf(const SchemaField& field, const CodeWords& words, bool hasList);

/// Judges a typed value before the tier sees it, which takes what it is handed: an identity is free, a value
/// of a list is an entry of it, a number is whole or plain and within its limits, a text is of the characters
/// and the width of the field. What is not so is refused, never mended.
Entry EnteredIn(Session& session, const SchemaField& field, std::string_view uiid, RecordNr record,
                std::string_view typed);
