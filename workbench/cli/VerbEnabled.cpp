#include <algorithm>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "host/IenablementReasons.h"
#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueText.h"

namespace {

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

void Take(Words& words, EnabledArguments& given) {
  words.Required("FILE", given.file, "The personality");
  words.Optional("UIID", given.uiid, "The control (see: kd4410 fields)");
  words.OptionalRecord("RECORD", given.record, "Its record (else 1), which its form is taken to show");
  words.Flag("--why", given.why, "What decides, what it reads, and what would enable the control");
  words.Option("--form", given.form, "FORM", "All controls of a form (see: kd4410 form --list)");
  words.Flag("--all", given.all, "All controls of all forms");
  words.RecordOption("--record", given.shown, "The record that the forms show (else 1)");
}

/// Tells the tier which record of the table the forms show, one that is still to come included: the
/// conditions of most controls read the current record instead of the one that is drawn.
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
  auto reason = host.ReasonOf(uiid, record);
  if (!reason) throw UsageError("this tier does not tell why a control is enabled or disabled");
  return std::move(*reason);
}

/// Null where the version does not have the field.
const SchemaField* FieldOf(const Session& session, const EnablementReading& reading) {
  return session.Content().GetSchema().Find(reading.field);
}

/// No value where the field is not there, or no such record.
std::optional<std::string> WordOf(const Session& session, const EnablementReading& reading) {
  const SchemaField* field = FieldOf(session, reading);
  if (field == nullptr || reading.exists == kFalse) return {};
  return Wording::WordOf(session, *field, reading.record, reading.value);
}

Json ValueOf(const Session& session, const EnablementReading& reading) {
  const SchemaField* field = FieldOf(session, reading);
  return field == nullptr ? Report::JsonOf(reading.value) : Report::JsonOf(*field, reading.value);
}

Json JsonOf(const Session& session, const EnablementReason& reason) {
  Json readings = Json::List();
  for (const EnablementReading& reading : reason.readings) {
    Json one = {{"field", reading.field},
                {"test", reading.test},
                {"record", reading.record},
                {"exists", reading.exists != kFalse}};
    Report::AddValue(one, "value", ValueOf(session, reading), WordOf(session, reading));
    one["holds"] = reading.holds != kFalse;
    readings.Add(std::move(one));
  }
  return {{"hasCondition", !reason.condition.empty()},
          {"condition", reason.condition},
          {"readings", std::move(readings)},
          {"missing", reason.missing}};
}

void PrintReadings(const Session& session, const std::vector<EnablementReading>& readings,
                   std::ostream& out) {
  TextTable table({{"Field"}, {"Test"}, {"Record", TextTable::Align::Right}, {"Value"}, {"Holds"}});
  for (const EnablementReading& reading : readings) {
    const bool exists = reading.exists != kFalse;
    table.Add({reading.field, reading.test, reading.record == 0 ? "" : std::to_string(reading.record),
               exists ? WordOf(session, reading).value_or(ValueText::Of(reading.value)) : "no such record",
               reading.holds != kFalse ? "yes" : "no"});
  }
  table.Print(out, 2);
}

void PrintReason(const Session& session, const EnablementReason& reason, std::ostream& out) {
  if (reason.condition.empty()) {
    out << "it has no condition: it is always enabled\n";
    return;
  }
  out << "enabled when: " << reason.condition << '\n';
  if (reason.readings.empty()) return;  // no value decides: the control is there to be looked at
  PrintReadings(session, reason.readings, out);
  if (!reason.missing.empty()) out << "to enable it: " << reason.missing << '\n';
  const bool lacksRecord = std::ranges::any_of(
      reason.readings, [](const EnablementReading& reading) { return reading.exists == kFalse; });
  if (lacksRecord && reason.enabled != kFalse)
    out << "until there is such a record, the control is enabled\n";
}

ExitCode OneControl(const EnabledArguments& arguments, Workplace& workplace) {
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  Session& session = opened.GetSession();
  const SchemaField& field = TypedNames::FieldNamed(opened.Content().GetSchema(), arguments.uiid);
  if (field.uiids.empty()) throw UsageError(field.id + " has no control on a form");
  const std::string& uiid = field.CommonName();
  opened.ShowForms();
  ShowRecord(opened.Content(), field.table, arguments.record);

  const bool enabled = IsEnabled(session.Host(), uiid, arguments.record);
  Json data = {
      {"uiid", uiid}, {"label", session.LabelOf(uiid)}, {"record", arguments.record}, {"enabled", enabled}};
  if (!workplace.options.json) workplace.Out() << StateOf(enabled) << '\n';
  if (arguments.why) {
    const EnablementReason reason = ReasonOf(session.Host(), uiid, arguments.record);
    data["why"] = JsonOf(session, reason);
    if (!workplace.options.json) PrintReason(session, reason, workplace.Out());
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
  opened.ShowForms();
  for (const Form& one : Forms::All()) {
    const bool isMeant = form == nullptr || form == &one;
    if (isMeant && arguments.shown != kCurrent) ShowRecord(content, one.subject, arguments.shown);
  }
  TextTable table({{"Form"}, {"UIID"}, {"Label"}, {"Record", TextTable::Align::Right}, {"State"}});
  Json list = Json::List();
  for (const Control& control : Forms::Controls(session)) {
    if (form != nullptr && !Forms::Holds(*form, control)) continue;
    const RecordNr record = DrawnRecord(content, control.field, arguments.shown);
    const std::string place = PlaceOf(control, form, content.GetSchema());
    const std::string label = session.LabelOf(control.uiid);
    const bool enabled = IsEnabled(session.Host(), control.uiid, record);
    table.Add({place, control.uiid, label, std::to_string(record), std::string(StateOf(enabled))});
    list.Add({{"form", place},
              {"grid", control.grid},
              {"uiid", control.uiid},
              {"label", label},
              {"record", record},
              {"enabled", enabled}});
  }
  workplace.Tell("controls", std::move(list), table);
  return ExitCode::Done;
}

ExitCode Enabled(const EnabledArguments& arguments, Workplace& workplace) {
  const bool isOne = !arguments.uiid.empty();
  const bool isForm = !arguments.form.empty();
  if (isOne + isForm + arguments.all != 1)
    throw UsageError("give one of these: the UIID of a control, --form FORM, or --all");
  if (isOne && arguments.shown != kCurrent)
    throw UsageError("--record goes with --form and --all; the record of one control stands behind its UIID");
  if (!isOne && arguments.why) throw UsageError("--why is told of one control: give its UIID");
  if (isOne) return OneControl(arguments, workplace);
  return ManyControls(isForm ? &Forms::Named(arguments.form) : nullptr, arguments, workplace);
}

const Verb kEnabled(
    {.name = "enabled",
     .about = "Tell whether a control may be edited now, and why",
     .details = "Exit code of one control: 0 enabled, 1 disabled. A control is drawn before its record "
                "exists, so the record may lie past the end.",
     .examples = {{"What a control needs", "kd4410 enabled samples/minimal.json GPSBaudRate --why"},
                  {"All controls of a form, with the second network on it",
                   "kd4410 enabled samples/city-fleet.json --form emergency --record 2"}}},
    Take, Enabled);

}  // namespace
