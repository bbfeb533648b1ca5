#include "workbench/personality/PersonalityFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"

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

TEST(PersonalityFile, ReadingAndWritingGivesTheSameBytes) {
  for (const char* name : kSamples) {
    const std::string document = ContentOf(Sample(name));
    EXPECT_TRUE(PersonalityFile::Format("p.json", *Parse(document)) == document) << name;
  }
}

TEST(PersonalityFile, NamesLinePlaceAndReasonOfWhatItRefuses) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "p.json:1: the file is empty"},
      {"{\n\"format\": \"something\"}", "p.json:2: format: \"something\" is not \"KD4410 personality\""},
      {"{\n\n\"version\": 94}", "p.json:3: version: a text is expected here, not a number"},
      {"{\"version\": \"KD4410.0030\"}", "KD4410.0029"},  // the known ones are listed
      {"{\"format\": \"KD4410 personality\", \"tables\": {}}", "\"version\" has to stand before the tables"},
      {"{\n\"version\": \"KD4410.0094\",\n\"version\": \"KD4410.0094\"}", "p.json:3: version: given twice"},
      {"{\"version\": \"KD4410.0094\"}", "\"format\" is missing"},
      {"{\"format\": \"KD4410 personality\", \"version\": \"KD4410.0094\"}", "\"tables\" is missing"},
      {WithTables("") + "x", "p.json:5: "},
      {"{\"format\": " + std::string(1'000'000, '['), "p.json:1: format: "},
      {WithTables("\"5\": " + std::string(1'000'000, '[')), "tables.5: "},
      {WithTables("\"6\": []"), "p.json:5: tables.6: version KD4410.0094 has no such table"},
      {WithTables("\"1107\": []"), "tables.1107: the table is one of the forms"},
      {WithTables("\"7\": [],\n\"7\": []"), "p.json:6: tables.7: given twice"},
      {WithTables("\"7\": {}"), "tables.7: an array of records is expected here, not an object"},
      {WithTables("\"21\": []"), "tables.21: the table has 0 records, it needs at least 1"},
      {WithTables("\"34\": [{},\n{}]"), "p.json:6: tables.34[2]: the table holds at most 1 records"},
      {WithTables("\"5\": [{},\n{\"Frequency\": 1}]"),
       "p.json:6: tables.5[2].Frequency: the table has no such field"},
      {WithTables("\"5\": [{\"ChannelTxFreqUI\": \"1\"}]"),
       "tables.5[1].ChannelTxFreqUI: the field is one of the forms"},
      {WithTables("\"5\": [{\"TxPower_k6k\": 1,\n\"TxPower_k6k\": 1}]"),
       "p.json:6: tables.5[1].TxPower_k6k: given twice"},
      {WithTables("\"5\": [{\n\"TxPower_k6k\": \"1\"}]"),
       "p.json:6: tables.5[1].TxPower_k6k: an integer is expected here, not a text"},
      {WithTables("\"5\": [{\"TxPower_k6k\": 1.5}]"), "an integer is expected here, not the number 1.5"},
      {WithTables("\"5\": [{\"TxPower_k6k\": 2147483648}]"), "outside 32 bits"},
      {WithTables("\"5\": [{\"ChannelTxFreq\": 1e999}]"), "tables.5[1].ChannelTxFreq: number overflow"},
      {WithTables("\"0\": [{\"RadioTier\": 5}]"), "a text is expected here, not a number"},
      {WithTables("\"0\": [{\n\n\"RadioTier\": \"\xFF\"}]"), "p.json:7: tables.0[1].RadioTier: "},
      {WithTables("\"29\": [{\"TxFormat\": [\"R\"]}]"), "tables.29[1].TxFormat: an integer is expected here"},
  };
  for (const auto& [document, refusal] : cases) {
    EXPECT_THAT(RefusalOf([&text = document] { Parse(text); }), HasSubstr(refusal));
  }
}

TEST(PersonalityFile, RefusesADocumentThatEndsEarly) {
  const std::string document = ContentOf(Sample("minimal"));
  const std::size_t last = document.find_last_of('}');
  for (std::size_t length = last % 97; length <= last; length += 97) {
    ASSERT_THAT(RefusalOf([&] { Parse(document.substr(0, length)); }), HasSubstr("p.json:")) << length;
  }
}

TEST(PersonalityFile, WritesValuesByTheTypesOfTheirFields) {
  const auto content = Parse(WithTables("\"5\": [{}], \"29\": [{}]"));
  EXPECT_EQ(CLng(content->Get("5.TxPower_k6k")), 4);  // what is left out has its default
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
  const std::tuple<const char*, Variant, const char*> cases[] = {
      {"5.TxPower_k6k", "high", "tables.5[1].TxPower_k6k: can not be saved: \"high\""},
      {"5.TxPower_k6k", 1e10, "tables.5[1].TxPower_k6k"},
      {"0.RadioTier", "\xFF", "tables.0[1].RadioTier: can not be saved: the text is not valid UTF-8"}};
  for (const auto& [field, value, place] : cases) {
    const auto content = Parse(WithTables("\"5\": [{}]"));
    content->Set(field, 1, value);
    EXPECT_THAT(RefusalOf([&] { PersonalityFile::Format("p.json", *content); }), HasSubstr(place));
  }
}
}  // namespace
