#pragma once

#include <fstream>
#include <string>

#include "workbench/trace/Objects.h"

namespace Trace {

/// The layout of a trace: one JSON object a line. The first is the header:
///   {"format": 1, "tier": FILE NAME, "version": of the personality or null, "verb": of the command line,
///    "decimalSymbol": of the user}
/// Then, in the order of events,
///   {"load": OBJECT}                       the library of the tier has been loaded
///   {"call": OPERATION, "on": N, "in": [...]}   the host calls object N of the tier
///   {"ask": OPERATION, "on": N, "in": [...], "out": [...]}   the tier calls object N of the host
///   {"answer": OPERATION, "out": [...]}    the result of a call; of an ask only when calls stand between
///   {"release": N}                         the host lets object N of the tier go
///   {"end": EXIT CODE}
/// and "error" instead of "out" for a failed status. The application's folder stands for itself.
inline constexpr std::int32_t kFormat = 1;
inline constexpr const char* kApplicationFolder = "{application folder}";
/// Whether the line is of an operation through which folders cross the border.
bool MayNameFolders(const Json& line);
/// The line of a call without its outcome; `kind` is "call" or "ask".
Json LineOf(const char* kind, BorderCall& call);
/// Adds the fault, or the results of a success, to the line.
void AddOutcome(Json& line, const Status& status, Json results);

/// Carries the calls out and writes them to a file, each before the next one begins: after a crash the file
/// tells how far it went.
class Recorder final : public Channel {
 public:
  /// Throws a FileError for a file that can not be written.
  Recorder(std::string path, std::string verb);

  /// A tier is about to be loaded; the first one gives its names to the header. `version` is empty when no
  /// personality is open.
  void Begin(const std::string& tierLibrary, const std::string& version, std::string applicationFolder);
  /// The entry points of a library that has been loaded, as the host is to call them.
  std::shared_ptr<IentryPoints> Attach(const std::shared_ptr<IentryPoints>& library);
  /// The session has ended. Throws a FileError when the trace is not complete.
  void End(std::int32_t exitCode);

  Status Carry(BorderCall& call) noexcept override;
  void Release(std::int32_t number) noexcept override;
  Objects& KnownObjects() override { return objects_; }

 private:
  Status CarryToTier(BorderCall& call);
  Status CarryToHost(BorderCall& call);
  void WriteHeader(const Json& tier, const Json& version);
  void WriteEvent(const Json& line);
  void WriteLine(Json line);
  void WritePending();

  std::string path_;
  std::string verb_;
  std::string applicationFolder_;
  std::ofstream file_;
  bool hasHeader_ = false;
  bool hasEnded_ = false;
  std::string problem_;      // why a line is missing
  Json* pending_ = nullptr;  // a call of the tier that no line has told of yet
  Objects objects_{*this, Objects::Hold::Host};
};

}  // namespace Trace
