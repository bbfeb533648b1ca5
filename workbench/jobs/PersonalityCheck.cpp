#include "workbench/jobs/PersonalityCheck.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "host/IfinalRules.h"
#include "platform/Conversions.h"
#include "workbench/jobs/BurstSlots.h"
#include "workbench/jobs/Control.h"
#include "workbench/jobs/Difference.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/Integrity.h"
#include "workbench/jobs/Session.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueLists.h"
#include "workbench/store/ValueText.h"

namespace {

/// Rules that judge the change to another value and not the value, or explain it: what is stored is none.
constexpr std::string_view kRulesOfChange[] = {
    "ChannelNetworkID_k6k", "GroupFormat", "GroupTone", "IOPCTS", "IOPRTS", "ToneSet"};
/// Rules that advise and ask about a change, and judge the value by refusing it.
constexpr std::string_view kAdviceOnChange[] = {"DigitalIOAction"};
}  // namespace

FindingKind KindOf(const Shown& box) {
  switch (box.style) {
    case MessageStyle::kNotice:
      return FindingKind::Notice;
    case MessageStyle::kYesNo:
    case MessageStyle::kYesNoCancel:
      return FindingKind::Question;
    default:
      return box.title.ends_with("Warning") ? FindingKind::Warning : FindingKind::Error;
  }
}

std::string_view NameOf(FindingKind kind) {
  switch (kind) {
    case FindingKind::Error:
      return "error";
    case FindingKind::Warning:
      return "warning";
    case FindingKind::Notice:
      return "notice";
    case FindingKind::Question:
      break;
  }
  return "question";
}

void PersonalityCheck::Tell(const std::vector<Damage>& damages) {
  constexpr DamageKind kMended[] = {DamageKind::Companions, DamageKind::Chain, DamageKind::Presets};
  for (const Damage& damage : damages) {
    const PersonalityFile::Place& place = damage.place;
    Finding finding;
    finding.kind = std::ranges::count(kMended, damage.kind) > 0 ? FindingKind::Warning : FindingKind::Error;
    finding.rule = NameOf(damage.kind);
    finding.label = place.field == nullptr
                        ? place.table->title
                        : session_.LabelOf(*ShownAs(session_.Content().GetSchema(), *place.field));
    finding.table = place.table->number;
    // Of a table that is too short: the first that lacks.
    finding.record = place.record > 0 ? place.record : session_.Content().Count(*place.table) + 1;
    finding.field = place.field;
    finding.value = damage.value;
    finding.text = damage.text + ".";
    finding.text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(finding.text.front())));
    finding.line = damage.line;
    finding.path = place.Path();
    findings_.push_back(std::move(finding));
  }
}

void PersonalityCheck::TellConsequences(const std::vector<Damage>& damages) {
  for (std::size_t i = 0; i < damages.size(); ++i) findings_[i].consequence = damages[i].consequence;
}

void PersonalityCheck::CheckNumbers() {
  for (const SchemaField& field : session_.Content().GetSchema().Fields()) {
    if (!field.isIdentity || NumberSetOf(session_.Content().GetSchema(), field).size() < 2) continue;
    for (RecordNr record = 1; record <= session_.Content().Count(field.table); ++record) {
      const Variant number = session_.Content().Get(field, record);
      const Entry entry = EnteredIn(session_, field, field.CommonName(), record, CStr(number));
      if (entry.refusal.empty()) continue;
      Finding finding = Origin(field, "number", session_.LabelOf(field), record, number);
      finding.text = entry.refusal;
      Add(std::move(finding));
    }
  }
}

void PersonalityCheck::NameRecords() {
  const Schema& schema = session_.Content().GetSchema();
  for (Finding& finding : findings_) {
    finding.identity = IdentityOf(*schema.FindTable(finding.table), finding.record);
  }
}

void PersonalityCheck::TellLeftOut() {
  const Session::NotTaken& leftOut = session_.LeftOut();
  if (leftOut.first == 0) return;
  const SchemaField& field = session_.Content().FieldOf("32.SignalSystemId");
  Finding finding = Origin(field, "forms", session_.LabelOf(field), leftOut.first,
                           session_.Content().Get(field, leftOut.first));
  finding.text = leftOut.reason;
  Add(std::move(finding));
}

