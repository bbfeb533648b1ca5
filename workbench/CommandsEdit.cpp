#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "workbench/Commands.h"
#include "workbench/Forms.h"
#include "workbench/Provider.h"
#include "workbench/Report.h"
#include "workbench/Schema.h"
#include "workbench/TextTable.h"

namespace {

using Json = Workplace::Json;

struct EditArguments {
  std::string file;
  std::string name;
  RecordNr record = 0;  // 0: all records
  std::string value;
  bool dryRun = false;
};

ExitCode Get(const EditArguments& arguments, Workplace& workplace) {
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  opened.GetSession().ConvertToForms();
  const Provider& content = opened.Content();
  const SchemaField& field = Report::FieldNamed(content.GetSchema(), arguments.name);
  RecordNr first = 1;
  RecordNr last = content.Count(field.table);
  if (arguments.record != 0) {
    Report::RequireRecord(content, field, arguments.record);
    first = last = arguments.record;
  }
  Json values = Json::array();
  for (RecordNr record = first; record <= last; ++record) {
    if (workplace.options.json) {
      values.push_back({{"record", record}, {"value", Report::JsonOf(content.Get(field, record))}});
    } else {
      workplace.Out() << Report::TextOf(content.Get(field, record)) << '\n';
    }
  }
  if (workplace.options.json) {
    workplace.Emit({{"name", Report::NameOf(field)}, {"fieldId", field.id}, {"values", std::move(values)}});
  }
  return ExitCode::Done;
}

/// The UIID by which the field is edited: the one that was given, or the field's first.
const std::string& EditedName(const SchemaField& field, const std::string& given) {
  for (const std::string& uiid : field.uiids) {
    if (EqualsIgnoringCase(uiid, given)) return uiid;
  }
  if (field.uiids.empty()) throw UsageError(field.id + " is not edited on a form");
  return field.uiids.front();
}

std::string WouldBeLost(const SchemaField& field) {
  return std::string("a save would lose the value, for the tier ") +
         (field.IsRaw() ? "makes the field from another one of the forms"
                        : "does not convert the field for the radio");
}

/// An edit and what came of it.
struct Edited {
  const EditArguments& arguments;
  const SchemaField& field;
  const std::string& uiid;
  EditResult result;
  bool survives = true;  // a save would keep the value
  bool saved = false;
  bool IsGranted() const { return result.accepted && !result.IsLost() && survives; }
  Report::Outcome Outcome() const { return {result.accepted, IsGranted(), saved, result.others}; }
};

void EmitEdit(const Edited& edited, const Session& session, const std::vector<Shown>& boxes,
              Workplace& workplace) {
  const EditResult& result = edited.result;
  Json data = {{"accepted", edited.IsGranted()},
               {"saved", edited.saved},
               {"uiid", edited.uiid},
               {"fieldId", edited.field.id},
               {"label", session.LabelOf(edited.uiid)},
               {"record", edited.arguments.record},
               {"before", Report::JsonOf(result.before)},
               {"entered", edited.arguments.value},
               {"now", Report::JsonOf(result.accepted ? result.now : result.before)}};
  if (!result.refusal.empty()) data["refusal"] = result.refusal;
  if (!edited.survives) data["refusal"] = WouldBeLost(edited.field);
  Report::AddTo(data, edited.Outcome(), session, boxes);
  workplace.Emit(std::move(data));
}

void PrintEdit(const Edited& edited, const Session& session, std::ostream& out) {
  const EditResult& result = edited.result;
  const std::string label = session.LabelOf(edited.uiid);
  out << label << (label == edited.uiid ? "" : " (" + edited.uiid + ")") << ", record "
      << edited.arguments.record << ": ";
  if (result.IsLost()) {
    out << "\"" << Report::TextOf(result.left) << "\" is no value that the radio can hold here; it keeps \""
        << Report::TextOf(result.now) << "\"\n";
  } else if (!edited.survives) {
    out << "\"" << edited.arguments.value << "\": " << WouldBeLost(edited.field) << '\n';
  } else if (result.accepted) {
    out << Report::TextOf(result.before) << " -> " << Report::TextOf(result.now) << '\n';
  } else {
    out << "\"" << edited.arguments.value << "\" is refused"
        << (result.refusal.empty() ? "" : ": " + result.refusal) << '\n';
  }
  Report::Print(edited.Outcome(), session, out);
}

ExitCode Set(const EditArguments& arguments, Workplace& workplace) {
  const std::shared_ptr<RecordingMessenger> messenger = workplace.Messenger();
  OpenedFile opened(workplace, arguments.file, messenger);
  Session& session = opened.GetSession();
  const SchemaField& field = Report::FieldNamed(opened.Content().GetSchema(), arguments.name);
  const std::string& uiid = EditedName(field, arguments.name);
  session.ConvertToForms();
  Report::RequireRecord(opened.Content(), field, arguments.record);

  if (!Forms::TurnTo(session, field.table, arguments.record)) {
    throw UsageError("the tier refuses to show record " + std::to_string(arguments.record) + " on the form");
  }

  messenger->Clear();
  Edited edited{arguments, field, uiid, session.Edit(field, uiid, arguments.record, arguments.value)};
  const std::vector<Shown> boxes = messenger->Boxes();
  edited.survives = !edited.IsGranted() || session.Survives(field, arguments.record);
  if (edited.IsGranted() && !arguments.dryRun) {
    opened.Save();
    edited.saved = true;
  }
  if (workplace.options.json) {
    EmitEdit(edited, session, boxes, workplace);
  } else {
    PrintEdit(edited, session, workplace.Out());
  }
  return edited.IsGranted() ? ExitCode::Done : ExitCode::No;
}

void AddGet(CLI::App& app, Action& action) {
  auto given = std::make_shared<EditArguments>();
  CLI::App* command = app.add_subcommand("get", "Print the value of a field");
  command->add_option("FILE", given->file, "The personality")->required();
  command->add_option("NAME", given->name, "UIID (TxFreq_k6k) or FieldId (5.ChannelTxFreq)")->required();
  CLI::Option* record = command->add_option("RECORD", given->record, "Record, from 1; all when left out");
  command->callback([given, record, &action] {
    if (record->count() > 0 && given->record == 0)
      throw CLI::ValidationError("RECORD", "records count from 1");
    action = [given](Workplace& workplace) { return Get(*given, workplace); };
  });
}

void AddSet(CLI::App& app, Action& action) {
  auto given = std::make_shared<EditArguments>();
  CLI::App* command = app.add_subcommand(
      "set", "Edit a field as on its form: ask the rule, store, convert, list what changed, save");
  command->add_option("FILE", given->file, "The personality")->required();
  command->add_option("UIID", given->name, "The field (see: kd4410 fields)")->required();
  command->add_option("RECORD", given->record, "Record, from 1; 1 for a field of a single-record table")
      ->required();
  command->add_option("VALUE", given->value, "What is typed into the field")->required();
  command->add_flag("--dry-run", given->dryRun, "Do everything but save");
  command->callback(
      [given, &action] { action = [given](Workplace& workplace) { return Set(*given, workplace); }; });
}

}  // namespace

void AddEditCommands(CLI::App& app, Action& action) {
  AddGet(app, action);
  AddSet(app, action);
}
