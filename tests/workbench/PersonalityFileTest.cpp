#include "workbench/PersonalityFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "support/TierFixture.h"
#include "workbench/AtomicFile.h"
#include "workbench/FileError.h"

namespace {

using testing::HasSubstr;

std::shared_ptr<Provider> Parse(std::string_view document) {
  return PersonalityFile::Parse("p.json", document, *ProjectSchemas());
}

/// A document with the text as its tables.
std::string WithTables(const std::string& tables) {
  return "{\n\"format\": \"KD4410 personality\",\n\"version\": \"KD4410.0094\",\n\"tables\": {\n" + tables +
         "}}";
}

std::string RefusalOf(std::string_view document) {
  try {
    Parse(document);
  } catch (const FileError& error) {
    return error.what();
  }
  return "accepted";
}

TEST(PersonalityFile, ReadingAndWritingGivesTheSameBytes) {
  for (const char* name : {"minimal", "marine-harbour", "city-fleet", "full"}) {
    const std::string document = AtomicFile(std::string(SAMPLES_FOLDER) + "/" + name + ".json").Read();
    EXPECT_TRUE(PersonalityFile::Format("p.json", *Parse(document)) == document) << name;
  }
}

TEST(PersonalityFile, NamesLinePlaceAndReasonOfWhatItRefuses) {
  const std::pair<std::string, std::string> cases[] = {
      // the form of the document
      {"", "p.json:1: the file is empty"},
      {" \n ", "p.json:1: the file is empty"},
      {"[1]", "p.json:1: an object is expected here, not an array"},
      {"{\n\"format\": \"something\"}", "p.json:2: format: \"something\" is not \"KD4410 personality\""},
      {"{\n\"name\": 1}", "p.json:2: name: unknown name"},
      {"{\n\n\"version\": 94}", "p.json:3: version: a text is expected here, not a number"},
      {"{\"version\": \"KD4410.0030\"}", "p.json:1: version: "},
      {"{\"version\": \"KD4410.0030\"}", "KD4410.0029"},  // the known ones are listed
      {"{\"format\": \"KD4410 personality\", \"tables\": {}}", "\"version\" has to stand before the tables"},
      {"{\n\"version\": \"KD4410.0094\",\n\"version\": \"KD4410.0094\"}", "p.json:3: version: given twice"},
      {"{\"version\": \"KD4410.0094\"}", "\"format\" is missing"},
      {"{\"format\": \"KD4410 personality\", \"version\": \"KD4410.0094\"}", "\"tables\" is missing"},
      {WithTables("") + "x", "p.json:5: "},
      // tables
      {WithTables("\"6\": []"), "p.json:5: tables.6: version KD4410.0094 has no such table"},
      {WithTables("\"05\": []"), "tables.05: version KD4410.0094 has no such table"},
      {WithTables("\"1107\": []"), "tables.1107: the table is one of the forms"},
      {WithTables("\"7\": [],\n\"7\": []"), "p.json:6: tables.7: given twice"},
      {WithTables("\"7\": {}"), "tables.7: an array of records is expected here, not an object"},
      {WithTables("\"7\": [1]"), "tables.7: an object is expected here, not a number"},
      {WithTables("\"21\": []"), "tables.21: the table has 0 records, it needs at least 1"},
      {WithTables("\"34\": [{},\n{}]"), "p.json:6: tables.34[2]: the table holds at most 1 records"},
      // fields
      {WithTables("\"5\": [{},\n{\"Frequency\": 1}]"),
       "p.json:6: tables.5[2].Frequency: the table has no such field"},
      {WithTables("\"5\": [{\"ChannelTxFreqUI\": \"1\"}]"),
       "tables.5[1].ChannelTxFreqUI: the field is one of the forms"},
      {WithTables("\"5\": [{\"TxPower_k6k\": 1,\n\"TxPower_k6k\": 1}]"),
       "p.json:6: tables.5[1].TxPower_k6k: given twice"},
      {WithTables("\"5\": [{\n\"TxPower_k6k\": \"1\"}]"),
       "p.json:6: tables.5[1].TxPower_k6k: an integer is expected here, not a text"},
      {WithTables("\"5\": [{\"TxPower_k6k\": 1.5}]"), "an integer is expected here, not the number 1.5"},
      {WithTables("\"5\": [{\"TxPower_k6k\": null}]"), "an integer is expected here, not null"},
      {WithTables("\"5\": [{\"TxPower_k6k\": true}]"), "an integer is expected here, not true"},
      {WithTables("\"5\": [{\"TxPower_k6k\": 2147483648}]"), "outside 32 bits"},
      {WithTables("\"5\": [{\"TxPower_k6k\": -2147483649}]"), "outside 32 bits"},
      {WithTables("\"5\": [{\"TxPower_k6k\": 18446744073709551615}]"), "outside 32 bits"},
      {WithTables("\"5\": [{\"ChannelTxFreq\": 1e999}]"), "tables.5[1].ChannelTxFreq: number overflow"},
      {WithTables("\"0\": [{\"RadioTier\": 5}]"), "a text is expected here, not a number"},
      {WithTables("\"0\": [{\n\n\"RadioTier\": \"\xFF\"}]"), "p.json:7: tables.0[1].RadioTier: "},
      {WithTables("\"29\": [{\"TxFormat\": 5}]"), "an array of integers is expected here, not a number"},
      {WithTables("\"29\": [{\"TxFormat\": [\"R\"]}]"), "tables.29[1].TxFormat: an integer is expected here"},
      {WithTables("\"29\": [{\"TxFormat\": [[0]]}]"), "an integer is expected here, not an array"},
  };
  for (const auto& [document, refusal] : cases) EXPECT_THAT(RefusalOf(document), HasSubstr(refusal));
}

TEST(PersonalityFile, EndsAtTheFirstLevelTooDeep) {
  EXPECT_THAT(RefusalOf("{\"format\": " + std::string(1'000'000, '[')), HasSubstr("p.json:1: format: "));
  EXPECT_THAT(RefusalOf(WithTables("\"5\": " + std::string(1'000'000, '['))), HasSubstr("tables.5: "));
}

TEST(PersonalityFile, RefusesADocumentThatEndsEarly) {
  const std::string document = AtomicFile(std::string(SAMPLES_FOLDER) + "/minimal.json").Read();
  const std::size_t last = document.find_last_of('}');
  for (std::size_t length = 0; length <= last; length += 97) {
    ASSERT_THAT(RefusalOf(document.substr(0, length)), HasSubstr("p.json:")) << length;
  }
  ASSERT_THAT(RefusalOf(document.substr(0, last)), HasSubstr("p.json:"));
}

TEST(PersonalityFile, GivesDefaultsToWhatIsLeftOut) {
  const auto content = Parse(WithTables("\"5\": [{\"ChannelTxFreq\": 156800000}, {}]"));
  EXPECT_EQ(content->Count(5), 2);
  EXPECT_EQ(content->Count(21), 1);
  EXPECT_EQ(CDbl(content->Get("5.ChannelTxFreq", 1)), 156800000);
  EXPECT_EQ(CDbl(content->Get("5.ChannelTxFreq", 2)), 0);
  EXPECT_EQ(CLng(content->Get("5.TxPower_k6k", 2)), 4);
}

TEST(PersonalityFile, WritesValuesByTheTypesOfTheirFields) {
  const auto content = Parse(WithTables("\"5\": [{}], \"29\": [{}]"));
  content->Set("5.TxPower_k6k", 1, "3");
  content->Set("5.ChannelTxFreq", 1, 150000000.0);
  content->Set("5.ChannelRxFreq", 1, "0.1");
  content->Set("0.RadioTier", 1, "a \"b\"\n\xC3\xBC");
  auto format = std::make_shared<XArrayDBObject>();
  format->Redim(0, 2, 0, 0);
  format->SetValue(2, 0, "4");
  content->Set("29.TxFormat", 1, ArrayObject(format));
  const std::string document = PersonalityFile::Format("p.json", *content);
  for (const char* text : {"\"TxPower_k6k\": 3", "\"ChannelTxFreq\": 150000000,", "\"ChannelRxFreq\": 0.1",
                           "\"RadioTier\": \"a \\\"b\\\"\\n\xC3\xBC\"", "\"TxFormat\": [0, 4]"}) {
    EXPECT_THAT(document, HasSubstr(text));
  }
}

TEST(PersonalityFile, RefusesToWriteWhatHasNoForm) {
  const struct {
    const char* field;
    Variant value;
    const char* place;
  } cases[] = {
      {"5.TxPower_k6k", "high", "tables.5[1].TxPower_k6k: can not be saved: \"high\""},
      {"5.TxPower_k6k", 1e10, "tables.5[1].TxPower_k6k"},
      {"0.RadioTier", "\xFF", "tables.0[1].RadioTier: can not be saved: the text is not valid UTF-8"}};
  for (const auto& stored : cases) {
    const auto content = Parse(WithTables("\"5\": [{}]"));
    content->Set(stored.field, 1, stored.value);
    try {
      PersonalityFile::Format("p.json", *content);
      ADD_FAILURE() << stored.place;
    } catch (const FileError& error) {
      EXPECT_THAT(error.what(), HasSubstr(stored.place));
    }
  }
}

}  // namespace
