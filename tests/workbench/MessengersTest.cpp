#include "workbench/Messengers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/Temporary.h"
#include "workbench/FileError.h"

namespace {
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Button Show(Imessenger& messenger, std::string_view text, std::int32_t style,
            std::string_view parameters = "") {
  std::int32_t button = 0;
  EXPECT_TRUE(messenger.ShowMessage(text, style, "Caption Warning", parameters, button).Ok());
  return static_cast<Button>(button);
}

/// The answers that a terminal gives to as many questions, and what it prints.
struct Dialogue {
  std::vector<Button> answers;
  std::string printed;
};

Dialogue Talk(const std::string& typed, bool isInteractive, const Answers& given,
              const std::vector<std::int32_t>& styles) {
  std::ostringstream out;
  std::istringstream in(typed);
  TerminalMessenger messenger(out, in, isInteractive, given);
  Dialogue dialogue;
  for (const std::int32_t style : styles) dialogue.answers.push_back(Show(messenger, "Go on?", style));
  dialogue.printed = out.str();
  return dialogue;
}

constexpr std::int32_t kYesNo = MessageStyle::kYesNo;
constexpr std::int32_t kYesNoCancel = MessageStyle::kYesNoCancel;
}  // namespace

TEST(FillTemplate, PutsParametersInAndLeavesTheRestAlone) {
  const struct {
    const char *text, *parameters, *expected;
  } cases[] = {
      {"%0:S to %1:s MHz", "156|157", "156 to 157 MHz"},
      {"%1:S %0:S %1:S", "a|b", "b a b"},
      {"%0:S and %1:S", "a", "a and %1:S"},
      {"%0:S", "", "%0:S"},
      {"%0:S%1:S%2:S", "|x|", "x"},
      {"%0:S", "%1:S|b", "%1:S"},  // a parameter is no template
      {"%10:S", "0|1|2|3|4|5|6|7|8|9|ten", "ten"},
      {"100% %0:D %:S %-1:S %0:", "a", "100% %0:D %:S %-1:S %0:"},
      {"%%0:S", "a", "%a"},
      {"%99999999999999999999:S", "a", "%99999999999999999999:S"},
      {"", "a", ""},
  };
  for (const auto& [text, parameters, expected] : cases) {
    EXPECT_EQ(FillTemplate(text, parameters), expected) << text;
  }
}

TEST(ScriptedMessenger, AnswersQuestionsInTurnAndKeepsWhatItShowed) {
  ScriptedMessenger messenger;
  messenger.Play({Button::Yes});
  messenger.Play({Button::Cancel});
  EXPECT_EQ(Show(messenger, "told %0:S", MessageStyle::kExclamation, "once"), Button::Ok);
  EXPECT_EQ(Show(messenger, "first", kYesNo), Button::Yes);
  EXPECT_EQ(messenger.AnswersLeft(), 1U);
  EXPECT_EQ(Show(messenger, "second", kYesNoCancel), Button::Cancel);
  EXPECT_THAT(messenger.Texts(), ElementsAre("told once", "first", "second"));
  ASSERT_EQ(messenger.Questions().size(), 2U);
  EXPECT_EQ(messenger.Questions()[1].answer, Button::Cancel);
  EXPECT_EQ(messenger.Boxes()[0].unfilled, "told %0:S");
  EXPECT_THAT(messenger.Unscripted(), IsEmpty());
}

TEST(ScriptedMessenger, AQuestionThatTheScriptDoesNotForeseeIsKeptAndAnsweredNo) {
  ScriptedMessenger messenger;
  EXPECT_EQ(Show(messenger, "early", kYesNo), Button::No);
  messenger.Play({Button::Cancel});
  EXPECT_EQ(Show(messenger, "without Cancel", kYesNo), Button::No);
  EXPECT_THAT(messenger.Unscripted(), ElementsAre("early", "without Cancel"));
}

