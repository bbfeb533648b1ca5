#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Types.h"

namespace CLI {
class App;
}

/// The words that a verb takes on the command line. A verb declares them, in the order of its help; each is
/// written to its place when a line with the verb is read. The places outlive this object. `about` is a line
/// of the help.
class Words {
 public:
  explicit Words(CLI::App& command) : command_(command) {}

  // By their place on the line.

  void Required(const char* name, std::string& word, const char* about);
  void Required(const char* name, RecordNr& number, const char* about);
  void Optional(const char* name, std::string& word, const char* about);
  /// Records count from 1; any other number is refused.
  void OptionalRecord(const char* name, RecordNr& record, const char* about);
  /// All words behind those that were declared, options among them.
  void Rest(std::vector<std::string>& words);

  // By their names ("--out"). `type` is what the help calls the value.

  void Flag(const char* name, bool& flag, const char* about);
  void Option(const char* name, std::string& value, const char* type, const char* about);
  void RequiredOption(const char* name, std::string& value, const char* type, const char* about);
  void RecordOption(const char* name, RecordNr& record, const char* about);
  /// May be given more than once.
  void ListOption(const char* name, std::vector<std::string>& values, const char* about);
  void NumberOption(const char* name, std::int64_t& value, std::int64_t lowest, std::int64_t highest,
                    const char* about);

  // Between words that were declared.

  void Needs(const char* name, const char* other);
  void Excludes(const char* name, const char* other);

  /// To be called when the line has been read.
  void TakeRest() const;

 private:
  CLI::App& command_;
  std::vector<std::string>* rest_ = nullptr;
};
