#include <ostream>

#include "workbench/cli/HelpText.h"
#include "workbench/cli/ManPage.h"
#include "workbench/cli/Manual.h"
#include "workbench/cli/Paragraph.h"
#include "workbench/cli/Verb.h"
#include "workbench/store/TypedNames.h"

namespace {

struct HelpArguments {
  std::string command;
  bool isManPage = false;
};

void Take(Words& words, HelpArguments& given) {
  words.Optional("COMMAND", given.command, "The command (else all of them, a line each)");
  words.Flag("--man", given.isManPage, "Print the manual page of the program, in the language of man");
}

ExitCode Help(const HelpArguments& arguments, Workplace& workplace) {
  const Manual manual = Manual::OfAllVerbs();
  if (arguments.isManPage) {
    if (!arguments.command.empty()) throw UsageError("the manual page has all commands: leave out COMMAND");
    workplace.Out() << ManPageOf(manual);
    return ExitCode::Done;
  }
  const std::size_t width = Paragraph::WidthOfTerminal();
  workplace.Out() << (arguments.command.empty()
                          ? HelpText::Of(manual, width)
                          : HelpText::Of(manual, manual.Named(arguments.command), width));
  return ExitCode::Done;
}

const Verb kHelp({.name = "help",
                  .about = "Tell what a command does, its words and its options",
                  .examples = {{"What the program can do", "kd4410 help"},
                               {"How a field is edited", "kd4410 help set"}}},
                 Take, Help);

}  // namespace
