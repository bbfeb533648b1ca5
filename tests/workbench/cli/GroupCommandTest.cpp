#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tests/workbench/InProcessCommand.h"

/// Scan groups on the command line, on the city fleet: group 101 scans channels 1 to 4 and 31, group 102
/// votes among 13 to 15.
namespace {
using nlohmann::json;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class GroupCommands : public InProcessCommand {
 protected:
  const std::string file = folder.Write("fleet.json", ContentOf(Sample("city-fleet")));
  std::string Groups() {
    EXPECT_EQ(Run({"show", file, "scan-groups"}), ExitCode::Done) << messages;
    return out.str();
  }
  /// Writes the sample with what `change` makes of its tables.
  template <typename Change>
  void Damage(Change change) {
    nlohmann::ordered_json document = nlohmann::ordered_json::parse(ContentOf(Sample("city-fleet")));
    change(document["tables"]);
    folder.Write("fleet.json", document.dump());
  }
};

TEST_F(GroupCommands, MembersAreShownInOrderAndEditedOnTheirForm) {
  EXPECT_THAT(Groups(), AllOf(HasSubstr("   101  Scan  Standard "), HasSubstr(" No      1 to 4, 31\n"),
                              HasSubstr("   102  Vote  Standard "), EndsWith(" 13 to 15\n")));
  EXPECT_EQ(Run({"add", file, "member"}), ExitCode::Done);
  EXPECT_EQ(Run({"set", file, "FilteredScanGroupChannelMemberID", "6", "20"}), ExitCode::Done) << out.str();
  EXPECT_EQ(Run({"delete", file, "member", "2", "--group", "1"}), ExitCode::Done);
  EXPECT_EQ(Run({"add", file, "member", "--group", "2"}), ExitCode::Done);
  EXPECT_THAT(Groups(), AllOf(HasSubstr(" 1, 3, 4, 31, 20\n"), HasSubstr(" 13 to 15, 1\n")));
  EXPECT_EQ(Run({"set", file, "FilteredScanGroupChannelMemberID", "1", "7"}),
            ExitCode::No);  // the preset channel
  EXPECT_THAT(messages, HasSubstr("is in use as a Preset Tx Channel"));
  EXPECT_EQ(Run({"check", file}), ExitCode::Done) << out.str();
}

TEST_F(GroupCommands, AChannelGoesWhenNoGroupHasIt) {
  EXPECT_EQ(Run({"delete", file, "channel", "3"}), ExitCode::No);
  EXPECT_THAT(messages, HasSubstr("You must remove it from the Scan Groups"));
  EXPECT_EQ(Run({"delete", file, "member", "3"}), ExitCode::Done);
  EXPECT_EQ(Run({"delete", file, "channel", "3"}), ExitCode::Done) << out.str();
  EXPECT_THAT(Groups(), HasSubstr(" 1, 2, 4, 31\n"));
  EXPECT_EQ(Run({"delete", file, "scan-group", "1"}), ExitCode::Done) << out.str();
  EXPECT_EQ(Run({"delete", file, "scan-group", "1"}), ExitCode::Done);
  EXPECT_THAT(Groups(), testing::Not(HasSubstr("102")));
  EXPECT_EQ(Run({"add", file, "member"}), ExitCode::No);
  EXPECT_THAT(messages, HasSubstr("there is no Scan Groups defined"));
}

TEST_F(GroupCommands, ManyChannelsAreCopiesWithFreeNumbersAllOrNone) {
  EXPECT_EQ(Run({"add", file, "channel", "--count", "20", "--from", "3"}), ExitCode::Done);
  EXPECT_THAT(out.str(), StartsWith("Channels, records 24 to 43 (Channel ID 21 to 30, 34 to 43): added\n"));
  EXPECT_EQ(Run({"get", file, "TXCallBurstIndex_k6k", "43"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "21013\n");
  const std::string before = ContentOf(file);
  EXPECT_EQ(Run({"add", file, "channel", "--count", "56", "--from", "3", "--json"}), ExitCode::No);
  EXPECT_EQ(json::parse(out.str())["refusedAt"], "permission");  // 98 and two groups are all
  EXPECT_THAT(messages, HasSubstr("must not exceed 100"));
  EXPECT_EQ(Run({"add", file, "channel", "--from", "44"}), ExitCode::CouldNot);
  EXPECT_EQ(Run({"add", file, "scan-group", "--from", "1"}), ExitCode::CouldNot);
  EXPECT_EQ(Run({"add", file, "channel", "--count", "0"}), ExitCode::CouldNot);
  EXPECT_TRUE(ContentOf(file) == before);
  EXPECT_EQ(Run({"add", file, "channel", "--count", "55"}), ExitCode::Done);
  EXPECT_EQ(Run({"add", file, "scan-group"}), ExitCode::No);
}

TEST_F(GroupCommands, WordsServeForCodes) {
  EXPECT_EQ(Run({"set", file, "ScanType_k6k", "2", "background"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("Initiate Call Channel  record 2  Preset -> Selected"));
  EXPECT_EQ(Run({"set", file, "ScanType_k6k", "1", "Background"}), ExitCode::No);
  EXPECT_THAT(messages, HasSubstr("Only one group may be set to background scanning"));
  EXPECT_EQ(Run({"set", file, "ScanType_k6k", "1", "Fast"}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("from 0 to 2, or Standard, Background, VornAx"));
}

TEST_F(GroupCommands, DamagedMembersAreToldAndWrittenAnew) {
  using Tables = nlohmann::ordered_json;
  Damage([](Tables& tables) { tables["18"][1]["GroupNextMemberRecordNum"] = 5; });  // into another group's
  EXPECT_EQ(Run({"check", file}), ExitCode::No);
  EXPECT_THAT(out.str(), HasSubstr("The members of group 101 are linked in another order than they stand."));
  EXPECT_EQ(Run({"set", file, "TxPower_k6k", "5", "1", "--repair"}), ExitCode::Done) << messages;
  EXPECT_EQ(Run({"check", file}), ExitCode::Done) << out.str();
  Damage([](Tables& tables) {
    tables["16"][1]["GroupIdentity"] = 5;
    tables["18"][1]["GroupChannelRecordNum"] = 0;
    tables["18"][7]["GroupChannelRecordNum"] = 80;
  });
  EXPECT_EQ(Run({"check", file}), ExitCode::No);
  EXPECT_THAT(out.str(), AllOf(HasSubstr("number 5 is in use by record 2 of table 16"),
                               HasSubstr("as a member more than once."),
                               HasSubstr("It points at no record of table 5 (Channels)")));
  // Members of a group and of a channel that are not there: the number of the group, the first channel.
  Damage([](Tables& tables) {
    tables["18"][6]["GroupRecordNumber"] = 9;
    tables["18"][7]["GroupChannelRecordNum"] = 80;
    tables["17"][0]["ChannelGroupRecordForRadioStartup"] = 88;
  });
  EXPECT_EQ(Run({"show", file, "scan-groups"}), ExitCode::Done) << messages;
  EXPECT_THAT(out.str(), EndsWith(" 13, 14, 1\n"));
}
}  // namespace
