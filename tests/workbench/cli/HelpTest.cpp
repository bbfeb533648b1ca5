#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <utility>

#include "platform/CaseText.h"
#include "tests/workbench/InProcessCommand.h"
#include "tests/workbench/ShellCommand.h"
#include "workbench/cli/HelpText.h"
#include "workbench/cli/Manual.h"
#include "workbench/store/TypedNames.h"

namespace {

using testing::HasSubstr;
using WordList = std::vector<std::string>;

class HelpTest : public InProcessCommand {};
class ExamplesTest : public ShellCommand {};

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

TEST_F(HelpTest, HelpIsTheSameHoweverItIsAskedFor) {
  EXPECT_EQ(Told({"help"}), Told({"--help"}));
  for (const Manual::Command& command : Manual::OfAllVerbs().commands) {
    const std::string help = Told({"help", command.text.name});
    EXPECT_EQ(help, Told({command.text.name, "--help"}));
    for (const Word& word : command.words)
      EXPECT_THAT(help, HasSubstr("  " + HelpText::NameOf(word))) << help;
  }
}

TEST(HelpText, FitsItsWidthAndCutsNoWord) {
  const Manual manual = Manual::OfAllVerbs();
  const std::string wide = HelpText::OfAll(manual, 10000);
  for (const std::size_t width : {40U, 80U, 132U}) {
    const std::string text = HelpText::OfAll(manual, width);
    EXPECT_EQ(WordsOf(text), WordsOf(wide)) << width;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      const bool isCommand =
          line.starts_with("    kd4410 ") && width < 80;  // stands on one line, to be copied
      EXPECT_TRUE(isCommand || CharacterCount(line) <= width) << line;
    }
  }
}

TEST_F(HelpTest, WhatIsMisspelledIsGuessed) {
  const std::pair<WordList, const char*> cases[] = {
      {{"help", "sett"}, "there is no command sett; did you mean set"},
      {{"set", file, "--dry-rn"}, "there is no option --dry-rn of set; did you mean --dry-run?"},
      {{"info", file, "--jsn"}, "there is no option --jsn of info; did you mean --json?"},
      {{"--jsn"}, "there is no option --jsn; did you mean --json?"},
      {{"set", file, "TxPower_k6k", "1", "-x"}, "goes behind \"--\""},
      {{"info", file, "more"}, "info takes no word \"more\""},
      {{"fields", "chanelid"}, "has \"chanelid\" in it; did you mean ChannelID_k6k?"},
      {{"set", file, "TxPowr", "1", "0"}, "did you mean TxPower_k6k?"},
      {{"add", file, "chanel"}, "did you mean channel"},
      {{"show", file, "chanels"}, "; did you mean channels"},
      {{"show", file, "net works"}, "; did you mean networks"},
      {{"show", file, "Call alert"}, "; did you mean Call alerts"},
      {{"form", file, "Chanels"}, "; did you mean Channels"},
  };
  for (const auto& [words, message] : cases) {
    EXPECT_EQ(Run(words), ExitCode::CouldNot) << testing::PrintToString(words);
    EXPECT_THAT(messages, HasSubstr(message));
    EXPECT_EQ(out.str(), "");
  }
  EXPECT_EQ(Told({"show", file, "Networks"}), Told({"show", file, "networks"}));
  EXPECT_EQ(Told({"show", file, "call ALERTS"}), Told({"show", file, "51"}));
}

TEST_F(ExamplesTest, EveryExampleOfTheHelpWorks) {
  folder.Write("radio.json", R"({"model": "KD4410", "controlHead": "KDAC5"})");
  folder.Write("edits.txt", "set samples/minimal.json TxPower_k6k 1 2\n");
  for (const Manual::Command& command : Manual::OfAllVerbs().commands) {
    EXPECT_EQ(command.text.examples.size(), 2U) << command.text.name;
    for (const Verb::Example& example : command.text.examples) {
      const Outcome outcome = Bash(example.command);
      EXPECT_TRUE(outcome.code == 0 || outcome.code == 1) << example.command << '\n'
                                                          << outcome.out << outcome.err;
      EXPECT_THAT(example.command, HasSubstr(std::string("kd4410 ") + command.text.name));
    }
  }
}

TEST_F(ExamplesTest, TheManualPageIsSoundAndWhole) {
  const std::string page = Bash("kd4410 help --man").out;
  for (const char* section : {"NAME", "SYNOPSIS", "DESCRIPTION", "COMMANDS", "OPTIONS", "EXIT STATUS",
                              "EXAMPLES", "FILES", "ENVIRONMENT"}) {
    EXPECT_THAT(page, HasSubstr(std::string("\n.SH ") + section + "\n"));
  }
  for (const Manual::Command& command : Manual::OfAllVerbs().commands) {
    EXPECT_THAT(page, HasSubstr(std::string("\n.SS \"") + command.text.name));
  }
  if (!Has("groff")) return;
  const Outcome outcome = Bash("kd4410 help --man | groff -man -ww -z");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.code, 0);
}

}  // namespace
