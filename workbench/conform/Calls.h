#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Error.h"
#include "workbench/host/Messengers.h"
#include "workbench/jobs/Session.h"

namespace Conform {

/// What a call asks the tier about.
enum class Subject { FieldRule, ControlState, Form, Grid, Transformation, ComboList, VersionPair, Whole };

class Bench;
struct Answer;
struct Operation;

/// A call on the tier with its arguments.
struct Call {
  const Operation* operation;
  std::string name;     // a UIID, FieldId, form, grid or version, whose case does not count; empty for none
  RecordNr record = 0;  // 0: it takes none
  Variant value = {};
  /// The host may make it on this personality. Any other may end the application, in good order.
  bool isLegal = true;

  /// "ValidateByUIID TxPower_k6k record 1 value 0"
  std::string Text() const;
};

/// What became of a call.
struct Answer {
  static constexpr Boolean kUnwritten = 5;

  std::optional<Fault> fault;  // of a failed status
  std::string escaped;         // an exception that crossed the border
  Boolean result = kUnwritten;
  std::string left;  // what else was written for the caller
  /// Faults of the tier that it showed, and how often it asked to end the application.
  std::vector<std::string> boxes;
  int terminations = 0;
  bool isAutoUpdating = false;  // the provider, afterwards
  /// What the user and the forms were told, and what changed; made only by `Trail`.
  std::string trail;

  std::string Text() const;
};

/// Answers every question Yes, keeps what it is told, and notes a form that is reloaded while the provider is
/// silent.
class WatchfulMessenger final : public RecordingMessenger {
 public:
  /// The provider lives as long as the tier that the messenger serves.
  void Watch(const Provider* provider) { provider_ = provider; }
  Status RefreshField(std::string_view uiid) override;
  const std::vector<std::string>& ReloadedInSilence() const { return reloadedInSilence_; }
  void ForgetReloads() { reloadedInSilence_.clear(); }

 protected:
  Button Answer(const Shown&) override { return Button::Yes; }

 private:
  const Provider* provider_ = nullptr;
  std::vector<std::string> reloadedInSilence_;
};

/// A tier with a personality open on its forms, on which calls are tried: each leaves the content as it was.
class Bench {
 public:
  /// A fault of the tier on the way leaves by a TierFault.
  Bench(const HostParts& parts, const Provider& stored);

  /// Makes the call and takes back what it wrote. `arm` runs right before the tier is called.
  template <typename Arm>
  Answer Try(const Call& call, Arm arm, bool wantsTrail = false);
  Answer Try(const Call& call, bool wantsTrail = false) {
    return Try(
        call, [] {}, wantsTrail);
  }

  Session& GetSession() { return session_; }
  Provider& Content() { return session_.Content(); }
  WatchfulMessenger& Messenger() { return *messenger_; }
  /// Counts the calls on the content, on the destination of a conversion and on the messenger.
  CallMonitor& Monitor() { return *monitor_; }
  /// Where a conversion writes to, made anew for each.
  const std::shared_ptr<Provider>& Destination() const { return destination_; }
  void MakeDestination(const std::string& version);

 private:
  void Prepare(const Call& call);
  void Run(const Call& call, Answer& answer);
  std::string Trail(const Journal& journal) const;

  HostParts parts_;
  std::shared_ptr<CallMonitor> monitor_ = std::make_shared<CallMonitor>();
  std::shared_ptr<WatchfulMessenger> messenger_ = std::make_shared<WatchfulMessenger>();
  Session session_;
  std::shared_ptr<Provider> destination_;
};

/// Every call of the subject that the schema of the open personality knows, on the first record and the last:
/// rules with what is stored and with a few other values, conversions in both directions, grids through all
/// their steps.
std::vector<Call> CallsOn(Bench& bench, Subject subject);
std::vector<Call> AllCallsOn(Bench& bench);
/// Each of those that names a record, for records that no table has. None of them is legal.
std::vector<Call> StrayCallsOn(Bench& bench);

/// What is wrong with the answer to a call on which nothing failed; empty for nothing.
std::string TroubleOf(const Call& call, const Answer& answer);

template <typename Arm>
Answer Bench::Try(const Call& call, Arm arm, bool wantsTrail) {
  Answer answer;
  Journal journal(Content());
  Prepare(call);
  arm();
  Run(call, answer);
  monitor_->NeverFail();
  if (wantsTrail) answer.trail = Trail(journal);
  journal.Rollback();
  return answer;
}

}  // namespace Conform
