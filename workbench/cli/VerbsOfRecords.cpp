#include <memory>
#include <optional>
#include <ostream>
#include <vector>

#include "workbench/cli/Report.h"
#include "workbench/cli/StoredReport.h"
#include "workbench/cli/Verb.h"
#include "workbench/jobs/FiledEdit.h"
#include "workbench/jobs/RecordEdits.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/ValueText.h"

namespace {

/// The verbs differ in this alone.
enum class Action { Add, Insert, Delete };
constexpr const char* kWords[] = {"add", "insert", "delete"};
constexpr const char* kDone[] = {"added", "inserted", "deleted"};

struct RecordArguments {
  std::string file;
  std::string grid;
  RecordNr record = 0;  // to be deleted, or to insert before
  bool dryRun = false;
  bool repair = false;
  std::int64_t count = 1;  // to be added
  RecordNr from = 0;       // whose values they take
};

/// What was asked for and what came of it.
struct Edited {
  Action action;
  const Grid& grid;
  const SchemaTable& table;
  const std::optional<Repair>& repair;
  RecordResult result;
  FiledChanges changes = {};
  Report::Filed filed = Report::Filed::No;
  const SchemaField* Identity(const Session& session) const {
    return result.identity.IsEmpty() ? nullptr : session.Content().GetSchema().IdentityOf(table);
  }
  Report::Outcome Outcome() const { return {result.accepted, result.accepted, filed, result.others}; }
};

void Print(const Edited& edited, const Session& session, std::ostream& out) {
  const RecordResult& result = edited.result;
  const bool areMany = result.accepted && result.count > 1;
  const RecordNr first = result.record - result.count + 1;
  out << edited.table.title << ", ";
  if (areMany) {
    out << "records " << first << " to " << result.record;
  } else if (result.record != 0) {
    out << "record " << result.record;
  } else {
    out << "new record";
  }
  const SchemaField* identity = edited.Identity(session);
  if (identity != nullptr && areMany) {
    std::vector<std::string> numbers;
    for (RecordNr record = first; record <= result.record; ++record) {
      numbers.push_back(ValueText::Of(session.Content().Get(*identity, record)));
    }
    out << " (" << session.LabelOf(*identity) << ' ' << ListOf(numbers) << ')';
  } else if (identity != nullptr) {
    out << " (" << session.LabelOf(*identity) << ' ' << ValueText::Of(result.identity) << ')';
  }
  out << ": " << (result.accepted ? kDone[static_cast<std::size_t>(edited.action)] : result.refusal) << '\n';
  Report::Print(edited.Outcome(), session, out);
  if (!result.accepted) return;
  const bool saved = edited.filed == Report::Filed::Saved;
  Report::PrintFiled(edited.changes, saved, session, out);
  Report::PrintRepair(edited.repair, saved, session, out);
}

Json JsonOf(const Edited& edited, const Session& session, const std::vector<Shown>& boxes) {
  const RecordResult& result = edited.result;
  Json data = {{"accepted", result.accepted},
               {"saved", edited.filed == Report::Filed::Saved},
               {"action", kWords[static_cast<std::size_t>(edited.action)]},
               {"grid", edited.grid.name},
               {"table", edited.table.number},
               {"title", edited.table.title}};
  if (result.record != 0) data["record"] = result.record;
  if (edited.action != Action::Delete) data["count"] = result.count;
  if (const SchemaField* identity = edited.Identity(session)) {
    data["identity"] = {{"name", identity->CommonName()},
                        {"label", session.LabelOf(*identity)},
                        {"value", Report::JsonOf(*identity, result.identity)}};
  }
  if (!result.accepted) {
    data["refusedAt"] = NameOf(result.step);
    data["refusal"] = result.refusal;
  }
  Report::AddTo(data, edited.Outcome(), session, boxes);
  Report::AddFiled(data, edited.changes, session);
  Report::AddRepair(data, edited.repair, session);
  return data;
}

RecordResult Carried(RecordEdits& edits, Action action, const RecordArguments& arguments) {
  switch (action) {
    case Action::Add:
      return edits.Add(static_cast<RecordNr>(arguments.count), arguments.from);
    case Action::Insert:
      return edits.Insert(arguments.record);
    case Action::Delete:
      break;
  }
  return edits.Delete(arguments.record);
}

/// What the edit makes of the file, and the save.
void FileAndSave(Edited& edited, bool isDryRun, OpenedFile& opened, const ComparedPersonality& before) {
  const std::string document = opened.Document();
  edited.changes = ChangesInFile(before, opened.Reopened(document));
  if (isDryRun) return;
  edited.filed = Report::FiledBy(opened.Save(document));
}

ExitCode Carry(Action action, const RecordArguments& arguments, Workplace& workplace) {
  const std::shared_ptr<RecordingMessenger> messenger = workplace.Messenger();
  OpenedFile opened(workplace, arguments.file, messenger, arguments.dryRun ? Purpose::Read : Purpose::Save,
                    arguments.repair ? OnDamage::Repair : OnDamage::Refuse);
  Session& session = opened.GetSession();
  const Grid& grid = Grids::Named(opened.Content().GetSchema(), arguments.grid);
  ComparedPersonality before{opened.Content().Copy(), nullptr};
  opened.ShowForms();
  before.forms = opened.Content().Copy();

  messenger->Clear();
  RecordEdits edits(session, grid);
  Edited edited{action, grid, edits.Table(), opened.Stored().Repaired(), Carried(edits, action, arguments)};
  const std::vector<Shown> boxes = messenger->Boxes();
  if (edited.result.accepted) FileAndSave(edited, arguments.dryRun, opened, before);
  workplace.Tell([&] { return JsonOf(edited, session, boxes); },
                 [&](std::ostream& out) { Print(edited, session, out); });
  return edited.result.accepted ? ExitCode::Done : ExitCode::No;
}

template <Action action>
void Take(Words& words, RecordArguments& given) {
  words.Required("FILE", given.file, "The personality");
  words.Required("GRID", given.grid, "The grid");
  if (action != Action::Add) words.Required("RECORD", given.record, "Record, from 1");
  if (action == Action::Add) {
    constexpr std::int64_t kMost = 100;
    words.NumberOption("--count", given.count, 1, kMost, "So many records, all or none");
    words.RecordOption("--from", given.from, "Of channels: with the values of this record");
  }
  words.Flag("--dry-run", given.dryRun, "Do everything but save");
  words.Flag("--repair", given.repair, kRepairAbout);
}

template <Action action>
ExitCode Run(const RecordArguments& arguments, Workplace& workplace) {
  return Carry(action, arguments, workplace);
}

constexpr const char* kGridNames =
    "A grid is called by its word (channel, network, scan-group, member, selcall, control-status, dtmf, "
    "two-tone, mdc1200), by its name in the tier (Network), by the title of its table (networks) or by its "
    "number (21).";

const Verb kAdd({.name = "add",
                 .about = "Add a record as in a grid: ask the tier, add, complete, list what changed, save",
                 .details = kGridNames,
                 .examples = {{"Three channels with the values of the second",
                               "kd4410 add samples/city-fleet.json channel --count 3 --from 2"},
                              {"See what a new network brings along",
                               "kd4410 add samples/city-fleet.json network --dry-run"}}},
                Take<Action::Add>, Run<Action::Add>);
const Verb kInsert(
    {.name = "insert",
     .about = "Insert a channel or a control status before a record, as in a grid",
     .details = kGridNames,
     .examples = {{"A channel before the second", "kd4410 insert samples/city-fleet.json channel 2"},
                  {"See what the same does", "kd4410 insert samples/city-fleet.json channel 2 --dry-run"}}},
    Take<Action::Insert>, Run<Action::Insert>);
const Verb kDelete({.name = "delete",
                    .about = "Delete a record as in a grid: ask the tier, delete, list what changed, save",
                    .details = kGridNames,
                    .examples = {{"See what goes with a network",
                                  "kd4410 delete samples/city-fleet.json network 3 --dry-run"},
                                 {"Delete the second scan group",
                                  "kd4410 delete samples/city-fleet.json scan-group 2"}}},
                   Take<Action::Delete>, Run<Action::Delete>);

}  // namespace
