#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Types.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

/// A word that a line may have, as help and completion tell of it.
struct Word {
  std::string name = {};   ///< "FILE", "--out"; of an option with two names "-h,--help"
  std::string value = {};  ///< what stands behind an option ("VERSION"); empty for a flag
  std::string about = {};  ///< a sentence
  bool isRequired = false;
  bool isRepeated = false;  ///< may be given more than once

  bool IsOption() const { return name.starts_with('-'); }
  /// What is typed for it, which tells of which kind it is: its own name or the value of an option.
  const std::string& Typed() const { return IsOption() ? value : name; }
};

/// The words that a verb takes on the command line. A verb declares them, in the order of its help; each is
/// written to its place when a line with the verb is read. The places outlive this object. `about` is a line
/// of the help.
class Words {
 public:
  /// `fileMeant`: the file that the word FILE stands for where the verb takes a file; empty for none.
  explicit Words(CLI::App& command, std::string fileMeant = {})
      : command_(command), fileMeant_(std::move(fileMeant)) {}

  // By their place on the line. The name tells what the word is ("FILE", "UIID", "GRID"), for completion.

  void Required(const char* name, std::string& word, const char* about);
  void Required(const char* name, RecordNr& number, const char* about);
  void Optional(const char* name, std::string& word, const char* about);
  /// Records count from 1; any other number is refused.
  void OptionalRecord(const char* name, RecordNr& record, const char* about);
  /// Any number of them, also none.
  void Many(const char* name, std::vector<std::string>& words, const char* about);
  /// All words behind those that were declared, options among them: those of another command.
  void Rest(const char* name, std::vector<std::string>& words, const char* about);

  // By their names ("--out"). `type` is what the help calls the value, and tells what it is ("FILE").

  void Flag(const char* name, bool& flag, const char* about);
  void Option(const char* name, std::string& value, const char* type, const char* about);
  void RequiredOption(const char* name, std::string& value, const char* type, const char* about);
  void RecordOption(const char* name, RecordNr& record, const char* about);
  /// May be given more than once.
  void ListOption(const char* name, std::vector<std::string>& values, const char* type, const char* about);
  void NumberOption(const char* name, std::int64_t& value, std::int64_t lowest, std::int64_t highest,
                    const char* about);

  // Between words that were declared.

  void Needs(const char* name, const char* other);
  void Excludes(const char* name, const char* other);

  /// What was declared, in its order.
  const std::vector<Word>& Declared() const { return declared_; }

  /// To be called when the line has been read.
  void TakeRest() const;

 private:
  void Note(Word word) { declared_.push_back(std::move(word)); }
  /// Lets the word FILE stand for the file that is meant, where `called` tells that files go there.
  void TakeFile(CLI::Option& option, std::string_view called) const;

  CLI::App& command_;
  std::string fileMeant_;
  std::vector<Word> declared_;
  std::vector<std::string>* rest_ = nullptr;
};
