#include "workbench/cli/Words.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "workbench/files/Printable.h"
#include "workbench/files/TabbedFile.h"

namespace {
/// Why the text is no whole number; empty when it is one.
std::string NoNumber(const std::string& text) {
  if (ParseInteger(text)) return {};
  return Printable::Quoted(text) + " is no whole number";
}

/// Why the text is no record; empty when it may be one.
std::string NoRecord(const std::string& text) {
  const std::optional<RecordNr> record = ParseInteger(text);
  return record && *record < 1 ? "records count from 1" : NoNumber(text);
}
}  // namespace

void Words::TakeFile(CLI::Option& option, std::string_view called) const {
  constexpr std::string_view kFiles[] = {"FILE", "A", "B"};
  if (fileMeant_.empty() || std::ranges::find(kFiles, called) == std::end(kFiles)) return;
  option.transform([meant = fileMeant_](const std::string& word) { return word == "FILE" ? meant : word; });
}

void Words::Required(const char* name, std::string& word, const char* about) {
  TakeFile(*command_.add_option(name, word, about)->required(), name);
  Note({.name = name, .about = about, .isRequired = true});
}

void Words::Required(const char* name, RecordNr& number, const char* about) {
  command_.add_option(name, number, about)->required()->check(NoNumber);
  Note({.name = name, .about = about, .isRequired = true});
}

void Words::Optional(const char* name, std::string& word, const char* about) {
  TakeFile(*command_.add_option(name, word, about), name);
  Note({.name = name, .about = about});
}

void Words::Many(const char* name, std::vector<std::string>& words, const char* about) {
  TakeFile(*command_.add_option(name, words, about)->take_all(), name);
  Note({.name = name, .about = about, .isRepeated = true});
}

void Words::OptionalRecord(const char* name, RecordNr& record, const char* about) {
  command_.add_option(name, record, about)->check(NoRecord);
  Note({.name = name, .about = about});
}

void Words::Rest(const char* name, std::vector<std::string>& words, const char* about) {
  command_.fallthrough(false);  // options are the rest's
  command_.prefix_command();
  rest_ = &words;
  Note({.name = name, .about = about, .isRequired = true, .isRepeated = true});
}

void Words::TakeRest() const {
  if (rest_ != nullptr) *rest_ = command_.remaining();
}

void Words::Flag(const char* name, bool& flag, const char* about) {
  command_.add_flag(name, flag, about);
  Note({.name = name, .about = about});
}

void Words::Option(const char* name, std::string& value, const char* type, const char* about) {
  TakeFile(*command_.add_option(name, value, about)->type_name(type), type);
  Note({.name = name, .value = type, .about = about});
}

void Words::RequiredOption(const char* name, std::string& value, const char* type, const char* about) {
  command_.add_option(name, value, about)->type_name(type)->required();
  Note({.name = name, .value = type, .about = about, .isRequired = true});
}

void Words::RecordOption(const char* name, RecordNr& record, const char* about) {
  command_.add_option(name, record, about)->type_name("N")->check(NoRecord);
  Note({.name = name, .value = "N", .about = about});
}

void Words::ListOption(const char* name, std::vector<std::string>& values, const char* type,
                       const char* about) {
  command_.add_option(name, values, about)->type_name(type)->take_all()->allow_extra_args(false);
  Note({.name = name, .value = type, .about = about, .isRepeated = true});
}

void Words::NumberOption(const char* name, std::int64_t& value, std::int64_t lowest, std::int64_t highest,
                         const char* about) {
  command_.add_option(name, value, about)->check(CLI::Range(lowest, highest).description(""));
  Note({.name = name, .value = "N", .about = about});
}

void Words::Needs(const char* name, const char* other) {
  command_.get_option(name)->needs(command_.get_option(other));
}

void Words::Excludes(const char* name, const char* other) {
  command_.get_option(name)->excludes(command_.get_option(other));
}
