#include "workbench/conform/RandomCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/BuiltFiles.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"

namespace {
HostParts Parts() { return {ProjectSchemas(), kTierLibrary, DATA_FOLDER}; }

std::shared_ptr<Provider> MinimalOnForms() {
  auto content = PersonalityFile::Parse("minimal", ContentOf(Sample("minimal")), *ProjectSchemas());
  Session session(Parts(), content, std::make_shared<RecordingMessenger>());
  session.ConvertToForms();
  return content;
}

RandomSession RunSeed(const Provider& content, std::uint64_t seed) {
  Choices choices(seed);
  return RunRandomCalls(Parts(), content, choices, 60);
}

TEST(RandomCalls, ASeedTellsTheWholeSessionAndLeavesThePersonalityAlone) {
  const auto content = MinimalOnForms();
  const RandomSession first = RunSeed(*content, 1);
  EXPECT_EQ(first.trouble, "") << first.Text();
  EXPECT_GT(first.calls.size(), 60U);
  EXPECT_EQ(first.Text(), RunSeed(*content, 1).Text());
  EXPECT_NE(first.Text(), RunSeed(*content, 2).Text());
}

TEST(RandomCalls, ALegalCallThatEndsTheApplicationIsTheLastOneTold) {
  const auto content = MinimalOnForms();
  content->Set("TxFreq_k6k", 1, "no frequency");
  const RandomSession session = RunSeed(*content, 1);
  EXPECT_NE(session.trouble, "");
  EXPECT_THAT(session.Text(), testing::EndsWith("TROUBLE: " + session.trouble + "\n"));
}

TEST(RandomCalls, BytesEndWithTheSession) {
  const std::uint8_t bytes[] = {7, 1, 2, 255, 3};
  Choices choices(bytes);
  EXPECT_EQ(choices.Below(1), 0U);  // no choice, no byte
  EXPECT_EQ(choices.Below(5), 2U);
  EXPECT_EQ(choices.Below(257), 0x0102 % 257U);
  EXPECT_EQ(choices.Below(1000), (255U * 256 + 3) % 1000);
  EXPECT_TRUE(choices.HasEnded());
  EXPECT_EQ(choices.Below(100), 0U);
  const RandomSession nothing = RunRandomCalls(Parts(), *MinimalOnForms(), choices, 60);
  EXPECT_EQ(nothing.Text(), "");
}
}  // namespace
