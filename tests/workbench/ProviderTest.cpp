#include "workbench/Provider.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "tests/support/Temporary.h"
#include "workbench/Journal.h"

namespace {
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::shared_ptr<const Schema> TestSchema() {
  static const auto schema = [] {
    const TemporaryFolder folder;
    folder.Write("tables.tsv",
                 "table\ttitle\tkind\tminimum\tmaximum\tfirst\tlast\n"
                 "5\tChannels\traw\t0\t5\n"
                 "16\tGroups\traw\t0\t5\n"
                 "30\tBursts\traw\t1\t3\n");
    folder.Write("fields.tsv",
                 "table\tfield\tuiid\tkind\ttype\tdefault\tminimum\tmaximum\tscale\tunits\ttransform\tscope"
                 "\tvalidation\tfirst\tlast\torder\n"
                 "5\tChannelIDTracker\tChannelID\traw\tinteger\t0\t1\t9\n"
                 "5\tFrequency\t\traw\tnumber\t1.5\t0\t900000000\t0.5\tHz\t501\n"
                 "5\tName\t\traw\ttext\n"
                 "16\tGroupIDTracker\t\traw\tinteger\t0\t1\t9\n"
                 "16\tName\t\traw\ttext\n"
                 "30\tBurst\t\traw\tarray\n");
    return SchemaFiles::Read(folder.Path())->At("KD4410.0094");
  }();
  return schema;
}

/// The error number of an operation, 0 for success; its description is kept.
class ProviderTest : public testing::Test {
 protected:
  int Number(const Status& status) {
    description = status.Ok() ? "" : status.Reason().description;
    return status.Ok() ? 0 : status.Reason().number;
  }
  std::shared_ptr<Ifield> Field(std::string_view name) {
    std::shared_ptr<Ifield> field;
    EXPECT_TRUE(provider.Field(name, field).Ok()) << name;
    return field;
  }
  std::shared_ptr<Itable> Table(std::string_view id) {
    std::shared_ptr<Itables> tables;
    std::shared_ptr<Itable> table;
    EXPECT_TRUE(provider.Tables(tables).Ok());
    EXPECT_TRUE(tables->Table(id, table).Ok()) << id;
    return table;
  }
  std::vector<std::string> Texts(std::string_view name) {
    std::vector<std::string> texts;
    std::vector<Variant> values;
    EXPECT_TRUE(Field(name)->Values(values).Ok());
    for (const Variant& value : values) texts.push_back(CStr(value));
    return texts;
  }
  std::vector<std::string> Free(std::string_view name) {
    std::shared_ptr<IvalueList> list;
    EXPECT_TRUE(Field(name)->FreeValues(list).Ok());
    std::vector<std::string> texts;
    std::string text;
    for (std::int32_t i = 0; list->Item(i, text).Ok(); ++i) texts.push_back(text);
    std::int32_t count = 0;
    EXPECT_TRUE(list->Count(count).Ok());
    EXPECT_EQ(static_cast<std::size_t>(count), texts.size());
    return texts;
  }

  Provider provider{TestSchema()};
  std::string description;
};
}  // namespace

TEST_F(ProviderTest, UnknownAndAmbiguousNamesAreRefusedByEveryLookUp) {
  std::shared_ptr<Ifield> field;
  std::shared_ptr<Itables> tables;
  std::shared_ptr<Itable> table;
  std::shared_ptr<Ifields> fields;
  Variant value;
  std::int32_t number = 7;
  ASSERT_EQ(Number(provider.Tables(tables)), 0);
  ASSERT_EQ(Number(Table("5")->Fields(fields)), 0);

  EXPECT_EQ(Number(provider.Field("5.Nothing", field)), 5);
  EXPECT_EQ(description, "Unknown field: 5.Nothing");
  EXPECT_EQ(Number(provider.Field("Name", field)), 5);
  EXPECT_EQ(description, "Unknown field: Name (several tables have it)");
  EXPECT_EQ(Number(tables->Field("Nothing", field)), 5);
  EXPECT_EQ(Number(fields->Item("Burst", field)), 5);
  EXPECT_EQ(field, nullptr);
  EXPECT_EQ(Number(provider.DefaultValue("Nothing", value)), 5);
  EXPECT_EQ(Number(provider.RefreshField("Nothing")), 5);
  EXPECT_EQ(Number(provider.RefreshValues("Nothing")), 5);
  EXPECT_EQ(Number(provider.TransformIdOf("Nothing", number)), 5);
  EXPECT_EQ(number, 7);
  for (const char* id : {"6", "Nothing", "", "5x", "-5"}) {
    EXPECT_EQ(Number(tables->Table(id, table)), 5) << id;
    EXPECT_EQ(Number(provider.ClearTable(id, kTrue)), 5) << id;
  }
  Boolean exists = kTrue;
  EXPECT_EQ(Number(tables->FieldExists("Nothing", exists)), 0);
  EXPECT_EQ(exists, kFalse);
}

