#include "workbench/cli/Verb.h"

#include <algorithm>

#include "workbench/files/Printable.h"
#include "workbench/store/TypedNames.h"

namespace {
/// In the order in which the sources were linked. A function's static: it is there before the first verb.
std::vector<const Verb*>& Known() {
  static std::vector<const Verb*> known;
  return known;
}

std::string_view VerbName(const Verb* verb) { return verb->About().name; }
}  // namespace

Verb::Verb(Text text, std::function<Action(Words&)> take) : text_(std::move(text)), take_(std::move(take)) {
  Known().push_back(this);
}

std::vector<const Verb*> Verb::All() {
  std::vector<const Verb*> verbs = Known();
  std::ranges::sort(verbs, {}, VerbName);
  return verbs;
}

bool Verb::Exists(std::string_view name) {
  return std::ranges::find(Known(), name, VerbName) != Known().end();
}

std::string Verb::Unknown(const std::string& name) {
  std::vector<std::string> names;
  for (const Verb* verb : All()) names.emplace_back(VerbName(verb));
  return "there is no command " + Printable::Shortened(name) + TypedNames::Suggestion(name, std::move(names));
}
