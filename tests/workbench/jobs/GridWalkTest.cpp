#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <set>

#include "platform/Conversions.h"
#include "tests/support/TierFixture.h"
#include "tests/workbench/FileHelpers.h"
#include "workbench/jobs/FiledEdit.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/PersonalityCheck.h"
#include "workbench/jobs/RecordEdits.h"
#include "workbench/jobs/Session.h"
#include "workbench/personality/PersonalityFile.h"

namespace {

/// So many steps a sample; the long proofs ask for more.
int Steps() {
  constexpr int kFew = 8;
  const char* told = std::getenv("KD4410_WALK_STEPS");
  return told == nullptr ? kFew : std::atoi(told);
}

std::string Document(const Provider& stored) { return PersonalityFile::Format("walk", stored); }

/// Without the numbers of the bursts: those of a new system count within each kind, those of a file from the
/// first one on.
std::string Comparable(const Provider& stored) {
  const auto copy = stored.Copy();
  for (RecordNr burst = 1; burst <= copy->Count(30); ++burst) copy->Set("30.FixedFormatBurstID", burst, 0);
  return Document(*copy);
}

/// A session with what its check finds.
struct Checked {
  explicit Checked(std::shared_ptr<Provider> opened) : content(std::move(opened)) {
    session.ConvertToForms();
  }
  std::set<std::string> Findings() {
    messenger->Clear();
    PersonalityCheck check(session, *messenger);
    check.RunRules();
    std::set<std::string> told;
    for (const Finding& finding : check.Findings()) {
      told.insert(finding.rule + " " + CStr(finding.table) + "/" + CStr(finding.record) + ": " +
                  finding.text);
    }
    return told;
  }

  std::shared_ptr<Provider> content;
  std::shared_ptr<CheckMessenger> messenger = std::make_shared<CheckMessenger>(Answers());
  Session session{ProjectParts(), content, messenger};
};

/// Random work on all grids of one open personality. Whatever a step leaves is what a file of it tells when
/// it is opened again.
class GridWalk : public testing::TestWithParam<const char*> {
 protected:
  std::shared_ptr<Provider> Read(const std::string& document) const {
    return PersonalityFile::Parse(GetParam(), document, *ProjectSchemas());
  }
  int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }
  RecordNr AnyOf(RecordNr count) { return static_cast<RecordNr>(1 + Below(std::max(count, 1))); }

  void TurnSomewhere() {
    const Forms::Current& current =
        Forms::Currents()[static_cast<std::size_t>(Below(static_cast<int>(Forms::Currents().size())))];
    const std::int32_t table = current.tables.front();
    const RecordNr count = open->content->Count(table);
    if (count > 0) Forms::TurnTo(open->session, table, AnyOf(count));
  }

  /// Whether the work stands that the step has done.
  bool ChangeRecords() {
    const Grid& grid = Grids::All()[static_cast<std::size_t>(Below(static_cast<int>(Grids::All().size())))];
    RecordEdits edits(open->session, grid);
    const RecordNr count = open->content->Count(grid.table);
    const int way = Below(grid.inserts ? 3 : 2);
    step = std::string(std::array{"delete ", "add ", "insert "}[static_cast<std::size_t>(way)]) +
           grid.name.data();
    if (way == 1) return edits.Add().accepted;
    if (count == 0) return false;
    const RecordNr record = AnyOf(count);
    step += " " + CStr(record);
    return (way == 0 ? edits.Delete(record) : edits.Insert(record)).accepted;
  }

  /// Numbers that the forms only show: what points at the record does not follow them.
  static bool IsShownAlone(std::string_view uiid) {
    constexpr std::string_view kShown[] = {"EmNetworkID", "DTMFNetworkSigSystemID", "T99NetworkID_k6k",
                                           "MDC1200SignallingSystemID"};
    return std::ranges::find(kShown, uiid) != std::end(kShown);
  }
  /// Types what another record holds, or a small number.
  bool EditField() {
    const auto controls = Forms::Controls(open->session);
    const Control& control = controls[static_cast<std::size_t>(Below(static_cast<int>(controls.size())))];
    const RecordNr count = open->content->Count(control.field.table);
    if (count == 0 || Forms::PointedOutBy(control.field) != nullptr || IsShownAlone(control.uiid))
      return false;
    const RecordNr record = AnyOf(count);
    const std::string typed =
        Below(2) == 0 ? CStr(Below(20)) : CStr(open->content->Get(control.field, AnyOf(count)));
    step = "set " + control.uiid + " " + CStr(record) + " " + typed;
    if (!Forms::TurnTo(open->session, control.field.table, record)) return false;
    const ComparedPersonality before{open->session.ConvertedToRaw(), open->content->Copy()};
    const EditResult result = open->session.Edit(control.field, control.uiid, record, typed);
    if (!result.accepted || result.IsLost()) return false;
    const auto stored = open->session.ConvertedToRaw();
    const ComparedPersonality after{stored, open->session.FormsOf(*stored)};
    return !LostValueOf({control.field, record, result.others, *open->content, before, after});
  }

  /// Pointers of the radio to records that are not there. Where a table is empty the first record is meant
  /// for none.
  static std::string Unsound(const ComparedPersonality& personality) {
    RecordKeys keys(personality);
    std::string told;
    for (const SchemaField& field : personality.stored->GetSchema().Fields()) {
      const RecordNr count = field.IsRaw() ? personality.stored->Count(field.table) : 0;
      for (RecordNr record = 1; record <= count; ++record) {
        const auto target = keys.Target(field, record);
        if (target && target->ends_with("(no record)") && *target != "0 (no record)")
          told += field.id + "[" + CStr(record) + "] " + *target + "; ";
      }
    }
    return told;
  }

  std::mt19937 random{20261122};
  std::unique_ptr<Checked> open = std::make_unique<Checked>(Read(ContentOf(Sample(GetParam()))));
  std::string step;
};

TEST_P(GridWalk, WhatAStepLeavesIsWhatItsFileTells) {
  std::string stored = Document(*open->session.ConvertedToRaw());
  const std::string unsoundBefore = Unsound({Read(stored), open->content});
  for (int done = 0; done < Steps(); ++done) {
    TurnSomewhere();
    const bool stands = Below(3) == 0 ? EditField() : ChangeRecords();
    SCOPED_TRACE("step " + CStr(done) + ": " + step + (stands ? "" : ", refused"));
    if (!stands || Below(5) == 0) {  // undone, as by a host that does not save
      open = std::make_unique<Checked>(Read(stored));
      continue;
    }
    const auto saved = open->session.ConvertedToRaw();
    stored = Document(*saved);
    Checked reopened{Read(stored)};
    ASSERT_EQ(Comparable(*reopened.session.ConvertedToRaw()), Comparable(*saved));
    ASSERT_EQ(Unsound({saved, reopened.content}), unsoundBefore);
    std::set<std::string> inSession;
    const std::set<std::string> inFile = reopened.Findings();
    for (const std::string& finding : open->Findings()) {
      if (!inFile.contains(finding)) inSession.insert(finding);
    }
    ASSERT_EQ(inSession, std::set<std::string>());
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, GridWalk,
                         testing::Values("minimal", "city-fleet", "marine-harbour", "hospital-paging",
                                         "full"),
                         [](const auto& sample) {
                           std::string name = sample.param;
                           std::erase(name, '-');
                           return name;
                         });
}  // namespace
