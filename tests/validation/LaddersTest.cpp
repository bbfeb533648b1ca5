#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "validation/modvalEnablement.h"
#include "validation/modvalFields.h"
#include "workbench/PersonalityFile.h"
#include "workbench/Session.h"

/// Every row of the ladders, against whole personalities.
namespace {
/// Lower case, as no row is written.
std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return lower;
}

class Ladders : public testing::TestWithParam<const char*> {
 protected:
  std::shared_ptr<Provider> Content() const {
    const std::string name = GetParam();
    if (name.starts_with("KD4410") || name.starts_with("KE2210"))
      return NewPersonality(*ProjectSchemas(), name);
    const std::string path = SAMPLES_FOLDER "/" + name;
    return PersonalityFile::Parse(path, ContentOf(path), *ProjectSchemas());
  }
};

TEST_P(Ladders, AnswerForEveryRowWithoutAFault) {
  const auto messenger = std::make_shared<RecordingMessenger>();  // questions: No
  Session session(ProjectParts(), Content(), messenger);
  session.ConvertToForms();
  Provider& content = session.Content();
  TierHost& host = session.Host();
  Boolean answer = kFalse;
  for (const auto& row : modvalEnablement::Rows()) {
    for (const RecordNr record : {0, 1, 2, 5000}) {
      host.Require(host.Validator().GetEnabledStatebyUIID(Lower(row.uiid), record, answer));
    }
  }
  for (const std::string_view uiid : modvalFields::UIIDs()) {
    const SchemaField* field = content.GetSchema().Find(uiid);
    if (field == nullptr) continue;  // of a newer version
    for (RecordNr record = 1; record <= content.Count(field->table); ++record) {
      for (const Variant& value : {content.Get(*field, record), Variant(0), Variant("1"), Variant(2)}) {
        Journal journal(content);
        Variant left = value;
        host.Require(host.Validator().ValidateByUIID(Lower(uiid), left, record, answer));
        journal.Rollback();
      }
    }
  }
  host.Require(host.Validator().GetEnabledStatebyUIID("NoSuchControl", 1, answer));
  EXPECT_EQ(answer, kTrue);
  Variant value("anything");
  host.Require(host.Validator().ValidateByUIID("NoSuchControl", value, 1, answer));
  EXPECT_EQ(answer, kTrue);
}

INSTANTIATE_TEST_SUITE_P(Personalities, Ladders,
                         testing::Values("KD4410.0029", "KD4410.0094", "KE2210 Rx.0088", "minimal.json",
                                         "marine-harbour.json", "full.json"));

/// A row whose name no schema knows would never be asked for. One rule is of an old version alone.
TEST(LadderRows, AreControlsOfTheForms) {
  const auto newest = ProjectSchemas()->At("KD4410.0094");
  const auto old = ProjectSchemas()->At("KD4410.0081");
  const auto isKnown = [&](std::string_view uiid) {
    return newest->Find(uiid) != nullptr || old->Find(uiid) != nullptr;
  };
  for (const auto& row : modvalEnablement::Rows()) EXPECT_TRUE(isKnown(row.uiid)) << row.uiid;
  for (const std::string_view uiid : modvalFields::UIIDs()) EXPECT_TRUE(isKnown(uiid)) << uiid;
}
}  // namespace
