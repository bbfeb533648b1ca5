#include <algorithm>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/cli/CommandLine.h"
#include "workbench/cli/Failure.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/files/FileStage.h"
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

struct RunArguments {
  std::string script;
  std::vector<std::string> files;  // that FILE stands for in turn
  bool keepGoing = false;
  bool atomic = false;
};

/// Runs the lines of a script one by one, each with the options of the whole, for one file after the other.
class Script {
 public:
  Script(const RunArguments& arguments, Workplace& workplace)
      : arguments_(arguments),
        workplace_(workplace),
        options_(workplace.options),
        prefix_(workplace.prefix) {}

  ExitCode Run() {
    AtomicFile script = workplace_.FileAt(arguments_.script);
    name_ = script.Name();
    const std::string lines = script.Read();
    FileStage stage;
    if (arguments_.atomic) workplace_.StageIn(&stage);
    for (const std::string& file : Files()) {
      if (GoesOn()) RunFor(file, lines);
    }
    workplace_.StageIn(nullptr);
    workplace_.options = options_;
    workplace_.prefix = prefix_;
    workplace_.fileMeant.clear();
    workplace_.StartCommand();
    const std::vector<std::string> written = Written(stage);
    if (options_.json) {
      Tell(written);
    } else {
      Print(written);
    }
    return worst_;
  }

 private:
  std::vector<std::string> Files() const {
    return arguments_.files.empty() ? std::vector<std::string>{""} : arguments_.files;
  }
  bool GoesOn() const { return arguments_.keepGoing || worst_ == ExitCode::Done; }

  void RunFor(const std::string& file, const std::string& script) {
    workplace_.fileMeant = file;
    std::istringstream lines(script);
    int number = 0;
    for (std::string line; GoesOn() && std::getline(lines, line);) RunLine(++number, line);
  }

  void RunLine(int number, const std::string& line) {
    const std::string& file = workplace_.fileMeant;
    workplace_.prefix = Printable::Text(name_) + ":" + std::to_string(number) +
                        (file.empty() ? "" : " (" + Printable::Text(file) + ")") + ": ";
    workplace_.options = options_;
    workplace_.StartCommand();
    Json data;
    if (options_.json) workplace_.CollectIn(data);
    std::string verb;
    const std::optional<ExitCode> code = Carry(line, verb);
    workplace_.CollectNothing();
    if (!code) return;
    worst_ = std::max(worst_, *code);
    Json result = {{"line", number}};
    if (!file.empty()) result["file"] = file;
    if (!verb.empty()) result["verb"] = verb;
    result["exitCode"] = static_cast<int>(*code);
    if (workplace_.HasEmitted()) result["data"] = std::move(data);
    results_.Add(std::move(result));
  }

  /// Nothing for a line without a command.
  std::optional<ExitCode> Carry(const std::string& line, std::string& verb) {
    std::vector<std::string> words;
    try {
      words = WordCutter(line).Words();
    } catch (const UsageError&) {
      return Failure::OfCurrentException(workplace_).TellAt(workplace_);
    }
    if (words.empty()) return {};
    if (words.front() == "kd4410") words.erase(words.begin());
    const auto known = std::ranges::find_if(words, Verb::Exists);
    if (known != words.end()) verb = *known;
    return RunCommand(std::move(words), workplace_, true);
  }

  std::vector<std::string> Written(FileStage& stage) {
    if (worst_ != ExitCode::Done) return {};
    std::vector<std::string> written = stage.Publish();
    workplace_.NoteSaved(written.size());
    return written;
  }

  void Tell(const std::vector<std::string>& written) {
    Json data = {{"script", arguments_.script}, {"lines", std::move(results_)}};
    if (arguments_.atomic) data["written"] = Json(written);
    workplace_.Emit(std::move(data));
  }
  void Print(const std::vector<std::string>& written) const {
    if (!arguments_.atomic) return;
    for (const std::string& file : written) workplace_.Out() << "Saved: " << Printable::Text(file) << '\n';
    if (worst_ != ExitCode::Done) workplace_.Out() << "A line did not end with 0: nothing is saved.\n";
  }

  const RunArguments& arguments_;
  Workplace& workplace_;
  const Options options_;
  const std::string prefix_;
  std::string name_;
  ExitCode worst_ = ExitCode::Done;
  Json results_ = Json::List();
};

void Take(Words& words, RunArguments& given) {
  words.Required("SCRIPT", given.script, "The script; - reads it from standard input");
  words.ListOption("--file", given.files, "FILE",
                   "Have the word FILE stand for this file; given more than once, the script runs for each");
  words.Flag("--keep-going", given.keepGoing, "Go on after a line that does not end with 0");
  words.Flag("--atomic", given.atomic, "Save all files when every line has ended with 0, else none");
  words.Excludes("--atomic", "--keep-going");
}

ExitCode Run(const RunArguments& arguments, Workplace& workplace) {
  return Script(arguments, workplace).Run();
}

const Verb kRun(
    {.name = "run",
     .about = "Run the commands of a script, one a line",
     .details =
         "Words are separated by blanks; \"double quotes\" keep blanks together; # begins a comment. The "
         "script stops at the first line that does not end with 0, for all files; what the lines before "
         "it have saved stays saved. With --atomic nothing is saved then: lines read what earlier lines "
         "wrote, and all files are written at the end. The exit code is the highest of the lines that "
         "ran. FILE stands for the file of --file where a command takes a personality (also --out FILE), "
         "and nowhere else; a file of that name is ./FILE.",
     .inScripts = false,
     .examples = {{"Run the commands of edits.txt", "kd4410 run edits.txt"},
                  {"All of them, whatever one says", "kd4410 run edits.txt --keep-going --json"}}},
    Take, Run);

}  // namespace
