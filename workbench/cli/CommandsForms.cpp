#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <ostream>
#include <utility>

#include "host/IenablementReasons.h"
#include "workbench/cli/Commands.h"
#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/jobs/Forms.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueText.h"

namespace {

using Json = Workplace::Json;

constexpr RecordNr kCurrent = 0;  // no record was given: the one that the form shows

struct EnabledArguments {
  std::string file;
  std::string uiid;
  RecordNr record = 1;
  bool why = false;
  std::string form;
  bool all = false;
  RecordNr shown = kCurrent;
};

void RequireFromOne(RecordNr record) {
  if (record < 1) throw UsageError("records count from 1");
}

/// Tells the tier which record of the table the forms show, one that is still to come included: the rules of
/// most controls read the current record instead of the one that is drawn.
void ShowRecord(Provider& content, std::int32_t table, RecordNr record) {
  const SchemaField* pointer = Forms::PointerOf(content.GetSchema(), table);
  if (pointer != nullptr) content.Set(*pointer, 1, record);
}

bool IsEnabled(const TierHost& host, const std::string& uiid, RecordNr record) {
  Boolean enabled = kFalse;
  host.Require(host.Validator().GetEnabledStatebyUIID(uiid, record, enabled));
  return enabled != kFalse;
}

std::string_view StateOf(bool enabled) { return enabled ? "enabled" : "disabled"; }

EnablementReason ReasonOf(const TierHost& host, const std::string& uiid, RecordNr record) {
  auto* reasons = dynamic_cast<IenablementReasons*>(&host.Validator());
  if (reasons == nullptr) throw UsageError("this tier does not tell why a control is enabled or disabled");
  EnablementReason reason;
  host.Require(reasons->ReasonByUIID(uiid, record, reason));
  return reason;
}

Json JsonOf(const EnablementReason& reason) {
  Json readings = Json::array();
  for (const EnablementReading& reading : reason.readings) {
    readings.push_back({{"field", reading.field},
                        {"test", reading.test},
                        {"record", reading.record},
                        {"exists", reading.exists != kFalse},
                        {"value", Report::JsonOf(reading.value)},
                        {"holds", reading.holds != kFalse}});
  }
  return {{"hasRule", !reason.condition.empty()},
          {"condition", reason.condition},
          {"readings", std::move(readings)},
          {"missing", reason.missing}};
}

void PrintReadings(const std::vector<EnablementReading>& readings, std::ostream& out) {
  TextTable table({{"Field"}, {"Test"}, {"Record", TextTable::Align::Right}, {"Value"}, {"Holds"}});
  for (const EnablementReading& reading : readings) {
    const bool exists = reading.exists != kFalse;
    table.Add({reading.field, reading.test, reading.record == 0 ? "" : std::to_string(reading.record),
               exists ? ValueText::Of(reading.value) : "no such record",
               reading.holds != kFalse ? "yes" : "no"});
  }
  table.Print(out, 2);
}

void PrintReason(const EnablementReason& reason, std::ostream& out) {
  if (reason.condition.empty()) {
    out << "it has no rule: it is always enabled\n";
    return;
  }
  out << "enabled when: " << reason.condition << '\n';
  if (reason.readings.empty()) return;  // no value decides: the control is there to be looked at
  PrintReadings(reason.readings, out);
  if (!reason.missing.empty()) out << "to enable it: " << reason.missing << '\n';
  const bool lacksRecord = std::ranges::any_of(
      reason.readings, [](const EnablementReading& reading) { return reading.exists == kFalse; });
  if (lacksRecord && reason.enabled != kFalse)
    out << "until there is such a record, the control is enabled\n";
}

ExitCode OneControl(const EnabledArguments& arguments, Workplace& workplace) {
  RequireFromOne(arguments.record);
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  Session& session = opened.GetSession();
  const SchemaField& field = TypedNames::FieldNamed(opened.Content().GetSchema(), arguments.uiid);
  if (field.uiids.empty()) throw UsageError(field.id + " has no control on a form");
  const std::string& uiid = field.CommonName();
  session.ConvertToForms();
  ShowRecord(opened.Content(), field.table, arguments.record);

  const bool enabled = IsEnabled(session.Host(), uiid, arguments.record);
  Json data = {
      {"uiid", uiid}, {"label", session.LabelOf(uiid)}, {"record", arguments.record}, {"enabled", enabled}};
  if (!workplace.options.json) workplace.Out() << StateOf(enabled) << '\n';
  if (arguments.why) {
    const EnablementReason reason = ReasonOf(session.Host(), uiid, arguments.record);
    data["why"] = JsonOf(reason);
    if (!workplace.options.json) PrintReason(reason, workplace.Out());
  }
  if (workplace.options.json) workplace.Emit(std::move(data));
  return enabled ? ExitCode::Done : ExitCode::No;
}

/// The record for which a control is drawn: the one that its form shows, or the row of a grid that is shown
/// as a whole.
RecordNr DrawnRecord(const Provider& content, const SchemaField& field, RecordNr shown) {
  const Schema& schema = content.GetSchema();
  if (Forms::PointerOf(schema, field.table) != nullptr) return Forms::CurrentRecord(content, field.table);
  return shown == kCurrent || schema.TableOf(field).maximum == 1 ? 1 : shown;
}

/// Where a person finds the control: its form, else its grid, else its table.
std::string PlaceOf(const Control& control, const Form* chosen, const Schema& schema) {
  const Form* form = chosen != nullptr ? chosen : Forms::FormOf(control);
  if (form != nullptr) return std::string(form->title);
  return control.grid.empty() ? schema.TableOf(control.field).title : control.grid;
}

/// The controls of the form; all controls without one.
ExitCode ManyControls(const Form* form, const EnabledArguments& arguments, Workplace& workplace) {
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  Session& session = opened.GetSession();
  Provider& content = opened.Content();
  session.ConvertToForms();
  for (const Form& one : Forms::All()) {
    const bool isMeant = form == nullptr || form == &one;
    if (isMeant && arguments.shown != kCurrent) ShowRecord(content, one.subject, arguments.shown);
  }
  TextTable table({{"Form"}, {"UIID"}, {"Label"}, {"Record", TextTable::Align::Right}, {"State"}});
  Json list = Json::array();
  for (const Control& control : Forms::Controls(session)) {
    if (form != nullptr && !Forms::Holds(*form, control)) continue;
    const RecordNr record = DrawnRecord(content, control.field, arguments.shown);
    const std::string place = PlaceOf(control, form, content.GetSchema());
    const std::string label = session.LabelOf(control.uiid);
    const bool enabled = IsEnabled(session.Host(), control.uiid, record);
    table.Add({place, control.uiid, label, std::to_string(record), std::string(StateOf(enabled))});
    list.push_back({{"form", place},
                    {"grid", control.grid},
                    {"uiid", control.uiid},
                    {"label", label},
                    {"record", record},
                    {"enabled", enabled}});
  }
  if (workplace.options.json) {
    workplace.Emit(std::move(list));
  } else {
    table.Print(workplace.Out());
  }
  return ExitCode::Done;
}

ExitCode Enabled(const EnabledArguments& arguments, Workplace& workplace) {
  const bool isOne = !arguments.uiid.empty();
  const bool isForm = !arguments.form.empty();
  if (isOne + isForm + arguments.all != 1)
    throw UsageError("give one of these: the UIID of a control, --form NAME, or --all");
  if (isOne && arguments.shown != kCurrent)
    throw UsageError("--record goes with --form and --all; the record of one control stands behind its UIID");
  if (!isOne && arguments.why) throw UsageError("--why is told of one control: give its UIID");
  if (isOne) return OneControl(arguments, workplace);
  return ManyControls(isForm ? &Forms::Named(arguments.form) : nullptr, arguments, workplace);
}

struct FormArguments {
  std::string file;
  std::string name;
  RecordNr record = kCurrent;
  bool list = false;
};

ExitCode ListForms(Workplace& workplace) {
  TextTable table({{"Form"}, {"For the KE2210"}, {"Title"}, {"Grid"}});
  Json list = Json::array();
  for (const Form& form : Forms::All()) {
    const std::string_view nameKE2210 = form.NameFor("KE2210");
    table.Add({std::string(form.names[0]), std::string(nameKE2210), std::string(form.title),
               std::string(form.grid)});
    list.push_back(
        {{"form", form.names[0]}, {"formForKE2210", nameKE2210}, {"title", form.title}, {"grid", form.grid}});
  }
  if (workplace.options.json) {
    workplace.Emit(std::move(list));
  } else {
    table.Print(workplace.Out());
  }
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
  session.ConvertToForms();
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
  if (workplace.options.json) {
    workplace.Emit(JsonOf(left, session, messenger->Boxes()));
  } else {
    Print(left, session, workplace.Out());
  }
  return left.mayBeLeft ? ExitCode::Done : ExitCode::No;
}

void AddEnabled(CLI::App& app, Action& action) {
  auto given = std::make_shared<EnabledArguments>();
  CLI::App* command = app.add_subcommand("enabled", "Tell whether a control may be edited now, and why");
  command->footer(
      "Exit code of one control: 0 enabled, 1 disabled. A control is drawn before its record exists, so the\n"
      "record may lie past the end.");
  command->add_option("FILE", given->file, "The personality")->required();
  command->add_option("UIID", given->uiid, "The control (see: kd4410 fields)");
  command->add_option("RECORD", given->record, "Its record (else 1), which its form is taken to show");
  command->add_flag("--why", given->why, "What decides, what it reads, and what would enable the control");
  command->add_option("--form", given->form, "All controls of a form (see: kd4410 form --list)")
      ->type_name("NAME");
  command->add_flag("--all", given->all, "All controls of all forms");
  CLI::Option* shown =
      command->add_option("--record", given->shown, "The record that the forms show (else 1)")
          ->type_name("N");
  command->callback([given, shown, &action] {
    action = [given, isShown = shown->count() > 0](Workplace& workplace) {
      if (isShown) RequireFromOne(given->shown);
      return Enabled(*given, workplace);
    };
  });
}

void AddForm(CLI::App& app, Action& action) {
  auto given = std::make_shared<FormArguments>();
  CLI::App* command =
      app.add_subcommand("form", "Run the check that a form makes when it is left; nothing is saved");
  CLI::Option* file = command->add_option("FILE", given->file, "The personality");
  CLI::Option* name =
      command->add_option("NAME", given->name, "The form, by its name or its title (\"Key Settings\")");
  CLI::Option* record =
      command->add_option("--record", given->record, "The record that the form shows (else 1)")
          ->type_name("N");
  command->add_flag("--list", given->list, "List the forms")->excludes(file)->excludes(name);
  command->callback([given, name, record, &action] {
    if (!given->list && name->count() == 0)
      throw CLI::ValidationError("form", "FILE and NAME are required, or --list");
    action = [given, isRecordGiven = record->count() > 0](Workplace& workplace) {
      if (given->list) return ListForms(workplace);
      if (isRecordGiven) RequireFromOne(given->record);
      return LeaveForm(*given, workplace);
    };
  });
}

}  // namespace

void AddFormCommands(CLI::App& app, Action& action) {
  AddEnabled(app, action);
  AddForm(app, action);
}
