#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include "workbench/cli/CommandLine.h"
#include "workbench/cli/StandardOutput.h"

namespace {

/// A person at a terminal has the user's decimal symbol. Whatever a program reads or writes has a point; what
/// stands behind "--" is typed for one.
bool IsForAPerson(const std::vector<std::string>& words) {
  const auto isForAProgram = [](const std::string& word) {
    return word == "--json" || word == "run" || word == "--";
  };
  return ::isatty(STDOUT_FILENO) == 1 && std::ranges::none_of(words, isForAProgram);
}

/// "; nothing was to be saved", so that a full disk is not taken for a failed save.
std::string WhatWasSaved(const Workplace& workplace, ExitCode code) {
  const std::size_t count = workplace.SavedCount();
  if (count == 1) return "the file was saved";
  if (count > 1) return std::to_string(count) + " saves were made";
  return code == ExitCode::Done ? "nothing was to be saved" : "nothing was saved";
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  // Before anyone asks for the symbol: the tier takes it from the environment, too.
  if (!IsForAPerson(words)) ::setenv("LC_ALL", "C", 1);
  std::signal(SIGPIPE, SIG_IGN);  // a reader that goes must not end a save

  StandardOutput output;
  std::ostream out(&output);
  std::cin.tie(&out);
  Workplace workplace(out);
  workplace.prefix = "kd4410: ";
  const ExitCode code = RunCommand(std::move(words), workplace);
  out.flush();
  std::cin.tie(nullptr);
  if (output.Problem() == 0) return static_cast<int>(code);
  std::cerr << "kd4410: standard output could not be written: " << std::strerror(output.Problem()) << "; "
            << WhatWasSaved(workplace, code) << '\n';
  return static_cast<int>(std::max(code, ExitCode::CouldNot));
}
