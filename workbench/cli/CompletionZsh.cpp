#include "workbench/cli/Completion.h"

namespace {

constexpr std::string_view kHead = R"zsh(#compdef kd4410
# Completion of kd4410 in zsh.

_kd4410_fields() {
  local -a fields
  fields=(${(f)"$(_call_program fields kd4410 fields --names 2>/dev/null)"})
  _describe -t fields field fields
}

_kd4410_or_files() {
  compadd -- "$@"
  _files
}

)zsh";

constexpr std::string_view kTail = R"zsh(
_kd4410() {
  _arguments -S $_kd4410_common '*:::command:_kd4410_line'
}

_kd4410 "$@"
)zsh";

/// What completes the word, as an action of _arguments.
std::string ActionFor(const Manual& manual, const Word& word) {
  const Completion::Offer offer = Completion::OfferFor(manual, word);
  std::string words;
  for (const std::string& one : offer.words) {
    words += (words.empty() ? "" : " ") + Completion::Escaped(one, " :()\\", "\\");
  }
  if (offer.commands) return Completion::IsNested(word) ? "_kd4410_line" : "_kd4410_commands";
  if (offer.fields) return "_kd4410_fields";
  if (offer.folders) return "_files -/";
  if (offer.files && words.empty()) return "_files";
  if (offer.files) return " _kd4410_or_files " + words;
  return words.empty() ? " " : "(" + words + ")";
}

/// "'--out[About]:FILE:_files'", of an option with two names one for each.
std::string OptionArguments(const Manual& manual, const Word& option) {
  const std::string about = "[" + Completion::Escaped(option.about, "[]\\", "\\") + "]";
  const std::string value = option.value.empty() ? ""
                                                 : ":" + Completion::Escaped(option.value, ":\\", "\\") +
                                                       ":" + ActionFor(manual, option);
  std::string arguments;
  for (const std::string& name : Completion::NamesOf(option)) {
    std::string argument = option.isRepeated ? "*" : "";
    argument.append(name).append(about).append(value);
    arguments += "    " + Completion::Quoted(argument) + '\n';
  }
  return arguments;
}

/// "'2::RECORD: '"
std::string PlaceArgument(const Manual& manual, const Word& word, int place) {
  const std::string head = word.isRepeated ? "*" : std::to_string(place);
  const std::string colons = Completion::IsNested(word) ? ":::" : word.isRequired ? ":" : "::";
  const std::string argument = head + (word.isRepeated && !Completion::IsNested(word) ? ":" : colons) +
                               Completion::Escaped(word.name, ":\\", "\\") + ":" + ActionFor(manual, word);
  return "    " + Completion::Quoted(argument) + '\n';
}

std::string ArgumentsOf(const Manual& manual, const std::vector<Word>& words) {
  std::string arguments;
  int place = 0;
  for (const Word& word : words) {
    arguments += word.IsOption() ? OptionArguments(manual, word) : PlaceArgument(manual, word, ++place);
  }
  return arguments;
}

}  // namespace

std::string Completion::ForZsh(const Manual& manual) {
  std::string script(kHead);
  script += "_kd4410_commands() {\n  local -a commands\n  commands=(\n";
  for (const Manual::Command& command : manual.commands) {
    script += "    " + Completion::Quoted(std::string(command.text.name) + ":" + command.text.about) + '\n';
  }
  script += "  )\n  _describe -t commands command commands\n}\n\n";

  script +=
      "# A command with its words, the first of the line.\n_kd4410_line() {\n"
      "  if ((CURRENT == 1)); then\n    _kd4410_commands\n    return\n  fi\n"
      "  local -a arguments common\n  common=($_kd4410_common)\n  case $words[1] in\n";
  for (const Manual::Command& command : manual.commands) {
    script += "  " + std::string(command.text.name) + ")\n";
    for (const Word& option : manual.common) {
      if (command.Redefines(option)) script += "    common=(${common:#" + option.name + "\\[*})\n";
    }
    script += "    arguments=(\n" + ArgumentsOf(manual, command.words) + "    ) ;;\n";
  }
  script += "  esac\n  _arguments -S $common $arguments\n}\n\n";
  script += "typeset -ga _kd4410_common\n_kd4410_common=(\n" + ArgumentsOf(manual, manual.common) + ")\n";
  return script + std::string(kTail);
}
