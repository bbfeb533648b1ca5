#include "workbench/jobs/Difference.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <numeric>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "tests/workbench/InProcessCommand.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/store/ValueText.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// The old record that stands in each place, by record from index 0.
using Order = std::vector<RecordNr>;

Order Reversed(RecordNr first, RecordNr count) {
  Order order(static_cast<std::size_t>(count));
  std::iota(order.begin(), order.end(), 1);
  std::reverse(order.begin() + (first - 1), order.end());
  return order;
}

/// The order of records of which each of the others has a block.
Order InBlocks(const Order& owners, RecordNr each) {
  Order order;
  for (const RecordNr owner : owners) {
    for (RecordNr i = 1; i <= each; ++i) order.push_back((owner - 1) * each + i);
  }
  return order;
}

void Reorder(Provider& content, std::int32_t table, const Order& order) {
  for (const SchemaField& field : content.GetSchema().FieldsOf(*content.GetSchema().FindTable(table))) {
    std::vector<Variant> old;
    for (RecordNr record = 1; record <= content.Count(table); ++record)
      old.push_back(content.Get(field, record));
    for (std::size_t i = 0; i < order.size(); ++i) {
      content.Set(field, static_cast<RecordNr>(i + 1), old[static_cast<std::size_t>(order[i] - 1)]);
    }
  }
}

/// Lets the pointers of a field follow the records that have moved; `first` is what counts as record 1.
void Repoint(Provider& content, std::string_view name, const Order& order, std::int32_t first = 0) {
  const SchemaField& field = content.FieldOf(name);
  for (RecordNr record = 1; record <= content.Count(field.table); ++record) {
    const auto place = std::ranges::find(order, CLng(content.Get(field, record)) - first + 1);
    content.Set(field, record, static_cast<std::int32_t>(place - order.begin()) + first);
  }
}

class DifferenceTest : public testing::Test {
 protected:
  static std::shared_ptr<Provider> Content(const std::string& sample) {
    return PersonalityFile::Parse(sample, ContentOf(Sample(sample)), *ProjectSchemas());
  }
  /// The personalities outlive what is told of them.
  const Difference& Between(const std::shared_ptr<Provider>& a, const std::shared_ptr<Provider>& b) {
    const HostParts parts = ProjectParts();
    const auto messenger = std::make_shared<ScriptedMessenger>();
    a_ = ForComparison(parts, a, messenger);
    b_ = ForComparison(parts, b, messenger);
    difference_ = Compare(a_, b_);
    return difference_;
  }
  static std::vector<std::string> Told(const Difference& difference) {
    std::vector<std::string> told;
    for (const RecordDifference& one : difference.onlyInA) {
      told.push_back("A " + std::to_string(one.table->number) + " " + one.record);
    }
    for (const RecordDifference& one : difference.onlyInB) {
      told.push_back("B " + std::to_string(one.table->number) + " " + one.record);
    }
    for (const CellDifference& cell : difference.cells) {
      told.push_back(cell.field->id + " " + cell.record + " " + ValueText::Of(cell.a) + ">" +
                     ValueText::Of(cell.b));
    }
    return told;
  }

 private:
  ComparedPersonality a_, b_;
  Difference difference_;
};

TEST_F(DifferenceTest, TheOrderOfChannelsAndTonesIsNone) {
  const auto a = Content("full");
  a->Set("16.Priority1Channel", 3, 7);
  const auto b = a->Copy();
  const Order channels = Reversed(2, a->Count(5));
  for (const std::int32_t table : {5, 7}) Reorder(*b, table, channels);
  EXPECT_THAT(Told(Between(a, b)), testing::Contains("16.Priority1Channel 927 77>837"));
  for (const char* pointer : {"7.CibChannelRec", "16.Priority1Channel", "16.Priority2Channel",
                              "16.ScanPresetTxChannel", "16.VotePresetTxChannel", "18.GroupChannelRecordNum",
                              "53.ChannelRecordNr", "69.GPSPollResponseChannel"}) {
    Repoint(*b, pointer, channels);
  }
  Repoint(*b, "76.DSDBM_PRESET_CALL_CHANNEL_REF", channels, 1);
  for (RecordNr input = 1; input <= b->Count(55); ++input) {  // inputs that choose a channel
    const std::int32_t action = CLng(b->Get("55.DigitalIOInputActivationAction", input));
    for (const char* field : {"55.GPIOActivation1", "55.GPIODeActivation1"}) {
      const bool isPointer = action == 23 || (action == 24 && field[7] == 'A');
      if (isPointer) b->Set(field, input, b->Count(5) - CLng(b->Get(field, input)));
    }
  }
  constexpr RecordNr kPresetChannel = 5;  // among the actions of the keys
  const auto preset = std::ranges::find(channels, CLng(a->Get("24.Parameter1", kPresetChannel)) + 1);
  b->Set("24.Parameter1", kPresetChannel, static_cast<std::int32_t>(preset - channels.begin()));
  const Order tones = Reversed(1, a->Count(50));
  Reorder(*b, 50, tones);
  for (RecordNr record = 1; record <= b->Count(5); ++record) {
    for (const std::string direction : {"5.Rx", "5.Tx"}) {
      if (CLng(b->Get(direction + "SubaudibleType", record)) != 1) continue;
      const std::int32_t index = CLng(b->Get(direction + "SubaudibleIndex", record));
      b->Set(direction + "SubaudibleIndex", record, b->Count(50) - 1 - index);
    }
  }
  const Difference& difference = Between(a, b);
  EXPECT_THAT(Told(difference), IsEmpty());
  EXPECT_TRUE(difference.IsEqual());
  ASSERT_FALSE(difference.reordered.empty());
  EXPECT_EQ(difference.reordered.front()->number, 5);
}

