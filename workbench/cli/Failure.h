#pragma once

#include <string>

#include "workbench/cli/Json.h"
#include "workbench/cli/Workplace.h"

/// Why a command could not be done, as it is told on standard error and, with --json, on standard output too.
struct Failure {
  ExitCode code;
  const char* kind;  ///< "usage", "file", "busy" or "tier"
  std::string message;
  std::string file = {};  ///< that could not be used
  int line = 0;           ///< of the file, from 1; 0 for none
  std::string path = {};  ///< where in the file: "tables.5[3].ChannelRxFreq", a column, the step that failed

  /// Of the exception that is being handled by a command.
  static Failure OfCurrentException(const Workplace& workplace);
  static Failure OfUsage(std::string message) { return {ExitCode::CouldNot, "usage", std::move(message)}; }

  /// The same of one of many files, which it names.
  Failure With(const std::string& checked) const;

  /// {"error": {...}} without the members that do not apply.
  /// The message as a terminal may get it.
  std::string ForPeople() const;
  Json AsJson() const;
  /// Tells it, and answers its exit code.
  ExitCode TellAt(Workplace& workplace) const;
};
