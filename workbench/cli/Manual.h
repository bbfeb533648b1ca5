#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/cli/Verb.h"
#include "workbench/cli/Words.h"

/// What can be typed: the one source of help, man page and completion.
struct Manual {
  struct Command {
    Verb::Text text;
    std::vector<Word> words;

    /// Whether a common option is another one here.
    bool Redefines(const Word& option) const;
  };

  std::string about = {};               // a sentence
  std::vector<std::string> notes = {};  // paragraphs
  std::vector<Word> common = {};        // the options that every command takes
  std::vector<Command> commands = {};   // by name

  /// As the verbs declare it.
  static Manual OfAllVerbs();
  /// A UsageError that suggests what is spelled alike when there is none of that name.
  const Command& Named(std::string_view name) const;
};
