#include "tests/workbench/JsonContract.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include "tests/workbench/FileHelpers.h"
#include "workbench/cli/Verb.h"

namespace {
using nlohmann::json;
using Adapter = valijson::adapters::NlohmannJsonAdapter;

/// What the schema refers to in the file that all share stands in the schema itself then.
void TakeIn(json& schema) {
  const std::string common = "common.schema.json#";
  if (schema.is_object() && schema.contains("$ref")) {
    std::string at = schema["$ref"];
    if (at.starts_with(common)) schema["$ref"] = at.substr(common.size() - 1);
  }
  if (schema.is_structured()) std::ranges::for_each(schema, TakeIn);
}

const valijson::Schema& SchemaOf(const std::string& verb) {
  static std::map<std::string, valijson::Schema> known;
  const auto [place, isNew] = known.try_emplace(verb);
  if (isNew) {
    json document = json::parse(ContentOf(JsonSchemaFile(verb)));
    TakeIn(document);
    document["definitions"] = json::parse(ContentOf(JsonSchemaFile("common")))["definitions"];
    valijson::SchemaParser().populateSchema(Adapter(document), place->second);
  }
  return place->second;
}

void ExpectObjectOf(const std::string& verb, const json& object) {
  EXPECT_EQ(object.value("format", 0), 1) << verb;
  valijson::ValidationResults problems;
  if (valijson::Validator().validate(SchemaOf(verb), Adapter(object), &problems)) return;
  std::string told;
  for (const auto& problem : problems) {
    for (const std::string& part : problem.context) told += part;
    told += ": " + problem.description + '\n';
  }
  ADD_FAILURE() << verb << " --json is not as its schema tells:\n" << told << object.dump(2).substr(0, 2000);
}

void ExpectLinesOf(const json& script) {
  for (const json& line : script.value("lines", json::array())) {
    if (!line.contains("data")) continue;
    const json& data = line["data"];
    const std::string verb = line.value("verb", "run");
    for (const json& object : data.is_array() ? data : json::array({data})) ExpectObjectOf(verb, object);
  }
}

/// Of a command that records another one, the other one's.
std::string VerbOf(const std::vector<std::string>& words) {
  const auto isVerb = [](const std::string& word) { return word != "record" && Verb::Exists(word); };
  const auto verb = std::ranges::find_if(words, isVerb);
  return verb == words.end() ? "run" : *verb;  // any: the words are wrong, and what is printed is the error
}
}  // namespace

std::string JsonSchemaFile(const std::string& verb) {
  return SAMPLES_FOLDER "/../docs/json/" + verb + ".schema.json";
}

void ExpectDocumented(const std::vector<std::string>& words, const std::string& printed) {
  const auto asks = [&](const char* word) { return std::ranges::find(words, word) != words.end(); };
  if (!asks("--json") || asks("--help")) return;
  const std::string verb = VerbOf(words);
  EXPECT_TRUE(printed.starts_with("{\n  \"format\": 1,") || printed.starts_with("{\"format\":1,")) << printed;
  std::istringstream lines(printed);
  const bool hasLines = printed.starts_with("{\"");  // a line for each of many files
  for (std::string line; std::getline(lines, line, hasLines ? '\n' : '\0');) {
    const json object = json::parse(line);
    ExpectObjectOf(verb, object);
    if (verb == "run") ExpectLinesOf(object);
  }
}
