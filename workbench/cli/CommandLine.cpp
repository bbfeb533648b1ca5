#include "workbench/cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <list>

#include "platform/Error.h"
#include "workbench/cli/Verb.h"
#include "workbench/jobs/Forms.h"
#include "workbench/store/TypedNames.h"

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
  app.add_option(
         "--answer", options.answer,
         "Answers to questions: yes, no, cancel (where a question offers it), or a file with one answer "
         "a line. Without it they are asked on a terminal; elsewhere the answer is no")
      ->type_name("yes|no|FILE");
  for (const Forms::Current& current : Forms::Currents()) {
    app.add_option("--" + std::string(current.word), options.shown[current.word],
                   "Have the forms show this " + std::string(current.word) + ", by its record")
        ->type_name("N");
  }
  app.add_flag("--factory", options.factory, "Factory mode: limits of sub-bands and of the Tx power relax");
}

/// The words of the verbs and, once a line has been read, what its verb does.
class Verbs {
 public:
  Verbs(CLI::App& app, bool insideScript) {
    for (const Verb* verb : Verb::All()) {
      if (!insideScript || verb->About().inScripts) Add(*verb, app);
    }
  }

  ExitCode Run(Workplace& workplace) const { return action_(workplace); }

 private:
  void Add(const Verb& verb, CLI::App& app) {
    CLI::App* command = app.add_subcommand(verb.About().name, verb.About().about);
    command->footer(verb.About().details);
    Words& words = words_.emplace_back(*command);
    command->callback([this, &words, action = verb.Take(words)] {
      words.TakeRest();
      action_ = action;
    });
  }

  std::list<Words> words_;
  Verb::Action action_;
};

std::string NoCommand(const std::string& word) {
  std::vector<std::string> names;
  for (const Verb* verb : Verb::All()) names.emplace_back(verb->About().name);
  return "there is no command " + word + TypedNames::Suggestion(word, std::move(names));
}

/// Reads the line; Done when there is nothing more to do (help), nothing when its verb is to run.
std::optional<ExitCode> Parse(CLI::App& app, std::vector<std::string> words, const Workplace& workplace) {
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
    std::cerr << workplace.prefix << (noCommand ? NoCommand(unknown.front()) : error.what())
              << "\nSee kd4410 --help.\n";
    return ExitCode::CouldNot;
  }
}

ExitCode Carry(const Verbs& verbs, Workplace& workplace) {
  try {
    return verbs.Run(workplace);
  } catch (const TierFault& fault) {
    std::cerr << workplace.prefix << "a fault of the tier: " << fault.what() << ". Nothing was saved.\n";
    return ExitCode::Fault;
  } catch (const Error& error) {
    std::cerr << workplace.prefix << "error " << error.Number() << ": " << error.what()
              << ". Nothing was saved.\n";
    return ExitCode::Fault;
  } catch (const std::exception& error) {
    std::cerr << workplace.prefix << error.what() << '\n';
    return ExitCode::CouldNot;
  }
}

}  // namespace

ExitCode RunCommand(std::vector<std::string> words, Workplace& workplace, bool insideScript) {
  CLI::App app(kAbout, "kd4410");
  app.footer(kFooter);
  app.require_subcommand(1);
  app.option_defaults()->take_last();
  app.fallthrough();
  app.set_help_all_flag("--help-all", "Print the help of all commands");
  app.set_version_flag("--version", "kd4410 " KD4410_VERSION, "Print the version of this program");
  AddOptions(app, workplace.options);
  const Verbs verbs(app, insideScript);

  const std::optional<ExitCode> end = Parse(app, std::move(words), workplace);
  return end ? *end : Carry(verbs, workplace);
}

std::optional<ExitCode> ReadWords(const char* program, const char* about, std::vector<std::string> words,
                                  const std::function<void(Words&)>& declare, Workplace& workplace) {
  CLI::App app(about, program);
  AddOptions(app, workplace.options);
  Words declared(app);
  declare(declared);
  return Parse(app, std::move(words), workplace);
}
