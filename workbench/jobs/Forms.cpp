#include "workbench/jobs/Forms.h"

#include <algorithm>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Session.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"

namespace {

template <std::int32_t... numbers>
constexpr std::int32_t kTables[] = {numbers...};

// clang-format off
constexpr Form kForms[] = {
    {.names = {"USRCTLCHANNELSKD4410", "USRCTLCHANNELSKE2210"},
     .title = "Channels", .grid = "Channels6000", .subject = 5},
    {.names = {"USRCTLKEYSETTINGSKD4410", "USRCTLKEYSETTINGSKE2210"},
     .title = "Key Settings", .tables = kTables<1099>},
    {.names = {"USRCTLFREEFORMATKD4410", "USRCTLFREEFORMATKE2210"},
     .title = "Free Format Bursts", .subject = 49, .tables = kTables<49>, .prefix = "FreeForm"},
    {.names = {"USRCTLPROGIOKD4410", "USRCTLPROGIOKE2210"},
     .title = "Programmable I/O", .tables = kTables<59, 1108, 1109>, .prefix = "ActionParam"},
    {.names = {"USRCTLSELCALLTONESETTINGS"},
     .title = "Selcall Tone Settings", .subject = 48, .tables = kTables<31, 48>},
    {.names = {"USRCTLPTT"}, .title = "PTT", .tables = kTables<1096>},
    {.names = {"USRCTLNETWORKS"}, .title = "Networks", .grid = "Network", .subject = 21},
    {.names = {"USRCTLDTMFPATCH"}, .title = "DTMF Patch", .subject = 21, .tables = kTables<67, 72>},
    {.names = {"USRCTLEMERGENCYKD4410", "USRCTLEMERGENCYKE2210"},
     .title = "Emergency", .subject = 21, .tables = kTables<53>},
    {.names = {"USRCTLNETWORKFEATURES"}, .title = "Network Features", .grid = "Network", .subject = 21},
    {.names = {"USRCTLNETWORKDATA"}, .title = "Data", .tables = kTables<9, 69>},
    {.names = {"USRCTLNETWORKPTT"}, .title = "Network PTT Signalling", .grid = "Network", .subject = 21},
    {.names = {"USRCTLSELCALLSETUPKD4410", "USRCTLSELCALLSETUPKE2210"},
     .title = "Selcall Set-up", .grid = "Selcall6000", .subject = 29},
    {.names = {"USRCTLCONTROLSTATUSKD4410", "USRCTLCONTROLSTATUSKE2210"},
     .title = "Control Status", .grid = "ControlStatus6000", .subject = 29},
    {.names = {"USRCTLSCANGROUPSKD4410", "USRCTLSCANGROUPSKE2210"},
     .title = "Scan Groups", .grid = "ScanGroup", .subject = 16, .tables = kTables<18, 1119>},
    {.names = {"USRCTLDTMF"},
     .title = "DTMF Signalling", .grid = "DTMF", .subject = 64, .tables = kTables<64, 1098>},
    {.names = {"USRCTLTYPE99"}, .title = "Two-Tone Options", .grid = "Type99", .subject = 37},
};

constexpr Forms::Current kCurrents[] = {
    {"channel",     "CurrentChannelNr",        kTables<5>},
    {"network",     "CurrentNetworkNr",        kTables<21, 36, 53, 67, 72, 75, 77, 78>},
    {"group",       "CurrentScanGroupNr",      kTables<16>, kTables<1119>},
    {"selcall",     "CurrentSelcallNumber",    kTables<29, 31, 48>,
                    kTables<1101, 1102, 1103, 1104, 1105, 1106, 1115>},
    {"dtmf",        "CurrentDTMFNr",           kTables<64>, kTables<1098>},
    {"two-tone",    "CurrentType99Nr",         kTables<37>},
    {"mdc1200",     "CurrentMDC1200Nr",        kTables<80>},
    {"free-format", "CurrentFreeFormRecordNr", kTables<49>},
};
// clang-format on

constexpr std::int32_t kFreeFormatSequences = 49;
constexpr RecordNr kSequencesPerSystem = 7;

bool IsOneOf(std::int32_t table, std::span<const std::int32_t> tables) {
  return std::ranges::find(tables, table) != tables.end();
}

const Forms::Current* FindCurrent(std::int32_t table) {
  const auto* current =
      std::ranges::find_if(kCurrents, [&](const Forms::Current& one) { return IsOneOf(table, one.tables); });
  return current == std::end(kCurrents) ? nullptr : current;
}

/// Asks the rule of the pointer on the content that the tier has open.
bool Turn(const TierHost& host, Provider& content, const SchemaField& pointer, RecordNr record) {
  Variant value = record;
  Boolean accepted = kFalse;
  host.Require(host.Validator().ValidateByUIID(pointer.CommonName(), value, 1, accepted));
  if (accepted != kFalse) content.Set(pointer, 1, value);
  return accepted != kFalse;
}

/// To a record for each of kCurrents. Where `mayStay` says so, a record that is shown is not turned to anew.
template <typename MayStay>
void TurnAll(const TierHost& host, Provider& content, const std::vector<RecordNr>& records, MayStay mayStay) {
  auto record = records.begin();
  for (const Forms::Current& current : kCurrents) {
    const SchemaField* pointer = content.GetSchema().Find(current.field);
    const bool stays = pointer == nullptr || (mayStay(current) && CLng(content.Get(*pointer, 1)) == *record);
    if (!stays) Turn(host, content, *pointer, *record);
    ++record;
  }
}

bool HoldsWhateverTheGrid(const Form& form, const Control& control) {
  return IsOneOf(control.field.table, form.tables) ||
         (!form.prefix.empty() && FindIgnoringCase(control.uiid, form.prefix) == 0);
}

/// By which of its names a person may call the form.
bool IsCalled(const Form& form, std::string_view text) {
  const std::string_view calls[] = {form.names[0], form.names[1], form.title, form.grid};
  return std::ranges::any_of(
      calls, [&](std::string_view call) { return !call.empty() && EqualsIgnoringCase(call, text); });
}

std::vector<std::string> AllCalls() {
  std::vector<std::string> calls;
  for (const Form& form : kForms) {
    for (const std::string_view call : {form.names[0], form.names[1], form.title, form.grid}) {
      const bool isKnown = call.empty() || std::ranges::find(calls, call) != calls.end();
      if (!isKnown) calls.emplace_back(call);
    }
  }
  return calls;
}

std::string GridOf(Session& session, std::string_view uiid) {
  std::string grid;
  Boolean known = kFalse;
  const TierHost& host = session.Host();
  host.Require(host.UserInterface().GetATGridIDByUIID(uiid, grid, known));
  return grid;
}

}  // namespace

