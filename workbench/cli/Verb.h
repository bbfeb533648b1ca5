#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/cli/Words.h"
#include "workbench/cli/Workplace.h"

/// A verb of the command line, in a file of its own: its words, what it does, and an object of this class,
/// which makes it known. Nothing lists the verbs.
class Verb {
 public:
  struct Example {
    const char* what;  ///< it does, a phrase
    const char*
        command;  ///< a line for the shell, in a folder that has samples/; short enough for 80 columns
  };
  struct Text {
    const char* name;
    const char* about;                   ///< a line
    const char* details = "";            ///< what stands below its words in its help: a paragraph
    bool inScripts = true;               ///< whether a line of a script may be of it
    std::vector<Example> examples = {};  ///< two of them; the tests run each
  };
  /// What a line with the verb does, once it has been read.
  using Action = std::function<ExitCode(Workplace&)>;

  /// `take` declares the words, `run` carries them out. Arguments are made anew for each line. The object is
  /// static: it stays in the list of all verbs.
  template <typename Arguments>
  Verb(Text text, void (*take)(Words&, Arguments&), ExitCode (*run)(const Arguments&, Workplace&))
      : Verb(text, [take, run](Words& words) -> Action {
          auto given = std::make_shared<Arguments>();
          take(words, *given);
          return [run, given](Workplace& workplace) { return run(*given, workplace); };
        }) {}
  Verb(const Verb&) = delete;
  Verb& operator=(const Verb&) = delete;

  const Text& About() const { return text_; }
  /// Declares the words of a line; what it does is to be called after they have been read.
  Action Take(Words& words) const { return take_(words); }

  /// By name.
  static std::vector<const Verb*> All();
  static bool Exists(std::string_view name);
  /// That there is no verb of that name, and what is spelled alike.
  static std::string Unknown(const std::string& name);

 private:
  Verb(Text text, std::function<Action(Words&)> take);

  Text text_;
  std::function<Action(Words&)> take_;
};
