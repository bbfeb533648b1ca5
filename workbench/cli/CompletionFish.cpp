#include "workbench/cli/Completion.h"

namespace {

constexpr std::string_view kHead = R"fish(# Completion of kd4410 in fish.

# The command of the line and the place of its next word: "set 2"; "none 1" before a command.
function __kd4410_place
    set -l command none
    set -l place 1
    set -l isValue 0
    set -l words (commandline -opc)
    for word in $words[2..-1]
        if test $isValue = 1
            set isValue 0
        else if string match -q -- '-*' $word
            contains -- $word VALUED; and set isValue 1
        else if contains -- "$command $place" 'none 1' NESTED
            set command $word
            set place 1
        else
            set place (math $place + 1)
        end
    end
    echo $command $place
end
function __kd4410_is
    contains -- (__kd4410_place) $argv
end
function __kd4410_in
    string match -q -- "$argv[1] *" (__kd4410_place)
end

complete -c kd4410 -f
)fish";

std::string Quoted(std::string_view text) { return "'" + Completion::Escaped(text, "'\\", "\\") + "'"; }

/// The arguments of `complete` for what a word offers.
std::string Offered(const Manual& manual, const Word& word) {
  const Completion::Offer offer = Completion::OfferFor(manual, word);
  std::string arguments;
  if (offer.files || offer.folders) arguments += " -F";
  if (offer.fields) arguments += " -a '(kd4410 fields --names)'";
  std::string words;
  for (const std::string& one : offer.words) {
    words += (words.empty() ? "" : " ") + Completion::Escaped(one, " ", "\\");
  }
  if (!words.empty()) arguments += " -a " + Quoted(words);
  return arguments;
}

std::string Complete(const std::string& condition, const std::string& rest) {
  return "complete -c kd4410" + (condition.empty() ? "" : " -n " + Quoted(condition)) + rest + '\n';
}

std::string OptionLine(const Manual& manual, const std::string& condition, const Word& option) {
  std::string names;
  for (const std::string& name : Completion::NamesOf(option)) {
    const bool isLong = name.starts_with("--");
    names += isLong ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  const std::string value = option.value.empty() ? "" : " -r" + Offered(manual, option);
  return Complete(condition, names + value + " -d " + Quoted(option.about));
}

std::string CommandLines(const Manual& manual, const Manual::Command& command) {
  const std::string name = command.text.name;
  std::string lines = Complete("__kd4410_is 'none 1'", " -a " + name + " -d " + Quoted(command.text.about));
  int place = 0;
  for (const Word& word : command.words) {
    if (word.IsOption()) {
      lines += OptionLine(manual, "__kd4410_in " + name, word);
      continue;
    }
    ++place;
    const bool goesOn = word.isRepeated && !Completion::IsNested(word);
    const std::string offered = Offered(manual, word);
    const std::string condition =
        goesOn ? "__kd4410_in " + name : "__kd4410_is '" + name + " " + std::to_string(place) + "'";
    if (!offered.empty()) lines += Complete(condition, offered);
  }
  return lines;
}

void Replace(std::string& text, std::string_view mark, const std::string& with) {
  text.replace(text.find(mark), mark.size(), with);
}

/// The options behind which a value stands, of all commands.
std::string ValuedOptions(const Manual& manual) {
  std::string names;
  const auto add = [&](const std::vector<Word>& words) {
    for (const Word& word : words) {
      if (word.IsOption() && !word.value.empty()) names += (names.empty() ? "" : " ") + word.name;
    }
  };
  add(manual.common);
  for (const Manual::Command& command : manual.commands) add(command.words);
  return names;
}

std::string NestedPlaces(const Manual& manual) {
  std::string places;
  for (const Manual::Command& command : manual.commands) {
    int place = 0;
    for (const Word& word : command.words) {
      if (word.IsOption()) continue;
      ++place;
      if (Completion::IsNested(word)) {
        places += (places.empty() ? "'" : " '") + std::string(command.text.name) + " " +
                  std::to_string(place) + "'";
      }
    }
  }
  return places;
}

}  // namespace

std::string Completion::ForFish(const Manual& manual) {
  std::string script(kHead);
  Replace(script, "VALUED", ValuedOptions(manual));
  Replace(script, "NESTED", NestedPlaces(manual));
  for (const Word& option : manual.common) script += OptionLine(manual, "", option);
  for (const Manual::Command& command : manual.commands) script += CommandLines(manual, command);
  return script;
}
