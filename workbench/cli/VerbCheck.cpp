#include <algorithm>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/cli/Failure.h"
#include "workbench/cli/Report.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Integrity.h"
#include "workbench/jobs/PersonalityCheck.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"
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
  if (!finding.path.empty()) {
    json["line"] = finding.line;
    json["path"] = finding.path;
    json["consequence"] = finding.consequence;
  }
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

void PrintPlace(const Session& session, const std::string& file, const Finding& finding, std::ostream& out) {
  out << "  - ";
  if (!finding.path.empty()) {
    out << Printable::Text(file) << ':' << finding.line << ": " << finding.path;
    if (!finding.identity.empty()) out << " (number " << finding.identity << ")";
  } else {
    out << finding.label;
    if (finding.table >= 0) {
      out << ", table " << finding.table << " record " << finding.record;
      if (!finding.identity.empty()) out << " (number " << finding.identity << ")";
    }
  }
  if (finding.field != nullptr) {
    out << ": " << Printable::Quoted(WordOf(session, finding).value_or(ValueText::Of(finding.value)));
  }
  out << " [" << finding.rule << "]";
  if (!finding.answer.empty()) out << ", answered " << finding.answer;
  if (!finding.consequence.empty()) out << "; " << finding.consequence;
  out << '\n';
}

/// Findings of the same text stand together under it, in the order in which they came first.
void Print(const Session& session, const std::string& file, const std::vector<Finding>& findings,
           std::ostream& out) {
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
    for (const Finding* finding : group) PrintPlace(session, file, *finding, out);
    out << '\n';
  }
  out << findings.size() << (findings.size() == 1 ? " finding\n" : " findings\n");
}

struct CheckArguments {
  std::vector<std::string> files;
  std::string list;
};

/// What a save would make of the damages.
void TrySave(std::vector<Damage>& damages, const Provider& stored, Session& session) {
  const auto sayAll = [&](const std::string& consequence) {
    for (Damage& damage : damages) damage.consequence = consequence;
  };
  try {
    sayAll("it can not be saved");
    const std::shared_ptr<Provider> saved = session.ConvertedToRaw();
    for (Damage& damage : damages) damage.consequence = ConsequenceOf(damage, stored, *saved);
  } catch (const FileError& error) {
    sayAll("it can not be saved: " + error.Where() + ": " + error.Reason());
  }
}

/// Shows the file on its forms. What is damaged is told first, whether that can be done or not.
void ShowForms(OpenedFile& opened, PersonalityCheck& check) {
  std::vector<Damage> damages = opened.Stored().Damages();
  if (damages.empty()) return opened.ShowForms();
  const std::shared_ptr<Provider> stored = opened.Content().Copy();
  check.Tell(damages);
  for (Damage& damage : damages) damage.consequence = "the tier can not open the file";
  try {
    opened.ShowForms();
    TrySave(damages, *stored, opened.GetSession());
  } catch (...) {
    check.TellConsequences(damages);
    throw;
  }
  check.TellConsequences(damages);
}

/// The check of a file, told with the words of its session.
class Checked {
 public:
  Checked(std::string file, Workplace& workplace)
      : file_(std::move(file)),
        messenger_(std::make_shared<CheckMessenger>(workplace.GivenAnswers())),
        opened_(workplace, file_, messenger_, Purpose::Read, OnDamage::Leave),
        check_(opened_.GetSession(), *messenger_) {}

  /// Tells the findings, also those from before a fault.
  template <typename Tell>
  ExitCode Run(Tell tell) {
    try {
      ShowForms(opened_, check_);
      messenger_->Clear();
      check_.RunRules();
    } catch (...) {
      if (!check_.Findings().empty()) tell();
      throw;
    }
    tell();
    return check_.Findings().empty() ? ExitCode::Done : ExitCode::No;
  }
  Json AsJson() { return JsonOf(opened_.GetSession(), file_, check_.Findings()); }
  void Print(std::ostream& out) { ::Print(opened_.GetSession(), file_, check_.Findings(), out); }

 private:
  std::string file_;
  std::shared_ptr<CheckMessenger> messenger_;
  OpenedFile opened_;
  PersonalityCheck check_;
};

ExitCode CheckOne(const std::string& file, Workplace& workplace) {
  Checked checked(file, workplace);
  return checked.Run([&] {
    workplace.Tell([&] { return checked.AsJson(); }, [&](std::ostream& out) { checked.Print(out); });
  });
}

/// One of many. What can not be checked does not keep the others from it.
ExitCode CheckNext(const std::string& file, Workplace& workplace) {
  workplace.damaged = nullptr;
  bool isTold = false;  // what has been found before it failed is
  try {
    Checked checked(file, workplace);
    return checked.Run([&] {
      isTold = true;
      if (workplace.options.json) return workplace.EmitLine(checked.AsJson());
      workplace.Tell(Json::Object, [&](std::ostream& out) {
        out << Printable::Text(file) << ":\n";
        checked.Print(out);
      });
    });
  } catch (...) {
    const Failure failure = Failure::OfCurrentException(workplace).With(file);
    std::cerr << workplace.prefix << failure.ForPeople() << '\n';
    if (workplace.options.json && !isTold) workplace.EmitLine(failure.AsJson());
    return failure.code;
  }
}

/// The files that were named, then those of the list, one a line.
std::vector<std::string> FilesOf(const CheckArguments& arguments, const Workplace& workplace) {
  std::vector<std::string> files = arguments.files;
  if (!arguments.list.empty()) {
    std::istringstream lines(workplace.FileAt(arguments.list).Read());
    for (std::string line; std::getline(lines, line);) {
      if (line.ends_with('\r')) line.pop_back();
      if (!line.empty()) files.push_back(line);
    }
  }
  if (files.empty()) {
    throw UsageError(arguments.list.empty() ? "name a FILE, or --files-from LIST"
                                            : arguments.list + " names no file");
  }
  return files;
}

ExitCode Check(const CheckArguments& arguments, Workplace& workplace) {
  const std::vector<std::string> files = FilesOf(arguments, workplace);
  if (files.size() == 1 && arguments.list.empty()) return CheckOne(files.front(), workplace);
  ExitCode worst = ExitCode::Done;
  for (const std::string& file : files) worst = std::max(worst, CheckNext(file, workplace));
  return worst;
}

void Take(Words& words, CheckArguments& given) {
  words.Many("FILE", given.files, "The personality, or many of them");
  words.Option("--files-from", given.list, "LIST",
               "A file of names of more files, one a line; - reads it from "
               "standard input");
}

const Verb kCheck(
    {.name = "check",
     .about = "Run the rules of all fields, forms and of a save over every record and list all findings; "
              "nothing is changed",
     .details =
         "Questions of the rules are answered yes, unless --answer says otherwise. Of many files the exit "
         "code is the highest; --json prints an object a line for each, also for one that can not be "
         "checked.",
     .examples = {{"All findings of a personality", "kd4410 check samples/marine-harbour.json"},
                  {"How many there are", "kd4410 check samples/marine-harbour.json --json | jq .count"}}},
    Take, Check);

}  // namespace
