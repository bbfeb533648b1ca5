#include "workbench/trace/Recorder.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "platform/Locale.h"
#include "workbench/files/FileError.h"

namespace Trace {

bool MayNameFolders(const Json& line) {
  constexpr std::string_view kFolderOperations = "IhostServices.";
  for (const char* kind : {"ask", "answer"}) {
    const auto found = line.find(kind);
    if (found == line.end()) continue;
    return found->is_string() && found->get_ref<const std::string&>().starts_with(kFolderOperations);
  }
  return false;
}

Json LineOf(const char* kind, BorderCall& call) {
  return {{kind, call.Operation()}, {"on", call.Object()}, {"in", call.Arguments()}};
}

void AddOutcome(Json& line, const Status& status, Json results) {
  if (status.Ok()) {
    line["out"] = std::move(results);
  } else {
    line["error"] = ToJson(status.Reason());
  }
}

Recorder::Recorder(std::string path, std::string verb)
    : path_(std::move(path)), verb_(std::move(verb)), file_(path_, std::ios::binary | std::ios::trunc) {
  if (!file_) throw FileError(path_, 0, "trace", std::strerror(errno));
}

void Recorder::Begin(const std::string& tierLibrary, const std::string& version,
                     std::string applicationFolder) {
  applicationFolder_ = std::move(applicationFolder);
  if (hasHeader_) return;
  WriteHeader(std::filesystem::path(tierLibrary).filename().string(),
              version.empty() ? Json() : Json(version));
}

std::shared_ptr<IentryPoints> Recorder::Attach(const std::shared_ptr<IentryPoints>& library) {
  WriteEvent(Json::object({{"load", objects_.Reference(library)}}));
  return objects_.Cross(library);
}

void Recorder::End(std::int32_t exitCode) {
  if (!hasHeader_) WriteHeader(nullptr, nullptr);
  WriteEvent(Json::object({{"end", exitCode}}));
  hasEnded_ = true;
  if (!problem_.empty()) throw FileError(path_, 0, "trace", "is not complete: " + problem_);
}

Status Recorder::Carry(BorderCall& call) noexcept {
  return call.Callee() == Side::Tier ? CarryToTier(call) : CarryToHost(call);
}

/// Two lines: the call may be the one in which the tier crashes.
Status Recorder::CarryToTier(BorderCall& call) {
  WriteEvent(LineOf("call", call));
  Status status = call.Run();
  Json answer = Json::object({{"answer", call.Operation()}});
  AddOutcome(answer, status, status.Ok() ? call.Results() : Json());
  WriteEvent(answer);
  // Behind the answer: what the caller held until now may be released.
  if (status.Ok()) call.TakeResults();
  return status;
}

Status Recorder::CarryToHost(BorderCall& call) {
  Json line = LineOf("ask", call);
  WritePending();
  pending_ = &line;
  Status status = call.Run();
  const bool hasNoCallsInside = pending_ == &line;
  pending_ = nullptr;
  if (!hasNoCallsInside) line = Json::object({{"answer", call.Operation()}});
  AddOutcome(line, status, status.Ok() ? call.Results() : Json());
  WriteEvent(line);
  if (status.Ok()) call.TakeResults();
  return status;
}

void Recorder::Release(std::int32_t number) noexcept {
  objects_.Release(number);
  WriteEvent(Json::object({{"release", number}}));
}

void Recorder::WriteHeader(const Json& tier, const Json& version) {
  hasHeader_ = true;
  WriteLine({{"format", kFormat},
             {"tier", tier},
             {"version", version},
             {"verb", verb_},
             {"decimalSymbol", std::string(1, DecimalSymbol())}});
}

void Recorder::WriteEvent(const Json& line) {
  WritePending();
  WriteLine(line);
}

void Recorder::WritePending() {
  if (pending_ == nullptr) return;
  const Json& line = *pending_;
  pending_ = nullptr;
  WriteLine(line);
}

void Recorder::WriteLine(Json line) {
  if (hasEnded_ || !problem_.empty()) return;
  if (MayNameFolders(line)) ReplaceFolder(line, applicationFolder_, kApplicationFolder);
  if (!(file_ << LineOf(line) << '\n').flush()) problem_ = std::strerror(errno);
}

}  // namespace Trace
