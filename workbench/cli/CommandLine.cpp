#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "workbench/cli/Commands.h"
#include "workbench/files/FileError.h"

namespace {

constexpr const char* kAbout =
    "Opens a personality of a KD4400 or KE2210 radio, shows it, edits it by the rules of the radio's tier "
    "and checks it.";
constexpr const char* kFooter =
    "A personality is a JSON file. Records count from 1. An argument that begins with \"-\" goes behind "
    "\"--\".\n"
    "Data goes to standard output, messages and questions to standard error.\n"
    "Exit codes: 0 done; 1 the answer is no (refused, findings, differences); 2 it could not be done;\n"
    "3 the tier failed.";

void AddOptions(CLI::App& app, Options& options) {
  app.add_flag("--json", options.json, "Print data as JSON");
  app.add_option("--tier", options.tier, "The library of the tier (else the registered or installed one)")
      ->type_name("PATH");
  app.add_option("--data", options.data, "The folder of the data files and the schema")->type_name("DIR");
  app.add_option("--answer", options.answer,
                 "Answers to questions: yes, no, or a file with one answer a line. Without it they are asked "
                 "on a terminal; elsewhere the answer is no")
      ->type_name("yes|no|FILE");
  app.add_flag("--factory", options.factory, "Factory mode: limits of sub-bands and of the Tx power relax");
}

/// Reads the line; Done when there is nothing more to do (help), nothing when `action` is to run.
std::optional<ExitCode> Parse(CLI::App& app, std::vector<std::string> words, Workplace& workplace,
                              const std::string& prefix) {
  std::ranges::reverse(words);  // the order in which the library takes them
  try {
    app.parse(std::move(words));
    return {};
  } catch (const CLI::Success& help) {
    app.exit(help, workplace.Out(), std::cerr);
    return ExitCode::Done;
  } catch (const CLI::ParseError& error) {
    const auto unknown = app.remaining();
    const bool noCommand = app.get_subcommands().empty() && !unknown.empty();
    std::cerr << prefix << (noCommand ? "there is no command " + unknown.front() : error.what())
              << "\nSee kd4410 --help.\n";
    return ExitCode::CouldNot;
  }
}

ExitCode Carry(const Action& action, Workplace& workplace, const std::string& prefix) {
  try {
    return action(workplace);
  } catch (const TierFault& fault) {
    std::cerr << prefix << "a fault of the tier: " << fault.what() << ". Nothing was saved.\n";
    return ExitCode::Fault;
  } catch (const Error& error) {
    std::cerr << prefix << "error " << error.Number() << ": " << error.what() << ". Nothing was saved.\n";
    return ExitCode::Fault;
  } catch (const std::exception& error) {
    std::cerr << prefix << error.what() << '\n';
    return ExitCode::CouldNot;
  }
}

}  // namespace

ExitCode RunCommand(std::vector<std::string> words, Workplace& workplace, const std::string& prefix,
                    bool insideScript) {
  CLI::App app(kAbout, "kd4410");
  app.footer(kFooter);
  app.require_subcommand(1);
  app.option_defaults()->take_last();
  app.fallthrough();
  app.set_help_all_flag("--help-all", "Print the help of all commands");
  AddOptions(app, workplace.options);

  Action action;
  AddFileCommands(app, action);
  AddShowCommand(app, action);
  AddEditCommands(app, action);
  AddRecordCommands(app, action);
  AddCheckCommand(app, action);
  AddComboCommand(app, action);
  AddFormCommands(app, action);
  AddReferenceCommands(app, action);
  AddConvertCommand(app, action);
  AddVersionsCommand(app, action);
  AddDiffCommand(app, action);
  AddConformCommand(app, action);
  if (!insideScript) {
    AddScriptCommand(app, action);
    AddTraceCommands(app, action, prefix);
  }

  const std::optional<ExitCode> end = Parse(app, std::move(words), workplace, prefix);
  return end ? *end : Carry(action, workplace, prefix);
}
