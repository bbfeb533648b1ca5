#include <algorithm>
#include <ostream>

#include "workbench/cli/Completion.h"
#include "workbench/cli/Manual.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/store/TypedNames.h"

namespace {

struct CompletionArguments {
  std::string shell;
};

void Take(Words& words, CompletionArguments& given) {
  words.Required("SHELL", given.shell, "bash, zsh or fish");
}

ExitCode PrintScript(const CompletionArguments& arguments, Workplace& workplace) {
  const auto& shells = Completion::kShells;
  if (std::ranges::find(shells, arguments.shell) == shells.end()) {
    throw UsageError("there is no completion for " + Printable::Quoted(arguments.shell) +
                     "; the shells are bash, zsh and fish");
  }
  workplace.Out() << Completion::ScriptFor(arguments.shell, Manual::OfAllVerbs());
  return ExitCode::Done;
}

const Verb kCompletion({.name = "completion",
                        .about = "Print the script by which a shell completes the words of this program",
                        .details = "An installed program has it in place already.",
                        .examples = {{"Complete in this bash", "source <(kd4410 completion bash)"},
                                     {"The script for fish", "kd4410 completion fish > kd4410.fish"}}},
                       Take, PrintScript);

}  // namespace
