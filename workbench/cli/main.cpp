#include <iostream>

#include "workbench/cli/CommandLine.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  Workplace workplace(std::cout);
  workplace.prefix = "kd4410: ";
  const ExitCode code = RunCommand({argv + 1, argv + argc}, workplace);
  std::cout.flush();
  if (std::cout) return static_cast<int>(code);
  std::cerr << "kd4410: standard output can not be written\n";
  return static_cast<int>(std::max(code, ExitCode::CouldNot));
}
