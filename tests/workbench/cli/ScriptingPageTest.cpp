#include <gtest/gtest.h>

#include <sstream>

#include "tests/workbench/ShellCommand.h"

namespace {

using ScriptingPage = ShellCommand;

TEST_F(ScriptingPage, EachBlockRunsAsItStands) {
  std::istringstream page(ContentOf(SAMPLES_FOLDER "/../docs/scripting.md"));
  std::string block;
  bool isInside = false;
  int blocks = 0;
  for (std::string line; std::getline(page, line);) {
    if (line == "```bash") {
      isInside = true;
      block.clear();
    } else if (line == "```" && isInside) {
      isInside = false;
      const Outcome outcome = Bash("mkdir work && cp -r samples work && cd work && (\n" + block +
                                   "\n); code=$?; cd .. && rm -r work; exit $code");
      EXPECT_EQ(outcome.code, 0) << block << outcome.out << outcome.err;
      ++blocks;
    } else if (isInside) {
      block += line + '\n';
    }
  }
  EXPECT_GE(blocks, 5);
}

}  // namespace
