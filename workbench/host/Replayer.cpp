#include "workbench/host/Replayer.h"

#include "platform/Locale.h"
#include "workbench/files/FileError.h"
#include "workbench/host/TierLoader.h"
#include "workbench/trace/Invocations.h"
#include "workbench/trace/Recorder.h"

namespace Trace {
namespace {

std::string TextOf(const Json& line, const char* name) {
  std::string text;
  FromJson(Member(line, name), text);
  return text;
}

std::int32_t NumberOf(const Json& line, const char* name) {
  std::int32_t number = 0;
  FromJson(Member(line, name), number);
  return number;
}

}  // namespace

template <typename Work>
auto Replayer::OnLine(Work work) const {
  try {
    return work();
  } catch (const BadValue& problem) {
    throw FileError(reader_.Path(), reader_.Line(), "trace", problem.what());
  }
}

Replayer::Replayer(const std::string& path) : reader_(path) { ReadHeader(); }

void Replayer::ReadHeader() {
  const Json* header = reader_.Peek();
  if (header == nullptr || !header->contains("format")) {
    throw FileError(reader_.Path(), 1, "format", "this is no trace of kd4410");
  }
  const Json line = reader_.Take();
  OnLine([&] {
    const std::int32_t format = NumberOf(line, "format");
    if (format != kFormat) throw BadValue("traces of format " + std::to_string(format) + " are not known");
    const std::string symbol = TextOf(line, "decimalSymbol");
    if (symbol != std::string(1, DecimalSymbol())) {
      throw BadValue("recorded with the decimal symbol \"" + symbol +
                     "\"; play it in a locale that has it (LC_ALL)");
    }
  });
}

Replayed Replayer::Play(const std::string& tierLibrary, const std::string& applicationFolder) {
  tierLibrary_ = tierLibrary;
  reader_.SetApplicationFolder(applicationFolder);
  try {
    PlayLines();
  } catch (const Over&) {
    isOver_ = true;
  } catch (...) {
    problem_ = std::current_exception();
  }
  outcome_.lastLine = reader_.Line();
  LetGo();
  if (problem_ != nullptr) std::rethrow_exception(problem_);
  return outcome_;
}

void Replayer::PlayLines() {
  for (;;) {
    const Json& next = NextLine();
    if (next.contains("end")) break;
    PlayLine(next);
  }
  static_cast<void>(reader_.Take());
  outcome_.isComplete = true;
}

void Replayer::PlayLine(const Json& next) {
  // The tier has not called where it once did.
  if (next.contains("ask")) Differ(reader_.Line() + 1, next, nullptr);
  const Json line = reader_.Take();
  if (line.contains("load")) {
    PlayLoad(line);
  } else if (line.contains("call")) {
    PlayCall(line);
  } else {
    OnLine([&] { throw BadValue("the line is out of place: " + LineOf(line)); });
  }
}

void Replayer::PlayLoad(const Json& line) {
  const auto library = TierLibrary::Load(tierLibrary_);
  const std::shared_ptr<IentryPoints> entryPoints(library, &library->EntryPoints());
  if (objects_.Reference(entryPoints) != line["load"]) {
    OnLine([&] { throw BadValue("the library is numbered out of turn"); });
  }
}

void Replayer::PlayCall(const Json& line) {
  const auto operation = OnLine([&] { return TextOf(line, "call"); });
  const std::string outer = std::exchange(running_, operation);
  const std::optional<Answer> answer =
      OnLine([&] { return Invoke(operation, NumberOf(line, "on"), Member(line, "in"), objects_); });
  if (isOver_) throw Over();
  if (!answer) Differ(reader_.Line(), line, "the object of the tier does not have this interface");
  Json now = Json::object({{"answer", operation}});
  AddOutcome(now, answer->status, answer->results);
  const Json& recorded = NextLine();
  if (LineOf(recorded) != LineOf(now)) Differ(reader_.Line() + 1, recorded, now);
  static_cast<void>(reader_.Take());
  running_ = outer;
  ++outcome_.calls;
}

void Replayer::PlayRelease() {
  const Json line = reader_.Take();
  OnLine([&] {
    const std::int32_t number = NumberOf(line, "release");
    if (!objects_.Release(number)) {
      throw BadValue("the tier has no object " + std::to_string(number));
    }
  });
  if (isOver_) throw Over();
}

Status Replayer::Carry(BorderCall& call) noexcept {
  try {
    return isOver_ ? AnswerAfterwards(call) : AnswerFromTrace(call);
  } catch (const Over&) {
    isOver_ = true;
  } catch (...) {
    isOver_ = true;
    problem_ = std::current_exception();
  }
  return Carry(call);
}

Status Replayer::AnswerFromTrace(BorderCall& call) {
  const Json now = LineOf("ask", call);
  const Json& next = NextLine();
  Json asked = next;
  asked.erase("out");
  asked.erase("error");
  if (LineOf(asked) != LineOf(now)) Differ(reader_.Line() + 1, next.contains("ask") ? asked : next, now);
  Json line = reader_.Take();
  if (!line.contains("out") && !line.contains("error")) {
    while (!NextLine().contains("answer")) PlayLine(NextLine());
    line = reader_.Take();
  }
  return OnLine([&] {
    Status status;
    if (line.contains("error")) {
      Fault fault;
      FromJson(line["error"], fault);
      status = Status(std::move(fault));
    } else {
      call.ReadResults(Member(line, "out"));
    }
    ++outcome_.calls;
    return status;
  });
}

/// The answers of the trace fit no more, so every call fails; a box would go to standard error instead.
Status Replayer::AnswerAfterwards(BorderCall& call) {
  constexpr std::int32_t kOk = 1;
  if (call.Operation() == "IhostServices.ShowMessageBox") {
    call.ReadResults(Json::array({kOk}));
    return {};
  }
  return {ErrorNumber::kInvalidCall, "kd4410", "The replay has ended"};
}

const Json& Replayer::NextLine() {
  for (;;) {
    const Json* next = reader_.Peek();
    if (next == nullptr) {
      outcome_.brokenIn = running_;
      throw Over();
    }
    if (!next->contains("release")) return *next;
    PlayRelease();
  }
}

void Replayer::Differ(int line, const Json& recorded, const Json& now) {
  outcome_.difference = {line, recorded, now};
  throw Over();
}

void Replayer::LetGo() {
  isOver_ = true;
  for (const auto& tier : objects_.AllOfTier<Itier>()) static_cast<void>(tier->Terminate());
  for (const auto& library : objects_.AllOfTier<IentryPoints>()) {
    std::shared_ptr<IclassFactory> factory;
    std::int32_t result = 0;
    static_cast<void>(library->DllGetClassObject("clsKD4410Tier", factory, result));
    if (factory != nullptr) static_cast<void>(factory->SetHostServices(nullptr));
  }
  objects_.Clear();
}

}  // namespace Trace
