#include "tests/channels/ChannelFixture.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

std::string Asked(std::string_view text, std::string_view values) {
  return Box(67, "Warning", "%0:S%1:S" + std::string(text),
             "The following error occurred while programming the radio:|\r\n\r\n|" + std::string(values) +
                 "|\r\n\r\n|Display subsequent error messages?");
}

const std::string kNoChannel = Asked(
    "Only channels with an ID in the range 0 to %2:S are valid for the attached radio. At least one channel "
    "must be in this range for the radio to work as expected.%3:S%4:S",
    "9");
const std::string kSomeChannels = Asked(
    "Channel IDs in the range %2:S to %3:S are not valid for the attached radio. Channel selection will be "
    "limited to channels with an ID in the range 0 to %4:S.%5:S%6:S",
    "10|999|9");
std::string Pin(std::string_view what, std::string_view of, std::string_view id) {
  return Asked("A programmable I/O " + std::string(what) +
                   " ID of '%2:S' is not valid for the attached radio. " + "Programmable I/O " +
                   std::string(of) + " selection may not work as expected.%3:S%4:S",
               id);
}
std::string Group(std::string_view id) {
  return Asked(
      "A group ID of '%2:S' is not valid for the attached radio. Group operation may not work as "
      "expected.%3:S%4:S",
      id);
}

/// A radio whose head has one digit; channels 5 and 12 on networks 1 and 2, each once.
class PreProgram : public ChannelFixture {
 protected:
  void SetUp() override {
    ChannelFixture::SetUp();
    GiveNetworks({0, 0});
    GiveChannels({5, 12});
    provider.Set("ChannelNetworkId_k6k", 2, 2);
    EXPECT_TRUE(ToUI("55.DigitalIOInputPinID"));
    Attach("KDAC5");
  }
  void Attach(const char* head) { messenger.SetRadioInformation({"", "", "", "", "", "", head, ""}); }
  /// What the user is asked, with the answers of the first questions; Yes behind them.
  std::vector<std::string> Questions(std::vector<Button> answers = {}, bool passes = true) {
    messenger.Clear();
    messenger.Play(std::move(answers));
    Boolean result = kFalse;
    EXPECT_TRUE(Validator()->RunPreProgramValidation(result).Ok());
    EXPECT_EQ(result != kFalse, passes);
    return Boxes();
  }
};

TEST_F(PreProgram, OnlyTheHeadOfOneDigitIsAskedAbout) {
  for (const char* head : {"KDAC1", "KDAC2", "KDAC4", "Unknown", "", "kdac5"}) {
    Attach(head);
    EXPECT_THAT(Questions(), IsEmpty()) << head;
  }
  Attach("KDAC5");
  EXPECT_THAT(Questions({kYes}), ElementsAre(kSomeChannels));
  provider.Set("0.RadioTier", 1, "KE2210");
  EXPECT_THAT(Questions(), IsEmpty());
}

TEST_F(PreProgram, NumbersThatTheHeadCanNotShowAreAskedAbout) {
  const std::tuple<std::vector<int>, std::vector<std::string>> cases[] = {
      {{0, 9}, {}}, {{9, 10}, {kSomeChannels}}, {{12, 20}, {kNoChannel}}, {{}, {kNoChannel}}};
  for (const auto& [numbers, boxes] : cases) {
    GiveChannels(numbers);
    EXPECT_EQ(Questions(std::vector<Button>(boxes.size(), kYes)), boxes);
  }
}

TEST_F(PreProgram, EachSettingHasItsQuestionInTheOrderOfTheWalk) {
  for (const char* channel : {"EmChannel", "ScanPresetTxChannel_k6k", "GroupChannelUI_k6k"}) {
    provider.Fill(channel, {"None", "12"});
  }
  provider.Fill("GroupID_k6k", {9, 10});
  provider.Fill("ScanPresetTxChannel_k6k", {"13", "None"});
  provider.Fill("GroupChannelUI_k6k", {"5", "14", "15"});
  provider.Fill("EmChannel", {"16", "17"});
  provider.Set("GPSPollResponseChannel", 1, "18");
  const std::pair<const char*, const char*> parameters[] = {{"Home Channel", "ActionParamHomeChannel"},
                                                            {"Preset Channel", "ActionParamPresetChannel"},
                                                            {"Preset Group", "ActionParamPresetGroup"}};
  RecordNr row = 0;
  for (const auto& [action, field] : parameters) {
    provider.Set("DigitalIOAction", ++row, action);
    provider.Set(field, 1, "2" + std::to_string(row));
  }
  for (int line = 0; line < 7; ++line) {
    provider.Set("DigitalIOAction", ++row, "BCD Pin " + std::to_string(line));
  }
  const std::string emergency = Asked(
      "An emergency channel value of '%2:S' is not valid for the attached radio. Emergency mode may not work "
      "as expected.%3:S%4:S",
      "16");  // the channels of the second network fail, too
  std::vector<std::string> all = {
      kSomeChannels,
      emergency,
      Pin("home channel", "channel", "21"),
      Pin("preset channel", "channel", "22"),
      Pin("preset group", "group", "23"),
      Group("10"),
      Asked("A group with a preset Tx channel ID '%2:S' is not valid for the attached radio. Group operation "
            "may not work as expected.%3:S%4:S",
            "13"),
      Asked(
          "A group member with a channel ID '%2:S' is not valid for the attached radio. Group operation may "
          "not work as expected.%3:S%4:S",
          "14"),
      Asked("A GPS channel ID of '%2:S' is not valid for the attached radio. GPS operation may not work at "
            "expected.%3:S%4:S",
            "18"),
  };
  EXPECT_EQ(Questions(std::vector<Button>(all.size(), kYes)), all);
  provider.Set("DigitalIOAction", ++row, "BCD Pin 7");
  all.push_back(Asked(
      "Channel IDs in the range %2:S to %3:S are not valid via programmable I/O BCD lines. Programmable I/O "
      "channel selection may not work as expected.%4:S%5:S",
      "10|999"));
  EXPECT_EQ(Questions(std::vector<Button>(all.size(), kYes)), all);
  for (std::size_t last = 0; last < all.size(); ++last) {
    std::vector<Button> answers(last + 1, kYes);
    const std::vector<std::string> asked(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    answers.back() = kNo;
    EXPECT_EQ(Questions(answers), asked);
    answers.back() = Button::Cancel;
    EXPECT_EQ(Questions(answers, false), asked);
  }
  EXPECT_TRUE(provider.IsAutoUpdating());

  provider.Fill("EmChannel", {"None", "17"});  // no channel of its network to call on instead
  const auto asked = Questions(std::vector<Button>(all.size() - 1, kYes));
  EXPECT_EQ(asked[1], all[2]);
  GiveChannels({5, 9});  // groups are asked about whatever the channels
  EXPECT_THAT(Questions({kYes, kYes, kYes}), ElementsAre(all[4], all[5], all[6]));
}
}  // namespace
