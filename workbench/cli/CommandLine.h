#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "workbench/cli/Words.h"
#include "workbench/cli/Workplace.h"

/// Reads the words of a command line behind the program's name and carries it out. Messages go to standard
/// error, each behind the prefix of the workplace.
ExitCode RunCommand(std::vector<std::string> words, Workplace& workplace, bool insideScript = false);

/// Reads the words of a program without verbs, behind its name, and the options of the workplace. How the
/// program ends when there is nothing more to do: help was asked for, or a word does not fit.
std::optional<ExitCode> ReadWords(const char* program, const char* about, std::vector<std::string> words,
                                  const std::function<void(Words&)>& declare, Workplace& workplace);
