#include "workbench/cli/Completion.h"

#include <algorithm>

#include "workbench/cli/Sections.h"
#include "workbench/conform/Check.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/RecordEdits.h"
#include "workbench/schema/Schema.h"

namespace {

using Lister = std::vector<std::string> (*)();

std::vector<std::string> Shells() { return {Completion::kShells.begin(), Completion::kShells.end()}; }

std::vector<std::string> Sections() {
  const auto sections = ShownSections();
  return {sections.begin(), sections.end()};
}

std::vector<std::string> GridWords() {
  std::vector<std::string> words;
  for (const Grid& grid : Grids::All()) words.emplace_back(grid.word);
  return words;
}

std::vector<std::string> FormTitles() {
  std::vector<std::string> titles;
  for (const Form& form : Forms::All()) titles.emplace_back(form.title);
  return titles;
}

std::vector<std::string> Versions() {
  std::vector<std::string> versions;
  for (const VersionName& version : SchemaFiles::Versions()) versions.push_back(version.Text());
  return versions;
}

std::vector<std::string> Models() {
  std::vector<std::string> models;
  for (const VersionName& version : SchemaFiles::Versions()) {
    if (models.empty() || models.back() != version.model) models.push_back(version.model);
  }
  return models;
}

std::vector<std::string> CheckNames() {
  std::vector<std::string> names;
  for (const Conform::Check& check : Conform::AllChecks()) names.emplace_back(check.name);
  return names;
}

std::vector<std::string> AnswerWords() { return {"yes", "no", "cancel"}; }

enum class Source { Files, Folders, Fields, Commands, Words };

/// By the name of what is typed. No others are completed.
constexpr struct {
  std::string_view typed;
  Source source;
  Lister words = nullptr;
} kKinds[] = {
    {"FILE", Source::Files},
    {"A", Source::Files},
    {"B", Source::Files},
    {"SCRIPT", Source::Files},
    {"TRACE", Source::Files},
    {"RADIO", Source::Files},
    {"PATH", Source::Files},
    {"LIST", Source::Files},
    {"yes|no|FILE", Source::Files, AnswerWords},
    {"DIR", Source::Folders},
    {"UIID", Source::Fields},
    {"FIELD", Source::Fields},
    {"COMMAND", Source::Commands},
    {"SHELL", Source::Words, Shells},
    {"WHAT", Source::Words, Sections},
    {"GRID", Source::Words, GridWords},
    {"FORM", Source::Words, FormTitles},
    {"VERSION", Source::Words, Versions},
    {"MODEL", Source::Words, Models},
    {"CHECK", Source::Words, CheckNames},
};

}  // namespace

namespace Completion {

std::string ScriptFor(std::string_view shell, const Manual& manual) {
  constexpr std::string (*kScripts[])(const Manual&) = {ForBash, ForZsh, ForFish};
  const auto place = std::ranges::find(kShells, shell) - kShells.begin();
  return kScripts[static_cast<std::size_t>(place)](manual);
}

Offer OfferFor(const Manual& manual, const Word& word) {
  Offer offer;
  for (const auto& kind : kKinds) {
    if (kind.typed != word.Typed()) continue;
    offer.files = kind.source == Source::Files;
    offer.folders = kind.source == Source::Folders;
    offer.fields = kind.source == Source::Fields;
    offer.commands = kind.source == Source::Commands;
    if (kind.words != nullptr) offer.words = kind.words();
  }
  if (!offer.commands) return offer;
  for (const Manual::Command& command : manual.commands) offer.words.emplace_back(command.text.name);
  return offer;
}

bool IsNested(const Word& word) { return word.isRepeated && word.name == "COMMAND"; }

std::vector<std::string> NamesOf(const Word& option) {
  const auto comma = option.name.find(',');
  if (comma == std::string::npos) return {option.name};
  return {option.name.substr(comma + 1), option.name.substr(0, comma)};
}

std::string Escaped(std::string_view text, std::string_view characters, std::string_view escape) {
  std::string escaped;
  for (const char c : text) {
    if (characters.find(c) != std::string_view::npos) escaped += escape;
    escaped += c;
  }
  return escaped;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + '\'';
}

}  // namespace Completion
