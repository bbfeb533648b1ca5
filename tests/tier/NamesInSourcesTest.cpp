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

/// The names in arrays of names.
void CollectLists(const std::string& code, const std::string& file, Places& names) {
  static const std::regex kArray(R"re(string_view k\w+\[\] =\s*\{([^}]*)\})re");
  static const std::regex kName(R"re("([^"]+)")re");
  for (std::sregex_iterator array(code.begin(), code.end(), kArray), end; array != end; ++array) {
    Collect(array->str(1), kName, file, names);
  }
}

TEST(NamesInSources, ResolveInTheSchema) {
  const std::regex fieldPatterns[] = {
      std::regex(R"re("(\d+\.[A-Za-z][^"\s]*)")re"),
      std::regex(R"re("([\w-]+_k6k)")re", std::regex::icase),
      std::regex(
          R"re(\b(?:Field|Set|Reload|RefreshField|ReloadList|DefaultValue|TransformIdOf|RefreshValues|Holds|Stored|HoldsCode|StoredValue|Text|Value|LabelOf|RefersHere|TextAfter|NumberAfter|Accepts|Bequeath)\((?:\w+, )?"([^"]+)")re"),
      std::regex(R"re(\bSet\("[^"]+",\s*"([^"]+)")re"),  // the form's name of a FieldId
      std::regex(
          R"re(\{\d*(?:, \w+, )?"([A-Za-z]\w+)",\s*(?:SignallingType::|MonitorOverrides::|kOff))re"),  // rows
      std::regex(R"re(\{5\d\d, \w+, "([^"]+)"\})re")};  // of a table
  const std::regex tablePattern(R"re(\b(?:Table|ClearTable|PadToCapacity)\((?:\w+, )?"([^"]+)")re");
  Places fields, tables;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCE_FOLDER)) {
    if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
    const std::string code = WithoutComments(ContentOf(entry.path()));
    const bool offersItems = entry.path().stem().string().ends_with("Lists");
    if (!offersItems) CollectLists(code, entry.path().filename(), fields);
    for (const std::regex& pattern : fieldPatterns) Collect(code, pattern, entry.path().filename(), fields);
    Collect(code, tablePattern, entry.path().filename(), tables);
  }
  EXPECT_GT(fields.size(), 60U) << "the sweep has gone blind";
  EXPECT_GT(tables.size(), 3U) << "the sweep has gone blind";
  const auto schema = ProjectSchemas()->At("KD4410.0094");
  std::erase_if(fields, [](const auto& entry) { return entry.first.starts_with("KD4410."); });  // versions
  for (const auto& [name, file] : fields) {
    EXPECT_NE(FindInAnyVersion(name), nullptr)
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
