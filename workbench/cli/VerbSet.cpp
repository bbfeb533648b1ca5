#include <memory>
#include <optional>
#include <ostream>
#include <utility>
#include <vector>

#include "platform/CaseText.h"
#include "workbench/cli/Report.h"
#include "workbench/cli/StoredReport.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/FiledEdit.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueText.h"

namespace {

struct EditArguments {
  std::string file;
  std::string name;
  RecordNr record = 0;
  std::string value;
  bool dryRun = false;
  bool repair = false;
};

void Take(Words& words, EditArguments& given) {
  words.Required("FILE", given.file, "The personality");
  words.Required("UIID", given.name, "The field (see: kd4410 fields)");
  words.Required("RECORD", given.record, "Record, from 1; 1 for a field of a single-record table");
  words.Required("VALUE", given.value, "What is typed into the field");
  words.Flag("--dry-run", given.dryRun, "Do everything but save");
  words.Flag("--repair", given.repair, kRepairAbout);
}

/// The UIID by which the field is edited: the one that was given, or the field's first.
const std::string& EditedName(const SchemaField& field, const std::string& given) {
  for (const std::string& uiid : field.uiids) {
    if (EqualsIgnoringCase(uiid, given)) return uiid;
  }
  if (field.uiids.empty()) throw UsageError(field.id + " is not edited on a form");
  return field.uiids.front();
}

/// Of a list with ticks a person changes the ticks: what it lists is the tier's.
const SchemaField& TypedInto(const Provider& content, const SchemaField& field) {
  return field.id == "1117.AudibleIndicators_k6k" ? content.FieldOf("1117.EnabledFlag") : field;
}

/// An edit and what came of it.
struct Edited {
  const EditArguments& arguments;
  const SchemaField& field;
  const std::string& uiid;
  const std::optional<Repair>& repair;
  EditResult result;
  std::optional<LostValue> lost = {};  // what a save would not keep
  FiledChanges changes = {};
  Report::Filed filed = Report::Filed::No;
  bool isOther = false;  // and no box has said so
  bool IsGranted() const { return result.accepted && !isOther && !result.IsLost() && !lost; }
  Report::Outcome Outcome() const { return {result.accepted, IsGranted(), filed, result.others}; }
};

/// A value of the edited field.
std::string TextOf(const Edited& edited, const Session& session, const Variant& value) {
  return Wording::TextOf(session, edited.field, edited.arguments.record, value);
}
std::optional<std::string> WordOf(const Edited& edited, const Session& session, const Variant& value) {
  return Wording::WordOf(session, edited.field, edited.arguments.record, value);
}

std::string NotHeld(const Edited& edited, const Session& session) {
  const EditResult& result = edited.result;
  return Printable::Quoted(TextOf(edited, session, result.asked)) +
         " is no value that the radio can hold here; it " + (result.IsLost() ? "keeps " : "would hold ") +
         Printable::Quoted(TextOf(edited, session, result.now));
}

std::string Quoted(const LostValue& lost, const Session& session, const Variant& value) {
  return Printable::Quoted(Wording::TextOf(session, *lost.field, lost.record, value));
}

/// Why the value does not come back.
std::string ReasonOf(const LostValue& lost, const Session& session) {
  const bool isAsBefore = lost.back.IsEmpty() || SameCell(lost.back, lost.before);
  if (!isAsBefore || SameCell(lost.back, lost.now)) {
    return ", which comes back as " + Quoted(lost, session, lost.back);
  }
  return lost.field->IsRaw() ? ", for the tier makes the field from another one of the forms"
                             : ", for the tier does not convert the field for the radio";
}

std::string WouldBeLost(const Edited& edited, const Session& session) {
  const LostValue& lost = *edited.lost;
  if (lost.field == &edited.field && lost.record == edited.arguments.record) {
    return "a save would lose the value" + ReasonOf(lost, session);
  }
  const std::string place = session.LabelOf(*lost.field) + " (" + lost.field->CommonName() + "), record " +
                            std::to_string(lost.record);
  const std::string value = Quoted(lost, session, lost.now);
  if (SameCell(lost.before, lost.now)) {
    return "a save would make " + Quoted(lost, session, lost.back) + " of the value " + value + " of " +
           place;
  }
  return "a save would lose the value " + value + " that the edit gives to " + place +
         ReasonOf(lost, session);
}

Json JsonOf(const Edited& edited, const Session& session, const std::vector<Shown>& boxes) {
  const EditResult& result = edited.result;
  Json data = {{"accepted", edited.IsGranted()},
               {"saved", edited.filed == Report::Filed::Saved},
               {"uiid", edited.uiid},
               {"fieldId", edited.field.id},
               {"label", session.LabelOf(edited.uiid)},
               {"record", edited.arguments.record}};
  const auto add = [&](const char* name, const Variant& value) {
    Report::AddValue(data, name, Report::JsonOf(edited.field, value), WordOf(edited, session, value));
  };
  add("before", result.before);
  data["entered"] = edited.arguments.value;
  add("now", edited.IsGranted() ? result.now : result.before);
  if (!result.refusal.empty()) data["refusal"] = result.refusal;
  if (edited.isOther || result.IsLost()) data["refusal"] = NotHeld(edited, session);
  if (edited.lost) data["refusal"] = WouldBeLost(edited, session);
  Report::AddTo(data, edited.Outcome(), session, boxes);
  Report::AddFiled(data, edited.changes, session);
  Report::AddRepair(data, edited.repair, session);
  return data;
}

void Print(const Edited& edited, const Session& session, std::ostream& out) {
  const EditResult& result = edited.result;
  const std::string label = session.LabelOf(edited.uiid);
  out << label << (label == edited.uiid ? "" : " (" + edited.uiid + ")") << ", record "
      << edited.arguments.record << ": ";
  if (edited.isOther || result.IsLost()) {
    out << NotHeld(edited, session) << '\n';
  } else if (edited.lost) {
    out << Printable::Quoted(edited.arguments.value) << ": " << WouldBeLost(edited, session) << '\n';
  } else if (result.accepted) {
    out << TextOf(edited, session, result.before) << " -> " << TextOf(edited, session, result.now) << '\n';
  } else if (result.refusal.starts_with('"')) {  // it names the value itself
    out << result.refusal << '\n';
  } else {
    out << Printable::Quoted(edited.arguments.value) << " is refused"
        << (result.refusal.empty() ? "" : ": " + result.refusal) << '\n';
  }
  Report::Print(edited.Outcome(), session, out);
  if (!edited.IsGranted()) return;
  const bool saved = edited.filed == Report::Filed::Saved;
  Report::PrintFiled(edited.changes, saved, session, out);
  Report::PrintRepair(edited.repair, saved, session, out);
}

/// What the edit makes of the file, and the save unless something would be lost.
void FileAndSave(Edited& edited, OpenedFile& opened, const ComparedPersonality& before) {
  const std::string document = opened.Document();
  const ComparedPersonality after = opened.Reopened(document);
  const FiledEdit filed{edited.field, edited.arguments.record, edited.result.others, opened.Content(), before,
                        after};
  edited.lost = LostValueOf(filed);
  if (edited.lost) return;
  edited.changes = ChangesInFile(before, after, &opened.Content().GetSchema().TableOf(edited.field),
                                 edited.arguments.record);
  if (edited.arguments.dryRun) return;
  edited.filed = Report::FiledBy(opened.Save(document));
}

EditResult EditedIn(Session& session, const SchemaField& field, const std::string& uiid,
                    const EditArguments& arguments) {
  const Forms::Current* shown = Forms::PointedOutBy(field);
  if (shown == nullptr) return session.Edit(field, uiid, arguments.record, arguments.value);
  EditResult result;
  result.before = result.now = session.Content().Get(field, arguments.record);
  result.refusal = "it says which record the forms show, and no file holds it; --" +
                   std::string(shown->word) + " N shows another one";
  return result;
}

ExitCode Set(const EditArguments& arguments, Workplace& workplace) {
  const std::shared_ptr<RecordingMessenger> messenger = workplace.Messenger();
  OpenedFile opened(workplace, arguments.file, messenger, arguments.dryRun ? Purpose::Read : Purpose::Save,
                    arguments.repair ? OnDamage::Repair : OnDamage::Refuse);
  Session& session = opened.GetSession();
  const SchemaField& named = TypedNames::FieldNamed(opened.Content().GetSchema(), arguments.name);
  const std::string& uiid = EditedName(named, arguments.name);
  const SchemaField& field = TypedInto(opened.Content(), named);
  ComparedPersonality before{opened.Content().Copy(), nullptr};
  opened.ShowForms();
  TypedNames::RequireRecord(opened.Content(), field, arguments.record);

  if (!Forms::TurnTo(session, field.table, arguments.record)) {
    throw UsageError("the tier refuses to show record " + std::to_string(arguments.record) + " on the form");
  }
  before.forms = opened.Content().Copy();

  messenger->Clear();
  Edited edited{arguments, field, uiid, opened.Stored().Repaired(),
                EditedIn(session, field, uiid, arguments)};
  const std::vector<Shown> boxes = messenger->Boxes();
  edited.isOther = boxes.empty() && edited.result.IsOther(field);
  if (edited.IsGranted()) FileAndSave(edited, opened, before);
  workplace.Tell([&] { return JsonOf(edited, session, boxes); },
                 [&](std::ostream& out) { Print(edited, session, out); });
  return edited.IsGranted() ? ExitCode::Done : ExitCode::No;
}

const Verb kSet(
    {.name = "set",
     .about = "Edit a field as on its form: ask the rule, store, convert, list what changed, save",
     .details = "A field with a list takes an entry of it, by its name or its number (see: kd4410 combo "
                "FILE UIID RECORD). An edit that the file would not give back is refused; what changes "
                "in the file is listed.",
     .examples = {{"See what another frequency would change",
                   "kd4410 set samples/city-fleet.json RxFreq_k6k 2 460.5 --dry-run"},
                  {"Choose an entry of a list by its word",
                   "kd4410 set samples/city-fleet.json ScanType_k6k 1 Background"}}},
    Take, Set);

}  // namespace
