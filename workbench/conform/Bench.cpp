#include <exception>

#include "workbench/conform/Calls.h"
#include "workbench/conform/Operations.h"
#include "workbench/host/HostObjects.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/ValueText.h"

namespace Conform {

Status WatchfulMessenger::RefreshField(std::string_view uiid) {
  if (provider_ != nullptr && !provider_->IsAutoUpdating()) reloadedInSilence_.emplace_back(uiid);
  return RecordingMessenger::RefreshField(uiid);
}

Bench::Bench(const HostParts& parts, const Provider& stored)
    : parts_(parts), session_(parts, stored.StoredCopy(), messenger_) {
  session_.ConvertToForms();
  Content().SetMonitor(monitor_);
  messenger_->SetMonitor(monitor_);
  messenger_->Watch(&Content());
}

void Bench::MakeDestination(const std::string& version) {
  destination_ = SharedContent(*parts_.schemas, Content(), version);
  destination_->SetMonitor(monitor_);
  session_.Host().UseStore(destination_);
}

void Bench::Prepare(const Call& call) {
  if (call.operation->prepare != nullptr) call.operation->prepare(*this, call);
  messenger_->Clear();
  messenger_->ForgetReloads();
  session_.Host().Services().Clear();
  monitor_->Clear();
}

void Bench::Run(const Call& call, Answer& answer) {
  try {
    const Status status = call.operation->run(*this, call, answer);
    if (!status.Ok()) answer.fault = status.Reason();
  } catch (const std::exception& error) {
    answer.escaped = error.what();
  } catch (...) {
    answer.escaped = "of an unknown type";
  }
  const ApplicationServices& services = session_.Host().Services();
  answer.boxes = services.BoxTexts();
  answer.terminations = services.Terminations();
  answer.isAutoUpdating = Content().IsAutoUpdating();
}

std::string Bench::Trail(const Journal& journal) const {
  std::string trail;
  for (const Shown& box : messenger_->Boxes()) {
    trail += "box " + std::to_string(box.style) + " " + box.title + ": " + box.text + '\n';
  }
  for (const std::string& uiid : messenger_->Refreshed()) trail += "reload " + uiid + '\n';
  for (const auto& [uiid, enabled] : messenger_->EnabledStates()) {
    trail += (enabled ? "enable " : "disable ") + uiid + '\n';
  }
  for (const Change& change : journal.Changes()) {
    trail += change.field == nullptr ? "count of " + std::to_string(change.table->number) : change.field->id;
    trail += " " + std::to_string(change.record) + " = " + ValueText::Of(change.now) + '\n';
  }
  return trail;
}

}  // namespace Conform