std::string_view Form::NameFor(std::string_view model) const {
  return model.starts_with("KE2210") && !names[1].empty() ? names[1] : names[0];
}

namespace Forms {

std::span<const Form> All() { return kForms; }

const Form& Named(std::string_view text) {
  const auto* form = std::ranges::find_if(kForms, [&](const Form& one) { return IsCalled(one, text); });
  if (form != std::end(kForms)) return *form;
  throw UsageError("there is no form " + Printable::Quoted(text) + " (see kd4410 form --list)" +
                   TypedNames::Suggestion(text, AllCalls()));
}

std::vector<Control> Controls(Session& session) {
  std::vector<Control> controls;
  for (const SchemaField& field : session.Content().GetSchema().Fields()) {
    for (const std::string& uiid : field.uiids) controls.push_back({field, uiid, GridOf(session, uiid)});
  }
  return controls;
}

bool Holds(const Form& form, const Control& control) {
  const auto holds = [&](const Form& one) { return HoldsWhateverTheGrid(one, control); };
  if (holds(form)) return true;
  return !form.grid.empty() && EqualsIgnoringCase(form.grid, control.grid) &&
         std::ranges::none_of(kForms, holds);
}

const Form* FormOf(const Control& control) {
  const auto* form = std::ranges::find_if(kForms, [&](const Form& one) { return Holds(one, control); });
  return form == std::end(kForms) ? nullptr : form;
}

std::span<const Current> Currents() { return kCurrents; }

const Current* PointedOutBy(const SchemaField& field) {
  const auto* current = std::ranges::find_if(
      kCurrents, [&](const Current& one) { return EqualsIgnoringCase(one.field, field.Name()); });
  return current == std::end(kCurrents) ? nullptr : current;
}

const Current* ViewedBy(std::int32_t table) {
  const auto* current =
      std::ranges::find_if(kCurrents, [&](const Current& one) { return IsOneOf(table, one.views); });
  return current == std::end(kCurrents) ? nullptr : current;
}

const Current* CurrentOf(std::int32_t table) {
  const Current* current = FindCurrent(table);
  return current != nullptr ? current : ViewedBy(table);
}

std::int32_t TableBehind(std::int32_t table) {
  constexpr std::int32_t kShownMembers = 1119, kMembers = 18;
  return table == kShownMembers ? kMembers : table;
}

void FillViews(Session& session, const Current& current) {
  Provider& content = session.Content();
  const SchemaField& pointer = content.FieldOf(current.field);
  Turn(session.Host(), content, pointer, CLng(content.Get(pointer, 1)));
}

std::vector<RecordNr> Shown(const Provider& content) {
  std::vector<RecordNr> records;
  for (const Current& current : kCurrents) records.push_back(CurrentRecord(content, current.tables.front()));
  return records;
}

void Show(const TierHost& host, Provider& content, const std::vector<RecordNr>& records) {
  // The views of the record are filled by its rule alone.
  TurnAll(host, content, records, [](const Current& current) { return current.views.empty(); });
}

const SchemaField* PointerOf(const Schema& schema, std::int32_t table) {
  const Current* current = FindCurrent(table);
  return current == nullptr ? nullptr : schema.Find(current->field);
}

std::int32_t SubjectOf(std::int32_t table) {
  const Current* current = FindCurrent(table);
  return current == nullptr ? table : current->tables.front();
}

RecordNr CurrentRecord(const Provider& content, std::int32_t table) {
  const SchemaField* pointer = PointerOf(content.GetSchema(), table);
  return pointer == nullptr ? 1 : CLng(content.Get(*pointer, 1));
}

RecordNr RecordCount(const Provider& content, const Form& form) {
  return form.subject == Form::kNoSubject ? 0 : content.Count(form.subject);
}

bool TurnTo(Session& session, std::int32_t table, RecordNr record) {
  Provider& content = session.Content();
  if (table == kFreeFormatSequences) {
    const RecordNr system = (record - 1) / kSequencesPerSystem + 1;
    if (system <= content.Count(kSelcallSystems) && !TurnTo(session, kSelcallSystems, system)) return false;
  }
  const SchemaField* pointer = PointerOf(content.GetSchema(), table);
  if (pointer == nullptr || CLng(content.Get(*pointer, 1)) == record) return true;
  return Turn(session.Host(), content, *pointer, record);
}

void TurnBack(Session& session, const std::vector<RecordNr>& shown) {
  TurnAll(session.Host(), session.Content(), shown, [](const Current&) { return true; });
}

bool MayBeLeft(Session& session, const Form& form) {
  const TierHost& host = session.Host();
  const std::string_view name = form.NameFor(session.Content().GetSchema().Model());
  Boolean mayBeLeft = kFalse;
  host.Require(host.Validator().FormValidationByFormName(name, kTrue, mayBeLeft));
  return mayBeLeft != kFalse;
}

}  // namespace Forms
