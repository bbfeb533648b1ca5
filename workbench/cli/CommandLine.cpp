#include "workbench/cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <iostream>
#include <iterator>
#include <list>
#include <string_view>
#include <utility>

#include "workbench/cli/Failure.h"
#include "workbench/cli/HelpText.h"
#include "workbench/cli/Manual.h"
#include "workbench/cli/Paragraph.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Forms.h"
#include "workbench/store/TypedNames.h"

namespace {

constexpr const char* kAbout =
    "Opens a personality of a KD4400 or KE2210 radio, shows it, edits it by the rules of the radio's tier "
    "and checks it.";
constexpr const char* kNotes[] = {
    "A personality is a JSON file; \"-\" is standard input, where it is only read. Records count from 1. An "
    "argument that begins with \"-\" goes behind \"--\".",
    "Data goes to standard output, messages and questions to standard error.",
    "Exit codes: 0 done; 1 the answer is no (refused, findings, differences); 2 it could not be done; 3 the "
    "tier failed."};

/// What the option parser answers itself.
constexpr std::pair<const char*, const char*> kHelp = {"-h,--help", "Print this help"};
constexpr std::pair<const char*, const char*> kHelpAll = {"--help-all", "Print the help of all commands"};
constexpr std::pair<const char*, const char*> kVersion = {"--version", "Print the version of this program"};

void TakeOptions(Words& words, Options& options) {
  words.Flag("--json", options.json, "Print data as JSON");
  words.Option("--tier", options.tier, "PATH",
               "The library of the tier (else the registered or installed one)");
  words.Option("--data", options.data, "DIR", "The folder of the data files and the schema");
  words.Option(
      "--answer", options.answer, "yes|no|FILE",
      "Answers to questions: yes, no, cancel (where a question offers it), or a file with one answer "
      "a line. Without it they are asked on a terminal; elsewhere the answer is no");
  for (const Forms::Current& current : Forms::Currents()) {
    const std::string word(current.word);
    words.Option(("--" + word).c_str(), options.shown[current.word], "N",
                 ("Have the forms show this " + word + ", by its record").c_str());
  }
  words.NumberOption("--wait", options.patience, 0, 86400,
                     "Seconds to wait for a file that another process is saving; 5 when none is given");
  words.Flag("--factory", options.factory, "Factory mode: limits of sub-bands and of the Tx power relax");
}

std::string HelpOf(const CLI::App& app, CLI::AppFormatMode mode) {
  const Manual manual = Manual::OfAllVerbs();
  const std::size_t width = Paragraph::WidthOfTerminal();
  if (app.get_parent() != nullptr) return HelpText::Of(manual, manual.Named(app.get_name()), width);
  return mode == CLI::AppFormatMode::All ? HelpText::OfAll(manual, width) : HelpText::Of(manual, width);
}

/// The words of the verbs and, once a line has been read, what its verb does.
class Verbs {
 public:
  Verbs(CLI::App& app, bool insideScript, std::string fileMeant) : fileMeant_(std::move(fileMeant)) {
    for (const Verb* verb : Verb::All()) {
      if (!insideScript || verb->About().inScripts) Add(*verb, app);
    }
  }

  ExitCode Run(Workplace& workplace) const { return action_(workplace); }

 private:
  void Add(const Verb& verb, CLI::App& app) {
    CLI::App* command = app.add_subcommand(verb.About().name);
    Words& words = words_.emplace_back(*command, fileMeant_);
    command->callback([this, &words, action = verb.Take(words)] {
      words.TakeRest();
      action_ = action;
    });
  }

  std::string fileMeant_;
  std::list<Words> words_;
  Verb::Action action_;
};

/// The names of the options that a line may have.
std::vector<std::string> OptionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* one : {app.get_subcommands().empty() ? &app : app.get_subcommands().front(), &app}) {
    for (const CLI::Option* option : one->get_options()) {
      for (const std::string& name : option->get_lnames()) {
        const bool isNew = std::ranges::find(names, "--" + name) == names.end();
        if (isNew) names.push_back("--" + name);
      }
    }
  }
  return names;
}

/// Why a word does not fit that stands where nothing takes it.
std::string NotTaken(const CLI::App& app, const std::string& word) {
  const auto commands = app.get_subcommands();
  if (word.starts_with('-')) {
    const std::string name = word.substr(0, word.find('='));
    return "there is no option " + Printable::Shortened(name) +
           (commands.empty() ? "" : " of " + commands.front()->get_name()) +
           TypedNames::Suggestion(name, OptionNames(app)) +
           (word.starts_with("--") ? "" : " (a word that begins with \"-\" goes behind \"--\")");
  }
  if (!commands.empty()) return commands.front()->get_name() + " takes no word " + Printable::Quoted(word);
  if (Verb::Exists(word)) return word + " can not stand in a script";
  return Verb::Unknown(word);
}

