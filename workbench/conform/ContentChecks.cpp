#include <algorithm>
#include <regex>

#include "platform/CaseText.h"
#include "workbench/conform/Calls.h"
#include "workbench/conform/Check.h"
#include "workbench/conform/DecimalLocale.h"
#include "workbench/conform/Operations.h"
#include "workbench/host/HostObjects.h"
#include "workbench/host/TierLoader.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/ValueText.h"

/// What comes back, and what is told.
namespace Conform {
namespace {

std::string Place(std::string_view personality, const SchemaField& field, RecordNr record) {
  return std::string(personality) + ": " + field.id + " record " + std::to_string(record);
}

/// The personality as a tier has saved it.
Personality AsSaved(CheckRun& run, const Personality& personality) {
  return {personality.name, Bench(run.Parts(), *personality.stored).GetSession().ConvertedToRaw()};
}

/// A save of what was opened and not edited is the file again; of a new personality a tier fills what the
/// schema leaves to it.
void ExpectSameFile(CheckRun& run, const Personality& personality, Bench& bench) {
  const Provider& stored = *personality.stored;
  const std::shared_ptr<Provider> saved = bench.GetSession().ConvertedToRaw();
  for (const SchemaTable& table : stored.GetSchema().Tables()) {
    if (!table.IsRaw()) continue;
    const RecordNr count = stored.Count(table);
    const bool isLaidOut =
        personality.isNew && (RecordKeys::IsLaidOutAnew(table) || RecordKeys::IsFilledByFirstSave(table));
    run.Expect(saved->Count(table) == count || isLaidOut,
               std::string(personality.name) + ": table " + std::to_string(table.number),
               "is saved with " + std::to_string(saved->Count(table)) + " records instead of " +
                   std::to_string(count));
    for (const SchemaField& field : stored.GetSchema().FieldsOf(table)) {
      for (RecordNr record = 1; field.IsRaw() && record <= std::min(count, saved->Count(table)); ++record) {
        const Variant& before = stored.Get(field, record);
        const Variant& now = saved->Get(field, record);
        const bool isFilled = personality.isNew && SameCell(before, field.standard);
        if (SameCell(before, now) || isFilled) continue;
        run.Judge(Place(personality.name, field, record),
                  "is saved as " + ValueText::Of(now) + " instead of " + ValueText::Of(before));
      }
    }
  }
}

/// What a form shows goes to the radio and comes back the same.
void ExpectSameForm(CheckRun& run, std::string_view personality, Bench& bench, const SchemaField& field,
                    RecordNr record) {
  const TierHost& host = bench.GetSession().Host();
  const auto& store = bench.GetSession().SharedContent();
  Boolean converted = kFalse;
  Journal journal(bench.Content());
  host.Require(host.Owner().TransformToUI(store, field.id, record, converted));
  const Variant shown = bench.Content().Get(field, record);
  host.Require(host.Owner().TransformFromUI(store, field.id, record, converted));
  host.Require(host.Owner().TransformToUI(store, field.id, record, converted));
  const Variant& now = bench.Content().Get(field, record);
  run.Expect(SameCell(shown, now), Place(personality, field, record),
             "transformation " + std::to_string(field.transform) + " makes " + ValueText::Of(now) + " of " +
                 ValueText::Of(shown));
  journal.Rollback();
}

void RoundTripsOfForms(CheckRun& run, const Personality& personality) {
  Bench bench(run.Parts(), *personality.stored);
  for (const SchemaField* field : bench.Content().GetSchema().ConvertedToForms()) {
    // One that acts on its whole table may leave it without the record that was shown.
    const RecordNr count = field->scope == FieldScope::Record ? bench.Content().Count(field->table) : 0;
    for (RecordNr record = 1; record <= count; ++record) {
      ExpectSameForm(run, personality.name, bench, *field, record);
    }
  }
}

/// From the stored file: what a first save has lost comes back from the second as if nothing were missing.
void RoundTrips(CheckRun& run) {
  for (const Personality& personality : run.Personalities()) {
    Bench bench(run.Parts(), *personality.stored);
    ExpectSameFile(run, personality, bench);
    RoundTripsOfForms(run, personality.isNew ? AsSaved(run, personality) : personality);
  }
}

/// All that a call came to, as one text.
std::string OutcomeOf(Bench& bench, const Call& call) {
  const Answer answer = bench.Try(call, true);
  std::string text = answer.Text() + '\n' + answer.trail;
  for (const std::string& box : answer.boxes) text += "fault " + box + '\n';
  return text;
}

/// "first line that differs" for a report.
std::string FirstDifference(std::string_view a, std::string_view b) {
  const auto [endA, endB] = std::ranges::mismatch(a, b);
  const auto lineAt = [](std::string_view text, std::size_t at) {
    const std::size_t start = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
    return std::string(text.substr(start, text.find('\n', start) - start));
  };
  const auto at = static_cast<std::size_t>(endA - a.begin());
  return '"' + lineAt(a, at) + "\" and \"" + lineAt(b, at) + '"';
}

void Repeatable(CheckRun& run) {
  // Stays loaded, as by a host that opens one personality after the other: what the library keeps is kept.
  const auto library = TierLibrary::Load(run.Parts().tierLibrary);
  for (const Personality& personality : run.Personalities()) {
    std::vector<std::string> first;
    {
      Bench bench(run.Parts(), *personality.stored);
      for (const Call& call : AllCallsOn(bench)) first.push_back(OutcomeOf(bench, call));
    }
    Bench bench(run.Parts(), *personality.stored);
    std::size_t place = 0;
    for (const Call& call : AllCallsOn(bench)) {
      const std::string& before = first[place++];
      const std::string now = OutcomeOf(bench, call);
      run.Judge(std::string(personality.name) + ": " + call.Text(),
                now == before ? "" : "differs in the second run: " + FirstDifference(before, now));
    }
  }
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower)
    letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
  return lower;
}

void LetterCase(CheckRun& run) {
  const Personality& minimal = run.Personalities()[1];
  Bench bench(run.Parts(), *minimal.stored);
  for (const Call& call : AllCallsOn(bench)) {
    // A field to be converted and a version are given as the schema spells them.
    const Subject subject = call.operation->subject;
    if (subject == Subject::Transformation || subject == Subject::VersionPair || !call.isLegal) continue;
    const std::string asGiven = UpperCase(OutcomeOf(bench, call));
    for (const std::string& name : {UpperCase(call.name), LowerCase(call.name)}) {
      Call spelled = call;
      spelled.name = name;
      const std::string now = UpperCase(OutcomeOf(bench, spelled));
      run.Judge(spelled.Text(),
                now == asGiven ? "" : "the case of the name counts: " + FirstDifference(asGiven, now));
    }
  }
}

/// What the forms show with the symbol, in the fields that show one, is taken again and saved as it was.
template <char symbol, char other>
void DecimalSymbols(CheckRun& run) {
  const DecimalLocale locale(symbol);
  run.Expect(locale.IsInForce(), "this system",
             "takes no locale with that decimal symbol: nothing was tried");
  std::int64_t shown = 0;
  for (const Personality& personality : run.Personalities()) {
    Bench bench(run.Parts(), *personality.stored);
    ExpectSameFile(run, personality, bench);
    for (const Call& call : CallsOn(bench, Subject::FieldRule)) {
      const TierHost& host = bench.GetSession().Host();
      Boolean shows = kFalse;
      Boolean known = kFalse;
      host.Require(host.UserInterface().GetDecimalSymbolByUIID(call.name, shows, known));
      const std::string text = ValueText::Of(call.value);
      if (shows == kFalse || !call.isLegal) continue;
      const std::string at = std::string(personality.name) + ": " + call.Text();
      shown += text.find(symbol) != std::string::npos ? 1 : 0;
      run.Expect(text.find(other) == std::string::npos, at, "is shown with the other decimal symbol");
      const Answer answer = bench.Try(call);
      run.Judge(at, TroubleOf(call, answer));
      run.Expect(answer.left.find(other) == std::string::npos, at, "the rule leaves " + answer.left);
    }
  }
  run.Expect(shown > 0, "the forms", "show no decimal symbol anywhere");
}

/// What is wrong with a box that the user sees.
std::string TroubleOf(const Shown& box) {
  static const std::regex kPlaceholder("%[0-9]+:[sS]");
  std::string caption;
  RaiseIfFailed(ValidatorHost().Caption(caption));
  const bool isError = box.title == caption + " Error";
  if (!isError && box.title != caption + " Warning") return "has the title " + box.title;
  const bool isQuestion = IsQuestion(box.style);
  if (!isQuestion && box.style != MessageStyle::kExclamation && box.style != MessageStyle::kNotice) {
    return "has the style " + std::to_string(box.style);
  }
  if (isError && box.style != MessageStyle::kExclamation)
    return "is an error of style " + std::to_string(box.style);
  if (box.text.empty()) return "is empty";
  if (std::regex_search(box.text, kPlaceholder)) return "has an unfilled place: " + box.text;
  if (!box.parameters.empty() && !std::regex_search(box.unfilled, kPlaceholder)) {
    return "has no place for " + box.parameters;
  }
  return {};
}

void Messages(CheckRun& run) {
  for (const Personality& personality : run.Personalities()) {
    Bench bench(run.Parts(), *personality.stored);
    for (const Call& call : AllCallsOn(bench)) {
      static_cast<void>(bench.Try(call));
      for (const Shown& box : bench.Messenger().Boxes()) {
        run.Judge(std::string(personality.name) + ": a box of " + call.Text(), TroubleOf(box));
      }
    }
  }
}

// clang-format off
constexpr Check kContentChecks[] = {
    {"round-trips",   5, "what is opened and saved is the same; what a form shows comes back from the radio", RoundTrips},
    {"repeatable",    5, "a second run answers, tells and writes the same",           Repeatable},
    {"letter-case",   5, "the case of a name does not count",                         LetterCase},
    {"decimal-point", 5, "with a decimal point the forms show it, take it and save the same", DecimalSymbols<'.', ','>},
    {"decimal-comma", 5, "so they do with a decimal comma",                           DecimalSymbols<',', '.'>},
    {"messages",      5, "every box has its style, title and text, with all places filled", Messages},
};
// clang-format on

}  // namespace

std::span<const Check> ContentChecks() { return kContentChecks; }

}  // namespace Conform
