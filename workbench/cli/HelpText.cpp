#include "workbench/cli/HelpText.h"

#include <vector>

#include "workbench/cli/Paragraph.h"

namespace {

std::string Heading(std::string_view text, std::size_t width) {
  return '\n' + Paragraph::Wrapped(std::string(text) + ":", width);
}

/// The words or the options of a list, with what the help says of each.
std::string ListOfWords(const std::vector<Word>& words, bool options, std::string_view heading,
                        std::size_t width) {
  std::vector<Paragraph::Entry> entries;
  for (const Word& word : words) {
    if (word.IsOption() != options) continue;
    const bool mustBeGiven = options && word.isRequired;
    entries.push_back({HelpText::NameOf(word), word.about + (mustBeGiven ? " (required)" : "")});
  }
  return entries.empty() ? "" : Heading(heading, width) + Paragraph::List(entries, width);
}

/// But for those that the command has a meaning of its own for.
std::string Names(const std::vector<Word>& options, const Manual::Command& command, std::size_t width) {
  std::vector<std::string> names;
  for (const Word& option : options) {
    if (!command.Redefines(option)) names.push_back(HelpText::NameOf(option));
  }
  return Heading("Options of all commands (see: kd4410 help)", width) + Paragraph::Wrapped(names, width, 2);
}

/// A command to be copied stands on one line.
std::string Examples(const std::vector<Verb::Example>& examples, std::size_t width) {
  std::string text = examples.empty() ? "" : Heading("Examples", width);
  for (const auto& [what, command] : examples) {
    text += Paragraph::Wrapped(std::string(what) + ":", width, 2) + "    " + command + '\n';
  }
  return text;
}

std::string Usage(const std::string& words, std::size_t width) {
  return '\n' + Paragraph::Wrapped("Usage: kd4410 " + words, width);
}

}  // namespace

namespace HelpText {

std::string Of(const Manual& manual, std::size_t width) {
  std::vector<Paragraph::Entry> commands;
  for (const Manual::Command& command : manual.commands) {
    commands.push_back({command.text.name, command.text.about});
  }
  std::string text = Paragraph::Wrapped(manual.about, width) + Usage("[OPTIONS] COMMAND ...", width) +
                     Heading("Commands (kd4410 help COMMAND tells more of one)", width) +
                     Paragraph::List(commands, width) +
                     ListOfWords(manual.common, true, "Options of all commands", width) + '\n';
  for (const std::string& note : manual.notes) text += Paragraph::Wrapped(note, width);
  return text;
}

std::string Of(const Manual& manual, const Manual::Command& command, std::size_t width) {
  const Verb::Text& about = command.text;
  std::string text =
      Paragraph::Wrapped(about.about, width) + Usage(std::string(about.name) + UsageOf(command), width) +
      ListOfWords(command.words, false, "Words", width) + ListOfWords(command.words, true, "Options", width) +
      Names(manual.common, command, width);
  if (*about.details != '\0') text += '\n' + Paragraph::Wrapped(about.details, width);
  return text + Examples(about.examples, width);
}

std::string OfAll(const Manual& manual, std::size_t width) {
  std::string text = Of(manual, width);
  for (const Manual::Command& command : manual.commands) {
    text += '\n' + std::string(command.text.name) + "\n\n" + Of(manual, command, width);
  }
  return text;
}

std::string UsageOf(const Manual::Command& command) {
  std::string usage = " [OPTIONS]";
  for (const Word& word : command.words) {
    if (word.IsOption() && !word.isRequired) continue;
    const std::string name = NameOf(word) + (word.isRepeated ? " ..." : "");
    usage += word.isRequired ? " " + name : " [" + name + "]";
  }
  return usage;
}

std::string NameOf(const Word& word) { return word.name + (word.value.empty() ? "" : " " + word.value); }

}  // namespace HelpText
