#include "workbench/conform/Calls.h"

#include <algorithm>
#include <iterator>

#include "platform/XArrayDBObject.h"
#include "workbench/conform/Choices.h"
#include "workbench/conform/Operations.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/RecordEdits.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace Conform {
namespace {

ItierValidator& ValidatorOf(Bench& bench) { return bench.GetSession().Host().Validator(); }
IproviderOwner& OwnerOf(Bench& bench) { return bench.GetSession().Host().Owner(); }
const std::shared_ptr<Provider>& StoreOf(Bench& bench) { return bench.GetSession().SharedContent(); }

Status Validate(Bench& bench, const Call& call, Answer& answer) {
  Variant value = call.value;
  Status status = ValidatorOf(bench).ValidateByUIID(call.name, value, call.record, answer.result);
  answer.left = ValueText::Of(value);
  return status;
}

Status AskState(Bench& bench, const Call& call, Answer& answer) {
  return ValidatorOf(bench).GetEnabledStatebyUIID(call.name, call.record, answer.result);
}

Status LeaveForm(Bench& bench, const Call& call, Answer& answer) {
  return ValidatorOf(bench).FormValidationByFormName(call.name, kTrue, answer.result);
}

Status AddRecord(Bench& bench, const Call& call, Answer& answer) {
  return ValidatorOf(bench).AddRecord(call.name, StoreOf(bench), answer.result);
}

Status DeleteRecord(Bench& bench, const Call& call, Answer& answer) {
  return ValidatorOf(bench).DeleteRecord(call.name, call.record, StoreOf(bench), answer.result);
}

const SchemaTable& TableOf(Bench& bench, const Call& call) {
  const Schema& schema = bench.Content().GetSchema();
  return *schema.FindTable(Grids::Named(schema, call.name).table);
}

/// The host adds the record, behind the companions that the tier has added.
void Append(Bench& bench, const Call& call) {
  Answer ignored;
  static_cast<void>(AddRecord(bench, call, ignored));
  const SchemaTable& table = TableOf(bench, call);
  const RecordNr count = bench.Content().Count(table);
  if (count < table.maximum) bench.Content().SetCount(table.number, count + 1);
}

Status CompleteAdded(Bench& bench, const Call& call, Answer& answer) {
  return OwnerOf(bench).PostAddProcessing(StoreOf(bench), call.name, answer.result);
}

Status CompleteInserted(Bench& bench, const Call& call, Answer& answer) {
  return OwnerOf(bench).PostInsertProcessing(StoreOf(bench), call.name, call.record, answer.result);
}

/// The host deletes the record, after the tier has permitted it.
void Remove(Bench& bench, const Call& call) {
  Answer ignored;
  static_cast<void>(DeleteRecord(bench, call, ignored));
  std::shared_ptr<Itables> tables;
  std::shared_ptr<Itable> table;
  RecordNr left = 0;
  RaiseIfFailed(bench.Content().Tables(tables));
  RaiseIfFailed(tables->Table(std::to_string(TableOf(bench, call).number), table));
  if (bench.Content().Count(TableOf(bench, call)) > 0) RaiseIfFailed(table->DeleteRecord(call.record, left));
}

Status CompleteDeleted(Bench& bench, const Call& call, Answer& answer) {
  return OwnerOf(bench).PostDeleteProcessing(StoreOf(bench), call.name, call.record, answer.result);
}

Status ToForm(Bench& bench, const Call& call, Answer& answer) {
  return OwnerOf(bench).TransformToUI(StoreOf(bench), call.name, call.record, answer.result);
}

Status FromForm(Bench& bench, const Call& call, Answer& answer) {
  return OwnerOf(bench).TransformFromUI(StoreOf(bench), call.name, call.record, answer.result);
}

Status ListItems(Bench& bench, const Call& call, Answer& answer) {
  std::shared_ptr<XArrayDBObject> items;
  Status status =
      OwnerOf(bench).GetComboItemsByUIID(StoreOf(bench), call.name, call.record, items, answer.result);
  for (std::int32_t row = 0; items != nullptr && row <= items->UpperBound(1); ++row) {
    answer.left += ValueText::Of(items->GetValue(row, 0)) + '|';
  }
  return status;
}

void MakeDestination(Bench& bench, const Call& call) { bench.MakeDestination(call.name); }

Status Convert(Bench& bench, const Call& call, Answer& answer) {
  return OwnerOf(bench).BackwardsCompatibility(StoreOf(bench), bench.Content().GetSchema().Version(),
                                               bench.Destination(), call.name, Variant(), answer.result);
}

Status ValidateAll(Bench& bench, const Call&, Answer& answer) {
  return ValidatorOf(bench).RunFinalValidation(answer.result);
}

Status ValidateForRadio(Bench& bench, const Call&, Answer& answer) {
  return ValidatorOf(bench).RunPreProgramValidation(answer.result);
}

Status AfterRead(Bench& bench, const Call&, Answer& answer) {
  answer.result = kTrue;  // it has no result
  return OwnerOf(bench).PostReadProcessing(StoreOf(bench), Variant());
}

Status BeforeWrite(Bench& bench, const Call&, Answer& answer) {
  answer.result = kTrue;
  return OwnerOf(bench).PreWriteProcessing(StoreOf(bench), Variant(), Variant());
}

// clang-format off
constexpr Operation kValidate  {"ValidateByUIID",           Subject::FieldRule,      nullptr, Validate};
constexpr Operation kState     {"GetEnabledStatebyUIID",    Subject::ControlState,   nullptr, AskState};
constexpr Operation kForm      {"FormValidationByFormName", Subject::Form,           nullptr, LeaveForm};
constexpr Operation kAdd       {"AddRecord",                Subject::Grid,           nullptr, AddRecord};
constexpr Operation kAdded     {"PostAddProcessing",        Subject::Grid,           Append,  CompleteAdded};
constexpr Operation kInserted  {"PostInsertProcessing",     Subject::Grid,           Append,  CompleteInserted};
constexpr Operation kDelete    {"DeleteRecord",             Subject::Grid,           nullptr, DeleteRecord};
constexpr Operation kDeleted   {"PostDeleteProcessing",     Subject::Grid,           Remove,  CompleteDeleted};
constexpr Operation kToForm    {"TransformToUI",            Subject::Transformation, nullptr, ToForm};
constexpr Operation kFromForm  {"TransformFromUI",          Subject::Transformation, nullptr, FromForm};
constexpr Operation kList      {"GetComboItemsByUIID",      Subject::ComboList,      nullptr, ListItems};
constexpr Operation kConvert   {"BackwardsCompatibility",   Subject::VersionPair,    MakeDestination, Convert};
constexpr Operation kWhole[] = {
    {"RunFinalValidation",      Subject::Whole, nullptr, ValidateAll},
    {"RunPreProgramValidation", Subject::Whole, nullptr, ValidateForRadio},
    {"PostReadProcessing",      Subject::Whole, nullptr, AfterRead},
    {"PreWriteProcessing",      Subject::Whole, nullptr, BeforeWrite},
};
// clang-format on

/// Calls `visit` with each name under which a form may hold a field: its UIIDs, and its plain name where no
/// other field has it.
template <typename Visit>
void ForEachControl(const Schema& schema, Visit visit) {
  for (const SchemaField& field : schema.Fields()) {
    for (const std::string& uiid : field.uiids) visit(field, uiid);
    const std::string plain(field.Name());
    if (schema.Find(plain) == &field) visit(field, plain);
  }
}

/// The first record of the field's table and the last; the first, too, when it has none.
std::vector<RecordNr> EndRecords(const Provider& content, const SchemaField& field) {
  const RecordNr last = content.Count(field.table);
  if (last <= 1) return {1};
  return {1, last};
}

std::vector<Call> FieldRuleCalls(const Provider& content) {
  std::vector<Call> calls;
  ForEachControl(content.GetSchema(), [&](const SchemaField& field, const std::string& name) {
    for (const RecordNr record : EndRecords(content, field)) {
      const bool isThere = record <= content.Count(field.table);
      if (isThere) calls.push_back({&kValidate, name, record, content.Get(field, record), true});
      for (const Variant& value : {Variant(0), Variant("1"), Variant(2), Variant("None")}) {
        const bool isText = value.IsText() && field.type != FieldType::Text;
        calls.push_back({&kValidate, name, record, value, isThere && !isText});
      }
    }
  });
  return calls;
}

/// A control may be drawn, and its list be filled, before its record exists.
std::vector<Call> ControlCalls(const Provider& content, const Operation& operation) {
  std::vector<Call> calls;
  ForEachControl(content.GetSchema(), [&](const SchemaField& field, const std::string& name) {
    for (const RecordNr record : EndRecords(content, field)) {
      calls.push_back({&operation, name, record, {}, true});
    }
  });
  return calls;
}

std::vector<Call> FormCalls(const Provider& content) {
  std::vector<Call> calls;
  for (const Form& form : Forms::All()) {
    const bool hasSubject = form.subject == Form::kNoSubject || content.Count(form.subject) > 0;
    calls.push_back({&kForm, std::string(form.NameFor(content.GetSchema().Model())), 0, {}, hasSubject});
  }
  return calls;
}

std::vector<Call> GridCalls(const Provider& content) {
  std::vector<Call> calls;
  for (const Grid& grid : Grids::All()) {
    const SchemaTable* table = content.GetSchema().FindTable(grid.table);
    if (table == nullptr) continue;
    const bool mayGrow = content.Count(*table) < table->maximum;
    const bool mayShrink = content.Count(*table) > table->minimum;
    const std::string name(grid.name);
    for (const Operation* operation : {&kAdd, &kAdded, &kInserted}) {
      calls.push_back({operation, name, operation == &kInserted ? 1 : 0, {}, mayGrow});
    }
    for (const Operation* operation : {&kDelete, &kDeleted}) {
      calls.push_back({operation, name, 1, {}, mayShrink});
    }
  }
  return calls;
}

std::vector<Call> TransformationCalls(const Provider& content) {
  std::vector<Call> calls;
  for (const SchemaField& field : content.GetSchema().Fields()) {
    if (field.transform == 0) continue;
    for (const RecordNr record : EndRecords(content, field)) {
      const bool isLegal = field.scope == FieldScope::Table || record <= content.Count(field.table);
      for (const Operation* operation : {&kFromForm, &kToForm}) {
        calls.push_back({operation, field.id, record, {}, isLegal});
      }
    }
  }
  return calls;
}

/// To the next older and the next newer version.
std::vector<Call> VersionCalls(const Provider& content) {
  const std::vector<VersionName> versions = SchemaFiles::VersionsOf(content.GetSchema().Model());
  const auto here = std::ranges::find(versions, content.GetSchema().Name());
  std::vector<Call> calls;
  if (here != versions.begin()) calls.push_back({&kConvert, std::prev(here)->Text()});
  if (std::next(here) != versions.end()) calls.push_back({&kConvert, std::next(here)->Text()});
  return calls;
}

std::vector<Call> WholeCalls() {
  std::vector<Call> calls;
  for (const Operation& operation : kWhole) calls.push_back({&operation, ""});
  return calls;
}

constexpr Subject kSubjects[] = {Subject::FieldRule,   Subject::ControlState,   Subject::Form,
                                 Subject::Grid,        Subject::Transformation, Subject::ComboList,
                                 Subject::VersionPair, Subject::Whole};

}  // namespace

