#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/BuiltFiles.h"
#include "tests/workbench/FileHelpers.h"
#include "tests/workbench/JsonContract.h"
#include "workbench/cli/CommandLine.h"

/// Runs commands in this process, in a folder of its own that holds the smallest sample. What they print as
/// JSON is held against its schema.
class InProcessCommand : public testing::Test {
 protected:
  ExitCode Run(std::vector<std::string> words) {
    const std::vector<std::string> given = words;
    words.insert(words.begin(), {"--tier", kTierLibrary, "--data",
                                 std::filesystem::path(kTierLibrary).parent_path().string()});
    out.str("");
    testing::internal::CaptureStderr();
    const ExitCode code = RunCommand(std::move(words), workplace);
    messages = testing::internal::GetCapturedStderr();
    ExpectDocumented(given, out.str());
    workplace.options = {};
    return code;
  }
  /// What a command prints that has to be done.
  std::string Told(std::vector<std::string> words) {
    EXPECT_EQ(Run(std::move(words)), ExitCode::Done) << messages << out.str();
    return out.str();
  }

  TemporaryFolder folder;
  const std::string sample = ContentOf(Sample("minimal"));
  const std::string file = folder.Write("p.json", sample);
  std::ostringstream out;
  std::string messages;
  Workplace workplace{out};
};
