#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"

namespace {
using testing::IsEmpty;

class ConversionWalk : public TierFixture {
 protected:
  bool Convert(std::string_view from, std::string_view to) {
    destination->Monitor().Clear();
    destination->Monitor().Record(true);
    Boolean result = kFalse;
    const Status status =
        ProviderOwner()->BackwardsCompatibility(sharedProvider, from, destination, to, Variant(), result);
    EXPECT_TRUE(status.Ok());
    return result != kFalse;
  }
  std::string Version() const { return CStr(destination->Get("39.Databaseversion")); }
  std::ptrdiff_t VersionsWritten() const {
    return std::ranges::count(destination->Monitor().Calls(), "Ifield.SetValue 39.Databaseversion[1]");
  }

  const std::shared_ptr<Provider> destination =
      std::make_shared<Provider>(ProjectSchemas()->At("KD4410.0054"));
};

TEST_F(ConversionWalk, WritesTheNewVersionForAnyPair) {
  for (const auto& [from, to, version] : {std::array{"KD4410.0083", "KD4410.0084", "84"},
                                          {"KD4410.0053", "KD4410.0052", "52"},
                                          {"KD4410.0054", "KD4410.0054", "54"},
                                          {"KE2210 Rx.0086", "KE2210 Rx.0087", "87"},
                                          {"KD4410.0088", "KE2210 Tx.0089", "89"},
                                          {"unknown", "0007", "7"}}) {
    EXPECT_TRUE(Convert(from, to)) << from << " to " << to;
    EXPECT_EQ(Version(), version);
    EXPECT_EQ(VersionsWritten(), 1) << from << " to " << to;
  }
}

TEST_F(ConversionWalk, FourPairsRunVersionByVersion) {
  const std::tuple<const char*, const char*, int, const char*> rows[] = {
      {"KD4410.0029", "KD4410.0054", 4, "54"}, {"KD4410.0054", "KD4410.0029", 4, "29"},
      {"KD4410.0054", "KD4410.0083", 3, "83"}, {"KD4410.0083", "KD4410.0054", 3, "54"},
      {"KD4410.0029", "KD4410.0083", 0, "83"},  // not one of them
      {"kd4410.0029", "KD4410.0054", 0, "54"}   // nor is another spelling
  };
  for (const auto& [from, to, hops, version] : rows) {
    EXPECT_TRUE(Convert(from, to)) << from << " to " << to;
    EXPECT_EQ(VersionsWritten(), 1 + hops) << from << " to " << to;
    EXPECT_EQ(Version(), version) << from << " to " << to;
  }
  EXPECT_EQ(provider.Monitor().Count(CallGroup::Write), 0);
}

TEST_F(ConversionWalk, AddsTheVersionRecordWhereThereIsNone) {
  destination->SetCount(39, 0);
  EXPECT_TRUE(Convert("KD4410.0029", "KD4410.0054"));
  EXPECT_EQ(destination->Count(39), 1);
  EXPECT_EQ(Version(), "54");
}

TEST_F(ConversionWalk, AVersionWithoutNumberIsAFault) {
  destination->SetCount(39, 0);
  ExpectTermination();
  for (const char* to : {"KD4410.00x4", "", "word"}) {
    services->Clear();
    EXPECT_TRUE(Convert("KD4410.0029", to)) << to;
    EXPECT_THAT(services->BoxTexts(), testing::ElementsAre("KD4410: BackwardsCompatibility\r\nType mismatch"))
        << to;
    EXPECT_EQ(Terminations(), 1);
    EXPECT_EQ(destination->Count(39), 0);
  }
}

TEST_F(ConversionWalk, RunsSilentlyAndRestoresTheState) {
  for (const Boolean before : {kTrue, kFalse}) {
    ASSERT_TRUE(destination->SetAutoUpdate(before).Ok());
    EXPECT_TRUE(Convert("KD4410.0054", "KD4410.0083"));
    bool silent = before == kFalse;
    for (const std::string& call : destination->Monitor().Calls()) {
      if (call.starts_with("Iprovider.SetAutoUpdate")) silent = call.ends_with(" 0");
      EXPECT_TRUE(silent || !call.starts_with("Ifield.SetValue")) << call;
    }
    Boolean after = kFalse;
    EXPECT_TRUE(destination->AutoUpdate(after).Ok());
    EXPECT_EQ(after, before);
  }
  EXPECT_THAT(messenger.Texts(), IsEmpty());
}
}  // namespace
