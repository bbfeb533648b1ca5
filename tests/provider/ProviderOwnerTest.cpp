#include <gmock/gmock.h>

#include <regex>
#include <set>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "tests/support/TierFixture.h"

namespace {
using testing::ElementsAre;
using testing::HasSubstr;

class OwnerOfTheProvider : public TierFixture {
 protected:
  std::vector<std::string> Texts(std::string_view name) {
    const SchemaField& field = provider.FieldOf(name);
    std::vector<std::string> texts;
    for (RecordNr record = 1; record <= provider.Count(field.table); ++record)
      texts.push_back(CStr(provider.Get(field, record)));
    return texts;
  }
  void PostRead() { EXPECT_TRUE(ProviderOwner()->PostReadProcessing(sharedProvider, {}).Ok()); }
  void PreWrite() { EXPECT_TRUE(ProviderOwner()->PreWriteProcessing(sharedProvider, {}, {}).Ok()); }

  /// `work` writes and adds only while AutoUpdate is off, and leaves it on.
  template <typename Work>
  void ExpectSilent(Work work, std::string_view name) {
    EXPECT_TRUE(provider.SetAutoUpdate(kTrue).Ok());
    provider.Monitor().Clear();
    provider.Monitor().Record(true);
    work();
    provider.Monitor().Record(false);
    bool silent = false;
    for (const std::string& call : provider.Monitor().Calls()) {
      if (call.starts_with("Iprovider.SetAutoUpdate")) silent = call.ends_with(" 0");
      const bool writes = std::regex_search(call, std::regex("SetValue|AppendRecord|ClearTable"));
      EXPECT_TRUE(silent || !writes) << name << ": " << call;
    }
    EXPECT_FALSE(silent) << name << ": the state is not restored";
  }
};

TEST_F(OwnerOfTheProvider, PolaritiesAreInvertedAfterAReadAndBeforeAWrite) {
  provider.Fill("36.DCSTxPolarity", {0, 1, "1", 3});
  for (RecordNr record = 1; record <= 4; ++record) provider.Set("36.DCSRxPolarity", record, record % 2);
  PostRead();
  EXPECT_THAT(Texts("36.DCSTxPolarity"), ElementsAre("1", "0", "0", "2"));
  EXPECT_THAT(Texts("36.DCSRxPolarity"), ElementsAre("0", "1", "0", "1"));
  PreWrite();
  EXPECT_THAT(Texts("36.DCSTxPolarity"), ElementsAre("0", "1", "1", "1"));
  EXPECT_THAT(Texts("36.DCSRxPolarity"), ElementsAre("1", "0", "1", "0"));
  provider.SetCount(36, 0);
  PostRead();
}

TEST_F(OwnerOfTheProvider, AWritePadsTheToneTablesToTheirCapacity) {
  provider.Fill("50.CTCSSfreq", {670, 719});
  provider.SetCount(61, 256);
  PreWrite();
  EXPECT_EQ(provider.Count(50), 256);
  EXPECT_EQ(provider.Count(61), 256);
  EXPECT_EQ(CStr(provider.Get("50.CTCSSfreq", 2)), "719");
  EXPECT_EQ(CStr(provider.Get("50.CTCSSfreq", 3)), CStr(provider.FieldOf("50.CTCSSfreq").standard));
}

TEST_F(OwnerOfTheProvider, EachStepIsSilentAndRestoresTheState) {
  for (const std::int32_t table : {5, 7, 29}) provider.SetCount(table, 1);
  ExpectSilent([&] { PostRead(); }, "PostRead");
  ExpectSilent([&] { PreWrite(); }, "PreWrite");
  for (const SchemaField& field : provider.GetSchema().Fields()) {
    if (field.transform == 0) continue;
    if (provider.Count(field.table) == 0 && field.scope == FieldScope::Record) continue;
    ExpectSilent([&] { FromUI(field.id); }, field.id);
    ExpectSilent([&] { ToUI(field.id); }, field.id);
  }
}

TEST_F(OwnerOfTheProvider, BandsAreGivenByTheirPosition) {
  const auto ranges = [&](std::int32_t position) {
    std::int32_t low = 1, high = 2, txLow = 3, txHigh = 4;
    std::string steps = "before";
    EXPECT_TRUE(ProviderOwner()->GetFrequencyRanges(position, low, high, txLow, txHigh, steps).Ok());
    return std::tuple(low, high, txLow, txHigh, steps);
  };
  constexpr auto kSteps = "6250|5000|3125|2500";
  EXPECT_EQ(ranges(0), std::tuple(66'000'000, 88'000'000, 66'000'000, 88'000'000, kSteps));
  EXPECT_EQ(ranges(9), std::tuple(896'000'000, 941'000'000, 896'000'000, 941'000'000, kSteps));
  EXPECT_EQ(ranges(11), std::tuple(0, 0, 0, 0, "")) << "reserved";
  ExpectTermination();
  for (const std::int32_t unknown : {-1, 12}) {
    services->Clear();
    EXPECT_EQ(ranges(unknown), std::tuple(1, 2, 3, 4, "before"));
    EXPECT_THAT(services->BoxTexts(), ElementsAre("KD4410: GetFrequencyRanges\r\nSubscript out of range"));
  }

  provider.Set("Band_k6k", 1, "9");
  std::string code;
  EXPECT_TRUE(ProviderOwner()->GetBandDesc(sharedProvider, code).Ok());
  EXPECT_EQ(code, "L3");
  XArrayDBObject bands;
  bands.Redim(-1, 20, 0, 3);
  EXPECT_TRUE(ProviderOwner()->GetBands(bands).Ok());
  EXPECT_EQ(std::tuple(bands.LowerBound(1), bands.UpperBound(1), bands.Count(2)), std::tuple(0, 9, 1));
  EXPECT_EQ(CStr(bands.GetValue(9, 0)), "L3 (896-941 MHz)");
}

TEST_F(OwnerOfTheProvider, FieldsOutsideTheTableAreFalseNumbersWithoutActionTrueAndNeitherWrites) {
  provider.SetCount(5, 1);
  provider.Monitor().Clear();
  for (const char* field : {"5.ChannelTxFreq", "0.RadioTier", "1108.Label", "DigitalIOPin"})
    EXPECT_FALSE(FromUI(field) || ToUI(field)) << field;
  std::set<std::int32_t> numbers;
  for (const SchemaField& field : provider.GetSchema().Fields()) {
    if (!std::set{515, 522, 523, 532, 538, 543, 578}.contains(field.transform)) continue;
    numbers.insert(field.transform);
    EXPECT_TRUE(FromUI(field.id) && ToUI(field.id)) << field.id;
  }
  EXPECT_EQ(numbers.size(), 7U) << "the schema has a field for each";
  EXPECT_EQ(provider.Monitor().Count(CallGroup::Write), 0);
}

TEST_F(OwnerOfTheProvider, TheSystemIdentityIsCopiedBothWaysInItsRecord) {
  provider.Fill("29.SignalSystemId", {4, 5});
  provider.Set("29.SelcallID", 1, 8);
  EXPECT_TRUE(FromUI("29.SignalSystemId", 2));
  EXPECT_THAT(Texts("29.SelcallID"), ElementsAre("8", "5"));
  EXPECT_TRUE(ToUI("29.SignalSystemId", 1));
  EXPECT_THAT(Texts("29.SignalSystemId"), ElementsAre("8", "5"));
}

TEST_F(OwnerOfTheProvider, APlainNameConvertsAsItsFieldIdDoesAnUnknownOneIsAFaultThatLeavesTheResultTrue) {
  provider.SetCount(5, 2);
  provider.Set("TxFreq_k6k", 2, "156.8");
  EXPECT_TRUE(FromUI("TXFREQ_K6K", 2));
  EXPECT_EQ(CDbl(provider.Get("5.ChannelTxFreq", 2)), 156'800'000);
  ExpectTermination();
  for (const char* name : {"5.NoSuchField", "NoSuchName"}) {
    services->Clear();
    EXPECT_TRUE(FromUI(name));
    EXPECT_THAT(services->BoxTexts(), ElementsAre(HasSubstr("KD4410: TransformFromUI\r\n")));
  }
}

TEST_F(OwnerOfTheProvider, DTMFPresetsConvertAsAWholeTableWithTheirKeysExchanged) {
  constexpr const char* kForm = "65.DTMFChannelPresetSequenceUI";
  provider.Fill(kForm, {"", "12*#", "ABCD"});
  EXPECT_TRUE(FromUI(kForm, 2));
  const std::vector<std::int32_t> codes[] = {{}, {1, 2, 15, 14}, {10, 11, 12, 13}};
  for (RecordNr record = 1; record <= 3; ++record) {
    const XArrayDBObject& array = CArray(provider.Get("65.DTMFChannelPresetSequence", record));
    std::vector<std::int32_t> stored;
    for (std::int32_t row = 1; row <= array.UpperBound(1); ++row)
      stored.push_back(CLng(array.GetValue(row, 0)));
    EXPECT_EQ(stored, codes[record - 1]);
    provider.Set(kForm, record, "x");
  }
  EXPECT_TRUE(ToUI(kForm));
  EXPECT_THAT(Texts(kForm), ElementsAre("", "12*#", "ABCD"));
  EXPECT_THAT(Texts("65.SortOrder"), ElementsAre("1", "2", "3"));
}
}  // namespace