std::string Call::Text() const {
  std::string text(operation->name);
  if (!name.empty()) text += " " + name;
  if (record != 0) text += " record " + std::to_string(record);
  if (operation->subject == Subject::FieldRule) text += " value \"" + ValueText::Of(value) + '"';
  return text;
}

std::string Answer::Text() const {
  if (!escaped.empty()) return "exception: " + escaped;
  if (fault)
    return "error " + std::to_string(fault->number) + " of " + fault->source + ": " + fault->description;
  return std::to_string(result) + " " + left;
}

std::vector<Call> CallsOn(Bench& bench, Subject subject) {
  const Provider& content = bench.Content();
  switch (subject) {
    case Subject::FieldRule:
      return FieldRuleCalls(content);
    case Subject::ControlState:
      return ControlCalls(content, kState);
    case Subject::Form:
      return FormCalls(content);
    case Subject::Grid:
      return GridCalls(content);
    case Subject::Transformation:
      return TransformationCalls(content);
    case Subject::ComboList:
      return ControlCalls(content, kList);
    case Subject::VersionPair:
      return VersionCalls(content);
    case Subject::Whole:
      break;
  }
  return WholeCalls();
}

std::vector<Call> AllCallsOn(Bench& bench) {
  std::vector<Call> all;
  for (const Subject subject : kSubjects) {
    const std::vector<Call> calls = CallsOn(bench, subject);
    all.insert(all.end(), calls.begin(), calls.end());
  }
  return all;
}

std::vector<Call> StrayCallsOn(Bench& bench) {
  std::vector<Call> strays;
  for (const Call& call : AllCallsOn(bench)) {
    // What the host does before some calls needs a record.
    if (call.record != 1 || call.operation->prepare != nullptr) continue;
    for (const RecordNr record : kOddRecords) {
      strays.push_back({call.operation, call.name, record, call.value, false});
    }
  }
  return strays;
}

std::string TroubleOf(const Call& call, const Answer& answer) {
  if (!answer.escaped.empty()) return "an exception crossed the border: " + answer.escaped;
  if (answer.boxes.size() < static_cast<std::size_t>(answer.terminations)) {
    return "it ended the application without a box";
  }
  if (answer.fault) return call.isLegal ? answer.Text() : "";
  if (answer.result != kTrue && answer.result != kFalse) {
    return std::to_string(answer.result) + " is no flag";
  }
  if (!call.isLegal || answer.terminations == 0) return {};
  return "it ended the application: " + answer.boxes.front();
}

}  // namespace Conform
