#include "workbench/cli/ManPage.h"

#include <string_view>

#include "workbench/cli/HelpText.h"

namespace {

struct Fact {
  std::string_view name, about;
};

constexpr Fact kExitCodes[] = {
    {"0", "It is done."},
    {"1", "The answer is no: an edit was refused, there are findings or differences, a control is disabled."},
    {"2", "It could not be done: wrong use, or a file that can not be read or written."},
    {"3", "The library of the tier failed. Nothing was saved."}};

constexpr Fact kFiles[] = {
    {"*.json", "Personalities. A file is replaced as a whole or stays as it was."},
    {"lib/kd4410/libkd4410tier.so", "The tier, unless --tier or the registration names another."},
    {"lib/kd4410",
     "The data files, the schema and the samples, beside the tier; --data names another folder."}};

constexpr Fact kEnvironment[] = {{"COLUMNS", "The width of the help, when it is set."},
                                 {"NO_COLOR", "Needs no attention: the output has no colours."},
                                 {"LC_ALL",
                                  "Its decimal symbol, or that of LC_NUMERIC or LANG, is the one of numbers "
                                  "at a terminal; elsewhere it is a point."}};

/// As man shows it: a hyphen is a minus, for it may be copied.
std::string Roff(std::string_view text) {
  std::string roff;
  for (const char c : text) {
    if (c == '\\') {
      roff += "\\e";
    } else if (c == '-') {
      roff += "\\-";
    } else if (c == '\'') {
      roff += "\\(aq";
    } else {
      roff += c;
    }
  }
  return roff.starts_with('.') ? "\\&" + roff : roff;
}

std::string Section(std::string_view name) { return ".SH " + std::string(name) + '\n'; }

std::string Item(std::string_view name, std::string_view about) {
  return ".TP\n\\fB" + Roff(name) + "\\fR\n" + Roff(about) + '\n';
}

template <std::size_t size>
std::string Facts(std::string_view section, const Fact (&facts)[size]) {
  std::string text = Section(section);
  for (const Fact& fact : facts) text += Item(fact.name, fact.about);
  return text;
}

std::string ItemsOf(const std::vector<Word>& words) {
  std::string text;
  for (const Word& word : words) text += Item(HelpText::NameOf(word), word.about);
  return text;
}

std::string Example(const Verb::Example& example) {
  return ".PP\n" + Roff(example.what) + ":\n.PP\n.nf\n.RS\n" + Roff(example.command) + "\n.RE\n.fi\n";
}

std::string Command(const Manual::Command& command) {
  const Verb::Text& text = command.text;
  std::string page =
      ".SS \"" + Roff(text.name + HelpText::UsageOf(command)) + "\"\n" + Roff(text.about) + ".\n";
  page += ItemsOf(command.words);
  if (*text.details != '\0') page += ".PP\n" + Roff(text.details) + '\n';
  return page;
}

}  // namespace

std::string ManPageOf(const Manual& manual) {
  std::string page = ".TH KD4410 1 \"\" \"kd4410 " KD4410_VERSION "\" \"User Commands\"\n" + Section("NAME") +
                     "kd4410 \\- the workbench of the KD4400 and KE2210 radios\n" + Section("SYNOPSIS") +
                     "\\fBkd4410\\fR [\\fIOPTIONS\\fR] \\fICOMMAND\\fR ...\n" + Section("DESCRIPTION") +
                     Roff(manual.about) + '\n';
  for (const std::string& note : manual.notes) page += ".PP\n" + Roff(note) + '\n';
  page += Section("COMMANDS");
  for (const Manual::Command& command : manual.commands) page += Command(command);
  page += Section("OPTIONS") + "All commands take these.\n" + ItemsOf(manual.common);
  page += Facts("EXIT STATUS", kExitCodes) + Section("EXAMPLES");
  for (const Manual::Command& command : manual.commands) {
    for (const Verb::Example& example : command.text.examples) page += Example(example);
  }
  return page + Facts("FILES", kFiles) + Facts("ENVIRONMENT", kEnvironment);
}