TEST_F(ProviderTest, ARecordOutsideTheTableIsRefusedAndLeavesTheResultAlone) {
  provider.SetCount(5, 2);
  const auto frequency = Field("5.Frequency");
  for (const RecordNr record : {0, -1, 3, std::numeric_limits<RecordNr>::min()}) {
    Variant value = "kept";
    EXPECT_EQ(Number(frequency->Value(record, value)), 9) << record;
    EXPECT_THAT(description, HasSubstr("Record " + std::to_string(record) + " of 5.Frequency"));
    EXPECT_EQ(CStr(value), "kept");
    EXPECT_EQ(Number(frequency->SetValue(record, 2.5)), 9) << record;
  }
  EXPECT_EQ(Number(frequency->SetValue(2, "156.8")), 0);
  EXPECT_THAT(Texts("5.Frequency"), ElementsAre("1.5", "156.8"));
}

TEST_F(ProviderTest, RecordsMoveWhenOneIsInsertedOrDeleted) {
  provider.Fill("5.Name", {"a", "b"});
  const auto table = Table("Frequency");
  RecordNr number = 0;
  EXPECT_EQ(Number(table->InsertRecord(2)), 0);
  EXPECT_EQ(Number(table->InsertRecord(4)), 0);
  EXPECT_THAT(Texts("5.Name"), ElementsAre("a", "", "b", ""));
  EXPECT_EQ(CDbl(provider.Get("5.Frequency", 4)), 1.5);
  EXPECT_EQ(Number(table->DeleteRecord(1, number)), 0);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(Number(table->AppendRecord(number)), 0);
  EXPECT_EQ(number, 4);
  EXPECT_EQ(Number(table->NewRecord(number)), 0);
  EXPECT_EQ(number, 5);
  EXPECT_THAT(Texts("5.Name"), ElementsAre("", "b", "", "", ""));

  EXPECT_EQ(Number(table->AppendRecord(number)), 5);
  EXPECT_EQ(description, "Table 5 is full: it holds at most 5 records");
  EXPECT_EQ(Number(table->NewRecord(number)), 5);
  EXPECT_EQ(Number(table->InsertRecord(1)), 5);
  EXPECT_EQ(Number(table->InsertRecord(0)), 9);
  EXPECT_EQ(Number(table->InsertRecord(7)), 9);
  EXPECT_EQ(Number(table->DeleteRecord(6, number)), 9);
  EXPECT_EQ(number, 5);
  EXPECT_EQ(provider.Count(5), 5);
}

TEST_F(ProviderTest, ATableStartsWithItsMinimumAndIsClearedToNothing) {
  EXPECT_EQ(provider.Count(30), 1);
  EXPECT_EQ(CArray(provider.Get("Burst")).UpperBound(1), 0);
  EXPECT_EQ(Number(provider.ClearTable("30", kFalse)), 0);
  EXPECT_EQ(provider.Count(30), 0);
}

