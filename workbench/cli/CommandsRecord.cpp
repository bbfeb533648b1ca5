#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "workbench/cli/Commands.h"
#include "workbench/files/FileError.h"
#include "workbench/host/Replayer.h"
#include "workbench/host/TierLoader.h"
#include "workbench/store/TypedNames.h"
#include "workbench/trace/Recorder.h"

namespace {

using Json = Workplace::Json;

struct RecordArguments {
  std::string trace;
  bool force = false;
  std::vector<std::string> words;  // behind the trace
  std::string verb;                // among them; empty when there is none
  std::string prefix;
};

ExitCode Record(const RecordArguments& arguments, Workplace& workplace) {
  if (workplace.IsRecorded()) throw UsageError("this is being recorded already");
  if (arguments.verb.empty()) throw UsageError("record needs a command behind " + arguments.trace);
  const AtomicFile trace(arguments.trace);
  if (trace.Exists() && !arguments.force) {
    throw UsageError(arguments.trace + " is there already; --force overwrites it");
  }
  trace.RequireRegular();
  const auto recorder = std::make_shared<Trace::Recorder>(arguments.trace, arguments.verb);
  workplace.RecordBy(recorder);
  const ExitCode code = RunCommand(arguments.words, workplace, arguments.prefix);
  workplace.RecordBy(nullptr);
  try {
    recorder->End(static_cast<std::int32_t>(code));
    return code;
  } catch (const FileError& error) {
    std::cerr << arguments.prefix << error.what() << '\n';
    return std::max(code, ExitCode::CouldNot);
  }
}

std::string Counted(int calls) { return std::to_string(calls) + (calls == 1 ? " call" : " calls"); }

void Print(const std::string& trace, const Trace::Replayed& replayed, std::ostream& out) {
  if (replayed.difference) {
    const auto& [line, recorded, now] = *replayed.difference;
    out << trace << ':' << line << ": the tier differs, after " << Counted(replayed.calls) << " as recorded\n"
        << "  recorded: " << Trace::LineOf(recorded) << '\n'
        << "  now:      " << (now.is_null() ? "no call" : Trace::LineOf(now)) << '\n';
    return;
  }
  out << Counted(replayed.calls) << ", no difference\n";
  if (replayed.isComplete) return;
  out << "The trace breaks off behind line " << replayed.lastLine
      << (replayed.brokenIn.empty() ? "" : ", inside " + replayed.brokenIn) << ".\n";
}

/// As it stands in a trace, texts that are no UTF-8 too.
Json Printable(const Trace::Json& line) { return Json::parse(Trace::LineOf(line)); }

Json JsonOf(const std::string& trace, const Trace::Replayed& replayed) {
  Json data = {{"trace", trace},
               {"calls", replayed.calls},
               {"complete", replayed.isComplete},
               {"brokenIn", replayed.brokenIn.empty() ? Json(nullptr) : Json(replayed.brokenIn)},
               {"difference", nullptr}};
  if (replayed.difference) {
    const auto& [line, recorded, now] = *replayed.difference;
    data["difference"] = {{"line", line}, {"recorded", Printable(recorded)}, {"now", Printable(now)}};
  }
  return data;
}

ExitCode Replay(const std::string& trace, Workplace& workplace) {
  const auto replayer = std::make_shared<Trace::Replayer>(trace);
  const Trace::Replayed replayed =
      replayer->Play(FindTierLibrary(workplace.options.tier), FindDataFolder(workplace.options.data));
  if (workplace.options.json) {
    workplace.Emit(JsonOf(trace, replayed));
  } else {
    Print(trace, replayed, workplace.Out());
  }
  return replayed.difference ? ExitCode::No : ExitCode::Done;
}

bool HasCommand(CLI::App& app, const std::string& name) {
  return !app.get_subcommands([&](CLI::App* one) { return one->get_name() == name; }).empty();
}

void AddRecord(CLI::App& app, Action& action, const std::string& prefix) {
  auto given = std::make_shared<RecordArguments>();
  given->prefix = prefix;
  CLI::App* command = app.add_subcommand(
      "record", "Carry out another command and write every call between host and tier to a file");
  command->footer(
      "Behind TRACE stands a command as it is given otherwise, with its options; output and exit code are\n"
      "its own. The trace holds what the command read of the personality. See also: kd4410 replay.");
  // What stands behind TRACE is left to the command that is recorded.
  command->fallthrough(false);
  command->prefix_command();
  command->add_option("TRACE", given->trace, "The file to be written")->required();
  command->add_flag("--force", given->force, "Overwrite the file if it exists");
  command->callback([given, command, &app, &action] {
    given->words = command->remaining();
    const auto verb =
        std::ranges::find_if(given->words, [&](const std::string& word) { return HasCommand(app, word); });
    if (verb != given->words.end()) given->verb = *verb;
    action = [given](Workplace& workplace) { return Record(*given, workplace); };
  });
}

void AddReplay(CLI::App& app, Action& action) {
  auto trace = std::make_shared<std::string>();
  CLI::App* command = app.add_subcommand(
      "replay",
      "Make the calls of a trace on a tier (--tier) and report where it acts otherwise than recorded");
  command->footer(
      "No personality is needed: the calls of the tier are answered from the trace, questions to the user\n"
      "among them. The exit code is 1 for a difference. See also: kd4410 record.");
  command->add_option("TRACE", *trace, "What kd4410 record has written")->required();
  command->callback(
      [trace, &action] { action = [trace](Workplace& workplace) { return Replay(*trace, workplace); }; });
}

}  // namespace

void AddTraceCommands(CLI::App& app, Action& action, const std::string& prefix) {
  AddRecord(app, action, prefix);
  AddReplay(app, action);
}