/// What is wrong with the line. A word that nothing takes is told first: what is missing is behind it.
std::string Problem(const CLI::App& app, const CLI::ParseError& error) {
  const std::vector<std::string> notTaken = app.remaining(true);
  const auto option = std::ranges::find_if(notTaken, [](const std::string& word) {
    return word.size() > 1 && word.starts_with('-') && word != "--";
  });
  if (option != notTaken.end()) return NotTaken(app, *option);
  const bool lacksCommand = app.get_subcommands().empty();
  if (notTaken.empty() && lacksCommand && dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
    return "give a command";
  }
  if (!notTaken.empty() && (lacksCommand || dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)) {
    return NotTaken(app, notTaken.front());
  }
  return Printable::Shortened(error.what());
}

/// Reads the line; Done when there is nothing more to do (help), nothing when its verb is to run.
std::optional<ExitCode> Parse(CLI::App& app, std::vector<std::string> words, Workplace& workplace) {
  // Also of a line that can not be read to its end, and of one whose options another verb takes.
  const auto end = std::ranges::find(words, "--");
  if (std::find(words.begin(), end, "--json") != end) workplace.options.json = true;
  std::ranges::reverse(words);  // the order in which the library takes them
  try {
    app.parse(std::move(words));
    return {};
  } catch (const CLI::Success& help) {
    app.exit(help, workplace.Out(), std::cerr);
    return ExitCode::Done;
  } catch (const CLI::ParseError& error) {
    const auto commands = app.get_subcommands();
    const ExitCode code = Failure::OfUsage(Problem(app, error)).TellAt(workplace);
    std::cerr << "See kd4410 " << (commands.empty() ? "help" : "help " + commands.front()->get_name())
              << ".\n";
    return code;
  }
}

ExitCode Carry(const Verbs& verbs, Workplace& workplace) {
  try {
    return verbs.Run(workplace);
  } catch (...) {
    return Failure::OfCurrentException(workplace).TellAt(workplace);
  }
}

}  // namespace

Manual Manual::OfAllVerbs() {
  CLI::App app;
  Options options;
  Words common(app);
  TakeOptions(common, options);
  Manual manual{
      .about = kAbout, .notes = {std::begin(kNotes), std::end(kNotes)}, .common = common.Declared()};
  for (const auto& [name, about] : {kHelp, kHelpAll, kVersion}) {
    manual.common.push_back({.name = name, .about = about});
  }
  for (const Verb* verb : Verb::All()) {
    Words words(*app.add_subcommand(verb->About().name));
    verb->Take(words);
    manual.commands.push_back({verb->About(), words.Declared()});
  }
  return manual;
}

bool Manual::Command::Redefines(const Word& option) const {
  return std::ranges::find(words, option.name, &Word::name) != words.end();
}

const Manual::Command& Manual::Named(std::string_view name) const {
  const auto found =
      std::ranges::find(commands, name, [](const Command& one) { return std::string_view(one.text.name); });
  if (found == commands.end()) throw UsageError(Verb::Unknown(std::string(name)));
  return *found;
}

ExitCode RunCommand(std::vector<std::string> words, Workplace& workplace, bool insideScript) {
  CLI::App app(kAbout, "kd4410");
  app.formatter_fn([](const CLI::App* asked, const std::string&, CLI::AppFormatMode mode) {
    return HelpOf(*asked, mode);
  });
  app.require_subcommand(1);
  app.option_defaults()->take_last();
  app.fallthrough();
  app.set_help_flag(kHelp.first, kHelp.second);
  app.set_help_all_flag(kHelpAll.first, kHelpAll.second);
  app.set_version_flag(kVersion.first, "kd4410 " KD4410_VERSION, kVersion.second);
  Words common(app);
  TakeOptions(common, workplace.options);
  const Verbs verbs(app, insideScript, workplace.fileMeant);

  workplace.StartCommand();
  const std::optional<ExitCode> end = Parse(app, std::move(words), workplace);
  return end ? *end : Carry(verbs, workplace);
}

std::optional<ExitCode> ReadWords(const char* program, const char* about, std::vector<std::string> words,
                                  const std::function<void(Words&)>& declare, Workplace& workplace) {
  CLI::App app(about, program);
  Words declared(app);
  TakeOptions(declared, workplace.options);
  declare(declared);
  return Parse(app, std::move(words), workplace);
}
