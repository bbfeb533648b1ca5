#include "workbench/host/Messengers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/workbench/FileHelpers.h"

namespace {
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::int32_t kYesNo = MessageStyle::kYesNo;
constexpr std::int32_t kYesNoCancel = MessageStyle::kYesNoCancel;

Button Show(Imessenger& messenger, std::string_view text, std::int32_t style, std::string_view fill = "") {
  std::int32_t button = 0;
  EXPECT_TRUE(messenger.ShowMessage(text, style, "Caption Warning", fill, button).Ok());
  return static_cast<Button>(button);
}

TEST(FillTemplate, PutsParametersInAndLeavesTheRestAlone) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"%0:S to %1:s MHz", "156|157", "156 to 157 MHz"},
      {"%0:S and %1:S", "a", "a and %1:S"},
      {"%0:S%1:S%2:S", "|x|", "x"},
      {"%0:S", "%1:S|b", "%1:S"},  // a parameter is no template
      {"%10:S", "0|1|2|3|4|5|6|7|8|9|ten", "ten"},
      {"100% %0:D %:S %-1:S %0:", "a", "100% %0:D %:S %-1:S %0:"},
      {"%99999999999999999999:S", "a", "%99999999999999999999:S"},
  };
  for (const auto& [text, fill, expected] : cases) EXPECT_EQ(FillTemplate(text, fill), expected) << text;
}

TEST(ScriptedMessenger, AnswersInTurnAndTellsTheQuestionsThatWereNotForeseen) {
  ScriptedMessenger messenger;
  EXPECT_EQ(Show(messenger, "early", kYesNo), Button::No);
  messenger.Play({Button::Yes, Button::Cancel, Button::Cancel});
  EXPECT_EQ(Show(messenger, "told %0:S", MessageStyle::kExclamation, "once"), Button::Ok);
  EXPECT_EQ(Show(messenger, "first", kYesNo), Button::Yes);
  EXPECT_EQ(Show(messenger, "second", kYesNoCancel), Button::Cancel);
  EXPECT_EQ(messenger.AnswersLeft(), 1U);
  EXPECT_EQ(Show(messenger, "without Cancel", kYesNo), Button::No);
  EXPECT_THAT(messenger.Texts(), ElementsAre("early", "told once", "first", "second", "without Cancel"));
  EXPECT_THAT(messenger.Unscripted(), ElementsAre("early", "without Cancel"));
}

TEST(TerminalMessenger, TakesTheAnswersFromWhereTheyAre) {
  using enum Button;
  const Answers none;
  const auto listed = Answers::InTurn({Yes, Cancel, Cancel});
  const struct {
    const char* typed;
    bool isInteractive;
    Answers given;
    std::vector<std::int32_t> styles;
    std::vector<Button> expected;
  } cases[] = {
      {"y\nYES \nn\n", true, none, {kYesNo, kYesNo, kYesNo}, {Yes, Yes, No}},
      {"\n", true, none, {kYesNo, kYesNo}, {No, No}},  // the input ends
      {"maybe\ny\n", true, none, {kYesNo}, {Yes}},
      {"c\nn\nc\n", true, none, {kYesNo, kYesNoCancel}, {No, Cancel}},
      {"y\n", false, none, {kYesNo}, {No}},  // nobody is there
      {"n\n", true, Answers::Always(Yes), {kYesNo, kYesNoCancel}, {Yes, Yes}},
      {"", false, listed, {kYesNo, kYesNoCancel, kYesNo, kYesNo}, {Yes, Cancel, No, No}},
  };
  for (const auto& [typed, isInteractive, given, styles, expected] : cases) {
    std::ostringstream out;
    std::istringstream in(typed);
    TerminalMessenger messenger(out, in, isInteractive, given);
    std::vector<Button> answers;
    for (const std::int32_t style : styles) answers.push_back(Show(messenger, "Go %0:S?\r\n", style, "on"));
    EXPECT_EQ(answers, expected) << typed;
    EXPECT_THAT(out.str(), HasSubstr("Caption Warning: Go on?\n"));
  }
}

TEST(Answers, AreReadFromAFileWordByWord) {
  const TemporaryFolder folder;
  Answers answers = Answers::Of(folder.Write("answers", "yes\r\n\n No\ncancel"));
  for (const Button button : {Button::Yes, Button::No, Button::Cancel, Button::No}) {
    EXPECT_EQ(answers.Next(), button);
  }
  EXPECT_EQ(Answers::Of("YES").Next(), Button::Yes);
  EXPECT_THROW(Answers::Of(folder.PathOf("missing")), FileError);
  EXPECT_THAT(RefusalOf([&] { Answers::Of(folder.Write("wrong", "yes\nperhaps\n")); }),
              HasSubstr("wrong:2: answer: none of yes, no, cancel: \"perhaps\""));
}
}  // namespace
