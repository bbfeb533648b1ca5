#include "common/modRaiseError.h"

#include <vector>

#include "common/modCommonErrorHandler.h"
#include "common/modCommonGlobals.h"
#include "host/Imessenger.h"

namespace modRaiseError {
namespace {
constexpr std::int32_t kCriticalYesNo = 20;

std::vector<Iterminator*> terminators;  // the last one is in charge
bool terminateOnError = false;
}  // namespace

void InitRaiseError(Iterminator* terminator) {
  WithdrawTerminator(terminator);
  terminators.push_back(terminator);
  terminateOnError = true;
}

void WithdrawTerminator(const Iterminator* terminator) { std::erase(terminators, terminator); }

void RaiseError(const Fault& fault) {
  using modCommonErrorHandler::ShowMessageBox;
  if (modCommonGlobals::IsExecutingFromIDE()) {
    ShowMessageBox(fault.description + "\r\nDebug?", kCriticalYesNo);
    throw Error(fault);
  }
  if (!terminateOnError) throw Error(fault);
  ShowMessageBox(fault.description, MessageStyle::kCritical);
  if (terminators.empty()) throw Error(fault);
  RaiseIfFailed(terminators.back()->TerminateApplication());
}
}  // namespace modRaiseError
