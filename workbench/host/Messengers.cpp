#include "workbench/host/Messengers.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iostream>
#include <iterator>

#include "platform/Border.h"
#include "platform/CaseText.h"
#include "platform/DecimalText.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"

namespace {
std::vector<std::string_view> SplitParameters(std::string_view parameters) {
  std::vector<std::string_view> parts;
  if (parameters.empty()) return parts;
  while (true) {
    const std::size_t end = parameters.find('|');
    parts.push_back(parameters.substr(0, end));
    if (end == std::string_view::npos) return parts;
    parameters.remove_prefix(end + 1);
  }
}

/// A placeholder at the start of a text: the number of its parameter and its length; length 0 for none.
struct Placeholder {
  std::size_t parameter = 0;
  std::size_t length = 0;
};

Placeholder PlaceholderAt(std::string_view text) {
  Placeholder placeholder;
  const char* end = text.data() + text.size();
  const auto [stop, problem] = std::from_chars(text.data() + 1, end, placeholder.parameter);
  if (problem != std::errc() || end - stop < 2 || stop[0] != ':' || UpperChar(stop[1]) != 'S') return {};
  placeholder.length = static_cast<std::size_t>(stop + 2 - text.data());
  return placeholder;
}

/// The button of a word that a person types or writes into a file of answers.
std::optional<Button> ButtonOf(std::string_view word) {
  constexpr std::pair<std::string_view, Button> kWords[] = {
      {"y", Button::Yes}, {"yes", Button::Yes},  {"n", Button::No},
      {"no", Button::No}, {"c", Button::Cancel}, {"cancel", Button::Cancel},
  };
  const auto found =
      std::ranges::find_if(kWords, [&](const auto& entry) { return EqualsIgnoringCase(entry.first, word); });
  if (found == std::end(kWords)) return {};
  return found->second;
}

/// Whether the box of a question has the button.
bool Offers(std::int32_t style, Button button) {
  return button == Button::Yes || button == Button::No ||
         (button == Button::Cancel && style == MessageStyle::kYesNoCancel);
}

/// A box as lines for a terminal: "TITLE: text", with the line breaks of the terminal.
std::string TerminalText(const Shown& box) {
  std::string text = box.title.empty() ? box.text : box.title + ": " + box.text;
  std::erase(text, '\r');
  return Printable::Lines(text);
}

std::vector<Button> ReadAnswers(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw FileError(path, 0, "answers", "can not be read");
  std::vector<Button> buttons;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    std::erase(line, '\r');
    const std::string_view word = Trim(line);
    if (word.empty()) continue;
    const auto button = ButtonOf(word);
    if (!button)
      throw FileError(path, number, "answer", "none of yes, no, cancel: " + Printable::Quoted(word));
    buttons.push_back(*button);
  }
  if (file.bad()) throw FileError(path, 0, "answers", "can not be read");
  return buttons;
}
}  // namespace

std::string_view NameOf(Button button) {
  switch (button) {
    case Button::Ok:
      return "OK";
    case Button::Cancel:
      return "Cancel";
    case Button::Yes:
      return "Yes";
    case Button::No:
      return "No";
  }
  return "";
}

std::string FillTemplate(std::string_view text, std::string_view parameters) {
  const auto values = SplitParameters(parameters);
  std::string filled;
  while (!text.empty()) {
    const std::size_t start = std::min(text.find('%'), text.size());
    filled += text.substr(0, start);
    text.remove_prefix(start);
    if (text.empty()) break;
    const Placeholder placeholder = PlaceholderAt(text);
    const bool isFilled = placeholder.length > 0 && placeholder.parameter < values.size();
    filled += isFilled ? values[placeholder.parameter] : text.substr(0, 1);
    text.remove_prefix(isFilled ? placeholder.length : 1);
  }
  return filled;
}

bool IsQuestion(std::int32_t style) {
  constexpr std::int32_t kButtons = 0xF;  // 0 is OK alone, 3 Yes, No and Cancel, 4 Yes and No
  return (style & kButtons) != 0;
}

Status RecordingMessenger::ShowMessage(std::string_view message, std::int32_t style, std::string_view title,
                                       std::string_view parameters, std::int32_t& out) {
  return Border([&] {
    monitor_->Enter(CallGroup::Other, [&] { return "Imessenger.ShowMessage " + std::string(message); });
    Shown box{FillTemplate(message, parameters), std::string(message), style, std::string(title),
              std::string(parameters)};
    if (IsQuestion(style)) {
      box.answer = Answer(box);
    } else {
      Tell(box);
    }
    out = static_cast<std::int32_t>(box.answer);
    boxes_.push_back(std::move(box));
  });
}