TEST_F(DifferenceTest, TheOrderOfNetworksIsNoneWithAllThatLiesParallelToThem) {
  const auto a = Content("city-fleet");
  a->Set("36.SubAudInvalidConfDelay", 2, 150);
  const auto b = a->Copy();
  const Order networks = Reversed(1, a->Count(21));
  for (const std::int32_t table : {21, 36, 53, 67, 72, 75, 77, 78}) Reorder(*b, table, networks);
  Reorder(*b, 68, InBlocks(networks, 4));
  const Order alerts = InBlocks(networks, 6);
  Reorder(*b, 51, alerts);
  for (const char* pointer :
       {"51.CallAlertID", "21.Ind1CallAlertPtr", "21.Ind2CallAlertPtr", "21.GroupCallAlertPtr",
        "21.AllCallAlertPtr", "21.PriorityCallAlertPtr", "21.EmergencyCallAlertPtr"}) {
    Repoint(*b, pointer, alerts);
  }
  for (const char* pointer : {"5.ChannelNetworkId", "53.NetworkID", "21.SIBTPointer", "21.EmergencyPointer",
                              "67.DTMFPatchToneSetupPointer"}) {
    Repoint(*b, pointer, networks);
  }
  EXPECT_THAT(Told(Between(a, b)), IsEmpty());
}

TEST_F(DifferenceTest, WhatDiffersIsToldByIdentityAndAsTheFormsShowIt) {
  const auto a = Content("city-fleet");
  const auto changed = [&](std::string_view field, RecordNr record, Variant value) {
    const auto b = a->Copy();
    b->Set(field, record, std::move(value));
    return Told(Between(a, b));
  };
  EXPECT_THAT(changed("7.CibChannelID", 17, 99), UnorderedElementsAre("A 5 17", "B 5 99"));
  EXPECT_THAT(changed("5.ChannelTxFreq", 3, 450e6), ElementsAre("5.ChannelTxFreq 3 450.062500>450.000000"));
  EXPECT_THAT(changed("5.ChannelNetworkId", 3, 2), testing::Contains("5.ChannelNetworkId 3 2>3"));
  EXPECT_THAT(changed("61.DCScodeword", 1, 5), testing::SizeIs(1));
  EXPECT_THAT(changed("5.TXCallBurst", 3, 0), ElementsAre(testing::StartsWith("5.TXCallBurst 3 ")));
  EXPECT_THAT(changed("5.HiddenChannel", 3, 1), ElementsAre("5.HiddenChannel 3 0>1"));
  EXPECT_THAT(changed("69.GPSEnabled", 1, "1"), IsEmpty()) << "a number may come as text";
}

TEST_F(DifferenceTest, RecordsThatNothingTellsApartAreComparedInTheirOrder) {
  const auto a = Content("marine-harbour");
  a->Set("7.CibChannelID", 2, 16);  // the number of the first
  const auto b = a->Copy();
  EXPECT_TRUE(Between(a, b).IsEqual());
  b->Set("5.TxPower_k6k", 2, 1);
  EXPECT_THAT(Told(Between(a, b)), ElementsAre("5.TxPower_k6k 16 #2 4>1"));
  b->SetCount(55, 14);
  EXPECT_THAT(Told(Between(a, b)), testing::Contains("A 55 15"));
}

TEST_F(DifferenceTest, OfTwoVersionsTheCommonFieldsAreComparedAndTheOthersTold) {
  const auto a = NewPersonality(*ProjectSchemas(), "KD4410.0094");
  const auto b = NewPersonality(*ProjectSchemas(), "KD4410.0054");
  b->Set("21.NetworkID", 1, 4);
  b->Set("9.VHSDLeadInDelay", 1, 90);
  const Difference& difference = Between(a, b);
  EXPECT_FALSE(difference.sameVersion);
  EXPECT_THAT(difference.extraInA, IsEmpty());
  ASSERT_THAT(difference.extraInB, testing::SizeIs(1));
  EXPECT_EQ(difference.extraInB[0].field->id, "21.NetworkID");
  EXPECT_THAT(Told(difference),
              testing::IsSupersetOf({"9.VHSDLeadInDelay 1 100>90", "39.Databaseversion 1 94>54"}));
}

using DiffCommand = InProcessCommand;

TEST_F(DiffCommand, TellsByItsExitCodeWhetherTheyAreEqual) {
  std::string other = sample;
  other.replace(other.find("440500000"), 9, "440600000");
  const std::string changed = folder.Write("changed.json", other);
  const std::string damaged = folder.Write("damaged.json", "{\n]");
  EXPECT_EQ(Run({"diff", file, Sample("minimal")}), ExitCode::Done) << out.str() << messages;
  EXPECT_EQ(Run({"diff", file, changed}), ExitCode::No) << messages;
  EXPECT_THAT(out.str(), testing::HasSubstr("440.500000  440.600000"));
  EXPECT_EQ(Run({"diff", changed, file, "--json"}), ExitCode::No);
  EXPECT_EQ(nlohmann::json::parse(out.str())["cells"][0]["storedA"], 440600000);
  for (const std::string& unreadable : {damaged, folder.PathOf("none.json")}) {
    EXPECT_EQ(Run({"diff", file, unreadable}), ExitCode::CouldNot);
    EXPECT_THAT(messages, testing::HasSubstr(unreadable));
    EXPECT_THAT(out.str(), IsEmpty());
  }
}
}  // namespace
