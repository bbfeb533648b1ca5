#include "workbench/jobs/PersonalityCheck.h"

#include <algorithm>
#include <iterator>

#include "host/IfinalRules.h"
#include "platform/Conversions.h"
#include "workbench/jobs/BurstSlots.h"
#include "workbench/jobs/Control.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/Session.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
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

void PersonalityCheck::CheckLimits() {
  for (const SchemaField& field : session_.Content().GetSchema().Fields()) CheckLimits(field);
  CheckRings();
  CheckPresets();
  CheckCompanions();
}

void PersonalityCheck::CheckRings() {
  const Provider& content = session_.Content();
  const SchemaField& owner = content.FieldOf("18.GroupRecordNumber");
  const SchemaField& next = content.FieldOf("18.GroupNextMemberRecordNum");
  const SchemaField& first = content.FieldOf("16.FirstGroupMember");
  for (RecordNr group = 1; group <= content.Count(first.table); ++group) {
    std::vector<RecordNr> members;
    for (RecordNr member = 1; member <= content.Count(owner.table); ++member) {
      if (SameValue(content.Get(owner, member), group - 1)) members.push_back(member);
    }
    CheckMembers(group, members);
    bool isRing = members.empty() || SameValue(content.Get(first, group), members.front() - 1);
    for (std::size_t i = 0; i < members.size(); ++i) {
      isRing = isRing && SameValue(content.Get(next, members[i]), members[(i + 1) % members.size()] - 1);
    }
    if (isRing) continue;
    Finding finding = Origin(first, "chain", session_.LabelOf(first), group, content.Get(first, group));
    finding.kind = FindingKind::Warning;
    finding.text =
        "The members of the group are linked in another order than they stand; a save links them anew.";
    Add(std::move(finding));
  }
}

void PersonalityCheck::CheckCompanions() {
  const Provider& content = session_.Content();
  for (const SchemaTable& table : content.GetSchema().Tables()) {
    const std::optional<RecordNr> needed = RecordKeys::NeededRecords(content, table);
    const RecordNr count = content.Count(table);
    if (!needed || count == *needed) continue;
    Finding finding;
    finding.rule = "companions";
    finding.label = table.title;
    finding.table = table.number;
    finding.record = std::min(count, *needed) + 1;
    finding.kind = FindingKind::Warning;
    finding.text = "Records of the table: " + CStr(count) + ", needed: " + CStr(*needed) + "; " +
                   (count < *needed ? "those that lack are taken as new ones."
                                    : "those behind are not read, and go when one is added.");
    Add(std::move(finding));
  }
}

void PersonalityCheck::CheckPresets() {
  constexpr std::int32_t kPerSystem = 10;
  const Provider& content = session_.Content();
  const SchemaField& system = content.FieldOf("64.DTMFNetworkSigSystemID");
  const SchemaField& owner = content.FieldOf("65.DTMFChannelPresetSeqSigSysID");
  const RecordNr presets = content.Count(owner.table);
  for (RecordNr record = 1; record <= content.Count(system.table); ++record) {
    std::int32_t own = 0;
    for (RecordNr preset = 2; preset <= presets; ++preset) {  // the first belongs to no system
      own += SameValue(content.Get(owner, preset), content.Get(system, record)) ? 1 : 0;
    }
    if (own == kPerSystem) continue;
    Finding finding =
        Origin(system, "presets", session_.LabelOf(system), record, content.Get(system, record));
    finding.kind = FindingKind::Warning;
    finding.text =
        "The system has presets in another number than " + CStr(kPerSystem) + ": " + CStr(own) + ".";
    Add(std::move(finding));
  }
  const SchemaField& pointer = content.FieldOf("5.DTMFPresetCallPointer");
  for (RecordNr channel = 1; channel <= content.Count(pointer.table); ++channel) {
    const Variant& index = content.Get(pointer, channel);
    if (!IsAbove(index, std::max(presets, 1) - 1)) continue;
    Finding finding = Origin(pointer, "presets", session_.LabelOf("DTMFPresetCallSequence"), channel, index);
    finding.kind = FindingKind::Warning;
    finding.text = "The preset of the channel is not there; the forms show none.";
    Add(std::move(finding));
  }
}

void PersonalityCheck::CheckLimits(const SchemaField& field) {
  const Provider& content = session_.Content();
  const Limits limits = LimitsOf(field);
  const RecordNr count = content.Count(content.GetSchema().TableOf(field));
  for (RecordNr record = 1; record <= count; ++record) {
    const Variant& value = content.Get(field, record);
    if (IsWithinLimits(field, value)) continue;
    Finding finding = Origin(field, "range", session_.LabelOf(field), record, value);
    finding.text = field.id + " is outside " + CStr(limits.lowest) + " to " + CStr(limits.highest) + ".";
    Add(std::move(finding));
  }
}

void PersonalityCheck::CheckMembers(RecordNr group, const std::vector<RecordNr>& members) {
  const Provider& content = session_.Content();
  const SchemaField& index = content.FieldOf("18.GroupChannelRecordNum");
  const SchemaField& first = content.FieldOf("16.FirstGroupMember");
  std::set<std::int32_t> channels;
  for (const RecordNr member : members) {
    const std::int32_t channel = CLng(content.Get(index, member));
    const bool isThere = channel >= 0 && channel < content.Count(Forms::kChannels);
    if (isThere && channels.insert(channel).second) continue;
    Finding finding = Origin(first, "chain", session_.LabelOf(index), group, content.Get(index, member));
    finding.kind = FindingKind::Warning;
    finding.text = isThere
                       ? "The group has a channel as a member more than once."
                       : "A member of the group is no channel; the forms show the first one in its place.";
    Add(std::move(finding));
  }
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
