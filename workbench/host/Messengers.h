#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/Imessenger.h"
#include "workbench/store/CallMonitor.h"

/// `text` with each placeholder %n:S or %n:s replaced by the n-th of the parameters, which a vertical bar
/// joins; n counts from 0. A placeholder without parameter stands as it is; empty parameters are none.
std::string FillTemplate(std::string_view text, std::string_view parameters);

/// Whether a box of the style waits for more than OK.
bool IsQuestion(std::int32_t style);
/// "OK", "Cancel", "Yes", "No".
std::string_view NameOf(Button button);

/// A message box as it was shown.
struct Shown {
  std::string text;  // filled
  std::string unfilled;
  std::int32_t style = 0;
  std::string title;
  std::string parameters;
  Button answer = Button::Ok;
};

/// Keeps what the tier tells the user and the forms, in order. A box with OK alone is answered OK; the
/// heirs answer the questions.
class RecordingMessenger : public Imessenger {
 public:
  struct EnabledState {
    std::string uiid;
    bool enabled = false;
    friend bool operator==(const EnabledState&, const EnabledState&) = default;
  };

  Status ShowMessage(std::string_view message, std::int32_t style, std::string_view title,
                     std::string_view parameters, std::int32_t& out) final;
  Status GetRadioInformation(std::array<std::string, 8>& out) override;
  Status RefreshField(std::string_view uiid) override;
  Status SetFieldEnabled(std::string_view uiid, Boolean enabled) override;

  const std::vector<Shown>& Boxes() const { return boxes_; }
  /// The filled texts of the boxes.
  std::vector<std::string> Texts() const;
  /// The boxes that were questions, with their answers.
  std::vector<Shown> Questions() const;
  const std::vector<std::string>& Refreshed() const { return refreshed_; }
  const std::vector<EnabledState>& EnabledStates() const { return enabledStates_; }
  /// Forgets what was told so far.
  void Clear();

  /// The radio that is attached; none, whose control head is "Unknown", until it is set.
  void SetRadioInformation(std::array<std::string, 8> radio) { radioInformation_ = std::move(radio); }
  void SetMonitor(std::shared_ptr<CallMonitor> monitor) { monitor_ = std::move(monitor); }

 protected:
  /// The answer to a question; No here. `question.answer` is not known yet.
  virtual Button Answer(const Shown& question);
  /// A box without choice.
  virtual void Tell(const Shown&) {}

 private:
  std::shared_ptr<CallMonitor> monitor_ = std::make_shared<CallMonitor>();
  std::array<std::string, 8> radioInformation_{"", "", "", "", "", "", "Unknown", ""};
  std::vector<Shown> boxes_;
  std::vector<std::string> refreshed_;
  std::vector<EnabledState> enabledStates_;
};

/// Answers the questions by a script, one after the other. A question past the end of the script, or one
/// that lacks the scripted button, is answered No and kept as unscripted.
class ScriptedMessenger final : public RecordingMessenger {
 public:
  /// Adds answers to the script.
  void Play(std::vector<Button> answers);
  /// Every question from now on gets this answer; the script is left alone.
  void AlwaysAnswer(Button button) { always_ = button; }
  /// The texts of the questions that the script did not foresee.
  const std::vector<std::string>& Unscripted() const { return unscripted_; }
  /// How many answers no question has asked for.
  std::size_t AnswersLeft() const { return script_.size() - next_; }

 protected:
  Button Answer(const Shown& question) override;

 private:
  std::vector<Button> script_;
  std::size_t next_ = 0;
  std::optional<Button> always_;
  std::vector<std::string> unscripted_;
};

/// Answers given beforehand, for questions that nobody is there to answer.
class Answers {
 public:
  /// No answer: a person is asked, or the answer is No.
  Answers() = default;
  static Answers Always(Button button);
  /// One after the other, then No.
  static Answers InTurn(std::vector<Button> buttons);
  /// "yes", "no", "cancel", or the name of a file with "yes", "no" or "cancel" on each line. Throws a
  /// FileError for a file that can not be read or has another line.
  static Answers Of(const std::string& argument);

  bool AreGiven() const { return given_; }
  /// The next answer; No when there is none left.
  Button Next();

 private:
  bool given_ = false;
  std::optional<Button> always_;
  std::vector<Button> buttons_;
  std::size_t next_ = 0;
};

/// Prints messages as a person reads them. A question is answered by the answers given beforehand, else
/// by the person at the terminal, else (and when the input ends) with No.
class TerminalMessenger final : public RecordingMessenger {
 public:
  /// `in` is asked only when `isInteractive`. The streams outlive the messenger.
  TerminalMessenger(std::ostream& out, std::istream& in, bool isInteractive, Answers answers);
  /// Standard error and standard input, interactive when that is a terminal.
  static std::shared_ptr<TerminalMessenger> OnStandardStreams(Answers answers);

 protected:
  Button Answer(const Shown& question) override;
  void Tell(const Shown& box) override;

 private:
  Button AskPerson(std::int32_t style);

  std::ostream& out_;
  std::istream& in_;
  bool isInteractive_;
  Answers answers_;
};