void PersonalityCheck::RunRules() {
  NameRecords();
  TellLeftOut();
  CheckNumbers();
  for (const Subject& subject : Subjects()) {
    subject.current == nullptr ? RunRulesOfAll(subject.rules) : RunRulesOfEach(subject);
  }
  RunForms();
  RunFinalRules();
}

std::vector<PersonalityCheck::Subject> PersonalityCheck::Subjects() const {
  std::vector<Subject> subjects;
  for (const SchemaField& field : session_.Content().GetSchema().Fields()) {
    const Forms::Current* current = Forms::CurrentOf(field.table);
    auto subject = std::ranges::find(subjects, current, &Subject::current);
    for (const std::string& uiid : field.uiids) {
      if (std::ranges::find(kRulesOfChange, uiid) != std::end(kRulesOfChange)) continue;
      if (subject == subjects.end()) subject = subjects.insert(subject, Subject{current, {}});
      subject->rules.push_back({field, uiid});
    }
  }
  return subjects;
}

void PersonalityCheck::RunRulesOfAll(const std::vector<Rule>& rules) {
  for (const Rule& rule : rules) {
    const RecordNr count = session_.Content().Count(rule.field.table);
    for (RecordNr record = 1; record <= count; ++record) RunRule(rule, record, {}, [] {});
  }
}

void PersonalityCheck::RunRulesOfEach(const Subject& subject) {
  Provider& content = session_.Content();
  const std::vector<RecordNr> shown = Forms::Shown(content);
  RecordNr most = 0;
  for (const std::int32_t table : subject.current->tables) most = std::max(most, content.Count(table));
  for (RecordNr record = 1; record <= most; ++record) {
    // Rules read the fields beside the one that they judge from the record that the form shows.
    Forms::TurnTo(session_, subject.current->tables.front(), record);
    for (const Rule& rule : subject.rules) {
      if (Forms::ViewedBy(rule.field.table) != nullptr) {
        RunRuleOfView(rule, record);
      } else if (record <= content.Count(rule.field.table)) {
        RunRule(rule, record, {}, [] {});
      }
    }
  }
  Forms::TurnBack(session_, shown);
}

template <typename Prepare>
void PersonalityCheck::RunRule(const Rule& rule, RecordNr record, const std::string& identity,
                               Prepare prepare) {
  const auto& [field, uiid] = rule;
  Provider& content = session_.Content();
  TierHost& host = session_.Host();
  Journal journal(content);
  Variant value = content.Get(field, record);
  prepare();
  Boolean accepted = kFalse;
  host.Require(host.Validator().ValidateByUIID(uiid, value, record, accepted));
  journal.Rollback();
  const bool isAdvice = accepted != kFalse && std::ranges::count(kAdviceOnChange, uiid) > 0;
  if (!isAdvice && (accepted == kFalse || !messenger_.Boxes().empty())) {
    Finding origin = Origin(field, uiid, session_.LabelOf(uiid), record, content.Get(field, record));
    if (!identity.empty()) origin.identity = identity;
    Collect(origin, accepted != kFalse, "The value is refused without a message.");
  }
  messenger_.Clear();
}

void PersonalityCheck::RunRuleOfView(const Rule& rule, RecordNr shown) {
  const SchemaField& field = rule.field;
  Provider& content = session_.Content();
  const SchemaTable& subject = *content.GetSchema().FindTable(Forms::ViewedBy(field.table)->tables.front());
  if (shown > content.Count(subject)) return;
  const std::string identity = IdentityOf(subject, shown);
  const std::vector<RecordNr> slots = BurstSlots::Of(content, field.table, shown);
  for (RecordNr row = 1; row <= content.Count(field.table); ++row) {
    const bool isUnused = field.type == FieldType::Text && CStr(content.Get(field, row)).empty();
    if (isUnused) continue;
    // A burst is compared with all of its kind: it is not to meet itself.
    RunRule(rule, row, identity, [&] {
      if (slots.empty()) return;
      content.Set(field, row, "");
      if (row <= std::ssize(slots)) content.Set("UGBurstSeq", slots[static_cast<std::size_t>(row - 1)], "");
    });
  }
}

void PersonalityCheck::NoteToldTexts() {
  for (const Finding& finding : findings_) told_.insert(finding.text);
}

void PersonalityCheck::RunForms() {
  for (const Form& form : Forms::All()) {
    NoteToldTexts();
    const RecordNr count = Forms::RecordCount(session_.Content(), form);
    if (count == 0) RunForm(form, 0);
    for (RecordNr record = 1; record <= count; ++record) RunForm(form, record);
  }
}

