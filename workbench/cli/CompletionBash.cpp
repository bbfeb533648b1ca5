#include "workbench/cli/Completion.h"

namespace {

constexpr std::string_view kNested = "another command";

constexpr std::string_view kHead = R"bash(# Completion of kd4410 in bash.

# The lines of standard input that begin like the word at the cursor.
_kd4410_offer() {
  local line begun=${cur#[\"\']}
  begun=${begun//\\/}
  while IFS= read -r line; do
    [[ $line == "$begun"* ]] || continue
    [[ $cur == [\"\']* ]] || printf -v line %q "$line"
    COMPREPLY+=("$line")
  done
}

)bash";

constexpr std::string_view kTail = R"bash(
_kd4410() {
  local cur=${COMP_WORDS[COMP_CWORD]} command= place=1 typed= word i
  COMPREPLY=()
  for ((i = 1; i < COMP_CWORD; ++i)); do
    word=${COMP_WORDS[i]}
    if [[ $word == = ]]; then
      continue # between an option and its value
    elif [[ -n $typed ]]; then
      typed=
    elif [[ $word == -* ]]; then
      typed=$(_kd4410_typed "$command" "$word")
    elif [[ -z $command || $(_kd4410_typed "$command" "$place") == 'another command' ]]; then
      command=$word place=1
    else
      place=$((place + 1))
    fi
  done
  [[ $cur == = ]] && cur=
  if [[ -z $typed && $cur == -* ]]; then
    _kd4410_offer < <(_kd4410_options "$command")
    return
  fi
  [[ -n $typed ]] || typed=$(_kd4410_typed "$command" "$place")
  _kd4410_offer < <(_kd4410_words "$typed")
  case $typed in
FILES) ;;
    *) return ;;
  esac
  compopt -o filenames 2>/dev/null
  while IFS= read -r word; do COMPREPLY+=("$word"); done < <(compgen "$action" -- "$cur")
}
complete -F _kd4410 kd4410
)bash";

/// What the functions call the kind of a word.
std::string TypedFor(const Word& word) {
  return Completion::IsNested(word) ? std::string(kNested) : word.Typed();
}

/// "    add:--from) echo 'N' ;;"
std::string TypedLine(std::string_view command, std::string_view word, const std::string& typed) {
  return "    " + std::string(command) + ':' + std::string(word) + ") echo " + Completion::Quoted(typed) +
         " ;;\n";
}

std::string TypedLines(std::string_view command, const std::vector<Word>& words) {
  std::string text;
  int place = 0;
  for (const Word& word : words) {
    if (word.IsOption()) {
      if (!word.value.empty()) text += TypedLine(command, word.name, TypedFor(word));
      continue;
    }
    ++place;
    const bool goesOn = word.isRepeated && !Completion::IsNested(word);
    text += TypedLine(command, goesOn ? "[1-9]*" : std::to_string(place), TypedFor(word));
  }
  return text;
}

std::string OptionLine(const std::vector<Word>& words) {
  std::string line;
  for (const Word& word : words) {
    if (!word.IsOption()) continue;
    for (const std::string& name : Completion::NamesOf(word)) line += ' ' + name;
  }
  return line.empty() ? ":" : "printf '%s\\n'" + line;
}

/// Each kind of word once.
std::vector<Word> Kinds(const Manual& manual) {
  std::vector<Word> kinds;
  const auto add = [&](const std::vector<Word>& words) {
    for (const Word& word : words) {
      bool isKnown = word.Typed().empty();
      for (const Word& kind : kinds) isKnown = isKnown || TypedFor(kind) == TypedFor(word);
      if (!isKnown) kinds.push_back(word);
    }
  };
  add(manual.common);
  for (const Manual::Command& command : manual.commands) add(command.words);
  return kinds;
}

}  // namespace

std::string Completion::ForBash(const Manual& manual) {
  std::string typed = "_kd4410_typed() { # COMMAND PLACE|OPTION: what is typed there\n  case $1:$2 in\n" +
                      TypedLine("", "1", "COMMAND");
  std::string options = "_kd4410_options() { # COMMAND\n  " + OptionLine(manual.common) + "\n  case $1 in\n";
  for (const Manual::Command& command : manual.commands) {
    typed += TypedLines(command.text.name, command.words);
    options += "    " + std::string(command.text.name) + ") " + OptionLine(command.words) + " ;;\n";
  }
  typed += TypedLines("*", manual.common) + "  esac\n}\n\n";
  options += "  esac\n}\n\n";

  std::string words = "_kd4410_words() { # KIND: those that it has, but for files\n  case $1 in\n";
  std::string files;
  for (const Word& kind : Kinds(manual)) {
    const Offer offer = OfferFor(manual, kind);
    const std::string pattern = "    " + Completion::Quoted(TypedFor(kind)) + ") ";
    std::string list;
    for (const std::string& word : offer.words) list += ' ' + Completion::Quoted(word);
    if (!list.empty()) words.append(pattern).append("printf '%s\\n'").append(list).append(" ;;\n");
    if (offer.fields) words += pattern + "\"${COMP_WORDS[0]/#\\~/$HOME}\" fields --names 2>/dev/null ;;\n";
    if (offer.files) files += pattern + "local action=-f ;;\n";
    if (offer.folders) files += pattern + "local action=-d ;;\n";
  }
  words += "  esac\n}\n";

  std::string tail(kTail);
  const std::string_view mark = "FILES) ;;\n";
  tail.replace(tail.find(mark), mark.size(), files);
  return std::string(kHead) + typed + options + words + tail;
}
