#include "workbench/store/Provider.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "tests/support/Temporary.h"
#include "workbench/store/Journal.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

std::shared_ptr<const Schema> TestSchema() {
  static const auto schema = [] {
    const TemporaryFolder folder;
    folder.Write("tables.tsv",
                 "table\ttitle\tkind\tminimum\tmaximum\tfirst\tlast\n"
                 "5\tChannels\traw\t0\t5\n16\tGroups\traw\t0\t5\n30\tBursts\traw\t1\t3\n");
    folder.Write("fields.tsv",
                 "table\tfield\tuiid\tkind\ttype\tdefault\tminimum\tmaximum\tscale\tunits\ttransform\tscope"
                 "\tvalidation\twidth\tfirst\tlast\ttwin\n"
                 "5\tChannelIDTracker\tChannelID\traw\tinteger\t0\t1\t9\n"
                 "5\tFrequency\t\traw\tnumber\t1.5\t0\t900000000\t0.5\tHz\t501\n"
                 "5\tName\t\traw\ttext\n"
                 "16\tGroupIDTracker\t\traw\tinteger\t0\t1\t9\n"
                 "16\tName\t\traw\ttext\n"
                 "30\tBurst\t\traw\tarray\n");
    folder.Write("words.tsv", "field\twords\tfirst\tlast\n");
    folder.Write("layouts.tsv", "table\towner\teach\townerless\tkey\tnumber\tupkeep\tfirst\tlast\n");
    folder.Write("references.tsv", "field\ttable\tcounts\tselector\tselected\tfirst\tlast\n");
    return SchemaFiles::Read(folder.Path())->At("KD4410.0094");
  }();
  return schema;
}

class ProviderTest : public testing::Test {
 protected:
  /// The error number of an operation, 0 for success; its description is kept.
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
  Texts Column(std::string_view name) {
    Texts texts;
    std::vector<Variant> values;
    EXPECT_TRUE(Field(name)->Values(values).Ok());
    for (const Variant& value : values) texts.push_back(CStr(value));
    return texts;
  }
  Texts Free(std::string_view name) {
    std::shared_ptr<IvalueList> list;
    EXPECT_TRUE(Field(name)->FreeValues(list).Ok());
    Texts texts;
    std::string text;
    for (std::int32_t i = 0; list->Item(i, text).Ok(); ++i) texts.push_back(text);
    return texts;
  }

  Provider provider{TestSchema()};
  std::string description;
};

TEST_F(ProviderTest, UnknownAndAmbiguousNamesAreRefusedByEveryLookUp) {
  std::shared_ptr<Ifield> field;
  std::shared_ptr<Itables> tables;
  std::shared_ptr<Itable> table;
  Variant value;
  ASSERT_EQ(Number(provider.Tables(tables)), 0);
  EXPECT_EQ(Number(provider.Field("5.Nothing", field)), 5);
  EXPECT_EQ(description, "Unknown field: 5.Nothing");
  EXPECT_EQ(Number(provider.Field("Name", field)), 5);
  EXPECT_EQ(description, "Unknown field: Name (several tables have it)");
  EXPECT_EQ(Number(tables->Field("Nothing", field)), 5);
  EXPECT_EQ(field, nullptr);
  EXPECT_EQ(Number(provider.DefaultValue("Nothing", value)), 5);
  EXPECT_EQ(Number(provider.RefreshField("Nothing")), 5);
  for (const char* id : {"6", "Nothing", "", "5x", "-5"}) {
    EXPECT_EQ(Number(tables->Table(id, table)), 5) << id;
    EXPECT_EQ(Number(provider.ClearTable(id, kTrue)), 5) << id;
  }
}

TEST_F(ProviderTest, ARecordOutsideTheTableIsRefusedAndLeavesTheResultAlone) {
  provider.SetCount(5, 2);
  const auto frequency = Field("5.Frequency");
  for (const RecordNr record : {0, -1, 3, std::numeric_limits<RecordNr>::min()}) {
    Variant value = "kept";
    EXPECT_EQ(Number(frequency->Value(record, value)), 9) << record;
    EXPECT_THAT(description, testing::HasSubstr("Record " + std::to_string(record) + " of 5.Frequency"));
    EXPECT_EQ(CStr(value), "kept");
    EXPECT_EQ(Number(frequency->SetValue(record, 2.5)), 9) << record;
  }
  EXPECT_EQ(Number(frequency->SetValue(2, "156.8")), 0);
  EXPECT_THAT(Column("5.Frequency"), ElementsAre("1.5", "156.8"));
}