void PersonalityCheck::RunForm(const Form& form, RecordNr record) {
  const Schema& schema = session_.Content().GetSchema();
  Finding origin;
  origin.rule = "form " + std::string(form.NameFor(schema.Model()));
  origin.label = form.title;
  if (record > 0) {
    origin.table = form.subject;
    origin.record = record;
    origin.identity = IdentityOf(*schema.FindTable(form.subject), record);
  }
  Journal journal(session_.Content());
  const bool isShown = record == 0 || Forms::TurnTo(session_, form.subject, record);
  const bool mayBeLeft = isShown && Forms::MayBeLeft(session_, form);
  journal.Rollback();
  Collect(origin, mayBeLeft, "The form may not be left, and no message tells why.");
  messenger_.Clear();
}

void PersonalityCheck::RunFinalRules() {
  NoteToldTexts();
  TierHost& host = session_.Host();
  auto* rules = dynamic_cast<IfinalRules*>(&host.Validator());
  if (rules == nullptr) return RunFinalWalk();
  std::int32_t count = 0;
  host.Require(rules->FinalRuleCount(count));
  for (std::int32_t rule = 1; rule <= count; ++rule) {
    Journal journal(session_.Content());
    FinalOutcome outcome;
    host.Require(rules->RunFinalRule(rule, outcome));
    journal.Rollback();
    CollectFinal(outcome);
    messenger_.Clear();
  }
}

void PersonalityCheck::CollectFinal(const FinalOutcome& outcome) {
  const std::string rule = "final " + outcome.name;
  for (std::size_t i = 0; i < messenger_.Boxes().size(); ++i) {
    Finding finding;
    finding.rule = rule;
    finding.label = "Before a save";
    if (i < outcome.places.size()) {
      const auto& [uiid, record] = outcome.places[i];
      const SchemaField& field = session_.Content().FieldOf(uiid);
      const bool isThere = record >= 1 && record <= session_.Content().Count(field.table);
      finding = Origin(field, rule, session_.LabelOf(uiid), record,
                       isThere ? session_.Content().Get(field, record) : Variant());
    }
    Tell(std::move(finding), messenger_.Boxes()[i]);
  }
}

void PersonalityCheck::RunFinalWalk() {
  TierHost& host = session_.Host();
  Journal journal(session_.Content());
  Boolean accepted = kFalse;
  host.Require(host.Validator().RunFinalValidation(accepted));
  journal.Rollback();
  Finding origin;
  origin.rule = "final";
  origin.label = "Before a save";
  Collect(origin, accepted != kFalse, "The personality may not be saved, and no message tells why.");
  messenger_.Clear();
}

void PersonalityCheck::Collect(const Finding& origin, bool accepted, std::string_view silence) {
  for (const Shown& box : messenger_.Boxes()) Tell(origin, box);
  if (accepted || !messenger_.Boxes().empty()) return;
  Finding finding = origin;
  finding.text = silence;
  Add(std::move(finding));
}

void PersonalityCheck::Tell(Finding finding, const Shown& box) {
  finding.kind = KindOf(box);
  finding.text = box.text;
  if (IsQuestion(box.style)) finding.answer = NameOf(box.answer);
  Add(std::move(finding));
}

void PersonalityCheck::Add(Finding finding) {
  if (told_.contains(finding.text)) return;
  if (!seen_.emplace(finding.rule, finding.table, finding.record, finding.identity, finding.text).second)
    return;
  findings_.push_back(std::move(finding));
}

Finding PersonalityCheck::Origin(const SchemaField& field, std::string rule, std::string label,
                                 RecordNr record, const Variant& value) const {
  Finding finding;
  finding.rule = std::move(rule);
  finding.label = std::move(label);
  finding.table = field.table;
  finding.record = record;
  finding.identity = IdentityOf(session_.Content().GetSchema().TableOf(field), record);
  finding.field = &field;
  finding.value = value;
  return finding;
}

std::string PersonalityCheck::IdentityOf(const SchemaTable& table, RecordNr record) const {
  const Provider& content = session_.Content();
  const SchemaTable& subject = *content.GetSchema().FindTable(Forms::SubjectOf(table.number));
  if (record > content.Count(subject)) return {};
  const SchemaField* identity = content.GetSchema().IdentityOf(subject);
  return identity == nullptr ? std::string() : ValueText::Of(content.Get(*identity, record));
}
