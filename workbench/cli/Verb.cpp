#include "workbench/cli/Verb.h"

#include <algorithm>

namespace {
/// In the order in which the sources were linked. A function's static: it is there before the first verb.
std::vector<const Verb*>& Known() {
  static std::vector<const Verb*> known;
  return known;
}

std::string_view VerbName(const Verb* verb) { return verb->About().name; }
}  // namespace

Verb::Verb(Text text, std::function<Action(Words&)> take) : text_(text), take_(std::move(take)) {
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
