#include <memory>
#include <ostream>

#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/host/Replayer.h"
#include "workbench/host/TierLoader.h"
#include "workbench/trace/Recorder.h"

namespace {

std::string Counted(int calls) { return std::to_string(calls) + (calls == 1 ? " call" : " calls"); }

void Print(const std::string& trace, const Trace::Replayed& replayed, std::ostream& out) {
  if (replayed.difference) {
    const auto& [line, recorded, now] = *replayed.difference;
    out << Printable::Text(trace) << ':' << line << ": the tier differs, after " << Counted(replayed.calls)
        << " as recorded\n"
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
Json Printable(const Trace::Json& line) { return Json::Parse(Trace::LineOf(line)); }

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

struct ReplayArguments {
  std::string trace;
};

ExitCode Replay(const ReplayArguments& arguments, Workplace& workplace) {
  const std::string& trace = arguments.trace;
  const auto replayer = std::make_shared<Trace::Replayer>(trace);
  const Trace::Replayed replayed =
      replayer->Play(FindTierLibrary(workplace.options.tier), FindDataFolder(workplace.options.data));
  workplace.Tell([&] { return JsonOf(trace, replayed); },
                 [&](std::ostream& out) { Print(trace, replayed, out); });
  return replayed.difference ? ExitCode::No : ExitCode::Done;
}

void Take(Words& words, ReplayArguments& given) {
  words.Required("TRACE", given.trace, "What kd4410 record has written");
}

const Verb kReplay(
    {.name = "replay",
     .about = "Make the calls of a trace on a tier (--tier) and report where it acts otherwise than recorded",
     .details = "No personality is needed: the calls of the tier are answered from the trace, questions "
                "to the user among them. The exit code is 1 for a difference. See also: kd4410 record.",
     .inScripts = false,
     .examples = {{"Whether the tier still acts as recorded", "kd4410 replay edit.trace"},
                  {"The same for a program", "kd4410 replay check.trace --json"}}},
    Take, Replay);

}  // namespace