TEST(RecordingMessenger, KeepsRefreshesAndStatesInOrderAndKnowsNoControlHead) {
  RecordingMessenger messenger;
  ASSERT_TRUE(messenger.RefreshField("B").Ok());
  ASSERT_TRUE(messenger.RefreshField("A").Ok());
  ASSERT_TRUE(messenger.SetFieldEnabled("C", kTrue).Ok());
  ASSERT_TRUE(messenger.SetFieldEnabled("C", kFalse).Ok());
  EXPECT_THAT(messenger.Refreshed(), ElementsAre("B", "A"));
  using State = RecordingMessenger::EnabledState;
  EXPECT_THAT(messenger.EnabledStates(), ElementsAre(State{"C", true}, State{"C", false}));
  std::array<std::string, 8> radio;
  ASSERT_TRUE(messenger.GetRadioInformation(radio).Ok());
  EXPECT_EQ(radio[6], "Unknown");
  EXPECT_EQ(Show(messenger, "Go on?", kYesNo), Button::No);
}

TEST(RecordingMessenger, ACallThatFailsByPlanKeepsNothing) {
  RecordingMessenger messenger;
  const auto monitor = std::make_shared<CallMonitor>();
  messenger.SetMonitor(monitor);
  monitor->FailFrom(1);
  std::int32_t button = 77;
  EXPECT_FALSE(messenger.ShowMessage("text", kYesNo, "", "", button).Ok());
  EXPECT_FALSE(messenger.RefreshField("A").Ok());
  EXPECT_EQ(button, 77);
  EXPECT_THAT(messenger.Texts(), IsEmpty());
  EXPECT_THAT(messenger.Refreshed(), IsEmpty());
}

TEST(TerminalMessenger, PrintsABoxAsAPersonReadsIt) {
  std::ostringstream out;
  std::istringstream in;
  TerminalMessenger messenger(out, in, false, {});
  Show(messenger, "Line %0:S\r\n\r\nline two", MessageStyle::kNotice, "one");
  EXPECT_EQ(out.str(), "Caption Warning: Line one\n\nline two\n");
}

TEST(TerminalMessenger, TakesTheAnswersFromWhereTheyAre) {
  const Answers none;
  const auto listed = Answers::InTurn({Button::Yes, Button::Cancel, Button::Cancel});
  const struct {
    const char* typed;
    bool isInteractive;
    Answers given;
    std::vector<std::int32_t> styles;
    std::vector<Button> expected;
  } cases[] = {
      {"y\nYES \nn\n", true, none, {kYesNo, kYesNo, kYesNo}, {Button::Yes, Button::Yes, Button::No}},
      {"\n", true, none, {kYesNo, kYesNo}, {Button::No, Button::No}},  // the input ends
      {"maybe\ny\n", true, none, {kYesNo}, {Button::Yes}},
      {"c\nn\nc\n", true, none, {kYesNo, kYesNoCancel}, {Button::No, Button::Cancel}},
      {"y\n", false, none, {kYesNo}, {Button::No}},  // nobody is there
      {"n\n", true, Answers::Always(Button::Yes), {kYesNo, kYesNoCancel}, {Button::Yes, Button::Yes}},
      {"",
       false,
       listed,
       {kYesNo, kYesNoCancel, kYesNo, kYesNo},
       {Button::Yes, Button::Cancel, Button::No, Button::No}},
  };
  for (const auto& [typed, isInteractive, given, styles, expected] : cases) {
    EXPECT_EQ(Talk(typed, isInteractive, given, styles).answers, expected) << typed;
  }
  EXPECT_EQ(Talk("", false, none, {kYesNo}).printed, "Caption Warning: Go on? [y/N] No\n");
}

TEST(Answers, AreReadFromAFileWordByWord) {
  const TemporaryFolder folder;
  Answers answers = Answers::Of(folder.Write("answers", "yes\r\n\n No\ncancel"));
  EXPECT_EQ(answers.Next(), Button::Yes);
  EXPECT_EQ(answers.Next(), Button::No);
  EXPECT_EQ(answers.Next(), Button::Cancel);
  EXPECT_EQ(answers.Next(), Button::No);
  EXPECT_EQ(Answers::Of("YES").Next(), Button::Yes);
  EXPECT_FALSE(Answers().AreGiven());

  EXPECT_THROW(Answers::Of(folder.PathOf("missing")), FileError);
  EXPECT_THROW(Answers::Of(folder.Path()), FileError);
  try {
    Answers::Of(folder.Write("wrong", "yes\nperhaps\n"));
    FAIL();
  } catch (const FileError& error) {
    EXPECT_THAT(error.what(), HasSubstr("wrong:2: answer: none of yes, no, cancel: \"perhaps\""));
  }
}
