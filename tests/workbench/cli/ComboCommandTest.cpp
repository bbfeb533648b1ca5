#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/workbench/InProcessCommand.h"

namespace {
using nlohmann::json;
using testing::HasSubstr;

class ComboCommand : public InProcessCommand {};

TEST_F(ComboCommand, PrintsAnItemALineAndLeavesTheFileAlone) {
  EXPECT_EQ(Run({"combo", file, "tapouttype"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "D - Split\n") << "record 1 unless told otherwise";
  EXPECT_EQ(Run({"combo", file, "59.TapOutType", "5", "--json"}), ExitCode::Done);
  const json told = json::parse(out.str());
  EXPECT_EQ(told["uiid"], "TapOutType");
  EXPECT_EQ(told["record"], 5);
  EXPECT_EQ(told["items"], json::parse(R"([{"item": "C - Bypass Out"}])"));
  EXPECT_EQ(messages, "");
  EXPECT_EQ(ContentOf(file), sample);
}

TEST_F(ComboCommand, SaysWhenThereIsNoListOrNothingInIt) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"TxFreq_k6k", "Undefined\n", "TxFreq_k6k has no list.\n"},
      {"DTMFNetworkSigSystemID", "Undefined\n", "DTMFNetworkSigSystemID has no list.\n"},
      {"FreeFormSigSysID", "", "The list of FreeFormSigSysID is empty.\n"}};
  for (const auto& [uiid, items, message] : cases) {
    EXPECT_EQ(Run({"combo", file, uiid}), ExitCode::Done) << uiid;
    EXPECT_EQ(out.str(), items);
    EXPECT_EQ(messages, message);
  }
}

TEST_F(ComboCommand, RefusesAnUnknownField) {
  EXPECT_EQ(Run({"combo", file, "TapOutTypes"}), ExitCode::CouldNot);
  EXPECT_THAT(messages, HasSubstr("did you mean TapOutType?"));
  EXPECT_EQ(Run({"combo", file, "TapOutType", "0"}), ExitCode::CouldNot);
  EXPECT_EQ(out.str(), "");
}
}  // namespace
