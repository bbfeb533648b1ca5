#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"

/// A name that no schema knows is found at run time only, in the hands of a user; so all names in the sources
/// are looked up here.
namespace {
using Places = std::map<std::string, std::string>;  // name, file that has it

std::string ContentOf(const std::filesystem::path& path) {
  std::ostringstream content;
  content << std::ifstream(path).rdbuf();
  return content.str();
}

/// The code without comments; literals stay.
std::string WithoutComments(const std::string& code) {
  static const std::regex kPieces(R"re("(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)+'|//[^\n]*|/\*[\s\S]*?\*/)re");
  std::string result;
  std::string::const_iterator rest = code.begin();
  for (std::sregex_iterator piece(code.begin(), code.end(), kPieces), end; piece != end; ++piece) {
    result.append(rest, (*piece)[0].first);
    if (piece->str()[0] != '/') result += piece->str();
    rest = (*piece)[0].second;
  }
  return result.append(rest, code.end());
}

/// Adds what the groups of the pattern match, split at vertical bars.
void Collect(const std::string& code, const std::regex& pattern, const std::string& file, Places& names) {
  for (std::sregex_iterator match(code.begin(), code.end(), pattern), end; match != end; ++match) {
    for (std::size_t group = 1; group < match->size(); ++group) {
      std::istringstream list(match->str(group));
      for (std::string name; std::getline(list, name, '|');) names.emplace(name, file);
    }
  }
}

struct NamesInSources {
  Places fields, tables;
};

NamesInSources Sweep() {
  static const std::regex kFieldId(R"re("(\d+\.[A-Za-z][^"\s]*)")re");
  static const std::regex kFieldName(
      R"re(\b(?:Field|Set|SetFieldEnabled|RefreshField|ReloadList|DefaultValue|TransformIdOf|RefreshValues)\((?:\w+, )?"([^"]+)")re");
  static const std::regex kSecondName(R"re(\bSet\("[^"]+",\s*"([^"]+)")re");  // the form's name of a FieldId
  static const std::regex kTable(R"re(\b(?:Table|ClearTable|PadToCapacity)\((?:\w+, )?"([^"]+)")re");
  NamesInSources names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCE_FOLDER)) {
    const std::string extension = entry.path().extension();
    if (extension != ".cpp" && extension != ".h") continue;
    const std::string code = WithoutComments(ContentOf(entry.path()));
    const std::string file = std::filesystem::relative(entry.path(), SOURCE_FOLDER).string();
    for (const auto* pattern : {&kFieldId, &kFieldName, &kSecondName})
      Collect(code, *pattern, file, names.fields);
    Collect(code, kTable, file, names.tables);
  }
  return names;
}

TEST(NamesInSources, ResolveInTheNewestSchema) {
  const NamesInSources names = Sweep();
  EXPECT_GT(names.fields.size(), 60U) << "the sweep has gone blind";
  EXPECT_GT(names.tables.size(), 3U) << "the sweep has gone blind";
  const auto schema = ProjectSchemas()->At("KD4410.0094");
  for (const auto& [name, file] : names.fields) {
    EXPECT_NE(schema->Find(name), nullptr)
        << name << " in " << file << (schema->IsAmbiguous(name) ? ", ambiguous" : "");
  }
  for (const auto& [name, file] : names.tables) {
    EXPECT_TRUE(IsNumeric(name) && schema->FindTable(CLng(name)) != nullptr)
        << "table " << name << " in " << file;
  }
}

TEST(NamesInSources, TheSweepSeesLiteralsAndNoComments) {
  EXPECT_EQ(WithoutComments("a(\"// x\"); // \"5.A\"\n/* \"5.B\" */ '\"' \"\\\"//\""),
            "a(\"// x\"); \n '\"' \"\\\"//\"");
}
}  // namespace
