#include "workbench/schema/Schema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "tests/workbench/FileHelpers.h"

namespace {
using testing::HasSubstr;

constexpr const char* kTableHeader = "table\ttitle\tkind\tminimum\tmaximum\tfirst\tlast\n";
constexpr const char* kFieldHeader =
    "table\tfield\tuiid\tkind\ttype\tdefault\tminimum\tmaximum\tscale\tunits\ttransform\tscope\tvalidation"
    "\twidth\tfirst\tlast\ttwin\n";
constexpr const char* kWordsHeader = "field\twords\tfirst\tlast\n";
constexpr const char* kLayoutHeader = "table\towner\teach\townerless\tkey\tnumber\tupkeep\tfirst\tlast\n";
constexpr const char* kReferenceHeader = "field\ttable\tcounts\tselector\tselected\tfirst\tlast\n";
constexpr const char* kTables = "5\tChannels\traw\t0\t100\t0029\t0094\n7\tOthers\tform\t1\t1\t0029\t0094\n";

struct SchemaFolder {
  SchemaFolder(const std::string& tables, const std::string& fields, const std::string& words = "",
               const std::string& layouts = "", const std::string& references = "") {
    folder.Write("tables.tsv", kTableHeader + tables);
    folder.Write("fields.tsv", kFieldHeader + fields);
    folder.Write("words.tsv", kWordsHeader + words);
    folder.Write("layouts.tsv", kLayoutHeader + layouts);
    folder.Write("references.tsv", kReferenceHeader + references);
  }
  std::shared_ptr<const Schema> At(std::string_view version) const {
    return SchemaFiles::Read(folder.Path())->At(version);
  }
  TemporaryFolder folder;
};

std::string IdOf(const SchemaField* field) { return field == nullptr ? "" : field->id; }

TEST(Schema, ABindingComesBeforeAFieldNameAndAnAmbiguousNameIsNone) {
  const SchemaFolder files(kTables,
                           "5\tPower\tTxPower|Twice\traw\tinteger\n"
                           "5\tTwice\t\traw\tinteger\n"
                           "7\tTwice\t\tform\tinteger\n"
                           "5\tShared\t\traw\tinteger\n"
                           "7\tShared\t\tform\tinteger\n"
                           "7\tOnly\t\tform\tinteger\n");
  const auto schema = files.At("KD4410.0094");
  const std::pair<const char*, const char*> cases[] = {
      {"5.power", "5.Power"}, {"TXPOWER", "5.Power"}, {"Twice", "5.Power"},
      {"7.TWICE", "7.Twice"}, {"only", "7.Only"},     {"Shared", ""},
      {"Nothing", ""},        {"7.Power", ""},        {"", ""},
  };
  for (const auto& [name, id] : cases) EXPECT_EQ(IdOf(schema->Find(name)), id) << name;
  EXPECT_TRUE(schema->IsAmbiguous("SHARED"));
  EXPECT_FALSE(schema->IsAmbiguous("Twice"));
}

TEST(Schema, AVersionHasTheRowsWhoseRangeHoldsIt) {
  const SchemaFolder files(
      "5\tChannels\traw\t0\t24\t0029\t0085\n5\tChannels\traw\t0\t100\t0086\t0094\n"
      "7\tNew\traw\t1\t1\t0090\t\n",
      "7\tLate\t\traw\tinteger\t\t\t\t\t\t\t\t\t\t0090\n"
      "5\tPower\t\traw\tinteger\t2\t\t\t\t\t\t\t\t\t0029\t0085\n"
      "5\tPower\t\traw\tinteger\t3\t\t\t\t\t\t\t\t\t0086\t0094\n");
  const auto old = files.At("KD4410.0085");
  const auto current = files.At("KE2210 Rx.0090");
  EXPECT_EQ(old->FindTable(5)->maximum, 24);
  EXPECT_EQ(current->FindTable(5)->maximum, 100);
  EXPECT_EQ(old->FindTable(7), nullptr);
  EXPECT_EQ(IdOf(old->Find("Late")) + IdOf(current->Find("Late")), "7.Late");
  EXPECT_EQ(CLng(old->Find("Power")->standard), 2);
  EXPECT_EQ(CLng(current->Find("Power")->standard), 3);
  for (const char* version : {"KD4410.0092", "KE2210 Tx.0054", "0094.KD4410", "KD4410.94", ""}) {
    EXPECT_THAT(RefusalOf([&] { files.At(version); }),
                testing::AllOf(HasSubstr(version), HasSubstr("KD4410.0029"), HasSubstr("KE2210 Tx.0094")));
  }
}

/// Numbers of the contract: 574 before 575 and 520 before 525 to the forms, 525 before 514 and 575 to the
/// radio.
TEST(Schema, FieldsAreConvertedInTheOrderOfTheContractAndElseAsTheyStand) {
  const auto row = [](const char* start, const char* number) {
    return start + std::string("\t\tform\tinteger\t\t\t\t\t\t") + number + "\n";
  };
  const SchemaFolder files(kTables, row("5\tPreset", "575") + row("5\tNetwork", "514") +
                                        "5\tPlain\t\traw\tinteger\n" + row("5\tBurst", "525") +
                                        row("7\tTexts", "574") + row("7\tLast", "501"));
  const auto schema = files.At("KD4410.0094");
  const auto idsOf = [](const std::vector<const SchemaField*>& fields) {
    std::string ids;
    for (const SchemaField* field : fields) ids += field->id + " ";
    return ids;
  };
  EXPECT_EQ(idsOf(schema->ConvertedToForms()), "5.Network 7.Texts 7.Last 5.Preset 5.Burst ");
  EXPECT_EQ(idsOf(schema->ConvertedToRadio()), "5.Burst 7.Texts 7.Last 5.Preset 5.Network ");
}

TEST(Schema, DefaultsHaveTheTypeOfTheirFieldAndATextMayHaveAWidth) {
  const SchemaFolder files(kTables,
                           "5\tInteger\t\traw\tinteger\n5\tNumber\t\traw\tnumber\t1.5\n"
                           "5\tText\t\traw\ttext\n5\tFlag\t\traw\tboolean\ttrue\n"
                           "5\tCodes\t\traw\tarray\t7 -1\n5\tIdentity\t\traw\tinteger\t0\t1\t9\n"
                           "5\tInside\t\traw\tinteger\t1\t1\t9\n5\tNoRange\t\traw\tinteger\t5\n"
                           "5\tCode\t\traw\ttext\t\t\t\t\t\t\t\t01\t4\t0029\n");
  const auto schema = files.At("KD4410.0094");
  EXPECT_EQ(std::get<std::int32_t>(schema->Find("Integer")->standard), 0);
  EXPECT_EQ(std::get<double>(schema->Find("Number")->standard), 1.5);
  EXPECT_EQ(std::get<std::string>(schema->Find("Text")->standard), "");
  EXPECT_TRUE(std::get<bool>(schema->Find("Flag")->standard));
  EXPECT_EQ(schema->Find("Code")->width, 4);
  EXPECT_EQ(schema->Find("Text")->width, 0);
  const XArrayDBObject& codes = CArray(schema->Find("Codes")->standard);
  ASSERT_EQ(codes.UpperBound(1), 2);  // row 0 is not used
  EXPECT_EQ(CLng(codes.GetValue(2, 0)), -1);
  EXPECT_TRUE(schema->Find("Identity")->isIdentity);
  EXPECT_FALSE(schema->Find("Inside")->isIdentity || schema->Find("NoRange")->isIdentity);
}

TEST(Schema, DamagedFilesAreRefusedWithLineAndColumn) {
  const std::tuple<std::string, std::string, const char*> cases[] = {
      {"5\tChannels\traw\tmany\t100\n", "", "tables.tsv:2: minimum: not an integer: \"many\""},
      {"5\tChannels\traw\t9\t1\n", "", "tables.tsv:2: maximum: less than the minimum"},
      {"5\tA\traw\t0\t1\t0029\t0054\n5\tA\traw\t0\t1\t0054\t0094\n", "", "tables.tsv:3: table: described"},
      {"5\tA\traw\t0\t1\t0054\t0029\n", "", "tables.tsv:2: last: less than the first version"},
      {"5\tA\traw\t0\t1\t0029\t0094\tmore\n", "", "tables.tsv:2: more than 7 cells"},
      {"5\tA\traw\t0\t1\t0081\n", "5\tA\t\traw\tinteger\n", "fields.tsv:2: table: no such table"},
      {kTables, "# told\n5\tA\t\traw\tword\n", "fields.tsv:3: type: not one of integer"},
      {kTables, "5\tA\t\traw\tinteger\t99999999999\n", "fields.tsv:2: default: not an integer"},
      {kTables, "5\tA\t\traw\tarray\t1  2\n", "fields.tsv:2: default: not integers"},
      {kTables, "5\tA\t\traw\ttext\t\t\t\t\t\t\t\t01\t-1\n", "fields.tsv:2: width: less than 1"},
      {kTables, "5\tA\t\traw\tinteger\t\t\t\t\t\t\t\t\t4\n", "fields.tsv:2: width: only a text or"},
      {kTables, "5\t\t\traw\tinteger\n", "fields.tsv:2: field: a field needs a name"},
      {kTables, "5\tA\t\traw\tinteger\n5\ta\t\traw\ttext\n", "fields.tsv:3: 5.a: the name is taken"},
      {kTables, "5\tA\tX\traw\tinteger\n7\tB\tY|x\tform\ttext\n", "fields.tsv:3: x: the name is taken"},
  };
  for (const auto& [tables, fields, expected] : cases) {
    const SchemaFolder files(tables, fields);
    EXPECT_THAT(RefusalOf([&] { SchemaFiles::Read(files.folder.Path()); }), HasSubstr(expected));
  }
  const std::string rows =
      "5\tA\t\traw\tinteger\n5\tShown\t\tform\tinteger\n5\tNew\t\traw\tinteger\t\t\t\t\t\t\t\t\t\t0090\n"
      "6\tB\t\traw\tinteger\n";
  const std::tuple<std::string, std::string, const char*> links[] = {
      {"5\t\t1\n", "", "layouts.tsv:2: each: of no owner's record: \"1\""},
      {"5\t9\t1\n", "", "layouts.tsv:2: owner: no such table"},
      {"5\t\t\t\tA|Shown\n", "", "layouts.tsv:2: key: 5.Shown is not stored"},
      {"5\t\t\t\t\tNew\n", "", "layouts.tsv:2: number: 5.New is not stored in each version"},
      {"5\t\t\t\t\t\tever\n", "", "layouts.tsv:2: upkeep: not one of"},
      {"5\t\t\t\tA\n5\t\t\t\tA\t\t\t0090\n", "", "layouts.tsv:3: table: described for the same versions"},
      {"", "5.Shown\t6\tfrom-0\n", "references.tsv:2: field: not stored in each version"},
      {"", "5.New\t6\tfrom-0\t\t\t0089\n", "references.tsv:2: field: not stored in each version"},
      {"", "5.A\t7\tfrom-0\n", "references.tsv:2: table: no such table"},
      {"", "5.A\t6\tfrom-2\n", "references.tsv:2: counts: not one of from-0"},
      {"", "5.A\t6\tfrom-0\t6.B\t1\n", "references.tsv:2: selector: not stored beside the field"},
      {"", "5.A\t6\tfrom-0\t5.A\tall\n", "references.tsv:2: selected: not an integer"},
      {"5\t\t\t\t\tA\n", "5.A\t6\tnumber\n", "references.tsv:2: counts: the table has no number"},
  };
  for (const auto& [layouts, references, expected] : links) {
    const SchemaFolder files("5\tA\traw\t0\t9\n6\tB\traw\t0\t9\n", rows, "", layouts, references);
    EXPECT_THAT(RefusalOf([&] { SchemaFiles::Read(files.folder.Path()); }), HasSubstr(expected));
  }
  const TemporaryFolder folder;
  folder.Write("tables.tsv", kTableHeader);
  EXPECT_THROW(SchemaFiles::Read(folder.Path()), FileError);
  for (const char* header : {"table\tfield\n", ""}) {
    folder.Write("fields.tsv", header);
    EXPECT_THROW(SchemaFiles::Read(folder.Path()), FileError) << header;
  }
  folder.Write("fields.tsv", kFieldHeader);
  EXPECT_THAT(RefusalOf([&] { SchemaFiles::Read(folder.Path()); }), HasSubstr("words.tsv"));
}

/// The words of a field in a version: "0=Off 1=Low".
std::string WordsOf(const Schema& schema, std::string_view name) {
  const SchemaField* field = schema.Find(name);
  std::string text;
  if (field == nullptr || field->words == nullptr) return "none";
  for (const auto& [code, word] : field->words->Entries()) {
    text += (text.empty() ? "" : " ") + std::to_string(code) + "=" + word;
  }
  return text;
}

constexpr const char* kCodeFields =
    "5\tPower\tTxPower|Twice\traw\tinteger\t0\t0\t2\t\t\t\t\t\t\t0029\t0085\n"
    "5\tPower\tTxPower|Twice\traw\tinteger\t0\t0\t4\t\t\t\t\t\t\t0086\t0094\n"
    "5\tTick\t\traw\tinteger\t0\t0\t1\n5\tFlag\t\traw\tboolean\n5\tText\t\traw\ttext\n"
    "5\tScaled\t\traw\tinteger\t0\t0\t9\t0.5\n";

TEST(Schema, AVersionHasTheWordsOfTheCodesThatItsLimitsAllow) {
  const SchemaFolder files(kTables, kCodeFields,
                           "twice\t0=Off|1=Low|2=Mid\t0029\t0088\n# told\n"
                           "5.POWER\t4=High|-0=Off\t0089\n5.Tick\ttick\n");
  const auto schemas = SchemaFiles::Read(files.folder.Path());
  EXPECT_EQ(WordsOf(*schemas->At("KD4410.0085"), "TxPower"), "0=Off 1=Low 2=Mid");
  EXPECT_EQ(WordsOf(*schemas->At("KD4410.0089"), "TxPower"), "4=High 0=Off");
  const SchemaFolder wide(kTables, kCodeFields, "TxPower\t4=High|0=Off\n");
  const auto old = wide.At("KD4410.0085");
  EXPECT_EQ(WordsOf(*old, "5.Power"), "0=Off") << "0085 has no code 4";
  EXPECT_EQ(WordsOf(*old, "Flag"), "0=No 1=Yes") << "without a row";
  EXPECT_EQ(WordsOf(*old, "Tick"), "none");
}

TEST(Schema, DamagedWordsAreRefusedWithLineAndColumn) {
  const std::pair<const char*, const char*> cases[] = {
      {"Power5\t0=Off\n", "words.tsv:2: field: no version of the row has a field Power5"},
      {"\n5.Power|TxPowers\t0=Off\n", "words.tsv:3: field: no version of the row has a field TxPowers"},
      {"TxPower\t0=Off\n\nTwice\t1=Low\t0094\n", "words.tsv:4: field: 5.Power has words for the same"},
      {"5.Tick|5.TICK\ttick\n", "words.tsv:2: field: 5.Tick has words for the same versions in line 2"},
      {"5.Text\t0=Off\n", "words.tsv:2: field: 5.Text holds no codes"},
      {"5.Scaled\t0=Off\n", "words.tsv:2: field: 5.Scaled holds no codes"},
      {"5.Flag\t0=Off|1=On\n", "words.tsv:2: field: 5.Flag is a flag"},
      {"TxPower\ttick\n", "words.tsv:2: field: 5.Power is no tick"},
      {"TxPower\t0=Off|5=Top\n", "words.tsv:2: words: code 5 is outside the limits of 5.Power"},
      {"TxPower\t4=High\t\t0085\n", "words.tsv:2: words: code 4 is outside the limits of 5.Power"},
      {"TxPower\t1=Low|1=High\n", "words.tsv:2: words: code 1 stands twice"},
      {"TxPower\t1=Low|2=LOW\n", "words.tsv:2: words: LOW stands twice"},
      {"TxPower\t1=2|2=Low\n", "words.tsv:2: words: 2 reads as a number"},
      {"TxPower\t0=Off|\n", "words.tsv:2: words: neither tick nor codes"},
      {"TxPower\t0= Off\n", "words.tsv:2: words: neither tick nor codes"},
      {"TxPower\tOff\n", "words.tsv:2: words: neither tick nor codes"},
      {"TxPower\n", "words.tsv:2: words: neither tick nor codes"},
      {"TxPower\t0=Off\t0094\t0029\n", "words.tsv:2: last: less than the first version"},
  };
  for (const auto& [words, expected] : cases) {
    const SchemaFolder files(kTables, kCodeFields, words);
    EXPECT_THAT(RefusalOf([&] { SchemaFiles::Read(files.folder.Path()); }), HasSubstr(expected)) << words;
  }
}
}  // namespace