TEST_F(ProviderTest, SortsNumbersAsNumbersAndWordsByBytesAndKeepsTheOrderOfEquals) {
  provider.Fill("5.Name", {"b", "10", "9", "B", "10"});
  provider.Fill("5.ChannelIDTracker", {"1", "2", "3", "4", "5"});
  EXPECT_EQ(Number(Table("5")->Sort(provider, "5.Name", 1)), 0);
  EXPECT_THAT(Texts("5.Name"), ElementsAre("9", "10", "10", "B", "b"));
  EXPECT_THAT(Texts("ChannelID"), ElementsAre("3", "2", "5", "4", "1"));

  provider.Fill("5.Frequency", {2, 1, 2, 1, 1});
  EXPECT_EQ(Number(Table("5")->Sort(provider, "Frequency|ChannelID", 1)), 0);
  EXPECT_THAT(Texts("ChannelID"), ElementsAre("1", "2", "4", "3", "5"));

  EXPECT_EQ(Number(Table("5")->Sort(provider, "Frequency|Burst", 1)), 5);
  EXPECT_EQ(Number(Table("5")->Sort(provider, "", 1)), 5);
  EXPECT_EQ(Number(Table("5")->Sort(provider, "Frequency", 0)), 5);
  EXPECT_THAT(Texts("ChannelID"), ElementsAre("1", "2", "4", "3", "5"));
}

TEST_F(ProviderTest, ChannelsAndGroupsDrawTheirNumbersFromOneSet) {
  provider.Fill("5.ChannelIDTracker", {"1", 3, 0, "word"});
  provider.Fill("16.GroupIDTracker", {4, 99});
  EXPECT_THAT(Free("5.ChannelIDTracker"), ElementsAre("2", "5", "6", "7", "8", "9"));
  EXPECT_THAT(Free("16.GroupIDTracker"), ElementsAre("2", "5", "6", "7", "8", "9"));
  Variant next;
  EXPECT_EQ(Number(provider.DefaultValue("ChannelID", next)), 0);
  EXPECT_EQ(CLng(next), 2);
  EXPECT_EQ(Number(provider.DefaultValue("5.Frequency", next)), 0);
  EXPECT_EQ(CDbl(next), 1.5);

  provider.Fill("5.ChannelIDTracker", {2, 1, 5, 6, 7});
  provider.Fill("16.GroupIDTracker", {8, 9, 3, 4});
  EXPECT_THAT(Free("ChannelID"), IsEmpty());
  EXPECT_EQ(Number(provider.DefaultValue("ChannelID", next)), 9);
  EXPECT_EQ(CDbl(next), 1.5);
}

TEST_F(ProviderTest, AWideRangeOfFreeValuesIsCountedWithoutBeingListed) {
  provider.Fill("5.Frequency", {0, 7, 899'999'999.0, 1.5, 1e12});
  std::int32_t count = 0;
  EXPECT_EQ(Number(Field("5.Frequency")->ListCount(count)), 0);
  EXPECT_EQ(count, 900'000'001 - 3);
  std::shared_ptr<IvalueList> list;
  ASSERT_EQ(Number(Field("5.Frequency")->FreeValues(list)), 0);
  const std::pair<std::int32_t, const char*> cases[] = {
      {0, "1"}, {5, "6"}, {6, "8"}, {899'999'996, "899999998"}, {899'999'997, "900000000"}};
  std::string text;
  for (const auto& [index, expected] : cases) {
    EXPECT_EQ(Number(list->Item(index, text)), 0) << index;
    EXPECT_EQ(text, expected);
  }
  EXPECT_EQ(Number(list->Item(count, text)), 9);
  EXPECT_EQ(Number(list->Item(-1, text)), 9);
}

TEST_F(ProviderTest, UsedValuesAreTextsInRecordOrder) {
  provider.Fill("5.Frequency", {2, "x", 1.5});
  std::shared_ptr<IvalueList> list;
  ASSERT_EQ(Number(Field("Frequency")->UsedValues(list)), 0);
  std::string text;
  EXPECT_EQ(Number(list->Item(1, text)), 0);
  EXPECT_EQ(text, "x");
  EXPECT_EQ(Number(list->Item(3, text)), 9);
}

