#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "platform/Types.h"
#include "platform/Variant.h"
#include "workbench/host/Messengers.h"

class Provider;
class Session;
struct Form;
namespace Forms {
struct Current;
}
struct Damage;
struct FinalOutcome;
struct SchemaField;
struct SchemaTable;

enum class FindingKind { Error, Warning, Notice, Question };
std::string_view NameOf(FindingKind kind);
FindingKind KindOf(const Shown& box);

/// What is wrong, or worth a word, in a personality.
struct Finding {
  FindingKind kind = FindingKind::Error;
  /// The UIID whose rule spoke, the kind of a damage (DamageKind), "number" for one that is in use, "forms"
  /// for what the forms did not take, "form NAME" for the check of a form, "final NAME" for a rule of a save.
  std::string rule;
  std::string label;
  std::int32_t table = -1;  // -1: no single record
  RecordNr record = 0;
  std::string identity;  // the number that a person knows the record by (a channel's); empty for none
  const SchemaField* field = nullptr;  // whose value it is; a form has none
  Variant value;
  std::string text;
  std::string answer;  // to a question: "Yes", "No", "Cancel"
  // Of a damage alone.
  int line = 0;             // of the file
  std::string path;         // "tables.5[12].ChannelNetworkId"
  std::string consequence;  // what a save makes of it
};

/// Keeps the messages of the rules while a check runs. Questions are answered as told, else Yes: a check
/// keeps nothing, and a No would end a rule before its last word.
class CheckMessenger final : public RecordingMessenger {
 public:
  explicit CheckMessenger(Answers answers) : answers_(std::move(answers)) {}

 protected:
  Button Answer(const Shown&) override { return answers_.AreGiven() ? answers_.Next() : Button::Yes; }

 private:
  Answers answers_;
};

/// Runs every rule over every record and collects all findings, each once. What a rule writes is taken
/// back before the next one runs.
class PersonalityCheck {
 public:
  PersonalityCheck(Session& session, CheckMessenger& messenger) : session_(session), messenger_(messenger) {}

  /// What was found in the file: before all that the rules find, and before the tier is asked for anything
  /// that it may end by.
  void Tell(const std::vector<Damage>& damages);
  /// What came of trying to save these.
  void TellConsequences(const std::vector<Damage>& damages);
  /// The rule of each UIID, by what the forms turn to and its records, then the check of each form with each
  /// record that it can show, then the rules of a save. To be run on the forms.
  void RunRules();

  const std::vector<Finding>& Findings() const { return findings_; }

 private:
  /// Numbers that channels and groups share.
  void CheckNumbers();
  /// What can not be judged, for the forms did not take it.
  void TellLeftOut();
  /// The records of findings that were made before the identities were converted for the forms.
  void NameRecords();
  struct Rule {
    const SchemaField& field;
    const std::string& uiid;
  };
  /// What the forms turn to as a whole: for all rules of a record they turn to it once.
  struct Subject {
    const Forms::Current* current;  // null for the tables that the forms show whole
    std::vector<Rule> rules;
  };
  /// All rules that judge a value, in schema order.
  std::vector<Subject> Subjects() const;
  void RunRulesOfAll(const std::vector<Rule>& rules);
  void RunRulesOfEach(const Subject& subject);
  /// The rule of a record, with what `prepare` does to the content before; both are taken back.
  template <typename Prepare>
  void RunRule(const Rule& rule, RecordNr record, const std::string& identity, Prepare prepare);
  /// The rule of each row of a view of the record shown.
  void RunRuleOfView(const Rule& rule, RecordNr shown);
  /// All texts that were found so far are told; forms and the rules of a save, which look at fields once
  /// more, do not tell them again.
  void NoteToldTexts();
  void RunForms();
  /// Record 0: the form has none to show.
  void RunForm(const Form& form, RecordNr record);
  /// Each rule by itself; of a tier that can not do that, the walk of a save.
  void RunFinalRules();
  void CollectFinal(const FinalOutcome& outcome);
  void RunFinalWalk();
  /// The messages of the rule that has just run, or `silence` when it refused without one.
  void Collect(const Finding& origin, bool accepted, std::string_view silence);
  /// What a box told of what the finding names.
  void Tell(Finding finding, const Shown& box);
  void Add(Finding finding);
  Finding Origin(const SchemaField& field, std::string rule, std::string label, RecordNr record,
                 const Variant& value) const;
  std::string IdentityOf(const SchemaTable& table, RecordNr record) const;

  Session& session_;
  CheckMessenger& messenger_;
  std::vector<Finding> findings_;
  std::set<std::tuple<std::string, std::int32_t, RecordNr, std::string, std::string>> seen_;
  std::set<std::string, std::less<>> told_;
};
