#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/Conversions.h"
#include "platform/XArrayDBObject.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TierFixture.h"

namespace {
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class OwnerOfTheProvider : public TierFixture {
 protected:
  std::vector<std::string> Texts(std::string_view name) {
    const SchemaField& field = provider.FieldOf(name);
    std::vector<std::string> texts;
    for (RecordNr record = 1; record <= provider.Count(field.table); ++record) {
      texts.push_back(CStr(provider.Get(field, record)));
    }
    return texts;
  }
  void PostRead() { EXPECT_TRUE(ProviderOwner()->PostReadProcessing(sharedProvider, {}).Ok()); }
  void PreWrite() { EXPECT_TRUE(ProviderOwner()->PreWriteProcessing(sharedProvider, {}, {}).Ok()); }

  /// What `work` writes and adds while AutoUpdate is on.
  template <typename Work>
  std::vector<std::string> LoudWrites(Work work) {
    EXPECT_TRUE(provider.SetAutoUpdate(kTrue).Ok());
    provider.Monitor().Clear();
    provider.Monitor().Record(true);
    work();
    provider.Monitor().Record(false);
    bool silent = false;
    std::vector<std::string> loud;
    for (const std::string& call : provider.Monitor().Calls()) {
      if (call.starts_with("Iprovider.SetAutoUpdate")) silent = call.ends_with(" 0");
      const bool writes = call.starts_with("Ifield.SetValue") || call.starts_with("Itable.AppendRecord") ||
                          call.starts_with("Iprovider.ClearTable");
      if (writes && !silent) loud.push_back(call);
    }
    EXPECT_FALSE(silent) << "the state is not restored";
    return loud;
  }
};

TEST_F(OwnerOfTheProvider, PolaritiesAreInvertedAfterAReadAndBeforeAWrite) {
  provider.Fill("36.DCSTxPolarity", {0, 1, "1", 3});
  const auto set = [&](RecordNr record, const Variant& value) {
    provider.Set("36.DCSRxPolarity", record, value);
  };
  for (RecordNr record = 1; record <= 4; ++record) set(record, record % 2);
  PostRead();
  EXPECT_THAT(Texts("36.DCSTxPolarity"), ElementsAre("1", "0", "0", "2"));
  EXPECT_THAT(Texts("36.DCSRxPolarity"), ElementsAre("0", "1", "0", "1"));
  PostRead();
  EXPECT_THAT(Texts("36.DCSTxPolarity"), ElementsAre("0", "1", "1", "1"));
  PreWrite();
  EXPECT_THAT(Texts("36.DCSRxPolarity"), ElementsAre("0", "1", "0", "1"));
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
  EXPECT_THAT(LoudWrites([&] { PostRead(); }), IsEmpty());
  EXPECT_THAT(LoudWrites([&] { PreWrite(); }), IsEmpty());
  for (const SchemaField& field : provider.GetSchema().Fields()) {
    if (field.transform == 0) continue;
    if (provider.Count(field.table) == 0 && field.scope == FieldScope::Record) continue;
    EXPECT_THAT(LoudWrites([&] { FromUI(field.id); }), IsEmpty()) << field.id;
    EXPECT_THAT(LoudWrites([&] { ToUI(field.id); }), IsEmpty()) << field.id;
  }
}

TEST_F(OwnerOfTheProvider, BandsAreGivenByTheirPosition) {
  const auto ranges = [&](std::int32_t position) {
    std::int32_t limits[4] = {1, 2, 3, 4};
    std::string steps = "before";
    EXPECT_TRUE(ProviderOwner()
                    ->GetFrequencyRanges(position, limits[0], limits[1], limits[2], limits[3], steps)
                    .Ok());
    std::vector<std::string> texts{steps};
    for (const std::int32_t limit : limits) texts.push_back(std::to_string(limit));
    return texts;
  };
  constexpr auto kSteps = "6250|5000|3125|2500";
  EXPECT_THAT(ranges(0), ElementsAre(kSteps, "66000000", "88000000", "66000000", "88000000"));
  EXPECT_THAT(ranges(9), ElementsAre(kSteps, "896000000", "941000000", "896000000", "941000000"));
  for (const std::int32_t reserved : {10, 11})
    EXPECT_THAT(ranges(reserved), ElementsAre("", "0", "0", "0", "0"));
  ExpectTermination();
  for (const std::int32_t unknown : {-1, 12}) {
    services->Clear();
    EXPECT_THAT(ranges(unknown), ElementsAre("before", "1", "2", "3", "4"));
    EXPECT_THAT(services->BoxTexts(), ElementsAre("KD4410: GetFrequencyRanges\r\nSubscript out of range"));
  }

  provider.Set("Band_k6k", 1, "9");
  std::int32_t lowest = 0, highest = 0, ignored = 0;
  std::string steps, code;
  EXPECT_TRUE(ProviderOwner()->GetCurrentFrequencyRanges(lowest, highest, ignored, ignored, steps).Ok());
  EXPECT_EQ(lowest, 896'000'000);
  EXPECT_EQ(highest, 941'000'000);
  EXPECT_TRUE(ProviderOwner()->GetBandDesc(sharedProvider, code).Ok());
  EXPECT_EQ(code, "L3");
}

TEST_F(OwnerOfTheProvider, TheListOfBandsHasTenRows) {
  XArrayDBObject bands;
  bands.Redim(-1, 20, 0, 3);
  EXPECT_TRUE(ProviderOwner()->GetBands(bands).Ok());
  EXPECT_EQ(bands.LowerBound(1), 0);
  EXPECT_EQ(bands.UpperBound(1), 9);
  EXPECT_EQ(bands.Count(2), 1);
  EXPECT_EQ(CStr(bands.GetValue(0, 0)), "A4 (66-88 MHz)");
  EXPECT_EQ(CStr(bands.GetValue(9, 0)), "L3 (896-941 MHz)");
}

TEST_F(OwnerOfTheProvider, AFieldOutsideTheTableIsFalseAndStaysAsItIs) {
  provider.SetCount(5, 1);
  provider.Monitor().Clear();
  for (const char* field :
       {"5.ChannelTxFreq", "0.RadioTier", "16.GroupIDTracker", "21.AutoOverBeepFrequency"}) {
    EXPECT_FALSE(FromUI(field)) << field;
    EXPECT_FALSE(ToUI(field)) << field;
  }
  EXPECT_EQ(provider.Monitor().Count(CallGroup::Write), 0);
  EXPECT_THAT(services->BoxTexts(), IsEmpty());
}

TEST_F(OwnerOfTheProvider, NumbersWithoutActionAreTrueAndChangeNothing) {
  std::set<std::int32_t> numbers;
  for (const SchemaField& field : provider.GetSchema().Fields()) {
    if (!std::set{515, 522, 523, 532, 538, 543, 578}.contains(field.transform)) continue;
    numbers.insert(field.transform);
    provider.Monitor().Clear();
    EXPECT_TRUE(FromUI(field.id)) << field.id;
    EXPECT_TRUE(ToUI(field.id)) << field.id;
    EXPECT_EQ(provider.Monitor().Count(CallGroup::Write), 0) << field.id;
  }
  EXPECT_EQ(numbers.size(), 7U) << "the schema has a field for each";
}

TEST_F(OwnerOfTheProvider, TheSystemIdentityIsCopiedBothWaysInItsRecord) {
  provider.Fill("29.SignalSystemId", {4, 5});
  provider.Set("29.SelcallID", 1, 8);
  EXPECT_TRUE(FromUI("29.SignalSystemId", 2));
  EXPECT_THAT(Texts("29.SelcallID"), ElementsAre("8", "5"));
  EXPECT_TRUE(ToUI("29.SignalSystemId", 1));
  EXPECT_THAT(Texts("29.SignalSystemId"), ElementsAre("8", "5"));
}

TEST_F(OwnerOfTheProvider, APlainNameConvertsAsItsFieldIdDoes) {
  provider.SetCount(5, 2);
  provider.Set("TxFreq_k6k", 2, "156.8");
  EXPECT_TRUE(FromUI("TXFREQ_K6K", 2));
  EXPECT_EQ(CDbl(provider.Get("5.ChannelTxFreq", 2)), 156'800'000);
  provider.Fill("ChannelID_k6k", {3});
  EXPECT_TRUE(FromUI("ChannelID_k6k"));
  EXPECT_FALSE(FromUI("GroupID_k6k"));
}

TEST_F(OwnerOfTheProvider, AnUnknownFieldIsAFaultThatLeavesTheResultTrue) {
  ExpectTermination();
  const std::pair<const char*, const char*> rows[] = {{"5.NoSuchField", "TransformFromUI"},
                                                      {"NoSuchName", "TransformFromUI"}};
  for (const auto& [name, procedure] : rows) {
    services->Clear();
    EXPECT_TRUE(FromUI(name));
    EXPECT_THAT(services->BoxTexts(), ElementsAre(HasSubstr(std::string("KD4410: ") + procedure + "\r\n")));
    EXPECT_EQ(Terminations(), 1);
  }
  services->Clear();
  EXPECT_TRUE(ToUI("5.ChannelTxFreqUI", 99));
  EXPECT_THAT(services->BoxTexts(), ElementsAre(HasSubstr("KD4410: GetTxFrequency\r\n")));
}

TEST_F(OwnerOfTheProvider, ANetworksNumberGoesToItsEmergencySettingsToo) {
  provider.SetCount(53, 2);
  provider.Fill("21.NetworkPointer", {11, 12});
  EXPECT_TRUE(ToUI("NetworkID", 2));
  EXPECT_TRUE(provider.Get("21.NetworkIDTracker", 2).IsText());
  EXPECT_EQ(CStr(provider.Get("21.NetworkIDTracker", 2)), "12");
  EXPECT_EQ(CStr(provider.Get("EmNetworkID", 2)), "12");
  provider.Set("NetworkID", 2, "14");
  EXPECT_TRUE(FromUI("NetworkID", 2));
  EXPECT_EQ(CLng(provider.Get("21.NetworkPointer", 2)), 14);
  EXPECT_FALSE(provider.Get("21.NetworkPointer", 2).IsText());
  EXPECT_EQ(CLng(provider.Get("21.SIBTPointer", 2)), 1);
}

TEST_F(OwnerOfTheProvider, ANetworkShowsTheIdentityOfItsSystem) {
  provider.Fill("29.SelcallID", {7, 8});
  for (const char* field : {"64.DTMFNetworkSigSystemID", "37.T99NetworkID", "80.MDC1200SignallingSystemID"})
    provider.Fill(field, {"1", "2"});
  const struct {
    std::int32_t type, index;
    const char* text;
  } rows[] = {{0, 0, "None"}, {1, 0, "7"}, {1, 1, "8"}, {1, 2, ""},     {2, 1, "2"},
              {3, 0, "1"},    {4, 1, "2"}, {4, 9, ""},  {5, 0, "None"}, {1, -1, ""}};
  for (const auto& row : rows) {
    provider.Set("21.SignallingType", 1, row.type);
    provider.Set("21.SignallingPointer", 1, row.index);
    EXPECT_TRUE(ToUI("NetworkSignallingID"));
    EXPECT_EQ(CStr(provider.Get("NetworkSignallingID")), row.text) << row.type << ", " << row.index;
  }
}

TEST_F(OwnerOfTheProvider, ANetworkPointsAtTheFirstSystemOfItsIdentity) {
  for (const char* field :
       {"29.SignalSystemId", "64.DTMFNetworkSigSystemID", "37.T99NetworkID", "80.MDC1200SignallingSystemID"})
    provider.Fill(field, {5, 6, 6});
  provider.Fill("29.SelcallID", {6, 5, 4});  // the raw twin is not asked on this way
  const struct {
    std::int32_t type;
    const char* identity;
    std::int32_t index;
  } rows[] = {{1, "6", 1}, {1, "None", 0}, {0, "6", 0}, {2, "6", 1},
              {3, "5", 0}, {4, "6", 1},    {4, "9", 0}, {5, "6", 0}};
  for (const auto& row : rows) {
    provider.Set("21.SignallingType", 1, row.type);
    provider.Set("21.SignallingPointer", 1, 77);
    provider.Set("NetworkSignallingID", 1, row.identity);
    EXPECT_TRUE(FromUI("NetworkSignallingID"));
    EXPECT_EQ(CLng(provider.Get("21.SignallingPointer")), row.index) << row.type << ", " << row.identity;
  }
}

TEST_F(OwnerOfTheProvider, DTMFPresetsConvertAsAWholeTableWithTheirKeysExchanged) {
  provider.Fill("65.DTMFChannelPresetSequenceUI", {"", "12*#", "ABCD"});
  EXPECT_TRUE(FromUI("65.DTMFChannelPresetSequenceUI", 2));
  const auto codes = [&](RecordNr record) {
    const XArrayDBObject& array = CArray(provider.Get("65.DTMFChannelPresetSequence", record));
    std::vector<std::int32_t> result;
    for (std::int32_t row = 1; row <= array.UpperBound(1); ++row)
      result.push_back(CLng(array.GetValue(row, 0)));
    return result;
  };
  EXPECT_THAT(codes(1), IsEmpty());
  EXPECT_THAT(codes(2), ElementsAre(1, 2, 15, 14));
  EXPECT_THAT(codes(3), ElementsAre(10, 11, 12, 13));
  for (RecordNr record = 1; record <= 3; ++record)
    provider.Set("65.DTMFChannelPresetSequenceUI", record, "x");
  EXPECT_TRUE(ToUI("65.DTMFChannelPresetSequenceUI"));
  EXPECT_THAT(Texts("65.DTMFChannelPresetSequenceUI"), ElementsAre("", "12*#", "ABCD"));
  EXPECT_THAT(Texts("65.SortOrder"), ElementsAre("1", "2", "3"));
}
}  // namespace