TEST_F(ProviderTest, AFieldTellsWhatTheSchemaSays) {
  const auto frequency = Field("FREQUENCY");
  std::string name;
  std::int32_t number = 0;
  Currency scale;
  EXPECT_EQ(Number(frequency->Name(name)), 0);
  EXPECT_EQ(name, "Frequency");
  EXPECT_EQ(Number(frequency->TransformId(number)), 0);
  EXPECT_EQ(number, 501);
  EXPECT_EQ(Number(frequency->Scale(scale)), 0);
  EXPECT_EQ(scale.tenThousandths, 5000);
  EXPECT_EQ(Number(Field("ChannelID")->TransformId(number)), 0);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(Number(provider.TransformIdOf("ChannelID", number)), 0);
  EXPECT_EQ(number, -1);
}

TEST_F(ProviderTest, WhatItHandsOutOutlivesIt) {
  auto doomed = std::make_shared<Provider>(TestSchema());
  doomed->Fill("5.Name", {"a"});
  std::shared_ptr<Ifield> field;
  ASSERT_TRUE(doomed->Field("5.Name", field).Ok());
  doomed.reset();
  Variant value;
  ASSERT_TRUE(field->Value(1, value).Ok());
  EXPECT_EQ(CStr(value), "a");
}

TEST_F(ProviderTest, ACopyIsWrittenToWithoutTheOriginal) {
  provider.Fill("5.Name", {"a", "b"});
  provider.SetFactoryMode(true);
  ASSERT_TRUE(provider.SetAutoUpdate(kFalse).Ok());
  const auto copy = provider.Copy();
  copy->Set("5.Name", 1, "changed");
  copy->SetCount(5, 1);
  EXPECT_THAT(Texts("5.Name"), ElementsAre("a", "b"));
  Boolean flag = kFalse;
  EXPECT_TRUE(copy->FactoryMode(flag).Ok());
  EXPECT_EQ(flag, kTrue);
  EXPECT_TRUE(copy->AutoUpdate(flag).Ok());
  EXPECT_EQ(flag, kFalse);
}

TEST_F(ProviderTest, TheChosenCallFails) {
  provider.SetCount(5, 1);
  const auto name = Field("5.Name");
  Variant value;
  provider.Monitor().FailOnce(2, {70, "Test", "planned"});
  EXPECT_EQ(Number(name->SetValue(1, "first")), 0);
  EXPECT_EQ(Number(name->SetValue(1, "second")), 70);
  EXPECT_EQ(description, "planned");
  EXPECT_EQ(Number(name->Value(1, value)), 0);
  EXPECT_EQ(CStr(value), "first");

  provider.Monitor().FailFrom(2);
  EXPECT_EQ(Number(name->Value(1, value)), 0);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Number(name->Value(1, value)), 5);
  provider.Monitor().NeverFail();
  EXPECT_EQ(Number(name->Value(1, value)), 0);
  EXPECT_EQ(provider.Monitor().Failures(), 4);
}

TEST_F(ProviderTest, CallsAreCountedByGroupAndNamedOnDemand) {
  provider.SetCount(5, 3);
  const auto name = Field("5.Name");
  Variant value;
  provider.Monitor().Clear();
  provider.Monitor().FailOnce(4);
  EXPECT_EQ(Number(name->Value(1, value)), 0);
  provider.Monitor().Record(true);
  EXPECT_EQ(Number(name->SetValue(3, "x")), 0);
  Field("ChannelID");
  EXPECT_EQ(Number(provider.SetAutoUpdate(kTrue)), 5);  // the plan counts on while names are kept
  provider.Monitor().Record(false);
  EXPECT_EQ(Number(provider.SetAutoUpdate(kTrue)), 0);
  EXPECT_THAT(
      provider.Monitor().Calls(),
      ElementsAre("Ifield.SetValue 5.Name[3]", "Iprovider.Field ChannelID", "Iprovider.SetAutoUpdate -1"));
  EXPECT_EQ(provider.Monitor().Count(CallGroup::Read), 1);
  EXPECT_EQ(provider.Monitor().Count(CallGroup::Write), 1);
  EXPECT_EQ(provider.Monitor().Count(CallGroup::Lookup), 1);
  EXPECT_EQ(provider.Monitor().Count(), 5);
}

