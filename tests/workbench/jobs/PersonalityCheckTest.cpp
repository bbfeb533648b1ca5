#include "workbench/jobs/PersonalityCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"

namespace {
using testing::ElementsAre;

/// The check of a sample on its forms, through the built library.
class CheckTest : public testing::Test {
 protected:
  void Open(const std::string& sample, Answers answers = {}) {
    content = PersonalityFile::Parse(sample, ContentOf(Sample(sample)), *ProjectSchemas());
    messenger = std::make_shared<CheckMessenger>(std::move(answers));
    session.reset();
    session = std::make_unique<Session>(ProjectParts(), content, messenger);
    session->ConvertToForms();
    messenger->Clear();
  }

  /// The findings whose rule begins so: rule, place and answer, and how the text begins.
  std::vector<std::string> Findings(std::string_view rule) {
    PersonalityCheck check(*session, *messenger);
    check.RunRules();
    std::vector<std::string> told;
    for (const Finding& finding : check.Findings()) {
      if (!finding.rule.starts_with(rule)) continue;
      told.push_back(std::string(NameOf(finding.kind)) + " " + finding.rule + " " +
                     std::to_string(finding.table) + "/" + std::to_string(finding.record) + " " +
                     finding.identity + finding.answer + ": " + finding.text.substr(0, 20));
    }
    return told;
  }

  std::shared_ptr<Provider> content;
  std::shared_ptr<CheckMessenger> messenger;
  std::unique_ptr<Session> session;
};

TEST_F(CheckTest, NoChangeIsJudgedThatNobodyMadeAndATextIsToldOnce) {
  Open("city-fleet");
  content->Set("TxFormat_k6k", 1, "BRRRRR-CCCCC");
  for (const char* burst :
       {"5.TXCallBurstSeq", "5.RepeaterBurstSeq", "5.CallerIDBurstSeq", "5.StatusBurstSeq"}) {
    content->Fill(burst, std::vector<Variant>(20, "None"));
  }
  content->Set("5.TXCallBurstSeq", 3, "12345");  // lacks burst B
  const Form& channels = Forms::Named("Channels");
  EXPECT_TRUE(Forms::MayBeLeft(*session, channels));
  EXPECT_TRUE(messenger->Boxes().empty());
  ASSERT_TRUE(Forms::TurnTo(*session, channels.subject, 3));
  EXPECT_TRUE(Forms::MayBeLeft(*session, channels));
  EXPECT_EQ(messenger->Boxes().size(), 1U);
  messenger->Clear();

  EXPECT_THAT(Findings(""), ElementsAre("notice form USRCTLCHANNELSKD4410 5/3 3: The channel's Fixed ",
                                        "error final ChannelsFinalValidation 5/3 3: The Channel 3 does n"));
  EXPECT_EQ(CLng(content->Get("CurrentChannelNr")), 3);
}

TEST_F(CheckTest, ARuleReadsTheFieldsBesideItFromTheSameRecord) {
  Open("city-fleet");
  content->Set("StealthFalsePowerdown", 1, 1);
  content->Set("StealthFalsePowerdown", 2, 1);  // on a Selcall network, where it may be reset
  EXPECT_THAT(Findings("StealthFalse"),
              ElementsAre("notice StealthFalsePowerdown 53/1 1: If False Power Down "));
}

TEST_F(CheckTest, EveryRuleOfASaveIsRunToItsEndWhateverTheOthersFind) {
  for (const Button answer : {Button::Yes, Button::No}) {
    Open("city-fleet", Answers::Always(answer));
    content->Set("DataPowerupState", 1, 2);
    content->Set("GroupActivityOnPowerUp_k6k", 1, 1);
    content->Fill("ScanType_k6k", {1});
    content->Set("ScanGroupDisplayIndicator_k6k", 1, 0);
    content->Fill("AutoAckType", {2, 0, 2});
    const std::string answered = answer == Button::Yes ? "Yes" : "No";
    EXPECT_THAT(Findings("final"),
                ElementsAre("question final 1 9/1 " + answered + ": You have set the Pow",
                            "question final 9 21/1 1" + answered + ": You have set the Aut",
                            "question final 9 21/3 3" + answered + ": You have set the Aut",
                            "error final 19 16/1 101: When the Scan Type i"));
  }
}

TEST_F(CheckTest, EveryFormShowsTheRecordsOfATableThatTheHostCanTurnTo) {
  Open("full");
  std::set<std::string_view> names;
  for (const Form& form : Forms::All()) {
    EXPECT_TRUE(names.insert(form.NameFor("KD4410")).second) << form.title;
    if (form.subject == Form::kNoSubject) continue;
    const RecordNr last = Forms::RecordCount(*content, form);
    ASSERT_GT(last, 0) << form.title;
    EXPECT_TRUE(Forms::TurnTo(*session, form.subject, last)) << form.title;
    EXPECT_EQ(Forms::CurrentRecord(*content, form.subject), last) << form.title;
  }
}
}  // namespace
