#include "workbench/jobs/Session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "platform/Conversions.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "workbench/cli/Workplace.h"
#include "workbench/personality/PersonalityFile.h"

namespace {
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

/// A session on a sample, through the built library.
class SessionTest : public testing::Test {
 protected:
  void Open(const std::string& sample) {
    document = ContentOf(Sample(sample));
    content = PersonalityFile::Parse(sample, document, *ProjectSchemas());
    session.reset();
    session = std::make_unique<Session>(ProjectParts(), content, messenger);
  }

  EditResult Edit(std::string_view uiid, RecordNr record, std::string_view typed) {
    messenger->Clear();
    return session->Edit(content->FieldOf(uiid), uiid, record, typed);
  }

  static std::vector<std::string> CellsOf(const EditResult& result) {
    std::vector<std::string> cells;
    for (const Change& change : result.others) {
      const std::string name =
          change.field == nullptr ? "count of " + std::to_string(change.table->number) : change.field->id;
      cells.push_back(name + " " + CStr(change.before) + ">" + CStr(change.now));
    }
    return cells;
  }

  std::string document;
  std::shared_ptr<Provider> content;
  const std::shared_ptr<ScriptedMessenger> messenger = std::make_shared<ScriptedMessenger>();
  std::unique_ptr<Session> session;
};

TEST_F(SessionTest, WhatIsOpenedAndSavedWithoutAnEditIsTheSame) {
  for (const char* sample : kSamples) {
    Open(sample);
    session->ConvertToForms();
    EXPECT_TRUE(PersonalityFile::Format(sample, *session->ConvertedToRaw()) == document) << sample;
  }
}

TEST_F(SessionTest, FormsShowThePolarityInTheOppositeSenseAndTheFileKeepsIt) {
  Open("city-fleet");
  content->Set("36.DCSTxPolarity", 2, 1);
  session->ConvertToForms();
  EXPECT_EQ(CLng(content->Get("36.DCSTxPolarity", 1)), 1);
  EXPECT_EQ(CLng(content->Get("36.DCSTxPolarity", 2)), 0);
  const auto saved = session->ConvertedToRaw();
  EXPECT_EQ(CLng(saved->Get("36.DCSTxPolarity", 1)), 0);
  EXPECT_EQ(CLng(saved->Get("36.DCSTxPolarity", 2)), 1);
  EXPECT_EQ(CLng(content->Get("36.DCSTxPolarity", 2)), 0);  // the forms go on
}

TEST_F(SessionTest, AnAcceptedEditTellsWhatElseChangedARefusedOneKeepsTheOldValue) {
  Open("marine-harbour");
  session->ConvertToForms();
  const EditResult result = Edit("TxFreq_k6k", 2, "1571.25");
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(CStr(result.before) + " " + CStr(result.now), "156.300000 157.125000");
  EXPECT_THAT(CellsOf(result), ElementsAre("5.ChannelTxFreq 156300000>157125000"));
  const EditResult refused = Edit("TxFreq_k6k", 2, "780");
  EXPECT_FALSE(refused.accepted);
  EXPECT_EQ(CStr(content->Get("TxFreq_k6k", 2)), "157.125000");
  EXPECT_THAT(refused.others, IsEmpty());
  const RecordNr tones = content->Count(50);
  EXPECT_THAT(CellsOf(Edit("TxSignalling_k6k", 1, "C67.0")),
              Contains("count of 50 " + std::to_string(tones) + ">" + std::to_string(tones + 1)));
}

TEST_F(SessionTest, WhatAControlRefusesNoRuleIsToSee) {
  Open("marine-harbour");
  session->ConvertToForms();
  for (const std::string typed : {"", "highest", "5", "-1", "3.5"}) {
    const EditResult result = Edit("TxPower_k6k", 1, typed);
    EXPECT_FALSE(result.accepted) << typed;
    EXPECT_FALSE(result.refusal.empty()) << typed;
    EXPECT_EQ(CLng(content->Get("TxPower_k6k", 1)), 4);
  }
  EXPECT_TRUE(Edit("TxPower_k6k", 1, " +3 ").accepted);
  EXPECT_EQ(CStr(content->Get("TxPower_k6k", 1)), "3");
  EXPECT_TRUE(Edit("TxPower_k6k", 1, "very low").accepted);
  EXPECT_EQ(CStr(content->Get("TxPower_k6k", 1)), "1");
}

TEST_F(SessionTest, TheControlOfAnIdentityOffersFreeNumbersOnly) {
  Open("city-fleet");
  content->SetCount(16, 1);
  session->ConvertToForms();
  content->Set("GroupID_k6k", 1, 101);
  const std::tuple<const char*, RecordNr, const char*, const char*> cases[] = {
      {"NetworkID", 1, "3", "number 3 is in use by record 3"},
      {"NetworkID", 1, "+02", "number 2 is in use by record 2"},
      {"ChannelID_k6k", 2, "101", "number 101 is in use by record 1 of table 16 (Scan groups)"},
      {"GroupID_k6k", 1, "20", "number 20 is in use by record 20 of table 5 (Channels)"},
  };
  for (const auto& [uiid, record, typed, refusal] : cases) {
    const EditResult result = Edit(uiid, record, typed);
    EXPECT_EQ(result.refusal, refusal);
    EXPECT_FALSE(result.accepted) << uiid;
    EXPECT_THAT(messenger->Boxes(), IsEmpty()) << uiid;
  }
  EXPECT_TRUE(Edit("NetworkID", 2, "2").accepted);  // its own
  messenger->Play({Button::Yes});
  EXPECT_TRUE(Edit("NetworkID", 1, "16").accepted);
}

/// Opens the file, edits and saves it as a command does; `failing` is the host call that fails, 0 for none.
std::int64_t EditFile(Workplace& workplace, const std::string& file, std::int64_t failing, bool lasting) {
  const auto messenger = std::make_shared<ScriptedMessenger>();
  OpenedFile opened(workplace, file, messenger);
  CallMonitor& monitor = opened.Content().Monitor();
  messenger->SetMonitor(opened.Content().SharedMonitor());
  if (failing > 0) lasting ? monitor.FailFrom(failing) : monitor.FailOnce(failing);
  opened.GetSession().ConvertToForms();
  const SchemaField& field = opened.Content().FieldOf("TxFreq_k6k");
  if (opened.GetSession().Edit(field, "TxFreq_k6k", 1, "441.5").accepted) opened.Save();
  return monitor.Count();
}

TEST_F(SessionTest, WhereverAHostCallFailsAnEditEndsWithAFaultAndTheFileIsAsItWas) {
  std::ostringstream out;
  Workplace workplace(out);
  workplace.options.tier = kTierLibrary;
  workplace.options.data = ProjectParts().dataFolder;
  const TemporaryFolder folder;
  const std::string before = ContentOf(Sample("minimal"));
  const std::string file = folder.Write("p.json", before);
  const std::int64_t calls = EditFile(workplace, folder.Write("clean.json", before), 0, false);
  EXPECT_GT(calls, 500);
  EXPECT_FALSE(ContentOf(folder.PathOf("clean.json")) == before);
  const std::int64_t step =
      calls / 100 + 1;  // all over opening, edit and save; each of them would take minutes
  for (std::int64_t failing = 1; failing <= calls; failing += step) {
    for (const bool lasting : {false, true}) {
      EXPECT_THROW(EditFile(workplace, file, failing, lasting), TierFault) << failing;
    }
  }
  EXPECT_TRUE(ContentOf(file) == before);
}
}  // namespace
