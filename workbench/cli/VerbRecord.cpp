#include <algorithm>
#include <iostream>
#include <memory>
#include <vector>

#include "workbench/cli/CommandLine.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/AtomicFile.h"
#include "workbench/files/FileError.h"
#include "workbench/store/TypedNames.h"
#include "workbench/trace/Recorder.h"

namespace {

struct RecordArguments {
  std::string trace;
  bool force = false;
  std::vector<std::string> words;  // behind the trace
};

void Take(Words& words, RecordArguments& given) {
  words.Required("TRACE", given.trace, "The file to be written");
  words.Flag("--force", given.force, "Overwrite the file if it exists");
  words.Rest("COMMAND", given.words, "What is recorded: a command with its words and options");
}

ExitCode Record(const RecordArguments& arguments, Workplace& workplace) {
  if (workplace.IsRecorded()) throw UsageError("this is being recorded already");
  const auto verb = std::ranges::find_if(arguments.words, Verb::Exists);
  if (verb == arguments.words.end()) throw UsageError("record needs a command behind " + arguments.trace);
  const AtomicFile trace(arguments.trace);
  if (trace.Exists() && !arguments.force) {
    throw UsageError(arguments.trace + " is there already; --force overwrites it");
  }
  trace.RequireRegular();
  const auto recorder = std::make_shared<Trace::Recorder>(arguments.trace, *verb);
  workplace.RecordBy(recorder);
  const ExitCode code = RunCommand(arguments.words, workplace);
  workplace.RecordBy(nullptr);
  try {
    recorder->End(static_cast<std::int32_t>(code));
    return code;
  } catch (const FileError& error) {
    std::cerr << workplace.prefix << error.what() << '\n';
    return std::max(code, ExitCode::CouldNot);
  }
}

const Verb kRecord(
    {.name = "record",
     .about = "Carry out another command and write every call between host and tier to a file",
     .details = "Behind TRACE stands a command as it is given otherwise, with its options; output and "
                "exit code are its own. The trace holds what the command read of the personality. See "
                "also: kd4410 replay.",
     .inScripts = false,
     .examples = {{"Record an edit", "kd4410 record edit.trace set samples/minimal.json TxPower_k6k 1 2"},
                  {"Record a check over an older trace",
                   "kd4410 record --force check.trace check samples/minimal.json"}}},
    Take, Record);

}  // namespace