Status RecordingMessenger::GetRadioInformation(std::array<std::string, 8>& out) {
  return Border([&] {
    monitor_->Enter(CallGroup::Other, [] { return "Imessenger.GetRadioInformation"; });
    out = radioInformation_;
  });
}

Status RecordingMessenger::RefreshField(std::string_view uiid) {
  return Border([&] {
    monitor_->Enter(CallGroup::Other, [&] { return "Imessenger.RefreshField " + std::string(uiid); });
    refreshed_.emplace_back(uiid);
  });
}

Status RecordingMessenger::SetFieldEnabled(std::string_view uiid, Boolean enabled) {
  return Border([&] {
    monitor_->Enter(CallGroup::Other, [&] { return "Imessenger.SetFieldEnabled " + std::string(uiid); });
    enabledStates_.push_back({std::string(uiid), enabled != kFalse});
  });
}

Button RecordingMessenger::Answer(const Shown&) { return Button::No; }

std::vector<std::string> RecordingMessenger::Texts() const {
  std::vector<std::string> texts;
  std::ranges::transform(boxes_, std::back_inserter(texts), &Shown::text);
  return texts;
}

std::vector<Shown> RecordingMessenger::Questions() const {
  std::vector<Shown> questions;
  std::ranges::copy_if(boxes_, std::back_inserter(questions),
                       [](const Shown& box) { return IsQuestion(box.style); });
  return questions;
}

void RecordingMessenger::Clear() {
  boxes_.clear();
  refreshed_.clear();
  enabledStates_.clear();
}

void ScriptedMessenger::Play(std::vector<Button> answers) {
  script_.insert(script_.end(), answers.begin(), answers.end());
}

Button ScriptedMessenger::Answer(const Shown& question) {
  if (always_) return *always_;
  if (next_ < script_.size() && Offers(question.style, script_[next_])) return script_[next_++];
  unscripted_.push_back(question.text);
  return Button::No;
}

Answers Answers::Always(Button button) {
  Answers answers;
  answers.given_ = true;
  answers.always_ = button;
  return answers;
}

Answers Answers::InTurn(std::vector<Button> buttons) {
  Answers answers;
  answers.given_ = true;
  answers.buttons_ = std::move(buttons);
  return answers;
}

Answers Answers::Of(const std::string& argument) {
  for (const Button button : {Button::Yes, Button::No, Button::Cancel}) {
    if (EqualsIgnoringCase(argument, NameOf(button))) return Always(button);
  }
  return InTurn(ReadAnswers(argument));
}

Button Answers::Next() {
  if (always_) return *always_;
  return next_ < buttons_.size() ? buttons_[next_++] : Button::No;
}

TerminalMessenger::TerminalMessenger(std::ostream& out, std::istream& in, bool isInteractive, Answers answers)
    : out_(out), in_(in), isInteractive_(isInteractive), answers_(std::move(answers)) {}

std::shared_ptr<TerminalMessenger> TerminalMessenger::OnStandardStreams(Answers answers) {
  return std::make_shared<TerminalMessenger>(std::cerr, std::cin, ::isatty(STDIN_FILENO) == 1,
                                             std::move(answers));
}

Button TerminalMessenger::Answer(const Shown& question) {
  out_ << TerminalText(question) << (question.style == MessageStyle::kYesNoCancel ? " [y/N/c] " : " [y/N] ")
       << std::flush;
  if (isInteractive_ && !answers_.AreGiven()) return AskPerson(question.style);
  const Button given = answers_.Next();
  const Button answer = Offers(question.style, given) ? given : Button::No;
  out_ << NameOf(answer);
  if (!answers_.AreGiven())
    out_ << " (taken, for nobody is at a terminal to answer; --answer yes answers it)";
  out_ << std::endl;
  return answer;
}

Button TerminalMessenger::AskPerson(std::int32_t style) {
  std::string line;
  while (std::getline(in_, line)) {
    const std::string_view word = Trim(line);
    if (word.empty()) return Button::No;
    const auto button = ButtonOf(word);
    if (button && Offers(style, *button)) return *button;
    out_ << "Please answer y or n: " << std::flush;
  }
  out_ << std::endl;
  return Button::No;
}

void TerminalMessenger::Tell(const Shown& box) { out_ << TerminalText(box) << std::endl; }
