#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/cli/Report.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/PersonalityCheck.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/store/ValueText.h"

namespace {

std::optional<std::string> WordOf(const Session& session, const Finding& finding) {
  if (finding.field == nullptr) return {};
  return Wording::WordOf(session, *finding.field, finding.record, finding.value);
}

Json JsonOf(const Session& session, const Finding& finding) {
  Json json = {{"kind", NameOf(finding.kind)}, {"rule", finding.rule}, {"label", finding.label}};
  if (finding.table >= 0) {
    json["table"] = finding.table;
    json["record"] = finding.record;
    json["identity"] = Report::NumberOf(finding.identity);
  }
  if (finding.field != nullptr) {
    Report::AddValue(json, "value", Report::JsonOf(*finding.field, finding.value), WordOf(session, finding));
  }
  json["text"] = Report::LinesOf(finding.text);
  if (!finding.answer.empty()) json["answer"] = finding.answer;
  return json;
}

Json JsonOf(const Session& session, const std::string& file, const std::vector<Finding>& findings) {
  Json list = Json::List();
  for (const Finding& finding : findings) list.Add(JsonOf(session, finding));
  return {{"file", file}, {"count", findings.size()}, {"findings", std::move(list)}};
}

/// The lines of a message, each behind two blanks, without its empty ones.
void PrintText(const std::string& text, std::ostream& out) {
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
    if (end > start) out << "  " << text.substr(start, end - start) << '\n';
    start = end + 1;
  }
}

void PrintPlace(const Session& session, const Finding& finding, std::ostream& out) {
  out << "  - " << finding.label;
  if (finding.table >= 0) {
    out << ", table " << finding.table << " record " << finding.record;
    if (!finding.identity.empty()) out << " (number " << finding.identity << ")";
  }
  if (finding.field != nullptr) {
    out << ": " << Printable::Quoted(WordOf(session, finding).value_or(ValueText::Of(finding.value)));
  }
  out << " [" << finding.rule << "]";
  if (!finding.answer.empty()) out << ", answered " << finding.answer;
  out << '\n';
}

/// Findings of the same text stand together under it, in the order in which they came first.
void Print(const Session& session, const std::vector<Finding>& findings, std::ostream& out) {
  std::vector<std::vector<const Finding*>> groups;
  std::map<std::pair<FindingKind, std::string_view>, std::size_t> groupOf;
  for (const Finding& finding : findings) {
    const auto [place, isNew] = groupOf.try_emplace({finding.kind, finding.text}, groups.size());
    if (isNew) groups.emplace_back();
    groups[place->second].push_back(&finding);
  }
  for (const auto& group : groups) {
    out << NameOf(group.front()->kind) << ":\n";
    PrintText(group.front()->text, out);
    for (const Finding* finding : group) PrintPlace(session, *finding, out);
    out << '\n';
  }
  out << findings.size() << (findings.size() == 1 ? " finding\n" : " findings\n");
}

struct CheckArguments {
  std::string file;
};

ExitCode Check(const CheckArguments& arguments, Workplace& workplace) {
  const auto messenger = std::make_shared<CheckMessenger>(workplace.GivenAnswers());
  OpenedFile opened(workplace, arguments.file, messenger);
  PersonalityCheck check(opened.GetSession(), *messenger);
  check.CheckLimits();
  opened.ShowForms();
  messenger->Clear();
  check.RunRules();

  const std::vector<Finding>& findings = check.Findings();
  workplace.Tell([&] { return JsonOf(opened.GetSession(), arguments.file, findings); },
                 [&](std::ostream& out) { Print(opened.GetSession(), findings, out); });
  return findings.empty() ? ExitCode::Done : ExitCode::No;
}

void Take(Words& words, CheckArguments& given) { words.Required("FILE", given.file, "The personality"); }

const Verb kCheck(
    {.name = "check",
     .about = "Run the rules of all fields, forms and of a save over every record and list all findings; "
              "nothing is changed",
     .details = "Questions of the rules are answered yes, unless --answer says otherwise.",
     .examples = {{"All findings of a personality", "kd4410 check samples/marine-harbour.json"},
                  {"How many there are", "kd4410 check samples/marine-harbour.json --json | jq .count"}}},
    Take, Check);

}  // namespace
