#pragma once

#include <functional>
#include <string>
#include <vector>

#include "workbench/cli/Workplace.h"

namespace CLI {
class App;
}

/// What the verb on a command line does, once the line has been read.
using Action = std::function<ExitCode(Workplace&)>;

// Each adds its verbs to `app`; reading a line with one of them sets `action`.
void AddFileCommands(CLI::App& app, Action& action);       // new, info
void AddShowCommand(CLI::App& app, Action& action);        // show
void AddEditCommands(CLI::App& app, Action& action);       // get, set
void AddRecordCommands(CLI::App& app, Action& action);     // add, delete
void AddCheckCommand(CLI::App& app, Action& action);       // check
void AddComboCommand(CLI::App& app, Action& action);       // combo
void AddFormCommands(CLI::App& app, Action& action);       // enabled, form
void AddReferenceCommands(CLI::App& app, Action& action);  // bands, fields
void AddConvertCommand(CLI::App& app, Action& action);     // convert
void AddVersionsCommand(CLI::App& app, Action& action);    // versions
void AddDiffCommand(CLI::App& app, Action& action);        // diff
void AddConformCommand(CLI::App& app, Action& action);     // conform
void AddScriptCommand(CLI::App& app, Action& action);      // run
/// record, replay; messages of the verb that is recorded stand behind `prefix`.
void AddTraceCommands(CLI::App& app, Action& action, const std::string& prefix);

/// Reads the words of a command line behind the program's name and carries it out. Messages go to standard
/// error, each behind `prefix`.
ExitCode RunCommand(std::vector<std::string> words, Workplace& workplace, const std::string& prefix,
                    bool insideScript = false);
