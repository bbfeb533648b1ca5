#include "workbench/conform/Runner.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <list>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <thread>

extern char** environ;

namespace Conform {
namespace {

using Clock = std::chrono::steady_clock;

/// The reading end of what a process says.
class Stream {
 public:
  explicit Stream(int file) : file_(file) {}
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  ~Stream() { Close(); }

  bool IsOpen() const { return file_ >= 0; }
  int Number() const { return file_; }
  const std::string& Text() const { return text_; }
  /// Takes what has come; closes at the end.
  void Read() {
    char buffer[65536];
    const ssize_t got = ::read(file_, buffer, sizeof buffer);
    if (got > 0) text_.append(buffer, static_cast<std::size_t>(got));
    if (got == 0 || (got < 0 && errno != EINTR && errno != EAGAIN)) Close();
  }
  void KeepEnd(std::size_t size) {
    if (text_.size() > 2 * size) text_.erase(0, text_.size() - size);
  }

 private:
  void Close() {
    if (file_ >= 0) ::close(file_);
    file_ = -1;
  }
  int file_;
  std::string text_;
};

struct Pipe {
  Pipe() {
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error(std::string("pipe: ") + std::strerror(errno));
  }
  int ends[2];
};

/// A check under way.
class Process {
 public:
  Process(std::size_t place, const Check& check, const RunPlan& plan) : Process(place, check, plan, {}, {}) {}

  std::size_t Place() const { return place_; }
  bool IsTalking() const { return out_.IsOpen() || errors_.IsOpen(); }
  void AddTo(std::vector<pollfd>& files) const {
    for (const Stream* stream : {&out_, &errors_}) files.push_back({stream->Number(), POLLIN, 0});
  }
  void Read(const pollfd& out, const pollfd& errors) {
    constexpr std::size_t kLastWords = 2000;
    if (out.revents != 0) out_.Read();
    if (errors.revents != 0) errors_.Read();
    errors_.KeepEnd(kLastWords);
  }
  Clock::duration TimeLeft() const { return end_ - Clock::now(); }
  /// Ends it when its time is up.
  void EndInTime() {
    if (isEnded_ || TimeLeft() > Clock::duration::zero()) return;
    ::kill(child_, SIGKILL);
    isEnded_ = true;
  }
  CheckResult Result(const Check& check);

 private:
  Process(std::size_t place, const Check& check, const RunPlan& plan, Pipe out, Pipe errors)
      : place_(place), out_(out.ends[0]), errors_(errors.ends[0]), end_(Clock::now() + plan.patience) {
    Spawn(check, plan, out.ends[1], errors.ends[1]);
    ::close(out.ends[1]);
    ::close(errors.ends[1]);
  }
  void Spawn(const Check& check, const RunPlan& plan, int out, int errors);
  void TakeLines(CheckResult& result, bool& isComplete) const;

  std::size_t place_;
  Stream out_;
  Stream errors_;
  Clock::time_point end_;
  pid_t child_ = 0;
  bool isEnded_ = false;
};

void Process::Spawn(const Check& check, const RunPlan& plan, int out, int errors) {
  std::vector<std::string> words = {
      "kd4410",         "conform", "--here",        "--check", std::string(check.name),  "--tier",
      plan.tierLibrary, "--data",  plan.dataFolder, "--seed",  std::to_string(plan.seed)};
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_adddup2(&actions, out, 1);
  ::posix_spawn_file_actions_adddup2(&actions, errors, 2);
  const int problem = ::posix_spawn(&child_, "/proc/self/exe", &actions, nullptr, arguments.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  if (problem != 0)
    throw std::runtime_error(std::string("a check can not be started: ") + std::strerror(problem));
}

void Process::TakeLines(CheckResult& result, bool& isComplete) const {
  std::size_t start = 0;
  for (std::size_t end = 0; (end = out_.Text().find('\n', start)) != std::string::npos; start = end + 1) {
    const auto line = nlohmann::json::parse(out_.Text().substr(start, end - start), nullptr, false);
    if (!line.is_object()) continue;  // printed by the tier
    if (line.contains("tried")) {
      result.tried = line.value("tried", std::int64_t{0});
      isComplete = true;
    } else if (line.contains("what")) {
      result.findings.push_back({line.value("at", ""), line.value("what", "")});
    }
  }
}

CheckResult Process::Result(const Check& check) {
  CheckResult result;
  result.check = check;
  int status = 0;
  while (::waitpid(child_, &status, 0) < 0 && errno == EINTR) continue;
  bool isComplete = false;
  TakeLines(result, isComplete);
  if (isEnded_) {
    result.outcome = Outcome::Hung;
    result.end = "it did not end in time";
  } else if (WIFSIGNALED(status)) {
    result.outcome = Outcome::Crashed;
    result.end = std::string("it crashed: ") + ::strsignal(WTERMSIG(status));
  } else if (!isComplete || WEXITSTATUS(status) != 0) {
    result.outcome = Outcome::Ended;
    result.end = "it ended with exit code " + std::to_string(WEXITSTATUS(status)) +
                 (isComplete ? "" : ", without a result");
  } else if (!result.findings.empty()) {
    result.outcome = Outcome::Failed;
  } else {
    result.outcome = result.tried > 0 ? Outcome::Passed : Outcome::Idle;
    if (result.tried == 0) result.end = "it found nothing to try";
  }
  if (!result.end.empty()) result.lastWords = errors_.Text();
  return result;
}

/// Waits until one of them says something, or its time is up.
void Listen(std::list<Process>& running) {
  std::vector<pollfd> files;
  Clock::duration wait = std::chrono::seconds(1);
  for (const Process& process : running) {
    process.AddTo(files);
    wait = std::clamp<Clock::duration>(process.TimeLeft(), std::chrono::milliseconds(10), wait);
  }
  ::poll(files.data(), files.size(),
         static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(wait).count()));
  auto file = files.begin();
  for (Process& process : running) {
    process.Read(file[0], file[1]);
    process.EndInTime();
    file += 2;
  }
}

}  // namespace

std::string_view NameOf(Outcome outcome) {
  constexpr std::string_view kNames[] = {"passed", "failed", "crashed", "hung", "ended", "idle"};
  return kNames[static_cast<std::size_t>(outcome)];
}

std::vector<CheckResult> RunChecks(const std::vector<Check>& checks, const RunPlan& plan) {
  const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
  std::vector<CheckResult> results(checks.size());
  std::list<Process> running;
  std::size_t next = 0;
  while (next < checks.size() || !running.empty()) {
    while (next < checks.size() && running.size() < cores) {
      running.emplace_back(next, checks[next], plan);
      ++next;
    }
    Listen(running);
    std::erase_if(running, [&](Process& process) {
      if (process.IsTalking()) return false;
      results[process.Place()] = process.Result(checks[process.Place()]);
      return true;
    });
  }
  return results;
}

}  // namespace Conform
