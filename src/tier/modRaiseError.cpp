#include "tier/modRaiseError.h"

#include "host/Imessenger.h"
#include "tier/modCommonErrorHandler.h"
#include "tier/modCommonGlobals.h"

namespace modRaiseError {
namespace {
constexpr std::int32_t kCriticalYesNo = 20;

Iterminator* terminator = nullptr;
bool terminateOnError = false;
}  // namespace

void InitRaiseError(Iterminator* newTerminator) {
  terminator = newTerminator;
  terminateOnError = true;
}

void WithdrawTerminator(const Iterminator* going) {
  if (terminator != going) return;
  terminator = nullptr;
  terminateOnError = false;
}

void RaiseError(const Fault& fault) {
  using modCommonErrorHandler::ShowMessageBox;
  if (modCommonGlobals::IsExecutingFromIDE()) {
    ShowMessageBox(fault.description + "\r\nDebug?", kCriticalYesNo);
    throw Error(fault);
  }
  if (!terminateOnError) throw Error(fault);
  ShowMessageBox(fault.description, MessageStyle::kCritical);
  Check(terminator->TerminateApplication());
}
}  // namespace modRaiseError
