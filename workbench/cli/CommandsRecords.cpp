#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <utility>

#include "workbench/cli/Commands.h"
#include "workbench/cli/Report.h"
#include "workbench/jobs/RecordEdits.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace {

using Json = Workplace::Json;

/// The two commands differ in this alone.
enum class Verb { Add, Delete };

struct RecordArguments {
  std::string file;
  std::string grid;
  RecordNr record = 0;  // to be deleted
  bool dryRun = false;
};

/// An addition or deletion and what came of it.
struct Edited {
  Verb verb;
  const Grid& grid;
  const SchemaTable& table;
  RecordResult result;
  bool saved = false;
  const SchemaField* Identity(const Session& session) const {
    return result.identity.IsEmpty() ? nullptr : session.Content().GetSchema().IdentityOf(table);
  }
  Report::Outcome Outcome() const { return {result.accepted, result.accepted, saved, result.others}; }
};

void Print(const Edited& edited, const Session& session, std::ostream& out) {
  const RecordResult& result = edited.result;
  out << edited.table.title << ", "
      << (result.record == 0 ? "new record" : "record " + std::to_string(result.record));
  if (const SchemaField* identity = edited.Identity(session)) {
    out << " (" << session.LabelOf(*identity) << ' ' << ValueText::Of(result.identity) << ')';
  }
  const char* done = edited.verb == Verb::Add ? "added" : "deleted";
  out << ": " << (result.accepted ? done : result.refusal) << '\n';
  Report::Print(edited.Outcome(), session, out);
}

Json JsonOf(const Edited& edited, const Session& session, const std::vector<Shown>& boxes) {
  const RecordResult& result = edited.result;
  Json data = {{"accepted", result.accepted},
               {"saved", edited.saved},
               {"action", edited.verb == Verb::Add ? "add" : "delete"},
               {"grid", edited.grid.name},
               {"table", edited.table.number},
               {"title", edited.table.title}};
  if (result.record != 0) data["record"] = result.record;
  if (const SchemaField* identity = edited.Identity(session)) {
    data["identity"] = {{"name", identity->CommonName()},
                        {"label", session.LabelOf(*identity)},
                        {"value", Report::JsonOf(result.identity)}};
  }
  if (!result.accepted) {
    data["refusedAt"] = NameOf(result.step);
    data["refusal"] = result.refusal;
  }
  Report::AddTo(data, edited.Outcome(), session, boxes);
  return data;
}

ExitCode Carry(Verb verb, const RecordArguments& arguments, Workplace& workplace) {
  const std::shared_ptr<RecordingMessenger> messenger = workplace.Messenger();
  OpenedFile opened(workplace, arguments.file, messenger);
  Session& session = opened.GetSession();
  const Grid& grid = Grids::Named(opened.Content().GetSchema(), arguments.grid);
  session.ConvertToForms();

  messenger->Clear();
  RecordEdits edits(session, grid);
  Edited edited{verb, grid, edits.Table(), verb == Verb::Add ? edits.Add() : edits.Delete(arguments.record)};
  const std::vector<Shown> boxes = messenger->Boxes();
  if (edited.result.accepted && !arguments.dryRun) {
    opened.Save();
    edited.saved = true;
  }
  if (workplace.options.json) {
    workplace.Emit(JsonOf(edited, session, boxes));
  } else {
    Print(edited, session, workplace.Out());
  }
  return edited.result.accepted ? ExitCode::Done : ExitCode::No;
}

void AddVerb(CLI::App& app, Action& action, Verb verb, const char* name, const char* about) {
  auto given = std::make_shared<RecordArguments>();
  CLI::App* command = app.add_subcommand(name, about);
  command->footer(
      "A grid is called by its name (Network), by the title of its table (networks) or by its number (21).");
  command->add_option("FILE", given->file, "The personality")->required();
  command->add_option("GRID", given->grid, "The grid")->required();
  if (verb == Verb::Delete) command->add_option("RECORD", given->record, "Record, from 1")->required();
  command->add_flag("--dry-run", given->dryRun, "Do everything but save");
  command->callback([given, verb, &action] {
    action = [given, verb](Workplace& workplace) { return Carry(verb, *given, workplace); };
  });
}

}  // namespace

void AddRecordCommands(CLI::App& app, Action& action) {
  AddVerb(app, action, Verb::Add, "add",
          "Add a record as in a grid: ask the tier, add, complete, list what changed, save");
  AddVerb(app, action, Verb::Delete, "delete",
          "Delete a record as in a grid: ask the tier, delete, list what changed, save");
}
