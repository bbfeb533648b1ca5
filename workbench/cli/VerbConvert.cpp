#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <utility>
#include <vector>

#include "workbench/cli/Report.h"
#include "workbench/cli/StoredReport.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/files/FileError.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/jobs/PersonalityCheck.h"
#include "workbench/jobs/VersionNotes.h"
#include "workbench/jobs/Wording.h"
#include "workbench/personality/PersonalityFile.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueText.h"

namespace {

struct ConvertArguments {
  std::string file;
  std::string version;
  std::string out;
  bool force = false;
  bool dryRun = false;
  bool repair = false;
  bool explains = false;
  std::string explained;  // the version that FILE leads to
};

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

/// The versions from that of the content to the one asked for.
std::vector<std::string> WayTo(const ConvertArguments& arguments, const std::shared_ptr<Provider>& content,
                               Workplace& workplace) {
  const VersionName& version = content->GetSchema().Name();
  TierHost host(workplace.Parts(), content, workplace.Messenger());
  const std::vector<std::string> path = VersionPath(host, version);
  for (const std::string& to : path) {
    if (!SchemaFiles::VersionOf(to).IsMeantBy(arguments.version)) continue;
    if (to != version.Text()) return WayBetween(path, version.Text(), to);
    throw UsageError(arguments.file + " is of version " + to + " already: there is nothing to convert");
  }
  throw UsageError("no conversion leads from " + version.Text() + " to " +
                   Printable::Quoted(arguments.version) + "; the versions of " + version.model + " are " +
                   Joined(path));
}

/// Beside the personality: "fleet-0093.json" for "fleet.json".
std::string DefaultOutput(const std::string& file, const std::string& version) {
  std::filesystem::path path(file);
  path.replace_filename(path.stem().string() + "-" + SchemaFiles::VersionOf(version).Digits() + ".json");
  return path.string();
}

AtomicFile NewOutput(const ConvertArguments& arguments, const std::string& version,
                     const Workplace& workplace) {
  if (arguments.out.empty() && AtomicFile::IsStandardInput(arguments.file)) {
    throw UsageError("--out is required for a personality from standard input");
  }
  AtomicFile file =
      workplace.FileToSave(arguments.out.empty() ? DefaultOutput(arguments.file, version) : arguments.out);
  if (file.Exists() && !arguments.force) {
    throw UsageError(file.Name() + " is there already; --force overwrites it, --out names another");
  }
  return file;
}

std::string OneLine(std::string text) {
  for (std::size_t at = 0; (at = text.find_first_of("\r\n", at)) != std::string::npos;) {
    const std::size_t end = std::min(text.find_first_not_of("\r\n", at), text.size());
    text.replace(at, end - at, end < text.size() ? " " : "");
  }
  return text;
}

void PrintLosses(const Session& session, const std::vector<Loss>& losses, std::ostream& out) {
  TextTable table({{""}, {""}, {""}, {""}});
  for (const Loss& loss : losses) {
    if (loss.field != nullptr) {
      const std::string& name = loss.field->CommonName();
      const std::string label = session.LabelOf(*loss.field);
      table.Add({name, label == name ? "" : label,
                 loss.place.empty() ? "record " + std::to_string(loss.record) : loss.place,
                 Wording::TextOf(session, *loss.field, loss.record, loss.value)});
    } else {
      table.Add({"table " + std::to_string(loss.table->number), loss.table->title,
                 "records " + std::to_string(loss.record) + " to " + std::to_string(loss.last),
                 loss.identities.empty() ? "" : "numbers " + ListOf(loss.identities)});
    }
  }
  table.Print(out, 4);
}

void PrintOutside(const Session& session, const std::vector<OutsideValue>& values, std::ostream& out) {
  TextTable table({{""}, {""}, {""}, {""}});
  for (const OutsideValue& one : values) {
    const std::string& name = one.field->CommonName();
    const std::string label = session.LabelOf(*one.field);
    table.Add({name, label == name ? "" : label, "record " + std::to_string(one.record),
               ValueText::Of(one.value) + " is not in " + std::to_string(one.field->minimum) + " to " +
                   std::to_string(one.field->maximum)});
  }
  table.Print(out, 4);
}

void PrintObstacles(const Session& session, const std::vector<Obstacle>& obstacles, std::ostream& out) {
  TextTable table({{""}, {""}, {""}, {""}, {""}});
  for (const Obstacle& one : obstacles) {
    const std::string& name = one.field->CommonName();
    const std::string label = session.LabelOf(*one.field);
    table.Add({name, label == name ? "" : label,
               one.where.empty() ? "record " + std::to_string(one.record) : one.where,
               Wording::TextOf(session, *one.field, one.record, one.value), one.way});
  }
  table.Print(out, 4);
}

void PrintHop(const Session& session, const Hop& hop, std::ostream& out) {
  out << hop.from << " -> " << hop.to << (hop.accepted ? "\n" : ": refused\n");
  for (const Shown& box : hop.messages) {
    out << "  " << NameOf(KindOf(box)) << ": " << OneLine(box.text);
    if (IsQuestion(box.style)) out << " (answered " << NameOf(box.answer) << ')';
    out << '\n';
  }
  if (!hop.obstacles.empty()) {
    out << "  To be changed first:\n";
    PrintObstacles(session, hop.obstacles, out);
  }
  if (!hop.accepted) return;
  if (!hop.changes.empty()) {
    out << "  Changed:\n";
    Report::ChangeTable(session, hop.changes).Print(out, 4);
  }
  if (!hop.losses.empty()) {
    out << "  Not in " << hop.to << ", left behind:\n";
    PrintLosses(session, hop.losses, out);
  }
  if (!hop.outside.empty()) {
    out << "  Kept, but outside the limits of " << hop.to << ":\n";
    PrintOutside(session, hop.outside, out);
  }
}

Json JsonOf(const Session& session, const Loss& loss) {
  Json json = {{"table", loss.table->number}, {"title", loss.table->title}};
  if (loss.field != nullptr) {
    json["fieldId"] = loss.field->id;
    json["label"] = session.LabelOf(*loss.field);
    json["record"] = loss.record;
    Report::AddValue(json, "value", Report::JsonOf(*loss.field, loss.value),
                     Wording::WordOf(session, *loss.field, loss.record, loss.value));
    if (!loss.place.empty()) json["place"] = loss.place;
  } else {
    json["firstRecord"] = loss.record;
    json["lastRecord"] = loss.last;
    Json identities = Json::List();
    for (const std::string& identity : loss.identities) identities.Add(Report::NumberOf(identity));
    if (!loss.identities.empty()) json["identities"] = std::move(identities);
  }
  return json;
}

Json JsonOf(const Session& session, const std::vector<Obstacle>& obstacles) {
  Json list = Json::List();
  for (const Obstacle& one : obstacles) {
    Json json = {{"fieldId", one.field->id}, {"label", session.LabelOf(*one.field)}, {"record", one.record}};
    Report::AddValue(json, "value", Report::JsonOf(*one.field, one.value),
                     Wording::WordOf(session, *one.field, one.record, one.value));
    if (!one.where.empty()) json["where"] = one.where;
    if (!one.way.empty()) json["way"] = one.way;
    list.Add(std::move(json));
  }
  return list;
}

Json JsonOf(const Session& session, const Hop& hop) {
  Json losses = Json::List();
  for (const Loss& loss : hop.losses) losses.Add(JsonOf(session, loss));
  Json outside = Json::List();
  for (const OutsideValue& one : hop.outside) {
    outside.Add({{"fieldId", one.field->id},
                 {"label", session.LabelOf(*one.field)},
                 {"record", one.record},
                 {"value", Report::JsonOf(*one.field, one.value)},
                 {"minimum", one.field->minimum},
                 {"maximum", one.field->maximum}});
  }
  return {{"from", hop.from},
          {"to", hop.to},
          {"accepted", hop.accepted},
          {"messages", Report::JsonOf(hop.messages)},
          {"changeFirst", JsonOf(session, hop.obstacles)},
          {"changes", Report::JsonOf(session, hop.changes)},
          {"losses", std::move(losses)},
          {"outsideLimits", std::move(outside)}};
}

/// A conversion and the file that was written; null when a step has refused.
struct Converted {
  const ConvertArguments& arguments;
  const std::vector<std::string>& way;
  const Conversion& conversion;
  const AtomicFile* written;
  const Session& session;  // knows the labels
  const std::optional<Repair>& repair;
};

Json JsonOf(const Converted& converted) {
  Json hops = Json::List();
  for (const Hop& hop : converted.conversion.hops) hops.Add(JsonOf(converted.session, hop));
  const AtomicFile* written = converted.written;
  Json data = {{"file", converted.arguments.file},
               {"from", converted.way.front()},
               {"to", converted.way.back()},
               {"written", written == nullptr ? Json(nullptr) : Json(written->Name())},
               {"hops", std::move(hops)}};
  Report::AddRepair(data, converted.repair, converted.session);
  return data;
}

void Print(const Converted& converted, std::ostream& out) {
  const std::vector<Hop>& hops = converted.conversion.hops;
  Report::PrintRepair(converted.repair, converted.written != nullptr, converted.session, out);
  for (const Hop& hop : hops) PrintHop(converted.session, hop, out);
  if (converted.written != nullptr) {
    out << Printable::Text(converted.written->Name()) << ": written as version " << converted.way.back()
        << '\n';
  } else if (converted.conversion.result != nullptr) {
    out << "Dry run: nothing is written.\n";
  } else {
    out << "The step from " << hops.back().from << " to " << hops.back().to
        << " refuses: nothing is written, " << Printable::Text(converted.arguments.file)
        << " is as it was.\n";
  }
}

/// The version that a word means, given with its model or as digits of the newest one.
const VersionName& VersionMeant(const std::string& word) {
  for (const VersionName& version : SchemaFiles::Versions()) {
    if (version.IsMeantBy(word)) return version;
  }
  return SchemaFiles::VersionOf(word);
}

ExitCode Explain(const ConvertArguments& arguments, Workplace& workplace) {
  const VersionName& from = VersionMeant(arguments.file);
  const VersionName& to = VersionMeant(arguments.explained);
  std::vector<std::string> path;
  for (const VersionName& version : SchemaFiles::VersionsOf(from.model)) path.push_back(version.Text());
  const std::vector<std::string> way = WayBetween(path, from.Text(), to.Text());
  if (way.size() < 2) throw UsageError("no conversion leads from " + from.Text() + " to " + to.Text());
  std::vector<VersionNotes> steps;
  for (std::size_t i = 1; i < way.size(); ++i) {
    steps.push_back(NotesOf(*workplace.Schemas().At(way[i - 1]), *workplace.Schemas().At(way[i])));
  }
  workplace.Tell(
      [&] {
        Json list = Json::List();
        for (const VersionNotes& notes : steps) {
          list.Add({{"from", notes.from},
                    {"to", notes.to},
                    {"step", notes.step},
                    {"differences", notes.differences}});
        }
        return Json({{"steps", std::move(list)}});
      },
      [&](std::ostream& out) {
        for (const VersionNotes& notes : steps) {
          out << notes.from << " -> " << notes.to << "\n  "
              << (notes.step.empty() ? "The tier changes the number alone." : notes.step) << '\n';
          for (const std::string& difference : notes.differences) out << "  - " << difference << '\n';
        }
      });
  return ExitCode::Done;
}

ExitCode ConvertFile(const ConvertArguments& arguments, Workplace& workplace) {
  if (arguments.explains) return Explain(arguments, workplace);
  if (!arguments.explained.empty()) throw UsageError("a second version goes with --explain alone");
  if (arguments.version.empty()) throw UsageError("--to is required");
  AtomicFile input = workplace.FileAt(arguments.file);
  const std::shared_ptr<RecordingMessenger> messenger = workplace.Messenger();
  const StoredFile stored(workplace, input, arguments.repair ? OnDamage::Repair : OnDamage::Refuse,
                          messenger);
  const std::shared_ptr<Provider>& content = stored.Content();
  const std::vector<std::string> way = WayTo(arguments, content, workplace);
  std::optional<AtomicFile> output;  // that may be written is asked first
  if (!arguments.dryRun) output.emplace(NewOutput(arguments, way.back(), workplace));
  if (output && output->Exists() && input.Exists() &&
      input.Read() != stored.Document()) {  // it may be the same file
    throw FileError(input.Name(), 0, "read", "changed by someone else meanwhile");
  }

  const Conversion conversion = Converter(workplace.Parts(), messenger).Convert(content, way);
  const bool isConverted = conversion.result != nullptr;
  const bool isWritten = isConverted && output;
  if (isWritten) workplace.Save(*output, PersonalityFile::Format(output->Name(), *conversion.result));
  const Session labels(workplace.Parts(), content, messenger);
  const Converted converted{arguments,        way, conversion, isWritten ? &*output : nullptr, labels,
                            stored.Repaired()};
  workplace.Tell([&] { return JsonOf(converted); }, [&](std::ostream& out) { Print(converted, out); });
  return isConverted ? ExitCode::Done : ExitCode::No;
}

void Take(Words& words, ConvertArguments& given) {
  words.Required("FILE", given.file, "The personality; it stays as it is");
  words.Optional("VERSION", given.explained, "With --explain, that FILE leads to, a version itself then");
  words.Option("--to", given.version, "VERSION", "The database version: KD4410.0093 or just 0093");
  words.Option("--out", given.out, "FILE", "The file to be written (else FILE with -0093 behind its name)");
  words.Flag("--force", given.force, "Overwrite the file if it exists");
  words.Flag("--explain", given.explains,
             "Tell what the steps between two versions do (--explain 0090 0089)");
  words.Flag("--dry-run", given.dryRun, "Do everything but write the file");
  words.Flag("--repair", given.repair, kRepairAbout);
}

const Verb kConvert(
    {.name = "convert",
     .about = "Convert a personality to another database version, step by step, into a new file",
     .details = "Each step lists its messages, the stored values that it changed and what the version "
                "can not hold. A step that refuses ends the conversion with exit code 1 and no file. See "
                "also: kd4410 versions.",
     .examples = {{"See what an older version can not hold",
                   "kd4410 convert samples/city-fleet.json --to 0089 --dry-run"},
                  {"What the step does to any file", "kd4410 convert --explain 0090 0089"}}},
    Take, ConvertFile);

}  // namespace
