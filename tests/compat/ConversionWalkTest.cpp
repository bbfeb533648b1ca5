#include <gmock/gmock.h>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"

namespace {
class ConversionWalk : public TierFixture {
 protected:
  void Convert(std::string_view from, std::string_view to) {
    destination->Monitor().Clear();
    destination->Monitor().Record(true);
    Boolean done = kFalse;
    EXPECT_TRUE(
        ProviderOwner()->BackwardsCompatibility(sharedProvider, from, destination, to, {}, done).Ok());
    EXPECT_EQ(done, kTrue);
  }
  std::string Version() const { return CStr(destination->Get("39.Databaseversion")); }

  const std::shared_ptr<Provider> destination =
      std::make_shared<Provider>(ProjectSchemas()->At("KD4410.0054"));
};

TEST_F(ConversionWalk, WritesTheNewVersionForAnyPairAndFourPairsRunVersionByVersion) {
  const std::tuple<const char*, const char*, int, const char*> rows[] = {
      {"KD4410.0083", "KD4410.0084", 0, "84"},    {"KD4410.0054", "KD4410.0054", 0, "54"},
      {"KD4410.0088", "KE2210 Tx.0089", 0, "89"}, {"unknown", "0007", 0, "7"},
      {"KD4410.0029", "KD4410.0054", 4, "54"},    {"KD4410.0054", "KD4410.0029", 4, "29"},
      {"KD4410.0054", "KD4410.0083", 3, "83"},    {"KD4410.0083", "KD4410.0054", 3, "54"},
      {"KD4410.0029", "KD4410.0083", 0, "83"},  // not one of them
      {"kd4410.0029", "KD4410.0054", 0, "54"}   // nor is another spelling
  };
  for (const auto& [from, to, hops, version] : rows) {
    SCOPED_TRACE(std::string(from) + " to " + to);
    Convert(from, to);
    EXPECT_EQ(std::ranges::count(destination->Monitor().Calls(), "Ifield.SetValue 39.Databaseversion[1]"),
              1 + hops);
    EXPECT_EQ(Version(), version);
  }
  EXPECT_EQ(provider.Monitor().Count(CallGroup::Write), 0);
}

TEST_F(ConversionWalk, AddsTheVersionRecordWhereThereIsNoneUnlessTheVersionHasNoNumber) {
  destination->SetCount(39, 0);
  ExpectTermination();
  for (const char* to : {"KD4410.00x4", "", "word"}) {
    services->Clear();
    Convert("KD4410.0029", to);
    EXPECT_THAT(services->BoxTexts(),
                testing::ElementsAre("KD4410: BackwardsCompatibility\r\nType mismatch"));
    EXPECT_EQ(destination->Count(39), 0) << to;
  }
  Convert("KD4410.0029", "KD4410.0054");
  EXPECT_EQ(destination->Count(39), 1);
  EXPECT_EQ(Version(), "54");
}

TEST_F(ConversionWalk, RunsSilentlyAndRestoresTheState) {
  for (const Boolean before : {kTrue, kFalse}) {
    EXPECT_TRUE(destination->SetAutoUpdate(before).Ok());
    Convert("KD4410.0054", "KD4410.0083");
    bool silent = before == kFalse;
    for (const std::string& call : destination->Monitor().Calls()) {
      if (call.starts_with("Iprovider.SetAutoUpdate")) silent = call.ends_with(" 0");
      EXPECT_TRUE(silent || !call.starts_with("Ifield.SetValue")) << call;
    }
    EXPECT_EQ(silent, before == kFalse);
  }
}
}  // namespace
