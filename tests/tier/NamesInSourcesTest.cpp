#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <sstream>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"

/// A name that no schema knows is found at run time only, in the hands of a user; so all names in the sources
/// are looked up here.
namespace {
using Places = std::map<std::string, std::string>;  // name, file that has it

/// The code without comments; literals stay.
std::string WithoutComments(const std::string& code) {
  static const std::regex kPieces(R"re(("(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)+')|//[^\n]*|/\*[\s\S]*?\*/)re");
  return std::regex_replace(code, kPieces, "$1");
}

/// Adds what the group of the pattern matches, split at vertical bars.
void Collect(const std::string& code, const std::regex& pattern, const std::string& file, Places& names) {
  for (std::sregex_iterator match(code.begin(), code.end(), pattern), end; match != end; ++match) {
    std::istringstream list(match->str(1));
    for (std::string name; std::getline(list, name, '|');) names.emplace(name, file);
  }
}

TEST(NamesInSources, ResolveInTheNewestSchema) {
  const std::regex fieldPatterns[] = {
      std::regex(R"re("(\d+\.[A-Za-z][^"\s]*)")re"), std::regex(R"re("([\w-]+_k6k)")re", std::regex::icase),
      std::regex(
          R"re(\b(?:Field|Set|Enable|RefreshField|ReloadList|DefaultValue|TransformIdOf|RefreshValues)\((?:\w+, )?"([^"]+)")re"),
      std::regex(R"re(\bSet\("[^"]+",\s*"([^"]+)")re"),       // the form's name of a FieldId
      std::regex(R"re(\{"([^"]+)",\s*SignallingType::)re")};  // rows of a table
  const std::regex tablePattern(R"re(\b(?:Table|ClearTable|PadToCapacity)\((?:\w+, )?"([^"]+)")re");
  Places fields, tables;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCE_FOLDER)) {
    if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
    const std::string code = WithoutComments(ContentOf(entry.path()));
    for (const std::regex& pattern : fieldPatterns) Collect(code, pattern, entry.path().filename(), fields);
    Collect(code, tablePattern, entry.path().filename(), tables);
  }
  EXPECT_GT(fields.size(), 60U) << "the sweep has gone blind";
  EXPECT_GT(tables.size(), 3U) << "the sweep has gone blind";
  const auto schema = ProjectSchemas()->At("KD4410.0094");
  for (const auto& [name, file] : fields) {
    EXPECT_NE(schema->Find(name), nullptr)
        << name << " in " << file << (schema->IsAmbiguous(name) ? ", ambiguous" : "");
  }
  for (const auto& [name, file] : tables)
    EXPECT_TRUE(IsNumeric(name) && schema->FindTable(CLng(name)) != nullptr) << name << " in " << file;
}

TEST(NamesInSources, TheSweepSeesLiteralsAndNoComments) {
  EXPECT_EQ(WithoutComments("a(\"// x\"); // \"5.A\"\n/* \"5.B\" */ '\"' \"\\\"//\""),
            "a(\"// x\"); \n '\"' \"\\\"//\"");
}
}  // namespace
