#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/BuiltFiles.h"
#include "tests/workbench/FileHelpers.h"

/// Runs lines of bash in a folder of their own that holds a copy of samples/, with the built kd4410 in PATH.
class ShellCommand : public testing::Test {
 protected:
  struct Outcome {
    int code = -1;
    std::string out, err;
  };

  ShellCommand() {
    std::filesystem::copy(SAMPLES_FOLDER, folder.PathOf("samples"), std::filesystem::copy_options::recursive);
    std::filesystem::create_directory(folder.PathOf("bin"));
    const std::string program = folder.Write("bin/kd4410", "#!/bin/sh\nexec '" + std::string(kWorkbench) +
                                                               "' --tier '" + kTierLibrary + "' \"$@\"\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  }

  Outcome Bash(const std::string& lines) const {
    const std::string script = folder.Write("lines.sh", lines);
    const std::string out = folder.PathOf("stdout"), err = folder.PathOf("stderr");
    const int status =
        std::system(("cd '" + folder.Path() + "' && COLUMNS=80 PATH=\"$PWD/bin:$PATH\" bash '" + script +
                     "' > '" + out + "' 2> '" + err + "' < /dev/null")
                        .c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ContentOf(out), ContentOf(err)};
  }
  /// Whether the machine has a program of that name.
  bool Has(const std::string& program) const { return Bash("command -v " + program).code == 0; }

  TemporaryFolder folder;
};
