#include <algorithm>
#include <iostream>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/cli/CommandLine.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/files/Printable.h"
#include "workbench/store/TypedNames.h"

namespace {

/// Cuts a line of a script into words. Blanks separate; a word or a part of it in double quotes keeps its
/// blanks, \" and \\ stand for a quote and a backslash there. "#" at the start of a word begins a comment.
class WordCutter {
 public:
  explicit WordCutter(std::string_view line) : line_(line) {}

  std::vector<std::string> Words() {
    std::vector<std::string> words;
    while (SkipBlanks() && line_[place_] != '#') words.push_back(Word());
    return words;
  }

 private:
  bool SkipBlanks() {
    while (place_ < line_.size() && IsBlank(line_[place_])) ++place_;
    return place_ < line_.size();
  }

  std::string Word() {
    std::string word;
    for (; place_ < line_.size() && !IsBlank(line_[place_]); ++place_) {
      if (line_[place_] == '"') {
        word += Quoted();
      } else {
        word += line_[place_];
      }
    }
    return word;
  }

  /// From the opening quote to the closing one, on which it stops.
  std::string Quoted() {
    std::string text;
    for (++place_; place_ < line_.size() && line_[place_] != '"'; ++place_) {
      const bool escapes = line_[place_] == '\\' && place_ + 1 < line_.size();
      if (escapes && (line_[place_ + 1] == '"' || line_[place_ + 1] == '\\')) ++place_;
      text += line_[place_];
    }
    if (place_ == line_.size()) throw UsageError("a quote is not closed");
    return text;
  }

  static bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

  std::string_view line_;
  std::size_t place_ = 0;
};

/// Runs the lines of a script one by one, each with the options of the whole.
class Script {
 public:
  Script(std::string name, Workplace& workplace)
      : name_(std::move(name)),
        workplace_(workplace),
        options_(workplace.options),
        prefix_(workplace.prefix) {}

  ExitCode Run(bool keepGoing) {
    std::istringstream lines(AtomicFile(name_).Read());
    ExitCode worst = ExitCode::Done;
    std::string line;
    while (std::getline(lines, line) && (keepGoing || worst == ExitCode::Done)) {
      ++number_;
      worst = std::max(worst, RunLine(line));
    }
    workplace_.options = options_;
    workplace_.prefix = prefix_;
    if (workplace_.options.json) workplace_.Emit({{"script", name_}, {"lines", std::move(results_)}});
    return worst;
  }

 private:
  ExitCode RunLine(const std::string& line) {
    workplace_.prefix = Printable::Text(name_) + ":" + std::to_string(number_) + ": ";
    std::vector<std::string> words;
    try {
      words = WordCutter(line).Words();
    } catch (const UsageError& error) {
      std::cerr << workplace_.prefix << error.what() << '\n';
      return ExitCode::CouldNot;
    }
    if (words.empty()) return ExitCode::Done;
    if (words.front() == "kd4410") words.erase(words.begin());

    workplace_.options = options_;
    const auto known = std::ranges::find_if(words, Verb::Exists);
    const std::string verb = known == words.end() ? "" : *known;
    Json data;
    if (options_.json) workplace_.CollectIn(data);
    const ExitCode code = RunCommand(std::move(words), workplace_, true);
    workplace_.CollectNothing();
    if (options_.json) {
      Json result = {{"line", number_}};
      if (!verb.empty()) result["verb"] = verb;
      result["exitCode"] = static_cast<int>(code);
      if (workplace_.HasEmitted()) result["data"] = std::move(data);
      results_.Add(std::move(result));
    }
    return code;
  }

  std::string name_;
  Workplace& workplace_;
  const Options options_;
  const std::string prefix_;
  int number_ = 0;
  Json results_ = Json::List();
};

struct RunArguments {
  std::string script;
  bool keepGoing = false;
};

void Take(Words& words, RunArguments& given) {
  words.Required("SCRIPT", given.script, "The script");
  words.Flag("--keep-going", given.keepGoing, "Go on after a line that does not end with 0");
}

ExitCode Run(const RunArguments& arguments, Workplace& workplace) {
  return Script(arguments.script, workplace).Run(arguments.keepGoing);
}

const Verb kRun(
    {.name = "run",
     .about = "Run the commands of a script, one a line",
     .details = "Words are separated by blanks; \"double quotes\" keep blanks together; # begins a "
                "comment. The exit code is the highest of the lines that ran.",
     .inScripts = false,
     .examples = {{"Run the commands of edits.txt", "kd4410 run edits.txt"},
                  {"All of them, whatever one says", "kd4410 run edits.txt --keep-going --json"}}},
    Take, Run);

}  // namespace
