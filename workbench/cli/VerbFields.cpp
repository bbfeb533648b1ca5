#include <algorithm>
#include <iterator>
#include <memory>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/CaseText.h"
#include "workbench/cli/FieldSheet.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/TypedNames.h"

namespace {

/// What the metadata tells of a UIID; the defaults stand for one that it does not know.
struct FieldFacts {
  std::string label, units, grid;
  std::int32_t width = 0;
  std::int16_t access = 0;
};

FieldFacts FactsOf(const TierHost& host, std::string_view uiid) {
  FieldFacts facts;
  ItierUserInterface& ui = host.UserInterface();
  Boolean known = kFalse;
  host.Require(ui.GetLabelByUIID(uiid, facts.label, known));
  host.Require(ui.GetUnitsByUIID(uiid, facts.units, known));
  host.Require(ui.GetUIWidthByUIID(uiid, facts.width, known));
  host.Require(ui.GetCustAccessLevelByUIID(uiid, facts.access, known));
  host.Require(ui.GetATGridIDByUIID(uiid, facts.grid, known));
  return facts;
}

Json JsonOf(const CodeWords& words) {
  Json list = Json::List();
  for (const auto& [code, word] : words.Entries()) list.Add({{"code", code}, {"word", word}});
  return list;
}

/// "Off, Very Low, Low"
std::string TextOf(const CodeWords& words) {
  std::string text;
  for (const auto& [code, word] : words.Entries()) text += (text.empty() ? "" : ", ") + word;
  return text;
}

bool Contains(std::string_view text, const std::string& upperFilter) {
  return UpperCase(text).find(upperFilter) != std::string::npos;
}

struct FieldsArguments {
  std::string filter;
  std::string version;
  bool names = false;
};

void Take(Words& words, FieldsArguments& given) {
  words.Optional("UIID", given.filter,
                 "All of one field; else the fields with this in UIID or label; case does not count");
  words.Option("--version", given.version, "VERSION", "Database version (else the latest of the KD4410)");
  words.Flag("--names", given.names, "The UIIDs alone, one a line");
}

std::vector<std::string> UiidsWith(const Schema& schema, const std::string& upperFilter) {
  std::vector<std::string> names;
  for (const SchemaField& field : schema.Fields()) {
    std::ranges::copy_if(field.uiids, std::back_inserter(names),
                         [&](const std::string& uiid) { return Contains(uiid, upperFilter); });
  }
  return names;
}

ExitCode ListNames(const Schema& schema, const std::string& upperFilter, Workplace& workplace) {
  const std::vector<std::string> names = UiidsWith(schema, upperFilter);
  workplace.Tell(
      [&] {
        return Json({{"names", names}});
      },
      [&](std::ostream& out) {
        for (const std::string& name : names) out << name << '\n';
      });
  return ExitCode::Done;
}

/// The field of the forms that the word names as a whole, by a UIID or its FieldId; null for none.
const SchemaField* Named(const Schema& schema, const std::string& word) {
  const SchemaField* field = word.empty() ? nullptr : schema.Find(word);
  return field == nullptr || field->uiids.empty() ? nullptr : field;
}

/// The UIID that was given, or the first one of a field that was named otherwise.
const std::string& UiidOf(const SchemaField& field, const std::string& word) {
  const auto given = std::ranges::find_if(
      field.uiids, [&](const std::string& uiid) { return EqualsIgnoringCase(uiid, word); });
  return given == field.uiids.end() ? field.uiids.front() : *given;
}

ExitCode ListFields(const FieldsArguments& arguments, Workplace& workplace) {
  const auto& [filter, version, names] = arguments;
  const std::shared_ptr<const Schema> schema =
      workplace.Schemas().At(version.empty() ? SchemaFiles::VersionsOf("KD4410").back().Text() : version);
  const std::string upperFilter = UpperCase(filter);
  if (names) return ListNames(*schema, upperFilter, workplace);
  if (const SchemaField* field = Named(*schema, filter)) {
    TellField(*field, UiidOf(*field, filter), schema->Version(), workplace);
    return ExitCode::Done;
  }
  const TierHost host(workplace.Parts(), nullptr, workplace.Messenger());
  TextTable table({{"UIID"},
                   {"Label"},
                   {"Units"},
                   {"Width", TextTable::Align::Right},
                   {"Access", TextTable::Align::Right},
                   {"Grid"},
                   {"FieldId"},
                   {"Words"}});
  Json list = Json::List();
  for (const SchemaField& field : schema->Fields()) {
    const CodeWords words = Wording::WordsOf(host, field);
    for (const std::string& uiid : field.uiids) {
      const FieldFacts facts = FactsOf(host, uiid);
      if (!Contains(uiid, upperFilter) && !Contains(facts.label, upperFilter)) continue;
      table.Add({uiid, facts.label, facts.units, std::to_string(facts.width), std::to_string(facts.access),
                 facts.grid, field.id, TextOf(words)});
      list.Add({{"uiid", uiid},
                {"label", facts.label},
                {"units", facts.units},
                {"width", facts.width},
                {"accessLevel", facts.access},
                {"grid", facts.grid},
                {"fieldId", field.id},
                {"words", JsonOf(words)}});
    }
  }
  if (list.IsEmpty()) {
    throw UsageError("no field of version " + schema->Version() + " has " + Printable::Quoted(filter) +
                     " in it" + TypedNames::Suggestion(filter, UiidsWith(*schema, "")));
  }
  workplace.Tell(
      [&] {
        return Json({{"version", schema->Version()}, {"fields", std::move(list)}});
      },
      [&](std::ostream& out) { table.Print(out); });
  return ExitCode::Done;
}

const Verb kFields({.name = "fields",
                    .about = "Describe a field of the forms, or list them as their metadata tells",
                    .examples = {{"What a field takes, and when it is enabled", "kd4410 fields TxPower_k6k"},
                                 {"The fields of an older version with a word in UIID or label",
                                  "kd4410 fields frequency --version KD4410.0089"}}},
                   Take, ListFields);

}  // namespace
