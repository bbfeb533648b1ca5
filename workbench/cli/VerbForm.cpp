#include <memory>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/jobs/Forms.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Journal.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"

namespace {

constexpr RecordNr kCurrent = 0;  // no record was given: the one that the form shows

struct FormArguments {
  std::string file;
  std::string name;
  RecordNr record = kCurrent;
  bool list = false;
};

void Take(Words& words, FormArguments& given) {
  words.Optional("FILE", given.file, "The personality");
  words.Optional("FORM", given.name, "The form, by its name or its title (\"Key Settings\")");
  words.RecordOption("--record", given.record, "The record that the form shows (else 1)");
  words.Flag("--list", given.list, "List the forms");
  words.Excludes("--list", "FILE");
  words.Excludes("--list", "FORM");
}

ExitCode ListForms(Workplace& workplace) {
  TextTable table({{"Form"}, {"For the KE2210"}, {"Title"}, {"Grid"}});
  Json list = Json::List();
  for (const Form& form : Forms::All()) {
    const std::string_view nameKE2210 = form.NameFor("KE2210");
    table.Add({std::string(form.names[0]), std::string(nameKE2210), std::string(form.title),
               std::string(form.grid)});
    list.Add(
        {{"form", form.names[0]}, {"formForKE2210", nameKE2210}, {"title", form.title}, {"grid", form.grid}});
  }
  workplace.Tell("forms", std::move(list), table);
  return ExitCode::Done;
}

void TurnToGiven(Session& session, const Form& form, RecordNr record) {
  const Schema& schema = session.Content().GetSchema();
  if (form.subject == Form::kNoSubject)
    throw UsageError("the form " + std::string(form.title) + " does not show one record of several");
  TypedNames::RequireRecord(session.Content(), *schema.FindTable(form.subject), record);
  if (!Forms::TurnTo(session, form.subject, record))
    throw UsageError("the tier refuses to show record " + std::to_string(record) + " on the form");
}

/// What came of leaving a form.
struct Left {
  const Form& form;
  std::string_view name;
  RecordNr record;  // 0: it shows none of several
  bool mayBeLeft;
  std::vector<Change> changes;
};

void Print(const Left& left, const Session& session, std::ostream& out) {
  out << left.form.title << " (" << left.name << ')';
  if (left.record != 0) out << ", record " << left.record;
  out << ": the form may " << (left.mayBeLeft ? "" : "not ") << "be left\n";
  if (left.changes.empty()) return;
  out << "The check has written (not kept):\n";
  Report::ChangeTable(session, left.changes).Print(out, 2);
}

Json JsonOf(const Left& left, const Session& session, const std::vector<Shown>& boxes) {
  Json data = {{"form", left.name}, {"title", left.form.title}};
  if (left.record != 0) data["record"] = left.record;
  data["mayBeLeft"] = left.mayBeLeft;
  data["messages"] = Report::JsonOf(boxes);
  data["written"] = Report::JsonOf(session, left.changes);
  return data;
}

ExitCode LeaveForm(const FormArguments& arguments, Workplace& workplace) {
  const Form& form = Forms::Named(arguments.name);
  const std::shared_ptr<RecordingMessenger> messenger = workplace.Messenger();
  OpenedFile opened(workplace, arguments.file, messenger);
  Session& session = opened.GetSession();
  opened.ShowForms();
  if (arguments.record != kCurrent) TurnToGiven(session, form, arguments.record);

  messenger->Clear();
  Provider& content = opened.Content();
  const bool showsRecord = Forms::RecordCount(content, form) > 0;
  Journal journal(content);
  const Left left{.form = form,
                  .name = form.NameFor(content.GetSchema().Model()),
                  .record = showsRecord ? Forms::CurrentRecord(content, form.subject) : 0,
                  .mayBeLeft = Forms::MayBeLeft(session, form),  // before its changes are asked for
                  .changes = journal.Changes()};
  journal.Rollback();
  workplace.Tell([&] { return JsonOf(left, session, messenger->Boxes()); },
                 [&](std::ostream& out) { Print(left, session, out); });
  return left.mayBeLeft ? ExitCode::Done : ExitCode::No;
}

ExitCode Leave(const FormArguments& arguments, Workplace& workplace) {
  if (arguments.list) return ListForms(workplace);
  if (arguments.name.empty()) throw UsageError("FILE and FORM are required, or --list");
  return LeaveForm(arguments, workplace);
}

const Verb kForm({.name = "form",
                  .about = "Run the check that a form makes when it is left; nothing is saved",
                  .examples = {{"Leave the form of the second channel",
                                "kd4410 form samples/city-fleet.json channels --record 2"},
                               {"The forms there are", "kd4410 form --list"}}},
                 Take, Leave);

}  // namespace
