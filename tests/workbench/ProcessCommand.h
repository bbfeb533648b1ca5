#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/BuiltFiles.h"
#include "tests/workbench/FileHelpers.h"
#include "tests/workbench/JsonContract.h"

struct ProcessOutcome {
  int code = -1;
  std::string out;
  std::string err;
};

/// Runs the built command line, in processes of its own and in a folder of its own that holds a sample. What
/// it prints as JSON is held against its schema.
class ProcessCommand : public testing::Test {
 protected:
  /// By the shell, with standard input from a file.
  ProcessOutcome Shell(const std::string& line, const std::string& input = "/dev/null") const {
    const std::string out = folder.PathOf("stdout");
    const std::string err = folder.PathOf("stderr");
    const int status = std::system((line + " > " + out + " 2> " + err + " < " + input).c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ContentOf(out), ContentOf(err)};
  }
  ProcessOutcome Execute(const std::vector<std::string>& words,
                         const std::string& input = "/dev/null") const {
    std::string line;
    for (const std::string& word : words) line += "'" + word + "' ";
    return Shell(line, input);
  }
  ProcessOutcome Run(std::vector<std::string> words, const std::string& input = "/dev/null") const {
    const std::vector<std::string> given = words;
    words.insert(words.begin(), {kWorkbench, "--tier", kTierLibrary});
    ProcessOutcome outcome = Execute(words, input);
    ExpectDocumented(given, outcome.out);
    return outcome;
  }

  TemporaryFolder folder;
  const std::string marine = ContentOf(Sample("marine-harbour"));
  const std::string file = folder.Write("p.json", marine);
};
