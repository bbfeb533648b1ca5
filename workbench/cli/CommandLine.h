#pragma once

#include <string>
#include <vector>

#include "workbench/cli/Workplace.h"

/// Reads the words of a command line behind the program's name and carries it out. Messages go to standard
/// error, each behind the prefix of the workplace.
ExitCode RunCommand(std::vector<std::string> words, Workplace& workplace, bool insideScript = false);
