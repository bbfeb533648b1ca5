#pragma once

#include <string>
#include <vector>

#include "workbench/conform/Choices.h"

class Provider;
struct HostParts;

/// What a session of random calls came to.
struct RandomSession {
  /// Each call with its arguments and what became of it, in order: a failing session can be told by them.
  std::vector<std::string> calls;
  /// What the last of them did that no tier may do; empty for nothing.
  std::string trouble;

  /// All of it, a line each.
  std::string Text() const;
};

/// Opens a tier on a copy of the personality, which is on its forms already, and lets a host make up to
/// `steps` calls on it: edits, new and deleted records, conversions, lists, states, forms, checks of a save.
/// A legal call has to succeed. One with an unknown name, a record that is not
/// there or a value that no control lets through may end the application, in good order; what it wrote is
/// taken back, and the calls behind it have to work. None leaves an exception or another AutoUpdate behind.
/// At the end the content is saved, read again and compared. The next trouble ends the session.
RandomSession RunRandomCalls(const HostParts& parts, const Provider& onForms, Choices& choices, int steps);
