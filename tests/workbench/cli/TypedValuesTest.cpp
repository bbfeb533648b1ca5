#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <random>
#include <set>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/InProcessCommand.h"
#include "tests/workbench/StoredChanges.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"

namespace {
using nlohmann::json;

/// So many edits of each sample; the long proofs ask for all (0).
int EditCount() {
  constexpr int kFew = 40;
  const char* told = std::getenv("KD4410_TYPED_COUNT");
  return told == nullptr ? kFew : std::atoi(told);
}

/// What people type by mistake, paste from elsewhere, or try.
// clang-format off
const std::string kNasty[] = {
    "", " ", "0", " 1 ", "2", "-1", "+5", "--5", "5-", "00", "007", "3.5", "3,5", ".5", "5.", "1 000",
    "1,000", "0x10", "1e9", "1E1", "1e-400", "NaN", "inf", "-inf", "255", "256", "999", "1000", "32768",
    "65536", "2147483648", "-2147483649", "99999999999999999999", "103.5", "C103.5", "D023", "460.5",
    "460.50001", "460.5 MHz", "None", "none", "Undefined", "True", "yes", "off", "No Action", "abc", "G",
    "V", "1b2", "#*", "\xC3\xA4", "\xE2\x82\xAC", "\xD9\xA3", "\xC2\xBD", "\xFF", "\x01", "a\tb", "a\nb",
    "\"", "'", "\\", "%0:S", std::string(33, '1'), std::string(1000, 'A'),
};
// clang-format on

struct TypedEdit {
  std::string uiid;
  RecordNr record;
  std::string value;
  const char* answer;
  const SchemaField* field;
};

class TypedValues : public InProcessCommand, public testing::WithParamInterface<const char*> {
 protected:
  static std::vector<std::string> ValuesFor(const SchemaField& field) {
    std::vector<std::string> values(std::begin(kNasty), std::end(kNasty));
    for (const std::int32_t limit : {field.minimum, field.maximum}) {
      for (const std::int32_t near : {limit - 1, limit, limit + 1}) values.push_back(std::to_string(near));
    }
    return values;
  }
  std::vector<TypedEdit> Edits(const Provider& content) const {
    std::vector<TypedEdit> edits;
    for (const SchemaField& field : content.GetSchema().Fields()) {
      const RecordNr count = content.Count(field.table);
      if (count == 0) continue;
      for (const std::string& uiid : field.uiids) {
        for (const std::string& value : ValuesFor(field)) {
          const RecordNr record = 1 + static_cast<RecordNr>(edits.size() / 2) % count;
          for (const char* answer : {"yes", "no"}) edits.push_back({uiid, record, value, answer, &field});
        }
      }
    }
    std::shuffle(edits.begin(), edits.end(), std::mt19937(1));
    if (EditCount() > 0) edits.resize(static_cast<std::size_t>(EditCount()));
    return edits;
  }
  /// Whether the field reads as what was typed, by its spelling, as a number, or by the word of its code.
  static bool Reads(const TypedEdit& edit, const json& told) {
    const std::string text = told["now"].is_string() ? told["now"].get<std::string>() : told["now"].dump();
    const std::string typed(Trim(edit.value));
    if (text == edit.value) return true;
    if (IsNumericText(text) && IsNumericText(typed)) return *ParseNumber(text) == *ParseNumber(typed);
    std::set<std::string> meant = {UpperCase(text), UpperCase(told.value("nowWord", text))};
    if (meant.contains("YES")) meant.insert({"ON", "TRUE"});
    if (meant.contains("NO")) meant.insert({"OFF", "FALSE"});
    if (meant.contains("")) meant.insert({"NONE", "UNDEFINED"});
    return meant.contains(UpperCase(typed)) || IsSpelledAnew(*edit.field, text, UpperCase(typed));
  }
  /// A number in hexadecimal gets zeros at its head; among tones "G" is the group tone of the system.
  static bool IsSpelledAnew(const SchemaField& field, const std::string& text, const std::string& typed) {
    const std::size_t zeros = text.size() - std::min(text.size(), typed.size());
    if (field.IsHexadecimal() && zeros > 0) return text == std::string(zeros, '0') + typed;
    return field.validation.find('G') != std::string::npos &&
           std::ranges::equal(text, typed, [](char a, char b) { return a == b || a == 'G'; });
  }
  /// The tables whose records stand elsewhere: laid out anew, with pointers that follow them, or with records
  /// that come or go.
  static std::set<std::string> MovedTables(const json& told) {
    std::set<std::string> tables;
    for (const json& table : told["laidOutAnew"]) tables.insert(table.dump());
    for (const json& one : told["followed"]) tables.insert(one["table"].dump());
    for (const json& one : told["stored"]) {
      if (one["storedBefore"].is_null() || one["storedAfter"].is_null()) tables.insert(one["table"].dump());
    }
    return tables;
  }
  void Try(const TypedEdit& edit) {
    const ExitCode code = Run({"set", "--json", "--answer", edit.answer, "--", path, edit.uiid,
                               std::to_string(edit.record), edit.value});
    const std::string after = ContentOf(path);
    const json told = json::parse(out.str());
    if (code == ExitCode::Done) {
      EXPECT_TRUE(Reads(edit, told) || !told["messages"].empty()) << told["now"];
      const std::set<std::string> moved = MovedTables(told);
      EXPECT_EQ(StoredChanges(told["stored"], moved), StoredChanges(before, after, moved));
    } else {
      EXPECT_EQ(code, ExitCode::No) << messages;
      EXPECT_TRUE(after == before);
      EXPECT_TRUE(told.contains("refusal") || !told["messages"].empty()) << told;
    }
    if (after != before) folder.Write("p.json", before);
  }

  std::string before, path;
};

TEST_P(TypedValues, AreStoredAsTypedAndToldOrRefused) {
  before = ContentOf(Sample(GetParam()));
  path = folder.Write("p.json", before);
  Session session(ProjectParts(), PersonalityFile::Parse(path, before, *ProjectSchemas()),
                  std::make_shared<ScriptedMessenger>());
  session.ConvertToForms();
  for (const TypedEdit& edit : Edits(session.Content())) {
    SCOPED_TRACE(edit.uiid + " " + std::to_string(edit.record) + " \"" + edit.value.substr(0, 40) + "\" " +
                 edit.answer);
    Try(edit);
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, TypedValues,
                         testing::Values("full", "city-fleet", "harbour-0081", "harbour-0054"),
                         [](const auto& sample) {
                           std::string name = sample.param;
                           std::erase(name, '-');
                           return name;
                         });

}  // namespace
