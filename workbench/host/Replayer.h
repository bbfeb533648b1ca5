#pragma once

#include <exception>
#include <optional>
#include <string>

#include "workbench/trace/Objects.h"
#include "workbench/trace/TraceReader.h"

namespace Trace {

/// How a replay went.
struct Replayed {
  struct Difference {
    int line = 0;
    Json recorded;
    Json now;  // null: nothing
  };

  int calls = 0;  // that were made as recorded, in both directions
  int lastLine = 0;
  /// False for a trace without its end: the session was killed, or the tier crashed.
  bool isComplete = false;
  /// The operation of the tier during which a trace without its end breaks off; empty for none.
  std::string brokenIn;
  std::optional<Difference> difference;
};

/// Makes the calls of the host that a trace tells of on a tier, and answers the tier's from the trace.
class Replayer final : public Channel {
 public:
  /// Throws a FileError for a file that is no trace, of an unknown format, or made by a user with another
  /// decimal symbol.
  explicit Replayer(const std::string& path);

  /// Plays the trace up to its end or the first difference. Throws a FileError for a damaged trace and for a
  /// library that can not be loaded. Nothing of the tier lives afterwards.
  Replayed Play(const std::string& tierLibrary, const std::string& applicationFolder);

  Status Carry(BorderCall& call) noexcept override;
  void Release(std::int32_t) noexcept override {}
  Objects& KnownObjects() override { return objects_; }

 private:
  /// The trace is over, at its end or before.
  struct Over {};

  void ReadHeader();
  void PlayLines();
  void PlayLine(const Json& next);
  void PlayLoad(const Json& line);
  void PlayCall(const Json& line);
  void PlayRelease();
  Status AnswerFromTrace(BorderCall& call);
  static Status AnswerAfterwards(BorderCall& call);
  /// The next line that is no release; those are played. Ends the replay when there is none.
  const Json& NextLine();
  [[noreturn]] void Differ(int line, const Json& recorded, const Json& now);
  /// Runs `work` on the line taken last, which is damaged when the work raises a BadValue.
  template <typename Work>
  auto OnLine(Work work) const;
  void LetGo();

  TraceReader reader_;
  Objects objects_{*this, Objects::Hold::Replay};
  std::string tierLibrary_;
  Replayed outcome_;
  std::string running_;  // the host's call that the tier is carrying out
  bool isOver_ = false;
  std::exception_ptr problem_;  // with a line that was read on behalf of the tier
};

}  // namespace Trace