namespace {
/// "5.Name[1]: a -> b", or "5: 2 -> 3 records".
std::vector<std::string> Told(const Journal& journal) {
  std::vector<std::string> told;
  for (const Change& change : journal.Changes()) {
    const std::string place = change.field == nullptr
                                  ? std::to_string(change.table->number)
                                  : change.field->id + "[" + std::to_string(change.record) + "]";
    told.push_back(place + ": " + CStr(change.before) + " -> " + CStr(change.now));
  }
  return told;
}
}  // namespace

TEST_F(ProviderTest, AJournalTellsWhatDiffersInSchemaOrder) {
  provider.Fill("5.Name", {"a", "b"});
  provider.SetCount(16, 2);
  Journal journal(provider);
  EXPECT_TRUE(journal.IsUnused());
  provider.Set("16.Name", 1, "g");
  provider.Set("5.Name", 2, "x");
  provider.Set("5.Name", 2, "y");
  provider.Set("5.Name", 1, "x");
  provider.Set("5.Name", 1, "a");              // as it was
  provider.Set("5.ChannelIDTracker", 1, "0");  // another type, the same value
  provider.SetCount(30, 2);
  EXPECT_FALSE(journal.IsUnused());
  EXPECT_THAT(Told(journal), ElementsAre("5.Name[2]: b -> y", "16.Name[1]:  -> g", "30: 1 -> 2"));
}

TEST_F(ProviderTest, AJournalComparesArraysByTheirCells) {
  const auto burst = [](std::int32_t code) {
    auto array = std::make_shared<XArrayDBObject>();
    array->Redim(0, 1, 0, 0);
    array->SetValue(1, 0, code);
    return ArrayObject(std::move(array));
  };
  provider.Set("Burst", 1, burst(4));
  Journal journal(provider);
  provider.Set("Burst", 1, burst(4));
  EXPECT_THAT(journal.Changes(), IsEmpty());
  provider.Set("Burst", 1, burst(5));
  EXPECT_EQ(journal.Changes().size(), 1U);
}

TEST_F(ProviderTest, ARollbackRestoresCellsAndRecordsWhateverTheOrderOfTheWrites) {
  provider.Fill("5.Name", {"c", "b", "a"});
  Journal journal(provider);
  for (int round = 0; round < 2; ++round) {
    provider.Set("5.Name", 3, "1");
    ASSERT_TRUE(Table("5")->Sort(provider, "5.Name", 1).Ok());
    provider.Set("5.Name", 3, "2");
    RecordNr left = 0;
    ASSERT_TRUE(Table("5")->DeleteRecord(1, left).Ok());
    ASSERT_TRUE(Table("5")->InsertRecord(1).Ok());
    provider.Set("5.Frequency", 1, 9);
    ASSERT_TRUE(provider.ClearTable("30", kTrue).Ok());
    ASSERT_TRUE(provider.SetAutoUpdate(kFalse).Ok());
    EXPECT_THAT(Told(journal), ElementsAre("5.Frequency[1]: 1.5 -> 9", "5.Name[1]: c -> ",
                                           "5.Name[3]: a -> 2", "30: 1 -> 0"));
    journal.Rollback();
    EXPECT_TRUE(journal.IsUnused());
    EXPECT_THAT(Texts("5.Name"), ElementsAre("c", "b", "a"));
    EXPECT_THAT(Texts("5.Frequency"), ElementsAre("1.5", "1.5", "1.5"));
    EXPECT_EQ(provider.Count(30), 1);
    Boolean autoUpdate = kFalse;
    EXPECT_TRUE(provider.AutoUpdate(autoUpdate).Ok());
    EXPECT_EQ(autoUpdate, kTrue);
  }
}

TEST_F(ProviderTest, AJournalThatEndsKeepsTheWritesAndMakesRoomForAnother) {
  provider.SetCount(5, 1);
  {
    Journal journal(provider);
    provider.Set("5.Name", 1, "kept");
    EXPECT_THROW(Journal{provider}, std::logic_error);
  }
  Journal journal(provider);
  journal.Rollback();
  EXPECT_EQ(CStr(provider.Get("5.Name")), "kept");
}
