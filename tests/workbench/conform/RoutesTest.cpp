#include <gtest/gtest.h>

#include <iostream>
#include <regex>
#include <set>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "validation/modvalEnablement.h"
#include "validation/modvalFields.h"
#include "workbench/conform/Calls.h"
#include "workbench/conform/Operations.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/jobs/Forms.h"
#include "workbench/personality/PersonalityFile.h"

/// The tier's dispatch tables beside the calls that a conformance run makes: no row may stay without a call.
namespace {
using Conform::Subject;
using Routes = std::set<std::string>;

/// What the first group of the pattern matches in the rows of a table of the sources.
void AddRows(const std::string& source, const std::string& table, const char* pattern,
             const std::string& kind, Routes& routes) {
  const std::string code = ContentOf(SOURCE_FOLDER "/" + source);
  const std::size_t start = code.find(table);
  ASSERT_NE(start, std::string::npos) << table << " is not in " << source;
  const std::string rows = code.substr(start, code.find("\n};", start) - start);
  const std::regex row(pattern);
  const std::size_t before = routes.size();
  for (std::sregex_iterator match(rows.begin(), rows.end(), row), end; match != end; ++match) {
    routes.insert(kind + UpperCase(match->str(1)));
  }
  EXPECT_GT(routes.size(), before + 1) << source << ": the sweep has gone blind";
}

Routes AllRoutes() {
  Routes routes;
  for (const std::string_view uiid : modvalFields::UIIDs()) routes.insert("rule " + std::string(uiid));
  for (const auto& row : modvalEnablement::Rows()) routes.insert("state " + UpperCase(row.uiid));
  AddRows("provider/modTransformations.cpp", "kTransformations[]", R"(\{(\d+), )", "transformation ", routes);
  AddRows("provider/modComboItems.cpp", "kLists[]", R"(\{(\d+), )", "list ", routes);
  AddRows("validation/modvalForms.cpp", "kForms[]", R"re(\{"(\w+)", )re", "form ", routes);
  AddRows("provider/GridRecords.cpp", "kGrids[]", R"re(name = "(\w+)")re", "grid ", routes);
  for (const VersionName& version : SchemaFiles::Versions()) {
    if (version.number != SchemaFiles::VersionsOf(version.model).front().number) {
      routes.insert("version " + UpperCase(version.Text()));
    }
  }
  return routes;
}

std::string RouteOf(const Conform::Call& call, const Schema& schema) {
  const SchemaField* field = schema.Find(call.name);
  const std::string transformation = field == nullptr ? "" : std::to_string(field->transform);
  switch (call.operation->subject) {
    case Subject::FieldRule:
      return "rule " + UpperCase(call.name);
    case Subject::ControlState:
      return "state " + UpperCase(call.name);
    case Subject::Transformation:
      return "transformation " + transformation;
    case Subject::ComboList:
      return "list " + transformation;
    case Subject::Form:
      return "form " + UpperCase(call.name);
    case Subject::Grid:
      return "grid " + UpperCase(call.name);
    case Subject::VersionPair:
      return "version " + UpperCase(call.name);
    case Subject::Whole:
      break;
  }
  return {};
}

/// No field of any version has these numbers: no host comes that way.
const Routes kWithoutField = {"list 566", "transformation 530", "transformation 549"};

TEST(Routes, EachIsTakenByTheConformanceRun) {
  Routes missing = AllRoutes();
  for (const std::string& route : kWithoutField) EXPECT_EQ(missing.erase(route), 1U) << route;
  const std::size_t count = missing.size();
  const std::string full = Sample("full");
  const auto stored = PersonalityFile::Parse(full, ContentOf(full), *ProjectSchemas());
  for (const VersionName& version : SchemaFiles::Versions()) {
    Conform::Bench bench(ProjectParts(), *SharedContent(*ProjectSchemas(), *stored, version.Text()));
    for (const Conform::Call& call : Conform::AllCallsOn(bench)) {
      const std::string route = RouteOf(call, bench.Content().GetSchema());
      EXPECT_FALSE(kWithoutField.contains(route)) << route;
      if (call.isLegal) missing.erase(route);
    }
  }
  EXPECT_TRUE(missing.empty()) << testing::PrintToString(missing);
  std::cout << "routes: " << count - missing.size() << " of " << count << '\n';
}
}  // namespace