TEST_F(ProviderTest, RecordsMoveWhenOneIsInsertedOrDeleted) {
  provider.Fill("5.Name", {"a", "b"});
  const auto table = Table("Frequency");
  RecordNr number = 0;
  EXPECT_EQ(Number(table->InsertRecord(2)), 0);
  EXPECT_EQ(Number(table->InsertRecord(4)), 0);
  EXPECT_THAT(Column("5.Name"), ElementsAre("a", "", "b", ""));
  EXPECT_EQ(Number(table->DeleteRecord(1, number)), 0);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(Number(table->AppendRecord(number)), 0);
  EXPECT_EQ(Number(table->NewRecord(number)), 0);
  EXPECT_EQ(number, 5);
  EXPECT_THAT(Column("5.Name"), ElementsAre("", "b", "", "", ""));

  EXPECT_EQ(Number(table->AppendRecord(number)), 5);
  EXPECT_EQ(description, "Table 5 is full: it holds at most 5 records");
  EXPECT_EQ(Number(table->NewRecord(number)), 5);
  EXPECT_EQ(Number(table->InsertRecord(1)), 5);
  EXPECT_EQ(Number(table->InsertRecord(0)), 9);
  EXPECT_EQ(Number(table->InsertRecord(7)), 9);
  EXPECT_EQ(Number(table->DeleteRecord(6, number)), 9);
  EXPECT_EQ(provider.Count(5), 5);
}

TEST_F(ProviderTest, SortsNumbersAsNumbersAndWordsByBytesAndKeepsTheOrderOfEquals) {
  provider.Fill("5.Name", {"b", "10", "9", "B", "10"});
  provider.Fill("5.ChannelIDTracker", {"1", "2", "3", "4", "5"});
  EXPECT_EQ(Number(Table("5")->Sort(provider, "5.Name", 1)), 0);
  EXPECT_THAT(Column("5.Name"), ElementsAre("9", "10", "10", "B", "b"));
  EXPECT_THAT(Column("ChannelID"), ElementsAre("3", "2", "5", "4", "1"));
  provider.Fill("5.Frequency", {2, 1, 2, 1, 1});
  EXPECT_EQ(Number(Table("5")->Sort(provider, "Frequency|ChannelID", 1)), 0);
  for (const char* keys : {"Frequency|Burst", ""}) EXPECT_EQ(Number(Table("5")->Sort(provider, keys, 1)), 5);
  EXPECT_THAT(Column("ChannelID"), ElementsAre("1", "2", "4", "3", "5"));
}

TEST_F(ProviderTest, ChannelsAndGroupsDrawTheirNumbersFromOneSet) {
  provider.Fill("5.ChannelIDTracker", {"1", 3, 0, "word"});
  provider.Fill("16.GroupIDTracker", {4, 99});
  EXPECT_THAT(Free("5.ChannelIDTracker"), ElementsAre("2", "5", "6", "7", "8", "9"));
  EXPECT_THAT(Free("16.GroupIDTracker"), ElementsAre("2", "5", "6", "7", "8", "9"));
  Variant next;
  EXPECT_EQ(Number(provider.DefaultValue("ChannelID", next)), 0);
  EXPECT_EQ(CLng(next), 2);
  provider.Fill("5.ChannelIDTracker", {2, 1, 5, 6, 7});
  provider.Fill("16.GroupIDTracker", {8, 9, 3, 4});
  EXPECT_THAT(Free("ChannelID"), IsEmpty());
  EXPECT_EQ(Number(provider.DefaultValue("ChannelID", next)), 9);
}

/// "5.Name[1]: a -> b", or "5: 2 -> 3" for its records.
Texts Told(const Journal& journal) {
  Texts told;
  for (const Change& change : journal.Changes()) {
    const std::string place = change.field == nullptr
                                  ? std::to_string(change.table->number)
                                  : change.field->id + "[" + std::to_string(change.record) + "]";
    told.push_back(place + ": " + CStr(change.before) + " -> " + CStr(change.now));
  }
  return told;
}

/// Deletions in any order beside a plain list: the records behind them close up.
TEST_F(ProviderTest, WhatIsLeftOfATableIsInItsOrder) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    provider.Fill("5.Name", {"a", "b", "c", "d", "e"});
    Texts left = {"a", "b", "c", "d", "e"};
    while (!left.empty()) {
      const auto place = static_cast<std::ptrdiff_t>(random() % left.size());
      RecordNr count = 0;
      EXPECT_TRUE(Table("5")->DeleteRecord(static_cast<RecordNr>(place) + 1, count).Ok());
      left.erase(left.begin() + place);
      ASSERT_EQ(count, std::ssize(left));
      const std::size_t asked = random() % 7;  // nothing, one or all
      if (asked < left.size()) {
        ASSERT_EQ(CStr(provider.Get("5.Name", static_cast<RecordNr>(asked) + 1)), left[asked]);
      } else if (asked == 6) {
        ASSERT_EQ(Column("5.Name"), left);
      }
    }
  }
}

/// Writes of all kinds, records that come and go and what a journal takes back, beside a plain count of what
/// is used.
TEST_F(ProviderTest, FreeNumbersFollowEveryWrite) {
  std::mt19937 random(1);
  const auto below = [&](unsigned count) { return static_cast<std::int32_t>(random() % count); };
  const auto step = [&](std::int32_t action) {
    const RecordNr count = provider.Count(5);
    RecordNr left = 0;
    if (action == 0 && count < 5) provider.SetCount(5, count + 1);
    if (action == 1 && count > 0) static_cast<void>(Table("5")->DeleteRecord(1, left));
    if (action == 2) provider.SetCount(16, below(5));
    if (action >= 3 && count > 0) provider.Set("ChannelID", below(unsigned(count)) + 1, below(12));
  };
  for (int i = 0; i < 400; ++i) {
    if (below(10) == 0) {
      Journal journal(provider);
      step(below(6));
      Free("ChannelID");
      journal.Rollback();
    } else {
      step(below(6));
    }
    Texts expected;
    for (int number = 1; number <= 9; ++number) {
      const auto isUsed = [&](const std::string& text) { return text == std::to_string(number); };
      if (std::ranges::none_of(Column("ChannelID"), isUsed) &&
          std::ranges::none_of(Column("16.GroupIDTracker"), isUsed)) {
        expected.push_back(std::to_string(number));
      }
    }
    ASSERT_EQ(Free("ChannelID"), expected) << "step " << i;
  }
}

TEST_F(ProviderTest, AJournalTellsWhatDiffersInSchemaOrder) {
  const auto burst = [](std::int32_t code) {
    auto array = std::make_shared<XArrayDBObject>();
    array->Redim(0, 1, 0, 0);
    array->SetValue(1, 0, code);
    return ArrayObject(std::move(array));
  };
  provider.Set("Burst", 1, burst(4));
  provider.Fill("5.Name", {"a", "b"});
  provider.SetCount(16, 2);
  Journal journal(provider);
  provider.Set("Burst", 1, burst(5));
  EXPECT_EQ(journal.Changes().size(), 1U);
  provider.Set("Burst", 1, burst(4));  // another array, the same cells
  provider.Set("16.Name", 1, "g");
  for (const char* text : {"x", "y"}) provider.Set("5.Name", 2, text);
  for (const char* text : {"x", "a"}) provider.Set("5.Name", 1, text);  // as it was
  provider.Set("5.ChannelIDTracker", 1, "0");                           // another type, the same value
  EXPECT_THAT(Told(journal), ElementsAre("5.Name[2]: b -> y", "16.Name[1]:  -> g"));
  provider.SetCount(30, 2);
  EXPECT_THAT(Told(journal), ElementsAre("5.Name[2]: b -> y", "16.Name[1]:  -> g", "30: 1 -> 2"));
}

TEST_F(ProviderTest, ARollbackRestoresCellsAndRecordsWhateverTheOrderOfTheWrites) {
  provider.Fill("5.Name", {"c", "b", "a"});
  Journal journal(provider);
  for (int round = 0; round < 2; ++round) {
    RecordNr left = 0;
    provider.Set("5.Name", 3, "1");
    ASSERT_TRUE(Table("5")->Sort(provider, "5.Name", 1).Ok());
    provider.Set("5.Name", 3, "2");
    ASSERT_TRUE(Table("5")->DeleteRecord(1, left).Ok());
    ASSERT_TRUE(Table("5")->InsertRecord(1).Ok());
    provider.Set("5.Frequency", 1, 9);
    ASSERT_TRUE(provider.ClearTable("30", kTrue).Ok());
    ASSERT_TRUE(provider.SetAutoUpdate(kFalse).Ok());
    EXPECT_THAT(Told(journal), ElementsAre("5.Frequency[1]: 1.5 -> 9", "5.Name[1]: c -> ",
                                           "5.Name[3]: a -> 2", "30: 1 -> 0"));
    journal.Rollback();
    EXPECT_TRUE(journal.IsUnused());
    EXPECT_THAT(Column("5.Name"), ElementsAre("c", "b", "a"));
    EXPECT_THAT(Column("5.Frequency"), ElementsAre("1.5", "1.5", "1.5"));
    EXPECT_EQ(provider.Count(30), 1);
    Boolean autoUpdate = kFalse;
    EXPECT_TRUE(provider.AutoUpdate(autoUpdate).Ok());
    EXPECT_EQ(autoUpdate, kTrue);
  }
}
}  // namespace
